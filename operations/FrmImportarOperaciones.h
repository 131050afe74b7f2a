#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "operations/exchange.h"
#include "ui_FrmImportarOperaciones.h"

class QKeyEvent;

/// What a file of operations holds, what is to be done with each of them, and the doing of it.
class FrmImportarOperaciones {
 public:
    FrmImportarOperaciones();

    /// Shows the screen and waits.
    void Mostrar();

    Ui::FrmImportarOperaciones ui;
    std::unique_ptr<QDialog> ventana;
    /// Asks for the file, from this folder on; empty when the user left.
    std::function<QString(const QString &carpeta)> elegirArchivo;

 private:
    /// An operation of the file, and what the user wants of it.
    struct Renglon {
        intercambio::OperacionEnArchivo operacion;
        bool existe = false;
        intercambio::Plan plan;
        QString hecho;  ///< what became of it; empty until then
    };
    void Conectar();
    void Leer();
    void Pintar();
    void PintarFila(int fila);
    void Decidir(intercambio::Decision decision);
    void CambiarDecision();
    QString PedirClave(const Renglon &renglon) const;
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool TxtArchivo_KeyDown(const QKeyEvent *tecla);
    bool GrOperaciones_KeyDown(const QKeyEvent *tecla);
    void CmdElegir_Click();
    void CmdImportar_Click();
    void Contar(const intercambio::Importacion &r);
    Renglon *enMano();

    QString archivo_;  ///< the one that was read; empty without one
    std::vector<Renglon> renglones_;
    bool corriendo_ = false;
    bool detener_ = false;
};
