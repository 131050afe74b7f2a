#pragma once
// The seam to the library of code lists (oCodeListings.cMain), which holds the lists of meat and grain. It is
// not part of this program: without it the codes are typed, and who asks for a list is told which library is
// missing.

#include <QString>
#include <functional>
#include <vector>

struct AppContext;

namespace oncca {

/// The library's nine lists.
enum class Lista { Acuerdo, Categoria, Cortes, Elaborador, Especie, Faneador, Mecoorgbio, Res3106, SisPro };

/// A field that one of the lists stands behind. A slaughterhouse is one of the packing houses, so two fields
/// share their list.
struct CampoConLista {
    const char *control;
    const char *boton;
    const char *etiqueta;  ///< the label of its description
    Lista lista;
};
const std::vector<CampoConLista> &CamposConLista();

/// A library that was plugged in: both functions are set.
struct Enlace {
    /// Shows the list; the chosen code, empty when it was left.
    std::function<QString(Lista lista)> Listado;
    /// What a code means; empty for none.
    std::function<QString(Lista lista, const QString &codigo)> Descripcion;
};

/// Null while the library is absent. The one place that it is plugged into.
extern const Enlace *enlace;

/// The code that the user chose; empty when he left, and without the library, which is told.
QString Elegir(const AppContext &ctx, Lista lista);
/// What a code means; empty for none, for an empty code and without the library.
QString Describir(Lista lista, const QString &codigo);

}  // namespace oncca
