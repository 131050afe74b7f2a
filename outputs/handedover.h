#pragma once
// The declarations that were handed over: when, by which workstation, into which file, and whether the
// operation still says the same.

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <map>
#include <optional>

struct AppContext;
struct DocumentoEscrito;

/// The last hand-over of an operation.
struct Entrega {
    QDateTime fecha;  ///< invalid for a row that tells none
    QString maquina;
    QString archivo;  ///< whole path, on that workstation
    QString suma;     ///< of the document that was written
    int veces = 0;    ///< how often it was handed over
};

/// Remembers that the document of an operation was written. Raises Falla.
void AnotarEntrega(AppContext &ctx, const QString &interno, const DocumentoEscrito &escrito);

/// The hand-overs of these operations, or of all of them when none is named; by key, without regard to case:
/// the keys are folded. Raises Falla.
std::map<QString, Entrega> LeerEntregas(AppContext &ctx, const QStringList &internos = {});
/// The one of an operation among them; nothing for one that waits for its first.
std::optional<Entrega> EntregaDe(const std::map<QString, Entrega> &entregas, const QString &interno);

/// Whether the declaration as it would be written now is another than the one handed over: it is read and
/// written in memory, which takes as long as the operation has lines. False for an operation that is gone.
/// Raises Falla.
bool CambioDespues(AppContext &ctx, const QString &interno, const Entrega &entrega);

/// Whether that comparison takes no longer than nobody notices, some 90 ms: 1500 lines. Raises Falla.
bool SeComparaEnUnMomento(AppContext &ctx, const QString &interno);

/// "", "transferida" or "transferida, cambiada después".
QString TextoDeEntrega(const std::optional<Entrega> &entrega, bool cambiada);
/// When, where and into which file, in one sentence; empty without one.
QString DetalleDeEntrega(const std::optional<Entrega> &entrega);
