// The embedded stores are plain SQLite: other tools read, count, filter and write them, and files of before,
// which only this program could read, become such.

#include <gtest/gtest.h>

#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStandardPaths>

#include "frame/store/StoreProfiles.h"
#include "operations/browser.h"
#include "tests/support/tienda.h"
#include "upgrade/schema.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

namespace {

/// The distribution's own shell.
const QString shell = QStandardPaths::findExecutable(u"sqlite3"_s);

class StoresAbiertos : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void SetUp() override {
        EnAmbosStores::SetUp();
        ASSERT_FALSE(shell.isEmpty()) << "scripts/packages test installs it";
    }
    QString archivoDe(const QString &entidad) {
        StoreProfiles::SPMain manager;
        EXPECT_TRUE(manager.usarPerfil(tienda->perfil()));
        return manager.datos(entidad)->archivo;
    }
    /// What the shell answers; it loads none of our functions. `falla`, when given, takes what it complains
    /// of.
    QString conElShell(const QString &entidad, const QString &sql) {
        QProcess p;
        p.start(shell, {u"-batch"_s, u"-bail"_s, archivoDe(entidad), sql});
        EXPECT_TRUE(p.waitForFinished());
        EXPECT_EQ(p.exitCode(), 0) << sql.toStdString() << ": " << p.readAllStandardError().toStdString();
        return QString::fromUtf8(p.readAllStandardOutput()).trimmed();
    }
    void motor(const QString &sql, const QString &entidad) {
        QSqlQuery consulta(ctx->conexion(entidad).coneccion());
        EXPECT_TRUE(consulta.exec(sql))
            << sql.toStdString() << ": " << consulta.lastError().text().toStdString();
    }
    /// Makes of every file one of before: its columns ask for the collation that only this program has.
    void hacerDeAntes() {
        for (const QString &entidad : StoreProfiles::entidades()) {
            if (esquema::tablasDe(entidad).isEmpty()) continue;
            motor(u"pragma writable_schema=on"_s, entidad);
            motor(
                u"update main.sqlite_master "
                "set sql = replace(replace(sql, 'COLLATE NOCASE', 'COLLATE ZCI'), 'collate nocase', 'COLLATE "
                "ZCI')"_s,
                entidad);
            motor(u"pragma writable_schema=reset"_s, entidad);
            ctx->conexion(entidad).cerrar();
            motor(u"reindex"_s, entidad);
        }
        ctx->DataManager.CloseAllDataConnection();
    }
    /// Every row of every table with its own number, the indexes, and where each numbering goes on.
    QStringList todo() {
        QStringList lineas;
        for (const esquema::Tabla &t : esquema::tablas()) {
            if (t.nombre == "version"_L1) continue;
            QStringList columnas{u"rowid"_s};
            for (const esquema::Columna &c : t.columnas) columnas << u"\"%1\""_s.arg(c.nombre);
            lineas << t.nombre + ": "_L1 +
                          lineasDe(t.entidad,
                                   u"select %1 from %2 order by rowid"_s.arg(columnas.join(u','), t.nombre));
        }
        for (const QString &entidad : StoreProfiles::entidades())
            if (!esquema::tablasDe(entidad).isEmpty())
                lineas << entidad + ": "_L1 +
                              lineasDe(entidad,
                                       u"select name from sqlite_master where type = 'index' order by 1"_s);
        lineas << lineasDe(u"INTERNOS"_s,
                           u"select name, seq from sqlite_sequence where seq > 0 order by 1"_s);
        lineas << lineasDe(u"INTERNOS"_s, u"select tbl, idx, stat from sqlite_stat1 order by 1, 2"_s);
        return lineas;
    }
    /// One difference is enough to see.
    void estaTodo(const QStringList &antes) {
        const QStringList ahora = todo();
        ASSERT_EQ(ahora.size(), antes.size());
        for (qsizetype n = 0; n < ahora.size(); ++n)
            EXPECT_EQ(ahora.at(n).toStdString(), antes.at(n).toStdString());
    }
    /// Rows through our own connection, which reads a file of before too.
    QString lineasDe(const QString &entidad, const QString &sql) {
        QStringList lineas;
        QSqlQuery consulta(ctx->conexion(entidad).coneccion());
        EXPECT_TRUE(consulta.exec(sql)) << sql.toStdString();
        const int columnas = consulta.record().count();
        while (consulta.next()) {
            QStringList celdas;
            for (int c = 0; c < columnas; ++c)
                celdas << (consulta.isNull(c) ? u"<null>"_s : consulta.value(c).toString());
            lineas << celdas.join(u'|');
        }
        return lineas.join(u'\n');
    }
};

TEST_P(StoresAbiertos, TheShellReadsEveryTableCountsItAndFindsItsFileInOrder) {
    ctx->DataManager.CloseAllDataConnection();
    for (const esquema::Tabla &t : esquema::tablas()) {
        const QString cuantas = conElShell(t.entidad, u"select count(*) from %1"_s.arg(t.nombre));
        EXPECT_EQ(cuantas, valor(u"select count(*) as n from "_s + t.nombre, t.entidad))
            << t.nombre.toStdString();
        const QString columna = t.columnas.front().nombre;
        conElShell(t.entidad,
                   u"select \"%1\", count(*) from %2 group by 1 order by 1"_s.arg(columna, t.nombre));
    }
    for (const QString &entidad : StoreProfiles::entidades()) {
        if (esquema::tablasDe(entidad).isEmpty()) continue;
        EXPECT_EQ(conElShell(entidad, u"pragma integrity_check"_s), u"ok"_s) << entidad.toStdString();
    }
}

TEST_P(StoresAbiertos, TheShellFiltersWithoutRegardToCaseAndThroughTheIndex) {
    ctx->DataManager.CloseAllDataConnection();
    const QString sql = u"select count(*) from subitems where interno = 'ic-2026-0001'"_s;
    EXPECT_EQ(conElShell(u"INTERNOS"_s, sql), valor(sql));
    EXPECT_NE(conElShell(u"INTERNOS"_s, sql), u"0"_s);
    EXPECT_TRUE(conElShell(u"INTERNOS"_s, u"explain query plan "_s + sql).contains("USING"_L1));
}

TEST_P(StoresAbiertos, ARowThatTheShellAddsIsShownByTheProgram) {
    ctx->DataManager.CloseAllDataConnection();
    conElShell(u"INTERNOS"_s,
               u"insert into caratula (interno, idsubreg, fechaalta, factura7) "
               "values ('DEL SHELL', 'IC04', '2026-05-04 00:00:00', 'ÑANDÚ S.A.')"_s);
    conElShell(u"INTERNOS"_s,
               u"insert into subitems (interno, ncm, fob) values ('DEL SHELL', '8413', 1.5)"_s);
    FiltroDeInternos filtro;
    filtro.txtInterno = u"del s"_s;
    const std::vector<FilaDeInterno> filas = BuscarInternos(*ctx, filtro);
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().Interno, u"DEL SHELL"_s);
    EXPECT_EQ(filas.front().Cliente, u"ÑANDÚ S.A."_s);
    EXPECT_EQ(valor(u"select fob from subitems where interno = 'DEL SHELL'"_s), u"1.5"_s);
    EXPECT_NE(valor(u"select id from subitems where interno = 'DEL SHELL'"_s), u"<null>"_s) << "numbered";
}

TEST_P(StoresAbiertos, FilesOfBeforeBecomePlainWithEveryRowEveryIndexAndTheirNumbering) {
    // The last line is gone: its number is not given again.
    ejecutar(u"insert into subitems (interno) values ('A')"_s);
    ejecutar(u"delete from subitems where interno = 'A'"_s);
    // A hole in the order of insertion.
    ejecutar(u"delete from caratula where interno = 'IC-2026-0001'"_s);
    const QStringList antes = todo();
    hacerDeAntes();
    estaTodo(antes);
    ctx->DataManager.CloseAllDataConnection();
    actualizacion::Resultado r = actualizacion::Actualizar(tienda->perfil());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_TRUE(r.cambios.contains(u"INTERNOS: otros programas ya pueden leer caratula"_s))
        << r.cambios.join(u'\n').toStdString();
    estaTodo(antes);
    ctx->DataManager.CloseAllDataConnection();
    for (const QString &entidad : StoreProfiles::entidades()) {
        if (esquema::tablasDe(entidad).isEmpty()) continue;
        EXPECT_EQ(conElShell(entidad, u"pragma integrity_check"_s), u"ok"_s) << entidad.toStdString();
        EXPECT_EQ(conElShell(entidad, u"select count(*) from sqlite_master where sql like '%ZCI%'"_s),
                  u"0"_s);
    }
    r = actualizacion::Actualizar(tienda->perfil());
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList()) << "a second run";
}

TEST_P(StoresAbiertos, WhatAnOfficeAddedToAFileOfBeforeGoesAlong) {
    const QString personal = u"PERSONAL"_s;
    motor(u"alter table clientes add column telefono text"_s, personal);
    motor(u"update clientes set telefono = '4300-1234'"_s, personal);
    motor(u"create index de_la_oficina on clientes (nombre COLLATE NOCASE, telefono)"_s, personal);
    motor(u"create table de_la_oficina_2 (cuit text COLLATE NOCASE, nota text)"_s, personal);
    motor(u"create view con_telefono as select cuit, telefono from clientes"_s, personal);
    motor(
        u"create trigger al_cambiar after update of nombre on clientes "
        "begin update clientes set telefono = 'cambió' where rowid = new.rowid; end"_s,
        personal);
    const QString clientes = valor(u"select count(*) as n from clientes"_s, personal);
    hacerDeAntes();
    const actualizacion::Resultado r = actualizacion::Actualizar(tienda->perfil());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_EQ(conElShell(personal, u"select count(*) from con_telefono where telefono = '4300-1234'"_s),
              clientes);
    EXPECT_EQ(conElShell(personal,
                         u"select group_concat(name) from sqlite_master "
                         "where name in ('al_cambiar', 'de_la_oficina') order by name"_s),
              u"de_la_oficina,al_cambiar"_s);
    conElShell(personal, u"update clientes set nombre = 'X' where rowid = 1"_s);
    EXPECT_EQ(conElShell(personal, u"select telefono from clientes where rowid = 1"_s), u"cambió"_s);
}

INSTANTIATE_TEST_SUITE_P(Stores, StoresAbiertos, ::testing::Values("ACCESS"));

}  // namespace
