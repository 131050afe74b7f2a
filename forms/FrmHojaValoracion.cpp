#include "forms/FrmHojaValoracion.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTabBar>
#include <algorithm>
#include <initializer_list>

#include "forms/valuationsheet.h"
#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

using valoracion::CampoDeHoja;
using valoracion::Seccion;
using valoracion::Tipo;

enum PaginaDeHoja { PaginaDeCircunstancias, PaginaDeValores };

int paginaDe(const CampoDeHoja &campo) {
    return campo.esImporte() ? PaginaDeValores : PaginaDeCircunstancias;
}

/// A field that takes a line of its own, below its words.
bool esAncho(const CampoDeHoja &campo) {
    constexpr int corto = 40;
    return campo.seccion != Seccion::Operacion &&
           (campo.largo > corto || (campo.tipo == Tipo::Lista && campo.seccion == Seccion::Vinculacion));
}

QLabel *hacerRotulo(const QString &texto, QWidget *padre) {
    auto *rotulo = new QLabel(texto, padre);
    rotulo->setTextFormat(Qt::PlainText);
    rotulo->setProperty("papel", u"rotulo"_s);
    return rotulo;
}

}  // namespace

FrmHojaValoracion::FrmHojaValoracion() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmHojaValoracion::Conectar() {
    QDialog *v = ventana.get();
    QObject::connect(ui.CmdProponer, &QPushButton::clicked, v, [this] { CmdProponer_Click(); });
    QObject::connect(ui.CmdEliminar, &QPushButton::clicked, v, [this] { CmdEliminar_Click(); });
    QObject::connect(ui.CmdImprimir, &QPushButton::clicked, v, [this] { Imprimir(); });
    QObject::connect(ui.CmdGuardar, &QPushButton::clicked, v, [this] {
        if (Guardar()) ventana->accept();
    });
    // From the last button round to the first field, which may stand on the page behind.
    EscucharTeclas(ui.CmdGuardar, [this](const QKeyEvent *tecla) {
        if (tecla->key() != Qt::Key_Tab || controles_.empty()) return false;
        IrA(controles_.front().first->columna);
        return true;
    });
    ui.sTab->tabBar()->setFocusPolicy(Qt::NoFocus);
    EscucharTeclas(v, [this](const QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close || !ventana->isVisible()) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
}

QWidget *FrmHojaValoracion::HacerControl(const CampoDeHoja &campo) {
    QString nombre = campo.columna;
    nombre[0] = nombre[0].toUpper();
    QWidget *control = nullptr;
    if (campo.tipo == Tipo::Lista || campo.tipo == Tipo::SiNo) {
        auto *combo = new QComboBox(ventana.get());
        combo->setObjectName("cbo"_L1 + nombre);
        combo->addItem(QString(), QString());
        if (campo.tipo == Tipo::SiNo) {
            combo->addItem(u"SÍ"_s, u"S"_s);
            combo->addItem(u"NO"_s, u"N"_s);
        }
        for (const valoracion::Opcion &o : campo.opciones) combo->addItem(o.texto, o.codigo);
        QObject::connect(combo, &QComboBox::currentIndexChanged, ventana.get(), [this] { Refrescar(); });
        control = combo;
    } else {
        auto *texto = new QLineEdit(ventana.get());
        texto->setObjectName("Txt"_L1 + nombre);
        if (campo.largo > 0) texto->setMaxLength(campo.largo);
        if (campo.esImporte()) texto->setAlignment(Qt::AlignRight);
        QObject::connect(texto, &QLineEdit::textChanged, ventana.get(), [this] { Refrescar(); });
        QObject::connect(texto, &QLineEdit::editingFinished, ventana.get(),
                         [this, &campo] { Campo_LostFocus(campo); });
        control = texto;
    }
    control->setAccessibleName(campo.rotulo);
    ClCntrl::Vincular(control);
    EscucharTeclas(control, [this, control](const QKeyEvent *tecla) {
        return (tecla->key() == Qt::Key_Tab && Campo_Tab(control, true)) ||
               (tecla->key() == Qt::Key_Backtab && Campo_Tab(control, false));
    });
    return control;
}

void FrmHojaValoracion::PonerEnGrilla(QGridLayout *grilla, const CampoDeHoja &campo, QWidget *control) {
    QLabel *rotulo = hacerRotulo(campo.rotulo, ventana.get());
    if (campo.seccion == Seccion::Operacion) {
        // Two fields a row.
        constexpr int porFila = 2;
        constexpr int celdasDeCampo = 2;
        const int lugar = grilla->count() / (celdasDeCampo);
        const int columna = lugar % porFila * celdasDeCampo;
        grilla->addWidget(rotulo, lugar / porFila, columna);
        grilla->addWidget(control, lugar / porFila, columna + 1);
        grilla->setColumnStretch(columna + 1, 1);
        return;
    }
    const int fila = grilla->rowCount();
    grilla->setColumnStretch(0, 1);
    grilla->addWidget(rotulo, fila, 0);
    grilla->addWidget(hacerRotulo(campo.norma, ventana.get()), fila, 1);
    if (esAncho(campo))
        grilla->addWidget(control, fila + 1, 0, 1, 3);
    else
        grilla->addWidget(control, fila, 2);
    if (campo.esImporte()) control->setFixedWidth(control->fontMetrics().averageCharWidth() * 20);
}

void FrmHojaValoracion::ArmarCampos() {
    QGridLayout *const grillas[] = {ui.caja_Operacion, ui.caja_Circunstancias, ui.caja_Vinculacion,
                                    ui.caja_Precio,    ui.caja_Incluir,        ui.caja_Deducir};
    QWidget *anterior = nullptr;
    for (const CampoDeHoja &campo : valoracion::Campos(hoja_.clase)) {
        QWidget *control = HacerControl(campo);
        PonerEnGrilla(grillas[static_cast<std::size_t>(campo.seccion)], campo, control);
        if (anterior != nullptr) QWidget::setTabOrder(anterior, control);
        anterior = control;
        controles_.emplace_back(&campo, control);
    }
    for (QWidget *siguiente : std::initializer_list<QWidget *>{
             ui.lstObservaciones, ui.CmdProponer, ui.CmdEliminar, ui.CmdImprimir, ui.CmdGuardar}) {
        QWidget::setTabOrder(anterior, siguiente);
        anterior = siguiente;
    }
    // Side by side, the shorter one stands at the top of its frame.
    for (QGridLayout *grilla : {ui.caja_Circunstancias, ui.caja_Vinculacion})
        grilla->setRowStretch(grilla->rowCount(), 1);
}

QWidget *FrmHojaValoracion::Control(const QString &columna) const {
    for (const auto &[campo, control] : controles_)
        if (campo->columna == columna) return control;
    return nullptr;
}

void FrmHojaValoracion::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    if (!Manejar(ctx, [&] { hoja_ = valoracion::Leer(ctx, interno); })) return;
    if (!hoja_.operacion.existe) {
        ctx.dialogos.advertir(u"La operación %1 ya no existe: vuelva a buscarla en la lista."_s.arg(interno));
        return;
    }
    const bool importacion = hoja_.clase == valoracion::Clase::Importacion;
    ventana->setWindowTitle(
        (importacion ? u"Hoja de valoración de importación"_s : u"Hoja de valoración de exportación"_s) +
        u" - Operación "_s + interno);
    if (controles_.empty()) ArmarCampos();
    Escribir();
    ui.sTab->setCurrentIndex(PaginaDeCircunstancias);
    controles_.front().second->setFocus();
    ventana->exec();
}

void FrmHojaValoracion::Escribir() {
    const valoracion::Operacion &o = hoja_.operacion;
    const bool importacion = hoja_.clase == valoracion::Clase::Importacion;
    ui.rotuloCliente->setText(importacion ? u"Importador"_s : u"Exportador"_s);
    ui.rotuloVendedor->setText(importacion ? u"Vendedor"_s : u"Comprador"_s);
    ui.LbRegimen->setText(o.idsubreg);
    ui.LbCliente->setText(o.cliente);
    ui.LbVendedor->setText(importacion ? o.vendedor : o.comprador);
    ui.LbFacturas->setText(o.facturas.join(", "_L1));
    ui.CmdEliminar->setEnabled(hoja_.guardada);
    {
        const QScopedValueRollback<bool> solo(cargando_, true);
        for (const auto &[campo, control] : controles_)
            campos::PonerTexto(control, hoja_.valores.value(campo->columna));
    }
    cargados_ = hoja_.valores;
    negados_.clear();
    Refrescar();
}

void FrmHojaValoracion::Leer() {
    for (const auto &[campo, control] : controles_) hoja_.valores[campo->columna] = campos::TextoDe(control);
}

void FrmHojaValoracion::Refrescar() {
    if (cargando_) return;
    const AppContext &ctx = Contexto();
    Leer();
    const bool vinculados = hoja_.valores.value(u"vinculacion"_s) == "S"_L1;
    for (const auto &[campo, control] : controles_)
        if (campo->seccion == Seccion::Vinculacion && campo->columna != "vinculacion"_L1)
            control->setEnabled(vinculados);
    const valoracion::Totales t = valoracion::TotalesDe(hoja_);
    const auto mostrar = [&ctx](QLabel *etiqueta, double valor) {
        etiqueta->setText(numeros::Format(valor, u"00.00", ctx.SeparadorDecimal));
    };
    mostrar(ui.LbPrecio, t.precio);
    mostrar(ui.LbIncluir, t.incluir);
    mostrar(ui.LbDeducir, t.deducir);
    mostrar(ui.LbValor, t.valor);
    mostrar(ui.LbDolares, t.valorEnDolares);
    const bool importacion = hoja_.clase == valoracion::Clase::Importacion;
    ui.LbTituloValor->setText((importacion ? u"Valor en aduana en "_s : u"Valor imponible en "_s) +
                              hoja_.divisa);
    ui.LbTituloDolares->setText(u"En dólares, al cambio "_s +
                                numeros::Format(hoja_.cambio, u"0.000000", ctx.SeparadorDecimal));
    ui.lstObservaciones->clear();
    ui.lstObservaciones->addItems(valoracion::ObservacionesDe(ctx, hoja_));
    if (ui.lstObservaciones->count() == 0) ui.lstObservaciones->addItem(u"Sin observaciones."_s);
}

bool FrmHojaValoracion::Form_KeyDown(const QKeyEvent *tecla) {
    switch (tecla->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // Never the window's default button.
            return true;
        case Qt::Key_F1:
            IrA(controles_.front().first->columna);
            return true;
        case Qt::Key_F2:
            IrA(u"precio"_s);
            return true;
        case Qt::Key_F12:
            Imprimir();
            return true;
        case Qt::Key_Escape:
            Form_Escape();
            return true;
        default:
            return false;
    }
}

bool FrmHojaValoracion::Campo_Tab(const QWidget *control, bool adelante) {
    const auto esEste = [control](const auto &par) { return par.second == control; };
    const auto aqui = std::find_if(controles_.begin(), controles_.end(), esEste);
    const auto ir = [this, &aqui](auto siguiente, auto fin) {
        siguiente = std::find_if(siguiente, fin, [](const auto &par) { return par.second->isEnabled(); });
        if (siguiente == fin || paginaDe(*siguiente->first) == paginaDe(*aqui->first)) return false;
        IrA(siguiente->first->columna);
        return true;
    };
    if (adelante) return ir(std::next(aqui), controles_.end());
    return ir(std::make_reverse_iterator(aqui), controles_.rend());
}

void FrmHojaValoracion::Campo_LostFocus(const CampoDeHoja &campo) {
    auto *texto = qobject_cast<QLineEdit *>(Control(campo.columna));
    if (texto == nullptr) return;
    if (campo.esImporte()) {
        const QString limpio = texto->text().trimmed().isEmpty() ? u"0"_s : texto->text();
        texto->setText(numeros::Format(limpio, u"00.00", Contexto().SeparadorDecimal));
    } else if (const auto dia = fechas::Leer(texto->text()); dia && campo.tipo == Tipo::Fecha) {
        texto->setText(dia->toString(u"dd/MM/yyyy"_s));
    }
}

void FrmHojaValoracion::IrA(const QString &columna) {
    for (const auto &[campo, control] : controles_) {
        if (campo->columna != columna) continue;
        ui.sTab->setCurrentIndex(paginaDe(*campo));
        control->setFocus();
    }
}

bool FrmHojaValoracion::Guardar() {
    AppContext &ctx = Contexto();
    Leer();
    Veredicto guardado;
    if (!Manejar(ctx, [&] { guardado = valoracion::Guardar(ctx, hoja_); })) return false;
    if (!guardado.ok) {
        IrA(guardado.foco);
        return false;
    }
    cargados_ = hoja_.valores;
    ui.CmdEliminar->setEnabled(true);
    return true;
}

void FrmHojaValoracion::CmdProponer_Click() {
    Leer();
    valoracion::Proponer(Contexto(), hoja_);
    const QMap<QString, QString> antes = cargados_;
    Escribir();
    // What was loaded stays what the store holds: the proposal is a change.
    cargados_ = antes;
    IrA(u"precio"_s);
}

void FrmHojaValoracion::CmdEliminar_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        if (valoracion::Eliminar(ctx, hoja_)) ventana->reject();
    });
}

void FrmHojaValoracion::Imprimir() {
    AppContext &ctx = Contexto();
    Leer();
    const qsizetype quedan = valoracion::ObservacionesDe(ctx, hoja_).size();
    Pregunta pregunta;
    pregunta.titulo = u"Hoja de valoración"_s;
    pregunta.texto = u"La hoja tiene %1 observaciones.\r\n¿Desea imprimirla igual?"_s.arg(quedan);
    if (quedan == 1) pregunta.texto = u"La hoja tiene una observación.\r\n¿Desea imprimirla igual?"_s;
    pregunta.porDefectoNo = true;
    if (quedan > 0 && !ctx.dialogos.preguntar(pregunta)) {
        ui.sTab->setCurrentIndex(PaginaDeValores);
        ui.lstObservaciones->setFocus();
        return;
    }
    // The paper tells what the store holds.
    if ((!hoja_.guardada || hoja_.valores != cargados_) && !Guardar()) return;
    Manejar(ctx, [&] {
        const papel::Tabla tabla = valoracion::TablaDeHoja(ctx, hoja_);
        ctx.dialogos.vistaPrevia({valoracion::PapelDeHoja(tabla, ctx.SeparadorDecimal), tabla});
    });
}

void FrmHojaValoracion::Form_Escape() {
    Leer();
    // A proposal that nobody touched is not a sheet yet.
    if (hoja_.valores == cargados_) {
        ventana->reject();
        return;
    }
    AppContext &ctx = Contexto();
    Veredicto guardado;
    if (!Manejar(ctx, [&] { guardado = valoracion::Guardar(ctx, hoja_); })) {
        // What was typed stays for another try; a store that goes on refusing it holds nobody here.
        if (hoja_.valores == negados_)
            ventana->reject();
        else
            negados_ = hoja_.valores;
        return;
    }
    if (guardado.ok)
        ventana->accept();
    else
        IrA(guardado.foco);
}

void AbrirHojaValoracion(const QString &interno) {
    Pantalla<FrmHojaValoracion>().Mostrar(interno);
    CerrarPantalla<FrmHojaValoracion>();
}
