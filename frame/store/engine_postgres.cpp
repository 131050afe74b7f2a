#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

#include "frame/base/failure.h"
#include "frame/store/connectwords.h"
#include "frame/store/dialect_rewrites.h"
#include "frame/store/engines.h"
#include "frame/store/postgres_line.h"

using namespace Qt::StringLiterals;

namespace motores {

namespace enServidor {
namespace {

using linea::ordenDeInsercion;

Falla error(const QSqlError &e) {
    QString texto = e.databaseText().trimmed();
    // The driver adds its own words behind the engine's.
    const qsizetype cola = texto.lastIndexOf("\n("_L1);
    if (cola > 0) texto.truncate(cola);
    return {e.nativeErrorCode().toInt(), {}, texto, {}};
}

Falla noSeConecta(const Datos &datos, const QSqlError &e) {
    return {Falla::sinStore,
            {},
            u"No se puede conectar con la base \"%1\" del servidor %2:%3 (%4); "
            "verifique que el servidor esté encendido y los datos del perfil."_s.arg(
                datos.base, datos.host, QString::number(datos.puerto), error(e).descripcion.simplified()),
            {}};
}

QSqlDatabase abrir(const Datos &datos, const QString &nombre) {
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QPSQL"_s, nombre);
    prepararConexion(datos, db);
    db.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    if (!db.open()) throw noSeConecta(datos, db.lastError());
    linea::Callar(linea::Mango(db));
    QStringList camino{QLatin1Char('"') + datos.esquema + QLatin1Char('"')};
    for (const auto &vecino : datos.vecinos) camino << QLatin1Char('"') + vecino.second + QLatin1Char('"');
    camino << u"public"_s;
    QSqlQuery consulta(db);
    // A line may go in the middle of the greeting.
    if (!consulta.exec(u"set search_path to %1; set client_min_messages to warning"_s.arg(
            camino.join(QLatin1Char(',')))))
        throw noSeConecta(datos, consulta.lastError());
    return db;
}

qint64 correr(const QSqlDatabase &db, const QString &sql, Filas *filas) {
    return linea::Correr(linea::Mango(db), sql, filas);
}

Llegada mandar(const QSqlDatabase &db, const std::vector<Encargo> &encargos) {
    return linea::Mandar(linea::Mango(db), encargos);
}

QSet<QString> tablasOrdenadas(const QSqlDatabase &db) {
    QSet<QString> tablas;
    Filas filas;
    correr(db,
           u"select distinct c.relname::text "
           "from pg_catalog.pg_attribute a "
           "join pg_catalog.pg_class c on c.oid = a.attrelid "
           "where a.attname = '%1' and c.relkind = 'r' and not a.attisdropped"_s.arg(ordenDeInsercion),
           &filas);
    for (const QVariant &nombre : filas.celdas) tablas.insert(nombre.toString());
    return tablas;
}

void escrituraLigera(const QSqlDatabase &db, bool activa) {
    correr(db, u"set synchronous_commit to %1"_s.arg(activa ? u"off"_s : u"on"_s), nullptr);
    // A commit that waits takes everything before it to the disk; it waits only when it has written something
    // itself.
    if (!activa) correr(db, u"select pg_catalog.pg_logical_emit_message(true, 'zendra', '')"_s, nullptr);
}

void quitarTablaPropia(const QSqlDatabase &db, const QString &tabla) {
    correr(db, u"drop table if exists pg_temp.%1"_s.arg(tabla), nullptr);
}

void hacerTablaPropia(const QSqlDatabase &db, const QString &tabla) {
    quitarTablaPropia(db, tabla);
    correr(db, u"create temporary table %1 (like %1 including all)"_s.arg(tabla), nullptr);
}

// What a profile says of a server

void leer(const Seccion &seccion, Datos &datos) {
    constexpr int puertoMayor = 65535;
    datos.host = seccion.valor("host");
    bool esNumero = false;
    datos.puerto = seccion.valor("puerto", u"5432"_s).toInt(&esNumero);
    if (!esNumero || datos.puerto < 1 || datos.puerto > puertoMayor)
        Seccion::rechazar(
            u"El perfil %1 dice puerto=%2 en la sección [%3]; escriba un número de puerto."_s.arg(
                seccion.ruta, seccion.valor("puerto"), seccion.entidad));
    datos.base = seccion.valor("base");
    datos.esquema = seccion.valor("esquema", seccion.entidad.toLower());
    datos.usuario = seccion.valor("usuario");
    datos.clave = seccion.valor("clave");
    if (datos.host.isEmpty() || datos.base.isEmpty())
        Seccion::rechazar(u"Al perfil %1 le falta el host o la base en la sección [%2]; complételos."_s.arg(
            seccion.ruta, seccion.entidad));
    tomarPalabras(
        {[&seccion](const QString &palabra) { return seccion.valor(palabra.toLatin1().constData()); },
         QFileInfo(seccion.ruta).absolutePath(),
         u"El perfil %1, en la sección [%2],"_s.arg(seccion.ruta, seccion.entidad)},
        datos);
}

bool juntos(const Datos &a, const Datos &b) {
    return a.host == b.host && a.puerto == b.puerto && a.base == b.base;
}

QString lugar(const Datos &datos) {
    return datos.esquema;
}

QString archivoQueFalta(const Datos &) {
    return {};
}

// The row in hand

bool vive(const QSqlDatabase &db) {
    return db.isOpen() && linea::Vive(linea::Mango(db));
}

bool empieza(const Datos &datos) {
    return linea::Empieza(datos.host, datos.puerto);
}

bool seFue(const QSqlDatabase &db) {
    return linea::SeFue(linea::Mango(db));
}

/// The row's place, and its line behind it where the table has lines: a place alone may be another row's by
/// the time of the update.
QString identidadDeFila(const QString &alias, bool ordenada) {
    const QString lugarDeFila = alias + ".ctid"_L1;
    return ordenada
               ? "concat("_L1 + lugarDeFila + ", "_L1 + alias + QLatin1Char('.') + ordenDeInsercion + ")"_L1
               : lugarDeFila + "::text"_L1;
}

qint64 cambiarFila(const Correr &correr, const QString &update, QVariant &identidad) {
    // The place finds the row at once, the number of its line tells that it still is that row. A row that
    // another statement wrote meanwhile has a new place; its line finds it there.
    const QString lugarYLinea = identidad.toString();
    const qsizetype fin = lugarYLinea.indexOf(QLatin1Char(')')) + 1;
    const QString linea = lugarYLinea.mid(fin);
    const QString esLaLinea = linea.isEmpty() ? QString() : ordenDeInsercion + " = "_L1 + linea;
    const auto intentar = [&](const QString &condicion) {
        Filas filas;
        const qint64 tocadas = correr(update + " where "_L1 + condicion + " returning ctid::text"_L1, &filas);
        if (tocadas == 1) identidad = filas.celdas.front().toString() + linea;
        return tocadas;
    };
    QString enSuLugar = u"ctid = '%1'::tid"_s.arg(lugarYLinea.left(fin));
    if (!linea.isEmpty()) enSuLugar += " and "_L1 + esLaLinea;
    const qint64 tocadas = intentar(enSuLugar);
    return tocadas != 0 || linea.isEmpty() ? tocadas : intentar(esLaLinea);
}

}  // namespace
}  // namespace enServidor

const Motor &servidor() {
    using namespace dialecto;
    using namespace enServidor;
    static const Motor motor{
        .driver = u"servidor"_s,
        .etiqueta = u"SQL"_s,
        .formaDeFecha = u"'yyyy-MM-dd HH:mm:ss'"_s,
        .gramatica = {.expresiones = {quitarDbo, cambiarCorchetes, fechasComoMomento, cambiarSumas,
                                      dividirConDecimales, cambiarLike, cambiarExistencias},
                      .ordenDeInsercion = ordenDeInsercion,
                      .nulosAlFinal = true,
                      .identidad = identidadDeFila},
        .leer = leer,
        .juntos = juntos,
        .lugar = lugar,
        .archivoQueFalta = archivoQueFalta,
        .abrir = abrir,
        .empieza = empieza,
        .vive = vive,
        .seFue = seFue,
        .tablasOrdenadas = tablasOrdenadas,
        .correr = correr,
        .mandar = mandar,
        .porViaje = 200,
        .cambiarFila = cambiarFila,
        .escrituraLigera = escrituraLigera,
        .hacerTablaPropia = hacerTablaPropia,
        .quitarTablaPropia = quitarTablaPropia,
    };
    return motor;
}

}  // namespace motores
