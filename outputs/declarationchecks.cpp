#include "outputs/declarationchecks.h"

#include <QSet>
#include <algorithm>
#include <map>

#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "liquidation/fees.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using entidad::internos;
using entidad::systablas;

/// A declaration while it is looked over.
struct Mirada {
    AppContext &ctx;
    const Declaracion &d;
    std::vector<Advertencia> &avisos;

    void decir(const QString &texto, int item = 0) const { avisos.push_back({item, texto}); }
    QString importe(double valor) const { return numeros::Format(valor, u"00.00", ctx.SeparadorDecimal); }
};

bool sonIguales(double a, double b) {
    return numeros::iguales(a, b, 2);
}

double sumar(const std::vector<FilaDeclarada> &filas, const char *columna) {
    double suma = 0;
    for (const FilaDeclarada &f : filas) suma += Mostrado(f, columna);
    return suma;
}

double sumarItems(const Declaracion &d, const char *columna) {
    double suma = 0;
    for (const ItemDeclarado &i : d.items) suma += Mostrado(i.datos, columna);
    return suma;
}

// One item.

bool falta(const ItemDeclarado &i, const char *columna) {
    return i.datos.texto(columna).isEmpty();
}

bool esCero(const ItemDeclarado &i, const char *columna) {
    return Mostrado(i.datos, columna) == 0;
}

bool hayGarantiaSinMotivo(const ItemDeclarado &i) {
    return std::any_of(i.tributos.begin(), i.tributos.end(), [](const FilaDeclarada &t) {
        return t.texto("pgc") == "G"_L1 && t.texto("motivo").trimmed().isEmpty();
    });
}

bool hayVentajaRepetida(const ItemDeclarado &i) {
    // They are in order.
    return std::adjacent_find(i.ventajas.begin(), i.ventajas.end(),
                              [](const FilaDeclarada &a, const FilaDeclarada &b) {
                                  return a.texto("idventaja") == b.texto("idventaja");
                              }) != i.ventajas.end();
}

struct ControlDeItem {
    bool (*falla)(const ItemDeclarado &);
    const char *texto;  ///< behind "El item N "
};
const ControlDeItem controlesDeItem[] = {
    {[](const ItemDeclarado &i) { return falta(i, "ncm"); },
     "no tiene posición; corrija sus subitems y vuelva a armar la operación."},
    {[](const ItemDeclarado &i) { return falta(i, "idpais"); },
     "no tiene país de origen; complételo en la pantalla de items."},
    {[](const ItemDeclarado &i) { return falta(i, "idproc"); },
     "no tiene país de procedencia; complételo en la pantalla de items."},
    {[](const ItemDeclarado &i) { return falta(i, "idunidad"); },
     "no tiene unidad; corrija sus subitems y vuelva a armar la operación."},
    {[](const ItemDeclarado &i) { return esCero(i, "cantidad"); },
     "no tiene cantidad; corrija sus subitems y vuelva a armar la operación."},
    {[](const ItemDeclarado &i) { return !falta(i, "estadistica") && esCero(i, "valorrelacionestadistica"); },
     "tiene unidad estadística sin cantidad; complétela en la pantalla de items."},
    {[](const ItemDeclarado &i) { return !falta(i, "deresp") && esCero(i, "valorderesp"); },
     "tiene unidad de derecho específico sin cantidad; complétela en la pantalla de items."},
    {[](const ItemDeclarado &i) { return esCero(i, "totalkneto"); },
     "no tiene kilos netos; complételos en la pantalla de items."},
    {[](const ItemDeclarado &i) {
         return !esCero(i, "totalkbruto") &&
                Mostrado(i.datos, "totalkbruto") < Mostrado(i.datos, "totalkneto");
     },
     "pesa menos en bruto que en neto; revise sus kilos."},
    {[](const ItemDeclarado &i) { return esCero(i, "fobtotal"); },
     "no tiene FOB; corrija sus subitems y vuelva a armar la operación."},
    {[](const ItemDeclarado &i) { return i.subitems.empty(); },
     "no tiene subitems; vuelva a armar la operación."},
    {[](const ItemDeclarado &i) {
         return !i.subitems.empty() && !sonIguales(sumar(i.subitems, "fob"), Mostrado(i.datos, "fobtotal"));
     },
     "tiene un FOB que no es la suma del de sus subitems; vuelva a armar la operación."},
    {hayGarantiaSinMotivo, "tiene un tributo en garantía sin motivo; complételo en su liquidación."},
    {hayVentajaRepetida, "tiene una ventaja repetida; quítela y agréguela una vez en la pantalla de items."},
};

void mirarItems(const Mirada &m) {
    for (const ItemDeclarado &item : m.d.items)
        for (const ControlDeItem &c : controlesDeItem)
            if (c.falla(item))
                m.decir(u"El item %1 "_s.arg(item.numero) + QString::fromUtf8(c.texto), item.numero);
}

// The operation.

void mirarArmado(const Mirada &m) {
    if (m.d.items.empty()) m.decir(u"La operación no tiene items; ármela antes de enviar."_s);
    if (m.d.porArmar)
        m.decir(u"La operación cambió desde su último armado; vuelva a armarla antes de enviar."_s);
}

void mirarLiquidacion(const Mirada &m) {
    if (m.d.totales.empty()) {
        m.decir(u"La operación no tiene liquidación; recalcúlela en la pantalla de items."_s);
        return;
    }
    if (m.ctx.LiquidacionPendiente)
        m.decir(u"La liquidación está pendiente; recalcúlela en la pantalla de items."_s);
    std::map<QString, std::pair<double, double>> porConcepto;  // of the items, of the operation
    for (const ItemDeclarado &item : m.d.items)
        for (const FilaDeclarada &t : item.tributos)
            porConcepto[t.texto("idconceptos")].first += Mostrado(t, "total");
    for (const FilaDeclarada &t : m.d.totales)
        if (!EsTotalReservado(t.texto("idconcepto")))
            porConcepto[t.texto("idconcepto")].second += Mostrado(t, "valor");
    for (const auto &[concepto, sumas] : porConcepto) {
        // A fee of the operation is no sum of its items'.
        const Arancel *arancel = ArancelDe(concepto);
        if (arancel != nullptr && arancel->esDeLaOperacion()) continue;
        if (!sonIguales(sumas.first, sumas.second))
            m.decir(
                u"El concepto %1 suma %2 en los items y %3 en el total de la operación; "
                "recalcule la liquidación."_s.arg(concepto, m.importe(sumas.first), m.importe(sumas.second)));
    }
}

void mirarValores(const Mirada &m) {
    const FilaDeclarada &c = m.d.caratula;
    // What is spread over the lines is declared with them.
    const double aRepartir = c.numero("valoraprorratear");
    const double repartido = aRepartir != 0 ? aRepartir : sumar(m.d.prorrateos, "valor");
    const struct {
        const char *nombre;
        const char *columna;
        double caratula;
    } valores[] = {{"FOB", "fobtotal", c.numero("fobdivisas") + repartido},
                   {"flete", "itflete", c.numero("fletedivisas")},
                   {"seguro", "itseguro", c.numero("segurodivisas")},
                   {"valor de las comisiones", "itcomext", c.numero("dccomext")}};
    for (const auto &v : valores) {
        const double items = sumarItems(m.d, v.columna);
        if (!m.d.items.empty() && !sonIguales(items, v.caratula))
            m.decir(
                u"El %1 de los items suma %2 y el de la carátula es %3; vuelva a armar la operación."_s.arg(
                    QString::fromUtf8(v.nombre), m.importe(items), m.importe(v.caratula)));
    }
}

void mirarBultos(const Mirada &m) {
    // The one regime without packages.
    if (!m.d.bultosContestados && m.d.caratula.texto("idsubreg") != "IDA4"_L1)
        m.decir(u"Los bultos no están contestados; complételos en la pantalla de bultos."_s);
    const double bruto = Mostrado(m.d.bultos, "bulpes");
    const double neto = sumarItems(m.d, "totalkneto");
    if (bruto > 0 && bruto < neto)
        m.decir(
            u"El peso de los bultos, %1, es menor que los kilos netos de los items, %2; revise los "
            "kilos."_s.arg(m.importe(bruto), m.importe(neto)));
}

// Codes.

struct TablaDeCodigos {
    const char *tabla;
    const QString &entidad;
    const char *nombre;  ///< what a code of it is
};
const TablaDeCodigos tablasDeCodigos[] = {
    {"sta", systablas, "el subrégimen"},
    {"pais", systablas, "el país"},
    {"aduana", systablas, "la aduana"},
    {"condiciondeventa", systablas, "la condición de venta"},
    {"divisas", internos, "la moneda"},
    {"unidades", internos, "la unidad"},
    {"estadomercaderia", internos, "el estado de la mercadería"},
    {"codemb", internos, "el código de embalaje"},
    {"tipoemb", internos, "el tipo de embalaje"},
    {"via", internos, "la vía de transporte"},
};
struct ColumnaConCodigo {
    Parte parte;
    const char *columna;
    const char *tabla;
};
const ColumnaConCodigo columnasConCodigo[] = {
    {Parte::Caratula, "idsubreg", "sta"},
    {Parte::Caratula, "idaduana", "aduana"},
    {Parte::Caratula, "idaduanasal", "aduana"},
    {Parte::Caratula, "idcondiciondeventa", "condiciondeventa"},
    {Parte::Caratula, "idpaisdestino", "pais"},
    {Parte::Caratula, "dcpaisorigen", "pais"},
    {Parte::Caratula, "dcpaisdestino", "pais"},
    {Parte::Caratula, "dcestmerc", "estadomercaderia"},
    {Parte::Caratula, "fobcoddivisas", "divisas"},
    {Parte::Caratula, "fletecoddivisas", "divisas"},
    {Parte::Caratula, "segurocoddivisas", "divisas"},
    {Parte::Bultos, "bulcod", "codemb"},
    {Parte::Bultos, "bultip", "tipoemb"},
    {Parte::Bultos, "via", "via"},
    {Parte::Bultos, "bandera", "pais"},
    {Parte::Item, "idpais", "pais"},
    {Parte::Item, "idproc", "pais"},
    {Parte::Item, "estadomerc", "estadomercaderia"},
    {Parte::Item, "idunidad", "unidades"},
    {Parte::Item, "estadistica", "unidades"},
    {Parte::Item, "deresp", "unidades"},
};

QSet<QString> codigosDe(AppContext &ctx, const TablaDeCodigos &t) {
    QSet<QString> codigos;
    Recordset rs;
    for (Consultar(ctx, t.entidad, "select id from "_L1 + L(t.tabla), rs); !rs.Eof(); rs.MoveNext())
        codigos << rs.Texto(u"id").trimmed().toUpper();
    return codigos;
}

void mirarCodigos(const Mirada &m) {
    for (const TablaDeCodigos &t : tablasDeCodigos) {
        const QSet<QString> codigos = codigosDe(m.ctx, t);
        if (codigos.isEmpty()) continue;
        const auto mirar = [&](const FilaDeclarada &fila, const char *columna, int item) {
            const QString &codigo = fila.texto(columna);
            if (codigo.isEmpty() || codigos.contains(codigo.toUpper())) return;
            const QString donde = item == 0 ? u"En %1"_s.arg(QString::fromUtf8(fila.parte->nombre))
                                            : u"En el item %1"_s.arg(item);
            m.decir(u"%1, %2 \"%3\" no está en su tabla; corrija el código."_s.arg(
                        donde, QString::fromUtf8(t.nombre), codigo),
                    item);
        };
        for (const ColumnaConCodigo &c : columnasConCodigo) {
            if (L(c.tabla) != L(t.tabla)) continue;
            if (c.parte == Parte::Caratula) mirar(m.d.caratula, c.columna, 0);
            if (c.parte == Parte::Bultos) mirar(m.d.bultos, c.columna, 0);
            if (c.parte == Parte::Item)
                for (const ItemDeclarado &i : m.d.items) mirar(i.datos, c.columna, i.numero);
        }
    }
}

using ControlDeOperacion = void (*)(const Mirada &);
constexpr ControlDeOperacion controlesDeOperacion[] = {mirarArmado, mirarValores, mirarLiquidacion,
                                                       mirarBultos, mirarItems,   mirarCodigos};

}  // namespace

std::vector<Advertencia> ControlarDeclaracion(AppContext &ctx, const Declaracion &d) {
    std::vector<Advertencia> avisos = d.reparos;
    for (const ControlDeOperacion control : controlesDeOperacion) control({ctx, d, avisos});
    std::stable_sort(avisos.begin(), avisos.end(),
                     [](const Advertencia &a, const Advertencia &b) { return a.item < b.item; });
    return avisos;
}
