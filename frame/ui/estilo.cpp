#include "frame/ui/estilo.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

// Labels say what they are by the dynamic property "papel": titulo, dato, rotulo, ayuda; or by "estado". What
// they show may be anybody's words: no label of any window takes them for markup.
constexpr char hoja[] = R"(
QDialog, QMainWindow, QWidget#MenuP { background: #f4f7f7; }
QLabel { qproperty-textFormat: PlainText; }
QLabel[papel="titulo"] { font-size: 15pt; font-weight: 600; color: #006666; }
QLabel[papel="subtitulo"] { font-weight: 600; color: #263238; }
QLabel[papel="rotulo"] { color: #546e7a; }
QLabel[papel="dato"] { color: #102027; font-weight: 600; }
QLabel[papel="importe"] { color: #102027; font-size: 12pt; font-weight: 600; }
QLabel[papel="marca"] { color: white; background: #006666; border-radius: 3px; padding: 1px 6px; font-weight: 600; }
QLabel[papel="alerta"] { color: white; background: #b3261e; border-radius: 3px; padding: 1px 6px; font-weight: 600; }
QLabel[papel="ayuda"] { color: #37474f; background: #e3eaea; border-top: 1px solid #cfd8dc; padding: 5px 14px; }
QLabel[estado="bien"] { color: #1b7a3d; font-weight: 600; }
QLabel[estado="falta"] { color: #b3261e; font-weight: 600; }
QLabel[estado="nada"] { color: #78909c; }
QFrame[papel="tarjeta"] { background: white; border: 1px solid #d5dede; border-radius: 6px; }
QPushButton { background: white; border: 1px solid #b0bec5; border-radius: 4px; padding: 6px 14px; color: #102027; }
QPushButton:hover { border-color: #006666; }
QPushButton:focus { border: 2px solid #006666; padding: 5px 13px; }
QPushButton:pressed { background: #e0f2f1; }
QPushButton:disabled { background: #eef2f2; border-color: #d5dede; color: #90a4ae; }
QPushButton[papel="trabajo"] { text-align: left; font-weight: 600; padding: 8px 14px; }
QPushButton[papel="trabajo"]:focus { padding: 7px 13px; }
QGroupBox { border: 1px solid #d5dede; border-radius: 6px; margin-top: 1.1em; padding: 6px 8px 8px 8px; background: white; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; left: 8px; padding: 0 4px; color: #006666; font-weight: 600; }
QHeaderView::section { background: #e3eaea; border: none; border-right: 1px solid #cfd8dc; border-bottom: 1px solid #cfd8dc; padding: 5px 8px; color: #263238; font-weight: 600; }
QAbstractItemView { background: white; alternate-background-color: #f7fafa; border: 1px solid #d5dede; selection-background-color: #006666; selection-color: white; gridline-color: #e3eaea; }
QTableView::item { border: none; padding: 0 5px; }
QListView::item { padding: 3px 5px; }
QTreeView::item { padding: 3px 2px; }
QAbstractItemView:focus { border: 1px solid #006666; }
QProgressBar { border: 1px solid #cfd8dc; border-radius: 4px; background: white; text-align: center; color: #102027; }
QProgressBar::chunk { background: #80cbc4; border-radius: 3px; }
QTabWidget::pane { border: 1px solid #d5dede; background: white; top: -1px; }
QTabBar::tab { padding: 7px 14px; border: 1px solid #d5dede; background: #e3eaea; margin-right: 2px; border-top-left-radius: 4px; border-top-right-radius: 4px; color: #37474f; }
QTabBar::tab:selected { background: white; border-bottom-color: white; color: #006666; }
QTabBar:focus::tab:selected { border-color: #006666; border-bottom-color: white; }
QMenuBar { background: transparent; border: none; }
QMenuBar::item { background: transparent; border-radius: 4px; padding: 3px 9px; color: #102027; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: #006666; color: white; }
QToolBar { border: none; spacing: 4px; padding: 0; }
QToolBar QToolButton { border: 1px solid transparent; border-radius: 4px; padding: 5px 9px; }
QToolBar QToolButton:hover, QToolBar QToolButton:focus { border-color: #006666; background: white; }
)";

/// A sheet that speaks of cells keeps a cell's own colour from being painted; here it is, under the text.
class FondoDeCelda : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *pintor, const QStyleOptionViewItem &celda,
               const QModelIndex &indice) const override {
        const QVariant fondo = indice.data(Qt::BackgroundRole);
        if (fondo.isValid() && !celda.state.testFlag(QStyle::State_Selected))
            pintor->fillRect(celda.rect, qvariant_cast<QBrush>(fondo));
        QStyledItemDelegate::paint(pintor, celda, indice);
    }
};

}  // namespace

QColor estilo::acento() {
    return {0, 102, 102};
}
QColor estilo::bien() {
    return {0x1b, 0x7a, 0x3d};
}
QColor estilo::falta() {
    return {0xb3, 0x26, 0x1e};
}
QColor estilo::aviso() {
    return {0x9a, 0x5b, 0x00};
}
QColor estilo::apagado() {
    return {0x78, 0x90, 0x9c};
}
QColor estilo::detalle() {
    return {0, 102, 102};
}
QColor estilo::grupo() {
    return {255, 209, 163};
}

void estilo::Aplicar(QApplication &aplicacion) {
    aplicacion.setStyle(QStyleFactory::create(u"Fusion"_s));
    QPalette paleta;
    paleta.setColor(QPalette::Window, QColor(0xf4, 0xf7, 0xf7));
    paleta.setColor(QPalette::WindowText, QColor(0x10, 0x20, 0x27));
    paleta.setColor(QPalette::Base, Qt::white);
    paleta.setColor(QPalette::AlternateBase, QColor(0xf7, 0xfa, 0xfa));
    paleta.setColor(QPalette::Text, QColor(0x10, 0x20, 0x27));
    paleta.setColor(QPalette::Button, QColor(0xee, 0xf2, 0xf2));
    paleta.setColor(QPalette::ButtonText, QColor(0x10, 0x20, 0x27));
    paleta.setColor(QPalette::Highlight, acento());
    paleta.setColor(QPalette::HighlightedText, Qt::white);
    paleta.setColor(QPalette::PlaceholderText, QColor(0x90, 0xa4, 0xae));
    for (const auto papel : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
        paleta.setColor(QPalette::Disabled, papel, QColor(0x90, 0xa4, 0xae));
    // A field that does not lead, or is not asked for, is no empty one.
    paleta.setColor(QPalette::Disabled, QPalette::Base, QColor(0xee, 0xf2, 0xf2));
    QApplication::setPalette(paleta);
    aplicacion.setStyleSheet(QString::fromUtf8(hoja));
}

void estilo::PintarEstado(QLabel *etiqueta, const QString &texto) {
    etiqueta->setText(texto);
    const bool listo = texto.startsWith("COMPLETO"_L1) || texto == "GENERADO!"_L1;
    const bool pendiente = texto == "INCOMPLETO"_L1 || texto == "SIN GENERAR"_L1;
    etiqueta->setProperty("estado", listo ? u"bien"_s : (pendiente ? u"falta"_s : u"nada"_s));
    // A sheet looks at properties only when it is asked again.
    etiqueta->style()->unpolish(etiqueta);
    etiqueta->style()->polish(etiqueta);
}

QColor estilo::ColorDePlataforma(int numero) {
    return {numero & 0xff, (numero >> 8) & 0xff, (numero >> 16) & 0xff};
}

void estilo::PrepararGrilla(QTableWidget *grilla, const QStringList &columnas) {
    if (!columnas.isEmpty()) {
        grilla->setColumnCount(static_cast<int>(columnas.size()));
        grilla->setHorizontalHeaderLabels(columnas);
    }
    grilla->horizontalHeader()->setVisible(!columnas.isEmpty());
    PrepararVista(grilla);
}

void estilo::PrepararVista(QTableView *vista) {
    vista->horizontalHeader()->setHighlightSections(false);
    vista->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    vista->verticalHeader()->setVisible(false);
    vista->setEditTriggers(QAbstractItemView::NoEditTriggers);
    vista->setSelectionBehavior(QAbstractItemView::SelectRows);
    vista->setSelectionMode(QAbstractItemView::SingleSelection);
    vista->setAlternatingRowColors(true);
    vista->setTabKeyNavigation(false);
    vista->setWordWrap(false);
    vista->setShowGrid(false);
    vista->setItemDelegate(new FondoDeCelda(vista));
}

void estilo::PonerCelda(QTableWidget *grilla, int fila, int columna, const QString &texto, bool numero) {
    const Qt::Alignment lado = (numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    auto *celda = new QTableWidgetItem(texto);
    celda->setTextAlignment(lado);
    grilla->setItem(fila, columna, celda);
    // A heading stands over its figures.
    if (QTableWidgetItem *titulo = grilla->horizontalHeaderItem(columna)) titulo->setTextAlignment(lado);
}
