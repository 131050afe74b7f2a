// Pictures of the screens of nomenclature and suffixes, and the order of TAB in each.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/ui/Pantalla.h"
#include "subitems/FrmBuscarArticulosPorPA.h"
#include "subitems/FrmCargaSufijos.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmDetalleNomenclador.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmSufijos.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

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
    foto(posiciones.ventana.get(), u"posicion-vacia"_s);
    escribir(u"84"_s);
    tecla(Qt::Key_Return);
    foto(posiciones.ventana.get(), u"posicion"_s);
    EXPECT_EQ(orden(posiciones.ventana.get(), posiciones.ui.TxtNcm), "TxtNcm LstNCM LstSufijos");
    // Real descriptions run to some hundred characters in each level.
    const QString larga =
        u"Los demás aparatos con dispositivo de regulación, incluidas sus partes; "_s.repeated(6);
    ejecutar(u"update ncm set [010] = '%1', [004] = '%1' where [001] = '8409.91.12'"_s.arg(larga), u"NCM"_s);
    posiciones.ui.TxtNcm->setFocus();
    escribir(u"8409.91.12"_s);
    tecla(Qt::Key_Return);
    foto(posiciones.ventana.get(), u"posicion-larga"_s);
    auto &hoja = Pantalla<FrmDetalleNomenclador>();
    hoja.Cargar(*DetalleNomenclador(*ctx, motor));
    mostrar(hoja.ventana.get());
    foto(hoja.ventana.get(), u"hoja-nomenclador-larga"_s);
}

TEST_P(CapturasDelNomenclador, TheSearch) {
    auto &consultas = Pantalla<FrmConsultas>();
    consultas.Mostrar();
    esperarVentana(consultas.ventana.get());
    foto(consultas.ventana.get(), u"consultas-vacia"_s);
    escribir(u"84"_s);
    tecla(Qt::Key_Return);
    foto(consultas.ventana.get(), u"consultas"_s);
    consultas.ui.TxtDescripcion->setFocus();
    escribir(u"motor"_s);
    tecla(Qt::Key_Return);
    foto(consultas.ventana.get(), u"consultas-palabras"_s);
    EXPECT_EQ(orden(consultas.ventana.get(), consultas.ui.TxtSIM),
              "TxtSIM CmdBuscar TxtDescripcion Command1 LstResult cmdLicencias");
}

TEST_P(CapturasDelNomenclador, TheSheet) {
    auto &hoja = Pantalla<FrmDetalleNomenclador>();
    hoja.Cargar(*DetalleNomenclador(*ctx, motor));
    mostrar(hoja.ventana.get());
    foto(hoja.ventana.get(), u"hoja-nomenclador"_s);
    EXPECT_EQ(orden(hoja.ventana.get(), hoja.ui.GrdDetalles),
              "GrdDetalles GrdGravamenes GrdFuentes GrdPosee GrdSufijos");
    // Every mark at once, as many lines as the sheet can have.
    QStringList columnas;
    for (int n = 40; n <= 62; ++n)
        if (n != 48) columnas << u"[0%1] = '*'"_s.arg(n);
    ejecutar("update ncm set "_L1 + columnas.join(", "_L1) +
                 ", [070] = '1', [071] = '8' where [001] = '8409.91.12'"_L1,
             u"NCM"_s);
    hoja.Cargar(*DetalleNomenclador(*ctx, motor));
    foto(hoja.ventana.get(), u"hoja-nomenclador-llena"_s);
}

TEST_P(CapturasDelNomenclador, Suffixes) {
    auto &carga = Pantalla<FrmCargaSufijos>();
    carga.Cargar({u"SUFIJO AA"_s,
                  {u"AA00 - Ninguna opción"_s, u"AA01 - Con marca"_s,
                   u"AA02 - Sin marca, con una leyenda que dice el país de origen y el nombre del "
                   "fabricante en cada envase"_s},
                  0,
                  Eleccion::Tipo::Sufijos});
    mostrar(carga.ventana.get());
    foto(carga.ventana.get(), u"carga-sufijos"_s);
    EXPECT_EQ(orden(carga.ventana.get(), carga.ui.LstOpcion), "LstOpcion");
    CerrarPantalla<FrmCargaSufijos>();
    auto &sufijos = Pantalla<FrmSufijos>();
    sufijos.Cargar(u"8708.30.19.110T"_s, u"KA01-AI(BOSCH 0986)-LA02-"_s);
    mostrar(sufijos.ventana.get());
    foto(sufijos.ventana.get(), u"sufijos"_s);
    EXPECT_EQ(orden(sufijos.ventana.get(), sufijos.ui.Grid), "Grid Grid2 txtLNAPINcm txtLNAPI");
}

TEST_P(CapturasDelNomenclador, Licences) {
    auto &licencias = Pantalla<FrmBuscarArticulosPorPA>();
    mostrar(licencias.ventana.get());
    licencias.ui.txtCatalogoABuscar->setFocus();
    foto(licencias.ventana.get(), u"licencias-vacia"_s);
    EXPECT_EQ(orden(licencias.ventana.get(), licencias.ui.txtCatalogoABuscar),
              "txtCatalogoABuscar cmdBuscarArticulosPorCodCat txtArticuloABuscar cmdBuscarArticulosPorCodArt "
              "txtPosiciónNcmABuscar cmdBuscarArticulosPorPA Command1 Text1");
    escribir(u"HIDPLATA"_s);
    registro.archivos = {tienda->carpeta() + "/reporte.xls"_L1};
    tecla(Qt::Key_Return);
    licencias.ui.txtPosiciónNcmABuscar->setText(u"8708.80.00.110K"_s);
    atajo(Qt::Key_M);
    foto(licencias.ventana.get(), u"licencias"_s);
    licencias.ui.txtPosiciónNcmABuscar->setText(u"8708.80"_s);
    atajo(Qt::Key_M);
    foto(licencias.ventana.get(), u"licencias-ninguna"_s);
}

// Pictures of one store are enough: the screens are the same.
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDelNomenclador, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
