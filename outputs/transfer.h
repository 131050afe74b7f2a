#pragma once
// The transfer of a declaration: read, looked over and written as one document.

#include <QString>
#include <vector>

#include "outputs/declaration.h"

struct AppContext;

/// What will be sent, and what the user should know ahead of it.
struct Transferencia {
    Declaracion declaracion;
    std::vector<Advertencia> advertencias;  ///< by item; those of the operation first
};

/// Reads the operation and looks it over; nothing is written. Raises Falla, also for an operation that is not
/// there.
Transferencia PrepararTransferencia(AppContext &ctx, const QString &interno);

/// The name that a key gives to its file: characters that a file name cannot hold as "_", and ".xml".
QString NombreDeArchivo(const QString &interno);

/// The SHA-256 of a document's bytes, in hexadecimal. The same declaration has the same one, whenever and
/// wherever it is written.
QString SumaDeDocumento(const QByteArray &documento);

/// How a writing ended.
struct DocumentoEscrito {
    bool hecho = false;
    QString archivo;  ///< whole path
    qint64 bytes = 0;
    QString suma;   ///< of what was written: SumaDeDocumento
    QString aviso;  ///< one sentence: where the document is, or why there is none
};

/// Writes the document into `archivo`. It is validated first, written beside and put in place at the end:
/// what does not come to its end leaves an earlier file whole. Raises nothing.
DocumentoEscrito EscribirTransferencia(const Declaracion &declaracion, const QString &archivo);
