// The meat export of the demonstration: its lists, and its data on the way from the header and the lines to
// the groups and the items.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "regulatory/oncca.h"
#include "tests/support/claves.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class CarneDeMuestra : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void armarCarne(int orden) {
        OpcionesDeArmado opciones;
        opciones.ARMARITEM = orden;
        ctx->ChequeoArmado = u"SI"_s;
        ASSERT_TRUE(Generar(*ctx, carnes, opciones));
        ASSERT_EQ(ctx->ChequeoArmado, u"SI"_s);
        for (const Mensaje &m : registro.mensajes)
            EXPECT_NE(m.icono, Icono::Critico) << m.texto.toStdString();
    }
    std::string items(const QString &columnas) {
        return filas(
                   u"select %1 from item where interno = '%2' and id > 0 order by id"_s.arg(columnas, carnes))
            .toStdString();
    }
    /// Each group with its item, and the lines that it stands for.
    std::string grupos() {
        return filas(
                   u"select id,ncm,onccacategoria,onccacortes,cantidad from groupsubitems "
                   "where interno = '%1' order by id,cantidad"_s.arg(carnes))
            .toStdString();
    }
    std::string lineasGuardadas() {
        return filas(
                   u"select onccacategoria,onccacortes from subitems where interno = '%1' order by id"_s.arg(
                       carnes))
            .toStdString();
    }
    /// Saves a datum of the header.
    void ponerCodigo(const char *control, const QString &codigo) {
        oncca::Datos datos = oncca::CargarDatos(*ctx, carnes);
        for (std::size_t n = 0; n < oncca::cuantosCampos; ++n)
            if (QLatin1String(oncca::CamposConLista().at(n).control) == QLatin1String(control))
                datos.codigos.at(n) = codigo;
        ASSERT_TRUE(oncca::GuardarDatos(*ctx, carnes, datos));
    }
};
EN_AMBOS_STORES(CarneDeMuestra);

TEST_P(CarneDeMuestra, EveryCodeOfTheExportIsInItsList) {
    const oncca::Datos datos = oncca::CargarDatos(*ctx, carnes);
    EXPECT_TRUE(datos.habilitado);
    for (std::size_t n = 0; n < oncca::cuantosCampos; ++n) {
        const oncca::CampoConLista &campo = oncca::CamposConLista().at(n);
        EXPECT_FALSE(oncca::Describir(*ctx, QLatin1String(campo.clave), datos.codigos.at(n)).isEmpty())
            << campo.control;
    }
    ASSERT_EQ(datos.lineas.size(), 6U);
    for (const oncca::Linea &linea : datos.lineas) {
        if (!linea.categoria.isEmpty()) {
            EXPECT_FALSE(oncca::Describir(*ctx, oncca::claveDeCategoria, linea.categoria).isEmpty());
        }
        if (!linea.corte.isEmpty()) {
            EXPECT_FALSE(oncca::Describir(*ctx, oncca::claveDeCorte, linea.corte).isEmpty());
        }
    }
    EXPECT_EQ(valor(u"select count(*) as n from clientes where cuit in "
                    "(select cuitcliente from caratula where interno = 'EC-2026-0006')"_s,
                    u"PERSONAL"_s),
              u"1"_s);
}

TEST_P(CarneDeMuestra, TheHeadersCodesFillTheLinesThatHaveNoneAndReachTheItems) {
    for (const int orden : {1, 2}) {
        SCOPED_TRACE(orden);
        armarCarne(orden);
        // The aguja of two lines, 8,000 and 3,000 kilos, is one group; that of cow has a category of its own.
        // The huachalomo of 6,000 and 1,200 kilos is one group, with a cut of its own.
        EXPECT_EQ(filas(u"select ncm,onccacategoria,onccacortes,cantidad from item "
                        "where interno = 'EC-2026-0006' and id > 0 order by ncm,onccacategoria"_s)
                      .toStdString(),
                  "0202.30.00.111D|NO|101|11000\n"
                  "0202.30.00.111D|VA|101|2500\n"
                  "0202.30.00.112F|NO|102|7200\n"
                  "0202.30.00.113H|NO|103|5000");
        EXPECT_EQ(filas(u"select distinct onccaacuerdo,onccaelaborador,onccaespecie,onccafaneador,"
                        "onccamatadero,onccameccoorgbio,onccares3106,onccasispro "
                        "from item where interno = 'EC-2026-0006'"_s)
                      .toStdString(),
                  "06|4203|1|4203|4077|N|02|P")
            << "every item, item 0 among them";
        EXPECT_EQ(lineasGuardadas(), "|\n|\n|102\n|103\nVA|\n|102");
    }
}

// The codes split groups and items, and take no part in the links between them: goods of one position that
// differ in their codes alone are told apart by their filler.
TEST_P(CarneDeMuestra, GroupsOfOnePositionThatTheirFillerTellsApartGoToTheirOwnItems) {
    for (const int orden : {1, 2}) {
        SCOPED_TRACE(orden);
        armarCarne(orden);
        // Each item holds the groups of its own category and cut.
        EXPECT_EQ(valor(u"select count(*) as n from groupsubitems as g inner join item as i "
                        "on (g.interno = i.interno and g.id = i.id) "
                        "where g.interno = 'EC-2026-0006' and g.ncm = i.ncm "
                        "and g.onccacategoria = i.onccacategoria and g.onccacortes = i.onccacortes "
                        "and g.cantidad = i.cantidad"_s),
                  u"4"_s)
            << grupos();
        EXPECT_EQ(items(u"id"_s), "1\n2\n3\n4");
    }
}

TEST_P(CarneDeMuestra, WithoutAnAgreementOnlyTheCategoryAndTheCutReachTheItems) {
    ponerCodigo("txtAcuerdo", {});
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'EC-2026-0006'"_s), u"S"_s);
    armarCarne(1);
    EXPECT_EQ(filas(u"select distinct onccaacuerdo,onccaelaborador,onccamatadero from item "
                    "where interno = 'EC-2026-0006'"_s)
                  .toStdString(),
              "<null>|<null>|<null>");
    EXPECT_EQ(items(u"onccacategoria,onccacortes"_s), "NO|101\nVA|101\nNO|102\nNO|103");
}

TEST_P(CarneDeMuestra, WithoutCodesInTheHeaderTheLinesKeepTheirsAndTheOthersHaveNone) {
    ponerCodigo("txtCategoria", {});
    ponerCodigo("txtCorte", {});
    armarCarne(1);
    EXPECT_EQ(filas(u"select ncm,onccacategoria,onccacortes from item "
                    "where interno = 'EC-2026-0006' and id > 0 order by ncm,onccacategoria"_s)
                  .toStdString(),
              "0202.30.00.111D||\n0202.30.00.111D|VA|\n0202.30.00.112F||102\n0202.30.00.113H||103");
}

TEST_P(CarneDeMuestra, ACodeWithAQuoteGoesAllTheWayToTheItems) {
    for (const oncca::CampoConLista &campo : oncca::CamposConLista()) ponerCodigo(campo.control, u"D'OR"_s);
    for (const int orden : {1, 2}) {
        SCOPED_TRACE(orden);
        armarCarne(orden);
        EXPECT_EQ(filas(u"select distinct onccaacuerdo,onccacategoria,onccamatadero from item "
                        "where interno = 'EC-2026-0006' and id > 0 order by onccacategoria"_s)
                      .toStdString(),
                  "D'OR|D'OR|D'OR\nD'OR|VA|D'OR");
        EXPECT_EQ(items(u"onccacortes"_s).find("101"), std::string::npos);
    }
}

}  // namespace
