#pragma once
// The work of the batch program: one command on one operation, without a screen.

#include <QJsonObject>
#include <QString>
#include <vector>

#include "frame/commandline.h"
#include "frame/context.h"
#include "operations/batchwork.h"
#include "operations/status.h"

namespace lote {

/// The commands as the command line knows them.
std::vector<consola::Comando> Comandos();

/// Whether a word of the command line names a command that draws pages, which needs fonts.
bool EsDePapel(const char *palabra);

/// What the command line asks for: the key of the operation apart from what stands behind it.
Orden OrdenDe(const consola::Pedido &pedido);

/// The dashboard as a program that starts finds it: from the options and the settings area.
EleccionDelTablero TableroInicial(AppContext &ctx);

/// Takes what the options file says (the configuration file's names, and the controls of the dashboard) into
/// the context and the dashboard; false with one Spanish line in `error` for a name that is not known or a
/// value of another kind.
bool AplicarOpciones(const QJsonObject &opciones, AppContext &ctx, EleccionDelTablero &tablero,
                     QString &error);

/// What is wrong with the changes that the order brings, as one sentence; empty for nothing, and for a
/// command that takes none. Asked before any store is touched.
QString DefectoDeCambios(const Orden &orden);

/// Whether the stores of the profile are of a version that the program works with; a message tells when they
/// are not, since work on them would end in the middle. Raises Falla for a store out of reach.
bool VersionAdecuada(AppContext &ctx);

/// Runs the order; `resultado` takes the last line's members. An operation that is written is locked like a
/// screen would, and released at the end. Answers the exit status; raises Falla.
int Ejecutar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
             const SalidaDeObjetos &salida, QJsonObject &resultado);

}  // namespace lote
