#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "liquidation/itemview.h"
#include "ui_FrmVerItem.h"

/// The items of an operation with their values and their liquidation, and item 0 with the operation's totals.
/// Shown only: nothing is edited here yet.
class FrmVerItem {
 public:
    FrmVerItem();

    /// Opens the screen on item 0, which recalculates the operation while the liquidation is pending.
    void Mostrar(const QString &interno);
    /// Loads and shows an item by its number.
    void VerDetalle(const QString &item);

    /// Called when the screen has closed.
    std::function<void()> alCerrar;

    Ui::FrmVerItem ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Form_Escape();
    void Scr_Change(int posicion);
    void TxtItem_Enter();
    void ElegirSolapa(int indice);
    void Pintar(const VistaDeItem &vista, bool conLiquidacion);
    void PintarListas(const VistaDeItem &vista);
    void PintarLiquidacion(const VistaDeItem &vista);

    QString interno_;
    QStringList items_;
    QString item_;
    std::unique_ptr<ClassLiquidacion> calculo_;
    bool enCorrida_ = false;
    bool sinPagina_ =
        false;  ///< the operation's page could not be shown, so it cannot be asked for on leaving
};
