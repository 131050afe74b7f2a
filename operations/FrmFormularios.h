#pragma once

/// The forms of an operation, from the menu: asks which one, holds it while its form is open, and lets it go.
/// One that another workstation holds is told, and stays closed; the one whose dashboard is open is held
/// already.
void PedirHojaValoracion();
void PedirCertificados();
