#include "operations/FrmAbrir.h"

#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/lifecycle.h"

void AbrirInterno(const QString &interno) {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        const Reloj reloj(ctx.dialogos);
        if (!ComprobarBloqueo(ctx, interno)) return;
        ctx.dialogos.reloj(true);
        auto &tablero = Pantalla<FrmDetalleInterno>();
        tablero.Cargar(interno, LeerBanderas(ctx, interno));
        ctx.dialogos.reloj(false);
        // Loaded first, locked then: a failure to load leaves no lock behind.
        TomarBloqueo(ctx, interno);
        tablero.VerDatos();
        MostrarVentana(tablero.ventana.get());
        tablero.TomarFoco();
    });
}
