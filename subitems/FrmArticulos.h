#pragma once

#include <QDialog>
#include <QString>
#include <memory>

#include "subitems/FrmListaDeArticulos.h"
#include "ui_FrmArticulos.h"

/// The articles of a catalogue with who wrote them when: search one, take it, delete it.
class FrmArticulos {
 public:
    FrmArticulos();

    /// Shows a catalogue's articles and waits; a text is searched first, as if typed. The code of the article
    /// taken, or empty when the user left.
    QString Elegir(const QString &idcatalogo, const QString &buscado = {});

    Ui::FrmArticulos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    ListaDeArticulos lista_;
};
