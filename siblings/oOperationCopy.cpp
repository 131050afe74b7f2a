#include "siblings/oOperationCopy.h"

#include <QDateTime>
#include <map>

#include "frame/context.h"
#include "frame/numbers.h"
#include "frame/values.h"

namespace oOperationCopy {

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");

// Lines go first: the others follow their new identities.
const char *const tablas[] = {"caratula",    "facturas", "prorrateo", "itempresu", "itemref", "groupsubitems", "idrel", "item",
                              "itemliq", "itemventaja", "iteminfo",  "liqcero",   "sysflag", "descargas"};

using Identidades = std::map<QString, QString>;

QString literal(const QVariant &valor) {
    if (valor.isNull()) return QStringLiteral("NULL");
    if (valor.typeId() == QMetaType::QString) return QLatin1Char('\'') + DoblarComillas(valor.toString()) + QLatin1Char('\'');
    return numeros::aTexto(valor.toDouble());
}

/// A column that the store fills by itself.
bool esDelStore(const QString &columna) { return columna.compare(L("zfila"), Qt::CaseInsensitive) == 0; }

/// Columns that name a line.
bool nombraLinea(const QString &tabla, const QString &columna) {
    const bool grupo = tabla == L("groupsubitems") && columna.compare(L("idsub"), Qt::CaseInsensitive) == 0;
    const bool plegada = tabla == L("idrel") && (columna.compare(L("idsub"), Qt::CaseInsensitive) == 0 || columna.compare(L("idroot"), Qt::CaseInsensitive) == 0);
    return grupo || plegada;
}

QString valorPara(AppContext &ctx, const QString &tabla, const QString &columna, const QVariant &valor, const QString &destino, const Identidades &lineas) {
    const auto es = [&columna](const char *nombre) { return columna.compare(L(nombre), Qt::CaseInsensitive) == 0; };
    if (es("interno")) return literal(destino);
    if (tabla == L("caratula")) {
        if (es("factura8")) return QStringLiteral("NULL");
        if (es("fechaalta")) return ctx.DataManager.getDateFormatbyEntity(internos, QDateTime::currentDateTime());
    }
    if (nombraLinea(tabla, columna) && !valor.isNull()) {
        const auto nueva = lineas.find(EsNull(valor));
        if (nueva != lineas.end()) return nueva->second;
    }
    return literal(valor);
}

void copiarFila(AppContext &ctx, const QString &tabla, const Recordset &rs, const QString &destino, const Identidades &lineas, const QString &sinColumna = {}) {
    QStringList columnas;
    QStringList valores;
    for (int c = 0; c < rs.columnas(); ++c) {
        const QString columna = rs.nombreDeColumna(c);
        if (esDelStore(columna) || columna.compare(sinColumna, Qt::CaseInsensitive) == 0) continue;
        columnas << columna;
        valores << valorPara(ctx, tabla, columna, rs.Fields(c).Value, destino, lineas);
    }
    Ejecutar(ctx, internos, L("insert into ") + tabla + L(" (") + columnas.join(QLatin1Char(',')) + L(") values (") + valores.join(QLatin1Char(',')) + L(")"));
}

QString todo(const QString &tabla, const QString &origen) { return L("select * from ") + tabla + L(" where interno = '") + origen + L("'"); }

}  // namespace

void Copiar(AppContext &ctx, const QString &origen, const QString &destino) {
    const EscrituraLigera ligera(ctx.conexion(internos));
    Identidades lineas;
    Recordset rs;
    const QString subitems = QStringLiteral("subitems");
    for (Consultar(ctx, internos, todo(subitems, origen) + L(" order by id"), rs); !rs.Eof(); rs.MoveNext()) {
        copiarFila(ctx, subitems, rs, destino, {}, QStringLiteral("id"));
        Recordset nueva;
        Consultar(ctx, internos, L("select max(id) as id from subitems where interno = '") + destino + L("'"), nueva);
        lineas[rs.Texto(u"id")] = nueva.Texto(u"id");
    }
    for (const char *nombre : tablas) {
        const QString tabla = QString(L(nombre));
        for (Consultar(ctx, internos, todo(tabla, origen), rs); !rs.Eof(); rs.MoveNext()) copiarFila(ctx, tabla, rs, destino, lineas);
    }
}

QString Mostrar(AppContext &ctx, const QString &Numero_Interno) {
    const auto escrito = ctx.dialogos.pedirTexto({QStringLiteral("Copiar interno"), QStringLiteral("Ingrese el nuevo número de INTERNO/CARPETA"), 40, {}});
    const QString destino = escrito.value_or(QString()).trimmed();
    if (destino.isEmpty()) return {};
    const Reloj reloj(ctx.dialogos);
    try {
        Recordset rs;
        if (Consultar(ctx, internos, L("select interno from caratula where interno = '") + destino + L("'"), rs)) {
            ctx.dialogos.advertir(QStringLiteral("El Código de interno ya existe."));
            return {};
        }
        Copiar(ctx, Numero_Interno, destino);
        return destino;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
        return {};
    }
}

}  // namespace oOperationCopy
