#include "stock/inputsreport.h"

#include "frame/context.h"
#include "stock/report.h"

using namespace Qt::StringLiterals;

namespace stock {

void VerTabla(AppContext &ctx, const papel::Tabla &tabla, const QString &sinFilas) {
    if (tabla.filas.empty())
        ctx.dialogos.informar(sinFilas);
    else
        ctx.dialogos.vistaPrevia(DocumentoDe(ctx, tabla));
}

void GenerarIMP(AppContext &ctx, const QString &interno) {
    papel::Tabla tabla;
    {
        const Reloj reloj(ctx.dialogos);
        tabla = TablaDeInsumos(ctx, interno);
    }
    VerTabla(ctx, tabla, u"La operación %1 no tomó insumos del stock ni fue cargada en él."_s.arg(interno));
}

}  // namespace stock
