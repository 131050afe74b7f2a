#pragma once
// An office on the server with TLS: DbUpgrade3 as its administrator runs it, and the profiles that it leaves.

#include <QByteArray>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <map>
#include <string>

struct CorridaDeDb {
    int estado = -1;  ///< exit status; -1: it did not end by itself
    QString salida, errores;
    /// Both together, for what must be in neither.
    QString todo() const { return salida + errores; }
};

/// Runs DbUpgrade3 with a home of its own in `casa` and what `entorno` adds.
CorridaDeDb CorrerDbUpgrade3(const QString &casa, const QStringList &argumentos,
                             const std::map<QString, QString> &entorno = {});

/// A base of its own on ServidorConTls(), which goes with it, its roles included.
class Oficina {
 public:
    Oficina();
    ~Oficina();
    Oficina(const Oficina &) = delete;
    Oficina &operator=(const Oficina &) = delete;

    QString base() const { return base_; }
    QString dueno() const { return base_ + QStringLiteral("_dueno"); }
    QString trabajo() const { return base_ + QStringLiteral("_trabajo"); }
    QString carpeta() const { return dir_.path(); }
    QString perfil() const { return dir_.filePath(QStringLiteral("oficina.perfil.ini")); }
    QString perfilDelDueno() const { return dir_.filePath(QStringLiteral("oficina.dueno.ini")); }

    /// The set-up, as the server's administrator unless told, with a verified certificate; `mas` are further
    /// arguments.
    CorridaDeDb poner(const QStringList &mas = {}, const std::map<QString, QString> &entorno = {},
                      const QString &usuario = {}) const;
    CorridaDeDb dbUpgrade3(const QStringList &argumentos,
                           const std::map<QString, QString> &entorno = {}) const;
    /// Runs `sql` in the base as the server's administrator.
    QString correr(const QString &sql) const;
    /// A key of the section of the operations in a profile.
    static QString dice(const QString &perfil, const QString &clave);

 private:
    QTemporaryDir dir_;
    QString base_;
};

QByteArray Leido(const QString &ruta);
/// Whether the file is there and nobody but its owner may do anything with it.
bool EsDeSuDuenoSolo(const QString &ruta);

/// A connection to the base as a profile says, past the program.
class ComoElPerfil {
 public:
    explicit ComoElPerfil(const QString &ruta);
    ~ComoElPerfil();
    ComoElPerfil(const ComoElPerfil &) = delete;
    ComoElPerfil &operator=(const ComoElPerfil &) = delete;

    /// The engine's code of the failure; empty for none.
    std::string correr(const QString &sql) const;
    /// The first cell of the answer; "<nada>" without one.
    QString celda(const QString &sql) const;

 private:
    QString nombre_;
    QSqlDatabase db_;
};
