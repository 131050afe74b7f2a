#include "upgrade/puesta.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include "frame/store/connectwords.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

namespace {

using StoreProfiles::PerfilDeRol;

/// A profile as it was found; nothing said where there is none.
struct Hallado {
    bool esta = false;
    QString nombre;
    Conexion::Datos internos;
    QStringList esquemas;  ///< those on the base that is being made ready

    /// The password that it says for `rol`; empty when its user is another.
    QString claveDe(const QString &rol) const { return internos.usuario == rol ? internos.clave : QString(); }
};

/// Raises Falla for a profile that cannot be read or is of another base.
Hallado mirar(const QString &ruta, const Conexion::Datos &acceso) {
    Hallado h;
    if (!QFileInfo::exists(ruta)) return h;
    StoreProfiles::SPMain manager;
    leerPerfil(manager, ruta);
    const auto esDeLaBase = [&acceso](const Conexion::Datos *datos) {
        return datos != nullptr && datos->motor == acceso.motor && acceso.motor->juntos(acceso, *datos);
    };
    const Conexion::Datos *internos = manager.datos(u"INTERNOS"_s);
    if (!esDeLaBase(internos))
        Detener(u"El perfil %1 ya está y no es de la base %2 de %3:%4; nombre otro con --perfil."_s.arg(
            ruta, acceso.base, acceso.host, QString::number(acceso.puerto)));
    for (const QString &entidad : StoreProfiles::entidades())
        if (const Conexion::Datos *datos = manager.datos(entidad); esDeLaBase(datos))
            h.esquemas << datos->esquema;
    h.esta = true;
    h.nombre = manager.obtenerNombreDePerfilSeleccionado();
    h.internos = *internos;
    return h;
}

void escribir(const QString &ruta, const PerfilDeRol &perfil, ServidorPuesto &puesto) {
    const QString porque = StoreProfiles::escribirPerfilDeRol(ruta, perfil);
    if (!porque.isEmpty())
        Detener(u"No se puede escribir el perfil %1 (%2); revise los permisos de su carpeta."_s.arg(ruta,
                                                                                                    porque));
    puesto.cambios << u"Perfil: %1 (usuario %2)"_s.arg(ruta, perfil.servidor.usuario);
}

void comprobarClaves(const roles::Claves &claves) {
    for (const QString &clave : {claves.dueno, claves.trabajo})
        if (std::any_of(clave.begin(), clave.end(),
                        [](QChar c) { return c.category() == QChar::Other_Control; }))
            Detener(
                u"Una contraseña de los roles lleva un carácter de control, que un perfil no guarda; dé otra."_s);
}

/// The words of `pedido` into the connection; those of the profile that is there when it names none.
void tomarConexion(const PedidoDeServidor &pedido, const Hallado &hallado, Conexion::Datos &acceso) {
    acceso.palabras = hallado.internos.palabras;
    if (pedido.palabras.empty()) return;
    const auto valor = [&pedido](const QString &palabra) {
        for (const auto &[nombre, suyo] : pedido.palabras)
            if (nombre == palabra) return suyo;
        return QString();
    };
    motores::tomarPalabras({valor, QFileInfo(pedido.ruta).absolutePath(), u"La opción --conexion"_s}, acceso);
}

void poner(const PedidoDeServidor &pedido, ServidorPuesto &puesto) {
    const QString ruta = QFileInfo(pedido.ruta).absoluteFilePath();
    const QString rutaDelDueno = StoreProfiles::rutaDelDueno(ruta);
    comprobarClaves(pedido.claves);
    const QString carpeta = QFileInfo(ruta).absolutePath();
    // Seen to ahead: the passwords of new roles stand nowhere else.
    if (!QDir().mkpath(carpeta) || !QFileInfo(carpeta).isWritable())
        Detener(u"No se puede escribir el perfil %1; revise los permisos de su carpeta."_s.arg(ruta));
    const Hallado deTrabajo = mirar(ruta, pedido.acceso);
    const Hallado delDueno = mirar(rutaDelDueno, pedido.acceso);

    roles::Pedido p{pedido.acceso, pedido.conRoles, pedido.roles, deTrabajo.esquemas, pedido.claves, {}};
    tomarConexion(pedido, deTrabajo, p.acceso);
    if (!deTrabajo.esta)
        for (const QString &entidad : StoreProfiles::entidades()) p.esquemas << entidad.toLower();
    p.sabidas = {delDueno.claveDe(p.roles.dueno), deTrabajo.claveDe(p.roles.trabajo)};
    // The one user of before may become the owner.
    if (p.sabidas.dueno.isEmpty()) p.sabidas.dueno = deTrabajo.claveDe(p.roles.dueno);
    // His own password lets him in here too.
    if (p.acceso.clave.isEmpty()) p.acceso.clave = deTrabajo.claveDe(p.acceso.usuario);
    const roles::Preparada hecho = roles::Preparar(p);
    puesto.cambios += hecho.cambios;
    if (!hecho.error.isEmpty()) Detener(hecho.error);

    PerfilDeRol perfil{deTrabajo.esta ? deTrabajo.nombre : u"Servidor"_s,
                       pedido.acceso,
                       {},
                       {},
                       deTrabajo.esta ? ruta : QString(),
                       carpeta};
    perfil.servidor.palabras = pedido.palabras;
    const auto oNinguna = [](const QString &clave) { return clave.isEmpty() ? QString() : clave; };
    if (!pedido.conRoles) {
        perfil.servidor.clave = oNinguna(p.acceso.clave);
        escribir(ruta, perfil, puesto);
        puesto.ruta = ruta;
        return;
    }
    // The owner's first: it takes the other's text as it was.
    PerfilDeRol suyo = perfil;
    suyo.nombre = delDueno.esta ? delDueno.nombre : perfil.nombre + u" (dueño)"_s;
    if (delDueno.esta) suyo.desde = rutaDelDueno;
    suyo.trabajo = pedido.roles.trabajo;
    suyo.servidor.usuario = pedido.roles.dueno;
    suyo.servidor.clave = oNinguna(hecho.claves.dueno);
    escribir(rutaDelDueno, suyo, puesto);
    perfil.dueno = pedido.roles.dueno;
    perfil.servidor.usuario = pedido.roles.trabajo;
    perfil.servidor.clave = oNinguna(hecho.claves.trabajo);
    escribir(ruta, perfil, puesto);
    puesto.ruta = rutaDelDueno;
}

}  // namespace

ServidorPuesto PonerServidor(const PedidoDeServidor &pedido) {
    ServidorPuesto puesto;
    try {
        poner(pedido, puesto);
    } catch (const Falla &e) {
        puesto.error = e.descripcion;
    }
    return puesto;
}

}  // namespace actualizacion
