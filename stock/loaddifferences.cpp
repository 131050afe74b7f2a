// What a loading would change, and the change.

#include <algorithm>
#include <map>

#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/transaction.h"
#include "stock/loadlines.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

const QString formaDeDia = u"dd/MM/yyyy"_s;

/// A value of a line and its name, for what is compared and told.
struct DatoDeLinea {
    const char *nombre;
    QString (*texto)(const AppContext &, const Linea &);
};

QString figura(const AppContext &ctx, double valor, QStringView mascara) {
    return numeros::FormatSinPerdida(valor, mascara, ctx.SeparadorDecimal);
}

const std::vector<DatoDeLinea> &datosDeLinea() {
    using X = AppContext;
    using D = Linea;
    static const std::vector<DatoDeLinea> todos{
        {"declaración", [](const X &, const D &l) { return l.dit; }},
        {"item", [](const X &, const D &l) { return QString::number(l.item); }},
        {"subitem", [](const X &, const D &l) { return QString::number(l.subitem); }},
        {"posición", [](const X &, const D &l) { return l.ncm; }},
        {"catálogo", [](const X &, const D &l) { return l.idcatalogo; }},
        {"artículo", [](const X &, const D &l) { return l.idarticulo; }},
        {"descripción", [](const X &, const D &l) { return l.descripcion; }},
        {"unidad", [](const X &, const D &l) { return l.idunidad; }},
        {"cantidad", [](const X &c, const D &l) { return figura(c, l.cantidad, u"00.00"); }},
        {"CIF", [](const X &c, const D &l) { return figura(c, l.cif, u"00.00"); }},
        {"divisa", [](const X &, const D &l) { return l.divisa; }},
        {"precio unitario", [](const X &c, const D &l) { return figura(c, l.preciounitario, u"00.00000"); }},
        {"origen", [](const X &, const D &l) { return l.idpais; }},
        {"sufijos", [](const X &, const D &l) { return l.sufijos; }},
        {"merma", [](const X &c, const D &l) { return figura(c, l.merma, u"00.00"); }},
        {"fecha", [](const X &, const D &l) { return l.fecha.toString(formaDeDia); }},
        {"vencimiento", [](const X &, const D &l) { return l.vencimiento.toString(formaDeDia); }},
        {"cliente", [](const X &, const D &l) { return l.cuitcliente; }},
        {"CTIT", [](const X &, const D &l) { return l.expctit; }},
    };
    return todos;
}

QString cambiosEntre(const AppContext &ctx, const Linea &antes, const Linea &despues) {
    QStringList cambios;
    for (const DatoDeLinea &d : datosDeLinea()) {
        const QString a = d.texto(ctx, antes);
        const QString b = d.texto(ctx, despues);
        if (a != b)
            cambios << u"%1 %2 → %3"_s.arg(QString::fromUtf8(d.nombre), a.isEmpty() ? u"-"_s : a,
                                           b.isEmpty() ? u"-"_s : b);
    }
    return cambios.join(", "_L1);
}

QString nombreDe(const Linea &l) {
    const QString que = l.idarticulo.isEmpty() ? l.descripcion : l.idcatalogo + u' ' + l.idarticulo;
    return u"Item %1, subitem %2, %3"_s.arg(l.item).arg(l.subitem).arg(que.trimmed());
}

double tomadoDe(const Linea &l) {
    return numeros::redondear(l.cantidad - l.saldo, decimalesDeSaldo);
}

/// What was taken of a line does not allow what became of it.
bool noSePuede(const Linea &antes, const Linea &despues) {
    return tomadoDe(antes) > 0 &&
           (despues.cantidad < tomadoDe(antes) || despues.idunidad != antes.idunidad ||
            despues.cuitcliente.compare(antes.cuitcliente.trimmed(), Qt::CaseInsensitive) != 0);
}

QString figuraDeTomado(const AppContext &ctx, const Linea &l) {
    return CantidadDicha(ctx, tomadoDe(l), l.idunidad);
}

std::optional<Diferencia> cambioDe(const AppContext &ctx, const Linea &antes, const Linea &despues) {
    const QString cambios = cambiosEntre(ctx, antes, despues);
    if (cambios.isEmpty()) return {};
    if (noSePuede(antes, despues))
        return Diferencia{Diferencia::Clase::Negada, antes, despues,
                          u"%1: no se cambia, porque ya se tomaron %2 (%3)"_s.arg(
                              nombreDe(despues), figuraDeTomado(ctx, antes), cambios)};
    return Diferencia{Diferencia::Clase::Cambiada, antes, despues,
                      u"%1: cambia %2"_s.arg(nombreDe(despues), cambios)};
}

Diferencia faltaDe(const AppContext &ctx, const Linea &antes) {
    if (tomadoDe(antes) > 0)
        return {Diferencia::Clase::Negada,
                antes,
                {},
                u"%1: ya no está en la operación y queda en el stock, porque se tomaron %2"_s.arg(
                    nombreDe(antes), figuraDeTomado(ctx, antes))};
    return {Diferencia::Clase::Quitada, antes, {}, u"%1: ya no está en la operación"_s.arg(nombreDe(antes))};
}

Escritura escrituraDe(const AppContext &ctx, const Linea &l) {
    Escritura e(ctx);
    e.texto("dit", l.dit)
        .numero("item", l.item)
        .numero("subitem", l.subitem)
        .texto("ncm", l.ncm)
        .texto("idcatalogo", l.idcatalogo)
        .texto("idarticulo", l.idarticulo)
        .texto("descripcion", l.descripcion)
        .texto("idunidad", l.idunidad)
        .numero("cantidad", l.cantidad)
        .numero("cif", l.cif)
        .texto("divisa", l.divisa)
        .numero("preciounitario", l.preciounitario)
        .texto("idpais", l.idpais)
        .texto("sufijos", l.sufijos)
        .numero("merma", l.merma)
        .crudo("fecha", DiaEnSql(ctx, l.fecha))
        .crudo("vencimiento", DiaEnSql(ctx, l.vencimiento))
        .texto("cuitcliente", l.cuitcliente)
        .texto("expctit", l.expctit);
    return e;
}

void agregarLinea(AppContext &ctx, const Linea &l) {
    Ejecutar(ctx, internos,
             escrituraDe(ctx, l)
                 .numero("saldo", l.cantidad)
                 .codigo("interno", l.interno)
                 .numero("idlinea", static_cast<double>(l.idlinea))
                 .insertar(u"stock"_s));
}

/// The balance moves by what the quantity does; false when what was taken meanwhile does not allow it.
bool cambiarLinea(AppContext &ctx, const Diferencia &d) {
    const Linea &l = d.despues;
    const QString id = QString::number(d.antes.id);
    Escritura delta(ctx);
    delta.numero("delta", numeros::redondear(l.cantidad - d.antes.cantidad, decimalesDeSaldo));
    const QString saldo =
        u"round(saldo + (%1), %2)"_s.arg(delta.valores(), QString::number(decimalesDeSaldo));
    Escritura e = escrituraDe(ctx, l);
    e.crudo("saldo", saldo);
    if (Ejecutar(ctx, internos,
                 e.actualizar(u"stock"_s, "id = "_L1 + id + " and "_L1 + saldo + " >= 0"_L1)) != 1)
        return false;
    Ejecutar(ctx, internos,
             Escritura(ctx)
                 .texto("dit", l.dit)
                 .numero("item", l.item)
                 .numero("subitem", l.subitem)
                 .texto("ncm", l.ncm)
                 .texto("expctit", l.expctit)
                 .actualizar(u"descargas"_s,
                             "idexportacion <> 0 and idexportacion in "
                             "(select id from stockmov where devuelta is null and idstock = "_L1 +
                                 id + ")"_L1));
    return true;
}

/// A line that nothing was ever taken of goes; one with a history stays, with nothing in it.
bool quitarLinea(AppContext &ctx, const Linea &l) {
    const QString id = QString::number(l.id);
    if (Ejecutar(ctx, internos,
                 "delete from stock "
                 "where saldo = cantidad and id = "_L1 +
                     id + " and id not in (select idstock from stockmov where idstock = "_L1 + id + ")"_L1) ==
        1)
        return true;
    return Ejecutar(ctx, internos,
                    "update stock "
                    "set cantidad = 0,saldo = 0 "
                    "where saldo = cantidad and id = "_L1 +
                        id) == 1;
}

bool aplicarUna(AppContext &ctx, const Diferencia &d, ResultadoDeCarga &r) {
    switch (d.clase) {
        case Diferencia::Clase::Nueva:
            agregarLinea(ctx, d.despues);
            ++r.nuevas;
            return true;
        case Diferencia::Clase::Cambiada:
            ++r.cambiadas;
            return cambiarLinea(ctx, d);
        case Diferencia::Clase::Quitada:
            ++r.quitadas;
            return quitarLinea(ctx, d.antes);
        case Diferencia::Clase::Negada:
            break;
    }
    ++r.negadas;
    return true;
}

}  // namespace

std::vector<Diferencia> Diferencias(AppContext &ctx, const QString &interno,
                                    const DatosDeDeclaracion &datos) {
    std::map<qint64, Linea> cargadas;
    for (const Linea &l : LineasCargadas(ctx, interno)) cargadas[l.idlinea] = l;
    std::vector<Diferencia> diferencias;
    for (const Linea &l : LineasDeOperacion(ctx, interno, datos)) {
        const auto antes = cargadas.find(l.idlinea);
        if (antes == cargadas.end()) {
            diferencias.push_back(
                {Diferencia::Clase::Nueva,
                 {},
                 l,
                 u"%1: entran %2"_s.arg(nombreDe(l), CantidadDicha(ctx, l.cantidad, l.idunidad))});
            continue;
        }
        if (auto cambio = cambioDe(ctx, antes->second, l)) diferencias.push_back(std::move(*cambio));
        cargadas.erase(antes);
    }
    for (const auto &[idlinea, l] : cargadas)
        if (l.cantidad != 0) diferencias.push_back(faltaDe(ctx, l));
    std::stable_sort(diferencias.begin(), diferencias.end(), [](const Diferencia &a, const Diferencia &b) {
        const auto lugar = [](const Diferencia &d) {
            const Linea &l = d.despues.item != 0 ? d.despues : d.antes;
            return std::make_pair(l.item, l.subitem);
        };
        return lugar(a) < lugar(b);
    });
    return diferencias;
}

ResultadoDeCarga Aplicar(AppContext &ctx, const std::vector<Diferencia> &diferencias) {
    ResultadoDeCarga r;
    // Lines of the stock in their own order, so that two workstations never wait for each other.
    std::vector<Diferencia> enOrden = diferencias;
    std::stable_sort(enOrden.begin(), enOrden.end(),
                     [](const Diferencia &a, const Diferencia &b) { return a.antes.id < b.antes.id; });
    {
        Transaccion transaccion(ctx.conexion(internos));
        r.ok = std::all_of(enOrden.begin(), enOrden.end(),
                           [&](const Diferencia &d) { return aplicarUna(ctx, d, r); });
        if (r.ok) transaccion.Confirmar();
    }
    if (r.ok) return r;
    ctx.dialogos.advertir(
        u"Otra PC tomó del stock mientras se miraban las diferencias: no se cambió nada; vuelva a cargar."_s);
    return {};
}

}  // namespace stock
