#include "desktop/MenuP.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <algorithm>
#include <array>

#include "desktop/FrmConfig.h"
#include "desktop/fin.h"
#include "frame/context.h"
#include "frame/startup.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/iconos.h"
#include "frame/ui/ventana.h"
#include "header/FrmClientes.h"
#include "operations/FrmExportarOperaciones.h"
#include "operations/FrmFormularios.h"
#include "operations/FrmImportarOperaciones.h"
#include "operations/FrmInternoNew.h"
#include "regulatory/frmActualizacion.h"
#include "stock/FrmStock.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmConsultas.h"

using namespace Qt::StringLiterals;

namespace {

struct EntradaDeMenu {
    const char16_t *rotulo;
    Dibujo dibujo;
    void (*accion)();  ///< null: its screen is not there yet
};

const std::array<EntradaDeMenu, 7> entradas{{
    {u"Operaciones", Dibujo::Operacion, [] { Pantalla<FrmInternoNew>().Mostrar(); }},
    {u"Clientes", Dibujo::Clientes, [] { Pantalla<FrmClientes>().Mostrar(); }},
    {u"Nomenclador", Dibujo::Nomenclador, [] { Pantalla<FrmConsultas>().Mostrar(); }},
    {u"Catálogos", Dibujo::Catalogos, [] { Pantalla<FrmCatArticulos>().Mostrar(); }},
    {u"Configuración", Dibujo::Configuracion, [] { Pantalla<FrmConfig>().Mostrar(); }},
    {u"Exportar Operaciones", Dibujo::Exportar,
     [] {
         Pantalla<FrmExportarOperaciones>().Mostrar();
         CerrarPantalla<FrmExportarOperaciones>();
     }},
    {u"Importar Operaciones", Dibujo::Importar,
     [] {
         Pantalla<FrmImportarOperaciones>().Mostrar();
         CerrarPantalla<FrmImportarOperaciones>();
     }},
}};

const std::array<EntradaDeMenu, 10> formularios{{
    {u"SENASA 19/02", Dibujo::Formulario, nullptr},
    {u"Boleta de Depósito", Dibujo::Formulario, nullptr},
    {u"Multinota", Dibujo::Formulario, nullptr},
    {u"OM-1993", Dibujo::Formulario, nullptr},
    {u"Minería", Dibujo::Formulario, nullptr},
    {u"Solicitud Particular", Dibujo::Formulario, nullptr},
    {u"Hoja de Valoración", Dibujo::Formulario, PedirHojaValoracion},
    {u"EDCADASSA - IMPO", Dibujo::Formulario, nullptr},
    {u"EDCADASSA - EXPO", Dibujo::Formulario, nullptr},
    {u"Certificados de Origen", Dibujo::Formulario, PedirCertificados},
}};

void ponerFila(QTableWidget *grilla, int fila, const EntradaDeMenu &entrada) {
    const QString rotulo = QString::fromUtf16(entrada.rotulo);
    auto *imagen = new QTableWidgetItem(IconoDe(entrada.dibujo), {});
    auto *texto = new QTableWidgetItem(rotulo);
    for (QTableWidgetItem *celda : {imagen, texto}) {
        const bool habilitada = entrada.accion != nullptr;
        celda->setFlags(habilitada ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
        if (!habilitada) celda->setToolTip(u"Falta en este programa: %1."_s.arg(rotulo));
    }
    grilla->setItem(fila, 0, imagen);
    grilla->setItem(fila, 1, texto);
}

/// ENTER and a click on a row do what it says; its rows begin at `primera`.
template <std::size_t N>
void vincularGrilla(QTableWidget *grilla, const std::array<EntradaDeMenu, N> &filas, int primera) {
    const auto hacer = [&filas, primera](int fila) {
        const auto cual = static_cast<std::size_t>(fila - primera);
        if (fila >= primera && cual < filas.size() && filas.at(cual).accion != nullptr)
            filas.at(cual).accion();
    };
    QObject::connect(grilla, &QTableWidget::cellClicked, grilla, hacer);
    EscucharTeclas(grilla, [grilla, hacer](const QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        hacer(grilla->currentRow());
        return true;
    });
    // One row in hand, where the keyboard is; another window in front changes nothing.
    Escuchar(grilla, [grilla](QEvent *evento) {
        if (evento->type() == QEvent::FocusIn) grilla->selectRow(grilla->currentRow());
        if (evento->type() == QEvent::FocusOut &&
            static_cast<QFocusEvent *>(evento)->reason() != Qt::ActiveWindowFocusReason)
            grilla->clearSelection();
        return false;
    });
}

/// A grid whose rows are all seen: as high as they are, as wide as the longest label.
void ajustar(QTableWidget *grilla, int filas) {
    grilla->setIconSize({24, 24});
    grilla->verticalHeader()->setDefaultSectionSize(qRound(grilla->fontMetrics().height() * 2.1));
    grilla->setColumnWidth(0, 40);
    grilla->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    grilla->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grilla->setMinimumSize(grilla->fontMetrics().averageCharWidth() * 46,
                           grilla->verticalHeader()->defaultSectionSize() * filas + 4);
}

}  // namespace

MenuP::MenuP() : ventana(std::make_unique<QWidget>()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void MenuP::Form_Load() {
    AppContext &ctx = Contexto();
    const int filasDeFormularios = static_cast<int>(formularios.size()) + 1;
    estilo::PrepararGrilla(ui.GrdMenuMain, {});
    ui.GrdMenuMain->setColumnCount(2);
    ui.GrdMenuMain->setRowCount(static_cast<int>(entradas.size()));
    int fila = 0;
    for (const EntradaDeMenu &e : entradas) ponerFila(ui.GrdMenuMain, fila++, e);
    ajustar(ui.GrdMenuMain, filasDeFormularios);
    ui.GrdMenuMain->setCurrentCell(0, 1);

    estilo::PrepararGrilla(ui.GridFormularios, {});
    ui.GridFormularios->setColumnCount(3);
    ui.GridFormularios->setColumnHidden(2, true);
    ui.GridFormularios->setRowCount(filasDeFormularios);
    auto *titulo = new QTableWidgetItem(u"Formularios"_s);
    titulo->setFlags(Qt::NoItemFlags);
    titulo->setForeground(estilo::acento());
    QFont negrita = ui.GridFormularios->font();
    negrita.setBold(true);
    titulo->setFont(negrita);
    ui.GridFormularios->setItem(0, 0, titulo);
    ui.GridFormularios->setSpan(0, 0, 1, 2);
    fila = 1;
    for (const EntradaDeMenu &e : formularios) ponerFila(ui.GridFormularios, fila++, e);
    ajustar(ui.GridFormularios, filasDeFormularios);
    const auto primera = std::find_if(formularios.begin(), formularios.end(),
                                      [](const EntradaDeMenu &e) { return e.accion != nullptr; });
    ui.GridFormularios->setCurrentCell(static_cast<int>(primera - formularios.begin()) + 1, 1,
                                       QItemSelectionModel::NoUpdate);

    ui.lbVersion->setText(TextoDeVersion());
    ui.lbFechaZendra->setText(TextoFechaZendra());
    Manejar(ctx, [&] { ui.lbNomenclador->setText(TextoNomenclador(ctx)); });
    Manejar(ctx, [&] { ui.lbFechaDatosLNAPI->setText(TextoFechaDatosLNAPI(ctx)); });
}

void MenuP::Conectar() {
    vincularGrilla(ui.GrdMenuMain, entradas, 0);
    // Behind the title.
    vincularGrilla(ui.GridFormularios, formularios, 1);
    QObject::connect(ui.comprobarActualizacion, &QPushButton::clicked, ventana.get(), [] {
        Pantalla<frmActualizacion>().Mostrar();
        CerrarPantalla<frmActualizacion>();
    });
    QObject::connect(ui.CmdStock, &QPushButton::clicked, ventana.get(),
                     [] { Pantalla<FrmStock>().Mostrar(); });
    EscucharTeclas(ventana.get(), [](QKeyEvent *tecla) {
        if (tecla->key() != Qt::Key_Escape) return false;
        TerminarPrograma();
        return true;
    });
}

void MenuP::TomarFoco() {
    ui.GrdMenuMain->setFocus();
}
