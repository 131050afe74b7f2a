#pragma once

#include <QDialog>
#include <memory>

#include "desktop/primerosstores.h"
#include "ui_FrmPrimerInicio.h"

/// The offer of a start that finds no profile: the embedded stores, with the demonstration data or empty.
class FrmPrimerInicio {
 public:
    FrmPrimerInicio();

    /// Shows the offer for `carpeta` until the stores are made, or the user leaves. True when they are there.
    bool Ofrecer(const QString &carpeta, const QString &nombre);
    void Cargar(const QString &carpeta, const QString &nombre);

    Ui::FrmPrimerInicio ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void Form_Load();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void cmdCrear_Click();
    void cmdSalir_Click();
    void Trabajar(bool trabaja);
    bool Avanzar(const QString &que, int porCiento);

    PedidoDeStores pedido_;
    bool trabajando_ = false;
    bool cancelado_ = false;
};
