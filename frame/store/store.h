#pragma once
// The store seam: connections that take SQL text as the modules spell it, and the recordsets they answer
// with.

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "frame/base/failure.h"
#include "frame/store/trace.h"

namespace motores {
class Canal;
struct Datos;
struct Filas;
}  // namespace motores

/// A field of the row in hand.
struct Campo {
    QVariant Value;  ///< null QVariant for a null; numbers are double or qlonglong, texts QString
};

class Conexion;

/// The rows of one statement, read whole at opening: a later write never changes what is being walked.
/// Field names are matched without regard to case. (`EOF` itself is a macro of the C library, hence `Eof`.)
class Recordset {
 public:
    bool Eof() const { return fila_ >= filas(); }
    /// What Poner set and Update has not written is forgotten on moving.
    void MoveNext() { irA(fila_ + 1); }
    void MoveFirst() { irA(0); }
    void Close();

    /// The value of a column in the row in hand. An unknown name raises Falla; so does reading at the
    /// end.
    Campo Fields(QStringView nombre) const;
    Campo Fields(int columna) const;
    /// Short forms of EsNull(Fields(nombre).Value) and EsNumero(Fields(nombre).Value).
    QString Texto(QStringView nombre) const;
    double Numero(QStringView nombre) const;
    bool EsNulo(QStringView nombre) const;

    int RecordCount() const { return filas(); }
    int columnas() const { return static_cast<int>(nombres_.size()); }
    /// The column's name as the store spells it. Raises Falla for a number that is none.
    QString nombreDeColumna(int columna) const;

    /// Sets a column of the row in hand; nothing reaches the store before Update. Only for a recordset opened
    /// with crearrsActualizable.
    void Poner(QStringView nombre, const QVariant &valor);
    /// Writes what Poner set into exactly the row in hand, whatever other rows hold the same values. Raises
    /// Falla when the row is gone.
    void Update();

 private:
    friend class Conexion;
    int filas() const { return ancho_ == 0 ? 0 : static_cast<int>(celdas_.size() / ancho_); }
    int columna(QStringView nombre) const;
    void tomar(motores::Filas &&filas);
    void irA(int fila) {
        if (!pendientes_.empty()) olvidar();
        fila_ = fila;
    }
    void olvidar();

    std::vector<QString> nombres_;
    std::vector<QVariant> celdas_;
    std::size_t ancho_ = 0;
    int fila_ = 0;
    Conexion *conexion_ = nullptr;  ///< set for an updatable recordset
    QString tabla_;
    std::vector<QVariant> identidades_;  ///< one row identity a row, for Update
    struct Pendiente {
        int columna = 0;
        QVariant antes;  ///< what the store holds
    };
    std::vector<Pendiente> pendientes_;
};

/// A connection of one store entity. The text of `Sql` is spelled in either of the two dialects the system
/// speaks; the connection turns it into the engine's own before sending it. Every statement is committed
/// alone.
class Conexion {
 public:
    using Datos = motores::Datos;  ///< what the profile says of the entity
    explicit Conexion(std::unique_ptr<Datos> datos);
    ~Conexion();
    Conexion(const Conexion &) = delete;
    Conexion &operator=(const Conexion &) = delete;

    QString Sql;

    /// Runs `Sql` and opens `rs` on its rows; true when there is at least one. Raises Falla.
    bool crearrs(Recordset &rs);
    /// The same for a "select ... from `tabla` ..." whose rows will be changed through Recordset::Update.
    bool crearrsActualizable(Recordset &rs, const QString &tabla);
    /// Runs `Sql` as a command; the number of rows touched, whose truth value is success. Raises
    /// Falla.
    qint64 Ejecutar();

    /// Runs `Sql` as a command that nothing is asked of. While rows are written lightly on a server it
    /// travels with what this connection is told next: that statement then raises what failed, with the text
    /// of the one that did, and what stands behind that one has not run. The end of light writing waits for
    /// all of them. Otherwise it runs at once. Raises Falla.
    void Mandar();
    /// Waits for the end of what Mandar told. Raises Falla.
    void Asentar();

    /// Runs commands that nothing is asked of, one after the other, in as few journeys to a server as there
    /// can be. Raises Falla for the first that fails; what stands behind it has not run.
    void EjecutarSeguidas(const QStringList &sentencias);

    /// The same without waiting for their end: this object's next statement waits, and raises what failed,
    /// with its text. What failed is not told at all when none follows, as when a run is given up.
    void MandarSeguidas(const QStringList &sentencias);

    /// Runs selects, one after the other, in one journey to a server; the rows of each, in their order. A
    /// command among them has none. Raises Falla for the first that fails.
    std::vector<Recordset> ConsultarSeguidas(const QStringList &sentencias);

    /// Asks a server in one journey for what the routines behind it are going to read: crearrs finds the
    /// answer to the same text here, once for every time that it stands in `sentencias`. On a file nothing
    /// happens. A select that fails is told by the crearrs that asks for it; what Mandar told ahead of it
    /// raises Falla.
    void Anticipar(const QStringList &sentencias);
    /// Forgets the answers that nobody asked for.
    void OlvidarAnticipos();

    /// The connection that the assembly's bulk reads use: this one, with the engine's handle behind
    /// coneccion().
    Conexion &GetAssemblyConnection() { return *this; }
    /// The engine's own handle (opened if needed), for libraries that speak to it directly.
    QSqlDatabase coneccion();

    const QString &entidad() const;
    /// "SQL" for a server store, "ACCESS" for a file store.
    const QString &etiqueta() const;
    bool abierta() const;
    /// The failure that tells that the store went away, for what was asked through coneccion(); nothing when
    /// it is there.
    std::optional<Falla> perdida();
    /// Closes the engine's handle; the next statement opens it again, so this object stays usable.
    void cerrar();

    /// While on, rows are written without waiting for the disk: only for rows that the next assembly
    /// rebuilds. What other entities own stays durable at once. Switching it off, and closing, make
    /// everything written so far durable. Calls nest: the last "off" counts. Raises Falla: then it is off.
    void escrituraLigera(bool activa);

    /// Gives this connection an empty table of its own, shaped like the stored `tabla`, which its statements
    /// find ahead of that one (true), or takes it away (false).
    void tablaPropia(const QString &tabla, bool activa);

    /// While on, what this connection holds lives in its session (a transaction, a table of its own): a
    /// connection that is lost is not made again behind the back of who needs it, and every statement raises
    /// Falla until the last "off". Calls nest.
    void retenerSesion(bool activa);

    /// How long a server that went away is waited for from now on; three seconds where nobody says otherwise.
    /// Process-wide.
    static void fijarEspera(std::chrono::milliseconds espera);

    /// Called after every statement when set; for tracing and benchmarks. Process-wide.
    static void fijarTraza(std::function<void(const TrazaDeSentencia &)> traza);

 private:
    std::unique_ptr<motores::Canal> canal_;
    friend class Recordset;
};

/// What a loop is going to read, asked ahead of it, a stretch of turns at a time, for its own life. The loop
/// may write meanwhile, but not what these selects read.
class LecturaAdelantada {
 public:
    /// `porVuelta`: what each turn reads from `conexion`, in the order of the turns.
    LecturaAdelantada(Conexion &conexion, std::vector<QStringList> porVuelta);
    ~LecturaAdelantada();
    /// To be called at the beginning of each turn. Raises Falla.
    void Vuelta();
    LecturaAdelantada(const LecturaAdelantada &) = delete;
    LecturaAdelantada &operator=(const LecturaAdelantada &) = delete;

 private:
    Conexion &conexion_;
    std::vector<QStringList> porVuelta_;
    std::size_t vuelta_ = 0;
    std::size_t hasta_ = 0;  ///< the turns that were asked for
};

/// Switches light writing on for its own life; the end of the run is durable on every road.
class EscrituraLigera {
 public:
    explicit EscrituraLigera(Conexion &conexion);
    /// Silent when the store cannot take it any more; a run whose user has to hear of that calls Terminar
    /// first.
    ~EscrituraLigera();
    /// Ends light writing here. Raises Falla.
    void Terminar();
    EscrituraLigera(const EscrituraLigera &) = delete;
    EscrituraLigera &operator=(const EscrituraLigera &) = delete;

 private:
    Conexion &conexion_;
    bool activa_ = true;
};

/// A scratch table that nobody else sees, for its own life: statements on `tabla` find it ahead of the stored
/// one, which keeps what it holds. One at a time on a connection.
class TablaPropia {
 public:
    /// Raises Falla.
    TablaPropia(Conexion &conexion, QString tabla);
    /// Silent when the store is gone, and the table with it.
    ~TablaPropia();
    TablaPropia(const TablaPropia &) = delete;
    TablaPropia &operator=(const TablaPropia &) = delete;

 private:
    Conexion &conexion_;
    QString tabla_;
};
