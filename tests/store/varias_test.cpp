// Several connections on one store, light writing, and the trace.
#include <gtest/gtest.h>

#include <QSqlQuery>
#include <atomic>
#include <chrono>
#include <thread>

#include "frame/base/values.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class VariasConexiones : public EnAmbosStores {
 protected:
    bool esServidor() const { return std::string(GetParam()) == "SQL"; }
    Conexion &internos() { return ctx->conexion(u"INTERNOS"_s); }
    /// A word of the engine about itself.
    std::string motor(const QString &sql) {
        QSqlQuery consulta(internos().coneccion());
        return consulta.exec(sql) && consulta.next() ? consulta.value(0).toString().toStdString() : "<error>";
    }
    std::string sincronia() {
        return motor(esServidor() ? u"show synchronous_commit"_s : u"PRAGMA main.synchronous"_s);
    }
    std::string ligera() const { return esServidor() ? "off" : "1"; }
    std::string firme() const { return esServidor() ? "on" : "2"; }
};
EN_AMBOS_STORES(VariasConexiones);

TEST_P(VariasConexiones, TwoWorkstationsSeeEachOthersRowsAtOnce) {
    Registro otro;
    const auto segundo = tienda->contexto(otro);
    ejecutar(u"insert into interno (interno,maquina) values ('A','PC1')"_s);
    Recordset rs;
    ASSERT_TRUE(Consultar(*segundo, u"INTERNOS"_s, u"select maquina from interno where interno = 'A'"_s, rs));
    EXPECT_EQ(rs.Texto(u"maquina").toStdString(), "PC1");
    EXPECT_EQ(Ejecutar(*segundo, u"INTERNOS"_s, u"delete from interno where interno = 'A'"_s), 1);
    EXPECT_EQ(valor(u"select count(*) from interno"_s).toStdString(), "0");
    // Neither end of one closes the other.
    segundo->DataManager.CloseAllDataConnection();
    EXPECT_EQ(ejecutar(u"insert into interno (interno,maquina) values ('A','PC1')"_s), 1);
}

TEST_P(VariasConexiones, TwoWritersAtTheSameTimeLoseNoRowAndShareNoIdentity) {
    constexpr int lineas = 150;
    std::atomic<int> fallas = 0;
    const auto escribir = [&](const char *clave) {
        try {
            Registro propio;
            const auto c = tienda->contexto(propio);
            for (int n = 0; n < lineas; ++n) {
                Ejecutar(
                    *c, u"INTERNOS"_s,
                    u"insert into subitems (interno,cantidad) values ('%1',%2)"_s.arg(QLatin1String(clave))
                        .arg(n));
                Ejecutar(*c, u"INTERNOS"_s,
                         u"update subitems set cantidad = cantidad + 1 where interno = '%1'"_s.arg(
                             QLatin1String(clave)));
            }
        } catch (const Falla &) {
            ++fallas;
        }
    };
    std::thread a(escribir, "A");
    std::thread b(escribir, "B");
    a.join();
    b.join();
    EXPECT_EQ(fallas, 0);
    EXPECT_EQ(filas(u"select interno,count(*) from subitems group by interno"_s).toStdString(),
              "A|150\nB|150");
    EXPECT_EQ(valor(u"select count(distinct id) from subitems"_s).toStdString(), "300");
    // Line n was raised once by itself and once by each of the lines behind it.
    // n + (150 - n) = 150 for every one.
    EXPECT_EQ(valor(u"select count(*) from subitems where cantidad = 150"_s).toStdString(), "300");
}

TEST_P(VariasConexiones, AWriterWaitsForTheOtherToEnd) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    QSqlQuery consulta(internos().coneccion());
    ASSERT_TRUE(consulta.exec(esServidor() ? u"begin"_s : u"begin immediate"_s));
    ASSERT_TRUE(consulta.exec(u"update divisas set imp = 2"_s));
    std::atomic<bool> termino = false;
    bool pudo = false;
    std::thread otro([&] {
        Registro propio;
        const auto c = tienda->contexto(propio);
        try {
            pudo = Ejecutar(*c, u"INTERNOS"_s, u"update divisas set imp = imp * 10"_s) == 1;
        } catch (const Falla &) {
        }
        termino = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_FALSE(termino);
    ASSERT_TRUE(consulta.exec(u"commit"_s));
    consulta.finish();
    otro.join();
    EXPECT_TRUE(pudo);
    EXPECT_EQ(valor(u"select imp from divisas"_s).toStdString(), "20");
}

TEST_P(VariasConexiones, AReaderDoesNotWaitForAWriter) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    QSqlQuery consulta(internos().coneccion());
    ASSERT_TRUE(consulta.exec(esServidor() ? u"begin"_s : u"begin immediate"_s));
    ASSERT_TRUE(consulta.exec(u"update divisas set imp = 2"_s));
    Registro propio;
    const auto c = tienda->contexto(propio);
    Recordset rs;
    ASSERT_TRUE(Consultar(*c, u"INTERNOS"_s, u"select imp from divisas"_s, rs));
    EXPECT_EQ(rs.Numero(u"imp"), 1);
    ASSERT_TRUE(consulta.exec(u"rollback"_s));
}

// Light writing

TEST_P(VariasConexiones, LightWritingLastsAsLongAsItsOwner) {
    {
        EscrituraLigera una(internos());
        EXPECT_EQ(sincronia(), ligera());
        EXPECT_EQ(ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s), 1);
    }
    EXPECT_EQ(sincronia(), firme());
    EXPECT_EQ(valor(u"select imp from divisas"_s).toStdString(), "1");
}

TEST_P(VariasConexiones, LightWritingsNestAndTheLastOffCounts) {
    EscrituraLigera fuera(internos());
    {
        EscrituraLigera dentro(internos());
        EXPECT_EQ(sincronia(), ligera());
    }
    EXPECT_EQ(sincronia(), ligera());
    fuera.Terminar();
    EXPECT_EQ(sincronia(), firme());
    fuera.Terminar();
    EXPECT_EQ(sincronia(), firme());
}

TEST_P(VariasConexiones, LightWritingOutlivesACloseOfAllConnections) {
    EscrituraLigera una(internos());
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_EQ(ejecutar(u"update divisas set imp = 2"_s), 1);
    EXPECT_EQ(sincronia(), ligera());
    una.Terminar();
    EXPECT_EQ(sincronia(), firme());
}

TEST_P(VariasConexiones, LightWritingEndsOnTheRoadOfAnError) {
    try {
        const EscrituraLigera una(internos());
        ejecutar(u"update noexiste set x = 1"_s);
        ADD_FAILURE() << "no error";
    } catch (const Falla &) {
        EXPECT_EQ(sincronia(), firme());
    }
}

TEST_P(VariasConexiones, WhatOtherEntitiesOwnIsWrittenForGoodDuringLightWriting) {
    const EscrituraLigera una(internos());
    if (!esServidor()) {
        EXPECT_EQ(motor(u"PRAGMA systablas.synchronous"_s), "2");
        EXPECT_EQ(motor(u"PRAGMA main.synchronous"_s), "1");
        EXPECT_EQ(motor(u"PRAGMA main.journal_mode"_s), "wal");
    }
    ejecutar(u"insert into coment (interno,coment) values ('A','x')"_s, u"SYSTABLAS"_s);
    EXPECT_EQ(valor(u"select coment from coment"_s).toStdString(), "x");
}

TEST_P(VariasConexiones, TheEndOfLightWritingLeavesTheStoresOwnNumbersAlone) {
    if (esServidor()) {
        const std::string antes = motor(u"select sum(n_tup_ins) from pg_stat_user_tables"_s);
        EscrituraLigera(internos()).Terminar();
        EXPECT_EQ(motor(u"select sum(n_tup_ins) from pg_stat_user_tables"_s), antes);
    } else {
        QSqlQuery(internos().coneccion()).exec(u"PRAGMA main.user_version=77"_s);
        EscrituraLigera(internos()).Terminar();
        EXPECT_EQ(motor(u"PRAGMA main.user_version"_s), "77");
    }
}

TEST(EscrituraLigeraSinStore, AStoreThatCannotBeOpenedRaisesAndIsNotLeftLight) {
    QTemporaryDir dir;
    const QString perfil = dir.filePath(u"a.perfil.ini"_s);
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeArchivos(perfil, u"A"_s, u"."_s));
    StoreProfiles::SPMain sp;
    ASSERT_TRUE(sp.usarPerfil(perfil));
    Conexion &c = sp.getDataConnectionByEntity(u"INTERNOS"_s);
    EXPECT_THROW(EscrituraLigera{c}, Falla);
    QFile f(dir.filePath(u"internos.db"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    QSqlQuery consulta(c.coneccion());
    ASSERT_TRUE(consulta.exec(u"PRAGMA main.synchronous"_s) && consulta.next());
    EXPECT_EQ(consulta.value(0).toInt(), 2);
}

// The trace

TEST_P(VariasConexiones, TheTraceTellsEveryStatementItsTimeAndItsRows) {
    std::vector<TrazaDeSentencia> vistas;
    Conexion::fijarTraza([&](const TrazaDeSentencia &t) { vistas.push_back(t); });
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    ejecutar(u"insert into divisas (id,imp) values ('EUR',2)"_s);
    Recordset rs;
    internos().Sql = "select top 1 [imp] from divisas order by imp desc"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"divisas"_s));
    rs.Poner(u"imp", 3);
    rs.Update();
    ejecutar(u"update pais set descripcion = 'x'"_s, u"SYSTABLAS"_s);
    Conexion::fijarTraza({});
    ejecutar(u"delete from divisas"_s);

    ASSERT_EQ(vistas.size(), 5U);
    EXPECT_EQ(vistas[0].entidad.toStdString(), "INTERNOS");
    EXPECT_EQ(vistas[0].sentencia.toStdString(), "insert into divisas (id,imp) values ('DOL',1)");
    EXPECT_EQ(vistas[0].filas, 1);
    EXPECT_EQ(vistas[2].sentencia.toStdString(), "select top 1 [imp] from divisas order by imp desc");
    EXPECT_NE(vistas[2].traducida, vistas[2].sentencia);
    EXPECT_TRUE(vistas[2].traducida.contains(u"LIMIT 1"_s));
    EXPECT_EQ(vistas[2].filas, 1);
    EXPECT_TRUE(vistas[3].sentencia.startsWith(u"update divisas set \"imp\" = 3 where "_s))
        << vistas[3].sentencia.toStdString();
    EXPECT_EQ(vistas[3].filas, 1);
    EXPECT_EQ(vistas[4].entidad.toStdString(), "SYSTABLAS");
    EXPECT_EQ(vistas[4].filas, 0);
    for (const TrazaDeSentencia &t : vistas) EXPECT_GE(t.microsegundos, 0);
}

}  // namespace
