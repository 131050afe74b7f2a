#pragma once
// Whether a newer version of the program is published: who is asked, and what the answer means.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

struct AppContext;

/// Section ACTUALIZACION of the configuration file.
struct OrigenDeActualizacion {
    QUrl direccion;        ///< the document; empty: there is none to ask, and `falta` says why
    QString certificados;  ///< file (PEM) of authorities that are trusted besides the system's, or empty
    QString falta;         ///< the sentence for the user; empty: all is there
};

/// An address that names a server alone stands for the document's usual place on it.
OrigenDeActualizacion LeerOrigenDeActualizacion(const AppContext &ctx);

/// The version that is installed: what the installation wrote in the machine's settings, else the program's
/// own number.
quint32 VersionInstalada(const AppContext &ctx);

/// "Versión Actual : 3005001".
QString LineaDeLaVersion(quint32 instalada);

/// What the published document says to whoever has a version.
struct Comparacion {
    QStringList lineas;  ///< for the list
    QString enlace;      ///< where the newer version is; empty: nothing is offered
    QString falta;       ///< what is wrong with the document, one sentence; empty: it could be read
};

/// `documento`: a whole number, "</>", and an http or https address; what stands behind another "</>" does
/// not count. The address matters only for a newer version.
Comparacion CompararVersiones(quint32 instalada, const QByteArray &documento);
