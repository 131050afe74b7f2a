#include "header/FrmABMProrrateos.h"

#include <QHeaderView>

#include "frame/base/verdict.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/campos.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmABMProrrateos::FrmABMProrrateos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(ui.Lst, {u"Codigo"_s, u"Descripcion"_s, u"Valor"_s});
    ui.Lst->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    Conectar();
}

void FrmABMProrrateos::Conectar() {
    for (QLineEdit *campo : {ui.TxtCodigo, ui.TxtDescripcion, ui.TxtValor}) ClCntrl::Vincular(campo);
    for (QLineEdit *campo : {ui.TxtCodigo, ui.TxtDescripcion}) campos::EnMayusculas(campo);
    EscucharTeclas(ventana.get(), [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    EscucharTeclas(ui.Lst, [this](QKeyEvent *tecla) {
        if (tecla->key() != Qt::Key_Delete) return false;
        Eliminar();
        return true;
    });
}

void FrmABMProrrateos::Abrir(const QString &interno) {
    interno_ = interno;
    CargarList();
    PasarA(EstadoDeProrrateos(codigos_));
}

void FrmABMProrrateos::Mostrar(const QString &interno) {
    Abrir(interno);
    ventana->exec();
}

void FrmABMProrrateos::CargarList() {
    codigos_ = CargarProrrateos(Contexto(), interno_);
    ui.Lst->setRowCount(static_cast<int>(codigos_.size()));
    int fila = 0;
    for (const Prorrateo &codigo : codigos_) {
        estilo::PonerCelda(ui.Lst, fila, 0, codigo.Codigo);
        estilo::PonerCelda(ui.Lst, fila, 1, codigo.Descripcion);
        estilo::PonerCelda(ui.Lst, fila, 2, codigo.Valor, true);
        ++fila;
    }
    if (fila > 0) ui.Lst->setCurrentCell(0, 0);
}

void FrmABMProrrateos::PasarA(EstadoProrrateos estado) {
    estado_ = estado;
    const bool carga = estado == EstadoProrrateos::Carga;
    ui.FramDatos->setEnabled(carga);
    ui.Lst->setEnabled(!carga);
    ui.Sb->setText(BarraDeProrrateos(estado));
    if (carga)
        ui.TxtCodigo->setFocus();
    else
        ui.Lst->setFocus();
}

bool FrmABMProrrateos::Form_KeyDown(const QKeyEvent *tecla) {
    switch (tecla->key()) {
        case Qt::Key_Insert:
            if (estado_ == EstadoProrrateos::Lista) PasarA(EstadoProrrateos::Carga);
            return true;
        case Qt::Key_F11:
            if (estado_ == EstadoProrrateos::Carga) Agregar();
            return true;
        case Qt::Key_Escape:
            Escape();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // No button of this screen answers to it.
            return true;
        default:
            return false;
    }
}

void FrmABMProrrateos::Agregar() {
    const Veredicto agregado = AgregarProrrateo(Contexto(), interno_, ui.TxtCodigo->text(),
                                                ui.TxtDescripcion->text(), ui.TxtValor->text());
    if (!agregado.ok) {
        campos::Enfocar(ventana.get(), agregado.foco);
        return;
    }
    CargarList();
    ClCntrl::VaciarTxt(ventana.get());
    ui.TxtCodigo->setFocus();
}

void FrmABMProrrateos::Eliminar() {
    const int fila = ui.Lst->currentRow();
    if (fila < 0 || fila >= static_cast<int>(codigos_.size())) return;
    if (!EliminarProrrateo(Contexto(), interno_, codigos_.at(static_cast<std::size_t>(fila)).Codigo)) return;
    CargarList();
    if (codigos_.empty()) PasarA(EstadoProrrateos::Carga);
}

void FrmABMProrrateos::Escape() {
    if (EscapeEnProrrateos(estado_, !codigos_.empty()) == SalidaDeProrrateos::VuelveALista) {
        PasarA(EstadoProrrateos::Lista);
        return;
    }
    Manejar(Contexto(), [this] { TotalizarProrrateos(Contexto(), interno_); });
    ventana->accept();
}
