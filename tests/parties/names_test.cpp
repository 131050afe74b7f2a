// Tax numbers and the names behind codes.

#include <gtest/gtest.h>

#include "header/parties.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

TEST(NumeroDeCuit, FollowsTheCheckDigit) {
    struct Caso {
        const char *cuit;
        bool valido;
    };
    const Caso casos[] = {
        // 8*2+7*3+6*4+5*5+4*6+3*7+2*2+1*3+0*4+3*5 = 153; 153 mod 11 = 10; 11 - 10 = 1.
        {"30123456781", true},
        {"30123456780", false},
        // 5+...: 0*2+2*3+0*4+6*5+5*6+4*7+1*2+7*3+0*4+3*5 = 132; 132 mod 11 = 0: the digit 0.
        {"30714560200", true},
        {"30714560201", false},
        // 1*2+2*5 = 12; 12 mod 11 = 1: the digit stays 1, it is not 10.
        {"20000000011", true},
        {"20000000010", false},
        // 5*2+5*3+4*4+4*5+3*6+3*7+2*2+2*3+7*4+2*5 = 148; 148 mod 11 = 5; 11 - 5 = 6.
        {"27223344556", true},
        {"27223344559", false},
        {"", false},
        {"3012345678A", false},
        {"3012345678 ", false},
        {"3012345A781", false},
    };
    for (const Caso &c : casos) EXPECT_EQ(CUITValido(QString::fromUtf8(c.cuit)), c.valido) << c.cuit;
}

TEST(NumeroDeCuit, ATenDigitIdIsInvalidWithNoArithmetic) {
    EXPECT_FALSE(CUITValido(u"3012345678"_s));
    EXPECT_FALSE(CUITValido(u"301234567811"_s));
    // All zeros would pass the arithmetic at any length.
    EXPECT_FALSE(CUITValido(u"0000000000"_s));
    EXPECT_TRUE(CUITValido(u"00000000000"_s));
}

class Nombres : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into clientes (cuit,nombre,regalias,ajxvinc_4102) values "
            "('30123456781','ACEROS S.A.',3,1.5)"_s,
            personal);
        ejecutar(u"insert into despadu (cuit,nombre) values ('20000000019',' GOMEZ ANA ')"_s, personal);
        ejecutar(u"insert into vendedor (codigo,nombre) values ('V1','NORD')"_s, personal);
        ejecutar(u"insert into transporte (cuit,nombre) values ('30123456781','MAR')"_s, personal);
    }
    const QString personal = u"PERSONAL"_s;
};

TEST_P(Nombres, TheNameBehindACodeOfThreeTables) {
    EXPECT_EQ(BuscarNombre(*ctx, u"clientes"_s, u"30123456781"_s).toStdString(), "ACEROS S.A.");
    EXPECT_EQ(BuscarNombre(*ctx, u"despadu"_s, u"20000000019"_s).toStdString(), "GOMEZ ANA");
    EXPECT_EQ(BuscarNombre(*ctx, u"vendedor"_s, u"V1"_s).toStdString(), "NORD");
    EXPECT_TRUE(BuscarNombre(*ctx, u"vendedor"_s, u"V2"_s).isEmpty());
}

TEST_P(Nombres, AnyOtherTableReturnsTheEmptyText) {
    const Traza traza;
    EXPECT_TRUE(BuscarNombre(*ctx, u"transporte"_s, u"30123456781"_s).isEmpty());
    EXPECT_EQ(traza.texto(), "");
}

TEST_P(Nombres, TheBrokerLookUpAcceptsElevenCharactersWithAWrongCheckDigit) {
    // 20000000011 would be right.
    ASSERT_FALSE(CUITValido(u"20000000019"_s));
    QString nombre;
    EXPECT_TRUE(BuscarDespachante(*ctx, u"20000000019"_s, nombre));
    EXPECT_EQ(nombre.toStdString(), "GOMEZ ANA");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Nombres, TheBrokerLookUpTellsAWrongLengthAndAMissingNumber) {
    QString nombre = u"old"_s;
    {
        const Traza traza;
        EXPECT_FALSE(BuscarDespachante(*ctx, u"2000000001"_s, nombre));
        EXPECT_EQ(traza.texto(), "");
    }
    EXPECT_FALSE(BuscarDespachante(*ctx, u"27223344556"_s, nombre));
    EXPECT_TRUE(nombre.isEmpty());
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Cuit Invalido");
    EXPECT_EQ(registro.mensajes[1].texto.toStdString(), "No se encontró el CUIT Ingresado");
}

TEST_P(Nombres, TheHeadersClientIsReadWithItsPercentages) {
    ClienteDeCaratula cliente;
    EXPECT_EQ(BuscarCliente(*ctx, QString(), cliente), BusquedaDeCliente::FaltaCuit);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Falta ingresar CUIT como parametro");
    EXPECT_EQ(BuscarCliente(*ctx, u"27223344556"_s, cliente), BusquedaDeCliente::NoEncontrado);
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(BuscarCliente(*ctx, u"30123456781"_s, cliente), BusquedaDeCliente::Encontrado);
    EXPECT_EQ(cliente.nombre.toStdString(), "ACEROS S.A.");
    EXPECT_EQ(cliente.cuit.toStdString(), "30123456781");
    EXPECT_EQ(cliente.regalias, 3);
    EXPECT_EQ(cliente.ajxvinc_4102, 1.5);
}

TEST_P(Nombres, BrokersAreListedByName) {
    ejecutar(u"insert into despadu (cuit,nombre) values ('27223344556','ALVAREZ')"_s, personal);
    const Traza traza;
    const auto lista = CargarDespachantes(*ctx);
    EXPECT_EQ(traza.texto(), "PERSONAL|select cuit,nombre from despadu order by nombre");
    ASSERT_EQ(lista.size(), 2U);
    EXPECT_EQ(lista[0].nombre.trimmed().toStdString(), "GOMEZ ANA");
    EXPECT_EQ(lista[1].cuit.toStdString(), "27223344556");
}

EN_AMBOS_STORES(Nombres);

}  // namespace
