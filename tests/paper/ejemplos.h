#pragma once
// Reports and lists of the tests of paper.

#include <QDate>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "frame/paper/table.h"
#include "tests/support/tienda.h"

/// "Línea 0001", "Línea 0002" and so on.
inline papel::Reporte reporteDe(int renglones) {
    papel::Reporte r;
    r.titulo = QStringLiteral("Liquidación de la operación");
    r.subtitulo = QStringLiteral("Operación IC-2026-0001");
    r.nombre = QStringLiteral("IC-2026-0001");
    r.pie = QStringLiteral("Estudio Ñandú & Asociados");
    for (int n = 1; n <= renglones; ++n)
        r.renglones.push_back({QStringLiteral("Línea %1").arg(n, 4, 10, QLatin1Char('0'))});
    return r;
}

/// A list with a column of each kind: two positions, three rows.
inline papel::Tabla tablaDeLineas() {
    using papel::Clase;
    papel::Tabla t;
    t.titulo = QStringLiteral("Líneas & posiciones");
    t.subtitulo = QStringLiteral("Operación IC-2026-0001");
    t.nombre = QStringLiteral("lineas");
    t.orientacion = papel::Orientacion::Horizontal;
    t.columnas = {{QStringLiteral("Posición"), Clase::Texto, 16},
                  {QStringLiteral("Mercadería"), Clase::Texto, 12},
                  {QStringLiteral("Ingreso"), Clase::Fecha, 10},
                  {QStringLiteral("Cantidad"), Clase::Numero, 10},
                  {QStringLiteral("FOB"), Clase::Numero, 10, QStringLiteral("00.00"), true}};
    const QString primera = QStringLiteral("8413.70.10.100L");
    t.filas = {{{primera, QStringLiteral("=SUM(A1:A9)"), QDate(2026, 1, 12), 2.5, 1234.5}},
               {{primera, QStringLiteral("Bomba centrífuga de ñandú"), QDate(2026, 2, 3), 10.0, 0.25}},
               {{QStringLiteral("8481.80.99.900X"), QStringLiteral("+54 \"válvula\", €"), QVariant(),
                 QVariant(), 99.99}}};
    return t;
}

/// What a program of the system says; its errors too, so that they are seen.
inline QString dichoPor(const QString &programa, const QStringList &argumentos) {
    QProcess proceso;
    proceso.setProcessChannelMode(QProcess::MergedChannels);
    proceso.start(programa, argumentos);
    return proceso.waitForFinished() ? QString::fromUtf8(proceso.readAll())
                                     : programa + QStringLiteral(": ") + proceso.errorString();
}

inline QByteArray contenidoDe(const QString &archivo) {
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
}

inline void dejarEn(const QString &archivo, const QByteArray &bytes) {
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

/// Where the pictures of this run go.
inline QString carpetaDeFotos() {
    const QString carpeta = CarpetaDeConstruccion() + QStringLiteral("/screenshots/papel");
    QDir().mkpath(carpeta);
    return carpeta;
}
