#include "outputs/FrmReferencias.h"

#include <algorithm>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "outputs/quotelists.h"

using namespace Qt::StringLiterals;

FrmReferencias::FrmReferencias() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmReferencias::Conectar() {
    ClCntrl::Vincular(ui.TxtRefencia);
    EscucharTeclas(ui.LstReferencias, [this](QKeyEvent *tecla) { return LstReferencias_KeyDown(tecla); });
    EscucharTeclas(ui.TxtRefencia, [this](QKeyEvent *tecla) { return TxtRefencia_KeyDown(tecla); });
    QObject::connect(ui.LstReferencias, &QListWidget::itemDoubleClicked, ventana.get(), [this] { Tomar(); });
}

void FrmReferencias::Cargar(const QString &actual) {
    AppContext &ctx = Contexto();
    const int antes = std::max(0, ui.LstReferencias->currentRow());
    QStringList textos;
    Manejar(ctx, [&] { textos = LeerLista(ctx, ListaDePresupuesto::Referencias); });
    ui.LstReferencias->clear();
    ui.LstReferencias->addItems(textos);
    const auto donde = static_cast<int>(textos.indexOf(actual));
    ui.LstReferencias->setCurrentRow(donde >= 0 ? donde : std::min(antes, ui.LstReferencias->count() - 1));
}

std::optional<QString> FrmReferencias::Elegir() {
    Cargar();
    // An empty list is there to be filled.
    (ui.LstReferencias->count() > 0 ? static_cast<QWidget *>(ui.LstReferencias) : ui.TxtRefencia)->setFocus();
    if (ventana->exec() != QDialog::Accepted) return {};
    return ui.LstReferencias->currentItem()->text();
}

void FrmReferencias::Tomar() {
    if (ui.LstReferencias->currentItem() != nullptr) ventana->accept();
}

bool FrmReferencias::LstReferencias_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        Tomar();
        return true;
    }
    const QListWidgetItem *entrada = ui.LstReferencias->currentItem();
    if (tecla->key() != Qt::Key_Delete || entrada == nullptr) return false;
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { QuitarDeLista(ctx, ListaDePresupuesto::Referencias, entrada->text()); });
    Cargar();
    return true;
}

bool FrmReferencias::TxtRefencia_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    AppContext &ctx = Contexto();
    const QString nuevo = ui.TxtRefencia->text().trimmed();
    Manejar(ctx, [&] {
        if (!AgregarALista(ctx, ListaDePresupuesto::Referencias, nuevo)) {
            ui.TxtRefencia->selectAll();
            return;
        }
        ui.TxtRefencia->clear();
        Cargar(nuevo);
        // The next ENTER takes it.
        ui.LstReferencias->setFocus();
    });
    return true;
}
