#include "desktop/FrmConGen.h"

#include <QPrinterInfo>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

/// Calls `tratar` with every option that the screen shows.
template <class Tratar>
void porCadaOpcion(Tratar tratar) {
    for (const FilaDeOpcion &opcion : FilasDeOpciones())
        if (*opcion.control != '\0') tratar(opcion);
}

}  // namespace

FrmConGen::FrmConGen() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

QWidget *FrmConGen::Control(const FilaDeOpcion &opcion) const {
    const QString nombre = QLatin1String(opcion.control);
    auto *control = ventana->findChild<QWidget *>(nombre);
    if (control == nullptr)
        throw Falla{0, u"FrmConGen"_s, u"La pantalla de opciones no tiene el control %1."_s.arg(nombre), {}};
    return control;
}

void FrmConGen::Form_Load() {
    ui.cboListado->addItem(u"Numero de Interno"_s, u"0"_s);
    ui.cboListado->addItem(u"Fecha de Creación"_s, u"1"_s);
    const QStringList impresoras = QPrinterInfo::availablePrinterNames();
    ui.LstImpresoras->addItems(impresoras);
    Pintar(LeerConGen(Contexto(), impresoras));
}

void FrmConGen::Conectar() {
    porCadaOpcion([this](const FilaDeOpcion &opcion) {
        if (auto *campo = qobject_cast<QLineEdit *>(Control(opcion))) ClCntrl::Vincular(campo);
    });
    Escuchar(ventana.get(), [this](QEvent *evento) {
        const bool escape =
            evento->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(evento)->key() == Qt::Key_Escape;
        if (evento->type() != QEvent::Close && !escape) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
}

void FrmConGen::Mostrar() {
    ventana->setModal(true);
    MostrarVentana(ventana.get());
    ui.textIniciales->setFocus();
}

void FrmConGen::Pintar(const ValoresConGen &valores) {
    ui.rutaLabel->setText(valores.rutaLabel);
    porCadaOpcion([&](const FilaDeOpcion &opcion) {
        campos::PonerTexto(Control(opcion), valores[QString(QLatin1String(opcion.control))]);
    });
    // Two buttons, one option.
    ui.opARMARITEM2->setChecked(!ui.opARMARITEM1->isChecked());
    ui.chINSTEMPPerMer->setEnabled(valores.insumosHabilitados);
    ui.chINSTEMPVDE->setEnabled(valores.insumosHabilitados);
}

ValoresConGen FrmConGen::Leer() const {
    ValoresConGen valores;
    porCadaOpcion([&](const FilaDeOpcion &opcion) {
        valores.controles[QLatin1String(opcion.control)] = campos::TextoDe(Control(opcion));
    });
    return valores;
}

void FrmConGen::Form_Escape() {
    const Veredicto guardado = GuardarConGen(Contexto(), Leer());
    // A file that cannot be written was told; the options hold for this run all the same.
    if (guardado.ok || guardado.foco.isEmpty()) {
        CerrarPantalla<FrmConGen>();
        return;
    }
    campos::Enfocar(ventana.get(), guardado.foco);
}
