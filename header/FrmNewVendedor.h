#pragma once

#include <QDialog>
#include <memory>

#include "header/parties.h"
#include "ui_FrmNewVendedor.h"

/// One seller: a new one, or the change of one that is kept.
class FrmNewVendedor {
 public:
    FrmNewVendedor();

    /// Asks for a new seller and waits, with the code filled in. The saved code, or empty.
    QString Agregar(const QString &codigo = {});
    /// The same for a seller that is kept; one that is gone is told.
    QString Modificar(const QString &codigo);
    /// Fills the screen without showing it.
    void Cargar(const Vendedor &vendedor, bool editando);

    Ui::FrmNewVendedor ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    void Command1_Click();
    QString Mostrar();

    Vendedor vendedor_;
    bool editando_ = false;
};

/// What BuscarVendedor offers for a code that is not kept.
void AgregarVendedor(const QString &codigo);
