#include "subitems/FrmCatArticulosBuscar.h"

#include <QHeaderView>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeEncontrados {
    CatalogoHallado,
    ArticuloHallado,
    DescripcionHallada,
    PosicionHallada,
    PrecioHallado
};

}  // namespace

FrmCatArticulosBuscar::FrmCatArticulosBuscar() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmCatArticulosBuscar::Conectar() {
    ListaConBusqueda::Acciones acciones;
    acciones.tomar = [this] { ventana->accept(); };
    acciones.estrechar = [this] { contar(); };
    lista_.Preparar(ui.Lst,
                    {u"Catálogo"_s, u"Artículo"_s, u"Descripción"_s, u"Posición"_s, u"Precio unitario"_s},
                    {{ui.TxtDescripcion, DescripcionHallada, true}}, std::move(acciones), {PrecioHallado});
    const int letra = ui.Lst->fontMetrics().averageCharWidth();
    for (const auto &[columna, letras] : {std::pair(CatalogoHallado, 18), std::pair(ArticuloHallado, 22),
                                          std::pair(PosicionHallada, 24), std::pair(PrecioHallado, 22)})
        ui.Lst->setColumnWidth(columna, letra * letras);
    ui.Lst->horizontalHeader()->setSectionResizeMode(DescripcionHallada, QHeaderView::Stretch);
}

std::optional<ArticuloElegido> FrmCatArticulosBuscar::Buscar(BusquedaEnCatalogos por, const QString &valor) {
    AppContext &ctx = Contexto();
    filas_.clear();
    Manejar(ctx, [&] { filas_ = BuscarEnCatalogos(ctx, por, valor); });
    if (filas_.empty()) return {};
    ui.lbTituloBusqueda->setText(
        (por == BusquedaEnCatalogos::Articulo ? u"Artículo "_s : u"Artículos de la posición "_s) + valor);
    std::vector<QStringList> celdas;
    celdas.reserve(filas_.size());
    for (const ArticuloEncontrado &f : filas_)
        celdas.push_back({f.clave.idcatalogo, f.clave.idarticulo, f.descripcion, f.ncm, f.preciounitario});
    ui.TxtDescripcion->clear();
    lista_.Cargar(std::move(celdas));
    contar();
    ui.Lst->setFocus();
    if (ventana->exec() != QDialog::Accepted) return {};
    return filas_.at(static_cast<std::size_t>(lista_.Actual())).clave;
}

void FrmCatArticulosBuscar::contar() {
    ui.lbCantidad->setText(CuantosArticulos(lista_.Visibles(), static_cast<int>(filas_.size())));
}

std::optional<ArticuloElegido> BuscarEnTodosLosCatalogos(BusquedaEnCatalogos por) {
    const auto valor = PreguntarBusqueda(Contexto(), por);
    if (!valor) return {};
    auto elegido = Pantalla<FrmCatArticulosBuscar>().Buscar(por, *valor);
    CerrarPantalla<FrmCatArticulosBuscar>();
    return elegido;
}
