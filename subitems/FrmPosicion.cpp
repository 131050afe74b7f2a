#include "subitems/FrmPosicion.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

/// Units and flags of the position in hand, in one line.
QString textoDeUnidades(const PosicionElegida &p) {
    const auto valor = [](const QString &texto) {
        return texto.trimmed().isEmpty() ? u"No posee"_s : texto.trimmed();
    };
    QStringList partes{u"Unidad estadística: "_s + valor(p.estadistica),
                       u"Derecho específico: "_s + valor(p.deresp)};
    if (p.lapi) partes << u"LAPI"_s;
    if (p.reintegro) partes << u"Reintegro"_s;
    if (p.seguridad) partes << u"Seguridad eléctrica"_s;
    if (p.prohibicion) partes << u"Prohibición"_s;
    return partes.join(u"   ·   "_s);
}

}  // namespace

FrmPosicion::FrmPosicion() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmPosicion::Form_Load() {
    sufijos_.Preparar(ui.LstSufijos, {u"Sufijo"_s, u"Detalle"_s}, {}, {});
    ui.LstSufijos->setColumnWidth(0, ui.LstSufijos->fontMetrics().averageCharWidth() * 12);
    ui.LstSufijos->horizontalHeader()->setStretchLastSection(true);
    ui.LstNCM->setMinimumWidth(ui.LstNCM->fontMetrics().averageCharWidth() * 24);
}

void FrmPosicion::Conectar() {
    ClCntrl::Vincular(ui.TxtNcm);
    EscucharTeclas(ui.TxtNcm, [this](QKeyEvent *tecla) { return TxtNcm_KeyDown(tecla); });
    EscucharTeclas(ui.LstNCM, [this](QKeyEvent *tecla) { return LstNCM_KeyDown(tecla); });
    QObject::connect(ui.LstNCM, &QListWidget::currentRowChanged, ventana.get(), [this] { MostrarFila(); });
    QObject::connect(ui.LstNCM, &QListWidget::itemDoubleClicked, ventana.get(), [this] { Seleccionar(); });
}

QString FrmPosicion::Elegir(const QString &buscado) {
    AppContext &ctx = Contexto();
    DejarPosicion(ctx);
    Vaciar();
    ui.TxtNcm->setText(buscado);
    ui.TxtNcm->setFocus();
    if (!buscado.trimmed().isEmpty()) BuscarNCM(buscado);
    if (ventana->exec() != QDialog::Accepted) DejarPosicion(ctx);
    return ctx.posicion.posicion;
}

bool FrmPosicion::BuscarNCM(const QString &texto) {
    return Buscar(texto, OrigenDeBusqueda::BuscarNCM);
}

bool FrmPosicion::Buscar(const QString &texto, OrigenDeBusqueda origen) {
    AppContext &ctx = Contexto();
    if (texto.trimmed().isEmpty()) return false;
    std::vector<PosicionEncontrada> posiciones;
    Manejar(ctx, [&] { posiciones = BuscarPosiciones(ctx, texto, origen); });
    Vaciar();
    if (posiciones.empty()) return false;
    {
        const QSignalBlocker callada(ui.LstNCM);
        ui.LstNCM->addItems(TextosDePosiciones(posiciones));
        ui.LstNCM->setCurrentRow(0);
    }
    ui.lbCantidad->setText(posiciones.size() == 1 ? u"1 posición"_s
                                                  : u"%1 posiciones"_s.arg(posiciones.size()));
    ui.LstNCM->setFocus();
    MostrarFila();
    return true;
}

bool FrmPosicion::TxtNcm_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        Buscar(ui.TxtNcm->text(), OrigenDeBusqueda::Pantalla);
        return true;
    }
    if (tecla->key() != Qt::Key_Down || ui.LstNCM->count() == 0) return false;
    ui.LstNCM->setFocus();
    return true;
}

bool FrmPosicion::LstNCM_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        Seleccionar();
        return true;
    }
    // Left goes like up and right like down; the list itself would scroll sideways.
    const bool atras = tecla->key() == Qt::Key_Left;
    if (!atras && tecla->key() != Qt::Key_Right) return false;
    const int fila = ui.LstNCM->currentRow() + (atras ? -1 : 1);
    ui.LstNCM->setCurrentRow(std::clamp(fila, 0, std::max(0, ui.LstNCM->count() - 1)));
    return true;
}

void FrmPosicion::Vaciar() {
    const QSignalBlocker callada(ui.LstNCM);
    ui.LstNCM->clear();
    ui.lbCantidad->clear();
    ui.LbDescripcion->clear();
    ui.lbUnidades->clear();
    sufijos_.Cargar({});
}

void FrmPosicion::MostrarFila() {
    AppContext &ctx = Contexto();
    const QListWidgetItem *fila = ui.LstNCM->currentItem();
    if (fila == nullptr) return;
    DatosDePosicion datos;
    Manejar(ctx, [&] { datos = MostrarDatos(ctx, fila->text()); });
    ui.LbDescripcion->setText(datos.descripcion.replace("\r\n"_L1, "\n"_L1));
    ui.lbUnidades->setText(datos.encontrada ? textoDeUnidades(ctx.posicion) : QString());
    std::vector<QStringList> celdas;
    celdas.reserve(datos.sufijos.size());
    for (const FilaDeSufijo &s : datos.sufijos) celdas.push_back({s.sufijo, s.detalle});
    sufijos_.Cargar(celdas, -1);
}

void FrmPosicion::Seleccionar() {
    const QListWidgetItem *fila = ui.LstNCM->currentItem();
    if (fila == nullptr) return;
    SeleccionarPosicion(Contexto(), fila->text());
    ventana->accept();
}

QString ElegirPosicion(const QString &buscado) {
    QString elegida = Pantalla<FrmPosicion>().Elegir(buscado);
    CerrarPantalla<FrmPosicion>();
    return elegida;
}
