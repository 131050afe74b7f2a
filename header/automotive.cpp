#include "header/automotive.h"

#include "frame/context.h"

namespace {

const QString aplicacion = QStringLiteral("ZENDRA");
const QString seccion = QStringLiteral("AEC");

}  // namespace

QString LeerAEC(AppContext &ctx, const QString &interno, const QString &defecto) {
    return ctx.ajustes.Leer(aplicacion, seccion, interno, defecto);
}

void GuardarAEC(AppContext &ctx, const QString &interno, const QString &valor) {
    ctx.ajustes.Guardar(aplicacion, seccion, interno, valor);
}

QString PreguntarRegimenAutomotriz(AppContext &ctx, const QString &interno) {
    const RespuestaConOpciones respuesta = ctx.dialogos.preguntarConOpciones(
        {QStringLiteral("Se han encontrado posiciones arancelarias pertenecientes al régimen "
                        "automotriz\r\n¿Desea calcular Arancel Externo Común?"),
         QStringLiteral(" Régimen Automotriz"),
         QStringLiteral("Destino del repuesto"),
         {QStringLiteral("Producción"), QStringLiteral("Reposición")},
         QStringLiteral("&Si"),
         QStringLiteral("&No")});
    QString valor = !respuesta.si ? QStringLiteral("N")
                                  : (respuesta.opcion == 1 ? QStringLiteral("R") : QStringLiteral("P"));
    GuardarAEC(ctx, interno, valor);
    return valor;
}
