// Pictures of the screens of nomenclature and suffixes, and the order of TAB in each.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/ui/Pantalla.h"
#include "subitems/FrmCargaSufijos.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmDetalleNomenclador.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmSufijos.h"
#include "tests/support/pantallas.h"

namespace {

const QString motor = QStringLiteral("8409.91.12.100G");

class CapturasDelNomenclador : public EnPantalla {
 protected:
    static void mostrar(QWidget *ventana) {
        ventana->show();
        esperarVentana(ventana);
    }
    static std::string orden(QWidget *ventana, QWidget *primero) {
        primero->setFocus();
        return ordenDeTab(ventana).join(QLatin1Char(' ')).toStdString();
    }
};

TEST_P(CapturasDelNomenclador, Positions) {
    auto &posiciones = Pantalla<FrmPosicion>();
    mostrar(posiciones.ventana.get());
    posiciones.ui.TxtNcm->setFocus();
    foto(posiciones.ventana.get(), QStringLiteral("posicion-vacia"));
    escribir(QStringLiteral("84"));
    tecla(Qt::Key_Return);
    foto(posiciones.ventana.get(), QStringLiteral("posicion"));
    EXPECT_EQ(orden(posiciones.ventana.get(), posiciones.ui.TxtNcm), "TxtNcm LstNCM LstSufijos");
    // Real descriptions run to some hundred characters in each level.
    const QString larga =
        QStringLiteral("Los demás aparatos con dispositivo de regulación, incluidas sus partes; ")
            .repeated(6);
    ejecutar(
        QStringLiteral("update ncm set [010] = '%1', [004] = '%1' where [001] = '8409.91.12'").arg(larga),
        QStringLiteral("NCM"));
    posiciones.ui.TxtNcm->setFocus();
    escribir(QStringLiteral("8409.91.12"));
    tecla(Qt::Key_Return);
    foto(posiciones.ventana.get(), QStringLiteral("posicion-larga"));
    auto &hoja = Pantalla<FrmDetalleNomenclador>();
    hoja.Cargar(*DetalleNomenclador(*ctx, motor));
    mostrar(hoja.ventana.get());
    foto(hoja.ventana.get(), QStringLiteral("hoja-nomenclador-larga"));
}

TEST_P(CapturasDelNomenclador, TheSearch) {
    auto &consultas = Pantalla<FrmConsultas>();
    consultas.Mostrar();
    esperarVentana(consultas.ventana.get());
    foto(consultas.ventana.get(), QStringLiteral("consultas-vacia"));
    escribir(QStringLiteral("84"));
    tecla(Qt::Key_Return);
    foto(consultas.ventana.get(), QStringLiteral("consultas"));
    consultas.ui.TxtDescripcion->setFocus();
    escribir(QStringLiteral("motor"));
    tecla(Qt::Key_Return);
    foto(consultas.ventana.get(), QStringLiteral("consultas-palabras"));
    EXPECT_EQ(orden(consultas.ventana.get(), consultas.ui.TxtSIM),
              "TxtSIM CmdBuscar TxtDescripcion Command1 LstResult");
}

TEST_P(CapturasDelNomenclador, TheSheet) {
    auto &hoja = Pantalla<FrmDetalleNomenclador>();
    hoja.Cargar(*DetalleNomenclador(*ctx, motor));
    mostrar(hoja.ventana.get());
    foto(hoja.ventana.get(), QStringLiteral("hoja-nomenclador"));
    EXPECT_EQ(orden(hoja.ventana.get(), hoja.ui.GrdDetalles),
              "GrdDetalles GrdGravamenes GrdFuentes GrdPosee GrdSufijos");
    // Every mark at once, as many lines as the sheet can have.
    QStringList columnas;
    for (int n = 40; n <= 62; ++n)
        if (n != 48) columnas << QStringLiteral("[0%1] = '*'").arg(n);
    ejecutar(QLatin1String("update ncm set ") + columnas.join(QLatin1String(", ")) +
                 QLatin1String(", [070] = '1', [071] = '8' where [001] = '8409.91.12'"),
             QStringLiteral("NCM"));
    hoja.Cargar(*DetalleNomenclador(*ctx, motor));
    foto(hoja.ventana.get(), QStringLiteral("hoja-nomenclador-llena"));
}

TEST_P(CapturasDelNomenclador, Suffixes) {
    auto &carga = Pantalla<FrmCargaSufijos>();
    carga.Cargar(
        {QStringLiteral("SUFIJO AA"),
         {QStringLiteral("AA00 - Ninguna opción"), QStringLiteral("AA01 - Con marca"),
          QStringLiteral("AA02 - Sin marca, con una leyenda que dice el país de origen y el nombre del "
                         "fabricante en cada envase")},
         0,
         Eleccion::Tipo::Sufijos});
    mostrar(carga.ventana.get());
    foto(carga.ventana.get(), QStringLiteral("carga-sufijos"));
    EXPECT_EQ(orden(carga.ventana.get(), carga.ui.LstOpcion), "LstOpcion");
    CerrarPantalla<FrmCargaSufijos>();
    auto &sufijos = Pantalla<FrmSufijos>();
    sufijos.Cargar(QStringLiteral("8708.30.19.110T"), QStringLiteral("KA01-AI(BOSCH 0986)-LA02-"));
    mostrar(sufijos.ventana.get());
    foto(sufijos.ventana.get(), QStringLiteral("sufijos"));
    EXPECT_EQ(orden(sufijos.ventana.get(), sufijos.ui.Grid), "Grid Grid2 txtLNAPINcm txtLNAPI");
}

// Pictures of one store are enough: the screens are the same.
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDelNomenclador, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
