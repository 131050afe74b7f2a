#pragma once
// The two master lists behind the quote: the concepts and the references that brokers pick from.

#include <QString>
#include <QStringList>

struct AppContext;

enum class ListaDePresupuesto { Conceptos, Referencias };

/// Every entry, in the order of its text. Raises Falla.
QStringList LeerLista(AppContext &ctx, ListaDePresupuesto cual);
/// Adds an entry; false for an empty text and for one that is there, which was told. Raises Falla.
bool AgregarALista(AppContext &ctx, ListaDePresupuesto cual, const QString &texto);
/// Takes an entry out; quotes that have it keep it. Raises Falla.
void QuitarDeLista(AppContext &ctx, ListaDePresupuesto cual, const QString &texto);
