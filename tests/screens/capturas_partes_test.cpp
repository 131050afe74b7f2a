// Pictures of the lists of codes and parties, and the order of TAB in each.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmListadoeX.h"
#include "header/FrmLstVendedores.h"
#include "header/FrmNewVendedor.h"
#include "siblings/FrmCliente.h"
#include "siblings/FrmClientes.h"
#include "tests/support/pantallas.h"

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
    const ListaDeCodigos paises = ctx->CodeListings.Listado(QStringLiteral("PAIS"));
    auto &lista = Pantalla<FrmListado>();
    lista.Cargar({paises.titulo, paises.vistas(), -1, Eleccion::Tipo::Codigos});
    mostrar<FrmListado>();
    foto(lista.ventana.get(), QStringLiteral("lista"));
    lista.ui.TxtBs->setFocus();
    escribir(QStringLiteral("bra"));
    foto(lista.ventana.get(), QStringLiteral("lista-buscando"));
    EXPECT_EQ(orden(lista.ventana.get(), lista.ui.TxtBs), "TxtBs");
}

TEST_P(CapturasDePartes, Sellers) {
    auto &vendedores = mostrar<FrmLstVendedores>();
    vendedores.ui.txtBuscar->setFocus();
    foto(vendedores.ventana.get(), QStringLiteral("vendedores"));
    escribir(QStringLiteral("off"));
    foto(vendedores.ventana.get(), QStringLiteral("vendedores-buscando"));
    EXPECT_EQ(orden(vendedores.ventana.get(), vendedores.ui.txtBuscar), "txtBuscar txtBuscarPorCodigo Lst");
    CerrarPantalla<FrmLstVendedores>();
    auto &vendedor = Pantalla<FrmNewVendedor>();
    vendedor.Cargar({}, false);
    mostrar<FrmNewVendedor>();
    foto(vendedor.ventana.get(), QStringLiteral("vendedor-nuevo"));
    EXPECT_EQ(orden(vendedor.ventana.get(), vendedor.ui.TxtCodigo),
              "TxtCodigo TxtNombre TxtDomicilio cboPais Command1");
    vendedor.Cargar(*CargarVendedor(*ctx, QStringLiteral("V002")), true);
    foto(vendedor.ventana.get(), QStringLiteral("vendedor"));
    EXPECT_EQ(orden(vendedor.ventana.get(), vendedor.ui.TxtNombre),
              "TxtNombre TxtDomicilio cboPais Command1");
}

TEST_P(CapturasDePartes, Brokers) {
    auto &despachantes = mostrar<FrmListadoDespachante>();
    despachantes.ui.txtBuscar->setFocus();
    foto(despachantes.ventana.get(), QStringLiteral("despachantes"));
    EXPECT_EQ(orden(despachantes.ventana.get(), despachantes.ui.txtBuscar), "txtBuscar txtBuscarPorCuit Lst");
}

TEST_P(CapturasDePartes, TheGeneralList) {
    auto &listado = Pantalla<FrmListadoeX>();
    listado.Cargar(QStringLiteral("LISTAS"),
                   {{QStringLiteral("314/R.AUTOMOTRIZ"), QStringLiteral("Régimen automotriz, acuerdo 314")},
                    {QStringLiteral("MERCOSUR"), QStringLiteral("Mercosur")}});
    mostrar<FrmListadoeX>();
    foto(listado.ventana.get(), QStringLiteral("listado"));
    EXPECT_EQ(orden(listado.ventana.get(), listado.ui.Lst), "Lst");
}

TEST_P(CapturasDePartes, TheBookOfClients) {
    auto &clientes = Pantalla<FrmClientes>();
    clientes.Mostrar();
    esperarVentana(clientes.ventana.get());
    foto(clientes.ventana.get(), QStringLiteral("clientes"));
    escribir(QStringLiteral("tej"));
    foto(clientes.ventana.get(), QStringLiteral("clientes-buscando"));
    EXPECT_EQ(orden(clientes.ventana.get(), clientes.ui.txtBuscar), "txtBuscar txtBuscarPorCuit Lst");
    CerrarPantalla<FrmClientes>();
    auto &cliente = Pantalla<FrmCliente>();
    cliente.Cargar(ClientBook::Nueva(), true);
    mostrar<FrmCliente>();
    foto(cliente.ventana.get(), QStringLiteral("cliente-nuevo"));
    EXPECT_EQ(orden(cliente.ventana.get(), cliente.ui.TxtCuit),
              "TxtCuit TxtNombre TxtEmail TxtDomicilio TxtRegalias TxtAjxVinc TxtIngBru chkEximGan "
              "chkIvaReduccion chkCvdi chkExcepLAPIAEC TxtVentaja TxtSubReg TxtNcm cmdAgregarVentaja "
              "GrdVentajas cmdGuardar");
    cliente.Cargar(*ClientBook::Leer(*ctx, QStringLiteral("30714560200")), false);
    foto(cliente.ventana.get(), QStringLiteral("cliente"));
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
