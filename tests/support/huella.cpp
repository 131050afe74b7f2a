#include "tests/support/huella.h"

#include <QHash>

#include "frame/base/values.h"
#include "frame/store/store.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

/// The columns that tell a row, in the order of the schema.
QStringList columnasDe(const esquema::Tabla &t) {
    QStringList columnas;
    for (const esquema::Columna &c : t.columnas)
        if (c.tipo != esquema::Tipo::Fecha) columnas << c.nombre;
    return columnas;
}

QString huellaDe(AppContext &ctx, const esquema::Tabla &t, const QStringList &sin) {
    Recordset rs;
    qint64 filas = 0;
    quint64 suma = 0;
    const QStringList columnas = columnasDe(t);
    for (Consultar(ctx, t.entidad, u"select * from "_s + t.nombre, rs); !rs.Eof(); rs.MoveNext()) {
        if (t.columna(u"interno") != nullptr && sin.contains(rs.Texto(u"interno"), Qt::CaseInsensitive))
            continue;
        QStringList celdas;
        for (const QString &c : columnas) {
            const QVariant v = rs.Fields(c).Value;
            celdas << (v.isNull() ? u"<null>"_s : EsNull(v));
        }
        ++filas;
        suma += qHash(celdas.join(QChar(QChar::LineSeparator)), 7);
    }
    return u"%1:%2"_s.arg(filas).arg(suma);
}

}  // namespace

std::map<QString, QString> Huella(AppContext &ctx, const SinContar &sin) {
    std::map<QString, QString> todas;
    for (const esquema::Tabla &t : esquema::tablas())
        if (!sin.tablas.contains(t.nombre)) todas[t.nombre] = huellaDe(ctx, t, sin.operaciones);
    return todas;
}

QString Diferencias(const std::map<QString, QString> &antes, const std::map<QString, QString> &despues) {
    QStringList lineas;
    for (const auto &[tabla, huella] : antes) {
        const auto otra = despues.find(tabla);
        if (otra == despues.end() || otra->second != huella)
            lineas << u"%1: %2 -> %3"_s.arg(tabla, huella,
                                            otra == despues.end() ? u"(none)"_s : otra->second);
    }
    return lineas.join(u'\n');
}
