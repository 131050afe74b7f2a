#include "stock/FrmTomarInsumos.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "stock/FrmStockComun.h"
#include "stock/posting.h"
#include "stock/rows.h"
#include "stock/texts.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeArticulosEnStock {
    CatalogoEnStock,
    ArticuloEnLista,
    DescripcionEnStock,
    PosicionEnStock,
    UnidadEnStock,
    SaldoEnStock,
    VenceEnStock
};

enum ColumnaDeOfertas {
    DitDeOferta,
    ItemDeOferta,
    SubitemDeOferta,
    EntroDeOferta,
    VenceDeOferta,
    EstadoDeOferta,
    SaldoDeOferta,
    AlcanzaDeOferta,
    TomarDeOferta
};

const QString noEsNumero = u"La cantidad no es un número: escriba cuánto se toma del stock."_s;

}  // namespace

FrmTomarInsumos::FrmTomarInsumos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmTomarInsumos::Form_Load() {
    hoy_ = QDate::currentDate();
    ListaConBusqueda::Acciones acciones;
    acciones.tomar = [this] {
        ui.TxtCantidad->setFocus();
        ui.TxtCantidad->selectAll();
    };
    acciones.buscar = [this] { Cargar(); };
    lista_.Preparar(ui.Lst,
                    {u"Catálogo"_s, u"Artículo"_s, u"Descripción"_s, u"Posición"_s, u"Un."_s, u"Saldo"_s,
                     u"Primer vencimiento"_s},
                    {{ui.TxtArticulo, ArticuloEnLista, true}}, std::move(acciones), {SaldoEnStock});
    PonerAnchos(ui.Lst,
                {{CatalogoEnStock, 12},
                 {ArticuloEnLista, 16},
                 {PosicionEnStock, 17},
                 {UnidadEnStock, 5},
                 {SaldoEnStock, 12},
                 {VenceEnStock, 17}},
                DescripcionEnStock);
    estilo::PrepararGrilla(ui.LstLineas, {u"Declaración"_s, u"Item"_s, u"Sub"_s, u"Entró"_s, u"Vence"_s,
                                          u"Estado"_s, u"Saldo"_s, u"Alcanza para"_s, u"A tomar"_s});
    PonerAnchos(ui.LstLineas,
                {{DitDeOferta, 18},
                 {EntroDeOferta, 12},
                 {VenceDeOferta, 12},
                 {EstadoDeOferta, 12},
                 {SaldoDeOferta, 14},
                 {AlcanzaDeOferta, 14}},
                TomarDeOferta);
}

void FrmTomarInsumos::Conectar() {
    QWidget *v = ventana.get();
    QObject::connect(ui.Lst->selectionModel(), &QItemSelectionModel::currentRowChanged, v,
                     [this] { CargarLineas(); });
    QObject::connect(ui.LstLineas, &QTableWidget::currentCellChanged, v, [this] { LstLineas_Change(); });
    QObject::connect(ui.CmdTomar, &QPushButton::clicked, v, [this] { CmdTomar_Click(); });
    const auto alEnter = [](QLineEdit *campo, std::function<void()> hacer) {
        ClCntrl::Vincular(campo);
        EscucharTeclas(campo, [hacer = std::move(hacer)](const QKeyEvent *tecla) {
            if (!EsEnter(tecla)) return false;
            hacer();
            return true;
        });
    };
    alEnter(ui.TxtCantidad, [this] { TxtCantidad_Enter(); });
    alEnter(ui.TxtDeLinea, [this] { TxtDeLinea_Enter(); });
    EscucharTeclas(ui.LstLineas, [this](QKeyEvent *tecla) { return LstLineas_KeyDown(tecla); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

std::optional<stock::Elegido> FrmTomarInsumos::Elegir(const QString &interno) {
    AppContext &ctx = Contexto();
    interno_ = interno;
    elegido_.reset();
    ventana->setWindowTitle(u"Tomar insumos del stock - Operación "_s + interno);
    const bool leido = Manejar(
        ctx, [&] { ui.lbCliente->setText(stock::NombreDeCliente(ctx, stock::ClienteDe(ctx, interno))); });
    if (!leido || !Cargar()) return {};
    if (articulos_.empty()) {
        ctx.dialogos.informar(
            u"El cliente de la operación no tiene insumos con saldo en el stock: cárguelos desde la operación "
            "de importación temporal con \"Exportar Stock\"."_s);
        return {};
    }
    ui.TxtArticulo->setFocus();
    ventana->exec();
    return elegido_;
}

bool FrmTomarInsumos::Form_KeyDown(const QKeyEvent *tecla) {
    // Never the window's default button from a place that is no field.
    return EsEnter(tecla);
}

bool FrmTomarInsumos::Cargar() {
    AppContext &ctx = Contexto();
    articulos_.clear();
    const bool leidos = Manejar(
        ctx, [&] { articulos_ = stock::ArticulosDe(ctx, interno_, ui.TxtArticulo->text().trimmed()); });
    std::vector<QStringList> celdas;
    celdas.reserve(articulos_.size());
    for (const stock::ArticuloEnStock &a : articulos_)
        celdas.push_back({a.idcatalogo, a.idarticulo, a.descripcion, a.ncm, a.idunidad,
                          stock::TextoDeCantidad(ctx, a.saldo), stock::TextoDeDia(a.vence)});
    lista_.Cargar(std::move(celdas));
    if (articulos_.empty()) CargarLineas();
    return leidos;
}

const stock::ArticuloEnStock *FrmTomarInsumos::EnMano() const {
    const int fila = lista_.Actual();
    return fila < 0 || fila >= static_cast<int>(articulos_.size())
               ? nullptr
               : &articulos_[static_cast<std::size_t>(fila)];
}

void FrmTomarInsumos::CargarLineas() {
    AppContext &ctx = Contexto();
    const stock::ArticuloEnStock *articulo = EnMano();
    ofertas_.clear();
    if (articulo != nullptr)
        Manejar(ctx, [&] {
            ofertas_ = stock::Ofertas(ctx,
                                      {interno_, articulo->idcatalogo, articulo->idarticulo,
                                       articulo->idunidad, articulo->ncm, articulo->descripcion},
                                      hoy_);
        });
    ui.TxtCantidad->clear();
    ui.lbUnidad->setText(articulo == nullptr ? QString() : stock::TextoDeUnidad(ctx, articulo->idunidad));
    ui.CmdTomar->setEnabled(!ofertas_.empty());
    ui.LstLineas->setRowCount(static_cast<int>(ofertas_.size()));
    for (int fila = 0; fila < ui.LstLineas->rowCount(); ++fila) {
        const stock::Oferta &o = ofertas_[static_cast<std::size_t>(fila)];
        const std::pair<QString, bool> celdas[] = {{o.linea.dit, false},
                                                   {QString::number(o.linea.item), true},
                                                   {QString::number(o.linea.subitem), true},
                                                   {stock::TextoDeDia(o.linea.fecha), false},
                                                   {stock::TextoDeDia(o.linea.vencimiento), false},
                                                   {stock::PalabraDePlazo(o.plazo), false},
                                                   {stock::TextoDeCantidad(ctx, o.linea.saldo), true},
                                                   {stock::TextoDeCantidad(ctx, o.alcanza), true},
                                                   {QString(), true}};
        int columna = 0;
        const auto color = ColorDeLinea(o.linea, hoy_);
        for (const auto &[texto, numero] : celdas) {
            estilo::PonerCelda(ui.LstLineas, fila, columna, texto, numero);
            if (color) ui.LstLineas->item(fila, columna)->setForeground(*color);
            ++columna;
        }
    }
    if (!ofertas_.empty()) ui.LstLineas->setCurrentCell(0, TomarDeOferta);
    PintarCantidades();
}

void FrmTomarInsumos::PintarCantidades() {
    const AppContext &ctx = Contexto();
    double total = 0;
    for (std::size_t n = 0; n < ofertas_.size(); ++n) {
        const double cantidad = ofertas_[n].cantidad;
        total += cantidad;
        ui.LstLineas->item(static_cast<int>(n), TomarDeOferta)
            ->setText(cantidad > 0 ? stock::TextoDeCantidad(ctx, cantidad) : QString());
    }
    const stock::ArticuloEnStock *articulo = EnMano();
    const QString unidad = articulo == nullptr ? QString() : articulo->idunidad;
    ui.lbResumen->setText(total > 0 ? u"Se toman "_s + stock::CantidadDicha(ctx, total, unidad)
                                    : u"Sin cantidades, al guardar la línea se toma lo que vence antes"_s);
    LstLineas_Change();
}

stock::Oferta *FrmTomarInsumos::OfertaEnMano() {
    const int fila = ui.LstLineas->currentRow();
    return fila < 0 || fila >= static_cast<int>(ofertas_.size()) ? nullptr
                                                                 : &ofertas_[static_cast<std::size_t>(fila)];
}

void FrmTomarInsumos::LstLineas_Change() {
    const stock::Oferta *oferta = OfertaEnMano();
    ui.TxtDeLinea->setEnabled(oferta != nullptr);
    ui.TxtDeLinea->setText(oferta == nullptr || oferta->cantidad <= 0
                               ? QString()
                               : stock::TextoDeCantidad(Contexto(), oferta->cantidad));
}

void FrmTomarInsumos::TxtCantidad_Enter() {
    AppContext &ctx = Contexto();
    if (ofertas_.empty()) return;
    const QString texto = ui.TxtCantidad->text().trimmed();
    const auto cantidad = texto.isEmpty() ? std::optional<double>(0) : stock::CantidadEscrita(texto);
    QString defecto = cantidad ? QString() : noEsNumero;
    if (cantidad && !texto.isEmpty()) defecto = stock::DefectoDeCantidad(ctx, *cantidad);
    if (defecto.isEmpty()) {
        // Of a quantity, all of it is proposed anew.
        for (stock::Oferta &o : ofertas_) o.cantidad = 0;
        const double falta = *cantidad > 0 ? stock::Repartir(ctx, ofertas_, *cantidad) : 0;
        PintarCantidades();
        if (falta > 0)
            defecto =
                u"Lo que no venció no alcanza: faltan %1. Elija más de otras líneas o baje la cantidad."_s
                    .arg(stock::CantidadDicha(ctx, falta, EnMano()->idunidad));
    }
    if (!defecto.isEmpty()) {
        ctx.dialogos.advertir(defecto);
        ui.TxtCantidad->setFocus();
        ui.TxtCantidad->selectAll();
        return;
    }
    ui.LstLineas->setCurrentCell(0, TomarDeOferta);
    ui.LstLineas->setFocus();
}

bool FrmTomarInsumos::LstLineas_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        CmdTomar_Click();
        return true;
    }
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    if (tecla->key() == Qt::Key_Delete) {
        if (stock::Oferta *oferta = OfertaEnMano()) oferta->cantidad = 0;
        PintarCantidades();
        return true;
    }
    const QString letra = tecla->text();
    if (letra.isEmpty() || !letra.at(0).isDigit() || OfertaEnMano() == nullptr) return false;
    ui.TxtDeLinea->setFocus();
    ui.TxtDeLinea->setText(letra);
    return true;
}

void FrmTomarInsumos::TxtDeLinea_Enter() {
    AppContext &ctx = Contexto();
    stock::Oferta *oferta = OfertaEnMano();
    if (oferta == nullptr) return;
    const QString texto = ui.TxtDeLinea->text().trimmed();
    const auto cantidad = texto.isEmpty() ? std::optional<double>(0) : stock::CantidadEscrita(texto);
    if (!cantidad) ctx.dialogos.advertir(noEsNumero);
    if (!cantidad || !Poner(*oferta, *cantidad)) {
        ui.TxtDeLinea->setFocus();
        ui.TxtDeLinea->selectAll();
        return;
    }
    const int siguiente = std::min(ui.LstLineas->currentRow() + 1, ui.LstLineas->rowCount() - 1);
    PintarCantidades();
    ui.LstLineas->setCurrentCell(siguiente, TomarDeOferta);
    ui.LstLineas->setFocus();
}

bool FrmTomarInsumos::Poner(stock::Oferta &oferta, double cantidad) {
    AppContext &ctx = Contexto();
    if (cantidad == 0) {
        oferta.cantidad = 0;
        return true;
    }
    QString defecto = stock::DefectoDeCantidad(ctx, cantidad);
    const double redondeada = numeros::redondear(cantidad, stock::Decimales(ctx));
    if (defecto.isEmpty() && redondeada > oferta.alcanza)
        defecto = u"La línea alcanza para %1: escriba esa cantidad o una menor."_s.arg(
            stock::CantidadDicha(ctx, oferta.alcanza, oferta.linea.idunidad));
    if (!defecto.isEmpty()) {
        ctx.dialogos.advertir(defecto);
        return false;
    }
    if (oferta.plazo == stock::Plazo::Vencido && oferta.cantidad <= 0 &&
        !stock::PreguntarVencida(ctx, oferta.linea))
        return false;
    oferta.cantidad = redondeada;
    return true;
}

void FrmTomarInsumos::CmdTomar_Click() {
    const stock::ArticuloEnStock *articulo = EnMano();
    if (articulo == nullptr) return;
    elegido_ = stock::Elegido{*articulo, {}};
    for (const stock::Oferta &o : ofertas_)
        if (o.cantidad > 0) elegido_->partes.push_back({o.linea.id, o.cantidad});
    ventana->accept();
}

std::optional<stock::Elegido> TomarInsumos(const QString &interno) {
    auto elegido = Pantalla<FrmTomarInsumos>().Elegir(interno);
    CerrarPantalla<FrmTomarInsumos>();
    return elegido;
}
