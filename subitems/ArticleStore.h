#pragma once
// The article store: catalogues of a client's articles, one record an article.

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

struct AppContext;

namespace ArticleStore {

/// One article. An empty text and a figure that is not given are not told: the stored article keeps its own.
struct Articulo {
    QString idcatalogo;
    QString idarticulo;
    QString descripcion;
    QString Descripcion_Maria;
    QString idunidad;
    QString ncm;
    QString idpais;
    QString idpaisproc;
    QString estadomerc;
    QString sufijos;
    QString biendeuso;  ///< "S" or "N"; a new article that is not told has "N"
    QString otros;
    QString codigoean;
    QString itfiller;
    QString naladisa;
    std::optional<double> preciounitario;
    std::optional<double> kgneto;  ///< of one unit

    bool operator==(const Articulo &) const = default;
};

/// Adds the article, with the workstation's name and the moment. One that is there already takes what the
/// record tells; with `noSobrescribir` it stays as it is and nothing is said. True when a row was written.
/// Raises Falla.
bool Agregar(AppContext &ctx, const Articulo &articulo, bool noSobrescribir);

/// The whole article as the record tells it: what is empty there is empty afterwards, a figure that is not
/// given is none. False when the catalogue does not have it. Raises Falla.
bool Modificar(AppContext &ctx, const Articulo &articulo);

/// The statements of a new article, and of one that is kept and is told whole (Modificar), for a caller that
/// sends many together.
QString SentenciaDeAlta(const AppContext &ctx, const Articulo &articulo);
QString SentenciaDeReemplazo(const AppContext &ctx, const Articulo &articulo);

/// Takes the article away with its advantages; false when the catalogue does not have it. Raises Falla.
bool Borrar(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo);

/// The article of a catalogue, or nothing. Raises Falla.
std::optional<Articulo> Leer(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo);

/// Every article of a catalogue, whole, in the order of their adding. Raises Falla.
std::vector<Articulo> LeerTodos(AppContext &ctx, const QString &idcatalogo);

/// Whether the catalogue holds an article: a catalogue exists by its articles. Raises Falla.
bool ExisteCatalogo(AppContext &ctx, const QString &idcatalogo);

/// The catalogues there are, by name. Raises Falla.
QStringList Catalogos(AppContext &ctx);

/// A catalogue and how many articles it holds.
struct FilaDeCatalogo {
    QString idcatalogo;
    int articulos = 0;
};
/// The same with their articles counted. Raises Falla.
std::vector<FilaDeCatalogo> CatalogosContados(AppContext &ctx);

/// An article as the lists show it.
struct FilaDeArticulo {
    QString idarticulo;
    QString descripcion;
    QString ncm;
};
/// The articles of a catalogue by their code. Raises Falla.
std::vector<FilaDeArticulo> Articulos(AppContext &ctx, const QString &idcatalogo);

}  // namespace ArticleStore
