#include "regulatory/frmActualizacion.h"

#include "frame/context.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "regulatory/updatecheck.h"

using namespace Qt::StringLiterals;

frmActualizacion::frmActualizacion() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Timer1_.setSingleShot(true);
    Conectar();
}

void frmActualizacion::Conectar() {
    QDialog *v = ventana.get();
    QObject::connect(&Timer1_, &QTimer::timeout, v, [this] { Comprobar(); });
    QObject::connect(ui.cmdActualizar, &QPushButton::clicked, v, [this] { cmdActualizar_Click(); });
    QObject::connect(ui.cmdSalir, &QPushButton::clicked, v, [this] { ventana->reject(); });
    // While it asks, ENTER presses nothing: the answer may come between a look and a key.
    EscucharTeclas(ui.ListaEstado, [](const QKeyEvent *tecla) { return EsEnter(tecla); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

void frmActualizacion::Mostrar() {
    ui.ListaEstado->clear();
    enlace_.clear();
    ui.cmdActualizar->setEnabled(false);
    ui.ListaEstado->setFocus();
    Buscando(true);
    Timer1_.start();
    ventana->exec();
    Timer1_.stop();
    lector_.Cancelar();
}

void frmActualizacion::Comprobar() {
    AppContext &ctx = Contexto();
    const OrigenDeActualizacion origen = LeerOrigenDeActualizacion(ctx);
    if (origen.falta.isEmpty()) {
        ui.lbEstado->setText(u"Buscando en %1..."_s.arg(origen.direccion.host()));
        lector_.LeerUrl(origen.direccion, origen.certificados,
                        [this](const LecturaDeUrl &lectura) { Leida(lectura); });
        return;
    }
    Buscando(false);
    ctx.dialogos.informar(origen.falta);
    AgregarLinea(LineaDeLaVersion(VersionInstalada(ctx)));
    Terminar({});
}

void frmActualizacion::Leida(const LecturaDeUrl &lectura) {
    AppContext &ctx = Contexto();
    Buscando(false);
    if (!lectura.mensaje.isEmpty()) {
        ctx.dialogos.advertir(lectura.mensaje);
        AgregarLinea(LineaDeLaVersion(VersionInstalada(ctx)));
        Terminar(lectura.motivo);
        return;
    }
    const Comparacion comparacion = CompararVersiones(VersionInstalada(ctx), lectura.documento);
    for (const QString &linea : comparacion.lineas) AgregarLinea(linea);
    if (!comparacion.falta.isEmpty()) ctx.dialogos.advertir(comparacion.falta);
    enlace_ = comparacion.enlace;
    ui.cmdActualizar->setEnabled(!enlace_.isEmpty());
    Terminar(enlace_.isEmpty() ? QString() : u"La descarga está en %1."_s.arg(QUrl(enlace_).host()));
}

void frmActualizacion::AgregarLinea(const QString &texto) {
    ui.ListaEstado->addItem(texto);
}

void frmActualizacion::Buscando(bool busca) {
    buscando_ = busca;
    ui.lbEstado->clear();
    ui.lbTeclas->setText(busca ? u"ESC  cancelar la búsqueda   ·   ALT+S  salir"_s : u"ALT+S o ESC  salir"_s);
}

void frmActualizacion::Terminar(const QString &estado) {
    ui.lbEstado->setText(estado);
    if (!enlace_.isEmpty())
        ui.lbTeclas->setText(u"ALT+A  abrir la descarga en el navegador   ·   ALT+S o ESC  salir"_s);
    // The window's own word: it may not have the keyboard yet. A button that was gone to keeps it.
    if (ventana->focusWidget() == ui.ListaEstado)
        (enlace_.isEmpty() ? ui.cmdSalir : ui.cmdActualizar)->setFocus();
}

bool frmActualizacion::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape || !buscando_) return false;
    Timer1_.stop();
    lector_.Cancelar();
    Buscando(false);
    AgregarLinea(LineaDeLaVersion(VersionInstalada(Contexto())));
    Terminar(u"La búsqueda se canceló."_s);
    return true;
}

void frmActualizacion::cmdActualizar_Click() {
    const AppContext &ctx = Contexto();
    if (ctx.dialogos.abrirEnlace(enlace_)) {
        ui.lbEstado->setText(u"La descarga de %1 se abrió en el navegador."_s.arg(QUrl(enlace_).host()));
        return;
    }
    ctx.dialogos.advertir(
        u"No se pudo abrir el navegador: abra %1 en otro programa para descargar la actualización."_s.arg(
            enlace_));
}
