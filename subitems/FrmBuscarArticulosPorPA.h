#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "regulatory/lnapireports.h"
#include "ui_FrmBuscarArticulosPorPA.h"

class QKeyEvent;

/// Reports of catalogue articles with the licences of their positions, by catalogue, article or position, and
/// the notes of a position. ESC stops a report, and leaves the screen when there is none.
class FrmBuscarArticulosPorPA {
 public:
    FrmBuscarArticulosPorPA();

    /// Shows the screen and waits. With a position it begins there.
    void Mostrar(const QString &posicion = {});

    Ui::FrmBuscarArticulosPorPA ui;
    std::unique_ptr<QDialog> ventana;

 private:
    /// A field, its button and the report of both.
    struct Busqueda {
        QLineEdit *campo;
        QPushButton *boton;
        bool (*reporte)(AppContext &, const QString &, const AvanceDeReporte &);
        void (FrmBuscarArticulosPorPA::*listado)();  ///< behind F6; null for none
    };

    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool Campo_KeyDown(std::size_t cual, const QKeyEvent *tecla);
    void Form_Escape();
    void txtCatalogoABuscar_F6();
    void txtPosicionNcmABuscar_F6();
    void Generar(const Busqueda &busqueda);
    bool Avanzar(int hechos, int cantidad);
    void Correr(bool corriendo);
    void Command1_Click();

    std::vector<Busqueda> busquedas_;
    bool corriendo_ = false;
    bool detener_ = false;
};

/// Opens the screen, on a position when there is one.
void VerLicencias(const QString &posicion = {});
