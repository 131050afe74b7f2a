#pragma once

#include <QDialog>
#include <memory>

#include "regulatory/oncca.h"
#include "ui_frmONCCA.h"

class QKeyEvent;

/// The data of meat (ONCCA) of an operation and of its lines; F11 saves, ESC leaves without saving.
class frmONCCA {
 public:
    frmONCCA();

    /// Loads the operation's data, shows them and waits.
    void Mostrar(const QString &interno);

    Ui::frmONCCA ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void chONCCA_Click();
    void CambiarEstadosCMD(bool habilitado);
    void Escribir();
    void Leer();
    void Guardar();
    void PintarLinea(int fila);
    void GrdLineas_Change();
    bool GrdLineas_KeyDown(const QKeyEvent *tecla);
    bool txtCorteLinea_KeyDown(const QKeyEvent *tecla);
    void TomarCodigoDeLinea(QString oncca::Linea::*codigo, const QString &valor);

    QString interno_;
    oncca::Datos datos_;  ///< the lines as the grid shows them
};
