#include <algorithm>

#include "frame/paper/cells.h"
#include "frame/paper/layout.h"

using namespace Qt::StringLiterals;

namespace papel {

namespace {

constexpr int entreCeldas = 2;  ///< blanks

/// A text in its width: one that is longer ends in an ellipsis.
QString enAncho(const QString &texto, int ancho) {
    return texto.size() > ancho ? texto.left(std::max(0, ancho - 1)) + u'…' : texto;
}

QString ajustada(const QString &texto, int ancho, bool aDerecha) {
    const QString entra = enAncho(texto, ancho);
    return aDerecha ? entra.rightJustified(ancho) : entra.leftJustified(ancho);
}

/// A list laid out in characters.
class Lineas {
 public:
    Lineas(const Tabla &tabla, QChar separador) : tabla_(tabla), separador_(separador) {
        for (std::size_t c = 0; c < tabla.columnas.size(); ++c) anchos_.push_back(anchoDe(c));
    }

    QStringList encabezado() const {
        return {fila([this](std::size_t c) { return tabla_.columnas[c].titulo; }),
                fila([this](std::size_t c) { return QString(anchos_[c], u'─'); })};
    }
    QString datos(const Fila &una) const {
        return fila([&](std::size_t c) { return TextoDeCelda(tabla_, una, c, separador_); });
    }
    /// A rule over each sum, and the sums with their name at the left.
    QString regla(QChar trazo) const {
        return fila(
            [&](std::size_t c) { return tabla_.columnas[c].suma ? QString(anchos_[c], trazo) : QString(); });
    }
    QString sumas(const Fila &una) const {
        const QString linea = datos(una);
        return entraElRotulo(una) ? SinControles(una.rotulo) + linea.mid(una.rotulo.size()) : linea;
    }
    /// Whether the name of the sums has room ahead of them.
    bool entraElRotulo(const Fila &una) const {
        qsizetype lugar = 0;
        for (std::size_t c = 0; c < tabla_.columnas.size() && !tabla_.columnas[c].suma; ++c)
            lugar += anchos_[c] + entreCeldas;
        return una.rotulo.size() <= lugar - entreCeldas;
    }

 private:
    /// A number or a day is never cut: its column is as wide as the widest of them.
    int anchoDe(std::size_t c) const {
        const Columna &columna = tabla_.columnas[c];
        qsizetype ancho = std::max<qsizetype>(columna.ancho, 1);
        if (columna.clase != Clase::Texto) {
            ancho = std::max(ancho, columna.titulo.size());
            for (const Fila &una : tabla_.filas)
                ancho = std::max(ancho, TextoDeCelda(tabla_, una, c, separador_).size());
        }
        return static_cast<int>(ancho);
    }
    template <class Celda>
    QString fila(Celda celda) const {
        QString linea;
        for (std::size_t c = 0; c < tabla_.columnas.size(); ++c) {
            if (c > 0) linea += QString(entreCeldas, u' ');
            linea += ajustada(celda(c), anchos_[c], tabla_.columnas[c].clase == Clase::Numero);
        }
        return linea;
    }

    const Tabla &tabla_;
    QChar separador_;
    std::vector<int> anchos_;
};

QString sinFinal(QString linea) {
    while (linea.endsWith(u' ')) linea.chop(1);
    return linea;
}

}  // namespace

Reporte ReporteDe(const Tabla &tabla, QChar separador) {
    Reporte r;
    r.titulo = tabla.titulo;
    r.subtitulo = tabla.subtitulo;
    r.nombre = tabla.nombre;
    r.orientacion = tabla.orientacion;
    const Lineas lineas(tabla, separador);
    r.encabezado = lineas.encabezado();
    for (const Fila &fila : tabla.filas) {
        switch (fila.tipo) {
            case Fila::Tipo::Dato:
                r.renglones.push_back({sinFinal(lineas.datos(fila))});
                break;
            case Fila::Tipo::Grupo:
                if (!r.renglones.empty()) r.renglones.push_back({QString(), false, false, true});
                r.renglones.push_back({SinControles(fila.rotulo), true, false, true});
                break;
            case Fila::Tipo::Subtotal:
            case Fila::Tipo::Total: {
                const bool total = fila.tipo == Fila::Tipo::Total;
                // A sum is never parted from the last row that it adds.
                if (!r.renglones.empty()) r.renglones.back().conElSiguiente = true;
                r.renglones.push_back({sinFinal(lineas.regla(total ? u'═' : u'─')), false, false, true});
                if (!lineas.entraElRotulo(fila))
                    r.renglones.push_back({SinControles(fila.rotulo), true, false, true});
                r.renglones.push_back({sinFinal(lineas.sumas(fila)), true});
                break;
            }
        }
    }
    return r;
}

}  // namespace papel
