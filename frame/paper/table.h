#pragma once
// A list as data: what is printed as a report leaves also as a spreadsheet and as text with separators.

#include <QString>
#include <QVariant>
#include <optional>
#include <vector>

#include "frame/paper/report.h"

namespace papel {

/// Cells of a column: texts, numbers (double), days (QDate, or QDateTime with its hour). Null ones are empty.
enum class Clase { Texto, Numero, Fecha };

struct Columna {
    QString titulo;
    Clase clase = Clase::Texto;
    int ancho = 10;        ///< in characters; a longer text is cut on paper, and whole in the files
    QString mascara = {};  ///< of a number: "00.00"; empty shows it plain
    bool suma = false;     ///< subtotals and the total tell its sum
};

/// A row of a list: cells, one a column; or the title of a group, which stands alone.
struct Fila {
    enum class Tipo { Dato, Grupo, Subtotal, Total };
    std::vector<QVariant> celdas;
    Tipo tipo = Tipo::Dato;
    QString rotulo = {};  ///< of a group, a subtotal or a total
};

struct Tabla {
    QString titulo;
    QString subtitulo;
    QString nombre;  ///< a file's name without its end, for whoever saves it
    Orientacion orientacion = Orientacion::Vertical;
    std::vector<Columna> columnas;
    std::vector<Fila> filas;
};

/// Puts a group's title ahead of its rows and its sums behind them, and a total at the end. Rows with the
/// same text in `porColumna` are a group, and have to stand together; -1 makes no groups, and a total alone
/// when a column is summed.
void Totalizar(Tabla &tabla, int porColumna = -1);

/// The list as lines of text, with its headings on every page. `separador` is the workstation's decimal one.
Reporte ReporteDe(const Tabla &tabla, QChar separador);

/// Writes a workbook: numbers and days as such, headings that stay in view, widths, sums. Empty when it was
/// written, else a sentence that says why not; a file that was there stays as it was then.
QString EscribirXlsx(const Tabla &tabla, const QString &archivo);
/// Writes UTF-8 text with a comma between cells, the headings first, rows of data alone; numbers with a
/// point, days as yyyy-MM-dd. A text that a spreadsheet would run ("=", "+", "-", "@" ahead) gets an
/// apostrophe. Empty when it was written, else a sentence that says why not.
QString EscribirCsv(const Tabla &tabla, const QString &archivo);

/// What is handed over to be seen, printed or saved.
struct Documento {
    Reporte reporte;
    std::optional<Tabla> tabla = {};  ///< the data of a list, which can also leave as XLSX and CSV
};

/// Writes a document as the end of the file's name says: ".pdf" and ".txt" for any, ".xlsx" and ".csv" for a
/// list. Empty when it was written, else a sentence that says why not.
QString Escribir(const Documento &documento, const QString &archivo, const AlAvanzar &alAvanzar = {});

}  // namespace papel
