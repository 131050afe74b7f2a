#pragma once
// The keys that every list of records shares: search as one types, moving, taking, adding, changing,
// deleting.

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "frame/picklist.h"

class QKeyEvent;
class QLineEdit;
class QTableView;
class QTableWidget;

/// A grid of whole rows with a search box over some of its columns. The boxes keep the keyboard while one
/// types: arrows, Home, End and the page keys move the row in hand from there too.
class ListaConBusqueda {
 public:
    /// A search box and the column it searches by its beginning.
    struct Caja {
        QLineEdit *campo;
        int columna;
    };

    /// What the keys do; an unset one leaves its key alone. They are not called without a row in hand, but
    /// for `agregar`.
    struct Acciones {
        std::function<void()> tomar;      ///< ENTER and the double click
        std::function<void()> modificar;  ///< F6, and Shift with ENTER
        std::function<void()> agregar;    ///< Insert
        std::function<void()> eliminar;   ///< Delete, in the grid
    };

    /// Binds the grid and its boxes. The widgets must outlive the events, not this object's construction.
    void Preparar(QTableWidget *grilla, const QStringList &columnas, std::vector<Caja> cajas,
                  Acciones acciones);
    /// The same for a long list: a view over a model of its own, where no cell is made for a row that is not
    /// seen.
    void Preparar(QTableView *vista, const QStringList &columnas, std::vector<Caja> cajas, Acciones acciones);
    /// Replaces the rows and empties the boxes; `actual` is the row in hand, -1 for none.
    void Cargar(const std::vector<QStringList> &filas, int actual = 0);
    /// The row in hand, or -1.
    int Actual() const;
    void Seleccionar(int fila);

 private:
    void vincular(QTableView *vista, std::vector<Caja> cajas, Acciones acciones);
    int filas() const;
    bool teclaDeLista(QKeyEvent *tecla);
    bool teclaDeCaja(std::size_t cual, QKeyEvent *tecla);
    bool teclaDeGrilla(QKeyEvent *tecla);
    bool hacer(const std::function<void()> &accion, bool conFila);
    int filasPorPagina() const;

    QTableView *vista_ = nullptr;
    std::function<void(const std::vector<QStringList> &)> llenar_;
    std::vector<Caja> cajas_;
    std::vector<EstadoDeLista> estados_;  ///< one a box
    Acciones acciones_;
};
