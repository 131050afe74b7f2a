// The inputs link on every road that asks it.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "header/automotive.h"
#include "operations/lifecycle.h"
#include "tests/lines/lineas.h"
#include "tests/support/insumos.h"

using namespace Qt::StringLiterals;

namespace {

class Insumos : public Lineas {
 protected:
    void SetUp() override {
        Lineas::SetUp();
        libreria.emplace();
        abrirCon("EC02");
        libreria->eleccion =
            insumos::Eleccion{"INS01", "P-1", "Bomba", posBomba, "07", "10,5", "203", "AA01-AB(X 1)-"};
    }

    /// A line taken from the link, ready to be saved: 24 pumps at 10.5.
    void elegirLinea() {
        ASSERT_TRUE(SelectINSUMOS(*ctx, s));
        s.campos.TxtCantidad = "24";
        s.campos.TxtValorsobreestadistica = "24";
        CalcularFob(*ctx, s);
        s.campos.TxtFobTotal = "252.00";
    }

    void TearDown() override {
        libreria.reset();
        Lineas::TearDown();
    }
    std::optional<LibreriaDeInsumos> libreria;
};

TEST_P(Insumos, TheFieldsTakeWhatWasChosen) {
    ASSERT_TRUE(SelectINSUMOS(*ctx, s));
    EXPECT_EQ(libreria->pedidos("ConectarDB"), "OP 1");
    const CamposSubItem &c = s.campos;
    EXPECT_EQ(c.TxtIdCatalogo.toStdString(), "INS01");
    EXPECT_EQ(c.txtIdArticulo.toStdString(), "P-1");
    EXPECT_EQ(c.TxtDescArticulos.toStdString(), "Bomba");
    EXPECT_EQ(c.TxtUnitario.toStdString(), "10.5");
    EXPECT_EQ(c.LbCodigoEstadistica.toStdString(), "07") << "ENTER ran on the position";
    EXPECT_EQ(c.LbDescUnidad.toStdString(), "UNIDAD") << "and on the unit";
    EXPECT_EQ(c.TxtIdpais.toStdString(), "203");
    EXPECT_EQ(c.txtSufijos.toStdString(), "AA01-AB(X 1)-");
    EXPECT_TRUE(s.articuloFijo);
    EXPECT_TRUE(s.VincularDatos);
}

TEST_P(Insumos, ARegimeThatStandsInSmallLettersIsTheOneInCapitals) {
    abrirCon("ec02");
    EXPECT_EQ(s.idsubreg.toStdString(), "EC02");
    elegirLinea();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("cancelaciones"), "OK");
}

TEST_P(Insumos, AnArticleWithAnApostropheIsAskedForLikeAnyOther) {
    libreria->eleccion->PRDNRO = "P'1";
    elegirLinea();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("idarticulo,cancelaciones"), "P'1|OK");
}

TEST_P(Insumos, AnotherRegimeADeadLinkOrALeftListTakeNothing) {
    libreria->conectada = false;
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    libreria->conectada = true;
    libreria->eleccion.reset();
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    abrirCon("IC04");
    libreria->eleccion = insumos::Eleccion{};
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    EXPECT_EQ(s.campos.txtIdArticulo.toStdString(), "");
    EXPECT_FALSE(s.VincularDatos);
}

TEST_P(Insumos, AnAcceptedLineTakesItsValueAndItsMark) {
    elegirLinea();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("idcatalogo,idarticulo,insumostemp,cancelaciones"), "INS01|P-1|12.75|OK");
    EXPECT_EQ(libreria->pedidos("AgregarInsumo"),
              u"OP 1|INS01|P-1|%1|24.00"_s.arg(grabacion.id).toStdString());
}

// On an inputs regime, an insert that the link refuses leaves no row, and the user sees no separate message.
TEST_P(Insumos, ARefusedLineLeavesNoRowAndNoMessage) {
    elegirLinea();
    libreria->acepta = false;
    EXPECT_FALSE(grabar());
    EXPECT_TRUE(grabacion.rechazada);
    EXPECT_EQ(cuantas(), 0);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(s.lbDIF.toStdString(), "1000.00");
}

TEST_P(Insumos, ARefusalTakesOnlyTheNewLineOfTheArticle) {
    elegirLinea();
    ASSERT_TRUE(grabar());
    const qint64 primera = grabacion.id;
    elegirLinea();
    libreria->acepta = false;
    EXPECT_FALSE(grabar());
    EXPECT_EQ(linea("id"), std::to_string(primera));
}

TEST_P(Insumos, AFlaggedLineIsStoredWithItsMark) {
    libreria->eleccion->ERR = true;
    abrirCon("IC04");  // no inputs are taken here, so the mark stays as inserted
    s.marcaERR = true;
    llenarBomba();
    ASSERT_TRUE(grabar());
    EXPECT_EQ(linea("cancelaciones"), "ERR");
    EXPECT_EQ(libreria->pedidos("AgregarInsumo"), "");
}

TEST_P(Insumos, TheFlagOfTheChosenRowIsTaken) {
    libreria->eleccion->ERR = true;
    ASSERT_TRUE(SelectINSUMOS(*ctx, s));
    EXPECT_TRUE(s.marcaERR);
}

TEST_P(Insumos, WithoutTheLibraryALineIsPlain) {
    libreria.reset();
    abrirCon("EC02");
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    llenarBomba();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("cancelaciones,insumostemp"), "|0");
}

TEST_P(Insumos, DeletingGivesTheInputsBack) {
    elegirLinea();
    ASSERT_TRUE(grabar());
    const qint64 id = grabacion.id;
    libreria->acepta = false;
    registro.respuestas = {true, true};
    EXPECT_FALSE(EliminarSubItem(*ctx, s, id));
    EXPECT_EQ(ultimoMensaje(), "Error en eliminar la relacion con insumos");
    EXPECT_EQ(cuantas(), 1);
    libreria->acepta = true;
    EXPECT_TRUE(EliminarSubItem(*ctx, s, id));
    EXPECT_EQ(cuantas(), 0);
    EXPECT_TRUE(libreria->llamadas.back() == u"EliminarInsumo OP 1|INS01|P-1|%1"_s.arg(id));
}

TEST_P(Insumos, ALineOfTheLinkIsChangedThoughItsCatalogueIsNotInTheBase) {
    elegirLinea();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    const qint64 id = grabacion.id;
    ASSERT_TRUE(BuscarSubItem(*ctx, s, id));
    s.campos.TxtUnitario = "11";
    s.campos.TxtFobTotal = "264";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("preciounitario,insumostemp,cancelaciones", id), "11|12.75|OK");
}

TEST_P(Insumos, TheNoOfTheLinkStopsTheDeletionOfManyAndKeepsWhatIsDone) {
    std::vector<qint64> ids;
    for (int n = 0; n < 3; ++n) {
        elegirLinea();
        ASSERT_TRUE(grabar()) << ultimoMensaje();
        ids.push_back(grabacion.id);
    }
    ejecutar("update caratula set factura8 = 'N'");
    GuardarAEC(*ctx, interno, "P");
    libreria->retenidas = {ids[1]};
    registro = Registro();
    registro.respuestas = {true};
    EXPECT_EQ(lpEliminar(*ctx, s, ids), 1);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimoMensaje(), "Error en eliminar la relacion con insumos");
    EXPECT_EQ(linea("id"), u"%1\n%2"_s.arg(ids[1]).arg(ids[2]).toStdString())
        << "the third was not asked for";
    EXPECT_EQ(libreria->pedidos("EliminarInsumo"),
              u"OP 1|INS01|P-1|%1;OP 1|INS01|P-1|%2"_s.arg(ids[0]).arg(ids[1]).toStdString());
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "S");
    EXPECT_EQ(LeerAEC(*ctx, interno).toStdString(), "");
    // 24 pumps at 10.5 in each of the two that stay.
    EXPECT_EQ(s.LbTotSubitems.toStdString(), "504.00");
}

TEST_P(Insumos, ADeletionThatTookNothingAsksForNoNewAssembly) {
    elegirLinea();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    ejecutar("update caratula set factura8 = 'N'");
    libreria->acepta = false;
    registro.respuestas = {true};
    EXPECT_EQ(lpEliminar(*ctx, s, {grabacion.id}), 0);
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "N");
}

// One library, plugged in at one place, hears the line, the run and the removal of the operation.
TEST_P(Insumos, OneLinkHearsTheLinesTheRunAndTheDeletionOfTheOperation) {
    ejecutar("insert into sta (id,cstaimpexp) values ('EC02','E')", "SYSTABLAS");
    std::vector<qint64> ids;
    for (int n = 0; n < 2; ++n) {
        elegirLinea();
        ASSERT_TRUE(grabar()) << ultimoMensaje();
        ids.push_back(grabacion.id);
    }
    libreria->llamadas.clear();
    ctx->ChequeoArmado = "SI";
    ASSERT_TRUE(Generar(*ctx, interno, {})) << ultimoMensaje();
    EXPECT_EQ(ctx->ChequeoArmado.toStdString(), "SI");
    // Equal lines are one group, rooted in the first; its item is the only one.
    EXPECT_EQ(libreria->llamadas.join(';').toStdString(),
              u"EnviarGrupoIdSub OP 1 %1 %2;EnviarNroItem 1 %1"_s.arg(ids[0]).arg(ids[1]).toStdString());
    libreria->llamadas.clear();
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, interno)) << ultimoMensaje();
    EXPECT_EQ(libreria->llamadas.join(';').toStdString(),
              u"EliminarInsumo OP 1|INS01|P-1|%1;EliminarInsumo OP 1|INS01|P-1|%2"_s.arg(ids[0])
                  .arg(ids[1])
                  .toStdString());
    EXPECT_EQ(cuantas(), 0);
}

TEST_P(Insumos, ALibraryThatFailsToMakeALinkIsAsGoodAsAbsent) {
    elegirLinea();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    insumos::crearEnlace = []() -> insumos::Enlace { throw Falla{429, "insumos", "no responde", {}}; };
    abrirCon("EC02");
    EXPECT_FALSE(s.enlace);
    ctx->ChequeoArmado = "SI";
    EXPECT_TRUE(Generar(*ctx, interno, {})) << ultimoMensaje();
    EXPECT_EQ(valor("select count(*) from item where interno = 'OP 1' and id <> 0").toStdString(), "1");
    EXPECT_FALSE(EliminarSinPreguntar(*ctx, interno));
    EXPECT_EQ(cuantas(), 1) << "no row goes before the inputs are given back";
}

EN_AMBOS_STORES(Insumos);

}  // namespace
