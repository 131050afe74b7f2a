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
    internos().Sql = "select interno from caratula"_L1;
    EXPECT_FALSE(internos().crearrs(rs));
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.RecordCount(), 0);
    ejecutar(u"insert into caratula (interno) values ('A')"_s);
    internos().Sql = "select interno from caratula"_L1;
    EXPECT_TRUE(internos().crearrs(rs));
    EXPECT_FALSE(rs.Eof());
    EXPECT_EQ(rs.RecordCount(), 1);
}

TEST_P(ConexionDeStore, SqlStandsUntilAnotherTextIsSet) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    internos().Sql = "update divisas set imp = imp + 1"_L1;
    EXPECT_EQ(internos().Ejecutar(), 1);
    EXPECT_EQ(internos().Ejecutar(), 1);
    EXPECT_EQ(internos().Sql, u"update divisas set imp = imp + 1"_s);
    EXPECT_EQ(valor(u"select imp from divisas"_s).toStdString(), "3");
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
    EXPECT_EQ(ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s), 1);
    EXPECT_EQ(ejecutar(u"insert into divisas (id,imp) values ('EUR',2)"_s), 1);
    EXPECT_EQ(ejecutar(u"update divisas set imp = 5"_s), 2);
    // A row that already holds the value is touched all the same.
    EXPECT_EQ(ejecutar(u"update divisas set imp = 5"_s), 2);
    EXPECT_EQ(ejecutar(u"update divisas set imp = 5 where id = 'XXX'"_s), 0);
    EXPECT_EQ(ejecutar(u"insert into divisas (id,imp) select id,imp from divisas"_s), 2);
    EXPECT_EQ(ejecutar(u"delete from divisas where id = 'DOL'"_s), 2);
    EXPECT_EQ(ejecutar(u"delete from divisas where id = 'DOL'"_s), 0);
    EXPECT_EQ(ejecutar(u"delete from divisas"_s), 2);
    EXPECT_EQ(ejecutar(u"delete from divisas"_s), 0);
}

TEST_P(ConexionDeStore, ACommandThatTouchesNothingDoesNotRepeatTheCountOfTheOneBefore) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    EXPECT_EQ(ejecutar(u"create table z_prueba (a varchar(10))"_s), 0);
    EXPECT_EQ(ejecutar(u"drop table z_prueba"_s), 0);
}

TEST_P(ConexionDeStore, ASelectSentAsACommandRunsAndCountsItsRows) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    EXPECT_EQ(ejecutar(u"select id from divisas"_s), 1);
    EXPECT_EQ(ejecutar(u"select id from divisas where id = 'X'"_s), 0);
}

TEST_P(ConexionDeStore, ACommandOpenedAsARecordsetRunsAndIsEmpty) {
    Recordset rs;
    EXPECT_FALSE(Consultar(*ctx, u"INTERNOS"_s, u"insert into divisas (id,imp) values ('DOL',1)"_s, rs));
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(rs.columnas(), 0);
    EXPECT_EQ(valor(u"select count(*) from divisas"_s).toStdString(), "1");
}

TEST_P(ConexionDeStore, EveryStatementIsCommittedAlone) {
    Registro otro;
    const auto segundo = tienda->contexto(otro);
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    Recordset rs;
    EXPECT_TRUE(Consultar(*segundo, u"INTERNOS"_s, u"select id from divisas"_s, rs));
    EXPECT_NE(errorDe(u"insert into divisas (id,noexiste) values ('EUR',1)"_s).descripcion, QString());
    ejecutar(u"insert into divisas (id,imp) values ('PES',1)"_s);
    Consultar(*segundo, u"INTERNOS"_s, u"select id from divisas"_s, rs);
    EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_P(ConexionDeStore, AnEmptyTextIsNoStatementOfTheEnginesAndTouchesNothing) {
    for (const char *texto : {"", "   ", ";", " ; "}) {
        internos().Sql = QLatin1String(texto);
        EXPECT_EQ(internos().Ejecutar(), 0) << '"' << texto << '"';
        Recordset rs;
        EXPECT_FALSE(internos().crearrs(rs)) << '"' << texto << '"';
    }
}

TEST_P(ConexionDeStore, TheAssemblyConnectionIsTheSameStore) {
    Conexion &armado = internos().GetAssemblyConnection();
    armado.Sql = "insert into divisas (id,imp) values ('DOL',1)"_L1;
    EXPECT_EQ(armado.Ejecutar(), 1);
    EXPECT_EQ(valor(u"select id from divisas"_s).toStdString(), "DOL");
    EXPECT_EQ(armado.entidad(), u"INTERNOS"_s);
    // The engine's own handle, for those that speak to it directly.
    QSqlQuery consulta(armado.coneccion());
    ASSERT_TRUE(consulta.exec(u"select id from divisas"_s)) << consulta.lastError().text().toStdString();
    ASSERT_TRUE(consulta.next());
    EXPECT_EQ(consulta.value(0).toString(), u"DOL"_s);
}

TEST_P(ConexionDeStore, AConnectionHeldAcrossCloseAllStaysUsable) {
    Conexion &guardada = internos();
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    EXPECT_TRUE(guardada.abierta());
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_FALSE(guardada.abierta());
    Recordset rs;
    guardada.Sql = "select id from divisas"_L1;
    EXPECT_TRUE(guardada.crearrs(rs));
    EXPECT_TRUE(guardada.abierta());
    EXPECT_EQ(&guardada, &internos());
    ctx->DataManager.CloseAllDataConnection();
    ctx->DataManager.CloseAllDataConnection();
    guardada.Sql = "delete from divisas"_L1;
    EXPECT_EQ(guardada.Ejecutar(), 1);
}

TEST_P(ConexionDeStore, ARecordsetOutlivesItsConnectionsHandle) {
    sembrarGrupos();
    Recordset rs;
    internos().Sql = "select * from groupsubitems where interno = 'A'"_L1;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"groupsubitems"_s));
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_EQ(rs.Texto(u"ncm").toStdString(), "8409.91.12.100G");
    rs.Poner(u"fob", 11);
    rs.Update();
    EXPECT_EQ(filas(u"select fob from groupsubitems"_s).toStdString(), "11\n10\n25.5");
}

// Errors

TEST_P(ConexionDeStore, TheEnginesOwnTextReachesTheCaller) {
    const Falla tabla = errorDe(u"select * from tablaquenoexiste"_s);
    EXPECT_EQ(tabla.fuente, u"INTERNOS"_s);
    EXPECT_EQ(tabla.sentencia, u"select * from tablaquenoexiste"_s);
    if (esServidor()) {
        EXPECT_TRUE(tabla.descripcion.startsWith("ERROR:  relation \"tablaquenoexiste\" does not exist"_L1))
            << tabla.descripcion.toStdString();
    } else {
        EXPECT_EQ(tabla.descripcion.toStdString(), "no such table: tablaquenoexiste");
        EXPECT_EQ(tabla.numero, 1);
    }
    EXPECT_TRUE(errorDe(u"select noexiste from item"_s).descripcion.contains("noexiste"_L1));
    EXPECT_TRUE(errorDe(u"selec * from item"_s).descripcion.contains("syntax error"_L1));
    EXPECT_TRUE(errorDe(u"update item set x = 1"_s).descripcion.contains("x"_L1));
    EXPECT_TRUE(errorDe(u"select 'no cierra"_s).descripcion.contains("'no cierra"_L1));
    EXPECT_EQ(errorDe(u"select * from hval"_s, u"NCM"_s).fuente, QString());
    EXPECT_EQ(errorDe(u"select * from nada"_s, u"SYSTABLAS"_s).fuente, u"SYSTABLAS"_s);
}

TEST_P(ConexionDeStore, AConnectionGoesOnAfterAnError) {
    EXPECT_NE(errorDe(u"select * from nada"_s).descripcion, QString());
    EXPECT_EQ(ejecutar(u"insert into divisas (id) values ('DOL')"_s), 1);
    EXPECT_NE(errorDe(u"insert into divisas (id,nada) values ('EUR',1)"_s).descripcion, QString());
    EXPECT_EQ(valor(u"select count(*) from divisas"_s).toStdString(), "1");
}

TEST_P(ConexionDeStore, AnErrorInAMiddleRowRaisesAndWritesNoRow) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',2)"_s);
    ejecutar(u"insert into divisas (id,imp) values ('NUL',0)"_s);
    ejecutar(u"insert into divisas (id,imp) values ('EUR',4)"_s);
    const Falla e = errorDe(u"select id, 10 / imp as x from divisas"_s);
    EXPECT_TRUE(e.descripcion.contains(esServidor() ? u"division by zero"_s : u"división por cero"_s))
        << e.descripcion.toStdString();
    EXPECT_NE(errorDe(u"update divisas set imp = 10 / imp"_s).descripcion, QString());
    EXPECT_EQ(filas(u"select imp from divisas"_s).toStdString(), "2\n0\n4");
}

TEST_P(ConexionDeStore, WhatABrokenKeySmugglesInIsNotRun) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    EXPECT_NE(
        errorDe(u"select * from divisas where id = 'X'; delete from divisas where id = 'DOL'"_s).descripcion,
        QString());
    EXPECT_NE(errorDe(u"update divisas set imp = 2 where id = 'X'; delete from divisas"_s).descripcion,
              QString());
    EXPECT_EQ(valor(u"select imp from divisas"_s).toStdString(), "1");
    // A closing semicolon is none, and one inside a text is text.
    EXPECT_EQ(ejecutar(u"update divisas set imp = 3;"_s), 1);
    EXPECT_EQ(ejecutar(u"update divisas set descripcion = 'a; delete from divisas; --'"_s), 1);
    EXPECT_EQ(valor(u"select descripcion from divisas"_s).toStdString(), "a; delete from divisas; --");
}

TEST_P(ConexionDeStore, ANullCharacterInAStatementIsRefusedWhole) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    QString sql = u"delete from divisas where id = 'X"_s;
    sql += QChar::Null;
    sql += "'"_L1;
    EXPECT_EQ(errorDe(sql).descripcion.toStdString(), "La sentencia contiene un carácter nulo.");
    EXPECT_EQ(valor(u"select count(*) from divisas"_s).toStdString(), "1");
}

// Half of a character that takes two would be stored as something else, or looked for as that.
TEST_P(ConexionDeStore, HalfACharacterIsRefusedOnEveryRoadAndNothingRuns) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    const QString barco = u"🚢"_s;
    const QString buena = u"update divisas set descripcion = '%1'"_s;
    for (const QString &mitad : {barco.left(1), barco.mid(1), barco.mid(1) + barco.left(1)}) {
        const QString mala = buena.arg(mitad);
        const std::pair<const char *, std::function<void()>> caminos[] = {
            {"command", [&] { Ejecutar(*ctx, u"INTERNOS"_s, mala); }},
            {"select",
             [&] {
                 Recordset rs;
                 Consultar(*ctx, u"INTERNOS"_s, "select * from divisas where id = '"_L1 + mitad + "'"_L1, rs);
             }},
            {"sent",
             [&] {
                 internos().Sql = mala;
                 internos().Mandar();
             }},
            {"together",
             [&] {
                 internos().EjecutarSeguidas({buena.arg(u"x"_s), mala});
             }},
            {"selects together", [&] { internos().ConsultarSeguidas({mala}); }},
        };
        for (const auto &[camino, hacer] : caminos) {
            try {
                hacer();
                ADD_FAILURE() << camino << " was let through";
            } catch (const Falla &e) {
                EXPECT_EQ(
                    e.descripcion.toStdString(),
                    "La sentencia contiene un carácter incompleto; bórrelo del texto y vuelva a intentar.")
                    << camino;
                EXPECT_EQ(e.fuente, u"INTERNOS"_s);
            }
        }
        EXPECT_EQ(valor(u"select count(*) from divisas where descripcion is null"_s).toStdString(), "1");
    }
    ejecutar(buena.arg(barco));
    EXPECT_EQ(valor(u"select descripcion from divisas"_s).toStdString(), "🚢");
}

// Entities

TEST_P(ConexionDeStore, AnEntitysConnectionSeesTheTablesOfTheOthers) {
    ejecutar(u"insert into pais (id,descripcion) values ('200','ARGENTINA')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into clientes (cuit,nombre) values ('30','Cliente')"_s, u"PERSONAL"_s);
    ejecutar(u"insert into caratula (interno,cuitcliente) values ('A','30')"_s);
    for (const char *entidad : {"INTERNOS", "SYSTABLAS", "NCM", "CATALOGOS", "PERSONAL"}) {
        const QString de = QLatin1String(entidad);
        EXPECT_EQ(valor(u"select descripcion from pais where id = '200'"_s, de).toStdString(), "ARGENTINA")
            << entidad;
        EXPECT_EQ(valor(u"select nombre from clientes"_s, de).toStdString(), "Cliente") << entidad;
        EXPECT_EQ(valor(u"select interno from caratula"_s, de).toStdString(), "A") << entidad;
    }
    EXPECT_EQ(valor(u"select c.interno from caratula c inner join clientes k on k.cuit = c.cuitcliente"_s)
                  .toStdString(),
              "A");
    // Writing through another entity's connection reaches the table's home.
    EXPECT_EQ(ejecutar(u"update pais set descripcion = 'BRASIL'"_s, u"NCM"_s), 1);
    EXPECT_EQ(valor(u"select descripcion from pais"_s, u"SYSTABLAS"_s).toStdString(), "BRASIL");
}

TEST_P(ConexionDeStore, TheWorkstationsStoreIsAFileEvenInAServerProfile) {
    EXPECT_EQ(ctx->DataManager.getDataConnectionTAG(u"USUARIO"_s).toStdString(), "ACCESS");
    EXPECT_EQ(
        ejecutar(u"insert into impuestos_internos (ncm,decreto,tasa_nominal) values ('8409','D1',5.5)"_s,
                 u"USUARIO"_s),
        1);
    EXPECT_EQ(valor(u"select tasa_nominal from impuestos_internos"_s, u"USUARIO"_s).toStdString(), "5.5");
    EXPECT_TRUE(QFile::exists(tienda->carpeta() + "/usuario.db"_L1));
    if (esServidor())
        EXPECT_NE(errorDe(u"select * from impuestos_internos"_s).descripcion, QString());
    else
        EXPECT_EQ(valor(u"select tasa_nominal from impuestos_internos"_s).toStdString(), "5.5");
}

}  // namespace
