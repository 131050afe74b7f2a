#include "outputs/FrmPresupuesto.h"

#include "frame/ui/ventana.h"

FrmPresupuesto::FrmPresupuesto() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
}

void FrmPresupuesto::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    if (!Manejar(ctx, [&] { CargarCaratula(ctx, interno, p_); })) return;
    ventana->exec();
}
