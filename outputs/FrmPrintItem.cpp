#include "outputs/FrmPrintItem.h"

#include "frame/context.h"
#include "frame/entities.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "liquidation/itemview.h"
#include "outputs/itemsheet.h"

using namespace Qt::StringLiterals;

namespace {

const QString seccionDeImpresion = u"IMPRESION"_s;
const QString deLaOperacion = u"0"_s;
constexpr int pausaEntreNumeros = 1000;  ///< milliseconds
const QString teclasQuietas =
    u"CIFRAS  elegir el item   ·   ENTER  seguir   ·   F12  imprimir   ·   ESC  salir"_s;
const QString teclasCorriendo = u"ESC  detener"_s;

/// The tick boxes stay as the last run had them.
struct CasillaDeImpresion {
    QCheckBox *Ui::FrmPrintItem::*casilla;
    const char *clave;
};
constexpr CasillaDeImpresion casillasDeImpresion[] = {{&Ui::FrmPrintItem::ChSubitems, "SUBITEMS"},
                                                      {&Ui::FrmPrintItem::ChVistaPrel, "VISTA_PRELIMINAR"}};

}  // namespace

FrmPrintItem::FrmPrintItem() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmPrintItem::Conectar() {
    QDialog *v = ventana.get();
    for (QWidget *campo : {static_cast<QWidget *>(ui.cbDesde), static_cast<QWidget *>(ui.CbHasta),
                           static_cast<QWidget *>(ui.ChSubitems), static_cast<QWidget *>(ui.ChVistaPrel)})
        ClCntrl::Vincular(campo);
    for (QComboBox *combo : {ui.cbDesde, ui.CbHasta})
        EscucharTeclas(combo, [this, combo](QKeyEvent *tecla) { return Item_KeyDown(combo, tecla); });
    QObject::connect(ui.CmdPrint, &QPushButton::clicked, v, [this] { CmdPrint_Click(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close || !corriendo_) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
}

bool FrmPrintItem::Cargar(const QString &interno, const QString &item) {
    AppContext &ctx = Contexto();
    interno_ = interno;
    ventana->setWindowTitle(u"Impresión de items - Operación "_s + interno);
    ui.LbInterno->setText(interno);
    ui.LbDesc->clear();
    ui.PB->setValue(0);
    QStringList items;
    if (!Manejar(ctx, [&] { items = ItemsDeOperacion(ctx, interno); })) return false;
    for (QComboBox *combo : {ui.cbDesde, ui.CbHasta}) {
        combo->clear();
        combo->addItems(items);
    }
    const int enMano = std::max(0, static_cast<int>(items.indexOf(item)));
    ui.cbDesde->setCurrentIndex(enMano);
    ui.CbHasta->setCurrentIndex(item == deLaOperacion ? ui.CbHasta->count() - 1 : enMano);
    for (const CasillaDeImpresion &una : casillasDeImpresion) {
        QCheckBox *casilla = ui.*una.casilla;
        const QString guardada =
            ctx.ajustes.Leer(ajuste::zendra, seccionDeImpresion, QLatin1String(una.clave));
        if (!guardada.isEmpty()) casilla->setChecked(guardada == "S"_L1);
    }
    ui.cbDesde->setFocus();
    return true;
}

void FrmPrintItem::Mostrar(const QString &interno, const QString &item) {
    if (Cargar(interno, item)) ventana->exec();
}

bool FrmPrintItem::Form_KeyDown(const QKeyEvent *tecla) {
    switch (tecla->key()) {
        case Qt::Key_Escape:
            Form_Escape();
            return true;
        case Qt::Key_F12:
            CmdPrint_Click();
            return true;
        default:
            // A run serves events; nothing is changed in the middle of it.
            return corriendo_;
    }
}

/// A number typed over a list is that item. The list's own search would take any that begins so, from the one
/// in hand on.
bool FrmPrintItem::Item_KeyDown(QComboBox *combo, const QKeyEvent *tecla) {
    const QString cifra = tecla->text();
    if (cifra.size() != 1 || !cifra.front().isDigit() || (tecla->modifiers() & ~Qt::KeypadModifier) != 0) {
        cifras_.clear();
        return false;
    }
    if (desdeLaUltima_.isValid() && desdeLaUltima_.hasExpired(pausaEntreNumeros)) cifras_.clear();
    desdeLaUltima_.start();
    cifras_ += cifra;
    // A number that is no item begins another one with its last digit.
    if (combo->findText(cifras_) < 0) cifras_ = cifra;
    if (const int fila = combo->findText(cifras_); fila >= 0) combo->setCurrentIndex(fila);
    return true;
}

void FrmPrintItem::Form_Escape() {
    if (corriendo_)
        detener_ = true;
    else
        ventana->reject();
}

void FrmPrintItem::Correr(bool corriendo) {
    corriendo_ = corriendo;
    detener_ = false;
    ui.lbTeclas->setText(corriendo ? teclasCorriendo : teclasQuietas);
    for (QWidget *campo : {static_cast<QWidget *>(ui.cbDesde), static_cast<QWidget *>(ui.CbHasta),
                           static_cast<QWidget *>(ui.ChSubitems), static_cast<QWidget *>(ui.ChVistaPrel),
                           static_cast<QWidget *>(ui.CmdPrint)})
        campo->setEnabled(!corriendo);
}

bool FrmPrintItem::Avanzar(const AvanceDeHoja &avance) {
    ui.PB->setMaximum(avance.total);
    ui.PB->setValue(avance.hechos);
    ui.LbDesc->setText(avance.texto);
    Contexto().dialogos.atenderEventos();
    return !detener_;
}

void FrmPrintItem::CmdPrint_Click() {
    if (corriendo_) return;
    AppContext &ctx = Contexto();
    const PedidoDeHoja pedido{interno_, ui.cbDesde->currentText().toInt(), ui.CbHasta->currentText().toInt(),
                              ui.ChSubitems->isChecked()};
    if (const QString defecto = DefectoDeRango(pedido.desde, pedido.hasta); !defecto.isEmpty()) {
        ui.PB->setValue(0);
        ui.LbDesc->clear();
        ctx.dialogos.advertir(defecto);
        ui.cbDesde->setFocus();
        return;
    }
    for (const CasillaDeImpresion &una : casillasDeImpresion)
        ctx.ajustes.Guardar(ajuste::zendra, seccionDeImpresion, QLatin1String(una.clave),
                            (ui.*una.casilla)->isChecked() ? u"S"_s : u"N"_s);
    const bool enVista = ui.ChVistaPrel->isChecked();
    HojaDeOperacion hoja;
    Correr(true);
    Manejar(ctx, [&] {
        hoja = pr_ImprimirLiq(ctx, pedido, [this](const AvanceDeHoja &avance) { return Avanzar(avance); });
    });
    Correr(false);
    ui.CmdPrint->setFocus();
    if (hoja.detenida) ctx.dialogos.informar(u"La impresión se detuvo; no se imprimió ninguna hoja."_s);
    if (!hoja.hecha) {
        ui.PB->setValue(0);
        return;
    }
    ui.PB->setValue(ui.PB->maximum());
    if (enVista)
        ctx.dialogos.vistaPrevia(hoja.documento);
    else
        ctx.dialogos.imprimir(hoja.documento);
}
