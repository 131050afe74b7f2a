#include "operations/oOperationCopy.h"

#include <QDateTime>
#include <map>
#include <optional>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace oOperationCopy {

namespace {

using L = QLatin1String;

using entidad::internos;
const QString subitems = u"subitems"_s;

struct Tabla {
    const char *entidad;
    const char *nombre;
    const char *generada = "";  ///< its column that the store numbers
};

// What hangs from the lines and from the header. An operation exists by its header, which therefore comes
// last: a copy that stopped halfway does not exist, and the next one to that key clears its leftovers.
constexpr Tabla tablas[] = {{"INTERNOS", "facturas"},
                            {"INTERNOS", "prorrateo"},
                            {"INTERNOS", "itempresu"},
                            {"INTERNOS", "itemref"},
                            {"INTERNOS", "groupsubitems"},
                            {"INTERNOS", "idrel"},
                            {"INTERNOS", "item"},
                            {"INTERNOS", "itemliq"},
                            {"INTERNOS", "itemventaja"},
                            {"INTERNOS", "iteminfo"},
                            {"INTERNOS", "liqcero"},
                            {"INTERNOS", "sysflag"},
                            {"INTERNOS", "descargas"},
                            {"SYSTABLAS", "hval"},
                            {"SYSTABLAS", "hvalexp"},
                            {"SYSTABLAS", "coment"},
                            {"INTERNOS", "certorigen", "id"},
                            {"INTERNOS", "caratula"}};

/// The identity of each line of the original, and that of its copy.
using Identidades = std::map<QString, QString>;

bool es(const QString &columna, const char *nombre) {
    return columna.compare(L(nombre), Qt::CaseInsensitive) == 0;
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

void copiarValor(AppContext &ctx, const QString &entidad, const char *columna, const QVariant &valor,
                 Escritura &fila) {
    if (valor.isNull()) {
        fila.crudo(columna, u"NULL"_s);
        return;
    }
    switch (valor.typeId()) {
        case QMetaType::QString:
            fila.texto(columna, valor.toString());
            return;
        case QMetaType::QDate:
        case QMetaType::QDateTime:
            fila.crudo(columna, ctx.DataManager.getDateFormatbyEntity(entidad, valor.toDateTime()));
            return;
        default:
            fila.numero(columna, valor.toDouble());
    }
}

/// What the copy holds in place of the original's value, as SQL; nothing where it holds the same.
std::optional<QString> valorPropio(AppContext &ctx, const QString &tabla, const QString &columna,
                                   const QVariant &valor, const QString &destino, const Identidades &lineas) {
    if (es(columna, "interno")) return TextoEnComillas(destino);
    if (tabla == "caratula"_L1 && es(columna, "fechaalta")) return hoy(ctx);
    if (!nombraLinea(tabla, columna) || valor.isNull()) return std::nullopt;
    const auto nueva = lineas.find(EsNull(valor));
    return nueva == lineas.end() ? std::nullopt : std::optional(nueva->second);
}

void copiarFila(AppContext &ctx, const Tabla &tabla, const Recordset &rs, const QString &destino,
                const Identidades &lineas) {
    const QString entidad = L(tabla.entidad);
    const QString nombre = L(tabla.nombre);
    // Each store has a decimal separator of its own.
    Escritura fila(ctx, entidad);
    for (int c = 0; c < rs.columnas(); ++c) {
        const QString columna = rs.nombreDeColumna(c);
        // A generated identity is the store's own.
        if (es(columna, tabla.generada)) continue;
        const QByteArray nombreDeColumna = columna.toLatin1();
        const QVariant valor = rs.Fields(c).Value;
        if (const auto propio = valorPropio(ctx, nombre, columna, valor, destino, lineas))
            fila.crudo(nombreDeColumna.constData(), *propio);
        else
            copiarValor(ctx, entidad, nombreDeColumna.constData(), valor, fila);
    }
    Ejecutar(ctx, entidad, fila.insertar(nombre));
}

QString deLaClave(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
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
        copiarFila(ctx, {"INTERNOS", "subitems", "id"}, viejas, destino, {});
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
        for (; !rs.Eof(); rs.MoveNext()) copiarFila(ctx, tabla, rs, destino, lineas);
    }
}

}  // namespace

void Copiar(AppContext &ctx, const QString &origen, const QString &destino) {
    if (existe(ctx, destino)) throw Falla{0, internos, u"El Código de interno ya existe."_s, {}};
    // Thousands of rows, each a statement of its own: the disk is waited for once, before the copy counts as
    // done.
    EscrituraLigera ligera(ctx.conexion(internos));
    copiarTodo(ctx, origen, destino);
    ligera.Terminar();
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
