#pragma once
// A screen of the exchange while it works: its bar and its label go along, and nothing else of it can be
// touched.

#include <QPointer>
#include <QWidget>
#include <vector>

#include "frame/context.h"

class QDialog;

/// For its own life: the bar "Pb" and the label "LbAvance" of the window show how far the work has come, and
/// its fields, grids and buttons are out of use.
class BarraDeAvance {
 public:
    BarraDeAvance(AppContext &ctx, QDialog *ventana);
    ~BarraDeAvance();
    BarraDeAvance(const BarraDeAvance &) = delete;
    BarraDeAvance &operator=(const BarraDeAvance &) = delete;

 private:
    AppContext &ctx_;
    QDialog *ventana_;
    std::function<void(const Avance &)> anterior_;
    std::vector<QPointer<QWidget>> apagados_;
};
