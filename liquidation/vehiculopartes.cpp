#include "liquidation/vehiculopartes.h"

#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using entidad::internos;

QString sentenciaDeVentaja(const QString &interno, const QString &id) {
    return "select idventaja from itemventaja"
           " where iditem = "_L1 +
           id + " and idventaja = 'VEHICULOPARTES' and interno = "_L1 + EnComillas(interno);
}

bool esAutomotriz(const QString &aec, const QString &lista) {
    return aec == "P"_L1 || aec == "R"_L1 || lista == "314/R.AUTOMOTRIZ"_L1;
}

void agregar(AppContext &ctx, const QString &interno, const QString &id) {
    Recordset rs;
    if (Consultar(ctx, internos, sentenciaDeVentaja(interno, id), rs)) return;
    Mandar(ctx, internos,
           Escritura(ctx)
               .crudo("iditem", id)
               .codigo("idventaja", u"VEHICULOPARTES"_s)
               .codigo("interno", interno)
               .insertar(u"itemventaja"_s));
}

/// A position that has an automotive mark of another kind, or comes from inside the zone.
void fueraDelRegimen(AppContext &ctx, const QString &interno, const QString &id, bool lapi,
                     ClassLiquidacion &c, VehiculoPartes &m) {
    const QString &regimen = c.CaratulaSubRegimen;
    const QString z = ZonaDePais(c.ItemIdPais);
    if (regimen == "ICR1"_L1 && lapi) m.advertir = true;
    if (z == "B"_L1) {
        if (!ctx.opciones.QUINDELRAF) return;
        if (Ejecutar(ctx, internos,
                     "UPDATE item set lista = 'MERCOSUR'"
                     " where id = "_L1 +
                         id + " and interno = "_L1 + EnComillas(interno) +
                         " and (itmodif<>'S' or itmodif is null)"_L1) > 0)
            c.ItemLISTA_MERCOSUR = true;
        return;
    }
    if (regimen == "ICR3"_L1 || regimen == "ICR1"_L1 || !lapi) return;
    if (!m.preguntado) {
        m.preguntado = true;
        m.respuesta =
            ctx.dialogos.preguntar({u"ADVERTENCIA: Hay Posiciones arancelarias con LAPI pero "
                                    "no pertenecen\r\nal régimen automotriz, desea agregarle "
                                    "igual la ventaja VEHICULOPARTES?"_s,
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
    if (regimen.startsWith("DIR"_L1) || regimen.startsWith("IDA"_L1)) return;
    if (esAutomotriz(c.CalculoAEC, c.ItemLista) && regimen.startsWith("IC"_L1)) {
        if (ZonaDePais(c.ItemIdPais) != "M"_L1 && c.ncm_AEC == "*"_L1) {
            if (lapi) agregar(ctx, interno, iditem);
        } else if (!c.ncm_AEC.trimmed().isEmpty()) {
            fueraDelRegimen(ctx, interno, iditem, lapi, c, memoria);
        }
    } else if (regimen.startsWith("ICR"_L1) && lapi) {
        agregar(ctx, interno, iditem);
    }
}

QStringList LecturasDeVehiculoPartes(const AppContext &ctx, const QString &interno, const Recordset &item,
                                     const QString &regimen) {
    const bool puede = regimen.startsWith("ICR"_L1) ||
                       (regimen.startsWith("IC"_L1) && esAutomotriz(ctx.CalculoAEC, item.Texto(u"Lista")));
    return puede ? QStringList{sentenciaDeVentaja(interno, item.Texto(u"ID"))} : QStringList{};
}

void CerrarVehiculoPartes(AppContext &ctx, const QString &interno, const VehiculoPartes &memoria) {
    if (!memoria.advertir) return;
    Ejecutar(ctx, internos,
             "delete from itemventaja"
             " where interno = "_L1 +
                 EnComillas(interno) + " and idventaja = 'VEHICULOPARTES'"_L1);
    ctx.dialogos.advertir(
        u"ADVERTENCIA: Hay posiciones con LAPI\r\npero que no estan en el Regimen "
        "Automotriz.\r\n\r\nVerifique el subregimen del despacho."_s);
}
