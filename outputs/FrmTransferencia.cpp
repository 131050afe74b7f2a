#include "outputs/FrmTransferencia.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <tuple>

#include "frame/base/numbers.h"
#include "frame/failures.h"
#include "frame/files.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/parties.h"
#include "outputs/handedover.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString seccionDeTransferencia = u"TRANSFERENCIA"_s;
const QString tituloDeTransferencia = u"Transferencia al MARIA"_s;

/// The columns of the grid of items; the numbers are sums of the document's own figures.
enum ColumnaDeEnvio {
    EnvioItem,
    EnvioPosicion,
    EnvioPais,
    EnvioCantidad,
    EnvioKilos,
    EnvioFob,
    EnvioFlete,
    EnvioSeguro,
    EnvioTributos
};
constexpr int partesMostradas = 7;
constexpr int margenDeParte = 7;    ///< pixels around the text of a row
constexpr int letrasDeNombre = 56;  ///< capitals in bold are half as wide again

/// Those ahead of the numbers, which share the rest: how many characters they are wide.
constexpr std::pair<int, int> anchosDeEnvio[] = {{EnvioItem, 9}, {EnvioPosicion, 24}, {EnvioPais, 9}};

/// "1000,00 DOL".
QString valorConMoneda(const QString &importe, const QString &moneda) {
    return moneda.isEmpty() ? importe : importe + u' ' + moneda;
}

}  // namespace

FrmTransferencia::FrmTransferencia() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(ui.GrPartes, {u"Parte"_s, u"Cantidad"_s, u"Total"_s});
    estilo::PrepararGrilla(ui.GrItems, {u"Item"_s, u"NCM"_s, u"País"_s, u"Cantidad"_s, u"Kg netos"_s,
                                        u"FOB"_s, u"Flete"_s, u"Seguro"_s, u"Tributos"_s});
    const int letra = ui.GrItems->fontMetrics().averageCharWidth();
    ui.GrItems->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    for (const auto &[columna, letras] : anchosDeEnvio) {
        ui.GrItems->horizontalHeader()->setSectionResizeMode(columna, QHeaderView::Interactive);
        ui.GrItems->setColumnWidth(columna, letra * letras);
    }
    ui.GrPartes->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    ui.GrPartes->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    // A name of usual length is read whole under any font; a longer one does not widen the window.
    for (QLabel *nombre : {ui.LbCliente, ui.LbDespa}) nombre->setMinimumWidth(letra * letrasDeNombre);
    // All parts are seen at once.
    QHeaderView *filas = ui.GrPartes->verticalHeader();
    filas->setMinimumSectionSize(0);
    filas->setDefaultSectionSize(ui.GrPartes->fontMetrics().height() + margenDeParte);
    const int alto = ui.GrPartes->horizontalHeader()->sizeHint().height() +
                     filas->defaultSectionSize() * partesMostradas + 2 * ui.GrPartes->frameWidth();
    ui.GrPartes->setFixedHeight(alto);
    ui.LstAdvertencias->setFixedHeight(alto);
    Conectar();
}

void FrmTransferencia::Conectar() {
    QDialog *v = ventana.get();
    ClCntrl::Vincular(ui.TxtArchivo);
    QObject::connect(ui.CmdElegir, &QPushButton::clicked, v, [this] { CmdElegir_Click(); });
    QObject::connect(ui.CmdEscribir, &QPushButton::clicked, v, [this] { CmdEscribir_Click(); });
    QObject::connect(ui.LstAdvertencias, &QListWidget::itemDoubleClicked, v,
                     [this] { LstAdvertencias_Enter(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

void FrmTransferencia::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    const bool leida = Manejar(ctx, [&] {
        const Reloj reloj(ctx.dialogos);
        transferencia_ = PrepararTransferencia(ctx, interno);
        MostrarCaratula();
    });
    if (!leida) return;
    ventana->setWindowTitle(tituloDeTransferencia + u" - Operación "_s + interno);
    MostrarPartes(Resumir(transferencia_.declaracion));
    MostrarItems();
    MostrarAdvertencias();
    ui.TxtArchivo->setText(QDir::toNativeSeparators(
        QDir(CarpetaDeArchivos(ctx, seccionDeTransferencia)).filePath(NombreDeArchivo(interno))));
    if (transferencia_.advertencias.empty())
        ui.GrItems->setFocus();
    else
        ui.LstAdvertencias->setFocus();
    ventana->exec();
}

QString FrmTransferencia::conDosDecimales(double valor) const {
    return numeros::Format(valor, u"00.00", Contexto().SeparadorDecimal);
}

void FrmTransferencia::MostrarCaratula() {
    AppContext &ctx = Contexto();
    const Declaracion &d = transferencia_.declaracion;
    const FilaDeclarada &c = d.caratula;
    ui.LbInterno->setText(d.interno);
    ui.LbSubregimen->setText(c.texto("idsubreg"));
    ui.LbAduana->setText(c.texto("idaduana"));
    const auto conNombre = [&ctx](const char *tabla, const QString &cuit) {
        const QString nombre = BuscarNombre(ctx, L(tabla), cuit);
        return nombre.isEmpty() ? cuit : cuit + u"  "_s + nombre;
    };
    ui.LbCliente->setText(conNombre("clientes", c.texto("cuitcliente")));
    ui.LbDespa->setText(conNombre("despadu", c.texto("cuitdespaduana")));
    const std::tuple<QLabel *, const char *, const char *> valores[] = {
        {ui.LbFob, "fobdivisas", "fobcoddivisas"},
        {ui.LbFlete, "fletedivisas", "fletecoddivisas"},
        {ui.LbSeguro, "segurodivisas", "segurocoddivisas"}};
    for (const auto &[etiqueta, importe, moneda] : valores)
        etiqueta->setText(valorConMoneda(conDosDecimales(c.numero(importe)), c.texto(moneda)));
    ui.rotuloNcmMayorFob->setVisible(d.ncmMayorFob.has_value());
    ui.LbNcmMayorFob->setVisible(d.ncmMayorFob.has_value());
    if (d.ncmMayorFob) ui.LbNcmMayorFob->setText(QString::number(*d.ncmMayorFob));
}

void FrmTransferencia::MostrarPartes(const ResumenDeDeclaracion &r) {
    const FilaDeclarada &bultos = transferencia_.declaracion.bultos;
    const std::tuple<QString, QString, QString> filas[] = {
        {u"Items"_s, QString::number(r.items), conDosDecimales(r.fob)},
        {u"Subitems"_s, QString::number(r.subitems), {}},
        {u"Tributos"_s, QString::number(r.tributos), conDosDecimales(r.totalTributos)},
        {u"Ventajas"_s, QString::number(r.ventajas), {}},
        {u"Informaciones"_s, QString::number(r.informaciones), {}},
        {u"Cancelaciones"_s, QString::number(r.cancelaciones), {}},
        {u"Bultos (kg)"_s, bultos.texto("bulnro"), conDosDecimales(bultos.numero("bulpes"))}};
    static_assert(std::size(filas) == partesMostradas);
    ui.GrPartes->setRowCount(static_cast<int>(std::size(filas)));
    int fila = 0;
    for (const auto &[parte, cantidad, total] : filas) {
        estilo::PonerCelda(ui.GrPartes, fila, 0, parte);
        estilo::PonerCelda(ui.GrPartes, fila, 1, cantidad, true);
        estilo::PonerCelda(ui.GrPartes, fila++, 2, total, true);
    }
    ui.LbAPagar->setText(conDosDecimales(r.aPagar));
    ui.LbAGarantizar->setText(conDosDecimales(r.aGarantizar));
    ui.LbACobrar->setText(conDosDecimales(r.aCobrar));
    ui.LbPie->setText(
        u"Items  %1   ·   Kg netos  %2   ·   FOB  %3   ·   Flete  %4   ·   Seguro  %5   ·   "
        "Tributos  %6"_s.arg(QString::number(r.items), conDosDecimales(r.kilosNetos), conDosDecimales(r.fob),
                             conDosDecimales(r.flete), conDosDecimales(r.seguro),
                             conDosDecimales(r.totalTributos)));
}

void FrmTransferencia::MostrarItems() {
    constexpr std::pair<int, const char *> montos[] = {{EnvioCantidad, "cantidad"},
                                                       {EnvioKilos, "totalkneto"},
                                                       {EnvioFob, "fobtotal"},
                                                       {EnvioFlete, "itflete"},
                                                       {EnvioSeguro, "itseguro"}};
    const std::vector<ItemDeclarado> &items = transferencia_.declaracion.items;
    ui.GrItems->setRowCount(static_cast<int>(items.size()));
    int fila = 0;
    for (const ItemDeclarado &item : items) {
        estilo::PonerCelda(ui.GrItems, fila, EnvioItem, QString::number(item.numero), true);
        estilo::PonerCelda(ui.GrItems, fila, EnvioPosicion, item.datos.texto("ncm"));
        estilo::PonerCelda(ui.GrItems, fila, EnvioPais, item.datos.texto("idpais"));
        for (const auto &[columna, dato] : montos)
            estilo::PonerCelda(ui.GrItems, fila, columna, conDosDecimales(item.datos.numero(dato)), true);
        estilo::PonerCelda(ui.GrItems, fila++, EnvioTributos, conDosDecimales(TributosDe(item)), true);
    }
    if (!items.empty()) ui.GrItems->setCurrentCell(0, 0);
}

void FrmTransferencia::MostrarAdvertencias() {
    ui.LstAdvertencias->clear();
    for (const Advertencia &a : transferencia_.advertencias) ui.LstAdvertencias->addItem(a.texto);
    const std::size_t cuantas = transferencia_.advertencias.size();
    ui.LbAdvertencias->setText(cuantas == 0   ? u"Sin advertencias"_s
                               : cuantas == 1 ? u"1 advertencia"_s
                                              : u"%1 advertencias"_s.arg(cuantas));
    ui.LstAdvertencias->setEnabled(cuantas > 0);
    if (cuantas > 0) ui.LstAdvertencias->setCurrentRow(0);
}

bool FrmTransferencia::Form_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        if (ui.LstAdvertencias->hasFocus())
            LstAdvertencias_Enter();
        else if (ui.GrItems->hasFocus() || ui.GrPartes->hasFocus())
            ui.TxtArchivo->setFocus();
        return true;
    }
    switch (tecla->key()) {
        case Qt::Key_F6:
            CmdElegir_Click();
            return true;
        case Qt::Key_F11:
            CmdEscribir_Click();
            return true;
        case Qt::Key_Escape:
            ventana->reject();
            return true;
        default:
            return false;
    }
}

void FrmTransferencia::LstAdvertencias_Enter() {
    const int cual = ui.LstAdvertencias->currentRow();
    if (cual < 0) return;
    const int numero = transferencia_.advertencias.at(static_cast<std::size_t>(cual)).item;
    const std::vector<ItemDeclarado> &items = transferencia_.declaracion.items;
    for (std::size_t fila = 0; fila < items.size(); ++fila) {
        if (items[fila].numero != numero) continue;
        ui.GrItems->setCurrentCell(static_cast<int>(fila), 0);
        ui.GrItems->setFocus();
        return;
    }
}

QString FrmTransferencia::archivo() const {
    const QString texto = ui.TxtArchivo->text().trimmed();
    if (texto.isEmpty()) return {};
    return QDir(CarpetaDeArchivos(Contexto(), seccionDeTransferencia))
        .absoluteFilePath(QDir::fromNativeSeparators(texto));
}

void FrmTransferencia::CmdElegir_Click() {
    const AppContext &ctx = Contexto();
    const QString inicial = archivo().isEmpty() ? CarpetaDeArchivos(ctx, seccionDeTransferencia) + u'/' +
                                                      NombreDeArchivo(transferencia_.declaracion.interno)
                                                : archivo();
    // A file that is there is asked about where the document is written.
    const QString elegido =
        ctx.dialogos.guardarComo({u"Documento de la declaración"_s, inicial, u"Documentos XML (*.xml)"_s});
    if (!elegido.isEmpty()) ui.TxtArchivo->setText(QDir::toNativeSeparators(elegido));
    ui.TxtArchivo->setFocus();
}

void FrmTransferencia::CmdEscribir_Click() {
    AppContext &ctx = Contexto();
    const QString destino = archivo();
    const auto volverAlArchivo = [this] {
        ui.TxtArchivo->setFocus();
        ui.TxtArchivo->selectAll();
    };
    if (destino.isEmpty()) {
        ctx.dialogos.advertir(u"Indique el archivo donde se escribe la declaración."_s,
                              tituloDeTransferencia);
        volverAlArchivo();
        return;
    }
    if (!PuedeReemplazarse(ctx, destino, tituloDeTransferencia)) {
        volverAlArchivo();
        return;
    }
    DocumentoEscrito escrito;
    {
        const Reloj reloj(ctx.dialogos);
        escrito = EscribirTransferencia(transferencia_.declaracion, destino);
    }
    if (!escrito.hecho) {
        ctx.dialogos.critico(escrito.aviso, tituloDeTransferencia);
        volverAlArchivo();
        return;
    }
    RecordarCarpeta(ctx, seccionDeTransferencia, escrito.archivo);
    try {
        AnotarEntrega(ctx, transferencia_.declaracion.interno, escrito);
    } catch (const Falla &e) {
        ContarFalla(ctx, e,
                    escrito.aviso + u"\r\n\r\nNo se pudo anotar que la operación se transfirió: "_s +
                        TextoDeFalla(e));
        return;
    }
    ctx.dialogos.informar(escrito.aviso, tituloDeTransferencia);
}
