// Pictures of the lists of codes and parties, and the order of TAB in each.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/ui/Pantalla.h"
#include "header/FrmCliente.h"
#include "header/FrmClientes.h"
#include "header/FrmListado.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmListadoeX.h"
#include "header/FrmLstVendedores.h"
#include "header/FrmNewVendedor.h"
#include "header/ListadoCodigos.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDePartes : public EnPantalla {
 protected:
    template <class T>
    static T &mostrar() {
        auto &una = Pantalla<T>();
        una.ventana->show();
        esperarVentana(una.ventana.get());
        return una;
    }
    static std::string orden(QWidget *ventana, QWidget *primero) {
        primero->setFocus();
        return ordenDeTab(ventana).join(QLatin1Char(' ')).toStdString();
    }
};

TEST_P(CapturasDePartes, ThePickList) {
    const ListaDeCodigos paises = ListadoCodigosClass(*ctx).Listado(u"PAIS"_s);
    auto &lista = Pantalla<FrmListado>();
    lista.Cargar({paises.titulo, paises.vistas(), -1, Eleccion::Tipo::Codigos});
    mostrar<FrmListado>();
    foto(lista.ventana.get(), u"lista"_s);
    lista.ui.TxtBs->setFocus();
    escribir(u"bra"_s);
    foto(lista.ventana.get(), u"lista-buscando"_s);
    EXPECT_EQ(orden(lista.ventana.get(), lista.ui.TxtBs), "TxtBs");
}

TEST_P(CapturasDePartes, Sellers) {
    auto &vendedores = mostrar<FrmLstVendedores>();
    vendedores.ui.txtBuscar->setFocus();
    foto(vendedores.ventana.get(), u"vendedores"_s);
    escribir(u"off"_s);
    foto(vendedores.ventana.get(), u"vendedores-buscando"_s);
    EXPECT_EQ(orden(vendedores.ventana.get(), vendedores.ui.txtBuscar), "txtBuscar txtBuscarPorCodigo Lst");
    CerrarPantalla<FrmLstVendedores>();
    auto &vendedor = Pantalla<FrmNewVendedor>();
    vendedor.Cargar({}, false);
    mostrar<FrmNewVendedor>();
    foto(vendedor.ventana.get(), u"vendedor-nuevo"_s);
    EXPECT_EQ(orden(vendedor.ventana.get(), vendedor.ui.TxtCodigo),
              "TxtCodigo TxtNombre TxtDomicilio cboPais Command1");
    vendedor.Cargar(*CargarVendedor(*ctx, u"V002"_s), true);
    foto(vendedor.ventana.get(), u"vendedor"_s);
    EXPECT_EQ(orden(vendedor.ventana.get(), vendedor.ui.TxtNombre),
              "TxtNombre TxtDomicilio cboPais Command1");
}

TEST_P(CapturasDePartes, Brokers) {
    auto &despachantes = mostrar<FrmListadoDespachante>();
    despachantes.ui.txtBuscar->setFocus();
    foto(despachantes.ventana.get(), u"despachantes"_s);
    EXPECT_EQ(orden(despachantes.ventana.get(), despachantes.ui.txtBuscar), "txtBuscar txtBuscarPorCuit Lst");
}

TEST_P(CapturasDePartes, TheGeneralList) {
    auto &listado = Pantalla<FrmListadoeX>();
    listado.Cargar(u"LISTAS"_s, {{u"314/R.AUTOMOTRIZ"_s, u"Régimen automotriz, acuerdo 314"_s},
                                 {u"MERCOSUR"_s, u"Mercosur"_s}});
    mostrar<FrmListadoeX>();
    foto(listado.ventana.get(), u"listado"_s);
    EXPECT_EQ(orden(listado.ventana.get(), listado.ui.Lst), "Lst");
}

TEST_P(CapturasDePartes, TheBookOfClients) {
    auto &clientes = Pantalla<FrmClientes>();
    clientes.Mostrar();
    esperarVentana(clientes.ventana.get());
    foto(clientes.ventana.get(), u"clientes"_s);
    escribir(u"tej"_s);
    foto(clientes.ventana.get(), u"clientes-buscando"_s);
    EXPECT_EQ(orden(clientes.ventana.get(), clientes.ui.txtBuscar), "txtBuscar txtBuscarPorCuit Lst");
    CerrarPantalla<FrmClientes>();
    auto &cliente = Pantalla<FrmCliente>();
    cliente.Cargar(ClientBook::Nueva(), true);
    mostrar<FrmCliente>();
    foto(cliente.ventana.get(), u"cliente-nuevo"_s);
    EXPECT_EQ(orden(cliente.ventana.get(), cliente.ui.TxtCuit),
              "TxtCuit TxtNombre TxtEmail TxtDomicilio TxtRegalias TxtAjxVinc TxtIngBru chkEximGan "
              "chkIvaReduccion chkCvdi chkExcepLAPIAEC TxtVentaja TxtSubReg TxtNcm cmdAgregarVentaja "
              "GrdVentajas cmdGuardar");
    cliente.Cargar(*ClientBook::Leer(*ctx, u"30714560200"_s), false);
    foto(cliente.ventana.get(), u"cliente"_s);
    EXPECT_EQ(orden(cliente.ventana.get(), cliente.ui.TxtNombre),
              "TxtNombre TxtEmail TxtDomicilio TxtRegalias TxtAjxVinc TxtIngBru chkEximGan TxtEximGan "
              "TxtEximGanTemp chkIvaReduccion chkCvdi chkExcepLAPIAEC TxtVentaja TxtSubReg TxtNcm "
              "cmdAgregarVentaja GrdVentajas cmdGuardar");
}

// Pictures of one store are enough: the screens are the same.
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDePartes, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
