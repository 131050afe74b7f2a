#include <gtest/gtest.h>

#include <QSqlError>
#include <QSqlQuery>

#include "tests/store/conectado.h"

using namespace Qt::StringLiterals;

namespace {

class ConexionDeStore : public StoreConectado {};
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
    EXPECT_EQ(internos().Sql, u"update divisas set imp = imp + 1"_s);
    EXPECT_EQ(valor("select imp from divisas").toStdString(), "3");
}

TEST_P(ConexionDeStore, TheSameObjectAnswersAtEveryCall) {
    Conexion *una = &internos();
    EXPECT_EQ(una, &ctx->DataManager.getDataConnectionByEntity(u"INTERNOS"_s));
    EXPECT_EQ(una, ctx->ConnInternos);
    EXPECT_NE(una, &ctx->DataManager.getDataConnectionByEntity(u"NCM"_s));
    EXPECT_EQ(una->entidad(), u"INTERNOS"_s);
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
    EXPECT_EQ(armado.entidad(), u"INTERNOS"_s);
    // The engine's own handle, for those that speak to it directly.
    QSqlQuery consulta(armado.coneccion());
    ASSERT_TRUE(consulta.exec("select id from divisas")) << consulta.lastError().text().toStdString();
    ASSERT_TRUE(consulta.next());
    EXPECT_EQ(consulta.value(0).toString(), u"DOL"_s);
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

// Errors

TEST_P(ConexionDeStore, TheEnginesOwnTextReachesTheCaller) {
    const Falla tabla = errorDe("select * from tablaquenoexiste");
    EXPECT_EQ(tabla.fuente, u"INTERNOS"_s);
    EXPECT_EQ(tabla.sentencia, u"select * from tablaquenoexiste"_s);
    if (esServidor()) {
        EXPECT_TRUE(tabla.descripcion.startsWith("ERROR:  relation \"tablaquenoexiste\" does not exist"_L1))
            << tabla.descripcion.toStdString();
    } else {
        EXPECT_EQ(tabla.descripcion.toStdString(), "no such table: tablaquenoexiste");
        EXPECT_EQ(tabla.numero, 1);
    }
    EXPECT_TRUE(errorDe("select noexiste from item").descripcion.contains("noexiste"_L1));
    EXPECT_TRUE(errorDe("selec * from item").descripcion.contains("syntax error"_L1));
    EXPECT_TRUE(errorDe("update item set x = 1").descripcion.contains("x"_L1));
    EXPECT_TRUE(errorDe("select 'no cierra").descripcion.contains("'no cierra"_L1));
    EXPECT_EQ(errorDe("select * from hval", "NCM").fuente, QString());
    EXPECT_EQ(errorDe("select * from nada", "SYSTABLAS").fuente, u"SYSTABLAS"_s);
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
    const Falla e = errorDe("select id, 10 / imp as x from divisas");
    EXPECT_TRUE(e.descripcion.contains(esServidor() ? u"division by zero"_s : u"división por cero"_s))
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
