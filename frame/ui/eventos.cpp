#include "frame/ui/eventos.h"

#include <utility>

namespace {

class Oyente : public QObject {
 public:
    Oyente(QObject *objeto, std::function<bool(QEvent *)> oir) : QObject(objeto), oir_(std::move(oir)) {
        objeto->installEventFilter(this);
    }

 protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override {
        return oir_(evento) || QObject::eventFilter(objeto, evento);
    }

 private:
    std::function<bool(QEvent *)> oir_;
};

}  // namespace

void Escuchar(QObject *objeto, std::function<bool(QEvent *)> oir) {
    new Oyente(objeto, std::move(oir));
}

void EscucharTeclas(QObject *objeto, std::function<bool(QKeyEvent *)> oir) {
    Escuchar(objeto, [oir = std::move(oir)](QEvent *evento) {
        return evento->type() == QEvent::KeyPress && oir(static_cast<QKeyEvent *>(evento));
    });
}

bool EsEnter(const QKeyEvent *tecla) {
    return (tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter) &&
           (tecla->modifiers() & ~Qt::KeypadModifier) == 0;
}
