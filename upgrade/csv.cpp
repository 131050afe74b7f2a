#include "upgrade/csv.h"

#include <QByteArray>
#include <QFile>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace csv {

namespace {

/// The first line that is not UTF-8 text, or 0. No character of several bytes holds a line end, so lines can
/// be judged one by one.
qint64 lineaQueNoEsUtf8(const QByteArray &datos) {
    qint64 linea = 1;
    qsizetype desde = 0;
    while (desde < datos.size()) {
        qsizetype hasta = datos.indexOf('\n', desde);
        if (hasta < 0) hasta = datos.size();
        QStringDecoder decodificador(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QByteArrayView vista(datos.constData() + desde, hasta - desde);
        const QString decodificada = decodificador.decode(vista);
        if (decodificador.hasError() || vista.contains('\0')) return linea;
        desde = hasta + 1;
        ++linea;
    }
    return 0;
}

/// "," unless the header line has more ";" outside quotes.
QChar separadorDe(QStringView texto) {
    qsizetype comas = 0;
    qsizetype puntosYComas = 0;
    bool entreComillas = false;
    for (const QChar c : texto) {
        if (c == QLatin1Char('"')) entreComillas = !entreComillas;
        if (entreComillas) continue;
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) break;
        if (c == QLatin1Char(',')) ++comas;
        if (c == QLatin1Char(';')) ++puntosYComas;
    }
    return puntosYComas > comas ? QLatin1Char(';') : QLatin1Char(',');
}

}  // namespace

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
    if (const qint64 mala = lineaQueNoEsUtf8(datos); mala > 0) {
        error =
            u"El archivo %1 no está en UTF-8 (línea %2); guárdelo con esa codificación y vuelva a "
            "cargarlo."_s.arg(archivo)
                .arg(mala);
        return false;
    }
    texto_ = QString::fromUtf8(datos);
    if (texto_.startsWith(QChar(QChar::ByteOrderMark))) texto_.remove(0, 1);
    lineas_ = texto_.count(QLatin1Char('\n'));
    if (!texto_.isEmpty() && !texto_.endsWith(QLatin1Char('\n'))) ++lineas_;
    pos_ = 0;
    linea_ = 1;
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
        if (!enBlanco) return true;
    }
    return false;
}

bool Lector::leer(Registro &registro) {
    if (pos_ >= texto_.size()) return false;
    registro.linea = linea_;
    registro.campos.clear();
    registro.defecto.clear();
    QString campo;
    bool entreComillas = false;
    bool cerrado = false;  // the closing quote of this field has passed
    while (pos_ < texto_.size()) {
        const QChar c = texto_.at(pos_++);
        if (entreComillas) {
            if (c == QLatin1Char('\n')) ++linea_;
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
    if (entreComillas) registro.defecto = u"hay una comilla sin cerrar"_s;
    registro.campos << campo;
    return true;
}

}  // namespace csv
