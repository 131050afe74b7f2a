#include "outputs/FrmDatos.h"

#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmDatos::FrmDatos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmDatos::Conectar() {
    QDialog *v = ventana.get();
    for (QWidget *campo : {static_cast<QWidget *>(ui.TxtValor), static_cast<QWidget *>(ui.opDolar),
                           static_cast<QWidget *>(ui.opPeso)})
        ClCntrl::Vincular(campo);
    QObject::connect(ui.CmdAceptar, &QPushButton::clicked, v, [this] { CmdAceptar_Click(); });
    QObject::connect(ui.CmdCancelar, &QPushButton::clicked, v, &QDialog::reject);
    // ENTER takes the value from wherever one is; on a button it is the button's.
    EscucharTeclas(v, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        CmdAceptar_Click();
        return true;
    });
}

std::optional<ValorDelPresupuesto> FrmDatos::Pedir(const QString &concepto,
                                                   const ValorDelPresupuesto &inicial) {
    ui.LbConcepto->setText(concepto);
    ui.TxtValor->setText(inicial.valor);
    (inicial.enDolares ? ui.opDolar : ui.opPeso)->setChecked(true);
    ui.TxtValor->setFocus();
    ui.TxtValor->selectAll();
    if (ventana->exec() != QDialog::Accepted) return {};
    return ValorDelPresupuesto{ui.TxtValor->text().trimmed(), ui.opDolar->isChecked()};
}

void FrmDatos::CmdAceptar_Click() {
    if (numeros::esNumerico(ui.TxtValor->text())) {
        ventana->accept();
        return;
    }
    Contexto().dialogos.advertir(u"El valor no es un número, corríjalo."_s);
    ui.TxtValor->setFocus();
    ui.TxtValor->selectAll();
}

std::optional<ValorDelPresupuesto> PedirImporte(const QString &concepto, const ValorDelPresupuesto &inicial) {
    auto valor = Pantalla<FrmDatos>().Pedir(concepto, inicial);
    CerrarPantalla<FrmDatos>();
    return valor;
}
