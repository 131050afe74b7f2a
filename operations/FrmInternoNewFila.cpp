#include "operations/FrmInternoNewFila.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStandardItemModel>
#include <QTreeView>

#include "frame/ui/estilo.h"

namespace {

constexpr int margen = 4;

QString detalleDe(const QModelIndex &indice) {
    return indice.siblingAtColumn(0).data(rolDetalle).toString();
}

bool esGrupo(const QModelIndex &indice) {
    return indice.siblingAtColumn(0).data(rolGrupo).toBool();
}

int altoDeLinea(const QStyleOptionViewItem &opcion) {
    return std::max(opcion.fontMetrics.height(), opcion.decorationSize.height()) + 2 * margen;
}

}  // namespace

QModelIndex primeraOperacion(const QStandardItemModel &modelo) {
    const QModelIndex primera = modelo.index(0, 0);
    return primera.isValid() && esGrupo(primera) ? modelo.index(0, 0, primera) : primera;
}

FilaConDetalle::FilaConDetalle(QTreeView *vista) : QStyledItemDelegate(vista), vista_(vista) {}

QSize FilaConDetalle::sizeHint(const QStyleOptionViewItem &opcion, const QModelIndex &indice) const {
    const int alto = altoDeLinea(opcion);
    if (esGrupo(indice)) return {opcion.rect.width(), alto};
    const auto lineas = detalleDe(indice).count(QLatin1Char('\n')) + 1;
    return {opcion.rect.width(), alto + static_cast<int>(lineas) * opcion.fontMetrics.height() + margen};
}

void FilaConDetalle::paint(QPainter *pintor, const QStyleOptionViewItem &opcion,
                           const QModelIndex &indice) const {
    QStyleOptionViewItem fila = opcion;
    initStyleOption(&fila, indice);
    const bool elegida = fila.state.testFlag(QStyle::State_Selected);
    pintor->save();
    if (esGrupo(indice)) {
        fila.font.setBold(true);
        if (!elegida) pintor->fillRect(fila.rect, estilo::grupo());
    } else if (!elegida && fila.features.testFlag(QStyleOptionViewItem::Alternate)) {
        pintor->fillRect(fila.rect, fila.palette.alternateBase());
    }
    if (elegida) pintor->fillRect(fila.rect, fila.palette.highlight());
    const int alto = altoDeLinea(fila);
    const QRect linea(fila.rect.left() + margen, fila.rect.top(), fila.rect.width() - 2 * margen, alto);
    const QColor tinta =
        elegida ? fila.palette.color(QPalette::HighlightedText) : fila.palette.color(QPalette::Text);
    if (indice.column() == 0 && !fila.icon.isNull()) {
        const QRect marco(linea.left(), linea.top() + (alto - fila.decorationSize.height()) / 2,
                          fila.decorationSize.width(), fila.decorationSize.height());
        if (elegida) {
            // A light ground keeps the picture readable on the selection.
            pintor->setPen(Qt::NoPen);
            pintor->setBrush(QColor(255, 255, 255, 220));
            pintor->drawRoundedRect(marco.adjusted(-2, -2, 2, 2), 3, 3);
        }
        fila.icon.paint(pintor, marco);
    } else {
        QFont letra = fila.font;
        letra.setBold(esGrupo(indice) || indice.column() == 1);
        pintor->setFont(letra);
        // What a cell tells of its own colour, where the selection does not take its ground.
        const QVariant propia = indice.data(Qt::ForegroundRole);
        pintor->setPen(elegida || !propia.isValid() ? tinta : propia.value<QColor>());
        pintor->drawText(linea, Qt::AlignLeft | Qt::AlignVCenter,
                         QFontMetrics(letra).elidedText(fila.text, Qt::ElideRight, linea.width()));
    }
    if (!esGrupo(indice)) {
        // Every column paints its slice of the one text, so that it runs across the row.
        const int izquierda = vista_->columnViewportPosition(1) + margen;
        pintor->setClipRect(fila.rect);
        pintor->setFont(fila.font);
        pintor->setPen(elegida ? tinta : estilo::detalle());
        QString detalle = detalleDe(indice);
        pintor->drawText(
            QRect(izquierda, fila.rect.top() + alto, vista_->header()->length(), fila.rect.height() - alto),
            Qt::AlignLeft | Qt::AlignTop, detalle.remove(QLatin1Char('\r')));
        pintor->setClipping(false);
        pintor->setPen(QColor(0xe3, 0xea, 0xea));
        pintor->drawLine(fila.rect.bottomLeft(), fila.rect.bottomRight());
    }
    pintor->restore();
}
