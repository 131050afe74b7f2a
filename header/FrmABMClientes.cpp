#include "header/FrmABMClientes.h"

#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmABMClientes::FrmABMClientes() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmABMClientes::Conectar() {
    QObject::connect(ui.cmdAceptar, &QPushButton::clicked, ventana.get(), &QDialog::accept);
    QObject::connect(ui.cmdCancelar, &QPushButton::clicked, ventana.get(), &QDialog::reject);
}

void FrmABMClientes::Cargar(const PreguntaConOpciones &p) {
    ventana->setWindowTitle(p.titulo);
    QString texto = p.texto;
    ui.LbPregunta->setText(texto.replace("\r\n"_L1, "\n"_L1));
    ui.FramDestino->setTitle(p.marco);
    ui.opPRO->setText(p.opciones.value(0));
    ui.opREP->setText(p.opciones.value(1));
    ui.opPRO->setChecked(true);
    ui.cmdAceptar->setText(p.si);
    ui.cmdCancelar->setText(p.no);
    ui.cmdAceptar->setDefault(true);
    ui.opPRO->setFocus();
}

RespuestaConOpciones FrmABMClientes::Preguntar(const PreguntaConOpciones &pregunta) {
    Cargar(pregunta);
    const bool si = ventana->exec() == QDialog::Accepted;
    return {si, ui.opREP->isChecked() ? 1 : 0};
}
