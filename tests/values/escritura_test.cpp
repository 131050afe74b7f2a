#include <gtest/gtest.h>

#include "frame/context.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace {

/// The context of a profile that names no store: numbers take a point.
const AppContext &sinPerfil() {
    static const AppContext ctx;
    return ctx;
}

TEST(Escritura, ColumnsAndValuesOfAnInsertStandInTheOrderTheyWerePut) {
    Escritura e(sinPerfil());
    e.codigo("interno", u"OP 1"_s)
        .texto("descripcion", u"d'Or"_s)
        .numero("valor", u"12,5"_s)
        .marca("fin", true);
    EXPECT_EQ(e.insertar(u"prorrateo"_s).toStdString(),
              "insert into prorrateo (interno,descripcion,valor,fin) values ('OP 1','d''Or',12.5,'S')");
}

TEST(Escritura, AnUpdateKeepsTheConditionAsItStands) {
    Escritura e(sinPerfil());
    e.sinComillas("factura7", u"L'AUTO"_s).numero("fob", 0.5).crudo("fecha", u"null"_s).marca("n", false);
    EXPECT_EQ(
        e.actualizar(u"caratula"_s, u"interno = 'OP 1'"_s).toStdString(),
        "update caratula set factura7 = 'L AUTO',fob = 0.5,fecha = null,n = 'N' where interno = 'OP 1'");
}

TEST(Escritura, ACodeGoesInAsItStandsAndAQuoteInItBreaksTheStatement) {
    Escritura e(sinPerfil());
    e.codigo("interno", u"O'P"_s);
    EXPECT_EQ(e.insertar(u"caratula"_s).toStdString(), "insert into caratula (interno) values ('O'P')");
}

TEST(Escritura, WhatIsNoNumberIsWrittenAsZero) {
    Escritura e(sinPerfil());
    e.numero("kgneto", QString()).numero("kgbruto", u"abc"_s);
    EXPECT_EQ(e.insertar(u"subitems"_s).toStdString(), "insert into subitems (kgneto,kgbruto) values (0,0)");
}

}  // namespace
