#pragma once
// How far an export or an import has come, for whoever shows it.

#include "frame/dialogs.h"

namespace intercambio {

/// Tells the bar "Pb" and the label "LbAvance", not at every row.
class Marcha {
 public:
    Marcha(const Dialogos &dialogos, qint64 maximo)
        : dialogos_(dialogos), maximo_(static_cast<int>(maximo)) {}
    void decir(const QString &texto) const {
        dialogos_.avance({Avance::Tipo::Etiqueta, 0, QStringLiteral("LbAvance"), 0, maximo_, texto});
        barra();
    }
    /// One more step of the bar.
    void paso() {
        if (++hechos_ % pasosPorAviso == 0) barra();
    }

 private:
    static constexpr int pasosPorAviso = 250;
    void barra() const {
        dialogos_.avance({Avance::Tipo::Barra, 0, QStringLiteral("Pb"), hechos_, maximo_, {}});
        dialogos_.atenderEventos();
    }
    const Dialogos &dialogos_;
    int maximo_ = 1, hechos_ = 0;
};

}  // namespace intercambio
