#include "tests/support/servidorpropio.h"

#include <pwd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStorageInfo>
#include <QThread>
#include <QUuid>
#include <csignal>
#include <memory>
#include <stdexcept>

#include "tests/support/puertolibre.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int pacienciaDelServidor = 30000;  ///< ms, for a machine that is busy with everything else

[[noreturn]] void rendirse(const QString &texto) {
    throw std::runtime_error(texto.toStdString());
}

QString programaDelServidor(const QString &nombre) {
    const QDir instalados(u"/usr/lib/postgresql"_s);
    const QStringList versiones = instalados.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    if (versiones.isEmpty()) rendirse(u"No PostgreSQL server is installed (package postgresql)."_s);
    return instalados.filePath(versiones.last() + "/bin/"_L1 + nombre);
}

/// The server refuses to run as root; `orden` as whoever may.
QStringList sinPrivilegios(const QStringList &orden) {
    if (::geteuid() != 0) return orden;
    // A test that crashes takes its server along.
    return QStringList{u"setpriv"_s, u"--reuid=postgres"_s, u"--regid=postgres"_s, u"--clear-groups"_s,
                       u"--pdeathsig=QUIT"_s} +
           orden;
}

/// Many files are written for a database.
QString carpetaDeLosServidores() {
    constexpr qint64 bastante = 1'000'000'000;
    const QStorageInfo memoria(u"/dev/shm"_s);
    return memoria.isValid() && !memoria.isReadOnly() && memoria.bytesAvailable() > bastante
               ? u"/dev/shm"_s
               : QDir::tempPath();
}

}  // namespace

ServidorPropio::ServidorPropio(const QStringList &ajustes)
    : dir_(carpetaDeLosServidores() + "/zendra-propio.XXXXXX"_L1),
      carpeta_(dir_.path()),
      datos_(carpeta_ + "/data"_L1),
      puerto_(PuertoLibre()) {
    if (::geteuid() == 0) {
        const passwd *dueno = ::getpwnam("postgres");
        if (dueno == nullptr ||
            ::chown(carpeta_.toLocal8Bit().constData(), dueno->pw_uid, dueno->pw_gid) != 0)
            rendirse(u"The server's folder cannot be given to the user postgres."_s);
    }
    QProcess hacer;
    hacer.setWorkingDirectory(carpeta_);
    hacer.setProcessChannelMode(QProcess::MergedChannels);
    QStringList orden =
        sinPrivilegios({programaDelServidor(u"initdb"_s), u"-D"_s, datos_, u"-U"_s, u"zendra"_s,
                        u"--locale=C.UTF-8"_s, u"-E"_s, u"UTF8"_s, u"-A"_s, u"trust"_s, u"--no-sync"_s});
    const QString programa = orden.takeFirst();
    hacer.start(programa, orden);
    if (!hacer.waitForFinished(pacienciaDelServidor) || hacer.exitCode() != 0)
        rendirse(QString::fromUtf8(hacer.readAll()));

    QFile conf(datos_ + "/postgresql.conf"_L1);
    // Nothing here outlives the test, so nothing needs to reach the disk.
    const QStringList propios{u"listen_addresses = '127.0.0.1'"_s,
                              u"port = %1"_s.arg(puerto_),
                              u"unix_socket_directories = '%1'"_s.arg(carpeta_),
                              u"fsync = off"_s,
                              u"full_page_writes = off"_s,
                              u"restore_command = 'rm ../lento 2>/dev/null && sleep 1; false'"_s};
    if (!conf.open(QIODevice::Append) ||
        conf.write(((propios + ajustes).join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8()) < 0)
        rendirse(conf.errorString());
    conf.close();

    proceso_.setWorkingDirectory(carpeta_);
    proceso_.setStandardOutputFile(QProcess::nullDevice());
    // A pipe that nobody reads would hold the server up.
    proceso_.setStandardErrorFile(carpeta_ + "/log"_L1, QIODevice::Append);
    arrancar();
}

ServidorPropio::~ServidorPropio() {
    parar(Parada::Inmediata);
}

QString ServidorPropio::palabras() const {
    return u"host=%1 port=%2 user=zendra"_s.arg(carpeta_).arg(puerto_);
}

void ServidorPropio::congelar() {
    if (corre()) ::kill(static_cast<pid_t>(proceso_.processId()), SIGSTOP);
}

void ServidorPropio::reanimar() {
    if (corre()) ::kill(static_cast<pid_t>(proceso_.processId()), SIGCONT);
}

void ServidorPropio::parar(Parada como) {
    if (!corre()) return;
    reanimar();
    ::kill(static_cast<pid_t>(proceso_.processId()), como == Parada::Rapida ? SIGINT : SIGQUIT);
    if (proceso_.waitForFinished(pacienciaDelServidor)) return;
    proceso_.kill();
    proceso_.waitForFinished();
}

void ServidorPropio::arrancar(bool esperar) {
    if (!corre()) {
        leido_ = QFile(carpeta_ + "/log"_L1).size();
        QStringList orden = sinPrivilegios({programaDelServidor(u"postgres"_s), u"-D"_s, datos_});
        const QString programa = orden.takeFirst();
        proceso_.start(programa, orden);
        if (!proceso_.waitForStarted(pacienciaDelServidor)) rendirse(proceso_.errorString());
    }
    if (esperar) esperarQueAtienda();
}

void ServidorPropio::arrancarDespacio() {
    if (corre()) return;
    // It asks an archive for what it has to recover; ours takes its time once, and has nothing.
    for (const QString &nota : {datos_ + "/recovery.signal"_L1, carpeta_ + "/lento"_L1})
        if (!QFile(nota).open(QIODevice::WriteOnly)) rendirse(nota);
    arrancar(false);
}

void ServidorPropio::esperarQueAtienda() {
    QElapsedTimer reloj;
    reloj.start();
    QFile log(carpeta_ + "/log"_L1);
    for (;;) {
        if (log.open(QIODevice::ReadOnly)) {
            log.seek(leido_);
            const QByteArray dicho = log.readAll();
            log.close();
            if (dicho.contains("database system is ready to accept connections")) return;
            if (!corre() || reloj.elapsed() > pacienciaDelServidor) rendirse(QString::fromUtf8(dicho));
        }
        constexpr int pausa = 5;
        // Waiting for its end is how the end is noticed without an event loop.
        proceso_.waitForFinished(pausa);
    }
}

int ServidorPropio::cortarConexiones() {
    return preguntar(
               u"select count(pg_terminate_backend(pid, 5000)) from pg_stat_activity "
               "where backend_type = 'client backend' and pid <> pg_backend_pid()"_s)
        .toInt();
}

QString ServidorPropio::preguntar(const QString &sql, const QString &base) const {
    const QString nombre = QUuid::createUuid().toString();
    QString error;
    QString celda;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QPSQL"_s, nombre);
        db.setHostName(carpeta_);
        db.setPort(puerto_);
        db.setUserName(u"zendra"_s);
        db.setDatabaseName(base);
        if (!db.open()) {
            error = db.lastError().text();
        } else {
            QSqlQuery consulta(db);
            if (!consulta.exec(sql)) error = consulta.lastError().text();
            if (consulta.next()) celda = consulta.value(0).toString();
        }
    }
    QSqlDatabase::removeDatabase(nombre);
    if (!error.isEmpty()) rendirse(error);
    return celda;
}

ServidorPropio &ServidorDePaso() {
    static std::unique_ptr<ServidorPropio> uno;
    if (!uno) {
        uno = std::make_unique<ServidorPropio>();
        // While there still is an application, which processes want.
        qAddPostRoutine([] { uno.reset(); });
    }
    uno->arrancar();
    return *uno;
}
