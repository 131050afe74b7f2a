#include "operations/handover.h"

#include "operations/consistency.h"

std::function<void(AppContext &, const QString &, bool)> salida::armarTransferencia;

bool TransferirAlMaria(AppContext &ctx, const QString &interno) {
    try {
        if (ctx.opciones.VERSION != 1 && ComprobarInterno(ctx, interno) &&
            !ctx.dialogos.preguntar(
                {QStringLiteral("ADVERTENCIA IMPORTANTE!!!\r\n\r\nSe han encontrado diferencias entre la "
                                "operacion cargada,\r\ny la informacion a enviar al "
                                "SIM, ¿desea continuar?"),
                 QStringLiteral("Diferencias en Operacion - Confirmacion de la Operacion"), Icono::Pregunta,
                 true}))
            return false;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
        return false;
    }
    if (!salida::armarTransferencia) {
        ctx.dialogos.informar(
            QStringLiteral("El armador de la transferencia al MARIA no está instalado en esta PC; instálelo "
                           "para transferir la operación."));
        return false;
    }
    salida::armarTransferencia(ctx, interno, ctx.opciones.EnviarComExt);
    return true;
}
