#include "frame/base/texts.h"

using namespace Qt::StringLiterals;

namespace {

/// Half of a pair alone is no character; both together are seen.
bool seVe(const QString &texto, qsizetype donde) {
    const QChar letra = texto.at(donde);
    if (letra.isHighSurrogate()) return donde + 1 < texto.size() && texto.at(donde + 1).isLowSurrogate();
    if (letra.isLowSurrogate()) return donde > 0 && texto.at(donde - 1).isHighSurrogate();
    return letra.isPrint() && letra.category() != QChar::Separator_Line &&
           letra.category() != QChar::Separator_Paragraph;
}

}  // namespace

QString DefectoDeTexto(const QString &texto) {
    if (texto.contains(QChar::Null))
        return u"El texto \"%1\" tiene un carácter nulo, que no se puede guardar; quítelo y vuelva a intentar."_s
            .arg(Citado(texto));
    if (!texto.isValidUtf16())
        return u"El texto \"%1\" tiene un carácter incompleto, que no se puede guardar; bórrelo y vuelva a "
               "intentar."_s.arg(Citado(texto));
    return {};
}

QString Citado(const QString &texto) {
    constexpr qsizetype bastante = 60;
    QString citado = Recortado(texto, bastante);
    for (qsizetype i = 0; i < citado.size(); ++i)
        if (!seVe(citado, i)) citado[i] = QChar(QChar::ReplacementCharacter);
    return texto.size() > bastante ? citado + u'…' : citado;
}

QString Recortado(const QString &texto, qsizetype caracteres) {
    QString recortado = texto.left(caracteres);
    if (recortado.size() < texto.size() && !recortado.isEmpty() && recortado.back().isHighSurrogate())
        recortado.chop(1);
    return recortado;
}

QString EnUnRenglon(const QString &texto) {
    constexpr int cifras = 4;
    constexpr int hexadecimal = 16;
    QString renglon;
    for (qsizetype i = 0; i < texto.size(); ++i)
        renglon += seVe(texto, i)
                       ? QString(texto.at(i))
                       : u"\\u%1"_s.arg(texto.at(i).unicode(), cifras, hexadecimal, QLatin1Char('0'));
    return renglon;
}
