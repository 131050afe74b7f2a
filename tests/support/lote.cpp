#include "tests/support/lote.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QProcess>

#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

QJsonObject Corrida::resultado() const {
    return lineas.empty() ? QJsonObject() : lineas.back();
}

std::vector<QJsonObject> Corrida::mensajes() const {
    return lineas.empty() ? lineas : std::vector<QJsonObject>(lineas.begin(), lineas.end() - 1);
}

QStringList Corrida::textos() const {
    QStringList todos;
    for (const QJsonObject &o : mensajes()) todos << o.value(u"texto"_s).toString();
    return todos;
}

std::unique_ptr<QProcess> EmpezarLote(const QString &carpeta, const QStringList &argumentos) {
    const QString casa = carpeta + u"/casa"_s;
    QDir().mkpath(casa);
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(u"HOME"_s, casa);
    entorno.insert(u"XDG_CONFIG_HOME"_s, casa + u"/config"_s);
    entorno.insert(u"LC_ALL"_s, u"C"_s);
    const QString construccion = qEnvironmentVariable("ZENDRA_BIN", CarpetaDeConstruccion());
    auto proceso = std::make_unique<QProcess>();
    proceso->setProcessEnvironment(entorno);
    proceso->start(construccion + u"/zendra_lote"_s, argumentos);
    return proceso;
}

Corrida TerminarLote(QProcess &proceso) {
    Corrida c;
    constexpr int paciencia = 180000;
    if (proceso.state() != QProcess::NotRunning && !proceso.waitForFinished(paciencia)) return c;
    c.estado = proceso.exitStatus() == QProcess::NormalExit ? proceso.exitCode() : -1;
    c.errores = QString::fromUtf8(proceso.readAllStandardError());
    QByteArrayList lineas = proceso.readAllStandardOutput().split('\n');
    if (!lineas.isEmpty() && lineas.last().isEmpty()) lineas.removeLast();
    for (const QByteArray &linea : lineas) {
        const QJsonDocument documento = QJsonDocument::fromJson(linea);
        if (documento.isObject())
            c.lineas.push_back(documento.object());
        else
            c.ilegibles << QString::fromUtf8(linea);
    }
    return c;
}

Corrida Lote(const QString &carpeta, const QStringList &argumentos) {
    return TerminarLote(*EmpezarLote(carpeta, argumentos));
}

QString Escribir(const QString &carpeta, const QString &nombre, const QByteArray &texto) {
    QFile f(carpeta + QLatin1Char('/') + nombre);
    if (f.open(QIODevice::WriteOnly)) f.write(texto);
    return f.fileName();
}
