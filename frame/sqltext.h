#pragma once
// Numbers as the statements of the assembly and of the liquidation spell them.

#include <QString>

struct AppContext;

/// AStoreNumero with the decimal separator of the entity INTERNOS: the form of every number in the assembly
/// and in the liquidation. A double is written with up to 15 significant digits.
QString SqlNumber(const AppContext &ctx, double valor);
QString SqlNumber(const AppContext &ctx, const QString &valor);

/// The store-side rounding of `expresion` to as many decimals as `mascara` has behind its "." ("00.000" gives
/// 3), in the words of the entity's store.
QString SqlRound(const AppContext &ctx, const QString &entidad, const QString &expresion,
                 QStringView mascara);
