#pragma once
// The demonstration's temporary import in an empty stock, and an export of its client, with the real link
// plugged in.

#include <optional>

#include "stock/link.h"
#include "stock/load.h"
#include "subitems/lines.h"
#include "tests/stock/existencias.h"

inline const QString importacionTemporal = QStringLiteral("IT-2026-0003");

class Ensayo : public Existencias {
 protected:
    void SetUp() override;
    void TearDown() override;
    bool conDemostracion() const override { return true; }

    /// Arms and loads the import: declaration 26001IT01000123T, expires in 200 days, no waste.
    void cargar();
    bool armar(const QString &interno);
    /// Chooses an article of the link's list and saves a line of the export with it.
    Grabacion grabarLinea(const QString &articulo, double cantidad,
                          const std::vector<stock::Parte> &partes = {});
    /// Types a line without the list and saves it.
    Grabacion teclearLinea(const QString &articulo, double cantidad);
    qint64 stockDe(const QString &articulo);

    SubItems s;
    std::optional<stock::Elegido> eleccion;  ///< what the screen of taking answers
    QStringList pedidas;                     ///< operations that it was opened for
};
