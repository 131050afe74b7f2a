// The detail sheet of a position, and its licence norms.

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "regulatory/lnapi.h"
#include "subitems/tariffsheet.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::ncm;

std::string texto(const SeccionDeHoja &s) {
    QStringList lineas{s.titulo};
    for (const LineaDeHoja &l : s.lineas) lineas << l.etiqueta + u'=' + l.valor;
    return lineas.join(u'\n').toStdString();
}

class Hoja : public EnAmbosStores {
 protected:
    /// A position whose every column says its own number, apart from those that are given.
    void posicion(const QString &letra, const std::map<int, QString> &distintas) {
        QStringList columnas;
        QStringList valores;
        for (int n = 1; n <= 71; ++n) {
            columnas << u"[%1]"_s.arg(n, 3, 10, QLatin1Char('0'));
            QString valor = u"c%1"_s.arg(n);
            if (n == 1) valor = u"8409.91.12"_s;
            if (n == 2) valor = u"100"_s;
            if (n == 3) valor = letra;
            const auto otra = distintas.find(n);
            if (otra != distintas.end()) valor = otra->second;
            valores << (valor == u"<null>"_s ? u"null"_s : u'\'' + valor + u'\'');
        }
        ejecutar(u"insert into ncm ("_s + columnas.join(u',') + u") values ("_s + valores.join(u',') + u')',
                 ncm);
    }
    std::optional<HojaDelNomenclador> hoja() { return DetalleNomenclador(*ctx, u"8409.91.12.100G"_s); }
};

TEST_P(Hoja, HasItsSectionsWithTheirLabelsInOrder) {
    posicion(u"G"_s, {{71, u"2"_s}});
    const auto h = hoja();
    ASSERT_TRUE(h.has_value());
    ASSERT_EQ(h->secciones.size(), 4U);
    EXPECT_EQ(
        texto(h->secciones[0]),
        "Detalles del Nomenclador\nUnidad Estadistica:=c12\nUnidad del Derecho Especifico:=c20\nRamo:=c13");
    EXPECT_EQ(texto(h->secciones[1]),
              "GRAVAMENES\nDerecho de Importación Extrazona:=c15\nDerecho de Importación intrazona:=c21\n"
              "Arancel Externo Común:=c26\nEstadistica:=c16\nDerecho Especifico:=c17\n"
              "Derecho de Exportación:=c18\nReintegro Extrazona:=c19\nMarca de Exento de IVA:=c48");
    EXPECT_EQ(texto(h->secciones[2]),
              "FUENTES\nDerecho Import. Extrazona:=c30\nEstadistica:=c31\nDerecho Especifico:=c32\n"
              "Derecho de Exportación:=c33\nReintegro Extrazona:=c34\nDerecho de Import. Intrazona:=c35\n"
              "Reintegro de Brasil:=c36\nReintegro de Uruguay:=c37\nReintegro de Paraguay:=c38");
    EXPECT_EQ(texto(h->secciones[3]),
              "POSEE\nImpuestos Internos:=c40\nEstampillado:=c41\nEiquetado:=c42\nIntervención:=c43\n"
              "Prohibición:=c44\nAntidumping:=c45\nExención Estadística:=c46\nUsados:=c47\n"
              "Certificado de Origen Res.763/96:=c49\nValores de Refencia:=c50\n"
              "Certificado de Insp. Preembarque:=c51\nLealtad Comercial (Seg. Eléctrica):=c52\n"
              "Indicador de Maximo Arancel:=c53\nLista de Exclusiones:=c54\nBien de Capital:=c55\n"
              "Bien de Informatica/Telecom:=c56\nReg. de Adecuación:=c57\nCupo Salvaguardia:=c58\n"
              "Formulario Informativo:=c59\nInsumos Inversiones Mineras:=c60\nSeguridad Gas:=c61\n"
              "Seguridad Aceros:=c62\nCódigo Pago Anticipado (IMPO):=c70\n"
              "Plazo para Ingreso de Divisas:=180 días");
    EXPECT_EQ(
        h->encabezado.toStdString(),
        "Posición Arancelaria: 8409.91.12.100G\r\n-----------------------------------------\r\nc10\r\nc4");
}

TEST_P(Hoja, AColumnOfThePossessionsHoldingOnlyBlanksProducesNoLine) {
    std::map<int, QString> vacias;
    for (int n = 40; n <= 71; ++n) vacias[n] = n % 2 == 0 ? u"   "_s : u"<null>"_s;
    vacias[43] = u"INAL"_s;
    vacias[48] = QString();
    posicion(u"G"_s, vacias);
    EXPECT_EQ(texto(hoja()->secciones[3]), "POSEE\nIntervención:=INAL");
    // Duties and sources keep their line without a value.
    EXPECT_EQ(hoja()->secciones[1].lineas.back().etiqueta.toStdString(), "Marca de Exento de IVA:");
    EXPECT_EQ(hoja()->secciones[1].lineas.size(), 8U);
}

TEST_P(Hoja, AnEmptyUnitOfTheSpecificDutyReadsNoPosee) {
    posicion(u"G"_s, {{20, u"<null>"_s}});
    EXPECT_EQ(hoja()->secciones[0].lineas[1].valor.toStdString(), "No posee");
}

TEST_P(Hoja, ACurrencyTermOf5ShowsErrorOnTheSheet) {
    posicion(u"G"_s, {{71, u"5"_s}});
    EXPECT_EQ(hoja()->secciones[3].lineas.back().valor.toStdString(), "ERROR");
}

TEST(PlazosDeDivisas, DecodeByTheirCode) {
    const std::pair<const char *, const char *> casos[] = {
        {"1", "60 días"}, {"2", "180 días"}, {"3", "360 días"}, {"4", "210 días"}, {"8", "180 / 60"},
        {"5", "ERROR"},   {"0", "ERROR"},    {"", "ERROR"},     {"12", "ERROR"}};
    for (const auto &[codigo, plazo] : casos)
        EXPECT_EQ(PlazoDeDivisas(QString::fromUtf8(codigo)).toStdString(), plazo) << codigo;
}

TEST_P(Hoja, TheFirstRowFoundWhateverItsLetterFeedsTheSheet) {
    posicion(u"Z"_s, {{10, u"primera"_s}});
    posicion(u"G"_s, {{10, u"segunda"_s}});
    const Traza traza;
    const auto h = hoja();
    EXPECT_EQ(traza.texto(),
              "NCM|select * from sufidos where sim in ('84  .  .  .   ','8409.  .  .   ','8409.91.  .   ',"
              "'8409.91.12.100')\n"
              "NCM|select * from ncm where [001] = '8409.91.12' and [002] = '100'\n"
              "NCM|select top 1 letra from letrasncm where posicion in ('84','840','8409','8409.','8409.9',"
              "'8409.91','8409.91.','8409.91.1','8409.91.12','8409.91.12.','8409.91.12.1','8409.91.12.10',"
              "'8409.91.12.100','8409.91.12.100G') order by posicion desc");
    EXPECT_TRUE(h->encabezado.contains(u"primera"_s));
}

TEST_P(Hoja, OnlyThePositionsOwnSuffixRowsAreHighlighted) {
    posicion(u"G"_s, {});
    ejecutar(
        u"insert into sufidos (sim,sufijo,detalle) values ('84  .  .  .   ','AA01','Con marca'),"
        "('8409.91.12.100','HA01','De aluminio'),('8409.91.12.900','HA02','Ajeno')"_s,
        ncm);
    const auto h = hoja();
    ASSERT_EQ(h->sufijos.size(), 2U);
    EXPECT_FALSE(h->sufijos[0].resaltado);
    EXPECT_TRUE(h->sufijos[1].resaltado);
    EXPECT_EQ(h->sufijos[1].detalle.toStdString(), "De aluminio");
}

TEST_P(Hoja, AMissingPositionEndsWithoutASheet) {
    EXPECT_FALSE(hoja().has_value());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Hoja, TheLetterAndWhatItSaysAreOnTheSheet) {
    posicion(u"G"_s, {});
    EXPECT_EQ(hoja()->letra, u"NO POSEE"_s);
    EXPECT_EQ(hoja()->descripcionLetra, u"NO POSEE"_s);
    ejecutar(u"insert into letrasncm (posicion,letra) values ('8409.91','F')"_s, ncm);
    ejecutar(u"insert into letras (letra,descripcion) values ('F','Autopartes')"_s, ncm);
    EXPECT_EQ(hoja()->letra, u"F"_s);
    EXPECT_EQ(hoja()->descripcionLetra, u"Autopartes"_s);
}

EN_AMBOS_STORES(Hoja);

class Licencias : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into lnapiposicionesafectadas (posicion,lnapi,norma,aclaraciones) values "
            "('3605.00.00','LNA FOSFOROS','RES.1','1  9'),"
            "('3605.00.00','LNA OTRA','RES.2','2'),"
            "('4011.10.00','LNA NEUMATICOS','RES.3',null)"_s,
            ncm);
        ejecutar(
            u"insert into lnapiaclaraciones (aclaracion,descripcion) values (1,'Sólo nueva'),"
            "(2,'Con ficha')"_s,
            ncm);
    }
};

TEST_P(Licencias, TheTextHasNormsAndThenNotesByDescendingNote) {
    EXPECT_EQ(DetalleLnapi(*ctx, u"3605.00.00.100N"_s).toStdString(),
              "(1) LNA OTRA\r\nNorma: RES.2\r\n(2) LNA FOSFOROS\r\nNorma: RES.1\r\n"
              "---------------\r\nAclaraciones:\r\n---------------\r\n"
              "Aclaraciones para (1)\r\n* Con ficha\r\n"
              "Aclaraciones para (2)\r\n* Sólo nueva\r\n"
              "* No Posee Descripción la aclaración número: 9\r\n");
}

TEST_P(Licencias, APositionInARowWithoutNotesSaysSo) {
    EXPECT_EQ(ObtenerAclaraciones(*ctx, u"4011.10.00.000A"_s).toStdString(),
              "Aclaraciones para (1)\r\n* No posee aclaraciones la posición\r\n");
}

TEST_P(Licencias, APositionInNoRowHasNoNotesAndNoData) {
    EXPECT_EQ(ObtenerAclaraciones(*ctx, u"8409.91.12.100G"_s).toStdString(), "-1");
    EXPECT_EQ(DetalleLnapi(*ctx, u"8409.91.12.100G"_s).toStdString(), "NO POSEE\r\nNorma: SIN DATOS\r\n");
    EXPECT_EQ(DetalleLnapi(*ctx, u"84'9"_s).toStdString(), "NO POSEE\r\nNorma: SIN DATOS\r\n");
}

EN_AMBOS_STORES(Licencias);

}  // namespace
