// The line to the server breaks in the middle of a long run that a screen started: it is one message, and the
// same again gives the rows that an undisturbed run gives.

#include <gtest/gtest.h>

#include <random>

#include "assembly/FrmArmarItem.h"
#include "assembly/run.h"
#include "frame/ui/Pantalla.h"
#include "liquidation/FrmVerItem.h"
#include "tests/screens/caidas_pantalla.h"
#include "tests/support/claves.h"
#include "tests/support/retrato.h"

using namespace Qt::StringLiterals;

namespace {

class CaidasEnCorridas : public EnCaidas {
 protected:
    void SetUp() override {
        EnCaidas::SetUp();
        ctx->opciones.IVARIN = 21;
        ctx->opciones.IVARNI = 10.5;
        ctx->ChequeoArmado = u"SI"_s;
    }
    void deNuevo() {
        TearDown();
        SetUp();
    }
    /// The run in its window; whether it came to its end.
    bool armar() {
        auto &armado = Pantalla<FrmArmarItem>();
        bool cerrada = false;
        armado.alCerrar = [&cerrada] { cerrada = true; };
        armado.Mostrar(importacion, {});
        hasta([&] { return cerrada || armado.ui.lbTeclas->text().startsWith(u"El armado no terminó"_s); });
        if (cerrada) return true;
        EXPECT_TRUE(armado.ventana->isVisible());
        tecla(Qt::Key_Escape);
        EXPECT_TRUE(cerrada);
        return false;
    }
    /// Item 0, which recalculates the operation, and out again.
    void liquidar() {
        ctx->LiquidacionPendiente = true;
        auto &items = Pantalla<FrmVerItem>();
        items.Mostrar(importacion);
        esperarVentana(items.ventana.get());
        for (int veces = 0; veces < 3 && PantallaAbierta<FrmVerItem>(); ++veces) {
            linea().Seguir();
            tecla(Qt::Key_Escape);
            QCoreApplication::processEvents();
        }
        EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
    }
    QStringList dichos() const {
        QStringList textos;
        for (const Mensaje &m : registro.mensajes) textos << m.texto;
        return textos;
    }
    static constexpr int cortes = 6;
    std::mt19937 azar{20260504};  // NOLINT(cert-msc32-c,cert-msc51-cpp)
};
INSTANTIATE_TEST_SUITE_P(Stores, CaidasEnCorridas, ::testing::Values("SQL"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

TEST_P(CaidasEnCorridas, AnAssemblyThatIsCutIsOneMessageAndTheNextOneGivesTheSameRows) {
    linea().PonerEnCero();
    ASSERT_TRUE(armar()) << dichos().join(u'\n').toStdString();
    const qint64 viajes = linea().cuenta().viajes;
    const QString retrato = RetratoDeOperacion(*ctx, importacion);
    const QStringList siempre = dichos();
    for (int n = 0; n < cortes; ++n) {
        deNuevo();
        const auto tras = std::uniform_int_distribution<qint64>(0, viajes - 1)(azar);
        SCOPED_TRACE(std::to_string(tras) + " of " + std::to_string(viajes));
        linea().CortarTras(Intermediario::Medida::Viajes, tras);
        const bool entera = armar();
        linea().Seguir();
        QStringList fallas;
        for (const Mensaje &m : registro.mensajes)
            if (m.icono == Icono::Critico) fallas << m.texto;
        EXPECT_EQ(fallas.size(), entera ? 0 : 1) << fallas.join(" / "_L1).toStdString();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        if (!entera) {
            EXPECT_TRUE(fallas.value(0).contains(u"con la base \""_s)) << fallas.value(0).toStdString();
            registro = {};
            EXPECT_TRUE(armar());
            EXPECT_EQ(dichos(), siempre);
        }
        EXPECT_EQ(DiferenciasDeRetratos(retrato, RetratoDeOperacion(*ctx, importacion)).toStdString(), "");
    }
}

TEST_P(CaidasEnCorridas, ARecalculationThatIsCutIsOneMessageAndTheNextOneGivesTheSameRows) {
    ASSERT_TRUE(armar());
    // The second one starts from the rounded bases of the first.
    liquidar();
    registro = {};
    linea().PonerEnCero();
    liquidar();
    const qint64 viajes = linea().cuenta().viajes;
    ASSERT_GT(viajes, 10);
    const QString retrato = RetratoDeOperacion(*ctx, importacion);
    const qsizetype siempre = dichos().size();
    for (int n = 0; n < cortes; ++n) {
        deNuevo();
        ASSERT_TRUE(armar());
        liquidar();
        registro = {};
        const auto tras = std::uniform_int_distribution<qint64>(0, viajes - 1)(azar);
        SCOPED_TRACE(std::to_string(tras) + " of " + std::to_string(viajes));
        linea().CortarTras(Intermediario::Medida::Viajes, tras);
        liquidar();
        linea().Seguir();
        EXPECT_LE(dichos().size(), siempre + 1) << dichos().join(" / "_L1).toStdString();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        if (dichos().size() > siempre) {
            registro = {};
            liquidar();
            EXPECT_EQ(dichos().size(), siempre) << dichos().join(" / "_L1).toStdString();
        }
        EXPECT_EQ(DiferenciasDeRetratos(retrato, RetratoDeOperacion(*ctx, importacion)).toStdString(), "");
    }
}

}  // namespace
