// An armed operation changed without a screen: its items and its packages.

#include <gtest/gtest.h>

#include <QFile>

#include "header/packages.h"
#include "liquidation/itemfields.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// The demonstration's import of 25 lines and 19 items, armed and liquidated. Item 1: a base of 7924.83, a
/// base of IVA of 9034.31, 14 % of duty.
class Cambios : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        const QByteArray carpeta = tienda->carpeta().toUtf8() + '/';
        Escribir(tienda->carpeta(), u"Prueba.perfil.cfg"_s,
                 "[BASESERVER]\r\nINTERNO=" + carpeta + "\r\nPERSONAL=" + carpeta + "\r\nNCM=" + carpeta +
                     "\r\nESTADO=" + carpeta + "\r\n[BASELOCAL]\r\nUSUARIO=" + carpeta +
                     "\r\n[GENERAL]\r\nIVARIN=21\r\nIVARNI=10,5\r\n");
        ejecutar(u"update caratula set factura8 = 'S' where interno = 'IC-2026-0001'"_s);
        ASSERT_EQ(lote({u"armar"_s, u"IC-2026-0001"_s}).estado, 0);
        ASSERT_EQ(lote({u"liquidar"_s, u"IC-2026-0001"_s}).estado, 0);
    }
    bool conDemostracion() const override { return true; }

    Corrida lote(const QStringList &orden) const {
        return Lote(tienda->carpeta(), QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s,
                                                   tienda->carpeta() + "/lote.ini"_L1} +
                                           orden);
    }
    Corrida cambiar(const QStringList &orden, const char *cambios) const {
        return lote(orden +
                    QStringList{u"--cambios"_s, Escribir(tienda->carpeta(), u"cambios.json"_s, cambios)});
    }
    Corrida item(const char *numero, const char *cambios) const {
        return cambiar({u"item"_s, u"IC-2026-0001"_s, L(numero)}, cambios);
    }
    Corrida bultos(const char *cambios) const { return cambiar({u"bultos"_s, u"IC-2026-0001"_s}, cambios); }
    std::string liq(const char *concepto, int numero = 1) {
        return filas(
                   "select porcentaje,baseimp,total,pgc,motivo,valor from itemliq"
                   " where interno = 'IC-2026-0001' and iditem = "_L1 +
                   QString::number(numero) + " and idconceptos = '"_L1 + L(concepto) + "'"_L1)
            .toStdString();
    }
    QString total(const char *concepto) {
        return valor("select valor from liqcero where interno = 'IC-2026-0001' and idconcepto = '"_L1 +
                     L(concepto) + "'"_L1);
    }
    std::string deItem(const char *columnas, int numero) {
        return filas("select "_L1 + L(columnas) + " from item where interno = 'IC-2026-0001' and id = "_L1 +
                     QString::number(numero))
            .toStdString();
    }
    int cuantas(const char *de) {
        return valor("select count(*) as n from "_L1 + QString::fromUtf8(de)).toInt();
    }
};
EN_AMBOS_STORES(Cambios);

TEST_P(Cambios, AConceptAddedByHandStandsInTheItemAndInTheTotals) {
    const Corrida c = item("1", R"({"conceptos":{"agregar":[{"codigo":"041","porcentaje":1,"base":1000}]}})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    // The fine runs on the item's base, whatever was typed: 1 % of 7924.83.
    EXPECT_EQ(liq("041"), "1|7924.83|79.25|P||1");
    EXPECT_EQ(total("041"), u"79.25"_s);
    EXPECT_EQ(c.resultado().value("item"_L1).toString(), u"1"_s);
    EXPECT_FALSE(c.resultado().value("totalP"_L1).toString().isEmpty()) << "what changed was liquidated";
    EXPECT_EQ(cuantas("interno where interno = 'IC-2026-0001'"), 0) << "the lock is given back";
}

TEST_P(Cambios, APercentageChangedByHandRunsOnTheBaseOfItsRow) {
    const Corrida c = item("1", R"({"conceptos":{"modificar":[{"codigo":"010","porcentaje":20}]}})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    // 20 % of 7924.83 is 1584.966.
    EXPECT_EQ(liq("010"), "20|7924.83|1584.97|P||1");
}

TEST_P(Cambios, AnObligationWithoutItsReasonIsToldAndNothingIsWritten) {
    const std::string antes = liq("010");
    const Corrida c = item("1", R"({"conceptos":{"modificar":[{"codigo":"010","pgc":"G"}]}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(),
              QStringList(u"Usted selecionó como Obligacion G, entonces debe seleccionar un MOTIVO"_s));
    EXPECT_EQ(liq("010"), antes);
}

TEST_P(Cambios, AConceptThatIsNotInTheTableIsNoneToChoose) {
    const Corrida c = item("1", R"({"conceptos":{"agregar":[{"codigo":"ZZZ","porcentaje":1,"base":1000}]}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList(u"Debe seleccionar un concepto de la lista."_s));
}

TEST_P(Cambios, AConceptRemovedIsGoneFromTheTotals) {
    const double antes = total("010").toDouble();
    const Corrida c = item("1", R"({"conceptos":{"eliminar":["010"]}})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(liq("010"), "");
    // What item 1 paid: 14 % of 7924.83.
    EXPECT_NEAR(total("010").toDouble(), antes - 1109.48, 0.005);
    EXPECT_EQ(item("1", R"({"conceptos":{"eliminar":["010"]}})").estado, 1) << "there is none any more";
}

TEST_P(Cambios, ATypedListIsMarkedAndClearsTheDutiesOfItsItemAlone) {
    const std::string delSegundo = liq("010", 2);
    const Corrida c = item("1", R"({"campos":{"lista":"MERCOSUR"}})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(deItem("lista,itmodif", 1), "MERCOSUR|S");
    EXPECT_EQ(
        valor(
            u"select total from itemliq where interno = 'IC-2026-0001' and iditem = 1 and idconceptos = '010'"_s),
        u"0"_s);
    EXPECT_EQ(liq("010", 2), delSegundo);
}

TEST_P(Cambios, ColumnsAreKnownInAnyCaseAndNumbersInEitherForm) {
    const Corrida c = item(
        "1", R"({"campos":{"REGALIAS":true,"onccaacuerdo":"A1","totalkneto":540.5,"ajusteinc":"12,50"}})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(deItem("regalias,onccaacuerdo,totalkneto,ajusteinc", 1), "S|A1 |540.5|12.5");
    EXPECT_FALSE(c.resultado().value("totalP"_L1).toString().isEmpty())
        << "an adjustment asks for the liquidation anew";
}

TEST_P(Cambios, ANumberThatIsNoneIsToldByItsFieldAndNothingIsWritten) {
    const std::string antes = deItem("naladisa,totalkneto", 1);
    const Corrida c = item("1", R"({"campos":{"naladisa":"X","totalkneto":"mucho"}})");
    EXPECT_EQ(c.estado, 1);
    ASSERT_EQ(c.textos().size(), 1);
    EXPECT_TRUE(c.textos()[0].contains("Kilos netos"_L1)) << c.textos()[0].toStdString();
    EXPECT_EQ(deItem("naladisa,totalkneto", 1), antes);
}

TEST_P(Cambios, WhatThePageCouldNotHoldIsRefusedAndNothingIsWritten) {
    const std::string antes = deItem("regalias,mineria,opcionesiva,opcionesganancias", 1);
    const std::pair<const char *, const char *> casos[] = {
        {R"({"campos":{"regalias":"X"}})",
         "\"Regalías\" no admite el valor X; corrija el archivo de cambios."},
        {R"({"campos":{"mineria":"SI"}})",
         "\"Minería\" no admite el valor SI; corrija el archivo de cambios."},
        {R"({"campos":{"opcionesiva":"COMERC"}})", nullptr},
        {R"({"campos":{"opcionesganancias":"IVAAD1"}})", nullptr}};
    for (const auto &[cambios, sentencia] : casos) {
        const Corrida c = item("1", cambios);
        EXPECT_EQ(c.estado, 1) << cambios;
        ASSERT_EQ(c.textos().size(), 1) << cambios;
        if (sentencia != nullptr) {
            EXPECT_EQ(c.textos()[0], QString::fromUtf8(sentencia));
        }
    }
    EXPECT_EQ(deItem("regalias,mineria,opcionesiva,opcionesganancias", 1), antes);
    EXPECT_EQ(item("1", R"({"campos":{"opcionesiva":"IVAAD2","opcionesganancias":"USOPAR"}})").estado, 0);
    EXPECT_EQ(deItem("opcionesiva,opcionesganancias", 1), "IVAAD2|USOPAR");
}

TEST_P(Cambios, TheOperationsOwnCountryAndKilosAreTheHeaders) {
    Corrida c = item("0", R"({"campos":{"idpais":"203"}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList(u"Si desea establecer un PAIS ORIGEN para todos los item's , debe "
                                      "ingresarlo en Caratula"_s));
    c = item("0", R"({"campos":{"totalkneto":5}})");
    EXPECT_EQ(c.textos(),
              QStringList(u"Si desea prorratear Kilos Neto, debe ingresar el valor total en Caratula"_s));
}

TEST_P(Cambios, AnAdvantageOfItemZeroGoesToAllAndIsNotRemovedElsewhere) {
    EXPECT_EQ(item("0", R"({"ventajas":{"agregar":["LICENCIAAUTOM"]}})").estado, 0);
    EXPECT_EQ(cuantas("itemventaja where interno = 'IC-2026-0001' and idventaja = 'LICENCIAAUTOM'"), 20)
        << "nineteen items and the operation";
    const Corrida c = item("5", R"({"ventajas":{"eliminar":["LICENCIAAUTOM"]}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(
        c.textos(),
        QStringList(u"No se puede eliminar esta Ventaja. Debe eliminar la misma en el ITEM 0 (cero)"_s));
    EXPECT_EQ(item("0", R"({"ventajas":{"eliminar":["LICENCIAAUTOM"]}})").estado, 0);
    EXPECT_EQ(cuantas("itemventaja where idventaja = 'LICENCIAAUTOM'"), 0);
}

TEST_P(Cambios, WhatAnItemDoesNotHaveIsToldWhenItIsToGo) {
    const Corrida c = item("5", R"({"ventajas":{"eliminar":["MUESTRAEXPO"]}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList(u"El item 5 ya no tiene MUESTRAEXPO; vuelva a mirar la lista."_s));
}

TEST_P(Cambios, AnInformationKeepsItsValueAsWritten) {
    EXPECT_EQ(
        item("2", R"({"informacion":{"agregar":[{"id":"NRO.LICENCIA","valor":"O'Higgins 12"}]}})").estado, 0);
    EXPECT_EQ(valor(u"select valor from iteminfo where interno = 'IC-2026-0001' and iditem = 2 and idinfo = "
                    "'NRO.LICENCIA'"_s),
              u"O'Higgins 12"_s);
    const Corrida c = item("2", R"({"informacion":{"agregar":[{"id":"NRO.LICENCIA","valor":"otra"}]}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList(u"Este item ya esta ingresado."_s));
    EXPECT_EQ(item("2", R"({"informacion":{"agregar":[{"id":"NADA","valor":"x"}]}})").estado, 1);
}

TEST_P(Cambios, KilosAreSpreadOverTheGroupsOfAnItem) {
    ejecutar(
        u"update groupsubitems set kgneto = 0, estadistica = '01', valorrelacionestadistica = 0"
        " where interno = 'IC-2026-0001' and id = 1"_s);
    const Corrida c = item("1", R"({"kilos":600})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(valor(u"select sum(kgneto) from groupsubitems where interno = 'IC-2026-0001' and id = 1"_s),
              u"600"_s);
    EXPECT_EQ(deItem("totalkneto", 1), "600");
}

TEST_P(Cambios, KilosByGroupsAreThoseOfTheWholeOperation) {
    ejecutar(u"update groupsubitems set kgneto = 0 where interno = 'IC-2026-0001'"_s);
    EXPECT_EQ(item("1", R"({"kilosPorGrupos":5000})").estado, 1);
    const Corrida c = item("0", R"({"kilosPorGrupos":5000})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_NEAR(valor(u"select sum(kgneto) from groupsubitems where interno = 'IC-2026-0001'"_s).toDouble(),
                5000, 0.005);
    EXPECT_EQ(deItem("totalkneto", 0), "5000");
}

TEST_P(Cambios, AnItemThatIsNotThereIsTold) {
    const Corrida c = item("20", R"({"campos":{"lista":"X"}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList(u"El interno IC-2026-0001 no tiene el item 20; revise el número o "
                                      "ármelo primero."_s));
}

TEST_P(Cambios, AFileOfChangesThatCannotBeUnderstoodIsRefusedBeforeAnyStoreIsTouched) {
    const std::pair<const char *, const char *> casos[] = {
        {R"({"campos":{"fobtotal":1}})",
         "\"campos.fobtotal\" no se puede cambiar; corrija el archivo de cambios."},
        {R"({"Campos":{}})", "\"Campos\" no se puede cambiar; corrija el archivo de cambios."},
        {R"({"campos":[1]})", "\"campos\" debe ser un objeto; corrija el archivo de cambios."},
        {R"({"campos":{"lista":null}})",
         "\"campos.lista\" debe ser un texto o un número; corrija el archivo de cambios."},
        {R"({"conceptos":{"agregar":[{"porcentaje":1}]}})",
         "Falta \"conceptos.agregar.codigo\"; complete el archivo de cambios."},
        {R"({"ventajas":{"agregar":[1]}})",
         "\"ventajas.agregar\" debe ser una lista de textos; corrija el archivo de cambios."},
        {R"({"informacion":{"agregar":{"id":"A"}}})",
         "\"informacion.agregar\" debe ser una lista de objetos; corrija el archivo de cambios."},
        {"[1]", "debe ser un objeto JSON con los cambios; corríjalo."},
    };
    for (const auto &[cambios, sentencia] : casos) {
        const Corrida c = item("1", cambios);
        EXPECT_EQ(c.estado, 2) << cambios;
        EXPECT_TRUE(c.errores.contains(QString::fromUtf8(sentencia))) << c.errores.toStdString();
        EXPECT_TRUE(c.lineas.empty());
    }
    EXPECT_EQ(item("uno", "{}").estado, 2);
    EXPECT_EQ(lote({u"item"_s, u"IC-2026-0001"_s, u"1"_s}).estado, 2) << "without a file of changes";
}

TEST_P(Cambios, PackagesAreChangedAndTheRestStays) {
    ejecutar(u"update caratula set marcabul = 'S/M', factura9 = null where interno = 'IC-2026-0001'"_s);
    const Corrida c =
        bultos(R"({"campos":{"bulnro":"12","BULPES":1250.5,"trans":"D'Artagnan","venemb":"5/12/2029"}})");
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(
        filas(
            u"select bulnro,bulpes,trans,venemb,marcabul,factura9 from caratula where interno = 'IC-2026-0001'"_s)
            .toStdString(),
        "12|1250.5|D'Artagnan|05-12-29|S/M|1");
}

TEST_P(Cambios, PackagesThatAreNotHandedOverAreAnsweredAndNothingElseIsWritten) {
    ejecutar(u"update caratula set bulnro = '7', factura9 = null where interno = 'IC-2026-0001'"_s);
    const Corrida c = bultos(R"({"transferir":false,"campos":{"bulnro":"12"}})");
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.textos(), QStringList(u"Eligio no transferir bultos, los datos no seran guardados"_s));
    EXPECT_EQ(filas(u"select bulnro,factura9 from caratula where interno = 'IC-2026-0001'"_s).toStdString(),
              "7|1");
}

TEST_P(Cambios, AnExpiryThatHasPassedIsRefused) {
    const Corrida c = bultos(R"({"campos":{"venemb":"1/1/2020"}})");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList(u"La fecha Vencimiento de Embarque debe ser superior a la del día."_s));
    EXPECT_EQ(bultos(R"({"campos":{"cuittrans":"30500000012"}})").estado, 1) << "its check digit is another";
}

TEST(CambiosEnElDocumento, NamesEveryColumnThatCanBeChanged) {
    QFile archivo(CarpetaDeFuentes() + "/docs/lote.md"_L1);
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    const QString texto = QString::fromUtf8(archivo.readAll());
    const auto nombrada = [&texto](const QString &columna) {
        EXPECT_TRUE(texto.contains(QLatin1Char('`') + columna + QLatin1Char('`'))) << columna.toStdString();
    };
    for (const CampoDeItem &c : CamposDeItem())
        if (c.seGraba) nombrada(QString::fromLatin1(c.columna).toLower());
    for (const CampoDeBultos &c : CamposDeBultos()) nombrada(c.columna);
}

}  // namespace
