#pragma once
// An operation with a few positions, ready for the entry of lines.

#include "subitems/lines.h"
#include "tests/support/tienda.h"

class Lineas : public EnAmbosStores {
 protected:
    void SetUp() override;
    void TearDown() override;

    /// The header's regime; the screen is opened again.
    void abrirCon(const QString &regimen);
    /// A line that passes every check: 24 pumps (position of units, suffixes AA and AB) at 10.5, FOB 252.
    void llenarBomba();
    /// A line on the position measured in kilograms, without suffixes: 5 packets at 20, FOB 100, 40 kilos
    /// net.
    void llenarPlastico();
    /// Saves the line in hand; its text is in `grabacion`.
    bool grabar();
    std::string ultimoMensaje() const;
    /// Columns of the only line, or of the line `id`.
    std::string linea(const QString &columnas, qint64 id = 0);
    int cuantas();

    SubItems s;
    Grabacion grabacion;
    const QString interno = QStringLiteral("OP 1");
};

/// Positions of the fixture.
inline const QString posBomba = QStringLiteral("8413.70.10.100L");  ///< unit 07, no specific duty, LAPI
inline const QString posVino = QStringLiteral("2204.21.00.100X");   ///< unit 05, specific duty in kilograms
inline const QString posPlastico = QStringLiteral("3901.10.10.000A");   ///< unit 01, no suffixes
inline const QString posSinUnidad = QStringLiteral("9999.00.00.000Z");  ///< no statistical unit
