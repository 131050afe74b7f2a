#include "operations/oOperationCopy.h"

#include <QDateTime>
#include <map>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace oOperationCopy {

namespace {

using L = QLatin1String;

const QString internos = u"INTERNOS"_s;
const QString subitems = u"subitems"_s;

struct Tabla {
    const char *entidad;
    const char *nombre;
};

// What hangs from the lines and from the header. An operation exists by its header, which therefore comes
// last: a copy that stopped halfway does not exist, and the next one to that key clears its leftovers.
constexpr Tabla tablas[] = {
    {"INTERNOS", "facturas"},  {"INTERNOS", "prorrateo"},     {"INTERNOS", "itempresu"},
    {"INTERNOS", "itemref"},   {"INTERNOS", "groupsubitems"}, {"INTERNOS", "idrel"},
    {"INTERNOS", "item"},      {"INTERNOS", "itemliq"},       {"INTERNOS", "itemventaja"},
    {"INTERNOS", "iteminfo"},  {"INTERNOS", "liqcero"},       {"INTERNOS", "sysflag"},
    {"INTERNOS", "descargas"}, {"SYSTABLAS", "hval"},         {"SYSTABLAS", "hvalexp"},
    {"SYSTABLAS", "coment"},   {"INTERNOS", "caratula"}};

/// The identity of each line of the original, and that of its copy.
using Identidades = std::map<QString, QString>;

bool es(const QString &columna, const char *nombre) {
    return columna.compare(L(nombre), Qt::CaseInsensitive) == 0;
}

QString literal(AppContext &ctx, const QString &entidad, const QVariant &valor) {
    if (valor.isNull()) return u"NULL"_s;
    switch (valor.typeId()) {
        case QMetaType::QString:
            return QLatin1Char('\'') + DoblarComillas(valor.toString()) + QLatin1Char('\'');
        case QMetaType::QDate:
        case QMetaType::QDateTime:
            return ctx.DataManager.getDateFormatbyEntity(entidad, valor.toDateTime());
        default:
            return SqlNumber(ctx, valor.toDouble());
    }
}

/// The day of the process; a context that was never started has the present one.
QString hoy(AppContext &ctx) {
    return ctx.TodayInternos.isEmpty()
               ? ctx.DataManager.getDateFormatbyEntity(internos, QDate::currentDate().startOfDay())
               : ctx.TodayInternos;
}

/// Columns that name a line.
bool nombraLinea(const QString &tabla, const QString &columna) {
    if (tabla == "groupsubitems"_L1) return es(columna, "idsub");
    return tabla == "idrel"_L1 && (es(columna, "idsub") || es(columna, "idroot"));
}

QString valorPara(AppContext &ctx, const Tabla &tabla, const QString &columna, const QVariant &valor,
                  const QString &destino, const Identidades &lineas) {
    const QString entidad = QString(L(tabla.entidad));
    const QString nombre = QString(L(tabla.nombre));
    if (es(columna, "interno")) return literal(ctx, entidad, destino);
    if (nombre == "caratula"_L1) {
        if (es(columna, "factura8")) return u"NULL"_s;
        if (es(columna, "fechaalta")) return hoy(ctx);
    }
    if (nombraLinea(nombre, columna) && !valor.isNull()) {
        const auto nueva = lineas.find(EsNull(valor));
        if (nueva != lineas.end()) return nueva->second;
    }
    return literal(ctx, entidad, valor);
}

void copiarFila(AppContext &ctx, const Tabla &tabla, const Recordset &rs, const QString &destino,
                const Identidades &lineas, const char *generada) {
    QStringList columnas;
    QStringList valores;
    for (int c = 0; c < rs.columnas(); ++c) {
        const QString columna = rs.nombreDeColumna(c);
        // A generated identity is the store's own.
        if (es(columna, generada)) continue;
        columnas << columna;
        valores << valorPara(ctx, tabla, columna, rs.Fields(c).Value, destino, lineas);
    }
    Ejecutar(ctx, QString(L(tabla.entidad)),
             "insert into "_L1 + L(tabla.nombre) + " ("_L1 + columnas.join(QLatin1Char(',')) +
                 ") values ("_L1 + valores.join(QLatin1Char(',')) + ")"_L1);
}

QString deLaClave(const QString &interno) {
    return " where interno = '"_L1 + interno + "'"_L1;
}

bool existe(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, internos, "select interno from caratula"_L1 + deLaClave(interno), rs);
}

/// Rows that a deletion left behind under the new key would mix with the copy.
void limpiar(AppContext &ctx, const QString &destino) {
    Ejecutar(ctx, internos, "delete from "_L1 + subitems + deLaClave(destino));
    for (const Tabla &tabla : tablas)
        Ejecutar(ctx, QString(L(tabla.entidad)), "delete from "_L1 + L(tabla.nombre) + deLaClave(destino));
}

/// The store numbers the new lines as they come, so both lists run in the same order.
Identidades copiarLineas(AppContext &ctx, const QString &origen, const QString &destino) {
    const QString porId = u" order by id"_s;
    Recordset viejas;
    Consultar(ctx, internos, "select * from "_L1 + subitems + deLaClave(origen) + porId, viejas);
    for (; !viejas.Eof(); viejas.MoveNext())
        copiarFila(ctx, {"INTERNOS", "subitems"}, viejas, destino, {}, "id");
    Recordset nuevas;
    Consultar(ctx, internos, "select id from "_L1 + subitems + deLaClave(destino) + porId, nuevas);
    Identidades lineas;
    for (viejas.MoveFirst(); !viejas.Eof() && !nuevas.Eof(); viejas.MoveNext(), nuevas.MoveNext())
        lineas[viejas.Texto(u"id")] = nuevas.Texto(u"id");
    return lineas;
}

void copiarTodo(AppContext &ctx, const QString &origen, const QString &destino) {
    limpiar(ctx, destino);
    const Identidades lineas = copiarLineas(ctx, origen, destino);
    Recordset rs;
    for (const Tabla &tabla : tablas) {
        Consultar(ctx, QString(L(tabla.entidad)), "select * from "_L1 + L(tabla.nombre) + deLaClave(origen),
                  rs);
        for (; !rs.Eof(); rs.MoveNext()) copiarFila(ctx, tabla, rs, destino, lineas, "");
    }
}

}  // namespace

void Copiar(AppContext &ctx, const QString &origen, const QString &destino) {
    if (existe(ctx, destino)) throw Falla{0, internos, u"El Código de interno ya existe."_s, {}};
    // Thousands of rows, each a statement of its own: the disk is waited for once, before the copy counts as
    // done.
    Conexion &conexion = ctx.conexion(internos);
    conexion.escrituraLigera(true);
    try {
        copiarTodo(ctx, origen, destino);
    } catch (const Falla &) {
        try {
            conexion.escrituraLigera(false);
        } catch (const Falla &) {
            // The first failure is the one to tell.
        }
        throw;
    }
    conexion.escrituraLigera(false);
}

QString Mostrar(AppContext &ctx, const QString &Numero_Interno) {
    const auto escrito = ctx.dialogos.pedirTexto(
        {u"Copiar interno"_s, u"Ingrese el nuevo número de INTERNO/CARPETA"_s, 40, {}});
    QString destino = escrito.value_or(QString()).trimmed();
    if (destino.isEmpty()) return {};
    const Reloj reloj(ctx.dialogos);
    try {
        // Another workstation may have deleted it since the list was filled.
        if (!existe(ctx, Numero_Interno)) {
            ctx.dialogos.advertir(
                u"El interno %1 ya no existe: vuelva a buscarlo en la lista."_s.arg(Numero_Interno));
            return {};
        }
        if (existe(ctx, destino)) {
            ctx.dialogos.advertir(u"El Código de interno ya existe."_s);
            return {};
        }
        Copiar(ctx, Numero_Interno, destino);
        return destino;
    } catch (const Falla &e) {
        ctx.dialogos.critico(e.descripcion);
        return {};
    }
}

}  // namespace oOperationCopy
