// A scratch table of a connection's own, and commands that travel together.
#include <gtest/gtest.h>

#include <QRegularExpression>

#include "tests/store/conectado.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class TablasPropias : public StoreConectado {
 protected:
    void SetUp() override {
        StoreConectado::SetUp();
        ejecutar(u"insert into tabla (linea) values ('guardada')"_s, u"PERSONAL"_s);
    }
    void TearDown() override {
        Conexion::fijarTraza({});
        StoreConectado::TearDown();
    }
    Conexion &personal() { return ctx->conexion(u"PERSONAL"_s); }
    std::string lineas() {
        return filas(u"select linea from tabla order by idlin"_s, u"PERSONAL"_s).toStdString();
    }
    static QString alta(const char *linea) {
        return u"insert into tabla (linea) values ('%1')"_s.arg(QString::fromUtf8(linea));
    }
};
EN_AMBOS_STORES(TablasPropias);

TEST_P(TablasPropias, StandAheadOfTheStoredOneAndGoWithTheirOwner) {
    {
        const TablaPropia propia(personal(), u"tabla"_s);
        EXPECT_EQ(lineas(), "");
        EXPECT_EQ(ejecutar(alta("B"), u"PERSONAL"_s), 1);
        EXPECT_EQ(ejecutar(alta("A"), u"PERSONAL"_s), 1);
        EXPECT_EQ(lineas(), "B\nA") << "the key grows";
        EXPECT_EQ(valor(u"select * from tabla order by idlin"_s, u"PERSONAL"_s), u"1"_s);
        Registro otro;
        const auto segundo = tienda->contexto(otro);
        Recordset rs;
        ASSERT_TRUE(Consultar(*segundo, u"PERSONAL"_s, u"select linea from tabla"_s, rs));
        EXPECT_EQ(rs.RecordCount(), 1);
        EXPECT_EQ(rs.Texto(u"linea"), u"guardada"_s) << "nobody else sees it";
    }
    EXPECT_EQ(lineas(), "guardada");
}

TEST_P(TablasPropias, ANewOneIsEmptyWhateverTheOneBeforeHeld) {
    personal().tablaPropia(u"tabla"_s, true);
    ejecutar(alta("vieja"), u"PERSONAL"_s);
    const TablaPropia propia(personal(), u"tabla"_s);
    EXPECT_EQ(lineas(), "");
}

TEST_P(TablasPropias, OfATableThatIsNotThereAreRefusedByName) {
    try {
        const TablaPropia propia(personal(), u"ninguna"_s);
        ADD_FAILURE() << "nothing was refused";
    } catch (const Falla &e) {
        EXPECT_EQ(e.fuente, u"PERSONAL"_s);
        EXPECT_TRUE(e.descripcion.contains(u"ninguna"_s)) << e.descripcion.toStdString();
    }
}

TEST_P(TablasPropias, GoWithAConnectionThatIsClosed) {
    {
        const TablaPropia propia(personal(), u"tabla"_s);
        personal().cerrar();
        EXPECT_EQ(lineas(), "guardada");
    }
    EXPECT_EQ(lineas(), "guardada");
}

TEST_P(TablasPropias, CommandsThatTravelTogetherRunInTheirOrderAndAreTracedOneByOne) {
    const TablaPropia propia(personal(), u"tabla"_s);
    QStringList sentencias;
    for (const char *linea : {"uno; dos", "tres -- cuatro", "Ñandú", ""}) sentencias << alta(linea);
    {
        const Traza traza;
        personal().EjecutarSeguidas(sentencias);
        EXPECT_EQ(traza.sentencias(),
                  QStringList(sentencias).replaceInStrings(QRegularExpression(u"^"_s), u"PERSONAL|"_s));
    }
    EXPECT_EQ(lineas(), "uno; dos\ntres -- cuatro\nÑandú\n");
    personal().EjecutarSeguidas({});
}

TEST_P(TablasPropias, SelectsThatTravelTogetherAnswerEachItsOwnRows) {
    const TablaPropia propia(personal(), u"tabla"_s);
    for (const char *linea : {"A; B", "Ñ"}) ejecutar(alta(linea), u"PERSONAL"_s);
    const QStringList sentencias{u"select linea from tabla order by idlin"_s,
                                 u"select nombre from clientes where cuit = 'no; está'"_s,
                                 u"select top 1 linea,idlin from tabla order by idlin desc"_s};
    const Traza traza;
    std::vector<Recordset> rs = personal().ConsultarSeguidas(sentencias);
    EXPECT_EQ(traza.sentencias(),
              QStringList(sentencias).replaceInStrings(QRegularExpression(u"^"_s), u"PERSONAL|"_s));
    ASSERT_EQ(rs.size(), 3U);
    EXPECT_EQ(rs[0].RecordCount(), 2);
    EXPECT_EQ(rs[0].Texto(u"linea"), u"A; B"_s);
    rs[0].MoveNext();
    EXPECT_EQ(rs[0].Texto(u"LINEA"), u"Ñ"_s);
    EXPECT_TRUE(rs[1].Eof());
    EXPECT_EQ(rs[1].columnas(), 1);
    EXPECT_EQ(rs[2].RecordCount(), 1);
    EXPECT_EQ(rs[2].Texto(u"linea"), u"Ñ"_s);
    EXPECT_TRUE(personal().ConsultarSeguidas({}).empty());
}

TEST_P(TablasPropias, OfSelectsThatTravelTogetherTheOneThatFailsIsTold) {
    const QString mala = u"select columna from tabla"_s;
    try {
        personal().ConsultarSeguidas({u"select linea from tabla"_s, mala, u"select cuit from clientes"_s});
        ADD_FAILURE() << "nothing was refused";
    } catch (const Falla &e) {
        EXPECT_EQ(e.sentencia, mala);
        EXPECT_EQ(e.fuente, u"PERSONAL"_s);
        EXPECT_TRUE(e.descripcion.contains(u"columna"_s)) << e.descripcion.toStdString();
    }
    EXPECT_EQ(lineas(), "guardada") << "the connection goes on";
}

TEST_P(TablasPropias, TheOneThatFailsIsToldWithItsTextAndTheConnectionGoesOn) {
    const TablaPropia propia(personal(), u"tabla"_s);
    for (const QString &mala :
         {u"insert into tabla (columna) values ('x')"_s, u"insert into tabla (linea) values ('x"_s,
          u"delete from tabla; delete from clientes"_s}) {
        try {
            personal().EjecutarSeguidas({alta("A"), mala, alta("C")});
            ADD_FAILURE() << "nothing was refused";
        } catch (const Falla &e) {
            EXPECT_EQ(e.sentencia, mala);
            EXPECT_EQ(e.fuente, u"PERSONAL"_s);
            EXPECT_FALSE(e.descripcion.isEmpty());
        }
        EXPECT_FALSE(QString::fromStdString(lineas()).contains(u'C')) << "what stands behind it does not run";
    }
    ejecutar(u"delete from tabla"_s, u"PERSONAL"_s);
    personal().EjecutarSeguidas({alta("D")});
    EXPECT_EQ(lineas(), "D");
}

TEST_P(TablasPropias, CommandsSentWithoutWaitingHaveRunWhenTheNextStatementRuns) {
    const TablaPropia propia(personal(), u"tabla"_s);
    QStringList esperadas;
    const Traza traza;
    for (int vez = 0; vez < 3; ++vez) {
        const QStringList sentencias{alta("A; B"), alta("Ñ")};
        personal().MandarSeguidas(sentencias);
        for (const QString &sentencia : sentencias) esperadas << "PERSONAL|"_L1 + sentencia;
    }
    personal().MandarSeguidas({});
    EXPECT_EQ(lineas(), "A; B\nÑ\nA; B\nÑ\nA; B\nÑ");
    EXPECT_EQ(traza.sentencias().mid(0, esperadas.size()), esperadas)
        << "in their order, ahead of the select";
}

TEST_P(TablasPropias, WhatFailedAmongThemIsToldByTheNextStatementAndTheConnectionGoesOn) {
    const TablaPropia propia(personal(), u"tabla"_s);
    for (const QString &mala :
         {u"insert into tabla (columna) values ('x')"_s, u"insert into tabla (linea) values ('x"_s}) {
        personal().MandarSeguidas({alta("A"), mala, alta("C")});
        try {
            lineas();
            ADD_FAILURE() << "nothing was told";
        } catch (const Falla &e) {
            EXPECT_EQ(e.sentencia, mala);
            EXPECT_EQ(e.fuente, u"PERSONAL"_s);
            EXPECT_FALSE(e.descripcion.isEmpty());
        }
        EXPECT_FALSE(QString::fromStdString(lineas()).contains(u'C')) << "what stands behind it does not run";
    }
}

TEST_P(TablasPropias, WhatARunThatIsGivenUpHadSentIsNotMissed) {
    for (const bool cerrada : {false, true}) {
        const TablaPropia propia(personal(), u"tabla"_s);
        personal().MandarSeguidas({alta("A"), u"insert into tabla (columna) values ('x')"_s});
        if (cerrada) personal().cerrar();
    }
    EXPECT_EQ(lineas(), "guardada") << "the table of its own is gone";
}

}  // namespace
