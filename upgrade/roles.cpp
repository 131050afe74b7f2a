#include "upgrade/roles.h"

#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <array>

#include "frame/base/values.h"
#include "frame/store/connectwords.h"
#include "frame/store/postgres_line.h"

using namespace Qt::StringLiterals;

namespace roles {

namespace {

using actualizacion::Almacen;
using actualizacion::Detener;

QString comillas(const QString &nombre) {
    return Almacen::comillas(nombre);
}

QString listaDeTextos(const QStringList &textos) {
    QStringList citados;
    for (const QString &texto : textos) citados << TextoEnComillas(texto);
    return citados.join(", "_L1);
}

/// The work of the set-up on one base of the server.
struct Obra {
    const Almacen &a;
    const Pedido &pedido;
    Preparada &hecho;
    QStringList &vuelta;  ///< what takes back what was made, if the rest fails

    QString uno(const QString &sql) const { return a.lista(sql).value(0); }
    /// Never with a password in `sql`: a server's complaint may show a piece of it.
    void correr(const QString &sql) const {
        QSqlQuery consulta(a.db());
        if (!consulta.exec(sql))
            Detener(
                u"El usuario %1 no pudo preparar la base %2 (%3); dé en --crear-servidor uno que pueda crear "
                "bases y roles, o agregue --sin-roles."_s.arg(
                    pedido.acceso.usuario, pedido.acceso.base,
                    consulta.lastError().databaseText().simplified()));
    }
    bool esDe(const QString &rol) const {
        return uno(u"select pg_has_role(current_user, %1, 'usage')"_s.arg(TextoEnComillas(rol))) == u"true"_s;
    }
};

/// Thirty-two letters and digits that nobody can guess.
QString claveAlAzar() {
    std::array<quint32, 6> azar{};
    QRandomGenerator::system()->fillRange(azar.data(), static_cast<qsizetype>(azar.size()));
    const QByteArray bytes(reinterpret_cast<const char *>(azar.data()), sizeof azar);
    return QString::fromLatin1(
        bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

/// The password as the server keeps it: neither its log nor whoever watches its statements sees the word.
QString cifrada(const Almacen &a, const QString &rol, const QString &clave) {
    PGconn *mango = motores::linea::Mango(a.db());
    char *texto =
        PQencryptPasswordConn(mango, clave.toUtf8().constData(), rol.toUtf8().constData(), "scram-sha-256");
    if (texto == nullptr)
        Detener(u"La biblioteca del servidor no pudo cifrar la contraseña del rol %1."_s.arg(rol));
    QString cifrado = QString::fromLatin1(texto);
    PQfreemem(texto);
    return cifrado;
}

void ponerClave(const Obra &o, const QString &rol, const QString &clave) {
    o.correr(u"alter role %1 password %2"_s.arg(comillas(rol), TextoEnComillas(cifrada(o.a, rol, clave))));
}

/// Makes the role when it is missing; its password for the profile, empty when it is not known.
QString ponerRol(const Obra &o, const QString &rol, const QString &nueva, const QString &sabida) {
    const QString nombre = TextoEnComillas(rol);
    const bool hay = !o.a.lista(u"select 1 from pg_roles where rolname = %1"_s.arg(nombre)).isEmpty();
    QString clave = !nueva.isEmpty() || hay ? nueva : sabida;
    if (!hay) {
        if (clave.isEmpty()) clave = claveAlAzar();
        o.correr(
            u"create role %1 login nosuperuser nocreatedb nocreaterole noreplication"_s.arg(comillas(rol)));
        o.vuelta << u"drop role "_s + comillas(rol);
        o.hecho.cambios << u"se creó el rol %1"_s.arg(rol);
    } else if (o.uno(u"select rolcanlogin from pg_roles where rolname = %1"_s.arg(nombre)) != u"true"_s) {
        o.correr(u"alter role %1 login"_s.arg(comillas(rol)));
    }
    if (!clave.isEmpty()) {
        ponerClave(o, rol, clave);
        return clave;
    }
    if (sabida.isEmpty())
        o.hecho.cambios
            << u"el rol %1 ya estaba y conserva su contraseña: escríbala en su perfil (clave=), o vuelva a "
               "correr esto con una en la variable del entorno que dice la ayuda"_s.arg(rol);
    return sabida;
}

/// A role of daily work that could do more by itself would make all that follows worthless.
void exigirModesto(const Obra &o, const QString &rol) {
    const QString demasiado =
        u"select 1 from pg_roles r "
        "where r.rolname = %1 and (r.rolsuper or r.rolcreatedb or r.rolcreaterole or r.rolreplication "
        "or r.rolbypassrls or exists (select from pg_auth_members m where m.member = r.oid))"_s.arg(
            TextoEnComillas(rol));
    if (!o.a.lista(demasiado).isEmpty())
        Detener(
            u"El rol %1 puede más que trabajar en la base (crea bases o roles, o es miembro de otro); dé otro "
            "nombre con --roles."_s.arg(rol));
}

void ponerBase(const Obra &o) {
    const QString &base = o.pedido.acceso.base;
    if (!o.a.lista(u"select 1 from pg_database where datname = %1"_s.arg(TextoEnComillas(base))).isEmpty())
        return;
    QString crear = u"create database %1 template template0 encoding 'UTF8'"_s.arg(comillas(base));
    if (o.pedido.conRoles) crear += u" owner "_s + comillas(o.pedido.roles.dueno);
    // The order by code point of the file store, where the server's system knows it.
    QSqlQuery q(o.a.db());
    if (!q.exec(crear + u" lc_collate 'C.UTF-8' lc_ctype 'C.UTF-8'"_s) && !q.exec(crear))
        Detener(u"No se puede crear la base %1 (%2). Pida a quien administra el servidor que la cree."_s.arg(
            base, q.lastError().databaseText().simplified()));
    o.vuelta << u"drop database "_s + comillas(base);
    o.hecho.cambios << u"se creó la base %1"_s.arg(base);
}

/// Each asks for the commands that pass to the owner (%1, quoted) what lies in the schemas (%2) and is
/// another's (%3, the owner as a text). A sequence that numbers a column and what an extension made go with
/// what they belong to.
const char *const loAjeno[] = {
    "select format('alter schema %I owner to %1', n.nspname) from pg_namespace n "
    "where n.nspname in (%2) and pg_get_userbyid(n.nspowner) <> %3",
    "select format('alter table %I.%I owner to %1', n.nspname, c.relname) from pg_class c "
    "join pg_namespace n on n.oid = c.relnamespace "
    "where n.nspname in (%2) and c.relkind in ('r', 'p', 'v', 'm', 'f', 'S') "
    "and pg_get_userbyid(c.relowner) <> %3 "
    "and not exists (select from pg_depend d where d.objid = c.oid and d.classid = 'pg_class'::regclass "
    "and d.deptype in ('a', 'i', 'e'))",
    "select format('alter type %I.%I owner to %1', n.nspname, t.typname) from pg_type t "
    "join pg_namespace n on n.oid = t.typnamespace left join pg_class c on c.oid = t.typrelid "
    "where n.nspname in (%2) and (t.typtype in ('d', 'e', 'r') or (t.typtype = 'c' and c.relkind = 'c')) "
    "and pg_get_userbyid(t.typowner) <> %3 "
    "and not exists (select from pg_depend d where d.objid = t.oid and d.classid = 'pg_type'::regclass "
    "and d.deptype in ('i', 'e'))",
    "select format('alter routine %s owner to %1', p.oid::regprocedure) from pg_proc p "
    "join pg_namespace n on n.oid = p.pronamespace "
    "where n.nspname in (%2) and pg_get_userbyid(p.proowner) <> %3 "
    "and not exists (select from pg_depend d where d.objid = p.oid and d.classid = 'pg_proc'::regclass "
    "and d.deptype in ('i', 'e'))",
    "select format('alter operator %s owner to %1', o.oid::regoperator) from pg_operator o "
    "join pg_namespace n on n.oid = o.oprnamespace "
    "where n.nspname in (%2) and pg_get_userbyid(o.oprowner) <> %3 "
    "and not exists (select from pg_depend d where d.objid = o.oid and d.classid = 'pg_operator'::regclass "
    "and d.deptype = 'e')",
};

void pasarAlDueno(const Obra &o) {
    const QString &dueno = o.pedido.roles.dueno;
    const QString base = comillas(o.pedido.acceso.base);
    const QString deQuien =
        u"select pg_get_userbyid(datdba) from pg_database where datname = current_database()"_s;
    QStringList comandos;
    if (o.uno(deQuien) != dueno) comandos << u"alter database %1 owner to %2"_s.arg(base, comillas(dueno));
    const QString esquemas = listaDeTextos(o.pedido.esquemas);
    for (const char *const ajeno : loAjeno) {
        // The commands come back through format(), where a % of the name would be a word.
        QString rol = comillas(dueno);
        comandos += o.a.lista(QString::fromLatin1(ajeno)
                                  .replace("%1"_L1, rol.replace(u'%', "%%"_L1).replace(u'\'', "''"_L1))
                                  .replace("%2"_L1, esquemas)
                                  .replace("%3"_L1, TextoEnComillas(dueno)));
    }
    for (const QString &comando : comandos) o.correr(comando);
    if (!comandos.isEmpty())
        o.hecho.cambios << u"la base %1 y lo que tiene son del rol %2"_s.arg(o.pedido.acceso.base, dueno);
}

/// What the rights of the base and of its common schema are, as one text.
const QString derechosDeLaBase =
    u"select coalesce(string_agg(x, ' ' order by x), '') from ("
    "select concat('b', a::text) as x from pg_database d, unnest(d.datacl) a where d.datname = current_database() "
    "union all "
    "select concat('s', a::text) from pg_namespace n, unnest(n.nspacl) a where n.nspname = 'public') t"_s;

/// Everybody may enter a new base, make tables of his own in it, and on older servers in its common schema.
void cerrarLaBase(const Obra &o) {
    const QString base = comillas(o.pedido.acceso.base);
    const QString dueno = comillas(o.pedido.roles.dueno);
    const QString trabajo = comillas(o.pedido.roles.trabajo);
    const QString antes = o.uno(derechosDeLaBase);
    o.correr(u"revoke all on database %1 from public, %2"_s.arg(base, trabajo));
    // A table of one's own is a temporary one.
    o.correr(u"grant connect, temporary on database %1 to %2"_s.arg(base, trabajo));
    o.correr(u"revoke all on schema public from public, %1"_s.arg(trabajo));
    o.correr(u"grant usage on schema public to %1, %2"_s.arg(dueno, trabajo));
    if (o.uno(derechosDeLaBase) != antes)
        o.hecho.cambios << u"en la base %1 entran sólo los roles %2 y %3"_s.arg(
            o.pedido.acceso.base, o.pedido.roles.dueno, o.pedido.roles.trabajo);
}

/// Membership of the owner for as long as the set-up works: who hands something over to a role has to be it.
class Membresia {
 public:
    explicit Membresia(const Obra &o) : o_(o), falta_(o.pedido.conRoles && !o.esDe(o.pedido.roles.dueno)) {
        if (falta_) o_.correr(u"grant %1 to current_user"_s.arg(comillas(o_.pedido.roles.dueno)));
    }
    ~Membresia() {
        if (!falta_) return;
        QSqlQuery consulta(o_.a.db());
        consulta.exec(u"revoke %1 from current_user"_s.arg(comillas(o_.pedido.roles.dueno)));
    }
    Membresia(const Membresia &) = delete;
    Membresia &operator=(const Membresia &) = delete;

 private:
    const Obra &o_;
    bool falta_;
};

void comprobarNombres(const Pareja &roles) {
    // The server cuts a longer one without a word.
    constexpr qsizetype largoDeNombre = 63;
    for (const QString &rol : {roles.dueno, roles.trabajo})
        if (rol.isEmpty() || rol.toUtf8().size() > largoDeNombre)
            Detener(u"El nombre de rol \"%1\" no sirve: son entre 1 y %2 letras; dé otros con --roles."_s.arg(
                rol, QString::number(largoDeNombre)));
    if (roles.dueno == roles.trabajo)
        Detener(u"El dueño y el rol de trabajo no pueden ser el mismo (%1); dé dos con --roles."_s.arg(
            roles.dueno));
}

void ponerDosRoles(const Obra &afuera, StoreProfiles::SPMain &ninguno) {
    const Pedido &pedido = afuera.pedido;
    Preparada &hecho = afuera.hecho;
    comprobarNombres(pedido.roles);
    exigirModesto(afuera, pedido.roles.trabajo);
    hecho.claves.dueno = ponerRol(afuera, pedido.roles.dueno, pedido.nuevas.dueno, pedido.sabidas.dueno);
    hecho.claves.trabajo =
        ponerRol(afuera, pedido.roles.trabajo, pedido.nuevas.trabajo, pedido.sabidas.trabajo);
    const Membresia miembro(afuera);
    ponerBase(afuera);

    const Almacen base(pedido.acceso, ninguno);
    const Obra adentro{base, pedido, hecho, afuera.vuelta};
    base.comenzar();
    pasarAlDueno(adentro);
    cerrarLaBase(adentro);
    base.confirmar();
}

void preparar(const Pedido &pedido, Preparada &hecho) {
    StoreProfiles::SPMain ninguno;
    Conexion::Datos deMantenimiento = pedido.acceso;
    deMantenimiento.base = u"postgres"_s;
    const Almacen mantenimiento(deMantenimiento, ninguno);
    QStringList vuelta;
    const Obra afuera{mantenimiento, pedido, hecho, vuelta};
    try {
        if (pedido.conRoles)
            ponerDosRoles(afuera, ninguno);
        else
            ponerBase(afuera);
    } catch (const Falla &) {
        // A role whose password stands in no profile would be in the way of the next try.
        while (!vuelta.isEmpty()) QSqlQuery(mantenimiento.db()).exec(vuelta.takeLast());
        hecho.cambios.clear();
        throw;
    }
}

/// One kind of thing that rights are given on.
struct Clase {
    const char *deTodas;   ///< selects the names of those in a schema (%1) that are the owner's
    const char *palabra;   ///< in grants
    const char *enPlural;  ///< in default rights
    const char *derechos;
};
constexpr std::array<Clase, 3> clases{{
    {"select format('%I.%I', n.nspname, c.relname) from pg_class c "
     "join pg_namespace n on n.oid = c.relnamespace "
     "where n.nspname = %1 and c.relkind in ('r', 'p', 'v', 'm', 'f') "
     "and pg_has_role(current_user, c.relowner, 'usage')",
     "table", "tables", "select, insert, update, delete"},
    // To be read as well: the server's own dump asks where a numbering stands.
    {"select format('%I.%I', n.nspname, c.relname) from pg_class c "
     "join pg_namespace n on n.oid = c.relnamespace "
     "where n.nspname = %1 and c.relkind = 'S' and pg_has_role(current_user, c.relowner, 'usage')",
     "sequence", "sequences", "usage, select"},
    {"select p.oid::regprocedure::text from pg_proc p "
     "join pg_namespace n on n.oid = p.pronamespace "
     "where n.nspname = %1 and pg_has_role(current_user, p.proowner, 'usage')",
     "routine", "routines", "execute"},
}};

/// What the rights in the schemas are, as one text.
QString derechosEn(const Almacen &a, const QStringList &esquemas) {
    return a
        .lista(
            u"select coalesce(md5(string_agg(x, ' ' order by x)), '') from ("
            "select concat('n', n.nspname, a::text) as x from pg_namespace n, unnest(n.nspacl) a "
            "where n.nspname in (%1) "
            "union all "
            "select concat('c', c.oid, a::text) from pg_class c "
            "join pg_namespace n on n.oid = c.relnamespace, unnest(c.relacl) a where n.nspname in (%1) "
            "union all "
            "select concat('p', p.oid, a::text) from pg_proc p "
            "join pg_namespace n on n.oid = p.pronamespace, unnest(p.proacl) a where n.nspname in (%1) "
            "union all "
            "select concat('d', d.defaclnamespace, d.defaclobjtype, a::text) "
            "from pg_default_acl d, unnest(d.defaclacl) a) t"_s.arg(listaDeTextos(esquemas)))
        .value(0);
}

void concederEn(const Almacen &a, const QString &esquemaDe, const QString &rol) {
    const QString esquema = comillas(esquemaDe);
    a.ejecutar(u"revoke all on schema %1 from public, %2"_s.arg(esquema, rol));
    a.ejecutar(u"grant usage on schema %1 to %2"_s.arg(esquema, rol));
    for (const Clase &c : clases) {
        const QLatin1StringView palabra(c.palabra);
        const QLatin1StringView derechos(c.derechos);
        const QString todas =
            a.lista(QString::fromLatin1(c.deTodas).arg(TextoEnComillas(esquemaDe))).join(", "_L1);
        if (!todas.isEmpty()) {
            a.ejecutar(u"revoke all on %1 %2 from public, %3"_s.arg(palabra, todas, rol));
            a.ejecutar(u"grant %1 on %2 %3 to %4"_s.arg(derechos, palabra, todas, rol));
        }
        a.ejecutar(u"alter default privileges in schema %1 grant %2 on %3 to %4"_s.arg(
            esquema, derechos, QLatin1StringView(c.enPlural), rol));
    }
}

}  // namespace

Pareja DeLaBase(const QString &base) {
    return {base + "_dueno"_L1, base + "_trabajo"_L1};
}

Preparada Preparar(const Pedido &pedido) {
    Preparada hecho;
    try {
        preparar(pedido, hecho);
    } catch (const Falla &e) {
        hecho.error = e.descripcion;
    }
    return hecho;
}

void Conceder(const Almacen &a, const QStringList &esquemas, const QString &trabajo, QStringList &cambios) {
    const QString rol = comillas(trabajo);
    const QString antes = derechosEn(a, esquemas);
    for (const QString &esquemaDe : esquemas) concederEn(a, esquemaDe, rol);
    // New functions are everybody's unless the owner says so for the whole base.
    a.ejecutar(u"alter default privileges revoke execute on routines from public"_s);
    for (const QString &esquemaDe : esquemas)
        if (a.tablas(esquemaDe).contains(u"version"_s)) {
            a.ejecutar(u"revoke insert, update, delete on table %1 from %2"_s.arg(
                a.nombreDe(esquemaDe, u"version"_s), rol));
            break;
        }
    if (derechosEn(a, esquemas) != antes)
        cambios << u"el rol %1 puede leer y cambiar las filas, y nada más"_s.arg(trabajo);
}

}  // namespace roles
