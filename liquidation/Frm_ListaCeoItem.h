#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>

#include "ui_Frm_ListaCeoItem.h"

/// The certificates of origin of an item, to read; ESC leaves.
class Frm_ListaCeoItem {
 public:
    Frm_ListaCeoItem();

    /// Shows the numbers and waits, with row `actual` in hand; below 0 the first one is.
    void Mostrar(const QStringList &certificados, int actual = 0);
    /// Fills the grid without showing it.
    void Cargar(const QStringList &certificados, int actual = 0);

    Ui::Frm_ListaCeoItem ui;
    std::unique_ptr<QDialog> ventana;
};
