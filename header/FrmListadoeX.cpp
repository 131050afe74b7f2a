#include "header/FrmListadoeX.h"

#include <QAction>
#include <QHeaderView>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeListado { IDDeListado, DescripcionDeListado };

}  // namespace

FrmListadoeX::FrmListadoeX() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ArmarMenu();
    Conectar();
}

void FrmListadoeX::ArmarMenu() {
    const auto boton = [this](const QString &texto, Qt::Key letra, ColumnaDeListado columna) {
        QAction *accion = ui.TbBuscar->addAction(texto);
        accion->setShortcut(QKeySequence(Qt::ALT | letra));
        ventana->addAction(accion);
        QObject::connect(accion, &QAction::triggered, ventana.get(), [this, columna] { Buscar(columna); });
    };
    boton(u"Buscar en &código"_s, Qt::Key_C, IDDeListado);
    boton(u"Buscar en &descripción"_s, Qt::Key_D, DescripcionDeListado);
}

void FrmListadoeX::Conectar() {
    lista_.Preparar(ui.Lst, {u"ID"_s, u"Descripcion"_s}, {}, {[this] { ventana->accept(); }, {}, {}, {}});
    ui.Lst->horizontalHeader()->setStretchLastSection(true);
}

void FrmListadoeX::Cargar(const QString &titulo, const std::vector<FilaDeListado> &filas) {
    ventana->setWindowTitle(titulo);
    filas_ = filas;
    std::vector<QStringList> celdas;
    celdas.reserve(filas.size());
    for (const FilaDeListado &fila : filas) celdas.push_back({fila.id, fila.descripcion});
    lista_.Cargar(celdas);
    ui.Lst->resizeColumnsToContents();
    ui.Lst->setFocus();
}

void FrmListadoeX::Colocar(QPoint lugar) {
    const QWidget *marco = pantallas::marco();
    if (marco != nullptr) lugar += marco->geometry().topLeft();
    ventana->adjustSize();
    const QRect pantalla = ventana->screen()->availableGeometry();
    // The window's frame comes with its showing; it is no wider than its title is high.
    const int marcoDeVentana = ventana->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QPoint ultimo = pantalla.bottomRight() -
                          QPoint(ventana->width() + marcoDeVentana, ventana->height() + marcoDeVentana);
    ventana->move(std::max(pantalla.left(), std::min(lugar.x(), ultimo.x())),
                  std::max(pantalla.top(), std::min(lugar.y(), ultimo.y())));
}

QString FrmListadoeX::Elegir(const QString &titulo, const std::vector<FilaDeListado> &filas,
                             std::optional<QPoint> lugar) {
    Cargar(titulo, filas);
    if (lugar) Colocar(*lugar);
    if (ventana->exec() != QDialog::Accepted || lista_.Actual() < 0) return {};
    return filas_.at(static_cast<std::size_t>(lista_.Actual())).id;
}

void FrmListadoeX::Buscar(int columna) {
    AppContext &ctx = Contexto();
    QStringList textos;
    for (const FilaDeListado &fila : filas_) textos << (columna == IDDeListado ? fila.id : fila.descripcion);
    const int fila = columna == IDDeListado ? BuscarCod(ctx, textos, lista_.Actual())
                                            : BuscarDesc(ctx, textos, lista_.Actual());
    if (fila >= 0) lista_.Seleccionar(fila);
    ui.Lst->setFocus();
}
