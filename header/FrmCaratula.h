#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "header/record.h"
#include "ui_FrmCaratula.h"

class QKeyEvent;

/// The declaration header of one operation. What the regime does not have is not shown; ESC saves and leaves.
class FrmCaratula {
 public:
    FrmCaratula();

    /// Loads the operation's header and shows it; without a header it says so and stays closed.
    void Mostrar(const QString &interno);
    /// Called when the screen has closed.
    std::function<void()> alCerrar;

    Ui::FrmCaratula ui;
    std::unique_ptr<QDialog> ventana;

 private:
    /// A control of the screen and its part of the state.
    struct Campo {
        const DefinicionDeControl *definicion;
        QString nombre;
        QWidget *control;
        QWidget *rotulo;  ///< the label before it; null: none
    };

    void Form_Load();
    void Conectar();
    void ConectarCampo(const Campo &campo);
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool Campo_KeyDown(const Campo &campo, const QKeyEvent *tecla);
    bool Campo_Enter(const Campo &campo);
    bool Campo_F6(const Campo &campo);
    void Campo_LostFocus(const Campo &campo);
    bool txtPorc_KeyUp();
    bool LstFact_KeyDown(const QKeyEvent *tecla);
    void CmdProrrat_Click();
    void cmdComentario_Click();
    void Form_Escape();

    void Leer();
    void Escribir();
    void EscribirOpciones();
    void OcultarGruposVacios();
    void Trabajar(const std::function<void()> &hacer);
    void AnotarCambioDeUsuario();
    void PonerFoco(const QString &nombre);

    std::vector<Campo> campos_;
    Caratula c_;
    const QWidget *dejado_ = nullptr;  ///< the field whose rule of leaving ENTER has run already
};
