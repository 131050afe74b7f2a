#pragma once

#include <vector>

#include "frame/paper/report.h"

namespace papel {

/// A text that was found: characters of a line of the report.
struct Hallazgo {
    std::size_t renglon = 0;
    qsizetype desde = 0;
    qsizetype letras = 0;
};

/// Where a text stands in the lines of a report, from the first to the last, whatever the case and the
/// accents of either. None for an empty text. What pages repeat is not looked through.
std::vector<Hallazgo> Buscar(const Reporte &reporte, const QString &texto);

/// The page that holds a line.
std::size_t HojaDe(const Paginado &paginado, std::size_t renglon);

}  // namespace papel
