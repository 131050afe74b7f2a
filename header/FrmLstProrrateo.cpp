#include "header/FrmLstProrrateo.h"

#include <QHeaderView>

#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/prorationcodes.h"

using namespace Qt::StringLiterals;

FrmLstProrrateo::FrmLstProrrateo() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(ui.Lst, {u"Codigo"_s, u"Descripcion"_s, u"Valor"_s});
    ui.Lst->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    Conectar();
}

void FrmLstProrrateo::Conectar() {
    QObject::connect(ui.Lst, &QTableWidget::cellDoubleClicked, ventana.get(), &QDialog::accept);
    EscucharTeclas(ui.Lst, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        ventana->accept();
        return true;
    });
}

void FrmLstProrrateo::CargarList(const QString &interno) {
    const std::vector<Prorrateo> codigos = CargarProrrateos(Contexto(), interno);
    ui.Lst->setRowCount(static_cast<int>(codigos.size()));
    int fila = 0;
    for (const Prorrateo &codigo : codigos) {
        estilo::PonerCelda(ui.Lst, fila, 0, codigo.Codigo);
        estilo::PonerCelda(ui.Lst, fila, 1, codigo.Descripcion);
        estilo::PonerCelda(ui.Lst, fila, 2, codigo.Valor, true);
        ++fila;
    }
    if (fila > 0) ui.Lst->setCurrentCell(0, 0);
    ui.Lst->setFocus();
}

QString FrmLstProrrateo::Elegir(const QString &interno) {
    CargarList(interno);
    if (ventana->exec() != QDialog::Accepted || ui.Lst->currentRow() < 0) return {};
    return ui.Lst->item(ui.Lst->currentRow(), 0)->text();
}
