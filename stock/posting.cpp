#include "stock/posting.h"

#include <algorithm>
#include <map>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/sqltext.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

QString nombrar(const Linea &l) {
    return u"la declaración %1, item %2, subitem %3"_s.arg(l.dit, QString::number(l.item),
                                                           QString::number(l.subitem));
}

QString numero(qint64 id) {
    return QString::number(id);
}

/// The value of what is taken: proportional, and all that is left of it where nothing is left of the line.
/// Read behind the change of the balance, which holds the line for this connection.
double cifDe(AppContext &ctx, const Asiento &a) {
    Recordset rs;
    Consultar(ctx, internos,
              "select saldo "
              "from stock "
              "where id = "_L1 +
                  numero(a.linea.id),
              rs);
    const double parte =
        a.linea.cantidad > 0
            ? numeros::redondear(a.linea.cif * a.descontado / a.linea.cantidad, decimalesDeImporte)
            : 0;
    if (rs.Numero(u"saldo") != 0) return parte;
    Consultar(ctx, internos,
              "select sum(cif) as tomado "
              "from stockmov "
              "where devuelta is null and idstock = "_L1 +
                  numero(a.linea.id),
              rs);
    return std::max(numeros::redondear(a.linea.cif - rs.Numero(u"tomado"), decimalesDeImporte), 0.0);
}

/// The number of the movement that was just entered: the last of this line, whose operation nobody else has
/// in hand.
qint64 ultimoMovimiento(AppContext &ctx, const Tomador &t, qint64 idstock) {
    Recordset rs;
    Consultar(ctx, internos,
              "select max(id) as id "
              "from stockmov "
              "where interno = "_L1 +
                  EnComillas(t.interno) + " and idlinea = "_L1 + numero(t.idlinea) + " and idstock = "_L1 +
                  numero(idstock),
              rs);
    return static_cast<qint64>(rs.Numero(u"id"));
}

void asentarUna(AppContext &ctx, const Tomador &t, const Asiento &a) {
    Ejecutar(ctx, internos,
             Escritura(ctx)
                 .numero("idstock", static_cast<double>(a.linea.id))
                 .codigo("interno", t.interno)
                 .numero("idlinea", static_cast<double>(t.idlinea))
                 .numero("iditem", t.iditem)
                 .marca("paraitem", t.paraItem)
                 .numero("cantidad", a.cantidad)
                 .numero("factor", a.factor)
                 .numero("descontado", a.linea.id == 0 ? 0 : a.descontado)
                 .numero("cif", a.linea.id == 0 ? 0 : cifDe(ctx, a))
                 .crudo("fecha", AhoraEnSql(ctx))
                 .texto("maquina", ctx.PcName)
                 .insertar(u"stockmov"_s));
    Movimiento m;
    m.id = ultimoMovimiento(ctx, t, a.linea.id);
    m.interno = t.interno;
    m.idlinea = t.idlinea;
    m.iditem = t.iditem;
    m.cantidad = a.cantidad;
    m.factor = a.factor;
    AsentarDescarga(ctx, m, a.linea);
}

}  // namespace

void AsentarDescarga(AppContext &ctx, const Movimiento &m, const Linea &l) {
    Escritura descarga(ctx);
    descarga.codigo("interno", m.interno)
        .texto("dit", l.dit)
        .numero("item", l.item)
        .numero("subitem", l.subitem)
        .texto("ncm", l.ncm)
        .texto("expctit", l.expctit)
        .numero("cantidad", m.cantidad)
        .numero("factorponderacion", m.factor);
    if (m.iditem != 0) descarga.texto("iditem", QString::number(m.iditem));
    descarga.numero("idexportacion", static_cast<double>(m.id))
        .numero("idext", static_cast<double>(m.idlinea));
    Ejecutar(ctx, internos, descarga.insertar(u"descargas"_s));
}

QString DefectoDeCantidad(const AppContext &ctx, double cantidad) {
    if (numeros::redondear(cantidad, Decimales(ctx)) > 0) return {};
    if (cantidad <= 0) return u"La cantidad que se toma del stock debe ser mayor que cero."_s;
    if (ctx.opciones.opVDE)
        return u"La cantidad es menor que un millonésimo, que es lo menos que se descuenta del stock; indique una mayor."_s;
    return u"La cantidad es menor que un centésimo, que es lo menos que se descuenta del stock; indique una "
           "mayor o encienda en las opciones \"Habilitar Modo: Valor Decimal Extendido\"."_s;
}

QString Preparar(AppContext &ctx, const QString &interno, const std::vector<Parte> &partes,
                 std::vector<Asiento> &asientos) {
    // Always in the same order, so that two workstations wait for each other and never both.
    std::map<qint64, double> porLinea;
    for (const Parte &p : partes) {
        if (QString defecto = DefectoDeCantidad(ctx, p.cantidad); !defecto.isEmpty()) return defecto;
        porLinea[p.idstock] += p.cantidad;
    }
    if (porLinea.empty()) return DefectoDeCantidad(ctx, 0);
    const QString cliente = ClienteDe(ctx, interno);
    for (const auto &[id, suma] : porLinea) {
        const auto linea = LeerLinea(ctx, id);
        if (!linea) return u"La línea de stock elegida ya no existe; vuelva a buscarla."_s;
        if (cliente.isEmpty() || linea->cuitcliente.trimmed().compare(cliente, Qt::CaseInsensitive) != 0)
            return u"El stock de %1 es de otro cliente; elija uno de la operación."_s.arg(nombrar(*linea));
        const double cantidad = numeros::redondear(suma, Decimales(ctx));
        const Asiento a{*linea, cantidad, FactorDe(ctx, *linea), Descontado(ctx, *linea, cantidad)};
        if (a.descontado > linea->saldo)
            return u"De %1 quedan %2 y se descontarían %3; indique una cantidad menor o agregue otra línea."_s
                .arg(nombrar(*linea), CantidadDicha(ctx, linea->saldo, linea->idunidad),
                     CantidadDicha(ctx, a.descontado, {}));
        asientos.push_back(a);
    }
    return {};
}

QString AsentarToma(AppContext &ctx, const Tomador &tomador, const std::vector<Asiento> &asientos) {
    for (const Asiento &a : asientos) {
        const QString descontado = SqlNumber(ctx, a.descontado);
        if (a.linea.id != 0 && Ejecutar(ctx, internos,
                                        "update stock "
                                        "set saldo = round(saldo - "_L1 +
                                            descontado + ", "_L1 + numero(decimalesDeSaldo) +
                                            ") "
                                            "where id = "_L1 +
                                            numero(a.linea.id) + " and saldo >= "_L1 + descontado) != 1)
            return u"Otra PC tomó antes de %1: no se tomó nada; vuelva a elegir del stock."_s.arg(
                nombrar(a.linea));
        asentarUna(ctx, tomador, a);
    }
    return {};
}

int AsentarDevolucion(AppContext &ctx, std::vector<Movimiento> movimientos) {
    std::sort(movimientos.begin(), movimientos.end(), [](const Movimiento &a, const Movimiento &b) {
        return std::make_pair(a.idstock, a.id) < std::make_pair(b.idstock, b.id);
    });
    int devueltos = 0;
    for (const Movimiento &m : movimientos) {
        const qint64 tocados =
            Ejecutar(ctx, internos,
                     Escritura(ctx)
                         .crudo("devuelta", AhoraEnSql(ctx))
                         .texto("maquinadevuelta", ctx.PcName)
                         .actualizar(u"stockmov"_s, "id = "_L1 + numero(m.id) + " and devuelta is null"_L1));
        // Somebody else gave it back.
        if (tocados == 0) continue;
        ++devueltos;
        if (m.idstock != 0)
            Ejecutar(ctx, internos,
                     "update stock "
                     "set saldo = round(saldo + "_L1 +
                         SqlNumber(ctx, m.descontado) + ", "_L1 + numero(decimalesDeSaldo) +
                         ") "
                         "where id = "_L1 +
                         numero(m.idstock));
        Ejecutar(ctx, internos,
                 "delete from descargas "
                 "where interno = "_L1 +
                     EnComillas(m.interno) + " and idexportacion = "_L1 + numero(m.id));
    }
    return devueltos;
}

double AsentarMarca(AppContext &ctx, const QString &interno, qint64 idlinea) {
    const QString donde = "where interno = "_L1 + EnComillas(interno) + " and id = "_L1 + numero(idlinea);
    std::vector<Movimiento> propias = TomasQueSiguen(ctx, interno, idlinea);
    std::erase_if(propias, [](const Movimiento &m) { return m.paraItem; });
    if (propias.empty()) {
        Ejecutar(ctx, internos,
                 "update subitems "
                 "set insumostemp = 0,cancelaciones = '' "_L1 +
                     donde + " and cancelaciones = 'OK'"_L1);
        return 0;
    }
    Recordset rs;
    Consultar(ctx, internos, "select fobcoddivisas from caratula where interno = "_L1 + EnComillas(interno),
              rs);
    const QString divisa = rs.Eof() ? QString() : rs.Texto(u"fobcoddivisas");
    double suma = 0;
    for (const Movimiento &m : propias) {
        const auto linea = LeerLinea(ctx, m.idstock);
        suma += linea ? EnDivisa(ctx, m.cif, linea->divisa, divisa) : m.cif;
    }
    suma = numeros::redondear(suma, decimalesDeImporte);
    Ejecutar(ctx, internos,
             "update subitems "
             "set insumostemp = "_L1 +
                 SqlNumber(ctx, suma) + ",cancelaciones = 'OK' "_L1 + donde);
    return suma;
}

}  // namespace stock
