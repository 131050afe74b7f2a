#pragma once
// Operations between offices: out of a store into one file, and out of such a file into a store.

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

#include "frame/context.h"

namespace intercambio {

/// The end of the files' names, what a dialog that asks for one shows, and where the folder of the last one
/// is kept.
inline const QString finDeNombre = QStringLiteral("zop");
inline const QString filtroDeArchivos = QStringLiteral("Operaciones (*.zop)");
inline const QString seccionDeAjustes = QStringLiteral("INTERCAMBIO");
/// The whole path that a user's text means, below the folder of the last file; empty for none.
QString RutaDe(const AppContext &ctx, const QString &texto);

/// How an export ended.
struct Exportacion {
    bool hecho = false;
    QString archivo;  ///< whole path
    int operaciones = 0;
    qint64 filas = 0;  ///< of their tables, parties and articles among them
    qint64 bytes = 0;
    QString aviso;  ///< one sentence: where the file is, or why there is none
};

/// Writes operations, in this order and each once, into `archivo`, which is put in place when it is whole. An
/// operation that is gone or open on another workstation leaves no file. The marks of the work go to
/// Dialogos::avance (bar "Pb", label "LbAvance"). Raises nothing.
Exportacion Exportar(AppContext &ctx, const QStringList &claves, const QString &archivo);

/// What a file tells of an operation.
struct OperacionEnArchivo {
    QString clave, subregimen = {}, cliente = {}, despachante = {};
    int lineas = 0, items = 0;
    qint64 filas = 0;
    bool transferida = false;
};

/// What a file holds, read from its beginning to its checksum.
struct ContenidoDeArchivo {
    QString defecto;  ///< one sentence when it is no good; then nothing else counts
    std::vector<OperacionEnArchivo> operaciones;
};
/// The operations of a file, in its order. Raises Falla with one sentence for a file that is no good.
std::vector<OperacionEnArchivo> LeerContenido(AppContext &ctx, const QString &archivo);
/// The same, with that sentence. Nothing of a store is touched. Raises nothing.
ContenidoDeArchivo Mirar(AppContext &ctx, const QString &archivo);

/// What becomes of an operation of the file.
enum class Decision { Importar, Omitir, Reemplazar, OtraClave };
struct Plan {
    Decision decision = Decision::Omitir;
    QString clave = {};  ///< for OtraClave
};

/// What can be done with an operation of a file, in the order in which it is offered; the first is what is
/// done when nobody says otherwise.
const std::vector<Decision> &DecisionesPosibles(bool existe);

/// Whether the store has an operation of this key. Raises Falla.
bool HayEnElStore(AppContext &ctx, const QString &clave);
/// The first of KEY-2, KEY-3, … that neither the store nor `tomadas` has; 40 characters at most. Raises
/// Falla.
QString ClaveLibre(AppContext &ctx, const QString &clave, const QStringList &tomadas = {});
/// Why an operation cannot come in under this key, one sentence; empty when it can. Raises Falla.
QString DefectoDeOtraClave(AppContext &ctx, const QString &clave, const QStringList &tomadas = {});

/// What became of one.
struct Importada {
    enum class Fin { Importada, Reemplazada, Omitida, Fallida, SinHacer };
    QString clave;    ///< in the file
    QString destino;  ///< in the store
    Fin fin = Fin::SinHacer;
    QString aviso = {};  ///< one sentence where something is to be told: why it failed, or what stayed out
};

/// How an import ended.
struct Importacion {
    QString defecto;  ///< one sentence when the file is no good: nothing was imported
    std::vector<Importada> operaciones;
    int relacionadas = 0;  ///< parties and articles that were new, with their advantages

    int cuantas(Importada::Fin fin) const;
    /// "Se importaron 2 operaciones, se omitió 1.", and what failed.
    QString resumen() const;
};

/// Imports the operations of `archivo` as `plan` tells by key (what it does not name is left out). Each one
/// is taken whole or not at all; one that fails does not keep the others from coming. `detener`, asked
/// between operations, ends the work there. The file is looked over from end to end first. Raises nothing.
Importacion Importar(AppContext &ctx, const QString &archivo, const std::map<QString, Plan> &plan,
                     const std::function<bool()> &detener = {});

}  // namespace intercambio
