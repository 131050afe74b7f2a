#include "desktop/FrmPrimerInicio.h"

#include <QDir>

#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

enum FilaDeStores { filaConDatos, filaVacia };

}  // namespace

FrmPrimerInicio::FrmPrimerInicio() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmPrimerInicio::Form_Load() {
    ui.LstStores->insertItem(filaConDatos, u"Con datos de demostración, para conocer el programa"_s);
    ui.LstStores->insertItem(filaVacia, u"Vacías, para empezar a trabajar"_s);
    ui.LstStores->setFixedHeight(ui.LstStores->sizeHintForRow(0) * ui.LstStores->count() +
                                 2 * ui.LstStores->frameWidth());
    // Their places are kept, so that the window does not jump when the work begins.
    for (QWidget *parte : {static_cast<QWidget *>(ui.lbPaso), static_cast<QWidget *>(ui.pbAvance)}) {
        QSizePolicy lugar = parte->sizePolicy();
        lugar.setRetainSizeWhenHidden(true);
        parte->setSizePolicy(lugar);
    }
    Trabajar(false);
}

void FrmPrimerInicio::Conectar() {
    QDialog *v = ventana.get();
    QObject::connect(ui.cmdCrear, &QPushButton::clicked, v, [this] { cmdCrear_Click(); });
    QObject::connect(ui.cmdSalir, &QPushButton::clicked, v, [this] { cmdSalir_Click(); });
    QObject::connect(ui.LstStores, &QListWidget::itemDoubleClicked, v, [this] { cmdCrear_Click(); });
    EscucharTeclas(ui.LstStores, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        cmdCrear_Click();
        return true;
    });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() == QEvent::KeyPress) return Form_KeyDown(static_cast<QKeyEvent *>(evento));
        if (evento->type() != QEvent::Close || !trabajando_) return false;
        // The work is given up first; the window goes when it has been undone.
        evento->ignore();
        cmdSalir_Click();
        return true;
    });
}

void FrmPrimerInicio::Cargar(const QString &carpeta, const QString &nombre) {
    pedido_ = {carpeta, nombre, true};
    ui.lbCarpeta->setText(QDir::toNativeSeparators(carpeta + u"/db"_s));
    ui.LstStores->setCurrentRow(filaConDatos);
    ui.LstStores->setFocus();
}

bool FrmPrimerInicio::Ofrecer(const QString &carpeta, const QString &nombre) {
    Cargar(carpeta, nombre);
    return ventana->exec() == QDialog::Accepted;
}

bool FrmPrimerInicio::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape) return false;
    cmdSalir_Click();
    return true;
}

void FrmPrimerInicio::cmdSalir_Click() {
    if (trabajando_)
        cancelado_ = true;
    else
        ventana->reject();
}

void FrmPrimerInicio::Trabajar(bool trabaja) {
    trabajando_ = trabaja;
    ui.lbPaso->setVisible(trabaja);
    ui.pbAvance->setVisible(trabaja);
    ui.LstStores->setEnabled(!trabaja);
    ui.cmdCrear->setEnabled(!trabaja);
    ui.lbTeclas->setText(trabaja ? u"ESC  cancelar la creación y salir"_s
                                 : u"↑ ↓  elegir   ·   ENTER  crear   ·   ESC  salir"_s);
    (trabaja ? static_cast<QWidget *>(ui.cmdSalir) : ui.LstStores)->setFocus();
}

bool FrmPrimerInicio::Avanzar(const QString &que, int porCiento) {
    ui.lbPaso->setText(que);
    ui.pbAvance->setValue(porCiento);
    Contexto().dialogos.atenderEventos();
    return !cancelado_;
}

void FrmPrimerInicio::cmdCrear_Click() {
    if (trabajando_) return;
    AppContext &ctx = Contexto();
    pedido_.conDemostracion = ui.LstStores->currentRow() == filaConDatos;
    cancelado_ = false;
    QString error;
    auto hechos = StoresHechos::No;
    Trabajar(true);
    const bool corrio = Manejar(ctx, [&] {
        hechos = HacerPrimerosStores(
            pedido_, [this](const QString &que, int porCiento) { return Avanzar(que, porCiento); }, error);
    });
    Trabajar(false);
    if (hechos == StoresHechos::Si)
        ventana->accept();
    else if (hechos == StoresHechos::Cancelados)
        ventana->reject();
    else if (corrio)
        ctx.dialogos.critico(error);
}
