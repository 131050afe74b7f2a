#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "header/prorationcodes.h"
#include "ui_FrmABMProrrateos.h"

/// Maintenance of an operation's proration codes: a list, and under it the entry of a new one.
class FrmABMProrrateos {
 public:
    FrmABMProrrateos();
    /// Shows the codes of the operation and waits until the screen is closed.
    void Mostrar(const QString &interno);
    /// The same without waiting.
    void Abrir(const QString &interno);

    Ui::FrmABMProrrateos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void CargarList();
    void PasarA(EstadoProrrateos estado);
    void Agregar();
    void Eliminar();
    void Escape();

    QString interno_;
    std::vector<Prorrateo> codigos_;
    EstadoProrrateos estado_ = EstadoProrrateos::Lista;
};
