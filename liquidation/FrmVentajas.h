#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "ui_FrmVentajas.h"

/// The pick list of advantages and of information.
class FrmVentajas {
 public:
    FrmVentajas();

    /// Shows the lines, each with its ID in the first 16 characters and then the description, and waits. The
    /// chosen line's ID without its blanks, or empty when the list was left with ESC.
    QString Seleccionar(const QString &titulo, const QStringList &lineas);
    /// Fills the list without showing it.
    void Cargar(const QString &titulo, const QStringList &lineas);

    Ui::FrmVentajas ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();

    ListaConBusqueda lista_;
    QStringList lineas_;
};
