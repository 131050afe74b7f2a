// What hangs on the position of a line, and what hangs on its quantity.

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "subitems/lines.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using numeros::aNumero;
using numeros::esNumerico;
using numeros::Format;

bool marcada(const Recordset &rs, QStringView columna) {
    return rs.Texto(columna).trimmed() == "*"_L1;
}

/// The upper levels of the description, one a line.
QString nivelesSuperiores(AppContext &ctx, const ClavesNcm &k) {
    Recordset rs;
    QString texto;
    if (!Consultar(ctx, u"NCM"_s,
                   "select [004], [005], [006], [007], [008], [009], [010] "
                   "from ncm "
                   "where "_L1 +
                       CondicionDePosicion(k),
                   rs))
        return texto;
    for (int n = 0; n < rs.columnas(); ++n) {
        const QString nivel = EsNull(rs.Fields(n).Value).trimmed();
        if (!nivel.isEmpty()) texto += "\r\n  "_L1 + nivel;
    }
    return texto;
}

QString bloqueDeTexto(AppContext &ctx, const Recordset &rs, const ClavesNcm &k) {
    return u"  Información de la Posición\r\n  ----------------------------\r\n"
           "  Posición NCM: "_s +
           rs.Texto(u"001") + QLatin1Char('.') + rs.Texto(u"002") + rs.Texto(u"003") +
           "\r\n  Unidad Estadistica: "_L1 + rs.Texto(u"012") + "\r\n  Unidad Der. Esp.: "_L1 +
           rs.Texto(u"020") + "\r\n  Posee LAPI: "_L1 + (marcada(rs, u"059") ? "Si"_L1 : "No"_L1) +
           u"\r\n  Derecho de Importación ExtraZona: "_s + rs.Texto(u"015") +
           u"\r\n  Derecho de Exportación: "_s + rs.Texto(u"018") + "\r\n  Reintegro Extrazona: "_L1 +
           rs.Texto(u"019") + nivelesSuperiores(ctx, k);
}

/// The factor from one unit to another; nothing when the pair is not kept.
std::optional<double> pase(AppContext &ctx, const QString &unidad, const QString &hacia) {
    if (unidad.isEmpty() || hacia.isEmpty()) return {};
    Recordset rs;
    if (!Consultar(ctx, u"INTERNOS"_s,
                   "select pase "
                   "from unidrel "
                   "where unid1 = "_L1 +
                       TextoEnComillas(unidad) + " and unid2 = "_L1 + TextoEnComillas(hacia),
                   rs))
        return {};
    QString factor = rs.Texto(u"pase");
    return aNumero(ReemplazarSeparadorDecimal(factor, ctx.SeparadorDecimal));
}

/// The statistical quantity from the declared one, a number, where a relation joins their units.
void cantidadEstadistica(AppContext &ctx, SubItems &s) {
    CamposSubItem &c = s.campos;
    auto factor = pase(ctx, c.TxtUnidad, c.LbCodigoEstadistica);
    if (!factor && c.TxtUnidad == kilogramo && c.LbCodigoEstadistica == kilogramo) factor = 1;
    if (factor)
        c.TxtValorsobreestadistica = Format(aNumero(c.TxtCantidad) * *factor, u"00.00", ctx.SeparadorDecimal);
}

}  // namespace

Veredicto BuscarNCM(AppContext &ctx, SubItems &s) {
    CamposSubItem &c = s.campos;
    const QString foco = u"TxtPosicion"_s;
    const qsizetype largo = c.TxtPosicion.size();
    if (largo != 15 && largo != 14 && largo != 10) {
        ctx.dialogos.advertir(u"Longitud erronea del Posición"_s);
        return Veredicto::mal(foco);
    }
    const ClavesNcm k = CortarPosicion(c.TxtPosicion);
    Recordset rs;
    if (!Consultar(
            ctx, u"NCM"_s,
            "select [001],[002],[003],[004],[010],[012],[015],[018],[019],[020],[052],[044],[043],[059] "
            "from ncm "
            "where "_L1 +
                CondicionDePosicion(k),
            rs)) {
        ctx.dialogos.advertir(u"POSICIÓN INEXISTENTE, en el Nomenclador"_s);
        return Veredicto::mal(foco);
    }
    c.LbCodigoEstadistica = rs.Texto(u"012").trimmed();
    c.LbIdDerEsp = rs.Texto(u"020").trimmed();
    c.LbLapi = marcada(rs, u"059");
    c.lbSegElect = marcada(rs, u"052");
    c.lbProhibicion = marcada(rs, u"044");
    c.lbREINT = rs.Numero(u"019") > 0;
    s.FramDerEsp = !c.LbIdDerEsp.isEmpty();
    if (!s.FramDerEsp) c.TxtDerEsp.clear();
    c.txtNCMDesc = bloqueDeTexto(ctx, rs, k);
    // Kilos typed by hand are no figure of the position.
    if (c.LbCodigoEstadistica == kilogramo && esNumerico(c.TxtCantidad)) cantidadEstadistica(ctx, s);
    return Veredicto::bien();
}

void CalcularUnidades(AppContext &ctx, SubItems &s) {
    CamposSubItem &c = s.campos;
    if (!esNumerico(c.TxtCantidad)) return;
    cantidadEstadistica(ctx, s);
    if (const auto factor = pase(ctx, c.TxtUnidad, kilogramo))
        c.TxtKgNeto = Format(aNumero(c.TxtCantidad) * *factor, u"00.00", ctx.SeparadorDecimal);
}

void CalcularKgUnitario(const AppContext &ctx, SubItems &s) {
    CamposSubItem &c = s.campos;
    for (const char *sinPeso : {"08", "02", "07"})
        if (c.TxtUnidad == L(sinPeso)) return;
    if (!esNumerico(c.txtKgUnitario) || aNumero(c.txtKgUnitario) <= 0 || !esNumerico(c.TxtCantidad)) return;
    const QString kilos =
        Format(aNumero(c.TxtCantidad) * aNumero(c.txtKgUnitario), u"00.00", ctx.SeparadorDecimal);
    c.TxtKgNeto = kilos;
    if (c.LbCodigoEstadistica == kilogramo) c.TxtValorsobreestadistica = kilos;
    if (s.FramDerEsp && c.LbIdDerEsp == kilogramo) c.TxtDerEsp = kilos;
}

void CalcularFob(const AppContext &ctx, SubItems &s) {
    CamposSubItem &c = s.campos;
    if (!esNumerico(c.TxtCantidad)) return;
    const double cantidad = aNumero(c.TxtCantidad);
    if (s.opFobUnitario) {
        if (esNumerico(c.TxtUnitario))
            c.TxtFobTotal = Format(aNumero(c.TxtUnitario) * cantidad, u"00.00", ctx.SeparadorDecimal);
    } else if (esNumerico(c.TxtFobTotal) && cantidad != 0) {
        c.TxtUnitario = Format(aNumero(c.TxtFobTotal) / cantidad, u"00.00000", ctx.SeparadorDecimal);
    }
}

void CantidadCambia(AppContext &ctx, SubItems &s) {
    CalcularUnidades(ctx, s);
    CalcularKgUnitario(ctx, s);
    CalcularFob(ctx, s);
}
