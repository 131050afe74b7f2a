#include <gtest/gtest.h>

#include "frame/base/values.h"
#include "frame/sqltext.h"
#include "tests/store/conectado.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

class RecordsetDeStore : public StoreConectado {};
EN_AMBOS_STORES(RecordsetDeStore);

// The recordset

TEST_P(RecordsetDeStore, FieldNamesAreMatchedWithoutRegardToCase) {
    ejecutar(u"insert into subitems (interno,IdArticulo,descripcion_maria) values ('A','x','y')"_s);
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select * from subitems"_s, rs));
    EXPECT_EQ(rs.Texto(u"idarticulo").toStdString(), "x");
    EXPECT_EQ(rs.Texto(u"IDARTICULO").toStdString(), "x");
    EXPECT_EQ(rs.Texto(u"IdArticulo").toStdString(), "x");
    EXPECT_EQ(rs.Fields(u"Descripcion_Maria").Value.toString().toStdString(), "y");
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select IdArticulo as ElArticulo from subitems"_s, rs));
    EXPECT_EQ(rs.Texto(u"elarticulo").toStdString(), "x");
}

TEST_P(RecordsetDeStore, AnUnknownFieldRaises) {
    ejecutar(u"insert into divisas (id) values ('DOL')"_s);
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select id from divisas"_s, rs));
    try {
        rs.Texto(u"imp");
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_EQ(e.numero, 3265);
        EXPECT_EQ(e.descripcion.toStdString(), "El conjunto de registros no tiene la columna imp.");
    }
    EXPECT_THROW(rs.Fields(1), Falla);
    EXPECT_THROW(rs.Fields(-1), Falla);
}

TEST_P(RecordsetDeStore, ANumberThatIsNoColumnHasNoName) {
    Recordset rs;
    Consultar(*ctx, u"INTERNOS"_s, u"select id from divisas"_s, rs);
    EXPECT_EQ(rs.nombreDeColumna(0), u"id"_s);
    EXPECT_THROW(rs.nombreDeColumna(1), Falla);
    EXPECT_THROW(rs.nombreDeColumna(-1), Falla);
}

// What an engine keeps for itself, such as the order of insertion, is in no answer: who copies rows or shows
// them need not know of it.
TEST_P(RecordsetDeStore, AnAsteriskShowsTheColumnsOfTheSchemaAndNoOther) {
    for (const char *tabla : {"subitems", "item", "caratula", "itemliq"}) {
        Recordset rs;
        Consultar(*ctx, u"INTERNOS"_s, u"select * from "_s + QLatin1String(tabla), rs);
        const esquema::Tabla *esperada = esquema::buscarTabla(QString(QLatin1String(tabla)));
        ASSERT_NE(esperada, nullptr);
        QStringList vistas;
        for (int c = 0; c < rs.columnas(); ++c) vistas << rs.nombreDeColumna(c).toLower();
        QStringList suyas;
        for (const esquema::Columna &columna : esperada->columnas) suyas << columna.nombre;
        EXPECT_EQ(vistas.join(QLatin1Char(' ')).toStdString(), suyas.join(QLatin1Char(' ')).toStdString());
    }
}

TEST_P(RecordsetDeStore, WalkingForwardAndBackToTheFirst) {
    for (const char *id : {"DOL", "EUR", "PES"})
        ejecutar(u"insert into divisas (id) values ('%1')"_s.arg(QLatin1String(id)));
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select id from divisas"_s, rs));
    QStringList vistos;
    for (; !rs.Eof(); rs.MoveNext()) vistos << rs.Texto(u"id");
    EXPECT_EQ(vistos.join(u',').toStdString(), "DOL,EUR,PES");
    EXPECT_THROW(rs.Texto(u"id"), Falla);
    rs.MoveFirst();
    EXPECT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Texto(u"id").toStdString(), "DOL");
    rs.Close();
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.columnas(), 0);
    rs.Close();
    rs.MoveFirst();
    EXPECT_TRUE(rs.Eof());
}

TEST_P(RecordsetDeStore, AWriteDuringTheWalkChangesNothingOfIt) {
    for (int n = 1; n <= 50; ++n)
        ejecutar(u"insert into facturas (interno,orden,factura) values ('A',%1,'F%1')"_s.arg(n));
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select * from facturas where interno = 'A'"_s, rs));
    int n = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        ++n;
        EXPECT_EQ(rs.Numero(u"orden"), n);
        ejecutar(u"insert into facturas (interno,orden) values ('A',1000)"_s);
        ejecutar(u"delete from facturas where orden = %1"_s.arg(n + 1));
        ejecutar(u"update facturas set factura = 'otra'"_s);
        EXPECT_EQ(rs.Texto(u"factura"), u"F%1"_s.arg(n));
    }
    EXPECT_EQ(n, 50);
}

TEST_P(RecordsetDeStore, ARecordsetUsedAgainHoldsOnlyTheNewRows) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select id,imp from divisas"_s, rs));
    EXPECT_FALSE(Consultar(*ctx, u"INTERNOS"_s, u"select descripcion from divisas where id = 'X'"_s, rs));
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_EQ(rs.columnas(), 1);
    // One that fails leaves no rows of the one before.
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select id from divisas"_s, rs));
    EXPECT_THROW(Consultar(*ctx, u"INTERNOS"_s, u"select id from noexiste"_s, rs), Falla);
    EXPECT_TRUE(rs.Eof());
}

TEST_P(RecordsetDeStore, NumbersTextsNullsAndDatesComeBackAlike) {
    ejecutar(
        u"insert into caratula (interno,fobdivisas,fletedivisas,fechaalta,idsubreg,factura1) values "
        "('A',1234.5,0,'2026-03-05 10:20:30','IC04','')"_s);
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select * from caratula"_s, rs));
    EXPECT_EQ(rs.Fields(u"fobdivisas").Value.typeId(), QMetaType::Double);
    EXPECT_EQ(rs.Numero(u"fobdivisas"), 1234.5);
    EXPECT_EQ(rs.Texto(u"fobdivisas").toStdString(), "1234.5");
    EXPECT_EQ(rs.Texto(u"fletedivisas").toStdString(), "0");
    EXPECT_EQ(rs.Texto(u"fechaalta").toStdString(), "2026-03-05 10:20:30");
    EXPECT_TRUE(rs.EsNulo(u"factura2"));
    EXPECT_EQ(rs.Texto(u"factura2"), QString());
    EXPECT_EQ(rs.Numero(u"factura2"), 0);
    EXPECT_TRUE(rs.EsNulo(u"segurodivisas"));
    EXPECT_EQ(rs.Numero(u"segurodivisas"), 0);
    // The empty text is no null.
    EXPECT_FALSE(rs.EsNulo(u"factura1"));
    EXPECT_EQ(rs.Numero(u"idsubreg"), 0);
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s,
                          u"select count(*), sum(fobdivisas), max(interno) from caratula"_s, rs));
    EXPECT_EQ(rs.Fields(0).Value.typeId(), QMetaType::LongLong);
    EXPECT_EQ(EsNumero(rs.Fields(0).Value), 1);
    EXPECT_EQ(EsNumero(rs.Fields(1).Value), 1234.5);
    EXPECT_EQ(EsNull(rs.Fields(2).Value).toStdString(), "A");
}

TEST_P(RecordsetDeStore, ADoubleGoesAndComesBackToFifteenDigits) {
    for (const double v : {0.1 + 0.2, 1e-7, 123456789.123456, 1e15, -7.0 / 3.0, 0.005}) {
        ejecutar(u"delete from divisas"_s);
        ejecutar(u"insert into divisas (id,imp) values ('X',%1)"_s.arg(SqlNumber(*ctx, v)));
        Recordset rs;
        ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select imp from divisas"_s, rs));
        EXPECT_EQ(rs.Texto(u"imp").toStdString(), PonerPuntoDecimal(v).toStdString());
    }
}

TEST_P(RecordsetDeStore, TheLineIdentityIsANumberThatGrows) {
    for (int n = 0; n < 3; ++n) ejecutar(u"insert into subitems (interno) values ('A')"_s);
    ejecutar(u"delete from subitems where id = (select max(id) from subitems)"_s);
    ejecutar(u"insert into subitems (interno) values ('A')"_s);
    // Never used twice, so that what names a line never names another.
    EXPECT_EQ(filas(u"select id from subitems"_s).toStdString(), "1\n2\n4");
}

// The update of one row

TEST_P(RecordsetDeStore, UpdateChangesExactlyOneOfSeveralEqualRows) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A' and fob = 10"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    EXPECT_EQ(rs.RecordCount(), 2);
    rs.MoveNext();
    rs.Poner(u"fob", 10.01);
    rs.Poner(u"descripcion", u"D'Angelo \"2\" ñ"_s);
    rs.Poner(u"kgneto", QVariant());
    EXPECT_EQ(rs.Numero(u"fob"), 10.01);
    EXPECT_EQ(filas(u"select fob from groupsubitems"_s).toStdString(), "10\n10\n25.5");
    rs.Update();
    EXPECT_EQ(filas(u"select fob,descripcion,kgneto from groupsubitems"_s).toStdString(),
              "10|Válvula|2\n10.01|D'Angelo \"2\" ñ|<null>\n25.5|Válvula|2");
}

TEST_P(RecordsetDeStore, TheSameRowCanBeUpdatedAgainAndAgain) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    for (int n = 1; n <= 5; ++n) {
        rs.Poner(u"fob", rs.Numero(u"fob") + 1);
        rs.Update();
    }
    rs.MoveNext();
    rs.Poner(u"fob", 0.5);
    rs.Update();
    rs.MoveFirst();
    rs.Poner(u"fob", 3);
    rs.Update();
    EXPECT_EQ(filas(u"select fob from groupsubitems"_s).toStdString(), "3\n0.5\n25.5");
}

TEST_P(RecordsetDeStore, ARowThatAnotherStatementChangedMeanwhileIsStillTheOneUpdated) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    ejecutar(u"update groupsubitems set kgneto = 9"_s);
    ejecutar(u"insert into groupsubitems (id,idsub,interno,fob) values (2,9,'B',1)"_s);
    rs.MoveNext();
    rs.Poner(u"fob", 77);
    rs.Update();
    EXPECT_EQ(filas(u"select interno,fob,kgneto from groupsubitems"_s).toStdString(),
              "A|10|9\nA|77|9\nA|25.5|9\nB|1|<null>");
}

TEST_P(RecordsetDeStore, AnUpdatableRecordsetShowsNoColumnOfItsOwn) {
    sembrarGrupos();
    Recordset simple;
    Recordset actualizable;
    const QString sql = u"select fob,kgneto from groupsubitems where interno = 'A' order by fob desc"_s;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, sql, simple));
    internos().Sql = sql;
    ASSERT_TRUE(internos().crearrsActualizable(actualizable, u"groupsubitems"_s));
    EXPECT_EQ(actualizable.columnas(), 2);
    EXPECT_EQ(simple.columnas(), 2);
    EXPECT_EQ(actualizable.Numero(u"fob"), 25.5);
    internos().Sql = "select top 1 * from groupsubitems where interno = 'X'"_L1;
    EXPECT_FALSE(internos().crearrsActualizable(actualizable, u"groupsubitems"_s));
    EXPECT_EQ(actualizable.RecordCount(), 0);
}

TEST_P(RecordsetDeStore, TopOneUpdatesTheRowTheOrderPutsFirst) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select top 1 * from groupsubitems where interno = 'A' order by fob desc"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    EXPECT_EQ(rs.RecordCount(), 1);
    rs.Poner(u"fob", 1);
    rs.Update();
    EXPECT_EQ(filas(u"select fob from groupsubitems"_s).toStdString(), "10\n10\n1");
}

TEST_P(RecordsetDeStore, ARowThatIsGoneCannotBeUpdated) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    ejecutar(u"delete from groupsubitems"_s);
    sembrarGrupos();
    if (!esServidor()) ejecutar(u"delete from groupsubitems where fob = 10"_s);
    rs.Poner(u"fob", 1);
    try {
        rs.Update();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_EQ(e.numero, 3167);
        EXPECT_EQ(e.descripcion.toStdString(), "El registro de groupsubitems ya no está en el store.");
    }
}

TEST_P(RecordsetDeStore, WhatPonerSetIsForgottenOnMoving) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    rs.Poner(u"fob", 99);
    rs.MoveNext();
    rs.Update();
    EXPECT_EQ(filas(u"select fob from groupsubitems"_s).toStdString(), "10\n10\n25.5");
    rs.MoveFirst();
    EXPECT_EQ(rs.Numero(u"fob"), 10);
}

TEST_P(RecordsetDeStore, AReadOnlyRecordsetTakesNoChanges) {
    sembrarGrupos();
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select * from groupsubitems"_s, rs));
    EXPECT_THROW(rs.Poner(u"fob", 1), Falla);
    Recordset cerrado;
    EXPECT_THROW(cerrado.Poner(u"fob", 1), Falla);
    EXPECT_NO_THROW(cerrado.Update());
}

TEST_P(RecordsetDeStore, AFailingUpdateRaisesTheEnginesTextAndChangesNothing) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select fob, fob * 2 as doble from groupsubitems where interno = 'A'"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    rs.Poner(u"doble", 1);
    try {
        rs.Update();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains("doble"_L1)) << e.descripcion.toStdString();
        EXPECT_EQ(e.fuente, u"INTERNOS"_s);
    }
    EXPECT_EQ(filas(u"select fob from groupsubitems"_s).toStdString(), "10\n10\n25.5");
}

}  // namespace
