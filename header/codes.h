#pragma once
// Code tables: the description behind a code, and whether a code exists.

#include <QString>

struct AppContext;

/// The description of `codigo` in the table of `clave` (SUBREG, ADUANA, PAIS, DIVISAS …), or the empty text.
/// `aux` goes in ("Div" asks for the rate) and out: the regime's direction for SUBREG, the rate "00.000000"
/// for a currency. A missing code is told with a warning unless `silencio` is 1. An empty key or code, and a
/// key without a table, send nothing. A store error gives the empty text.
QString BuscarDescripcion(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux,
                          int silencio = 0);
/// The same for the code itself, as stored. Reads SUBREG and ADUANA through another entity, and BANCOS too. A
/// port (PUERTO) is never answered.
QString BuscarId(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux,
                 int silencio = 0);

/// Descriptions for labels: never a message.
QString getAduanaDescripcion(AppContext &ctx, const QString &codigo);
QString getPaisDescripcion(AppContext &ctx, const QString &codigo);
QString getEstadoMercaderiaDescripcion(AppContext &ctx, const QString &codigo);
QString getUnidadDescripcion(AppContext &ctx, const QString &codigo);
QString getSubRegimen(AppContext &ctx, const QString &codigo);
