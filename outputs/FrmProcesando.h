#pragma once

#include <QDialog>
#include <memory>

#include "outputs/mailsend.h"
#include "ui_FrmProcesando.h"

/// Sends one message and shows what is said with the server; ESC stops it.
class FrmProcesando {
 public:
    FrmProcesando();

    /// Sends, over the other screens, and waits. True when the server took the message; else what happened
    /// was told. The message's body is emptied once it went out.
    bool Enviar(Correo &correo);

    Ui::FrmProcesando ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Terminar(const FinDeEnvio &fin);

    bool terminado_ = false;
    bool enviado_ = false;
};
