#include "subitems/FrmSubItems.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmListado.h"
#include "header/FrmLstProrrateo.h"
#include "header/changes.h"
#include "header/regime.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmSufijos.h"
#include "subitems/FrmbArticulos.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// F6 on the catalogue goes through all of them; on the article it searches the one in hand or, without one,
/// the code that is there in any. Nothing when the user left.
ArticuloElegido elegirArticulo(const CamposSubItem &c, bool desdeElCatalogo) {
    const QString catalogo = c.TxtIdCatalogo.trimmed();
    const QString escrito = c.txtIdArticulo.trimmed();
    if (desdeElCatalogo || (catalogo.isEmpty() && escrito.isEmpty()))
        return SeleccionarArticulo(catalogo).value_or(ArticuloElegido{});
    if (catalogo.isEmpty()) {
        const auto hallado = Pantalla<FrmCatArticulosBuscar>().Buscar(BusquedaEnCatalogos::Articulo, escrito);
        CerrarPantalla<FrmCatArticulosBuscar>();
        return hallado.value_or(ArticuloElegido{});
    }
    const QString articulo = Pantalla<FrmbArticulos>().Elegir(catalogo, escrito);
    CerrarPantalla<FrmbArticulos>();
    return articulo.isEmpty() ? ArticuloElegido{} : ArticuloElegido{catalogo, articulo};
}

}  // namespace

FrmSubItems::FrmSubItems() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmSubItems::Form_Load() {
    ui.cboBiendeUso->addItem(u"No"_s, u"N"_s);
    ui.cboBiendeUso->addItem(u"Sí"_s, u"S"_s);
    for (const DefinicionDeCampo &d : CamposDeSubItem())
        if (auto *control = ventana->findChild<QWidget *>(L(d.control))) campos_.push_back({&d, control});
}

void FrmSubItems::Conectar() {
    QWidget *v = ventana.get();
    for (const Campo &campo : campos_)
        if (campo.definicion->tipo != TipoDeCampo::Descripcion) ConectarCampo(campo);
    ConectarLista();
    ArmarMenu();
    const auto alPulsar = [v](QAbstractButton *boton, const std::function<void()> &hacer) {
        QObject::connect(boton, &QAbstractButton::clicked, v, hacer);
    };
    alPulsar(ui.opFobUnitario, [this] { opFob_Click(true); });
    alPulsar(ui.opFobTotal, [this] { opFob_Click(false); });
    alPulsar(ui.cmdGrabar, [this] { cmdGrabar_Click(); });
    alPulsar(ui.cmdNuevo, [this] { cmdNuevo_Click(); });
    alPulsar(ui.cmdEliminar, [this] { cmdEliminar_Click(); });
    alPulsar(ui.cmdInsumos, [this] { cmdInsumos_Click(); });
    alPulsar(ui.cmdVerSufijos, [this] { cmdVerSufijos_Click(); });
    alPulsar(ui.cmdListas, [this] { GenerarReportes(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close) return false;
        evento->ignore();
        Form_Unload();
        return true;
    });
}

void FrmSubItems::ConectarCampo(const Campo &campo) {
    auto *linea = qobject_cast<QLineEdit *>(campo.control);
    if (*campo.definicion->clave != 0) {
        ConectarCodigo(campo);
    } else {
        ClCntrl::Vincular(campo.control);
        if (campo.definicion->esCodigo()) campos::EnMayusculas(linea);
    }
    ClCntrl::alCambiar(campo.control,
                       [this] { Manejar(Contexto(), [this] { AnotarCambio(Contexto(), s_.interno); }); });
    if (linea != nullptr) {
        EscucharTeclas(linea, [this, campo](QKeyEvent *tecla) { return Campo_KeyDown(campo, tecla); });
        QObject::connect(linea, &QLineEdit::textEdited, linea, [this, campo] { Campo_Change(campo); });
    }
}

void FrmSubItems::ConectarCodigo(const Campo &campo) {
    auto *descripcion =
        qobject_cast<QLabel *>((*std::find_if(campos_.begin(), campos_.end(), [&](const Campo &c) {
                                   return c.definicion->campo == campo.definicion->descripcion;
                               })).control);
    ReglaDeCodigo regla;
    regla.alResolver = [this, campo](const CampoDeCodigo &leido) {
        const DefinicionDeCampo &d = *campo.definicion;
        const bool otro = s_.campos.*d.campo != leido.codigo;
        s_.campos.*d.descripcion = leido.descripcion.trimmed();
        if (otro) Campo_Change(campo);
    };
    VincularCodigo(qobject_cast<QLineEdit *>(campo.control), descripcion, regla);
}

void FrmSubItems::Mostrar(const QString &interno, const std::array<int, 8> &banderas) {
    AppContext &ctx = Contexto();
    ClCntrl::banderaDeCambios() = false;
    ventana->setWindowTitle(u"Carga de subitems - Operación "_s + interno);
    ventana->setModal(true);
    Manejar(ctx, [&] {
        AbrirSubItems(ctx, s_, interno, banderas);
        CargarLista({});
    });
    OfrecerBloques();
    Escribir(false);
    MostrarVentana(ventana.get());
    PonerFocoEnPrimero();
    ClCntrl::banderaDeCambios() = true;
}

void FrmSubItems::OfrecerBloques() {
    const auto mostrar = [](std::initializer_list<QWidget *> controles, bool ver) {
        for (QWidget *control : controles) control->setVisible(ver);
    };
    using B = BloqueDeLinea;
    mostrar({ui.FramCatalogo}, s_.bloque(B::Catalogos));
    mostrar({ui.framEstadistica}, s_.bloque(B::CantidadEstadistica));
    mostrar({ui.rotuloPais, ui.TxtIdpais, ui.LbDescPais}, s_.bloque(B::PaisDeOrigen));
    mostrar({ui.rotuloEstado, ui.TxtIdEstadoMercaderia, ui.LbDescEstado}, s_.bloque(B::EstadoMercaderia));
    mostrar({ui.rotuloCodProrrateo, ui.TxtCodProrrateo}, s_.bloque(B::CodigosDeProrrateo));
    mostrar({ui.rotuloBiendeUso, ui.cboBiendeUso}, s_.bloque(B::BienDeUso));
    mostrar({ui.framKilos}, s_.bloque(B::Kilos));
    mostrar({ui.framCancelaciones}, s_.bloque(B::Cancelaciones));
    mostrar({ui.rotuloCargaPor, ui.opFobUnitario, ui.opFobTotal}, s_.opcionesDeFob);
    mostrar({ui.rotuloEAN, ui.TxtCodigoEAN}, s_.eanHabilitado);
    mostrar({ui.cmdInsumos}, EsRegimenConInsumos(s_.idsubreg) && s_.enlace);
}

void FrmSubItems::Leer() {
    for (const Campo &campo : campos_)
        if (campo.definicion->tipo != TipoDeCampo::Descripcion)
            s_.campos.*campo.definicion->campo = campos::TextoDe(campo.control);
}

void FrmSubItems::Escribir(bool anotar) {
    // One note for all of them.
    const bool activa = std::exchange(ClCntrl::banderaDeCambios(), false);
    bool cambio = false;
    for (const Campo &campo : campos_) {
        const bool escrito = campos::PonerTexto(campo.control, s_.campos.*campo.definicion->campo);
        cambio = cambio || (escrito && campo.definicion->tipo != TipoDeCampo::Descripcion);
    }
    EscribirEstado();
    ClCntrl::banderaDeCambios() = activa;
    if (anotar && activa && cambio) AnotarCambio(Contexto(), s_.interno);
}

void FrmSubItems::EscribirEstado() {
    const CamposSubItem &c = s_.campos;
    ui.LbLapi->setVisible(c.LbLapi);
    ui.lbSegElect->setVisible(c.lbSegElect);
    ui.lbProhibicion->setVisible(c.lbProhibicion);
    ui.lbREINT->setVisible(c.lbREINT);
    ui.FramDerEsp->setEnabled(s_.FramDerEsp);
    ui.TxtIdCatalogo->setEnabled(!s_.articuloFijo);
    ui.txtIdArticulo->setEnabled(!s_.articuloFijo);
    (s_.opFobUnitario ? ui.opFobUnitario : ui.opFobTotal)->setChecked(true);
    ui.TxtUnitario->setEnabled(s_.TxtUnitarioHabilitado());
    ui.TxtFobTotal->setEnabled(s_.TxtFobTotalHabilitado());
    // Kilograms fill it by themselves: TAB passes it by, its mnemonic still reaches it.
    ui.TxtValorsobreestadistica->setFocusPolicy(s_.pideCantidadEstadistica() ? Qt::StrongFocus
                                                                             : Qt::ClickFocus);
    ui.LbTotal->setText(s_.LbTotal);
    ui.LbTotSubitems->setText(s_.LbTotSubitems);
    ui.lbDIF->setText(s_.lbDIF);
    // A filter may leave the line in hand out of the list.
    if (const int fila = s_.modo == 2 ? FilaDeId(s_.id) : -1; fila >= 0)
        numeroEnMano_ = ui.LstArticulos->item(fila, 0)->text();
    ui.lbModo->setText(s_.modo == 2 ? u"Modifica la línea "_s + numeroEnMano_ : u"Línea nueva"_s);
}

void FrmSubItems::Trabajar(const std::function<void()> &hacer) {
    Leer();
    Manejar(Contexto(), hacer);
    Manejar(Contexto(), [this] { Escribir(true); });
}

void FrmSubItems::PonerFoco(const QString &control) {
    campos::Enfocar(ventana.get(), control);
}

void FrmSubItems::PonerFocoEnPrimero() {
    for (const Campo &campo : campos_) {
        if (campo.definicion->tipo == TipoDeCampo::Descripcion || !campo.control->isVisible() ||
            !campo.control->isEnabled())
            continue;
        campo.control->setFocus();
        return;
    }
}

bool FrmSubItems::Form_KeyDown(const QKeyEvent *tecla) {
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    // Never the window's default button from a place that is no field.
    if (EsEnter(tecla)) return true;
    switch (tecla->key()) {
        case Qt::Key_Escape:
            Form_Unload();
            return true;
        case Qt::Key_F7:
            cmdVerSufijos_Click();
            return true;
        case Qt::Key_F8:
            cmdInsumos_Click();
            return true;
        case Qt::Key_F9:
            IrALaListaYVolver();
            return true;
        case Qt::Key_F10:
            AbrirMenu();
            return true;
        case Qt::Key_F11:
            cmdGrabar_Click();
            return true;
        case Qt::Key_F12:
            GenerarReportes();
            return true;
        case Qt::Key_Insert:
            cmdNuevo_Click();
            return true;
        default:
            return false;
    }
}

void FrmSubItems::Form_Unload() {
    ClCntrl::banderaDeCambios() = false;
    // The article in hand leaves with its screen.
    Contexto().ReconfirmarSufijos = false;
    const auto avisar = alCerrar;
    CerrarPantalla<FrmSubItems>();
    if (avisar) avisar();
}

bool FrmSubItems::Campo_KeyDown(const Campo &campo, const QKeyEvent *tecla) {
    if (EsEnter(tecla)) return Campo_Enter(campo);
    return tecla->key() == Qt::Key_F6 && Campo_F6(campo);
}

bool FrmSubItems::Campo_Enter(const Campo &campo) {
    // The fields with a code table answer by themselves.
    if (campo.control != ui.TxtPosicion && campo.control != ui.txtIdArticulo) return false;
    Veredicto v;
    Trabajar([&] { v = CampoDeLineaEnter(Contexto(), s_, L(campo.definicion->control)); });
    if (v.ok) return false;
    PonerFoco(v.foco);
    ui.TxtPosicion->selectAll();
    return true;
}

bool FrmSubItems::Campo_F6(const Campo &campo) {
    AppContext &ctx = Contexto();
    if (*campo.definicion->clave != 0) return false;
    Trabajar([&] {
        if (campo.control == ui.TxtPosicion) {
            // The search goes by the first key alone.
            constexpr int largoDeClave = 10;
            const QString elegida = ElegirPosicion(s_.campos.TxtPosicion.left(largoDeClave));
            if (elegida.isEmpty()) return;
            s_.campos.TxtPosicion = elegida;
            BuscarNCM(ctx, s_);
        } else if (campo.control == ui.TxtIdCatalogo || campo.control == ui.txtIdArticulo) {
            TomarArticulo(ctx, s_, elegirArticulo(s_.campos, campo.control == ui.TxtIdCatalogo));
        } else if (campo.control == ui.TxtCodProrrateo) {
            const QString codigo = Pantalla<FrmLstProrrateo>().Elegir(s_.interno);
            CerrarPantalla<FrmLstProrrateo>();
            if (!codigo.isEmpty()) s_.campos.TxtCodProrrateo = codigo;
        } else if (campo.control == ui.txtSufijos) {
            ActuSufijos(ctx, s_);
        } else {
            CampoDeLineaF6(ctx, s_, L(campo.definicion->control));
        }
    });
    return true;
}

void FrmSubItems::Campo_Change(const Campo &campo) {
    Trabajar([&] { CampoDeLineaCambia(Contexto(), s_, L(campo.definicion->control)); });
}

void FrmSubItems::opFob_Click(bool unitario) {
    const bool enPrecio = ui.TxtUnitario->hasFocus() || ui.TxtFobTotal->hasFocus();
    Trabajar([&] { ElegirCargaPor(Contexto(), s_, unitario); });
    if (enPrecio) (unitario ? ui.TxtUnitario : ui.TxtFobTotal)->setFocus();
}

void FrmSubItems::cmdGrabar_Click() {
    AppContext &ctx = Contexto();
    const bool nueva = s_.modo != 2;
    Grabacion g;
    Leer();
    const bool escrita = Manejar(ctx, [&] {
        if (listaAtrasada_) CargarLista(filtro_);
        g = Grabar(ctx, s_);
        if (!g.ok) return;
        listaAtrasada_ = true;
        ActualizarLinea(g.id, nueva && FilaDeId(g.id) < 0);
        listaAtrasada_ = false;
    });
    // The line may be there without anybody knowing.
    if (s_.enDuda) listaAtrasada_ = true;
    // What a save leaves in the fields is no change of theirs.
    Escribir(false);
    if (escrita) PonerFoco(g.foco);
}

void FrmSubItems::cmdNuevo_Click() {
    AppContext &ctx = Contexto();
    Leer();
    if (listaAtrasada_ && !Manejar(ctx, [&] { CargarLista(filtro_); })) return;
    VaciarCampos(ctx, s_);
    Escribir(false);
    PonerFocoEnPrimero();
}

void FrmSubItems::cmdInsumos_Click() {
    bool tomada = false;
    Trabajar([&] { tomada = SelectINSUMOS(Contexto(), s_); });
    if (tomada) ui.TxtCantidad->setFocus();
}

void FrmSubItems::cmdVerSufijos_Click() {
    Leer();
    VerSufijos(s_.campos.TxtPosicion, s_.campos.txtSufijos);
}

void FrmSubItems::GenerarReportes() {
    AppContext &ctx = Contexto();
    if (!ctx.salidas.lineas) {
        ctx.dialogos.informar(u"Los listados no están en este programa."_s);
        return;
    }
    // The lines as they are kept: the one in hand is not among them before it is saved, and stays in hand.
    Manejar(ctx, [&] { ctx.salidas.lineas(s_.interno, ui.TxtIdCatalogo->text().trimmed()); });
}
