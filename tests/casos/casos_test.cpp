// Every folder with a case, on both stores; and the comparison itself, which must not be blind.

#include <gtest/gtest.h>

#include <QFileInfo>

#include "frame/base/failure.h"
#include "tests/casos/caso.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

QString raiz() {
    return CarpetaDeFuentes() + "/tests/casos"_L1;
}

std::vector<std::string> nombres() {
    std::vector<std::string> lista;
    for (const QString &carpeta : casos::CarpetasDeCasos(raiz()))
        lista.push_back(QFileInfo(carpeta).fileName().toStdString());
    return lista;
}

class Casos : public ::testing::TestWithParam<std::tuple<const char *, std::string>> {};

TEST_P(Casos, ComesOutAsItsFolderSays) {
    const auto &[store, nombre] = GetParam();
    const QString carpeta = raiz() + '/'_L1 + QString::fromStdString(nombre);
    try {
        const QStringList diferencias = casos::CorrerCaso(carpeta, QLatin1String(store));
        EXPECT_TRUE(diferencias.isEmpty()) << "tests/casos/" << nombre << " (caso.txt says why)\n  "
                                           << diferencias.join("\n  "_L1).toStdString();
    } catch (const Falla &e) {
        ADD_FAILURE() << nombre << ": " << e.descripcion.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Carpetas, Casos,
                         ::testing::Combine(::testing::Values("ACCESS", "SQL"),
                                            ::testing::ValuesIn(nombres())),
                         [](const ::testing::TestParamInfo<Casos::ParamType> &caso) {
                             return std::get<1>(caso.param) + "_" + std::get<0>(caso.param);
                         });

// Comparing

casos::Planilla dosConceptos() {
    return {{u"iditem"_s, u"idconceptos"_s, u"total"_s},
            {{u"1"_s, u"010"_s, u"20.00"_s}, {u"1"_s, u"415"_s, u"25.83"_s}}};
}

casos::FilaDelStore concepto(const QString &codigo, const QString &total) {
    return {{{u"iditem"_s, u"1"_s}, {u"idconceptos"_s, codigo}, {u"total"_s, total}}, total == "0"_L1};
}

std::string comparar(const std::vector<casos::FilaDelStore> &filas) {
    return casos::Comparar(u"itemliq"_s, dosConceptos(), filas).join('\n'_L1).toStdString();
}

TEST(ComparacionDeCasos, EqualRowsInAnyOrderAndAnyFormOfANumberAreNoDifference) {
    EXPECT_EQ(comparar({concepto(u"415"_s, u"25.83"_s), concepto(u"010"_s, u"20"_s)}), "");
}

TEST(ComparacionDeCasos, ACentIsToldWithItsRowAndItsColumn) {
    EXPECT_EQ(comparar({concepto(u"010"_s, u"20"_s), concepto(u"415"_s, u"25.84"_s)}),
              "itemliq (iditem=1, idconceptos=415), total: se esperaba \"25.83\", salió \"25.84\"");
}

TEST(ComparacionDeCasos, AMissingAndASurplusRowAreTold) {
    EXPECT_EQ(comparar({concepto(u"010"_s, u"20"_s), concepto(u"011"_s, u"3"_s)}),
              "itemliq (iditem=1, idconceptos=415): la fila no está\n"
              "itemliq: sobra la fila iditem=1, idconceptos=011, total=3");
}

TEST(ComparacionDeCasos, AConceptWithoutAmountNeedNotBeNamed) {
    EXPECT_EQ(
        comparar({concepto(u"010"_s, u"20"_s), concepto(u"415"_s, u"25.83"_s), concepto(u"900"_s, u"0"_s)}),
        "");
}

TEST(ComparacionDeCasos, RowsCannotBeToldApartWithoutTheirKey) {
    EXPECT_EQ(casos::Comparar(u"item"_s, dosConceptos(), {}).join('\n'_L1).toStdString(),
              "esperado/item.csv: falta la columna id, que distingue las filas");
}

TEST(ComparacionDeCasos, NoCaseIsLostOnTheWay) {
    EXPECT_GE(nombres().size(), 20U);
}

}  // namespace
