#pragma once
// What the lists of the stock's screens share.

#include <QColor>
#include <QDate>
#include <optional>
#include <utility>
#include <vector>

#include "stock/stock.h"

class QTableView;

/// Red for a line that expired, amber for one that will soon, grey for one without a balance; none for the
/// others.
std::optional<QColor> ColorDeLinea(const stock::Linea &linea, const QDate &hoy);

/// Sets the columns' widths, in digits and never narrower than their headings; the elastic one takes what
/// is left.
void PonerAnchos(QTableView *vista, const std::vector<std::pair<int, int>> &letras, int elastica);
