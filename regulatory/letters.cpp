#include "regulatory/letters.h"

#include <QStringList>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype capitulo = 2;
constexpr qsizetype largoDePosicion = 15;

/// Every beginning of the position, from its chapter on, as "('84','840',…)": a key each, which the index
/// finds.
QString comienzosDe(const QString &posicion) {
    QStringList comienzos;
    for (qsizetype largo = capitulo; largo <= posicion.size(); ++largo)
        comienzos << TextoEnComillas(posicion.left(largo));
    return "("_L1 + comienzos.join(QLatin1Char(',')) + ")"_L1;
}

}  // namespace

QString obtenerDelNcmLaLetraDeUnaPADada(AppContext &ctx, const QString &posicion) {
    const QString limpia = posicion.trimmed().left(largoDePosicion);
    if (limpia.size() < capitulo) return letraNoPosee;
    Recordset rs;
    // Of two beginnings of one text the longer one is the later one.
    if (!Consultar(ctx, entidad::ncm,
                   "select top 1 letra "
                   "from letrasncm "
                   "where posicion in "_L1 +
                       comienzosDe(limpia) +
                       " "
                       "order by posicion desc"_L1,
                   rs))
        return letraNoPosee;
    const QString letra = rs.Texto(u"letra").trimmed();
    return letra.isEmpty() ? letraNoPosee : letra;
}

QString obtenerDescripcionAPartirDeLaLetra(AppContext &ctx, const QString &letra) {
    if (letra == letraNoPosee) return letraNoPosee;
    Recordset rs;
    Consultar(ctx, entidad::ncm,
              "select descripcion "
              "from letras "
              "where letra = "_L1 +
                  TextoEnComillas(letra),
              rs);
    const QString descripcion = rs.Eof() ? QString() : rs.Texto(u"descripcion").trimmed();
    return descripcion.isEmpty() ? u"No Posee Descripción la letra: "_s + letra : descripcion;
}
