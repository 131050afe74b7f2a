#pragma once

#include <QString>

struct AppContext;

/// Asks whether the common external tariff is to be calculated for the automotive regime, and for which use
/// of the part; keeps the answer of the operation in the settings area (application ZENDRA, section AEC): "R"
/// replacement, "P" production, "N" no. Answers what it stored.
QString PreguntarRegimenAutomotriz(AppContext &ctx, const QString &interno);

/// The stored answer of the operation, or `defecto`.
QString LeerAEC(AppContext &ctx, const QString &interno, const QString &defecto = {});
void GuardarAEC(AppContext &ctx, const QString &interno, const QString &valor);
