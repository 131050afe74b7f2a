#include "frame/ui/ListaConBusqueda.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTableWidget>
#include <algorithm>
#include <utility>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"

namespace {

/// Rows of texts under their headings.
class ModeloDeFilas : public QAbstractTableModel {
 public:
    ModeloDeFilas(QStringList columnas, QObject *padre)
        : QAbstractTableModel(padre), columnas_(std::move(columnas)) {}

    void fijar(std::vector<QStringList> filas) {
        beginResetModel();
        filas_ = std::move(filas);
        endResetModel();
    }
    int rowCount(const QModelIndex &padre) const override {
        return padre.isValid() ? 0 : static_cast<int>(filas_.size());
    }
    int columnCount(const QModelIndex &padre) const override {
        return padre.isValid() ? 0 : static_cast<int>(columnas_.size());
    }
    QVariant data(const QModelIndex &celda, int papel) const override {
        if (!celda.isValid() || papel != Qt::DisplayRole) return {};
        return filas_[static_cast<std::size_t>(celda.row())].value(celda.column());
    }
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override {
        if (orientacion != Qt::Horizontal || papel != Qt::DisplayRole)
            return QAbstractTableModel::headerData(columna, orientacion, papel);
        return columnas_.value(columna);
    }

 private:
    QStringList columnas_;
    std::vector<QStringList> filas_;
};

}  // namespace

void ListaConBusqueda::Preparar(QTableWidget *grilla, const QStringList &columnas, std::vector<Caja> cajas,
                                Acciones acciones) {
    estilo::PrepararGrilla(grilla, columnas);
    llenar_ = [grilla](const std::vector<QStringList> &filas) {
        grilla->setRowCount(static_cast<int>(filas.size()));
        for (int fila = 0; fila < grilla->rowCount(); ++fila) {
            const QStringList &celdas = filas[static_cast<std::size_t>(fila)];
            for (int columna = 0; columna < celdas.size(); ++columna)
                estilo::PonerCelda(grilla, fila, columna, celdas[columna]);
        }
    };
    vincular(grilla, std::move(cajas), std::move(acciones));
}

void ListaConBusqueda::Preparar(QTableView *vista, const QStringList &columnas, std::vector<Caja> cajas,
                                Acciones acciones) {
    estilo::PrepararVista(vista);
    auto *modelo = new ModeloDeFilas(columnas, vista);
    vista->setModel(modelo);
    llenar_ = [modelo](const std::vector<QStringList> &filas) { modelo->fijar(filas); };
    vincular(vista, std::move(cajas), std::move(acciones));
}

void ListaConBusqueda::vincular(QTableView *vista, std::vector<Caja> cajas, Acciones acciones) {
    vista_ = vista;
    cajas_ = std::move(cajas);
    acciones_ = std::move(acciones);
    estados_.resize(cajas_.size());
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        QLineEdit *campo = cajas_[i].campo;
        ClCntrl::Vincular(campo);
        EscucharTeclas(campo, [this, i](QKeyEvent *tecla) { return teclaDeCaja(i, tecla); });
        QObject::connect(campo, &QLineEdit::textChanged, vista_, [this, i](const QString &texto) {
            estados_[i].Escribir(texto);
            Seleccionar(estados_[i].actual);
        });
    }
    EscucharTeclas(vista_, [this](QKeyEvent *tecla) { return teclaDeGrilla(tecla); });
    QObject::connect(vista_, &QTableView::doubleClicked, vista_, [this] { hacer(acciones_.tomar, true); });
}

int ListaConBusqueda::filas() const {
    return vista_->model()->rowCount();
}

void ListaConBusqueda::Cargar(const std::vector<QStringList> &filas, int actual) {
    llenar_(filas);
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        QStringList columna;
        columna.reserve(static_cast<qsizetype>(filas.size()));
        for (const QStringList &celdas : filas) columna << celdas.value(cajas_[i].columna);
        estados_[i] = EstadoDeLista(std::move(columna));
        const QSignalBlocker callado(cajas_[i].campo);
        cajas_[i].campo->clear();
    }
    Seleccionar(std::min(actual, this->filas() - 1));
}

int ListaConBusqueda::Actual() const {
    return vista_->currentIndex().row();
}

void ListaConBusqueda::Seleccionar(int fila) {
    if (fila < 0) {
        vista_->setCurrentIndex({});
        vista_->clearSelection();
        return;
    }
    // The grid's own search by letters goes by the column in hand.
    const QModelIndex celda = vista_->model()->index(fila, std::max(0, vista_->currentIndex().column()));
    vista_->setCurrentIndex(celda);
    vista_->scrollTo(celda.siblingAtColumn(0));
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

bool ListaConBusqueda::teclaDeCaja(std::size_t cual, QKeyEvent *tecla) {
    if (teclaDeLista(tecla)) return true;
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
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
    const int ultima = filas() - 1;
    switch (tecla->key()) {
        case Qt::Key_Delete:
            return hacer(acciones_.eliminar, true);
        case Qt::Key_Home:
            if (ultima >= 0) Seleccionar(0);
            return true;
        case Qt::Key_End:
            if (ultima >= 0) Seleccionar(ultima);
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
