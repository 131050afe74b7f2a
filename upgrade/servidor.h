#pragma once
// What the server store needs besides tables: the functions, operators and the procedure that the statements
// lean on.

#include <QString>
#include <QStringList>

namespace servidor {

/// The statements that make (or renew) everything in `esquema`, in order. `tipoTexto` is the qualified name
/// of the text type, e.g. "public.citext". Both go in as they stand.
QStringList Sentencias(const QString &esquema, const QString &tipoTexto);

/// A short mark of their text, kept in the store so that they are made again only when they change.
QString Huella(const QString &esquema, const QString &tipoTexto);

}  // namespace servidor
