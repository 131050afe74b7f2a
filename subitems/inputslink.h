#pragma once
// The seam to the input-records library. It is not part of this program: without it nothing is linked, and an
// operation whose lines took inputs cannot be deleted.

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

struct Enlace {
    /// Gives the inputs of one line back to stock.
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
};

/// Makes a fresh link; empty while the library is absent.
extern std::function<Enlace()> crearEnlace;

}  // namespace insumos
