#include "header/changes.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/escritura.h"
#include "header/automotive.h"

using namespace Qt::StringLiterals;

void MarcarArmado(AppContext &ctx, const QString &interno, bool pendiente) {
    Ejecutar(ctx, u"INTERNOS"_s,
             Escritura(ctx)
                 .marca("factura8", pendiente)
                 .actualizar(u"caratula"_s, "interno = "_L1 + EnComillas(interno)));
}

void AnotarCambio(AppContext &ctx, const QString &interno) {
    // Every key of a field comes here: what is so already is not written to the disk again.
    Recordset rs;
    const bool pendiente =
        Consultar(ctx, u"INTERNOS"_s,
                  "select factura8 from caratula where interno = "_L1 + EnComillas(interno), rs) &&
        rs.Texto(u"factura8") == "S"_L1;
    if (!pendiente) MarcarArmado(ctx, interno, true);
    if (!LeerAEC(ctx, interno).isEmpty()) GuardarAEC(ctx, interno, {});
}
