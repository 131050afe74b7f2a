#pragma once
// The seam to the input-records library, asked by every road that touches inputs: the entry and the deletion
// of lines, the assembly, the deletion of an operation. The library is not part of this program: without it
// nothing is linked, and an operation whose lines took inputs cannot be deleted.

#include <QString>
#include <functional>
#include <optional>

namespace insumos {

/// What the library's own list hands over for a new line.
struct Eleccion {
    QString CATNRO;  ///< catalogue of the inputs
    QString PRDNRO;  ///< product
    QString PRDDES;
    QString PRDNCM;
    QString PRDUNI;
    QString PRDPRE;  ///< unit price, as text with either separator
    QString PRDPAI;
    QString PRDSUF;
    bool ERR = false;  ///< the library flags the line: it is stored with the mark 'ERR'
};

/// The line whose inputs are taken.
struct Toma {
    QString CATNRO;
    QString PRDNRO;
    QString Interno;
    qint64 SUBITEM = 0;
    QString PRDCAN;  ///< quantity, "00.00"
};

/// A link that was made: every function is set.
struct Enlace {
    /// Gives the inputs of one line back to stock; false on failure.
    std::function<bool(const QString &Interno, const QString &CATNRO, const QString &PRDNRO, qint64 SUBITEM)>
        EliminarInsumo;
    /// Whether the library can be asked.
    std::function<bool()> EstadoConexion;
    /// Opens the link for an operation.
    std::function<void(const QString &Interno_Externo)> ConectarDB;
    /// The library's list; nothing when it was left.
    std::function<std::optional<Eleccion>()> Mostrar;
    /// Takes the inputs of a new line; true gives their value in `CIFDescontado`, false is a refusal, which
    /// the library has told by itself.
    std::function<bool(const Toma &, double &CIFDescontado)> AgregarInsumo;
    /// Tells the root line of a group and its "|"-joined folded lines; false on failure.
    std::function<bool(const QString &interno, qint64 idroot, const QString &idsublist)> EnviarGrupoIdSub;
    /// Tells the number of an item and its "|"-joined root lines; false on failure.
    std::function<bool(qint64 iditem, const QString &idsublist)> EnviarNroItem;
};

/// What makes a link; empty while the library is absent. The one place that a library is plugged into.
extern std::function<Enlace()> crearEnlace;

/// A fresh link; nothing while the library is absent or fails to make one.
std::optional<Enlace> Enlazar();

}  // namespace insumos
