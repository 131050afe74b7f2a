#include "stock/FrmStock.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <functional>
#include <map>

#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "stock/FrmStockComun.h"
#include "stock/check.h"
#include "stock/inputsreport.h"
#include "stock/report.h"
#include "stock/rows.h"
#include "stock/texts.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeStock {
    DitDeStock,
    ItemDeStock,
    SubitemDeStock,
    ClienteDeStock,
    ArticuloDeStock,
    PosicionDeStock,
    UnidadDeStock,
    CantidadDeStock,
    SaldoDeStock,
    VenceDeStock,
    EstadoDeStock
};

/// Behind all other columns of the movements.
constexpr int PuestoDeMovimiento = 9;

const QString tituloDeRevision = u"Revisión del stock"_s;

QString nombreDeArticulo(const stock::Linea &l) {
    return l.idarticulo.isEmpty() ? l.descripcion : (l.idcatalogo + u' ' + l.idarticulo).trimmed();
}

/// Who took, as the movements tell it.
QString lineaQueTomo(const stock::Movimiento &m) {
    return m.paraItem ? u"cancelación"_s : QString::number(m.idlinea);
}

QString estadoDeMovimiento(const stock::Movimiento &m) {
    return m.sigue() ? u"tomado"_s : u"devuelto "_s + stock::TextoDeMomento(m.devuelta);
}

/// A list that can be asked for, and how it is made.
struct InformeDeStock {
    QString rotulo;
    std::function<papel::Tabla()> armar;
};

}  // namespace

FrmStock::FrmStock() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmStock::Form_Load() {
    estilo::PrepararGrilla(ui.LstMovimientos,
                           {u"Fecha"_s, u"Operación"_s, u"Línea"_s, u"Item"_s, u"Cantidad"_s, u"Factor"_s,
                            u"Descontado"_s, u"CIF"_s, u"Estado"_s, u"Puesto"_s});
    ui.LstMovimientos->horizontalHeader()->setResizeContentsPrecision(0);
}

void FrmStock::Conectar() {
    QWidget *v = ventana.get();
    ListaConBusqueda::Acciones acciones;
    acciones.tomar = [this] { Lst_Enter(); };
    acciones.buscar = [this] { Cargar(); };
    lista_.Preparar(ui.Lst,
                    {u"Declaración"_s, u"Item"_s, u"Sub"_s, u"Cliente"_s, u"Artículo"_s, u"Posición"_s,
                     u"Un."_s, u"Cantidad"_s, u"Saldo"_s, u"Vence"_s, u"Estado"_s},
                    {{ui.TxtCliente, ClienteDeStock, true},
                     {ui.TxtDeclaracion, DitDeStock, true},
                     {ui.TxtArticulo, ArticuloDeStock, true},
                     {ui.TxtPosicion, PosicionDeStock, true}},
                    std::move(acciones), {ItemDeStock, SubitemDeStock, CantidadDeStock, SaldoDeStock});
    lista_.Colorear(
        [this](int fila) { return ColorDeLinea(lineas_.at(static_cast<std::size_t>(fila)), hoy_); });
    PonerAnchos(ui.Lst,
                {{DitDeStock, 18},
                 {ItemDeStock, 5},
                 {SubitemDeStock, 5},
                 {ClienteDeStock, 20},
                 {PosicionDeStock, 17},
                 {UnidadDeStock, 5},
                 {CantidadDeStock, 12},
                 {SaldoDeStock, 12},
                 {VenceDeStock, 12},
                 {EstadoDeStock, 12}},
                ArticuloDeStock);
    QObject::connect(ui.Lst->selectionModel(), &QItemSelectionModel::currentRowChanged, v,
                     [this] { MostrarLinea(); });
    QObject::connect(ui.ChSaldo, &QCheckBox::toggled, v, [this] { Cargar(); });
    QObject::connect(ui.CmdActualizar, &QPushButton::clicked, v, [this] { CmdActualizar_Click(); });
    QObject::connect(ui.CmdRevisar, &QPushButton::clicked, v, [this] { CmdRevisar_Click(); });
    QObject::connect(ui.CmdInforme, &QPushButton::clicked, v, [this] { CmdInforme_Click(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

void FrmStock::Mostrar(const QString &cliente) {
    {
        const QSignalBlocker callado(ui.TxtCliente);
        ui.TxtCliente->setText(cliente);
    }
    MostrarVentana(ventana.get());
    Cargar();
    ui.TxtCliente->setFocus();
    ui.TxtCliente->selectAll();
}

void FrmStock::MostrarDeOperacion(const QString &interno) {
    AppContext &ctx = Contexto();
    QString cliente;
    Manejar(ctx, [&] { cliente = stock::ClienteDe(ctx, interno); });
    Mostrar(cliente);
}

bool FrmStock::Form_KeyDown(const QKeyEvent *tecla) {
    // Never the window's default button from a place that is no field.
    if (EsEnter(tecla)) return true;
    switch (tecla->key()) {
        case Qt::Key_F5:
            CmdActualizar_Click();
            return true;
        case Qt::Key_F9:
            CmdRevisar_Click();
            return true;
        case Qt::Key_F12:
            CmdInforme_Click();
            return true;
        case Qt::Key_Escape:
            CerrarPantalla<FrmStock>();
            return true;
        default:
            return false;
    }
}

void FrmStock::Lst_Enter() {
    if (!ui.Lst->hasFocus()) {
        ui.Lst->setFocus();
        return;
    }
    if (!movimientos_.empty()) ui.LstMovimientos->setFocus();
}

stock::Filtro FrmStock::LeerFiltro() const {
    return {ui.TxtCliente->text().trimmed(), ui.TxtDeclaracion->text().trimmed(),
            ui.TxtArticulo->text().trimmed(), ui.TxtPosicion->text().trimmed(), ui.ChSaldo->isChecked()};
}

void FrmStock::Cargar(qint64 enMano) {
    AppContext &ctx = Contexto();
    hoy_ = QDate::currentDate();
    std::vector<stock::Linea> lineas;
    std::vector<QStringList> celdas;
    int actual = 0;
    const bool leidas = Manejar(ctx, [&] {
        lineas = stock::Buscar(ctx, LeerFiltro());
        std::map<QString, QString> nombres;
        for (const stock::Linea &l : lineas) {
            const auto [nombre, nuevo] = nombres.try_emplace(l.cuitcliente);
            if (nuevo) nombre->second = stock::NombreDeCliente(ctx, l.cuitcliente);
            if (l.id == enMano) actual = static_cast<int>(celdas.size());
            celdas.push_back({l.dit, QString::number(l.item), QString::number(l.subitem), nombre->second,
                              nombreDeArticulo(l), l.ncm, l.idunidad, stock::TextoDeCantidad(ctx, l.cantidad),
                              stock::TextoDeCantidad(ctx, l.saldo), stock::TextoDeDia(l.vencimiento),
                              stock::EstadoDeLinea(l, hoy_)});
        }
    });
    if (!leidas) {
        // What was read up to a failure is no list.
        lineas.clear();
        celdas.clear();
    }
    lineas_ = std::move(lineas);
    ui.lbCantidad->setText(stock::CuantasLineas(lineas_, hoy_));
    lista_.Cargar(std::move(celdas), actual);
    if (lineas_.empty()) MostrarLinea();
}

const stock::Linea *FrmStock::LineaEnMano() const {
    const int fila = lista_.Actual();
    return fila < 0 || fila >= static_cast<int>(lineas_.size()) ? nullptr
                                                                : &lineas_[static_cast<std::size_t>(fila)];
}

const stock::Movimiento *FrmStock::MovimientoEnMano() const {
    const int fila = ui.LstMovimientos->currentRow();
    return fila < 0 || fila >= static_cast<int>(movimientos_.size())
               ? nullptr
               : &movimientos_[static_cast<std::size_t>(fila)];
}

void FrmStock::MostrarLinea() {
    const stock::Linea *linea = LineaEnMano();
    ui.lbDetalle->setText(linea == nullptr ? u"No hay líneas de stock que coincidan con lo buscado."_s
                                           : stock::DetalleDeLinea(Contexto(), *linea));
    CargarMovimientos();
}

void FrmStock::CargarMovimientos() {
    AppContext &ctx = Contexto();
    const stock::Linea *linea = LineaEnMano();
    movimientos_.clear();
    if (linea != nullptr) Manejar(ctx, [&] { movimientos_ = stock::MovimientosDe(ctx, linea->id); });
    QTableWidget *grilla = ui.LstMovimientos;
    grilla->setRowCount(static_cast<int>(movimientos_.size()));
    const QChar separador = ctx.SeparadorDecimal;
    for (int fila = 0; fila < grilla->rowCount(); ++fila) {
        const stock::Movimiento &m = movimientos_[static_cast<std::size_t>(fila)];
        const std::pair<QString, bool> celdas[] = {
            {stock::TextoDeMomento(m.fecha), false},
            {m.interno, false},
            {lineaQueTomo(m), false},
            {m.iditem == 0 ? QString() : QString::number(m.iditem), true},
            {stock::TextoDeCantidad(ctx, m.cantidad), true},
            {numeros::FormatSinPerdida(m.factor, u"0.00", separador), true},
            {stock::TextoDeCantidad(ctx, m.descontado), true},
            {numeros::Format(m.cif, u"00.00", separador), true},
            {estadoDeMovimiento(m), false},
            {m.sigue() ? m.maquina : m.maquinadevuelta, false}};
        int columna = 0;
        for (const auto &[texto, numero] : celdas) {
            estilo::PonerCelda(grilla, fila, columna, texto, numero);
            if (!m.sigue()) grilla->item(fila, columna)->setForeground(estilo::apagado());
            ++columna;
        }
    }
    grilla->resizeColumnsToContents();
    grilla->horizontalHeader()->setSectionResizeMode(PuestoDeMovimiento, QHeaderView::Stretch);
    if (!movimientos_.empty()) grilla->setCurrentCell(0, 0);
}

void FrmStock::CmdActualizar_Click() {
    const stock::Linea *linea = LineaEnMano();
    Cargar(linea == nullptr ? 0 : linea->id);
}

void FrmStock::CmdRevisar_Click() {
    AppContext &ctx = Contexto();
    std::vector<stock::Hallazgo> hallazgos;
    if (!Manejar(ctx, [&] {
            const Reloj reloj(ctx.dialogos);
            hallazgos = stock::Revisar(ctx);
        }))
        return;
    if (hallazgos.empty()) {
        ctx.dialogos.informar(
            u"El stock está en orden: cada saldo es lo que entró menos lo que está tomado."_s,
            tituloDeRevision);
        return;
    }
    QStringList frases;
    for (const stock::Hallazgo &h : hallazgos) frases << h.texto;
    ctx.dialogos.informe({tituloDeRevision, frases.join(u'\n'), true});
    const auto reparables = std::count_if(hallazgos.begin(), hallazgos.end(),
                                          [](const stock::Hallazgo &h) { return h.reparable; });
    if (reparables == 0) return;
    const QString pregunta = reparables == 1
                                 ? u"Una de las diferencias puede repararse. ¿La repara?"_s
                                 : u"%1 de las diferencias pueden repararse. ¿Las repara?"_s.arg(reparables);
    if (!ctx.dialogos.preguntar({pregunta, tituloDeRevision, Icono::Pregunta, true})) return;
    Manejar(ctx, [&] {
        const int reparadas = stock::Reparar(ctx, hallazgos);
        ctx.dialogos.informar(reparadas == 1 ? u"Se reparó una diferencia."_s
                                             : u"Se repararon %1 diferencias."_s.arg(reparadas),
                              tituloDeRevision);
    });
    CmdActualizar_Click();
}

void FrmStock::CmdInforme_Click() {
    AppContext &ctx = Contexto();
    const stock::Linea *linea = LineaEnMano();
    if (linea == nullptr) {
        ctx.dialogos.informar(u"No hay líneas de stock para el informe: cambie lo que busca."_s);
        return;
    }
    std::vector<InformeDeStock> informes{
        {u"Stock: las líneas que se ven"_s,
         [&ctx, filtro = LeerFiltro(), hoy = hoy_] { return stock::TablaDeStock(ctx, filtro, hoy); }},
        {u"Movimientos de la línea elegida"_s,
         [&ctx, id = linea->id] { return stock::TablaDeMovimientos(ctx, id); }}};
    const auto deOperacion = [&](const QString &interno) {
        if (interno.isEmpty()) return;
        informes.push_back({u"Insumos de la operación "_s + interno,
                            [&ctx, interno] { return stock::TablaDeInsumos(ctx, interno); }});
    };
    deOperacion(linea->interno);
    if (const stock::Movimiento *m = MovimientoEnMano(); m != nullptr && m->interno != linea->interno)
        deOperacion(m->interno);
    QStringList rotulos;
    for (const InformeDeStock &i : informes) rotulos << i.rotulo;
    const int cual = ctx.dialogos.elegir({u"Informe"_s, rotulos});
    if (cual < 0 || cual >= static_cast<int>(informes.size())) return;
    Manejar(ctx, [&] {
        stock::VerTabla(ctx, informes[static_cast<std::size_t>(cual)].armar(),
                        u"El informe no tiene líneas."_s);
    });
}
