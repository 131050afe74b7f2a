#pragma once
// The one file of a backup: a compressed archive that any unpacking tool opens, with a list of what is in it
// and the checksum of each. Everything raises Falla, with one Spanish sentence.

#include <QDateTime>
#include <QString>
#include <vector>

namespace paquete {

/// One store of a backup.
struct Pieza {
    QString entidades;  ///< whose it is, "," between them
    QString motor;      ///< "archivo" or "servidor"
    QString nombre;     ///< its name in the archive
    QString archivo;    ///< where it lies on disk
    QString esquemas;   ///< of a server: the schemas of the entities, in their order
    QString suma;       ///< SHA-256, in hexadecimal
};

struct Contenido {
    QDateTime momento;
    int versionDelStore = 0;
    std::vector<Pieza> piezas;
};

/// Writes the archive whole or not at all; the checksums are worked out here.
void Escribir(const QString &archivo, const Contenido &contenido);

/// Unpacks an archive into `carpeta` and compares every checksum: what is damaged, of another program or of a
/// later one is refused before anybody uses any of it.
Contenido Leer(const QString &archivo, const QString &carpeta);

}  // namespace paquete
