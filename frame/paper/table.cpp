#include "frame/paper/table.h"

#include <QDate>
#include <algorithm>
#include <cmath>

#include "frame/base/numbers.h"
#include "frame/paper/cells.h"
#include "frame/paper/layout.h"

using namespace Qt::StringLiterals;

namespace papel {

namespace {

constexpr int entreCeldas = 2;  ///< blanks

/// A sum that does not lose cents to the order of its rows.
struct Suma {
    double total = 0;
    double resto = 0;

    void agregar(double valor) {
        const double nuevo = total + valor;
        resto += std::abs(total) >= std::abs(valor) ? (total - nuevo) + valor : (valor - nuevo) + total;
        total = nuevo;
    }
    double valor() const { return total + resto; }
};
using Sumas = std::vector<Suma>;

void sumarFila(Sumas &sumas, const Tabla &tabla, const Fila &fila) {
    for (std::size_t c = 0; c < tabla.columnas.size(); ++c)
        if (tabla.columnas[c].suma)
            if (const auto numero = NumeroDe(tabla, fila, c)) sumas[c].agregar(*numero);
}

Fila filaDeSumas(const Sumas &sumas, const Tabla &tabla, Fila::Tipo tipo, const QString &rotulo) {
    Fila fila{std::vector<QVariant>(tabla.columnas.size()), tipo, rotulo};
    for (std::size_t c = 0; c < tabla.columnas.size(); ++c)
        if (tabla.columnas[c].suma) fila.celdas[c] = sumas[c].valor();
    return fila;
}

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
        QString linea = datos(una);
        // The name takes the place that the cells ahead of the first sum leave; without place it stands
        // alone.
        const int lugar = lugarDelRotulo();
        return enAncho(una.rotulo, lugar).leftJustified(lugar) + linea.mid(lugar);
    }
    int lugarDelRotulo() const {
        int lugar = 0;
        for (std::size_t c = 0; c < tabla_.columnas.size() && !tabla_.columnas[c].suma; ++c)
            lugar += anchos_[c] + entreCeldas;
        return std::max(0, lugar - entreCeldas);
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

std::optional<double> NumeroDe(const Tabla &tabla, const Fila &fila, std::size_t columna) {
    if (columna >= fila.celdas.size() || tabla.columnas[columna].clase != Clase::Numero) return {};
    const QVariant &celda = fila.celdas[columna];
    if (celda.isNull()) return {};
    if (celda.typeId() == QMetaType::QString) {
        const QString texto = celda.toString();
        if (!numeros::esNumerico(texto)) return {};
        return numeros::aNumero(texto);
    }
    bool esNumero = false;
    const double numero = celda.toDouble(&esNumero);
    if (!esNumero || !std::isfinite(numero)) return {};
    return numero;
}

std::optional<QDate> DiaDe(const Tabla &tabla, const Fila &fila, std::size_t columna) {
    if (columna >= fila.celdas.size() || tabla.columnas[columna].clase != Clase::Fecha) return {};
    const QDate dia = fila.celdas[columna].toDate();
    return dia.isValid() ? std::optional(dia) : std::nullopt;
}

QString TextoDeCelda(const Tabla &tabla, const Fila &fila, std::size_t columna, QChar separador) {
    if (const auto numero = NumeroDe(tabla, fila, columna)) {
        const QString &mascara = tabla.columnas[columna].mascara;
        return mascara.isEmpty() ? numeros::aTexto(*numero).replace(u'.', separador)
                                 : numeros::Format(*numero, mascara, separador);
    }
    if (const auto dia = DiaDe(tabla, fila, columna)) return dia->toString(u"dd/MM/yyyy"_s);
    return LibreDe(fila, columna);
}

QString LibreDe(const Fila &fila, std::size_t columna) {
    if (columna >= fila.celdas.size() || fila.celdas[columna].isNull()) return {};
    const QVariant &celda = fila.celdas[columna];
    if (celda.typeId() == QMetaType::Double) return numeros::aTexto(celda.toDouble());
    return SinControles(celda.toString());
}

void Totalizar(Tabla &tabla, int porColumna) {
    const bool haySumas = std::any_of(tabla.columnas.begin(), tabla.columnas.end(),
                                      [](const Columna &columna) { return columna.suma; });
    const auto cual = static_cast<std::size_t>(porColumna);
    std::vector<Fila> filas;
    Sumas total(tabla.columnas.size());
    Sumas delGrupo(tabla.columnas.size());
    std::optional<QString> grupo;
    const auto cerrarGrupo = [&] {
        if (grupo && haySumas)
            filas.push_back(filaDeSumas(delGrupo, tabla, Fila::Tipo::Subtotal, u"Subtotal "_s + *grupo));
        delGrupo.assign(tabla.columnas.size(), {});
    };
    for (Fila &fila : tabla.filas) {
        if (porColumna >= 0) {
            QString suyo = TextoDeCelda(tabla, fila, cual, u',');
            if (suyo.isEmpty()) suyo = u"(sin dato)"_s;
            if (grupo != suyo) {
                cerrarGrupo();
                grupo = suyo;
                filas.push_back({{}, Fila::Tipo::Grupo, tabla.columnas.at(cual).titulo + u' ' + suyo});
            }
        }
        sumarFila(delGrupo, tabla, fila);
        sumarFila(total, tabla, fila);
        filas.push_back(std::move(fila));
    }
    cerrarGrupo();
    if (haySumas) filas.push_back(filaDeSumas(total, tabla, Fila::Tipo::Total, u"Total"_s));
    tabla.filas = std::move(filas);
}

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
                if (lineas.lugarDelRotulo() == 0)
                    r.renglones.push_back({SinControles(fila.rotulo), true, false, true});
                r.renglones.push_back({sinFinal(lineas.sumas(fila)), true});
                break;
            }
        }
    }
    return r;
}

}  // namespace papel
