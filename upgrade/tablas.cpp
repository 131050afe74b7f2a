#include "upgrade/tablas.h"

#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace actualizacion {

namespace {

using esquema::Columna;
using esquema::Indice;
using esquema::Tabla;
using esquema::Tipo;

/// How the server keeps the order of insertion, which the file store has by itself.
const QString ordenDeCarga = u" bigint generated always as identity"_s;

QString definicion(const Almacen &a, const Columna &c) {
    return Almacen::comillas(c.nombre) + QLatin1Char(' ') + a.tipoDe(c.tipo);
}

/// Tables whose rows every run rewrites in place.
const QSet<QString> reescritas{u"subitems"_s, u"groupsubitems"_s, u"item"_s, u"itemliq"_s};

/// `nombre` where the table is to bear another name for a while.
void crear(const Almacen &a, const QString &esquemaDe, const Tabla &t, const QString &nombre) {
    QStringList partes;
    for (const Columna &c : t.columnas) partes << definicion(a, c);
    if (a.servidor()) partes << columnaDeOrden + ordenDeCarga;
    // Room in every page for the next version of a row, so that an update touches no index: less than half
    // the time.
    const bool holgada = a.servidor() && reescritas.contains(t.nombre);
    a.ejecutar(u"create table %1 (%2)%3"_s.arg(a.nombreDe(esquemaDe, nombre), partes.join(", "_L1),
                                               holgada ? u" with (fillfactor = 50)"_s : QString()));
}

/// What the columns of older files ask for, and no other tool has.
const QString cotejoDeAntes = u"COLLATE ZCI"_s;
const QString cotejoDeTodos = u"COLLATE NOCASE"_s;

/// What hangs from a table of a file and goes with it: the words of its indexes and triggers.
QStringList loQueCuelga(const Almacen &a, const Tabla &t) {
    return a.lista(
        u"select sql from main.sqlite_master "
        "where lower(tbl_name) = '%1' and type in ('index', 'trigger') and sql is not null "
        "order by rowid"_s.arg(t.nombre));
}

/// What a file knows of what the indexes of a table tell apart, as the statements that note it.
QStringList susProporciones(const Almacen &a, const Tabla &t) {
    if (a.palabrasDe(u"sqlite_stat1"_s).isEmpty()) return {};
    return a.lista(
        u"select 'insert into main.sqlite_stat1 (tbl, idx, stat) "
        "values (' || quote(tbl) || ', ' || quote(idx) || ', ' || quote(stat) || ')' "
        "from main.sqlite_stat1 where lower(tbl) = '%1'"_s.arg(t.nombre));
}

/// SQLite changes no column that is there: the rows go, in their order and with their numbers, through a new
/// table. Columns, indexes and triggers that are not ours go along.
void rehacer(const Almacen &a, const Tabla &t, const QHash<QString, ColumnaDelStore> &hay) {
    const QString provisoria = u"z_nueva_"_s + t.nombre;
    const QStringList cuelga = loQueCuelga(a, t);
    const QStringList proporciones = susProporciones(a, t);
    // Where numbering goes on; the last line may have been taken away.
    const bool seNumera = !a.palabrasDe(u"sqlite_sequence"_s).isEmpty();
    const QString deLaNumeracion =
        u"select seq from main.sqlite_sequence where lower(name) = '%1'"_s.arg(t.nombre);
    const QString numero = seNumera ? a.lista(deLaNumeracion).value(0) : QString();
    crear(a, QString(), t, provisoria);
    QStringList comunes;
    for (auto c = hay.cbegin(); c != hay.cend(); ++c) {
        if (t.columna(c.key()) == nullptr)
            a.ejecutar(u"alter table main.%1 add column %2 %3"_s.arg(
                Almacen::comillas(provisoria), Almacen::comillas(c.key()), c.value().tipo));
        comunes << Almacen::comillas(c.key());
    }
    const bool generada = std::any_of(t.columnas.begin(), t.columnas.end(), [&](const Columna &c) {
        return c.tipo == Tipo::Generado && hay.contains(c.nombre);
    });
    // The row's own number tells the order of insertion; where the identity is it, it goes as that.
    const QString fila = generada ? QString() : u"rowid, "_s;
    const QString lista = fila + comunes.join(", "_L1);
    a.ejecutar(
        u"insert into main.%1 (%2) "
        "select %2 from main.%3 order by rowid"_s.arg(Almacen::comillas(provisoria), lista,
                                                      Almacen::comillas(t.nombre)));
    a.ejecutar(u"drop table main.%1"_s.arg(Almacen::comillas(t.nombre)));
    // Views of an office may name the table, which is gone for a moment.
    a.ejecutar(u"pragma legacy_alter_table=on"_s);
    a.ejecutar(u"alter table main.%1 rename to %2"_s.arg(Almacen::comillas(provisoria),
                                                         Almacen::comillas(t.nombre)));
    a.ejecutar(u"pragma legacy_alter_table=off"_s);
    if (!numero.isEmpty()) {
        a.ejecutar(u"delete from main.sqlite_sequence where lower(name) = '%1'"_s.arg(t.nombre));
        a.ejecutar(u"insert into main.sqlite_sequence (name, seq) values ('%1', %2)"_s.arg(t.nombre, numero));
    }
    for (QString palabras : cuelga)
        a.ejecutar(palabras.replace(cotejoDeAntes, cotejoDeTodos, Qt::CaseInsensitive));
    for (const QString &proporcion : proporciones) a.ejecutar(proporcion);
}

/// The server's way: the column is made whole numbers, and numbering goes on behind the highest.
void ponerIdentidad(const Almacen &a, const QString &tabla, const QString &columna, const QString &tipo) {
    const QString nombre = Almacen::comillas(columna);
    if (tipo != "int8"_L1)
        a.ejecutar(
            u"alter table %1 alter column %2 type bigint using %2::numeric::bigint"_s.arg(tabla, nombre));
    a.ejecutar(
        u"update %1 "
        "set %2 = coalesce((select max(%2) from %1), 0) + s.n "
        "from (select ctid, row_number() over () as n from %1 where %2 is null) s "
        "where %1.ctid = s.ctid"_s.arg(tabla, nombre));
    a.ejecutar(u"alter table %1 alter column %2 set not null"_s.arg(tabla, nombre));
    a.ejecutar(u"alter table %1 alter column %2 add generated by default as identity"_s.arg(tabla, nombre));
    a.lista(
        u"select setval("
        "pg_get_serial_sequence('%1', '%2'), "
        "coalesce((select max(%3) from %1), 0) + 1, "
        "false)"_s.arg(tabla, columna, nombre));
}

bool esGenerada(const Tabla &t, const QString &columna) {
    const esquema::Columna *c = t.columna(columna);
    return c != nullptr && c->tipo == esquema::Tipo::Generado;
}

/// `comoNumero`: the line identity is a whole number on the server, the columns that name it are not; only an
/// index on the number finds a line through them.
void crearIndice(const Almacen &a, const QString &esquemaDe, const Tabla &t, const Indice &i, bool comoNumero,
                 const QStringList &hay, QStringList &cambios) {
    const QString propio = comoNumero ? i.nombre + "_numero"_L1 : i.nombre;
    if (hay.contains(propio)) return;
    QStringList columnas;
    for (const QString &c : i.columnas)
        columnas << (comoNumero && esGenerada(t, c) ? u"(%1::double precision)"_s.arg(Almacen::comillas(c))
                                                    : Almacen::comillas(c));
    // SQLite wants the store's name before the index, PostgreSQL before the table.
    const QString nombre = a.servidor() ? Almacen::comillas(propio) : a.nombreDe(esquemaDe, propio);
    const QString sobre = a.servidor() ? a.nombreDe(esquemaDe, t.nombre) : Almacen::comillas(t.nombre);
    a.ejecutar(u"create index %1 on %2 (%3)"_s.arg(nombre, sobre, columnas.join(", "_L1)));
    cambios << u"%1: se creó el índice %2"_s.arg(t.entidad, propio);
}

}  // namespace

void crearTabla(const Almacen &a, const QString &esquemaDe, const Tabla &t) {
    crear(a, esquemaDe, t, t.nombre);
}

void completarTabla(const Almacen &a, const QString &esquemaDe, const Tabla &t, QStringList &cambios) {
    const QString tabla = a.nombreDe(esquemaDe, t.nombre);
    QHash<QString, ColumnaDelStore> hay = a.columnas(esquemaDe, t.nombre);
    for (const Columna &c : t.columnas) {
        if (c.tipo != Tipo::Generado || (hay.contains(c.nombre) && hay.value(c.nombre).generada)) continue;
        if (!a.servidor()) {
            rehacer(a, t, hay);
            hay = a.columnas(esquemaDe, t.nombre);
        } else if (hay.contains(c.nombre)) {
            ponerIdentidad(a, tabla, c.nombre, hay.value(c.nombre).tipo);
        } else {
            a.ejecutar(u"alter table %1 add column %2"_s.arg(tabla, definicion(a, c)));
        }
        hay.insert(c.nombre, {u"int8"_s, true});
        cambios << u"%1: la columna %2 de %3 se numera sola"_s.arg(t.entidad, c.nombre, t.nombre);
    }
    if (a.palabrasDe(t.nombre).contains(cotejoDeAntes, Qt::CaseInsensitive)) {
        rehacer(a, t, hay);
        cambios << u"%1: otros programas ya pueden leer %2"_s.arg(t.entidad, t.nombre);
        hay = a.columnas(esquemaDe, t.nombre);
    }
    for (const Columna &c : t.columnas) {
        if (!hay.contains(c.nombre)) {
            a.ejecutar(u"alter table %1 add column %2"_s.arg(tabla, definicion(a, c)));
            cambios << u"%1: se agregó la columna %2 a %3"_s.arg(t.entidad, c.nombre, t.nombre);
            continue;
        }
        // Plain text becomes the text that compares without regard to case: no value changes.
        static const QSet<QString> textosLlanos{u"text"_s, u"varchar"_s, u"bpchar"_s};
        if (a.servidor() && (c.tipo == Tipo::Texto || c.tipo == Tipo::TextoNumerico) &&
            textosLlanos.contains(hay.value(c.nombre).tipo)) {
            a.ejecutar(u"alter table %1 alter column %2 type %3 using %2::text"_s.arg(
                tabla, Almacen::comillas(c.nombre), a.tipoDe(c.tipo)));
            cambios << u"%1: la columna %2 de %3 ya no distingue mayúsculas"_s.arg(t.entidad, c.nombre,
                                                                                   t.nombre);
        }
    }
    if (a.servidor() && !hay.contains(columnaDeOrden)) {
        a.ejecutar(u"alter table %1 add column %2"_s.arg(tabla, columnaDeOrden + ordenDeCarga));
        cambios << u"%1: %2 guarda el orden de carga"_s.arg(t.entidad, t.nombre);
    }
}

void ponerIndices(const Almacen &a, const QString &esquemaDe, const Tabla &t, const QStringList &hay,
                  QStringList &cambios) {
    for (const Indice &i : t.indices) {
        crearIndice(a, esquemaDe, t, i, false, hay, cambios);
        const bool generado = std::any_of(i.columnas.begin(), i.columnas.end(),
                                          [&t](const QString &c) { return esGenerada(t, c); });
        if (a.servidor() && generado) crearIndice(a, esquemaDe, t, i, true, hay, cambios);
    }
}

void ponerProporciones(const Almacen &a, const QString &entidad, QStringList &cambios) {
    if (a.servidor()) return;
    const auto anotar = [&](const Tabla &t, const Indice &i, const QStringList &hay) {
        if (hay.contains(i.nombre)) return false;
        const bool deOperacion = t.columna(u"interno") != nullptr;
        QStringList numeros{deOperacion ? u"1000000"_s : u"10000"_s};
        // Rows that share the first column, the first two …: an operation's lines, an item's, one or two.
        const qsizetype columnas = i.columnas.size();
        if (columnas > 1) numeros << u"2000"_s;
        for (qsizetype c = 2; c < columnas; ++c) numeros << u"20"_s;
        numeros << (columnas == 1 && deOperacion ? u"20"_s : u"2"_s);
        a.ejecutar(u"insert into main.sqlite_stat1 (tbl, idx, stat) values ('%1', '%2', '%3')"_s.arg(
            t.nombre, i.nombre, numeros.join(QLatin1Char(' '))));
        return true;
    };
    // Makes the table when it is not there.
    a.ejecutar(u"analyze main.sqlite_schema"_s);
    const QStringList hay = a.lista(u"select idx from main.sqlite_stat1"_s);
    bool alguna = false;
    for (const Tabla &t : esquema::tablas())
        if (t.entidad == entidad)
            for (const Indice &i : t.indices) alguna = anotar(t, i, hay) || alguna;
    if (alguna) cambios << u"%1: se anotó qué distingue cada índice"_s.arg(entidad);
}

}  // namespace actualizacion
