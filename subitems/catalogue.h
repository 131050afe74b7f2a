#pragma once
// The article catalogue as FrmCatArticulos keeps it: the checks of an article, its advantages, and its move
// to another catalogue.

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "frame/base/verdict.h"
#include "header/ClientBook.h"
#include "subitems/ArticleStore.h"
#include "subitems/SuffixChecker.h"

struct AppContext;

/// One article as the edit mode shows it: its record, and its two figures as they are typed.
struct FichaDeArticulo {
    ArticleStore::Articulo articulo;  ///< its figures follow the two texts at each save
    QString TxtUnitario;              ///< unit price, "00.00000" on load
    QString txtKgUnitario;            ///< kilos of one unit, "00.00" on load; empty: none
};

/// Blanks around the texts go, codes are in capitals, suffixes and NALADISA lose what they may not hold.
void NormalizarArticulo(ArticleStore::Articulo &articulo);

/// What stands against keeping the article, as the add routine would say it, without asking anything: the
/// suffix text is held against what its position demands. Empty when the article may be kept. Raises Falla.
QString DefectoDeArticulo(AppContext &ctx, const ArticleStore::Articulo &articulo);

/// The same for many articles: what a position demands is asked of the stores once.
class RevisorDeArticulos {
 public:
    explicit RevisorDeArticulos(AppContext &ctx) : ctx_(ctx) {}
    /// Leaves the article in the form it is kept in, its suffix text closed, and answers what stands against
    /// keeping it. Raises Falla.
    QString Revisar(ArticleStore::Articulo &articulo);

 private:
    struct Posicion {
        bool existe = false;  ///< all three keys of it
        RequisitosDeSufijo requisitos;
    };
    const Posicion &posicion(const QString &ncm);

    AppContext &ctx_;
    QHash<QString, Posicion> vistas_;
};

/// Adds a new article to its catalogue: the checks in their order, then the suffixes, which are asked for.
/// A name alone serves as the article's code. One that the catalogue has already is told and stays. What was
/// written, its suffixes too, is in `ficha`. Not ok: told, the answer names the field to go to. A store that
/// refuses the article is told; other statements raise Falla.
Veredicto AgregarArticuloEx(AppContext &ctx, FichaDeArticulo &ficha);
/// The same for an article that is kept, whole: a field that is empty is empty in the catalogue too. One that
/// is gone is told. Raises Falla.
Veredicto Modificar(AppContext &ctx, FichaDeArticulo &ficha);

/// The article ready to be shown, or nothing. Raises Falla.
std::optional<FichaDeArticulo> BuscarArticuloSobreCat(AppContext &ctx, const QString &idcatalogo,
                                                      const QString &idarticulo);

/// Deletes an article and what is linked to it, after a question. True when it is gone. Raises Falla.
bool EliminarArticulo(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo);

/// Links an advantage, picked from the list, to an article. `existente`: it is kept already; a new one is
/// refused. True when a link was written. Raises Falla.
bool AgregarVentaja(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo, bool existente);
/// The advantages of an article, each with its description (empty when the table lacks it). Raises Falla.
std::vector<ClientBook::VentajaDeCatalogo> CargarVentajasAsociadas(AppContext &ctx, const QString &idcatalogo,
                                                                   const QString &idarticulo);
/// Takes an advantage off an article, after a question. True when the user said Yes. Raises Falla.
bool EliminarVentajaAsociada(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo,
                             const QString &ventaja);

/// The articles of a catalogue by their code. Raises Falla.
std::vector<ArticleStore::FilaDeArticulo> CargarArticulosbyCatalogo(AppContext &ctx,
                                                                    const QString &idcatalogo);

/// How the move of one article ended.
enum class MovimientoDeArticulo {
    Movido,
    YaEsta,  ///< the other catalogue has an article of that code: nothing was written
    NoEsta   ///< the catalogue does not have it
};
/// Moves an article with its advantages to another catalogue, which begins to be with its first article.
/// Nothing is asked or told. Raises Falla.
MovimientoDeArticulo MoverArticulo(AppContext &ctx, const QString &idarticulo, const QString &viejo,
                                   const QString &nuevo);
/// Moves the checked articles after one question; those that had to stay are told. The number moved. Raises
/// Falla.
int CambiarCatalogoByArticulosSeleccionados(AppContext &ctx, const QStringList &articulos,
                                            const QString &viejo, const QString &nuevo);

/// A pick among the catalogues there are; empty when the list was left or there is none (told). Raises Falla.
QString SeleccionarCatalogo(AppContext &ctx);
/// The catalogue to move to: one of the others, or a new one whose code is asked for. Empty when the user
/// left. Raises Falla.
QString SeleccionarCatalogoDeDestino(AppContext &ctx, const QString &viejo);

/// The list of a catalogue's articles in preview. Raises Falla.
void ImprimirCatalogo(AppContext &ctx, const QString &idcatalogo);
