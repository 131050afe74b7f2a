#pragma once
// A CSV file read whole: a header row, "," ";" or a tab between fields, quotes and line ends within quotes.
//
// Offices save these files with whatever is at hand, so the encoding is told and not refused: UTF-8 with or
// without a mark, UTF-16 with one, and a line that is not UTF-8 as Windows-1252.

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <vector>

namespace csv {

/// "línea 12: …": what a load says of one line of its file.
QString AvisoDeLinea(qint64 linea, const QString &texto);

/// One record and the line of the file on which it begins (the header is line 1).
struct Registro {
    qint64 linea = 0;
    QStringList campos;
    QString defecto;  ///< not empty: the record breaks the rules of the form, in Spanish
};

class Lector {
 public:
    /// Reads the file; false with one Spanish sentence in `error` when it cannot be read, is no text or has
    /// no header. The header's names are trimmed.
    bool abrir(const QString &archivo, QString &error);

    const QStringList &encabezado() const { return encabezado_; }
    QChar separador() const { return separador_; }
    /// How many lines the file has; a measure for progress only.
    qint64 lineas() const { return lineas_; }
    /// How many records siguienteFila has passed over so far.
    int descartadas() const { return descartadas_; }
    /// The next record; false at the end. Blank lines are passed over. Behind a record that breaks the rules
    /// the reader goes on with the line that follows its first, so that a quote left open costs one line.
    bool siguiente(Registro &registro);
    /// The next record that is a row, with as many fields as the header has; false at the end. Empty fields
    /// behind the last are none. What is passed over, and each line that is not UTF-8, is added to `avisos`.
    bool siguienteFila(Registro &registro, QStringList &avisos);

 private:
    /// A line that was read in another encoding.
    struct LineaAjena {
        qint64 linea = 0;
        bool entera = true;  ///< every byte of it is a character there
    };

    QString decodificar(QByteArrayView datos);
    void decodificarPorLineas(QByteArrayView datos);
    bool leer(Registro &registro);
    void seguirTrasSuPrimeraLinea(const Registro &registro);
    void avisarDeLasAjenas(QStringList &avisos);

    QString texto_;
    qsizetype pos_ = 0;
    qsizetype inicio_ = 0;  ///< of the record in hand
    qint64 linea_ = 1;
    qint64 lineas_ = 0;
    int descartadas_ = 0;
    QChar separador_ = QLatin1Char(',');
    QStringList encabezado_;
    std::vector<LineaAjena> ajenas_;
    std::size_t avisadas_ = 0;  ///< of `ajenas_`
};

}  // namespace csv
