#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <vector>

#include "frame/ui/ListaConBusqueda.h"
#include "frame/ui/iconos.h"
#include "subitems/articlesearch.h"
#include "subitems/catalogue.h"
#include "subitems/cataloguetree.h"
#include "ui_FrmCatArticulos.h"

class QAction;
class QKeyEvent;
class QMenu;

/// The article catalogues: the list of them as a tree, and the article in hand.
class FrmCatArticulos {
 public:
    FrmCatArticulos();

    /// Shows the catalogues to be kept: their list, or a new article while there is none. ENTER on an article
    /// opens it.
    void Mostrar();
    /// Shows the list, with a catalogue expanded unless it is empty, and waits: ENTER takes the article in
    /// hand. Nothing when the user left.
    std::optional<ArticuloElegido> Elegir(const QString &idcatalogo);

    Ui::FrmCatArticulos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    enum Modo : unsigned { EnLista = 1, EnEdicion = 2, EnAmbos = EnLista | EnEdicion };
    enum class Menu { Articulo, Buscar };
    /// A row of the menus, and of the toolbars when it has a button.
    struct Comando {
        Modo modos;
        Menu menu;
        Dibujo dibujo;
        const char16_t *texto;  ///< in its menu, and what the button explains
        const char16_t *boton;  ///< null: in no toolbar
        const char16_t *tecla;  ///< as the menu shows it; empty: none
        int codigo;             ///< the key that the window hears; 0: none, or another control does
        Qt::KeyboardModifiers con;
        void (FrmCatArticulos::*hacer)();
    };
    static const std::vector<Comando> &Comandos();

    void ArmarMenus();
    void ArmarLista();
    void ArmarEdicion();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool Comando_KeyDown(const QKeyEvent *tecla);
    void Form_Unload();
    void PonerModo(Modo modo);
    void IrA(const QString &control);

    // The list
    void VerLista();
    void CargarLista(const ArticuloElegido &enMano);
    bool Seleccionar(const ArticuloElegido &fila);
    void Expandir(const QModelIndex &catalogo);
    void Contraer(const QModelIndex &celda);
    bool TvArticulos_KeyDown(const QKeyEvent *tecla);
    void TvArticulos_Enter();
    void MostrarCantidades();
    ArticuloElegido EnMano() const;
    void ModificarDeLista();
    void EliminarDeLista();
    void AlternarMarca();
    void CambiarCatalogo();
    void BuscarEnCatalogo();

    // The article
    void VerEdicion();
    void Nuevo();
    void Editar(const ArticuloElegido &cual);
    void VaciarBloque();
    void Escribir(const FichaDeArticulo &ficha);
    FichaDeArticulo Leer() const;
    void MostrarVentajas();
    bool Campo_KeyDown(QLineEdit *campo, const QKeyEvent *tecla);
    bool TxtPosicion_Enter();
    void txtIdArticulo_Enter();
    void Campo_F6(const QLineEdit *campo);
    void CmdGuardar_Click();
    void EliminarEnEdicion();
    void Vincular();
    void Quitar();

    // Both
    void Imprimir();
    void BuscarPorArticulo();
    void BuscarPorPosicion();
    void BuscarEnTodos(BusquedaEnCatalogos por);

    std::vector<std::pair<const Comando *, QAction *>> acciones_;
    ModeloDeCatalogos *modelo_;
    ListaConBusqueda ventajas_;
    std::vector<ClientBook::VentajaDeCatalogo> vinculadas_;
    Modo modo_ = EnLista;
    bool eligiendo_ = false;
    bool cambio_ = false;     ///< the article in hand is one that is kept
    bool sucia_ = false;      ///< the store changed since the list was read
    ArticuloElegido ultimo_;  ///< what the edit mode left written
    std::optional<ArticuloElegido> elegido_;
};

/// Opens the catalogues over another screen to pick an article; nothing when the user left.
std::optional<ArticuloElegido> SeleccionarArticulo(const QString &idcatalogo);
