// The fields of the item's page.

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QStringListModel>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/ClListadoEx.h"
#include "header/FrmListado.h"
#include "header/codes.h"
#include "header/regime.h"
#include "liquidation/FrmVerItem.h"
#include "liquidation/itemsave.h"
#include "regulatory/onccalists.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString elCero = u"0"_s;
/// What ClListadoEx calls the tariff lists.
constexpr int listasDelItem = 6;

const QString importeUsual = u"000000,00"_s;
constexpr int margenDeNumero = 14;  ///< pixels around the text of a field

/// The tag of a field that keeps its colour.
const QVariant soloSeMuestra = u"BB"_s;

/// The options of the regime; the row's data is what is stored.
void llenarOpciones(QComboBox *combo, QString (*codigo)(int), QString (*texto)(int)) {
    for (int n = 0; !codigo(n).isEmpty(); ++n) combo->addItem(texto(n), codigo(n));
    combo->setCurrentIndex(-1);
}

/// The header rules the field for the whole operation: item 0 answers in place of a change.
bool respondeEnCero(const CampoDeItem &campo) {
    return *campo.respuestaEnCero != '\0';
}

/// A key that would change the text of a field, or open its list.
bool quiereCambiar(const QKeyEvent *tecla) {
    if ((tecla->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0)
        return tecla->matches(QKeySequence::Paste) || tecla->matches(QKeySequence::Cut);
    switch (tecla->key()) {
        case Qt::Key_F6:
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
            return true;
        default:
            return !tecla->text().isEmpty() && tecla->text().front().isPrint();
    }
}

}  // namespace

void FrmVerItem::CargarCampos() {
    llenarOpciones(ui.cboOpcionIVA, OpcionIVACodigo, OpcionIVATexto);
    llenarOpciones(ui.cboOpcionesGanancias, OpcionGananciasCodigo, OpcionGananciasTexto);
    for (const CampoDeItem &definicion : CamposDeItem()) {
        auto *control = ventana->findChild<QWidget *>(L(definicion.control));
        if (auto *linea = qobject_cast<QLineEdit *>(control)) {
            if (*definicion.letras != '\0')
                linea->setValidator(new QRegularExpressionValidator(
                    QRegularExpression(u"[%1]?"_s.arg(L(definicion.letras)),
                                       QRegularExpression::CaseInsensitiveOption),
                    linea));
            // An amount of usual length is read whole under any font.
            if (definicion.clase == ClaseDeCampo::Numero)
                linea->setMinimumWidth(linea->fontMetrics().horizontalAdvance(importeUsual) + margenDeNumero);
        }
        campos_.push_back({&definicion, control, control->property("tag")});
    }
}

void FrmVerItem::ConectarCampos() {
    for (const Campo &campo : campos_) {
        auto *linea = qobject_cast<QLineEdit *>(campo.control);
        const bool codificado =
            linea != nullptr && !ClaveDeEtiqueta(linea->property("tag").toString()).isEmpty();
        if (codificado) continue;
        ClCntrl::Vincular(campo.control);
        if (linea != nullptr && campo.definicion->clase != ClaseDeCampo::Numero) campos::EnMayusculas(linea);
    }
    VincularCodigo(ui.TxtIdpais, ui.LbDescPais);
    VincularCodigo(ui.TxtIdproc, ui.LbDest);
    VincularCodigo(ui.TxtEstadoMerc, ui.LbEstMerc);
    const auto pendiente = [] { Contexto().LiquidacionPendiente = true; };
    for (const Campo &campo : campos_) {
        const CampoDeItem &definicion = *campo.definicion;
        if (respondeEnCero(definicion))
            EscucharTeclas(campo.control, [this, &definicion](QKeyEvent *tecla) {
                return CampoDeCaratula_KeyDown(tecla, QString::fromUtf8(definicion.respuestaEnCero));
            });
        if (!definicion.dejaPendiente) continue;
        if (auto *casilla = qobject_cast<QCheckBox *>(campo.control))
            QObject::connect(casilla, &QCheckBox::clicked, casilla, pendiente);
        else if (auto *linea = qobject_cast<QLineEdit *>(campo.control))
            QObject::connect(linea, &QLineEdit::textEdited, linea, pendiente);
    }
    ConectarLista();
    ConectarONCCA();
}

void FrmVerItem::ConectarLista() {
    listas_ = new QStringListModel(ui.TxtLista);
    auto *oferta = new QCompleter(listas_, ui.TxtLista);
    oferta->setCaseSensitivity(Qt::CaseInsensitive);
    ui.TxtLista->setCompleter(oferta);
    EscucharTeclas(ui.TxtLista, [this](QKeyEvent *tecla) { return TxtLista_KeyDown(tecla); });
    QObject::connect(ui.TxtLista, &QLineEdit::textEdited, ui.TxtLista, [this] { MarcarLista(); });
    // The offer takes the keys while it stands: those that are not its own close it and go to the field.
    QAbstractItemView *ofrecidas = oferta->popup();
    EscucharTeclas(ofrecidas, [this, ofrecidas](QKeyEvent *tecla) {
        const bool deFuncion = tecla->key() >= Qt::Key_F1 && tecla->key() <= Qt::Key_F12;
        const bool sinEleccion = EsEnter(tecla) && !ofrecidas->currentIndex().isValid();
        if (!deFuncion && !sinEleccion) return false;
        ofrecidas->hide();
        QKeyEvent otra(QEvent::KeyPress, tecla->key(), tecla->modifiers(), tecla->text());
        QCoreApplication::sendEvent(ui.TxtLista, &otra);
        return true;
    });
    QObject::connect(oferta, qOverload<const QString &>(&QCompleter::activated), ui.TxtLista,
                     [this] { MarcarLista(); });
}

void FrmVerItem::ConectarONCCA() {
    for (const oncca::CampoConLista &dato : oncca::CamposConLista()) {
        ReglaDeCodigo regla;
        regla.boton = ventana->findChild<QPushButton *>(L(dato.boton));
        VincularCodigo(ventana->findChild<QLineEdit *>(L(dato.control)),
                       ventana->findChild<QLabel *>(L(dato.etiqueta)), regla);
    }
}

void FrmVerItem::DescribirONCCA() {
    for (const oncca::CampoConLista &dato : oncca::CamposConLista()) {
        const auto *campo = ventana->findChild<QLineEdit *>(L(dato.control));
        ventana->findChild<QLabel *>(L(dato.etiqueta))
            ->setText(oncca::Describir(Contexto(), L(dato.clave), campo->text().trimmed()));
    }
}

void FrmVerItem::EscribirCampos(const VistaDeItem &vista, bool otraPagina) {
    const DatosDeItem enPantalla = otraPagina ? DatosDeItem() : Leer();
    if (otraPagina) {
        listaMarcada_ = false;
        grabadoFallido_.reset();
        escapeFallido_.reset();
    }
    for (const auto &[definicion, control, etiqueta] : campos_) {
        const QString columna = L(definicion->columna);
        // What was typed and not saved yet stays.
        if (!otraPagina && definicion->seGraba && enPantalla.value(columna) != cargados_.value(columna))
            continue;
        campos::PonerTexto(control, vista.campo(L(definicion->control)));
        if (!definicion->seGraba) continue;
        cargados_[columna] = vista.datos.value(columna);
        pintados_[columna] = campos::TextoDe(control);
    }
    DescribirONCCA();
    HabilitarCampos();
}

void FrmVerItem::AnotarPintados() {
    for (const auto &[definicion, control, etiqueta] : campos_)
        if (definicion->seGraba) pintados_[L(definicion->columna)] = campos::TextoDe(control);
}

void FrmVerItem::HabilitarCampos() {
    const bool cero = item_ == elCero;
    for (const auto &[definicion, control, etiqueta] : campos_) {
        bool seEscribe = definicion->seGraba && (!cero || definicion->enCero);
        auto *linea = qobject_cast<QLineEdit *>(control);
        if (linea == nullptr) {
            control->setEnabled(seEscribe);
            continue;
        }
        const bool responde = respondeEnCero(*definicion);
        if (cero && responde) seEscribe = false;
        linea->setReadOnly(!seEscribe);
        const bool quieto = !seEscribe && !responde;
        linea->setFocusPolicy(quieto ? Qt::ClickFocus : Qt::StrongFocus);
        // What is only shown has the colour of what is not asked for, and keeps it in hand.
        if (quieto == (linea->property("tag") == soloSeMuestra)) continue;
        linea->setProperty("tag", quieto ? soloSeMuestra : etiqueta);
        QPalette paleta;
        if (quieto) paleta.setColor(QPalette::Base, paleta.color(QPalette::Disabled, QPalette::Base));
        linea->setPalette(paleta);
    }
    for (const oncca::CampoConLista &dato : oncca::CamposConLista())
        ventana->findChild<QPushButton *>(L(dato.boton))->setEnabled(!cero);
}

DatosDeItem FrmVerItem::Leer() const {
    DatosDeItem pagina;
    for (const auto &[definicion, control, etiqueta] : campos_) {
        if (!definicion->seGraba) continue;
        const QString columna = L(definicion->columna);
        const QString texto = campos::TextoDe(control);
        // What shows as it was painted is what the store holds: all decimals of a number, and an option that
        // the regime does not know and that selects nothing.
        pagina.insert(columna, texto == pintados_.value(columna) ? cargados_.value(columna) : texto);
    }
    return pagina;
}

bool FrmVerItem::Cambio() const {
    return Leer() != cargados_;
}

void FrmVerItem::PonerFoco(const QString &control) {
    auto *campo = control.isEmpty() ? nullptr : ventana->findChild<QWidget *>(control);
    if (campo == nullptr) return;
    for (int n = 0; n < ui.sTab->count(); ++n)
        if (ui.sTab->widget(n)->isAncestorOf(campo)) ui.sTab->setCurrentIndex(n);
    campos::Enfocar(ventana.get(), control);
    if (auto *linea = qobject_cast<QLineEdit *>(campo)) linea->selectAll();
}

bool FrmVerItem::CampoDeCaratula_KeyDown(const QKeyEvent *tecla, const QString &respuesta) {
    if (item_ != elCero || !quiereCambiar(tecla)) return false;
    Contexto().dialogos.advertir(respuesta);
    return true;
}

void FrmVerItem::MarcarLista() {
    if (item_ == elCero || listaMarcada_ || ui.TxtLista->text().isEmpty()) return;
    AppContext &ctx = Contexto();
    listaMarcada_ = Manejar(ctx, [&] { MarcarListaTipeada(ctx, interno_, item_); });
}

bool FrmVerItem::TxtLista_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() == Qt::Key_Down && tecla->modifiers().testFlag(Qt::AltModifier)) {
        // All of them, whatever stands in the field.
        ui.TxtLista->completer()->setCompletionPrefix({});
        ui.TxtLista->completer()->complete();
        return true;
    }
    if (tecla->key() != Qt::Key_F6) return false;
    ClListadoEx listas;
    listas.TipoLista = listasDelItem;
    QString elegida;
    listas.EjecutarLista(elegida, ui.TxtIdpais->text().trimmed(), ui.TxtIdproc->text().trimmed());
    if (!elegida.isEmpty()) {
        ui.TxtLista->setText(elegida);
        MarcarLista();
    }
    ui.TxtLista->selectAll();
    return true;
}
