#include "operations/handover.h"

#include "liquidation/consistency.h"

using namespace Qt::StringLiterals;

bool ConfirmarTransferencia(AppContext &ctx, const QString &interno) {
    return ctx.opciones.VERSION == 1 || !ComprobarInterno(ctx, interno) ||
           ctx.dialogos.preguntar({u"ADVERTENCIA IMPORTANTE!!!\r\n\r\nSe han encontrado diferencias entre la "
                                   "operacion cargada,\r\ny la informacion a enviar al "
                                   "SIM, ¿desea continuar?"_s,
                                   u"Diferencias en Operacion - Confirmacion de la Operacion"_s,
                                   Icono::Pregunta, true});
}
