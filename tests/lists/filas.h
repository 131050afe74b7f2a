#pragma once
// A list as text that a test can compare whole.

#include <QDate>
#include <QStringList>
#include <string>

#include "frame/base/values.h"
#include "frame/paper/table.h"

/// The titles and then a line a row: cells with "|" between them, numbers in their shortest text, days as
/// yyyy-MM-dd, what is null as "<null>" (and as nothing in rows that are no data); a row with a label has it
/// and ": " ahead.
inline std::string filasDe(const papel::Tabla &tabla) {
    QStringList titulos;
    for (const papel::Columna &c : tabla.columnas) titulos << c.titulo;
    QStringList filas{titulos.join(QLatin1Char('|'))};
    for (const papel::Fila &fila : tabla.filas) {
        const bool deDatos = fila.tipo == papel::Fila::Tipo::Dato;
        QStringList celdas;
        for (const QVariant &celda : fila.celdas) {
            if (celda.isNull())
                celdas << (deDatos ? QStringLiteral("<null>") : QString());
            else if (celda.typeId() == QMetaType::QDate)
                celdas << celda.toDate().toString(Qt::ISODate);
            else
                celdas << EsNull(celda);
        }
        filas << (deDatos ? QString() : fila.rotulo + QStringLiteral(": ")) + celdas.join(QLatin1Char('|'));
    }
    return filas.join(QLatin1Char('\n')).toStdString();
}
