#include "frame/ui/ClCntrl.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPalette>
#include <QPlainTextEdit>
#include <QTextCursor>

#include "frame/context.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"

using namespace Qt::StringLiterals;

namespace {

QString etiqueta(const QWidget *campo) {
    return campo->property("tag").toString();
}

void colorear(QWidget *campo, bool enFoco) {
    const QString tag = etiqueta(campo);
    const bool f6 = tag.endsWith("#F6"_L1);
    if (!f6 && tag.startsWith("BB"_L1)) return;
    if (!enFoco) {
        if (!tag.startsWith("BB"_L1)) campo->setPalette({});
        return;
    }
    QPalette paleta = campo->palette();
    paleta.setColor(QPalette::Base, f6 ? ClCntrl::colorF6() : ClCntrl::colorEnFoco());
    campo->setPalette(paleta);
}

void mandar(QWidget *campo, int tecla) {
    QKeyEvent apretar(QEvent::KeyPress, tecla, Qt::NoModifier);
    QApplication::sendEvent(campo, &apretar);
    QKeyEvent soltar(QEvent::KeyRelease, tecla, Qt::NoModifier);
    QApplication::sendEvent(campo, &soltar);
}

/// The key of the keypad whose cap is the decimal sign, whatever the layout makes of it.
bool esDecimalDelTeclado(const QKeyEvent *tecla) {
    return tecla->modifiers().testFlag(Qt::KeypadModifier) &&
           (tecla->key() == Qt::Key_Period || tecla->key() == Qt::Key_Comma);
}

bool alApretar(QWidget *campo, const QKeyEvent *tecla) {
    if (auto *linea = qobject_cast<QLineEdit *>(campo); linea && esDecimalDelTeclado(tecla)) {
        linea->insert(Contexto().SeparadorDecimal);
        return true;
    }
    if (etiqueta(campo) == "NOENTER"_L1) return false;
    if (EsEnter(tecla)) {
        mandar(campo, Qt::Key_Tab);
        return true;
    }
    if (ClCntrl::bloqueoDeNavegacion() || tecla->modifiers().testFlag(Qt::AltModifier)) return false;
    if (tecla->key() == Qt::Key_Up || tecla->key() == Qt::Key_Down) {
        mandar(campo, tecla->key() == Qt::Key_Up ? Qt::Key_Backtab : Qt::Key_Tab);
        return true;
    }
    return false;
}

}  // namespace

void ClCntrl::Vincular(QWidget *campo) {
    Escuchar(campo, [campo](QEvent *evento) {
        switch (evento->type()) {
            case QEvent::FocusIn:
                colorear(campo, true);
                if (auto *linea = qobject_cast<QLineEdit *>(campo)) linea->selectAll();
                if (auto *plano = qobject_cast<QPlainTextEdit *>(campo)) plano->selectAll();
                return false;
            case QEvent::FocusOut:
                colorear(campo, false);
                // A box of several lines would go on showing what was selected.
                if (auto *plano = qobject_cast<QPlainTextEdit *>(campo))
                    plano->moveCursor(QTextCursor::Start);
                return false;
            case QEvent::KeyPress:
                return alApretar(campo, static_cast<QKeyEvent *>(evento));
            default:
                return false;
        }
    });
}

void ClCntrl::alCambiar(QWidget *campo, std::function<void()> hacer) {
    const auto cambio = [hacer = std::move(hacer)] {
        if (banderaDeCambios()) hacer();
    };
    if (auto *linea = qobject_cast<QLineEdit *>(campo))
        QObject::connect(linea, &QLineEdit::textChanged, linea, cambio);
    else if (auto *combo = qobject_cast<QComboBox *>(campo))
        QObject::connect(combo, &QComboBox::currentTextChanged, combo, cambio);
    else if (auto *plano = qobject_cast<QPlainTextEdit *>(campo))
        QObject::connect(plano, &QPlainTextEdit::textChanged, plano, cambio);
}

bool &ClCntrl::banderaDeCambios() {
    static bool activa = false;
    return activa;
}

bool &ClCntrl::bloqueoDeNavegacion() {
    static bool activo = false;
    return activo;
}

QColor ClCntrl::colorF6() {
    constexpr int color = 14083326;
    return estilo::ColorDePlataforma(color);
}

QColor ClCntrl::colorEnFoco() {
    return {224, 242, 241};
}

void ClCntrl::LstBuscarStr(QListWidget *lista, const QString &texto) {
    lista->setCurrentRow(-1);
    for (int fila = 0; fila < lista->count(); ++fila) {
        if (!lista->item(fila)->text().startsWith(texto, Qt::CaseInsensitive)) continue;
        lista->setCurrentRow(fila);
        return;
    }
}

void ClCntrl::BuscarCBO(QComboBox *combo, const QString &texto) {
    combo->setCurrentIndex(combo->findText(texto, Qt::MatchStartsWith));
}

void ClCntrl::VaciarTxt(QWidget *formulario, const QStringList &salvo) {
    const auto queda = [&salvo](const QWidget *campo) {
        return salvo.contains(campo->objectName().toUpper());
    };
    const auto campos = formulario->findChildren<QLineEdit *>();
    for (QLineEdit *campo : campos)
        if (!queda(campo)) campo->clear();
    const auto planos = formulario->findChildren<QPlainTextEdit *>();
    for (QPlainTextEdit *plano : planos)
        if (!queda(plano)) plano->clear();
}
