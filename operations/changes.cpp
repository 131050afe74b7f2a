#include "operations/changes.h"

#include "assembly/run.h"
#include "header/automotive.h"

void AnotarCambio(AppContext &ctx, const QString &interno) {
    MarcarArmado(ctx, interno, true);
    GuardarAEC(ctx, interno, {});
}
