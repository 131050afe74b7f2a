#include "tests/support/oficina.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

#include "frame/base/ini.h"
#include "frame/store/StoreProfiles.h"
#include "frame/store/connectwords.h"
#include "tests/support/certificados.h"
#include "tests/support/servidortls.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

CorridaDeDb CorrerDbUpgrade3(const QString &casa, const QStringList &argumentos,
                             const std::map<QString, QString> &entorno) {
    QProcess p;
    QProcessEnvironment suyo = QProcessEnvironment::systemEnvironment();
    suyo.insert(u"HOME"_s, casa);
    suyo.insert(u"XDG_CONFIG_HOME"_s, casa + u"/config"_s);
    for (const auto &[nombre, valor] : entorno) suyo.insert(nombre, valor);
    p.setProcessEnvironment(suyo);
    p.start(qEnvironmentVariable("ZENDRA_BIN", CarpetaDeConstruccion()) + u"/DbUpgrade3"_s, argumentos);
    CorridaDeDb c;
    constexpr int paciencia = 180'000;
    if (!p.waitForFinished(paciencia)) return c;
    c.estado = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    c.salida = QString::fromUtf8(p.readAllStandardOutput());
    c.errores = QString::fromUtf8(p.readAllStandardError());
    return c;
}

Oficina::Oficina() {
    static int cuantas = 0;
    base_ = u"zendra_%1_%2"_s.arg(QCoreApplication::applicationPid()).arg(++cuantas);
}

Oficina::~Oficina() {
    const ServidorTls &s = ServidorConTls();
    s.correr(u"drop database if exists %1 with (force)"_s.arg(base_));
    s.correr(u"drop role if exists %1, %2"_s.arg(dueno(), trabajo()));
}

CorridaDeDb Oficina::poner(const QStringList &mas, const std::map<QString, QString> &entorno,
                           const QString &usuario) const {
    const QString quien = usuario.isEmpty() ? ServidorTls::administrador() : usuario;
    std::map<QString, QString> suyo{{u"PGPASSWORD"_s, ServidorTls::clave()}};
    for (const auto &[nombre, valor] : entorno) suyo[nombre] = valor;
    return dbUpgrade3(
        QStringList{u"--perfil"_s, perfil(), u"--crear-servidor"_s,
                    QStringList{u"127.0.0.1"_s, ServidorConTls().puerto(), base_, quien}.join(u','),
                    u"--conexion"_s, u"sslmode=verify-full"_s, u"--conexion"_s,
                    u"sslrootcert="_s + CertificadosDePrueba().autoridad} +
            mas,
        suyo);
}

CorridaDeDb Oficina::dbUpgrade3(const QStringList &argumentos,
                                const std::map<QString, QString> &entorno) const {
    return CorrerDbUpgrade3(carpeta(), argumentos, entorno);
}

QString Oficina::correr(const QString &sql) const {
    return ServidorConTls().correr(sql, base_);
}

QString Oficina::dice(const QString &perfil, const QString &clave) {
    return LeerIni(u"INTERNOS"_s, clave, perfil);
}

QByteArray Leido(const QString &ruta) {
    QFile f(ruta);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << ruta.toStdString();
    return f.readAll();
}

bool EsDeSuDuenoSolo(const QString &ruta) {
    constexpr auto deOtros = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                             QFile::WriteOther | QFile::ExeOther;
    return QFile::exists(ruta) && !(QFile::permissions(ruta) & deOtros);
}

ComoElPerfil::ComoElPerfil(const QString &ruta) : nombre_(QUuid::createUuid().toString()) {
    StoreProfiles::SPMain manager;
    EXPECT_TRUE(manager.usarPerfil(ruta));
    db_ = QSqlDatabase::addDatabase(u"QPSQL"_s, nombre_);
    motores::prepararConexion(*manager.datos(u"INTERNOS"_s), db_);
    EXPECT_TRUE(db_.open()) << db_.lastError().text().toStdString();
}

ComoElPerfil::~ComoElPerfil() {
    db_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(nombre_);
}

std::string ComoElPerfil::correr(const QString &sql) const {
    QSqlQuery consulta(db_);
    return consulta.exec(sql) ? std::string() : consulta.lastError().nativeErrorCode().toStdString();
}

QString ComoElPerfil::celda(const QString &sql) const {
    QSqlQuery consulta(db_);
    return consulta.exec(sql) && consulta.next() ? consulta.value(0).toString() : u"<nada>"_s;
}
