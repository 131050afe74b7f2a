#include "outputs/FrmConceptos.h"

#include <algorithm>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "outputs/quotelists.h"

using namespace Qt::StringLiterals;

FrmConceptos::FrmConceptos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmConceptos::Conectar() {
    ClCntrl::Vincular(ui.TxtConcepto);
    EscucharTeclas(ui.LstConceptos, [this](QKeyEvent *tecla) { return LstConceptos_KeyDown(tecla); });
    EscucharTeclas(ui.TxtConcepto, [this](QKeyEvent *tecla) { return TxtConcepto_KeyDown(tecla); });
    QObject::connect(ui.LstConceptos, &QListWidget::itemDoubleClicked, ventana.get(), [this] { Tomar(); });
}

void FrmConceptos::Cargar(const QString &actual) {
    AppContext &ctx = Contexto();
    const int antes = std::max(0, ui.LstConceptos->currentRow());
    QStringList textos;
    Manejar(ctx, [&] { textos = LeerLista(ctx, ListaDePresupuesto::Conceptos); });
    ui.LstConceptos->clear();
    ui.LstConceptos->addItems(textos);
    const auto donde = static_cast<int>(textos.indexOf(actual));
    ui.LstConceptos->setCurrentRow(donde >= 0 ? donde : std::min(antes, ui.LstConceptos->count() - 1));
}

std::optional<QString> FrmConceptos::Elegir() {
    Cargar();
    // An empty list is there to be filled.
    (ui.LstConceptos->count() > 0 ? static_cast<QWidget *>(ui.LstConceptos) : ui.TxtConcepto)->setFocus();
    if (ventana->exec() != QDialog::Accepted) return {};
    return ui.LstConceptos->currentItem()->text();
}

void FrmConceptos::Tomar() {
    if (ui.LstConceptos->currentItem() != nullptr) ventana->accept();
}

bool FrmConceptos::LstConceptos_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        Tomar();
        return true;
    }
    const QListWidgetItem *entrada = ui.LstConceptos->currentItem();
    if (tecla->key() != Qt::Key_Delete || entrada == nullptr) return false;
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { QuitarDeLista(ctx, ListaDePresupuesto::Conceptos, entrada->text()); });
    Cargar();
    return true;
}

bool FrmConceptos::TxtConcepto_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    AppContext &ctx = Contexto();
    const QString nuevo = ui.TxtConcepto->text().trimmed();
    Manejar(ctx, [&] {
        if (!AgregarALista(ctx, ListaDePresupuesto::Conceptos, nuevo)) {
            ui.TxtConcepto->selectAll();
            return;
        }
        ui.TxtConcepto->clear();
        Cargar(nuevo);
        // The next ENTER takes it.
        ui.LstConceptos->setFocus();
    });
    return true;
}
