#include "liquidation/Frm_ListaCeoItem.h"

#include <QHeaderView>
#include <algorithm>

#include "frame/ui/estilo.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

Frm_ListaCeoItem::Frm_ListaCeoItem() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(ui.GrdCeo, {u"Número"_s});
    ui.GrdCeo->horizontalHeader()->setStretchLastSection(true);
}

void Frm_ListaCeoItem::Cargar(const QStringList &certificados, int actual) {
    ui.GrdCeo->setRowCount(static_cast<int>(certificados.size()));
    int fila = 0;
    for (const QString &certificado : certificados) estilo::PonerCelda(ui.GrdCeo, fila++, 0, certificado);
    if (fila > 0) ui.GrdCeo->setCurrentCell(std::clamp(actual, 0, fila - 1), 0);
    ui.GrdCeo->setFocus();
}

void Frm_ListaCeoItem::Mostrar(const QStringList &certificados, int actual) {
    Cargar(certificados, actual);
    ventana->exec();
}
