#include "subitems/FrmBuscarArticulosPorPA.h"

#include <QKeyEvent>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "regulatory/lnapi.h"
#include "subitems/ArticleStore.h"
#include "subitems/FrmPosicion.h"

using namespace Qt::StringLiterals;

namespace {

const QString teclasDeLicencias =
    u"ENTER  generar el reporte del campo   ·   F6  listado   ·   ALT+M  aclaraciones   ·   ESC  salir"_s;
const QString teclasDelReporte = u"ESC  detener el reporte"_s;

}  // namespace

FrmBuscarArticulosPorPA::FrmBuscarArticulosPorPA() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ui.lbTeclas->setText(teclasDeLicencias);
    busquedas_ = {{ui.txtCatalogoABuscar, ui.cmdBuscarArticulosPorCodCat, ReporteCatalogo,
                   &FrmBuscarArticulosPorPA::txtCatalogoABuscar_F6},
                  {ui.txtArticuloABuscar, ui.cmdBuscarArticulosPorCodArt, ReporteArticulo, nullptr},
                  {ui.txtPosiciónNcmABuscar, ui.cmdBuscarArticulosPorPA, ReportePosicion,
                   &FrmBuscarArticulosPorPA::txtPosicionNcmABuscar_F6}};
    Conectar();
}

void FrmBuscarArticulosPorPA::Conectar() {
    QDialog *v = ventana.get();
    for (std::size_t n = 0; n < busquedas_.size(); ++n) {
        const Busqueda &b = busquedas_[n];
        ClCntrl::Vincular(b.campo);
        EscucharTeclas(b.campo, [this, n](QKeyEvent *tecla) { return Campo_KeyDown(n, tecla); });
        QObject::connect(b.boton, &QPushButton::clicked, v, [this, n] { Generar(busquedas_[n]); });
    }
    QObject::connect(ui.Command1, &QPushButton::clicked, v, [this] { Command1_Click(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close || !corriendo_) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
}

void FrmBuscarArticulosPorPA::Mostrar(const QString &posicion) {
    ui.txtPosiciónNcmABuscar->setText(posicion);
    (posicion.isEmpty() ? ui.txtCatalogoABuscar : ui.txtPosiciónNcmABuscar)->setFocus();
    ventana->exec();
}

bool FrmBuscarArticulosPorPA::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() == Qt::Key_Escape) {
        Form_Escape();
        return true;
    }
    // A report serves events; nothing is begun in the middle of it. An ENTER that nobody took would begin the
    // first one, also from the notes.
    return corriendo_ || EsEnter(tecla);
}

void FrmBuscarArticulosPorPA::Form_Escape() {
    if (corriendo_)
        detener_ = true;
    else
        ventana->reject();
}

bool FrmBuscarArticulosPorPA::Campo_KeyDown(std::size_t cual, const QKeyEvent *tecla) {
    const Busqueda &busqueda = busquedas_[cual];
    if (EsEnter(tecla)) {
        Generar(busqueda);
        return true;
    }
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    switch (tecla->key()) {
        case Qt::Key_F6:
            if (busqueda.listado != nullptr) (this->*busqueda.listado)();
            return true;
        case Qt::Key_Up:
            if (cual > 0) busquedas_[cual - 1].campo->setFocus();
            return true;
        case Qt::Key_Down:
            if (cual + 1 < busquedas_.size()) busquedas_[cual + 1].campo->setFocus();
            return true;
        default:
            return false;
    }
}

void FrmBuscarArticulosPorPA::txtCatalogoABuscar_F6() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        const QStringList catalogos = ArticleStore::Catalogos(ctx);
        const int cual = ctx.dialogos.elegir({u"Catálogos"_s, catalogos, -1, Eleccion::Tipo::Codigos});
        if (cual >= 0) ui.txtCatalogoABuscar->setText(catalogos.value(cual));
    });
}

void FrmBuscarArticulosPorPA::txtPosicionNcmABuscar_F6() {
    const QString posicion = ElegirPosicion(ui.txtPosiciónNcmABuscar->text().trimmed());
    if (!posicion.isEmpty()) ui.txtPosiciónNcmABuscar->setText(posicion);
}

void FrmBuscarArticulosPorPA::Generar(const Busqueda &busqueda) {
    if (corriendo_) return;
    AppContext &ctx = Contexto();
    ui.labelCantidad->clear();
    ui.labelRegistro->clear();
    Correr(true);
    bool hecho = false;
    Manejar(ctx, [&] {
        hecho = busqueda.reporte(ctx, busqueda.campo->text(),
                                 [this](int hechos, int cantidad) { return Avanzar(hechos, cantidad); });
    });
    Correr(false);
    if (!hecho) ui.labelRegistro->clear();
    busqueda.campo->setFocus();
    busqueda.campo->selectAll();
}

bool FrmBuscarArticulosPorPA::Avanzar(int hechos, int cantidad) {
    ui.labelCantidad->setText(QString::number(cantidad));
    ui.labelRegistro->setText(TextoDeAvance(hechos, cantidad));
    Contexto().dialogos.atenderEventos();
    return !detener_;
}

void FrmBuscarArticulosPorPA::Correr(bool corriendo) {
    corriendo_ = corriendo;
    detener_ = false;
    ui.lbTeclas->setText(corriendo ? teclasDelReporte : teclasDeLicencias);
    for (const Busqueda &b : busquedas_) {
        b.campo->setEnabled(!corriendo);
        b.boton->setEnabled(!corriendo);
    }
    ui.Command1->setEnabled(!corriendo);
}

void FrmBuscarArticulosPorPA::Command1_Click() {
    AppContext &ctx = Contexto();
    const QString posicion = ui.txtPosiciónNcmABuscar->text().trimmed();
    Manejar(ctx, [&] {
        QString aclaraciones = ObtenerAclaraciones(ctx, posicion);
        const bool alcanzada = aclaraciones != sinAclaraciones;
        ui.Text1->setPlainText(aclaraciones.replace("\r\n"_L1, "\n"_L1));
        ui.lbAclaraciones->setText(
            alcanzada ? posicion
                      : u"Ninguna licencia alcanza a los primeros 10 caracteres de la posición."_s);
    });
}

void VerLicencias(const QString &posicion) {
    Pantalla<FrmBuscarArticulosPorPA>().Mostrar(posicion);
    CerrarPantalla<FrmBuscarArticulosPorPA>();
}
