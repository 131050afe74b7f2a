#pragma once

#include <QString>

/// The forms of an operation that is open: its screen, and back.
void AbrirHojaValoracion(const QString &interno);
void AbrirCertificados(const QString &interno);

/// The same from the menu: asks which operation, holds it while its form is open, and lets it go. One that
/// another workstation holds is told, and stays closed; the one whose dashboard is open is held already.
void PedirHojaValoracion();
void PedirCertificados();
