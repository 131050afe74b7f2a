#include "desktop/FrmBase.h"

#include <QDir>
#include <QFileDialog>

#include "frame/options.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmBase::FrmBase() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    campos_ = {ui.txtInterno, ui.TxtPersonal, ui.TxtNcm, ui.TxtEstado, ui.TxtUsuario};
    Form_Load();
    Conectar();
}

void FrmBase::Form_Load() {
    const ValoresBase valores = LeerBase(Contexto());
    ui.txtInterno->setText(valores.txtInterno);
    ui.TxtPersonal->setText(valores.TxtPersonal);
    ui.TxtNcm->setText(valores.TxtNcm);
    ui.TxtEstado->setText(valores.TxtEstado);
    ui.TxtUsuario->setText(valores.TxtUsuario);
}

void FrmBase::Conectar() {
    for (QLineEdit *campo : campos_) {
        ClCntrl::Vincular(campo);
        EscucharTeclas(campo, [this, campo](QKeyEvent *tecla) { return campo_KeyDown(campo, tecla); });
    }
    Escuchar(ventana.get(), [this](QEvent *evento) {
        if (evento->type() == QEvent::Close) {
            evento->ignore();
            Form_Unload();
            return true;
        }
        if (evento->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(evento)->key() != Qt::Key_Escape)
            return false;
        Form_Unload();
        return true;
    });
}

void FrmBase::Mostrar() {
    ventana->setModal(true);
    MostrarVentana(ventana.get());
    ui.txtInterno->setFocus();
}

bool FrmBase::campo_KeyDown(QLineEdit *campo, const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_F6) return false;
    const QString carpeta =
        QFileDialog::getExistingDirectory(ventana.get(), u"Seleccione Ubicación"_s, campo->text());
    if (!carpeta.isEmpty()) campo->setText(QDir::toNativeSeparators(carpeta));
    return true;
}

void FrmBase::Form_Unload() {
    const ValoresBase valores{ui.txtInterno->text(), ui.TxtPersonal->text(), ui.TxtNcm->text(),
                              ui.TxtEstado->text(), ui.TxtUsuario->text()};
    // A file that cannot be written was told; the folders of the run are set all the same.
    GuardarBase(Contexto(), valores);
    CerrarPantalla<FrmBase>();
}
