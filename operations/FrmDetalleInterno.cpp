#include "operations/FrmDetalleInterno.h"

#include <utility>

#include "assembly/FrmArmarItem.h"
#include "assembly/run.h"
#include "forms/FrmCertificados.h"
#include "forms/FrmHojaValoracion.h"
#include "frame/entities.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmBultos.h"
#include "header/FrmCaratula.h"
#include "header/regime.h"
#include "liquidation/FrmVerItem.h"
#include "operations/handover.h"
#include "outputs/FrmPresupuesto.h"
#include "outputs/FrmTransferencia.h"
#include "regulatory/frmONCCA.h"
#include "stock/FrmStock.h"
#include "stock/inputsreport.h"
#include "stock/load.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmSubItems.h"

using namespace Qt::StringLiterals;

namespace {

using ajuste::flags;
using ajuste::zendra;

/// What a status label shows that was never worked out.
const QString sinDato = u"—"_s;

using FormaDelTablero = Ui::FrmDetalleInterno;

/// The buttons whose work is done by libraries that are not part of this program.
constexpr std::array<std::pair<QPushButton * FormaDelTablero::*, QLatin1String>, 1> bibliotecasDelTablero{{
    {&FormaDelTablero::Command1, "LnaOutputBuilder"_L1},
}};

}  // namespace

FrmDetalleInterno::FrmDetalleInterno() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    CkFlag = {ui.CkFlag_0, ui.CkFlag_1, ui.CkFlag_2, ui.CkFlag_3,
              ui.CkFlag_4, ui.CkFlag_5, ui.CkFlag_6, ui.CkFlag_7};
    Form_Load();
    Conectar();
}

void FrmDetalleInterno::Form_Load() {
    const AppContext &ctx = Contexto();
    ClCntrl::banderaDeCambios() = false;
    (ctx.opciones.ARMARITEM == 1 ? ui.opOrdenxNCM : ui.opOrdenxCarga)->setChecked(true);
    ui.chkCalcularServicioDigitalizacion->setChecked(
        ctx.ajustes.Leer(zendra, flags, u"CALCULAR_SERVICIO_DIGITALIZACION"_s, u"N"_s) == "S"_L1);
}

void FrmDetalleInterno::Conectar() {
    QWidget *v = ventana.get();
    const auto alPulsar = [v](QAbstractButton *boton, const std::function<void()> &hacer) {
        QObject::connect(boton, &QAbstractButton::clicked, v, hacer);
    };
    alPulsar(ui.cmdITEM, [this] { cmdITEM_Click(); });
    alPulsar(ui.CmdSubItems, [this] { CmdSubItems_Click(); });
    alPulsar(ui.CmdTransMaria, [this] { CmdTransMaria_Click(); });
    alPulsar(ui.Command4, [] { Pantalla<FrmConsultas>().Mostrar(); });
    alPulsar(ui.cmdCaratula, [this] { cmdCaratula_Click(); });
    alPulsar(ui.CmdBultos, [this] { CmdBultos_Click(); });
    alPulsar(ui.CmdPresupuesto, [this] { CmdPresupuesto_Click(); });
    alPulsar(ui.cmdONCCA, [this] { cmdONCCA_Click(); });
    for (QPushButton *boton : {ui.cmdExportar, ui.cmdExportINS}) alPulsar(boton, [this] { ExportarStock(); });
    alPulsar(ui.CmdPrint, [this] { CmdPrint_Click(); });
    alPulsar(ui.cmdStock, [this] { Pantalla<FrmStock>().MostrarDeOperacion(interno_); });
    alPulsar(ui.CmdHojaVal, [this] { CmdHojaVal_Click(); });
    alPulsar(ui.cmdCertOrig, [this] { cmdCertOrig_Click(); });
    for (const auto &[boton, biblioteca] : bibliotecasDelTablero) {
        const QString opcion = (ui.*boton)->text().remove(u'&');
        alPulsar(ui.*boton, [biblioteca = QString(biblioteca), opcion] {
            SinBiblioteca(Contexto(), biblioteca, opcion);
        });
    }
    alPulsar(ui.opDJAI_MezclarDescripciones, [this] { opDJAI_MezclarDescripciones_Click(); });
    alPulsar(ui.opDJAI_Usar_Descripcion_Catalogo, [this] { opDJAI_Usar_Descripcion_Catalogo_Click(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() == QEvent::WindowActivate) Form_GotFocus();
        // Closed from the window's own controls the lock row stays, by design.
        if (evento->type() == QEvent::Close) Form_Unload();
        return false;
    });
}

void FrmDetalleInterno::Cargar(const QString &interno, const BanderasDeOperacion &banderas) {
    interno_ = interno;
    ventana->setWindowTitle(u"Operación "_s + interno);
    ui.LbInterno->setText(interno);
    for (std::size_t n = 0; n < CkFlag.size(); ++n) CkFlag.at(n)->setChecked(banderas.at(n) != 0);
}

void FrmDetalleInterno::TomarFoco() {
    (ui.cmdITEM->isEnabled() ? ui.cmdITEM : ui.cmdCaratula)->setFocus();
}

void FrmDetalleInterno::VerDatos() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        estado_ = LeerEstado(ctx, interno_, estado_);
        PintarEstado();
        HabilitarBotones();
        ElegirOpcionDJAI();
    });
}

void FrmDetalleInterno::PintarEstado() {
    const EstadoDeOperacion &e = estado_;
    ui.LbSubregimen->setText(e.LbSubregimen);
    ui.LbAduana->setText(e.LbAduana);
    ui.LbDespa->setText(e.LbDespa);
    ui.LbCliente->setText(e.LbCliente);
    ui.LbItem->setText(e.LbItem);
    ui.LbSubItem->setText(e.LbSubItem);
    const auto pintar = [](QLabel *etiqueta, const QString &texto) {
        estilo::PintarEstado(etiqueta, texto.isEmpty() ? sinDato : texto);
    };
    pintar(ui.LbEstadoCaratula, e.LbEstadoCaratula);
    pintar(ui.LbEstadoSubItem, e.LbEstadoSubItem);
    pintar(ui.LbEstadoItem, e.LbEstadoItem);
    pintar(ui.LbEstadoBultos, e.LbEstadoBultos);
}

void FrmDetalleInterno::HabilitarBotones() {
    const EstadoDeOperacion &e = estado_;
    ui.ChCOEF->setEnabled(e.ChCOEF);
    ui.cmdITEM->setEnabled(e.cmdITEM);
    ui.frmOrdenar->setEnabled(e.frmOrdenar);
    ui.CmdBultos->setEnabled(e.CmdBultos);
    ui.cmdCertOrig->setEnabled(e.cmdCertOrig);
    ui.CmdTransMaria->setEnabled(e.CmdTransMaria);
    ui.cmdExportar->setEnabled(e.cmdExportar);
    ui.cmdExportINS->setEnabled(e.cmdExportINS);
    ui.CmdPrint->setEnabled(e.CmdPrint);
    ui.CmdHojaVal->setEnabled(e.CmdHojaVal);
    ui.cmdONCCA->setEnabled(e.cmdONCCA);
    ui.frmOrdenar->setVisible(e.frmOrdenarVisible);
    ui.framDJAI->setVisible(e.framDJAIVisible);
}

void FrmDetalleInterno::ElegirOpcionDJAI() {
    const EstadoDeOperacion &e = estado_;
    ui.opDJAI_MezclarDescripciones->setEnabled(e.mezclarHabilitado);
    if (!e.itemsMirados || !EsDeclaracionDJAI(e.idsubreg)) return;
    QRadioButton *elegida = ui.opDJAI_No_Usar_Descripcion;
    if (e.opcionDJAI == "MARIA"_L1) elegida = ui.opDJAI_Usar_Descripcion_Maria;
    if (e.opcionDJAI == "CATALOGO"_L1) elegida = ui.opDJAI_Usar_Descripcion_Catalogo;
    if (e.opcionDJAI == "MEZCLA"_L1) elegida = ui.opDJAI_MezclarDescripciones;
    elegida->setChecked(true);
}

EleccionDelTablero FrmDetalleInterno::LeerEleccion() const {
    EleccionDelTablero e;
    e.opOrdenxNCM = ui.opOrdenxNCM->isChecked();
    e.ChMulta = ui.ChMulta->isChecked();
    e.ChCOEF = ui.ChCOEF->isChecked();
    e.chkCalcularServicioDigitalizacion = ui.chkCalcularServicioDigitalizacion->isChecked();
    if (ui.opDJAI_No_Usar_Descripcion->isChecked()) e.opcionDJAI = u"NO"_s;
    if (ui.opDJAI_Usar_Descripcion_Maria->isChecked()) e.opcionDJAI = u"MARIA"_s;
    if (ui.opDJAI_Usar_Descripcion_Catalogo->isChecked()) e.opcionDJAI = u"CATALOGO"_s;
    if (ui.opDJAI_MezclarDescripciones->isChecked()) e.opcionDJAI = u"MEZCLA"_s;
    return e;
}

BanderasDeOperacion FrmDetalleInterno::LeerBanderas() const {
    BanderasDeOperacion banderas{};
    for (std::size_t n = 0; n < CkFlag.size(); ++n) banderas.at(n) = CkFlag.at(n)->isChecked() ? 1 : 0;
    return banderas;
}

bool FrmDetalleInterno::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape) return false;
    CerrarInterno();
    return true;
}

void FrmDetalleInterno::Form_GotFocus() {
    if (!enItems_) Contexto().CalcularCoeficiente = false;
}

void FrmDetalleInterno::CerrarInterno() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        std::optional<int> coeficiente;
        if (ui.ChCOEF->isEnabled()) coeficiente = ui.ChCOEF->isChecked() ? 1 : 0;
        GuardarYLiberar(ctx, interno_, LeerBanderas(), coeficiente);
    });
    Form_Unload();
}

void FrmDetalleInterno::Form_Unload() {
    Contexto().DataManager.CloseAllDataConnection();
    const auto avisar = std::move(alCerrar);
    CerrarPantalla<FrmDetalleInterno>();
    if (avisar) avisar();
}

void FrmDetalleInterno::cmdITEM_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        OpcionesDeArmado opciones;
        const PasoDeArmado paso = PrepararArmado(ctx, interno_, LeerEleccion(), opciones);
        if (paso == PasoDeArmado::NoSigue) return;
        enItems_ = true;
        if (paso == PasoDeArmado::YaArmado) {
            AbrirItems();
            return;
        }
        auto &armado = Pantalla<FrmArmarItem>();
        armado.alCambiarTablero = [this](const Avance &avance) { SeguirCorrida(avance); };
        armado.alCerrar = [this] { SeguirArmado(); };
        armado.Mostrar(interno_, opciones);
    });
}

void FrmDetalleInterno::SeguirCorrida(const Avance &avance) {
    if (avance.control == "LbSubregimen"_L1) ui.LbSubregimen->setText(avance.texto);
    for (QCheckBox *casilla : {ui.ChCOEF, ui.ChMulta})
        if (avance.control == casilla->objectName()) casilla->setChecked(avance.valor != 0);
}

void FrmDetalleInterno::SeguirArmado() {
    AppContext &ctx = Contexto();
    if (ctx.ChequeoArmado == "SI"_L1) {
        AbrirItems();
        return;
    }
    enItems_ = false;
    Manejar(ctx, [&] { ArmadoFallido(ctx, interno_); });
    VerDatos();
    TomarFoco();
}

void FrmDetalleInterno::AbrirItems() {
    AppContext &ctx = Contexto();
    // Entering the items asks for a liquidation that is written back, with the box as it stands now.
    ctx.LiquidacionPendiente = true;
    ctx.CalcularCoeficiente = ui.ChCOEF->isEnabled() && ui.ChCOEF->isChecked();
    auto &items = Pantalla<FrmVerItem>();
    items.alCerrar = [this] {
        enItems_ = false;
        Contexto().CalcularCoeficiente = false;
        VerDatos();
        TomarFoco();
    };
    items.Mostrar(interno_);
}

void FrmDetalleInterno::CmdBultos_Click() {
    Pantalla<FrmBultos>().Mostrar(interno_);
    CerrarPantalla<FrmBultos>();
    VerDatos();
}

void FrmDetalleInterno::CmdPresupuesto_Click() {
    Pantalla<FrmPresupuesto>().Mostrar(interno_);
    CerrarPantalla<FrmPresupuesto>();
    VerDatos();
}

void FrmDetalleInterno::cmdONCCA_Click() {
    Pantalla<frmONCCA>().Mostrar(interno_);
    CerrarPantalla<frmONCCA>();
    VerDatos();
}

void FrmDetalleInterno::ExportarStock() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { stock::CargarPreguntando(ctx, interno_, QDate::currentDate()); });
}

void FrmDetalleInterno::CmdPrint_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { stock::GenerarIMP(ctx, interno_); });
}

void FrmDetalleInterno::CmdHojaVal_Click() {
    AbrirHojaValoracion(interno_);
    VerDatos();
}

void FrmDetalleInterno::cmdCertOrig_Click() {
    AbrirCertificados(interno_);
    VerDatos();
}

void FrmDetalleInterno::cmdCaratula_Click() {
    auto &caratula = Pantalla<FrmCaratula>();
    caratula.alCerrar = [this] {
        VerDatos();
        // The next step of the work.
        ui.CmdSubItems->setFocus();
    };
    caratula.Mostrar(interno_);
}

void FrmDetalleInterno::CmdSubItems_Click() {
    auto &lineas = Pantalla<FrmSubItems>();
    lineas.alCerrar = [this] {
        VerDatos();
        TomarFoco();
    };
    lineas.Mostrar(interno_, LeerBanderas());
}

void FrmDetalleInterno::CmdTransMaria_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        if (!ConfirmarTransferencia(ctx, interno_)) return;
        Pantalla<FrmTransferencia>().Mostrar(interno_);
        CerrarPantalla<FrmTransferencia>();
    });
    VerDatos();
}

void FrmDetalleInterno::opDJAI_MezclarDescripciones_Click() {
    AppContext &ctx = Contexto();
    if (ctx.DataManager.getDataConnectionTAG(u"INTERNOS"_s) == "SQL"_L1) return;
    ctx.dialogos.informar(u"DJAI - MEZCLAR DESCRIPCIONES - Opción valida para Zendra v3 SQL Server"_s);
    // A group of options lets none be taken away while it is exclusive.
    ui.opDJAI_MezclarDescripciones->setAutoExclusive(false);
    ui.opDJAI_MezclarDescripciones->setChecked(false);
    ui.opDJAI_MezclarDescripciones->setAutoExclusive(true);
}

void FrmDetalleInterno::opDJAI_Usar_Descripcion_Catalogo_Click() {
    Contexto().dialogos.informar(
        u"Esta opción REEMPLAZA el campo DESCRIPCION_MARIA por DESCRIPCION (del catálogo) en "
        "la carga de subitems."_s);
}
