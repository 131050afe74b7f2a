#include <algorithm>
#include <cmath>

#include "frame/paper/cells.h"

using namespace Qt::StringLiterals;

namespace papel {

namespace {

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

}  // namespace

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

}  // namespace papel
