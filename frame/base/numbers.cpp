#include "frame/base/numbers.h"

#include <QLocale>
#include <QVarLengthArray>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace numeros {

namespace {

/// The 15 significant decimal digits of a finite number above zero, and where its point stands: the value is
/// 0.d1d2…d15 times ten to the `exponente`.
struct Digitos {
    std::array<char, 15> cifra{};
    int exponente = 0;
};

Digitos quinceDigitos(double positivo) {
    // "d.dddddddddddddde±xx"
    std::array<char, 32> texto{};
    const auto fin =
        std::to_chars(texto.data(), texto.data() + texto.size(), positivo, std::chars_format::scientific, 14);
    Digitos d;
    d.cifra[0] = texto[0];
    for (std::size_t i = 1; i < d.cifra.size(); ++i) d.cifra[i] = texto[i + 1];
    int exponente = 0;
    const char *marca = texto.data() + 17;
    if (*marca == '+') ++marca;
    std::from_chars(marca, fin.ptr, exponente);
    d.exponente = exponente + 1;
    return d;
}

/// The decimal digits of `positivo` rounded to `decimales` (below zero: to tens, hundreds …), as one whole
/// text without point; at least `decimales` + 1 digits.
QByteArray redondeadoComoEntero(double positivo, int decimales) {
    const Digitos d = quinceDigitos(positivo);
    const int quedan = d.exponente + decimales;  // how many of the digits stay
    const int minimo = std::max(decimales + 1, 1);
    if (quedan < 0) return QByteArray(minimo, '0');
    QByteArray entero;
    entero.reserve(quedan + 1);
    for (int i = 0; i < quedan; ++i) entero.append(i < 15 ? d.cifra[static_cast<std::size_t>(i)] : '0');
    if (quedan < 15 && d.cifra[static_cast<std::size_t>(quedan)] >= '5') {
        int i = static_cast<int>(entero.size()) - 1;
        while (i >= 0 && entero[i] == '9') entero[i--] = '0';
        if (i >= 0)
            entero[i] = static_cast<char>(entero[i] + 1);
        else
            entero.prepend('1');
    }
    if (entero.size() < minimo) entero.prepend(QByteArray(minimo - entero.size(), '0'));
    return entero;
}

/// True with the cents in `entero` when plain arithmetic is certain to agree with the digits: far enough from
/// a half, and small enough for a double to hold the product exactly enough.
bool porAritmetica(double positivo, int decimales, double &entero) {
    static constexpr std::array<double, 7> potencias{1, 10, 100, 1e3, 1e4, 1e5, 1e6};
    if (decimales < 0 || decimales >= static_cast<int>(potencias.size()) || positivo >= 1e8) return false;
    const double escalado = positivo * potencias[static_cast<std::size_t>(decimales)];
    const double abajo = std::floor(escalado);
    const double resto = escalado - abajo;
    if (std::fabs(resto - 0.5) < 1e-4 * (1 + escalado * 1e-9)) return false;
    entero = resto > 0.5 ? abajo + 1 : abajo;
    return true;
}

/// The text of `entero` hundredths, thousandths … (by `decimales`), with at least `enteros` digits ahead.
QString conCifras(bool negativo, quint64 entero, int enteros, int decimales, QChar separador) {
    constexpr int ancho = 48;
    std::array<QChar, ancho> texto;
    int i = ancho;
    const bool conSigno = negativo && entero != 0;
    for (int n = 0; n < decimales; ++n, entero /= 10)
        texto[--i] = QChar(static_cast<char16_t>(u'0' + entero % 10));
    if (decimales > 0) texto[--i] = separador;
    for (int n = 0; entero != 0 || n < enteros; ++n, entero /= 10)
        texto[--i] = QChar(static_cast<char16_t>(u'0' + entero % 10));
    if (conSigno) texto[--i] = u'-';
    return QString(&texto[i], ancho - i);
}

}  // namespace

std::function<QString()> leerSeparadorDelSistema = [] { return QLocale().decimalPoint(); };

QChar separadorDelSistema() {
    return leerSeparadorDelSistema() == QLatin1String(".") ? QLatin1Char('.') : QLatin1Char(',');
}

bool haySeparadorDelSistema() {
    const QString dicho = leerSeparadorDelSistema();
    return dicho == QLatin1String(".") || dicho == QLatin1String(",");
}

double redondear(double valor, int decimales) {
    if (!std::isfinite(valor)) return valor;
    if (valor == 0) return 0;
    const double positivo = std::fabs(valor);
    double resultado = 0;
    double entero = 0;
    if (porAritmetica(positivo, decimales, entero)) {
        static constexpr std::array<double, 7> potencias{1, 10, 100, 1e3, 1e4, 1e5, 1e6};
        // The quotient of two exact numbers is the double nearest to the decimal, as reading its text would
        // be.
        resultado = entero / potencias[static_cast<std::size_t>(decimales)];
    } else {
        // Behind the fifteenth digit there is nothing to round, however many places are asked for.
        const int lugares = std::min(decimales, 15 - quinceDigitos(positivo).exponente);
        const QByteArray texto = redondeadoComoEntero(positivo, lugares) + 'e' + QByteArray::number(-lugares);
        // The fifteen digits of the very largest doubles lie beyond them.
        if (std::from_chars(texto.constData(), texto.constData() + texto.size(), resultado).ec != std::errc())
            return valor;
    }
    if (resultado == 0) return 0;
    return valor < 0 ? -resultado : resultado;
}

QString Format(double valor, QStringView mascara, QChar separador) {
    const qsizetype punto = mascara.indexOf(QLatin1Char('.'));
    const int decimales = punto < 0 ? 0 : static_cast<int>(mascara.size() - punto - 1);
    const int enteros = static_cast<int>(punto < 0 ? mascara.size() : punto);
    // No amount of a declaration gets here; what is shown is the platform's word for it.
    if (std::isnan(valor)) return u"NaN"_s;
    if (std::isinf(valor)) return valor < 0 ? u"-∞"_s : u"∞"_s;
    double entero = 0;
    if (enteros < 16 && decimales < 16 && (valor == 0 || porAritmetica(std::fabs(valor), decimales, entero)))
        return conCifras(valor < 0, static_cast<quint64>(entero), enteros, decimales, separador);
    QByteArray cifras = redondeadoComoEntero(std::fabs(valor), decimales);
    if (cifras.size() < enteros + decimales)
        cifras.prepend(QByteArray(enteros + decimales - cifras.size(), '0'));
    const bool negativo = valor < 0 && cifras.count('0') != cifras.size();
    QString texto;
    texto.reserve(cifras.size() + 2);
    if (negativo) texto += QLatin1Char('-');
    // A mask with no integer digit at all shows none for a value below one.
    qsizetype desde = 0;
    while (cifras.size() - desde > enteros + decimales && cifras[desde] == '0') ++desde;
    texto += QLatin1String(cifras.constData() + desde, cifras.size() - decimales - desde);
    if (decimales > 0) {
        texto += separador;
        texto += QLatin1String(cifras.constData() + cifras.size() - decimales, decimales);
    }
    return texto;
}

QString Format(const QString &texto, QStringView mascara, QChar separador) {
    return esNumerico(texto) ? Format(aNumero(texto), mascara, separador) : texto;
}

QString FormatSinPerdida(double valor, QStringView mascara, QChar separador) {
    QString texto = Format(valor, mascara, separador);
    return aNumero(texto) == valor ? texto : aTexto(valor).replace(u'.', separador);
}

bool iguales(double a, double b, int decimales) {
    return redondear(a, decimales) == redondear(b, decimales);
}

bool esNumerico(QStringView texto) {
    texto = texto.trimmed();
    qsizetype i = 0;
    if (i < texto.size() && (texto[i] == u'+' || texto[i] == u'-')) ++i;
    int cifras = 0;
    int puntos = 0;
    for (; i < texto.size(); ++i) {
        const char16_t c = texto[i].unicode();
        if (c >= u'0' && c <= u'9')
            ++cifras;
        else if ((c == u'.' || c == u',') && puntos == 0)
            ++puntos;
        else
            break;
    }
    if (cifras == 0) return false;
    if (i < texto.size() && (texto[i] == u'e' || texto[i] == u'E')) {
        ++i;
        if (i < texto.size() && (texto[i] == u'+' || texto[i] == u'-')) ++i;
        const qsizetype desde = i;
        while (i < texto.size() && texto[i] >= u'0' && texto[i] <= u'9') ++i;
        if (i == desde) return false;
    }
    return i == texto.size();
}

double aNumero(QStringView texto) {
    if (!esNumerico(texto)) return 0;
    texto = texto.trimmed();
    if (texto.front() == u'+') texto = texto.mid(1);
    // What reads as a number is plain ASCII; nobody writes one that does not fit here.
    QVarLengthArray<char, 64> plano;
    for (const QChar c : texto) plano.append(c == u',' ? '.' : static_cast<char>(c.unicode()));
    double valor = 0;
    const auto leido = std::from_chars(plano.cbegin(), plano.cend(), valor);
    // Out of range: what the platform's own reading would give is infinity or zero; neither is an amount.
    return leido.ec == std::errc() ? valor : 0;
}

QString aTexto(double valor) {
    if (valor == 0) return u"0"_s;
    if (std::fabs(valor) < 1e15 && std::fabs(valor) >= 1e-5) {
        std::array<char, 32> texto{};
        const auto fin =
            std::to_chars(texto.data(), texto.data() + texto.size(), valor, std::chars_format::general, 15);
        const QByteArrayView vista(texto.data(), fin.ptr - texto.data());
        if (!vista.contains('e')) return QString::fromLatin1(vista);
    }
    if (!std::isfinite(valor)) return QString::number(valor);
    // Without exponent, so that the text stands in a statement as a plain number.
    const Digitos d = quinceDigitos(std::fabs(valor));
    QByteArray cifras(d.cifra.data(), d.cifra.size());
    while (cifras.size() > 1 && cifras.endsWith('0')) cifras.chop(1);
    if (d.exponente <= 0)
        cifras.prepend("0." + QByteArray(-d.exponente, '0'));
    else if (cifras.size() < d.exponente)
        cifras.append(QByteArray(d.exponente - cifras.size(), '0'));
    else if (cifras.size() > d.exponente)
        cifras.insert(d.exponente, '.');
    if (valor < 0) cifras.prepend('-');
    return QString::fromLatin1(cifras);
}

double PorcentajeRedondeado(double a, double b) {
    return redondear(a * b / 100, 2);
}

}  // namespace numeros
