#include "upgrade/upgrade.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>

#include "tests/support/tienda.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

using actualizacion::Actualizar;
using actualizacion::Resultado;

namespace {

class Actualizacion : public EnAmbosStores {
 protected:
    /// A statement of the engine itself, past the translator.
    void motor(const QString &sql, const QString &entidad = u"INTERNOS"_s) {
        QSqlQuery consulta(ctx->conexion(entidad).coneccion());
        EXPECT_TRUE(consulta.exec(sql))
            << sql.toStdString() << ": " << consulta.lastError().text().toStdString();
    }
    /// Upgrades with every connection of the test closed, as it is when the program runs.
    Resultado actualizar() {
        ctx->DataManager.CloseAllDataConnection();
        return Actualizar(tienda->perfil());
    }
    bool esServidor() const { return std::string(GetParam()) == "SQL"; }
};

TEST_P(Actualizacion, AFreshStoreHasEveryTableWithItsColumns) {
    for (const esquema::Tabla &tabla : esquema::tablas()) {
        QStringList columnas;
        for (const esquema::Columna &c : tabla.columnas)
            columnas << QLatin1Char('[') + c.nombre + QLatin1Char(']');
        EXPECT_EQ(filas(u"select %1 from %2 where 1 = 0"_s.arg(columnas.join(QLatin1Char(',')), tabla.nombre),
                        tabla.entidad)
                      .toStdString(),
                  "")
            << tabla.nombre.toStdString();
    }
    EXPECT_EQ(valor("select valor from version where propiedad = 'version'").toStdString(), "330");
}

TEST_P(Actualizacion, ASecondRunChangesNothing) {
    ejecutar("insert into caratula (interno) values ('A')");
    const Resultado r = actualizar();
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList());
    EXPECT_EQ(valor("select count(*) as n from caratula").toStdString(), "1");
}

TEST_P(Actualizacion, AnOlderStoreGainsWhatItLacksAndKeepsItsRows) {
    ejecutar(
        "insert into subitems (interno,ncm,descripcion,cantidad,insumostemp) values "
        "('A','0101','Ñandú',2,'x')");
    ejecutar("insert into subitems (interno,ncm,cantidad) values ('B','0102',3)");
    ejecutar("insert into caratula (interno,factura1) values ('A','F-1')");
    motor(u"drop index ix_subitems_interno_id"_s);
    motor(u"alter table subitems drop column factura_nro"_s);
    motor(u"drop table liqcero"_s);
    motor(u"drop table mottmp"_s, u"SYSTABLAS"_s);
    ejecutar("update version set valor = '312' where propiedad = 'version'");

    const Resultado r = actualizar();
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    const QString cambios = r.cambios.join(QLatin1Char('\n'));
    for (const char *parte : {"factura_nro", "liqcero", "mottmp", "ix_subitems_interno_id", "330"})
        EXPECT_TRUE(cambios.contains(QLatin1String(parte))) << parte << " in " << cambios.toStdString();

    EXPECT_EQ(
        filas(
            "select interno,ncm,descripcion,cantidad,insumostemp,factura_nro from subitems order by interno")
            .toStdString(),
        "A|0101|Ñandú|2|x|<null>\nB|0102|<null>|3|<null>|<null>");
    EXPECT_EQ(valor("select factura1 from caratula where interno = 'a'").toStdString(), "F-1");
    EXPECT_EQ(valor("select valor from version where propiedad = 'version'").toStdString(), "330");
    ejecutar("insert into liqcero (idconcepto,concepto,valor,interno,pgc) values ('500','X',10,'A','P')");
    EXPECT_EQ(actualizar().cambios, QStringList());
}

TEST_P(Actualizacion, AnOlderArticleStoreGainsTheColumnsOfALine) {
    const QString catalogos = u"CATALOGOS"_s;
    ejecutar("insert into catarticulos (idcatalogo,idarticulo,descripcion) values ('C','A','Bomba')",
             catalogos);
    const QStringList nuevas{"idunidad", "idpaisproc", "estadomerc", "biendeuso", "codigoean", "itfiller"};
    const QString prefijo = esServidor() ? QString() : u"main."_s;
    for (const QString &columna : nuevas)
        motor(u"alter table %1catarticulos drop column %2"_s.arg(prefijo, columna), catalogos);
    const Resultado r = actualizar();
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios.size(), nuevas.size()) << r.cambios.join('\n').toStdString();
    EXPECT_EQ(filas(u"select idarticulo,descripcion,%1 from catarticulos"_s.arg(nuevas.join(',')), catalogos)
                  .toStdString(),
              "A|Bomba|<null>|<null>|<null>|<null>|<null>|<null>");
}

TEST_P(Actualizacion, AnOlderNomenclatureGainsTheTablesOfLetters) {
    const QString ncm = u"NCM"_s;
    ejecutar("insert into ncm ([001],[002],[003]) values ('8409.91.12','100','G')", ncm);
    ejecutar("insert into lnapiaclaraciones (aclaracion,descripcion) values (1,'Sólo nueva')", ncm);
    for (const char *tabla : {"letras", "letrasncm"})
        motor(u"drop table %1"_s.arg(QLatin1String(tabla)), ncm);
    const Resultado r = actualizar();
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios.filter(u"se creó la tabla"_s),
              (QStringList{u"NCM: se creó la tabla letrasncm"_s, u"NCM: se creó la tabla letras"_s}));
    ejecutar("insert into letrasncm (posicion,letra) values ('8409','F')", ncm);
    ejecutar("insert into letras (letra,descripcion) values ('F','Autopartes')", ncm);
    EXPECT_EQ(filas("select [001],[002],[003] from ncm", ncm).toStdString(), "8409.91.12|100|G");
    EXPECT_EQ(valor("select descripcion from lnapiaclaraciones", ncm).toStdString(), "Sólo nueva");

    EXPECT_EQ(actualizar().cambios, QStringList()) << "a second run changes nothing";
    EXPECT_EQ(filas("select posicion,letra from letrasncm", ncm).toStdString(), "8409|F");
    EXPECT_EQ(filas("select letra,descripcion from letras", ncm).toStdString(), "F|Autopartes");
}

TEST_P(Actualizacion, AnOlderCodeStoreGainsTheNineListsOfMeat) {
    const QString codigos = u"SYSTABLAS"_s;
    const QStringList nueve{"oncca_acuerdo",    "oncca_categoria", "oncca_cortes",
                            "oncca_elaborador", "oncca_especie",   "oncca_faneador",
                            "oncca_mecoorgbio", "oncca_res3106",   "oncca_sispro"};
    ejecutar("insert into pais (id,descripcion) values ('310','CHINA')", codigos);
    ejecutar("insert into subitems (interno,idarticulo,onccacortes) values ('OP','A','101')");
    const QString prefijo = esServidor() ? QString() : u"main."_s;
    for (const QString &tabla : nueve) motor(u"drop table %1%2"_s.arg(prefijo, tabla), codigos);
    const Resultado r = actualizar();
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    QStringList creadas = r.cambios.filter(u"se creó la tabla"_s);
    creadas.sort();
    QStringList esperadas;
    for (const QString &tabla : nueve) esperadas << u"SYSTABLAS: se creó la tabla "_s + tabla;
    EXPECT_EQ(creadas, esperadas);
    for (const QString &tabla : nueve) {
        ejecutar(u"insert into %1 (id,descripcion) values ('1','UNO')"_s.arg(tabla), codigos);
        EXPECT_EQ(filas(u"select id,descripcion from "_s + tabla, codigos).toStdString(), "1|UNO");
    }
    EXPECT_EQ(filas("select id,descripcion from pais", codigos).toStdString(), "310|CHINA");
    EXPECT_EQ(filas("select interno,idarticulo,onccacortes from subitems").toStdString(), "OP|A|101");
    EXPECT_EQ(actualizar().cambios, QStringList()) << "a second run changes nothing";
    EXPECT_EQ(filas("select id from oncca_cortes", codigos).toStdString(), "1");
}

TEST_P(Actualizacion, AStoreWithoutAVersionRowCountsAsOlder) {
    ejecutar("delete from version where propiedad = 'version'");
    const Resultado r = actualizar();
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios.size(), 1);
    EXPECT_EQ(filas("select valor from version where propiedad = 'version'").toStdString(), "330");
}

TEST_P(Actualizacion, ANewerStoreIsRefusedAndNothingChanges) {
    motor(u"drop table liqcero"_s);
    motor(u"drop table mottmp"_s, u"SYSTABLAS"_s);
    ejecutar("update version set valor = '331' where propiedad = 'version'");
    const Resultado r = actualizar();
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"331"_s)) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains(u"más nueva"_s)) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList());
    EXPECT_EQ(valor("select valor from version where propiedad = 'version'").toStdString(), "331");
    EXPECT_THROW(filas("select * from liqcero"), Falla);
    EXPECT_THROW(filas("select * from mottmp", "SYSTABLAS"), Falla);
}

TEST_P(Actualizacion, ATableWithoutIdentityGetsOneAndKeepsRowsOrderAndStrangeColumns) {
    motor(u"drop table subitems"_s);
    motor(u"create table subitems (interno varchar(40), ncm varchar(20), propia varchar(10), fob numeric)"_s);
    for (int i = 1; i <= 3; ++i)
        motor(u"insert into subitems (interno,ncm,propia,fob) values ('A','p%1','o%1',%1.5)"_s.arg(i));
    const Resultado r = actualizar();
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ejecutar("insert into subitems (interno,ncm) values ('A','p4')");
    EXPECT_EQ(filas("select id,ncm,propia,fob from subitems where interno = 'a' order by id").toStdString(),
              "1|p1|o1|1.5\n2|p2|o2|2.5\n3|p3|o3|3.5\n4|p4|<null>|<null>");
    EXPECT_EQ(actualizar().cambios, QStringList());
}

TEST_P(Actualizacion, AnIdThatIsThereGoesOnBehindItsHighest) {
    motor(u"drop table subitems"_s);
    motor(u"create table subitems (id double precision, interno varchar(40))"_s);
    motor(u"insert into subitems (id,interno) values (41,'A'), (7,'A')"_s);
    const Resultado r = actualizar();
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ejecutar("insert into subitems (interno) values ('A')");
    EXPECT_EQ(filas("select id from subitems order by id").toStdString(), "7\n41\n42");
}

TEST_P(Actualizacion, AFailureInTheMiddleLeavesTheStoreAsItWas) {
    // Two rows with the same id cannot become the identity of their lines.
    motor(u"drop table subitems"_s);
    motor(u"drop table caratula"_s);
    if (esServidor()) {
        motor(u"create table subitems (id varchar(5), interno varchar(40))"_s);
        motor(u"insert into subitems (id,interno) values ('x','A')"_s);
    } else {
        motor(u"create table subitems (id integer, interno text)"_s);
        motor(u"insert into subitems (id,interno) values (1,'A'), (1,'B')"_s);
    }
    const Resultado r = actualizar();
    EXPECT_FALSE(r.ok);
    EXPECT_FALSE(r.error.isEmpty());
    EXPECT_THROW(filas("select * from caratula"), Falla);
    EXPECT_EQ(valor("select count(*) as n from subitems").toStdString(), esServidor() ? "1" : "2");
}

TEST_P(Actualizacion, ProgressNamesEveryTableAndReachesItsTotal) {
    QStringList nombres;
    qint64 ultimo = -1;
    qint64 total = 0;
    ctx->DataManager.CloseAllDataConnection();
    Actualizar(tienda->perfil(), [&](const QString &que, qint64 hecho, qint64 de) {
        nombres << que;
        EXPECT_GE(hecho, ultimo);
        ultimo = hecho;
        total = de;
    });
    EXPECT_EQ(ultimo, total);
    EXPECT_EQ(total, static_cast<qint64>(esquema::tablas().size()));
    EXPECT_TRUE(nombres.contains(u"INTERNOS: caratula"_s));
}

TEST_P(Actualizacion, LineIdentitiesAreGeneratedAndNeverReused) {
    ejecutar("insert into subitems (interno) values ('A')");
    ejecutar("insert into subitems (interno) values ('A')");
    ejecutar("delete from subitems where id = 2");
    ejecutar("insert into subitems (interno) values ('A')");
    EXPECT_EQ(filas("select id from subitems order by id").toStdString(), "1\n3");
}

TEST_P(Actualizacion, TextsCompareWithoutRegardToCaseAndSearchesFoldAccentedLettersToo) {
    ejecutar("insert into caratula (interno, factura7) values ('Ñ-a1','ÁRBOL')");
    EXPECT_EQ(
        valor("select factura7 from caratula where interno = 'Ñ-A1' and factura7 like 'árb%'").toStdString(),
        "ÁRBOL");
}

TEST_P(Actualizacion, TheSumOfAColumnOfTextsCountsItsNumbers) {
    ejecutar("insert into subitems (interno,insumostemp) values ('A','1.5')");
    ejecutar("insert into subitems (interno,insumostemp) values ('A','2')");
    ejecutar("insert into subitems (interno,insumostemp) values ('A','abc')");
    ejecutar("insert into subitems (interno,insumostemp) values ('A',null)");
    EXPECT_EQ(valor("select sum(insumostemp) as t from subitems where interno = 'A'").toStdString(), "3.5");
}

TEST_P(Actualizacion, TheStoreRoutineJoinsTheDescriptionsOfAnItemInOrder) {
    for (const char *d : {"'UNO'", "'DOS'", "null"})
        ejecutar(
            u"insert into groupsubitems (interno,id,descripcion) values ('A',1,%1)"_s.arg(QLatin1String(d)));
    ejecutar("insert into groupsubitems (interno,id,descripcion) values ('A',2,'OTRO')");
    EXPECT_EQ(
        valor("SELECT dbo.groupsubitem_descripcion_select_concat( 1, 'A' ) as descripcion").toStdString(),
        "UNO;DOS;;");
}

TEST_P(Actualizacion, TheStoreProcedureGivesCancellationRowsTheirItem) {
    // Lines 1 and 2 fold into group 1 with root 1; line 3 is group 2.
    for (const char *exp : {"10", "11", "12"})
        ejecutar(u"insert into subitems (interno,idexportacion) values ('A',%1)"_s.arg(QLatin1String(exp)));
    ejecutar("insert into groupsubitems (interno,id,idsub) values ('A',1,1)");
    ejecutar("insert into groupsubitems (interno,id,idsub) values ('A',2,3)");
    ejecutar("insert into idrel (interno,idroot,idsub) values ('A',1,2)");
    for (const char *fila : {"10,null", "11,''", "12,'7'", "0,null", "99,null"})
        ejecutar(u"insert into descargas (interno,idexportacion,iditem) values ('A',%1)"_s.arg(
            QLatin1String(fila)));
    ejecutar("insert into descargas (interno,idexportacion,iditem) values ('B',10,null)");
    ejecutar("exec ProcesarDescargasconTLR1 'A'");
    EXPECT_EQ(filas("select interno,idexportacion,iditem from descargas order by interno,idexportacion")
                  .toStdString(),
              "A|0|<null>\nA|10|1\nA|11|1\nA|12|7\nA|99|<null>\nB|10|<null>");
}

EN_AMBOS_STORES(Actualizacion);

/// Profiles that cannot be upgraded, without any store behind them.
class PerfilMalo : public ::testing::Test {
 protected:
    QString perfilDeArchivos() {
        const QString ruta = dir.filePath(u"p.perfil.ini"_s);
        EXPECT_TRUE(StoreProfiles::escribirPerfilDeArchivos(ruta, u"P"_s, dir.filePath(u"db"_s)));
        return ruta;
    }
    QTemporaryDir dir;
};

TEST_F(PerfilMalo, AMissingProfileIsNamed) {
    const Resultado r = Actualizar(dir.filePath(u"nada.ini"_s));
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"nada.ini"_s)) << r.error.toStdString();
}

TEST_F(PerfilMalo, AFileThatIsNoStoreIsNamedAndLeftAlone) {
    const QString perfil = perfilDeArchivos();
    ASSERT_TRUE(QDir().mkpath(dir.filePath(u"db"_s)));
    QFile f(dir.filePath(u"db/ncm.db"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("esto no es un store, pero es de alguien");
    f.close();
    const Resultado r = Actualizar(perfil);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"ncm.db"_s)) << r.error.toStdString();
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("esto no es un store, pero es de alguien"));
    EXPECT_FALSE(QFile::exists(dir.filePath(u"db/internos.db"_s))) << "nothing else may be made";
}

TEST_F(PerfilMalo, ADamagedStoreIsNamed) {
    const QString perfil = perfilDeArchivos();
    ASSERT_TRUE(QDir().mkpath(dir.filePath(u"db"_s)));
    QFile f(dir.filePath(u"db/internos.db"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(QByteArray("SQLite format 3\0", 16) + QByteArray(4000, 'x'));
    f.close();
    const Resultado r = Actualizar(perfil);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"internos.db"_s)) << r.error.toStdString();
}

TEST_F(PerfilMalo, AFolderInPlaceOfAFileIsNamed) {
    const QString perfil = perfilDeArchivos();
    ASSERT_TRUE(QDir().mkpath(dir.filePath(u"db/personal.db"_s)));
    const Resultado r = Actualizar(perfil);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"personal.db"_s)) << r.error.toStdString();
}

TEST_F(PerfilMalo, AServerThatIsNotThereIsNamed) {
    const QString ruta = dir.filePath(u"s.perfil.ini"_s);
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeServidor(ruta, u"S"_s, dir.path(), 6543, u"nobase"_s,
                                                        u"nadie"_s, dir.path()));
    const Resultado r = Actualizar(ruta);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"6543"_s)) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains(u"servidor"_s)) << r.error.toStdString();
}

TEST_F(PerfilMalo, EveryFileOfAFreshProfileIsMade) {
    const Resultado r = Actualizar(perfilDeArchivos());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    for (const char *nombre : {"internos", "systablas", "ncm", "catalogos", "personal", "usuario"})
        EXPECT_TRUE(QFile::exists(dir.filePath(u"db/%1.db"_s.arg(QLatin1String(nombre))))) << nombre;
}

}  // namespace
