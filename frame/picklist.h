#pragma once
// The data side of a list with a search box: the prefix search as one types, and the row in hand.

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

/// A text as the lists compare it: small letters, no accents, no blanks ahead (the names of units carry one).
QString PlegarTexto(const QString &texto);

/// Finds rows by their beginning, whatever the case and the accents. Built once a list; a search is two
/// binary searches.
class BuscadorPorPrefijo {
 public:
    BuscadorPorPrefijo() = default;
    explicit BuscadorPorPrefijo(const QStringList &filas);

    /// The first row, in the list's own order, that begins with `texto`; -1 when none does. The empty text
    /// begins every row.
    int Primera(const QString &texto) const;

 private:
    struct Entrada {
        QString clave;
        int fila = 0;
    };
    std::vector<Entrada> entradas_;  ///< by key
};

/// Finds rows by what they hold anywhere, whatever the case and the accents. The texts are folded once a
/// list; a search reads them all.
class BuscadorPorContenido {
 public:
    BuscadorPorContenido() = default;
    explicit BuscadorPorContenido(const QStringList &filas);

    /// The rows that hold `texto`, in the list's own order. The empty text is in every row.
    std::vector<int> Filas(const QString &texto) const;

 private:
    QStringList claves_;
};

/// The state of a list screen: FrmListado and every list that is searched as one types.
struct EstadoDeLista {
    QStringList filas;
    int actual = -1;  ///< the row in hand; -1: none
    QString texto;    ///< what the search box holds

    explicit EstadoDeLista(QStringList lista = {}, int inicial = -1);

    /// The search box changed: the row in hand becomes the first that begins with the text, or none.
    void Escribir(const QString &nuevo);
    /// The arrows (-1, 1) and the page keys (±page): moves within the list and puts the row's text in the
    /// box. With no row in hand, down takes the first one and up takes none. False when nothing moved.
    bool Mover(int pasos);
    /// Home and End.
    bool IrAlPrincipio();
    bool IrAlFinal();

 private:
    bool irA(int fila);
    BuscadorPorPrefijo buscador_;
};

/// The general list's search: the next row behind `actual` (-1: from the first) whose text holds `buscado`,
/// whatever the case and the accents; the row in hand itself when no later one does; -1 when nothing matches.
int BuscarCadena(const QStringList &columna, const QString &buscado, int actual);

/// A row of the general list.
struct FilaDeListado {
    QString id;
    QString descripcion;
};

struct AppContext;
/// The toolbar of FrmListadoeX: asks for the text to be found in the column of codes or of descriptions and
/// searches from the row in hand. The row to be chosen, or -1: the user left or nothing matches ("Cadena no
/// encontrada" was shown).
int BuscarCod(AppContext &ctx, const QStringList &codigos, int actual);
int BuscarDesc(AppContext &ctx, const QStringList &descripciones, int actual);
