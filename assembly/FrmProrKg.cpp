#include "assembly/FrmProrKg.h"

#include <QProgressBar>

#include "assembly/kilosbyitem.h"
#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

FrmProrKg::FrmProrKg() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmProrKg::Conectar() {
    QDialog *v = ventana.get();
    ClCntrl::Vincular(ui.TxtValor);
    QObject::connect(ui.CmdPror, &QPushButton::clicked, v, [this] { CmdPror_Click(); });
    // A spread serves events; it is not left, nor begun anew, in the middle.
    EscucharTeclas(v, [this](const QKeyEvent *) { return corriendo_; });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close || !corriendo_) return false;
        evento->ignore();
        return true;
    });
}

bool FrmProrKg::Mostrar(const QString &interno, const QString &item, const QString &kilos) {
    interno_ = interno;
    prorrateo_ = false;
    ui.LbItem->setText(item);
    ui.TxtValor->setText(kilos);
    for (QProgressBar *barra : {ui.Pb1, ui.Pb2}) barra->setValue(0);
    ui.TxtValor->setFocus();
    ui.TxtValor->selectAll();
    ventana->exec();
    return prorrateo_;
}

void FrmProrKg::CmdPror_Click() {
    AppContext &ctx = Contexto();
    const auto anterior = ctx.dialogos.avance;
    ctx.dialogos.avance = [this, anterior](const Avance &avance) {
        anterior(avance);
        Pintar(avance);
    };
    corriendo_ = true;
    ui.CmdPror->setEnabled(false);
    Veredicto prorrateado;
    // What was written before a store refused is written.
    const bool hastaElFin = Manejar(
        ctx, [&] { prorrateado = ProrratearKilos(ctx, interno_, ui.LbItem->text(), ui.TxtValor->text()); });
    if (prorrateado.ok || !hastaElFin) prorrateo_ = true;
    ui.CmdPror->setEnabled(true);
    corriendo_ = false;
    ctx.dialogos.avance = anterior;
    if (prorrateado.ok) {
        ventana->accept();
        return;
    }
    ui.TxtValor->setFocus();
    ui.TxtValor->selectAll();
}

void FrmProrKg::Pintar(const Avance &avance) {
    if (avance.tipo != Avance::Tipo::Barra) return;
    if (auto *barra = ventana->findChild<QProgressBar *>(avance.control)) barra->setValue(avance.valor);
}
