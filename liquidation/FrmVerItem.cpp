#include "liquidation/FrmVerItem.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <QStringListModel>
#include <array>

#include "assembly/FrmProrKg.h"
#include "frame/entities.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/regime.h"
#include "liquidation/consistency.h"
#include "liquidation/frmListadoItem.h"
#include "liquidation/itemsave.h"

using namespace Qt::StringLiterals;

namespace {

enum Solapa { enDatos, enSubitems, enInformacion, enLiquidar, enCancelaciones, enOncca };

/// A page of sTab: its key and the keys that work on it.
struct DatosDeSolapa {
    int tecla;
    const char16_t *teclas;
};
constexpr const char16_t *sinLista = u"CTRL+INICIO  item 0   ·   F9  kilos   ·   F12  imprimir   ·   ";
constexpr std::array<DatosDeSolapa, 6> solapas{{
    {Qt::Key_F1, u"ENTER  seguir   ·   F6  lista   ·   F9  kilos   ·   F12  imprimir   ·   "},
    {Qt::Key_F2, u"ENTER  certificados   ·   CTRL+INICIO  item 0   ·   F9  kilos   ·   F12  imprimir   ·   "},
    {Qt::Key_F3, u"INSERT  agregar   ·   SUPR  eliminar   ·   "},
    {Qt::Key_F4, u"INSERT  agregar   ·   ENTER  modificar   ·   SUPR  eliminar   ·   "},
    {Qt::Key_F5, u"INSERT  agregar   ·   ENTER  modificar   ·   SUPR  eliminar   ·   ALT+P  imprimir   ·   "},
    {Qt::Key_F7, u"ENTER  seguir   ·   F6  lista   ·   "},
}};

const QString itemCero = u"0"_s;

}  // namespace

FrmVerItem::FrmVerItem() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmVerItem::Form_Load() {
    PrepararListas();
    CargarCampos();
    MostrarSolapas({});
}

void FrmVerItem::Conectar() {
    QWidget *v = ventana.get();
    ClCntrl::Vincular(ui.TxtItem);
    EscucharTeclas(ui.TxtItem, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        TxtItem_Enter();
        return true;
    });
    ConectarCampos();
    ConectarListas();
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
    // A bar's own arrows go by the wheel's sense, which is the other one.
    EscucharTeclas(ui.Scr, [this](QKeyEvent *tecla) {
        const bool atras = tecla->key() == Qt::Key_Left || tecla->key() == Qt::Key_Up;
        if (!atras && tecla->key() != Qt::Key_Right && tecla->key() != Qt::Key_Down) return false;
        ui.Scr->setValue(ui.Scr->value() + (atras ? -1 : 1));
        return true;
    });
    QObject::connect(ui.Scr, &QScrollBar::valueChanged, v, [this](int posicion) { Scr_Change(posicion); });
    QObject::connect(ui.sTab, &QTabWidget::currentChanged, v, [this](int indice) { sTab_Change(indice); });
    const std::pair<QPushButton *, void (FrmVerItem::*)()> botones[] = {
        {ui.cmdBuscarItem, &FrmVerItem::cmdBuscarItem_Click},
        {ui.cmdProrKg, &FrmVerItem::cmdProrKg_Click},
        {ui.CmdPrint, &FrmVerItem::CmdPrint_Click},
        {ui.cmdGrabar, &FrmVerItem::cmdGrabar_Click}};
    for (const auto &[boton, hacer] : botones)
        QObject::connect(boton, &QPushButton::clicked, v, [this, hacer = hacer] { (this->*hacer)(); });
    // Shortcuts, as the grids would take these keys for themselves.
    const auto atajo = [v](const QKeySequence &teclas, const std::function<void()> &hacer) {
        auto *nuevo = new QShortcut(teclas, v);
        QObject::connect(nuevo, &QShortcut::activated, v, hacer);
    };
    atajo(Qt::Key_PageUp, [this] { ui.Scr->setValue(ui.Scr->value() - 1); });
    atajo(Qt::Key_PageDown, [this] { ui.Scr->setValue(ui.Scr->value() + 1); });
    atajo(Qt::CTRL | Qt::Key_Home, [this] { ui.Scr->setValue(0); });
}

void FrmVerItem::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    interno_ = interno;
    ventana->setWindowTitle(u"Items y liquidación - Operación "_s + interno);
    calculo_ = std::make_unique<ClassLiquidacion>(ctx, interno);
    ventana->setModal(true);
    {
        const QSignalBlocker callado(ui.sTab);
        ui.sTab->setCurrentIndex(enLiquidar);
    }
    MostrarVentana(ventana.get());
    item_ = itemCero;
    items_ = {itemCero};
    Manejar(ctx, [&] {
        items_ = ItemsDeOperacion(ctx, interno);
        listas_->setStringList(ListasDeItem(ctx));
    });
    const int ultimo = static_cast<int>(items_.size()) - 1;
    ui.Scr->setRange(0, ultimo);
    ui.lbCantidadItems->setText(u"de %1"_s.arg(ultimo));
    VerDetalle(itemCero);
    ElegirSolapa(enLiquidar);
}

void FrmVerItem::VerDetalle(const QString &item) {
    if (enCorrida_) return;
    AppContext &ctx = Contexto();
    const bool enLiquidacion = ui.sTab->currentIndex() == enLiquidar;
    const bool deOperacion = item == itemCero;
    const bool otraPagina = !cargada_ || item != item_;
    const bool conLiquidacion = !deOperacion || enLiquidacion || ctx.LiquidacionPendiente;
    // The run counts with what was typed.
    if (!otraPagina && deOperacion && conLiquidacion && Cambio() && !GuardarPagina()) return;
    enCorrida_ = true;
    bool cargada = false;
    Manejar(ctx, [&] {
        const VistaDeItem vista = VerDetalleITEM(
            ctx, interno_, item, enLiquidacion, *calculo_,
            [this](const QString &estado) {
                ui.lbEstado->setText(estado);
                ui.lbEstado->repaint();
            },
            ui.sTab->currentIndex() == enCancelaciones);
        cargada = vista.cargada;
        if (!cargada) return;
        item_ = item;
        cargada_ = true;
        Pintar(vista, conLiquidacion, otraPagina);
    });
    if (deOperacion) sinPagina_ = !cargada;
    enCorrida_ = false;
}

void FrmVerItem::Pintar(const VistaDeItem &vista, bool conLiquidacion, bool otraPagina) {
    MostrarSolapas(vista.idsubreg);
    campos::PonerTexto(ui.TxtItem, vista.item);
    {
        const QSignalBlocker callada(ui.Scr);
        ui.Scr->setValue(static_cast<int>(items_.indexOf(vista.item)));
    }
    EscribirCampos(vista, otraPagina);
    for (const auto &[control, texto] : vista.campos) {
        auto *etiqueta = ventana->findChild<QLabel *>(control);
        if (etiqueta == nullptr) continue;
        const bool deLiquidacion = etiqueta == ui.LbBaseImp || etiqueta == ui.LbBaseIVA;
        if (conLiquidacion || !deLiquidacion) etiqueta->setText(texto);
    }
    const bool deOperacion = vista.item == itemCero;
    ui.lbNCM->setText(deOperacion ? u"Operación completa"_s : vista.campo(u"LbPos"_s));
    ui.lbAutoliq->setVisible(vista.lbAutoliq);
    ui.LbLapi->setVisible(vista.LbLapi);
    ui.lbCancelacion->setVisible(vista.esCancelacion);
    PintarListas(vista, otraPagina);
    EscribirTeclas();
    if (!conLiquidacion) return;
    PintarLiquidacion(vista, otraPagina);
    if (!deOperacion) return;
    ui.lbTOTALG->setText(vista.lbTOTALG);
    ui.lbTOTGAR->setText(vista.lbTOTGAR);
    ui.lbTOTCOB->setText(vista.lbTOTCOB);
}

void FrmVerItem::MostrarSolapas(const QString &idsubreg) {
    ui.sTab->setTabVisible(enCancelaciones,
                           EsRegimenConSolapaInsumos(idsubreg) && EsRegimenConInsumos(idsubreg));
    ui.sTab->setTabVisible(enOncca, EsRegimenConONCCA(idsubreg));
}

void FrmVerItem::EscribirTeclas() {
    QString lasSolapas = u"F1-F4"_s;
    if (ui.sTab->isTabVisible(enCancelaciones)) lasSolapas = u"F1-F5"_s;
    if (ui.sTab->isTabVisible(enOncca)) lasSolapas += u" y F7"_s;
    const int indice = ui.sTab->currentIndex();
    // The operation's own liquidation is the sum of the others.
    const bool quieta = indice < 0 || (indice == enLiquidar && item_ == itemCero);
    const char16_t *propias = quieta ? sinLista : solapas.at(static_cast<std::size_t>(indice)).teclas;
    ui.lbTeclas->setText(QString::fromUtf16(propias) + lasSolapas +
                         u"  solapas   ·   RE PÁG / AV PÁG  items   ·   F8  buscar   ·   F11  grabar   ·   "
                         "ESC  grabar y cerrar"_s);
}

void FrmVerItem::sTab_Change(int indice) {
    EscribirTeclas();
    // The operation's page is calculated where its liquidation is looked at; the cancellations of an item's
    // lines are read where they are.
    const bool deOperacion = item_ == itemCero;
    if (cargada_ && ((indice == enLiquidar && deOperacion) || (indice == enCancelaciones && !deOperacion)))
        VerDetalle(item_);
}

void FrmVerItem::ElegirSolapa(int indice) {
    if (!ui.sTab->isTabVisible(indice)) return;
    ui.sTab->setCurrentIndex(indice);
    QWidget *primero[] = {ui.TxtNaladisa, ui.LstV, ui.GridInf, ui.GrdLiq, ui.lstVCancel, ui.txtAcuerdo};
    if (ui.sTab->currentIndex() != indice) return;
    primero[indice]->setFocus();
    if (indice == enLiquidar && ui.GrdLiq->rowCount() > 0) ui.GrdLiq->setCurrentCell(0, 0);
}

bool FrmVerItem::Form_KeyDown(const QKeyEvent *tecla) {
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    for (std::size_t n = 0; n < solapas.size(); ++n) {
        if (tecla->key() != solapas.at(n).tecla) continue;
        ElegirSolapa(static_cast<int>(n));
        if (n == enInformacion) VerDetalle(item_);
        return true;
    }
    switch (tecla->key()) {
        case Qt::Key_F8:
            cmdBuscarItem_Click();
            return true;
        case Qt::Key_F9:
            cmdProrKg_Click();
            return true;
        case Qt::Key_F11:
            cmdGrabar_Click();
            return true;
        case Qt::Key_F12:
            CmdPrint_Click();
            return true;
        case Qt::Key_Insert:
            if (ui.sTab->currentIndex() == enCancelaciones) InsertarCancelacion();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return true;
        case Qt::Key_Escape:
            Form_Escape();
            return true;
        default:
            return false;
    }
}

void FrmVerItem::Scr_Change(int posicion) {
    IrA(posicion);
}

void FrmVerItem::TxtItem_Enter() {
    IrAItem(ui.TxtItem->text().trimmed());
}

void FrmVerItem::IrAItem(const QString &item) {
    IrA(static_cast<int>(items_.indexOf(item)));
}

void FrmVerItem::IrA(int posicion) {
    const QString destino = posicion < 0 ? item_ : items_.value(posicion, item_);
    if (destino != item_) {
        // A page that could not be saved is not left.
        if (cargada_ && Cambio() && !GuardarPagina()) {
            const QSignalBlocker callada(ui.Scr);
            ui.Scr->setValue(static_cast<int>(items_.indexOf(item_)));
        } else {
            {
                // Also where the page cannot be shown, so that one can go on beyond it.
                const QSignalBlocker callada(ui.Scr);
                ui.Scr->setValue(posicion);
            }
            VerDetalle(destino);
        }
    }
    ui.TxtItem->setText(item_);
    if (ui.TxtItem->hasFocus()) ui.TxtItem->selectAll();
}

bool FrmVerItem::GuardarPagina() {
    AppContext &ctx = Contexto();
    const DatosDeItem pagina = Leer();
    Veredicto guardado;
    Manejar(ctx, [&] { guardado = GrabarItem(ctx, interno_, item_, pagina, *calculo_); });
    if (!guardado.ok) {
        grabadoFallido_ = pagina;
        PonerFoco(guardado.foco);
        return false;
    }
    cargados_ = pagina;
    AnotarPintados();
    grabadoFallido_.reset();
    return true;
}

void FrmVerItem::cmdGrabar_Click() {
    if (enCorrida_ || !cargada_ || !GuardarPagina()) return;
    // As the store holds it now, with the figures that hang on it.
    VerDetalle(item_);
    ui.lbEstado->setText(u"Item %1 grabado"_s.arg(item_));
}

void FrmVerItem::cmdBuscarItem_Click() {
    const QString elegido = Pantalla<frmListadoItem>().Elegir(interno_, item_);
    CerrarPantalla<frmListadoItem>();
    if (!elegido.isEmpty()) IrAItem(elegido);
}

void FrmVerItem::cmdProrKg_Click() {
    if (!cargada_ || (Cambio() && !GuardarPagina())) return;
    const bool hecho = Pantalla<FrmProrKg>().Mostrar(interno_, item_, ui.TxtTotKgNeto->text());
    CerrarPantalla<FrmProrKg>();
    if (hecho) VerDetalle(item_);
}

void FrmVerItem::CmdPrint_Click() {
    // The sheet reads the store: what was typed is saved first, and a page that could not be is not left.
    if (enCorrida_ || (cargada_ && Cambio() && !GuardarPagina())) return;
    AppContext &ctx = Contexto();
    if (!ctx.salidas.hoja) {
        NoDisponible(ctx);
        return;
    }
    if (ctx.LiquidacionPendiente)
        ctx.dialogos.advertir(
            u"Hay cambios de liquidación sin calcular: la hoja sale con los importes de antes. Vaya al item 0 "
            "(cero) para actualizarlos."_s);
    ctx.salidas.hoja(interno_, item_);
}

void FrmVerItem::Form_Escape() {
    if (enCorrida_) return;
    AppContext &ctx = Contexto();
    const DatosDeItem pagina = Leer();
    // Where the run cannot be made, or the page not be left, it cannot be asked for: the mark stays, and the
    // next entry runs again.
    if (ctx.LiquidacionPendiente && !sinPagina_ && grabadoFallido_ != pagina) {
        ctx.dialogos.advertir(
            u"Se modifico algun concepto de liquidación, \r\ndebe ir al item 0 (cero) para calcular y "
            "actualizar los totales."_s);
        return;
    }
    // A page that could not be saved is left by the second ESC; one whose store went away meanwhile waits for
    // the next, when it may be back.
    bool guardada = !cargada_ || escapeFallido_ == pagina;
    const bool seFue = !guardada && SeFueElStore(ctx, entidad::internos, [&] { guardada = GuardarPagina(); });
    if (!guardada) {
        if (!seFue) escapeFallido_ = pagina;
        return;
    }
    const auto despues = std::move(alCerrar);
    alCerrar = nullptr;
    const QString interno = interno_;
    CerrarPantalla<FrmVerItem>();
    Manejar(ctx, [&] { ComprobarInterno(ctx, interno); });
    if (despues) despues();
}
