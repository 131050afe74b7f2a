#pragma once

#include <QDialog>
#include <memory>

#include "header/packages.h"
#include "ui_FrmBultos.h"

class QKeyEvent;

/// The packages and the transport of an operation; ESC saves and leaves.
class FrmBultos {
 public:
    FrmBultos();

    /// Loads the operation's packages, shows them and waits.
    void Mostrar(const QString &interno);

    Ui::FrmBultos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool TxtCuit_KeyDown(const QKeyEvent *tecla);
    bool TxtCuit_Enter();
    void TxtCuit_F6();
    void TomarAgente(const QString &cuit, const QString &nombre);
    void TxtVencimiento_LostFocus();
    void Form_Escape();
    void Listar();
    void IrA(const QString &control);
    void Escribir(const Bultos &bultos);
    Bultos Leer() const;

    QString interno_;
    Bultos guardados_;  ///< what the store holds, as the screen shows it
};
