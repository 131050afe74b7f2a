#pragma once

#include <QDialog>
#include <QString>
#include <memory>

#include "subitems/FrmListaDeArticulos.h"
#include "ui_FrmbArticulos.h"

/// The articles of a catalogue with what each comes to: search one and take it.
class FrmbArticulos {
 public:
    FrmbArticulos();

    /// Shows a catalogue's articles and waits; a text is searched first, as if typed. The code of the article
    /// taken, or empty when the user left.
    QString Elegir(const QString &idcatalogo, const QString &buscado = {});

    Ui::FrmbArticulos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    ListaDeArticulos lista_;
};
