#pragma once
// The commands that change an armed operation as its screens do: one item, and the packages.

#include <QJsonObject>
#include <QString>

#include "operations/batchwork.h"

namespace lote {

/// `item CLAVE N`: kilos, information, advantages and concepts, then the fields of the page and their save,
/// in this order; then the liquidation, where a change asks for it, and the consistency report. The first
/// refusal ends it; what was done before stays, as on the screen. Answers the exit status. Raises Falla.
int CambiarItem(const Trabajo &t);
/// What is wrong with its changes, as one sentence; empty for nothing.
QString DefectoDeCambiosDeItem(const QJsonObject &cambios);

/// `bultos CLAVE`: what is not named stays as stored. Answers the exit status. Raises Falla.
int CambiarBultos(const Trabajo &t);
QString DefectoDeCambiosDeBultos(const QJsonObject &cambios);

}  // namespace lote
