#include "frame/ui/ListaConBusqueda.h"

#include <QAbstractTableModel>
#include <QBrush>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QTimer>
#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"

/// Rows of texts under their headings, all of them or some.
class ModeloDeFilas : public QAbstractTableModel {
 public:
    ModeloDeFilas(QStringList columnas, std::vector<int> numericas, QObject *padre)
        : QAbstractTableModel(padre), columnas_(std::move(columnas)), numericas_(std::move(numericas)) {}

    void fijar(std::vector<QStringList> filas) {
        beginResetModel();
        filas_ = std::move(filas);
        visibles_.resize(filas_.size());
        std::iota(visibles_.begin(), visibles_.end(), 0);
        endResetModel();
    }
    void mostrar(std::vector<int> visibles) {
        beginResetModel();
        visibles_ = std::move(visibles);
        endResetModel();
    }
    void colorear(std::function<std::optional<QColor>(int)> color) { color_ = std::move(color); }
    const std::vector<int> &visibles() const { return visibles_; }
    std::size_t cuantas() const { return filas_.size(); }
    QStringList columna(int cual) const {
        QStringList textos;
        textos.reserve(static_cast<qsizetype>(filas_.size()));
        for (const QStringList &celdas : filas_) textos << celdas.value(cual);
        return textos;
    }
    /// The loaded row that is seen there, and where a loaded row is seen; -1 for none.
    int fila(int visible) const { return visible < 0 ? -1 : visibles_.at(static_cast<std::size_t>(visible)); }
    int visible(int fila) const {
        const auto donde = std::lower_bound(visibles_.begin(), visibles_.end(), fila);
        return donde == visibles_.end() || *donde != fila ? -1 : static_cast<int>(donde - visibles_.begin());
    }
    void escribir(int fila, int columna, const QString &texto) {
        filas_[static_cast<std::size_t>(fila)][columna] = texto;
        if (const int donde = visible(fila); donde >= 0)
            Q_EMIT dataChanged(index(donde, columna), index(donde, columna));
    }

    int rowCount(const QModelIndex &padre) const override {
        return padre.isValid() ? 0 : static_cast<int>(visibles_.size());
    }
    int columnCount(const QModelIndex &padre) const override {
        return padre.isValid() ? 0 : static_cast<int>(columnas_.size());
    }
    QVariant data(const QModelIndex &celda, int papel) const override {
        if (!celda.isValid()) return {};
        if (papel == Qt::TextAlignmentRole) return lado(celda.column());
        if (papel == Qt::ForegroundRole) return tinta(fila(celda.row()));
        if (papel != Qt::DisplayRole) return {};
        return filas_[static_cast<std::size_t>(fila(celda.row()))].value(celda.column());
    }
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override {
        if (orientacion == Qt::Horizontal && papel == Qt::TextAlignmentRole) return lado(columna);
        if (orientacion != Qt::Horizontal || papel != Qt::DisplayRole)
            return QAbstractTableModel::headerData(columna, orientacion, papel);
        return columnas_.value(columna);
    }

 private:
    QVariant lado(int columna) const {
        const bool numero = std::find(numericas_.begin(), numericas_.end(), columna) != numericas_.end();
        return QVariant((numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }

    QVariant tinta(int fila) const {
        const auto color = color_ ? color_(fila) : std::nullopt;
        return color ? QVariant(QBrush(*color)) : QVariant();
    }

    QStringList columnas_;
    std::vector<int> numericas_;
    std::vector<QStringList> filas_;
    std::vector<int> visibles_;  ///< ascending
    std::function<std::optional<QColor>(int)> color_;
};

namespace {

void llenarGrilla(QTableWidget *grilla, const std::vector<QStringList> &filas) {
    grilla->setRowCount(static_cast<int>(filas.size()));
    for (int fila = 0; fila < grilla->rowCount(); ++fila) {
        const QStringList &celdas = filas[static_cast<std::size_t>(fila)];
        for (int columna = 0; columna < celdas.size(); ++columna)
            estilo::PonerCelda(grilla, fila, columna, celdas[columna]);
    }
}

}  // namespace

void ListaConBusqueda::Preparar(QTableWidget *grilla, const QStringList &columnas, std::vector<Caja> cajas,
                                Acciones acciones) {
    estilo::PrepararGrilla(grilla, columnas);
    vincular(grilla, std::move(cajas), std::move(acciones));
}

void ListaConBusqueda::Preparar(QTableView *vista, const QStringList &columnas, std::vector<Caja> cajas,
                                Acciones acciones, std::vector<int> numericas) {
    estilo::PrepararVista(vista);
    modelo_ = new ModeloDeFilas(columnas, std::move(numericas), vista);
    vista->setModel(modelo_);
    vincular(vista, std::move(cajas), std::move(acciones));
}

void ListaConBusqueda::vincular(QTableView *vista, std::vector<Caja> cajas, Acciones acciones) {
    // Shorter than the pause between two words, longer than that between two keys.
    constexpr int descanso = 120;
    vista_ = vista;
    cajas_ = std::move(cajas);
    acciones_ = std::move(acciones);
    estados_.resize(cajas_.size());
    contenidos_.resize(cajas_.size());
    descanso_ = new QTimer(vista);
    descanso_->setSingleShot(true);
    descanso_->setInterval(descanso);
    QObject::connect(descanso_, &QTimer::timeout, vista_, [this] { estrechar(); });
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        QLineEdit *campo = cajas_[i].campo;
        ClCntrl::Vincular(campo);
        EscucharTeclas(campo, [this, i](QKeyEvent *tecla) { return teclaDeCaja(i, tecla); });
        QObject::connect(campo, &QLineEdit::textChanged, vista_,
                         [this, i](const QString &texto) { escribir(i, texto); });
    }
    EscucharTeclas(vista_, [this](QKeyEvent *tecla) { return teclaDeGrilla(tecla); });
    QObject::connect(vista_, &QTableView::doubleClicked, vista_, [this] { hacer(acciones_.tomar, true); });
}

void ListaConBusqueda::Colorear(std::function<std::optional<QColor>(int fila)> color) {
    modelo_->colorear(std::move(color));
}

std::vector<int> ListaConBusqueda::EnVista() const {
    return modelo_->visibles();
}

int ListaConBusqueda::Visibles() const {
    return vista_->model()->rowCount();
}

void ListaConBusqueda::Cargar(std::vector<QStringList> filas, int actual) {
    descanso_->stop();
    contenidos_.assign(cajas_.size(), std::nullopt);
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        // What is narrowed stays with its text, which whoever loads knows.
        if (cajas_[i].estrecha) continue;
        QStringList columna;
        columna.reserve(static_cast<qsizetype>(filas.size()));
        for (const QStringList &celdas : filas) columna << celdas.value(cajas_[i].columna);
        estados_[i] = EstadoDeLista(std::move(columna));
        const QSignalBlocker callado(cajas_[i].campo);
        cajas_[i].campo->clear();
    }
    if (modelo_ != nullptr)
        modelo_->fijar(std::move(filas));
    else
        llenarGrilla(static_cast<QTableWidget *>(vista_), filas);
    Seleccionar(std::min(actual, Visibles() - 1));
}

int ListaConBusqueda::Actual() const {
    const int visible = vista_->currentIndex().row();
    return modelo_ != nullptr ? modelo_->fila(visible) : visible;
}

void ListaConBusqueda::Seleccionar(int fila) {
    irA(modelo_ != nullptr ? modelo_->visible(fila) : fila);
}

void ListaConBusqueda::Escribir(int fila, int columna, const QString &texto) {
    modelo_->escribir(fila, columna, texto);
    for (std::size_t i = 0; i < cajas_.size(); ++i)
        if (cajas_[i].columna == columna) contenidos_[i].reset();
}

void ListaConBusqueda::irA(int visible) {
    if (visible < 0) {
        vista_->setCurrentIndex({});
        vista_->clearSelection();
        return;
    }
    // The grid's own search by letters goes by the column in hand.
    const QModelIndex celda = vista_->model()->index(visible, std::max(0, vista_->currentIndex().column()));
    vista_->setCurrentIndex(celda);
    vista_->scrollTo(celda.siblingAtColumn(0));
}

void ListaConBusqueda::escribir(std::size_t cual, const QString &texto) {
    if (cajas_[cual].estrecha) {
        descanso_->start();
        return;
    }
    estados_[cual].Escribir(texto);
    Seleccionar(estados_[cual].actual);
}

void ListaConBusqueda::EstrecharPor(const QLineEdit *campo, int columna) {
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        if (cajas_[i].campo != campo) continue;
        if (std::exchange(cajas_[i].columna, columna) != columna) contenidos_[i].reset();
        escribir(i, campo->text());
    }
    EstrecharYa();
}

void ListaConBusqueda::EstrecharYa() {
    if (!descanso_->isActive()) return;
    descanso_->stop();
    estrechar();
}

void ListaConBusqueda::estrechar() {
    if (acciones_.buscar) {
        acciones_.buscar();
        return;
    }
    std::vector<int> quedan(modelo_->cuantas());
    std::iota(quedan.begin(), quedan.end(), 0);
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        const Caja &caja = cajas_[i];
        if (!caja.estrecha || caja.campo->text().isEmpty()) continue;
        auto &contenido = contenidos_[i];
        if (!contenido) contenido = BuscadorPorContenido(modelo_->columna(caja.columna));
        const std::vector<int> filas = contenido->Filas(caja.campo->text());
        std::vector<int> ambas;
        std::set_intersection(quedan.begin(), quedan.end(), filas.begin(), filas.end(),
                              std::back_inserter(ambas));
        quedan = std::move(ambas);
    }
    modelo_->mostrar(std::move(quedan));
    irA(Visibles() > 0 ? 0 : -1);
    if (acciones_.estrechar) acciones_.estrechar();
}

bool ListaConBusqueda::hacer(const std::function<void()> &accion, bool conFila) {
    if (!accion) return false;
    if (!conFila || Actual() >= 0) accion();
    return true;
}

int ListaConBusqueda::filasPorPagina() const {
    const int alto = std::max(1, vista_->verticalHeader()->defaultSectionSize());
    return std::max(1, vista_->viewport()->height() / alto - 1);
}

bool ListaConBusqueda::teclaDeLista(QKeyEvent *tecla) {
    const bool enter = tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
    // A key that takes a row means one of those that the text leaves.
    if (enter || tecla->key() == Qt::Key_F6) EstrecharYa();
    if (enter && tecla->modifiers().testFlag(Qt::ShiftModifier)) return hacer(acciones_.modificar, true);
    if (enter) {
        hacer(acciones_.tomar, true);
        // Never the window's default button.
        return true;
    }
    if (tecla->key() == Qt::Key_F6) return hacer(acciones_.modificar, true);
    if (tecla->key() == Qt::Key_Insert && (tecla->modifiers() & ~Qt::KeypadModifier) == 0)
        return hacer(acciones_.agregar, false);
    return false;
}

bool ListaConBusqueda::moverVisible(int tecla) {
    const auto mover = [this](int pasos) {
        EstrecharYa();
        if (Visibles() > 0) irA(std::clamp(vista_->currentIndex().row() + pasos, 0, Visibles() - 1));
        return true;
    };
    switch (tecla) {
        case Qt::Key_Up:
            return mover(-1);
        case Qt::Key_Down:
            return mover(1);
        case Qt::Key_PageUp:
            return mover(-filasPorPagina());
        case Qt::Key_PageDown:
            return mover(filasPorPagina());
        case Qt::Key_Home:
            return mover(-Visibles());
        case Qt::Key_End:
            return mover(Visibles());
        default:
            return false;
    }
}

bool ListaConBusqueda::teclaDeCaja(std::size_t cual, QKeyEvent *tecla) {
    if (teclaDeLista(tecla)) return true;
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    if (cajas_[cual].estrecha) return moverVisible(tecla->key());
    EstadoDeLista &estado = estados_[cual];
    estado.actual = Actual();
    bool movido = false;
    switch (tecla->key()) {
        case Qt::Key_Up:
            movido = estado.Mover(-1);
            break;
        case Qt::Key_Down:
            movido = estado.Mover(1);
            break;
        case Qt::Key_PageUp:
            movido = estado.Mover(-filasPorPagina());
            break;
        case Qt::Key_PageDown:
            movido = estado.Mover(filasPorPagina());
            break;
        case Qt::Key_Home:
            movido = estado.IrAlPrincipio();
            break;
        case Qt::Key_End:
            movido = estado.IrAlFinal();
            break;
        default:
            return false;
    }
    if (movido) {
        QLineEdit *campo = cajas_[cual].campo;
        const QSignalBlocker callado(campo);
        campo->setText(estado.texto);
        campo->end(false);
        Seleccionar(estado.actual);
    }
    return true;
}

bool ListaConBusqueda::teclaDeGrilla(QKeyEvent *tecla) {
    if (teclaDeLista(tecla)) return true;
    if ((tecla->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0) return false;
    const int ultima = Visibles() - 1;
    switch (tecla->key()) {
        case Qt::Key_Delete:
            return hacer(acciones_.eliminar, true);
        case Qt::Key_Home:
            if (ultima >= 0) irA(0);
            return true;
        case Qt::Key_End:
            if (ultima >= 0) irA(ultima);
            return true;
        default:
            break;
    }
    const QString texto = tecla->text();
    if (cajas_.empty() || texto.isEmpty() || !texto.at(0).isPrint() || texto.at(0).isSpace()) return false;
    cajas_.front().campo->setFocus();
    cajas_.front().campo->setText(texto);
    return true;
}
