#pragma once
// Operations for the tests of the assembly, written row by row.

#include <map>
#include <vector>

#include "assembly/phases.h"
#include "assembly/run.h"
#include "tests/support/tienda.h"

/// Column to SQL literal: {"fob", "12.5"}, {"idpais", "'203'"}, {"sufijos", "null"}.
using Fila = std::map<QString, QString>;

/// A position that stands in the nomenclature and demands no suffix.
inline const QString posicionSinSufijos = QStringLiteral("8409.91.12.100G");

class Armado : public EnAmbosStores {
 protected:
    void SetUp() override;

    void insertar(const QString &tabla, const Fila &fila,
                  const QString &entidad = QStringLiteral("INTERNOS"));
    /// A header: an IC04 of client 30, FOB 100, nothing to spread.
    void caratula(const Fila &cambios = {}, const QString &interno = QStringLiteral("OP1"));
    /// A complete line: one unit "07" of the position without suffixes at 10.
    void linea(const Fila &cambios = {}, const QString &interno = QStringLiteral("OP1"));
    /// A position of the nomenclature with its three keys; `columnas` adds others, by number.
    void posicion(const QString &texto, const Fila &columnas = {});
    void sufijo(const QString &sim, const QString &codigo);

    /// A run's context after the header was read.
    ContextoArmado corrida(const OpcionesDeArmado &opciones = {},
                           const QString &interno = QStringLiteral("OP1"));
    /// The whole run, with the result text set as the dashboard does.
    bool generar(const OpcionesDeArmado &opciones = {}, const QString &interno = QStringLiteral("OP1"));
    /// Normalised and grouped lines, as the spread finds them.
    void agrupar(ContextoArmado &r);

    bool esSQL() const { return QLatin1String(GetParam()) == QLatin1String("SQL"); }
    /// The ids of the lines of an operation, in order.
    std::vector<qint64> ids(const QString &interno = QStringLiteral("OP1"));
};

/// So that a failing comparison shows its texts.
inline void PrintTo(const QString &texto, std::ostream *salida) {
    *salida << '"' << texto.toStdString() << '"';
}
