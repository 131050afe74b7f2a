#include "desktop/primerosstores.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include "frame/config.h"
#include "frame/store/StoreProfiles.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

namespace {

/// A folder of this process alone, gone with everything in it at the end.
class Taller {
 public:
    explicit Taller(const QString &carpeta)
        : dir_(carpeta + u"/.creando-%1"_s.arg(QCoreApplication::applicationPid())) {
        dir_.removeRecursively();
        hecho_ = QDir().mkpath(dir_.path());
    }
    ~Taller() { dir_.removeRecursively(); }
    Taller(const Taller &) = delete;
    Taller &operator=(const Taller &) = delete;

    bool hecho() const { return hecho_; }
    const QDir &dir() const { return dir_; }

 private:
    QDir dir_;
    bool hecho_ = false;
};

QString sinPermiso(const QString &carpeta) {
    return u"No se puede escribir en la carpeta %1; revise sus permisos y el espacio libre, y vuelva a "
           "intentarlo."_s.arg(QDir::toNativeSeparators(carpeta));
}

/// Tables made are the first half; of the second, every table loaded is an equal part.
class Marcha {
 public:
    Marcha(bool conCarga, const std::function<bool(const QString &, int)> &seguir)
        : mitad_(conCarga ? 50 : 100), seguir_(seguir) {}

    void operator()(const QString &que, qint64 hecho, qint64 total) {
        const int parte = total > 0 ? static_cast<int>(hecho * 100 / total) : 0;
        int porCiento = parte * mitad_ / 100;
        if (tablasHechas_) {
            cargadas_.insert(que);
            const qint64 deCarga = (cargadas_.size() - 1) * 100 + parte;
            porCiento = mitad_ + static_cast<int>(deCarga * (100 - mitad_) / (100 * archivosDeCarga()));
        }
        tablasHechas_ = tablasHechas_ || hecho == total;
        cancelada_ = cancelada_ || !seguir_(que, std::min(porCiento, 100));
        // The one way out of a run that goes on by itself; what it was doing is undone.
        if (cancelada_) throw Falla{0, {}, u"Se canceló la creación de las bases."_s, {}};
    }
    bool cancelada() const { return cancelada_; }

 private:
    static qint64 archivosDeCarga() { return std::max<qint64>(1, QDir(u":/demo"_s).count()); }

    int mitad_;
    const std::function<bool(const QString &, int)> &seguir_;
    QSet<QString> cargadas_;
    bool tablasHechas_ = false;
    bool cancelada_ = false;
};

/// Moves a file to a place where there is none; one that is there stays.
bool poner(const QString &de, const QString &a) {
    return QFile::exists(a) || QFile::rename(de, a);
}

/// The whole of it from the workshop to its place, the profile last: it is what the next start looks for.
bool ponerTodo(const PedidoDeStores &pedido, const QDir &taller, const QString &perfilDeTaller) {
    const QString db = pedido.carpeta + u"/db"_s;
    if (!QDir().mkpath(db)) return false;
    const QStringList stores = taller.entryList({u"*.db"_s}, QDir::Files);
    for (const QString &store : stores)
        if (!poner(taller.filePath(store), db + QLatin1Char('/') + store)) return false;
    const QString perfil = pedido.carpeta + QLatin1Char('/') + QFileInfo(perfilDeTaller).fileName();
    const QString configuracion = ArchivoDelPerfil(perfilDeTaller);
    if (QFile::exists(configuracion) && !poner(configuracion, ArchivoDelPerfil(perfil))) return false;
    return StoreProfiles::escribirPerfilDeArchivos(perfil, pedido.nombre, db);
}

}  // namespace

StoresHechos HacerPrimerosStores(const PedidoDeStores &pedido,
                                 const std::function<bool(const QString &que, int porCiento)> &seguir,
                                 QString &error) {
    const Taller taller(pedido.carpeta);
    const QString perfil = taller.dir().filePath(pedido.nombre + u".perfil.ini"_s);
    if (!taller.hecho() || !StoreProfiles::escribirPerfilDeArchivos(perfil, pedido.nombre, u"."_s)) {
        error = sinPermiso(pedido.carpeta);
        return StoresHechos::No;
    }
    Marcha marcha(pedido.conDemostracion, seguir);
    const auto progreso = [&marcha](const QString &que, qint64 hecho, qint64 total) {
        marcha(que, hecho, total);
    };
    const actualizacion::Resultado hechos = pedido.conDemostracion
                                                ? actualizacion::CargarDemostracion(perfil, progreso)
                                                : actualizacion::Actualizar(perfil, progreso);
    if (marcha.cancelada()) return StoresHechos::Cancelados;
    if (!hechos.ok) {
        error = hechos.error;
        return StoresHechos::No;
    }
    if (ponerTodo(pedido, taller.dir(), perfil)) return StoresHechos::Si;
    error = sinPermiso(pedido.carpeta);
    return StoresHechos::No;
}
