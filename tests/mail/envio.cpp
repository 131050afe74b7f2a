#include "tests/mail/envio.h"

#include <QDeadlineTimer>
#include <QTest>
#include <QTimer>

#include "frame/base/ini.h"

using namespace Qt::StringLiterals;

void esEnviado(const FinDeEnvio &fin) {
    EXPECT_TRUE(fin.enviado);
    EXPECT_TRUE(fin.cerrar);
    EXPECT_EQ(fin.mensaje.texto, u"Datos enviados."_s);
    EXPECT_EQ(fin.mensaje.titulo, u"ZENDRA/W"_s);
}

void esperarA(const std::function<bool()> &listo) {
    const QDeadlineTimer plazo(30'000);
    while (!listo()) {
        ASSERT_FALSE(plazo.hasExpired()) << "it never came";
        QTest::qWait(1);
    }
}

Envio::Envio() {
    ctx.ConfigFilePath = carpeta.filePath(u"ZENDRA.ini"_s);
    ctx.ajustes = Ajustes(carpeta.filePath(u"ajustes.ini"_s));
    ctx.dialogos = DialogosDePrueba(registro);
    correo.nombreDelRemitente = u"Estudio Peña"_s;
    correo.remitente = u"estudio@despacho.com.ar"_s;
    correo.asunto = u"Presupuesto"_s;
    correo.cuerpo = u"<html>\n<p>Año</p>\n</html>\n"_s;
    correo.destinatario = u"cliente@importa.com"_s;
    correo.nombreDelDestinatario = u"Importa S.A."_s;
}

void Envio::configurar(const char *clave, const QString &valor) {
    ASSERT_TRUE(EscribirIni(u"SMTP"_s, QLatin1String(clave), valor, ctx.ConfigFilePath));
}

void Envio::conContrasena(const QString &contrasena) {
    const QString usuario = UsuarioDelCorreo(LeerAjustesDeCorreo(ctx), correo.remitente);
    QObject quien;
    QString falla = u"no answer"_s;
    Secretos(ctx.llavero, ctx.ajustes)
        .Guardar(NombreDelSecreto(usuario, correo.servidor), contrasena, &quien,
                 [&falla](const Secreto &s) { falla = s.falla; });
    ASSERT_EQ(falla, QString());
}

FinDeEnvio Envio::enviar(const PlazosDeEnvio &plazos) {
    std::optional<FinDeEnvio> fin;
    QTimer reloj;
    QObject::connect(&reloj, &QTimer::timeout, &reloj, [this] { ++ticks; });
    reloj.start(20);
    EnvioDeCorreo envio(ctx, correo,
                        {[this](const QString &texto) { log += texto + u'\n'; },
                         [&fin](const FinDeEnvio &f) {
                             EXPECT_FALSE(fin.has_value()) << "it ended twice";
                             fin = f;
                         }},
                        plazos);
    envio.Iniciar();
    esperarA([&fin] { return fin.has_value(); });
    return fin.value_or(FinDeEnvio());
}

FinDeEnvio Envio::enviarEInterrumpir(const std::function<bool()> &cuando) {
    EnvioDeCorreo envio(
        ctx, correo,
        {[this](const QString &texto) { log += texto + u'\n'; },
         [](const FinDeEnvio &f) { ADD_FAILURE() << "it ended: " << f.mensaje.texto.toStdString(); }});
    envio.Iniciar();
    esperarA(cuando);
    return envio.Interrumpir();
}
