// Work on one operation must never walk the rows of another: what the engines plan for the statements of a
// run.

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>

#include "frame/store/dialect.h"
#include "tests/support/tienda.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

struct Caso {
    const char *entidad;
    const char *sentencia;
};

const Caso casos[] = {
    {"INTERNOS", "select * from caratula where interno = 'A'"},
    {"INTERNOS",
     "UPDATE SUBITEMS SET BIENDEUSO = 'N' WHERE INTERNO = 'A' and (BIENDEUSO='' or BIENDEUSO is null)"},
    {"INTERNOS", "Update SubItems set insumostemp = 0 where ISNUMERIC(insumostemp)=0 and interno =  'A'"},
    {"INTERNOS",
     "Update SubItems set sufijos = sufijos+'-' where not (sufijos = 'SIN SUFIJOS' or sufijos = '' or "
     "sufijos is null) and right(sufijos,1)<>'-' and interno = 'A'"},
    {"INTERNOS", "update descargas set idext = NULL where interno = 'A' and iditem is not null"},
    {"INTERNOS", "select distinct ncm,sufijos from subitems where interno = 'A'"},
    {"INTERNOS",
     "select ncm,sum(fob) from  (select * from subitems where interno = 'A') as a where interno = 'A' group "
     "by ncm,sufijos"},
    {"INTERNOS", "select sum(fob) as total from subitems where interno = 'A'"},
    {"INTERNOS",
     "select id,idarticulo as fidarticulo,idcatalogo,cancelaciones,certorig, itfiller from subitems where "
     "interno = 'A'  and ncm = '8409.91.12.100G' and idpais ='203' and sufijos ='X-' and preciounitario = "
     "12.50000  and idunidad ='07' order by id asc"},
    {"INTERNOS", "update subitems set insumostemp = 1,cancelaciones = 'OK' where interno = 'A'  and id = 5"},
    {"INTERNOS",
     "update groupsubitems set kgneto = cantidad where (idunidad = '01' and estadistica = '01' and "
     "cantidad>0) and kgneto = 0 and interno = 'A'"},
    {"INTERNOS", "select * from groupsubitems where interno = 'A' and (idsub is null)"},
    {"INTERNOS",
     "update groupsubitems set idsub = 7, idarticulo = 'X'  where interno = 'A' and ncm = '8409' and idpais "
     "='203' and sufijos ='X-' and preciounitario = 12.5 "},
    {"INTERNOS",
     "select idsub, cancelaciones from groupsubitems where interno = 'A' and \nncm = '8409' and "
     "preciounitario between (10 - 0.0099) and (10 + 0.0099) order by idsub asc"},
    {"INTERNOS",
     "select idroot, idsub from idrel as a where a.interno = 'A' and exists (select idroot from idrel as b "
     "where  b.interno = 'A' and a.idsub = b.idroot)"},
    {"INTERNOS", "update idrel set idroot = 3 where interno = 'A' and idroot = 4"},
    {"INTERNOS",
     "update groupsubitems set fob = 10.5, preciounitario = ROUND(10.5/cantidad,5)  where interno = 'A' and  "
     "idsub = 9"},
    {"INTERNOS",
     "update groupsubitems set fob = 10.5 where fob = 10 and cantidad = 2 and interno = 'A' and codprorrateo "
     "= 'EMB'"},
    {"INTERNOS", "select sum(fob) as valor from groupsubitems where interno = 'A' and codprorrateo = 'EMB'"},
    {"INTERNOS", "select top 1 * from groupsubitems where interno = 'A' and id is null order by idsub"},
    {"INTERNOS", "select sum(cantidad) as cant from groupsubitems where id = 4 and interno = 'A'"},
    {"INTERNOS", "update item set itFLETE = ROUND((FobTotal * 10)/20,2)  where interno = 'A'"},
    {"INTERNOS", "select top 2 * from item where interno = 'A' order by itflete desc"},
    {"INTERNOS", "select id from item where interno = 'A' and id<>0 and ncm like '8409%'"},
    {"INTERNOS",
     "update itemliq set porcentaje = '0',baseimp = '0', total = '0' where interno = 'A' and iditem = 3 and "
     "idconceptos in ('010','011')"},
    {"INTERNOS", "select porcentaje from itemliq where idconceptos = '010' and interno = 'A' and iditem = 3"},
    {"INTERNOS",
     "select * from itemliq where iditem> 0 and interno = 'A' and iditem = 3 ORDER BY idconceptos"},
    {"INTERNOS",
     "select idventaja from itemventaja where iditem = 3 and idventaja = 'VEHICULOPARTES' and interno = 'A'"},
    {"INTERNOS", "delete from iteminfo where interno = 'A'"},
    {"INTERNOS",
     "select codigo, descripcion from prorrateo where interno = 'A' and codigo not in (select codprorrateo "
     "from groupsubitems where interno = 'A')"},
    {"INTERNOS", "select LTAXABR as descripcion from tax where ctax = '010'"},
    {"NCM",
     "select [015],[016],[053],[048],[059] as lapi from ncm where [001] = '8409.91.12' and [002] = '100'"},
    {"NCM",
     "select distinct left(sufijo,2) as asufijo from sufidos where sim in ('84  .  .  .   ','8409.  .  .   "
     "')"},
    {"CATALOGOS", "select ventaja from articulo_ventaja where idcatalogo = 'C' and idarticulo = 'X'"},
    {"PERSONAL",
     "select * from VentajasRel where cuit = '30' and (idSubRegimen = 'IC04' or (idSubRegimen = '' or "
     "idSubRegimen is null))"},
    {"SYSTABLAS", "select cstaimpexp from sta where id = 'IC04'"},
};

// Each of the two joins is written for its own store.
const Caso joins[] = {
    {"INTERNOS",
     "Update groupsubitems Inner Join subitems On (groupsubitems.interno = subitems.Interno and "
     "groupsubitems.ncm = subitems.NCM and groupsubitems.cantidad = subitems.cantidad and "
     "groupsubitems.preciounitario = subitems.preciounitario and groupsubitems.sufijos = subitems.sufijos) "
     "Set "
     "groupsubitems.IDsub = SubItems.ID,  groupsubitems.idcatalogo = SubItems.idcatalogo,  "
     "groupsubitems.idarticulo = SubItems.idarticulo  where groupsubitems.interno = 'A'"},
    {"INTERNOS",
     "Update groupsubitems Set groupsubitems.IDsub = SubItems.ID,groupsubitems.idcatalogo = "
     "SubItems.idcatalogo,groupsubitems.IdArticulo = SubItems.IdArticulo from groupsubitems INNER JOIN "
     "subitems ON (groupsubitems.interno = subitems.Interno and groupsubitems.ncm = subitems.NCM and "
     "groupsubitems.cantidad = subitems.cantidad and groupsubitems.preciounitario = subitems.preciounitario "
     "and "
     "groupsubitems.sufijos = subitems.sufijos) where groupsubitems.interno = 'A'"},
};

class Indices : public EnAmbosStores {
 protected:
    bool esServidor() const { return std::string(GetParam()) == "SQL"; }

    QString plan(const Caso &caso) {
        dialecto::Ajustes ajustes;
        ajustes.gramatica = &(esServidor() ? motores::servidor() : motores::archivo()).gramatica;
        for (const esquema::Tabla &t : esquema::tablas()) ajustes.tablasOrdenadas.insert(t.nombre);
        const QString sql = dialecto::traducir(QString::fromLatin1(caso.sentencia), ajustes);
        QSqlQuery q(ctx->conexion(QLatin1String(caso.entidad)).coneccion());
        // On empty tables the server would walk them: ask what it does when it may not.
        if (esServidor()) q.exec(u"set enable_seqscan = off"_s);
        EXPECT_TRUE(q.exec((esServidor() ? u"explain "_s : u"explain query plan "_s) + sql))
            << sql.toStdString() << ": " << q.lastError().text().toStdString();
        QStringList lineas;
        while (q.next()) lineas << q.value(esServidor() ? 0 : 3).toString();
        return lineas.join(QLatin1Char('\n'));
    }
    void esperarIndices(const Caso &caso) {
        const QString p = plan(caso);
        static const QRegularExpression paso(u"Seq Scan on|SCAN (?!a\\b|z_|\\()[a-z_]+$|AUTOMATIC"_s,
                                             QRegularExpression::MultilineOption);
        EXPECT_FALSE(paso.match(p).hasMatch()) << caso.sentencia << "\n" << p.toStdString();
        EXPECT_TRUE(p.contains("index"_L1, Qt::CaseInsensitive) || p.contains("PRIMARY KEY"_L1))
            << caso.sentencia << "\n"
            << p.toStdString();
    }
};

TEST_P(Indices, EveryStatementOfARunFindsItsRowsByAnIndex) {
    for (const Caso &caso : casos) esperarIndices(caso);
}

TEST_P(Indices, TheRowsOfAnItemAreFoundByTheItemAndNotByARange) {
    // A range over every item, taken for the narrower search, would walk all rows of the operation for each.
    const QString p = plan({"INTERNOS",
                            "select * from itemliq where iditem> 0 and interno = 'A' and iditem = 3 ORDER BY "
                            "idconceptos"});
    EXPECT_TRUE(
        p.contains(esServidor() ? "(iditem = '3'::double precision)"_L1 : "(interno=? AND iditem=?)"_L1))
        << p.toStdString();
}

TEST_P(Indices, TheLinkBackFindsTheLinesOfAGroupByAnIndex) {
    esperarIndices(joins[esServidor() ? 1 : 0]);
}

TEST_P(Indices, ALineThatAGroupNamesIsFoundByItsIdentity) {
    // A walk over all lines of the operation for each of its items would grow with their product.
    const QString p =
        plan({"INTERNOS",
              "select a.idarticulo from subitems as a where interno = 'A' and id in (select idsub "
              "from groupsubitems where interno = 'A' and [id]= 3)"});
    EXPECT_TRUE(p.contains(esServidor() ? "ix_subitems_interno_id_numero"_L1
                                        : "SEARCH a USING INTEGER PRIMARY KEY (rowid=?)"_L1))
        << p.toStdString();
}

TEST_P(Indices, TheSearchForDuplicatesFindsTheEqualGroupsByAnIndex) {
    esperarIndices(
        {"INTERNOS",
         "select * from groupsubitems as a where a.interno = 'A' and exists( select preciounitario,sufijos "
         "from "
         "groupsubitems as b where a.interno = 'A' and a.preciounitario = b.preciounitario and a.sufijos = "
         "b.sufijos and a.ncm = b.ncm and sufijos in (select sufijos from groupsubitems where interno = 'A' "
         "group "
         "by interno,ncm,sufijos having count(*)>1) group by preciounitario,sufijos) "});
}

EN_AMBOS_STORES(Indices);

}  // namespace
