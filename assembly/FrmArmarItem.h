#pragma once

#include <QDialog>
#include <QLabel>
#include <array>
#include <functional>
#include <memory>

#include "assembly/run.h"
#include "frame/dialogs.h"
#include "ui_FrmArmarItem.h"

/// The one long run as the user watches it: ten steps with their marks, two bars, and the item in hand.
class FrmArmarItem {
 public:
    FrmArmarItem();

    /// Shows the screen, which starts the run at its first activation.
    void Mostrar(const QString &interno, const OpcionesDeArmado &opciones);
    /// The event of every activation: only the first runs anything.
    void Form_Activate();
    /// Paints one mark, bar or label.
    void Pintar(const Avance &avance);

    /// Called when the screen has closed; the result of the run stands in the context.
    std::function<void()> alCerrar;
    /// Hears the marks that belong to the dashboard behind this screen.
    std::function<void(const Avance &)> alCambiarTablero;

    Ui::FrmArmarItem ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    void Form_Unload();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Marcar(int paso, bool hecho);

    std::array<QLabel *, 10> marcas_{};
    std::array<QLabel *, 10> textos_{};
    QString interno_;
    OpcionesDeArmado opciones_;
    bool corriendo_ = false;
};
