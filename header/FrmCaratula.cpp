#include "header/FrmCaratula.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QTimer>
#include <utility>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmABMProrrateos.h"
#include "header/FrmClientes.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmLstDiv.h"
#include "header/FrmLstVendedores.h"
#include "header/FrmNewVendedor.h"
#include "header/changes.h"
#include "header/fieldrules.h"
#include "header/invoices.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

bool esDato(const DefinicionDeControl &d) {
    return d.tipo == TipoDeControl::Texto || d.tipo == TipoDeControl::Casilla ||
           d.tipo == TipoDeControl::Opciones;
}

/// The options of the two tax questions, with their index behind.
void llenarOpciones(QComboBox *combo, QString (*texto)(int)) {
    for (int n = 0; !texto(n).isEmpty(); ++n) combo->addItem(texto(n), n);
    combo->setCurrentIndex(-1);
}

int indiceDe(const QComboBox *combo) {
    return combo->currentIndex() < 0 ? -1 : combo->currentData().toInt();
}

}  // namespace

FrmCaratula::FrmCaratula() : ventana(HacerDialogo()), c_(CaratulaVacia({})) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmCaratula::Form_Load() {
    llenarOpciones(ui.cboOpcionIVA, OpcionIVATexto);
    llenarOpciones(ui.cboOpcionesGanancias, OpcionGananciasTexto);
    for (const char *letra : {"S", "N"}) ui.cboFacilidadPago->addItem(L(letra), L(letra));
    ui.cboFacilidadPago->setCurrentIndex(-1);
    for (const DefinicionDeControl &d : ControlesDeCaratula()) {
        const QString nombre = L(d.nombre);
        auto *control = ventana->findChild<QWidget *>(nombre);
        if (control == nullptr) continue;
        if (auto *linea = qobject_cast<QLineEdit *>(control); linea != nullptr && d.maximo > 0)
            linea->setMaxLength(d.maximo);
        campos_.push_back({&d, nombre, control, ventana->findChild<QWidget *>("rotulo_"_L1 + nombre)});
    }
}

void FrmCaratula::Conectar() {
    QWidget *v = ventana.get();
    for (const Campo &campo : campos_)
        if (esDato(*campo.definicion)) ConectarCampo(campo);
    ClCntrl::Vincular(ui.LstFact);
    EscucharTeclas(ui.LstFact, [this](QKeyEvent *tecla) { return LstFact_KeyDown(tecla); });
    Escuchar(ui.txtPorc,
             [this](QEvent *evento) { return evento->type() == QEvent::KeyRelease && txtPorc_KeyUp(); });
    QObject::connect(ui.CmdProrrat, &QPushButton::clicked, v, [this] { CmdProrrat_Click(); });
    QObject::connect(ui.cmdComentario, &QPushButton::clicked, v, [this] { cmdComentario_Click(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
}

void FrmCaratula::ConectarCampo(const Campo &campo) {
    if (auto *casilla = qobject_cast<QCheckBox *>(campo.control)) {
        QObject::connect(casilla, &QCheckBox::clicked, casilla, [this, campo, casilla] {
            AnotarCambioDeUsuario();
            if (casilla->isChecked()) CasillaTildada(Contexto(), campo.nombre);
        });
        return;
    }
    ClCntrl::Vincular(campo.control);
    ClCntrl::alCambiar(campo.control, [this] { AnotarCambioDeUsuario(); });
    auto *linea = qobject_cast<QLineEdit *>(campo.control);
    if (linea == nullptr) return;
    if (EsCampoDeCodigo(*campo.definicion)) campos::EnMayusculas(linea);
    EscucharTeclas(linea, [this, campo](QKeyEvent *tecla) { return Campo_KeyDown(campo, tecla); });
    QObject::connect(linea, &QLineEdit::textEdited, linea, [this, campo] {
        Trabajar([&] {
            c_.control(campo.nombre).poner(campos::TextoDe(campo.control));
            CampoCambia(Contexto(), c_, campo.nombre);
        });
    });
    Escuchar(linea, [this, campo, linea](QEvent *evento) {
        if (evento->type() != QEvent::FocusOut) return false;
        const auto porque = static_cast<QFocusEvent *>(evento)->reason();
        // A window that comes over this one takes nothing from the field.
        if (porque == Qt::ActiveWindowFocusReason || porque == Qt::PopupFocusReason) return false;
        // Later, with the keyboard where it goes: the rule may ask.
        if (std::exchange(dejado_, nullptr) != linea)
            QTimer::singleShot(0, linea, [this, campo] { Campo_LostFocus(campo); });
        return false;
    });
}

void FrmCaratula::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    ClCntrl::banderaDeCambios() = false;
    c_ = CaratulaVacia(interno);
    c_.servicios.SeleccionarCliente = [] {
        QString cuit;
        QString nombre;
        return SeleccionarCliente(cuit, nombre) ? cuit : QString();
    };
    c_.servicios.AgregarVendedor = AgregarVendedor;
    bool cargada = false;
    if (!Manejar(ctx, [&] { cargada = CargarCaratula(ctx, c_); }) || !cargada) {
        CerrarPantalla<FrmCaratula>();
        return;
    }
    ventana->setWindowTitle(u"Carátula - Operación "_s + interno);
    ventana->setModal(true);
    EscribirOpciones();
    Escribir();
    MostrarVentana(ventana.get());
    ui.TxtSubReg->setFocus();
    ClCntrl::banderaDeCambios() = true;
}

void FrmCaratula::Leer() {
    for (const Campo &campo : campos_)
        if (esDato(*campo.definicion)) c_.control(campo.nombre).texto = campos::TextoDe(campo.control);
    c_.cboOpcionIVA = indiceDe(ui.cboOpcionIVA);
    c_.cboOpcionesGanancias = indiceDe(ui.cboOpcionesGanancias);
}

void FrmCaratula::EscribirOpciones() {
    ui.cboOpcionIVA->setCurrentIndex(ui.cboOpcionIVA->findData(c_.cboOpcionIVA));
    ui.cboOpcionesGanancias->setCurrentIndex(ui.cboOpcionesGanancias->findData(c_.cboOpcionesGanancias));
}

void FrmCaratula::Escribir() {
    for (const Campo &campo : campos_) {
        const ControlDeCaratula &estado = c_.control(campo.nombre);
        const bool opcionDeImpuesto =
            campo.control == ui.cboOpcionIVA || campo.control == ui.cboOpcionesGanancias;
        if (!opcionDeImpuesto && campo.definicion->tipo != TipoDeControl::Lista &&
            campo.definicion->tipo != TipoDeControl::Boton)
            campos::PonerTexto(campo.control, estado.texto);
        campo.control->setVisible(estado.visible);
        campo.control->setEnabled(estado.habilitado);
        if (campo.rotulo != nullptr) campo.rotulo->setVisible(estado.visible);
    }
    QStringList facturas;
    for (int n = 0; n < ui.LstFact->count(); ++n) facturas << ui.LstFact->item(n)->text();
    if (facturas != c_.LstFact) {
        ui.LstFact->clear();
        ui.LstFact->addItems(c_.LstFact);
    }
    OcultarGruposVacios();
}

void FrmCaratula::OcultarGruposVacios() {
    for (QGroupBox *grupo : {ui.gbDJAI, ui.gbOpciones, ui.gbSuspensiva}) {
        bool alguno = false;
        for (const Campo &campo : campos_)
            if (grupo->isAncestorOf(campo.control)) alguno = alguno || c_.control(campo.nombre).visible;
        grupo->setVisible(alguno);
    }
}

void FrmCaratula::AnotarCambioDeUsuario() {
    if (!ClCntrl::banderaDeCambios()) return;
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { AnotarCambio(ctx, c_.interno); });
}

void FrmCaratula::Trabajar(const std::function<void()> &hacer) {
    Leer();
    Manejar(Contexto(), hacer);
    Escribir();
}

void FrmCaratula::PonerFoco(const QString &nombre) {
    campos::Enfocar(ventana.get(), nombre);
}

bool FrmCaratula::Form_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) return true;
    if (tecla->key() == Qt::Key_F9) {
        cmdComentario_Click();
        return true;
    }
    if (tecla->key() != Qt::Key_Escape) return false;
    Form_Escape();
    return true;
}

bool FrmCaratula::Campo_KeyDown(const Campo &campo, const QKeyEvent *tecla) {
    if (EsEnter(tecla)) return Campo_Enter(campo);
    return tecla->key() == Qt::Key_F6 && Campo_F6(campo);
}

bool FrmCaratula::Campo_Enter(const Campo &campo) {
    Veredicto v = Veredicto::bien();
    Trabajar([&] { v = CampoEnter(Contexto(), c_, campo.nombre); });
    // What ENTER has looked at, the focus that goes on because of it does not look at again.
    Campo_LostFocus(campo);
    if (v.ok && v.foco.isEmpty()) {
        dejado_ = campo.control;
        return false;
    }
    PonerFoco(v.foco);
    return true;
}

bool FrmCaratula::Campo_F6(const Campo &campo) {
    AppContext &ctx = Contexto();
    Trabajar([&] {
        QString codigo;
        QString nombre;
        if (campo.control == ui.TxtCUITCliente) {
            if (!SeleccionarCliente(codigo, nombre)) return;
            c_.poner("TxtCUITCliente", codigo);
            CampoEnter(ctx, c_, campo.nombre);
        } else if (campo.control == ui.TxtCuitAduana) {
            if (ListarDespachantes(codigo, nombre)) TomarDespachante(c_, codigo, nombre);
        } else if (campo.control == ui.Txtidvendedor) {
            if (ListarVendedores(codigo, nombre)) TomarVendedor(c_, codigo, nombre);
        } else {
            CampoF6(ctx, c_, campo.nombre);
        }
    });
    return true;
}

void FrmCaratula::Campo_LostFocus(const Campo &campo) {
    if (!ventana->isVisible()) return;
    Trabajar([&] { CampoPierdeFoco(Contexto(), c_, campo.nombre); });
    if (auto *linea = qobject_cast<QLineEdit *>(campo.control)) linea->setModified(false);
}

bool FrmCaratula::txtPorc_KeyUp() {
    // The key that leaves the field is released in the next one.
    if (ui.txtPorc->hasFocus()) Trabajar([this] { PorcentajeTecla(Contexto(), c_); });
    return false;
}

bool FrmCaratula::LstFact_KeyDown(const QKeyEvent *tecla) {
    const QListWidgetItem *factura = ui.LstFact->currentItem();
    if (tecla->key() != Qt::Key_Delete || factura == nullptr) return false;
    const QString cual = factura->text();
    Trabajar([&] { Eliminar_Factura(Contexto(), c_, cual); });
    if (ui.LstFact->count() == 0) ui.TxtFactura->setFocus();
    return true;
}

void FrmCaratula::CmdProrrat_Click() {
    Pantalla<FrmABMProrrateos>().Mostrar(c_.interno);
    CerrarPantalla<FrmABMProrrateos>();
    c_.totalProrrateado = Contexto().TotalProrrateado;
    ui.CmdProrrat->setFocus();
}

void FrmCaratula::cmdComentario_Click() {
    Pantalla<FrmLstDiv>().Mostrar(c_.interno);
    CerrarPantalla<FrmLstDiv>();
}

void FrmCaratula::Form_Escape() {
    // The field in hand is left too, when something was typed into it.
    for (const Campo &campo : campos_)
        if (auto *linea = qobject_cast<QLineEdit *>(campo.control);
            linea != nullptr && linea->hasFocus() && linea->isModified())
            Campo_LostFocus(campo);
    SalidaDeCaratula salida;
    // The forms that saving gives to texts change nothing that the user has not changed.
    ClCntrl::banderaDeCambios() = false;
    Trabajar([&] { salida = GuardarCaratula(Contexto(), c_); });
    if (!salida.cierra) {
        ClCntrl::banderaDeCambios() = true;
        PonerFoco(salida.foco);
        return;
    }
    const auto avisar = std::move(alCerrar);
    CerrarPantalla<FrmCaratula>();
    if (avisar) avisar();
}
