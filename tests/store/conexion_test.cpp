#include <gtest/gtest.h>

#include <QSqlError>
#include <QSqlQuery>

#include "frame/values.h"
#include "tests/support/tienda.h"

namespace {

class ConexionDeStore : public EnAmbosStores {
 protected:
    Conexion &internos() { return ctx->conexion(QStringLiteral("INTERNOS")); }
    bool esServidor() const { return std::string(GetParam()) == "SQL"; }
    /// Three groups of one operation; the first two hold the same values in every column.
    void sembrarGrupos() {
        for (const char *fob : {"10", "10", "25.5"})
            ejecutar(QStringLiteral("insert into groupsubitems (id,idsub,interno,ncm,descripcion,fob,kgneto) "
                                    "values (1,7,'A','8409.91.12.100G','Válvula',%1,2)")
                         .arg(QLatin1String(fob)));
    }
    /// The error that `sql` raises; a statement that runs gives one without text.
    ErrorDeStore errorDe(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS")) {
        try {
            Recordset rs;
            Consultar(*ctx, entidad, sql, rs);
        } catch (const ErrorDeStore &e) {
            return e;
        }
        return {};
    }
};
EN_AMBOS_STORES(ConexionDeStore);

// Sql, crearrs, Ejecutar

TEST_P(ConexionDeStore, CrearrsIsTrueOnlyWithARow) {
    Recordset rs;
    internos().Sql = "select interno from caratula";
    EXPECT_FALSE(internos().crearrs(rs));
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.RecordCount(), 0);
    ejecutar("insert into caratula (interno) values ('A')");
    internos().Sql = "select interno from caratula";
    EXPECT_TRUE(internos().crearrs(rs));
    EXPECT_FALSE(rs.Eof());
    EXPECT_EQ(rs.RecordCount(), 1);
}

TEST_P(ConexionDeStore, SqlStandsUntilAnotherTextIsSet) {
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    internos().Sql = "update divisas set imp = imp + 1";
    EXPECT_EQ(internos().Ejecutar(), 1);
    EXPECT_EQ(internos().Ejecutar(), 1);
    EXPECT_EQ(internos().Sql, QStringLiteral("update divisas set imp = imp + 1"));
    EXPECT_EQ(valor("select imp from divisas").toStdString(), "3");
}

TEST_P(ConexionDeStore, TheSameObjectAnswersAtEveryCall) {
    Conexion *una = &internos();
    EXPECT_EQ(una, &ctx->DataManager.getDataConnectionByEntity(QStringLiteral("INTERNOS")));
    EXPECT_EQ(una, ctx->ConnInternos);
    EXPECT_NE(una, &ctx->DataManager.getDataConnectionByEntity(QStringLiteral("NCM")));
    EXPECT_EQ(una->entidad(), QStringLiteral("INTERNOS"));
    EXPECT_EQ(una->etiqueta(), QString::fromLatin1(GetParam()));
}

TEST_P(ConexionDeStore, EjecutarAnswersTheRowsTouched) {
    EXPECT_EQ(ejecutar("insert into divisas (id,imp) values ('DOL',1)"), 1);
    EXPECT_EQ(ejecutar("insert into divisas (id,imp) values ('EUR',2)"), 1);
    EXPECT_EQ(ejecutar("update divisas set imp = 5"), 2);
    // A row that already holds the value is touched all the same.
    EXPECT_EQ(ejecutar("update divisas set imp = 5"), 2);
    EXPECT_EQ(ejecutar("update divisas set imp = 5 where id = 'XXX'"), 0);
    EXPECT_EQ(ejecutar("insert into divisas (id,imp) select id,imp from divisas"), 2);
    EXPECT_EQ(ejecutar("delete from divisas where id = 'DOL'"), 2);
    EXPECT_EQ(ejecutar("delete from divisas where id = 'DOL'"), 0);
    EXPECT_EQ(ejecutar("delete from divisas"), 2);
    EXPECT_EQ(ejecutar("delete from divisas"), 0);
}

TEST_P(ConexionDeStore, ACommandThatTouchesNothingDoesNotRepeatTheCountOfTheOneBefore) {
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    EXPECT_EQ(ejecutar("create table z_prueba (a varchar(10))"), 0);
    EXPECT_EQ(ejecutar("drop table z_prueba"), 0);
}

TEST_P(ConexionDeStore, ASelectSentAsACommandRunsAndCountsItsRows) {
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    EXPECT_EQ(ejecutar("select id from divisas"), 1);
    EXPECT_EQ(ejecutar("select id from divisas where id = 'X'"), 0);
}

TEST_P(ConexionDeStore, ACommandOpenedAsARecordsetRunsAndIsEmpty) {
    Recordset rs;
    EXPECT_FALSE(Consultar(*ctx, "INTERNOS", "insert into divisas (id,imp) values ('DOL',1)", rs));
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.columnas(), 0);
    EXPECT_EQ(valor("select count(*) from divisas").toStdString(), "1");
}

TEST_P(ConexionDeStore, EveryStatementIsCommittedAlone) {
    Registro otro;
    const auto segundo = tienda->contexto(otro);
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    Recordset rs;
    EXPECT_TRUE(Consultar(*segundo, "INTERNOS", "select id from divisas", rs));
    EXPECT_NE(errorDe("insert into divisas (id,noexiste) values ('EUR',1)").descripcion, QString());
    ejecutar("insert into divisas (id,imp) values ('PES',1)");
    Consultar(*segundo, "INTERNOS", "select id from divisas", rs);
    EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_P(ConexionDeStore, AnEmptyTextIsNoStatementOfTheEnginesAndTouchesNothing) {
    for (const char *texto : {"", "   ", ";", " ; "}) {
        internos().Sql = texto;
        EXPECT_EQ(internos().Ejecutar(), 0) << '"' << texto << '"';
        Recordset rs;
        EXPECT_FALSE(internos().crearrs(rs)) << '"' << texto << '"';
    }
}

TEST_P(ConexionDeStore, TheAssemblyConnectionIsTheSameStore) {
    Conexion &armado = internos().GetAssemblyConnection();
    armado.Sql = "insert into divisas (id,imp) values ('DOL',1)";
    EXPECT_EQ(armado.Ejecutar(), 1);
    EXPECT_EQ(valor("select id from divisas").toStdString(), "DOL");
    EXPECT_EQ(armado.entidad(), QStringLiteral("INTERNOS"));
    // The engine's own handle, for those that speak to it directly.
    QSqlQuery consulta(armado.coneccion());
    ASSERT_TRUE(consulta.exec("select id from divisas")) << consulta.lastError().text().toStdString();
    ASSERT_TRUE(consulta.next());
    EXPECT_EQ(consulta.value(0).toString(), QStringLiteral("DOL"));
}

TEST_P(ConexionDeStore, AConnectionHeldAcrossCloseAllStaysUsable) {
    Conexion &guardada = internos();
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    EXPECT_TRUE(guardada.abierta());
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_FALSE(guardada.abierta());
    Recordset rs;
    guardada.Sql = "select id from divisas";
    EXPECT_TRUE(guardada.crearrs(rs));
    EXPECT_TRUE(guardada.abierta());
    EXPECT_EQ(&guardada, &internos());
    ctx->DataManager.CloseAllDataConnection();
    ctx->DataManager.CloseAllDataConnection();
    guardada.Sql = "delete from divisas";
    EXPECT_EQ(guardada.Ejecutar(), 1);
}

TEST_P(ConexionDeStore, ARecordsetOutlivesItsConnectionsHandle) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_EQ(rs.Texto(u"ncm").toStdString(), "8409.91.12.100G");
    rs.Poner(u"fob", 11);
    rs.Update();
    EXPECT_EQ(filas("select fob from groupsubitems").toStdString(), "11\n10\n25.5");
}

// The recordset

TEST_P(ConexionDeStore, FieldNamesAreMatchedWithoutRegardToCase) {
    ejecutar("insert into subitems (interno,IdArticulo,descripcion_maria) values ('A','x','y')");
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select * from subitems", rs));
    EXPECT_EQ(rs.Texto(u"idarticulo").toStdString(), "x");
    EXPECT_EQ(rs.Texto(u"IDARTICULO").toStdString(), "x");
    EXPECT_EQ(rs.Texto(u"IdArticulo").toStdString(), "x");
    EXPECT_EQ(rs.Fields(u"Descripcion_Maria").Value.toString().toStdString(), "y");
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select IdArticulo as ElArticulo from subitems", rs));
    EXPECT_EQ(rs.Texto(u"elarticulo").toStdString(), "x");
}

TEST_P(ConexionDeStore, AnUnknownFieldRaises) {
    ejecutar("insert into divisas (id) values ('DOL')");
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select id from divisas", rs));
    try {
        rs.Texto(u"imp");
        FAIL() << "no error";
    } catch (const ErrorDeStore &e) {
        EXPECT_EQ(e.numero, 3265);
        EXPECT_EQ(e.descripcion.toStdString(), "El conjunto de registros no tiene la columna imp.");
    }
    EXPECT_THROW(rs.Fields(1), ErrorDeStore);
    EXPECT_THROW(rs.Fields(-1), ErrorDeStore);
}

TEST_P(ConexionDeStore, WalkingForwardAndBackToTheFirst) {
    for (const char *id : {"DOL", "EUR", "PES"})
        ejecutar(QStringLiteral("insert into divisas (id) values ('%1')").arg(QLatin1String(id)));
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select id from divisas", rs));
    QStringList vistos;
    for (; !rs.Eof(); rs.MoveNext()) vistos << rs.Texto(u"id");
    EXPECT_EQ(vistos.join(',').toStdString(), "DOL,EUR,PES");
    EXPECT_THROW(rs.Texto(u"id"), ErrorDeStore);
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

TEST_P(ConexionDeStore, AWriteDuringTheWalkChangesNothingOfIt) {
    for (int n = 1; n <= 50; ++n)
        ejecutar(QStringLiteral("insert into facturas (interno,orden,factura) values ('A',%1,'F%1')").arg(n));
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select * from facturas where interno = 'A'", rs));
    int n = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        ++n;
        EXPECT_EQ(rs.Numero(u"orden"), n);
        ejecutar("insert into facturas (interno,orden) values ('A',1000)");
        ejecutar(QStringLiteral("delete from facturas where orden = %1").arg(n + 1));
        ejecutar("update facturas set factura = 'otra'");
        EXPECT_EQ(rs.Texto(u"factura"), QStringLiteral("F%1").arg(n));
    }
    EXPECT_EQ(n, 50);
}

TEST_P(ConexionDeStore, ARecordsetUsedAgainHoldsOnlyTheNewRows) {
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select id,imp from divisas", rs));
    EXPECT_FALSE(Consultar(*ctx, "INTERNOS", "select descripcion from divisas where id = 'X'", rs));
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_EQ(rs.columnas(), 1);
    // One that fails leaves no rows of the one before.
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select id from divisas", rs));
    EXPECT_THROW(Consultar(*ctx, "INTERNOS", "select id from noexiste", rs), ErrorDeStore);
    EXPECT_TRUE(rs.Eof());
}

TEST_P(ConexionDeStore, NumbersTextsNullsAndDatesComeBackAlike) {
    ejecutar(
        "insert into caratula (interno,fobdivisas,fletedivisas,fechaalta,idsubreg,factura1) values "
        "('A',1234.5,0,'2026-03-05 10:20:30','IC04','')");
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select * from caratula", rs));
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
    ASSERT_TRUE(
        Consultar(*ctx, "INTERNOS", "select count(*), sum(fobdivisas), max(interno) from caratula", rs));
    EXPECT_EQ(rs.Fields(0).Value.typeId(), QMetaType::LongLong);
    EXPECT_EQ(EsNumero(rs.Fields(0).Value), 1);
    EXPECT_EQ(EsNumero(rs.Fields(1).Value), 1234.5);
    EXPECT_EQ(EsNull(rs.Fields(2).Value).toStdString(), "A");
}

TEST_P(ConexionDeStore, ADoubleGoesAndComesBackToFifteenDigits) {
    for (const double v : {0.1 + 0.2, 1e-7, 123456789.123456, 1e15, -7.0 / 3.0, 0.005}) {
        ejecutar("delete from divisas");
        ejecutar(QStringLiteral("insert into divisas (id,imp) values ('X',%1)").arg(SqlNumber(v)));
        Recordset rs;
        ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select imp from divisas", rs));
        EXPECT_EQ(rs.Texto(u"imp").toStdString(), PonerPuntoDecimal(v).toStdString());
    }
}

TEST_P(ConexionDeStore, TheLineIdentityIsANumberThatGrows) {
    for (int n = 0; n < 3; ++n) ejecutar("insert into subitems (interno) values ('A')");
    ejecutar("delete from subitems where id = (select max(id) from subitems)");
    ejecutar("insert into subitems (interno) values ('A')");
    // Never used twice, so that what names a line never names another.
    EXPECT_EQ(filas("select id from subitems").toStdString(), "1\n2\n4");
}

// The update of one row

TEST_P(ConexionDeStore, UpdateChangesExactlyOneOfSeveralEqualRows) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A' and fob = 10";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
    EXPECT_EQ(rs.RecordCount(), 2);
    rs.MoveNext();
    rs.Poner(u"fob", 10.01);
    rs.Poner(u"descripcion", "D'Angelo \"2\" ñ");
    rs.Poner(u"kgneto", QVariant());
    EXPECT_EQ(rs.Numero(u"fob"), 10.01);
    EXPECT_EQ(filas("select fob from groupsubitems").toStdString(), "10\n10\n25.5");
    rs.Update();
    EXPECT_EQ(filas("select fob,descripcion,kgneto from groupsubitems").toStdString(),
              "10|Válvula|2\n10.01|D'Angelo \"2\" ñ|<null>\n25.5|Válvula|2");
}

TEST_P(ConexionDeStore, TheSameRowCanBeUpdatedAgainAndAgain) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
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
    EXPECT_EQ(filas("select fob from groupsubitems").toStdString(), "3\n0.5\n25.5");
}

TEST_P(ConexionDeStore, ARowThatAnotherStatementChangedMeanwhileIsStillTheOneUpdated) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
    ejecutar("update groupsubitems set kgneto = 9");
    ejecutar("insert into groupsubitems (id,idsub,interno,fob) values (2,9,'B',1)");
    rs.MoveNext();
    rs.Poner(u"fob", 77);
    rs.Update();
    EXPECT_EQ(filas("select interno,fob,kgneto from groupsubitems").toStdString(),
              "A|10|9\nA|77|9\nA|25.5|9\nB|1|<null>");
}

TEST_P(ConexionDeStore, AnUpdatableRecordsetShowsNoColumnOfItsOwn) {
    sembrarGrupos();
    Recordset simple;
    Recordset actualizable;
    const QString sql = "select fob,kgneto from groupsubitems where interno = 'A' order by fob desc";
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", sql, simple));
    internos().Sql = sql;
    ASSERT_TRUE(internos().crearrsActualizable(actualizable, "groupsubitems"));
    EXPECT_EQ(actualizable.columnas(), 2);
    EXPECT_EQ(simple.columnas(), 2);
    EXPECT_EQ(actualizable.Numero(u"fob"), 25.5);
    internos().Sql = "select top 1 * from groupsubitems where interno = 'X'";
    EXPECT_FALSE(internos().crearrsActualizable(actualizable, "groupsubitems"));
    EXPECT_EQ(actualizable.RecordCount(), 0);
}

TEST_P(ConexionDeStore, TopOneUpdatesTheRowTheOrderPutsFirst) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select top 1 * from groupsubitems where interno = 'A' order by fob desc";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
    EXPECT_EQ(rs.RecordCount(), 1);
    rs.Poner(u"fob", 1);
    rs.Update();
    EXPECT_EQ(filas("select fob from groupsubitems").toStdString(), "10\n10\n1");
}

TEST_P(ConexionDeStore, ARowThatIsGoneCannotBeUpdated) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
    ejecutar("delete from groupsubitems");
    sembrarGrupos();
    if (!esServidor()) ejecutar("delete from groupsubitems where fob = 10");
    rs.Poner(u"fob", 1);
    try {
        rs.Update();
        FAIL() << "no error";
    } catch (const ErrorDeStore &e) {
        EXPECT_EQ(e.numero, 3167);
        EXPECT_EQ(e.descripcion.toStdString(), "El registro de groupsubitems ya no está en el store.");
    }
}

TEST_P(ConexionDeStore, WhatPonerSetIsForgottenOnMoving) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
    rs.Poner(u"fob", 99);
    rs.MoveNext();
    rs.Update();
    EXPECT_EQ(filas("select fob from groupsubitems").toStdString(), "10\n10\n25.5");
    rs.MoveFirst();
    EXPECT_EQ(rs.Numero(u"fob"), 10);
}

TEST_P(ConexionDeStore, AReadOnlyRecordsetTakesNoChanges) {
    sembrarGrupos();
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "INTERNOS", "select * from groupsubitems", rs));
    EXPECT_THROW(rs.Poner(u"fob", 1), ErrorDeStore);
    Recordset cerrado;
    EXPECT_THROW(cerrado.Poner(u"fob", 1), ErrorDeStore);
    EXPECT_NO_THROW(cerrado.Update());
}

TEST_P(ConexionDeStore, AFailingUpdateRaisesTheEnginesTextAndChangesNothing) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select fob, fob * 2 as doble from groupsubitems where interno = 'A'";
    ASSERT_TRUE(internos().crearrsActualizable(rs, "groupsubitems"));
    rs.Poner(u"doble", 1);
    try {
        rs.Update();
        FAIL() << "no error";
    } catch (const ErrorDeStore &e) {
        EXPECT_TRUE(e.descripcion.contains(QLatin1String("doble"))) << e.descripcion.toStdString();
        EXPECT_EQ(e.fuente, QStringLiteral("INTERNOS"));
    }
    EXPECT_EQ(filas("select fob from groupsubitems").toStdString(), "10\n10\n25.5");
}

// Errors

TEST_P(ConexionDeStore, TheEnginesOwnTextReachesTheCaller) {
    const ErrorDeStore tabla = errorDe("select * from tablaquenoexiste");
    EXPECT_EQ(tabla.fuente, QStringLiteral("INTERNOS"));
    EXPECT_EQ(tabla.sentencia, QStringLiteral("select * from tablaquenoexiste"));
    if (esServidor()) {
        EXPECT_TRUE(tabla.descripcion.startsWith(
            QLatin1String("ERROR:  relation \"tablaquenoexiste\" does not exist")))
            << tabla.descripcion.toStdString();
    } else {
        EXPECT_EQ(tabla.descripcion.toStdString(), "no such table: tablaquenoexiste");
        EXPECT_EQ(tabla.numero, 1);
    }
    EXPECT_TRUE(errorDe("select noexiste from item").descripcion.contains(QLatin1String("noexiste")));
    EXPECT_TRUE(errorDe("selec * from item").descripcion.contains(QLatin1String("syntax error")));
    EXPECT_TRUE(errorDe("update item set x = 1").descripcion.contains(QLatin1String("x")));
    EXPECT_TRUE(errorDe("select 'no cierra").descripcion.contains(QLatin1String("'no cierra")));
    EXPECT_EQ(errorDe("select * from hval", "NCM").fuente, QString());
    EXPECT_EQ(errorDe("select * from nada", "SYSTABLAS").fuente, QStringLiteral("SYSTABLAS"));
}

TEST_P(ConexionDeStore, AConnectionGoesOnAfterAnError) {
    EXPECT_NE(errorDe("select * from nada").descripcion, QString());
    EXPECT_EQ(ejecutar("insert into divisas (id) values ('DOL')"), 1);
    EXPECT_NE(errorDe("insert into divisas (id,nada) values ('EUR',1)").descripcion, QString());
    EXPECT_EQ(valor("select count(*) from divisas").toStdString(), "1");
}

TEST_P(ConexionDeStore, AnErrorInAMiddleRowRaisesAndWritesNoRow) {
    ejecutar("insert into divisas (id,imp) values ('DOL',2)");
    ejecutar("insert into divisas (id,imp) values ('NUL',0)");
    ejecutar("insert into divisas (id,imp) values ('EUR',4)");
    const ErrorDeStore e = errorDe("select id, 10 / imp as x from divisas");
    EXPECT_TRUE(e.descripcion.contains(esServidor() ? QStringLiteral("division by zero")
                                                    : QStringLiteral("división por cero")))
        << e.descripcion.toStdString();
    EXPECT_NE(errorDe("update divisas set imp = 10 / imp").descripcion, QString());
    EXPECT_EQ(filas("select imp from divisas").toStdString(), "2\n0\n4");
}

TEST_P(ConexionDeStore, WhatABrokenKeySmugglesInIsNotRun) {
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    EXPECT_NE(
        errorDe("select * from divisas where id = 'X'; delete from divisas where id = 'DOL'").descripcion,
        QString());
    EXPECT_NE(errorDe("update divisas set imp = 2 where id = 'X'; delete from divisas").descripcion,
              QString());
    EXPECT_EQ(valor("select imp from divisas").toStdString(), "1");
    // A closing semicolon is none, and one inside a text is text.
    EXPECT_EQ(ejecutar("update divisas set imp = 3;"), 1);
    EXPECT_EQ(ejecutar("update divisas set descripcion = 'a; delete from divisas; --'"), 1);
    EXPECT_EQ(valor("select descripcion from divisas").toStdString(), "a; delete from divisas; --");
}

TEST_P(ConexionDeStore, ANullCharacterInAStatementIsRefusedWhole) {
    ejecutar("insert into divisas (id,imp) values ('DOL',1)");
    QString sql = "delete from divisas where id = 'X";
    sql += QChar::Null;
    sql += "'";
    EXPECT_EQ(errorDe(sql).descripcion.toStdString(), "La sentencia contiene un carácter nulo.");
    EXPECT_EQ(valor("select count(*) from divisas").toStdString(), "1");
}

// Entities

TEST_P(ConexionDeStore, AnEntitysConnectionSeesTheTablesOfTheOthers) {
    ejecutar("insert into pais (id,descripcion) values ('200','ARGENTINA')", "SYSTABLAS");
    ejecutar("insert into clientes (cuit,nombre) values ('30','Cliente')", "PERSONAL");
    ejecutar("insert into caratula (interno,cuitcliente) values ('A','30')");
    for (const char *entidad : {"INTERNOS", "SYSTABLAS", "NCM", "CATALOGOS", "PERSONAL"}) {
        const QString de = QLatin1String(entidad);
        EXPECT_EQ(valor("select descripcion from pais where id = '200'", de).toStdString(), "ARGENTINA")
            << entidad;
        EXPECT_EQ(valor("select nombre from clientes", de).toStdString(), "Cliente") << entidad;
        EXPECT_EQ(valor("select interno from caratula", de).toStdString(), "A") << entidad;
    }
    EXPECT_EQ(valor("select c.interno from caratula c inner join clientes k on k.cuit = c.cuitcliente")
                  .toStdString(),
              "A");
    // Writing through another entity's connection reaches the table's home.
    EXPECT_EQ(ejecutar("update pais set descripcion = 'BRASIL'", "NCM"), 1);
    EXPECT_EQ(valor("select descripcion from pais", "SYSTABLAS").toStdString(), "BRASIL");
}

TEST_P(ConexionDeStore, TheWorkstationsStoreIsAFileEvenInAServerProfile) {
    EXPECT_EQ(ctx->DataManager.getDataConnectionTAG("USUARIO").toStdString(), "ACCESS");
    EXPECT_EQ(ejecutar("insert into impuestos_internos (ncm,decreto,tasa_nominal) values ('8409','D1',5.5)",
                       "USUARIO"),
              1);
    EXPECT_EQ(valor("select tasa_nominal from impuestos_internos", "USUARIO").toStdString(), "5.5");
    EXPECT_TRUE(QFile::exists(tienda->carpeta() + "/usuario.db"));
    if (esServidor())
        EXPECT_NE(errorDe("select * from impuestos_internos").descripcion, QString());
    else
        EXPECT_EQ(valor("select tasa_nominal from impuestos_internos").toStdString(), "5.5");
}

}  // namespace
