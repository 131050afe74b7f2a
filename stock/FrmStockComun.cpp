#include "stock/FrmStockComun.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>

#include "frame/ui/estilo.h"

std::optional<QColor> ColorDeLinea(const stock::Linea &linea, const QDate &hoy) {
    if (linea.saldo <= 0) return estilo::apagado();
    switch (stock::PlazoDe(linea.vencimiento, hoy)) {
        case stock::Plazo::Vencido:
            return estilo::falta();
        case stock::Plazo::PorVencer:
            return estilo::aviso();
        default:
            return {};
    }
}

void PonerAnchos(QTableView *vista, const std::vector<std::pair<int, int>> &letras, int elastica) {
    const int letra = vista->fontMetrics().averageCharWidth();
    QHeaderView *titulos = vista->horizontalHeader();
    for (const auto &[columna, cuantas] : letras)
        vista->setColumnWidth(columna, std::max(letra * cuantas, titulos->sectionSizeHint(columna)));
    titulos->setSectionResizeMode(elastica, QHeaderView::Stretch);
}
