#pragma once
// Looking the nomenclature up by position or by words (FrmConsultas).

#include <QString>
#include <vector>

struct AppContext;

/// A row of the result.
struct FilaDeConsulta {
    QString posicion;  ///< "8409.91.12.100G"
    QString texto;     ///< own description and first upper level; what joins them tells the kind of search
};

/// By the beginning of a position; a "," counts as a ".". An empty text is told. Raises Falla.
std::vector<FilaDeConsulta> ConsultarPorPosicion(AppContext &ctx, const QString &texto);

/// By a run of characters in the own description or in the first upper level, whatever the case. Fewer than 3
/// characters are told. Raises Falla.
std::vector<FilaDeConsulta> ConsultarPorPalabras(AppContext &ctx, const QString &texto);
