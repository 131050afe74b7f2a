#pragma once
// What the server store needs besides tables: a base, and the functions, operators and the procedure that the
// statements lean on.

#include <QString>
#include <QStringList>

namespace servidor {

/// A base on a server, and who asks for it.
struct Acceso {
    QString host;
    int puerto = 0;
    QString base;
    QString usuario;
};

/// Makes the base when the server has none of that name. Answers what is wrong, one Spanish sentence; empty
/// when the base is there.
QString CrearBase(const Acceso &acceso);

/// The statements that make (or renew) everything in `esquema`, in order. `tipoTexto` is the qualified name
/// of the text type, e.g. "public.citext". Both go in as they stand.
QStringList Sentencias(const QString &esquema, const QString &tipoTexto);

/// A short mark of their text, kept in the store so that they are made again only when they change.
QString Huella(const QString &esquema, const QString &tipoTexto);

}  // namespace servidor
