#include "assembly/FrmArmarItem.h"

#include <QProgressBar>
#include <QTimer>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/iconos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int ladoDeMarca = 20;
constexpr int pasoDeInsumos = static_cast<int>(PasoArmado::ActualizandoInsumos);

}  // namespace

FrmArmarItem::FrmArmarItem() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    marcas_ = {ui.Marca_0, ui.Marca_1, ui.Marca_2, ui.Marca_3, ui.Marca_4,
               ui.Marca_5, ui.Marca_6, ui.Marca_7, ui.Marca_8, ui.Marca_9};
    textos_ = {ui.Paso_0, ui.Paso_1, ui.Paso_2, ui.Paso_3, ui.Paso_4,
               ui.Paso_5, ui.Paso_6, ui.Paso_7, ui.Paso_8, ui.lbInsumos};
    Form_Load();
    Conectar();
}

void FrmArmarItem::Form_Load() {
    ui.lbEstado->setText(u"0"_s);
    for (std::size_t n = 0; n < marcas_.size(); ++n) {
        textos_.at(n)->setText(TextosDePasos().at(static_cast<int>(n)));
        marcas_.at(n)->setPixmap(Imagen(Dibujo::PasoPendiente, ladoDeMarca, ventana->devicePixelRatioF()));
    }
    marcas_.at(pasoDeInsumos)->hide();
    ui.lbInsumos->hide();
}

void FrmArmarItem::Conectar() {
    EscucharTeclas(ventana.get(), [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(ventana.get(), [this](QEvent *evento) {
        switch (evento->type()) {
            case QEvent::Show:
            case QEvent::WindowActivate:
                // A window manager may never activate the window; showing it is enough. Not from within the
                // event: the run serves events itself.
                QTimer::singleShot(0, ventana.get(), [this] { Form_Activate(); });
                return false;
            case QEvent::Close:
                evento->ignore();
                if (!corriendo_) Form_Unload();
                return true;
            default:
                return false;
        }
    });
}

void FrmArmarItem::Mostrar(const QString &interno, const OpcionesDeArmado &opciones) {
    interno_ = interno;
    opciones_ = opciones;
    ui.LbInterno->setText(interno);
    ventana->setModal(true);
    MostrarVentana(ventana.get());
}

void FrmArmarItem::Form_Activate() {
    if (ui.lbEstado->text() != "0"_L1) return;
    ui.lbEstado->setText(u"1"_s);
    AppContext &ctx = Contexto();
    const auto anterior = ctx.dialogos.avance;
    ctx.dialogos.avance = [this, anterior](const Avance &avance) {
        anterior(avance);
        Pintar(avance);
    };
    corriendo_ = true;
    const bool seCierra = Generar(ctx, interno_, opciones_);
    corriendo_ = false;
    ctx.dialogos.avance = anterior;
    if (seCierra)
        Form_Unload();
    else
        ui.lbTeclas->setText(u"El armado no terminó.   ESC  cerrar"_s);
}

bool FrmArmarItem::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape) return false;
    if (!corriendo_) Form_Unload();
    return true;
}

void FrmArmarItem::Form_Unload() {
    const auto despues = std::move(alCerrar);
    alCerrar = nullptr;
    CerrarPantalla<FrmArmarItem>();
    if (despues) despues();
}

void FrmArmarItem::Marcar(int paso, bool hecho) {
    const auto cual = static_cast<std::size_t>(paso);
    marcas_.at(cual)->setPixmap(
        Imagen(hecho ? Dibujo::PasoHecho : Dibujo::PasoCorriendo, ladoDeMarca, ventana->devicePixelRatioF()));
    QFont letra = textos_.at(cual)->font();
    letra.setBold(!hecho);
    textos_.at(cual)->setFont(letra);
}

void FrmArmarItem::Pintar(const Avance &avance) {
    switch (avance.tipo) {
        case Avance::Tipo::PasoCorriendo:
            Marcar(avance.paso, false);
            break;
        case Avance::Tipo::PasoHecho:
            Marcar(avance.paso, true);
            break;
        case Avance::Tipo::MostrarPaso:
            marcas_.at(static_cast<std::size_t>(avance.paso))->show();
            textos_.at(static_cast<std::size_t>(avance.paso))->show();
            break;
        case Avance::Tipo::Barra:
            if (auto *barra = ventana->findChild<QProgressBar *>(avance.control)) {
                barra->setMaximum(std::max(1, avance.maximo));
                barra->setValue(avance.valor);
            }
            break;
        case Avance::Tipo::Etiqueta:
            if (auto *etiqueta = ventana->findChild<QLabel *>(avance.control))
                etiqueta->setText(avance.texto);
            else if (alCambiarTablero)
                alCambiarTablero(avance);
            break;
    }
}
