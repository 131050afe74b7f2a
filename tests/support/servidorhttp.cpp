#include "tests/support/servidorhttp.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

ServidorHttp::ServidorHttp(const QString &certificado, const QString &clave)
    : cifrado_(!certificado.isEmpty()) {
    QStringList palabras{CarpetaDeFuentes() + "/tests/support/servidorhttp.py"_L1, carpeta_.path()};
    if (cifrado_) palabras << u"--certificate"_s << certificado << u"--key"_s << clave;
    proceso_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    proceso_.start(u"/usr/bin/python3"_s, palabras);
    while (!proceso_.canReadLine())
        if (!proceso_.waitForReadyRead(30'000)) {
            ADD_FAILURE() << "the web server did not start (python3)";
            return;
        }
    puerto_ = QString::fromLatin1(proceso_.readLine().trimmed());
}

ServidorHttp::~ServidorHttp() {
    // Its input ends, and with it the server.
    proceso_.closeWriteChannel();
    if (proceso_.state() != QProcess::NotRunning && !proceso_.waitForFinished(5'000)) proceso_.kill();
}

QString ServidorHttp::direccion(const QString &camino) const {
    return (cifrado_ ? "https://127.0.0.1:"_L1 : "http://127.0.0.1:"_L1) + puerto_ + camino;
}

void ServidorHttp::publicar(const QString &camino, const QByteArray &documento) const {
    const QString ruta = carpeta_.path() + camino;
    QFile f(ruta);
    if (!QDir().mkpath(QFileInfo(ruta).path()) || !f.open(QIODevice::WriteOnly) || f.write(documento) < 0)
        ADD_FAILURE() << ruta.toStdString();
}

QList<QJsonObject> ServidorHttp::pedidos() {
    // Said ahead of the answer, so what was answered is on its way at the latest.
    while (!proceso_.canReadLine() && pedidos_.isEmpty() && proceso_.waitForReadyRead(5'000)) {
    }
    while (proceso_.canReadLine()) pedidos_ << QJsonDocument::fromJson(proceso_.readLine()).object();
    return pedidos_;
}
