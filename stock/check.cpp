#include "stock/check.h"

#include <algorithm>
#include <map>
#include <set>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/sqltext.h"
#include "frame/transaction.h"
#include "stock/posting.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;
using C = Hallazgo::Clase;

/// An operation and one of its lines.
using Dueno = std::pair<QString, qint64>;

Dueno duenoDe(const Movimiento &m) {
    return {m.interno.toUpper(), m.idlinea};
}

/// A line of an operation.
struct LineaDeOperacion {
    QString interno;  ///< as it is spelled
    bool marcada = false;
};

/// The whole stock in memory, as it is counted.
struct Todo {
    std::map<qint64, Linea> lineas;
    std::vector<Movimiento> tomas;                          ///< that stand
    std::set<qint64> devueltas;                             ///< numbers of those that were given back
    std::set<Dueno> conHistoria;                            ///< lines that took at some time
    std::set<QString> operaciones;                          ///< in capitals
    std::map<Dueno, LineaDeOperacion> lineasDeOperaciones;  ///< every one that took or is marked
};

Dueno lineaLeida(const Recordset &rs) {
    return {rs.Texto(u"interno").toUpper(), static_cast<qint64>(rs.Numero(u"id"))};
}

Todo leerTodo(AppContext &ctx) {
    Todo t;
    for (const Linea &l : LeerLineas(ctx, u"1 = 1"_s)) t.lineas[l.id] = l;
    for (const Movimiento &m : LeerMovimientos(ctx, u"1 = 1"_s)) {
        t.conHistoria.insert(duenoDe(m));
        if (m.sigue())
            t.tomas.push_back(m);
        else
            t.devueltas.insert(m.id);
    }
    Recordset rs;
    for (Consultar(ctx, internos,
                   u"select interno "
                   "from caratula "
                   "where interno in (select interno from stockmov)"_s,
                   rs);
         !rs.Eof(); rs.MoveNext())
        t.operaciones.insert(rs.Texto(u"interno").toUpper());
    for (const char *cuales : {"cancelaciones = 'OK'", "id in (select idlinea from stockmov)"})
        for (Consultar(ctx, internos,
                       "select interno,id,cancelaciones "
                       "from subitems "
                       "where "_L1 +
                           QLatin1String(cuales),
                       rs);
             !rs.Eof(); rs.MoveNext())
            t.lineasDeOperaciones[lineaLeida(rs)] = {rs.Texto(u"interno"),
                                                     rs.Texto(u"cancelaciones") == "OK"_L1};
    return t;
}

QString nombreDeToma(const Movimiento &m) {
    return u"la toma %1 de la operación %2, línea %3"_s.arg(QString::number(m.id), m.interno,
                                                            QString::number(m.idlinea));
}

Hallazgo hallar(C clase, const Movimiento &m, const QString &texto) {
    return {clase, m.idstock, m.id, m.interno, m.idlinea, texto};
}

void revisarSaldos(const AppContext &ctx, const Todo &t, std::vector<Hallazgo> &hallazgos) {
    std::map<qint64, double> tomado;
    for (const Movimiento &m : t.tomas) tomado[m.idstock] += m.descontado;
    for (const auto &[id, l] : t.lineas) {
        const double cuenta = numeros::redondear(l.cantidad - tomado[id], decimalesDeSaldo);
        const QString donde = u"Declaración %1, item %2, subitem %3: "_s.arg(l.dit, QString::number(l.item),
                                                                             QString::number(l.subitem));
        if (cuenta < 0)
            hallazgos.push_back({C::Sobregirada, id, 0, l.interno, l.idlinea,
                                 donde + u"se tomaron %1 más que lo que entró; devuelva alguna toma."_s.arg(
                                             CantidadDicha(ctx, -cuenta, l.idunidad)),
                                 false});
        else if (!numeros::iguales(cuenta, l.saldo, decimalesDeSaldo))
            hallazgos.push_back(
                {C::Saldo, id, 0, l.interno, l.idlinea,
                 donde + u"el saldo es %1 y la cuenta da %2."_s.arg(CantidadDicha(ctx, l.saldo, {}),
                                                                    CantidadDicha(ctx, cuenta, {}))});
    }
}

void revisarTomas(const Todo &t, std::vector<Hallazgo> &hallazgos) {
    for (const Movimiento &m : t.tomas) {
        const bool sinLinea = m.idlinea != 0 && t.lineasDeOperaciones.count(duenoDe(m)) == 0;
        if (sinLinea || t.operaciones.count(m.interno.toUpper()) == 0)
            hallazgos.push_back(
                hallar(C::MovimientoSinDueno, m, u"Sigue %1, que ya no existe."_s.arg(nombreDeToma(m))));
        else if (m.idstock != 0 && t.lineas.count(m.idstock) == 0)
            hallazgos.push_back(
                hallar(C::MovimientoSinStock, m,
                       u"Sigue %1, y su línea de stock ya no existe."_s.arg(nombreDeToma(m))));
    }
}

void revisarDescargas(AppContext &ctx, const Todo &t, std::vector<Hallazgo> &hallazgos) {
    std::map<qint64, int> filas;
    Recordset rs;
    for (Consultar(ctx, internos,
                   u"select interno,idexportacion "
                   "from descargas "
                   "where idexportacion <> 0"_s,
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        const auto movimiento = static_cast<qint64>(rs.Numero(u"idexportacion"));
        ++filas[movimiento];
        // A number that no movement ever had is of elsewhere.
        if (t.devueltas.count(movimiento) != 0)
            hallazgos.push_back({C::DescargaSuelta, 0, movimiento, rs.Texto(u"interno"), 0,
                                 u"La operación %1 descarga la toma %2, que se devolvió."_s.arg(
                                     rs.Texto(u"interno"), QString::number(movimiento))});
    }
    for (const Movimiento &m : t.tomas)
        if (filas[m.id] != 1)
            hallazgos.push_back(
                hallar(C::SinDescarga, m,
                       u"Tiene %1 descargas %2 y debe tener una."_s.arg(filas[m.id]).arg(nombreDeToma(m))));
}

void revisarMarcas(const Todo &t, std::vector<Hallazgo> &hallazgos) {
    std::set<Dueno> tomaron;
    for (const Movimiento &m : t.tomas)
        if (!m.paraItem) tomaron.insert(duenoDe(m));
    for (const auto &[dueno, linea] : t.lineasDeOperaciones) {
        const bool tomo = tomaron.count(dueno) != 0;
        if (tomo == linea.marcada) continue;
        Hallazgo h{tomo ? C::TomaSinMarca : C::MarcaSinToma, 0, 0, linea.interno, dueno.second, {}};
        h.texto = tomo ? u"La línea %1 de la operación %2 tomó del stock y no lleva la marca OK."_s
                       : u"La línea %1 de la operación %2 lleva la marca OK y no tomó del stock."_s;
        h.texto = h.texto.arg(QString::number(dueno.second), linea.interno);
        // A mark that this stock never gave tells of another one.
        h.reparable = tomo || t.conHistoria.count(dueno) != 0;
        hallazgos.push_back(h);
    }
}

/// The movements that stand of a finding; none when they were given back meanwhile.
std::vector<Movimiento> suToma(AppContext &ctx, const Hallazgo &h) {
    return LeerMovimientos(ctx, "devuelta is null and id = "_L1 + QString::number(h.movimiento));
}

void devolverLaToma(AppContext &ctx, const Hallazgo &h) {
    for (const Movimiento &m : suToma(ctx, h)) {
        AsentarDevolucion(ctx, {m});
        if (!m.paraItem) AsentarMarca(ctx, m.interno, m.idlinea);
    }
}

void recontar(AppContext &ctx, const Hallazgo &h) {
    const QString id = QString::number(h.idstock);
    Recordset rs;
    Consultar(ctx, internos,
              "select sum(descontado) as tomado "
              "from stockmov "
              "where devuelta is null and idstock = "_L1 +
                  id,
              rs);
    Ejecutar(ctx, internos,
             "update stock "
             "set saldo = round(cantidad - "_L1 +
                 SqlNumber(ctx, rs.Numero(u"tomado")) + ", "_L1 + QString::number(decimalesDeSaldo) +
                 ") "
                 "where id = "_L1 +
                 id);
}

/// The row of descargas of a taking is made again from its line of the stock; a taking without one is given
/// back, since nothing else tells what it took.
void rehacerDescarga(AppContext &ctx, const Hallazgo &h) {
    Ejecutar(ctx, internos,
             "delete from descargas "
             "where interno = "_L1 +
                 EnComillas(h.interno) + " and idexportacion = "_L1 + QString::number(h.movimiento));
    for (const Movimiento &m : suToma(ctx, h)) {
        if (const auto linea = LeerLinea(ctx, m.idstock))
            AsentarDescarga(ctx, m, *linea);
        else
            devolverLaToma(ctx, h);
    }
}

void repararUna(AppContext &ctx, const Hallazgo &h) {
    switch (h.clase) {
        case C::Saldo:
            recontar(ctx, h);
            break;
        case C::MovimientoSinDueno:
        case C::MovimientoSinStock:
            devolverLaToma(ctx, h);
            break;
        case C::SinDescarga:
            rehacerDescarga(ctx, h);
            break;
        case C::DescargaSuelta:
            Ejecutar(ctx, internos,
                     "delete from descargas "
                     "where interno = "_L1 +
                         EnComillas(h.interno) + " and idexportacion = "_L1 + QString::number(h.movimiento));
            break;
        case C::MarcaSinToma:
        case C::TomaSinMarca:
            AsentarMarca(ctx, h.interno, h.idlinea);
            break;
        case C::Sobregirada:
            break;
    }
}

}  // namespace

std::vector<Hallazgo> Revisar(AppContext &ctx) {
    const Todo t = leerTodo(ctx);
    std::vector<Hallazgo> hallazgos;
    revisarTomas(t, hallazgos);
    revisarDescargas(ctx, t, hallazgos);
    revisarMarcas(t, hallazgos);
    revisarSaldos(ctx, t, hallazgos);
    return hallazgos;
}

int Reparar(AppContext &ctx, const std::vector<Hallazgo> &hallazgos) {
    int reparados = 0;
    for (const Hallazgo &h : hallazgos) {
        if (!h.reparable) continue;
        Transaccion transaccion(ctx.conexion(internos));
        // Written first, so that what is read next cannot change any more.
        Ejecutar(ctx, internos, "update stock set saldo = saldo where id = "_L1 + QString::number(h.idstock));
        repararUna(ctx, h);
        transaccion.Confirmar();
        ++reparados;
    }
    return reparados;
}

}  // namespace stock
