#include "operations/FrmAbrir.h"

#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/lifecycle.h"

namespace {

/// One operation at a time: true when the dashboard in hand is that of `interno`, and stands in front now.
/// One of another operation is left as its user would leave it.
bool yaAbierta(const QString &interno) {
    if (!PantallaAbierta<FrmDetalleInterno>()) return false;
    auto &tablero = Pantalla<FrmDetalleInterno>();
    // Keys are the same in any case, as the store compares them.
    if (tablero.Interno().compare(interno, Qt::CaseInsensitive) == 0) {
        MostrarVentana(tablero.ventana.get());
        return true;
    }
    tablero.CerrarInterno();
    return false;
}

}  // namespace

void AbrirInterno(const QString &interno) {
    if (yaAbierta(interno)) return;
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
