#include "subitems/FrmCatArticulos.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <array>

#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "regulatory/lnapireports.h"
#include "subitems/FrmBuscarArticulosPorPA.h"
#include "subitems/FrmCatArticulosBuscar.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char16_t *teclasDeLista =
    u"[ENTER] SELECCIONAR ARTICULO - [+] EXPANDIR - [-] CONTRAER - [F6] BUSCAR - [F9] VOLVER - [ESC] SALIR";
constexpr const char16_t *teclasDeEdicion =
    u"[F6] LISTADOS - [F9] LISTA DE ARTICULO - [F11] IMPRIMIR - [ESC] SALIR";

}  // namespace

const std::vector<FrmCatArticulos::Comando> &FrmCatArticulos::Comandos() {
    using F = FrmCatArticulos;
    constexpr auto solo = Qt::NoModifier;
    static const std::vector<Comando> todos{
        {EnAmbos, Menu::Articulo, Dibujo::Crear, u"&Agregar un artículo", u"Agregar", u"Insert",
         Qt::Key_Insert, solo, &F::Nuevo},
        {EnLista, Menu::Articulo, Dibujo::Formulario, u"&Modificar el artículo", u"Modificar", u"Mayús+Enter",
         Qt::Key_Return, Qt::ShiftModifier, &F::ModificarDeLista},
        {EnEdicion, Menu::Articulo, Dibujo::PasoHecho, u"&Guardar el artículo", nullptr, u"Alt+G", 0, solo,
         &F::CmdGuardar_Click},
        {EnLista, Menu::Articulo, Dibujo::Borrar, u"&Eliminar el artículo", u"Eliminar", u"Supr",
         Qt::Key_Delete, solo, &F::EliminarDeLista},
        {EnEdicion, Menu::Articulo, Dibujo::Borrar, u"&Eliminar el artículo", u"Eliminar", u"", 0, solo,
         &F::EliminarEnEdicion},
        {EnLista, Menu::Articulo, Dibujo::PasoPendiente, u"Marcar o &desmarcar", nullptr, u"Espacio", 0, solo,
         &F::AlternarMarca},
        {EnLista, Menu::Articulo, Dibujo::Copiar, u"&Cambiar de catálogo los artículos marcados",
         u"Cambiar catálogo", u"F7", Qt::Key_F7, solo, &F::CambiarCatalogo},
        {EnEdicion, Menu::Articulo, Dibujo::PasoHecho, u"&Vincular una ventaja", u"Vincular ventaja", u"F7",
         Qt::Key_F7, solo, &F::Vincular},
        {EnEdicion, Menu::Articulo, Dibujo::Borrar, u"&Quitar la ventaja", nullptr, u"Supr", 0, solo,
         &F::Quitar},
        {EnAmbos, Menu::Articulo, Dibujo::Imprimir, u"&Imprimir el catálogo", u"Imprimir", u"F11",
         Qt::Key_F11, solo, &F::Imprimir},
        {EnEdicion, Menu::Articulo, Dibujo::Catalogos, u"&Lista de artículos", u"Lista", u"F9", Qt::Key_F9,
         solo, &F::VerLista},
        {EnLista, Menu::Articulo, Dibujo::Formulario, u"&Volver al artículo", nullptr, u"F9", Qt::Key_F9,
         solo, &F::VerEdicion},
        {EnLista, Menu::Buscar, Dibujo::Buscar, u"Buscar en el &catálogo", u"Buscar", u"F6", Qt::Key_F6, solo,
         &F::BuscarEnCatalogo},
        {EnAmbos, Menu::Buscar, Dibujo::Buscar, u"Buscar en TODOS los catálogos por código de &artículo",
         u"En todos, por artículo", u"F3", Qt::Key_F3, solo, &F::BuscarPorArticulo},
        {EnAmbos, Menu::Buscar, Dibujo::Buscar, u"Buscar en TODOS los catálogos por &posición arancelaria",
         u"En todos, por posición", u"F4", Qt::Key_F4, solo, &F::BuscarPorPosicion},
        {EnAmbos, Menu::Licencias, Dibujo::Exportar, u"Reporte del &catálogo", nullptr, u"", 0, solo,
         &F::ReporteDelCatalogo},
        {EnAmbos, Menu::Licencias, Dibujo::Exportar, u"Reporte de un &artículo en todos los catálogos",
         nullptr, u"", 0, solo, &F::ReporteDeArticulo},
        {EnAmbos, Menu::Licencias, Dibujo::Exportar, u"Reporte de una &posición en todos los catálogos",
         nullptr, u"", 0, solo, &F::ReporteDePosicion},
        {EnAmbos, Menu::Licencias, Dibujo::Nomenclador, u"&Licencias de una posición", nullptr, u"", 0, solo,
         &F::LicenciasPorPosicion},
    };
    return todos;
}

FrmCatArticulos::FrmCatArticulos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    modelo_ = new ModeloDeCatalogos(
        [](const QString &idcatalogo) {
            AppContext &ctx = Contexto();
            std::optional<std::vector<ArticleStore::FilaDeArticulo>> articulos;
            Manejar(ctx, [&] { articulos = CargarArticulosbyCatalogo(ctx, idcatalogo); });
            return articulos;
        },
        ventana.get());
    ArmarMenus();
    ArmarLista();
    ArmarEdicion();
    Conectar();
}

void FrmCatArticulos::ArmarMenus() {
    const std::array<QMenu *, 3> menus{ui.barraDeMenu->addMenu(u"&Artículos"_s),
                                       ui.barraDeMenu->addMenu(u"&Buscar"_s),
                                       ui.barraDeMenu->addMenu(u"&Licencias"_s)};
    for (QToolBar *barra : {ui.TbLista, ui.TbEdicion})
        barra->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (const Comando &c : Comandos()) {
        const QString texto = QString::fromUtf16(c.texto);
        const QString tecla = QString::fromUtf16(c.tecla);
        auto *accion =
            new QAction(IconoDe(c.dibujo), tecla.isEmpty() ? texto : texto + u'\t' + tecla, ventana.get());
        QString ayuda = texto;
        ayuda.remove(u'&');
        accion->setToolTip(tecla.isEmpty() ? ayuda : ayuda + " ("_L1 + tecla + u')');
        QObject::connect(accion, &QAction::triggered, ventana.get(),
                         [this, hacer = c.hacer] { (this->*hacer)(); });
        menus.at(static_cast<std::size_t>(c.menu))->addAction(accion);
        acciones_.emplace_back(&c, accion);
        if (c.boton == nullptr) continue;
        accion->setIconText(QString::fromUtf16(c.boton));
        if ((c.modos & EnLista) != 0) ui.TbLista->addAction(accion);
        if ((c.modos & EnEdicion) != 0) ui.TbEdicion->addAction(accion);
    }
}

void FrmCatArticulos::Conectar() {
    EscucharTeclas(ui.TvArticulos, [this](QKeyEvent *tecla) { return TvArticulos_KeyDown(tecla); });
    EscucharTeclas(ventana.get(), [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

void FrmCatArticulos::Mostrar() {
    eligiendo_ = false;
    CargarLista(EnMano());
    if (modelo_->rowCount() == 0) {
        Nuevo();
        MostrarVentana(ventana.get());
        ui.TxtIdCatalogo->setFocus();
        return;
    }
    VerLista();
    MostrarVentana(ventana.get());
    ui.TvArticulos->setFocus();
}

std::optional<ArticuloElegido> FrmCatArticulos::Elegir(const QString &idcatalogo) {
    ventana->hide();
    eligiendo_ = true;
    elegido_.reset();
    CargarLista({idcatalogo, {}});
    if (!idcatalogo.isEmpty() && EnMano().idcatalogo.compare(idcatalogo, Qt::CaseInsensitive) == 0) {
        const QModelIndex catalogo = ui.TvArticulos->currentIndex();
        Expandir(catalogo);
        if (modelo_->rowCount(catalogo) > 0) ui.TvArticulos->setCurrentIndex(modelo_->index(0, 0, catalogo));
    }
    VerLista();
    ui.TvArticulos->setFocus();
    ventana->exec();
    return elegido_;
}

void FrmCatArticulos::PonerModo(Modo modo) {
    modo_ = modo;
    ui.hojas->setCurrentWidget(modo == EnLista ? ui.hojaLista : ui.hojaEdicion);
    for (const auto &[comando, accion] : acciones_) accion->setVisible((comando->modos & modo) != 0);
    ui.lbTeclas->setText(QString::fromUtf16(modo == EnLista ? teclasDeLista : teclasDeEdicion));
}

bool FrmCatArticulos::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() == Qt::Key_Escape) {
        Form_Unload();
        return true;
    }
    if (Comando_KeyDown(tecla)) return true;
    // Never the window's default button from a place that is no field.
    return EsEnter(tecla);
}

bool FrmCatArticulos::Comando_KeyDown(const QKeyEvent *tecla) {
    const auto con = tecla->modifiers() & ~Qt::KeypadModifier;
    const int codigo = tecla->key() == Qt::Key_Enter ? static_cast<int>(Qt::Key_Return) : tecla->key();
    for (const Comando &c : Comandos()) {
        if ((c.modos & modo_) == 0 || c.codigo == 0 || c.codigo != codigo || c.con != con) continue;
        (this->*c.hacer)();
        return true;
    }
    return false;
}

void FrmCatArticulos::Form_Unload() {
    if (eligiendo_)
        ventana->reject();
    else
        CerrarPantalla<FrmCatArticulos>();
}

void FrmCatArticulos::IrA(const QString &control) {
    campos::Enfocar(ventana.get(), control);
}

void FrmCatArticulos::Imprimir() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { ImprimirCatalogo(ctx, CatalogoEnMano()); });
}

QString FrmCatArticulos::CatalogoEnMano() const {
    return modo_ == EnLista ? EnMano().idcatalogo : ui.TxtIdCatalogo->text().trimmed();
}

void FrmCatArticulos::ReporteDelCatalogo() {
    AppContext &ctx = Contexto();
    const QString idcatalogo = CatalogoEnMano();
    if (idcatalogo.isEmpty()) {
        ctx.dialogos.advertir(u"Elija el catálogo del reporte."_s);
        return;
    }
    Manejar(ctx, [&] { ReporteCatalogo(ctx, idcatalogo); });
}

void FrmCatArticulos::ReporteDeArticulo() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        if (const auto valor = PreguntarBusqueda(ctx, BusquedaEnCatalogos::Articulo))
            ReporteArticulo(ctx, *valor);
    });
}

void FrmCatArticulos::ReporteDePosicion() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        if (const auto valor = PreguntarBusqueda(ctx, BusquedaEnCatalogos::Posicion))
            ReportePosicion(ctx, *valor);
    });
}

void FrmCatArticulos::LicenciasPorPosicion() {
    Pantalla<FrmBuscarArticulosPorPA>().Mostrar(modo_ == EnEdicion ? ui.TxtPosicion->text().trimmed()
                                                                   : QString());
    CerrarPantalla<FrmBuscarArticulosPorPA>();
}

void FrmCatArticulos::BuscarPorArticulo() {
    BuscarEnTodos(BusquedaEnCatalogos::Articulo);
}

void FrmCatArticulos::BuscarPorPosicion() {
    BuscarEnTodos(BusquedaEnCatalogos::Posicion);
}

void FrmCatArticulos::BuscarEnTodos(BusquedaEnCatalogos por) {
    const auto hallado = BuscarEnTodosLosCatalogos(por);
    if (!hallado) return;
    if (modo_ == EnEdicion) {
        Editar(*hallado);
        return;
    }
    // The list may be older than what was found.
    if (!Seleccionar(*hallado)) CargarLista(*hallado);
}

std::optional<ArticuloElegido> SeleccionarArticulo(const QString &idcatalogo) {
    // A screen that stands open to be kept gives way to the modal one.
    CerrarPantalla<FrmCatArticulos>();
    auto elegido = Pantalla<FrmCatArticulos>().Elegir(idcatalogo);
    CerrarPantalla<FrmCatArticulos>();
    return elegido;
}
