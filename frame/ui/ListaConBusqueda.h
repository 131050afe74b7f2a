#pragma once
// The keys that every list of records shares: search as one types, moving, taking, adding, changing,
// deleting.

#include <QColor>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "frame/picklist.h"

class QKeyEvent;
class QLineEdit;
class QTableView;
class QTableWidget;
class QTimer;
class ModeloDeFilas;

/// A grid of whole rows with a search box over some of its columns. The boxes keep the keyboard while one
/// types: arrows, Home, End and the page keys move the row in hand from there too.
class ListaConBusqueda {
 public:
    /// A search box and the column it searches.
    struct Caja {
        QLineEdit *campo;
        int columna;
        /// After a short rest of the typing, only the rows that hold the text anywhere in the column stay in
        /// sight (a view over a model alone); else the row in hand goes to the first that begins with it.
        /// Several boxes that narrow leave the rows that each of them lets through.
        bool estrecha = false;
    };

    /// What the keys do; an unset one leaves its key alone. They are not called without a row in hand, but
    /// for `agregar`.
    struct Acciones {
        std::function<void()> tomar;           ///< ENTER and the double click
        std::function<void()> modificar;       ///< F6, and Shift with ENTER
        std::function<void()> agregar;         ///< Insert
        std::function<void()> eliminar;        ///< Delete, in the grid
        std::function<void()> estrechar = {};  ///< other rows came in sight
        /// Where it is set, a box that narrows asks for its rows anew in place of looking among those loaded.
        std::function<void()> buscar = {};
    };

    /// Binds the grid and its boxes. The widgets must outlive the events, not this object's construction.
    void Preparar(QTableWidget *grilla, const QStringList &columnas, std::vector<Caja> cajas,
                  Acciones acciones);
    /// The same for a long list: a view over a model of its own, where no cell is made for a row that is not
    /// seen. The columns in `numericas` stand to the right.
    void Preparar(QTableView *vista, const QStringList &columnas, std::vector<Caja> cajas, Acciones acciones,
                  std::vector<int> numericas = {});
    /// Replaces the rows, all of them in sight, and empties the boxes but for one that narrows, whose text is
    /// searched again when it changes; `actual` is the row in hand, -1 for none.
    void Cargar(std::vector<QStringList> filas, int actual = 0);
    /// The row in hand among those loaded, or -1.
    int Actual() const;
    /// Takes a loaded row in hand; one that is out of sight, and -1, leave none.
    void Seleccionar(int fila);
    /// Writes a cell of a loaded row; what a box searches is asked anew. For a view over a model.
    void Escribir(int fila, int columna, const QString &texto);
    /// A box that narrows searches this column from now on: its text, at once.
    void EstrecharPor(const QLineEdit *campo, int columna);
    /// A typing that still rests is searched at once.
    void EstrecharYa();
    /// The colour that a loaded row is written in; none leaves it as the others are. For a view over a model.
    void Colorear(std::function<std::optional<QColor>(int fila)> color);
    /// The loaded rows in sight, in their order (a view over a model alone).
    std::vector<int> EnVista() const;
    /// How many rows are in sight.
    int Visibles() const;

 private:
    void vincular(QTableView *vista, std::vector<Caja> cajas, Acciones acciones);
    void irA(int visible);
    void estrechar();
    void escribir(std::size_t cual, const QString &texto);
    bool teclaDeLista(QKeyEvent *tecla);
    bool teclaDeCaja(std::size_t cual, QKeyEvent *tecla);
    bool moverVisible(int tecla);
    bool teclaDeGrilla(QKeyEvent *tecla);
    bool hacer(const std::function<void()> &accion, bool conFila);
    int filasPorPagina() const;

    QTableView *vista_ = nullptr;
    ModeloDeFilas *modelo_ = nullptr;  ///< none for a grid of cells
    QTimer *descanso_ = nullptr;       ///< of the typing in a box that narrows
    std::vector<Caja> cajas_;
    std::vector<EstadoDeLista> estados_;  ///< one a box
    /// One a box; of those that narrow, made when it is first asked.
    std::vector<std::optional<BuscadorPorContenido>> contenidos_;
    Acciones acciones_;
};
