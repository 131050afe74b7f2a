#pragma once
// Picking a tariff position by its beginning (FrmPosicion).

#include <QString>
#include <QStringList>
#include <vector>

#include "subitems/nomenclature.h"

struct AppContext;

/// A position found by its beginning.
struct PosicionEncontrada {
    QString ncm;  ///< "8409.91.12.100G"
    QString estadistica;
    QString deresp;
};

/// Who searches: the message for nothing found differs.
enum class OrigenDeBusqueda { Pantalla, BuscarNCM };
/// The positions that begin with `texto`, in the order of their keys; every "." of the text stands for any
/// run of characters, so "84.09" finds "8471.09…". A blank text sends nothing and finds nothing; nothing
/// found is told. Raises Falla.
std::vector<PosicionEncontrada> BuscarPosiciones(AppContext &ctx, const QString &texto,
                                                 OrigenDeBusqueda origen = OrigenDeBusqueda::Pantalla);
/// Their texts, for the list.
QStringList TextosDePosiciones(const std::vector<PosicionEncontrada> &posiciones);

/// What the screen shows beside the list.
struct DatosDePosicion {
    bool encontrada = false;
    QString descripcion;  ///< own description, a line break, the first upper level
    std::vector<FilaDeSufijo> sufijos;
};
/// MostrarDatos: reads the position and leaves its units and its four flags in `ctx.posicion` (not yet
/// chosen: `ctx.posicion.posicion` stays as it was). A position that is not in the nomenclature empties both.
/// Raises Falla.
DatosDePosicion MostrarDatos(AppContext &ctx, const QString &posicion);

/// ENTER on the list: the shared choice becomes `posicion`; ESC: empty.
void SeleccionarPosicion(AppContext &ctx, const QString &posicion);
void DejarPosicion(AppContext &ctx);
