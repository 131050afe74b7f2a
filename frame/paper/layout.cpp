#include "frame/paper/layout.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace papel {

namespace {

// Points.
constexpr double letraDeRenglon = 10;
constexpr double letraMinima = 6;
constexpr double letraDeTitulo = 15;
constexpr double letraDeSubtitulo = 9.5;
constexpr double letraDeFicha = 9;
constexpr double letraDePie = 8;
constexpr double interlinea = 1.22;

// Millimetres. The wide margin is where sheets are filed: at the left of an upright one, on top of a lying
// one.
constexpr double margenDeArchivo = 18;
constexpr double margen = 12;

constexpr double separacion = 6;         ///< points between blocks
constexpr double entreColumnas = 18;     ///< points between the two halves of the record
constexpr double rotuloADato = 8;        ///< points between a label and its text
constexpr double anchoDelRotulo = 0.45;  ///< of its half, at most

double puntos(double cuantos) {
    return cuantos * unidadesPorPunto;
}

double altoDe(Uso uso, double letra = 0) {
    return FuenteDe(uso, letra).pixelSize() * (uso == Uso::Rotulo || uso == Uso::Dato ? 1.4 : 1.25);
}

double anchoDeTexto(const QString &texto, Uso uso) {
    return QFontMetricsF(FuenteDe(uso)).horizontalAdvance(texto);
}

/// A text in pieces that fit, cut at blanks where there are some.
QStringList enRenglones(const QString &texto, Uso uso, double ancho) {
    const QFontMetricsF medidas(FuenteDe(uso));
    QStringList piezas;
    QString resto = texto;
    while (medidas.horizontalAdvance(resto) > ancho && resto.size() > 1) {
        qsizetype hasta = 1;
        for (qsizetype largo = resto.size(), paso = largo; paso > 0; paso /= 2)
            while (hasta + paso <= largo && medidas.horizontalAdvance(resto.left(hasta + paso)) <= ancho)
                hasta += paso;
        const qsizetype blanco = resto.lastIndexOf(u' ', hasta);
        if (blanco > 0) hasta = blanco;
        piezas << resto.left(hasta);
        resto = resto.mid(hasta).trimmed();
    }
    return piezas << resto;
}

}  // namespace

QFont FuenteDe(Uso uso, double letra) {
    QFont fuente;
    double tamanio = letra;
    switch (uso) {
        case Uso::Titulo:
            tamanio = letraDeTitulo;
            break;
        case Uso::Subtitulo:
            tamanio = letraDeSubtitulo;
            break;
        case Uso::Rotulo:
        case Uso::Dato:
            tamanio = letraDeFicha;
            break;
        case Uso::Pie:
            tamanio = letraDePie;
            break;
        case Uso::Renglon:
        case Uso::RenglonNegrita:
            break;
    }
    if (uso == Uso::Renglon || uso == Uso::RenglonNegrita) {
        fuente.setFamilies({u"Courier New"_s, u"Liberation Mono"_s, u"DejaVu Sans Mono"_s});
        fuente.setStyleHint(QFont::Monospace);
        fuente.setKerning(false);
    } else {
        fuente.setFamilies({u"Arial"_s, u"Liberation Sans"_s, u"DejaVu Sans"_s});
        fuente.setStyleHint(QFont::SansSerif);
    }
    fuente.setBold(uso == Uso::Titulo || uso == Uso::RenglonNegrita);
    // The same widths at every scale.
    fuente.setHintingPreference(QFont::PreferNoHinting);
    fuente.setPixelSize(static_cast<int>(puntos(tamanio)));
    return fuente;
}

double AnchoDeLetra(double letra) {
    return QFontMetricsF(FuenteDe(Uso::Renglon, letra)).horizontalAdvance(u'0');
}

namespace {

QRectF areaUtil(const QSizeF &medida) {
    const bool acostada = medida.width() > medida.height();
    const double izquierda = acostada ? margen : margenDeArchivo;
    const double arriba = acostada ? margenDeArchivo : margen;
    return {izquierda * unidadesPorMilimetro, arriba * unidadesPorMilimetro,
            (medida.width() - izquierda - margen) * unidadesPorMilimetro,
            (medida.height() - arriba - margen) * unidadesPorMilimetro};
}

double anchoDeLosRotulos(const Reporte &reporte, double mitad) {
    double ancho = 0;
    for (const auto &[rotulo, dato] : reporte.ficha)
        ancho = std::max(ancho, anchoDeTexto(SinControles(rotulo), Uso::Rotulo));
    return std::min(ancho + puntos(rotuloADato), mitad * anchoDelRotulo);
}

/// Pairs fill a line from the left; one that is too long for its half has the line to itself.
std::vector<FilaDeFicha> filasDeFicha(const Reporte &reporte, double ancho, double anchoDeRotulo) {
    const double mitad = (ancho - puntos(entreColumnas)) / 2;
    std::vector<FilaDeFicha> filas;
    bool libre = false;  // the right half of the last line
    for (const auto &[rotuloEntero, datoEntero] : reporte.ficha) {
        const QString rotulo = Acortado(SinControles(rotuloEntero), Uso::Rotulo, anchoDeRotulo);
        const QString dato = SinControles(datoEntero);
        if (anchoDeTexto(dato, Uso::Dato) <= mitad - anchoDeRotulo) {
            if (libre)
                filas.back().derecha = {rotulo, dato};
            else
                filas.push_back({{rotulo, dato}, {}});
            libre = !libre;
            continue;
        }
        libre = false;
        QString delante = rotulo;
        const QStringList piezas = enRenglones(dato, Uso::Dato, ancho - anchoDeRotulo);
        for (const QString &pieza : piezas) {
            filas.push_back({{delante, pieza}, {}});
            delante.clear();
        }
    }
    return filas;
}

}  // namespace

double LetraDe(const Reporte &reporte, const QSizeF &medida) {
    qsizetype letras = 1;
    for (const QString &linea : reporte.encabezado) letras = std::max(letras, linea.size());
    for (const Renglon &renglon : reporte.renglones) letras = std::max(letras, renglon.texto.size());
    const double una = AnchoDeLetra(100) / 100;
    const double entra = areaUtil(medida).width() / (una * static_cast<double>(letras));
    // Whole units alone, downwards: what was measured is what is painted.
    const double entera = std::floor(entra * unidadesPorPunto) / unidadesPorPunto;
    return std::clamp(entera, letraMinima, letraDeRenglon);
}

Traza TrazaDe(const Reporte &reporte, const QSizeF &medida, double letra, bool primera) {
    Traza t;
    t.util = areaUtil(medida);
    double y = t.util.top();
    t.titulo = y;
    if (!reporte.titulo.isEmpty()) y += altoDe(Uso::Titulo);
    t.subtitulo = y;
    if (!reporte.subtitulo.isEmpty()) y += altoDe(Uso::Subtitulo);
    y += puntos(separacion) / 2;
    t.regla = y;
    y += puntos(separacion);
    t.ficha = y;
    t.altoDeFicha = altoDe(Uso::Dato);
    t.reglaDeFicha = -1;
    if (primera && !reporte.ficha.empty()) {
        t.anchoDeRotulo = anchoDeLosRotulos(reporte, (t.util.width() - puntos(entreColumnas)) / 2);
        t.filas = filasDeFicha(reporte, t.util.width(), t.anchoDeRotulo);
        y += t.altoDeFicha * static_cast<double>(t.filas.size()) + puntos(separacion) / 2;
        t.reglaDeFicha = y;
        y += puntos(separacion);
    }
    t.altoDeRenglon = puntos(letra) * interlinea;
    t.encabezado = y;
    y += t.altoDeRenglon * static_cast<double>(reporte.encabezado.size());
    t.renglones = y;
    t.pie = t.util.bottom() - altoDe(Uso::Pie) - puntos(separacion) / 2;
    t.fin = t.pie - puntos(separacion) / 2;
    return t;
}

QString SinControles(QString texto) {
    for (QChar &letra : texto)
        if (letra < u' ' || letra == QChar::LineSeparator || letra == QChar::ParagraphSeparator ||
            (letra >= QChar(0x7f) && letra <= QChar(0x9f)) || letra >= QChar(0xfffe))
            letra = u' ';
    return texto;
}

QString Acortado(const QString &texto, Uso uso, double ancho) {
    return QFontMetricsF(FuenteDe(uso)).elidedText(SinControles(texto), Qt::ElideRight, ancho);
}

QString TextoDeHojas(std::size_t hoja, std::size_t hojas) {
    return u"Hoja %1 de %2"_s.arg(hoja + 1).arg(hojas);
}

QString PieDe(const Reporte &reporte, const Paginado &paginado, std::size_t hoja) {
    const double ancho = areaUtil(paginado.medida).width() - puntos(entreColumnas) -
                         anchoDeTexto(TextoDeHojas(hoja, paginado.hojas.size()), Uso::Pie);
    return Acortado(reporte.pie, Uso::Pie, ancho);
}

double ColumnaDerecha(const Traza &traza) {
    return traza.util.left() + (traza.util.width() + puntos(entreColumnas)) / 2;
}

}  // namespace papel
