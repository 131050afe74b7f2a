// Advantages of the client, of the regime and of the articles.

#include <gtest/gtest.h>

#include "header/automotive.h"
#include "tests/items/armado.h"

using namespace Qt::StringLiterals;

namespace {

class Ventajas : public ArmadoDePrueba {
 protected:
    void ventajaDeCliente(const char *cuit, const char *regimen, const char *ncm, const char *ventaja) {
        insertar(u"ventajasrel"_s,
                 {{"cuit", QString::fromLatin1(cuit)},
                  {"idsubregimen", QString::fromLatin1(regimen)},
                  {"ncm", QString::fromLatin1(ncm)},
                  {"idventaja", QString::fromLatin1(ventaja)}},
                 u"PERSONAL"_s);
    }
    /// A position with its marks: automotive [028], stamps [041], licence [059].
    void posicion(const char *c001, const char *automotriz, const char *estampillas, const char *lapi) {
        insertar(u"ncm"_s,
                 {{"[001]", u"'%1'"_s.arg(QLatin1String(c001))},
                  {"[002]", "'100'"},
                  {"[003]", "'A'"},
                  {"[028]", QString::fromLatin1(automotriz)},
                  {"[041]", QString::fromLatin1(estampillas)},
                  {"[059]", QString::fromLatin1(lapi)}},
                 u"NCM"_s);
    }
    std::string todas() {
        return f(
            "select idventaja,iditem,count(*) as n "
            "from itemventaja "
            "where interno = 'OP1' "
            "group by idventaja,iditem "
            "order by idventaja,iditem");
    }
    std::string aec() { return LeerAEC(*ctx, u"OP1"_s, u"<nada>"_s).toStdString(); }
};

TEST_P(Ventajas, OfTheClientGoToTheItemsOfTheirPositionAndRegime) {
    item(0, {{"ncm", "NULL"}});
    item(1);
    item(2, {{"ncm", "'8409.91.12.100A'"}});
    ventajaDeCliente("'30'", "'IC01'", "'7318'", "'A-regime-position'");
    ventajaDeCliente("'30'", "''", "''", "'B-all'");
    ventajaDeCliente("'30'", "NULL", "NULL", "'C-all'");
    ventajaDeCliente("'30'", "'EC01'", "''", "'D-other-regime'");
    ventajaDeCliente("'31'", "''", "''", "'E-other-client'");
    ventajaDeCliente("'30'", "'IC01'", "'  '", "'F-regime'");
    corrida->ClienteCuit = u"30"_s;
    VentajasDelCliente(*corrida);
    EXPECT_EQ(
        todas(),
        "A-regime-position|1|1\nB-all|1|1\nB-all|2|1\nC-all|1|1\nC-all|2|1\nF-regime|1|1\nF-regime|2|1");
}

TEST_P(Ventajas, OfTheClientWithoutRegimeAndWithPositionAreInsertedTwice) {
    item(1);
    item(2, {{"ncm", "'8409.91.12.100A'"}});
    ventajaDeCliente("'30'", "''", "'7318.15.00.100A'", "'V'");
    ventajaDeCliente("'30'", "NULL", "'84'", "'W'");
    corrida->ClienteCuit = u"30"_s;
    VentajasDelCliente(*corrida);
    EXPECT_EQ(todas(), "V|1|2\nW|2|2");
}

TEST_P(Ventajas, TheTariffQuestionIsAnsweredNoOutsideImportsForConsumption) {
    for (const char *regimen : {"EC01", "IT01", "ZFE1", "DJAI"}) {
        GuardarAEC(*ctx, u"OP1"_s, u"R"_s);
        CierreDelRegimen(nuevaCorrida(QString::fromLatin1(regimen)));
        EXPECT_EQ(aec(), "N") << regimen;
    }
    for (const char *regimen : {"IC01", "ICR1", "IG01", "IG04"}) {
        GuardarAEC(*ctx, u"OP1"_s, u"R"_s);
        CierreDelRegimen(nuevaCorrida(QString::fromLatin1(regimen)));
        EXPECT_EQ(aec(), "R") << regimen;
    }
}

TEST_P(Ventajas, StampsOfAReimportCountThePiecesOfTheItem) {
    posicion("7318.15.00", "''", "' * '", "''");
    posicion("8409.91.12", "''", "''", "''");
    item(0, {{"ncm", "NULL"}});
    item(1, {{"cantidad", "12"}});
    item(2, {{"cantidad", "5"}, {"idunidad", "'01'"}});
    item(3, {{"cantidad", "7"}, {"ncm", "'8409.91.12.100A'"}});
    CierreDelRegimen(nuevaCorrida(u"ICR1"_s));
    EXPECT_EQ(f("select iditem,idinfo,valor from iteminfo where interno = 'OP1'"), "1|CANT.ESTAMPILLAS|12")
        << "in pieces (07) and of the stamped position only";
    CierreDelRegimen(nuevaCorrida(u"IC01"_s));
    CierreDelRegimen(nuevaCorrida(u"IG04"_s));
    EXPECT_EQ(f("select count(*) as n from iteminfo where interno = 'OP1'"), "1") << "no other regime stamps";
}

TEST_P(Ventajas, AReimportAsksForTheAutomotiveUseAtEachPositionWhileTheSharedAnswerIsNotEmpty) {
    posicion("7318.15.00", "'*'", "''", "''");
    posicion("8409.91.12", "'*'", "''", "''");
    posicion("8409.99.99", "''", "''", "''");
    item(1);
    item(2, {{"ncm", "'8409.91.12.100A'"}});
    item(3, {{"ncm", "'8409.99.99.100A'"}});
    ctx->CalculoAEC.clear();
    CierreDelRegimen(nuevaCorrida(u"ICR1"_s));
    EXPECT_TRUE(registro.conOpciones.empty()) << "an empty shared answer";
    ctx->CalculoAEC = u"N"_s;
    registro.opciones = {{true, 0}, {true, 1}};
    CierreDelRegimen(nuevaCorrida(u"ICR1"_s));
    EXPECT_EQ(registro.conOpciones.size(), 2U);
    EXPECT_EQ(aec(), "R");
    EXPECT_EQ(ctx->CalculoAEC.toStdString(), "R") << "the stored answer becomes the shared one";
}

TEST_P(Ventajas, PartsOfVehiclesAreAskedOnceInTheRun) {
    posicion("7318.15.00", "'* '", "''", "' *'");
    posicion("8409.91.12", "'*'", "''", "'*'");
    posicion("8409.99.99", "'*'", "''", "''");
    item(0, {{"ncm", "NULL"}});
    item(1);
    item(2, {{"ncm", "'8409.91.12.100A'"}});
    item(3, {{"ncm", "'8409.99.99.100A'"}});
    struct Caso {
        const char *regimen;
        bool respuesta;
        std::size_t preguntas;
        const char *ventajas;
    };
    for (const Caso &c :
         {Caso{"IG04", true, 1, "VEHICULOPARTES|1|1\nVEHICULOPARTES|2|1"}, Caso{"IG05", false, 1, ""},
          Caso{"IG06", true, 1, "VEHICULOPARTES|1|1\nVEHICULOPARTES|2|1"}, Caso{"IG07", true, 0, ""},
          Caso{"ICR1", true, 0, ""}}) {
        registro = {};
        registro.respuestas = {c.respuesta};
        ctx->CalculoAEC.clear();
        ejecutar(u"delete from itemventaja where interno = 'OP1'"_s);
        CierreDelRegimen(nuevaCorrida(QString::fromLatin1(c.regimen)));
        ASSERT_EQ(registro.preguntas.size(), c.preguntas) << c.regimen;
        if (c.preguntas > 0) {
            EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
                      "Hay Artículos con LAPI y Pertenecientes al Régimen automotriz\r\n"
                      "Desea agregarle la ventaja << VEHICULOPARTES >>\r\n\r\n"
                      "(Repuestos en IG04, IG05, IG06)");
        }
        EXPECT_EQ(todas(), c.ventajas) << c.regimen;
    }
}

TEST_P(Ventajas, AnItemInheritsTheAdvantagesOfEveryArticleFoldedIntoIt) {
    const char *const articulos[] = {"A1", "A2", "A3", "A4"};
    QStringList ids;
    for (const char *articulo : articulos) {
        renglon({{"idcatalogo", "'C'"}, {"idarticulo", u"'%1'"_s.arg(QLatin1String(articulo))}});
        ids << valor(u"select max(id) as id from subitems where interno = 'OP1'"_s);
    }
    const auto ventaja = [this](const char *catalogo, const char *articulo, const char *cual) {
        insertar(u"articulo_ventaja"_s,
                 {{"idcatalogo", QString::fromLatin1(catalogo)},
                  {"idarticulo", QString::fromLatin1(articulo)},
                  {"ventaja", QString::fromLatin1(cual)}},
                 u"CATALOGOS"_s);
    };
    ventaja("'C'", "'A1'", "'V1'");
    ventaja("'C'", "'A2'", "'V2'");
    ventaja("'C'", "'A2'", "'V1'");
    ventaja("'C'", "'A3'", "'V3'");
    ventaja("'OTRO'", "'A1'", "'X'");
    // Line 1 is the root of item 1 with line 2 folded into it; line 3 is item 2 by itself; line 4 has no
    // group.
    linea = ids[0].toInt() - 1;
    grupo({{"id", "1"}});
    grupo({{"id", "2"}, {"idsub", ids[2]}});
    insertar(u"idrel"_s, {{"interno", "'OP1'"}, {"idroot", ids[0]}, {"idsub", ids[1]}});
    for (const int id : {0, 1, 2}) item(id);
    const QStringList s = sentenciasDe([this] { ProcesarVentajasVinculadas(*corrida); });
    EXPECT_EQ(todas(), "V1|1|1\nV2|1|1\nV3|2|1") << "each advantage once";
    EXPECT_EQ(s.value(2).toStdString(),
              " insert into itemventaja (iditem, idventaja, interno) "
              " select distinct 1, ventaja, 'OP1' "
              "from articulo_ventaja as v "
              "where exists( "
              "     select ventaja from subitems as a "
              "     where interno = 'OP1' and  id in ( "
              "         select idsub from groupsubitems where interno = 'OP1' and [id]= 1"
              "         Union "
              "         select idsub from idrel where interno = 'OP1' and idroot in ("
              "select idsub from groupsubitems where interno = 'OP1' and [id]= 1"
              ")     ) "
              "     and a.idcatalogo = v.idcatalogo "
              "     and a.idarticulo = v.idarticulo "
              " ) ");
}

EN_AMBOS_STORES(Ventajas);

}  // namespace
