#pragma once
// Profiles: which store answers for which entity.

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "frame/store/engines.h"
#include "frame/store/store.h"

/// A profile that was found: the name it gives itself, and its file.
struct PerfilEncontrado {
    QString nombre;
    QString ruta;
};

namespace StoreProfiles {

/// The entities a profile may name, in their fixed order.
const QStringList &
entidades();  // INTERNOS, SYSTABLAS, NCM, CATALOGOS, PERSONAL, USUARIO, ESTADO, EDCADASSA, BOLDEP

/// The profile and connection manager; `AppContext::DataManager` is one.
class SPMain {
 public:
    SPMain();
    ~SPMain();
    SPMain(const SPMain &) = delete;
    SPMain &operator=(const SPMain &) = delete;

    /// Looks for profiles of `nombreDeFamilia` (files "*.perfil.ini") beside the program and in the user's
    /// configuration folder. One: taken without a question. Several: `elegir` is asked for an index (-1
    /// cancels). None: the embedded default is made. Answers the path of the profile's file, or the empty
    /// text.
    QString seleccionarPerfil(const QString &nombreDeFamilia);
    /// True where nothing tells of any stores: there is no profile, and no embedded store beside the program
    /// or in the user's configuration folder.
    bool primerInicio() const;
    /// Where the embedded default is made: the first of `carpetas` that can be written, else the last.
    QString carpetaDelDefecto() const;
    /// Takes this file without looking around; false (with `error` in Spanish) when it cannot be read.
    bool usarPerfil(const QString &ruta, QString *error = nullptr);
    /// Asked when several profiles exist.
    std::function<int(const std::vector<PerfilEncontrado> &)> elegir;
    /// Folders searched for profiles; tests replace them.
    QStringList carpetas;

    /// Reads the chosen profile; with none chosen the embedded stores beside the program answer, under no
    /// name. A profile that cannot be read or that names a missing file or an unreachable server raises
    /// Falla with one Spanish sentence that says which and what to do (a missing file shows here, a
    /// server at first use).
    void LoadParameters();
    QString obtenerNombreDePerfilSeleccionado() const;
    QString rutaDelPerfil() const;
    /// The role that owns the stores, where the profile is one for daily work; empty where the profile's own
    /// user makes and upgrades them.
    QString rolDueno() const;
    /// The role of daily work, where the profile is the owner's; else empty.
    QString rolDeTrabajo() const;
    /// How its stores are upgraded, for a sentence: "DbUpgrade3 --perfil …", of the owner's profile for one
    /// for daily work.
    QString comoActualizar() const;
    /// One sentence for the user when the profile holds a password that others may read; else empty.
    QString aviso() const;
    /// True when seleccionarPerfil found none and made the default: its stores are still to be made.
    bool perfilRecienHecho() const;

    /// The same object at every call while this manager lives, also across CloseAllDataConnection.
    Conexion &getDataConnectionByEntity(const QString &entidad);
    QString getDataConnectionTAG(const QString &entidad) const;
    QString getDecimalSeparatorbyEntity(const QString &entidad) const;
    /// The complete date literal of the entity's dialect, delimiters included.
    QString getDateFormatbyEntity(const QString &entidad, const QDateTime &valor) const;
    /// The store's rounding text for `decimales`, around the placeholder "999.999".
    QString getNumberFormatbyEntity(int decimales, const QString &patron, const QString &entidad) const;
    /// Closes every open handle; each connection opens again at its next statement.
    void CloseAllDataConnection();

    /// What the profile says of an entity; null when it does not name it.
    const Conexion::Datos *datos(const QString &entidad) const;

 private:
    struct Interno;
    std::unique_ptr<Interno> i_;
};

/// Writes a profile of file stores, one SQLite file an entity in `carpeta`.
bool escribirPerfilDeArchivos(const QString &ruta, const QString &nombre, const QString &carpeta);
/// Writes a profile on a PostgreSQL server, one schema an entity; USUARIO stays a file in `carpetaLocal`.
bool escribirPerfilDeServidor(const QString &ruta, const QString &nombre, const QString &host, int puerto,
                              const QString &base, const QString &usuario, const QString &carpetaLocal);

/// Who a profile on a server works as.
struct PerfilDeRol {
    QString nombre;  ///< empty: the name that `desde` says
    /// host, puerto, base, usuario, clave (null: the profile holds none), and the words of the connection as
    /// the profile is to say them; none leaves those that `desde` says.
    motores::Datos servidor;
    QString dueno;    ///< a profile for daily work: the role that owns the stores
    QString trabajo;  ///< the owner's profile: the role of daily work
    /// A profile of the same base whose text it takes, everything else in it included; empty: a new one.
    QString desde;
    QString carpetaLocal;  ///< of a new one: where USUARIO's file lies
};
/// Writes it, readable by its owner alone when it holds a password. Why it could not be written in the
/// system's words, or empty.
QString escribirPerfilDeRol(const QString &ruta, const PerfilDeRol &perfil);
/// Where the owner's profile lies beside one for daily work: "x.perfil.ini" has "x.dueno.ini", which no
/// program offers for work.
QString rutaDelDueno(const QString &rutaDelPerfil);
/// The other way round: the profile for daily work beside an owner's, where there is one; any other path is
/// its own answer.
QString rutaDeTrabajo(const QString &rutaDelPerfil);
/// Where the profiles of this user lie, beside the program's own folder.
QString carpetaDelUsuario();

}  // namespace StoreProfiles
