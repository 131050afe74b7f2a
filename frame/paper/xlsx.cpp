#include <xlsxwriter.h>

#include <QFile>
#include <QIODevice>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdint>
#include <map>

#include "frame/base/texts.h"
#include "frame/paper/cells.h"
#include "frame/paper/layout.h"
#include "frame/paper/replace.h"

using namespace Qt::StringLiterals;

namespace papel {

namespace {

constexpr qsizetype letrasPorCelda = 32767;  ///< a cell holds no more
constexpr std::size_t filasPorHoja = 1048576;
constexpr int anchoMaximoDeColumna = 60;  ///< characters; longer texts are seen in the cell in hand
constexpr qsizetype letrasDeHoja = 31;
constexpr qsizetype letrasDeCabecera = 255;
constexpr int anioMinimo = 1900;
constexpr lxw_color_t fondoDeTitulos = 0xE3EAEA;
constexpr std::uint8_t papelA4 = 9;

/// The name of the sheet: without the marks that a spreadsheet refuses.
QString nombreDeHoja(const Tabla &tabla) {
    QString nombre = SinControles(tabla.titulo);
    for (QChar &letra : nombre)
        if (u"[]:*?/\\'"_s.contains(letra)) letra = u' ';
    nombre = Recortado(nombre.simplified(), letrasDeHoja).trimmed();
    return nombre.isEmpty() ? u"Lista"_s : nombre;
}

/// The head of the printed sheets; "&" begins a command there.
QString cabecera(const Tabla &tabla) {
    QString titulo = SinControles(tabla.titulo).replace(u'&', u"&&"_s);
    QString subtitulo = SinControles(tabla.subtitulo).replace(u'&', u"&&"_s);
    const QString entera = u"&L&\"Arial,Bold\"&14"_s + titulo + u"&R&\"Arial,Regular\"&9 "_s + subtitulo;
    return entera.size() < letrasDeCabecera ? entera : Recortado(entera, letrasDeCabecera - 1);
}

/// The letters that fit in a cell. The library writes control characters by their codes; what XML has no way
/// to say at all gets a mark in its place.
QString textoDeCelda(const QString &texto) {
    QString cabe = Recortado(texto, letrasPorCelda);
    for (QChar &letra : cabe)
        if (letra == QChar(0xFFFE) || letra == QChar(0xFFFF)) letra = QChar(QChar::ReplacementCharacter);
    return cabe;
}

/// One workbook of one sheet. Texts are always written as texts, whatever they begin with.
class Libro {
 public:
    Libro(const Tabla &tabla, const QString &archivo)
        : tabla_(tabla), libro_(workbook_new(QFile::encodeName(archivo).constData())) {}
    ~Libro() {
        if (libro_ != nullptr) workbook_close(libro_);
    }
    Libro(const Libro &) = delete;
    Libro &operator=(const Libro &) = delete;

    /// Empty when it was written, else why not.
    QString Escribir();

 private:
    lxw_format *formato(const QString &numero, bool negrita, bool conRaya);
    lxw_format *formatoDe(std::size_t columna, const Fila &fila);
    void prepararHoja();
    void escribirTitulos();
    void escribirFila(lxw_row_t fila, const Fila &una);
    void escribirCelda(lxw_row_t fila, std::size_t columna, const Fila &una);
    void escribirTexto(lxw_row_t fila, std::size_t columna, const QString &texto, lxw_format *como);
    void escribirSuma(lxw_row_t fila, std::size_t columna, const Fila &una, double valor);
    void ensanchar(std::size_t columna, qsizetype letras);

    const Tabla &tabla_;
    lxw_workbook *libro_;
    lxw_worksheet *hoja_ = nullptr;
    std::map<std::tuple<QString, bool, bool>, lxw_format *> formatos_;
    std::vector<int> anchos_;
    lxw_row_t principioDeGrupo_ = 1;
};

lxw_format *Libro::formato(const QString &numero, bool negrita, bool conRaya) {
    lxw_format *&uno = formatos_[{numero, negrita, conRaya}];
    if (uno == nullptr) {
        uno = workbook_add_format(libro_);
        if (!numero.isEmpty()) format_set_num_format(uno, numero.toUtf8().constData());
        if (negrita) format_set_bold(uno);
        if (conRaya) format_set_top(uno, LXW_BORDER_THIN);
    }
    return uno;
}

lxw_format *Libro::formatoDe(std::size_t columna, const Fila &fila) {
    const Columna &c = tabla_.columnas[columna];
    const bool deSumas = fila.tipo == Fila::Tipo::Subtotal || fila.tipo == Fila::Tipo::Total;
    const QString numero = c.clase == Clase::Numero           ? c.mascara
                           : c.clase != Clase::Fecha          ? QString()
                           : MomentoDe(tabla_, fila, columna) ? u"dd/mm/yyyy hh:mm:ss"_s
                                                              : u"dd/mm/yyyy"_s;
    if (numero.isEmpty() && fila.tipo == Fila::Tipo::Dato) return nullptr;
    return formato(numero, fila.tipo != Fila::Tipo::Dato, deSumas);
}

void Libro::ensanchar(std::size_t columna, qsizetype letras) {
    anchos_[columna] =
        std::max(anchos_[columna], static_cast<int>(std::min<qsizetype>(letras, anchoMaximoDeColumna)));
}

void Libro::escribirTexto(lxw_row_t fila, std::size_t columna, const QString &texto, lxw_format *como) {
    if (texto.isEmpty()) {
        if (como != nullptr) worksheet_write_blank(hoja_, fila, static_cast<lxw_col_t>(columna), como);
        return;
    }
    worksheet_write_string(hoja_, fila, static_cast<lxw_col_t>(columna),
                           textoDeCelda(texto).toUtf8().constData(), como);
}

/// A sum is a formula with its value: SUBTOTAL leaves out other sums and the rows that a filter hides, so
/// what is seen is what is added.
void Libro::escribirSuma(lxw_row_t fila, std::size_t columna, const Fila &una, double valor) {
    const auto c = static_cast<lxw_col_t>(columna);
    const lxw_row_t desde = una.tipo == Fila::Tipo::Total ? 1 : principioDeGrupo_;
    char principio[LXW_MAX_CELL_NAME_LENGTH];
    char fin[LXW_MAX_CELL_NAME_LENGTH];
    lxw_rowcol_to_cell(principio, desde, c);
    lxw_rowcol_to_cell(fin, std::max(desde, fila - 1), c);
    const QString formula = u"=SUBTOTAL(9,%1:%2)"_s.arg(QLatin1StringView(principio), QLatin1StringView(fin));
    worksheet_write_formula_num(hoja_, fila, c, formula.toUtf8().constData(), formatoDe(columna, una), valor);
}

void Libro::escribirCelda(lxw_row_t fila, std::size_t columna, const Fila &una) {
    const auto c = static_cast<lxw_col_t>(columna);
    lxw_format *como = formatoDe(columna, una);
    ensanchar(columna, TextoDeCelda(tabla_, una, columna, u',').size());
    if (const auto numero = NumeroDe(tabla_, una, columna)) {
        if (una.tipo != Fila::Tipo::Dato && fila > 1)
            escribirSuma(fila, columna, una, *numero);
        else
            worksheet_write_number(hoja_, fila, c, *numero, como);
        return;
    }
    if (const auto dia = DiaDe(tabla_, una, columna); dia && dia->year() >= anioMinimo) {
        const QTime hora = MomentoDe(tabla_, una, columna).value_or(QDateTime()).time();
        lxw_datetime momento = {dia->year(), dia->month(), dia->day(), 0, 0, 0};
        if (hora.isValid()) {
            momento.hour = hora.hour();
            momento.min = hora.minute();
            momento.sec = hora.second();
        }
        worksheet_write_datetime(hoja_, fila, c, &momento, como);
        return;
    }
    escribirTexto(fila, columna, TextoDeCelda(tabla_, una, columna, u','), como);
}

void Libro::escribirFila(lxw_row_t fila, const Fila &una) {
    for (std::size_t c = 0; c < tabla_.columnas.size(); ++c) escribirCelda(fila, c, una);
    if (una.tipo == Fila::Tipo::Dato) return;
    if (una.tipo == Fila::Tipo::Grupo) principioDeGrupo_ = fila + 1;
    const bool libre = !tabla_.columnas.empty() && !NumeroDe(tabla_, una, 0);
    if (libre)
        escribirTexto(fila, 0, SinControles(una.rotulo), formato({}, true, una.tipo != Fila::Tipo::Grupo));
}

void Libro::escribirTitulos() {
    for (std::size_t c = 0; c < tabla_.columnas.size(); ++c) {
        const Columna &columna = tabla_.columnas[c];
        // Room for the arrow of the filter.
        ensanchar(c, columna.titulo.size() + 2);
        lxw_format *como = workbook_add_format(libro_);
        format_set_bold(como);
        format_set_bg_color(como, fondoDeTitulos);
        format_set_bottom(como, LXW_BORDER_THIN);
        if (columna.clase == Clase::Numero) format_set_align(como, LXW_ALIGN_RIGHT);
        escribirTexto(0, c, SinControles(columna.titulo), como);
    }
}

void Libro::prepararHoja() {
    const auto ultima = static_cast<lxw_col_t>(std::max<std::size_t>(tabla_.columnas.size(), 1) - 1);
    worksheet_freeze_panes(hoja_, 1, 0);
    worksheet_repeat_rows(hoja_, 0, 0);
    worksheet_set_paper(hoja_, papelA4);
    if (tabla_.orientacion == Orientacion::Horizontal) worksheet_set_landscape(hoja_);
    worksheet_fit_to_pages(hoja_, 1, 0);
    worksheet_set_header(hoja_, cabecera(tabla_).toUtf8().constData());
    worksheet_set_footer(hoja_, "&RHoja &P de &N");
    for (std::size_t c = 0; c < anchos_.size(); ++c)
        worksheet_set_column(hoja_, static_cast<lxw_col_t>(c), static_cast<lxw_col_t>(c), anchos_[c] + 1.5,
                             nullptr);
    // The total stays outside of the filter, which would hide it.
    std::size_t filtradas = tabla_.filas.size();
    if (filtradas > 0 && tabla_.filas.back().tipo == Fila::Tipo::Total) --filtradas;
    if (filtradas > 0) worksheet_autofilter(hoja_, 0, 0, static_cast<lxw_row_t>(filtradas), ultima);
}

QString Libro::Escribir() {
    if (libro_ == nullptr) return u"no hay memoria para la planilla; cierre otros programas"_s;
    const QByteArray titulo = SinControles(tabla_.titulo).toUtf8();
    const QByteArray asunto = SinControles(tabla_.subtitulo).toUtf8();
    lxw_doc_properties propiedades = {};
    propiedades.title = const_cast<char *>(titulo.constData());
    propiedades.subject = const_cast<char *>(asunto.constData());
    workbook_set_properties(libro_, &propiedades);
    hoja_ = workbook_add_worksheet(libro_, nombreDeHoja(tabla_).toUtf8().constData());
    if (hoja_ == nullptr) hoja_ = workbook_add_worksheet(libro_, nullptr);
    for (const Columna &columna : tabla_.columnas)
        anchos_.push_back(std::clamp(columna.ancho, 1, anchoMaximoDeColumna));
    escribirTitulos();
    lxw_row_t fila = 1;
    for (const Fila &una : tabla_.filas) escribirFila(fila++, una);
    prepararHoja();
    const lxw_error error = workbook_close(libro_);
    libro_ = nullptr;
    if (error == LXW_NO_ERROR) return {};
    return u"no se pudo armar la planilla (%1); revise el espacio en disco"_s.arg(
        QString::fromUtf8(lxw_strerror(error)));
}

}  // namespace

QString EscribirXlsx(const Tabla &tabla, const QString &archivo) {
    return ReemplazarArchivo(archivo, [&](QIODevice &destino) -> QString {
        if (tabla.filas.size() >= filasPorHoja)
            return u"una planilla no admite más de %1 filas; elija menos o guarde como CSV"_s.arg(
                filasPorHoja - 1);
        // The library writes to a name of its own.
        const QTemporaryDir aparte;
        const QString borrador = aparte.filePath(u"lista.xlsx"_s);
        if (QString porque = Libro(tabla, borrador).Escribir(); !porque.isEmpty()) return porque;
        QFile hecho(borrador);
        if (!hecho.open(QIODevice::ReadOnly))
            return u"no se pudo leer la planilla armada; revise el espacio en disco"_s;
        destino.write(hecho.readAll());
        return {};
    });
}

}  // namespace papel
