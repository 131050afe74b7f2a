// The data of meat: their nine lists, and what is loaded and saved of an operation.

#include <gtest/gtest.h>

#include "header/ListadoCodigos.h"
#include "header/codes.h"
#include "header/regime.h"
#include "regulatory/oncca.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString laDeCarne = u"CARNE-1"_s;
const QString codigosDeCaratula =
    u"onccaacuerdo,onccacategoria,onccacortes,onccaelaborador,onccaespecie,"
    "onccafaneador,onccameccoorgbio,onccares3106,onccasispro,onccamatadero"_s;

class DatosDeCarne : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into caratula (interno,idsubreg,factura8,onccahabilitado) "
            "values ('CARNE-1','EC01','N','N')"_s);
    }
    void linea(const QString &interno, const QString &articulo, const QString &categoria = {},
               const QString &corte = {}) {
        ejecutar(
            u"insert into subitems (interno,idarticulo,ncm,descripcion,onccacategoria,onccacortes) "
            "values ('%1','%2','0202.30.00.111D','Aguja','%3','%4')"_s.arg(interno, articulo, categoria,
                                                                           corte));
    }
    std::string caratula(const QString &columnas) {
        return filas("select "_L1 + columnas + " from caratula where interno = 'CARNE-1'"_L1).toStdString();
    }
    std::string lineas() {
        return filas(u"select idarticulo,onccacategoria,onccacortes from subitems order by id"_s)
            .toStdString();
    }
};
EN_AMBOS_STORES(DatosDeCarne);

struct ListaDeCarne {
    const char *clave;
    const char *tabla;
    const char *titulo;
};
const ListaDeCarne nueveListas[] = {
    {"ONCCA_ACUERDO", "oncca_acuerdo", "Acuerdos"},
    {"ONCCA_CATEGORIA", "oncca_categoria", "Categorías"},
    {"ONCCA_CORTES", "oncca_cortes", "Cortes"},
    {"ONCCA_ELABORADOR", "oncca_elaborador", "Elaboradores"},
    {"ONCCA_ESPECIE", "oncca_especie", "Especies"},
    {"ONCCA_FANEADOR", "oncca_faneador", "Faneadores y mataderos"},
    {"ONCCA_MECOORGBIO", "oncca_mecoorgbio", "Ecológico, orgánico o biológico"},
    {"ONCCA_RES3106", "oncca_res3106", "Resolución 31/06 MEyP"},
    {"ONCCA_SISPRO", "oncca_sispro", "Sistemas de producción"},
};

TEST_P(DatosDeCarne, EachOfTheNineListsIsPickedFromAndItsCodeDescribed) {
    for (const ListaDeCarne &lista : nueveListas) {
        // A code of any length comes back whole.
        ejecutar(u"insert into %1 (id,descripcion) values ('x-2911','ZETA')"_s.arg(L(lista.tabla)),
                 u"SYSTABLAS"_s);
        ejecutar(u"insert into %1 (id,descripcion) values ('1','ALFA D''OR')"_s.arg(L(lista.tabla)),
                 u"SYSTABLAS"_s);
        registro = {};
        registro.indices = {1};
        CampoDeCodigo campo;
        EXPECT_TRUE(ElegirCodigo(*ctx, L(lista.clave), campo)) << lista.clave;
        ASSERT_EQ(registro.elecciones.size(), 1U) << lista.clave;
        EXPECT_EQ(registro.elecciones[0].titulo, QString::fromUtf8(lista.titulo));
        EXPECT_EQ(registro.elecciones[0].filas, (QStringList{u"ALFA D'OR (1)"_s, u"ZETA (x-2911)"_s}));
        EXPECT_EQ(campo.codigo, u"X-2911"_s) << "in capitals, as every code";
        EXPECT_EQ(campo.descripcion, u"ZETA"_s);
        EXPECT_EQ(oncca::Describir(*ctx, L(lista.clave), u"X-2911"_s), u"ZETA"_s);
        EXPECT_EQ(oncca::Describir(*ctx, L(lista.clave), u"NO ESTA"_s), QString());
        EXPECT_TRUE(registro.mensajes.empty()) << "a description is never a message";
    }
}

TEST_P(DatosDeCarne, AListIsLeftWithoutAChoice) {
    ejecutar(u"insert into oncca_cortes (id,descripcion) values ('101','AGUJA')"_s, u"SYSTABLAS"_s);
    CampoDeCodigo campo{u"999"_s, u"Antes"_s, {}};
    EXPECT_FALSE(ElegirCodigo(*ctx, oncca::claveDeCorte, campo));
    EXPECT_EQ(campo.codigo, u"999"_s);
    EXPECT_EQ(campo.descripcion, u"Antes"_s);
}

TEST_P(DatosDeCarne, EveryFieldHasOneOfTheListsAndTheSlaughterhouseSharesThatOfThePackingHouses) {
    QStringList claves;
    for (const oncca::CampoConLista &campo : oncca::CamposConLista()) {
        claves << L(campo.clave);
        EXPECT_TRUE(ListadoCodigosClass::Ofrece(L(campo.clave))) << campo.control;
    }
    EXPECT_EQ(claves.takeLast(), u"ONCCA_FANEADOR"_s);
    QStringList nueve;
    for (const ListaDeCarne &lista : nueveListas) nueve << L(lista.clave);
    EXPECT_EQ(claves, nueve);
}

TEST_P(DatosDeCarne, OnlyTheExportsToConsumptionCarryThem) {
    for (const char *regimen : {"EC01", "EC02", "EC16"}) EXPECT_TRUE(EsRegimenConONCCA(QString(L(regimen))));
    for (const char *regimen : {"", "E", "EG01", "ET01", "IC04", "ec01"})
        EXPECT_FALSE(EsRegimenConONCCA(QString(L(regimen)))) << regimen;
}

TEST_P(DatosDeCarne, AMarkThatIsNullOrAnythingButSIsClear) {
    for (const char *marca : {"null", "''", "'N'", "'X'", "'SI'"}) {
        ejecutar(u"update caratula set onccahabilitado = %1"_s.arg(L(marca)));
        EXPECT_FALSE(oncca::CargarDatos(*ctx, laDeCarne).habilitado) << marca;
    }
    ejecutar(u"update caratula set onccahabilitado = 'S'"_s);
    EXPECT_TRUE(oncca::CargarDatos(*ctx, laDeCarne).habilitado);
}

TEST_P(DatosDeCarne, NullCodesAreEmptyAndLinesComeInTheOrderOfLoading) {
    linea(laDeCarne, u"B"_s, u"VA"_s);
    linea(u"OTRA"_s, u"Z"_s);
    linea(laDeCarne, u"A"_s, {}, u"103"_s);
    ejecutar(u"update subitems set onccacortes = null where idarticulo = 'B'"_s);
    const Traza traza;
    const oncca::Datos datos = oncca::CargarDatos(*ctx, laDeCarne);
    EXPECT_EQ(traza.sentencias().first().toStdString(),
              "INTERNOS|select ONCCAHabilitado, ONCCAAcuerdo, ONCCACategoria, ONCCACortes, ONCCAElaborador, "
              "ONCCAEspecie , ONCCAFaneador, ONCCAMeccoorgbio, ONCCAres3106, ONCCAsispro, ONCCAMatadero "
              "from caratula where interno = 'CARNE-1'");
    for (const QString &codigo : datos.codigos) EXPECT_EQ(codigo, QString());
    ASSERT_EQ(datos.lineas.size(), 2U);
    EXPECT_EQ(datos.lineas[0].idarticulo, u"B"_s);
    EXPECT_EQ(datos.lineas[0].categoria, u"VA"_s);
    EXPECT_EQ(datos.lineas[0].corte, QString());
    EXPECT_EQ(datos.lineas[1].idarticulo, u"A"_s);
    EXPECT_EQ(datos.lineas[1].corte, u"103"_s);
}

TEST_P(DatosDeCarne, TheTenCodesAndTheMarkAreOneStatement) {
    oncca::Datos datos;
    datos.habilitado = true;
    for (std::size_t n = 0; n < datos.codigos.size(); ++n) datos.codigos.at(n) = QString::number(n + 1);
    const Traza traza;
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(traza.sentencias().filter(u"update caratula set ONCCA"_s).join(u'\n').toStdString(),
              "INTERNOS|update caratula set ONCCAAcuerdo = '1',ONCCACategoria = '2',ONCCACortes = '3',"
              "ONCCAElaborador = '4',ONCCAEspecie = '5',ONCCAFaneador = '6',ONCCAMeccoorgbio = '7',"
              "ONCCAres3106 = '8',ONCCAsispro = '9',ONCCAMatadero = '10',ONCCAHabilitado = 'S' "
              "where interno = 'CARNE-1'");
    EXPECT_EQ(caratula(codigosDeCaratula + ",onccahabilitado"_L1), "1|2|3|4|5|6|7|8|9|10|S");
    EXPECT_EQ(oncca::CargarDatos(*ctx, laDeCarne), datos);
    datos.habilitado = false;
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(caratula(u"onccahabilitado,onccaacuerdo"_s), "N|1") << "the codes stay";
}

TEST_P(DatosDeCarne, OfTheLinesOnlyThoseThatChangedAreWritten) {
    linea(laDeCarne, u"A"_s);
    linea(laDeCarne, u"B"_s, u"NO"_s, u"101"_s);
    linea(u"OTRA"_s, u"C"_s);
    oncca::Datos datos = oncca::CargarDatos(*ctx, laDeCarne);
    datos.lineas[0].categoria = u"VA"_s;
    datos.lineas[0].corte = u"D'OR"_s;
    // One that somebody else removed meanwhile comes back to nobody.
    datos.lineas.push_back({987654, u"X"_s, {}, {}, u"TO"_s, {}});
    const Traza traza;
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(traza.sentencias().filter(u"update subitems"_s).size(), 1);
    EXPECT_EQ(lineas(), "A|VA|D'OR\nB|NO|101\nC||");
}

TEST_P(DatosDeCarne, ACodeThatChangedAsksForANewAssemblyAndTheMarkAloneDoesNot) {
    linea(laDeCarne, u"A"_s);
    oncca::Datos datos = oncca::CargarDatos(*ctx, laDeCarne);
    datos.habilitado = true;
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(caratula(u"factura8"_s), "N");
    datos.codigos[0] = u"06"_s;
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(caratula(u"factura8"_s), "S");
    ejecutar(u"update caratula set factura8 = 'N'"_s);
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(caratula(u"factura8"_s), "N") << "saved again as it is";
    datos.lineas[0].corte = u"101"_s;
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(caratula(u"factura8"_s), "S");
}

TEST_P(DatosDeCarne, ACodeWithAQuoteIsKeptAsItIs) {
    oncca::Datos datos;
    datos.codigos.fill(u"O'H"_s);
    ASSERT_TRUE(oncca::GuardarDatos(*ctx, laDeCarne, datos));
    EXPECT_EQ(oncca::CargarDatos(*ctx, laDeCarne).codigos, datos.codigos);
}

TEST_P(DatosDeCarne, AnOperationThatIsGoneIsTold) {
    EXPECT_EQ(oncca::CargarDatos(*ctx, u"NO ESTA"_s), oncca::Datos());
    EXPECT_FALSE(oncca::GuardarDatos(*ctx, u"NO ESTA"_s, {}));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"El interno NO ESTA ya no existe: vuelva a buscarlo en la lista."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
}

}  // namespace
