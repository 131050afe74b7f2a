// The article in hand.

#include <QHeaderView>
#include <QKeyEvent>
#include <array>
#include <utility>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmListado.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmbArticulos.h"
#include "subitems/lines.h"
#include "subitems/suffixes.h"

using namespace Qt::StringLiterals;

namespace {

using FormaDeCatalogo = Ui::FrmCatArticulos;
using ArticleStore::Articulo;

/// Each text of the record and its field.
constexpr std::array<std::pair<QLineEdit * FormaDeCatalogo::*, QString Articulo::*>, 14> textosDeArticulo{{
    {&FormaDeCatalogo::TxtIdCatalogo, &Articulo::idcatalogo},
    {&FormaDeCatalogo::txtIdArticulo, &Articulo::idarticulo},
    {&FormaDeCatalogo::TxtDescArticulos, &Articulo::descripcion},
    {&FormaDeCatalogo::txtDescripcionMaria, &Articulo::Descripcion_Maria},
    {&FormaDeCatalogo::TxtPosicion, &Articulo::ncm},
    {&FormaDeCatalogo::TxtUnidad, &Articulo::idunidad},
    {&FormaDeCatalogo::txtSufijos, &Articulo::sufijos},
    {&FormaDeCatalogo::TxtIdpais, &Articulo::idpais},
    {&FormaDeCatalogo::txtIdPaisProc, &Articulo::idpaisproc},
    {&FormaDeCatalogo::TxtIdEstadoMercaderia, &Articulo::estadomerc},
    {&FormaDeCatalogo::TxtNaladisa, &Articulo::naladisa},
    {&FormaDeCatalogo::TxtCodigoEAN, &Articulo::codigoean},
    {&FormaDeCatalogo::TxtFiller, &Articulo::itfiller},
    {&FormaDeCatalogo::txtOtros, &Articulo::otros},
}};

/// Each coded field and the label of its description.
constexpr std::array<std::pair<QLineEdit * FormaDeCatalogo::*, QLabel * FormaDeCatalogo::*>, 4>
    codigosDeArticulo{{
        {&FormaDeCatalogo::TxtUnidad, &FormaDeCatalogo::LbDescUnidad},
        {&FormaDeCatalogo::TxtIdpais, &FormaDeCatalogo::LbDescPais},
        {&FormaDeCatalogo::txtIdPaisProc, &FormaDeCatalogo::LbDescPaisProc},
        {&FormaDeCatalogo::TxtIdEstadoMercaderia, &FormaDeCatalogo::LbDescEstado},
    }};

/// What stays when the article block is emptied, so that the catalogue stays chosen.
const QStringList quedaElegido{u"TXTCATALOGO"_s, u"TXTIDCATALOGO"_s, u"TXTDESCCATALOGO"_s,
                               u"TXTIDARTICULO"_s};

/// The position's block of text; false, told, when the nomenclature does not have it.
bool describirPosicion(AppContext &ctx, const QString &posicion, QString &texto) {
    SubItems linea;
    linea.campos.TxtPosicion = posicion;
    const Veredicto v = BuscarNCM(ctx, linea);
    texto = linea.campos.txtNCMDesc;
    return v.ok;
}

}  // namespace

void FrmCatArticulos::ArmarEdicion() {
    for (const auto &[campo, descripcion] : codigosDeArticulo) VincularCodigo(ui.*campo, ui.*descripcion);
    for (QLineEdit *campo : {ui.TxtIdCatalogo, ui.txtIdArticulo, ui.TxtDescArticulos, ui.txtDescripcionMaria,
                             ui.TxtPosicion, ui.TxtUnitario, ui.txtKgUnitario, ui.txtSufijos, ui.TxtNaladisa,
                             ui.TxtCodigoEAN, ui.TxtFiller, ui.txtOtros})
        ClCntrl::Vincular(campo);
    ClCntrl::Vincular(ui.ckBiendeUso);
    campos::EnMayusculas(ui.TxtPosicion);
    for (QLineEdit *campo : {ui.TxtIdCatalogo, ui.txtIdArticulo, ui.TxtPosicion, ui.txtSufijos})
        EscucharTeclas(campo, [this, campo](QKeyEvent *tecla) { return Campo_KeyDown(campo, tecla); });
    QObject::connect(ui.TxtPosicion, &QLineEdit::textEdited, ventana.get(),
                     [this] { ui.txtNCMDesc->clear(); });
    ListaConBusqueda::Acciones acciones;
    acciones.agregar = [this] { Vincular(); };
    acciones.eliminar = [this] { Quitar(); };
    ventajas_.Preparar(ui.LstVentajas, {u"Ventaja"_s, u"Descripción"_s}, {}, std::move(acciones));
    ui.LstVentajas->setColumnWidth(0, ui.LstVentajas->fontMetrics().averageCharWidth() * 24);
    ui.LstVentajas->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    const auto alPulsar = [this](QPushButton *boton, void (FrmCatArticulos::*hacer)()) {
        QObject::connect(boton, &QPushButton::clicked, ventana.get(), [this, hacer] { (this->*hacer)(); });
    };
    alPulsar(ui.CmdGuardar, &FrmCatArticulos::CmdGuardar_Click);
    alPulsar(ui.CmdNuevo, &FrmCatArticulos::Nuevo);
    alPulsar(ui.cmdVincularVentaja, &FrmCatArticulos::Vincular);
    alPulsar(ui.cmdQuitarVentaja, &FrmCatArticulos::Quitar);
}

void FrmCatArticulos::VerEdicion() {
    // Nothing is in hand yet: a new article of the catalogue that was.
    if (!cambio_ && ui.TxtIdCatalogo->text().isEmpty()) {
        Nuevo();
        return;
    }
    ui.lbModo->setText(cambio_
                           ? u"Modifica %1 de %2"_s.arg(ui.txtIdArticulo->text(), ui.TxtIdCatalogo->text())
                           : u"Artículo nuevo"_s);
    for (QLineEdit *clave : {ui.TxtIdCatalogo, ui.txtIdArticulo}) clave->setEnabled(!cambio_);
    PonerModo(EnEdicion);
    QLineEdit *primero = cambio_ ? ui.TxtDescArticulos
                                 : (ui.TxtIdCatalogo->text().isEmpty() ? ui.TxtIdCatalogo : ui.txtIdArticulo);
    primero->setFocus();
    primero->selectAll();
}

void FrmCatArticulos::Nuevo() {
    const QString catalogo = modo_ == EnLista ? EnMano().idcatalogo : ui.TxtIdCatalogo->text();
    cambio_ = false;
    VaciarBloque();
    ui.TxtIdCatalogo->setText(catalogo);
    ui.txtIdArticulo->clear();
    PonerModo(EnEdicion);
    ui.lbModo->setText(u"Artículo nuevo"_s);
    for (QLineEdit *clave : {ui.TxtIdCatalogo, ui.txtIdArticulo}) clave->setEnabled(true);
    (catalogo.isEmpty() ? ui.TxtIdCatalogo : ui.txtIdArticulo)->setFocus();
}

void FrmCatArticulos::Editar(const ArticuloElegido &cual) {
    AppContext &ctx = Contexto();
    std::optional<FichaDeArticulo> ficha;
    if (!Manejar(ctx, [&] { ficha = BuscarArticuloSobreCat(ctx, cual.idcatalogo, cual.idarticulo); })) return;
    if (!ficha) {
        ctx.dialogos.advertir(
            u"El artículo %1 ya no está en el catálogo %2, otro puesto lo eliminó o lo movió."_s.arg(
                cual.idarticulo, cual.idcatalogo));
        if (modo_ == EnLista) CargarLista(cual);
        return;
    }
    cambio_ = true;
    ultimo_ = cual;
    Escribir(*ficha);
    MostrarVentajas();
    VerEdicion();
}

void FrmCatArticulos::VaciarBloque() {
    ClCntrl::VaciarTxt(ui.hojaEdicion, quedaElegido);
    for (const auto &[campo, descripcion] : codigosDeArticulo) (ui.*descripcion)->clear();
    ui.ckBiendeUso->setChecked(false);
    ui.lbResultado->clear();
    vinculadas_.clear();
    ventajas_.Cargar({}, -1);
}

void FrmCatArticulos::Escribir(const FichaDeArticulo &ficha) {
    AppContext &ctx = Contexto();
    ui.lbResultado->clear();
    for (const auto &[campo, miembro] : textosDeArticulo)
        campos::PonerTexto(ui.*campo, ficha.articulo.*miembro);
    campos::PonerTexto(ui.TxtUnitario, ficha.TxtUnitario);
    campos::PonerTexto(ui.txtKgUnitario, ficha.txtKgUnitario);
    ui.ckBiendeUso->setChecked(ficha.articulo.biendeuso == "S"_L1);
    for (const auto &[campo, descripcion] : codigosDeArticulo) MostrarDescripcion(ui.*campo, ui.*descripcion);
    QString texto;
    if (!ficha.articulo.ncm.isEmpty())
        Manejar(ctx, [&] { describirPosicion(ctx, ficha.articulo.ncm, texto); });
    campos::PonerTexto(ui.txtNCMDesc, texto);
}

FichaDeArticulo FrmCatArticulos::Leer() const {
    FichaDeArticulo ficha;
    for (const auto &[campo, miembro] : textosDeArticulo) ficha.articulo.*miembro = (ui.*campo)->text();
    ficha.articulo.biendeuso = campos::TextoDe(ui.ckBiendeUso);
    ficha.TxtUnitario = ui.TxtUnitario->text();
    ficha.txtKgUnitario = ui.txtKgUnitario->text();
    return ficha;
}

void FrmCatArticulos::MostrarVentajas() {
    AppContext &ctx = Contexto();
    const FichaDeArticulo ficha = Leer();
    const int actual = std::max(0, ventajas_.Actual());
    vinculadas_.clear();
    Manejar(ctx, [&] {
        vinculadas_ = CargarVentajasAsociadas(ctx, ficha.articulo.idcatalogo, ficha.articulo.idarticulo);
    });
    std::vector<QStringList> filas;
    filas.reserve(vinculadas_.size());
    for (const ClientBook::VentajaDeCatalogo &v : vinculadas_) filas.push_back({v.id, v.descripcion});
    ventajas_.Cargar(filas, actual);
}

bool FrmCatArticulos::Campo_KeyDown(QLineEdit *campo, const QKeyEvent *tecla) {
    if (tecla->key() == Qt::Key_F6) {
        Campo_F6(campo);
        return true;
    }
    if (!EsEnter(tecla)) return false;
    if (campo == ui.txtIdArticulo) txtIdArticulo_Enter();
    return campo == ui.TxtPosicion && !TxtPosicion_Enter();
}

bool FrmCatArticulos::TxtPosicion_Enter() {
    AppContext &ctx = Contexto();
    const QString posicion = ui.TxtPosicion->text().trimmed();
    if (posicion.isEmpty()) return true;
    bool esta = true;
    QString texto;
    Manejar(ctx, [&] { esta = describirPosicion(ctx, posicion, texto); });
    campos::PonerTexto(ui.txtNCMDesc, texto);
    if (!esta) ui.TxtPosicion->selectAll();
    return esta;
}

void FrmCatArticulos::txtIdArticulo_Enter() {
    AppContext &ctx = Contexto();
    ui.lbResultado->clear();
    if (cambio_) return;
    const ArticuloElegido clave{ui.TxtIdCatalogo->text().trimmed(), ui.txtIdArticulo->text().trimmed()};
    if (clave.idcatalogo.isEmpty() || clave.idarticulo.isEmpty()) return;
    Manejar(ctx, [&] {
        if (BuscarArticuloSobreCat(ctx, clave.idcatalogo, clave.idarticulo))
            ui.lbResultado->setText(u"%1 ya está en el catálogo %2: F9 para modificarlo"_s.arg(
                clave.idarticulo, clave.idcatalogo));
    });
}

void FrmCatArticulos::Campo_F6(const QLineEdit *campo) {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        if (campo == ui.TxtIdCatalogo) {
            if (const QString elegido = SeleccionarCatalogo(ctx); !elegido.isEmpty())
                ui.TxtIdCatalogo->setText(elegido);
            ui.TxtIdCatalogo->selectAll();
        } else if (campo == ui.txtIdArticulo) {
            const QString catalogo = ui.TxtIdCatalogo->text().trimmed();
            if (catalogo.isEmpty()) {
                ctx.dialogos.informar(u"Elija primero el catálogo."_s);
                ui.TxtIdCatalogo->setFocus();
                return;
            }
            const QString elegido = Pantalla<FrmbArticulos>().Elegir(catalogo);
            CerrarPantalla<FrmbArticulos>();
            if (!elegido.isEmpty()) Editar({catalogo, elegido});
        } else if (campo == ui.TxtPosicion) {
            // The search goes by the first key alone.
            constexpr int largoDeClave = 10;
            const QString elegida = ElegirPosicion(ui.TxtPosicion->text().left(largoDeClave));
            if (elegida.isEmpty()) return;
            ui.TxtPosicion->setText(elegida);
            TxtPosicion_Enter();
        } else if (campo == ui.txtSufijos) {
            FichaDeArticulo ficha = Leer();
            NormalizarArticulo(ficha.articulo);
            const Articulo &a = ficha.articulo;
            ui.txtSufijos->setText(ActuSufijos(
                ctx, a.ncm, a.sufijos, ctx.opciones.SbtNroArtAI ? a.idarticulo : QString(), a.descripcion));
        }
    });
}

void FrmCatArticulos::CmdGuardar_Click() {
    AppContext &ctx = Contexto();
    FichaDeArticulo ficha = Leer();
    Veredicto v;
    if (!Manejar(ctx, [&] { v = cambio_ ? Modificar(ctx, ficha) : AgregarArticuloEx(ctx, ficha); })) return;
    const Articulo &a = ficha.articulo;
    if (!v.ok) {
        ui.txtSufijos->setText(a.sufijos);
        IrA(v.foco);
        return;
    }
    sucia_ = true;
    ultimo_ = {a.idcatalogo, a.idarticulo};
    if (cambio_) {
        VerLista();
        return;
    }
    VaciarBloque();
    ui.TxtIdCatalogo->setText(a.idcatalogo);
    ui.txtIdArticulo->setText(a.idarticulo);
    ui.lbResultado->setText(u"Se agregó %1 al catálogo %2"_s.arg(a.idarticulo, a.idcatalogo));
    ui.txtIdArticulo->setFocus();
    ui.txtIdArticulo->selectAll();
}

void FrmCatArticulos::EliminarEnEdicion() {
    AppContext &ctx = Contexto();
    const FichaDeArticulo ficha = Leer();
    const QString articulo = cambio_ ? ficha.articulo.idarticulo : QString();
    Manejar(ctx, [&] {
        if (!EliminarArticulo(ctx, ficha.articulo.idcatalogo, articulo)) return;
        sucia_ = true;
        ultimo_ = {ficha.articulo.idcatalogo, {}};
        Nuevo();
        VerLista();
    });
}

void FrmCatArticulos::Vincular() {
    AppContext &ctx = Contexto();
    const FichaDeArticulo ficha = Leer();
    Manejar(ctx, [&] {
        if (AgregarVentaja(ctx, ficha.articulo.idcatalogo, ficha.articulo.idarticulo, cambio_))
            MostrarVentajas();
    });
}

void FrmCatArticulos::Quitar() {
    AppContext &ctx = Contexto();
    const int fila = ventajas_.Actual();
    if (fila < 0 || fila >= static_cast<int>(vinculadas_.size())) {
        ctx.dialogos.informar(u"Elija en la lista la ventaja que quiere quitar."_s);
        return;
    }
    const FichaDeArticulo ficha = Leer();
    const QString ventaja = vinculadas_[static_cast<std::size_t>(fila)].id;
    Manejar(ctx, [&] {
        if (EliminarVentajaAsociada(ctx, ficha.articulo.idcatalogo, ficha.articulo.idarticulo, ventaja))
            MostrarVentajas();
    });
}
