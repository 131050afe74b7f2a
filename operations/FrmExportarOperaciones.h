#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "operations/browser.h"
#include "ui_FrmExportarOperaciones.h"

class QKeyEvent;

/// Operations are looked for as in the browser, marked, and written into one file for another office.
class FrmExportarOperaciones {
 public:
    FrmExportarOperaciones();

    /// Shows the screen and waits.
    void Mostrar();
    /// The keys of the marked ones, in the order of their marking; a new search keeps them.
    const QStringList &Marcadas() const { return marcadas_; }

    Ui::FrmExportarOperaciones ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void Buscar();
    void Pintar();
    void Marcar(int fila);
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool GrOperaciones_KeyDown(const QKeyEvent *tecla);
    bool txtCliente_KeyDown(const QKeyEvent *tecla);
    bool Buscar_KeyDown(const QKeyEvent *tecla);
    void CmdMarcar_Click();
    void CmdElegir_Click();
    void CmdExportar_Click();
    QString archivo() const;
    void ProponerArchivo();

    std::vector<FilaDeInterno> filas_;
    QStringList marcadas_;
    QString propuesto_;  ///< the file's name as it was last proposed
    bool corriendo_ = false;
};
