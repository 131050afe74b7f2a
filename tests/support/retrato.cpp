#include "tests/support/retrato.h"

#include "frame/base/values.h"
#include "operations/operationrows.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

QString celda(const QVariant &v) {
    constexpr int cifras = 12;
    if (v.isNull()) return u"<null>"_s;
    return v.typeId() == QMetaType::Double ? QString::number(v.toDouble(), 'g', cifras) : EsNull(v);
}

/// Numbers of rows of other tables.
bool nombraUnaFila(const QString &columna) {
    return QStringList{u"idsub"_s, u"idstock"_s, u"idlinea"_s, u"idexportacion"_s}.contains(columna);
}

QString retratoDeTabla(AppContext &ctx, const esquema::Tabla &tabla) {
    QStringList columnas;
    for (const esquema::Columna &c : tabla.columnas)
        if (c.tipo != esquema::Tipo::Generado && c.tipo != esquema::Tipo::Fecha && !nombraUnaFila(c.nombre))
            columnas << c.nombre;
    Recordset rs;
    QStringList lineas;
    for (Consultar(ctx, tabla.entidad, "select * from "_L1 + tabla.nombre, rs); !rs.Eof(); rs.MoveNext()) {
        QStringList celdas;
        for (const QString &c : columnas) celdas << celda(rs.Fields(c).Value);
        lineas << "  "_L1 + celdas.join(u'|');
    }
    lineas.sort();
    return tabla.nombre + ":\n"_L1 + lineas.join(u'\n') + u'\n';
}

}  // namespace

QString RetratoDeOperacion(AppContext &ctx, const QString &interno) {
    QString todo = interno + u'\n';
    operacion::Lectura lectura(ctx, interno);
    for (const operacion::Tabla &tabla : operacion::Tablas()) {
        if (tabla.deSuHistoria) continue;
        todo += " "_L1 + QLatin1String(tabla.nombre) + u'\n';
        lectura.Recorrer(tabla, [&todo](const QStringList &columnas, const operacion::Fila &fila) {
            QStringList celdas;
            for (std::size_t c = 0; c < fila.size(); ++c)
                celdas << columnas.at(static_cast<qsizetype>(c)) + u'=' + celda(fila[c]);
            todo += "  "_L1 + celdas.join(u'|') + u'\n';
        });
    }
    return todo;
}

QString Retrato(AppContext &ctx) {
    QString todo;
    Recordset rs;
    for (Consultar(ctx, u"INTERNOS"_s, u"select interno from caratula order by interno"_s, rs); !rs.Eof();
         rs.MoveNext())
        todo += RetratoDeOperacion(ctx, rs.Texto(u"interno"));
    for (const esquema::Tabla &tabla : esquema::tablas()) {
        const bool seEscribe = tabla.entidad != "NCM"_L1 && tabla.nombre != "interno"_L1;
        if (seEscribe && operacion::BuscarTabla(tabla.nombre) == nullptr) todo += retratoDeTabla(ctx, tabla);
    }
    return todo;
}

QString DiferenciasDeRetratos(const QString &uno, const QString &otro) {
    constexpr qsizetype bastantes = 8;
    QStringList distintas;
    const QStringList a = uno.split(u'\n');
    const QStringList b = otro.split(u'\n');
    for (const QString &linea : a)
        if (a.count(linea) > b.count(linea)) distintas << "- "_L1 + linea;
    for (const QString &linea : b)
        if (b.count(linea) > a.count(linea)) distintas << "+ "_L1 + linea;
    distintas.removeDuplicates();
    if (distintas.isEmpty() && uno != otro) distintas << u"the same rows in another order"_s;
    return distintas.mid(0, bastantes).join(u'\n');
}
