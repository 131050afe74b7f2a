// Picking a position by its beginning.

#include "subitems/positions.h"

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::ncm;

class Posiciones : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into ncm ([001],[002],[003],[004],[010],[012],[019],[020],[044],[052],[059]) values "
            "('8409.91.12','100','G','Partes','Bielas','07','1.25','01','*','*',' * '),"
            "('8409.91.12','900','A','Partes','Las demás','07','0','','','',''),"
            "('8471.30.12','000','B','Máquinas','Portátiles','07','','',null,null,null),"
            "('8484.09.10','000','K','Juntas','Metálicas','01','0','','','','')"_s,
            ncm);
        ejecutar(
            u"insert into sufidos (sim,sufijo,detalle) values "
            "('84  .  .  .   ','AA01','Con marca'),"
            "('8409.91.12.100','HA01','De aluminio'),"
            "('85  .  .  .   ','AA01','Otro capítulo')"_s,
            ncm);
    }
    std::string buscar(const char *texto, OrigenDeBusqueda origen = OrigenDeBusqueda::Pantalla) {
        return TextosDePosiciones(BuscarPosiciones(*ctx, QString::fromUtf8(texto), origen))
            .join(u'|')
            .toStdString();
    }
};

TEST_P(Posiciones, AreFoundByTheirBeginningInTheOrderOfTheirKeys) {
    const Traza traza;
    EXPECT_EQ(buscar(" 8409 "), "8409.91.12.100G|8409.91.12.900A");
    EXPECT_EQ(
        traza.texto(),
        "NCM|select [001]+ '.' +[002] + [003] as ncm,[012] as estadistica,[020] as deresp from ncm where "
        "[001] like '8409%' order by [001],[002],[003]");
    const auto filas = BuscarPosiciones(*ctx, u"8409"_s);
    EXPECT_EQ(filas[0].estadistica.toStdString(), "07");
    EXPECT_EQ(filas[0].deresp.toStdString(), "01");
}

TEST_P(Posiciones, ADotMatchesByPrefixWithAWildcardInTheMiddle) {
    const Traza traza;
    // 84, anything, 09: heading 8409 and also 8484.09.
    EXPECT_EQ(buscar("84.09"), "8409.91.12.100G|8409.91.12.900A|8484.09.10.000K");
    EXPECT_NE(traza.texto().find("like '84%09%'"), std::string::npos);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Posiciones, NothingFoundIsToldWithTheWordsOfWhoAsks) {
    EXPECT_EQ(buscar("99"), "");
    EXPECT_EQ(buscar("99", OrigenDeBusqueda::BuscarNCM), "");
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Posición no encontrada.");
    EXPECT_EQ(registro.mensajes[1].texto.toStdString(), "Posición no Encontrada.");
}

TEST_P(Posiciones, ABlankTextSendsNothing) {
    const Traza traza;
    EXPECT_EQ(buscar("  "), "");
    EXPECT_EQ(traza.texto(), "");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Posiciones, AQuoteInTheTextIsNoFailure) {
    EXPECT_EQ(buscar("84'"), "");
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(Posiciones, TheDataBesideTheListFillTheSharedUnitsAndFlags) {
    SeleccionarPosicion(*ctx, u"old"_s);
    const DatosDePosicion datos = MostrarDatos(*ctx, u"8409.91.12.100G"_s);
    EXPECT_TRUE(datos.encontrada);
    EXPECT_EQ(datos.descripcion.toStdString(), "Bielas\r\nPartes");
    ASSERT_EQ(datos.sufijos.size(), 2U);
    EXPECT_EQ(datos.sufijos[0].sufijo.toStdString(), "AA01");
    EXPECT_EQ(datos.sufijos[1].detalle.toStdString(), "De aluminio");
    EXPECT_EQ(ctx->posicion.estadistica.toStdString(), "07");
    EXPECT_EQ(ctx->posicion.deresp.toStdString(), "01");
    EXPECT_TRUE(ctx->posicion.lapi);
    EXPECT_TRUE(ctx->posicion.reintegro);
    EXPECT_TRUE(ctx->posicion.seguridad);
    EXPECT_TRUE(ctx->posicion.prohibicion);
    // Looking is not choosing.
    EXPECT_EQ(ctx->posicion.posicion.toStdString(), "old");

    MostrarDatos(*ctx, u"8471.30.12.000B"_s);
    EXPECT_TRUE(ctx->posicion.deresp.isEmpty());
    EXPECT_FALSE(ctx->posicion.lapi || ctx->posicion.reintegro || ctx->posicion.seguridad ||
                 ctx->posicion.prohibicion);
}

TEST_P(Posiciones, APositionThatIsNotThereEmptiesTheData) {
    MostrarDatos(*ctx, u"8409.91.12.100G"_s);
    const DatosDePosicion datos = MostrarDatos(*ctx, u"8409.91.12.100X"_s);
    EXPECT_FALSE(datos.encontrada);
    EXPECT_TRUE(datos.descripcion.isEmpty());
    EXPECT_TRUE(datos.sufijos.empty());
    EXPECT_FALSE(ctx->posicion.lapi);
    EXPECT_TRUE(ctx->posicion.estadistica.isEmpty());
}

TEST_P(Posiciones, EnterChoosesAndEscLeavesTheChoiceEmpty) {
    SeleccionarPosicion(*ctx, u"8409.91.12.100G"_s);
    EXPECT_EQ(ctx->posicion.posicion.toStdString(), "8409.91.12.100G");
    DejarPosicion(*ctx);
    EXPECT_TRUE(ctx->posicion.posicion.isEmpty());
}

EN_AMBOS_STORES(Posiciones);

TEST(CortesDeLaPosicion, TheSameCutsAtEveryLength) {
    struct Caso {
        const char *posicion, *c001, *c002, *c003;
    };
    const Caso casos[] = {{"8409.91.12.100G", "8409.91.12", "100", "G"},
                          {"8409.91.12.100", "8409.91.12", "100", ""},
                          {"8409.91.12", "8409.91.12", "", ""},
                          {"8409.91", "8409.91", "", ""},
                          {"", "", "", ""}};
    for (const Caso &c : casos) {
        const ClavesNcm claves = CortarPosicion(QString::fromUtf8(c.posicion));
        EXPECT_EQ(claves.c001.toStdString(), c.c001) << c.posicion;
        EXPECT_EQ(claves.c002.toStdString(), c.c002) << c.posicion;
        EXPECT_EQ(claves.c003.toStdString(), c.c003) << c.posicion;
    }
}

}  // namespace
