#include "liquidation/FrmVentajas.h"

#include <QHeaderView>

#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

enum { IDDeVentaja, DescripcionDeVentaja };

/// Where the description begins in a line.
constexpr int anchoDeID = 16;

}  // namespace

FrmVentajas::FrmVentajas() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmVentajas::Conectar() {
    lista_.Preparar(ui.Lst, {u"ID"_s, u"Descripción"_s},
                    {{ui.txtBuscarID, IDDeVentaja}, {ui.txtBuscar, DescripcionDeVentaja}},
                    {[this] { ventana->accept(); }, {}, {}, {}});
    ui.Lst->setColumnWidth(IDDeVentaja, ui.Lst->fontMetrics().averageCharWidth() * (anchoDeID + 6));
    ui.Lst->horizontalHeader()->setStretchLastSection(true);
}

void FrmVentajas::Cargar(const QString &titulo, const QStringList &lineas) {
    ventana->setWindowTitle(titulo);
    ui.lbTituloVentajas->setText(titulo);
    ui.Lst->setAccessibleName(titulo);
    lineas_ = lineas;
    std::vector<QStringList> filas;
    filas.reserve(static_cast<std::size_t>(lineas.size()));
    for (const QString &linea : lineas)
        filas.push_back({linea.left(anchoDeID).trimmed(), linea.mid(anchoDeID).trimmed()});
    lista_.Cargar(filas);
}

QString FrmVentajas::Seleccionar(const QString &titulo, const QStringList &lineas) {
    Cargar(titulo, lineas);
    ui.txtBuscarID->setFocus();
    if (ventana->exec() != QDialog::Accepted || lista_.Actual() < 0) return {};
    return lineas_.at(lista_.Actual()).left(anchoDeID).trimmed();
}
