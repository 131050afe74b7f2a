#pragma once
// What the fields of the header do as one types: the handlers of FrmCaratula without the widgets. `nombre` is
// the control's name. Each raises Falla.

#include <QString>

#include "frame/base/verdict.h"
#include "header/caratula.h"

struct AppContext;

/// ENTER on a field: its look-up, its check or its derived figures. ok: the focus moves on; else it goes to
/// `foco`. A field without a rule just moves on.
Veredicto CampoEnter(AppContext &ctx, Caratula &c, const QString &nombre);

/// F6 on a coded field, and on the reason of the suspensive destination (MostrarMOTTEMP): opens its list and
/// takes the code. False when the field has no list here (the parties have screens of their own) or nothing
/// was chosen.
bool CampoF6(AppContext &ctx, Caratula &c, const QString &nombre);

/// A text changed: dollar labels and the button of the proration codes.
void CampoCambia(const AppContext &ctx, Caratula &c, const QString &nombre);

/// A key was released in txtPorc, also one that changed nothing there: the insurance from its percentage and
/// from the amounts as they are now.
void PorcentajeTecla(const AppContext &ctx, Caratula &c);

/// The field lost the focus, on whatever road: the three amounts take their form, a rate is held against the
/// table (what was typed stays), the term takes the form of a date. What that changes is marked as every
/// change of a field is, by the screen.
void CampoPierdeFoco(AppContext &ctx, Caratula &c, const QString &nombre);

/// A tick box was ticked by the user: the two that force a common datum warn.
void CasillaTildada(AppContext &ctx, const QString &nombre);

/// ENTER on the regime: description, direction and visibility.
void RegimenEnter(AppContext &ctx, Caratula &c);
/// BuscarCliente: name and percentages; an unknown tax number opens the book of clients, and what is chosen
/// there is looked up in its turn.
void ClienteEnter(AppContext &ctx, Caratula &c);

/// A row chosen in the list of brokers or of sellers.
void TomarDespachante(Caratula &c, const QString &cuit, const QString &nombre);
void TomarVendedor(Caratula &c, const QString &codigo, const QString &nombre);

/// The list of reasons for the direction in hand: "MOTIVOSTEMPE" for an export, else "MOTIVOSTEMPI".
QString ClaveDeMotivos(const Caratula &c);
/// What that list answers, "id|days".
void TomarMotivo(Caratula &c, const QString &elegido);

/// Derived figures; a label is empty while its figures are not numbers.
void RecalcularDolar(const AppContext &ctx, Caratula &c, const char *importe, const char *cotizacion,
                     const char *etiqueta);
void RecalcularDolares(const AppContext &ctx, Caratula &c);
/// CmdProrrat is enabled unless a value to prorate other than zero stands in TxtProrratear.
void HabilitarProrrateo(Caratula &c);
