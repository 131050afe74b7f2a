#pragma once

#include <QDialog>
#include <memory>

#include "frame/optionrows.h"
#include "frame/options.h"
#include "ui_FrmConGen.h"

/// The general options. There is no button to save: ESC is the way out, and it stores everything.
class FrmConGen {
 public:
    FrmConGen();
    void Mostrar();

    Ui::FrmConGen ui;
    std::unique_ptr<QDialog> ventana;

 private:
    QWidget *Control(const FilaDeOpcion &opcion) const;
    void Form_Load();
    void Conectar();
    void Pintar(const ValoresConGen &valores);
    ValoresConGen Leer() const;
    void Form_Escape();
};
