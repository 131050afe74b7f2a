// The letter of a position and what it says.

#include "regulatory/letters.h"

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "regulatory/lnapi.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class Letras : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into letrasncm (posicion,letra) values ('84','M'),('8409.91','F'),('8409.91.12','T'),"
            "('8409.91.12.100G','Z'),('8413',''),('8414',null),('9503',' H ')"_s,
            entidad::ncm);
        ejecutar(u"insert into letras (letra,descripcion) values ('F','Motores de O''Higgins'),('M','  ')"_s,
                 entidad::ncm);
    }
    std::string letra(const QString &posicion) {
        return obtenerDelNcmLaLetraDeUnaPADada(*ctx, posicion).toStdString();
    }
    std::string dice(const QString &letra) {
        return obtenerDescripcionAPartirDeLaLetra(*ctx, letra).toStdString();
    }
};

TEST_P(Letras, OfTheRowsThatAPositionBeginsWithTheLongestTellsItsLetter) {
    EXPECT_EQ(letra(u"8409.91.12.100G"_s), "Z") << "its own row";
    EXPECT_EQ(letra(u"8409.91.12.100H"_s), "T") << "its first ten characters";
    EXPECT_EQ(letra(u"8409.91.20.000W"_s), "F") << "its subheading";
    EXPECT_EQ(letra(u"8481.80.19.111G"_s), "M") << "its chapter";
    EXPECT_EQ(letra(u"9503.00.10.112P"_s), "H") << "blanks around a letter are none of it";
}

TEST_P(Letras, ARowWithABlankLetterTakesAPositionOutOfItsChapters) {
    EXPECT_EQ(letra(u"8413.70.10.100L"_s), "NO POSEE");
    EXPECT_EQ(letra(u"8414.80.11.000W"_s), "NO POSEE");
}

TEST_P(Letras, APositionWithoutARowHasNone) {
    for (const QString &posicion : {u"0101.21.00.000A"_s, u""_s, u"8"_s, u" "_s})
        EXPECT_EQ(letra(posicion), "NO POSEE") << posicion.toStdString();
    EXPECT_EQ(dice(u"NO POSEE"_s), "NO POSEE");
}

TEST_P(Letras, APositionIsFoundWholeOrNotAndInAnyCase) {
    EXPECT_EQ(letra(u"8409.91.12.100g"_s), "Z");
    EXPECT_EQ(letra(u"  8409.91.12.100G  "_s), "Z");
    EXPECT_EQ(letra(u"8409.91.12.100G de más"_s), "Z");
    EXPECT_EQ(letra(u"84"_s), "M");
    EXPECT_EQ(letra(u"84'9%"_s), "M") << "a quote and a wildcard are no more than text";
}

TEST_P(Letras, ALetterSaysItsTextAndOneWithoutTextSaysSo) {
    EXPECT_EQ(dice(u"F"_s), "Motores de O'Higgins");
    EXPECT_EQ(dice(u"f"_s), "Motores de O'Higgins");
    EXPECT_EQ(dice(u"M"_s), "No Posee Descripción la letra: M");
    EXPECT_EQ(dice(u"Q'"_s), "No Posee Descripción la letra: Q'");
}

TEST_P(Letras, ALookUpIsOneStatement) {
    std::vector<QString> sentencias;
    Conexion::fijarTraza([&sentencias](const TrazaDeSentencia &t) { sentencias.push_back(t.sentencia); });
    letra(u"8409.91.12.100G"_s);
    Conexion::fijarTraza({});
    EXPECT_EQ(sentencias.size(), 1U);
}

TEST_P(Letras, TheLicenceTextOfAPositionWithoutNormSaysWhetherItHasALetter) {
    EXPECT_EQ(DetalleLnapi(*ctx, u"8409.91.12.100G"_s).toStdString(), "SIN DATOS\r\nNorma: NO POSEE\r\n");
    EXPECT_EQ(DetalleLnapi(*ctx, u"0101.21.00.000A"_s).toStdString(), "NO POSEE\r\nNorma: SIN DATOS\r\n");
}

EN_AMBOS_STORES(Letras);

}  // namespace
