#pragma once

#include <QDialog>
#include <memory>

#include "ui_FrmCorreo.h"

/// The settings of the mail: sender, server, and how it is spoken with.
class FrmCorreo {
 public:
    FrmCorreo();

    /// Shows what is set, over the other screens, and waits until it was saved or left.
    void Mostrar();

    Ui::FrmCorreo ui;
    std::unique_ptr<QDialog> ventana;
};
