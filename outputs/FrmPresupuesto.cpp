#include "outputs/FrmPresupuesto.h"

#include <QHeaderView>
#include <algorithm>
#include <array>
#include <utility>

#include "frame/entities.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmLstDiv.h"
#include "outputs/FrmConceptos.h"
#include "outputs/FrmCorreo.h"
#include "outputs/FrmDatos.h"
#include "outputs/FrmReferencias.h"

using namespace Qt::StringLiterals;

namespace {

using FormaDelPresupuesto = Ui::FrmPresupuesto;

/// Each label and what it shows.
constexpr std::array<std::pair<QLabel * FormaDelPresupuesto::*, QString Presupuesto::*>, 14>
    etiquetasDelPresupuesto{{
        {&FormaDelPresupuesto::LbInterno, &Presupuesto::interno},
        {&FormaDelPresupuesto::LbCliente, &Presupuesto::LbCliente},
        {&FormaDelPresupuesto::LbCLIDOM, &Presupuesto::LbCLIDOM},
        {&FormaDelPresupuesto::LbDespachante, &Presupuesto::LbDespachante},
        {&FormaDelPresupuesto::LbFOB, &Presupuesto::LbFOB},
        {&FormaDelPresupuesto::LbFlete, &Presupuesto::LbFlete},
        {&FormaDelPresupuesto::LbSeguro, &Presupuesto::LbSeguro},
        {&FormaDelPresupuesto::LbAjInc, &Presupuesto::LbAjInc},
        {&FormaDelPresupuesto::LbAjDed, &Presupuesto::LbAjDed},
        {&FormaDelPresupuesto::LbPaseFob, &Presupuesto::LbPaseFob},
        {&FormaDelPresupuesto::LbPaseFlete, &Presupuesto::LbPaseFlete},
        {&FormaDelPresupuesto::LbPaseSeguro, &Presupuesto::LbPaseSeguro},
        {&FormaDelPresupuesto::LbBaseImp, &Presupuesto::LbBaseImp},
        {&FormaDelPresupuesto::LbBaseIVA, &Presupuesto::LbBaseIVA},
    }};

enum ColumnaDeGastos { GastoConcepto, GastoPGC, GastoPeso, GastoDolar };
enum ColumnaDeOperativos { OperativoConcepto, OperativoPesos, OperativoDolar };
enum ColumnaDeReferencias { ReferenciaNombre, ReferenciaValor };

constexpr int maximoDeLineas = 20;  ///< blank lines ahead of the page that are offered
constexpr int aireDeCelda = 16;     ///< pixels, at both sides of a cell's text

/// The first column takes what the others leave.
void prepararColumnas(QTableWidget *grilla, std::initializer_list<int> importes) {
    grilla->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int columna : importes)
        grilla->horizontalHeaderItem(columna)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

/// A column of amounts is as wide as the widest of them or of their sums, which stand under it.
void ajustarImportes(QTableWidget *grilla, int columna, std::initializer_list<QLabel *> sumas) {
    grilla->resizeColumnToContents(columna);
    int ancho = grilla->columnWidth(columna);
    for (const QLabel *suma : sumas) {
        suma->ensurePolished();
        ancho = std::max(ancho, suma->fontMetrics().horizontalAdvance(suma->text()) + aireDeCelda);
    }
    grilla->setColumnWidth(columna, ancho);
    for (QLabel *suma : sumas) suma->setMinimumWidth(ancho);
}

/// The row in hand, by its number; one beyond every row for none.
std::size_t filaDe(const QTableWidget *grilla) {
    return static_cast<std::size_t>(grilla->currentRow());
}

void elegirFila(QTableWidget *grilla, int fila) {
    if (fila >= 0 && fila < grilla->rowCount()) grilla->setCurrentCell(fila, 0);
}

}  // namespace

FrmPresupuesto::FrmPresupuesto() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Preparar();
    Conectar();
}

void FrmPresupuesto::Preparar() {
    estilo::PrepararGrilla(ui.GrdLiq, {u"Concepto"_s, u"PGC"_s, u"Peso"_s, u"Dolar"_s});
    estilo::PrepararGrilla(ui.Grd, {u"Concepto"_s, u"Pesos"_s, u"Dolar"_s});
    estilo::PrepararGrilla(ui.Grd2, {u"Referencia"_s, u"Valor"_s});
    prepararColumnas(ui.GrdLiq, {GastoPeso, GastoDolar});
    ui.GrdLiq->horizontalHeader()->setSectionResizeMode(GastoPGC, QHeaderView::ResizeToContents);
    prepararColumnas(ui.Grd, {OperativoPesos, OperativoDolar});
    ui.Grd2->horizontalHeader()->setSectionResizeMode(ReferenciaNombre, QHeaderView::ResizeToContents);
    ui.Grd2->horizontalHeader()->setSectionResizeMode(ReferenciaValor, QHeaderView::Stretch);
    for (int n = 0; n <= maximoDeLineas; ++n) ui.CbLineas->addItem(QString::number(n));
}

void FrmPresupuesto::Conectar() {
    QDialog *v = ventana.get();
    for (QWidget *campo : {static_cast<QWidget *>(ui.TxtEmail), static_cast<QWidget *>(ui.TxtPase),
                           static_cast<QWidget *>(ui.txtAcuenta), static_cast<QWidget *>(ui.opSMTP),
                           static_cast<QWidget *>(ui.opOutLook), static_cast<QWidget *>(ui.CbLineas)})
        ClCntrl::Vincular(campo);
    for (QLineEdit *campo : {ui.TxtPase, ui.txtAcuenta})
        QObject::connect(campo, &QLineEdit::editingFinished, v, [this] { Leer(); });
    QObject::connect(ui.opOutLook, &QRadioButton::toggled, v,
                     [this](bool elegido) { p_.porOutlook = elegido; });
    QObject::connect(ui.CbLineas, &QComboBox::activated, v, [this](int lineas) {
        p_.lineasEnBlanco = lineas;
        GuardarLineas(Contexto(), lineas);
    });
    const std::pair<QTableWidget *, bool (FrmPresupuesto::*)(const QKeyEvent *)> grillas[] = {
        {ui.GrdLiq, &FrmPresupuesto::GrdLiq_KeyDown},
        {ui.Grd, &FrmPresupuesto::Grd_KeyDown},
        {ui.Grd2, &FrmPresupuesto::Grd2_KeyDown}};
    for (const auto &[grilla, alTeclear] : grillas)
        EscucharTeclas(grilla, [this, hacer = alTeclear](QKeyEvent *tecla) { return (this->*hacer)(tecla); });
    QObject::connect(ui.GrdLiq, &QTableWidget::cellDoubleClicked, v, [this] { GrdLiq_Enter(); });
    // An empty grid is clicked as well.
    const std::pair<QTableWidget *, void (FrmPresupuesto::*)()> agregables[] = {
        {ui.Grd, &FrmPresupuesto::Grd_Insert}, {ui.Grd2, &FrmPresupuesto::Grd2_Insert}};
    for (const auto &[grilla, agregar] : agregables)
        Escuchar(grilla->viewport(), [this, hacer = agregar](QEvent *evento) {
            if (evento->type() != QEvent::MouseButtonDblClick) return false;
            (this->*hacer)();
            return true;
        });
    const std::pair<QPushButton *, void (FrmPresupuesto::*)()> botones[] = {
        {ui.cmdComentario, &FrmPresupuesto::cmdComentario_Click},
        {ui.CmdCorreo, &FrmPresupuesto::CmdCorreo_Click},
        {ui.CmdPDF, &FrmPresupuesto::CmdPDF_Click},
        {ui.CmdVista, &FrmPresupuesto::SENDPREVW},
        {ui.CmdEnviar, &FrmPresupuesto::SENDEMAIL}};
    for (const auto &[boton, alPulsar] : botones)
        QObject::connect(boton, &QPushButton::clicked, v, [this, hacer = alPulsar] { (this->*hacer)(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close || !ventana->isVisible()) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
}

void FrmPresupuesto::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    bool esta = false;
    if (!Manejar(ctx, [&] { esta = CargarCaratula(ctx, interno, p_); }) || !esta) return;
    ventana->setWindowTitle(u"Presupuesto - Operación "_s + interno);
    Escribir();
    ui.TxtPase->setFocus();
    ui.TxtPase->selectAll();
    ventana->exec();
}

void FrmPresupuesto::Escribir() {
    for (const auto &[etiqueta, miembro] : etiquetasDelPresupuesto) (ui.*etiqueta)->setText(p_.*miembro);
    ui.TxtEmail->setText(p_.TxtEmail);
    ui.TxtPase->setText(p_.TxtPase);
    ui.txtAcuenta->setText(p_.txtAcuenta);
    ui.LbArchivo->clear();
    (p_.porOutlook ? ui.opOutLook : ui.opSMTP)->setChecked(true);
    ui.CbLineas->setCurrentIndex(std::min(p_.lineasEnBlanco, maximoDeLineas));
    MostrarGastos();
    MostrarOperativos();
    MostrarReferencias();
    elegirFila(ui.GrdLiq, 0);
}

QString FrmPresupuesto::conDosDecimales(double valor) const {
    return numeros::Format(valor, u"00.00", Contexto().SeparadorDecimal);
}

void FrmPresupuesto::EscribirTotales() {
    const ResumenDePresupuesto r = Resumir(p_);
    const std::pair<QLabel *, double> totales[] = {{ui.LbGastosDespacho, p_.totalP.dolares},
                                                   {ui.LbGastosDespachoPeso, p_.totalP.pesos},
                                                   {ui.lbTOTALGARDol, p_.totalG.dolares},
                                                   {ui.lbTotalGARPes, p_.totalG.pesos},
                                                   {ui.lbTOTALCOBDol, p_.totalC.dolares},
                                                   {ui.lbTOTALCOBPes, p_.totalC.pesos},
                                                   {ui.LbGastosOperativos, r.operativos.pesos},
                                                   {ui.LbGastosOperativosDol, r.operativos.dolares},
                                                   {ui.LbSubtotal, r.subtotal},
                                                   {ui.LbACuenta, r.aCuenta},
                                                   {ui.LbTotalGeneral, r.totalGeneral}};
    for (const auto &[etiqueta, valor] : totales) etiqueta->setText(conDosDecimales(valor));
    ajustarImportes(ui.GrdLiq, GastoPeso, {ui.LbGastosDespachoPeso, ui.lbTotalGARPes, ui.lbTOTALCOBPes});
    ajustarImportes(ui.GrdLiq, GastoDolar, {ui.LbGastosDespacho, ui.lbTOTALGARDol, ui.lbTOTALCOBDol});
    ajustarImportes(ui.Grd, OperativoPesos, {ui.LbGastosOperativos});
    ajustarImportes(ui.Grd, OperativoDolar, {ui.LbGastosOperativosDol});
}

void FrmPresupuesto::MostrarGastos() {
    ui.GrdLiq->setRowCount(static_cast<int>(p_.gastos.size()));
    int fila = 0;
    for (const GastoDeDespacho &g : p_.gastos) {
        estilo::PonerCelda(ui.GrdLiq, fila, GastoConcepto, g.concepto);
        estilo::PonerCelda(ui.GrdLiq, fila, GastoPGC, g.pgc);
        estilo::PonerCelda(ui.GrdLiq, fila, GastoPeso, conDosDecimales(g.pesos), true);
        estilo::PonerCelda(ui.GrdLiq, fila++, GastoDolar, conDosDecimales(g.dolares), true);
    }
    EscribirTotales();
}

void FrmPresupuesto::MostrarOperativos(const QString &actual) {
    ui.Grd->setRowCount(static_cast<int>(p_.operativos.size()));
    int fila = 0;
    int elegida = std::max(0, ui.Grd->currentRow());
    for (const GastoOperativo &g : p_.operativos) {
        const EnDosMonedas mostrado = ImporteMostrado(p_, g);
        if (g.concepto == actual) elegida = fila;
        estilo::PonerCelda(ui.Grd, fila, OperativoConcepto, g.concepto);
        estilo::PonerCelda(ui.Grd, fila, OperativoPesos, conDosDecimales(mostrado.pesos), true);
        estilo::PonerCelda(ui.Grd, fila++, OperativoDolar, conDosDecimales(mostrado.dolares), true);
    }
    elegirFila(ui.Grd, std::min(elegida, fila - 1));
    EscribirTotales();
}

void FrmPresupuesto::MostrarReferencias(const QString &actual) {
    ui.Grd2->setRowCount(static_cast<int>(p_.referencias.size()));
    int fila = 0;
    int elegida = std::max(0, ui.Grd2->currentRow());
    for (const ReferenciaDePresupuesto &r : p_.referencias) {
        if (r.referencia == actual) elegida = fila;
        estilo::PonerCelda(ui.Grd2, fila, ReferenciaNombre, r.referencia);
        estilo::PonerCelda(ui.Grd2, fila++, ReferenciaValor, r.valor);
    }
    elegirFila(ui.Grd2, std::min(elegida, fila - 1));
}

void FrmPresupuesto::Leer() {
    p_.TxtEmail = ui.TxtEmail->text();
    p_.txtAcuenta = ui.txtAcuenta->text();
    if (ui.TxtPase->text() == p_.TxtPase) {
        EscribirTotales();
        return;
    }
    CambiarPase(Contexto(), p_, ui.TxtPase->text());
    ui.TxtPase->setText(p_.TxtPase);
    const int fila = ui.GrdLiq->currentRow();
    MostrarGastos();
    elegirFila(ui.GrdLiq, fila);
    MostrarOperativos();
}

bool FrmPresupuesto::Form_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) return true;
    switch (tecla->key()) {
        case Qt::Key_F7:
            CmdCorreo_Click();
            return true;
        case Qt::Key_F9:
            cmdComentario_Click();
            return true;
        case Qt::Key_F10:
            SENDEMAIL();
            return true;
        case Qt::Key_F11:
            CmdPDF_Click();
            return true;
        case Qt::Key_F12:
            SENDPREVW();
            return true;
        case Qt::Key_Escape:
            Form_Escape();
            return true;
        default:
            return false;
    }
}

void FrmPresupuesto::Form_Escape() {
    AppContext &ctx = Contexto();
    Leer();
    bool grabado = false;
    const bool seFue = SeFueElStore(ctx, entidad::internos,
                                    [&] { grabado = Manejar(ctx, [&] { GrabarACuenta(ctx, p_); }); });
    // What else could not be written was told with the store's words; a second ESC would meet the same.
    if (grabado || !seFue) ventana->accept();
}

bool FrmPresupuesto::GrdLiq_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    GrdLiq_Enter();
    return true;
}

void FrmPresupuesto::GrdLiq_Enter() {
    const std::size_t cual = filaDe(ui.GrdLiq);
    if (cual >= p_.gastos.size()) return;
    const GastoDeDespacho &gasto = p_.gastos[cual];
    const auto valor = PedirImporte(gasto.concepto, {conDosDecimales(gasto.dolares), true});
    if (!valor) return;
    CambiarGasto(p_, cual, EnAmbasMonedas(p_, numeros::aNumero(valor->valor), valor->enDolares));
    MostrarGastos();
    elegirFila(ui.GrdLiq, static_cast<int>(cual));
}

bool FrmPresupuesto::Grd_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Insert && tecla->key() != Qt::Key_Delete) return false;
    if (tecla->key() == Qt::Key_Insert)
        Grd_Insert();
    else
        LP_DEL_CONCEPTO();
    return true;
}

void FrmPresupuesto::Grd_Insert() {
    AppContext &ctx = Contexto();
    const auto concepto = Pantalla<FrmConceptos>().Elegir();
    CerrarPantalla<FrmConceptos>();
    if (!concepto) return;
    Manejar(ctx, [&] {
        if (!ConceptoLibre(ctx, p_.interno, *concepto)) return;
        const auto valor = PedirImporte(*concepto);
        if (!valor) return;
        AgregarGasto(ctx, p_.interno, *concepto, valor->valor, valor->enDolares);
        Cargar(ctx, p_);
        MostrarOperativos(*concepto);
    });
}

void FrmPresupuesto::LP_DEL_CONCEPTO() {
    AppContext &ctx = Contexto();
    const std::size_t cual = filaDe(ui.Grd);
    if (cual >= p_.operativos.size()) return;
    Manejar(ctx, [&] {
        QuitarGasto(ctx, p_.interno, p_.operativos[cual].concepto);
        Cargar(ctx, p_);
        MostrarOperativos();
    });
}

bool FrmPresupuesto::Grd2_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Insert && tecla->key() != Qt::Key_Delete) return false;
    if (tecla->key() == Qt::Key_Insert)
        Grd2_Insert();
    else
        Grd2_Delete();
    return true;
}

void FrmPresupuesto::Grd2_Insert() {
    AppContext &ctx = Contexto();
    const auto referencia = Pantalla<FrmReferencias>().Elegir();
    CerrarPantalla<FrmReferencias>();
    if (!referencia) return;
    Manejar(ctx, [&] {
        if (!ReferenciaLibre(ctx, p_.interno, *referencia) ||
            !AgregarReferencia(ctx, p_.interno, *referencia))
            return;
        Cargar2(ctx, p_);
        MostrarReferencias(*referencia);
    });
}

void FrmPresupuesto::Grd2_Delete() {
    AppContext &ctx = Contexto();
    const std::size_t cual = filaDe(ui.Grd2);
    if (cual >= p_.referencias.size()) return;
    Manejar(ctx, [&] {
        QuitarReferencia(ctx, p_.interno, p_.referencias[cual].referencia);
        Cargar2(ctx, p_);
        MostrarReferencias();
    });
}

void FrmPresupuesto::cmdComentario_Click() {
    Pantalla<FrmLstDiv>().Mostrar(p_.interno);
    CerrarPantalla<FrmLstDiv>();
}

void FrmPresupuesto::CmdCorreo_Click() {
    Pantalla<FrmCorreo>().Mostrar();
    CerrarPantalla<FrmCorreo>();
    LeerDatosDelCorreo(Contexto(), p_);
}
