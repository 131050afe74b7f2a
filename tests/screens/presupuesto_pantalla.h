#pragma once
// The quote of a demonstration operation, with duties of round amounts.

#include "outputs/FrmPresupuesto.h"
#include "tests/support/pantallas.h"

class EnElPresupuesto : public EnPantalla {
 protected:
    void SetUp() override;
    void TearDown() override;
    /// Opens the quote and calls `hacer` with it, which leaves it.
    void mostrar(const std::function<void(FrmPresupuesto &)> &hacer);
    std::string ultimo() const;
    QString documentos() const { return tienda->carpeta() + QStringLiteral("/casa/Documents/"); }

    QStringList abiertos;  ///< what the system was asked to open
    bool seAbren = true;

 private:
    QByteArray casaAntes_;
};
