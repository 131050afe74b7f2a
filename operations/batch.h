#pragma once
// The work of the batch program: one command on one operation, without a screen.

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>

#include "frame/context.h"
#include "operations/status.h"

namespace lote {

struct Orden {
    QString comando;  ///< armar, liquidar, comprobar, crear, borrar, listar
    QString clave;
    bool forzar = false;  ///< arm although the mark does not ask for it
};

constexpr int bien = 0;
constexpr int falla = 1;
constexpr int malPedido = 2;

const QStringList &Comandos();

/// The dashboard as a program that starts finds it: from the options and the settings area.
EleccionDelTablero TableroInicial(AppContext &ctx);

/// Takes what the options file says (the configuration file's names, and the controls of the dashboard) into
/// the context and the dashboard; false with one Spanish line in `error` for a name that is not known or a
/// value of another kind.
bool AplicarOpciones(const QJsonObject &opciones, AppContext &ctx, EleccionDelTablero &tablero,
                     QString &error);

/// Hears what the order answers besides its result: an operation of the list at a time.
using SalidaDeObjetos = std::function<void(const QJsonObject &)>;

/// Whether the stores of the profile are of a version that the program works with; a message tells when they
/// are not, since work on them would end in the middle. Raises Falla for a store out of reach.
bool VersionAdecuada(AppContext &ctx);

/// Runs the order; `resultado` takes the last line's members. An operation that is written is locked like a
/// screen would, and released at the end. Answers the exit status.
int Ejecutar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
             const SalidaDeObjetos &salida, QJsonObject &resultado);

}  // namespace lote
