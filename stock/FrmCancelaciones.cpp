#include "stock/FrmCancelaciones.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "liquidation/itemview.h"
#include "stock/FrmStockComun.h"
#include "stock/itemsummary.h"
#include "stock/texts.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeCancelables {
    DitCancelable,
    ItemCancelable,
    SubitemCancelable,
    ArticuloCancelable,
    DescripcionCancelable,
    PosicionCancelable,
    UnidadCancelable,
    SaldoCancelable,
    VenceCancelable,
    EstadoCancelable
};

const QString tituloDeCancelacion = u"Cancelaciones"_s;

/// The cancellation behind a row of the item; one that came from elsewhere is told.
std::optional<stock::Cancelacion> buscarCancelacion(AppContext &ctx, const QString &interno,
                                                    const QString &item, const FilaDeCancelacion &fila) {
    auto hallada = stock::BuscarCancelacion(ctx, interno, item, fila);
    if (!hallada)
        ctx.dialogos.informar(
            u"La cancelación de la declaración %1 no se tomó de este stock: no se cambia ni se elimina acá."_s
                .arg(fila.dit),
            tituloDeCancelacion);
    return hallada;
}

void eliminarCancelacion(AppContext &ctx, const QString &interno, const QString &item,
                         const FilaDeCancelacion &fila) {
    const auto hallada = buscarCancelacion(ctx, interno, item, fila);
    if (!hallada) return;
    const QString pregunta =
        hallada->idstock == 0 ? u"¿Elimina la cancelación de la declaración %1?"_s.arg(fila.dit)
                              : u"¿Elimina la cancelación de la declaración %1 y devuelve %2 al stock?"_s.arg(
                                    fila.dit, stock::TextoDeCantidad(ctx, hallada->cantidad));
    if (ctx.dialogos.preguntar({pregunta, tituloDeCancelacion, Icono::Pregunta, true}))
        stock::EliminarCancelacion(ctx, *hallada);
}

}  // namespace

FrmCancelaciones::FrmCancelaciones() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmCancelaciones::Conectar() {
    QWidget *v = ventana.get();
    ListaConBusqueda::Acciones acciones;
    acciones.tomar = [this] { IrA(ui.TxtCantidad); };
    acciones.buscar = [this] { Cargar(); };
    lista_.Preparar(ui.Lst,
                    {u"Declaración"_s, u"Item"_s, u"Sub"_s, u"Artículo"_s, u"Descripción"_s, u"Posición"_s,
                     u"Un."_s, u"Saldo"_s, u"Vence"_s, u"Estado"_s},
                    {{ui.TxtBuscar, DitCancelable, true}}, std::move(acciones),
                    {ItemCancelable, SubitemCancelable, SaldoCancelable});
    lista_.Colorear(
        [this](int fila) { return ColorDeLinea(ofertas_.at(static_cast<std::size_t>(fila)).linea, hoy_); });
    PonerAnchos(ui.Lst,
                {{DitCancelable, 18},
                 {ItemCancelable, 5},
                 {SubitemCancelable, 5},
                 {ArticuloCancelable, 18},
                 {PosicionCancelable, 17},
                 {UnidadCancelable, 5},
                 {SaldoCancelable, 12},
                 {VenceCancelable, 12},
                 {EstadoCancelable, 12}},
                DescripcionCancelable);
    for (QLineEdit *campo :
         {ui.TxtDit, ui.TxtItem, ui.TxtSubitem, ui.TxtNcm, ui.TxtExpCtit, ui.TxtCantidad, ui.TxtFactor})
        ClCntrl::Vincular(campo);
    QObject::connect(ui.Lst->selectionModel(), &QItemSelectionModel::currentRowChanged, v,
                     [this] { Describir(); });
    QObject::connect(ui.TxtCantidad, &QLineEdit::textChanged, v, [this] { Describir(); });
    QObject::connect(ui.ChManual, &QCheckBox::toggled, v, [this] { ChManual_Click(); });
    QObject::connect(ui.CmdGuardar, &QPushButton::clicked, v, [this] { CmdGuardar_Click(); });
    // Never the window's default button from a place that is no field.
    EscucharTeclas(v, [](const QKeyEvent *tecla) { return EsEnter(tecla); });
}

bool FrmCancelaciones::Ingresar(const QString &interno, const QString &item) {
    cancelacion_ = {};
    return Mostrar(interno, item);
}

bool FrmCancelaciones::Modificar(const QString &interno, const QString &item,
                                 const stock::Cancelacion &cancelacion) {
    cancelacion_ = cancelacion;
    return Mostrar(interno, item);
}

bool FrmCancelaciones::Mostrar(const QString &interno, const QString &item) {
    AppContext &ctx = Contexto();
    interno_ = interno;
    item_ = item;
    hoy_ = QDate::currentDate();
    const bool cambia = cancelacion_.id != 0;
    const QString accion = cambia ? u"Modificar cancelación"_s : u"Agregar cancelación"_s;
    ventana->setWindowTitle(accion + u" - Operación "_s + interno);
    ui.lbTitulo->setText(accion + u" del item "_s + item);
    stock::ResumenDeItem resumen;
    if (!Manejar(ctx, [&] { resumen = stock::LeerResumenDeItem(ctx, interno, item); })) return false;
    ui.lbPosicion->setText(resumen.ncm);
    ui.lbDeclarada->setText(
        (stock::TextoDeCantidad(ctx, resumen.cantidad) + u' ' + stock::TextoDeUnidad(ctx, resumen.idunidad))
            .trimmed());
    ui.lbCancelada->setText(stock::TextoDeCantidad(ctx, resumen.cancelada));
    // One that is there by hand stays so, whatever the option says now.
    const bool manual = cambia && cancelacion_.idstock == 0;
    ui.ChManual->setVisible(ctx.opciones.CancelManual && !cambia);
    ui.ChManual->setChecked(manual);
    if (cambia) {
        const QChar separador = ctx.SeparadorDecimal;
        ui.TxtDit->setText(cancelacion_.dit);
        ui.TxtItem->setText(QString::number(cancelacion_.item));
        ui.TxtSubitem->setText(QString::number(cancelacion_.subitem));
        ui.TxtNcm->setText(cancelacion_.ncm);
        ui.TxtExpCtit->setText(cancelacion_.expctit);
        ui.TxtCantidad->setText(stock::TextoDeCantidad(ctx, cancelacion_.cantidad));
        ui.TxtFactor->setText(numeros::FormatSinPerdida(cancelacion_.factor, u"0.00", separador));
    }
    Cargar();
    ChManual_Click();
    if (cambia) IrA(ui.TxtCantidad);
    return ventana->exec() == QDialog::Accepted;
}

void FrmCancelaciones::Cargar() {
    AppContext &ctx = Contexto();
    const QString buscado = ui.TxtBuscar->text().trimmed();
    std::vector<stock::Oferta> ofertas;
    // What is shown stays where it cannot be read again.
    if (!Manejar(ctx, [&] {
            ofertas = stock::OfertasParaItem(ctx, interno_, buscado, hoy_);
            if (buscado.isEmpty()) AgregarPropia(ofertas);
        }))
        return;
    ofertas_ = std::move(ofertas);
    std::vector<QStringList> celdas;
    int actual = 0;
    for (const stock::Oferta &o : ofertas_) {
        const stock::Linea &l = o.linea;
        if (l.id == cancelacion_.idstock) actual = static_cast<int>(celdas.size());
        celdas.push_back({l.dit, QString::number(l.item), QString::number(l.subitem),
                          (l.idcatalogo + u' ' + l.idarticulo).trimmed(), l.descripcion, l.ncm, l.idunidad,
                          stock::TextoDeCantidad(ctx, l.saldo), stock::TextoDeDia(l.vencimiento),
                          stock::EstadoDeLinea(l, hoy_)});
    }
    const auto cuantas = static_cast<int>(celdas.size());
    ui.lbCuantas->setText(cuantas == 1 ? u"1 línea con saldo"_s : u"%1 líneas con saldo"_s.arg(cuantas));
    lista_.Cargar(std::move(celdas), actual);
    if (ofertas_.empty()) Describir();
}

void FrmCancelaciones::AgregarPropia(std::vector<stock::Oferta> &ofertas) const {
    // What is changed may have taken all that was left of its line.
    const qint64 id = cancelacion_.idstock;
    const bool esta = std::any_of(ofertas.begin(), ofertas.end(),
                                  [id](const stock::Oferta &o) { return o.linea.id == id; });
    if (id == 0 || esta) return;
    if (const auto linea = stock::LeerLinea(Contexto(), id))
        ofertas.insert(ofertas.begin(), {*linea, stock::PlazoDe(linea->vencimiento, hoy_), 0, 0});
}

bool FrmCancelaciones::Manual() const {
    return ui.ChManual->isChecked();
}

void FrmCancelaciones::ChManual_Click() {
    const bool manual = Manual();
    ui.Paginas->setCurrentWidget(manual ? static_cast<QWidget *>(ui.PaginaManual) : ui.PaginaStock);
    ui.TxtFactor->setEnabled(manual);
    if (manual && cancelacion_.id == 0) ui.TxtFactor->setText(u"1"_s);
    ui.lbTeclas->setText((manual ? QString() : u"Escriba para buscar   ·   "_s) + u"ENTER  seguir   ·   "_s +
                         (ui.ChManual->isVisibleTo(ventana.get()) ? u"ALT+M  manual   ·   "_s : QString()) +
                         u"ALT+G  guardar   ·   ESC  salir sin guardar"_s);
    (manual ? ui.TxtDit : ui.TxtBuscar)->setFocus();
    Describir();
}

const stock::Oferta *FrmCancelaciones::EnMano() const {
    const int fila = lista_.Actual();
    return fila < 0 || fila >= static_cast<int>(ofertas_.size()) ? nullptr
                                                                 : &ofertas_[static_cast<std::size_t>(fila)];
}

void FrmCancelaciones::Describir() {
    const AppContext &ctx = Contexto();
    const stock::Oferta *oferta = Manual() ? nullptr : EnMano();
    ui.lbUnidad->setText(oferta == nullptr ? QString()
                                           : stock::TextoDeUnidad(Contexto(), oferta->linea.idunidad));
    ui.lbDescuenta->clear();
    if (Manual()) return;
    ui.TxtFactor->clear();
    if (oferta == nullptr) return;
    const double factor = stock::FactorDe(ctx, oferta->linea);
    ui.TxtFactor->setText(numeros::FormatSinPerdida(factor, u"0.00", ctx.SeparadorDecimal));
    if (const auto cantidad = stock::CantidadEscrita(ui.TxtCantidad->text()))
        ui.lbDescuenta->setText(
            u"descuenta "_s + stock::TextoDeCantidad(ctx, stock::Descontado(ctx, oferta->linea, *cantidad)));
}

stock::Cancelacion FrmCancelaciones::Leer() const {
    stock::Cancelacion c;
    c.id = cancelacion_.id;
    c.cantidad = numeros::aNumero(ui.TxtCantidad->text());
    if (!Manual()) {
        const stock::Linea &l = EnMano()->linea;
        c.idstock = l.id;
        c.dit = l.dit;
        c.item = l.item;
        c.subitem = l.subitem;
        c.ncm = l.ncm;
        c.expctit = l.expctit;
        c.factor = stock::FactorDe(Contexto(), l);
        return c;
    }
    c.dit = ui.TxtDit->text().trimmed();
    c.item = ui.TxtItem->text().trimmed().toInt();
    c.subitem = ui.TxtSubitem->text().trimmed().toInt();
    c.ncm = ui.TxtNcm->text().trimmed();
    c.expctit = ui.TxtExpCtit->text().trimmed();
    c.factor = numeros::aNumero(ui.TxtFactor->text());
    return c;
}

void FrmCancelaciones::IrA(QLineEdit *campo) {
    campo->setFocus();
    campo->selectAll();
}

bool FrmCancelaciones::Completa() {
    const Dialogos &dialogos = Contexto().dialogos;
    const auto falta = [&](const QString &porque, QLineEdit *campo) {
        dialogos.advertir(porque, tituloDeCancelacion);
        IrA(campo);
        return false;
    };
    if (!Manual() && EnMano() == nullptr)
        return falta(u"Elija la línea del stock de la que se cancela."_s, ui.TxtBuscar);
    if (Manual()) {
        if (ui.TxtDit->text().trimmed().isEmpty())
            return falta(u"Ingrese el número de la declaración que se cancela."_s, ui.TxtDit);
        const std::pair<QLineEdit *, QString> numerales[] = {{ui.TxtItem, u"item"_s},
                                                             {ui.TxtSubitem, u"subitem"_s}};
        for (const auto &[campo, nombre] : numerales) {
            bool entero = false;
            const bool cuenta = campo->text().trimmed().toInt(&entero) >= 0 && entero;
            if (!campo->text().trimmed().isEmpty() && !cuenta)
                return falta(u"El %1 de la declaración es un número entero: corríjalo."_s.arg(nombre), campo);
        }
        if (stock::CantidadEscrita(ui.TxtFactor->text()).value_or(0) <= 0)
            return falta(u"El factor es un número mayor que cero: 1 cuando no hay mermas."_s, ui.TxtFactor);
    }
    if (!stock::CantidadEscrita(ui.TxtCantidad->text()))
        return falta(u"La cantidad no es un número: escriba cuánto se cancela."_s, ui.TxtCantidad);
    return true;
}

void FrmCancelaciones::CmdGuardar_Click() {
    AppContext &ctx = Contexto();
    if (!Completa()) return;
    const stock::Cancelacion nueva = Leer();
    const stock::Oferta *oferta = Manual() ? nullptr : EnMano();
    const bool otraVencida = oferta != nullptr && oferta->plazo == stock::Plazo::Vencido &&
                             oferta->linea.id != cancelacion_.idstock;
    if (otraVencida && !stock::PreguntarVencida(ctx, oferta->linea)) {
        ui.TxtBuscar->setFocus();
        return;
    }
    bool escrita = false;
    Manejar(ctx, [&] {
        escrita = nueva.id == 0 ? stock::IngresarCancelacion(ctx, interno_, item_, nueva)
                                : stock::ModificarCancelacion(ctx, interno_, item_, nueva);
    });
    if (escrita) {
        ventana->accept();
        return;
    }
    // Another workstation may have been quicker: the balances are read again.
    const QString cantidad = ui.TxtCantidad->text();
    if (!Manual()) Cargar();
    ui.TxtCantidad->setText(cantidad);
    IrA(ui.TxtCantidad);
}

cancelaciones::Enlace EnlaceDeCancelaciones() {
    return {[](const QString &interno, const QString &item) {
                Pantalla<FrmCancelaciones>().Ingresar(interno, item);
                CerrarPantalla<FrmCancelaciones>();
            },
            [](const QString &interno, const QString &item, const FilaDeCancelacion &fila) {
                const auto hallada = buscarCancelacion(Contexto(), interno, item, fila);
                if (!hallada) return;
                Pantalla<FrmCancelaciones>().Modificar(interno, item, *hallada);
                CerrarPantalla<FrmCancelaciones>();
            },
            [](const QString &interno, const QString &item, const FilaDeCancelacion &fila) {
                eliminarCancelacion(Contexto(), interno, item, fila);
            }};
}
