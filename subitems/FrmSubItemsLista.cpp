// The list of lines beside their entry.

#include <QHeaderView>
#include <QKeyEvent>
#include <QTableWidget>
#include <algorithm>
#include <set>

#include "frame/context.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "subitems/FrmSubItems.h"

using namespace Qt::StringLiterals;

namespace {

enum Columna { numero, posicion, unidad, cantidad, kgneto, preciounitario, fob, identificador, articulo };

bool esNumero(int columna) {
    return columna >= cantidad && columna <= identificador;
}

}  // namespace

void FrmSubItems::ConectarLista() {
    QTableWidget *grilla = ui.LstArticulos;
    ListaConBusqueda::Acciones acciones;
    acciones.tomar = acciones.modificar = [this] { LstArticulos_Enter(); };
    acciones.agregar = [this] { cmdNuevo_Click(); };
    acciones.eliminar = [this] { cmdEliminar_Click(); };
    lista_.Preparar(grilla, ColumnasDeSubItems(), {}, std::move(acciones));
    EscucharTeclas(grilla, [this, grilla](const QKeyEvent *tecla) {
        if (tecla->key() != Qt::Key_Space || grilla->currentRow() < 0) return false;
        QTableWidgetItem *celda = grilla->item(grilla->currentRow(), numero);
        celda->setCheckState(celda->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
        return true;
    });
}

void FrmSubItems::CargarLista(const FiltroActivo &filtro) {
    AppContext &ctx = Contexto();
    // A filter that cannot be read leaves the one that is on.
    const auto lineas = GetRsSubtiems(ctx, s_.interno, CondicionDe(filtro));
    if (s_.modo == 2 && filtro.activo()) numeroEnMano_ = NumeroDeLinea(ctx, s_.interno, s_.id);
    QTableWidget *grilla = ui.LstArticulos;
    const std::vector<qint64> ids = IdsMarcados();
    const std::set<qint64> marcados(ids.begin(), ids.end());
    const qint64 enMano = IdDeFila(grilla->currentRow());
    const int filaEnMano = filtro == filtro_ ? grilla->currentRow() : 0;
    filtro_ = filtro;
    listaAtrasada_ = false;
    grilla->setUpdatesEnabled(false);
    grilla->setRowCount(static_cast<int>(lineas.size()));
    int fila = 0;
    for (const FilaSubItem &linea : lineas) {
        PonerFila(fila++, linea, marcados.count(linea.id) != 0);
        s_.ultimaVista = std::max(s_.ultimaVista.value_or(0), linea.id);
    }
    if (!s_.ultimaVista && !filtro.activo()) s_.ultimaVista = 0;
    grilla->resizeColumnsToContents();
    grilla->horizontalHeader()->setSectionResizeMode(articulo, QHeaderView::Stretch);
    grilla->setUpdatesEnabled(true);
    const int otraVez = enMano == 0 ? -1 : FilaDeId(enMano);
    lista_.Seleccionar(otraVez >= 0 ? otraVez : std::min(std::max(filaEnMano, 0), grilla->rowCount() - 1));
    EscribirFiltro();
}

void FrmSubItems::PonerFila(int fila, const FilaSubItem &linea, bool marcada) {
    QTableWidget *grilla = ui.LstArticulos;
    const QStringList celdas = linea.celdas();
    for (int columna = 0; columna < celdas.size(); ++columna)
        estilo::PonerCelda(grilla, fila, columna, celdas.at(columna), esNumero(columna));
    grilla->item(fila, numero)->setCheckState(marcada ? Qt::Checked : Qt::Unchecked);
    if (!linea.marcada) return;
    for (int columna = 0; columna < celdas.size(); ++columna)
        grilla->item(fila, columna)->setForeground(estilo::acento());
}

void FrmSubItems::ActualizarLinea(qint64 id, bool nueva) {
    AppContext &ctx = Contexto();
    QTableWidget *grilla = ui.LstArticulos;
    if (filtro_.activo()) {
        // As it is now it may belong to the filter's lines or not.
        CargarLista();
        if (const int enLista = FilaDeId(id); enLista >= 0) lista_.Seleccionar(enLista);
        return;
    }
    const bool descendente = ctx.opciones.SbtMostrarAsc;
    int fila = FilaDeId(id);
    if (nueva) fila = descendente ? 0 : grilla->rowCount();
    if (fila < 0) return;
    const int numeroDeLinea = nueva ? grilla->rowCount() + 1 : grilla->item(fila, numero)->text().toInt();
    const auto linea = FilaDeSubItem(ctx, s_.interno, id, numeroDeLinea);
    if (!linea) return;
    const bool marcada = !nueva && grilla->item(fila, numero)->checkState() == Qt::Checked;
    if (nueva) grilla->insertRow(fila);
    PonerFila(fila, *linea, marcada);
    s_.ultimaVista = std::max(s_.ultimaVista.value_or(0), id);
    // The line may be wider than those before it; the others need no second look.
    for (int columna = 0; columna < grilla->columnCount(); ++columna)
        grilla->setColumnWidth(
            columna, std::max(grilla->columnWidth(columna),
                              grilla->sizeHintForIndex(grilla->model()->index(fila, columna)).width() + 1));
    lista_.Seleccionar(fila);
}

qint64 FrmSubItems::IdDeFila(int fila) const {
    const QTableWidgetItem *celda = ui.LstArticulos->item(fila, identificador);
    return celda == nullptr ? 0 : celda->text().toLongLong();
}

int FrmSubItems::FilaDeId(qint64 id) const {
    for (int fila = 0; fila < ui.LstArticulos->rowCount(); ++fila)
        if (IdDeFila(fila) == id) return fila;
    return -1;
}

std::vector<qint64> FrmSubItems::IdsMarcados() const {
    std::vector<qint64> ids;
    for (int fila = 0; fila < ui.LstArticulos->rowCount(); ++fila)
        if (ui.LstArticulos->item(fila, numero)->checkState() == Qt::Checked) ids.push_back(IdDeFila(fila));
    return ids;
}

void FrmSubItems::LstArticulos_Enter() {
    AppContext &ctx = Contexto();
    const qint64 id = IdDeFila(lista_.Actual());
    Leer();
    Manejar(ctx, [&] {
        if (BuscarSubItem(ctx, s_, id)) return;
        ctx.dialogos.advertir(u"El subitem ya no está en la operación, otro puesto lo eliminó."_s);
        CargarLista();
    });
    Escribir(false);
    if (s_.modo == 2) PonerFocoEnPrimero();
}

void FrmSubItems::cmdEliminar_Click() {
    AppContext &ctx = Contexto();
    const std::vector<qint64> marcados = IdsMarcados();
    Leer();
    Manejar(ctx, [&] {
        // Also where another try has taken them away already.
        bool cambio = !marcados.empty();
        if (cambio)
            lpEliminar(ctx, s_, marcados);
        else if (lista_.Actual() >= 0)
            cambio = EliminarSubItem(ctx, s_, IdDeFila(lista_.Actual()));
        if (cambio) CargarLista();
    });
    Escribir(false);
}

void FrmSubItems::IrALaListaYVolver() {
    if (ui.LstArticulos->hasFocus()) {
        if (antesDeLaLista_ != nullptr && antesDeLaLista_->isEnabled())
            antesDeLaLista_->setFocus();
        else
            PonerFocoEnPrimero();
        return;
    }
    antesDeLaLista_ = ventana->focusWidget();
    ui.LstArticulos->setFocus();
    if (lista_.Actual() < 0 && ui.LstArticulos->rowCount() > 0) lista_.Seleccionar(0);
}
