#include "operations/handover.h"

#include "liquidation/consistency.h"

using namespace Qt::StringLiterals;

std::function<void(AppContext &, const QString &, bool)> salida::armarTransferencia;

bool TransferirAlMaria(AppContext &ctx, const QString &interno) {
    try {
        if (ctx.opciones.VERSION != 1 && ComprobarInterno(ctx, interno) &&
            !ctx.dialogos.preguntar(
                {u"ADVERTENCIA IMPORTANTE!!!\r\n\r\nSe han encontrado diferencias entre la "
                 "operacion cargada,\r\ny la informacion a enviar al "
                 "SIM, ¿desea continuar?"_s,
                 u"Diferencias en Operacion - Confirmacion de la Operacion"_s, Icono::Pregunta, true}))
            return false;
    } catch (const Falla &e) {
        ctx.dialogos.critico(e.descripcion);
        return false;
    }
    if (!salida::armarTransferencia) {
        ctx.dialogos.informar(
            u"El armador de la transferencia al MARIA no está instalado en esta PC; instálelo "
            "para transferir la operación."_s);
        return false;
    }
    salida::armarTransferencia(ctx, interno, ctx.opciones.EnviarComExt);
    return true;
}
