#pragma once
// Searching the article catalogues: one of them by a field, or all of them by code or by position.

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

struct AppContext;

/// What a search or the catalogue's own screen leaves chosen.
struct ArticuloElegido {
    QString idcatalogo;
    QString idarticulo;  ///< empty: the catalogue alone

    bool operator==(const ArticuloElegido &otro) const = default;
};

/// What CboCampo offers: its caption and the column that is searched; the column is empty for what shows the
/// whole catalogue.
struct CampoDeArticulos {
    QString rotulo;
    QString columna;
};
const std::vector<CampoDeArticulos> &CamposDeArticulos();

/// The list of a search screen.
struct ConsultaDeArticulos {
    enum class Forma {
        Texto,
        Precio,  ///< "00.00000"
        Total,   ///< "00.00"
        Dia      ///< "dd/mm/yyyy"
    };
    struct Columna {
        QString titulo;
        QString columna;
        Forma forma = Forma::Texto;

        bool esNumero() const { return forma == Forma::Precio || forma == Forma::Total; }
    };
    QString sentencia;  ///< of a search, up to the catalogue's opening quote
    QString todo;       ///< of the whole catalogue asked for again, likewise
    std::vector<Columna> columnas;

    QStringList titulos() const;
    std::vector<int> numericas() const;
    /// Where a column of the store stands in the list; -1 for none.
    int donde(const QString &columna) const;
};
/// Of FrmbArticulos: what each article comes to.
const ConsultaDeArticulos &ArticulosConTotal();
/// Of FrmArticulos: the price, and who wrote the article when.
const ConsultaDeArticulos &ArticulosConFecha();

/// The statement of a search. In `valor`, "%" and "_" work as the store's patterns do.
QString SentenciaDeArticulos(const ConsultaDeArticulos &consulta, const QString &idcatalogo,
                             const CampoDeArticulos &campo, const QString &valor);
/// Its rows as the list shows them, by the article's code; a missing figure or date is an empty cell. Raises
/// Falla.
std::vector<QStringList> BuscarArticulos(AppContext &ctx, const ConsultaDeArticulos &consulta,
                                         const QString &idcatalogo, const CampoDeArticulos &campo,
                                         const QString &valor);

/// The rows of the whole catalogue likewise, with only the columns that the list shows: what a screen opens
/// with. Raises Falla.
std::vector<QStringList> ArticulosDelCatalogo(AppContext &ctx, const ConsultaDeArticulos &consulta,
                                              const QString &idcatalogo);

/// "1 artículo", "12 artículos", or "3 de 12 artículos" while some are out of sight.
QString CuantosArticulos(int enVista, int todos);

/// A search across all catalogues.
enum class BusquedaEnCatalogos {
    Articulo,  ///< by the whole code of an article
    Posicion   ///< by a position or its beginning, a "," counts as a "."
};
/// What the toolbar calls it.
QString TituloDeBusqueda(BusquedaEnCatalogos por);
/// Asks what is to be searched, without blanks around; nothing when the user left or typed nothing, and for
/// fewer than 5 characters of a position, which is told.
std::optional<QString> PreguntarBusqueda(AppContext &ctx, BusquedaEnCatalogos por);

struct ArticuloEncontrado {
    ArticuloElegido clave;
    QString descripcion;
    QString ncm;
    QString preciounitario;  ///< "00.00000"; empty: none
};
/// The articles of every catalogue, by catalogue and code. None is told. Raises Falla.
std::vector<ArticuloEncontrado> BuscarEnCatalogos(AppContext &ctx, BusquedaEnCatalogos por,
                                                  const QString &valor);

/// FrmArticulos: asks and deletes an article of the list with its advantages; false when the user says No.
/// Raises Falla.
bool EliminarArticuloDeLista(AppContext &ctx, const ArticuloElegido &articulo);
