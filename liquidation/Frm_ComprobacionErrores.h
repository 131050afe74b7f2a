#pragma once

#include <QDialog>
#include <memory>

#include "frame/dialogs.h"
#include "ui_Frm_ComprobacionErrores.h"

/// The consistency report, a line a row.
class Frm_ComprobacionErrores {
 public:
    Frm_ComprobacionErrores();
    void Mostrar(const Informe &informe);
    void Cargar(const Informe &informe);

    Ui::Frm_ComprobacionErrores ui;
    std::unique_ptr<QDialog> ventana;
};
