#pragma once
// Which fields of the header a regime has.

#include <QString>
#include <QStringList>
#include <optional>

#include "header/caratula.h"

struct AppContext;

/// The columns of the regime's row of `dest` that hold "x", in the row's order: the controls it drops.
/// Nothing when the regime has no row. Raises Falla.
std::optional<QStringList> ControlesQueQuita(AppContext &ctx, const QString &regimen);

/// Mostrar, as a pure rule: what the regime shows, given what its row of `dest` drops. Without a row all
/// controls stay as the last regime left them, but for those that the code itself decides. A name that is no
/// control is ignored.
void MostrarRegimen(Caratula &c, const QString &regimen, const std::optional<QStringList> &quita);

/// What ENTER on the regime adds behind Mostrar, by the direction letter.
void MostrarDireccion(Caratula &c);

/// Mostrar(regimen) with the row read from the store. Raises Falla.
void Mostrar(AppContext &ctx, Caratula &c, const QString &regimen);

/// The controls of a DJAI.
const QStringList &ControlesDJAI();
