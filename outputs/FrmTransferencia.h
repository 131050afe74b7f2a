#pragma once

#include <QDialog>
#include <memory>

#include "outputs/transfer.h"
#include "ui_FrmTransferencia.h"

class QKeyEvent;

/// What will be sent of an operation, to check by eye, and the writing of its document; ESC leaves.
class FrmTransferencia {
 public:
    FrmTransferencia();

    /// Reads the operation, shows what will be sent and waits. An operation that cannot be read is told and
    /// nothing is shown.
    void Mostrar(const QString &interno);

    Ui::FrmTransferencia ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void LstAdvertencias_Enter();
    void CmdElegir_Click();
    void CmdEscribir_Click();
    void MostrarCaratula();
    void MostrarPartes(const ResumenDeDeclaracion &r);
    void MostrarItems();
    void MostrarAdvertencias();
    QString conDosDecimales(double valor) const;
    /// The whole path that the field says; a name alone lies in the folder of the last transfer.
    QString archivo() const;

    Transferencia transferencia_;
};
