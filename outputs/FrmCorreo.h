#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "frame/secrets.h"
#include "outputs/mailsettings.h"
#include "ui_FrmCorreo.h"

class QKeyEvent;

/// The settings of the mail: sender, server, how it is spoken with, and the password, which is never shown.
class FrmCorreo {
 public:
    FrmCorreo();

    /// Shows what is set, over the other screens, and waits until it was saved or left.
    void Mostrar();

    /// Asks for the file of certificates, starting from `inicial`; empty when the user leaves. The system's
    /// own dialog, until another is put in its place.
    std::function<QString(const QString &inicial)> elegirArchivo;

    Ui::FrmCorreo ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void Cargar();
    bool TxtCertificados_KeyDown(const QKeyEvent *tecla);
    void CmdElegir_Click();
    void CmdOlvidar_Click();
    void CmdGuardar_Click();
    /// Tells whether a password is kept for the account that the fields say.
    void MostrarContrasena();
    AjustesDeCorreo ajustes() const;
    QString cuenta() const;
    Secretos secretos() const;
    /// The fields wait while the keyring is asked.
    void Esperar(bool espera);
};
