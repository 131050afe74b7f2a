#include "frame/ui/eventos.h"

#include <QCoreApplication>
#include <utility>

namespace {

class Oyente : public QObject {
 public:
    Oyente(QObject *objeto, std::function<bool(QObject *, QEvent *)> oir)
        : QObject(objeto), oir_(std::move(oir)) {
        objeto->installEventFilter(this);
    }

 protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override {
        return oir_(objeto, evento) || QObject::eventFilter(objeto, evento);
    }

 private:
    std::function<bool(QObject *, QEvent *)> oir_;
};

}  // namespace

void EscucharA(QObject *objeto, std::function<bool(QObject *, QEvent *)> oir) {
    new Oyente(objeto, std::move(oir));
}

void Escuchar(QObject *objeto, std::function<bool(QEvent *)> oir) {
    EscucharA(objeto, [oir = std::move(oir)](QObject *, QEvent *evento) { return oir(evento); });
}

void EscucharTeclas(QObject *objeto, std::function<bool(QKeyEvent *)> oir) {
    Escuchar(objeto, [oir = std::move(oir)](QEvent *evento) {
        return evento->type() == QEvent::KeyPress && oir(static_cast<QKeyEvent *>(evento));
    });
}

void QuitarTextosMudos(QObject *aplicacion) {
    EscucharA(aplicacion, [](QObject *destino, QEvent *evento) {
        if (evento->type() != QEvent::KeyPress && evento->type() != QEvent::KeyRelease) return false;
        const auto *tecla = static_cast<QKeyEvent *>(evento);
        if (tecla->text().size() != 1 || !tecla->text().front().isNull()) return false;
        QKeyEvent muda(tecla->type(), tecla->key(), tecla->modifiers(), QString(), tecla->isAutoRepeat(),
                       static_cast<quint16>(tecla->count()));
        QCoreApplication::sendEvent(destino, &muda);
        evento->setAccepted(muda.isAccepted());
        return true;
    });
}

bool EsEnter(const QKeyEvent *tecla) {
    return (tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter) &&
           (tecla->modifiers() & ~Qt::KeypadModifier) == 0;
}
