#include "tests/mail/deverdad.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString python = u"/usr/bin/python3"_s;

class Taller {
 public:
    Taller() {
        c.clave = en("clave.pem");
        c.autoridad = en("autoridad.pem");
        const QString claveDeAutoridad = en("clave-autoridad.pem");
        for (const QString &clave : {c.clave, claveDeAutoridad})
            openssl({u"ecparam"_s, u"-name"_s, u"prime256v1"_s, u"-genkey"_s, u"-noout"_s, u"-out"_s, clave});
        autofirmar(claveDeAutoridad, u"/CN=Autoridad de prueba"_s, c.autoridad);
        c.autofirmado = en("autofirmado.pem");
        autofirmar(c.clave, u"/CN=localhost"_s, c.autofirmado);
        c.bueno = firmar("bueno.pem", "IP:127.0.0.1,DNS:localhost", 2);
        c.otroNombre = firmar("otro.pem", "DNS:otro.x.com", 2);
        c.vencido = firmar("vencido.pem", "IP:127.0.0.1,DNS:localhost", -1);
    }
    Certificados c;

 private:
    QString en(const char *nombre) const { return carpeta_.filePath(QLatin1String(nombre)); }
    void openssl(const QStringList &palabras) {
        QProcess p;
        p.start(u"openssl"_s, palabras);
        if (!p.waitForFinished() || p.exitCode() != 0)
            c.error += palabras.join(u' ') + u": "_s + QString::fromLocal8Bit(p.readAllStandardError());
    }
    void autofirmar(const QString &clave, const QString &nombre, const QString &salida) {
        openssl({u"req"_s, u"-x509"_s, u"-new"_s, u"-key"_s, clave, u"-subj"_s, nombre, u"-addext"_s,
                 u"subjectAltName=IP:127.0.0.1"_s, u"-days"_s, u"2"_s, u"-out"_s, salida});
    }
    QString firmar(const char *nombre, const char *alternativos, int dias) {
        const QString pedido = en("pedido.csr");
        const QString extension = en("extension");
        QFile f(extension);
        if (!f.open(QIODevice::WriteOnly)) c.error += f.errorString();
        f.write(QByteArray("subjectAltName=") + alternativos);
        f.close();
        openssl({u"req"_s, u"-new"_s, u"-key"_s, c.clave, u"-subj"_s, u"/CN=servidor"_s, u"-out"_s, pedido});
        openssl({u"x509"_s, u"-req"_s, u"-in"_s, pedido, u"-CA"_s, c.autoridad, u"-CAkey"_s,
                 en("clave-autoridad.pem"), u"-CAcreateserial"_s, u"-extfile"_s, extension, u"-days"_s,
                 QString::number(dias), u"-out"_s, en(nombre)});
        return en(nombre);
    }

    QTemporaryDir carpeta_;
};

QByteArray contenidoDe(const QString &ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace

const Certificados &CertificadosDePrueba() {
    static const Taller taller;
    return taller.c;
}

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
