// Catalogues by the batch program: loaded, listed and moved.

#include <gtest/gtest.h>

#include <QJsonDocument>

#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class CatalogosEnLote : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }

    Corrida lote(const QStringList &orden) const {
        return Lote(tienda->carpeta(), QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s,
                                                   tienda->carpeta() + u"/lote.ini"_s} +
                                           orden);
    }
    QString archivo(const QByteArray &datos) const {
        return Escribir(tienda->carpeta(), u"articulos.csv"_s, datos);
    }
    Corrida mover(const QStringList &orden, const char *respuestas = R"(["Si"])") const {
        return lote(QStringList{u"--respuestas"_s, Escribir(tienda->carpeta(), u"r.json"_s, respuestas),
                                u"catalogo"_s, u"mover"_s} +
                    orden);
    }
    int cuantos(const QString &catalogo) {
        return valor(u"select count(*) as n from catarticulos where idcatalogo = '%1'"_s.arg(catalogo),
                     u"CATALOGOS"_s)
            .toInt();
    }
};

TEST_P(CatalogosEnLote, AFileIsLoadedAndWhatItsLinesGetWrongIsTold) {
    const QString csv = archivo(
        "articulo;posicion;nombre;unidad;precio;sufijos\n"
        "LI-1;4901.99.00.111H;Libro de tapa dura;07;12,50;\n"
        "LI-2;9999.99.00.111H;Nada;07;1;\n"
        "BO-1;8413.70.10.100L;Bomba \"NORD\";07;118,4;AA01-AB(NORD)-ZB(000750)-\n");
    Corrida c = lote({u"catalogo"_s, u"cargar"_s, u"NUEVO"_s, csv});
    EXPECT_EQ(c.estado, 1) << "a row was refused";
    ASSERT_EQ(c.lineas.size(), 2U) << c.errores.toStdString();
    EXPECT_EQ(c.lineas[0], (QJsonObject{{u"tipo"_s, u"aviso"_s},
                                        {u"texto"_s,
                                         u"línea 3: No existe la posicion 9999.99.00.111H en el nomenclador; "
                                         "la fila no se carga"_s}}));
    EXPECT_EQ(c.resultado(), (QJsonObject{{u"resultado"_s, u"catalogo cargar"_s},
                                          {u"catalogo"_s, u"NUEVO"_s},
                                          {u"agregados"_s, 2},
                                          {u"reemplazados"_s, 0},
                                          {u"iguales"_s, 0},
                                          {u"rechazadas"_s, 1},
                                          {u"estado"_s, 1}}));
    EXPECT_EQ(
        filas(u"select idarticulo,descripcion,preciounitario from catarticulos where idcatalogo = 'NUEVO' "
              "order by idarticulo"_s,
              u"CATALOGOS"_s)
            .toStdString(),
        "BO-1|Bomba \"NORD\"|118.4\nLI-1|Libro de tapa dura|12.5");

    c = lote({u"catalogo"_s, u"cargar"_s, u"NUEVO"_s, archivo("articulo;precio\nLI-1;13\nBO-1;118,4\n"),
              u"--reemplazar"_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.textos(), QStringList());
    EXPECT_EQ(c.resultado().value(u"reemplazados"_s).toInt(), 1);
    EXPECT_EQ(c.resultado().value(u"iguales"_s).toInt(), 1);
    EXPECT_EQ(valor(u"select preciounitario from catarticulos where idarticulo = 'LI-1'"_s, u"CATALOGOS"_s),
              u"13"_s);
}

TEST_P(CatalogosEnLote, ALineInAnotherEncodingIsToldAndIsNoFailure) {
    const Corrida c = lote({u"catalogo"_s, u"cargar"_s, u"NUEVO"_s,
                            archivo("articulo,posicion,nombre,unidad,precio\n"
                                    "LI-1,4901.99.00.111H,Edici\xF3n,07,1\n")});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.textos(),
              QStringList{u"línea 2: no está en UTF-8; se lee como Windows-1252, revise sus acentos"_s});
    EXPECT_EQ(valor(u"select descripcion from catarticulos where idarticulo = 'LI-1'"_s, u"CATALOGOS"_s),
              u"Edición"_s);
}

TEST_P(CatalogosEnLote, AListThatLeftAsCsvComesBack) {
    const QString csv = tienda->carpeta() + u"/hidplata.csv"_s;
    ASSERT_EQ(lote({u"lista"_s, u"catalogo"_s, u"HIDPLATA"_s, u"--salida"_s, csv}).estado, 0);
    const Corrida c = lote({u"catalogo"_s, u"cargar"_s, u"hidplata"_s, csv, u"--reemplazar"_s});
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(c.resultado().value(u"rechazadas"_s).toInt(), 0);
    EXPECT_EQ(cuantos(u"HIDPLATA"_s), 20);
}

TEST_P(CatalogosEnLote, AFileThatIsNotThereIsTold) {
    const Corrida c = lote({u"catalogo"_s, u"cargar"_s, u"NUEVO"_s, u"/no/hay.csv"_s});
    EXPECT_EQ(c.estado, 1);
    ASSERT_EQ(c.textos().size(), 1);
    EXPECT_TRUE(c.textos()[0].contains(u"/no/hay.csv"_s));
    EXPECT_EQ(cuantos(u"NUEVO"_s), 0);
}

TEST_P(CatalogosEnLote, CataloguesAndTheArticlesOfOneAreListed) {
    Corrida c = lote({u"catalogo"_s, u"listar"_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value(u"cantidad"_s).toInt(), static_cast<int>(c.mensajes().size()));
    EXPECT_NE(
        std::find(
            c.lineas.begin(), c.lineas.end(),
            (QJsonObject{{u"tipo"_s, u"catalogo"_s}, {u"catalogo"_s, u"BARRACAS"_s}, {u"articulos"_s, 40}})),
        c.lineas.end());
    c = lote({u"catalogo"_s, u"listar"_s, u"piedrach"_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado(), (QJsonObject{{u"resultado"_s, u"catalogo listar"_s},
                                          {u"catalogo"_s, u"PIEDRACH"_s},
                                          {u"cantidad"_s, 6},
                                          {u"estado"_s, 0}}));
    ASSERT_EQ(c.lineas.size(), 7U);
    EXPECT_EQ(c.lineas[0], (QJsonObject{{u"tipo"_s, u"articulo"_s},
                                        {u"articulo"_s, u"BONA23"_s},
                                        {u"descripcion"_s, u"Vino bonarda 2023"_s},
                                        {u"posicion"_s, u"2204.21.00.200F"_s}}));
    c = lote({u"catalogo"_s, u"listar"_s, u"D'OR"_s});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList{u"El catálogo D'OR no tiene artículos; revise el código."_s});
}

TEST_P(CatalogosEnLote, ArticlesMoveWithTheirAdvantagesWhenTheAnswerIsYes) {
    Corrida c = mover({u"HIDPLATA"_s, u"OTRO"_s, u"--articulo"_s, u"nc-75"_s, u"--articulo"_s, u"CO-1"_s});
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(c.textos(),
              QStringList{u"¿Confirma cambiar 2 articulos seleccionados del catálogo [ HIDPLATA ] al "
                          "catálogo [ OTRO ]?"_s});
    EXPECT_EQ(c.resultado().value(u"movidos"_s).toInt(), 2);
    EXPECT_EQ(cuantos(u"OTRO"_s), 2);
    EXPECT_EQ(cuantos(u"HIDPLATA"_s), 18);
    EXPECT_EQ(
        filas(u"select idarticulo,ventaja from articulo_ventaja where idcatalogo = 'OTRO'"_s, u"CATALOGOS"_s)
            .toStdString(),
        "NC-75|BIENCAPITAL");
    c = mover({u"otro"_s, u"Hidplata"_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(
        valor(u"select count(*) as n from catarticulos where idcatalogo = 'HIDPLATA'"_s, u"CATALOGOS"_s),
        u"20"_s);
    EXPECT_EQ(cuantos(u"OTRO"_s), 0);
}

TEST_P(CatalogosEnLote, WhatDoesNotMoveIsToldWithStatusOne) {
    Corrida c = mover({u"HIDPLATA"_s, u"OTRO"_s, u"--articulo"_s, u"NO-HAY"_s, u"--articulo"_s, u"CO-1"_s});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos().value(0).toStdString(),
              "El artículo NO-HAY no está en el catálogo HIDPLATA; revise el código.");
    EXPECT_EQ(c.resultado().value(u"movidos"_s).toInt(), 1);
    c = mover({u"HIDPLATA"_s, u"OTRO"_s}, "[]");
    EXPECT_EQ(c.estado, 1) << "without a Yes nothing moves";
    EXPECT_EQ(c.resultado().value(u"movidos"_s).toInt(), 0);
    ejecutar(u"update catarticulos set idarticulo = 'CO-1' where idarticulo = 'NP-0750'"_s, u"CATALOGOS"_s);
    c = mover({u"HIDPLATA"_s, u"OTRO"_s});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos().value(1).toStdString(),
              "Quedan en el catálogo [ HIDPLATA ] los artículos que [ OTRO ] ya tiene: CO-1");
    EXPECT_EQ(cuantos(u"HIDPLATA"_s), 1);
    c = mover({u"NO-HAY"_s, u"OTRO"_s});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList{u"El catálogo NO-HAY no tiene artículos; revise el código."_s});
}

TEST(CatalogosEnLotePedidos, AWrongUseIsOneSentence) {
    const QTemporaryDir dir;
    const QStringList perfil{u"--perfil"_s, dir.filePath(u"p.ini"_s)};
    struct Caso {
        QStringList argumentos;
        QString dice;
    };
    const Caso casos[] = {
        {{u"catalogo"_s},
         u"Falta qué hacer con catalogo (cargar, listar, mover); vea zendra_lote --ayuda."_s},
        {{u"catalogo"_s, u"borrar"_s},
         u"No existe el comando \"catalogo borrar\" (cargar, listar, mover); vea zendra_lote --ayuda."_s},
        {{u"catalogo"_s, u"cargar"_s, u"C"_s},
         u"Falta ARCHIVO (el CSV); vea zendra_lote catalogo cargar --ayuda."_s},
        {{u"catalogo"_s, u"mover"_s, u"C"_s, QString(51, u'x')},
         u"OTRO no sirve: el código de un catálogo tiene 50 caracteres como máximo; vea zendra_lote catalogo "
         "mover --ayuda."_s},
        {{u"catalogo"_s, u"listar"_s, u"C"_s, u"--reemplazar"_s},
         u"La opción --reemplazar es del comando catalogo cargar; vea zendra_lote catalogo listar --ayuda."_s},
    };
    for (const Caso &caso : casos) {
        const Corrida c = Lote(dir.path(), perfil + caso.argumentos);
        EXPECT_EQ(c.estado, 2);
        EXPECT_EQ(c.errores.trimmed().toStdString(), caso.dice.toStdString());
    }
}

EN_AMBOS_STORES(CatalogosEnLote);

}  // namespace
