#include "liquidation/FrmVerItem.h"

#include <QHeaderView>
#include <QShortcut>
#include <vector>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "liquidation/consistency.h"

using namespace Qt::StringLiterals;

namespace {

enum Solapa { datos, subitems, informacion, liquidacion, cancelaciones, oncca };

/// Columns as wide as their content, the one told takes what is left.
void ajustarColumnas(QTableWidget *grilla, int elastica) {
    grilla->resizeColumnsToContents();
    grilla->horizontalHeader()->setSectionResizeMode(elastica, QHeaderView::Stretch);
}

struct Celda {
    QString texto;
    bool numero = false;
};

void ponerFila(QTableWidget *grilla, int fila, const std::vector<Celda> &celdas) {
    int columna = 0;
    for (const Celda &celda : celdas) estilo::PonerCelda(grilla, fila, columna++, celda.texto, celda.numero);
}

const QString itemCero = u"0"_s;

}  // namespace

FrmVerItem::FrmVerItem() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmVerItem::Form_Load() {
    estilo::PrepararGrilla(ui.GrdLiq, {u"Nro"_s, u"Concepto"_s, u"Porc. %"_s, u"Base Imp."_s, u"Total"_s,
                                       u"PGC"_s, u"Motivo"_s});
    estilo::PrepararGrilla(ui.LstV, {u"Artículo"_s, u"NCM"_s, u"Descripción"_s, u"Unidad"_s, u"Cantidad"_s,
                                     u"Unitario"_s, u"FOB"_s, u"Sufijos"_s, u"Est."_s, u"Cant. est."_s});
    estilo::PrepararGrilla(ui.GridInf, {u"Info"_s, u"Valor"_s});
    estilo::PrepararGrilla(ui.lstVCancel, {u"DIT"_s, u"Item"_s, u"SubItem"_s, u"NCM"_s, u"Expediente"_s,
                                           u"Cantidad"_s, u"Factor"_s});
}

void FrmVerItem::Conectar() {
    QWidget *v = ventana.get();
    ClCntrl::Vincular(ui.TxtItem);
    EscucharTeclas(ui.TxtItem, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        TxtItem_Enter();
        return true;
    });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
    QObject::connect(ui.Scr, &QScrollBar::valueChanged, v, [this](int posicion) { Scr_Change(posicion); });
    QObject::connect(ui.sTab, &QTabWidget::currentChanged, v, [this](int indice) {
        // The operation's page is calculated where its liquidation is looked at.
        if (indice == liquidacion && item_ == itemCero && !enCorrida_) VerDetalle(item_);
    });
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
    ui.sTab->setCurrentIndex(liquidacion);
    MostrarVentana(ventana.get());
    item_ = itemCero;
    items_ = {itemCero};
    Manejar(ctx, [&] { items_ = ItemsDeOperacion(ctx, interno); });
    const int ultimo = static_cast<int>(items_.size()) - 1;
    ui.Scr->setRange(0, ultimo);
    ui.lbCantidadItems->setText(u"de %1"_s.arg(ultimo));
    VerDetalle(itemCero);
    ElegirSolapa(liquidacion);
}

void FrmVerItem::VerDetalle(const QString &item) {
    if (enCorrida_) return;
    AppContext &ctx = Contexto();
    enCorrida_ = true;
    const bool enLiquidacion = ui.sTab->currentIndex() == liquidacion;
    const bool deOperacion = item == itemCero;
    const bool conLiquidacion = !deOperacion || enLiquidacion || ctx.LiquidacionPendiente;
    bool cargada = false;
    Manejar(ctx, [&] {
        const VistaDeItem vista =
            VerDetalleITEM(ctx, interno_, item, enLiquidacion, *calculo_, [this](const QString &estado) {
                ui.lbEstado->setText(estado);
                ui.lbEstado->repaint();
            });
        cargada = vista.cargada;
        if (!cargada) return;
        item_ = item;
        Pintar(vista, conLiquidacion);
    });
    if (deOperacion) sinPagina_ = !cargada;
    enCorrida_ = false;
}

void FrmVerItem::Pintar(const VistaDeItem &vista, bool conLiquidacion) {
    ui.TxtItem->setText(vista.item);
    if (ui.TxtItem->hasFocus()) ui.TxtItem->selectAll();
    for (const auto &[control, texto] : vista.campos) {
        const bool deLiquidacion = control == "LbBaseImp"_L1 || control == "LbBaseIVA"_L1;
        if (deLiquidacion && !conLiquidacion) continue;
        if (auto *campo = ventana->findChild<QLineEdit *>(control)) {
            campo->setText(texto);
            campo->setCursorPosition(0);
        } else if (auto *etiqueta = ventana->findChild<QLabel *>(control)) {
            etiqueta->setText(texto);
        }
    }
    const bool deOperacion = vista.item == itemCero;
    ui.lbNCM->setText(deOperacion ? u"Operación completa"_s : vista.campo(u"LbPos"_s));
    ui.lbAutoliq->setVisible(vista.lbAutoliq);
    ui.LbLapi->setVisible(vista.LbLapi);
    ui.lbCancelacion->setVisible(vista.esCancelacion);
    PintarListas(vista);
    if (!conLiquidacion) return;
    PintarLiquidacion(vista);
    if (!deOperacion) return;
    ui.lbTOTALG->setText(vista.lbTOTALG);
    ui.lbTOTGAR->setText(vista.lbTOTGAR);
    ui.lbTOTCOB->setText(vista.lbTOTCOB);
}

void FrmVerItem::PintarLiquidacion(const VistaDeItem &vista) {
    ui.GrdLiq->setRowCount(static_cast<int>(vista.grilla.size()));
    int fila = 0;
    for (const FilaLiq &f : vista.grilla) {
        int columna = 0;
        for (const QString *texto :
             {&f.numero, &f.concepto, &f.porcentaje, &f.base, &f.total, &f.pgc, &f.motivo}) {
            estilo::PonerCelda(ui.GrdLiq, fila, columna, *texto, columna >= 2 && columna <= 4);
            ++columna;
        }
        ++fila;
    }
    ajustarColumnas(ui.GrdLiq, 1);
    if (fila > 0) ui.GrdLiq->setCurrentCell(0, 0);
}

void FrmVerItem::PintarListas(const VistaDeItem &vista) {
    ui.LstV->setRowCount(static_cast<int>(vista.grupos.size()));
    int fila = 0;
    for (const FilaDeGrupo &g : vista.grupos)
        ponerFila(ui.LstV, fila++,
                  {{g.idarticulo},
                   {g.ncm},
                   {g.descripcion},
                   {g.idunidad},
                   {g.cantidad, true},
                   {g.preciounitario, true},
                   {g.fob, true},
                   {g.sufijos},
                   {g.estadistica},
                   {g.valorrelacionestadistica, true}});
    ajustarColumnas(ui.LstV, 7);
    ui.GridInf->setRowCount(static_cast<int>(vista.informacion.size()));
    fila = 0;
    for (const auto &[codigo, valor] : vista.informacion) ponerFila(ui.GridInf, fila++, {{codigo}, {valor}});
    ajustarColumnas(ui.GridInf, 1);
    ui.lstVCancel->setRowCount(static_cast<int>(vista.cancelaciones.size()));
    fila = 0;
    for (const FilaDeCancelacion &c : vista.cancelaciones)
        ponerFila(ui.lstVCancel, fila++,
                  {{c.dit},
                   {c.item},
                   {c.subitem},
                   {c.ncm},
                   {c.expctit},
                   {c.cantidad, true},
                   {c.factorponderacion, true}});
    ajustarColumnas(ui.lstVCancel, 3);
    ui.LstVentajas->clear();
    ui.LstVentajas->addItems(vista.ventajas);
    ui.lstCertOrig->clear();
    ui.lstCertOrig->addItems(vista.certificados);
}

void FrmVerItem::ElegirSolapa(int indice) {
    ui.sTab->setCurrentIndex(indice);
    if (indice == liquidacion) {
        ui.GrdLiq->setFocus();
        if (ui.GrdLiq->rowCount() > 0) ui.GrdLiq->setCurrentCell(0, 0);
        return;
    }
    QWidget *primero[] = {ui.LbPos, ui.LstV, ui.GridInf, ui.GrdLiq, ui.lstVCancel, ui.txtAcuerdo};
    primero[indice]->setFocus();
}

bool FrmVerItem::Form_KeyDown(const QKeyEvent *tecla) {
    switch (tecla->key()) {
        case Qt::Key_F1:
        case Qt::Key_F2:
        case Qt::Key_F3:
        case Qt::Key_F4:
        case Qt::Key_F5:
            ElegirSolapa(tecla->key() - Qt::Key_F1);
            if (tecla->key() == Qt::Key_F3) VerDetalle(item_);
            return true;
        case Qt::Key_F7:
            ElegirSolapa(oncca);
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
    if (posicion >= 0 && posicion < items_.size() && items_.at(posicion) != item_)
        VerDetalle(items_.at(posicion));
}

void FrmVerItem::TxtItem_Enter() {
    const auto posicion = items_.indexOf(ui.TxtItem->text().trimmed());
    if (posicion < 0) {
        ui.TxtItem->setText(item_);
        ui.TxtItem->selectAll();
        return;
    }
    ui.Scr->setValue(static_cast<int>(posicion));
}

void FrmVerItem::Form_Escape() {
    if (enCorrida_) return;
    AppContext &ctx = Contexto();
    // Where the run cannot be made it cannot be asked for: the mark stays, and the next entry runs again.
    if (ctx.LiquidacionPendiente && !sinPagina_) {
        ctx.dialogos.advertir(
            u"Se modifico algun concepto de liquidación, \r\ndebe ir al item 0 (cero) para calcular y "
            "actualizar los totales."_s);
        return;
    }
    const auto despues = std::move(alCerrar);
    alCerrar = nullptr;
    const QString interno = interno_;
    CerrarPantalla<FrmVerItem>();
    Manejar(ctx, [&] { ComprobarInterno(ctx, interno); });
    if (despues) despues();
}
