#include "desktop/MenuP.h"

#include <QHeaderView>
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

const std::array<const char16_t *, 10> formularios{
    u"SENASA 19/02",     u"Boleta de Depósito",    u"Multinota",          u"OM-1993",
    u"Minería",          u"Solicitud Particular",  u"Hoja de Valoración", u"EDCADASSA - IMPO",
    u"EDCADASSA - EXPO", u"Certificados de Origen"};

void ponerFila(QTableWidget *grilla, int fila, const QString &rotulo, Dibujo dibujo, bool habilitada) {
    auto *imagen = new QTableWidgetItem(IconoDe(dibujo), {});
    auto *texto = new QTableWidgetItem(rotulo);
    for (QTableWidgetItem *celda : {imagen, texto})
        celda->setFlags(habilitada ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
    grilla->setItem(fila, 0, imagen);
    grilla->setItem(fila, 1, texto);
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
    for (const EntradaDeMenu &e : entradas)
        ponerFila(ui.GrdMenuMain, fila++, QString::fromUtf16(e.rotulo), e.dibujo, e.accion != nullptr);
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
    for (const char16_t *rotulo : formularios)
        ponerFila(ui.GridFormularios, fila++, QString::fromUtf16(rotulo), Dibujo::Formulario, false);
    ajustar(ui.GridFormularios, filasDeFormularios);

    ui.lbVersion->setText(TextoDeVersion());
    ui.lbFechaZendra->setText(TextoFechaZendra());
    Manejar(ctx, [&] { ui.lbNomenclador->setText(TextoNomenclador(ctx)); });
    Manejar(ctx, [&] { ui.lbFechaDatosLNAPI->setText(TextoFechaDatosLNAPI(ctx)); });
}

void MenuP::Conectar() {
    QObject::connect(ui.GrdMenuMain, &QTableWidget::cellClicked, ventana.get(),
                     [this](int fila) { GrdMenuMain_Click(fila); });
    EscucharTeclas(ui.GrdMenuMain, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        GrdMenuMain_Click(ui.GrdMenuMain->currentRow());
        return true;
    });
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

void MenuP::GrdMenuMain_Click(int fila) {
    if (fila < 0 || fila >= static_cast<int>(entradas.size())) return;
    const EntradaDeMenu &entrada = entradas.at(static_cast<std::size_t>(fila));
    if (entrada.accion != nullptr) entrada.accion();
}
