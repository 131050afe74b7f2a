#pragma once
// The seam to the input-records library, asked by every road that touches inputs: the entry and the deletion
// of lines, the assembly, the deletion of an operation. The stock plugs itself in here; without it nothing is
// linked, and an operation whose lines took inputs cannot be deleted.

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
    bool ERR = false;     ///< the library flags the line: it is stored with the mark 'ERR'
    QString PRDCAN = {};  ///< quantity that was chosen there, as text with either separator; empty: none
};

/// The line whose inputs are taken.
struct Toma {
    QString CATNRO;
    QString PRDNRO;
    QString Interno;
    qint64 SUBITEM = 0;
    QString PRDCAN;  ///< quantity, "00.00"
    QString PRDUNI;  ///< its unit; empty: the stored line's
};

/// What stands taken on a line.
enum class Tomado {
    Nada,
    ParaSuItem,  ///< only cancellations of its item, which the line keeps
    Propio,      ///< inputs of the line itself
};

/// A link that was made: every function is set.
struct Enlace {
    /// Gives the inputs of one line back to stock; false on failure.
    std::function<bool(const QString &Interno, const QString &CATNRO, const QString &PRDNRO, qint64 SUBITEM)>
        EliminarInsumo;
    /// Whether the library can be asked. Raises Falla where the store is gone.
    std::function<bool()> EstadoConexion;
    /// Opens the link for an operation.
    std::function<void(const QString &Interno_Externo)> ConectarDB;
    /// The library's list; nothing when it was left.
    std::function<std::optional<Eleccion>()> Mostrar;
    /// Takes the inputs of a new line; true gives their value in `CIFDescontado`, false is a refusal, which
    /// the library has told by itself.
    std::function<bool(const Toma &, double &CIFDescontado)> AgregarInsumo;
    /// Whether a new line has to do with inputs at all; one that has not is saved as on a regime without
    /// them.
    std::function<bool(const Toma &)> Participa;
    /// What stands taken on a line.
    std::function<Tomado(const QString &Interno, qint64 SUBITEM)> QueTomo;
    /// Takes anew the inputs of a line whose quantity or unit changed, in the place of those that it has;
    /// true gives their value, false is a refusal, told, and then those stand.
    std::function<bool(const Toma &, double &CIFDescontado)> RetomarInsumo;
    /// Tells the root line of a group and its "|"-joined folded lines; false on failure.
    std::function<bool(const QString &interno, qint64 idroot, const QString &idsublist)> EnviarGrupoIdSub;
    /// Tells the number of an item and its "|"-joined root lines; false on failure.
    std::function<bool(qint64 iditem, const QString &idsublist)> EnviarNroItem;
    /// The items of an operation were numbered anew: what its lines keep for their items follows. Raises
    /// Falla.
    std::function<void(const QString &interno)> ReubicarItems;
};

/// What makes a link; empty while there is none. The one place that one is plugged into.
extern std::function<Enlace()> crearEnlace;

/// A fresh link; nothing while the library is absent or fails to make one.
std::optional<Enlace> Enlazar();

}  // namespace insumos
