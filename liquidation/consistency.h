#pragma once
// The consistency report: do the countries of lines, groups, items and header still agree?

#include <QString>

#include "frame/context.h"

/// The report text; `hayDiferencias` is set by findings of every item but the last, by design.
QString GenerarReporte(AppContext &ctx, const QString &interno, bool &hayDiferencias);
/// Shows the report when there are differences, and answers true then.
bool ComprobarInterno(AppContext &ctx, const QString &interno);
