#include "desktop/FrmConGen.h"

#include <QPrinterInfo>
#include <array>
#include <utility>

#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

using Ventana = Ui::FrmConGen;

/// Each box and what it shows.
constexpr std::array<std::pair<QCheckBox * Ventana::*, bool ValoresConGen::*>, 22> casillas{{
    {&Ventana::chByArt, &ValoresConGen::chByArt},
    {&Ventana::Check1, &ValoresConGen::Check1},
    {&Ventana::Check2, &ValoresConGen::Check2},
    {&Ventana::Check3, &ValoresConGen::Check3},
    {&Ventana::Check4, &ValoresConGen::Check4},
    {&Ventana::chVfySbtDup, &ValoresConGen::chVfySbtDup},
    {&Ventana::chSbtNroArtAI, &ValoresConGen::chSbtNroArtAI},
    {&Ventana::Chk_NoCalcularLiquidacion, &ValoresConGen::Chk_NoCalcularLiquidacion},
    {&Ventana::chINSTEMPPerMer, &ValoresConGen::chINSTEMPPerMer},
    {&Ventana::chINSTEMPVDE, &ValoresConGen::chINSTEMPVDE},
    {&Ventana::chFlgArtModSub, &ValoresConGen::chFlgArtModSub},
    {&Ventana::chSbtMantCodart, &ValoresConGen::chSbtMantCodart},
    {&Ventana::chSbtMantDatos, &ValoresConGen::chSbtMantDatos},
    {&Ventana::chSbtMostrarAsc, &ValoresConGen::chSbtMostrarAsc},
    {&Ventana::chkEnviarComExt, &ValoresConGen::chkEnviarComExt},
    {&Ventana::chkSBTForzarARTenAI, &ValoresConGen::chkSBTForzarARTenAI},
    {&Ventana::chVendedorxNombre, &ValoresConGen::chVendedorxNombre},
    {&Ventana::chCANCSinStock, &ValoresConGen::chCANCSinStock},
    {&Ventana::chSbtFuncionCargaPor, &ValoresConGen::chSbtFuncionCargaPor},
    {&Ventana::chkMostrarOperaciones, &ValoresConGen::chkMostrarOperaciones},
    {&Ventana::chResponderOpcionesObligatorio, &ValoresConGen::chResponderOpcionesObligatorio},
    {&Ventana::chkNoMandarDescripcionenITEM, &ValoresConGen::chkNoMandarDescripcionenITEM},
}};

/// Each text and what it shows.
constexpr std::array<std::pair<QLineEdit * Ventana::*, QString ValoresConGen::*>, 5> textos{{
    {&Ventana::textIniciales, &ValoresConGen::textIniciales},
    {&Ventana::txtRIN, &ValoresConGen::txtRIN},
    {&Ventana::TxtRNI, &ValoresConGen::TxtRNI},
    {&Ventana::txtIndMaxArancel, &ValoresConGen::txtIndMaxArancel},
    {&Ventana::txtPrefPorc, &ValoresConGen::txtPrefPorc},
}};

}  // namespace

FrmConGen::FrmConGen() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmConGen::Form_Load() {
    ui.cboListado->addItems({u"Numero de Interno"_s, u"Fecha de Creación"_s});
    const QStringList impresoras = QPrinterInfo::availablePrinterNames();
    ui.LstImpresoras->addItems(impresoras);
    Pintar(LeerConGen(Contexto(), impresoras));
}

void FrmConGen::Conectar() {
    for (const auto &[campo, miembro] : textos) ClCntrl::Vincular(ui.*campo);
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
    ui.cboListado->setCurrentIndex(valores.cboListado);
    for (const auto &[campo, miembro] : textos) (ui.*campo)->setText(valores.*miembro);
    for (const auto &[casilla, miembro] : casillas) (ui.*casilla)->setChecked(valores.*miembro);
    (valores.opARMARITEM1 ? ui.opARMARITEM1 : ui.opARMARITEM2)->setChecked(true);
    ui.chINSTEMPPerMer->setEnabled(valores.insumosHabilitados);
    ui.chINSTEMPVDE->setEnabled(valores.insumosHabilitados);
    const auto halladas = ui.LstImpresoras->findItems(valores.LstImpresoras, Qt::MatchExactly);
    ui.LstImpresoras->setCurrentItem(halladas.isEmpty() ? nullptr : halladas.first());
}

ValoresConGen FrmConGen::Leer() const {
    ValoresConGen valores;
    valores.cboListado = ui.cboListado->currentIndex();
    for (const auto &[campo, miembro] : textos) valores.*miembro = (ui.*campo)->text();
    for (const auto &[casilla, miembro] : casillas) valores.*miembro = (ui.*casilla)->isChecked();
    valores.opARMARITEM1 = ui.opARMARITEM1->isChecked();
    valores.insumosHabilitados = ui.chINSTEMPPerMer->isEnabled();
    if (const QListWidgetItem *impresora = ui.LstImpresoras->currentItem())
        valores.LstImpresoras = impresora->text();
    return valores;
}

void FrmConGen::Form_Escape() {
    const Veredicto guardado = GuardarConGen(Contexto(), Leer());
    // A file that cannot be written was told; the options hold for this run all the same.
    if (guardado.ok || guardado.foco.isEmpty()) {
        CerrarPantalla<FrmConGen>();
        return;
    }
    if (auto *campo = ventana->findChild<QWidget *>(guardado.foco)) campo->setFocus();
}
