#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "frame/context.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace {

class Escrituras : public ::testing::Test {
 protected:
    void SetUp() override {
        const QString perfil = dir.filePath(u"a.perfil.ini"_s);
        QFile f(perfil);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(
            "[INTERNOS]\ndriver=archivo\narchivo=i.db\n[NCM]\ndriver=archivo\narchivo=n.db\nseparador=,\n");
        f.close();
        ASSERT_TRUE(ctx.DataManager.usarPerfil(perfil));
    }

    QTemporaryDir dir;
    AppContext ctx;
};

TEST_F(Escrituras, ColumnsAndValuesOfAnInsertStandInTheOrderTheyWerePut) {
    Escritura e(ctx);
    e.codigo("interno", u"OP 1"_s)
        .texto("descripcion", u"d'Or"_s)
        .numero("valor", u"12,5"_s)
        .marca("fin", true);
    EXPECT_EQ(e.insertar(u"prorrateo"_s).toStdString(),
              "insert into prorrateo (interno,descripcion,valor,fin) values ('OP 1','d''Or',12.5,'S')");
}

TEST_F(Escrituras, AnUpdateKeepsTheConditionAsItStands) {
    Escritura e(ctx);
    e.sinComillas("factura7", u"L'AUTO"_s).numero("fob", 0.5).crudo("fecha", u"null"_s).marca("n", false);
    EXPECT_EQ(
        e.actualizar(u"caratula"_s, u"interno = 'OP 1'"_s).toStdString(),
        "update caratula set factura7 = 'L AUTO',fob = 0.5,fecha = null,n = 'N' where interno = 'OP 1'");
}

TEST_F(Escrituras, ACodeGoesInAsItStandsAndOneWithAQuoteIsRefused) {
    Escritura e(ctx);
    e.codigo("interno", u"O\\P; --"_s);
    EXPECT_EQ(e.insertar(u"caratula"_s).toStdString(), "insert into caratula (interno) values ('O\\P; --')");
    EXPECT_THROW(e.codigo("interno", u"O'P"_s), Falla);
}

TEST_F(Escrituras, ANumberTakesTheSeparatorOfItsEntity) {
    Escritura e(ctx, u"NCM"_s);
    e.numero("a", u"12.5"_s).numero("b", 0.25);
    EXPECT_EQ(e.insertar(u"ncm"_s).toStdString(), "insert into ncm (a,b) values (12,5,0,25)");
}

TEST_F(Escrituras, WhatIsNoNumberIsWrittenAsZero) {
    Escritura e(ctx);
    e.numero("kgneto", QString()).numero("kgbruto", u"abc"_s);
    EXPECT_EQ(e.insertar(u"subitems"_s).toStdString(), "insert into subitems (kgneto,kgbruto) values (0,0)");
}

}  // namespace
