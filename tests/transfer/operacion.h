#pragma once
// A small operation whose every figure agrees, on the store of the test.

#include "outputs/declarationxml.h"
#include "outputs/transfer.h"
#include "tests/support/tienda.h"

/// Operation A1: an import of two items and three subitems, armed, settled and packed.
///
/// FOB 100 = 60 (25.50 + 34.50) + 40; freight 10 = 6 + 4; insurance 1 = 0.60 + 0.40. Duty of 10 % on the
/// bases 66.60 and 44.40: 6.66 + 4.44 = 11.10.
class OperacionParaEnviar : public EnAmbosStores {
 protected:
    void SetUp() override;
    /// What looking it over says, a line each: "item|sentence".
    QStringList advertencias();
    QByteArray documento() { return DocumentoDe(LeerDeclaracion(*ctx, QStringLiteral("A1"))); }
    QString carpeta(const QString &nombre) const { return tienda->carpeta() + u'/' + nombre; }
};

/// The bytes of a file; "<nada>" when it is not there.
QByteArray BytesDe(const QString &archivo);
