#include "outputs/FrmListaMaestra.h"

#include <QLineEdit>
#include <QListWidget>
#include <algorithm>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

void ListaMaestra::Preparar(QDialog *ventana, QListWidget *lista, QLineEdit *nuevo, ListaDePresupuesto cual) {
    ventana_ = ventana;
    lista_ = lista;
    nuevo_ = nuevo;
    cual_ = cual;
    ClCntrl::Vincular(nuevo);
    EscucharTeclas(lista, [this](QKeyEvent *tecla) { return Lista_KeyDown(tecla); });
    EscucharTeclas(nuevo, [this](QKeyEvent *tecla) { return Nuevo_KeyDown(tecla); });
    QObject::connect(lista, &QListWidget::itemDoubleClicked, ventana, [this] { Tomar(); });
}

bool ListaMaestra::Cargar(const QString &actual) {
    AppContext &ctx = Contexto();
    const int antes = std::max(0, lista_->currentRow());
    QStringList textos;
    // What is shown stays where it cannot be read again.
    if (!Manejar(ctx, [&] { textos = LeerLista(ctx, cual_); })) return false;
    lista_->clear();
    lista_->addItems(textos);
    const auto donde = static_cast<int>(textos.indexOf(actual));
    lista_->setCurrentRow(donde >= 0 ? donde : std::min(antes, lista_->count() - 1));
    return true;
}

std::optional<QString> ListaMaestra::Elegir() {
    Cargar();
    // An empty list is there to be filled.
    (lista_->count() > 0 ? static_cast<QWidget *>(lista_) : nuevo_)->setFocus();
    if (ventana_->exec() != QDialog::Accepted) return {};
    return lista_->currentItem()->text();
}

void ListaMaestra::Tomar() {
    if (lista_->currentItem() != nullptr) ventana_->accept();
}

bool ListaMaestra::Lista_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        Tomar();
        return true;
    }
    const QListWidgetItem *entrada = lista_->currentItem();
    if (tecla->key() != Qt::Key_Delete || entrada == nullptr) return false;
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { QuitarDeLista(ctx, cual_, entrada->text()); });
    Cargar();
    return true;
}

bool ListaMaestra::Nuevo_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    AppContext &ctx = Contexto();
    const QString texto = nuevo_->text().trimmed();
    Manejar(ctx, [&] {
        if (!AgregarALista(ctx, cual_, texto)) {
            nuevo_->selectAll();
            return;
        }
        nuevo_->clear();
        if (!Cargar(texto)) {
            // It is kept all the same.
            lista_->addItem(texto);
            lista_->setCurrentRow(lista_->count() - 1);
        }
        // The next ENTER takes it.
        lista_->setFocus();
    });
    return true;
}
