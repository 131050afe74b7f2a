// The question on the common external tariff, and where its answer lies.

#include "header/automotive.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class PreguntaAutomotriz : public ::testing::Test {
 protected:
    void SetUp() override {
        ctx.ajustes = Ajustes(dir.filePath(u"ajustes.ini"_s));
        ctx.dialogos = DialogosDePrueba(registro);
    }
    QTemporaryDir dir;
    AppContext ctx;
    Registro registro;
    const QString interno = u"OP/1 ñ"_s;
};

TEST_F(PreguntaAutomotriz, ShowsItsTextsWithProductionChosen) {
    PreguntarRegimenAutomotriz(ctx, interno);
    ASSERT_EQ(registro.conOpciones.size(), 1U);
    const PreguntaConOpciones &p = registro.conOpciones.front();
    EXPECT_EQ(p.texto.toStdString(),
              "Se han encontrado posiciones arancelarias pertenecientes al régimen automotriz\r\n"
              "¿Desea calcular Arancel Externo Común?");
    EXPECT_EQ(p.titulo.toStdString(), " Régimen Automotriz");
    EXPECT_EQ(p.marco.toStdString(), "Destino del repuesto");
    EXPECT_EQ(p.opciones.join(QLatin1Char('|')).toStdString(), "Producción|Reposición");
    EXPECT_EQ(p.si.toStdString(), "&Si");
    EXPECT_EQ(p.no.toStdString(), "&No");
}

TEST_F(PreguntaAutomotriz, StoresTheAnswerOfTheOperation) {
    struct Caso {
        bool si;
        int opcion;
        const char *valor;
    };
    for (const Caso &c : {Caso{true, 0, "P"}, Caso{true, 1, "R"}, Caso{false, 0, "N"}, Caso{false, 1, "N"}}) {
        registro.opciones = {{c.si, c.opcion}};
        EXPECT_EQ(PreguntarRegimenAutomotriz(ctx, interno).toStdString(), c.valor);
        EXPECT_EQ(ctx.ajustes.Leer(u"ZENDRA"_s, u"AEC"_s, interno).toStdString(), c.valor);
        EXPECT_EQ(LeerAEC(ctx, interno).toStdString(), c.valor);
    }
}

TEST_F(PreguntaAutomotriz, AnotherOperationKeepsItsOwnAnswer) {
    GuardarAEC(ctx, u"OTRA"_s, u"R"_s);
    GuardarAEC(ctx, interno, u"N"_s);
    EXPECT_EQ(LeerAEC(ctx, u"OTRA"_s).toStdString(), "R");
    EXPECT_EQ(LeerAEC(ctx, u"NUEVA"_s).toStdString(), "") << "not answered";
    EXPECT_EQ(LeerAEC(ctx, u"NUEVA"_s, u"N"_s).toStdString(), "N");
}

}  // namespace
