#include "frame/ui/campos.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

QString campos::TextoDe(const QWidget *campo) {
    if (const auto *linea = qobject_cast<const QLineEdit *>(campo)) return linea->text();
    if (const auto *plano = qobject_cast<const QPlainTextEdit *>(campo)) return plano->toPlainText();
    if (const auto *combo = qobject_cast<const QComboBox *>(campo)) return combo->currentData().toString();
    if (const auto *boton = qobject_cast<const QAbstractButton *>(campo))
        return boton->isChecked() ? u"S"_s : u"N"_s;
    if (const auto *lista = qobject_cast<const QListWidget *>(campo))
        return lista->currentItem() == nullptr ? QString() : lista->currentItem()->text();
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
    } else if (auto *boton = qobject_cast<QAbstractButton *>(campo)) {
        boton->setChecked(texto == "S"_L1);
    } else if (auto *lista = qobject_cast<QListWidget *>(campo)) {
        const auto halladas = lista->findItems(texto, Qt::MatchExactly);
        lista->setCurrentItem(halladas.isEmpty() ? nullptr : halladas.first());
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

void campos::Enfocar(const QWidget *ventana, const QString &nombre) {
    // A search for no name finds whatever comes first.
    auto *campo = nombre.isEmpty() ? nullptr : ventana->findChild<QWidget *>(nombre);
    if (campo != nullptr && campo->isVisible() && campo->isEnabled()) campo->setFocus();
}
