#include "outputs/FrmProcesando.h"

#include "frame/context.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmProcesando::FrmProcesando() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
}

bool FrmProcesando::Enviar(Correo &correo) {
    AppContext &ctx = Contexto();
    terminado_ = false;
    enviado_ = false;
    ui.TxtMen->clear();
    ui.lbTeclas->setText(u"ESC  interrumpir el envío"_s);
    EnvioDeCorreo envio(ctx, correo,
                        {[this](const QString &texto) { ui.TxtMen->appendPlainText(texto); },
                         [this](const FinDeEnvio &fin) { Terminar(fin); }});
    envio.Iniciar();
    ui.TxtMen->setFocus();
    ventana->exec();
    if (terminado_) return enviado_;
    const FinDeEnvio fin = envio.Interrumpir();
    ctx.dialogos.mensaje(fin.mensaje);
    return fin.enviado;
}

void FrmProcesando::Terminar(const FinDeEnvio &fin) {
    terminado_ = true;
    enviado_ = fin.enviado;
    ui.lbTeclas->setText(u"ESC  salir"_s);
    Contexto().dialogos.mensaje(fin.mensaje);
    if (fin.cerrar) ventana->accept();
}
