// Searching the articles of one catalogue and of all of them.

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "subitems/articlesearch.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const CampoDeArticulos &campoLlamado(const QString &rotulo) {
    for (const CampoDeArticulos &campo : CamposDeArticulos())
        if (campo.rotulo == rotulo) return campo;
    ADD_FAILURE() << rotulo.toStdString();
    return CamposDeArticulos().front();
}

std::string sentencia(const ConsultaDeArticulos &consulta, const QString &rotulo, const QString &valor) {
    return SentenciaDeArticulos(consulta, u"CAT"_s, campoLlamado(rotulo), valor).toStdString();
}

class BusquedaDeArticulos : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = u'.';
        const char *const articulos[] = {
            "'CAT','B-10','8413.70.10.100L','Bomba chica',2,10.5,'JUAN',{d}",
            "'CAT','b-2','8413.70.10.200R','Bomba de ñandú 50%',1,3,null,null",
            "'CAT','A''1','2204.21.00.100X','Vino d''oro',null,4,'ANA',null",
            "'CAT','C_1',null,null,1,null,null,null",
            "'OTRO','B-10','8413.70.10.100L','La misma en otro',1,12.25,null,null",
            "'D''OR','Z','8413.91.90.000K','Partes',1,1,null,null",
        };
        for (const char *valores : articulos) {
            QString fila = QString::fromUtf8(valores);
            fila.replace("{d}"_L1, ctx->DataManager.getDateFormatbyEntity(entidad::catalogos,
                                                                          QDateTime({2026, 2, 1}, {9, 30})));
            ejecutar(
                u"insert into catarticulos "
                "(idcatalogo,idarticulo,ncm,descripcion,cantidad,preciounitario,usuario,fecha) values ("_s +
                    fila + u')',
                entidad::catalogos);
        }
    }

    std::string buscar(const ConsultaDeArticulos &consulta, const QString &rotulo, const QString &valor,
                       const QString &catalogo = u"CAT"_s) {
        QStringList lineas;
        for (const QStringList &celdas :
             BuscarArticulos(*ctx, consulta, catalogo, campoLlamado(rotulo), valor))
            lineas << celdas.join(u'|');
        return lineas.join(u'\n').toStdString();
    }
    std::string enTodos(BusquedaEnCatalogos por, const QString &valor) {
        QStringList lineas;
        for (const ArticuloEncontrado &a : BuscarEnCatalogos(*ctx, por, valor))
            lineas << QStringList{a.clave.idcatalogo, a.clave.idarticulo, a.descripcion, a.ncm,
                                  a.preciounitario}
                          .join(u'|');
        return lineas.join(u'\n').toStdString();
    }
};
EN_AMBOS_STORES(BusquedaDeArticulos);

TEST(SentenciasDeArticulos, TheFieldsAreOfferedInTheirOrder) {
    QStringList rotulos;
    for (const CampoDeArticulos &campo : CamposDeArticulos()) rotulos << campo.rotulo;
    EXPECT_EQ(rotulos.join(u'|'), u"MOSTRAR TODO|ARTICULO|DESCRIPCIÓN|POSICIÓN"_s);
}

TEST(SentenciasDeArticulos, ASearchWithTotalsIsSentAsSpelled) {
    const std::string comienzo =
        "select idarticulo,descripcion,ncm,Cantidad*Preciounitario as total from catarticulos where "
        "idcatalogo = 'CAT'";
    EXPECT_EQ(sentencia(ArticulosConTotal(), u"ARTICULO"_s, u"B"_s), comienzo + " and idarticulo like '%B%'");
    EXPECT_EQ(sentencia(ArticulosConTotal(), u"DESCRIPCIÓN"_s, u"d'oro"_s),
              comienzo + " and descripcion like '%d''oro%'");
    EXPECT_EQ(sentencia(ArticulosConTotal(), u"POSICIÓN"_s, u"84"_s), comienzo + " and ncm like '%84%'");
    EXPECT_EQ(sentencia(ArticulosConTotal(), u"MOSTRAR TODO"_s, u"B"_s), comienzo) << "whatever the text";
}

TEST(SentenciasDeArticulos, ASearchWithDatesIsSentAsSpelled) {
    EXPECT_EQ(sentencia(ArticulosConFecha(), u"POSICIÓN"_s, u"84"_s),
              "select idarticulo,ncm,descripcion,cantidad,preciounitario,usuario, fecha from catarticulos "
              "where idcatalogo = 'CAT' and ncm like '%84%'");
    EXPECT_EQ(sentencia(ArticulosConFecha(), u"MOSTRAR TODO"_s, {}),
              "select * from catarticulos where idcatalogo = 'CAT'");
}

TEST_P(BusquedaDeArticulos, TheListWithTotalsShowsWhatEachArticleComesTo) {
    EXPECT_EQ(ArticulosConTotal().titulos().join(u'|'), u"IdArticulo|Descripcion|NCM|Total"_s);
    // 2 * 10.5 = 21, 1 * 3 = 3; without a quantity or a price there is no total.
    EXPECT_EQ(buscar(ArticulosConTotal(), u"MOSTRAR TODO"_s, {}),
              "A'1|Vino d'oro|2204.21.00.100X|\n"
              "B-10|Bomba chica|8413.70.10.100L|21.00\n"
              "b-2|Bomba de ñandú 50%|8413.70.10.200R|03.00\n"
              "C_1|||");
}

TEST_P(BusquedaDeArticulos, TheListWithDatesShowsWhoWroteAnArticleWhen) {
    EXPECT_EQ(ArticulosConFecha().titulos().join(u'|'),
              u"IdArticulo|Descripcion|NCM|preciounitario|Usuario|Fecha"_s);
    const std::string fila = "B-10|Bomba chica|8413.70.10.100L|10.50000|JUAN|01/02/2026";
    EXPECT_EQ(buscar(ArticulosConFecha(), u"DESCRIPCIÓN"_s, u"chica"_s), fila);
    EXPECT_EQ(buscar(ArticulosConFecha(), u"MOSTRAR TODO"_s, {}),
              "A'1|Vino d'oro|2204.21.00.100X|04.00000|ANA|\n" + fila +
                  "\nb-2|Bomba de ñandú 50%|8413.70.10.200R|03.00000||\nC_1|||||");
}

TEST_P(BusquedaDeArticulos, AScreenOpensWithTheRowsOfTheWholeCatalogue) {
    for (const ConsultaDeArticulos *consulta : {&ArticulosConTotal(), &ArticulosConFecha()})
        for (const QString &catalogo : {u"CAT"_s, u"D'OR"_s, u"NADA"_s})
            EXPECT_EQ(ArticulosDelCatalogo(*ctx, *consulta, catalogo),
                      BuscarArticulos(*ctx, *consulta, catalogo, campoLlamado(u"MOSTRAR TODO"_s), {}));
}

TEST_P(BusquedaDeArticulos, AFieldIsSearchedAnywhereInItWhateverTheCase) {
    EXPECT_EQ(buscar(ArticulosConTotal(), u"ARTICULO"_s, u"-1"_s), "B-10|Bomba chica|8413.70.10.100L|21.00");
    EXPECT_EQ(buscar(ArticulosConTotal(), u"DESCRIPCIÓN"_s, u"ÑANDÚ"_s),
              "b-2|Bomba de ñandú 50%|8413.70.10.200R|03.00");
    EXPECT_EQ(buscar(ArticulosConTotal(), u"POSICIÓN"_s, u"21.00"_s), "A'1|Vino d'oro|2204.21.00.100X|");
    EXPECT_EQ(buscar(ArticulosConTotal(), u"POSICIÓN"_s, u"9999"_s), "");
}

TEST_P(BusquedaDeArticulos, TheStoresPatternsWorkAndAQuoteIsAQuote) {
    EXPECT_EQ(buscar(ArticulosConTotal(), u"DESCRIPCIÓN"_s, u"Bomba%50"_s),
              "b-2|Bomba de ñandú 50%|8413.70.10.200R|03.00");
    EXPECT_EQ(buscar(ArticulosConTotal(), u"ARTICULO"_s, u"B__"_s),
              "B-10|Bomba chica|8413.70.10.100L|21.00\nb-2|Bomba de ñandú 50%|8413.70.10.200R|03.00");
    EXPECT_EQ(buscar(ArticulosConTotal(), u"ARTICULO"_s, u"a'"_s), "A'1|Vino d'oro|2204.21.00.100X|");
    EXPECT_EQ(buscar(ArticulosConTotal(), u"MOSTRAR TODO"_s, {}, u"D'OR"_s),
              "Z|Partes|8413.91.90.000K|01.00");
    EXPECT_EQ(buscar(ArticulosConTotal(), u"MOSTRAR TODO"_s, {}, u"NADA"_s), "");
}

TEST_P(BusquedaDeArticulos, ASearchByPositionWith4CharactersAcrossCataloguesIsRefusedAndWith5ItRuns) {
    registro.textos = {u"8413"_s, u" 841 "_s, u"8413."_s};
    EXPECT_EQ(PreguntarBusqueda(*ctx, BusquedaEnCatalogos::Posicion), std::nullopt);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Ingrese al menos 5 caracteres"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(PreguntarBusqueda(*ctx, BusquedaEnCatalogos::Posicion), std::nullopt) << "blanks are none";
    EXPECT_EQ(registro.mensajes.size(), 2U);
    const auto valor = PreguntarBusqueda(*ctx, BusquedaEnCatalogos::Posicion);
    ASSERT_EQ(valor, u"8413."_s);
    EXPECT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Posicion, *valor),
              "CAT|B-10|Bomba chica|8413.70.10.100L|10.50000\n"
              "CAT|b-2|Bomba de ñandú 50%|8413.70.10.200R|03.00000\n"
              "D'OR|Z|Partes|8413.91.90.000K|01.00000\n"
              "OTRO|B-10|La misma en otro|8413.70.10.100L|12.25000");
}

TEST_P(BusquedaDeArticulos, TheQuestionsAreAskedInTheirWords) {
    registro.textos = {u"B"_s, u"84137"_s};
    EXPECT_EQ(PreguntarBusqueda(*ctx, BusquedaEnCatalogos::Articulo), u"B"_s) << "a code may be short";
    EXPECT_EQ(PreguntarBusqueda(*ctx, BusquedaEnCatalogos::Posicion), u"84137"_s);
    EXPECT_EQ(registro.entradas[0].titulo, u"Buscar en TODOS los catálogos por código de artículo"_s);
    EXPECT_EQ(registro.entradas[0].texto, u"Ingrese el código de artículo (completo) a buscar:"_s);
    EXPECT_EQ(registro.entradas[1].titulo, u"Buscar en TODOS los catálogos por posición arancelaria"_s);
    EXPECT_EQ(registro.entradas[1].texto,
              u"Ingrese la posición arancelaria (completa o incompleta) a buscar:"_s);
    EXPECT_EQ(registro.entradas[1].maximo, 15);
}

TEST_P(BusquedaDeArticulos, AQuestionLeftOrAnsweredWithNothingSaysNothing) {
    registro.textos = {std::nullopt, u"  "_s};
    for (int vez = 0; vez < 2; ++vez)
        EXPECT_EQ(PreguntarBusqueda(*ctx, BusquedaEnCatalogos::Posicion), std::nullopt);
    EXPECT_EQ(registro.entradas.size(), 2U);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(BusquedaDeArticulos, TheWholeCodeIsFoundInEveryCatalogue) {
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Articulo, u"b-10"_s),
              "CAT|B-10|Bomba chica|8413.70.10.100L|10.50000\n"
              "OTRO|B-10|La misma en otro|8413.70.10.100L|12.25000");
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Articulo, u"A'1"_s),
              "CAT|A'1|Vino d'oro|2204.21.00.100X|04.00000");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(BusquedaDeArticulos, APositionIsFoundByItsBeginningAndACommaIsADot) {
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Posicion, u"2204,21"_s),
              "CAT|A'1|Vino d'oro|2204.21.00.100X|04.00000");
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Posicion, u"70.10"_s), "") << "from its beginning";
}

TEST_P(BusquedaDeArticulos, WhatIsFoundNowhereIsTold) {
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Articulo, u"B-1"_s), "") << "the code is whole";
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Posicion, u"9999.99"_s), "");
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"Ningún catálogo tiene el artículo B-1, revise el código completo."_s);
    EXPECT_EQ(registro.mensajes[0].titulo, u"Buscar en TODOS los catálogos por código de artículo"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(registro.mensajes[1].texto,
              u"Ningún catálogo tiene artículos en la posición 9999.99, revise la posición."_s);
}

TEST_P(BusquedaDeArticulos, AnArticleOfTheListGoesWithItsAdvantagesAfterAYes) {
    for (const char *catalogo : {"CAT", "OTRO"})
        ejecutar(
            u"insert into articulo_ventaja (idcatalogo,idarticulo,ventaja) values ('%1','B-10','V1')"_s.arg(
                QLatin1String(catalogo)),
            entidad::catalogos);
    EXPECT_FALSE(EliminarArticuloDeLista(*ctx, {u"CAT"_s, u"B-10"_s}));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Confima eliminar el articulo B-10"_s);
    EXPECT_EQ(registro.preguntas[0].icono, Icono::Pregunta);
    const QString quedan = u"select count(*) from catarticulos where idarticulo = 'B-10'"_s;
    EXPECT_EQ(valor(quedan, entidad::catalogos), u"2"_s);
    registro.respuestas = {true, true};
    EXPECT_TRUE(EliminarArticuloDeLista(*ctx, {u"CAT"_s, u"B-10"_s}));
    EXPECT_EQ(valor(quedan, entidad::catalogos), u"1"_s);
    EXPECT_EQ(filas(u"select idcatalogo from articulo_ventaja"_s, entidad::catalogos), u"OTRO"_s);
    EXPECT_TRUE(EliminarArticuloDeLista(*ctx, {u"CAT"_s, u"A'1"_s}));
    EXPECT_EQ(valor(u"select count(*) from catarticulos where idcatalogo = 'CAT'"_s, entidad::catalogos),
              u"2"_s);
}

}  // namespace
