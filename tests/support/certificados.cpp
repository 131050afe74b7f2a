#include "tests/support/certificados.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

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

}  // namespace

const Certificados &CertificadosDePrueba() {
    static const Taller taller;
    return taller.c;
}
