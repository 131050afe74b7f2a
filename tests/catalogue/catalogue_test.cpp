// The article catalogue without a screen: what may be kept, its advantages, its moves.

#include <gtest/gtest.h>

#include "subitems/catalogue.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const QString entidadDeCatalogos = u"CATALOGOS"_s;
const QString catalogoDePrueba = u"CAT"_s;
/// A pump of 750 W: the chapter asks for AA and AB, its heading for ZB.
const QString bombaDePrueba = u"8413.70.10.100L"_s;
const QString sufijosDeBomba = u"AA01-AB(NP 0750)-ZB(000750)-"_s;

class Articulos : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->PcName = u"PC 7"_s;
        ejecutar(u"delete from catarticulos"_s, entidadDeCatalogos);
        ejecutar(u"delete from articulo_ventaja"_s, entidadDeCatalogos);
        for (const QString &clave : {u"'CAT','A-1'"_s, u"'CAT','A-2'"_s, u"'OTRO','A-2'"_s})
            ejecutar(
                u"insert into catarticulos "
                "(idcatalogo,idarticulo,ncm,descripcion,idunidad,preciounitario,sufijos) values ("_s +
                    clave + u",'8413.70.10.100L','Bomba','07',10.5,'AA01-AB(X)-ZB(000750)-')"_s,
                entidadDeCatalogos);
    }
    static FichaDeArticulo bomba(const QString &codigo) {
        FichaDeArticulo f;
        f.articulo.idcatalogo = catalogoDePrueba;
        f.articulo.idarticulo = codigo;
        f.articulo.descripcion = u"Electrobomba d'agua"_s;
        f.articulo.ncm = bombaDePrueba;
        f.articulo.idunidad = u"07"_s;
        f.articulo.sufijos = sufijosDeBomba;
        f.TxtUnitario = u"118.4"_s;
        return f;
    }
    std::string guardado(const QString &columnas, const QString &articulo,
                         const QString &catalogo = catalogoDePrueba) {
        return filas(u"select %1 from catarticulos where idcatalogo = '%2' and idarticulo = '%3'"_s.arg(
                         columnas, catalogo, articulo),
                     entidadDeCatalogos)
            .toStdString();
    }
    std::string ventajas() {
        return filas(
                   u"select idcatalogo,idarticulo,ventaja from articulo_ventaja "
                   "order by idcatalogo,idarticulo,ventaja"_s,
                   entidadDeCatalogos)
            .toStdString();
    }
    void vincular(const QString &valores) {
        ejecutar("insert into articulo_ventaja (idcatalogo,idarticulo,ventaja) values ("_L1 + valores + u')',
                 entidadDeCatalogos);
    }
    std::string ultimo() const {
        return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
    }
    /// What the add routine says, and the field that it names, as "text|field".
    std::string rechazo(FichaDeArticulo f) {
        registro.mensajes.clear();
        const Veredicto v = AgregarArticuloEx(*ctx, f);
        EXPECT_FALSE(v.ok);
        return ultimo() + "|" + v.foco.toStdString();
    }
};
EN_AMBOS_STORES(Articulos);

TEST_P(Articulos, EveryFieldOfANewArticleIsWritten) {
    FichaDeArticulo f = bomba(u" B-9 "_s);
    f.articulo.Descripcion_Maria = u"ELECTROBOMBA"_s;
    f.articulo.idpais = u"438"_s;
    f.articulo.idpaisproc = u"417"_s;
    f.articulo.estadomerc = u"2"_s;
    f.articulo.biendeuso = u"S"_s;
    f.articulo.codigoean = u"7791234567890"_s;
    f.articulo.naladisa = u"8413,70"_s;
    f.articulo.otros = u"o"_s;
    f.articulo.itfiller = u"f"_s;
    f.txtKgUnitario = u"9,8"_s;
    ASSERT_TRUE(AgregarArticuloEx(*ctx, f).ok) << ultimo();
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(
        guardado(u"idcatalogo,idarticulo,descripcion,descripcion_maria,ncm,idunidad,preciounitario,kgneto,"
                 "idpais,idpaisproc,estadomerc,biendeuso,codigoean,naladisa,otros,itfiller,sufijos,"
                 "cantidad,usuario"_s,
                 u"B-9"_s),
        "CAT|B-9|Electrobomba d'agua|ELECTROBOMBA|8413.70.10.100L|07|118.4|9.8|438|417|2|S|"
        "7791234567890|8413.70|o|f|AA01-AB(NP 0750)-ZB(000750)-|1|PC 7");
    const auto leida = BuscarArticuloSobreCat(*ctx, u"cat"_s, u"b-9"_s);
    ASSERT_TRUE(leida);
    EXPECT_EQ(leida->TxtUnitario, u"118.40000"_s);
    EXPECT_EQ(leida->txtKgUnitario, u"09.80"_s);
    EXPECT_EQ(leida->articulo.descripcion, u"Electrobomba d'agua"_s);
}

TEST_P(Articulos, WhatIsMissingIsToldInItsOrder) {
    FichaDeArticulo f;
    EXPECT_EQ(rechazo(f), "Debe ingresar un Nombre o Código de Articulo|txtIdArticulo");
    f.articulo.idarticulo = u"B-9"_s;
    EXPECT_EQ(rechazo(f), "Debe ingresar el Codigo de UNIDAD|TxtUnidad");
    f.articulo.idunidad = u"07"_s;
    f.TxtUnitario = u"diez"_s;
    EXPECT_EQ(rechazo(f), "Debe ingresar un valor numeric en el campo VALOR UNITARIO|TxtUnitario");
    f.TxtUnitario = u"10"_s;
    EXPECT_EQ(rechazo(f), "Debe ingresar una POSICION del Nomenclador|TxtPosicion");
    f.articulo.ncm = bombaDePrueba;
    EXPECT_EQ(rechazo(f), "Falta el catálogo del artículo, ingréselo para guardar.|TxtIdCatalogo");
    f.articulo.idcatalogo = catalogoDePrueba;
    f.txtKgUnitario = u"pesado"_s;
    EXPECT_EQ(rechazo(f), "El peso unitario no es un número, corríjalo o déjelo vacío.|txtKgUnitario");
    f.txtKgUnitario.clear();
    EXPECT_EQ(guardado(u"idarticulo"_s, u"B-9"_s), "") << "nothing was written";
    f.articulo.sufijos = sufijosDeBomba;
    registro.mensajes.clear();
    EXPECT_TRUE(AgregarArticuloEx(*ctx, f).ok);
    EXPECT_EQ(guardado(u"preciounitario,kgneto,biendeuso"_s, u"B-9"_s), "10|<null>|N");
}

TEST_P(Articulos, APositionThatTheNomenclatureLacksCannotEnterACatalogue) {
    FichaDeArticulo f = bomba(u"B-9"_s);
    // The last one has the first two keys of a pump and another letter.
    for (const QString &posicion : {u"9999.99.99.999Z"_s, u"84"_s, u"8413.70.10.100Z"_s}) {
        f.articulo.ncm = posicion;
        EXPECT_EQ(rechazo(f),
                  "No existe la posicion " + posicion.toStdString() + " en el nomenclador|TxtPosicion");
    }
    EXPECT_EQ(guardado(u"idarticulo"_s, u"B-9"_s), "");
    EXPECT_TRUE(registro.elecciones.empty()) << "no suffix was asked for";
}

TEST_P(Articulos, SuffixesThatAreMissingAreAskedForAndAnAnswerLessLeavesTheArticleOut) {
    FichaDeArticulo f = bomba(u"B-9"_s);
    f.articulo.sufijos.clear();
    registro.indices = {-1};
    EXPECT_EQ(rechazo(f), "Carga de SUFIJOS cancelada|txtSufijos");
    EXPECT_EQ(guardado(u"idarticulo"_s, u"B-9"_s), "");
    // The list of AA begins with "Ninguna opción"; then a brand, and watts.
    registro.indices = {1};
    registro.textos = {u"np-1"_s, u"1100"_s};
    ASSERT_TRUE(AgregarArticuloEx(*ctx, f).ok);
    EXPECT_EQ(guardado(u"sufijos"_s, u"B-9"_s), "AA01-AB(NP 1)-ZB(001100)-");
    EXPECT_EQ(f.articulo.sufijos, u"AA01-AB(NP 1)-ZB(001100)-"_s);
    EXPECT_EQ(registro.entradas.front().inicial, QString()) << "the code is offered with its option only";
}

TEST_P(Articulos, ANameAloneServesAsTheCode) {
    FichaDeArticulo f = bomba({});
    f.articulo.descripcion = u"Bomba sin código"_s;
    ASSERT_TRUE(AgregarArticuloEx(*ctx, f).ok);
    EXPECT_EQ(f.articulo.idarticulo, u"Bomba sin código"_s);
    EXPECT_EQ(guardado(u"idarticulo,descripcion"_s, u"Bomba sin código"_s),
              "Bomba sin código|Bomba sin código");
    f = bomba(u"B-9"_s);
    f.articulo.descripcion.clear();
    EXPECT_TRUE(AgregarArticuloEx(*ctx, f).ok) << "and a code alone is enough";
}

TEST_P(Articulos, ANameIsNotCutInTheMiddleOfACharacter) {
    FichaDeArticulo f = bomba({});
    f.articulo.descripcion = QString(49, u'b') + u"🚢 de carga"_s;
    ASSERT_TRUE(AgregarArticuloEx(*ctx, f).ok);
    EXPECT_EQ(f.articulo.idarticulo, QString(49, u'b'));
}

TEST_P(Articulos, AnArticleThatIsThereAlreadyStaysAsItIs) {
    EXPECT_EQ(rechazo(bomba(u"a-1"_s)),
              "El artículo a-1 ya está en el catálogo CAT.\r\nPara modificar un articulo debe presionar F9.|"
              "txtIdArticulo");
    EXPECT_EQ(guardado(u"descripcion,preciounitario"_s, u"A-1"_s), "Bomba|10.5");
}

TEST_P(Articulos, AStoreThatRefusesTheArticleIsToldWithItsTag) {
    FichaDeArticulo f = bomba(u"B-9"_s);
    // The checks do not read it, the row needs it.
    ejecutar(u"alter table catarticulos drop column itfiller"_s, entidadDeCatalogos);
    EXPECT_FALSE(AgregarArticuloEx(*ctx, f).ok);
    ASSERT_FALSE(registro.mensajes.empty());
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes.back().texto.startsWith(u"[ARTICULOS.AGREGAR] "_s)) << ultimo();
}

TEST_P(Articulos, AChangeWritesEveryFieldAlsoTheEmptiedOnes) {
    ejecutar(
        u"update catarticulos set idpais = '438', otros = 'x', kgneto = 2, cantidad = 1 "
        "where idcatalogo = 'CAT'"_s,
        entidadDeCatalogos);
    auto f = BuscarArticuloSobreCat(*ctx, catalogoDePrueba, u"A-1"_s);
    ASSERT_TRUE(f);
    f->articulo.idpais.clear();
    f->articulo.otros.clear();
    f->txtKgUnitario.clear();
    f->TxtUnitario = u"0,1234567"_s;
    ASSERT_TRUE(Modificar(*ctx, *f).ok) << ultimo();
    EXPECT_EQ(guardado(u"idpais,otros,kgneto,preciounitario,cantidad,usuario"_s, u"A-1"_s),
              "||<null>|0.1234567|1|PC 7");
    EXPECT_EQ(guardado(u"idpais,otros,kgneto"_s, u"A-2"_s), "438|x|2") << "no other article";
    f = BuscarArticuloSobreCat(*ctx, catalogoDePrueba, u"A-1"_s);
    EXPECT_EQ(f->TxtUnitario, u"0.1234567"_s) << "a price that the form would cut is shown whole";
    f->TxtUnitario = u"-"_s;
    EXPECT_EQ(Modificar(*ctx, *f).foco, u"TxtUnitario"_s);
    EXPECT_EQ(ultimo(), "Debe ingresar un valor numeric en el campo VALOR UNITARIO");
}

TEST_P(Articulos, AChangeOfAnArticleThatIsGoneIsTold) {
    auto f = BuscarArticuloSobreCat(*ctx, catalogoDePrueba, u"A-1"_s);
    ASSERT_TRUE(f);
    ejecutar(u"delete from catarticulos where idarticulo = 'A-1'"_s, entidadDeCatalogos);
    EXPECT_FALSE(Modificar(*ctx, *f).ok);
    EXPECT_EQ(ultimo(), "El artículo A-1 ya no está en el catálogo CAT, otro puesto lo eliminó o lo movió.");
    EXPECT_FALSE(BuscarArticuloSobreCat(*ctx, catalogoDePrueba, u"A-1"_s));
}

TEST_P(Articulos, ADeletionAsksAndTakesTheAdvantagesAlong) {
    vincular(u"'CAT','A-1','BIENCAPITAL'"_s);
    vincular(u"'CAT','A-2','BIENCAPITAL'"_s);
    EXPECT_FALSE(EliminarArticulo(*ctx, catalogoDePrueba, {}));
    EXPECT_EQ(ultimo(), "Falta parametros.!");
    EXPECT_FALSE(EliminarArticulo(*ctx, {}, u"A-1"_s));
    EXPECT_TRUE(registro.preguntas.empty());
    registro.respuestas = {false, true};
    EXPECT_FALSE(EliminarArticulo(*ctx, catalogoDePrueba, u"A-1"_s)) << "No";
    EXPECT_EQ(registro.preguntas.back().texto, u"Confirma eliminar el articulo: A-1 del catalogo: CAT"_s);
    EXPECT_EQ(guardado(u"idarticulo"_s, u"A-1"_s), "A-1");
    EXPECT_TRUE(EliminarArticulo(*ctx, catalogoDePrueba, u"A-1"_s));
    EXPECT_EQ(guardado(u"idarticulo"_s, u"A-1"_s), "");
    EXPECT_EQ(ventajas(), "CAT|A-2|BIENCAPITAL");
}

TEST_P(Articulos, AdvantagesCannotBeLinkedWhileTheArticleIsNew) {
    EXPECT_FALSE(AgregarVentaja(*ctx, catalogoDePrueba, u"B-9"_s, false));
    EXPECT_EQ(ultimo(),
              "Solo se puede vincular ventajas a articulos ya existentes.\r\n"
              "Para modificar un articulo debe presionar F9.");
    EXPECT_TRUE(registro.elecciones.empty());
    EXPECT_EQ(ventajas(), "");
}

TEST_P(Articulos, AnAdvantageIsLinkedOnceAndTakenOff) {
    registro.indices = {0, 0, -1};
    ASSERT_TRUE(AgregarVentaja(*ctx, catalogoDePrueba, u"A-1"_s, true)) << ultimo();
    const auto vinculadas = CargarVentajasAsociadas(*ctx, catalogoDePrueba, u"A-1"_s);
    ASSERT_EQ(vinculadas.size(), 1U);
    const QString ventaja = vinculadas[0].id;
    // By description: the first of the list.
    EXPECT_EQ(registro.elecciones.back().filas.front(), vinculadas[0].descripcion + " ("_L1 + ventaja + u')');
    EXPECT_EQ(ventajas(), "CAT|A-1|" + ventaja.toStdString());

    EXPECT_FALSE(AgregarVentaja(*ctx, catalogoDePrueba, u"A-1"_s, true)) << "twice";
    EXPECT_EQ(registro.mensajes.back().titulo, u"Vincular Ventaja"_s);
    EXPECT_EQ(CargarVentajasAsociadas(*ctx, catalogoDePrueba, u"A-1"_s).size(), 1U);
    EXPECT_FALSE(AgregarVentaja(*ctx, catalogoDePrueba, u"A-1"_s, true)) << "the list was left";

    registro.respuestas = {false, true};
    EXPECT_FALSE(EliminarVentajaAsociada(*ctx, catalogoDePrueba, u"A-1"_s, ventaja));
    EXPECT_EQ(registro.preguntas.back().texto,
              "Confirma eliminar la ventaja "_L1 + ventaja + u" asociada al articulo A-1 del catálogo CAT"_s);
    EXPECT_TRUE(EliminarVentajaAsociada(*ctx, catalogoDePrueba, u"A-1"_s, ventaja));
    EXPECT_EQ(ventajas(), "");
}

TEST_P(Articulos, AnAdvantageOfAnArticleThatIsGoneIsNotLinked) {
    registro.indices = {0};
    EXPECT_FALSE(AgregarVentaja(*ctx, catalogoDePrueba, u"FANTASMA"_s, true));
    EXPECT_EQ(ultimo(), "No se encuentra el Artículo FANTASMA en el catálogo CAT");
    EXPECT_EQ(registro.mensajes.back().titulo, u"Vincular Ventaja"_s);
    EXPECT_EQ(ventajas(), "");
}

TEST_P(Articulos, CheckedArticlesMoveWithTheirAdvantagesAndOneThatIsThereStays) {
    vincular(u"'CAT','A-1','BIENCAPITAL'"_s);
    registro.respuestas = {false, true};
    const QStringList marcados{u"A-1"_s, u"A-2"_s};
    EXPECT_EQ(CambiarCatalogoByArticulosSeleccionados(*ctx, marcados, catalogoDePrueba, u"OTRO"_s), 0)
        << "No";
    EXPECT_EQ(registro.preguntas.back().texto,
              u"¿Confirma cambiar 2 articulos seleccionados del catálogo [ CAT ] al catálogo [ OTRO ]?"_s);
    EXPECT_EQ(CambiarCatalogoByArticulosSeleccionados(*ctx, marcados, catalogoDePrueba, u"OTRO"_s), 1);
    EXPECT_EQ(ultimo(), "Quedan en el catálogo [ CAT ] los artículos que [ OTRO ] ya tiene: A-2");
    EXPECT_EQ(filas(u"select idcatalogo,idarticulo from catarticulos order by idcatalogo,idarticulo"_s,
                    entidadDeCatalogos),
              u"CAT|A-2\nOTRO|A-1\nOTRO|A-2"_s);
    EXPECT_EQ(ventajas(), "OTRO|A-1|BIENCAPITAL");
}

TEST_P(Articulos, AMoveToTheirOwnCatalogueIsRefused) {
    EXPECT_EQ(CambiarCatalogoByArticulosSeleccionados(*ctx, {u"A-1"_s}, catalogoDePrueba, u"cat"_s), 0);
    EXPECT_EQ(ultimo(), "Los artículos ya están en el catálogo CAT, elija otro.");
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_EQ(MoverArticulo(*ctx, u"NO"_s, catalogoDePrueba, u"OTRO"_s), MovimientoDeArticulo::NoEsta);
}

TEST_P(Articulos, ACodeWithAQuoteIsKeptLinkedMovedAndDeleted) {
    FichaDeArticulo f = bomba(u"D'A"_s);
    ASSERT_TRUE(AgregarArticuloEx(*ctx, f).ok) << ultimo();
    registro.indices = {0};
    EXPECT_TRUE(AgregarVentaja(*ctx, catalogoDePrueba, u"D'A"_s, true)) << ultimo();
    EXPECT_EQ(MoverArticulo(*ctx, u"D'A"_s, catalogoDePrueba, u"L'AUTRE"_s), MovimientoDeArticulo::Movido);
    EXPECT_EQ(CargarVentajasAsociadas(*ctx, u"L'AUTRE"_s, u"D'A"_s).size(), 1U);
    registro.respuestas = {true};
    EXPECT_TRUE(EliminarArticulo(*ctx, u"L'AUTRE"_s, u"D'A"_s));
    EXPECT_EQ(ventajas(), "");
}

TEST_P(Articulos, TheCatalogueToMoveToIsAnotherOneOrANewOne) {
    registro.indices = {0, 1, -1};
    EXPECT_EQ(SeleccionarCatalogoDeDestino(*ctx, catalogoDePrueba), u"OTRO"_s);
    EXPECT_EQ(registro.elecciones.back().filas, (QStringList{u"OTRO"_s, u"(un catálogo nuevo)"_s}));
    registro.textos = {u" NUEVO "_s};
    EXPECT_EQ(SeleccionarCatalogoDeDestino(*ctx, catalogoDePrueba), u"NUEVO"_s);
    EXPECT_EQ(registro.entradas.back().texto, u"Ingrese el código del catálogo nuevo:"_s);
    EXPECT_EQ(SeleccionarCatalogoDeDestino(*ctx, catalogoDePrueba), QString()) << "the list was left";
    registro.indices = {1};
    EXPECT_EQ(SeleccionarCatalogo(*ctx), u"OTRO"_s);
    ejecutar(u"delete from catarticulos"_s, entidadDeCatalogos);
    EXPECT_EQ(SeleccionarCatalogo(*ctx), QString());
    EXPECT_EQ(ultimo(), "Todavía no hay catálogos, escriba el código del primero.");
}

TEST_P(Articulos, ADefectIsToldWithoutAskingAnything) {
    ArticleStore::Articulo a = bomba(u"B-9"_s).articulo;
    EXPECT_EQ(DefectoDeArticulo(*ctx, a), u"Debe ingresar un valor numeric en el campo VALOR UNITARIO"_s);
    a.preciounitario = 10;
    EXPECT_EQ(DefectoDeArticulo(*ctx, a), QString());
    a.sufijos = u"AA01-AB(X)-"_s;
    EXPECT_EQ(DefectoDeArticulo(*ctx, a),
              u"Los sufijos AA01-AB(X)- no son los que pide la posición 8413.70.10.100L."_s);
    a.sufijos.clear();
    EXPECT_EQ(DefectoDeArticulo(*ctx, a), u"Faltan los sufijos que pide la posición 8413.70.10.100L."_s);
    a.ncm = u"8413.70.10.100Z"_s;
    EXPECT_EQ(DefectoDeArticulo(*ctx, a), u"No existe la posicion 8413.70.10.100Z en el nomenclador"_s);
    // Peppers ask for none.
    a.ncm = u"0709.60.00.000x"_s;
    EXPECT_EQ(DefectoDeArticulo(*ctx, a), QString());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(registro.elecciones.empty());
}

TEST_P(Articulos, APrintedCatalogueNeedsACodeAndAProgramThatPrints) {
    ImprimirCatalogo(*ctx, u" "_s);
    EXPECT_EQ(ultimo(), "Elija el catálogo que quiere imprimir.");
    ctx->salidas = {};
    ImprimirCatalogo(*ctx, catalogoDePrueba);
    EXPECT_EQ(ultimo(), "Los listados no están en este programa.");
    QString impreso;
    ctx->salidas.catalogo = [&impreso](const QString &catalogo) { impreso = catalogo; };
    ImprimirCatalogo(*ctx, u" CAT "_s);
    EXPECT_EQ(impreso, catalogoDePrueba);
}

}  // namespace
