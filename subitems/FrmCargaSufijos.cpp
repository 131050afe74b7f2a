#include "subitems/FrmCargaSufijos.h"

#include <QKeyEvent>

#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

namespace {

constexpr int cancelado = -1;
constexpr int sinEleccion = -2;

}  // namespace

FrmCargaSufijos::FrmCargaSufijos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmCargaSufijos::Conectar() {
    // ENTER is the list's own; ESC belongs to the whole window, and is not the same as closing it.
    EscucharTeclas(ventana.get(), [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    EscucharTeclas(ui.LstOpcion, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        Confirmar();
        return true;
    });
    QObject::connect(ui.LstOpcion, &QListWidget::itemDoubleClicked, ventana.get(), [this] { Confirmar(); });
}

void FrmCargaSufijos::Cargar(const Eleccion &eleccion) {
    resultado_ = sinEleccion;
    ventana->setWindowTitle(eleccion.titulo);
    ui.LstOpcion->clear();
    ui.LstOpcion->addItems(eleccion.filas);
    ui.LstOpcion->setCurrentRow(eleccion.inicial);
    ui.LstOpcion->setFocus();
}

int FrmCargaSufijos::Elegir(const Eleccion &eleccion) {
    Cargar(eleccion);
    ventana->exec();
    return resultado_;
}

bool FrmCargaSufijos::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape) return false;
    resultado_ = cancelado;
    ventana->reject();
    return true;
}

void FrmCargaSufijos::Confirmar() {
    if (ui.LstOpcion->currentRow() < 0) return;
    resultado_ = ui.LstOpcion->currentRow();
    ventana->accept();
}
