#include "tests/mail/deverdad.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString python = u"/usr/bin/python3"_s;

QByteArray contenidoDe(const QString &ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace

EnvioDeVerdad::~EnvioDeVerdad() {
    // Its input ends, and with it the server.
    servidor.closeWriteChannel();
    if (servidor.state() != QProcess::NotRunning && !servidor.waitForFinished(5'000)) servidor.kill();
}

void EnvioDeVerdad::servir(const QStringList &palabras) {
    ASSERT_EQ(CertificadosDePrueba().error, QString());
    servidor.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    servidor.start(python,
                   QStringList{CarpetaDeFuentes() + "/tests/mail/servidor.py"_L1, buzon.path()} + palabras);
    while (!servidor.canReadLine())
        ASSERT_TRUE(servidor.waitForReadyRead(30'000)) << "the server did not start (python3-aiosmtpd)";
    correo.servidor = "127.0.0.1:"_L1 + QString::fromLatin1(servidor.readLine().trimmed());
}

void EnvioDeVerdad::servirConLogin(bool tls) {
    const Certificados &c = CertificadosDePrueba();
    QStringList palabras{u"--certificate"_s, c.bueno,         u"--key"_s,      c.clave,
                         u"--user"_s,        u"juan@x.com"_s, u"--password"_s, u"clave ñ%1"_s};
    if (tls) palabras << u"--tls"_s;
    servir(palabras);
    configurar("SEGURIDAD", tls ? u"TLS"_s : u"STARTTLS"_s);
    configurar("USUARIO", u"juan@x.com"_s);
    configurar("CERTIFICADOS", c.autoridad);
    conContrasena(u"clave ñ%1"_s);
}

QByteArray EnvioDeVerdad::tomado() const {
    return contenidoDe(buzon.filePath(u"1.eml"_s));
}
QByteArray EnvioDeVerdad::sobre() const {
    return contenidoDe(buzon.filePath(u"1.sobre"_s));
}

QJsonObject EnvioDeVerdad::leido() const {
    QProcess p;
    p.start(python, {CarpetaDeFuentes() + "/tests/mail/leer.py"_L1, buzon.filePath(u"1.eml"_s)});
    EXPECT_TRUE(p.waitForFinished()) << "it cannot be read";
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    return QJsonDocument::fromJson(p.readAllStandardOutput()).object();
}

FinDeEnvio EnvioDeVerdad::falla(const QString &comienzo) {
    const FinDeEnvio fin = enviar();
    EXPECT_FALSE(fin.enviado);
    EXPECT_FALSE(fin.cerrar) << "the log goes before it was read";
    EXPECT_EQ(fin.mensaje.titulo, u"Error de SMTP"_s);
    EXPECT_EQ(fin.mensaje.icono, Icono::Critico);
    EXPECT_TRUE(fin.mensaje.texto.startsWith(comienzo)) << fin.mensaje.texto.toStdString();
    EXPECT_EQ(tomado(), QByteArray());
    EXPECT_NE(correo.cuerpo, QString()) << "what did not leave is still there";
    return fin;
}
