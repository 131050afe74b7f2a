// What the browser tells of the hand-over of its operations, and the popup that chooses by it.

#include <QApplication>
#include <algorithm>

#include "frame/ui/estilo.h"
#include "frame/ui/ventana.h"
#include "operations/FrmInternoNew.h"
#include "operations/FrmInternoNewFila.h"
#include "operations/browserlist.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int columnaTransferida = 6;
/// Between two comparisons: the screen paints and takes keys in between.
constexpr int pausaEntreComparaciones = 20;

QString tituloDe(Transferencias cuales) {
    switch (cuales) {
        case Transferencias::Pendientes:
            return u"Operaciones pendientes de transferir"_s;
        case Transferencias::Transferidos:
            return u"Operaciones transferidas"_s;
        case Transferencias::Todo:
            break;
    }
    return u"Operaciones"_s;
}

}  // namespace

void FrmInternoNew::MostrarPopup() {
    const QRect fila = ui.lstInterno->visualRect(ui.lstInterno->currentIndex());
    popup->popup(ui.lstInterno->viewport()->mapToGlobal(fila.isValid() ? fila.center() : QPoint()));
    popup->setActiveAction(MnuInsertar);
}

/// The search again, with the choice told above the grid: a list that leaves some out says so.
void FrmInternoNew::Elegir(Transferencias cuales) {
    transferencias_ = cuales;
    ui.lbTituloOperaciones->setText(tituloDe(cuales));
    BuscarInternos();
    ui.lstInterno->setFocus();
}

FilaDeInterno *FrmInternoNew::filaDe(const QString &interno) {
    const auto fila = std::find_if(filas_.begin(), filas_.end(),
                                   [&interno](const FilaDeInterno &una) { return una.Interno == interno; });
    return fila == filas_.end() ? nullptr : &*fila;
}

void FrmInternoNew::PintarEntrega(const QModelIndex &fila, const FilaDeInterno &operacion) {
    const QModelIndex celda = fila.siblingAtColumn(columnaTransferida);
    modelo_.setData(celda, TextoDeEntrega(operacion.entrega, operacion.cambiada));
    modelo_.setData(celda, operacion.cambiada ? estilo::falta() : estilo::bien(), Qt::ForegroundRole);
    modelo_.setData(celda, DetalleDeEntrega(operacion.entrega), Qt::ToolTipRole);
}

/// One of the rows in sight at a time, and only while nobody types: the list is there at once, and what takes
/// as long as the operation has lines comes behind it.
void FrmInternoNew::CompararLaSiguiente() {
    QWidget *modal = QApplication::activeModalWidget();
    if ((modal != nullptr && modal != ventana.get()) || !ventana->isVisible()) return;
    const QTreeView *grilla = ui.lstInterno;
    const int alto = grilla->viewport()->height();
    for (QModelIndex fila = grilla->indexAt(QPoint(0, 0)); fila.isValid(); fila = grilla->indexBelow(fila)) {
        if (grilla->visualRect(fila).top() > alto) return;
        FilaDeInterno *operacion = filaDe(fila.siblingAtColumn(0).data(rolInterno).toString());
        if (operacion == nullptr || !operacion->entrega || !comparadas_.insert(operacion->Interno).second)
            continue;
        Manejar(Contexto(), [&] {
            AppContext &ctx = Contexto();
            operacion->cambiada = SeComparaEnUnMomento(ctx, operacion->Interno) &&
                                  CambioDespues(ctx, operacion->Interno, *operacion->entrega);
        });
        PintarEntrega(fila, *operacion);
        descanso_->start(pausaEntreComparaciones);
        return;
    }
}

void FrmInternoNew::Listar() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { ListarInternos(ctx, filas_, filtro_, AgrupadoPor()); });
}

void FrmInternoNew::lp_ImprimirList() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { ::lp_ImprimirList(ctx); });
}
