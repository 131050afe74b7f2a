#include "desktop/FrmConfig.h"

#include "desktop/FrmBase.h"
#include "desktop/FrmConGen.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

FrmConfig::FrmConfig() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmConfig::Conectar() {
    QObject::connect(ui.cmdOpciones, &QPushButton::clicked, ventana.get(),
                     [] { Pantalla<FrmConGen>().Mostrar(); });
    QObject::connect(ui.cmdBase, &QPushButton::clicked, ventana.get(), [] { Pantalla<FrmBase>().Mostrar(); });
    EscucharTeclas(ventana.get(), [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

void FrmConfig::Mostrar() {
    MostrarVentana(ventana.get());
    ui.cmdOpciones->setFocus();
}

bool FrmConfig::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() == Qt::Key_Up || tecla->key() == Qt::Key_Down) {
        (ui.cmdOpciones->hasFocus() ? ui.cmdBase : ui.cmdOpciones)->setFocus();
        return true;
    }
    if (tecla->key() != Qt::Key_Escape) return false;
    CerrarPantalla<FrmConfig>();
    return true;
}
