#pragma once
// A CSV file read whole: UTF-8, a header row, "," or ";" between fields, quotes and line ends within quotes.

#include <QString>
#include <QStringList>

namespace csv {

/// One record and the line of the file on which it begins (the header is line 1).
struct Registro {
    qint64 linea = 0;
    QStringList campos;
    QString defecto;  ///< not empty: the record breaks the rules of the form, in Spanish
};

class Lector {
 public:
    /// Reads the file; false with one Spanish sentence in `error` when it cannot be read, is not UTF-8 or has
    /// no header. The header's names are trimmed.
    bool abrir(const QString &archivo, QString &error);

    const QStringList &encabezado() const { return encabezado_; }
    QChar separador() const { return separador_; }
    /// How many lines the file has; a measure for progress only.
    qint64 lineas() const { return lineas_; }
    /// The next record; false at the end. Blank lines are passed over.
    bool siguiente(Registro &registro);

 private:
    bool leer(Registro &registro);

    QString texto_;
    qsizetype pos_ = 0;
    qint64 linea_ = 1;
    qint64 lineas_ = 0;
    QChar separador_ = QLatin1Char(',');
    QStringList encabezado_;
};

}  // namespace csv
