#include "header/automotive.h"

#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

const QString aplicacion = u"ZENDRA"_s;
const QString seccion = u"AEC"_s;

}  // namespace

QString LeerAEC(AppContext &ctx, const QString &interno, const QString &defecto) {
    return ctx.ajustes.Leer(aplicacion, seccion, interno, defecto);
}

void GuardarAEC(AppContext &ctx, const QString &interno, const QString &valor) {
    ctx.ajustes.Guardar(aplicacion, seccion, interno, valor);
}

QString PreguntarRegimenAutomotriz(AppContext &ctx, const QString &interno) {
    const RespuestaConOpciones respuesta = ctx.dialogos.preguntarConOpciones(
        {u"Se han encontrado posiciones arancelarias pertenecientes al régimen "
         "automotriz\r\n¿Desea calcular Arancel Externo Común?"_s,
         u" Régimen Automotriz"_s,
         u"Destino del repuesto"_s,
         {u"Producción"_s, u"Reposición"_s},
         u"&Si"_s,
         u"&No"_s});
    QString valor = !respuesta.si ? u"N"_s : (respuesta.opcion == 1 ? u"R"_s : u"P"_s);
    GuardarAEC(ctx, interno, valor);
    return valor;
}
