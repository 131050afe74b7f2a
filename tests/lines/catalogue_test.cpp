// The catalogue follows the lines.

#include <gtest/gtest.h>

#include "subitems/ArticleStore.h"
#include "tests/lines/lineas.h"

using namespace Qt::StringLiterals;

namespace {

class Catalogo : public Lineas {
 protected:
    std::string articulo(const QString &columnas, const QString &cual = "B-1") {
        return filas(u"select %1 from catarticulos where idcatalogo = 'CAT' and idarticulo = '%2'"_s.arg(
                         columnas, cual),
                     "CATALOGOS")
            .toStdString();
    }
    /// The pump of the catalogue, its code typed over a line that was keyed by hand.
    void llenarConCodigo(const QString &cual = "B-1") {
        llenarBomba();
        s.campos.TxtIdCatalogo = "CAT";
        s.campos.txtIdArticulo = cual;
    }
};

TEST_P(Catalogo, TheCatalogueDoesNotFollowWithoutAnOption) {
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "NUEVO";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(articulo("idarticulo", "NUEVO"), "");
}

TEST_P(Catalogo, ANewArticleIsAddedAndAnExistingOneStays) {
    ctx->opciones.MODIFCAT = 2;
    ctx->PcName = "PC 7";
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "NUEVO";
    s.campos.TxtDescArticulos = "Bomba nueva";
    s.campos.TxtFiller = "F2";
    s.campos.TxtIdpais = "203";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(articulo("descripcion,ncm,idunidad,idpais,itfiller,sufijos,biendeuso,usuario", "NUEVO"),
              "Bomba nueva|8413.70.10.100L|07|203|F2|AA01-AB(X 1)-|N|PC 7");
    EXPECT_EQ(articulo("preciounitario,kgneto", "NUEVO"), "<null>|<null>");
    EXPECT_NE(articulo("fecha", "NUEVO"), "<null>");

    llenarBomba();
    s.campos.txtIdArticulo = "B-1";
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.TxtDescArticulos = "Otra cosa";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(articulo("descripcion,usuario"), "Bomba chica|OTRA PC");
    EXPECT_TRUE(registro.mensajes.empty()) << "nothing is said of an article that stays";
}

TEST_P(Catalogo, AnArticleIsReplacedWithTheOtherOptionAndKeepsItsPrice) {
    ctx->opciones.MODARTSUB = "S";
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    s.campos.TxtDescArticulos = "Otra cosa";
    s.campos.TxtUnitario = "99";
    s.campos.TxtFobTotal = "2376";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(articulo("descripcion,preciounitario,kgneto,cantidad"), "Otra cosa|10.5|9.8|1");
}

TEST_P(Catalogo, PriceAndUnitWeightGoAlongOnlyWithTheirOption) {
    ctx->opciones.MODARTSUB = "S";
    ctx->opciones.VALORCAT = 2;
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    s.campos.TxtUnitario = "99.5";
    s.campos.txtKgUnitario = "7,25";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(articulo("preciounitario,kgneto"), "99.5|7.25");
}

TEST_P(Catalogo, ALineOfInputsAndABlockThatIsOffLeaveTheCatalogueAlone) {
    ctx->opciones.MODARTSUB = "S";
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "INS-1";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(articulo("idarticulo", "INS-1"), "");
    s.ofrece[static_cast<std::size_t>(BloqueDeLinea::Catalogos)] = false;
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "OTRO";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(articulo("idarticulo", "OTRO"), "");
}

TEST_P(Catalogo, TheArticleStoreToleratesApostrophes) {
    ArticleStore::Articulo a;
    a.idcatalogo = "CAT";
    a.idarticulo = "O'HIGGINS";
    a.descripcion = "Llave d'agua";
    EXPECT_TRUE(ArticleStore::Agregar(*ctx, a, true));
    EXPECT_FALSE(ArticleStore::Agregar(*ctx, a, true));
    const auto leido = ArticleStore::Leer(*ctx, "CAT", "O'HIGGINS");
    ASSERT_TRUE(leido);
    EXPECT_EQ(leido->descripcion.toStdString(), "Llave d'agua");
    EXPECT_FALSE(leido->preciounitario);
}

TEST_P(Catalogo, WhatAChangedLineDoesNotCarryStaysWithItsArticle) {
    ctx->opciones.MODARTSUB = "S";
    ctx->opciones.VALORCAT = 2;
    llenarConCodigo();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    const std::string antes = "Bomba chica|BOMBA CHICA|203|203|2|OT|779|F|8413.70|9.8";
    const char *const columnas =
        "descripcion,descripcion_maria,idpais,idpaisproc,estadomerc,otros,codigoean,itfiller,naladisa,kgneto";
    EXPECT_EQ(articulo(columnas), antes);
    // A stored line has no unit weight, and the field of the EAN code is off.
    ASSERT_TRUE(BuscarSubItem(*ctx, s, grabacion.id));
    s.campos.TxtUnitario = "11";
    s.campos.TxtFobTotal = "264";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(articulo(columnas), antes);
    EXPECT_EQ(articulo("preciounitario,ncm,idunidad,sufijos"), "11|8413.70.10.100L|07|AA01-AB(X 1)-");
}

TEST_P(Catalogo, ABlockThatIsHiddenTellsNothingOfItsArticle) {
    ctx->opciones.MODARTSUB = "S";
    s.ofrece[static_cast<std::size_t>(BloqueDeLinea::BienDeUso)] = false;
    llenarConCodigo();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(articulo("biendeuso"), "S");
    s.ofrece[static_cast<std::size_t>(BloqueDeLinea::BienDeUso)] = true;
    llenarConCodigo();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(articulo("biendeuso"), "N") << "the box says so where it is seen";
    s.ofrece[static_cast<std::size_t>(BloqueDeLinea::BienDeUso)] = false;
    llenarConCodigo("NUEVO");
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(articulo("biendeuso", "NUEVO"), "N");
}

// The article weighs 0.125, which the field shows as "00.13".
TEST_P(Catalogo, AFigureThatItsFieldCutsIsNotWrittenBackCut) {
    ctx->opciones.MODARTSUB = "S";
    ctx->opciones.VALORCAT = 2;
    ejecutar("update catarticulos set kgneto = 0.125, preciounitario = 10.1234567", "CATALOGOS");
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    ASSERT_TRUE(BuscarArticuloSobreCat(*ctx, s));
    ASSERT_EQ(s.campos.txtKgUnitario.toStdString(), "00.13");
    s.campos.TxtCantidad = s.campos.TxtValorsobreestadistica = "24";
    s.campos.TxtFobTotal = "242.96";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(articulo("kgneto,preciounitario"), "0.125|10.1234567");
}

EN_AMBOS_STORES(Catalogo);

}  // namespace
