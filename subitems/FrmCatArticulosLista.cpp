// The catalogues as a tree.

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmCatArticulos.h"

using namespace Qt::StringLiterals;

void FrmCatArticulos::ArmarLista() {
    QTreeView *arbol = ui.TvArticulos;
    arbol->setModel(modelo_);
    // Rows of one height: a long catalogue is measured by its first row only.
    arbol->setUniformRowHeights(true);
    arbol->setAlternatingRowColors(true);
    arbol->setAllColumnsShowFocus(true);
    arbol->setExpandsOnDoubleClick(false);
    arbol->setEditTriggers(QAbstractItemView::NoEditTriggers);
    arbol->header()->setHighlightSections(false);
    arbol->header()->setSectionsMovable(false);
    arbol->header()->setStretchLastSection(false);
    const int letra = arbol->fontMetrics().averageCharWidth();
    arbol->setColumnWidth(ModeloDeCatalogos::Articulo, letra * 44);
    arbol->header()->setSectionResizeMode(ModeloDeCatalogos::Descripcion, QHeaderView::Stretch);
    arbol->setColumnWidth(ModeloDeCatalogos::Posicion, letra * 24);
    QObject::connect(arbol, &QTreeView::doubleClicked, ventana.get(), [this] { TvArticulos_Enter(); });
    QObject::connect(modelo_, &QAbstractItemModel::dataChanged, ventana.get(),
                     [this] { MostrarCantidades(); });
    QObject::connect(modelo_, &QAbstractItemModel::modelReset, ventana.get(),
                     [this] { MostrarCantidades(); });
}

void FrmCatArticulos::VerLista() {
    if (sucia_) CargarLista(ultimo_);
    ui.lbModo->setText(eligiendo_ ? u"Elija un artículo"_s : QString());
    PonerModo(EnLista);
    ui.TvArticulos->setFocus();
}

void FrmCatArticulos::CargarLista(const ArticuloElegido &enMano) {
    AppContext &ctx = Contexto();
    const auto marcados = modelo_->marcados();
    QStringList expandidos;
    for (int fila = 0; fila < modelo_->rowCount(); ++fila)
        if (const QModelIndex catalogo = modelo_->index(fila, 0); ui.TvArticulos->isExpanded(catalogo))
            expandidos << modelo_->catalogoDe(catalogo);
    std::vector<ArticleStore::FilaDeCatalogo> catalogos;
    // What is shown stays where it cannot be read again.
    if (!Manejar(ctx, [&] { catalogos = ArticleStore::CatalogosContados(ctx); })) return;
    modelo_->fijar(std::move(catalogos));
    sucia_ = false;
    for (const QString &catalogo : expandidos) Expandir(modelo_->indiceDe(catalogo));
    modelo_->marcar(marcados);
    if (!Seleccionar(enMano) && !Seleccionar({enMano.idcatalogo, {}}))
        ui.TvArticulos->setCurrentIndex(modelo_->index(0, 0));
}

bool FrmCatArticulos::Seleccionar(const ArticuloElegido &fila) {
    if (fila.idcatalogo.isEmpty()) return false;
    const QModelIndex celda = modelo_->indiceDe(fila.idcatalogo, fila.idarticulo);
    if (!celda.isValid()) return false;
    if (celda.parent().isValid()) Expandir(celda.parent());
    ui.TvArticulos->setCurrentIndex(celda);
    ui.TvArticulos->scrollTo(celda);
    return true;
}

void FrmCatArticulos::Expandir(const QModelIndex &catalogo) {
    if (!catalogo.isValid() || catalogo.parent().isValid()) return;
    const Reloj reloj(Contexto().dialogos);
    modelo_->fetchMore(catalogo);
    // What could not be read was told, and would be asked for again.
    if (!modelo_->canFetchMore(catalogo)) ui.TvArticulos->expand(catalogo);
}

void FrmCatArticulos::Contraer(const QModelIndex &celda) {
    const QModelIndex catalogo = celda.parent().isValid() ? celda.parent() : celda.siblingAtColumn(0);
    ui.TvArticulos->setCurrentIndex(catalogo);
    ui.TvArticulos->collapse(catalogo);
}

bool FrmCatArticulos::TvArticulos_KeyDown(const QKeyEvent *tecla) {
    if (Comando_KeyDown(tecla)) return true;
    const QModelIndex celda = ui.TvArticulos->currentIndex();
    if (EsEnter(tecla)) {
        TvArticulos_Enter();
        return true;
    }
    if (!celda.isValid()) return false;
    switch (tecla->key()) {
        case Qt::Key_Plus:
            Expandir(celda.siblingAtColumn(0));
            return true;
        case Qt::Key_Minus:
            Contraer(celda);
            return true;
        case Qt::Key_Asterisk:
            // Every article of every catalogue is nothing to be read by one key.
            return true;
        case Qt::Key_Space:
            AlternarMarca();
            return true;
        default:
            return false;
    }
}

ArticuloElegido FrmCatArticulos::EnMano() const {
    const QModelIndex celda = ui.TvArticulos->currentIndex();
    return {modelo_->catalogoDe(celda), modelo_->articuloDe(celda)};
}

void FrmCatArticulos::TvArticulos_Enter() {
    const QModelIndex celda = ui.TvArticulos->currentIndex().siblingAtColumn(0);
    const ArticuloElegido fila = EnMano();
    if (!celda.isValid()) return;
    if (fila.idarticulo.isEmpty()) {
        if (ui.TvArticulos->isExpanded(celda))
            Contraer(celda);
        else
            Expandir(celda);
        return;
    }
    if (!eligiendo_) {
        Editar(fila);
        return;
    }
    elegido_ = fila;
    ventana->accept();
}

void FrmCatArticulos::ModificarDeLista() {
    if (const ArticuloElegido fila = EnMano(); !fila.idarticulo.isEmpty()) Editar(fila);
}

void FrmCatArticulos::EliminarDeLista() {
    AppContext &ctx = Contexto();
    const ArticuloElegido fila = EnMano();
    const QModelIndex celda = ui.TvArticulos->currentIndex().siblingAtColumn(0);
    // The article behind it comes into hand, or the one ahead of the last.
    QModelIndex vecino = celda.siblingAtRow(celda.row() + 1);
    if (!vecino.isValid()) vecino = celda.siblingAtRow(celda.row() - 1);
    const ArticuloElegido despues{fila.idcatalogo, modelo_->articuloDe(vecino)};
    Manejar(ctx, [&] {
        if (EliminarArticulo(ctx, fila.idcatalogo, fila.idarticulo)) CargarLista(despues);
    });
}

void FrmCatArticulos::AlternarMarca() {
    const Reloj reloj(Contexto().dialogos);
    modelo_->alternarMarca(ui.TvArticulos->currentIndex());
}

void FrmCatArticulos::CambiarCatalogo() {
    AppContext &ctx = Contexto();
    const auto marcados = modelo_->marcados();
    if (marcados.empty()) {
        ctx.dialogos.informar(u"Marque con ESPACIO los artículos que cambian de catálogo."_s);
        return;
    }
    const ArticuloElegido enMano = EnMano();
    Manejar(ctx, [&] {
        const QString nuevo =
            SeleccionarCatalogoDeDestino(ctx, marcados.size() == 1 ? marcados.front().idcatalogo : QString());
        if (nuevo.isEmpty()) return;
        for (const auto &deUno : marcados) {
            const bool yaEstan = deUno.idcatalogo.compare(nuevo, Qt::CaseInsensitive) == 0;
            if (yaEstan && marcados.size() > 1) continue;
            CambiarCatalogoByArticulosSeleccionados(ctx, deUno.articulos, deUno.idcatalogo, nuevo);
        }
    });
    CargarLista(enMano);
}

void FrmCatArticulos::BuscarEnCatalogo() {
    const ArticuloElegido antes = EnMano();
    if (antes.idcatalogo.isEmpty()) return;
    const QString articulo = Pantalla<FrmArticulos>().Elegir(antes.idcatalogo);
    CerrarPantalla<FrmArticulos>();
    // Articles are deleted there too.
    CargarLista(articulo.isEmpty() ? antes : ArticuloElegido{antes.idcatalogo, articulo});
}

void FrmCatArticulos::MostrarCantidades() {
    const int catalogos = modelo_->rowCount();
    const int marcados = modelo_->cantidadDeMarcados();
    QString texto = catalogos == 1 ? u"1 catálogo"_s : u"%1 catálogos"_s.arg(catalogos);
    if (marcados > 0)
        texto +=
            marcados == 1 ? u"   ·   1 artículo marcado"_s : u"   ·   %1 artículos marcados"_s.arg(marcados);
    ui.lbCantidad->setText(texto);
}
