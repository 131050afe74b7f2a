#pragma once
// The whole stock counted again.

#include <QString>
#include <vector>

#include "stock/stock.h"

namespace stock {

/// What does not agree.
struct Hallazgo {
    enum class Clase {
        Saldo,               ///< a balance is not what entered less what stands
        Sobregirada,         ///< more stands than what entered: told, for a person to mend
        MovimientoSinDueno,  ///< a taking of a line or an operation that is gone
        MovimientoSinStock,  ///< a taking of a stock line that is gone
        SinDescarga,         ///< a taking without its row of descargas
        DescargaSuelta,      ///< a row of descargas whose taking does not stand
        MarcaSinToma,        ///< a line marked 'OK' that took nothing
        TomaSinMarca,        ///< a line that took and is not marked
    };
    Clase clase = Clase::Saldo;
    qint64 idstock = 0;
    qint64 movimiento = 0;
    QString interno;
    qint64 idlinea = 0;
    QString texto;  ///< one sentence
    bool reparable = true;
};
/// Everything that does not agree, in a steady order; nothing when all does.
std::vector<Hallazgo> Revisar(AppContext &ctx);
/// Mends what can be mended, each finding as one; the number mended.
int Reparar(AppContext &ctx, const std::vector<Hallazgo> &hallazgos);

}  // namespace stock
