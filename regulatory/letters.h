#pragma once
// The licence letter of a position and its text.

#include <QString>
#include <functional>

/// The two texts that the library of line reports tells of a position, where it is installed.
struct LetrasDelNcm {
    std::function<QString(const QString &posicion)> letra;
    std::function<QString(const QString &letra)> descripcion;
};
