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

}  // namespace StoreProfiles
