#include "frame/csv.h"

#include <QByteArray>
#include <QFile>
#include <QStringDecoder>
#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace csv {

namespace {

/// The longest field between quotes: what goes on for longer is a quote that was left open.
constexpr qsizetype largoDeCampo = 65536;

constexpr QByteArrayView marcaUtf8("\xEF\xBB\xBF");
constexpr QByteArrayView utf16Le("\xFF\xFE");
constexpr QByteArrayView utf16Be("\xFE\xFF");

/// What Windows-1252 has where Latin-1 has control characters; 0 for the five bytes that are none.
constexpr char16_t de80a9F[] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

/// A line of Windows-1252; `entera` falls when a byte of it is no character.
QString deWindows1252(QByteArrayView datos, bool &entera) {
    QString texto = QString::fromLatin1(datos);
    for (QChar &c : texto) {
        if (c.unicode() < 0x80 || c.unicode() > 0x9F) continue;
        const char16_t de = de80a9F[c.unicode() - 0x80];
        entera = entera && de != 0;
        c = de != 0 ? QChar(de) : QChar(QChar::ReplacementCharacter);
    }
    return texto;
}

/// Where the line that follows the one at `desde` begins: behind "\n", "\r\n" or "\r"; the end without one.
template <class Texto>
qsizetype lineaSiguiente(const Texto &texto, qsizetype desde) {
    for (; desde < texto.size(); ++desde) {
        if (texto.at(desde) == u'\n') return desde + 1;
        if (texto.at(desde) != u'\r') continue;
        return desde + (desde + 1 < texto.size() && texto.at(desde + 1) == u'\n' ? 2 : 1);
    }
    return texto.size();
}

/// The separator that the header line has most of outside quotes; "," where it has none.
QChar separadorDe(QStringView texto) {
    constexpr char16_t candidatos[] = {u',', u';', u'\t'};
    qsizetype cuantos[std::size(candidatos)] = {};
    bool entreComillas = false;
    for (const QChar c : texto) {
        if (c == QLatin1Char('"')) entreComillas = !entreComillas;
        if (entreComillas) continue;
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) break;
        for (std::size_t i = 0; i < std::size(candidatos); ++i)
            if (c == candidatos[i]) ++cuantos[i];
    }
    return candidatos[std::max_element(std::begin(cuantos), std::end(cuantos)) - std::begin(cuantos)];
}

}  // namespace

QString AvisoDeLinea(qint64 linea, const QString &texto) {
    return u"línea %1: %2"_s.arg(linea).arg(texto);
}

/// Takes the file's text, in whatever it is written; answers what is wrong with it, empty for nothing. No
/// character of several bytes of UTF-8 holds a line end, so lines are judged one by one.
QString Lector::decodificar(QByteArrayView datos) {
    texto_.clear();
    ajenas_.clear();
    avisadas_ = 0;
    if (datos.startsWith(utf16Le) || datos.startsWith(utf16Be)) {
        QStringDecoder decodificador(QStringDecoder::Utf16);
        texto_ = decodificador.decode(datos);
        // The decoder keeps half a character for a next call instead of telling it.
        const bool enteros = datos.size() % 2 == 0 && QStringView(texto_).isValidUtf16();
        if (decodificador.hasError() || !enteros) return u"empieza como UTF-16 y no lo es"_s;
    } else {
        if (datos.startsWith(marcaUtf8)) datos = datos.sliced(marcaUtf8.size());
        QStringDecoder decodificador(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        texto_ = decodificador.decode(datos);
        if (decodificador.hasError()) decodificarPorLineas(datos);
    }
    const qsizetype nulo = texto_.indexOf(QChar(QChar::Null));
    if (nulo < 0) return {};
    return u"línea %1"_s.arg(QStringView(texto_).left(nulo).count(u'\n') + 1);
}

void Lector::decodificarPorLineas(QByteArrayView datos) {
    texto_.clear();
    qint64 linea = 1;
    for (qsizetype desde = 0; desde < datos.size(); ++linea) {
        const qsizetype hasta = lineaSiguiente(datos, desde);
        const QByteArrayView bytes = datos.sliced(desde, hasta - desde);
        QStringDecoder decodificador(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString comoUtf8 = decodificador.decode(bytes);
        if (decodificador.hasError()) {
            LineaAjena ajena{linea, true};
            texto_ += deWindows1252(bytes, ajena.entera);
            ajenas_.push_back(ajena);
        } else {
            texto_ += comoUtf8;
        }
        desde = hasta;
    }
}

bool Lector::abrir(const QString &archivo, QString &error) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) {
        error = u"No se puede leer el archivo %1 (%2); revise el nombre y los permisos."_s.arg(
            archivo, f.errorString());
        return false;
    }
    const QByteArray datos = f.readAll();
    if (f.error() != QFileDevice::NoError) {
        error = u"No se puede leer el archivo %1 (%2); revise el nombre y los permisos."_s.arg(
            archivo, f.errorString());
        return false;
    }
    if (const QString defecto = decodificar(datos); !defecto.isEmpty()) {
        error = u"El archivo %1 no es un texto (%2); guárdelo como CSV en UTF-8 y vuelva a cargarlo."_s.arg(
            archivo, defecto);
        return false;
    }
    lineas_ = texto_.count(QLatin1Char('\n'));
    if (!texto_.isEmpty() && !texto_.endsWith(QLatin1Char('\n'))) ++lineas_;
    pos_ = 0;
    linea_ = 1;
    descartadas_ = 0;
    separador_ = separadorDe(texto_);
    Registro primero;
    if (!siguiente(primero) || !primero.defecto.isEmpty()) {
        error =
            u"El archivo %1 no tiene una fila de encabezado; la primera línea debe nombrar las columnas."_s
                .arg(archivo);
        return false;
    }
    encabezado_.clear();
    for (const QString &nombre : primero.campos) encabezado_ << nombre.trimmed();
    return true;
}

bool Lector::siguiente(Registro &registro) {
    while (leer(registro)) {
        const bool enBlanco =
            registro.campos.size() == 1 && registro.campos.front().isEmpty() && registro.defecto.isEmpty();
        if (!registro.defecto.isEmpty()) seguirTrasSuPrimeraLinea(registro);
        if (!enBlanco) return true;
    }
    return false;
}

bool Lector::siguienteFila(Registro &registro, QStringList &avisos) {
    const qsizetype ancho = encabezado_.size();
    while (siguiente(registro)) {
        avisarDeLasAjenas(avisos);
        while (registro.campos.size() > ancho && registro.campos.back().isEmpty())
            registro.campos.removeLast();
        if (registro.defecto.isEmpty() && registro.campos.size() == ancho) return true;
        const QString motivo =
            registro.defecto.isEmpty()
                ? u"tiene %1 campos y el encabezado %2"_s.arg(registro.campos.size()).arg(ancho)
                : registro.defecto;
        avisos << AvisoDeLinea(registro.linea, motivo + u"; la fila no se carga"_s);
        ++descartadas_;
        seguirTrasSuPrimeraLinea(registro);
    }
    avisarDeLasAjenas(avisos);
    return false;
}

/// The lines read so far that are not UTF-8 and were not told yet.
void Lector::avisarDeLasAjenas(QStringList &avisos) {
    for (; avisadas_ < ajenas_.size() && ajenas_[avisadas_].linea < linea_; ++avisadas_)
        avisos << AvisoDeLinea(
            ajenas_[avisadas_].linea,
            ajenas_[avisadas_].entera
                ? u"no está en UTF-8; se lee como Windows-1252, revise sus acentos"_s
                : u"no está en UTF-8 ni en Windows-1252; lo que no se entiende se lee como \"%1\""_s.arg(
                      QChar(QChar::ReplacementCharacter)));
}

void Lector::seguirTrasSuPrimeraLinea(const Registro &registro) {
    const qsizetype sigue = lineaSiguiente(texto_, inicio_);
    if (sigue >= pos_) return;
    pos_ = sigue;
    linea_ = registro.linea + 1;
}

bool Lector::leer(Registro &registro) {
    if (pos_ >= texto_.size()) return false;
    inicio_ = pos_;
    registro.linea = linea_;
    registro.campos.clear();
    registro.defecto.clear();
    QString campo;
    bool entreComillas = false;
    bool cerrado = false;  // the closing quote of this field has passed
    while (pos_ < texto_.size()) {
        const QChar c = texto_.at(pos_++);
        if (entreComillas) {
            if (campo.size() >= largoDeCampo) break;
            if (c == u'\n' || (c == u'\r' && texto_.size() > pos_ && texto_.at(pos_) != u'\n')) ++linea_;
            if (c != QLatin1Char('"')) {
                campo += c;
            } else if (pos_ < texto_.size() && texto_.at(pos_) == QLatin1Char('"')) {
                campo += c;
                ++pos_;
            } else {
                entreComillas = false;
                cerrado = true;
            }
            continue;
        }
        if (c == QLatin1Char('"') && campo.isEmpty() && !cerrado) {
            entreComillas = true;
        } else if (c == separador_) {
            registro.campos << campo;
            campo.clear();
            cerrado = false;
        } else if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            if (c == QLatin1Char('\r') && pos_ < texto_.size() && texto_.at(pos_) == QLatin1Char('\n'))
                ++pos_;
            ++linea_;
            registro.campos << campo;
            return true;
        } else if (cerrado) {
            registro.defecto = u"hay texto detrás de una comilla de cierre"_s;
        } else {
            campo += c;
        }
    }
    ++linea_;
    if (entreComillas) registro.defecto = u"hay una comilla sin cerrar"_s;
    registro.campos << campo;
    return true;
}

}  // namespace csv
