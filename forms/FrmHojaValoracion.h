#pragma once

#include <QDialog>
#include <map>
#include <memory>
#include <vector>

#include "forms/valuation.h"
#include "ui_FrmHojaValoracion.h"

class QGridLayout;
class QKeyEvent;

/// The valuation sheet of an operation, an import's or an export's: a control for each of its fields, named
/// as its column with "Txt" or "cbo" ahead. ESC saves what was changed and leaves.
class FrmHojaValoracion {
 public:
    FrmHojaValoracion();

    /// Loads the sheet of the operation, or what the operation proposes, shows it and waits. An operation
    /// that is gone is told and shows nothing.
    void Mostrar(const QString &interno);
    /// The control of a field; null when the sheet in hand has none.
    QWidget *Control(const QString &columna) const;

    Ui::FrmHojaValoracion ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void ArmarCampos();
    QWidget *HacerControl(const valoracion::CampoDeHoja &campo);
    void PonerEnGrilla(QGridLayout *grilla, const valoracion::CampoDeHoja &campo, QWidget *control);
    bool Form_KeyDown(const QKeyEvent *tecla);
    /// TAB on a field whose next one, or with SHIFT the one before, stands on the other page.
    bool Campo_Tab(const QWidget *control, bool adelante);
    void Campo_LostFocus(const valoracion::CampoDeHoja &campo);
    void Escribir();
    /// Takes the fields into the sheet.
    void Leer();
    /// Sums, observations and what is enabled, by the fields as they stand.
    void Refrescar();
    bool Guardar();
    void IrA(const QString &columna);
    void CmdProponer_Click();
    void CmdEliminar_Click();
    void Imprimir();
    void Form_Escape();

    valoracion::Hoja hoja_;
    QMap<QString, QString> cargados_;  ///< the texts that the store or the proposal gave
    QMap<QString, QString> negados_;   ///< those that ESC could not write
    std::vector<std::pair<const valoracion::CampoDeHoja *, QWidget *>>
        controles_;  ///< in the order of the work
    bool cargando_ = false;
};

/// Opens the sheet of an operation over another screen, and waits.
void AbrirHojaValoracion(const QString &interno);
