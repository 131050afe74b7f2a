#pragma once

#include <QDialog>
#include <array>
#include <memory>

#include "subitems/tariffsheet.h"
#include "ui_FrmDetalleNomenclador.h"

/// The detail sheet of a position: its suffixes and a grid for each section.
class FrmDetalleNomenclador {
 public:
    FrmDetalleNomenclador();

    /// Fills the sheet, without showing it.
    void Cargar(const HojaDelNomenclador &hoja);

    Ui::FrmDetalleNomenclador ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void CargarSufijos(const std::vector<SufijoDeHoja> &sufijos);
    static void CargarSeccion(QTableWidget *grilla, const SeccionDeHoja &seccion, bool cifras);

    std::array<QTableWidget *, 4> secciones_;
};

/// Shows the sheet of the position until it is closed; a position that the nomenclature lacks shows none.
void VerDetalleNomenclador(const QString &posicion);
