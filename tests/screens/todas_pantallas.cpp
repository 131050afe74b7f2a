#include "tests/screens/todas_pantallas.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTest>

#include "assembly/FrmArmarItem.h"
#include "assembly/FrmMostrarDatos.h"
#include "assembly/FrmProrKg.h"
#include "desktop/FrmBase.h"
#include "desktop/FrmConGen.h"
#include "desktop/FrmConfig.h"
#include "desktop/FrmPerfiles.h"
#include "desktop/FrmPrimerInicio.h"
#include "desktop/FrmPrincipal.h"
#include "desktop/FrmVistaPrevia.h"
#include "desktop/MenuP.h"
#include "forms/FrmCertificado.h"
#include "forms/FrmCertificados.h"
#include "forms/FrmHojaValoracion.h"
#include "frame/base/ini.h"
#include "frame/startup.h"
#include "frame/ui/ClCntrl.h"
#include "header/FrmABMAgTrans.h"
#include "header/FrmABMClientes.h"
#include "header/FrmABMProrrateos.h"
#include "header/FrmBultos.h"
#include "header/FrmCaratula.h"
#include "header/FrmCliente.h"
#include "header/FrmClientes.h"
#include "header/FrmListado.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmListadoeX.h"
#include "header/FrmLstDiv.h"
#include "header/FrmLstProrrateo.h"
#include "header/FrmLstTrans.h"
#include "header/FrmLstVendedores.h"
#include "header/FrmNewVendedor.h"
#include "liquidation/FrmAdCon.h"
#include "liquidation/FrmVentajas.h"
#include "liquidation/FrmVerItem.h"
#include "liquidation/Frm_ComprobacionErrores.h"
#include "liquidation/Frm_ListaCeoItem.h"
#include "liquidation/frmListadoItem.h"
#include "operations/FrmAbrir.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmExportarOperaciones.h"
#include "operations/FrmImportarOperaciones.h"
#include "operations/FrmInternoNew.h"
#include "outputs/FrmConceptos.h"
#include "outputs/FrmCorreo.h"
#include "outputs/FrmDatos.h"
#include "outputs/FrmPresupuesto.h"
#include "outputs/FrmPrintItem.h"
#include "outputs/FrmProcesando.h"
#include "outputs/FrmReferencias.h"
#include "outputs/FrmTransferencia.h"
#include "regulatory/frmActualizacion.h"
#include "regulatory/frmONCCA.h"
#include "stock/FrmCancelaciones.h"
#include "stock/FrmStock.h"
#include "stock/FrmTomarInsumos.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmBuscarArticulosPorPA.h"
#include "subitems/FrmCargaSufijos.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmDetalleNomenclador.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmSubItems.h"
#include "subitems/FrmSufijos.h"
#include "subitems/FrmbArticulos.h"
#include "tests/support/servidorsmtp.h"

using namespace Qt::StringLiterals;

namespace {

const QString vacia = u"VACIA"_s;
const QString posicion = u"8413.70.10.100L"_s;

template <class T>
Salida salidaDe(const char *nombre, std::function<void()> abrir, std::function<void()> completar = {}) {
    return {nombre, std::move(abrir),
            [] { return PantallaAbierta<T>() && Pantalla<T>().ventana->isVisible(); }, std::move(completar)};
}

/// A header wants a broker, a seller and an invoice from whoever leaves it.
void completarCaratula() {
    auto &ui = Pantalla<FrmCaratula>().ui;
    const std::pair<QLineEdit *, QString> pedidos[] = {
        {ui.TxtCuitAduana, u"20167890122"_s}, {ui.Txtidvendedor, u"V001"_s}, {ui.TxtFactura, u"F1"_s}};
    for (const auto &[campo, texto] : pedidos) {
        if (!campo->isVisible() || !campo->isEnabled()) continue;
        campo->setFocus();
        escribir(texto);
        tecla(Qt::Key_Return);
    }
}

}  // namespace

Eleccion tresFilas(Eleccion::Tipo tipo) {
    return {u"Lista"_s, {u"A"_s, u"B"_s, u"C"_s}, 0, tipo};
}

void EnTodasLasPantallas::SetUp() {
    EnPantalla::SetUp();
    terminarAntes = TerminarPrograma;
    iniciarAntes = iniciarPrograma;
    TerminarPrograma = [] { Pantalla<FrmPrincipal>().ventana->hide(); };
    iniciarPrograma = [](const QString &, const QStringList &) { return true; };
    ejecutar(u"insert into caratula (interno,fechaalta,cuitcliente) values ('VACIA',null,'1')"_s);
    // Without inputs there is nothing to be chosen of.
    ejecutar(u"insert into stock (cuitcliente,idarticulo,cantidad,saldo) values ('1','A',1,1)"_s);
    ctx->ConfigFilePath = tienda->carpeta() + "/Prueba.cfg"_L1;
    ctx->ChequeoArmado = u"SI"_s;
    // As the dashboard leaves it on the road to the items.
    ctx->LiquidacionPendiente = true;
}

void EnTodasLasPantallas::TearDown() {
    EnPantalla::TearDown();
    TerminarPrograma = terminarAntes;
    iniciarPrograma = iniciarAntes;
}

std::vector<Salida> EnTodasLasPantallas::todas() const {
    const auto informe = Informe{u"Informe"_s, u"Una línea"_s, false};
    return {
        salidaDe<FrmABMClientes>(
            "FrmABMClientes",
            [] {
                Pantalla<FrmABMClientes>().Preguntar({u"¿?"_s, {}, {}, {u"A"_s, u"B"_s}, u"&Si"_s, u"&No"_s});
                CerrarPantalla<FrmABMClientes>();
            }),
        salidaDe<FrmABMProrrateos>("FrmABMProrrateos",
                                   [] {
                                       Pantalla<FrmABMProrrateos>().Mostrar(vacia);
                                       CerrarPantalla<FrmABMProrrateos>();
                                   }),
        salidaDe<FrmAdCon>("FrmAdCon",
                           [] {
                               Pantalla<FrmAdCon>().Agregar(vacia, u"1"_s);
                               CerrarPantalla<FrmAdCon>();
                           }),
        salidaDe<FrmArmarItem>("FrmArmarItem", [] { Pantalla<FrmArmarItem>().Mostrar(vacia, {}); }),
        salidaDe<FrmArticulos>("FrmArticulos",
                               [] {
                                   Pantalla<FrmArticulos>().Elegir(u"HIDPLATA"_s);
                                   CerrarPantalla<FrmArticulos>();
                               }),
        salidaDe<FrmbArticulos>("FrmbArticulos",
                                [] {
                                    Pantalla<FrmbArticulos>().Elegir(u"HIDPLATA"_s);
                                    CerrarPantalla<FrmbArticulos>();
                                }),
        salidaDe<FrmCatArticulosBuscar>("FrmCatArticulosBuscar",
                                        [] {
                                            Pantalla<FrmCatArticulosBuscar>().Buscar(
                                                BusquedaEnCatalogos::Posicion, u"8413."_s);
                                            CerrarPantalla<FrmCatArticulosBuscar>();
                                        }),
        salidaDe<FrmBase>("FrmBase", [] { Pantalla<FrmBase>().Mostrar(); }),
        salidaDe<FrmCaratula>(
            "FrmCaratula", [] { Pantalla<FrmCaratula>().Mostrar(vacia); }, completarCaratula),
        salidaDe<FrmCargaSufijos>("FrmCargaSufijos",
                                  [] {
                                      Pantalla<FrmCargaSufijos>().Elegir(tresFilas(Eleccion::Tipo::Sufijos));
                                      CerrarPantalla<FrmCargaSufijos>();
                                  }),
        salidaDe<FrmCliente>("FrmCliente",
                             [] {
                                 Pantalla<FrmCliente>().Agregar();
                                 CerrarPantalla<FrmCliente>();
                             }),
        salidaDe<FrmCertificados>("FrmCertificados",
                                  [] {
                                      Pantalla<FrmCertificados>().Mostrar(vacia);
                                      CerrarPantalla<FrmCertificados>();
                                  }),
        salidaDe<FrmCertificado>("FrmCertificado",
                                 [] {
                                     certificados::Legajo legajo;
                                     legajo.interno = vacia;
                                     Pantalla<FrmCertificado>().Editar(legajo, {});
                                     CerrarPantalla<FrmCertificado>();
                                 }),
        salidaDe<FrmHojaValoracion>("FrmHojaValoracion",
                                    [] {
                                        Pantalla<FrmHojaValoracion>().Mostrar(vacia);
                                        CerrarPantalla<FrmHojaValoracion>();
                                    }),
        salidaDe<FrmClientes>("FrmClientes", [] { Pantalla<FrmClientes>().Mostrar(); }),
        salidaDe<FrmClientes>("FrmClientes",
                              [] {
                                  QString cuit;
                                  QString nombre;
                                  SeleccionarCliente(cuit, nombre);
                              }),
        salidaDe<FrmCatArticulos>("FrmCatArticulos", [] { Pantalla<FrmCatArticulos>().Mostrar(); }),
        salidaDe<FrmCatArticulos>("FrmCatArticulos", [] { SeleccionarArticulo({}); }),
        salidaDe<FrmConGen>("FrmConGen", [] { Pantalla<FrmConGen>().Mostrar(); }),
        salidaDe<FrmConfig>("FrmConfig", [] { Pantalla<FrmConfig>().Mostrar(); }),
        salidaDe<FrmBuscarArticulosPorPA>("FrmBuscarArticulosPorPA", [] { VerLicencias(posicion); }),
        salidaDe<FrmConsultas>("FrmConsultas", [] { Pantalla<FrmConsultas>().Mostrar(); }),
        salidaDe<FrmDetalleInterno>("FrmDetalleInterno", [] { AbrirInterno(vacia); }),
        salidaDe<FrmDetalleNomenclador>("FrmDetalleNomenclador", [] { VerDetalleNomenclador(posicion); }),
        salidaDe<FrmExportarOperaciones>("FrmExportarOperaciones",
                                         [] {
                                             Pantalla<FrmExportarOperaciones>().Mostrar();
                                             CerrarPantalla<FrmExportarOperaciones>();
                                         }),
        salidaDe<FrmImportarOperaciones>("FrmImportarOperaciones",
                                         [] {
                                             Pantalla<FrmImportarOperaciones>().Mostrar();
                                             CerrarPantalla<FrmImportarOperaciones>();
                                         }),
        salidaDe<FrmInternoNew>("FrmInternoNew", [] { Pantalla<FrmInternoNew>().Mostrar(); }),
        salidaDe<FrmListado>("FrmListado",
                             [] {
                                 Pantalla<FrmListado>().Elegir(tresFilas(Eleccion::Tipo::Codigos));
                                 CerrarPantalla<FrmListado>();
                             }),
        salidaDe<FrmListadoDespachante>("FrmListadoDespachante",
                                        [] {
                                            QString cuit;
                                            QString nombre;
                                            ListarDespachantes(cuit, nombre);
                                        }),
        salidaDe<FrmListadoeX>("FrmListadoeX",
                               [] {
                                   Pantalla<FrmListadoeX>().Elegir(u"Lista"_s, {{u"A"_s, u"Uno"_s}});
                                   CerrarPantalla<FrmListadoeX>();
                               }),
        salidaDe<FrmABMAgTrans>("FrmABMAgTrans", [] { AgregarAgente({}); }),
        salidaDe<FrmBultos>("FrmBultos",
                            [] {
                                Pantalla<FrmBultos>().Mostrar(vacia);
                                CerrarPantalla<FrmBultos>();
                            }),
        salidaDe<frmONCCA>("frmONCCA",
                           [] {
                               Pantalla<frmONCCA>().Mostrar(vacia);
                               CerrarPantalla<frmONCCA>();
                           }),
        salidaDe<FrmProrKg>("FrmProrKg",
                            [] {
                                Pantalla<FrmProrKg>().Mostrar(vacia, u"0"_s, {});
                                CerrarPantalla<FrmProrKg>();
                            }),
        salidaDe<FrmPrintItem>("FrmPrintItem",
                               [] {
                                   Pantalla<FrmPrintItem>().Mostrar(vacia, u"0"_s);
                                   CerrarPantalla<FrmPrintItem>();
                               }),
        salidaDe<FrmCorreo>("FrmCorreo",
                            [] {
                                Pantalla<FrmCorreo>().Mostrar();
                                CerrarPantalla<FrmCorreo>();
                            }),
        salidaDe<FrmProcesando>("FrmProcesando",
                                [] {
                                    // A server that takes the call and says nothing.
                                    const ServidorDeGuion servidor({});
                                    Correo correo;
                                    correo.remitente = u"a@x.com"_s;
                                    correo.destinatario = u"b@x.com"_s;
                                    correo.servidor = servidor.direccion();
                                    Pantalla<FrmProcesando>().Enviar(correo);
                                    CerrarPantalla<FrmProcesando>();
                                }),
        salidaDe<FrmPresupuesto>("FrmPresupuesto",
                                 [] {
                                     Pantalla<FrmPresupuesto>().Mostrar(vacia);
                                     CerrarPantalla<FrmPresupuesto>();
                                 }),
        salidaDe<FrmDatos>("FrmDatos", [] { PedirImporte(u"HONORARIOS"_s); }),
        salidaDe<FrmConceptos>("FrmConceptos",
                               [] {
                                   Pantalla<FrmConceptos>().Elegir();
                                   CerrarPantalla<FrmConceptos>();
                               }),
        salidaDe<FrmReferencias>("FrmReferencias",
                                 [] {
                                     Pantalla<FrmReferencias>().Elegir();
                                     CerrarPantalla<FrmReferencias>();
                                 }),
        salidaDe<FrmTransferencia>("FrmTransferencia",
                                   [] {
                                       Pantalla<FrmTransferencia>().Mostrar(vacia);
                                       CerrarPantalla<FrmTransferencia>();
                                   }),
        salidaDe<FrmLstTrans>("FrmLstTrans",
                              [] {
                                  QString cuit;
                                  QString nombre;
                                  ListarAgentes(cuit, nombre);
                              }),
        salidaDe<FrmLstDiv>("FrmLstDiv",
                            [] {
                                Pantalla<FrmLstDiv>().Mostrar(vacia);
                                CerrarPantalla<FrmLstDiv>();
                            }),
        salidaDe<FrmLstProrrateo>("FrmLstProrrateo",
                                  [] {
                                      Pantalla<FrmLstProrrateo>().Elegir(vacia);
                                      CerrarPantalla<FrmLstProrrateo>();
                                  }),
        salidaDe<FrmLstVendedores>("FrmLstVendedores",
                                   [] {
                                       QString codigo;
                                       QString nombre;
                                       ListarVendedores(codigo, nombre);
                                   }),
        salidaDe<FrmMostrarDatos>("FrmMostrarDatos",
                                  [informe] {
                                      Pantalla<FrmMostrarDatos>().Mostrar(informe);
                                      CerrarPantalla<FrmMostrarDatos>();
                                  }),
        salidaDe<FrmNewVendedor>("FrmNewVendedor", [] { AgregarVendedor({}); }),
        salidaDe<FrmPerfiles>("FrmPerfiles",
                              [] {
                                  Pantalla<FrmPerfiles>().Elegir({});
                                  CerrarPantalla<FrmPerfiles>();
                              }),
        salidaDe<FrmPosicion>("FrmPosicion", [] { ElegirPosicion(posicion.left(10)); }),
        salidaDe<FrmPrimerInicio>("FrmPrimerInicio",
                                  [this] {
                                      Pantalla<FrmPrimerInicio>().Ofrecer(tienda->carpeta(), u"Nuevo"_s);
                                      CerrarPantalla<FrmPrimerInicio>();
                                  }),
        salidaDe<FrmPrincipal>("FrmPrincipal", [] { Pantalla<FrmPrincipal>().Mostrar(); }),
        salidaDe<MenuP>("MenuP", [] { Pantalla<FrmPrincipal>().Mostrar(); }),
        salidaDe<FrmSubItems>("FrmSubItems",
                              [] {
                                  Pantalla<FrmSubItems>().Mostrar(vacia, {1, 1, 1, 1, 1, 1, 1, 1});
                              }),
        salidaDe<FrmCancelaciones>("FrmCancelaciones",
                                   [] {
                                       Pantalla<FrmCancelaciones>().Ingresar(vacia, u"1"_s);
                                       CerrarPantalla<FrmCancelaciones>();
                                   }),
        salidaDe<FrmStock>("FrmStock", [] { Pantalla<FrmStock>().Mostrar(); }),
        salidaDe<FrmTomarInsumos>("FrmTomarInsumos", [] { TomarInsumos(vacia); }),
        salidaDe<FrmSufijos>("FrmSufijos", [] { VerSufijos(posicion, {}); }),
        salidaDe<FrmVentajas>("FrmVentajas",
                              [] {
                                  Pantalla<FrmVentajas>().Seleccionar(u"Ventajas"_s, {u"A"_s, u"B"_s});
                                  CerrarPantalla<FrmVentajas>();
                              }),
        salidaDe<FrmVerItem>("FrmVerItem", [] { Pantalla<FrmVerItem>().Mostrar(vacia); }),
        salidaDe<FrmVistaPrevia>("FrmVistaPrevia",
                                 [] {
                                     Pantalla<FrmVistaPrevia>().Mostrar({});
                                     CerrarPantalla<FrmVistaPrevia>();
                                 }),
        salidaDe<Frm_ComprobacionErrores>("Frm_ComprobacionErrores",
                                          [informe] {
                                              Pantalla<Frm_ComprobacionErrores>().Mostrar(informe);
                                              CerrarPantalla<Frm_ComprobacionErrores>();
                                          }),
        salidaDe<Frm_ListaCeoItem>("Frm_ListaCeoItem",
                                   [] {
                                       Pantalla<Frm_ListaCeoItem>().Mostrar({u"CO-1"_s});
                                       CerrarPantalla<Frm_ListaCeoItem>();
                                   }),
        salidaDe<frmActualizacion>("frmActualizacion",
                                   [this] {
                                       // A server that takes the call and says nothing.
                                       const ServidorDeGuion servidor({});
                                       EscribirIni(u"ACTUALIZACION"_s, u"DIRECCION"_s,
                                                   "http://"_L1 + servidor.direccion(), ctx->ConfigFilePath);
                                       Pantalla<frmActualizacion>().Mostrar();
                                       CerrarPantalla<frmActualizacion>();
                                   }),
        salidaDe<frmListadoItem>("frmListadoItem",
                                 [] {
                                     Pantalla<frmListadoItem>().Elegir(vacia, u"0"_s);
                                     CerrarPantalla<frmListadoItem>();
                                 }),
    };
}

void EnTodasLasPantallas::pulsarEscape(const std::shared_ptr<int> &veces, const std::shared_ptr<bool> &listo,
                                       const std::function<void()> &completar) {
    QTimer::singleShot(10, qApp, [this, veces, listo, completar] {
        if (*listo) return;
        // Again from here, for the loops that a screen runs by itself.
        pulsarEscape(veces, listo, completar);
        QPointer<QWidget> ventana = QApplication::activeModalWidget();
        if (ventana == nullptr) ventana = QApplication::activeWindow();
        if (ventana == nullptr || ventana == enManos || !ventana->isVisible() ||
            !QTest::qWaitForWindowExposed(ventana))
            return;
        if (alAbrir) std::exchange(alAbrir, nullptr)();
        if (enManos != nullptr) {
            // Came over the one that is being filled.
            if (ventana != nullptr && ventana->windowHandle() != nullptr) {
                ++escapesEncima;
                QTest::keyClick(ventana->windowHandle(), Qt::Key_Escape);
            }
            return;
        }
        if (++*veces == 2 && completar) {
            const QScopedValueRollback<QPointer<QWidget>> solo(enManos, ventana);
            completar();
        }
        // A look-up that was told may have taken its place for a moment.
        if (ventana == nullptr || ventana->windowHandle() == nullptr) return;
        // What it refuses to leave with is corrected once.
        if (*veces > bastantesEscapes && alQuedarse) {
            std::exchange(alQuedarse, nullptr)();
            *veces = 0;
        }
        if (*veces <= bastantesEscapes) {
            QTest::keyClick(ventana->windowHandle(), Qt::Key_Escape);
            return;
        }
        QStringList dicho;
        for (const Mensaje &m : registro.mensajes) dicho << m.texto;
        ADD_FAILURE() << "ESC does not leave it: " << ventana->objectName().toStdString()
                      << "; it said: " << dicho.join(" / "_L1).toStdString();
        // Not from within its own handlers, which may refuse.
        if (auto *dialogo = qobject_cast<QDialog *>(ventana))
            dialogo->done(QDialog::Rejected);
        else
            ventana->hide();
    });
}

void EnTodasLasPantallas::entrarYSalir(const Salida &salida) {
    SCOPED_TRACE(salida.nombre);
    const auto veces = std::make_shared<int>(0);
    const auto listo = std::make_shared<bool>(false);
    // Whoever is asked whether to leave without saving says yes.
    registro.respuestas.assign(8, true);
    pulsarEscape(veces, listo, salida.completar);
    try {
        salida.abrir();
    } catch (const Falla &e) {
        ADD_FAILURE() << "no handler took: " << e.descripcion.toStdString();
    }
    QElapsedTimer reloj;
    reloj.start();
    while (salida.abierta() && reloj.elapsed() < 5000) QTest::qWait(5);
    *listo = true;
    EXPECT_FALSE(salida.abierta());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "a window keeps the keyboard";
    if (alSalir) std::exchange(alSalir, nullptr)();
    // The next one starts from nothing.
    alAbrir = nullptr;
    alQuedarse = nullptr;
    pantallas::CerrarTodas();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ClCntrl::banderaDeCambios() = false;
    registro = {};
    ctx->LiquidacionPendiente = true;
    ctx->ChequeoArmado = u"SI"_s;
}
