#pragma once
// The words of the server's own client library that a connection is made with: what a profile asks of TLS and
// of the time that a silent line is waited for. Every road to a server takes them from here.

#include <QString>
#include <QStringList>
#include <functional>

#include "frame/store/engines.h"

class QSqlDatabase;

namespace motores {

/// The words that a profile may say, spelled as the library does: "sslmode", "sslrootcert" …
const QStringList &palabrasDelPerfil();

/// Where words come from, and how a sentence calls that ("El perfil … en la sección [NCM]").
struct OrigenDePalabras {
    std::function<QString(const QString &palabra)> valor;  ///< empty for a word that is not said
    QString carpeta;                                       ///< what a relative file is relative to
    QString quien;
};
/// Takes them into `datos`, whose host is there already; files with their whole path. Raises Falla for a mode
/// that there is not, a file that is missing, a time without an end, and what would leave a certificate
/// unverified unnoticed.
void tomarPalabras(const OrigenDePalabras &origen, Datos &datos);

/// Makes `db` (of Qt's driver for the server, not open yet) one for the base of `datos`.
void prepararConexion(const Datos &datos, QSqlDatabase &db);
/// The same for the server's own programs, as one argument: "host='…' port='…' …". Without the password,
/// which a list of processes would show.
QString textoDeConexion(const Datos &datos);

}  // namespace motores
