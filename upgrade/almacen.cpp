#include "upgrade/almacen.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>
#include <QVariant>

#include "frame/store/connectwords.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

using esquema::Tipo;

QString mensajeDeServidor(const Conexion::Datos &datos, const QString &motivo) {
    return u"No se puede conectar con la base \"%1\" del servidor %2:%3 (%4). Verifique que el servidor "
           "esté encendido y que los datos del perfil sean correctos."_s.arg(
               datos.base, datos.host, QString::number(datos.puerto), motivo.simplified());
}

void leerPerfil(StoreProfiles::SPMain &manager, const QString &ruta) {
    QString error;
    if (!manager.usarPerfil(ruta, &error)) Detener(error);
    for (const QString &entidad : StoreProfiles::entidades())
        if (manager.datos(entidad) != nullptr) return;
    Detener(u"El perfil %1 no nombra ningún store; revise sus secciones."_s.arg(ruta));
}

void Detener(const QString &descripcion) {
    throw Falla{0, u"DbUpgrade3"_s, descripcion, {}};
}

Almacen::Almacen(const Conexion::Datos &datos, StoreProfiles::SPMain &manager)
    : servidor_(datos.motor == &motores::servidor()),
      usuario_(datos.usuario),
      conQue_(manager.rolDueno().isEmpty() ? u"DbUpgrade3 con el perfil del dueño de la base"_s
                                           : manager.comoActualizar()) {
    if (!servidor_) {
        donde_ = datos.archivo;
        db_ = manager.getDataConnectionByEntity(datos.entidad).coneccion();
        return;
    }
    donde_ = u"%1:%2/%3"_s.arg(datos.host, QString::number(datos.puerto), datos.base);
    conexion_ = QUuid::createUuid().toString(QUuid::WithoutBraces);
    db_ = QSqlDatabase::addDatabase(u"QPSQL"_s, conexion_);
    motores::prepararConexion(datos, db_);
    if (!db_.open()) {
        const QString motivo = db_.lastError().databaseText();
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(conexion_);
        Detener(mensajeDeServidor(datos, motivo));
    }
    ejecutar(u"set client_min_messages = warning"_s);
}

Almacen::~Almacen() {
    if (!servidor_) return;
    db_.close();
    db_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(conexion_);
}

void Almacen::negar(const QString &motivo) const {
    throw Falla{faltaPermiso,
                u"DbUpgrade3"_s,
                u"El usuario %1 no tiene permiso para esto en el store %2 (%3); ejecute %4."_s.arg(
                    usuario_, donde_, motivo, conQue_),
                {}};
}

void Almacen::rechazar(const QSqlError &error, const QString &que) const {
    const QString motivo = error.databaseText().simplified();
    if (servidor_ && error.nativeErrorCode().toInt() == faltaPermiso) negar(motivo);
    Detener(u"El store %1 %2: %3"_s.arg(donde_, que, motivo));
}

void Almacen::exigirDueno(const QStringList &esquemas) const {
    if (!servidor_) return;
    const QStringList ajenos = lista(
        u"select nspname::text || ' es de ' || pg_get_userbyid(nspowner) "
        "from pg_catalog.pg_namespace "
        "where not pg_has_role(current_user, nspowner, 'usage')"_s);
    for (const QString &ajeno : ajenos)
        if (esquemas.contains(ajeno.section(u" es de "_s, 0, 0))) negar(ajeno);
    if (lista(u"select has_database_privilege(current_database(), 'create')"_s).value(0) != "true"_L1)
        negar(u"no puede crear esquemas"_s);
}

void Almacen::ejecutar(const QString &sql) const {
    QSqlQuery consulta(db_);
    if (!consulta.exec(sql)) rechazar(consulta.lastError(), u"rechazó una sentencia"_s);
}

QStringList Almacen::lista(const QString &sql) const {
    QSqlQuery consulta(db_);
    consulta.setForwardOnly(true);
    if (!consulta.exec(sql)) rechazar(consulta.lastError(), u"no se puede leer"_s);
    QStringList valores;
    while (consulta.next()) valores << consulta.value(0).toString();
    return valores;
}

void Almacen::comenzar() const {
    ejecutar(u"begin"_s);
}
void Almacen::confirmar() const {
    ejecutar(u"commit"_s);
}
void Almacen::deshacer() const {
    QSqlQuery consulta(db_);
    consulta.exec(u"rollback"_s);
}

void Almacen::medir(const QString &tabla) const {
    if (servidor_) ejecutar(u"analyze "_s + tabla);
}

QString Almacen::comillas(const QString &nombre) {
    QString n = nombre;
    return QLatin1Char('"') + n.replace(QLatin1Char('"'), "\"\""_L1) + QLatin1Char('"');
}

QString Almacen::nombreDe(const QString &esquema, const QString &tabla) const {
    return (servidor_ ? comillas(esquema) : u"main"_s) + QLatin1Char('.') + comillas(tabla);
}

QString Almacen::tipoDe(Tipo tipo) const {
    switch (tipo) {
        case Tipo::Numero:
            // NUMERIC keeps 8-byte floats as REAL does, but a whole number that a statement copies into a
            // text column reads "260" there, as on the server, and not "260.0".
            return servidor_ ? u"double precision"_s : u"NUMERIC"_s;
        case Tipo::Fecha:
            return servidor_ ? u"timestamp"_s : u"TEXT"_s;
        case Tipo::Generado:
            return servidor_ ? u"bigint generated by default as identity"_s
                             : u"INTEGER PRIMARY KEY AUTOINCREMENT"_s;
        case Tipo::Texto:
        case Tipo::TextoNumerico:
            break;
    }
    return servidor_ ? tipoTexto_ + cotejo_ : u"TEXT COLLATE NOCASE"_s;
}

QStringList Almacen::tablas(const QString &esquema) const {
    if (!servidor_) return lista(u"select lower(name) from main.sqlite_master where type = 'table'"_s);
    return lista(
        u"select c.relname::text "
        "from pg_catalog.pg_class c "
        "join pg_catalog.pg_namespace n on n.oid = c.relnamespace "
        "where c.relkind in ('r', 'p', 'v', 'f') "
        "and n.nspname = '%1'"_s.arg(esquema));
}

QString Almacen::palabrasDe(const QString &tabla) const {
    if (servidor_) return {};
    return lista(
               u"select sql from main.sqlite_master where type = 'table' and lower(name) = '%1'"_s.arg(tabla))
        .value(0);
}

QStringList Almacen::indices(const QString &esquema) const {
    if (!servidor_) return lista(u"select lower(name) from main.sqlite_master where type = 'index'"_s);
    return lista(
        u"select c.relname::text "
        "from pg_catalog.pg_class c "
        "join pg_catalog.pg_namespace n on n.oid = c.relnamespace "
        "where c.relkind = 'i' "
        "and n.nspname = '%1'"_s.arg(esquema));
}

QHash<QString, ColumnaDelStore> Almacen::columnas(const QString &esquema, const QString &tabla) const {
    QHash<QString, ColumnaDelStore> todas;
    QSqlQuery consulta(db_);
    consulta.setForwardOnly(true);
    const QString sql = servidor_
                            ? u"select a.attname::text, t.typname::text, a.attidentity <> '' or a.atthasdef "
                              "from pg_catalog.pg_attribute a "
                              "join pg_catalog.pg_class c on c.oid = a.attrelid "
                              "join pg_catalog.pg_namespace n on n.oid = c.relnamespace "
                              "join pg_catalog.pg_type t on t.oid = a.atttypid "
                              "where n.nspname = '%1' and c.relname = '%2' "
                              "and a.attnum > 0 and not a.attisdropped"_s.arg(esquema, tabla)
                            : u"select lower(name), lower(type), pk "
                              "from pragma_table_info('%1', 'main')"_s.arg(tabla);
    if (!consulta.exec(sql)) rechazar(consulta.lastError(), u"no se puede leer"_s);
    while (consulta.next())
        todas.insert(consulta.value(0).toString(),
                     {consulta.value(1).toString(), consulta.value(2).toBool()});
    return todas;
}

void Almacen::prepararServidor() {
    if (!servidor_) return;
    if (lista(u"show server_encoding"_s).value(0) != "UTF8"_L1)
        Detener(u"La base %1 no guarda UTF-8; cree otra con esa codificación y nómbrela en el perfil."_s.arg(
            donde_));
    // Texts order by code point, as in the file store, and still know the case of accented letters.
    const QString sqlDelOrden =
        u"select datcollate "
        "from pg_catalog.pg_database "
        "where datname = current_database()"_s;
    const QString orden = lista(sqlDelOrden).value(0);
    const bool ordena =
        orden == "C"_L1 || orden == "POSIX"_L1 || orden.startsWith("C."_L1, Qt::CaseInsensitive);
    const QString sqlDelCotejo =
        u"select 1 "
        "from pg_catalog.pg_collation "
        "where collname = 'C.utf8' "
        "and collencoding in (-1, pg_char_to_encoding('UTF8'))"_s;
    if (!ordena && !lista(sqlDelCotejo).isEmpty()) cotejo_ = u" collate pg_catalog.\"C.utf8\""_s;
    if (lista(u"select lower('Ñ')"_s).value(0) != u"ñ"_s)
        Detener(
            u"La base %1 no distingue mayúsculas de minúsculas en las letras acentuadas; créela con "
            "LC_CTYPE 'C.UTF-8' y nómbrela en el perfil."_s.arg(donde_));
    ejecutar(u"create extension if not exists citext schema public"_s);
    const QString sqlDelTipo =
        u"select n.nspname::text "
        "from pg_catalog.pg_extension e "
        "join pg_catalog.pg_namespace n on n.oid = e.extnamespace "
        "where e.extname = 'citext'"_s;
    tipoTexto_ = comillas(lista(sqlDelTipo).value(0)) + ".citext"_L1;
}

}  // namespace actualizacion
