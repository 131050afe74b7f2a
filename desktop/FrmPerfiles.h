#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "frame/store/StoreProfiles.h"
#include "ui_FrmPerfiles.h"

/// The choice of a profile, when there is more than one.
class FrmPerfiles {
 public:
    FrmPerfiles();
    /// The chosen index, or -1 when the user leaves.
    int Elegir(const std::vector<PerfilEncontrado> &perfiles);
    void Cargar(const std::vector<PerfilEncontrado> &perfiles);

    Ui::FrmPerfiles ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
};
