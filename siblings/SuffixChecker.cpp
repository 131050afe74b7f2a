#include "siblings/SuffixChecker.h"

#include <QStringList>

#include "siblings/StoreProfiles.h"
#include "subitems/nomenclature.h"

namespace {

/// Whether one of the tokens fits a family whose first row's code is `primero`.
bool encaja(const QStringList &tokens, const QString &familia, const QStringList &codigos) {
    const bool codificada = codigos.first().size() == 4;
    for (const QString &token : tokens) {
        if (codificada) {
            if (token.compare(familia + QLatin1String("00"), Qt::CaseInsensitive) == 0 || codigos.contains(token, Qt::CaseInsensitive)) return true;
        } else if (token.startsWith(familia + QLatin1Char('('), Qt::CaseInsensitive) && token.endsWith(QLatin1Char(')'))) {
            if (!token.mid(3, token.size() - 4).trimmed().isEmpty()) return true;
        }
    }
    return false;
}

}  // namespace

int SuffixCheckerClass::Validar(const QString &posicion, const QString &sufijos) const {
    Conexion &ncm = manager_->getDataConnectionByEntity(QStringLiteral("NCM"));
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    ncm.Sql = QStringLiteral("select [001] as pos from ncm where [001]='") + claves.c001 + QStringLiteral("' and [002]='") + claves.c002 +
              QStringLiteral("'");
    if (!ncm.crearrs(rs)) return 1;

    const QString lista = ListaDeClavesSim(posicion);
    Recordset familias;
    ncm.Sql = QStringLiteral("select distinct left(sufijo,2) as asufijo from sufidos where sim in ") + lista;
    ncm.crearrs(familias);
    const QStringList tokens = sufijos.split(QLatin1Char('-'), Qt::SkipEmptyParts);
    for (; !familias.Eof(); familias.MoveNext()) {
        const QString familia = familias.Texto(u"asufijo");
        ncm.Sql = QStringLiteral("select sufijo,detalle from sufidos where sim in ") + lista + QStringLiteral(" and left(sufijo,2) = '") + familia +
                  QStringLiteral("'");
        QStringList codigos;
        for (ncm.crearrs(rs); !rs.Eof(); rs.MoveNext()) codigos << rs.Texto(u"sufijo").trimmed();
        if (codigos.isEmpty()) continue;
        // A family is asked for by the length of its first code, and a free value by a first letter that has a type.
        const bool libre = codigos.first().size() == 2 && (familia.startsWith(QLatin1Char('A'), Qt::CaseInsensitive) ||
                                                           familia.startsWith(QLatin1Char('Z'), Qt::CaseInsensitive));
        if (!libre && codigos.first().size() != 4) continue;
        if (!encaja(tokens, familia, codigos)) return 2;
    }
    return 0;
}
