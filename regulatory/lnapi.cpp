#include "regulatory/lnapi.h"

#include "frame/context.h"
#include "frame/values.h"
#include "subitems/nomenclature.h"

namespace {

using L = QLatin1String;

const QString finDeLinea = QStringLiteral("\r\n");
const QString noPosee = QStringLiteral("NO POSEE");

QString claveDe(const QString &posicion) {
    return DoblarComillas(CortarPosicion(posicion).c001);
}

}  // namespace

std::vector<NormaLnapi> ObtenerNormaLnapi(AppContext &ctx, const QString &posicion) {
    std::vector<NormaLnapi> normas;
    Recordset rs;
    Consultar(ctx, QStringLiteral("NCM"),
              L("select lnapi, norma From LNAPIPosicionesAfectadas where posicion='") + claveDe(posicion) +
                  L("' ORDER BY aclaraciones DESC"),
              rs);
    for (; !rs.Eof(); rs.MoveNext()) normas.push_back({rs.Texto(u"lnapi"), rs.Texto(u"norma")});
    return normas;
}

QString ObtenerDescripcionAclaracion(AppContext &ctx, const QString &numero) {
    Recordset rs;
    if (!Consultar(ctx, QStringLiteral("NCM"),
                   L("select descripcion From LNAPIAclaraciones where aclaracion=") + numero, rs))
        return QStringLiteral("No Posee Descripción la aclaración número: ") + numero;
    return rs.Texto(u"descripcion");
}

QString ObtenerAclaraciones(AppContext &ctx, const QString &posicion) {
    Recordset rs;
    if (!Consultar(ctx, QStringLiteral("NCM"),
                   L("select aclaraciones From LNAPIPosicionesAfectadas where posicion='") +
                       claveDe(posicion) + L("' ORDER BY aclaraciones DESC"),
                   rs))
        return QStringLiteral("-1");
    QString texto;
    for (int numero = 1; !rs.Eof(); rs.MoveNext(), ++numero) {
        texto += L("Aclaraciones para (") + QString::number(numero) + L(")") + finDeLinea;
        const QString aclaraciones = rs.Texto(u"aclaraciones");
        if (aclaraciones.isEmpty()) {
            texto += QStringLiteral("* No posee aclaraciones la posición") + finDeLinea;
            continue;
        }
        const QStringList piezas = aclaraciones.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &pieza : piezas)
            texto += L("* ") + ObtenerDescripcionAclaracion(ctx, pieza) + finDeLinea;
    }
    return texto;
}

QString DetalleLnapi(AppContext &ctx, const QString &posicion, const LetrasDelNcm *letras) {
    QString texto;
    const std::vector<NormaLnapi> normas = ObtenerNormaLnapi(ctx, posicion);
    if (normas.empty()) {
        const QString letra = letras != nullptr && letras->letra ? letras->letra(posicion) : QString();
        const QString dato = letra == noPosee && letras->descripcion ? letras->descripcion(letra)
                                                                     : QStringLiteral("SIN DATOS");
        texto = dato + finDeLinea + L("Norma: ") + noPosee + finDeLinea;
    }
    int numero = 0;
    for (const NormaLnapi &n : normas)
        texto += QLatin1Char('(') + QString::number(++numero) + L(") ") + n.lnapi + finDeLinea +
                 L("Norma: ") + n.norma + finDeLinea;
    const QString aclaraciones = ObtenerAclaraciones(ctx, posicion);
    const QString raya = QStringLiteral("---------------") + finDeLinea;
    if (aclaraciones != L("-1"))
        texto += raya + QStringLiteral("Aclaraciones:") + finDeLinea + raya + aclaraciones;
    return texto;
}
