// Changing and deleting lines.

#include <gtest/gtest.h>

#include "header/automotive.h"
#include "tests/lines/lineas.h"

using namespace Qt::StringLiterals;

namespace {

class Cambios : public Lineas {
 protected:
    qint64 nuevaBomba() {
        llenarBomba();
        EXPECT_TRUE(grabar()) << ultimoMensaje();
        registro = Registro();
        return grabacion.id;
    }
    void abrirLinea(qint64 id) { ASSERT_TRUE(BuscarSubItem(*ctx, s, id)); }
};

TEST_P(Cambios, ALineComesBackAsItWasKeyed) {
    s.eanHabilitado = true;
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-9";
    s.campos.TxtUnitario = "10.123456";
    s.campos.TxtFobTotal = "242.96";
    s.campos.TxtIdpais = "203";
    s.campos.TxtIdEstadoMercaderia = "2";
    s.campos.TxtCodigoEAN = "779";
    s.campos.cboBiendeUso = "S";
    ASSERT_TRUE(grabar());
    abrirLinea(grabacion.id);
    const CamposSubItem &c = s.campos;
    EXPECT_EQ(s.modo, 2);
    EXPECT_EQ(c.TxtCantidad.toStdString(), "24.00");
    EXPECT_EQ(c.TxtUnitario.toStdString(), "10.123456") << "nothing of a price is lost by showing it";
    EXPECT_EQ(c.TxtFobTotal.toStdString(), "242.96");
    EXPECT_EQ(c.LbCodigoEstadistica.toStdString(), "07");
    EXPECT_EQ(c.LbDescUnidad.toStdString(), "UNIDAD");
    EXPECT_EQ(c.LbDescPais.toStdString(), "BRASIL");
    EXPECT_EQ(c.LbDescEstado.toStdString(), "Nueva");
    EXPECT_EQ(c.cboBiendeUso.toStdString(), "S");
    EXPECT_TRUE(c.LbLapi);
    EXPECT_EQ(c.TxtCodigoEAN.toStdString(), "779");
    EXPECT_TRUE(s.articuloFijo) << "a change writes no column of the article";
}

TEST_P(Cambios, AChangeOfALineKeepsItsOwnCodesOfMeat) {
    const qint64 id = nuevaBomba();
    EXPECT_EQ(linea("onccacategoria,onccacortes", id), "|") << "empty at entry";
    ejecutar(u"update subitems set onccacategoria = 'VA', onccacortes = '101' where id = %1"_s.arg(id));
    abrirLinea(id);
    s.campos.TxtIdpais = "212";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("idpais,onccacategoria,onccacortes", id), "212|VA|101");
}

TEST_P(Cambios, ALineOfAnotherOperationIsNotFound) {
    const qint64 id = nuevaBomba();
    s.interno = "OTRA";
    EXPECT_FALSE(BuscarSubItem(*ctx, s, id));
    EXPECT_EQ(s.modo, 1);
}

TEST_P(Cambios, AChangeRewritesTheLineAndGoesBackToANewOne) {
    const qint64 otro = nuevaBomba();
    const qint64 id = nuevaBomba();
    abrirLinea(id);
    s.campos.TxtCantidad = "30";
    s.campos.TxtValorsobreestadistica = "30";
    s.campos.TxtUnitario = "11";
    s.campos.TxtFobTotal = "330";
    s.campos.TxtIdpais = "212";
    s.campos.TxtCanelaciones = "X";
    s.campos.txtNroItem = "7";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("cantidad,preciounitario,fob,idpais,cancelaciones,cancnroitem", id), "30|11|330|212|X|7");
    EXPECT_EQ(linea("cantidad,preciounitario,fob", otro), "24|10.5|252") << "no other line changes";
    EXPECT_EQ(cuantas(), 2);
    EXPECT_EQ(s.modo, 1);
    EXPECT_EQ(s.id, 0);
    // 1000 - 252 - 330
    EXPECT_EQ(s.lbDIF.toStdString(), "418.00");
}

TEST_P(Cambios, AChangeWritesNoColumnOfTheArticle) {
    const qint64 id = nuevaBomba();
    abrirLinea(id);
    s.campos.txtIdArticulo = "OTRO";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("idarticulo", id), "");
}

TEST_P(Cambios, TheRefundValueOfTheLineIsKept) {
    const qint64 id = nuevaBomba();
    ejecutar(u"update subitems set sbtrei = 2.5 where id = %1"_s.arg(id));
    abrirLinea(id);
    ASSERT_TRUE(grabar());
    EXPECT_EQ(linea("sbtrei", id), "2.5");
}

TEST_P(Cambios, AnInputsLineKeepsItsInputColumns) {
    llenarBomba();
    s.campos.TxtIdCatalogo = "INS01";
    s.campos.txtIdArticulo = "B-1";
    s.VincularDatos = true;
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    const qint64 id = grabacion.id;
    ejecutar(
        u"update subitems set insumostemp = 12.5, insumosacons = 3, cancelaciones = 'OK' where "
        "id = %1"_s.arg(id));
    abrirLinea(id);
    s.campos.TxtInsumosTemp = "99";
    s.campos.TxtInsumCons = "99";
    s.campos.TxtCanelaciones = "";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("idcatalogo,idarticulo,insumostemp,insumosacons,cancelaciones", id),
              "INS01|B-1|12.5|3|OK");
}

TEST_P(Cambios, MarksTheOperationBeforeAnyCheck) {
    const qint64 id = nuevaBomba();
    ejecutar("update caratula set factura8 = 'N'");
    GuardarAEC(*ctx, interno, "P");
    abrirLinea(id);
    s.campos.TxtCantidad = "0";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "S");
    EXPECT_EQ(LeerAEC(*ctx, interno).toStdString(), "");
}

TEST_P(Cambios, ItsOwnWordsOfTheChecks) {
    struct Caso {
        QString CamposSubItem::*campo;
        const char *valor;
        const char *texto;
        const char *foco;
    };
    const Caso casos[] = {
        {&CamposSubItem::TxtPosicion, "1111.11.11.111A", "No se encontro la posición 1111.11.11.111A",
         "TxtPosicion"},
        {&CamposSubItem::TxtPosicion, "9999.00.00.000Z", "Error: no hay unidad estadistica", "TxtPosicion"},
        {&CamposSubItem::TxtUnitario, "diez", "Debe ingresar un valor numeric en el campo VALOR UNITARIO",
         "TxtUnitario"},
        {&CamposSubItem::TxtFobTotal, "diez", "Debe ingresar un valor numeric en el campo FOB TOTAL",
         "TxtFobTotal"},
    };
    s.opcionesDeFob = false;
    const qint64 id = nuevaBomba();
    for (const Caso &caso : casos) {
        SCOPED_TRACE(caso.texto);
        abrirLinea(id);
        s.campos.*caso.campo = caso.valor;
        EXPECT_FALSE(grabar());
        EXPECT_EQ(ultimoMensaje(), caso.texto);
        EXPECT_EQ(grabacion.foco.toStdString(), caso.foco);
        EXPECT_EQ(s.modo, 2) << "the line stays in hand";
    }
    EXPECT_EQ(linea("preciounitario", id), "10.5");
}

TEST_P(Cambios, TheSpecificQuantityMustBeANumber) {
    s.campos.TxtPosicion = posVino;
    ASSERT_TRUE(BuscarNCM(*ctx, s).ok);
    CamposSubItem &c = s.campos;
    c.TxtUnidad = "07";
    c.TxtCantidad = "2";
    c.TxtValorsobreestadistica = "9";
    c.TxtUnitario = "1";
    c.TxtFobTotal = "2";
    c.txtSufijos = "BA01-";
    c.TxtDerEsp = "cinco";
    ASSERT_TRUE(grabar()) << "a new line does not look: " << ultimoMensaje();
    EXPECT_EQ(linea("valorderesp"), "0");
    abrirLinea(grabacion.id);
    s.campos.TxtDerEsp = "cinco";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "El valor de el campo Derecho Especifico debe ser númerico");
    EXPECT_EQ(grabacion.foco.toStdString(), "TxtDerEsp");
}

// A suffix "SIN SUFIJOS" passes a change.
TEST_P(Cambios, ALineWithoutSuffixesPasses) {
    llenarPlastico();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    abrirLinea(grabacion.id);
    EXPECT_EQ(s.campos.txtSufijos.toStdString(), "SIN SUFIJOS");
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("sufijos"), "SIN SUFIJOS");
}

TEST_P(Cambios, UnfinishedSuffixesAreRefused) {
    const qint64 id = nuevaBomba();
    abrirLinea(id);
    s.campos.txtSufijos = "AA01-";
    registro.respuestas = {true};  // the empty answer cancels
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "Para Grabar es necesario completar los sufijos");
    EXPECT_EQ(grabacion.foco.toStdString(), "txtSufijos");
    EXPECT_EQ(linea("sufijos", id), "AA01-AB(X 1)-");
}

TEST_P(Cambios, AValidTextIsClosedAndAsksNothing) {
    const qint64 id = nuevaBomba();
    abrirLinea(id);
    s.campos.txtSufijos = "AA02-AB(Y)";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("sufijos", id), "AA02-AB(Y)-");
    EXPECT_TRUE(registro.entradas.empty());
}

TEST_P(Cambios, ALineThatWentAwayIsTold) {
    const qint64 id = nuevaBomba();
    abrirLinea(id);
    ejecutar("delete from subitems");
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(),
              "El subitem ya no está en la operación: cierre la pantalla y vuelva a abrirla.");
}

// Deletion

TEST_P(Cambios, DeletingOneAsksAndRefreshes) {
    const qint64 id = nuevaBomba();
    ejecutar("update caratula set factura8 = 'N'");
    EXPECT_FALSE(EliminarSubItem(*ctx, s, id)) << "the answer is No";
    EXPECT_EQ(cuantas(), 1);
    EXPECT_EQ(registro.preguntas.back().texto.toStdString(), "Confirma eliminar SUBITEM seleccinado.");
    registro.respuestas = {true};
    EXPECT_TRUE(EliminarSubItem(*ctx, s, id));
    EXPECT_EQ(cuantas(), 0);
    EXPECT_EQ(s.lbDIF.toStdString(), "1000.00");
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "S");
}

TEST_P(Cambios, DeletingManyAsksOnce) {
    const qint64 a = nuevaBomba();
    const qint64 b = nuevaBomba();
    const qint64 c = nuevaBomba();
    GuardarAEC(*ctx, interno, "N");
    EXPECT_EQ(lpEliminar(*ctx, s, {a, c}), 0);
    EXPECT_EQ(registro.preguntas.back().texto.toStdString(),
              "Confirma eliminar el o los subitems seleccionado");
    registro = Registro();
    registro.respuestas = {true};
    EXPECT_EQ(lpEliminar(*ctx, s, {a, c}), 2);
    EXPECT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(linea("id"), std::to_string(b));
    EXPECT_EQ(s.LbTotSubitems.toStdString(), "252.00");
    EXPECT_EQ(LeerAEC(*ctx, interno).toStdString(), "");
    EXPECT_EQ(lpEliminar(*ctx, s, {}), 0) << "nothing checked, nothing asked";
    EXPECT_EQ(registro.preguntas.size(), 1U);
}

TEST_P(Cambios, ADeletedLineIsNoLongerInHand) {
    const qint64 id = nuevaBomba();
    abrirLinea(id);
    registro.respuestas = {true};
    ASSERT_TRUE(EliminarSubItem(*ctx, s, id));
    EXPECT_EQ(s.modo, 1);
    EXPECT_EQ(s.campos.TxtPosicion.toStdString(), "");
}

TEST_P(Cambios, ALineWithInputsIsNotDeletedWithoutTheLink) {
    const qint64 a = nuevaBomba();
    const qint64 b = nuevaBomba();
    ejecutar(u"update subitems set cancelaciones = 'OK' where id = %1"_s.arg(a));
    registro.respuestas = {true};
    EXPECT_EQ(lpEliminar(*ctx, s, {a, b}), 0);
    EXPECT_EQ(ultimoMensaje(), "Error en eliminar la relacion con insumos");
    EXPECT_EQ(cuantas(), 2);
}

TEST_P(Cambios, ALineThatIsGoneAlreadyStopsNoDeletion) {
    const qint64 a = nuevaBomba();
    const qint64 b = nuevaBomba();
    ejecutar(u"delete from subitems where id = %1"_s.arg(a));
    registro.respuestas = {true};
    EXPECT_EQ(lpEliminar(*ctx, s, {a, b}), 1);
    EXPECT_EQ(cuantas(), 0);
    EXPECT_TRUE(registro.mensajes.empty());
}

EN_AMBOS_STORES(Cambios);

}  // namespace
