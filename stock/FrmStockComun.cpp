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
    // Codes and figures: wider than the letters of a text.
    const int letra = vista->fontMetrics().horizontalAdvance(u'0');
    QHeaderView *titulos = vista->horizontalHeader();
    // What the elastic one needs to be read.
    constexpr int letrasDeLaElastica = 18;
    int ancho = letra * letrasDeLaElastica;
    for (const auto &[columna, cuantas] : letras) {
        vista->setColumnWidth(columna, std::max(letra * cuantas, titulos->sectionSizeHint(columna)));
        ancho += vista->columnWidth(columna);
    }
    titulos->setSectionResizeMode(elastica, QHeaderView::Stretch);
    // Large letters widen the window, as far as a small screen goes.
    constexpr int pantallaChica = 1260;
    constexpr int margenes = 60;
    QWidget *ventana = vista->window();
    ventana->setMinimumWidth(std::max(ventana->minimumWidth(), std::min(ancho + margenes, pantallaChica)));
}
