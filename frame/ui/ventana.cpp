#include "frame/ui/ventana.h"

#include "frame/ui/Pantalla.h"

std::unique_ptr<QDialog> HacerDialogo() {
    return std::make_unique<QDialog>(pantallas::marco(),
                                     Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                         Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint);
}

bool Manejar(AppContext &ctx, const std::function<void()> &hacer) {
    try {
        hacer();
        return true;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(QString::number(e.numero) + QLatin1String(" - ") + e.descripcion);
        return false;
    }
}

void NoDisponible(AppContext &ctx) {
    ctx.dialogos.informar(QStringLiteral("Esta opción todavía no está disponible en esta versión."));
}

void MostrarVentana(QWidget *ventana) {
    ventana->show();
    ventana->raise();
    ventana->activateWindow();
}
