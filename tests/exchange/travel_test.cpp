// Operations that leave one office and come into another.

#include <QSet>

#include "frame/base/values.h"
#include "operations/operationrows.h"
#include "tests/exchange/oficinas.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;
using namespace intercambio;

namespace {

const QString impo = u"IC-2026-0001"_s;
const QString expo = u"EC-2026-0002"_s;

class Viaje : public DosOficinas {
 protected:
    static QString fines(const Importacion &r) {
        QStringList todos;
        for (const Importada &una : r.operaciones)
            todos << una.clave + u'>' + una.destino + u' ' + QString::number(static_cast<int>(una.fin)) +
                         una.aviso;
        return todos.join(u'\n');
    }
    static QString hecha(const QString &clave) {
        return clave + u'>' + clave + u' ' + QString::number(static_cast<int>(Importada::Fin::Importada));
    }
};
EN_AMBOS_STORES(Viaje);

TEST_P(Viaje, EveryTableWithTheKeyOfAnOperationGoesAlongOrIsKnownToStay) {
    // Where it is open, and the stock: what one office took from its own.
    const QSet<QString> quedan{u"interno"_s, u"stock"_s, u"stockmov"_s};
    for (const esquema::Tabla &t : esquema::tablas()) {
        if (t.columna(u"interno") == nullptr) continue;
        const operacion::Tabla *tabla = operacion::BuscarTabla(t.nombre);
        EXPECT_NE(tabla == nullptr, !quedan.contains(t.nombre)) << t.nombre.toStdString();
        if (tabla == nullptr) continue;
        EXPECT_EQ(t.entidad, QLatin1String(tabla->entidad)) << t.nombre.toStdString();
        // What the store numbers is known to be so.
        for (const esquema::Columna &c : t.columnas) {
            const bool numerada = c.nombre == QLatin1String(tabla->numerada);
            EXPECT_EQ(numerada, c.tipo == esquema::Tipo::Generado) << t.nombre.toStdString();
        }
    }
    EXPECT_EQ(QLatin1String(operacion::Tablas().back().nombre), "caratula"_L1) << "the header comes last";
}

TEST_P(Viaje, WhatIsExportedImportedAndExportedAgainIsTheSameFileBetweenAnyTwoStores) {
    for (const QString &clave : {impo, expo}) preparar(clave);
    exportar({impo, expo}, en("ida.zop"));
    for (const char *etiqueta : {"ACCESS", "SQL"}) {
        const Tienda tienda2(QLatin1String(etiqueta), false);
        ::Registro registro2;
        const auto ctx2 = tienda2.contexto(registro2);
        const Importacion r = importarEn(*ctx2, en("ida.zop"));
        EXPECT_EQ(fines(r), hecha(impo) + u'\n' + hecha(expo));
        EXPECT_EQ(r.resumen(), u"Se importaron 2 operaciones."_s);
        for (const QString &clave : {impo, expo})
            EXPECT_EQ(cuentas(*ctx2, clave), cuentas(*ctx, clave)) << etiqueta;
        exportarDe(*ctx2, {impo, expo}, en("vuelta.zop"));
        EXPECT_EQ(expandido(en("ida.zop")), expandido(en("vuelta.zop"))) << etiqueta;
        EXPECT_EQ(bytesDe(en("ida.zop")), bytesDe(en("vuelta.zop"))) << etiqueta;
        EXPECT_TRUE(registro2.mensajes.empty());
    }
    // Every table had something to carry.
    QStringList sinFilas;
    const QString todas = cuentas(*ctx, impo) + u',' + cuentas(*ctx, expo);
    for (const operacion::Tabla &t : operacion::Tablas())
        if (!todas.contains(QLatin1String(t.nombre) + u' ')) sinFilas << QLatin1String(t.nombre);
    EXPECT_EQ(sinFilas.join(u','), QString());
}

TEST_P(Viaje, LinesHaveNumbersOfTheirOwnThereAndEverythingThatNamesThemFollows) {
    preparar(impo);
    exportar({impo}, en("ida.zop"));
    AppContext &alla = otra(GetParam());
    // Lines of others, so that no number is the same by chance.
    for (int n = 0; n < 1000; ++n)
        Ejecutar(alla, u"INTERNOS"_s, u"insert into subitems (interno) values ('AJENA')"_s);
    importarEn(alla, en("ida.zop"));
    EXPECT_EQ(uno(alla, u"select min(id) as n from subitems where interno = 'IC-2026-0001'"_s), u"1001"_s);
    // 20 lines, each in one group; the link is of the first.
    EXPECT_EQ(uno(alla,
                  u"select count(*) as n from groupsubitems g inner join subitems s on g.idsub = s.id "
                  "where g.interno = 'IC-2026-0001' and s.interno = 'IC-2026-0001' and g.ncm = s.ncm"_s),
              uno(*ctx, u"select count(*) as n from groupsubitems where interno = 'IC-2026-0001'"_s));
    EXPECT_EQ(uno(alla, u"select numero from certorigen where interno = 'IC-2026-0001'"_s), u"AR-1"_s);
    EXPECT_EQ(uno(alla, u"select id from subitems where interno = 'IC-2026-0001' and certorig = 'AR-1'"_s),
              u"1001"_s);
    EXPECT_EQ(uno(alla, u"select idroot from idrel where interno = 'IC-2026-0001' and idsub = 1001"_s),
              u"1001"_s);
}

TEST_P(Viaje, ThePartiesTheArticlesAndTheAdvantagesOfBothComeAlongAndThoseThatAreThereStay) {
    ejecutar(u"update caratula set cuittrans = '30500000017' where interno = 'IC-2026-0001'"_s);
    ejecutar(u"insert into transporte (cuit,nombre) values ('30500000017','NAVIERA DEL SUR')"_s,
             u"PERSONAL"_s);
    ejecutar(u"insert into ventajasrel (cuit,idventaja) values ('30708123451','BIENCAPITAL')"_s,
             u"PERSONAL"_s);
    const QString catalogo =
        valor(u"select idcatalogo from subitems where interno = 'IC-2026-0001' order by id"_s);
    const QString articulo =
        valor(u"select idarticulo from subitems where interno = 'IC-2026-0001' order by id"_s);
    ejecutar(u"delete from articulo_ventaja"_s, u"CATALOGOS"_s);
    ejecutar(
        u"insert into articulo_ventaja (idcatalogo,idarticulo,ventaja) values ('%1','%2','LICENCIAAUTOM')"_s
            .arg(catalogo, articulo),
        u"CATALOGOS"_s);
    exportar({impo}, en("ida.zop"));
    AppContext &alla = otra("SQL");
    Ejecutar(alla, u"PERSONAL"_s, u"insert into despadu (cuit,nombre) select '20167890122','EL NUESTRO'"_s);
    const QString despachante =
        valor(u"select cuitdespaduana from caratula where interno = 'IC-2026-0001'"_s);
    ASSERT_EQ(despachante, u"20167890122"_s);
    const Importacion r = importarEn(alla, en("ida.zop"));
    const auto enAmbos = [&](const QString &sql, const QString &entidad) {
        EXPECT_EQ(uno(alla, sql, entidad), uno(*ctx, sql, entidad)) << sql.toStdString();
    };
    enAmbos(u"select nombre from clientes where cuit = '30708123451'"_s, u"PERSONAL"_s);
    enAmbos(u"select nombre from transporte where cuit = '30500000017'"_s, u"PERSONAL"_s);
    enAmbos(u"select count(*) as n from ventajasrel where cuit = '30708123451'"_s, u"PERSONAL"_s);
    const QString suyo = u" where idcatalogo = '%1' and idarticulo = '%2'"_s.arg(catalogo, articulo);
    enAmbos(u"select descripcion from catarticulos"_s + suyo, u"CATALOGOS"_s);
    enAmbos(u"select ventaja from articulo_ventaja"_s + suyo, u"CATALOGOS"_s);
    EXPECT_EQ(uno(alla, u"select nombre from despadu"_s, u"PERSONAL"_s), u"EL NUESTRO"_s);
    EXPECT_EQ(uno(alla, u"select count(*) as n from clientes"_s, u"PERSONAL"_s), u"1"_s) << "and no other's";
    EXPECT_GT(r.relacionadas, 4);
    // A second time there is nothing new, and an article that is there takes no advantages.
    Ejecutar(alla, u"CATALOGOS"_s, u"delete from articulo_ventaja"_s);
    EXPECT_EQ(importarEn(alla, en("ida.zop"), Decision::Reemplazar).relacionadas, 0);
    EXPECT_EQ(uno(alla, u"select count(*) as n from articulo_ventaja"_s, u"CATALOGOS"_s), u"0"_s);
}

TEST_P(Viaje, WhatALineTookFromTheStockDoesNotTravelAndTheOperationWaitsForItsAssembly) {
    preparar(impo);
    const QString linea = valor(u"select min(id) as n from subitems where interno = 'IC-2026-0001'"_s);
    ejecutar(u"update subitems set cancelaciones = 'OK', insumostemp = '12.75' where id = "_s + linea);
    ejecutar(
        u"insert into stockmov (interno,idlinea,idstock,descontado) values ('IC-2026-0001',%1,1,3)"_s.arg(
            linea));
    ejecutar(
        u"insert into descargas (interno,cantidad,idexportacion) "
        "select interno,3,id from stockmov where interno = 'IC-2026-0001'"_s);
    exportar({impo}, en("ida.zop"));
    AppContext &alla = otra(GetParam());
    importarEn(alla, en("ida.zop"));
    EXPECT_EQ(uno(alla, u"select count(*) as n from subitems where cancelaciones = 'OK'"_s), u"0"_s);
    EXPECT_EQ(uno(alla, u"select insumostemp from subitems where interno = 'IC-2026-0001' order by id"_s),
              u"0"_s);
    EXPECT_EQ(uno(alla, u"select count(*) as n from stockmov"_s), u"0"_s);
    EXPECT_EQ(uno(alla, u"select count(*) as n from descargas"_s), u"1"_s) << "the one of elsewhere";
    EXPECT_EQ(uno(alla, u"select factura8 from caratula"_s), u"S"_s);
    exportarDe(alla, {impo}, en("vuelta.zop"));
    EXPECT_EQ(expandido(en("ida.zop")), expandido(en("vuelta.zop")));
    // Here nothing changed.
    EXPECT_EQ(valor(u"select cancelaciones from subitems where id = "_s + linea), u"OK"_s);
}

TEST_P(Viaje, ALongOperationComesInTheOrderInWhichItWasKeyed) {
    ejecutar(u"insert into caratula (interno) values ('LARGA')"_s);
    // Longer than what is read at once, and groups that do not ascend.
    constexpr int lineas = 4500;
    QStringList sentencias;
    for (int n = 1; n <= lineas; ++n) {
        sentencias << u"insert into subitems (interno,descripcion) values ('LARGA','línea %1')"_s.arg(n);
        sentencias
            << u"insert into itemliq (interno,iditem,idconceptos) values ('LARGA',%1,'%2')"_s.arg(n / 3).arg(
                   n);
        sentencias << u"insert into iteminfo (interno,iditem,idinfo) values ('LARGA',%1,'%2')"_s
                          .arg(lineas - n)
                          .arg(n);
    }
    EscrituraLigera ligera(ctx->conexion(u"INTERNOS"_s));
    ctx->conexion(u"INTERNOS"_s).EjecutarSeguidas(sentencias);
    ligera.Terminar();
    exportar({u"LARGA"_s}, en("ida.zop"));
    AppContext &alla = otra("SQL");
    importarEn(alla, en("ida.zop"));
    for (const QString &sql : {u"select descripcion from subitems where interno = 'LARGA' order by id"_s,
                               u"select idconceptos from itemliq where interno = 'LARGA'"_s,
                               u"select idinfo from iteminfo where interno = 'LARGA'"_s}) {
        Recordset aqui;
        Recordset enLaOtra;
        Consultar(*ctx, u"INTERNOS"_s, sql, aqui);
        Consultar(alla, u"INTERNOS"_s, sql, enLaOtra);
        ASSERT_EQ(aqui.RecordCount(), lineas);
        ASSERT_EQ(enLaOtra.RecordCount(), lineas);
        for (; !aqui.Eof(); aqui.MoveNext(), enLaOtra.MoveNext())
            ASSERT_EQ(EsNull(aqui.Fields(0).Value), EsNull(enLaOtra.Fields(0).Value));
    }
}

TEST_P(Viaje, AColumnThatThisStoreLacksIsToldWhenItHeldSomething) {
    ejecutar(u"alter table subitems add column propia_de_la_oficina double precision"_s);
    ejecutar(u"alter table subitems add column vacia double precision"_s);
    ejecutar(u"update subitems set propia_de_la_oficina = 5 where interno = 'EC-2026-0002'"_s);
    exportar({expo}, en("ida.zop"));
    const Importacion r = importarEn(otra("SQL"), en("ida.zop"));
    ASSERT_EQ(r.operaciones.size(), 1U);
    EXPECT_EQ(r.operaciones[0].fin, Importada::Fin::Importada);
    EXPECT_EQ(r.operaciones[0].aviso,
              u"La operación EC-2026-0002 trae datos que este store no guarda y quedaron afuera "
              "(subitems.propia_de_la_oficina); actualice los stores con DbUpgrade3."_s);
}

}  // namespace
