#pragma once
// The suffix engine: which families a position demands, and the questions that fill them.

#include <QString>
#include <QStringList>
#include <vector>

#include "subitems/nomenclature.h"

struct AppContext;

/// How a suffix text is to be made.
enum class ModoDeSufijos {
    Construir = 1,   ///< from the beginning
    Reconfirmar = 2  ///< `actual` is checked first, and stands when it is right
};

/// The suffix text that the position needs, asking for what `actual` lacks: a list for each coded family
/// (Eleccion::Tipo::Sufijos, index -1 on ESC), an input box for each free one. `articuloPorDefecto` is what
/// the families AB and AI offer, `descripcionPorDefecto` what the others do. Answers "SIN SUFIJOS" when the
/// position has no suffix rows, "##ERRORNCM##" when it does not exist, and the empty text when the user gave
/// up, when the store failed (told), or when there is no token: none of the position's families can be asked
/// for. Tokens of `actual` that still fit are kept without a question, in both modes. The
/// shared flag `ctx.ReconfirmarSufijos` is off afterwards.
QString ValidarSufijos(AppContext &ctx, const QString &posicion, const QString &actual, ModoDeSufijos modo,
                       const QString &articuloPorDefecto = {}, const QString &descripcionPorDefecto = {});

/// ValidarSufijos for a record that is to be saved. A position none of whose families can be asked for is one
/// without suffixes ("SIN SUFIJOS"): its empty text would lock the user out of the record. Raises Falla.
QString CompletarSufijos(AppContext &ctx, const QString &posicion, const QString &actual, ModoDeSufijos modo,
                         const QString &articuloPorDefecto, const QString &descripcionPorDefecto);

/// The suffixes of a line asked for again (ActuSufijos): the new text, or `actual` as it was when the user
/// gave up, the store failed or the position does not exist.
QString ActuSufijos(AppContext &ctx, const QString &posicion, const QString &actual,
                    const QString &articuloPorDefecto = {}, const QString &descripcionPorDefecto = {});

/// True for an answer of ValidarSufijos that a line may hold.
bool SufijosAceptados(const QString &respuesta);

/// An option of a coded family as its list shows it, "AB01 - detail"; the token is the first four characters.
QString TokenDeOpcion(const QString &fila);

/// A token of a line's text with what the catalogue says of it.
struct SufijoDeLinea {
    QString token;
    QString detalle;  ///< empty when the catalogue does not know it for this position
};
/// What FrmSufijos shows of a position.
struct DatosDeSufijos {
    QString posicion;
    std::vector<FilaDeSufijo> catalogo;  ///< Grid: every row that applies
    std::vector<SufijoDeLinea> linea;    ///< Grid2: the line's own tokens
    QString estado;  ///< StB: how many families are demanded, and whether the text meets them
};
/// Raises Falla.
DatosDeSufijos LeerDatosDeSufijos(AppContext &ctx, const QString &posicion, const QString &sufijos);
