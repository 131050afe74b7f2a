#include "tests/support/servidortls.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>
#include <QUuid>
#include <QVariant>

#include "tests/support/certificados.h"
#include "tests/support/puertolibre.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

QString script() {
    return CarpetaDeFuentes() + u"/scripts/test-server"_s;
}

}  // namespace

ServidorTls::ServidorTls() : puerto_(QString::number(PuertoLibre())) {
    const Certificados &c = CertificadosDePrueba();
    QProcess p;
    p.start(script(), {u"start-tls"_s, puerto_, c.clave, c.bueno, c.otroNombre});
    constexpr int paciencia = 120'000;
    p.waitForFinished(paciencia);
    carpeta_ = QString::fromUtf8(p.readLine()).trimmed();
    if (carpeta_.isEmpty()) {
        ADD_FAILURE() << "the server with TLS did not start: " << p.readAllStandardError().toStdString()
                      << c.error.toStdString();
        return;
    }
    correr(u"alter role %1 password '%2'"_s.arg(administrador(), clave().replace(u'\'', u"''"_s)));
}

ServidorTls::~ServidorTls() {
    QProcess::execute(script(), {u"stop"_s, carpeta_});
}

QString ServidorTls::correr(const QString &sql, const QString &base) const {
    const QString nombre = QUuid::createUuid().toString();
    QString celda;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QPSQL"_s, nombre);
        db.setHostName(carpeta_);
        db.setPort(puerto_.toInt());
        db.setUserName(administrador());
        db.setDatabaseName(base);
        QSqlQuery consulta = db.open() ? QSqlQuery(db) : QSqlQuery();
        if (db.isOpen()) consulta.exec(u"set client_min_messages to warning"_s);
        if (!db.isOpen())
            ADD_FAILURE() << db.lastError().text().toStdString();
        else if (!consulta.exec(sql))
            ADD_FAILURE() << sql.toStdString() << ": " << consulta.lastError().text().toStdString();
        else if (consulta.next())
            celda = consulta.value(0).toString();
    }
    QSqlDatabase::removeDatabase(nombre);
    return celda;
}

void ServidorTls::ajustar(const QString &nombre, const QString &valor) const {
    correr(u"alter system set %1 = '%2'"_s.arg(nombre, valor));
    correr(u"select pg_reload_conf()"_s);
    // Who connects next may still come ahead of it.
    constexpr int veces = 600;
    constexpr int pausa = 50;
    for (int n = 0; n < veces && correr(u"show "_s + nombre) != valor; ++n) QThread::msleep(pausa);
}

void ServidorTls::usarCertificado(const QString &archivo) const {
    ajustar(u"ssl_cert_file"_s, carpeta_ + u'/' + QFileInfo(archivo).fileName());
}

void ServidorTls::conTls(bool activo) const {
    ajustar(u"ssl"_s, activo ? u"on"_s : u"off"_s);
}

ServidorTls &ServidorConTls() {
    static std::unique_ptr<ServidorTls> unico;
    // It goes while there is still an application to start the program that stops it.
    static const bool limpieza = [] {
        qAddPostRoutine([] { unico.reset(); });
        return true;
    }();
    Q_UNUSED(limpieza)
    if (!unico) unico = std::make_unique<ServidorTls>();
    return *unico;
}
