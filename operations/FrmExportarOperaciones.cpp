#include "operations/FrmExportarOperaciones.h"

#include <QDir>
#include <QHeaderView>
#include <QScopeGuard>
#include <algorithm>

#include "frame/files.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmClientes.h"
#include "operations/FrmIntercambioBarra.h"
#include "operations/exchange.h"

using namespace Qt::StringLiterals;

namespace {

const QString tituloDeExportar = u"Exportar Operaciones"_s;

enum ColumnaDeExportar {
    Marca,
    ExportarInterno,
    ExportarRegimen,
    ExportarCliente,
    ExportarFecha,
    ExportarEstado
};

/// How many characters each column is wide; the client takes the rest.
constexpr std::pair<int, int> anchosDeExportar[] = {
    {Marca, 6}, {ExportarInterno, 30}, {ExportarRegimen, 11}, {ExportarFecha, 17}, {ExportarEstado, 12}};

QString contadasMarcadas(qsizetype cuantas) {
    if (cuantas == 0) return u"Ninguna operación marcada"_s;
    return cuantas == 1 ? u"1 operación marcada"_s : u"%1 operaciones marcadas"_s.arg(cuantas);
}

}  // namespace

FrmExportarOperaciones::FrmExportarOperaciones() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(ui.GrOperaciones,
                           {u"Va"_s, u"Interno"_s, u"Régimen"_s, u"Cliente"_s, u"Fecha"_s, u"Estado"_s});
    const int letra = ui.GrOperaciones->fontMetrics().averageCharWidth();
    for (const auto &[columna, letras] : anchosDeExportar)
        ui.GrOperaciones->setColumnWidth(
            columna,
            std::max(letra * letras, ui.GrOperaciones->horizontalHeader()->sectionSizeHint(columna)));
    ui.GrOperaciones->horizontalHeader()->setSectionResizeMode(ExportarCliente, QHeaderView::Stretch);
    Conectar();
}

void FrmExportarOperaciones::Conectar() {
    QDialog *v = ventana.get();
    for (QLineEdit *campo : {ui.txtInterno, ui.txtCliente, ui.TxtArchivo}) ClCntrl::Vincular(campo);
    EscucharTeclas(ui.txtInterno, [this](QKeyEvent *tecla) { return Buscar_KeyDown(tecla); });
    EscucharTeclas(ui.txtCliente, [this](QKeyEvent *tecla) { return txtCliente_KeyDown(tecla); });
    EscucharTeclas(ui.GrOperaciones, [this](QKeyEvent *tecla) { return GrOperaciones_KeyDown(tecla); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) { return corriendo_ && evento->type() == QEvent::Close; });
    QObject::connect(ui.GrOperaciones, &QTableWidget::cellDoubleClicked, v,
                     [this](int fila) { Marcar(fila); });
    QObject::connect(ui.CmdMarcar, &QPushButton::clicked, v, [this] { CmdMarcar_Click(); });
    QObject::connect(ui.CmdElegir, &QPushButton::clicked, v, [this] { CmdElegir_Click(); });
    QObject::connect(ui.CmdExportar, &QPushButton::clicked, v, [this] { CmdExportar_Click(); });
}

void FrmExportarOperaciones::Mostrar() {
    Buscar();
    ProponerArchivo();
    ui.txtInterno->setFocus();
    ventana->exec();
}

void FrmExportarOperaciones::Buscar() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        FiltroDeInternos filtro;
        filtro.txtInterno = ui.txtInterno->text();
        filtro.txtCliente = ui.txtCliente->text();
        filas_ = LeerInternos(ctx, filtro);
        Pintar();
    });
}

void FrmExportarOperaciones::Pintar() {
    const int enMano = std::max(0, ui.GrOperaciones->currentRow());
    ui.GrOperaciones->setRowCount(static_cast<int>(filas_.size()));
    int fila = 0;
    for (const FilaDeInterno &una : filas_) {
        estilo::PonerCelda(ui.GrOperaciones, fila, Marca,
                           marcadas_.contains(una.Interno) ? u"✓"_s : QString());
        estilo::PonerCelda(ui.GrOperaciones, fila, ExportarInterno, una.Interno);
        estilo::PonerCelda(ui.GrOperaciones, fila, ExportarRegimen, una.SubRegimen);
        estilo::PonerCelda(ui.GrOperaciones, fila, ExportarCliente, una.Cliente);
        estilo::PonerCelda(ui.GrOperaciones, fila, ExportarFecha,
                           una.alta.isValid() ? una.alta.toString(u"dd/MM/yyyy"_s) : QString());
        estilo::PonerCelda(ui.GrOperaciones, fila++, ExportarEstado, una.estado);
    }
    if (fila > 0) ui.GrOperaciones->setCurrentCell(std::min(enMano, fila - 1), ExportarInterno);
    ui.LbMarcadas->setText(contadasMarcadas(marcadas_.size()));
    ui.CmdExportar->setEnabled(!marcadas_.isEmpty());
}

void FrmExportarOperaciones::Marcar(int fila) {
    if (fila < 0 || static_cast<std::size_t>(fila) >= filas_.size()) return;
    const QString &interno = filas_.at(static_cast<std::size_t>(fila)).Interno;
    if (!marcadas_.removeOne(interno)) marcadas_ << interno;
    ProponerArchivo();
    Pintar();
}

bool FrmExportarOperaciones::Buscar_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    Buscar();
    ui.GrOperaciones->setFocus();
    return true;
}

bool FrmExportarOperaciones::txtCliente_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_F6) return Buscar_KeyDown(tecla);
    QString cuit;
    QString nombre;
    if (SeleccionarCliente(cuit, nombre)) {
        ui.txtCliente->setText(cuit);
        ui.lbCliente->setText(nombre);
    }
    return true;
}

bool FrmExportarOperaciones::GrOperaciones_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla) && tecla->key() != Qt::Key_Space) return false;
    Marcar(ui.GrOperaciones->currentRow());
    // On to the next one: several are marked by holding the key.
    const int sigue = ui.GrOperaciones->currentRow() + 1;
    if (sigue < ui.GrOperaciones->rowCount()) ui.GrOperaciones->setCurrentCell(sigue, ExportarInterno);
    return true;
}

bool FrmExportarOperaciones::Form_KeyDown(const QKeyEvent *tecla) {
    if (corriendo_) return true;
    switch (tecla->key()) {
        case Qt::Key_F6:
            CmdElegir_Click();
            return true;
        case Qt::Key_F11:
            CmdExportar_Click();
            return true;
        case Qt::Key_Escape:
            ventana->reject();
            return true;
        default:
            // A button in hand is pressed by the space bar or by its letter; ENTER is of the fields.
            return EsEnter(tecla);
    }
}

/// All of those in the grid; when they are marked already, none of them.
void FrmExportarOperaciones::CmdMarcar_Click() {
    const bool todas = std::all_of(filas_.begin(), filas_.end(), [this](const FilaDeInterno &una) {
        return marcadas_.contains(una.Interno);
    });
    for (const FilaDeInterno &una : filas_) {
        marcadas_.removeOne(una.Interno);
        if (!todas) marcadas_ << una.Interno;
    }
    ProponerArchivo();
    Pintar();
    ui.GrOperaciones->setFocus();
}

/// A name that tells what is in it, as long as nobody wrote another.
void FrmExportarOperaciones::ProponerArchivo() {
    const AppContext &ctx = Contexto();
    if (ui.TxtArchivo->text() != propuesto_) return;
    const QString nombre = marcadas_.size() == 1 ? NombreSeguro(marcadas_.front()) : u"operaciones"_s;
    propuesto_ = QDir::toNativeSeparators(QDir(CarpetaDeArchivos(ctx, intercambio::seccionDeAjustes))
                                              .filePath(nombre + u'.' + intercambio::finDeNombre));
    ui.TxtArchivo->setText(propuesto_);
}

QString FrmExportarOperaciones::archivo() const {
    return intercambio::RutaDe(Contexto(), ui.TxtArchivo->text());
}

void FrmExportarOperaciones::CmdElegir_Click() {
    const AppContext &ctx = Contexto();
    const QString elegido =
        ctx.dialogos.guardarComo({tituloDeExportar, archivo(), intercambio::filtroDeArchivos});
    if (!elegido.isEmpty()) ui.TxtArchivo->setText(QDir::toNativeSeparators(elegido));
    ui.TxtArchivo->setFocus();
}

void FrmExportarOperaciones::CmdExportar_Click() {
    AppContext &ctx = Contexto();
    const QString destino = archivo();
    if (marcadas_.isEmpty()) {
        ctx.dialogos.advertir(u"Marque al menos una operación con la barra espaciadora."_s, tituloDeExportar);
        ui.GrOperaciones->setFocus();
        return;
    }
    if (destino.isEmpty()) {
        ctx.dialogos.advertir(u"Indique el archivo donde se exporta."_s, tituloDeExportar);
        ui.TxtArchivo->setFocus();
        return;
    }
    if (!PuedeReemplazarse(ctx, destino, tituloDeExportar)) {
        ui.TxtArchivo->setFocus();
        return;
    }
    intercambio::Exportacion r;
    {
        corriendo_ = true;
        const auto quieta = qScopeGuard([this] { corriendo_ = false; });
        const BarraDeAvance barra(ctx, ventana.get());
        r = intercambio::Exportar(ctx, marcadas_, destino);
    }
    if (!r.hecho) {
        ctx.dialogos.critico(r.aviso, tituloDeExportar);
        ui.TxtArchivo->setFocus();
        return;
    }
    RecordarCarpeta(ctx, intercambio::seccionDeAjustes, r.archivo);
    ctx.dialogos.informar(r.aviso, tituloDeExportar);
    marcadas_.clear();
    Pintar();
    ui.GrOperaciones->setFocus();
}
