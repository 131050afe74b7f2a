#pragma once
// What an office keys in is no markup.

#include <QLabel>
#include <QString>
#include <QTextDocument>

/// The names of the labels of a window that take their text for markup.
inline QString comoMarcas(const QWidget *ventana) {
    QStringList nombres;
    const auto etiquetas = ventana->findChildren<QLabel *>();
    for (const QLabel *etiqueta : etiquetas)
        if (etiqueta->textFormat() != Qt::PlainText && Qt::mightBeRichText(etiqueta->text()))
            nombres << etiqueta->objectName();
    return nombres.join(QLatin1Char(' '));
}
