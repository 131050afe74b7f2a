#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "frame/ui/ListaConBusqueda.h"
#include "liquidation/cancellations.h"
#include "stock/itemcancel.h"
#include "ui_FrmCancelaciones.h"

class QKeyEvent;

/// A cancellation of an item: from a line of the stock, or by hand where the office lets that.
class FrmCancelaciones {
 public:
    FrmCancelaciones();

    /// Each shows the screen and waits; true when the cancellation was written.
    bool Ingresar(const QString &interno, const QString &item);
    bool Modificar(const QString &interno, const QString &item, const stock::Cancelacion &cancelacion);

    Ui::FrmCancelaciones ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Mostrar(const QString &interno, const QString &item);
    void Cargar();
    /// The line of the cancellation that is changed, where nothing is left of it.
    void AgregarPropia(std::vector<stock::Oferta> &ofertas) const;
    void Describir();
    void ChManual_Click();
    bool Manual() const;
    const stock::Oferta *EnMano() const;
    stock::Cancelacion Leer() const;
    void IrA(QLineEdit *campo);
    /// What is missing on the screen, with the focus on it; true when nothing is.
    bool Completa();
    void CmdGuardar_Click();

    QString interno_, item_;
    QDate hoy_;
    stock::Cancelacion cancelacion_;  ///< the one that is changed; id 0 for a new one
    ListaConBusqueda lista_;
    std::vector<stock::Oferta> ofertas_;
};

/// The cancellations of items over the stock, as the item screen asks for them.
cancelaciones::Enlace EnlaceDeCancelaciones();
