#pragma once
// The rows of an operation in all its tables, read out of a store and written under another key or into
// another store: what the copy and the exchange between offices share.

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

struct AppContext;
class Recordset;

namespace operacion {

/// A column that names a numbered row of a table.
struct Nombra {
    const char *columna;
    const char *tabla;
};

struct Tabla {
    const char *entidad;
    const char *nombre;
    const char *numerada = "";        ///< the column that the store numbers; empty for none
    std::vector<Nombra> nombra = {};  ///< its tables stand ahead of this one
    const char *porPaginas = "";      ///< a long table: the column that its rows mostly come in order of
    bool deSuHistoria = false;  ///< tells what befell this operation; under another key it does not hold
};

/// Every table that an operation leaves with. An operation exists by its header, which therefore comes last:
/// what stopped halfway does not exist, and whoever writes to that key next clears its leftovers. The lock,
/// the stock and its movements stay where they are.
const std::vector<Tabla> &Tablas();
/// The one of a name, whatever the case; null when there is none.
const Tabla *BuscarTabla(const QString &nombre);

/// The values of a row, one a column: null, a double of 15 digits or a QString. The key of the operation and
/// the number of a numbered row are not among them; a column that names such a row holds its place in the
/// operation, counted from 1, and 0 for one that is not there.
using Fila = std::vector<QVariant>;
/// Hears the rows of a table; `columnas` are in small letters, in the order of their names.
using AlLeer = std::function<void(const QStringList &columnas, const Fila &fila)>;

/// A value of the store as a Fila holds it.
QVariant ValorDeFila(const QVariant &valor);
/// The columns of a recordset in the order that a Fila has them, without those of `sin`, and where each one
/// is.
struct Columnas {
    QStringList nombres;
    std::vector<int> lugares;

    Columnas() = default;
    Columnas(const Recordset &rs, const QStringList &sin);
    /// The row in hand.
    Fila leer(const Recordset &rs) const;
};

/// An operation while it is read. Its tables are asked for in the order of Tablas(). What it took from the
/// stock stays behind: its lines are told as not taken yet, the rows of those takings are left out, and the
/// header asks for another assembly then.
class Lectura {
 public:
    Lectura(AppContext &ctx, const QString &interno);

    /// Hands over the rows of a table in the order of their insertion, long ones in pages, so that the memory
    /// it takes does not grow with the operation. Raises Falla.
    void Recorrer(const Tabla &tabla, const AlLeer &alLeer);

 private:
    void numerada(const Tabla &tabla, const AlLeer &alLeer);
    void enPaginas(const Tabla &tabla, const AlLeer &alLeer);
    /// The rows of a statement; answers how many there were.
    int pagina(const Tabla &tabla, const QString &sql, const AlLeer &alLeer);
    double lugarDe(const char *tabla, const QVariant &numero) const;
    bool esDeUnaToma(const QVariant &movimiento);
    bool dejarTomas(const Tabla &tabla, const QStringList &columnas, Fila &fila);

    AppContext &ctx_;
    QString donde_;                                   ///< " where interno = …"
    std::map<QString, std::vector<double>> numeros_;  ///< of the rows of each numbered table, ascending
    std::optional<std::set<double>> movimientos_;  ///< its takings; asked for once, when a row may be one's
    bool tomo_ = false;
};

/// Where rows of an operation go. Statements wait for others and travel together; the caller holds the
/// transaction, if there is one.
class Destino {
 public:
    /// `juntas`: tables of other entities are written over the connection of the operations where that
    /// reaches them, so that they are in its transaction.
    Destino(AppContext &ctx, QString interno, bool juntas);

    /// A value, as SQL, in place of what the rows hold.
    void Poner(const QString &tabla, const QString &columna, const QString &sql);
    /// Rows of this table follow. Raises Falla.
    void Empezar(const Tabla &tabla, const QStringList &columnas);
    /// Raises Falla.
    void Agregar(const Fila &fila);
    /// No more rows of this table. Raises Falla.
    void Terminar();
    /// Deletes what is under the key in every table. Raises Falla.
    void Limpiar();
    /// "table.column" of what had no place in this store.
    const QStringList &sobrantes() const { return sobrantes_; }

 private:
    QString entidadDe(const Tabla &tabla) const;
    QString sqlDe(int columna, const QVariant &valor) const;
    void mandar();

    AppContext &ctx_;
    QString interno_;
    bool juntas_;
    std::map<QString, QString> propios_;  ///< by "table.column"
    std::map<QString, std::vector<qint64>> numeros_;
    QStringList sobrantes_;
    // Of the table in hand.
    struct ColumnaEscrita {
        QByteArray nombre;
        bool esta = false;  ///< the store has it
        QString propio;     ///< SQL in place of the value
        QString nombra;     ///< the table whose rows it names
    };
    const Tabla *tabla_ = nullptr;
    QString entidad_;
    std::vector<ColumnaEscrita> columnas_;
    QStringList enEspera_;
    qsizetype largoEnEspera_ = 0;
};

}  // namespace operacion
