#include "liquidation/frmListadoItem.h"

#include <QHeaderView>

#include "frame/context.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

/// The columns of the list; behind them stands what is searched and not shown.
struct ColumnaDeItems {
    const char *titulo;
    QString ItemDeLista::*texto;
};
constexpr ColumnaDeItems columnasDeItems[] = {
    {"ITEM", &ItemDeLista::numero},          {"NCM", &ItemDeLista::ncm},
    {"Unidad", &ItemDeLista::idunidad},      {"Estadistica", &ItemDeLista::estadistica},
    {"U. Especifico", &ItemDeLista::deresp}, {"Estado", &ItemDeLista::estadomerc},
    {"Origen", &ItemDeLista::idpais},        {"Procedencia", &ItemDeLista::idproc},
    {"Filler", &ItemDeLista::itfiller},      {"Descripción", &ItemDeLista::descripcion},
};
enum { NcmDeItems = 1, DescripcionDeItems = 9, IdBuscado = 10 };

}  // namespace

frmListadoItem::frmListadoItem() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void frmListadoItem::Conectar() {
    QStringList titulos;
    for (const ColumnaDeItems &c : columnasDeItems) titulos << QString::fromUtf8(c.titulo);
    lista_.Preparar(ui.lstItem, titulos,
                    {{ui.txtBuscarItem, IdBuscado},
                     {ui.txtBuscarNCM, NcmDeItems},
                     {ui.txtBuscarDescripcion, DescripcionDeItems}},
                    {[this] { ventana->accept(); }, {}, {}, {}});
    ui.lstItem->horizontalHeader()->setStretchLastSection(true);
    // A few rows tell how wide a column is.
    constexpr int filasMedidas = 60;
    ui.lstItem->horizontalHeader()->setResizeContentsPrecision(filasMedidas);
    // The number is typed with its zeros or without.
    QObject::connect(ui.txtBuscarItem, &QLineEdit::textEdited, ventana.get(), [this](const QString &texto) {
        qsizetype ceros = 0;
        while (ceros < texto.size() && texto[ceros] == u'0') ++ceros;
        if (ceros > 0) ui.txtBuscarItem->setText(texto.mid(ceros));
    });
}

void frmListadoItem::CargarLista(const QString &interno, const QString &actual) {
    AppContext &ctx = Contexto();
    ventana->setWindowTitle(u"Items de la operación "_s + interno);
    items_.clear();
    Manejar(ctx, [&] { items_ = ListarItems(ctx, interno); });
    std::vector<QStringList> filas;
    filas.reserve(items_.size());
    int enMano = 0;
    for (const ItemDeLista &item : items_) {
        if (item.id == actual) enMano = static_cast<int>(filas.size());
        QStringList celdas;
        for (const ColumnaDeItems &c : columnasDeItems) celdas << item.*c.texto;
        filas.push_back(celdas << item.id);
    }
    lista_.Cargar(filas, enMano);
    ui.lstItem->resizeColumnsToContents();
}

QString frmListadoItem::Elegir(const QString &interno, const QString &actual) {
    CargarLista(interno, actual);
    ui.txtBuscarItem->setFocus();
    if (ventana->exec() != QDialog::Accepted || lista_.Actual() < 0) return {};
    return items_.at(static_cast<std::size_t>(lista_.Actual())).id;
}
