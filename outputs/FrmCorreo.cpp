#include "outputs/FrmCorreo.h"

#include <QDir>
#include <QFileDialog>
#include <utility>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmCorreo::FrmCorreo() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    elegirArchivo = [this](const QString &inicial) {
        return QFileDialog::getOpenFileName(ventana.get(), u"Certificados de autoridades"_s, inicial,
                                            u"Certificados (*.pem *.crt *.cer);;Todos (*)"_s);
    };
    Conectar();
}

void FrmCorreo::Conectar() {
    QDialog *v = ventana.get();
    for (QWidget *campo : std::initializer_list<QWidget *>{
             ui.TxtEmail, ui.TxtServer, ui.CbSeguridad, ui.TxtUsuario, ui.TxtContrasena, ui.TxtCertificados})
        ClCntrl::Vincular(campo);
    for (QLineEdit *campo : {ui.TxtEmail, ui.TxtServer, ui.TxtUsuario})
        QObject::connect(campo, &QLineEdit::editingFinished, v, [this] { MostrarContrasena(); });
    EscucharTeclas(ui.TxtCertificados, [this](QKeyEvent *tecla) { return TxtCertificados_KeyDown(tecla); });
    QObject::connect(ui.CmdElegir, &QPushButton::clicked, v, [this] { CmdElegir_Click(); });
    QObject::connect(ui.CmdOlvidar, &QPushButton::clicked, v, [this] { CmdOlvidar_Click(); });
    QObject::connect(ui.CmdGuardar, &QPushButton::clicked, v, [this] { CmdGuardar_Click(); });
}

void FrmCorreo::Mostrar() {
    Cargar();
    ui.TxtEmail->setFocus();
    ventana->exec();
    ui.TxtContrasena->clear();
}

void FrmCorreo::Cargar() {
    const AjustesDeCorreo leidos = LeerAjustesDeCorreo(Contexto());
    ui.TxtEmail->setText(leidos.email);
    ui.TxtServer->setText(leidos.server);
    ui.CbSeguridad->clear();
    ui.CbSeguridad->addItem(u"Sin cifrar"_s, QString());
    for (const QString &seguridad : {u"STARTTLS"_s, u"TLS"_s}) ui.CbSeguridad->addItem(seguridad, seguridad);
    // What the file says and nobody knows is shown, and refused when it is saved.
    if (ui.CbSeguridad->findData(leidos.seguridad) < 0)
        ui.CbSeguridad->addItem(leidos.seguridad, leidos.seguridad);
    ui.CbSeguridad->setCurrentIndex(ui.CbSeguridad->findData(leidos.seguridad));
    ui.TxtUsuario->setText(leidos.usuario);
    ui.TxtContrasena->clear();
    ui.TxtCertificados->setText(leidos.certificados);
    Esperar(false);
    MostrarContrasena();
}

AjustesDeCorreo FrmCorreo::ajustes() const {
    return {ui.TxtEmail->text().trimmed(), ui.TxtServer->text().trimmed(),
            ui.CbSeguridad->currentData().toString(), ui.TxtUsuario->text().trimmed(),
            ui.TxtCertificados->text().trimmed()};
}

QString FrmCorreo::cuenta() const {
    const AjustesDeCorreo a = ajustes();
    return NombreDelSecreto(UsuarioDelCorreo(a, a.email), a.server);
}

Secretos FrmCorreo::secretos() const {
    return {Contexto().llavero, Contexto().ajustes};
}

void FrmCorreo::Esperar(bool espera) {
    ui.cuerpo_FrmCorreo->setEnabled(!espera);
}

void FrmCorreo::MostrarContrasena() {
    const QString deQuien = cuenta();
    const auto mostrar = [this](bool hay, const QString &texto) {
        ui.CmdOlvidar->setEnabled(hay);
        ui.LbContrasena->setText(texto);
    };
    if (deQuien.isEmpty()) {
        mostrar(false, u"No hay contraseña guardada."_s);
        return;
    }
    secretos().Leer(deQuien, ui.LbContrasena, [this, deQuien, mostrar](const Secreto &secreto) {
        if (deQuien != cuenta()) return;
        if (!secreto.falla.isEmpty())
            mostrar(true, secreto.falla);
        else if (secreto.valor.isEmpty())
            mostrar(false, u"No hay contraseña guardada para esta cuenta."_s);
        else
            mostrar(true, u"Hay una contraseña guardada para esta cuenta: déjela vacía para conservarla."_s);
    });
}

bool FrmCorreo::TxtCertificados_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_F6) return false;
    CmdElegir_Click();
    return true;
}

void FrmCorreo::CmdElegir_Click() {
    const QString elegido = elegirArchivo(ui.TxtCertificados->text());
    if (!elegido.isEmpty()) ui.TxtCertificados->setText(QDir::toNativeSeparators(elegido));
    ui.TxtCertificados->setFocus();
}

void FrmCorreo::CmdOlvidar_Click() {
    AppContext &ctx = Contexto();
    ui.TxtContrasena->setFocus();
    if (!ctx.dialogos.preguntar(
            {u"¿Desea olvidar la contraseña guardada para esta cuenta?"_s, {}, Icono::Pregunta, true}))
        return;
    secretos().Olvidar(cuenta(), ui.LbContrasena, [this, &ctx](const Secreto &secreto) {
        if (!secreto.falla.isEmpty()) ctx.dialogos.critico(secreto.falla);
        MostrarContrasena();
    });
}

void FrmCorreo::CmdGuardar_Click() {
    AppContext &ctx = Contexto();
    const QString contrasena = ui.TxtContrasena->text();
    const Veredicto guardado = GuardarAjustesDeCorreo(ctx, ajustes(), !contrasena.isEmpty());
    if (!guardado.ok) {
        campos::Enfocar(ventana.get(), guardado.foco);
        return;
    }
    if (contrasena.isEmpty()) {
        ventana->accept();
        return;
    }
    Esperar(true);
    secretos().Guardar(cuenta(), contrasena, ui.LbContrasena, [this, &ctx](const Secreto &secreto) {
        Esperar(false);
        if (secreto.falla.isEmpty()) {
            ventana->accept();
            return;
        }
        ctx.dialogos.critico(secreto.falla);
        ui.TxtContrasena->setFocus();
    });
}
