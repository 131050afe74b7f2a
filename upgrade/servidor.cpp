#include "upgrade/servidor.h"

#include <QCryptographicHash>

#include "upgrade/tablas.h"

using namespace Qt::StringLiterals;

namespace servidor {

namespace {

// %S is the schema, %C the text type, %T its schema, %O the column that keeps the order of insertion. Bodies
// are single expressions on pg_catalog's own types wherever they can be, so that the planner can write them
// into the statement that calls them.
const char *const funciones[] = {
    // True for a text that reads as one number, for any number; false for null and for empty text.
    R"(create or replace function %S.isnumeric(valor text) returns integer language sql immutable parallel safe as $$
  select case when valor operator(pg_catalog.~)
    '^\s*[+-]?([0-9]+[.,]?[0-9]*|[.,][0-9]+)([eE][+-]?[0-9]+)?\s*$' then 1 else 0 end $$)",
    R"(create or replace function %S.isnumeric(valor %C) returns integer language sql immutable parallel safe as $$
  select %S.isnumeric(valor::text) $$)",
    R"(create or replace function %S.isnumeric(valor double precision) returns integer language sql immutable
  parallel safe as $$ select case when valor is null then 0 else 1 end $$)",
    R"(create or replace function %S.isnumeric(valor timestamp) returns integer language sql immutable
  parallel safe as $$ select 0 $$)",

    // Cuts and measures of texts that keep comparing without regard to case. The text of a number has fifteen
    // digits at most and no exponent, as everywhere in the program.
    R"(create or replace function %S.left(texto %C, largo integer) returns %C language sql immutable strict
  parallel safe as $$ select pg_catalog.left(texto::text, largo)::%C $$)",
    R"(create or replace function %S.right(texto %C, largo integer) returns %C language sql immutable strict
  parallel safe as $$ select pg_catalog.right(texto::text, largo)::%C $$)",
    R"(create or replace function %S.substring(texto %C, desde integer, largo integer) returns %C language sql immutable
  strict parallel safe as $$ select pg_catalog.substr(texto::text, desde, largo)::%C $$)",
    R"(create or replace function %S.left(valor double precision, largo integer) returns %C language sql immutable
  strict parallel safe as $$ select pg_catalog.left(valor::numeric::text, largo)::%C $$)",
    R"(create or replace function %S.right(valor double precision, largo integer) returns %C language sql immutable
  strict parallel safe as $$ select pg_catalog.right(valor::numeric::text, largo)::%C $$)",
    R"(create or replace function %S.substring(valor double precision, desde integer, largo integer) returns %C
  language sql immutable strict parallel safe as $$ select pg_catalog.substr(valor::numeric::text, desde, largo)::%C $$)",
    R"(create or replace function %S.len(texto text) returns integer language sql immutable strict parallel safe as $$
  select pg_catalog.char_length(texto) $$)",
    R"(create or replace function %S.len(texto %C) returns integer language sql immutable strict parallel safe as $$
  select pg_catalog.char_length(texto::text) $$)",
    R"(create or replace function %S.len(valor double precision) returns integer language sql immutable strict
  parallel safe as $$ select pg_catalog.char_length(valor::numeric::text) $$)",
    R"(create or replace function %S.charindex(que text, donde text) returns integer language sql immutable strict
  parallel safe as $$ select pg_catalog.strpos(pg_catalog.lower(donde), pg_catalog.lower(que)) $$)",
    R"(create or replace function %S.charindex(que text, donde double precision) returns integer language sql
  immutable strict parallel safe as $$ select pg_catalog.strpos(donde::numeric::text, que) $$)",
    R"(create or replace function %S.charindex(que %C, donde %C) returns integer language sql immutable strict
  parallel safe as $$ select pg_catalog.strpos(pg_catalog.lower(donde::text), pg_catalog.lower(que::text)) $$)",

    // What a sum adds up: the fifteen digits of a number, so that neither the order of the rows nor the
    // binary form of a cent shows in the total; of a text the longest leading number, else 0, as the file
    // store reads one.
    R"(create or replace function %S.zexacto(valor double precision) returns numeric language sql immutable
  parallel safe as $$ select valor::numeric $$)",
    R"(create or replace function %S.zexacto(texto %C) returns numeric language sql immutable parallel safe as $$
  select case when texto is not null then coalesce(pg_catalog.substring(texto::text,
    '^\s*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?)')::numeric, 0) end $$)",
    // The total, as a number of fifteen digits again.
    R"(create or replace function %S.zquince(total numeric) returns double precision language sql immutable
  parallel safe as $$ select total::double precision::numeric::double precision $$)",
    // Of an older store: the sum that a text column had of its own.
    "drop aggregate if exists %S.sum(%C)",

    // Halves away from zero on the rendering with 15 significant digits: the cast of a double to numeric
    // writes
    // exactly those 15 digits, and numeric rounds halves away from zero.
    R"(create or replace function %S.round(valor double precision, decimales integer) returns double precision
  language sql immutable strict parallel safe as $$
  select pg_catalog.round(valor::numeric, decimales)::double precision $$)",

    R"(create or replace function %S.round(texto %C, decimales integer) returns double precision
  language sql immutable strict parallel safe as $$
  select pg_catalog.round(%S.zexacto(texto), decimales)::double precision $$)",

    // "+" joins texts.
    R"(create or replace function %S.zunir(a %C, b %C) returns %C language sql immutable strict parallel safe as $$
  select (a::text || b::text)::%C $$)",
    R"(create or replace function %S.zunir(a text, b %C) returns %C language sql immutable strict parallel safe as $$
  select (a || b::text)::%C $$)",
    R"(create or replace function %S.zunir(a %C, b text) returns %C language sql immutable strict parallel safe as $$
  select (a::text || b)::%C $$)",
    R"(create or replace function %S.zunir(a text, b text) returns text language sql immutable strict parallel safe as $$
  select a || b $$)",
    "drop operator if exists %S.+ (%C, %C)",
    "create operator %S.+ (leftarg = %C, rightarg = %C, function = %S.zunir)",
    "drop operator if exists %S.+ (text, %C)",
    "create operator %S.+ (leftarg = text, rightarg = %C, function = %S.zunir)",
    "drop operator if exists %S.+ (%C, text)",
    "create operator %S.+ (leftarg = %C, rightarg = text, function = %S.zunir)",
    "drop operator if exists %S.+ (text, text)",
    "create operator %S.+ (leftarg = text, rightarg = text, function = %S.zunir)",

    // A pattern on a number reads the number's text.
    R"(create or replace function %S.zparecido(valor double precision, patron text) returns boolean language sql
  immutable strict parallel safe as $$ select valor::numeric::text operator(pg_catalog.~~*) patron $$)",
    "drop operator if exists %S.~~ (double precision, text)",
    "create operator %S.~~ (leftarg = double precision, rightarg = text, function = %S.zparecido)",

    // The description of an item: those of its groups in their order, each closed by a semicolon.
    R"(create or replace function %S.groupsubitem_descripcion_select_concat(nro double precision, clave %C)
  returns %C language sql stable as $$
  select coalesce(pg_catalog.string_agg(coalesce(g.descripcion::text, '') || ';', '' order by g.%O), '')::%C
    from %S.groupsubitems g where g.interno operator(%T.=) clave and g.id = nro $$)",

    // Gives each cancellation row that has no item yet the item of the line with the same export record.
    R"(create or replace function %S.procesardescargascontlr1(clave %C) returns integer language plpgsql as $$
declare tocadas integer;
begin
  update %S.descargas d set iditem = (
      select g.id::text from %S.subitems s
        join %S.groupsubitems g on g.interno operator(%T.=) s.interno and (g.idsub = s.id or exists (
          select 1 from %S.idrel r where r.interno operator(%T.=) s.interno and r.idroot = g.idsub and r.idsub = s.id))
       where s.interno operator(%T.=) clave and s.idexportacion = d.idexportacion and g.id is not null
       order by s.id limit 1)
   where d.interno operator(%T.=) clave and (d.iditem is null or d.iditem::text = '') and d.idexportacion <> 0;
  get diagnostics tocadas = row_count;
  return tocadas;
end $$)",
};

/// A text compared with a number compares as text with the number's text, as the file store's text columns
/// do.
QStringList comparaciones() {
    struct Operador {
        const char *nombre;
        const char *funcion;
    };
    static const Operador operadores[] = {{"=", "zigual"}, {"<>", "zdistinto"},   {"<", "zmenor"},
                                          {">", "zmayor"}, {"<=", "zmenorigual"}, {">=", "zmayorigual"}};
    QStringList sentencias;
    for (const Operador &o : operadores) {
        const QString nombre = QString::fromLatin1(o.nombre);
        const QString funcion = QString::fromLatin1(o.funcion);
        sentencias << u"drop operator if exists %S.%1 (%C, double precision)"_s.arg(nombre)
                   << u"drop operator if exists %S.%1 (double precision, %C)"_s.arg(nombre)
                   << u"create or replace function %S.%1(a %C, b double precision) returns boolean "
                      "language sql immutable strict parallel safe as $$ select a operator(%T.%2) "
                      "(b::numeric::text)::%C $$"_s.arg(funcion, nombre)
                   << u"create or replace function %S.%1(a double precision, b %C) returns boolean "
                      "language sql immutable strict parallel safe as $$ select (a::numeric::text)::%C "
                      "operator(%T.%2) b $$"_s.arg(funcion, nombre);
    }
    // No commutators are named: each would make the other a shell first, and the planner gains nothing from
    // them.
    for (const Operador &o : operadores) {
        const QString nombre = QString::fromLatin1(o.nombre);
        const QString funcion = QString::fromLatin1(o.funcion);
        sentencias << u"create operator %S.%1 (leftarg = %C, rightarg = double precision, "
                      "function = %S.%2)"_s.arg(nombre, funcion)
                   << u"create operator %S.%1 (leftarg = double precision, rightarg = %C, "
                      "function = %S.%2)"_s.arg(nombre, funcion);
    }
    return sentencias;
}

}  // namespace

QStringList Sentencias(const QString &esquema, const QString &tipoTexto) {
    QStringList sentencias;
    for (const char *texto : funciones) sentencias << QString::fromUtf8(texto);
    sentencias << comparaciones();
    const QString esquemaDelTipo = tipoTexto.left(tipoTexto.lastIndexOf(QLatin1Char('.')));
    for (QString &s : sentencias) {
        s.replace("%S"_L1, esquema);
        s.replace("%C"_L1, tipoTexto);
        s.replace("%T"_L1, esquemaDelTipo);
        s.replace("%O"_L1, actualizacion::columnaDeOrden);
    }
    return sentencias;
}

QString Huella(const QString &esquema, const QString &tipoTexto) {
    const QByteArray todo = Sentencias(esquema, tipoTexto).join(QLatin1Char('\n')).toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(todo, QCryptographicHash::Sha1).toHex().left(16));
}

}  // namespace servidor
