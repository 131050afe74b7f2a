#pragma once
// A web server of python3 on the loopback, which goes with its object.

#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QTemporaryDir>

class ServidorHttp {
 public:
    /// Plain, or encrypted with a certificate and its key (PEM files).
    explicit ServidorHttp(const QString &certificado = {}, const QString &clave = {});
    ~ServidorHttp();
    ServidorHttp(const ServidorHttp &) = delete;
    ServidorHttp &operator=(const ServidorHttp &) = delete;

    /// "http://127.0.0.1:PORT" and the path; servidorhttp.py tells which ones answer in odd ways.
    QString direccion(const QString &camino = {}) const;
    /// What is served at a path from now on.
    void publicar(const QString &camino, const QByteArray &documento) const;
    /// The questions up to now: "path", and each header under its name.
    QList<QJsonObject> pedidos();

 private:
    bool cifrado_;
    QString puerto_;
    QTemporaryDir carpeta_;
    QProcess proceso_;
    QList<QJsonObject> pedidos_;
};
