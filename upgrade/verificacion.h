#pragma once
// A look through every store of a profile: the engine's own check, what should be there, and rows that hang
// from nothing.

#include <QString>
#include <QStringList>

namespace actualizacion {

struct Verificacion {
    bool ok = false;       ///< the look came to its end
    QString error;         ///< one Spanish sentence, when not ok
    QStringList tablas;    ///< "INTERNOS caratula: 120 filas"
    QStringList defectos;  ///< what was found wrong, a sentence each; empty: all is well
    QStringList restos;    ///< what operations left behind by design: no defect
};

/// Only reads. A store that is missing or cannot be opened ends the look with its sentence.
Verificacion Verificar(const QString &rutaDelPerfil);

}  // namespace actualizacion
