#pragma once
// Operations for whole runs: the regimes, the client and the concepts that a run asks the stores for.

#include "tests/assembly/operacion.h"

class ConCorridas : public Armado {
 protected:
    void SetUp() override;

    void subregimen(const QString &codigo, const QString &direccion);
    /// An operation of ten lines at 10, two items: five lines of Brazil and five of China.
    void operacion(const Fila &cambios = {}, const QString &interno = QStringLiteral("OP1"));
    /// The marks of the screen in their order: "> caption" running, "# caption" done.
    QStringList marcas() const;
    /// Every derived row of an operation.
    QString derivados(const QString &interno = QStringLiteral("OP1"));
    /// The armed mark of an operation.
    QString armada(const QString &interno = QStringLiteral("OP1"));
};
