#include "header/FrmABMAgTrans.h"

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmABMAgTrans::FrmABMAgTrans() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmABMAgTrans::Conectar() {
    for (QLineEdit *campo : {ui.TxtCuit, ui.TxtNombre}) ClCntrl::Vincular(campo);
    QObject::connect(ui.CmdGuardar, &QPushButton::clicked, ventana.get(), [this] { CmdGuardar_Click(); });
}

void FrmABMAgTrans::Cargar(const AgenteDeTransporte &agente, bool editando) {
    agente_ = agente;
    editando_ = editando;
    ventana->setWindowTitle(editando ? u"Modificar agente de transporte"_s
                                     : u"Agregar agente de transporte"_s);
    ui.TxtCuit->setText(agente.cuit);
    ui.TxtNombre->setText(agente.nombre);
    (agente.cuit.isEmpty() ? ui.TxtCuit : ui.TxtNombre)->setFocus();
}

std::optional<AgenteDeTransporte> FrmABMAgTrans::Mostrar() {
    if (ventana->exec() != QDialog::Accepted) return {};
    return agente_;
}

std::optional<AgenteDeTransporte> FrmABMAgTrans::Agregar(const QString &cuit) {
    Cargar({cuit, {}}, false);
    return Mostrar();
}

std::optional<AgenteDeTransporte> FrmABMAgTrans::Modificar(const AgenteDeTransporte &agente) {
    Cargar(agente, true);
    return Mostrar();
}

void FrmABMAgTrans::CmdGuardar_Click() {
    AppContext &ctx = Contexto();
    const AgenteDeTransporte nuevo{ui.TxtCuit->text().trimmed(), ui.TxtNombre->text().trimmed()};
    Manejar(ctx, [&] {
        const Veredicto guardado =
            GuardarAgente(ctx, nuevo, editando_ ? std::optional<QString>(agente_.cuit) : std::nullopt);
        if (guardado.ok) {
            agente_ = nuevo;
            ventana->accept();
            return;
        }
        campos::Enfocar(ventana.get(), guardado.foco);
    });
}

std::optional<AgenteDeTransporte> AgregarAgente(const QString &cuit) {
    auto agente = Pantalla<FrmABMAgTrans>().Agregar(cuit);
    CerrarPantalla<FrmABMAgTrans>();
    return agente;
}
