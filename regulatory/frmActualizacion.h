#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>

#include "regulatory/urlreader.h"
#include "ui_frmActualizacion.h"

/// Asks whether a newer version is published, and opens its download.
class frmActualizacion {
 public:
    frmActualizacion();

    /// Shown over the others; the check begins once it stands. Back when it was left.
    void Mostrar();

    Ui::frmActualizacion ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void Comprobar();
    void Leida(const LecturaDeUrl &lectura);
    void AgregarLinea(const QString &texto);
    void Buscando(bool busca);
    void Terminar(const QString &estado);
    bool Form_KeyDown(const QKeyEvent *tecla);
    void cmdActualizar_Click();

    QTimer Timer1_;
    LectorDeUrl lector_;
    bool buscando_ = false;
    QString enlace_;  ///< of the newer version; empty: none is offered
};
