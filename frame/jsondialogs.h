#pragma once
// The seam to the user of a program without a screen: what would have been shown is a line of JSON, what
// would have been answered comes from a list.

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>

#include "frame/dialogs.h"

/// Hears one line, without its end.
using SalidaDeLineas = std::function<void(const QString &)>;

/// One object as one compact line.
QString LineaJson(const QJsonObject &objeto);

/// Dialogs that write every message, question, input box and report to `salida`, and take `respuestas` in
/// order: "Si" or "No" (in any case), what would be typed, "P" or "R" for the automotive question. Behind the
/// last answer: No, and the empty text.
Dialogos DialogosJson(SalidaDeLineas salida, const QStringList &respuestas);
