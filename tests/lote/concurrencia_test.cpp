// Two batch runs at the same time, on different operations of one store.

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QProcess>

#include "frame/base/values.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

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
        Escribir(tienda.carpeta(), u"Prueba.perfil.cfg"_s, "[GENERAL]\r\nIVARIN=21\r\nIVARNI=10,5\r\n");
        for (const char *clave : {"IC-2026-0001", "IT-2026-0003", "EC-2026-0002", "DJAI-2026-0004"})
            multiplicar(L(clave));
    }

    /// Twenty times every line, each with a price of its own, so that they do not fold; the header follows.
    void multiplicar(const QString &clave) {
        Recordset rs;
        Consultar(*ctx, u"INTERNOS"_s, "select * from subitems where interno = '"_L1 + clave + "'"_L1, rs);
        QStringList columnas;
        for (int c = 0; c < rs.columnas(); ++c) {
            const QString columna = rs.nombreDeColumna(c);
            if (columna != "id"_L1 && columna != "preciounitario"_L1 && columna != "fob"_L1)
                columnas << columna;
        }
        constexpr int veces = 20;
        for (int n = 1; n < veces; ++n) {
            const QString precio = u"preciounitario + 0.0%1"_s.arg(n, 2, 10, QLatin1Char('0'));
            Ejecutar(*ctx, u"INTERNOS"_s,
                     "insert into subitems ("_L1 + columnas.join(", "_L1) +
                         ", preciounitario, fob) select "_L1 + columnas.join(", "_L1) + ", "_L1 + precio +
                         ", round(cantidad * ("_L1 + precio + "), 2) from subitems where interno = '"_L1 +
                         clave + "' and id <= "_L1 + maximo(clave, n));
        }
        Ejecutar(*ctx, u"INTERNOS"_s,
                 "update caratula set dckgneto = dckgneto * 20, fobdivisas = (select sum(fob) from "
                 "subitems where interno = '"_L1 +
                     clave + "') where interno = '"_L1 + clave + "'"_L1);
    }
    /// The last of the operation's first lines.
    QString maximo(const QString &clave, int vuelta) {
        if (vuelta == 1) {
            Recordset rs;
            Consultar(*ctx, u"INTERNOS"_s,
                      "select max(id) as n from subitems where interno = '"_L1 + clave + "'"_L1, rs);
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
            Consultar(*ctx, u"INTERNOS"_s,
                      "select * from "_L1 + L(tabla) + " where interno = '"_L1 + L(clave) + "'"_L1, rs);
            QStringList lineas;
            for (; !rs.Eof(); rs.MoveNext()) {
                QStringList celdas;
                for (int c = 0; c < rs.columnas(); ++c) {
                    const QString columna = rs.nombreDeColumna(c);
                    const bool dada =
                        columna == "idsub"_L1 || (columna == "id"_L1 && L(tabla) == "subitems"_L1);
                    if (!dada) celdas << celda(rs.Fields(c).Value);
                }
                lineas << celdas.join(QLatin1Char('|'));
            }
            todo += L(tabla) + ":\n"_L1 + lineas.join(QLatin1Char('\n')) + QLatin1Char('\n');
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
