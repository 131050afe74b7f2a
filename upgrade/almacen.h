#pragma once
// One store of a profile while it is being made, upgraded or loaded: the engine's own handle and its own
// grammar.

#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include "frame/base/failure.h"
#include "frame/store/StoreProfiles.h"
#include "upgrade/schema.h"

namespace actualizacion {
/// What stops an upgrade or a load: one Spanish sentence, as a Falla that the entries of upgrade.h catch.
[[noreturn]] void Detener(const QString &descripcion);

/// The number of a Falla that tells of a missing right: the server's own code for it.
constexpr int faltaPermiso = 42501;

/// A column as the store has it.
struct ColumnaDelStore {
    QString tipo;           ///< the engine's word, lower case
    bool generada = false;  ///< the store assigns it
};

/// One open store. The file store's handle belongs to the connection manager (it carries the collation); the
/// server's is a handle of our own, so that nothing of the search path or the translator stands between.
class Almacen {
 public:
    /// Opens the store of `datos`; raises Falla with the file or the server in it.
    Almacen(const Conexion::Datos &datos, StoreProfiles::SPMain &manager);
    ~Almacen();
    Almacen(const Almacen &) = delete;
    Almacen &operator=(const Almacen &) = delete;

    bool servidor() const { return servidor_; }
    QSqlDatabase db() const { return db_; }

    /// Runs one statement of the engine; raises Falla with the engine's words, and faltaPermiso as its number
    /// where the profile's user may not.
    void ejecutar(const QString &sql) const;
    /// First column of every row.
    QStringList lista(const QString &sql) const;

    void comenzar() const;
    void confirmar() const;
    void deshacer() const;
    /// Lets the server look at a table that a load has filled, so that it does not plan for an empty one.
    void medir(const QString &tabla) const;

    /// `nombre` quoted, and a table's full name in the entity's file or schema.
    static QString comillas(const QString &nombre);
    QString nombreDe(const QString &esquema, const QString &tabla) const;
    /// The engine's words for a column's type.
    QString tipoDe(esquema::Tipo tipo) const;
    /// "public.citext" on a server.
    const QString &tipoTexto() const { return tipoTexto_; }

    QStringList tablas(const QString &esquema) const;
    QHash<QString, ColumnaDelStore> columnas(const QString &esquema, const QString &tabla) const;
    QStringList indices(const QString &esquema) const;
    /// The words that made a table of a file; empty on a server.
    QString palabrasDe(const QString &tabla) const;

    /// Makes ready for tables with texts: the text type on a server, and a check that it knows upper from
    /// lower case.
    void prepararServidor();
    /// Raises Falla (faltaPermiso) where the profile's user may not make or drop the schemas of a server.
    void exigirDueno(const QStringList &esquemas) const;

 private:
    [[noreturn]] void rechazar(const QSqlError &error, const QString &que) const;
    [[noreturn]] void negar(const QString &motivo) const;

    bool servidor_;
    QString donde_;     ///< for messages: the file, or the server
    QString usuario_;   ///< on a server
    QString conQue_;    ///< how a store is upgraded from this profile
    QString conexion_;  ///< name of our own handle, on a server
    QSqlDatabase db_;
    QString tipoTexto_;
    QString cotejo_;
};

/// Reads the profile; raises Falla.
void leerPerfil(StoreProfiles::SPMain &manager, const QString &ruta);
/// A sentence for a server that does not answer.
QString mensajeDeServidor(const Conexion::Datos &datos, const QString &motivo);

}  // namespace actualizacion
