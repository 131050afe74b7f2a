#include "operations/FrmInternoNew.h"

#include <QActionGroup>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <map>
#include <tuple>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/iconos.h"
#include "frame/ui/ventana.h"
#include "header/FrmClientes.h"
#include "header/FrmListadoDespachante.h"
#include "operations/FrmAbrir.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmInternoNewFila.h"
#include "operations/browserlist.h"
#include "operations/lifecycle.h"

using namespace Qt::StringLiterals;

namespace {

/// Milliseconds without a key before what a row was handed over as is compared.
constexpr int descansoDelTeclado = 150;

/// Columns of the grid; the last is the second line under the row.
enum Columna { flag, Interno, SubRegimen, Despachante, Cliente, Vendedor, Transferida };

const QStringList &titulos() {
    static const QStringList textos{{},           u"Interno"_s,  u"SubRegimen"_s, u"Despachante"_s,
                                    u"Cliente"_s, u"Vendedor"_s, u"Transferida"_s};
    return textos;
}

Dibujo dibujoDe(const QString &tipo) {
    if (tipo == "Importacion"_L1) return Dibujo::Importar;
    return tipo == "Exportacion"_L1 ? Dibujo::Exportar : Dibujo::Otros;
}

QList<QStandardItem *> celdasDe(const FilaDeInterno &fila, const QIcon &icono) {
    auto *imagen = new QStandardItem(icono, {});
    imagen->setData(fila.detalle, rolDetalle);
    imagen->setData(fila.Interno, rolInterno);
    imagen->setToolTip(fila.tipo);
    QList<QStandardItem *> celdas{imagen};
    for (const QString *texto :
         {&fila.Interno, &fila.SubRegimen, &fila.Despachante, &fila.Cliente, &fila.Vendedor})
        celdas << new QStandardItem(*texto);
    celdas << new QStandardItem;
    return celdas;
}

}  // namespace

FrmInternoNew::FrmInternoNew() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ArmarMenu();
    Form_Load();
    Conectar();
}

void FrmInternoNew::Form_Load() {
    AppContext &ctx = Contexto();
    descanso_ = new QTimer(ventana.get());
    descanso_->setSingleShot(true);
    for (const AgrupacionDeInternos &a : AgrupacionesDeInternos()) ui.cboAgruparPor->addItem(a.rotulo);
    const auto [desde, hasta] = PeriodoInicial(QDate::currentDate());
    ui.DTP_Desde->setDate(desde);
    ui.DTP_Hasta->setDate(hasta);
    ui.txtInterno->setText(ctx.ajustes.Leer(u"ZENDRA"_s, u"APLICACION"_s, u"INTERNO_NRO"_s));
    ui.lstInterno->setModel(&modelo_);
    ui.lstInterno->setItemDelegate(new FilaConDetalle(ui.lstInterno));
    ui.lstInterno->setUniformRowHeights(false);
    ui.lstInterno->setAllColumnsShowFocus(true);
    ui.lstInterno->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ui.lstInterno->setContextMenuPolicy(Qt::CustomContextMenu);
    ui.lstInterno->setIconSize({20, 20});
    ui.lstInterno->setIndentation(ui.lstInterno->fontMetrics().height());
    ui.lstInterno->setExpandsOnDoubleClick(false);
    Agrupar();
}

void FrmInternoNew::ArmarMenu() {
    botonCrear = ui.TbMenu->addAction(IconoDe(Dibujo::Crear), u"Crear"_s);
    botonCopiar = ui.TbMenu->addAction(IconoDe(Dibujo::Copiar), u"Copiar"_s);
    botonEliminar = ui.TbMenu->addAction(IconoDe(Dibujo::Borrar), u"Eliminar"_s);
    botonListar = ui.TbMenu->addAction(IconoDe(Dibujo::Formulario), u"Listar"_s);
    ui.TbMenu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    botonCrear->setToolTip(u"Crear una operación (Insert)"_s);
    botonCopiar->setToolTip(u"Copiar la operación elegida (F6)"_s);
    botonEliminar->setToolTip(u"Eliminar la operación elegida (Supr)"_s);
    botonListar->setToolTip(u"Ver en papel las operaciones de la grilla (F12)"_s);
    popup = std::make_unique<QMenu>();
    MnuInsertar = popup->addAction(u"I&nsertar\tInsert"_s);
    MnuVer = popup->addAction(u"&Ver\tENTER"_s);
    MnuEliminar = popup->addAction(u"&Eliminar\tSupr"_s);
    MnuListar = popup->addAction(u"&Listar\tF12"_s);
    MnuListarTransferidas = popup->addAction(u"L&istar transferidas\tF11"_s);
    popup->addSeparator();
    auto *cuales = new QActionGroup(popup.get());
    const std::tuple<QAction **, QString, Transferencias> filtros[] = {
        {&MnuTodo, u"&Todo"_s, Transferencias::Todo},
        {&MnuPendientes, u"&Pendientes"_s, Transferencias::Pendientes},
        {&MnuTransferidos, u"T&ransferidos"_s, Transferencias::Transferidos}};
    for (const auto &[donde, texto, transferencias] : filtros) {
        QAction *accion = popup->addAction(texto);
        accion->setCheckable(true);
        cuales->addAction(accion);
        QObject::connect(accion, &QAction::triggered, ventana.get(),
                         [this, elegida = transferencias] { Elegir(elegida); });
        *donde = accion;
    }
    MnuTodo->setChecked(true);
}

void FrmInternoNew::Conectar() {
    QWidget *v = ventana.get();
    // A field's own keys first: the helper would take ENTER for TAB. The filter bound last hears first.
    for (QLineEdit *campo : {ui.txtInterno, ui.txtCliente, ui.txtDespachante}) ClCntrl::Vincular(campo);
    EscucharTeclas(ui.txtInterno, [this](QKeyEvent *tecla) { return txtInterno_KeyDown(tecla); });
    EscucharTeclas(ui.txtCliente, [this](QKeyEvent *tecla) {
        return filtro_KeyDown(ui.txtCliente, ui.lbCliente, tecla, [this] { SeleccionarCliente(); });
    });
    EscucharTeclas(ui.txtDespachante, [this](QKeyEvent *tecla) {
        return filtro_KeyDown(ui.txtDespachante, ui.lbDespachante, tecla, [this] { BuscarDespachante(); });
    });
    EscucharTeclas(ui.lstInterno, [this](QKeyEvent *tecla) { return lstInterno_KeyDown(tecla); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    QObject::connect(ui.cboAgruparPor, &QComboBox::currentIndexChanged, v, [this] { Agrupar(); });
    QObject::connect(ui.lstInterno, &QTreeView::doubleClicked, v, [this] { Ver(); });
    QObject::connect(ui.lstInterno, &QWidget::customContextMenuRequested, v, [this](const QPoint &punto) {
        popup->popup(ui.lstInterno->viewport()->mapToGlobal(punto));
    });
    for (QAction *accion : {botonCrear, MnuInsertar})
        QObject::connect(accion, &QAction::triggered, v, [this] { Crear(); });
    for (QAction *accion : {botonEliminar, MnuEliminar})
        QObject::connect(accion, &QAction::triggered, v, [this] { Eliminar(); });
    for (QAction *accion : {botonListar, MnuListar})
        QObject::connect(accion, &QAction::triggered, v, [this] { Listar(); });
    QObject::connect(MnuListarTransferidas, &QAction::triggered, v, [this] { lp_ImprimirList(); });
    QObject::connect(botonCopiar, &QAction::triggered, v, [this] { Copiar(); });
    QObject::connect(MnuVer, &QAction::triggered, v, [this] { Ver(); });
    QObject::connect(descanso_, &QTimer::timeout, v, [this] { CompararLaSiguiente(); });
    QObject::connect(ui.lstInterno->verticalScrollBar(), &QScrollBar::valueChanged, v,
                     [this] { descanso_->start(descansoDelTeclado); });
}

void FrmInternoNew::Mostrar() {
    MostrarVentana(ventana.get());
    ui.txtInterno->setFocus();
    // An office that has all its operations shown sees them at once.
    if (Contexto().opciones.OperacionesMostrarTODO) BuscarInternos();
}

FiltroDeInternos FrmInternoNew::LeerFiltro() const {
    return {ui.txtInterno->text(),
            ui.txtCliente->text(),
            ui.txtDespachante->text(),
            ui.chkFiltroFecha->isChecked(),
            ui.DTP_Desde->date(),
            ui.DTP_Hasta->date(),
            false,
            transferencias_};
}

void FrmInternoNew::BuscarInternos() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        filtro_ = LeerFiltro();
        filas_ = ::BuscarInternos(ctx, filtro_);
        comparadas_.clear();
        Agrupar();
    });
}

const AgrupacionDeInternos &FrmInternoNew::AgrupadoPor() const {
    return AgrupacionesDeInternos()[static_cast<std::size_t>(std::max(0, ui.cboAgruparPor->currentIndex()))];
}

void FrmInternoNew::Agrupar() {
    const QString tenia = InternoSeleccionado();
    modelo_.clear();
    modelo_.setHorizontalHeaderLabels(titulos());
    const AgrupacionDeInternos &por = AgrupadoPor();
    std::map<QString, QIcon> iconos;
    std::map<QString, QStandardItem *> grupos;
    for (const FilaDeInterno &fila : filas_) {
        auto &icono = iconos[fila.tipo];
        if (icono.isNull()) icono = IconoDe(dibujoDe(fila.tipo));
        const auto celdas = celdasDe(fila, icono);
        if (por.campo == nullptr) {
            modelo_.appendRow(celdas);
            PintarEntrega(celdas.first()->index(), fila);
            continue;
        }
        QStandardItem *&grupo = grupos[fila.*por.campo];
        if (grupo == nullptr) {
            grupo = new QStandardItem(GrupoDe(fila, por));
            grupo->setData(true, rolGrupo);
            modelo_.appendRow(grupo);
        }
        grupo->appendRow(celdas);
        PintarEntrega(celdas.first()->index(), fila);
    }
    if (por.campo != nullptr) modelo_.sort(0);
    for (int fila = 0; por.campo != nullptr && fila < modelo_.rowCount(); ++fila)
        ui.lstInterno->setFirstColumnSpanned(fila, {}, true);
    ui.lstInterno->setRootIsDecorated(por.campo != nullptr);
    ui.lstInterno->expandAll();
    constexpr int anchos[] = {4, 18, 11, 22, 26, 20};
    const int letra = ui.lstInterno->fontMetrics().averageCharWidth();
    for (int c = flag; c < Columna::Transferida; ++c) {
        const int sangria = c == flag && por.campo != nullptr ? 2 * ui.lstInterno->indentation() : 16;
        const int rotulo = ui.lstInterno->header()->sectionSizeHint(c);
        ui.lstInterno->setColumnWidth(c, std::max(letra * anchos[c] + sangria, rotulo));
    }
    if (!Seleccionar(tenia)) ui.lstInterno->setCurrentIndex(primeraOperacion(modelo_));
    descanso_->start(descansoDelTeclado);
}

QString FrmInternoNew::InternoSeleccionado() const {
    const QModelIndex actual = ui.lstInterno->currentIndex();
    return actual.isValid() ? actual.siblingAtColumn(flag).data(rolInterno).toString() : QString();
}

bool FrmInternoNew::Seleccionar(const QString &interno) {
    if (interno.isEmpty() || modelo_.rowCount() == 0) return false;
    const auto hallados = modelo_.match(modelo_.index(0, flag), rolInterno, interno, 1,
                                        Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
    if (hallados.isEmpty()) return false;
    ui.lstInterno->setCurrentIndex(hallados.first());
    return true;
}

bool FrmInternoNew::Form_KeyDown(const QKeyEvent *tecla) {
    switch (tecla->key()) {
        case Qt::Key_Escape:
            CerrarPantalla<FrmInternoNew>();
            return true;
        case Qt::Key_Insert:
            Crear();
            return true;
        case Qt::Key_F11:
            lp_ImprimirList();
            return true;
        case Qt::Key_F12:
            Listar();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // No button of this screen answers to it.
            return true;
        default:
            return false;
    }
}

bool FrmInternoNew::lstInterno_KeyDown(const QKeyEvent *tecla) {
    descanso_->start(descansoDelTeclado);
    if (tecla->key() == Qt::Key_Menu || tecla->key() == Qt::Key_F10)
        MostrarPopup();
    else if (EsEnter(tecla))
        Ver();
    else if (tecla->key() == Qt::Key_F6)
        Copiar();
    else if (tecla->key() == Qt::Key_Delete)
        Eliminar();
    else
        return false;
    return true;
}

bool FrmInternoNew::txtInterno_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    BuscarInternos();
    ui.lstInterno->setFocus();
    return true;
}

bool FrmInternoNew::filtro_KeyDown(QLineEdit *campo, QLabel *nombre, const QKeyEvent *tecla,
                                   const std::function<void()> &listar) {
    if (tecla->key() == Qt::Key_F6) {
        listar();
        return true;
    }
    if (tecla->key() != Qt::Key_Delete) return false;
    campo->clear();
    nombre->clear();
    return true;
}

void FrmInternoNew::SeleccionarCliente() {
    QString cuit;
    QString nombre;
    if (!::SeleccionarCliente(cuit, nombre)) return;
    ui.txtCliente->setText(cuit);
    ui.lbCliente->setText(nombre);
}

void FrmInternoNew::BuscarDespachante() {
    QString cuit;
    QString nombre;
    if (!ListarDespachantes(cuit, nombre)) return;
    ui.txtDespachante->setText(cuit);
    ui.lbDespachante->setText(nombre);
}

void FrmInternoNew::Crear() {
    const QString clave = NuevoInterno(Contexto());
    if (clave.isEmpty()) return;
    ui.txtInterno->setText(clave);
    BuscarInternos();
    ui.lstInterno->setFocus();
}

void FrmInternoNew::Copiar() {
    const QString interno = InternoSeleccionado();
    if (interno.isEmpty()) return;
    const QString copia = CopiarInterno(Contexto(), interno);
    if (copia.isEmpty()) return;
    BuscarInternos();
    Seleccionar(copia);
}

void FrmInternoNew::Eliminar() {
    AppContext &ctx = Contexto();
    const QString interno = InternoSeleccionado();
    if (interno.isEmpty()) return;
    const auto anterior = ctx.dialogos.avance;
    ctx.dialogos.avance = [this, anterior](const Avance &avance) {
        anterior(avance);
        if (avance.tipo != Avance::Tipo::Barra) return;
        ui.Pb->setMaximum(avance.maximo);
        ui.Pb->setValue(avance.valor);
        ui.Pb->setVisible(true);
        ui.Pb->repaint();
    };
    const bool eliminado = EliminarInterno(ctx, interno);
    ctx.dialogos.avance = anterior;
    ui.Pb->setVisible(false);
    if (!eliminado) return;
    std::erase_if(filas_, [&interno](const FilaDeInterno &fila) { return fila.Interno == interno; });
    const QModelIndex actual = ui.lstInterno->currentIndex();
    const QModelIndex grupo = actual.parent();
    modelo_.removeRow(actual.row(), grupo);
    if (grupo.isValid() && modelo_.rowCount(grupo) == 0) modelo_.removeRow(grupo.row());
}

void FrmInternoNew::Ver() {
    const QString interno = InternoSeleccionado();
    if (interno.trimmed().isEmpty()) return;
    AbrirInterno(interno);
    if (!PantallaAbierta<FrmDetalleInterno>()) return;
    // What was keyed there is to be seen here.
    Pantalla<FrmDetalleInterno>().alCerrar = [] {
        if (PantallaAbierta<FrmInternoNew>()) Pantalla<FrmInternoNew>().BuscarInternos();
    };
}
