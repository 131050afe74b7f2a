#include "frame/ui/campos.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

QString campos::TextoDe(const QWidget *campo) {
    if (const auto *linea = qobject_cast<const QLineEdit *>(campo)) return linea->text();
    if (const auto *plano = qobject_cast<const QPlainTextEdit *>(campo)) return plano->toPlainText();
    if (const auto *combo = qobject_cast<const QComboBox *>(campo)) return combo->currentData().toString();
    if (const auto *casilla = qobject_cast<const QCheckBox *>(campo))
        return casilla->isChecked() ? u"S"_s : u"N"_s;
    if (const auto *etiqueta = qobject_cast<const QLabel *>(campo)) return etiqueta->text();
    return {};
}

bool campos::PonerTexto(QWidget *campo, QString texto) {
    if (qobject_cast<QPlainTextEdit *>(campo) != nullptr) texto.replace("\r\n"_L1, "\n"_L1);
    if (TextoDe(campo) == texto) return false;
    if (auto *linea = qobject_cast<QLineEdit *>(campo)) {
        linea->setText(texto);
        // The beginning is what one reads.
        linea->setCursorPosition(0);
        if (linea->hasFocus()) linea->selectAll();
    } else if (auto *plano = qobject_cast<QPlainTextEdit *>(campo)) {
        plano->setPlainText(texto);
    } else if (auto *combo = qobject_cast<QComboBox *>(campo)) {
        combo->setCurrentIndex(combo->findData(texto));
    } else if (auto *casilla = qobject_cast<QCheckBox *>(campo)) {
        casilla->setChecked(texto == "S"_L1);
    } else if (auto *etiqueta = qobject_cast<QLabel *>(campo)) {
        etiqueta->setText(texto);
    }
    return true;
}

void campos::EnMayusculas(QLineEdit *campo) {
    QObject::connect(campo, &QLineEdit::textEdited, campo, [campo](const QString &texto) {
        const QString mayusculas = texto.toUpper();
        if (mayusculas == texto) return;
        const int cursor = campo->cursorPosition();
        campo->setText(mayusculas);
        campo->setCursorPosition(cursor);
    });
}
