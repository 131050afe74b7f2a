// The term of an operation's largest position.

#include "subitems/largestposition.h"

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class MayorFob : public EnAmbosStores {
 protected:
    void item(int id, const QString &ncm, const QString &fob) {
        ejecutar(u"insert into item (interno,id,ncm,fobtotal) values ('A1',%1,'%2',%3)"_s.arg(
            QString::number(id), ncm, fob));
    }
    void posicion(const QString &uno, const QString &dos, const QString &tres, const QString &plazo) {
        ejecutar(u"insert into ncm ([001],[002],[003],[071]) values ('%1','%2','%3','%4')"_s.arg(uno, dos,
                                                                                                 tres, plazo),
                 entidad::ncm);
    }
};

TEST_P(MayorFob, WithoutItemsThereIsNoLargestPosition) {
    item(0, u"8409.91.12.10G"_s, u"500"_s);
    EXPECT_EQ(InformarNcmMayorFob(*ctx, u"A1"_s), -1);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"No se encuentra el Interno con sus items armados "_s);
    EXPECT_EQ(registro.mensajes[0].titulo, u"Informar NCM de mayor FOB en Items"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
}

TEST_P(MayorFob, TheLargestPositionIsReadByTwoCharactersOfItsSecondKey) {
    posicion(u"8409.91.12"_s, u"10"_s, u"G"_s, u"4 meses"_s);
    posicion(u"8483.10.11"_s, u"100"_s, u"A"_s, u"2 meses"_s);
    item(1, u"8483.10.11.100A"_s, u"900"_s);
    item(2, u"8409.91.12.100G"_s, u"300"_s);
    // The second key has three characters in the nomenclature and two in the question: the larger item finds
    // nothing.
    EXPECT_EQ(InformarNcmMayorFob(*ctx, u"A1"_s), 4);
    EXPECT_TRUE(registro.mensajes.empty());
    for (const auto &[plazo, esperado] : {std::pair{u"1"_s, 1}, std::pair{u"8x"_s, 8}, std::pair{u"5"_s, -1},
                                          std::pair{QString(), -1}, std::pair{u"x4"_s, -1}}) {
        ejecutar("update ncm set [071] = '"_L1 + plazo + "' where [002] = '10'"_L1, entidad::ncm);
        EXPECT_EQ(InformarNcmMayorFob(*ctx, u"A1"_s), esperado) << plazo.toStdString();
    }
}

EN_AMBOS_STORES(MayorFob);

}  // namespace
