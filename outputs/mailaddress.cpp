#include "outputs/mail.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The soft hyphen stands among the letters because addresses that offices keep were let in with it.
const QString letrasDeDireccion = u"abcdefghijklmnopqrstuvw\u00ADxyz_-."_s;

bool esDeDireccion(QChar letra) {
    return (letra >= u'0' && letra <= u'9') || letrasDeDireccion.contains(letra);
}

}  // namespace

bool EsDireccionValida(const QString &texto) {
    const QStringList partes = texto.split(u'@');
    if (partes.size() != 2) return false;
    for (const QString &parte : partes) {
        if (parte.isEmpty() || parte.startsWith(u'.') || parte.endsWith(u'.')) return false;
        const QString minusculas = parte.toLower();
        if (!std::all_of(minusculas.cbegin(), minusculas.cend(), esDeDireccion)) return false;
    }
    const qsizetype punto = partes[1].lastIndexOf(u'.');
    if (punto < 0) return false;
    const qsizetype trasElPunto = partes[1].size() - punto - 1;
    return trasElPunto >= 2 && trasElPunto <= 4 && !texto.contains(".."_L1);
}

QString EnUnaLinea(const QString &texto) {
    QString linea = texto;
    linea.replace("\r\n"_L1, " "_L1);
    for (QChar &letra : linea)
        if (letra.category() == QChar::Other_Control || letra.category() == QChar::Separator_Line ||
            letra.category() == QChar::Separator_Paragraph)
            letra = u' ';
    return linea;
}
