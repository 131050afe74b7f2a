#include "operations/changes.h"

#include "assembly/run.h"
#include "frame/context.h"
#include "header/automotive.h"

void AnotarCambio(AppContext &ctx, const QString &interno) {
    // Every key of a field comes here: what is so already is not written to the disk again.
    Recordset rs;
    const bool pendiente = Consultar(ctx, QStringLiteral("INTERNOS"),
                                     QLatin1String("select factura8 from caratula where interno = '") +
                                         interno + QLatin1Char('\''),
                                     rs) &&
                           rs.Texto(u"factura8") == QLatin1String("S");
    if (!pendiente) MarcarArmado(ctx, interno, true);
    if (!LeerAEC(ctx, interno).isEmpty()) GuardarAEC(ctx, interno, {});
}
