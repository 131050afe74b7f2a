// What a regime shows of the header.

#include <gtest/gtest.h>

#include "frame/context.h"
#include "tests/caratula/caratulas.h"

using namespace Qt::StringLiterals;

namespace {

/// The names of a list that are visible, in the list's order.
std::string visibles(const Caratula &c, const std::vector<const char *> &nombres) {
    std::string texto;
    for (const char *nombre : nombres)
        if (c[nombre].visible) texto += (texto.empty() ? "" : " ") + std::string(nombre);
    return texto;
}

// The pure rule, with an empty row of dest unless told.
struct Regla {
    const char *regimen;
    const char *esperado;
};
class ReglaDeRegimen : public ::testing::TestWithParam<Regla> {};

TEST_P(ReglaDeRegimen, ShowsWhatTheCodeDecides) {
    Caratula c = CaratulaVacia("X");
    MostrarRegimen(c, GetParam().regimen, QStringList());
    EXPECT_EQ(
        visibles(c, {"txtDCBancos", "txtNROTRANSINTER", "txtDATOCOMPRADOR", "txtDCComiExt",
                     "txtFechaEmbarque", "cboOpcionIVA", "cboFacilidadPago", "txtDJAIFechaArriboAprox"}),
        GetParam().esperado);
    EXPECT_EQ(c["lbFacilidadPago"].visible, c["cboFacilidadPago"].visible);
    EXPECT_EQ(c["cboOpcionesGanancias"].visible, c["cboOpcionIVA"].visible);
    EXPECT_FALSE(c["TxtFactCon"].visible) << "never shown";
}

INSTANTIATE_TEST_SUITE_P(
    Regimenes, ReglaDeRegimen,
    ::testing::Values(
        Regla{"IC04", "txtDCBancos txtNROTRANSINTER txtDCComiExt txtFechaEmbarque cboOpcionIVA"},
        Regla{"IC01", "txtDCBancos txtNROTRANSINTER txtDCComiExt txtFechaEmbarque cboOpcionIVA"},
        // IC1… is neither IC0 nor IG
        Regla{"IC10", "txtDCComiExt txtFechaEmbarque cboOpcionIVA"},
        Regla{"IG06", "txtDCBancos txtNROTRANSINTER txtDCComiExt txtFechaEmbarque cboOpcionIVA"},
        Regla{"IT01", "txtDCComiExt txtFechaEmbarque cboOpcionIVA"},
        Regla{"TR01", "txtNROTRANSINTER txtDCComiExt txtFechaEmbarque"},
        Regla{"EC01", "txtDCBancos txtDATOCOMPRADOR txtDCComiExt"},
        Regla{"EC16", "txtDCBancos txtDATOCOMPRADOR txtDCComiExt cboFacilidadPago"},
        Regla{"EG01", "txtDCBancos txtDATOCOMPRADOR txtDCComiExt"},
        Regla{"ET01", "txtDCComiExt txtFechaEmbarque"}, Regla{"RE01", "txtDCComiExt txtFechaEmbarque"},
        Regla{"DIR6", "txtDCBancos txtDCComiExt txtFechaEmbarque"},
        Regla{"ZFE1", "txtDCBancos txtDCComiExt txtFechaEmbarque"},
        Regla{"ZFTR", "txtDCComiExt txtFechaEmbarque"},
        Regla{"LAPI", "txtDCComiExt txtFechaEmbarque cboOpcionIVA"},
        Regla{"DJAI", "cboOpcionIVA txtDJAIFechaArriboAprox"}),
    [](const auto &caso) { return std::string(caso.param.regimen); });

TEST(Visibilidad, ARowHidesAndEmptiesItsControls) {
    Caratula c = CaratulaVacia("X");
    for (const DefinicionDeControl &d : ControlesDeCaratula()) c[d.nombre].texto = "5";
    MostrarRegimen(c, "IC99", QStringList{"txtfletedivisas", "txtdepalm", "columna_de_mas"});
    for (const char *nombre :
         {"Txtfletedivisas", "TxtCodDivFlete", "TxtDivValorFlete", "TxtDolFlete", "txtDepAlm"}) {
        EXPECT_FALSE(c[nombre].visible) << nombre;
        EXPECT_EQ(c[nombre].texto.toStdString(), "") << nombre;
    }
    EXPECT_EQ(c.texto("Txtfobdivisas").toStdString(), "5");
    EXPECT_TRUE(c["TxtDolSeguro"].visible);
}

TEST(Visibilidad, FobTakesItsCurrencyAndRateAlongAndInsuranceItsPercentageToo) {
    Caratula c = CaratulaVacia("X");
    for (const DefinicionDeControl &d : ControlesDeCaratula()) c[d.nombre].texto = "5";
    MostrarRegimen(c, "IC99", QStringList{"txtfobdivisas", "txtsegurodivisas"});
    for (const char *nombre : {"Txtfobdivisas", "TxtCoddivfob", "TxtDivValorFob", "Txtsegurodivisas",
                               "TxtDivValorSeguro", "TxtCodDivseguro", "txtPorc", "TxtDolSeguro"}) {
        EXPECT_FALSE(c[nombre].visible) << nombre;
        EXPECT_EQ(c[nombre].texto.toStdString(), "") << nombre;
    }
    EXPECT_TRUE(c["TxtDolFob"].visible) << "the label of the FOB stays";
    EXPECT_EQ(c.texto("TxtDolFob").toStdString(), "5");
}

TEST(Visibilidad, TheNextRegimeWithARowShowsEverythingAgain) {
    Caratula c = CaratulaVacia("X");
    MostrarRegimen(c, "IC99", QStringList{"txtfletedivisas", "txtdepalm"});
    MostrarRegimen(c, "IC98", QStringList{});
    EXPECT_TRUE(c["Txtfletedivisas"].visible);
    EXPECT_TRUE(c["TxtCodDivFlete"].visible);
    EXPECT_TRUE(c["txtDepAlm"].visible);
}

// A regime with no dest row leaves every control as the last regime left it.
TEST(Visibilidad, ARegimeWithNoDestRowLeavesControlsAsTheLastOneLeftThem) {
    Caratula c = CaratulaVacia("X");
    MostrarRegimen(c, "IC04", QStringList{"txtfletedivisas", "txtdepalm"});
    MostrarRegimen(c, "IC99", std::nullopt);
    EXPECT_FALSE(c["Txtfletedivisas"].visible);
    EXPECT_FALSE(c["txtDepAlm"].visible);
    EXPECT_TRUE(c["txtPorc"].visible);
    EXPECT_FALSE(c["txtDCBancos"].visible) << "what the code decides is decided all the same";
}

class VisibilidadEnPantalla : public Caratulas {};

TEST_P(VisibilidadEnPantalla, TheRowIsReadFromTheStore) {
    EXPECT_FALSE(ControlesQueQuita(*ctx, "IC99"));
    const auto quita = ControlesQueQuita(*ctx, "ic04");
    ASSERT_TRUE(quita) << "the store compares without regard to case";
    EXPECT_EQ(quita->join(' ').toStdString(), "txtidaduana2 txtidpais txtautdestsusp txtdccomiext");
    const auto nada = ControlesQueQuita(*ctx, "EC16");
    ASSERT_TRUE(nada);
    EXPECT_TRUE(nada->isEmpty());
}

TEST_P(VisibilidadEnPantalla, AnImportHidesWhatIsOfExports) {
    c.poner("TxtIdpais", "203");
    c.poner("TxtAduana2", "MENDOZA");
    c.poner("TxtdescPais", "BRASIL");
    teclear("TxtSubReg", "IC04");
    EXPECT_EQ(texto("TxtSubRegDesc"), "Consumo");
    EXPECT_EQ(c.cstaimpexp.toStdString(), "I");
    for (const char *nombre : {"TxtAduana2", "TxtIdpais", "txtDCComiExt"}) {
        EXPECT_FALSE(c[nombre].visible) << nombre;
        EXPECT_FALSE(c[nombre].habilitado) << nombre;
    }
    EXPECT_EQ(texto("TxtAduana2"), "");
    EXPECT_EQ(texto("TxtdescPais"), "");
    EXPECT_TRUE(c["txtFechaEmbarque"].activo());
    EXPECT_TRUE(c["txtDCBancos"].activo());
}

TEST_P(VisibilidadEnPantalla, AnExportShowsThem) {
    teclear("TxtSubReg", "IC04");
    teclear("TxtSubReg", "EC01");
    for (const char *nombre : {"TxtIdAduana2", "TxtAduana2", "TxtIdpais", "txtDCComiExt", "txtDCBancos"})
        EXPECT_TRUE(c[nombre].activo()) << nombre;
    EXPECT_FALSE(c["txtFechaEmbarque"].visible);
    EXPECT_FALSE(c["txtFechaEmbarque"].habilitado);
    EXPECT_FALSE(visible("Txtfletedivisas"));
    teclear("TxtSubReg", "IC04");
    EXPECT_TRUE(c["Txtfletedivisas"].activo()) << "and back";
    EXPECT_TRUE(c["txtFechaEmbarque"].activo());
}

TEST_P(VisibilidadEnPantalla, DirectionComesAfterTheRulesOfTheCode) {
    // The rules hide bank and shipment date of a DJAI; what ENTER adds for an import shows them again.
    teclear("TxtSubReg", "DJAI");
    EXPECT_TRUE(visible("txtDCBancos"));
    EXPECT_TRUE(visible("txtFechaEmbarque"));
    EXPECT_TRUE(visible("txtDJAI_ForzarDescripcion"));
    EXPECT_FALSE(visible("Txtidvendedor"));
    teclear("TxtSubReg", "IC04");
    EXPECT_FALSE(visible("txtDJAI_ForzarDescripcion"));
}

TEST_P(VisibilidadEnPantalla, AnUnknownRegimeIsToldAndKeepsTheDirection) {
    teclear("TxtSubReg", "EC01");
    teclear("TxtSubReg", "XX99");
    EXPECT_EQ(registro.mensajes.back().titulo.toStdString(), "Buscar SUBREG");
    EXPECT_EQ(texto("TxtSubRegDesc"), "");
    EXPECT_EQ(c.cstaimpexp.toStdString(), "E");
}

TEST_P(VisibilidadEnPantalla, AnEmptyRegimeDoesNothing) {
    teclear("TxtSubReg", "");
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(visible("Txtfletedivisas"));
}

EN_AMBOS_STORES(VisibilidadEnPantalla);

// The demonstration's rows

class RegimenesDeLaDemostracion : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
};

TEST_P(RegimenesDeLaDemostracion, CoverAtLeastTenRegimesOfDifferentKindsAndNameOnlyControls) {
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, "USUARIO", "select * from dest", rs));
    QSet<QString> clases;
    int cuantos = 0;
    for (; !rs.Eof(); rs.MoveNext(), ++cuantos) {
        const QString regimen = rs.Texto(u"subreg");
        clases << regimen.left(2);
        Caratula c = CaratulaVacia("X");
        const auto quita = ControlesQueQuita(*ctx, regimen);
        ASSERT_TRUE(quita) << regimen.toStdString();
        for (const QString &nombre : *quita) EXPECT_NE(DefinicionDe(nombre), nullptr) << nombre.toStdString();
        c.poner("TxtSubReg", regimen);
        RegimenEnter(*ctx, c);
        EXPECT_TRUE(registro.mensajes.empty()) << regimen.toStdString();
        EXPECT_TRUE(c["txtIdAduana1"].visible);
    }
    EXPECT_GE(cuantos, 10);
    EXPECT_GE(clases.size(), 8) << "IC, IT, IG, EC, ET, TR, ZF, DJ, LA …";
}

TEST_P(RegimenesDeLaDemostracion, EveryStoredHeaderOpensWithoutAWordAndIsSavedAsItWas) {
    const QStringList claves = filas("select interno from caratula order by interno").split('\n');
    ASSERT_EQ(claves.size(), 8);
    for (const QString &clave : claves) {
        SCOPED_TRACE(clave.toStdString());
        const QString sql =
            u"select idsubreg,idaduana,cuitcliente,cuitdespaduana,fobdivisas,fobcoddivisas,"
            "fobdivcambio,fletedivisas,segurodivisas,idcondiciondeventa,factura1,factura7,"
            "opcionesiva,opcionesganancias,motivodestsuspensiva from caratula where interno = '%1'"_s.arg(
                clave);
        const QString antes = filas(sql);
        Caratula c = CaratulaVacia(clave);
        ASSERT_TRUE(CargarCaratula(*ctx, c));
        EXPECT_TRUE(registro.mensajes.empty());
        const SalidaDeCaratula salida = GuardarCaratula(*ctx, c);
        EXPECT_TRUE(salida.guardada) << registro.mensajes.back().texto.toStdString();
        EXPECT_TRUE(salida.cierra) << registro.mensajes.back().texto.toStdString();
        EXPECT_EQ(filas(sql).replace("<null>", "").toStdString(),
                  QString(antes).replace("<null>", "").toStdString());
    }
}

EN_AMBOS_STORES(RegimenesDeLaDemostracion);

}  // namespace
