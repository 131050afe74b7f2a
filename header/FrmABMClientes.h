#pragma once

#include <QDialog>
#include <memory>

#include "frame/dialogs.h"
#include "ui_FrmABMClientes.h"

/// The automotive question: whether the common external tariff is to be calculated, and for which use of the
/// part.
class FrmABMClientes {
 public:
    FrmABMClientes();
    /// Asks and waits; leaving the window is a No.
    RespuestaConOpciones Preguntar(const PreguntaConOpciones &pregunta);
    void Cargar(const PreguntaConOpciones &pregunta);

    Ui::FrmABMClientes ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
};
