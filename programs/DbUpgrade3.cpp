// Makes the stores of a profile, brings older ones up, and loads tables into them.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTextStream>
#include <optional>

#include "frame/commandline.h"
#include "frame/lasthandler.h"
#include "frame/store/StoreProfiles.h"
#include "frame/store/connectwords.h"
#include "upgrade/puesta.h"
#include "upgrade/respaldo.h"
#include "upgrade/upgrade.h"
#include "upgrade/verificacion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int bien = 0;
constexpr int fallo = 1;
constexpr int partesDelAcceso = 4;

QTextStream &salida() {
    static QTextStream s(stdout);
    return s;
}
QTextStream &errores() {
    static QTextStream s(stderr);
    return s;
}

int falla(const QString &texto) {
    errores() << texto << Qt::endl;
    return fallo;
}

/// What is being done and how far, four times a second at most: short work says nothing.
void mostrarProgreso(const QString &que, qint64 hecho, qint64 total) {
    constexpr int pausa = 250;
    static QElapsedTimer reloj = [] {
        QElapsedTimer r;
        r.start();
        return r;
    }();
    if (reloj.elapsed() < pausa) return;
    reloj.restart();
    salida() << (total > 0 ? u"  %1 (%2 %)"_s.arg(que, QString::number(hecho * 100 / total)) : u"  "_s + que)
             << Qt::endl;
}

/// "host,puerto,base,usuario"; nothing when it is not that.
std::optional<Conexion::Datos> leerAcceso(const QString &texto) {
    const QStringList partes = texto.split(QLatin1Char(','));
    bool numero = false;
    Conexion::Datos acceso;
    acceso.motor = &motores::servidor();
    acceso.host = partes.value(0).trimmed();
    acceso.puerto = partes.value(1).trimmed().toInt(&numero);
    acceso.base = partes.value(2).trimmed();
    acceso.usuario = partes.value(3).trimmed();
    if (partes.size() != partesDelAcceso || !numero || acceso.host.isEmpty() || acceso.base.isEmpty() ||
        acceso.usuario.isEmpty())
        return std::nullopt;
    return acceso;
}

QString defectoDeAcceso(const QString &texto) {
    if (leerAcceso(texto)) return {};
    // The fifth may well be a password, which is not to be seen again.
    if (texto.count(QLatin1Char(',')) >= partesDelAcceso)
        return u"son cuatro datos, host,puerto,base,usuario, y ninguna contraseña"_s;
    return u"\"%1\" no es host,puerto,base,usuario"_s.arg(texto);
}

QString defectoDeRoles(const QString &texto) {
    const QStringList roles = texto.split(QLatin1Char(','));
    const bool sirve =
        roles.size() == 2 && !roles.at(0).trimmed().isEmpty() && !roles.at(1).trimmed().isEmpty();
    return sirve ? QString() : u"\"%1\" no es DUEÑO,TRABAJO"_s.arg(texto);
}

QString defectoDePalabra(const QString &texto) {
    const QString palabra = texto.section(QLatin1Char('='), 0, 0);
    if (texto.contains(QLatin1Char('=')) && motores::palabrasDelPerfil().contains(palabra)) return {};
    return u"\"%1\" no es una palabra de la conexión (%2) con su valor"_s.arg(
        palabra, motores::palabrasDelPerfil().join(", "_L1));
}

QString defectoDeCarga(const QString &texto) {
    return texto.indexOf(QLatin1Char('=')) > 0 ? QString() : u"\"%1\" no es TABLA=ARCHIVO"_s.arg(texto);
}

consola::Programa descripcion() {
    return {
        .nombre = "DbUpgrade3",
        .texto = u"Crea los stores de un perfil, los lleva a la versión %1 y carga tablas en ellos."_s.arg(
            actualizacion::versionDelStore),
        .opciones =
            {
                {.nombre = "perfil",
                 .valor = "ARCHIVO",
                 .texto = "El perfil que dice dónde están los stores; sin ella, el único que haya. Si no hay "
                          "ninguno se crea uno de stores de archivo."},
                {.nombre = "crear-archivos",
                 .valor = "CARPETA",
                 .texto = "Escribe antes un perfil de stores de archivo en esa carpeta.",
                 .excluyeA = "crear-servidor"},
                {.nombre = "crear-servidor",
                 .valor = "DATOS",
                 .texto =
                     "Prepara antes un servidor: la base si no está, un rol que es su dueño y otro que "
                     "trabaja en ella, y un perfil para cada uno. Los datos son host,puerto,base,usuario "
                     "de quien puede crearlos; su contraseña va en PGPASSWORD.",
                 .control = defectoDeAcceso},
                {.nombre = "roles",
                 .valor = "DUEÑO,TRABAJO",
                 .texto =
                     "Los nombres de los dos roles; sin ella, BASE_dueno y BASE_trabajo. Las contraseñas "
                     "van en ZENDRA_CLAVE_DUENO y ZENDRA_CLAVE_TRABAJO; sin ellas se inventan y quedan en "
                     "los perfiles.",
                 .control = defectoDeRoles,
                 .soloCon = "crear-servidor"},
                {.nombre = "sin-roles",
                 .texto = "No crea roles: el usuario dado es dueño de la base y trabaja en ella.",
                 .soloCon = "crear-servidor",
                 .excluyeA = "roles"},
                {.nombre = "conexion",
                 .valor = "PALABRA=VALOR",
                 .texto =
                     "Cómo se conecta el perfil nuevo, en palabras de la biblioteca de PostgreSQL: sslmode, "
                     "sslrootcert, sslcert, sslkey, sslcrl, connect_timeout, tcp_user_timeout. Los archivos son "
                     "relativos a la carpeta del perfil.",
                 .repetible = true,
                 .control = defectoDePalabra,
                 .soloCon = "crear-servidor"},
                {.nombre = "demostracion", .texto = "Carga los datos de demostración en las tablas vacías."},
                {.nombre = "cargar",
                 .valor = "TABLA=ARCHIVO",
                 .texto = "Carga un CSV con encabezado en una tabla.",
                 .repetible = true,
                 .control = defectoDeCarga},
                {.nombre = "reemplazar", .texto = "Vacía cada tabla antes de cargarla.", .soloCon = "cargar"},
                {.nombre = "nomenclador",
                 .valor = "ARCHIVO",
                 .texto = "Carga un nomenclador en CSV con encabezado."},
                {.nombre = "respaldo",
                 .valor = "ARCHIVO",
                 .texto =
                     "Sólo escribe en un archivo comprimido todos los stores, como están; se puede seguir "
                     "trabajando.",
                 .excluyeA =
                     "restaurar verificar demostracion cargar nomenclador crear-archivos crear-servidor"},
                {.nombre = "restaurar",
                 .valor = "ARCHIVO",
                 .texto = "Trae un respaldo a un perfil cuyos stores faltan o están vacíos.",
                 .excluyeA = "verificar demostracion cargar nomenclador"},
                {.nombre = "verificar",
                 .texto =
                     "Sólo mira todos los stores y cuenta lo que encuentra; termina con 1 si algo está mal.",
                 .excluyeA = "demostracion cargar nomenclador crear-archivos crear-servidor"},
                {.nombre = "unidad",
                 .valor = "CODIGO",
                 .texto = "La unidad estadística para lo que el nomenclador no diga.",
                 .soloCon = "nomenclador"},
            },
        .nota = "Termina con 0 si hizo lo pedido, con 1 si falló y con 2 si el pedido está mal hecho.",
    };
}

/// Tells what a load did; the number of rows it did not understand does not make it a failure.
int contar(const QString &archivo, const actualizacion::ResultadoCsv &r) {
    for (const QString &aviso : r.avisos) salida() << u"  %1, %2"_s.arg(archivo, aviso) << Qt::endl;
    if (!r.ok) return falla(r.error);
    salida() << u"%1: %2 filas cargadas, %3 avisos."_s.arg(archivo, QString::number(r.cargadas),
                                                           QString::number(r.avisos.size()))
             << Qt::endl;
    return bien;
}

/// A profile of file stores in the folder that was asked for; its path into `ruta`, or what is wrong.
QString crearPerfilDeArchivos(const QString &enCarpeta, QString &ruta) {
    const QString carpeta = QDir(enCarpeta).absolutePath();
    if (ruta.isEmpty()) ruta = carpeta + u"/zendra.perfil.ini"_s;
    if (QDir().mkpath(carpeta) && StoreProfiles::escribirPerfilDeArchivos(ruta, u"Local"_s, carpeta))
        return {};
    return u"No se puede escribir el perfil %1; revise los permisos de su carpeta."_s.arg(ruta);
}

/// A server made ready, with its profiles; the path of the one to go on with into `ruta`, or what is wrong.
QString crearPerfilDeServidor(const consola::Pedido &pedido, QString &ruta) {
    if (ruta.isEmpty()) ruta = StoreProfiles::carpetaDelUsuario() + u"/servidor.perfil.ini"_s;
    actualizacion::PedidoDeServidor p{
        ruta, *leerAcceso(pedido.valor("crear-servidor")), !pedido.tiene("sin-roles"), {}, {}, {}};
    p.roles = roles::DeLaBase(p.acceso.base);
    if (pedido.tiene("roles")) {
        const QStringList nombres = pedido.valor("roles").split(QLatin1Char(','));
        p.roles = {nombres.at(0).trimmed(), nombres.at(1).trimmed()};
    }
    for (const QString &par : pedido.valores("conexion"))
        p.palabras.emplace_back(par.section(QLatin1Char('='), 0, 0), par.section(QLatin1Char('='), 1));
    p.claves = {qEnvironmentVariable("ZENDRA_CLAVE_DUENO"), qEnvironmentVariable("ZENDRA_CLAVE_TRABAJO")};
    const actualizacion::ServidorPuesto puesto = actualizacion::PonerServidor(p);
    for (const QString &cambio : puesto.cambios) salida() << cambio << Qt::endl;
    ruta = puesto.ruta;
    return puesto.error;
}

/// The profile to work on, written first when that was asked for; its path into `ruta`, or what is wrong.
QString prepararPerfil(const consola::Pedido &pedido, QString &ruta) {
    ruta = pedido.valor("perfil");
    const bool dado = !ruta.isEmpty();
    QString error;
    if (pedido.tiene("crear-archivos")) {
        error = crearPerfilDeArchivos(pedido.valor("crear-archivos"), ruta);
    } else if (pedido.tiene("crear-servidor")) {
        return crearPerfilDeServidor(pedido, ruta);
    } else if (dado) {
        return {};
    } else {
        StoreProfiles::SPMain manager;
        manager.elegir = [](const std::vector<PerfilEncontrado> &) { return -1; };
        ruta = manager.seleccionarPerfil(u"Zendra"_s);
    }
    if (error.isEmpty() && !ruta.isEmpty()) salida() << u"Perfil: %1"_s.arg(ruta) << Qt::endl;
    return error;
}

int verificar(const QString &ruta) {
    const actualizacion::Verificacion v = actualizacion::Verificar(ruta);
    for (const QString &tabla : v.tablas) salida() << tabla << Qt::endl;
    for (const QString &resto : v.restos)
        salida() << u"Restos, que no son un defecto: "_s << resto << Qt::endl;
    if (!v.ok) return falla(v.error);
    for (const QString &defecto : v.defectos) salida() << u"DEFECTO "_s << defecto << Qt::endl;
    salida() << (v.defectos.isEmpty() ? u"Todo está bien."_s
                                      : u"Se encontraron %1 defectos."_s.arg(v.defectos.size()))
             << Qt::endl;
    return v.defectos.isEmpty() ? bien : fallo;
}

int respaldar(const QString &ruta, const QString &archivo) {
    const actualizacion::Resultado hecho = actualizacion::Respaldar(ruta, archivo, mostrarProgreso);
    if (!hecho.ok) return falla(hecho.error);
    for (const QString &cambio : hecho.cambios) salida() << cambio << Qt::endl;
    return bien;
}

int trabajar(const consola::Pedido &pedido) {
    QString ruta;
    if (const QString error = prepararPerfil(pedido, ruta); !error.isEmpty()) return falla(error);
    if (ruta.isEmpty()) {
        falla(u"Hay varios perfiles; indique uno con --perfil."_s);
        return consola::malUso;
    }
    StoreProfiles::SPMain manager;
    if (manager.usarPerfil(ruta) && !manager.aviso().isEmpty()) errores() << manager.aviso() << Qt::endl;
    if (pedido.tiene("verificar")) return verificar(ruta);
    if (pedido.tiene("respaldo")) return respaldar(ruta, pedido.valor("respaldo"));
    const actualizacion::Resultado hecho =
        pedido.tiene("restaurar") ? actualizacion::Restaurar(ruta, pedido.valor("restaurar"), mostrarProgreso)
                                  : actualizacion::Actualizar(ruta, mostrarProgreso);
    if (!hecho.ok) return falla(hecho.error);
    for (const QString &cambio : hecho.cambios) salida() << cambio << Qt::endl;
    salida() << (hecho.cambios.isEmpty() ? u"Los stores ya estaban en la versión %1."_s
                                         : u"Los stores están en la versión %1."_s)
                    .arg(actualizacion::versionDelStore)
             << Qt::endl;

    if (pedido.tiene("demostracion")) {
        const actualizacion::Resultado demo = actualizacion::CargarDemostracion(ruta, {});
        if (!demo.ok) return falla(demo.error);
        for (const QString &cambio : demo.cambios) salida() << cambio << Qt::endl;
        salida() << u"Datos de demostración cargados."_s << Qt::endl;
    }
    int estado = bien;
    for (const QString &par : pedido.valores("cargar")) {
        const qsizetype igual = par.indexOf(QLatin1Char('='));
        const QString archivo = par.mid(igual + 1);
        const int este =
            contar(archivo, actualizacion::CargarCsv(ruta, par.left(igual), archivo,
                                                     pedido.tiene("reemplazar"), {}, mostrarProgreso));
        estado = std::max(estado, este);
    }
    if (pedido.tiene("nomenclador")) {
        const QString archivo = pedido.valor("nomenclador");
        const int este = contar(archivo, actualizacion::CargarNomenclador(
                                             ruta, archivo, pedido.valor("unidad"), mostrarProgreso));
        estado = std::max(estado, este);
    }
    return estado;
}

}  // namespace

int main(int argc, char **argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"DbUpgrade3"_s);
    const consola::Pedido pedido = consola::Leer(descripcion(), QCoreApplication::arguments());
    if (pedido.que != consola::Que::Trabajar) return consola::Contestar(pedido);
    return CorrerConUltimaDefensa([&pedido] { return trabajar(pedido); },
                                  [](const QString &texto) { falla(texto); }, fallo);
}
