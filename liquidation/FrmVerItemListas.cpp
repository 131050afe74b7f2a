// The lists of the item's page: lines, information and advantages, liquidation, cancellations.

#include <QHeaderView>
#include <QKeyEvent>
#include <QTableWidget>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "liquidation/FrmAdCon.h"
#include "liquidation/FrmVentajas.h"
#include "liquidation/FrmVerItem.h"
#include "liquidation/Frm_ListaCeoItem.h"
#include "liquidation/cancellations.h"

using namespace Qt::StringLiterals;

namespace {

const QString deTodaLaOperacion = u"0"_s;
/// The ID's place in a line of the pick list.
constexpr int anchoDeId = 16;

struct Celda {
    QString texto;
    bool numero = false;
};

void ponerFila(QTableWidget *grilla, int fila, const std::vector<Celda> &celdas) {
    int columna = 0;
    for (const Celda &celda : celdas) estilo::PonerCelda(grilla, fila, columna++, celda.texto, celda.numero);
}

/// Fills a grid; the place in it stays, unless the page is another.
template <class Filas, class Poner>
void llenar(QTableWidget *grilla, const Filas &filas, int elastica, bool otraPagina, Poner poner) {
    const int enFila = otraPagina ? 0 : std::max(grilla->currentRow(), 0);
    const int enColumna = otraPagina ? 0 : std::max(grilla->currentColumn(), 0);
    grilla->setUpdatesEnabled(false);
    grilla->setRowCount(static_cast<int>(filas.size()));
    int fila = 0;
    for (const auto &una : filas) ponerFila(grilla, fila++, poner(una));
    grilla->resizeColumnsToContents();
    grilla->horizontalHeader()->setSectionResizeMode(elastica, QHeaderView::Stretch);
    if (fila > 0) grilla->setCurrentCell(std::min(enFila, fila - 1), enColumna);
    grilla->setUpdatesEnabled(true);
}

QString textoDe(const QTableWidget *grilla, int columna) {
    const QTableWidgetItem *celda =
        grilla->currentRow() < 0 ? nullptr : grilla->item(grilla->currentRow(), columna);
    return celda == nullptr ? QString() : celda->text();
}

bool esTomar(const QKeyEvent *tecla) {
    return EsEnter(tecla) || tecla->key() == Qt::Key_F6;
}

}  // namespace

void FrmVerItem::PrepararListas() {
    estilo::PrepararGrilla(ui.GrdLiq, {u"Nro"_s, u"Concepto"_s, u"Porc. %"_s, u"Base Imp."_s, u"Total"_s,
                                       u"PGC"_s, u"Motivo"_s});
    estilo::PrepararGrilla(ui.LstV, {u"Artículo"_s, u"NCM"_s, u"Descripción"_s, u"Unidad"_s, u"Cantidad"_s,
                                     u"Unitario"_s, u"FOB"_s, u"Sufijos"_s, u"Est."_s, u"Cant. est."_s});
    estilo::PrepararGrilla(ui.GridInf, {u"Info"_s, u"Valor"_s});
    estilo::PrepararGrilla(ui.lstVCancel, {u"DIT"_s, u"Item"_s, u"SubItem"_s, u"NCM"_s, u"Expediente"_s,
                                           u"Cantidad"_s, u"Factor"_s});
    // Wide enough for what is seen: an item of thousands of lines is not measured whole.
    for (QTableWidget *grilla : {ui.GrdLiq, ui.LstV, ui.GridInf, ui.lstVCancel})
        grilla->horizontalHeader()->setResizeContentsPrecision(0);
}

void FrmVerItem::ConectarListas() {
    QWidget *v = ventana.get();
    EscucharTeclas(ui.GrdLiq, [this](QKeyEvent *tecla) { return GrdLiq_KeyDown(tecla); });
    EscucharTeclas(ui.lstCertOrig, [this](const QKeyEvent *tecla) {
        if (!esTomar(tecla)) return false;
        lstCertOrig_Enter();
        return true;
    });
    EscucharTeclas(ui.lstVCancel, [this](QKeyEvent *tecla) { return lstVCancel_KeyDown(tecla); });
    QObject::connect(ui.GrdLiq, &QTableWidget::cellDoubleClicked, v, [this] { PP_LIQ_Modificar(); });
    QObject::connect(ui.lstCertOrig, &QListWidget::itemDoubleClicked, v, [this] { lstCertOrig_Enter(); });
    QObject::connect(ui.lstVCancel, &QTableWidget::cellDoubleClicked, v, [this] { PP_CNL_Modificar(); });
    using Hacer = void (FrmVerItem::*)();
    const std::tuple<QWidget *, Hacer, Hacer> conDosTeclas[] = {
        {ui.GridInf, &FrmVerItem::CmdAgregarInf_Click, &FrmVerItem::CmdEliminarInf_Click},
        {ui.LstVentajas, &FrmVerItem::CmdAgregarVen_Click, &FrmVerItem::CmdEliminarVen_Click}};
    for (const auto &[lista, agregar, eliminar] : conDosTeclas)
        EscucharTeclas(lista, [this, agregar = agregar, eliminar = eliminar](const QKeyEvent *tecla) {
            const bool alta = tecla->key() == Qt::Key_Insert;
            if (!alta && tecla->key() != Qt::Key_Delete) return false;
            (this->*(alta ? agregar : eliminar))();
            return true;
        });
    const std::pair<QPushButton *, Hacer> botones[] = {{ui.CmdAgregarInf, &FrmVerItem::CmdAgregarInf_Click},
                                                       {ui.CmdEliminarInf, &FrmVerItem::CmdEliminarInf_Click},
                                                       {ui.CmdAgregarVen, &FrmVerItem::CmdAgregarVen_Click},
                                                       {ui.CmdEliminarVen, &FrmVerItem::CmdEliminarVen_Click},
                                                       {ui.CmdAgregarLiq, &FrmVerItem::InsertarConcepto},
                                                       {ui.CmdModificarLiq, &FrmVerItem::PP_LIQ_Modificar},
                                                       {ui.CmdEliminarLiq, &FrmVerItem::PP_LIQ_ELiminar},
                                                       {ui.CmdInsertarCnl, &FrmVerItem::InsertarCancelacion},
                                                       {ui.CmdModificarCnl, &FrmVerItem::PP_CNL_Modificar},
                                                       {ui.CmdEliminarCnl, &FrmVerItem::PP_CNL_Eliminar}};
    for (const auto &[boton, hacer] : botones)
        QObject::connect(boton, &QPushButton::clicked, v, [this, hacer = hacer] { (this->*hacer)(); });
}

void FrmVerItem::PintarListas(const VistaDeItem &vista, bool otraPagina) {
    llenar(ui.LstV, vista.grupos, 7, otraPagina, [](const FilaDeGrupo &g) {
        return std::vector<Celda>{{g.idarticulo},     {g.ncm},
                                  {g.descripcion},    {g.idunidad},
                                  {g.cantidad, true}, {g.preciounitario, true},
                                  {g.fob, true},      {g.sufijos},
                                  {g.estadistica},    {g.valorrelacionestadistica, true}};
    });
    llenar(ui.GridInf, vista.informacion, 1, otraPagina, [](const auto &i) {
        return std::vector<Celda>{{i.first}, {i.second}};
    });
    cancelaciones_ = vista.cancelaciones;
    // The factor has as many decimals as it needs, so it is no column of figures.
    llenar(ui.lstVCancel, cancelaciones_, 3, otraPagina, [](const FilaDeCancelacion &c) {
        return std::vector<Celda>{{c.dit},     {c.item},           {c.subitem},          {c.ncm},
                                  {c.expctit}, {c.cantidad, true}, {c.factorponderacion}};
    });
    const int enVentaja = otraPagina ? 0 : std::max(ui.LstVentajas->currentRow(), 0);
    ui.LstVentajas->clear();
    ui.LstVentajas->addItems(vista.ventajas);
    ui.LstVentajas->setCurrentRow(std::min(enVentaja, ui.LstVentajas->count() - 1));
    ui.lstCertOrig->clear();
    ui.lstCertOrig->addItems(vista.certificados);
    if (ui.lstCertOrig->count() > 0) ui.lstCertOrig->setCurrentRow(0);
}

void FrmVerItem::lstCertOrig_Enter() {
    QStringList certificados;
    for (int fila = 0; fila < ui.lstCertOrig->count(); ++fila)
        certificados << ui.lstCertOrig->item(fila)->text();
    if (certificados.isEmpty()) return;
    Pantalla<Frm_ListaCeoItem>().Mostrar(certificados, ui.lstCertOrig->currentRow());
    CerrarPantalla<Frm_ListaCeoItem>();
}

void FrmVerItem::PintarLiquidacion(const VistaDeItem &vista, bool otraPagina) {
    const bool cero = vista.item == deTodaLaOperacion;
    std::vector<FilaLiq> filas = vista.grilla;
    // An item's grid keeps one row, empty when there is nothing in it.
    if (!cero && filas.empty()) filas.emplace_back();
    llenar(ui.GrdLiq, filas, 1, otraPagina, [](const FilaLiq &f) {
        return std::vector<Celda>{{f.numero},     {f.concepto},    {f.porcentaje, true},
                                  {f.base, true}, {f.total, true}, {f.pgc},
                                  {f.motivo}};
    });
    for (QPushButton *boton : {ui.CmdAgregarLiq, ui.CmdModificarLiq, ui.CmdEliminarLiq})
        boton->setEnabled(!cero);
}

// Liquidation

bool FrmVerItem::GrdLiq_KeyDown(const QKeyEvent *tecla) {
    if (esTomar(tecla)) {
        PP_LIQ_Modificar();
        return true;
    }
    if (tecla->key() != Qt::Key_Insert && tecla->key() != Qt::Key_Delete) return false;
    tecla->key() == Qt::Key_Insert ? InsertarConcepto() : PP_LIQ_ELiminar();
    return true;
}

void FrmVerItem::InsertarConcepto() {
    if (item_ == deTodaLaOperacion || !cargada_) return;
    const bool escrito = Pantalla<FrmAdCon>().Agregar(interno_, item_);
    CerrarPantalla<FrmAdCon>();
    if (escrito) VerDetalle(item_);
}

void FrmVerItem::PP_LIQ_Modificar() {
    const QTableWidget *g = ui.GrdLiq;
    const ConceptoEditado fila{textoDe(g, 0), textoDe(g, 1), textoDe(g, 5), textoDe(g, 2),
                               textoDe(g, 3), textoDe(g, 4), textoDe(g, 6)};
    if (item_ == deTodaLaOperacion || fila.codigo.isEmpty()) return;
    const bool escrito = Pantalla<FrmAdCon>().Modificar(interno_, item_, fila);
    CerrarPantalla<FrmAdCon>();
    if (escrito) VerDetalle(item_);
}

void FrmVerItem::PP_LIQ_ELiminar() {
    const QString codigo = textoDe(ui.GrdLiq, 0);
    if (item_ == deTodaLaOperacion || codigo.isEmpty()) return;
    AppContext &ctx = Contexto();
    if (Manejar(ctx, [&] { EliminarConcepto(ctx, interno_, item_, codigo); })) VerDetalle(item_);
}

// Information and advantages

std::optional<ExtraDeItem> FrmVerItem::ElegirExtra(const QString &titulo,
                                                   const std::vector<ExtraDeItem> &extras) {
    QStringList lineas;
    for (const ExtraDeItem &extra : extras)
        lineas << extra.id.leftJustified(anchoDeId, QLatin1Char(' '), true) + extra.descripcion;
    const QString elegido = Pantalla<FrmVentajas>().Seleccionar(titulo, lineas);
    CerrarPantalla<FrmVentajas>();
    const auto hallado = std::find_if(extras.begin(), extras.end(), [&elegido](const ExtraDeItem &extra) {
        return !elegido.isEmpty() && extra.id.left(anchoDeId).trimmed() == elegido;
    });
    return hallado == extras.end() ? std::nullopt : std::optional(*hallado);
}

void FrmVerItem::CmdAgregarInf_Click() {
    if (!cargada_) return;
    AppContext &ctx = Contexto();
    bool agregada = false;
    Manejar(ctx, [&] {
        const auto extra = ElegirExtra(u"Información complementaria"_s, ListarInformacion(ctx));
        if (!extra) return;
        agregada = AgregarInformacion(ctx, interno_, item_, extra->id, [&] {
            Entrada entrada;
            entrada.titulo = u"Información complementaria"_s;
            entrada.texto = "Ingrese el Valor de: "_L1 + extra->descripcion;
            return ctx.dialogos.pedirTexto(entrada);
        });
    });
    if (agregada) VerDetalle(item_);
}

void FrmVerItem::CmdAgregarVen_Click() {
    if (!cargada_) return;
    AppContext &ctx = Contexto();
    bool agregada = false;
    Manejar(ctx, [&] {
        const auto extra = ElegirExtra(u"Ventajas"_s, ListarVentajas(ctx));
        agregada = extra && AgregarVentajaAItem(ctx, interno_, item_, extra->id);
    });
    if (agregada) VerDetalle(item_);
}

void FrmVerItem::CmdEliminarInf_Click() {
    const QString id = textoDe(ui.GridInf, 0);
    if (id.isEmpty()) return;
    AppContext &ctx = Contexto();
    bool eliminada = false;
    Manejar(ctx, [&] { eliminada = EliminarInformacion(ctx, interno_, item_, id); });
    if (eliminada) VerDetalle(item_);
}

void FrmVerItem::CmdEliminarVen_Click() {
    const QListWidgetItem *fila = ui.LstVentajas->currentItem();
    if (fila == nullptr) return;
    AppContext &ctx = Contexto();
    const QString id = fila->text();
    bool eliminada = false;
    Manejar(ctx, [&] { eliminada = EliminarVentajaDeItem(ctx, interno_, item_, id); });
    if (eliminada) VerDetalle(item_);
}

// Cancellations

bool FrmVerItem::lstVCancel_KeyDown(const QKeyEvent *tecla) {
    if (esTomar(tecla)) {
        PP_CNL_Modificar();
        return true;
    }
    if (tecla->key() != Qt::Key_Delete) return false;
    PP_CNL_Eliminar();
    return true;
}

const FilaDeCancelacion *FrmVerItem::CancelacionElegida() const {
    const int fila = ui.lstVCancel->currentRow();
    return fila < 0 || fila >= static_cast<int>(cancelaciones_.size())
               ? nullptr
               : &cancelaciones_.at(static_cast<std::size_t>(fila));
}

void FrmVerItem::ConCancelaciones(const std::function<void()> &hacer) {
    AppContext &ctx = Contexto();
    if (cancelaciones::enlace == nullptr) {
        ctx.dialogos.informar(
            u"Las cancelaciones se cargan con la biblioteca oCancellations, que no está instalada."_s);
        return;
    }
    Manejar(ctx, hacer);
    VerDetalle(item_);
}

void FrmVerItem::InsertarCancelacion() {
    if (item_ == deTodaLaOperacion) return;
    ConCancelaciones([this] { cancelaciones::enlace->Ingresar_Cancelaciones(interno_, item_); });
}

void FrmVerItem::PP_CNL_Modificar() {
    if (const FilaDeCancelacion *fila = CancelacionElegida())
        ConCancelaciones(
            [this, una = *fila] { cancelaciones::enlace->Modificar_Cancelacion(interno_, item_, una); });
}

void FrmVerItem::PP_CNL_Eliminar() {
    if (const FilaDeCancelacion *fila = CancelacionElegida())
        ConCancelaciones(
            [this, una = *fila] { cancelaciones::enlace->Eliminar_Articulo(interno_, item_, una); });
}
