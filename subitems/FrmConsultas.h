#pragma once

#include <QDialog>
#include <memory>

#include "ui_FrmConsultas.h"

class ModeloDeConsulta;
class QKeyEvent;
class QLineEdit;
class QPushButton;

/// The nomenclature by position or by words; a row of the result opens its detail sheet.
class FrmConsultas {
 public:
    FrmConsultas();
    void Mostrar();

    Ui::FrmConsultas ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    void PonerBotonPorDefecto(QLineEdit *campo, QPushButton *boton);
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool Campo_KeyDown(const QLineEdit *campo, const QKeyEvent *tecla);
    bool LstResult_KeyDown(const QKeyEvent *tecla);
    void CmdBuscar_Click();
    void Command1_Click();
    void MostrarResultado(QLineEdit *campo);
    void Ordenar(int columna);
    void IrA(int fila);
    void VerDetalle();
    void VerSufijosDeFila();
    void cmdLicencias_Click();
    QString PosicionEnMano() const;

    ModeloDeConsulta *modelo_;  ///< the window owns it
};
