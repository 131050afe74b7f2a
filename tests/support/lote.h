#pragma once
// Runs of the batch program as its users see them.

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

class QProcess;

struct Corrida {
    int estado = -1;  ///< exit status; -1: it did not end by itself
    std::vector<QJsonObject> lineas;
    QStringList ilegibles;  ///< lines of the output that are not one JSON object
    QString errores;        ///< standard error

    /// The last line.
    QJsonObject resultado() const;
    /// The lines ahead of the last one.
    std::vector<QJsonObject> mensajes() const;
    /// The member `texto` of the messages.
    QStringList textos() const;
};

/// Starts the program with a home of its own in `carpeta` ("casa") and a locale that says nothing.
std::unique_ptr<QProcess> EmpezarLote(const QString &carpeta, const QStringList &argumentos);
/// Waits for its end.
Corrida TerminarLote(QProcess &proceso);
Corrida Lote(const QString &carpeta, const QStringList &argumentos);

/// Writes `texto` into `carpeta` and answers the path.
QString Escribir(const QString &carpeta, const QString &nombre, const QByteArray &texto);
