#include "tests/escritorio/escritorio.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QThread>

#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

/// The machine may be busy with other tests.
constexpr int paciencia = 60000;

}  // namespace

Escritorio::Escritorio(const QString &carpeta) : carpeta_(carpeta) {
    const QString construccion = qEnvironmentVariable("ZENDRA_BIN", CarpetaDeConstruccion());
    const QString casa = carpeta_ + u"/casa"_s;
    QDir().mkpath(casa);
    QFile::copy(construccion + u"/zendra"_s, carpeta_ + u"/zendra"_s);
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    for (const auto &nombre : {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_RUNTIME_DIR"_s})
        entorno.insert(nombre, casa);
    QFile::setPermissions(casa, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    entorno.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    entorno.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    entorno.insert(u"LD_PRELOAD"_s, construccion + u"/libteclado.so"_s);
    // Under the sanitizers they come second behind the keyboard; leaks are looked for where single screens
    // are tested.
    entorno.insert(u"ASAN_OPTIONS"_s, u"verify_asan_link_order=0:detect_leaks=0"_s);
    proceso_.setProcessEnvironment(entorno);
}

Escritorio::~Escritorio() {
    if (proceso_.state() == QProcess::NotRunning) return;
    proceso_.kill();
    proceso_.waitForFinished();
}

bool Escritorio::Empezar() {
    proceso_.start(carpeta_ + u"/zendra"_s, QStringList());
    return proceso_.waitForStarted() && Esperar(QString());
}

QString Escritorio::preguntar() {
    proceso_.write("estado\n");
    while (!proceso_.canReadLine())
        if (!proceso_.waitForReadyRead(paciencia)) return u"(no answer)"_s;
    return QString::fromUtf8(proceso_.readLine()).trimmed();
}

bool Escritorio::Esperar(const QString &ventana) {
    QElapsedTimer reloj;
    reloj.start();
    while (proceso_.state() != QProcess::NotRunning && reloj.elapsed() < paciencia) {
        visto_ = preguntar();
        if (visto_ != "-"_L1 && !visto_.startsWith('|'_L1) && visto_.startsWith(ventana)) return true;
        QThread::msleep(10);
    }
    return false;
}

void Escritorio::Pulsar(Qt::Key tecla, int veces) {
    for (int vez = 0; vez < veces; ++vez)
        proceso_.write(u"tecla %1\n"_s.arg(static_cast<int>(tecla)).toUtf8());
    proceso_.waitForBytesWritten();
}

int Escritorio::EsperarFin() {
    proceso_.closeWriteChannel();
    if (!proceso_.waitForFinished(paciencia)) return -2;
    return proceso_.exitStatus() == QProcess::NormalExit ? proceso_.exitCode() : -1;
}

QString Escritorio::Errores() {
    // The platform without a display says of itself what it does not do.
    static const QRegularExpression propias(u"This plugin does not support [a-zA-Z]+\\(\\)\n"_s);
    return QString::fromUtf8(proceso_.readAllStandardError()).remove(propias);
}
