#include "operations/FrmImportarOperaciones.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QScopeGuard>
#include <algorithm>

#include "frame/files.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "operations/FrmIntercambioBarra.h"

using namespace Qt::StringLiterals;

namespace {

using intercambio::Decision;
using intercambio::Importada;

const QString tituloDeImportar = u"Importar Operaciones"_s;

enum ColumnaDeImportar {
    ImportarInterno,
    ImportarRegimen,
    ImportarCliente,
    ImportarLineas,
    ImportarItems,
    EnEsteStore,
    QueSeHace
};

/// How many characters each column is wide; the client takes the rest.
constexpr std::pair<int, int> anchosDeImportar[] = {{ImportarInterno, 24}, {ImportarRegimen, 11},
                                                    {ImportarLineas, 10},  {ImportarItems, 9},
                                                    {EnEsteStore, 14},     {QueSeHace, 40}};

QString textoDe(const intercambio::Plan &plan) {
    switch (plan.decision) {
        case Decision::Importar:
            return u"importar"_s;
        case Decision::Omitir:
            return u"omitir"_s;
        case Decision::Reemplazar:
            return u"reemplazar"_s;
        case Decision::OtraClave:
            break;
    }
    return u"nueva clave: "_s + plan.clave;
}

QString textoDelFin(const Importada &una) {
    switch (una.fin) {
        case Importada::Fin::Importada:
            return una.clave == una.destino ? u"importada"_s : u"importada como "_s + una.destino;
        case Importada::Fin::Reemplazada:
            return u"reemplazada"_s;
        case Importada::Fin::Omitida:
            return u"omitida"_s;
        case Importada::Fin::Fallida:
            return u"no se importó"_s;
        case Importada::Fin::SinHacer:
            break;
    }
    return u"sin importar"_s;
}

}  // namespace

FrmImportarOperaciones::FrmImportarOperaciones() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(ui.GrOperaciones, {u"Interno"_s, u"Régimen"_s, u"Cliente"_s, u"Líneas"_s,
                                              u"Items"_s, u"En este store"_s, u"Qué se hace"_s});
    const int letra = ui.GrOperaciones->fontMetrics().averageCharWidth();
    for (const auto &[columna, letras] : anchosDeImportar)
        ui.GrOperaciones->setColumnWidth(
            columna,
            std::max(letra * letras, ui.GrOperaciones->horizontalHeader()->sectionSizeHint(columna)));
    ui.GrOperaciones->horizontalHeader()->setSectionResizeMode(ImportarCliente, QHeaderView::Stretch);
    elegirArchivo = [this](const QString &carpeta) {
        return QFileDialog::getOpenFileName(ventana.get(), tituloDeImportar, carpeta,
                                            intercambio::filtroDeArchivos);
    };
    Conectar();
}

void FrmImportarOperaciones::Conectar() {
    QDialog *v = ventana.get();
    ClCntrl::Vincular(ui.TxtArchivo);
    EscucharTeclas(ui.TxtArchivo, [this](QKeyEvent *tecla) { return TxtArchivo_KeyDown(tecla); });
    EscucharTeclas(ui.GrOperaciones, [this](QKeyEvent *tecla) { return GrOperaciones_KeyDown(tecla); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) { return corriendo_ && evento->type() == QEvent::Close; });
    QObject::connect(ui.GrOperaciones, &QTableWidget::cellDoubleClicked, v, [this] { CambiarDecision(); });
    QObject::connect(ui.CmdElegir, &QPushButton::clicked, v, [this] { CmdElegir_Click(); });
    QObject::connect(ui.CmdOmitir, &QPushButton::clicked, v, [this] { Decidir(Decision::Omitir); });
    QObject::connect(ui.CmdReemplazar, &QPushButton::clicked, v, [this] { Decidir(Decision::Reemplazar); });
    QObject::connect(ui.CmdNuevaClave, &QPushButton::clicked, v, [this] { Decidir(Decision::OtraClave); });
    QObject::connect(ui.CmdImportar, &QPushButton::clicked, v, [this] { CmdImportar_Click(); });
    QObject::connect(ui.GrOperaciones, &QTableWidget::currentCellChanged, v, [this] {
        const Renglon *renglon = enMano();
        ui.CmdReemplazar->setEnabled(renglon != nullptr && renglon->existe);
    });
}

void FrmImportarOperaciones::Mostrar() {
    ui.TxtArchivo->setText(
        QDir::toNativeSeparators(CarpetaDeArchivos(Contexto(), intercambio::seccionDeAjustes)) +
        QDir::separator());
    Pintar();
    ui.TxtArchivo->setFocus();
    ventana->exec();
}

FrmImportarOperaciones::Renglon *FrmImportarOperaciones::enMano() {
    const int fila = ui.GrOperaciones->currentRow();
    return fila < 0 || static_cast<std::size_t>(fila) >= renglones_.size()
               ? nullptr
               : &renglones_.at(static_cast<std::size_t>(fila));
}

/// Reads the file from its beginning to its checksum, and asks the store for each of its keys.
void FrmImportarOperaciones::Leer() {
    AppContext &ctx = Contexto();
    renglones_.clear();
    archivo_ = intercambio::RutaDe(ctx, ui.TxtArchivo->text());
    const intercambio::ContenidoDeArchivo contenido = intercambio::Mirar(ctx, archivo_);
    const bool preguntadas = Manejar(ctx, [&] {
        for (const intercambio::OperacionEnArchivo &una : contenido.operaciones) {
            Renglon renglon{una, intercambio::HayEnElStore(ctx, una.clave), {}, {}};
            renglon.plan.decision = intercambio::DecisionesPosibles(renglon.existe).front();
            renglones_.push_back(renglon);
        }
    });
    // What was asked up to a failure is not the file.
    if (!preguntadas) renglones_.clear();
    Pintar();
    if (!preguntadas) return;
    if (!contenido.defecto.isEmpty()) {
        archivo_.clear();
        ctx.dialogos.critico(contenido.defecto, tituloDeImportar);
        ui.TxtArchivo->setFocus();
        ui.TxtArchivo->selectAll();
        return;
    }
    RecordarCarpeta(ctx, intercambio::seccionDeAjustes, archivo_);
    ui.GrOperaciones->setFocus();
}

void FrmImportarOperaciones::Pintar() {
    ui.GrOperaciones->setRowCount(static_cast<int>(renglones_.size()));
    for (int fila = 0; fila < ui.GrOperaciones->rowCount(); ++fila) PintarFila(fila);
    if (!renglones_.empty()) ui.GrOperaciones->setCurrentCell(0, ImportarInterno);
    for (QPushButton *boton : {ui.CmdOmitir, ui.CmdNuevaClave, ui.CmdImportar})
        boton->setEnabled(!renglones_.empty());
    ui.CmdReemplazar->setEnabled(!renglones_.empty() && renglones_.front().existe);
    if (renglones_.empty()) {
        ui.LbContenido->setText(u"Indique un archivo y pulse ENTER para ver qué tiene"_s);
        return;
    }
    const auto existen =
        std::count_if(renglones_.begin(), renglones_.end(), [](const Renglon &r) { return r.existe; });
    ui.LbContenido->setText((renglones_.size() == 1 ? u"%1 operación en el archivo, %2 ya en este store"_s
                                                    : u"%1 operaciones en el archivo, %2 ya en este store"_s)
                                .arg(renglones_.size())
                                .arg(existen));
}

void FrmImportarOperaciones::PintarFila(int fila) {
    const Renglon &renglon = renglones_.at(static_cast<std::size_t>(fila));
    QTableWidget *grilla = ui.GrOperaciones;
    estilo::PonerCelda(grilla, fila, ImportarInterno, renglon.operacion.clave);
    estilo::PonerCelda(grilla, fila, ImportarRegimen, renglon.operacion.subregimen);
    estilo::PonerCelda(grilla, fila, ImportarCliente, renglon.operacion.cliente);
    estilo::PonerCelda(grilla, fila, ImportarLineas, QString::number(renglon.operacion.lineas), true);
    estilo::PonerCelda(grilla, fila, ImportarItems, QString::number(renglon.operacion.items), true);
    estilo::PonerCelda(grilla, fila, EnEsteStore, renglon.existe ? u"ya existe"_s : u"nueva"_s);
    estilo::PonerCelda(grilla, fila, QueSeHace,
                       renglon.hecho.isEmpty() ? textoDe(renglon.plan) : renglon.hecho);
}

/// The key that the user gives to the operation; empty when another is to be thought of.
QString FrmImportarOperaciones::PedirClave(const Renglon &renglon) const {
    AppContext &ctx = Contexto();
    QStringList tomadas;
    for (const Renglon &otro : renglones_) {
        tomadas << otro.operacion.clave;
        if (&otro != &renglon && otro.plan.decision == Decision::OtraClave) tomadas << otro.plan.clave;
    }
    const auto escrita = ctx.dialogos.pedirTexto(
        {tituloDeImportar, u"Nueva clave para la operación "_s + renglon.operacion.clave, 40,
         intercambio::ClaveLibre(ctx, renglon.operacion.clave, tomadas)});
    if (!escrita) return {};
    QString clave = escrita->trimmed();
    const QString defecto = intercambio::DefectoDeOtraClave(ctx, clave, tomadas);
    if (defecto.isEmpty()) return clave;
    ctx.dialogos.advertir(defecto, tituloDeImportar);
    return {};
}

void FrmImportarOperaciones::Decidir(Decision decision) {
    Renglon *renglon = enMano();
    if (renglon == nullptr) return;
    Manejar(Contexto(), [&] {
        intercambio::Plan plan{decision, {}};
        if (decision == Decision::OtraClave) plan.clave = PedirClave(*renglon);
        if (decision == Decision::OtraClave && plan.clave.isEmpty()) return;
        renglon->plan = plan;
        renglon->hecho.clear();
        PintarFila(ui.GrOperaciones->currentRow());
    });
    ui.GrOperaciones->setFocus();
}

/// The next of what can be done with it; a new key is asked for by its button alone.
void FrmImportarOperaciones::CambiarDecision() {
    const Renglon *renglon = enMano();
    if (renglon == nullptr) return;
    const std::vector<Decision> &posibles = intercambio::DecisionesPosibles(renglon->existe);
    const auto actual = std::find(posibles.begin(), posibles.end(), renglon->plan.decision);
    auto sigue = actual == posibles.end() || actual + 1 == posibles.end() ? posibles.begin() : actual + 1;
    if (*sigue == Decision::OtraClave) sigue = posibles.begin();
    Decidir(*sigue);
}

bool FrmImportarOperaciones::TxtArchivo_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    Leer();
    return true;
}

bool FrmImportarOperaciones::GrOperaciones_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla) && tecla->key() != Qt::Key_Space) return false;
    CambiarDecision();
    return true;
}

bool FrmImportarOperaciones::Form_KeyDown(const QKeyEvent *tecla) {
    if (corriendo_) {
        if (tecla->key() == Qt::Key_Escape) {
            detener_ = true;
            ui.LbContenido->setText(u"Se detiene al terminar la operación que está en curso..."_s);
        }
        return true;
    }
    switch (tecla->key()) {
        case Qt::Key_F6:
            CmdElegir_Click();
            return true;
        case Qt::Key_F11:
            CmdImportar_Click();
            return true;
        case Qt::Key_Escape:
            ventana->reject();
            return true;
        default:
            return EsEnter(tecla);
    }
}

void FrmImportarOperaciones::CmdElegir_Click() {
    const QString elegido = elegirArchivo(CarpetaDeArchivos(Contexto(), intercambio::seccionDeAjustes));
    ui.TxtArchivo->setFocus();
    if (elegido.isEmpty()) return;
    ui.TxtArchivo->setText(QDir::toNativeSeparators(elegido));
    Leer();
}

void FrmImportarOperaciones::CmdImportar_Click() {
    AppContext &ctx = Contexto();
    if (renglones_.empty()) {
        ctx.dialogos.advertir(u"Indique un archivo y pulse ENTER para leerlo."_s, tituloDeImportar);
        ui.TxtArchivo->setFocus();
        return;
    }
    std::map<QString, intercambio::Plan> plan;
    for (const Renglon &renglon : renglones_) plan[renglon.operacion.clave] = renglon.plan;
    intercambio::Importacion r;
    {
        corriendo_ = true;
        detener_ = false;
        const auto quieta = qScopeGuard([this] { corriendo_ = false; });
        const BarraDeAvance barra(ctx, ventana.get());
        r = intercambio::Importar(ctx, archivo_, plan, [this] { return detener_; });
    }
    Contar(r);
    ui.GrOperaciones->setFocus();
}

/// What became of each, in the grid, and all of it in one message. What came in is there from now on: asked
/// to import again, it would be left out.
void FrmImportarOperaciones::Contar(const intercambio::Importacion &r) {
    AppContext &ctx = Contexto();
    if (!r.defecto.isEmpty()) {
        ctx.dialogos.critico(r.defecto, tituloDeImportar);
        return;
    }
    QStringList avisos{r.resumen()};
    for (std::size_t n = 0; n < renglones_.size() && n < r.operaciones.size(); ++n) {
        const Importada &una = r.operaciones[n];
        Renglon &renglon = renglones_[n];
        if (!una.aviso.isEmpty()) avisos << una.aviso;
        renglon.hecho = textoDelFin(una);
        const bool entro = una.fin == Importada::Fin::Importada || una.fin == Importada::Fin::Reemplazada;
        if (!entro && una.fin != Importada::Fin::Omitida) continue;
        renglon.existe =
            renglon.existe || (entro && una.destino.compare(una.clave, Qt::CaseInsensitive) == 0);
        renglon.plan = {Decision::Omitir};
    }
    Pintar();
    const QString texto = avisos.join(u"\r\n\r\n"_s);
    if (avisos.size() == 1)
        ctx.dialogos.informar(texto, tituloDeImportar);
    else
        ctx.dialogos.advertir(texto, tituloDeImportar);
}
