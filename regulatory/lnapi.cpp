#include "regulatory/lnapi.h"

#include "frame/base/position.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "regulatory/letters.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString finDeLinea = u"\r\n"_s;
const QString sinDatos = u"SIN DATOS"_s;

QString claveDe(const QString &posicion) {
    return TextoEnComillas(CortarPosicion(posicion).c001);
}

}  // namespace

std::vector<NormaLnapi> ObtenerNormaLnapi(AppContext &ctx, const QString &posicion) {
    std::vector<NormaLnapi> normas;
    Recordset rs;
    Consultar(ctx, u"NCM"_s,
              "select lnapi, norma "
              "From LNAPIPosicionesAfectadas "
              "where posicion="_L1 +
                  claveDe(posicion) +
                  " "
                  "ORDER BY aclaraciones DESC"_L1,
              rs);
    for (; !rs.Eof(); rs.MoveNext()) normas.push_back({rs.Texto(u"lnapi"), rs.Texto(u"norma")});
    return normas;
}

QString ObtenerDescripcionAclaracion(AppContext &ctx, const QString &numero) {
    // A list of notes may hold what is no number, which no row has and the store would refuse.
    bool esNumero = false;
    numero.toLongLong(&esNumero);
    Recordset rs;
    if (!esNumero || !Consultar(ctx, u"NCM"_s,
                                "select descripcion "
                                "From LNAPIAclaraciones "
                                "where aclaracion="_L1 +
                                    numero,
                                rs))
        return u"No Posee Descripción la aclaración número: "_s + numero;
    return rs.Texto(u"descripcion");
}

QString ObtenerAclaraciones(AppContext &ctx, const QString &posicion) {
    Recordset rs;
    if (!Consultar(ctx, u"NCM"_s,
                   "select aclaraciones "
                   "From LNAPIPosicionesAfectadas "
                   "where posicion="_L1 +
                       claveDe(posicion) +
                       " "
                       "ORDER BY aclaraciones DESC"_L1,
                   rs))
        return sinAclaraciones;
    QString texto;
    for (int numero = 1; !rs.Eof(); rs.MoveNext(), ++numero) {
        texto += "Aclaraciones para ("_L1 + QString::number(numero) + ")"_L1 + finDeLinea;
        const QString aclaraciones = rs.Texto(u"aclaraciones");
        if (aclaraciones.isEmpty()) {
            texto += u"* No posee aclaraciones la posición"_s + finDeLinea;
            continue;
        }
        const QStringList piezas = aclaraciones.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &pieza : piezas)
            texto += "* "_L1 + ObtenerDescripcionAclaracion(ctx, pieza) + finDeLinea;
    }
    return texto;
}

QString DetalleLnapi(AppContext &ctx, const QString &posicion) {
    QString texto;
    const std::vector<NormaLnapi> normas = ObtenerNormaLnapi(ctx, posicion);
    if (normas.empty()) {
        // A letter says no more here than that there is one.
        const bool conLetra = obtenerDelNcmLaLetraDeUnaPADada(ctx, posicion) != letraNoPosee;
        texto = (conLetra ? sinDatos : letraNoPosee) + finDeLinea + "Norma: "_L1 +
                (conLetra ? letraNoPosee : sinDatos) + finDeLinea;
    }
    int numero = 0;
    for (const NormaLnapi &n : normas)
        texto += QLatin1Char('(') + QString::number(++numero) + ") "_L1 + n.lnapi + finDeLinea +
                 "Norma: "_L1 + n.norma + finDeLinea;
    const QString aclaraciones = ObtenerAclaraciones(ctx, posicion);
    const QString raya = u"---------------"_s + finDeLinea;
    if (aclaraciones != sinAclaraciones)
        texto += raya + u"Aclaraciones:"_s + finDeLinea + raya + aclaraciones;
    return texto;
}
