// The menu of the lines: which of them the list shows, and what changes them all.

#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include "frame/context.h"
#include "frame/ui/ventana.h"
#include "subitems/FrmSubItems.h"

using namespace Qt::StringLiterals;

void FrmSubItems::ArmarMenu() {
    QWidget *v = ventana.get();
    QMenu *filtros = ui.barraDeMenu->addMenu(u"Filtros"_s);
    filtros->setObjectName(u"mnuFiltros"_s);
    filtros_ = new QActionGroup(v);
    const auto agregarFiltro = [this, v, filtros](int numero, const QString &rotulo) {
        QAction *entrada = filtros->addAction(rotulo);
        entrada->setCheckable(true);
        entrada->setData(numero);
        filtros_->addAction(entrada);
        QObject::connect(entrada, &QAction::triggered, v, [this, numero] { Filtro_Click(numero); });
    };
    agregarFiltro(0, u"&Todas las líneas"_s);
    filtros->addSeparator();
    for (const FiltroDeLineas &f : FiltrosDeLineas()) agregarFiltro(f.numero, QString::fromUtf8(f.rotulo));

    QMenu *cambios = ui.barraDeMenu->addMenu(u"Cambios en todas las líneas"_s);
    cambios->setObjectName(u"mnuCambios"_s);
    for (const CambioMasivo &cambio : CambiosMasivos()) {
        const QAction *entrada = cambios->addAction(QString::fromUtf8(cambio.rotulo));
        QObject::connect(entrada, &QAction::triggered, v, [this, &cambio] { Cambio_Click(cambio); });
    }
}

void FrmSubItems::AbrirMenu() {
    QAction *primero = ui.barraDeMenu->actions().constFirst();
    ui.barraDeMenu->setActiveAction(primero);
    // The entry in hand: the filter that is on.
    primero->menu()->setActiveAction(filtros_->checkedAction());
}

void FrmSubItems::Filtro_Click(int numero) {
    AppContext &ctx = Contexto();
    const FiltroDeLineas *filtro = FiltroDeNumero(numero);
    QWidget *foco = ventana->focusWidget();
    const bool leida = Manejar(
        ctx, [&] { CargarLista(filtro == nullptr ? FiltroActivo() : PedirFiltro(ctx, *filtro, filtro_)); });
    EscribirFiltro();
    EscribirEstado();
    // Who narrows the list goes on in it; F9 goes back to the field.
    if (!leida || !filtro_.activo() || ui.LstArticulos->rowCount() == 0) return;
    if (foco != ui.LstArticulos) antesDeLaLista_ = foco;
    ui.LstArticulos->setFocus();
}

void FrmSubItems::Cambio_Click(const CambioMasivo &cambio) {
    AppContext &ctx = Contexto();
    Leer();
    Manejar(ctx, [&] {
        QString valor;
        if (!PedirCambioMasivo(ctx, cambio, valor)) return;
        HacerCambioMasivo(ctx, s_.interno, cambio, valor);
        SeguirCambioMasivo(ctx, cambio, valor, s_);
        CargarLista();
    });
    Escribir(false);
}

void FrmSubItems::EscribirFiltro() {
    const auto entradas = filtros_->actions();
    for (QAction *entrada : entradas)
        if (entrada->data().toInt() == filtro_.numero) entrada->setChecked(true);
    ui.lbFiltro->setVisible(filtro_.activo());
    const int lineas = ui.LstArticulos->rowCount();
    const QString cuantas = lineas == 1 ? u"1 línea"_s : u"%1 líneas"_s.arg(lineas);
    // Whatever was searched for, the menu beside it keeps its place.
    constexpr int ancho = 560;
    const QString cual =
        ui.lbFiltroCual->fontMetrics().elidedText(TextoDeFiltro(filtro_), Qt::ElideRight, ancho);
    ui.lbFiltroCual->setText(filtro_.activo() ? u"%1 (%2)"_s.arg(cual, cuantas) : QString());
}
