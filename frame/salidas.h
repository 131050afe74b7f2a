#pragma once
// What leaves the office on paper, for the screens that stand below those that make it.

#include <QString>
#include <functional>

/// Installed by the desktop; the button of one that is missing says that it is not there.
struct Salidas {
    /// The screen of the sheet of an operation; `item` is the one to start from.
    std::function<void(const QString &interno, const QString &item)> hoja;
    /// The lists of the lines of an operation, and that of a catalogue of articles unless `catalogo` is
    /// empty: a pick of them, and the one picked in preview.
    std::function<void(const QString &interno, const QString &catalogo)> lineas;
    /// The list of the articles of a catalogue, in preview.
    std::function<void(const QString &catalogo)> catalogo;
    /// The list of the packages and the transport of an operation, in preview.
    std::function<void(const QString &interno)> bultos;
};
