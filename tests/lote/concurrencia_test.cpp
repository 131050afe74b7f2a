// Two batch runs at the same time, on different operations of one store.

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QProcess>

#include "frame/values.h"
#include "tests/lote/corrida.h"
#include "tests/support/tienda.h"

namespace {

using L = QLatin1String;

/// The server sums rows in the order they lie in, so the last digits of a sum are not those of another store.
QString celda(const QVariant &v) {
    constexpr int cifras = 12;
    return v.typeId() == QMetaType::Double ? QString::number(v.toDouble(), 'g', cifras) : EsNull(v);
}

/// Everything a run wrote.
std::string dicho(const Corrida &c) {
    QByteArray todo;
    for (const QJsonObject &o : c.lineas) todo += QJsonDocument(o).toJson(QJsonDocument::Compact) + '\n';
    return todo.toStdString();
}

/// A store with the demonstration, whose operations carry many times their lines.
struct Puesto {
    explicit Puesto(const char *etiqueta) : tienda(L(etiqueta), true), ctx(tienda.contexto(registro)) {
        Escribir(tienda.carpeta(), QStringLiteral("Prueba.perfil.cfg"),
                 "[GENERAL]\r\nIVARIN=21\r\nIVARNI=10,5\r\n");
        for (const char *clave : {"IC-2026-0001", "IT-2026-0003", "EC-2026-0002", "DJAI-2026-0004"})
            multiplicar(L(clave));
    }

    /// Twenty times every line, each with a price of its own, so that they do not fold; the header follows.
    void multiplicar(const QString &clave) {
        Recordset rs;
        Consultar(*ctx, QStringLiteral("INTERNOS"),
                  L("select * from subitems where interno = '") + clave + L("'"), rs);
        QStringList columnas;
        for (int c = 0; c < rs.columnas(); ++c) {
            const QString columna = rs.nombreDeColumna(c);
            if (columna != L("id") && columna != L("zfila") && columna != L("preciounitario") &&
                columna != L("fob"))
                columnas << columna;
        }
        constexpr int veces = 20;
        for (int n = 1; n < veces; ++n) {
            const QString precio = QStringLiteral("preciounitario + 0.0%1").arg(n, 2, 10, QLatin1Char('0'));
            Ejecutar(*ctx, QStringLiteral("INTERNOS"),
                     L("insert into subitems (") + columnas.join(L(", ")) +
                         L(", preciounitario, fob) select ") + columnas.join(L(", ")) + L(", ") + precio +
                         L(", round(cantidad * (") + precio + L("), 2) from subitems where interno = '") +
                         clave + L("' and id <= ") + maximo(clave, n));
        }
        Ejecutar(*ctx, QStringLiteral("INTERNOS"),
                 L("update caratula set dckgneto = dckgneto * 20, fobdivisas = (select sum(fob) from "
                   "subitems where interno = '") +
                     clave + L("') where interno = '") + clave + L("'"));
    }
    /// The last of the operation's first lines.
    QString maximo(const QString &clave, int vuelta) {
        if (vuelta == 1) {
            Recordset rs;
            Consultar(*ctx, QStringLiteral("INTERNOS"),
                      L("select max(id) as n from subitems where interno = '") + clave + L("'"), rs);
            ultima = EsNull(rs.Fields(u"n").Value);
        }
        return ultima;
    }

    QStringList orden(const char *comando, const char *clave, const char *ajustes) const {
        return {"--perfil", tienda.perfil(), "--ajustes", tienda.carpeta() + QLatin1Char('/') + L(ajustes),
                L(comando), L(clave)};
    }

    /// Every derived row of an operation, without the identities that the store gives out.
    QString retrato(const char *clave) {
        QString todo;
        for (const char *tabla : {"subitems", "groupsubitems", "item", "itemliq", "itemventaja", "iteminfo",
                                  "liqcero", "sysflag", "caratula"}) {
            Recordset rs;
            Consultar(*ctx, QStringLiteral("INTERNOS"),
                      L("select * from ") + L(tabla) + L(" where interno = '") + L(clave) + L("'"), rs);
            QStringList lineas;
            for (; !rs.Eof(); rs.MoveNext()) {
                QStringList celdas;
                for (int c = 0; c < rs.columnas(); ++c) {
                    const QString columna = rs.nombreDeColumna(c);
                    const bool dada = columna == L("zfila") || columna == L("idsub") ||
                                      (columna == L("id") && L(tabla) == L("subitems"));
                    if (!dada) celdas << celda(rs.Fields(c).Value);
                }
                lineas << celdas.join(QLatin1Char('|'));
            }
            todo += L(tabla) + QLatin1String(":\n") + lineas.join(QLatin1Char('\n')) + QLatin1Char('\n');
        }
        return todo;
    }

    Registro registro;
    Tienda tienda;
    std::unique_ptr<AppContext> ctx;
    QString ultima;
};

class DosCorridas : public ::testing::TestWithParam<const char *> {};

TEST_P(DosCorridas, OnDifferentOperationsGiveWhatEachGivesAlone) {
    Puesto solas(GetParam());
    Puesto juntas(GetParam());
    const std::pair<const char *, const char *> pares[] = {{"IC-2026-0001", "IT-2026-0003"},
                                                           {"EC-2026-0002", "DJAI-2026-0004"}};
    for (const auto &[una, otra] : pares) {
        for (const char *comando : {"armar", "liquidar"}) {
            const Corrida a = Lote(solas.tienda.carpeta(), solas.orden(comando, una, "a.ini"));
            const Corrida b = Lote(solas.tienda.carpeta(), solas.orden(comando, otra, "a.ini"));
            ASSERT_EQ(a.estado, 0) << una << ": " << a.textos().join('\n').toStdString();
            ASSERT_EQ(b.estado, 0) << otra << ": " << b.textos().join('\n').toStdString();
            // Both use one settings area, as two runs of one user do.
            const auto pa = EmpezarLote(juntas.tienda.carpeta(), juntas.orden(comando, una, "a.ini"));
            const auto pb = EmpezarLote(juntas.tienda.carpeta(), juntas.orden(comando, otra, "a.ini"));
            const Corrida ja = TerminarLote(*pa);
            const Corrida jb = TerminarLote(*pb);
            EXPECT_EQ(ja.estado, 0) << una << ": " << ja.textos().join('\n').toStdString();
            EXPECT_EQ(jb.estado, 0) << otra << ": " << jb.textos().join('\n').toStdString();
            EXPECT_EQ(dicho(ja), dicho(a)) << comando << ' ' << una;
            EXPECT_EQ(dicho(jb), dicho(b)) << comando << ' ' << otra;
        }
        for (const char *clave : {una, otra}) {
            const QString retrato = solas.retrato(clave);
            EXPECT_GT(retrato.count('\n'), 100) << clave;
            EXPECT_EQ(juntas.retrato(clave).toStdString(), retrato.toStdString()) << clave;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Stores, DosCorridas, ::testing::Values("ACCESS", "SQL"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
