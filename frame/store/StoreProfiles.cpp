#include "frame/store/StoreProfiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

#include "frame/base/ini.h"
#include "frame/base/privatefile.h"
#include "frame/store/connectwords.h"

using namespace Qt::StringLiterals;

namespace StoreProfiles {

namespace {

const QString sufijoDePerfil = u".perfil.ini"_s;
const QString sufijoDelDueno = u".dueno.ini"_s;

const QString seccionDelPerfil = u"PERFIL"_s;
const QString claveDelNombre = u"nombre"_s;
const QString claveDelDueno = u"dueno"_s;
const QString claveDelTrabajo = u"trabajo"_s;

using motores::Datos;
using motores::Seccion;

QString otro(const QString &valor, const QString &defecto) {
    return valor.isEmpty() ? defecto : valor;
}

/// What one section says; null when the profile does not name the entity.
std::unique_ptr<Datos> leerEntidad(const QString &ruta, const QString &entidad) {
    const Seccion seccion{ruta, entidad};
    const QString driver = seccion.valor("driver").toLower();
    if (driver.isEmpty()) return nullptr;
    auto datos = std::make_unique<Datos>();
    datos->entidad = entidad;
    datos->motor = motores::porDriver(driver);
    if (datos->motor == nullptr)
        Seccion::rechazar(
            u"El perfil %1 dice driver=%2 en la sección [%3]; use \"archivo\" o \"servidor\"."_s.arg(
                ruta, driver, entidad));
    datos->motor->leer(seccion, *datos);
    datos->separadorDecimal = seccion.valor("separador", u"."_s);
    datos->formaDeFecha = seccion.valor("fecha", datos->motor->formaDeFecha);
    // Quotes around a whole value belong to the file's form and are gone by here; a literal needs its own.
    if (datos->formaDeFecha.size() < 2 || datos->formaDeFecha.front() != datos->formaDeFecha.back() ||
        datos->formaDeFecha.front().isLetter())
        datos->formaDeFecha = QLatin1Char('\'') + datos->formaDeFecha + QLatin1Char('\'');
    return datos;
}

bool juntos(const Datos &a, const Datos &b) {
    return a.motor == b.motor && a.motor->juntos(a, b);
}

bool escribir(const QString &ruta, const QStringList &lineas) {
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(BytesDeIni(lineas)) > 0;
}

QStringList cabeza(const QString &nombre) {
    return {QLatin1Char('[') + seccionDelPerfil + QLatin1Char(']'),
            claveDelNombre + QLatin1Char('=') + nombre};
}

/// One connection reaches all entities of a base: what their sections ask of it has to be the same. The
/// sentence that refuses a profile where it is not, or empty.
QString palabrasEncontradas(const QString &ruta, const std::map<QString, std::unique_ptr<Datos>> &secciones) {
    for (const auto &[una, datos] : secciones)
        for (const auto &[otra, otros] : secciones)
            if (juntos(*datos, *otros) && datos->palabras != otros->palabras)
                return u"El perfil %1 pide la conexión con la base %2 de dos maneras, en [%3] y en [%4]; "
                       "escriba las mismas palabras (%5) en las dos."_s.arg(
                           ruta, datos->base, una, otra, motores::palabrasDelPerfil().join(", "_L1));
    return {};
}

/// The entities that have stores of their own; the last two belong to other programs' forms.
QStringList conStore() {
    return entidades().mid(0, 7);
}

using Secciones = std::map<QString, std::unique_ptr<Datos>>;

void presentarVecinos(Secciones &secciones) {
    for (const auto &[entidad, datos] : secciones) {
        for (const QString &otra : entidades()) {
            const auto vecino = secciones.find(otra);
            if (otra == entidad || vecino == secciones.end() || !juntos(*datos, *vecino->second)) continue;
            datos->vecinos.emplace_back(otra, datos->motor->lugar(*vecino->second));
            if (datos->motor->porViaje > 1 && !datos->tablasOrdenadas)
                datos->tablasOrdenadas = vecino->second->tablasOrdenadas;
        }
        if (datos->motor->porViaje > 1 && !datos->tablasOrdenadas)
            datos->tablasOrdenadas = std::make_shared<std::optional<QSet<QString>>>();
    }
}

QString nombreDeArchivo(const QString &entidad) {
    // ESTADO keeps the file name its libraries know.
    return (entidad == "ESTADO"_L1 ? u"estados"_s : entidad.toLower()) + ".db"_L1;
}

/// The first of `carpetas` that holds the embedded stores; empty where none does.
QString carpetaConStores(const QStringList &carpetas) {
    for (const QString &carpeta : carpetas)
        if (QFileInfo::exists(carpeta + u"/db/internos.db"_s)) return carpeta;
    return {};
}

/// Whether something can be made in `carpeta`, be it there already or not. Makes nothing.
bool sePuedeEscribir(const QString &carpeta) {
    QFileInfo info(carpeta);
    while (!info.exists() && !info.isRoot()) info = QFileInfo(info.absolutePath());
    return info.isDir() && info.isWritable();
}

std::vector<PerfilEncontrado> perfilesDe(const QStringList &carpetas) {
    std::vector<PerfilEncontrado> perfiles;
    for (const QString &carpeta : carpetas) {
        const QStringList archivos =
            QDir(carpeta).entryList({QLatin1Char('*') + sufijoDePerfil}, QDir::Files, QDir::Name);
        for (const QString &archivo : archivos) {
            const QString ruta = carpeta + QLatin1Char('/') + archivo;
            perfiles.push_back({otro(LeerIni(seccionDelPerfil, claveDelNombre, ruta),
                                     archivo.chopped(sufijoDePerfil.size())),
                                ruta});
        }
    }
    return perfiles;
}

/// What answers when no profile is chosen: the embedded stores, where they are, or else where they would be
/// made.
Secciones porDefecto(const QStringList &carpetas) {
    const QString db = otro(carpetaConStores(carpetas), carpetas.value(0)) + u"/db"_s;
    Secciones datos;
    for (const QString &entidad : conStore()) {
        auto uno = std::make_unique<Datos>();
        uno->entidad = entidad;
        uno->motor = &motores::archivo();
        uno->archivo = db + QLatin1Char('/') + nombreDeArchivo(entidad);
        uno->formaDeFecha = uno->motor->formaDeFecha;
        datos[entidad] = std::move(uno);
    }
    presentarVecinos(datos);
    return datos;
}

}  // namespace

const QStringList &entidades() {
    static const QStringList todas{u"INTERNOS"_s,  u"SYSTABLAS"_s, u"NCM"_s,
                                   u"CATALOGOS"_s, u"PERSONAL"_s,  u"USUARIO"_s,
                                   u"ESTADO"_s,    u"EDCADASSA"_s, u"BOLDEP"_s};
    return todas;
}

struct SPMain::Interno {
    QString ruta;
    QString nombre;
    QString rolDueno, rolDeTrabajo;
    QString falla;  ///< why the chosen profile cannot be used
    bool recienHecho = false;
    Secciones datos;
    std::map<QString, std::unique_ptr<Conexion>> conexiones;

    const Datos &de(const QString &entidad) const {
        const auto encontrado = datos.find(entidad);
        if (encontrado == datos.end())
            Seccion::rechazar(u"El perfil %1 no dice dónde está el store %2; agregue la sección [%2]."_s.arg(
                ruta, entidad));
        return *encontrado->second;
    }
};

QString carpetaDelUsuario() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/zendra"_s;
}

SPMain::SPMain() : i_(std::make_unique<Interno>()) {
    const QString programa = QCoreApplication::instance() != nullptr ? QCoreApplication::applicationDirPath()
                                                                     : QDir::currentPath();
    carpetas << programa << carpetaDelUsuario();
}

SPMain::~SPMain() = default;

bool SPMain::primerInicio() const {
    return perfilesDe(carpetas).empty() && carpetaConStores(carpetas).isEmpty();
}

QString SPMain::carpetaDelDefecto() const {
    const auto escribible = std::find_if(carpetas.begin(), carpetas.end(), sePuedeEscribir);
    return escribible == carpetas.end() ? carpetas.value(carpetas.size() - 1) : *escribible;
}

QString SPMain::seleccionarPerfil(const QString &nombreDeFamilia) {
    const std::vector<PerfilEncontrado> perfiles = perfilesDe(carpetas);
    if (perfiles.empty()) {
        // Stores that are there without a profile are the ones it names.
        const QString conStores = carpetaConStores(carpetas);
        for (const QString &carpeta : carpetas) {
            QString ruta = carpeta + QLatin1Char('/') + nombreDeFamilia + sufijoDePerfil;
            const QString db = otro(conStores, carpeta) + u"/db"_s;
            if (QDir().mkpath(db) && escribirPerfilDeArchivos(ruta, nombreDeFamilia, db)) {
                usarPerfil(ruta);
                i_->recienHecho = true;
                return ruta;
            }
        }
        return {};
    }
    int cual = 0;
    if (perfiles.size() > 1) cual = elegir ? elegir(perfiles) : -1;
    if (cual < 0 || cual >= static_cast<int>(perfiles.size())) return {};
    usarPerfil(perfiles[static_cast<std::size_t>(cual)].ruta);
    return perfiles[static_cast<std::size_t>(cual)].ruta;
}

bool SPMain::usarPerfil(const QString &ruta, QString *error) {
    const QFileInfo info(ruta);
    const auto fallar = [&](const QString &texto) {
        i_->falla = texto;
        if (error != nullptr) *error = texto;
        return false;
    };
    if (!info.exists())
        return fallar(u"No existe el perfil %1; corrija la ruta o créelo con DbUpgrade3."_s.arg(ruta));
    if (!info.isFile() || !info.isReadable())
        return fallar(u"No se puede leer el perfil %1; revise sus permisos."_s.arg(ruta));
    Secciones datos;
    try {
        for (const QString &entidad : entidades())
            if (auto de = leerEntidad(ruta, entidad)) datos[entidad] = std::move(de);
    } catch (const Falla &e) {
        return fallar(e.descripcion);
    }
    if (const QString defecto = palabrasEncontradas(ruta, datos); !defecto.isEmpty()) return fallar(defecto);
    if (datos.empty())
        return fallar(
            u"El archivo %1 no es un perfil: no nombra ningún store; corrija la ruta o sus secciones."_s.arg(
                ruta));
    presentarVecinos(datos);
    i_->falla.clear();
    i_->conexiones.clear();
    i_->datos = std::move(datos);
    i_->ruta = info.absoluteFilePath();
    i_->nombre = otro(LeerIni(seccionDelPerfil, claveDelNombre, ruta), info.completeBaseName());
    i_->rolDueno = LeerIni(seccionDelPerfil, claveDelDueno, ruta);
    i_->rolDeTrabajo = LeerIni(seccionDelPerfil, claveDelTrabajo, ruta);
    return true;
}

void SPMain::LoadParameters() {
    if (!i_->falla.isEmpty()) Seccion::rechazar(i_->falla);
    if (i_->datos.empty()) i_->datos = porDefecto(carpetas);
    for (const auto &[entidad, datos] : i_->datos) {
        const QString falta = datos->motor->archivoQueFalta(*datos);
        if (falta.isEmpty()) continue;
        const QString quien = i_->ruta.isEmpty() ? u"el perfil incorporado"_s : u"el perfil "_s + i_->ruta;
        Seccion::rechazar(
            u"No existe el archivo %1 que %2 nombra para %3; corrija el perfil o créelo con DbUpgrade3."_s
                .arg(falta, quien, entidad));
    }
}

QString SPMain::obtenerNombreDePerfilSeleccionado() const {
    return i_->nombre;
}
QString SPMain::rutaDelPerfil() const {
    return i_->ruta;
}
QString SPMain::rolDueno() const {
    return i_->rolDueno;
}
QString SPMain::rolDeTrabajo() const {
    return i_->rolDeTrabajo;
}
QString SPMain::comoActualizar() const {
    const QString dueno = rolDueno();
    if (dueno.isEmpty()) return u"DbUpgrade3 --perfil "_s + i_->ruta;
    const QString suPerfil = rutaDelDueno(i_->ruta);
    // On the other workstations it is not there, and should not be.
    if (QFileInfo::exists(suPerfil)) return u"DbUpgrade3 --perfil "_s + suPerfil;
    return u"DbUpgrade3 con el perfil de su dueño, el rol %1 (%2, donde se creó la base)"_s.arg(
        dueno, QFileInfo(suPerfil).fileName());
}
QString SPMain::aviso() const {
    const bool conClave = std::any_of(i_->datos.begin(), i_->datos.end(),
                                      [](const auto &uno) { return !uno.second->clave.isEmpty(); });
    if (!conClave || !LoAlcanzanOtros(i_->ruta)) return {};
    return u"Otras personas de esta PC pueden leer el perfil %1, que guarda una contraseña; deje que sólo su "
           "dueño lo lea (chmod 600)."_s.arg(i_->ruta);
}
bool SPMain::perfilRecienHecho() const {
    return i_->recienHecho;
}

Conexion &SPMain::getDataConnectionByEntity(const QString &entidad) {
    auto &conexion = i_->conexiones[entidad];
    if (!conexion) conexion = std::make_unique<Conexion>(std::make_unique<Datos>(i_->de(entidad)));
    return *conexion;
}

QString SPMain::getDataConnectionTAG(const QString &entidad) const {
    return i_->de(entidad).motor->etiqueta;
}

QString SPMain::getDecimalSeparatorbyEntity(const QString &entidad) const {
    return i_->de(entidad).separadorDecimal;
}

QString SPMain::getDateFormatbyEntity(const QString &entidad, const QDateTime &valor) const {
    const QString forma = i_->de(entidad).formaDeFecha;
    // The delimiters stand around the pattern; QDateTime would read a quote as its own.
    const QString dentro = valor.toString(forma.mid(1, forma.size() - 2));
    return forma.front() + dentro + forma.back();
}

QString SPMain::getNumberFormatbyEntity(int decimales, const QString &, const QString &) const {
    return u"ROUND(999.999,%1)"_s.arg(decimales);
}

void SPMain::CloseAllDataConnection() {
    for (const auto &[entidad, conexion] : i_->conexiones) conexion->cerrar();
}

const Datos *SPMain::datos(const QString &entidad) const {
    const auto encontrado = i_->datos.find(entidad);
    return encontrado == i_->datos.end() ? nullptr : encontrado->second.get();
}

bool escribirPerfilDeArchivos(const QString &ruta, const QString &nombre, const QString &carpeta) {
    QStringList lineas = cabeza(nombre);
    for (const QString &entidad : conStore())
        lineas << QString() << QLatin1Char('[') + entidad + QLatin1Char(']')
               << u"driver="_s + motores::archivo().driver
               << u"archivo=%1/%2"_s.arg(carpeta, nombreDeArchivo(entidad));
    return escribir(ruta, lineas);
}

namespace {

QStringList lineasDeServidor(const QString &nombre, const Datos &servidor, const QString &carpetaLocal) {
    QStringList lineas = cabeza(nombre);
    for (const QString &entidad : conStore()) {
        lineas << QString() << QLatin1Char('[') + entidad + QLatin1Char(']');
        if (entidad == "USUARIO"_L1)
            lineas << u"driver="_s + motores::archivo().driver
                   << u"archivo=%1/%2"_s.arg(carpetaLocal, nombreDeArchivo(entidad));
        else
            lineas << u"driver="_s + motores::servidor().driver << u"host="_s + servidor.host
                   << u"puerto=%1"_s.arg(servidor.puerto) << u"base="_s + servidor.base
                   << u"esquema="_s + entidad.toLower() << u"usuario="_s + servidor.usuario;
    }
    return lineas;
}

/// In quotes, so that blanks and quotes of its own ends stay its own.
QString paraElArchivo(const QString &clave) {
    return clave.isNull() ? QString() : QLatin1Char('"') + clave + QLatin1Char('"');
}

/// The entities of a profile that lie on the base of `servidor`.
QStringList deLaBase(const QString &ruta, const Datos &servidor) {
    SPMain manager;
    manager.usarPerfil(ruta);
    QStringList nombres;
    for (const QString &entidad : entidades())
        if (const Datos *datos = manager.datos(entidad); datos != nullptr &&
                                                         datos->motor == &motores::servidor() &&
                                                         datos->motor->juntos(*datos, servidor))
            nombres << entidad;
    return nombres;
}

}  // namespace

bool escribirPerfilDeServidor(const QString &ruta, const QString &nombre, const QString &host, int puerto,
                              const QString &base, const QString &usuario, const QString &carpetaLocal) {
    Datos servidor;
    servidor.host = host;
    servidor.puerto = puerto;
    servidor.base = base;
    servidor.usuario = usuario;
    return escribir(ruta, lineasDeServidor(nombre, servidor, carpetaLocal));
}

QString escribirPerfilDeRol(const QString &ruta, const PerfilDeRol &perfil) {
    const Datos &servidor = perfil.servidor;
    const bool nuevo = perfil.desde.isEmpty();
    QStringList lineas = nuevo ? lineasDeServidor(perfil.nombre, servidor, perfil.carpetaLocal)
                               : LeerLineasDeIni(perfil.desde);
    QStringList suyas = nuevo ? conStore() : deLaBase(perfil.desde, servidor);
    if (nuevo) suyas.removeAll(u"USUARIO"_s);
    const auto oNada = [](const QString &texto) { return texto.isEmpty() ? QString() : texto; };
    if (!perfil.nombre.isEmpty()) PonerEnIni(lineas, seccionDelPerfil, claveDelNombre, perfil.nombre);
    PonerEnIni(lineas, seccionDelPerfil, claveDelDueno, oNada(perfil.dueno));
    PonerEnIni(lineas, seccionDelPerfil, claveDelTrabajo, oNada(perfil.trabajo));
    for (const QString &entidad : suyas) {
        PonerEnIni(lineas, entidad, u"usuario"_s, servidor.usuario);
        PonerEnIni(lineas, entidad, u"clave"_s, paraElArchivo(servidor.clave));
        for (const auto &[palabra, valor] : servidor.palabras) PonerEnIni(lineas, entidad, palabra, valor);
    }
    if (!servidor.clave.isNull()) return EscribirPrivado(ruta, BytesDeIni(lineas));
    return escribir(ruta, lineas) ? QString() : u"sin permiso"_s;
}

QString rutaDelDueno(const QString &rutaDelPerfil) {
    for (const QString &fin : {sufijoDePerfil, u".ini"_s})
        if (rutaDelPerfil.endsWith(fin)) return rutaDelPerfil.chopped(fin.size()) + sufijoDelDueno;
    return rutaDelPerfil + sufijoDelDueno;
}

QString rutaDeTrabajo(const QString &rutaDelPerfil) {
    if (!rutaDelPerfil.endsWith(sufijoDelDueno)) return rutaDelPerfil;
    const QString nombre = rutaDelPerfil.chopped(sufijoDelDueno.size());
    for (const QString &fin : {sufijoDePerfil, u".ini"_s})
        if (QFile::exists(nombre + fin)) return nombre + fin;
    return rutaDelPerfil;
}

}  // namespace StoreProfiles
