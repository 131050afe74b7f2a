#include "upgrade/verificacion.h"

#include <QSet>

#include "upgrade/almacen.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

namespace {

using esquema::Tabla;

/// One store in hand.
struct Mirada {
    const Almacen &a;
    const Conexion::Datos &datos;
    Verificacion &v;

    QString nombre(const QString &tabla) const { return a.nombreDe(datos.esquema, tabla); }
    QString uno(const QString &sql) const { return a.lista(sql).value(0); }
    void defecto(const QString &texto) const { v.defectos << datos.entidad + ": "_L1 + texto; }
};

/// The engine's own look at a file.
void comprobarArchivo(const Mirada &m) {
    constexpr int bastantes = 20;
    for (const QString &linea : m.a.lista(u"pragma main.integrity_check(%1)"_s.arg(bastantes)))
        if (linea != "ok"_L1) m.defecto(u"el archivo está dañado (%1)"_s.arg(linea));
}

/// A server checks its pages as it reads them, so every value of the table is read; what it calls an index
/// that cannot be used is told.
void comprobarTablaDeServidor(const Mirada &m, const Tabla &t) {
    m.a.lista(u"select count(length(t::text)) from %1 t"_s.arg(m.nombre(t.nombre)));
    const QString invalidos =
        u"select c.relname::text from pg_catalog.pg_index i "
        "join pg_catalog.pg_class c on c.oid = i.indexrelid "
        "where i.indrelid = '%1'::regclass and not i.indisvalid"_s.arg(m.nombre(t.nombre));
    for (const QString &indice : m.a.lista(invalidos))
        m.defecto(u"el índice %1 no sirve; ejecute reindex"_s.arg(indice));
}

void comprobarForma(const Mirada &m, const Tabla &t, const QStringList &indices) {
    const QHash<QString, ColumnaDelStore> hay = m.a.columnas(m.datos.esquema, t.nombre);
    for (const esquema::Columna &c : t.columnas)
        if (!hay.contains(c.nombre))
            m.defecto(u"a %1 le falta la columna %2; ejecute DbUpgrade3"_s.arg(t.nombre, c.nombre));
    for (const esquema::Indice &i : t.indices)
        if (!indices.contains(i.nombre))
            m.defecto(u"a %1 le falta el índice %2; ejecute DbUpgrade3"_s.arg(t.nombre, i.nombre));
}

/// Tables whose rows may speak of an operation that is gone: by design, or because they say what happened
/// outside of it.
const QSet<QString> conRestos{u"coment"_s, u"idrel"_s};
const QSet<QString> ajenas{u"caratula"_s, u"stock"_s};

/// Rows of operations that are not there. Another entity's tables are found by their bare names.
void comprobarOperaciones(const Mirada &m, const Tabla &t, const QString &caratula) {
    if (t.columna(u"interno") == nullptr || ajenas.contains(t.nombre)) return;
    const QString sueltas =
        u"select count(*) from %1 t "
        "where t.interno is not null and t.interno <> '' "
        "and not exists (select 1 from %2 c where c.interno = t.interno)"_s.arg(m.nombre(t.nombre), caratula);
    const qint64 cuantas = m.uno(sueltas).toLongLong();
    if (cuantas == 0) return;
    const QString texto = u"%1: %2 filas de operaciones que no están"_s.arg(t.nombre).arg(cuantas);
    if (conRestos.contains(t.nombre))
        m.v.restos << m.datos.entidad + ": "_L1 + texto;
    else
        m.defecto(texto);
}

/// What names a line or an item that its operation does not have.
struct Vinculo {
    const char *tabla, *columna, *de, *clave;
};
constexpr Vinculo vinculos[] = {
    {"groupsubitems", "idsub", "subitems", "id"},
    {"itemliq", "iditem", "item", "id"},
    {"itemventaja", "iditem", "item", "id"},
    {"iteminfo", "iditem", "item", "id"},
};

void comprobarVinculos(const Mirada &m) {
    for (const Vinculo &x : vinculos) {
        const QString tabla = QString::fromLatin1(x.tabla);
        const QString sueltas =
            u"select count(*) from %1 t "
            "where t.%2 is not null and t.%2 <> 0 "
            "and not exists (select 1 from %3 d where d.interno = t.interno and d.%4 = t.%2)"_s.arg(
                m.nombre(tabla), QLatin1StringView(x.columna), m.nombre(QString::fromLatin1(x.de)),
                QLatin1StringView(x.clave));
        const qint64 cuantas = m.uno(sueltas).toLongLong();
        if (cuantas != 0)
            m.defecto(
                u"%1: %2 filas nombran en %3 algo que %4 no tiene; arme de nuevo sus operaciones"_s.arg(tabla)
                    .arg(cuantas)
                    .arg(QLatin1StringView(x.columna), QLatin1StringView(x.de)));
    }
}

void mirar(const Mirada &m, const QString &caratula) {
    const QStringList tablas = m.a.tablas(m.datos.esquema);
    const QStringList indices = m.a.indices(m.datos.esquema);
    if (!m.a.servidor()) comprobarArchivo(m);
    for (const Tabla &t : esquema::tablas()) {
        if (t.entidad != m.datos.entidad) continue;
        if (!tablas.contains(t.nombre)) {
            m.defecto(u"falta la tabla %1; ejecute DbUpgrade3"_s.arg(t.nombre));
            continue;
        }
        comprobarForma(m, t, indices);
        if (m.a.servidor()) comprobarTablaDeServidor(m, t);
        m.v.tablas << u"%1 %2: %3 filas"_s.arg(t.entidad, t.nombre,
                                               m.uno(u"select count(*) from "_s + m.nombre(t.nombre)));
        if (!caratula.isEmpty()) comprobarOperaciones(m, t, caratula);
    }
    if (m.datos.entidad == "INTERNOS"_L1) comprobarVinculos(m);
}

/// How a store calls the headers of the operations; empty where it does not reach them.
QString caratulaDesde(const Almacen &a, const Conexion::Datos &datos, const Conexion::Datos *internos) {
    if (internos == nullptr || internos->motor != datos.motor) return {};
    if (a.servidor()) return a.nombreDe(internos->esquema, u"caratula"_s);
    return datos.entidad == "INTERNOS"_L1 ? u"main.caratula"_s : u"internos.caratula"_s;
}

}  // namespace

Verificacion Verificar(const QString &rutaDelPerfil) {
    Verificacion v;
    try {
        StoreProfiles::SPMain manager;
        leerPerfil(manager, rutaDelPerfil);
        manager.LoadParameters();
        const Conexion::Datos *internos = manager.datos(u"INTERNOS"_s);
        for (const QString &entidad : StoreProfiles::entidades()) {
            const Conexion::Datos *datos = manager.datos(entidad);
            if (datos == nullptr || esquema::tablasDe(entidad).isEmpty()) continue;
            const Almacen a(*datos, manager);
            mirar({a, *datos, v}, caratulaDesde(a, *datos, internos));
        }
        v.ok = true;
    } catch (const Falla &e) {
        v.error = e.descripcion;
    }
    return v;
}

}  // namespace actualizacion
