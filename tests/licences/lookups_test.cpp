// The licences of a position: its norms, its notes and the text of both.

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "regulatory/lnapi.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class Licencias : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into LNAPIPosicionesAfectadas (posicion,lnapi,norma,aclaraciones) values "
            "('8708.80.00','LNA AUTOPARTES','RES.523-E/17','2 3'),"
            "('8708.80.00','LNA REPOSICION','RES.5-E/18',''),"
            "('8708.30.19','LNA FRENOS','RES.1','2  9'),"
            "('8712.00.10','LNA BICICLETAS','RES.2','1,2 A 1'),"
            "('9503.0''.10','LNA RARA','RES.3',null)"_s,
            entidad::ncm);
        ejecutar(
            u"insert into LNAPIAclaraciones (aclaracion,descripcion) values (1,'Sólo mercadería nueva'),"
            "(2,'Exceptuado el fabricante'),(3,'Vale 90 días')"_s,
            entidad::ncm);
    }
    std::string normas(const QString &posicion) {
        QStringList todas;
        for (const NormaLnapi &n : ObtenerNormaLnapi(*ctx, posicion)) todas << n.lnapi + u'|' + n.norma;
        return todas.join(u';').toStdString();
    }
    std::string aclaraciones(const QString &posicion) {
        return ObtenerAclaraciones(*ctx, posicion).toStdString();
    }
    std::string detalle(const QString &posicion) { return DetalleLnapi(*ctx, posicion).toStdString(); }
};
EN_AMBOS_STORES(Licencias);

TEST_P(Licencias, APositionWithNoRowHasMinusOneForNotesAndNoBlockOfThem) {
    EXPECT_EQ(normas(u"3605.00.00.100N"_s), "");
    EXPECT_EQ(aclaraciones(u"3605.00.00.100N"_s), "-1");
    EXPECT_EQ(aclaraciones({}), "-1");
    EXPECT_EQ(detalle(u"3605.00.00.100N"_s), "NO POSEE\r\nNorma: SIN DATOS\r\n");
    ejecutar(u"insert into letrasncm (posicion,letra) values ('3605','H')"_s, entidad::ncm);
    EXPECT_EQ(detalle(u"3605.00.00.100N"_s), "SIN DATOS\r\nNorma: NO POSEE\r\n");
}

TEST_P(Licencias, APositionIsLookedUpByItsFirstTenCharactersWithItsQuotesDoubled) {
    EXPECT_EQ(normas(u"8708.80.00.110K"_s), "LNA AUTOPARTES|RES.523-E/17;LNA REPOSICION|RES.5-E/18")
        << "the longer notes first";
    EXPECT_EQ(normas(u"8708.80.00"_s), normas(u"8708.80.00.110K"_s));
    EXPECT_EQ(normas(u"8708.80.0"_s), "") << "a part of it is another position";
    EXPECT_EQ(normas(u"9503.0'.10.112P"_s), "LNA RARA|RES.3");
    EXPECT_EQ(aclaraciones(u"9503.0'.10.112P"_s),
              "Aclaraciones para (1)\r\n* No posee aclaraciones la posición\r\n");
}

TEST_P(Licencias, EachRowHasItsNotesOneALineAndOneWithoutThemSaysSo) {
    EXPECT_EQ(aclaraciones(u"8708.80.00.110K"_s),
              "Aclaraciones para (1)\r\n"
              "* Exceptuado el fabricante\r\n"
              "* Vale 90 días\r\n"
              "Aclaraciones para (2)\r\n"
              "* No posee aclaraciones la posición\r\n");
}

TEST_P(Licencias, ANoteWithoutATextSaysSoAndDoubledBlanksAreNoNote) {
    EXPECT_EQ(aclaraciones(u"8708.30.19.110T"_s),
              "Aclaraciones para (1)\r\n"
              "* Exceptuado el fabricante\r\n"
              "* No Posee Descripción la aclaración número: 9\r\n");
}

TEST_P(Licencias, ANoteThatIsNoNumberTakesNothingFromTheOthers) {
    EXPECT_EQ(aclaraciones(u"8712.00.10"_s),
              "Aclaraciones para (1)\r\n"
              "* No Posee Descripción la aclaración número: 1,2\r\n"
              "* No Posee Descripción la aclaración número: A\r\n"
              "* Sólo mercadería nueva\r\n");
    EXPECT_EQ(ObtenerDescripcionAclaracion(*ctx, u"1 or 1=1"_s),
              u"No Posee Descripción la aclaración número: 1 or 1=1"_s);
}

TEST_P(Licencias, TheTextOfAPositionHasItsNormsAndThenItsNotes) {
    EXPECT_EQ(detalle(u"8708.80.00.110K"_s),
              "(1) LNA AUTOPARTES\r\n"
              "Norma: RES.523-E/17\r\n"
              "(2) LNA REPOSICION\r\n"
              "Norma: RES.5-E/18\r\n"
              "---------------\r\n"
              "Aclaraciones:\r\n"
              "---------------\r\n"
              "Aclaraciones para (1)\r\n"
              "* Exceptuado el fabricante\r\n"
              "* Vale 90 días\r\n"
              "Aclaraciones para (2)\r\n"
              "* No posee aclaraciones la posición\r\n");
}

}  // namespace
