#include "frame/base/ini.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include "frame/base/privatefile.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype largoDeValor = 750;

/// True for "[nombre]"; `nombre` takes what stands inside.
bool esSeccion(const QString &linea, QString &nombre) {
    const QString limpia = linea.trimmed();
    if (!limpia.startsWith(QLatin1Char('[')) || !limpia.contains(QLatin1Char(']'))) return false;
    nombre = limpia.mid(1, limpia.indexOf(QLatin1Char(']')) - 1).trimmed();
    return true;
}

bool esClave(const QString &linea, const QString &clave) {
    const qsizetype igual = linea.indexOf(QLatin1Char('='));
    return igual > 0 && !linea.trimmed().startsWith(QLatin1Char(';')) &&
           linea.left(igual).trimmed().compare(clave, Qt::CaseInsensitive) == 0;
}

/// Where the section's lines are: from behind its head to the next head. False when it is not there.
bool buscarSeccion(const QStringList &lineas, const QString &seccion, qsizetype &desde, qsizetype &hasta) {
    QString nombre;
    desde = -1;
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        if (!esSeccion(lineas[i], nombre)) continue;
        if (desde >= 0) {
            hasta = i;
            return true;
        }
        if (nombre.compare(seccion, Qt::CaseInsensitive) == 0) desde = i + 1;
    }
    hasta = lineas.size();
    return desde >= 0;
}

}  // namespace

// UTF-8, or the western single-byte code page of older files.
QStringList LeerLineasDeIni(const QString &archivo, bool *legible) {
    if (legible != nullptr) *legible = true;
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) {
        if (legible != nullptr) *legible = !QFile::exists(archivo);
        return {};
    }
    QByteArray bytes = f.readAll();
    if (bytes.startsWith("\xEF\xBB\xBF")) bytes.remove(0, 3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString texto = utf8(bytes);
    if (utf8.hasError()) texto = QString::fromLatin1(bytes);
    QStringList lineas = texto.split(QLatin1Char('\n'));
    for (QString &linea : lineas)
        if (linea.endsWith(QLatin1Char('\r'))) linea.chop(1);
    if (!lineas.isEmpty() && lineas.last().isEmpty()) lineas.removeLast();
    return lineas;
}

QString LeerIni(const QString &seccion, const QString &clave, const QString &archivo) {
    const QStringList lineas = LeerLineasDeIni(archivo);
    qsizetype desde = 0;
    qsizetype hasta = 0;
    if (!buscarSeccion(lineas, seccion, desde, hasta)) return {};
    for (qsizetype i = desde; i < hasta; ++i) {
        if (!esClave(lineas[i], clave)) continue;
        QString valor = lineas[i].mid(lineas[i].indexOf(QLatin1Char('=')) + 1).trimmed();
        const bool entreComillas =
            valor.size() >= 2 && (valor.front() == QLatin1Char('"') || valor.front() == QLatin1Char('\'')) &&
            valor.back() == valor.front();
        if (entreComillas) valor = valor.mid(1, valor.size() - 2);
        return valor.left(largoDeValor);
    }
    return {};
}

void PonerEnIni(QStringList &lineas, const QString &seccion, const QString &clave, const QString &valor) {
    QString linea = clave + QLatin1Char('=') + valor;
    // One key is one line.
    linea.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    qsizetype desde = 0;
    qsizetype hasta = 0;
    if (!buscarSeccion(lineas, seccion, desde, hasta)) {
        if (!valor.isNull()) lineas << QLatin1Char('[') + seccion + QLatin1Char(']') << linea;
        return;
    }
    qsizetype i = desde;
    while (i < hasta && !esClave(lineas[i], clave)) ++i;
    if (valor.isNull()) {
        if (i < hasta) lineas.removeAt(i);
    } else if (i < hasta) {
        lineas[i] = linea;
    } else {
        while (hasta > desde && lineas[hasta - 1].trimmed().isEmpty()) --hasta;
        lineas.insert(hasta, linea);
    }
}

QByteArray BytesDeIni(const QStringList &lineas) {
    return lineas.join("\r\n"_L1).toUtf8() + "\r\n";
}

bool EscribirIni(const QString &seccion, const QString &clave, const QString &valor, const QString &archivo) {
    bool legible = true;
    QStringList lineas = LeerLineasDeIni(archivo, &legible);
    // Writing over what could not be read would lose it.
    if (!legible) return false;
    PonerEnIni(lineas, seccion, clave.toUpper(), valor.isNull() ? u""_s : valor);
    // What its owner keeps to himself stays so, also while it is written.
    const QFileInfo info(archivo);
    if (info.exists() && !LoAlcanzanOtros(archivo))
        return info.isWritable() && EscribirPrivado(archivo, BytesDeIni(lineas)).isEmpty();
    QSaveFile f(archivo);
    if (!f.open(QIODevice::WriteOnly)) return false;
    f.write(BytesDeIni(lineas));
    return f.commit();
}

QString TerminarEnBarra(const QString &ruta) {
    if (ruta.endsWith(QLatin1Char('\\')) || ruta.endsWith(QLatin1Char('/'))) return ruta;
    // A path of this platform keeps its own separator; anything else takes the classic one.
    return ruta + (ruta.contains(QLatin1Char('/')) ? QLatin1Char('/') : QLatin1Char('\\'));
}
