#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <vector>

#include "frame/ui/ListaConBusqueda.h"
#include "subitems/articlesearch.h"
#include "ui_FrmCatArticulosBuscar.h"

/// What a search across all catalogues found: take one.
class FrmCatArticulosBuscar {
 public:
    FrmCatArticulosBuscar();

    /// Searches, shows what was found and waits; the article taken, or nothing. A search that finds nothing
    /// is told, and the screen does not open.
    std::optional<ArticuloElegido> Buscar(BusquedaEnCatalogos por, const QString &valor);

    Ui::FrmCatArticulosBuscar ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void contar();

    ListaConBusqueda lista_;
    std::vector<ArticuloEncontrado> filas_;
};

/// The whole road of the toolbar: asks what is to be searched, searches and shows. The article taken, or
/// nothing.
std::optional<ArticuloElegido> BuscarEnTodosLosCatalogos(BusquedaEnCatalogos por);
