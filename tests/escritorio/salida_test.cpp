// The end of the desktop program, as the process that its user started.

#include <gtest/gtest.h>

#include "tests/escritorio/escritorio.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class Salida : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void SetUp() override {
        EnAmbosStores::SetUp();
        programa = std::make_unique<Escritorio>(tienda->carpeta());
        ASSERT_TRUE(programa->Empezar()) << programa->Errores().toStdString();
        esperar("FrmPrincipal|GrdMenuMain");
    }
    void TearDown() override {
        programa.reset();
        EnAmbosStores::TearDown();
    }
    void esperar(const char *ventana) {
        ASSERT_TRUE(programa->Esperar(QLatin1String(ventana)))
            << ventana << ", not " << programa->Visto().toStdString();
    }
    /// From the main menu into the first operation of the list.
    void abrirOperacion() {
        programa->Pulsar(Qt::Key_Return);
        esperar("FrmInternoNew|txtInterno");
        programa->Pulsar(Qt::Key_Return);
        esperar("FrmInternoNew|lstInterno");
        programa->Pulsar(Qt::Key_Return);
        esperar("FrmDetalleInterno");
        ASSERT_EQ(abiertas(), "DJAI-2026-0004");
    }
    std::string abiertas() { return filas(u"select interno from interno"_s).toStdString(); }
    void esperarFinLimpio() {
        EXPECT_EQ(programa->EsperarFin(), 0);
        EXPECT_EQ(programa->Errores().toStdString(), "");
    }

    std::unique_ptr<Escritorio> programa;
};

TEST_P(Salida, EscapeOnTheMainMenuEndsTheProcessInOrder) {
    programa->Pulsar(Qt::Key_Escape);
    esperarFinLimpio();
}

TEST_P(Salida, ItEndsInOrderAfterEveryScreenOfTheMenuWasOpened) {
    const std::pair<int, const char *> entradas[] = {{0, "FrmInternoNew"},
                                                     {1, "FrmClientes"},
                                                     {2, "FrmConsultas"},
                                                     {3, "FrmCatArticulos"},
                                                     {4, "FrmConfig"}};
    for (const auto &[abajo, ventana] : entradas) {
        programa->Pulsar(Qt::Key_Up, 6);
        programa->Pulsar(Qt::Key_Down, abajo);
        programa->Pulsar(Qt::Key_Return);
        esperar(ventana);
        programa->Pulsar(Qt::Key_Escape);
        esperar("FrmPrincipal|GrdMenuMain");
    }
    programa->Pulsar(Qt::Key_Escape);
    esperarFinLimpio();
}

TEST_P(Salida, ItEndsInOrderAfterAnOperationWasOpenedAndLeft) {
    abrirOperacion();
    programa->Pulsar(Qt::Key_Escape);
    esperar("FrmInternoNew");
    EXPECT_EQ(abiertas(), "");
    programa->Pulsar(Qt::Key_Escape);
    esperar("FrmPrincipal|GrdMenuMain");
    programa->Pulsar(Qt::Key_Escape);
    esperarFinLimpio();
}

TEST_P(Salida, TheSessionsEndFindsItInTheMenu) {
    programa->PedirFin();
    esperarFinLimpio();
}

TEST_P(Salida, TheSessionsEndFindsAnOperationOpen) {
    abrirOperacion();
    programa->PedirFin();
    esperarFinLimpio();
}

TEST_P(Salida, TheSessionsEndFindsAQuestionOpen) {
    abrirOperacion();
    programa->Pulsar(Qt::Key_Escape);
    esperar("FrmInternoNew|lstInterno");
    programa->Pulsar(Qt::Key_Delete);
    esperar("Confirma eliminar el interno DJAI-2026-0004");
    programa->PedirFin();
    esperarFinLimpio();
    EXPECT_EQ(filas(u"select interno from caratula where interno = 'DJAI-2026-0004'"_s), u"DJAI-2026-0004"_s)
        << "nobody said yes";
}

EN_AMBOS_STORES(Salida);

}  // namespace
