#include "frame/ui/ListaConBusqueda.h"

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

void ListaConBusqueda::Preparar(QTableWidget *grilla, const QStringList &columnas, std::vector<Caja> cajas,
                                Acciones acciones) {
    grilla_ = grilla;
    cajas_ = std::move(cajas);
    acciones_ = std::move(acciones);
    estados_.resize(cajas_.size());
    estilo::PrepararGrilla(grilla_, columnas);
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        QLineEdit *campo = cajas_[i].campo;
        ClCntrl::Vincular(campo);
        EscucharTeclas(campo, [this, i](QKeyEvent *tecla) { return teclaDeCaja(i, tecla); });
        QObject::connect(campo, &QLineEdit::textChanged, grilla_, [this, i](const QString &texto) {
            estados_[i].Escribir(texto);
            Seleccionar(estados_[i].actual);
        });
    }
    EscucharTeclas(grilla_, [this](QKeyEvent *tecla) { return teclaDeGrilla(tecla); });
    QObject::connect(grilla_, &QTableWidget::cellDoubleClicked, grilla_,
                     [this] { hacer(acciones_.tomar, true); });
}

void ListaConBusqueda::Cargar(const std::vector<QStringList> &filas, int actual) {
    grilla_->setRowCount(static_cast<int>(filas.size()));
    for (int fila = 0; fila < grilla_->rowCount(); ++fila) {
        const QStringList &celdas = filas[static_cast<std::size_t>(fila)];
        for (int columna = 0; columna < celdas.size(); ++columna)
            estilo::PonerCelda(grilla_, fila, columna, celdas[columna]);
    }
    for (std::size_t i = 0; i < cajas_.size(); ++i) {
        QStringList columna;
        columna.reserve(static_cast<qsizetype>(filas.size()));
        for (const QStringList &celdas : filas) columna << celdas.value(cajas_[i].columna);
        estados_[i] = EstadoDeLista(std::move(columna));
        const QSignalBlocker callado(cajas_[i].campo);
        cajas_[i].campo->clear();
    }
    Seleccionar(std::min(actual, grilla_->rowCount() - 1));
}

int ListaConBusqueda::Actual() const {
    return grilla_->currentRow();
}

void ListaConBusqueda::Seleccionar(int fila) {
    if (fila < 0) {
        grilla_->setCurrentCell(-1, -1);
        grilla_->clearSelection();
        return;
    }
    // The grid's own search by letters goes by the column in hand.
    grilla_->setCurrentCell(fila, std::max(0, grilla_->currentColumn()));
    grilla_->scrollToItem(grilla_->item(fila, 0));
}

bool ListaConBusqueda::hacer(const std::function<void()> &accion, bool conFila) {
    if (!accion) return false;
    if (!conFila || Actual() >= 0) accion();
    return true;
}

int ListaConBusqueda::filasPorPagina() const {
    const int alto = std::max(1, grilla_->verticalHeader()->defaultSectionSize());
    return std::max(1, grilla_->viewport()->height() / alto - 1);
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
    const int filas = grilla_->rowCount();
    switch (tecla->key()) {
        case Qt::Key_Delete:
            return hacer(acciones_.eliminar, true);
        case Qt::Key_Home:
            if (filas > 0) Seleccionar(0);
            return true;
        case Qt::Key_End:
            if (filas > 0) Seleccionar(filas - 1);
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
