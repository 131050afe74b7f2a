#include "liquidation/vehiculopartes.h"

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");

void agregar(AppContext &ctx, const QString &interno, const QString &id) {
    Recordset rs;
    if (Consultar(ctx, internos,
                  L("select idventaja from itemventaja where iditem = ") + id +
                      L(" and idventaja = 'VEHICULOPARTES' and interno = '") + interno + L("'"),
                  rs))
        return;
    Ejecutar(ctx, internos,
             L("insert into itemventaja (iditem,idventaja,interno) values (") + id +
                 L(",'VEHICULOPARTES','") + interno + L("')"));
}

/// A position that has an automotive mark of another kind, or comes from inside the zone.
void fueraDelRegimen(AppContext &ctx, const QString &interno, const QString &id, bool lapi,
                     ClassLiquidacion &c, VehiculoPartes &m) {
    const QString &regimen = c.CaratulaSubRegimen;
    const QString z = ZonaDePais(c.ItemIdPais);
    if (regimen == L("ICR1") && lapi) m.advertir = true;
    if (z == L("B")) {
        if (!ctx.opciones.QUINDELRAF) return;
        if (Ejecutar(ctx, internos,
                     L("UPDATE item set lista = 'MERCOSUR' where id = ") + id + L(" and interno = '") +
                         interno + L("' and (itmodif<>'S' or itmodif is null)")) > 0)
            c.ItemLISTA_MERCOSUR = true;
        return;
    }
    if (regimen == L("ICR3") || regimen == L("ICR1") || !lapi) return;
    if (!m.preguntado) {
        m.preguntado = true;
        m.respuesta =
            ctx.dialogos.preguntar({QStringLiteral("ADVERTENCIA: Hay Posiciones arancelarias con LAPI pero "
                                                   "no pertenecen\r\nal régimen automotriz, desea agregarle "
                                                   "igual la ventaja VEHICULOPARTES?"),
                                    {},
                                    Icono::Pregunta,
                                    false});
    }
    if (m.respuesta) agregar(ctx, interno, id);
}

}  // namespace

void RevisarVehiculoPartes(AppContext &ctx, const QString &interno, const QString &iditem, bool lapi,
                           ClassLiquidacion &c, VehiculoPartes &memoria) {
    const QString &regimen = c.CaratulaSubRegimen;
    if (regimen.startsWith(L("DIR")) || regimen.startsWith(L("IDA"))) return;
    const bool automotriz =
        c.CalculoAEC == L("P") || c.CalculoAEC == L("R") || c.ItemLista == L("314/R.AUTOMOTRIZ");
    if (automotriz && regimen.startsWith(L("IC"))) {
        if (ZonaDePais(c.ItemIdPais) != L("M") && c.ncm_AEC == L("*")) {
            if (lapi) agregar(ctx, interno, iditem);
        } else if (!c.ncm_AEC.trimmed().isEmpty()) {
            fueraDelRegimen(ctx, interno, iditem, lapi, c, memoria);
        }
    } else if (regimen.startsWith(L("ICR")) && lapi) {
        agregar(ctx, interno, iditem);
    }
}

void CerrarVehiculoPartes(AppContext &ctx, const QString &interno, const VehiculoPartes &memoria) {
    if (!memoria.advertir) return;
    Ejecutar(
        ctx, internos,
        L("delete from itemventaja where interno = '") + interno + L("' and idventaja = 'VEHICULOPARTES'"));
    ctx.dialogos.advertir(
        QStringLiteral("ADVERTENCIA: Hay posiciones con LAPI\r\npero que no estan en el Regimen "
                       "Automotriz.\r\n\r\nVerifique el subregimen del despacho."));
}
