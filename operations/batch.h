#pragma once
// The work of the batch program: one command on one operation, without a screen.

#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "frame/commandline.h"
#include "frame/context.h"
#include "operations/status.h"

namespace lote {

struct Orden {
    QString comando;                       ///< the name of one of Comandos()
    QString clave;                         ///< of the operation; empty for a command on none
    QStringList argumentos;                ///< what stands behind the key
    QHash<QString, QStringList> opciones;  ///< what came, by name; a switch has no value

    /// Whether the option came.
    bool tiene(const char *opcion) const { return opciones.contains(QLatin1String(opcion)); }
    /// Its value; empty when it did not come.
    QString valor(const char *opcion) const { return opciones.value(QLatin1String(opcion)).value(0); }
};

constexpr int bien = 0;
constexpr int falla = 1;
constexpr int malPedido = consola::malUso;

/// The commands as the command line knows them.
std::vector<consola::Comando> Comandos();

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
/// screen would, and released at the end. Answers the exit status; raises Falla.
int Ejecutar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
             const SalidaDeObjetos &salida, QJsonObject &resultado);

}  // namespace lote
