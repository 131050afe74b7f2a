#include "upgrade/respaldo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <map>
#include <memory>

#include "upgrade/almacen.h"
#include "upgrade/instantanea.h"
#include "upgrade/paquete.h"
#include "upgrade/schema.h"
#include "upgrade/volcado.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

namespace {

const QString deArchivo = u"archivo"_s;
const QString deServidor = u"servidor"_s;

/// What a profile has to be backed up or brought back.
struct Stores {
    StoreProfiles::SPMain manager;
    /// The entities of each file, by its path.
    std::map<QString, QStringList> archivos;
    std::vector<const Conexion::Datos *> servidor;
};

void leerStores(const QString &rutaDelPerfil, Stores &s) {
    leerPerfil(s.manager, rutaDelPerfil);
    for (const QString &entidad : StoreProfiles::entidades()) {
        const Conexion::Datos *datos = s.manager.datos(entidad);
        if (datos == nullptr) continue;
        if (datos->motor == &motores::servidor())
            s.servidor.push_back(datos);
        else
            s.archivos[datos->archivo] << entidad;
    }
}

QString juntas(const std::vector<const Conexion::Datos *> &servidor, QString Conexion::Datos::*que) {
    QStringList lista;
    for (const Conexion::Datos *datos : servidor) lista << datos->*que;
    return lista.join(u',');
}

/// A folder beside the file: the room and the rights that the file needs are looked for in one place.
std::unique_ptr<QTemporaryDir> carpetaDeTrabajo(const QString &cerca) {
    auto carpeta = std::make_unique<QTemporaryDir>(QFileInfo(cerca).absolutePath() + u"/respaldo-XXXXXX"_s);
    if (!carpeta->isValid())
        Detener(u"No se puede escribir en la carpeta %1 (%2); elija otra."_s.arg(
            QFileInfo(cerca).absolutePath(), carpeta->errorString()));
    return carpeta;
}

void avisar(const Progreso &progreso, const QString &que) {
    if (progreso) progreso(que, 0, 0);
}

void respaldar(const QString &rutaDelPerfil, const QString &archivo, const Progreso &progreso,
               Resultado &resultado) {
    Stores s;
    leerStores(rutaDelPerfil, s);
    const auto carpeta = carpetaDeTrabajo(archivo);
    paquete::Contenido contenido{QDateTime::currentDateTime(), versionDelStore, {}};
    QStringList archivos;
    QStringList copias;
    for (const auto &[ruta, entidades] : s.archivos) {
        if (!QFileInfo::exists(ruta)) {
            if (esquema::tablasDe(entidades.front()).isEmpty()) continue;
            Detener(
                u"No existe el archivo %1 que nombra el perfil; corrija el perfil o créelo con DbUpgrade3."_s
                    .arg(ruta));
        }
        const QString nombre = entidades.front() + u".db"_s;
        archivos << ruta;
        copias << carpeta->filePath(nombre);
        contenido.piezas.push_back({entidades.join(u','), deArchivo, nombre, copias.back(), {}, {}});
    }
    avisar(progreso, u"Archivos"_s);
    instantanea::Tomar(archivos, copias);
    if (!s.servidor.empty()) {
        avisar(progreso, u"Servidor"_s);
        const QString nombre = u"servidor.dump"_s;
        const QString esquemas = juntas(s.servidor, &Conexion::Datos::esquema);
        volcado::Volcar(*s.servidor.front(), esquemas.split(u','), carpeta->filePath(nombre));
        contenido.piezas.push_back({juntas(s.servidor, &Conexion::Datos::entidad),
                                    deServidor,
                                    nombre,
                                    carpeta->filePath(nombre),
                                    esquemas,
                                    {}});
    }
    avisar(progreso, u"Compresión"_s);
    paquete::Escribir(archivo, contenido);
    resultado.cambios << u"se escribió el respaldo %1 (%2 stores)"_s.arg(
        archivo, QString::number(s.archivos.size() + s.servidor.size()));
}

/// Whether a store of the profile holds rows of ours; the row that tells the version is none.
bool tieneFilas(const Almacen &a, const Conexion::Datos &datos) {
    const QStringList hay = a.tablas(datos.esquema);
    for (const esquema::Tabla &t : esquema::tablas()) {
        if (t.entidad != datos.entidad || t.nombre == "version"_L1 || !hay.contains(t.nombre)) continue;
        const QString una = u"select 1 from %1 limit 1"_s.arg(a.nombreDe(datos.esquema, t.nombre));
        if (!a.lista(una).isEmpty()) return true;
    }
    return false;
}

void exigirVacio(Stores &s, const Almacen &a, const Conexion::Datos &datos) {
    if (!tieneFilas(a, datos)) return;
    Detener(
        u"El store %1 del perfil %2 ya tiene datos, que un respaldo no pisa; restaure en un perfil nuevo."_s
            .arg(datos.entidad, s.manager.rutaDelPerfil()));
}

void exigirArchivosVacios(Stores &s) {
    // A file that is not there needs no look, and the manager refuses a profile with one.
    for (const auto &[ruta, entidades] : s.archivos)
        if (!QFileInfo::exists(ruta)) return;
    s.manager.LoadParameters();
    for (const auto &[ruta, entidades] : s.archivos)
        for (const QString &entidad : entidades) {
            const Conexion::Datos &datos = *s.manager.datos(entidad);
            exigirVacio(s, Almacen(datos, s.manager), datos);
        }
    s.manager.CloseAllDataConnection();
}

void exigirMismaClase(const Stores &s, const paquete::Contenido &contenido, const QString &archivo) {
    QStringList deArchivos;
    for (const auto &[ruta, entidades] : s.archivos) deArchivos += entidades;
    for (const paquete::Pieza &p : contenido.piezas) {
        const QStringList entidades = p.entidades.split(u',');
        const bool servidor = p.motor == deServidor;
        const bool igual =
            servidor ? p.entidades == juntas(s.servidor, &Conexion::Datos::entidad)
                     : std::all_of(entidades.begin(), entidades.end(),
                                   [&](const QString &entidad) { return deArchivos.contains(entidad); });
        if (!igual)
            Detener(
                u"El respaldo %1 tiene %2 en %3 y el perfil no; use un perfil de la misma clase, o pase las "
                "operaciones con zendra_lote exportar e importar."_s.arg(
                    archivo, p.entidades, servidor ? u"un servidor"_s : u"archivos"_s));
        if (servidor && p.esquemas != juntas(s.servidor, &Conexion::Datos::esquema))
            Detener(u"El respaldo %1 es de los esquemas %2; nómbrelos así en el perfil."_s.arg(archivo,
                                                                                               p.esquemas));
    }
}

void reponerArchivo(const QString &copia, const QString &ruta) {
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    // What an empty store left beside its file is not the log of this one.
    for (const QString &resto : {u""_s, u"-wal"_s, u"-shm"_s}) QFile::remove(ruta + resto);
    if (!QFile::copy(copia, ruta))
        Detener(u"No se puede escribir el store %1; revise los permisos de su carpeta."_s.arg(ruta));
}

void reponerServidor(const Stores &s, const Almacen &a, const QString &archivo) {
    a.comenzar();
    for (const Conexion::Datos *datos : s.servidor)
        a.ejecutar(u"drop schema if exists %1 cascade"_s.arg(Almacen::comillas(datos->esquema)));
    a.confirmar();
    volcado::Reponer(*s.servidor.front(), archivo);
}

void restaurar(const QString &rutaDelPerfil, const QString &archivo, Resultado &resultado) {
    const auto carpeta = carpetaDeTrabajo(rutaDelPerfil);
    const paquete::Contenido contenido = paquete::Leer(archivo, carpeta->path());
    Stores s;
    leerStores(rutaDelPerfil, s);
    exigirMismaClase(s, contenido, archivo);
    exigirArchivosVacios(s);
    std::unique_ptr<Almacen> servidor;
    if (!s.servidor.empty()) {
        servidor = std::make_unique<Almacen>(*s.servidor.front(), s.manager);
        servidor->exigirDueno(juntas(s.servidor, &Conexion::Datos::esquema).split(u','));
        servidor->prepararServidor();
        for (const Conexion::Datos *datos : s.servidor) exigirVacio(s, *servidor, *datos);
    }
    for (const paquete::Pieza &p : contenido.piezas) {
        if (p.motor == deServidor)
            reponerServidor(s, *servidor, p.archivo);
        else
            reponerArchivo(p.archivo, s.manager.datos(p.entidades.split(u',').front())->archivo);
        resultado.cambios << u"se restauró %1"_s.arg(p.entidades);
    }
    resultado.cambios << u"el respaldo es del %1"_s.arg(contenido.momento.toString(u"dd/MM/yyyy HH:mm"_s));
}

template <typename Trabajo>
Resultado conResultado(Trabajo trabajo) {
    Resultado resultado;
    try {
        trabajo(resultado);
        resultado.ok = true;
    } catch (const Falla &e) {
        resultado.error = e.descripcion;
    }
    return resultado;
}

}  // namespace

Resultado Respaldar(const QString &rutaDelPerfil, const QString &archivo, const Progreso &progreso) {
    return conResultado([&](Resultado &r) { respaldar(rutaDelPerfil, archivo, progreso, r); });
}

Resultado Restaurar(const QString &rutaDelPerfil, const QString &archivo, const Progreso &progreso) {
    Resultado resultado = conResultado([&](Resultado &r) { restaurar(rutaDelPerfil, archivo, r); });
    if (!resultado.ok) return resultado;
    const QStringList hechos = resultado.cambios;
    resultado = Actualizar(rutaDelPerfil, progreso);
    resultado.cambios = hechos + resultado.cambios;
    return resultado;
}

}  // namespace actualizacion
