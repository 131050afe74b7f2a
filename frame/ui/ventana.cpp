#include "frame/ui/ventana.h"

#include "frame/failures.h"
#include "frame/ui/Pantalla.h"

using namespace Qt::StringLiterals;

std::unique_ptr<QDialog> HacerDialogo() {
    return std::make_unique<QDialog>(pantallas::marco(),
                                     Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                         Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint);
}

bool Manejar(AppContext &ctx, const std::function<void()> &hacer) {
    try {
        hacer();
        return true;
    } catch (const Falla &e) {
        ContarFalla(ctx, e);
        return false;
    }
}

bool SeFueElStore(AppContext &ctx, const QString &entidad, const std::function<void()> &guardar) {
    const Conexion &store = ctx.conexion(entidad);
    const bool estaba = store.abierta();
    guardar();
    return estaba && !store.abierta();
}

void NoDisponible(AppContext &ctx) {
    ctx.dialogos.informar(u"Esta opción todavía no está disponible en esta versión."_s);
}

void SinBiblioteca(AppContext &ctx, const QString &biblioteca, const QString &opcion) {
    ctx.dialogos.informar(
        u"La biblioteca %1 no está instalada en esta PC; instálela para usar la opción %2."_s.arg(biblioteca,
                                                                                                  opcion));
}

void MostrarVentana(QWidget *ventana) {
    ventana->show();
    ventana->raise();
    ventana->activateWindow();
}
