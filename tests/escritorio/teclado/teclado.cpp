// A keyboard for the desktop program where there is no display: preloaded into the process, it plays the keys
// that the test writes to it as the platform would, and answers which window has them. The program knows
// nothing of it.
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QSocketNotifier>
#include <QWindow>
#include <cstdio>

using namespace Qt::StringLiterals;

QT_BEGIN_NAMESPACE
// What Qt's own test library plays keys with.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString &text = QString(),
                                    bool repeated = false, ushort count = 1);
QT_END_NAMESPACE

namespace {

/// Windows by when they last had the keyboard.
QList<QPointer<QWindow>> &vistas() {
    static QList<QPointer<QWindow>> lista;
    return lista;
}

/// Where a window has closed, a desktop gives the keyboard to the one before; this platform has nobody who
/// does.
void devolverTeclado() {
    if (QGuiApplication::focusWindow() != nullptr) return;
    for (auto una = vistas().crbegin(); una != vistas().crend(); ++una) {
        if (*una == nullptr || !(*una)->isVisible()) continue;
        (*una)->requestActivate();
        return;
    }
}

/// The window in hand and its widget in hand, by their names; a box by its text.
QString estado() {
    const QWidget *ventana = QApplication::activeWindow();
    if (ventana == nullptr) return u"-"_s;
    const auto *caja = qobject_cast<const QMessageBox *>(ventana);
    const QWidget *foco = QApplication::focusWidget();
    const QString nombre = caja != nullptr ? caja->text().simplified() : ventana->objectName();
    return nombre + QLatin1Char('|') + (foco != nullptr ? foco->objectName() : QString());
}

/// "tecla NUMBER TEXT": pressed and let go in the window that has the keyboard.
void jugar(const QString &orden) {
    QWindow *ventana = QGuiApplication::focusWindow();
    if (ventana == nullptr) return;
    const int tecla = orden.section(QLatin1Char(' '), 1, 1).toInt();
    const QString texto = orden.section(QLatin1Char(' '), 2);
    qt_handleKeyEvent(ventana, QEvent::KeyPress, tecla, Qt::NoModifier, texto);
    // It may be gone by now, and another one in its place.
    if (QGuiApplication::focusWindow() == ventana)
        qt_handleKeyEvent(ventana, QEvent::KeyRelease, tecla, Qt::NoModifier, texto);
}

void cumplir(const QString &orden) {
    devolverTeclado();
    if (orden.startsWith("tecla "_L1)) {
        jugar(orden);
        return;
    }
    std::printf("%s\n", estado().toUtf8().constData());
    std::fflush(stdout);
}

void leer() {
    static QByteArray resto;
    char datos[256];
    const auto cuantos = read(STDIN_FILENO, datos, sizeof datos);
    if (cuantos <= 0) return;
    resto.append(datos, static_cast<qsizetype>(cuantos));
    for (auto fin = resto.indexOf('\n'); fin >= 0; fin = resto.indexOf('\n')) {
        const QString orden = QString::fromUtf8(resto.left(fin));
        resto.remove(0, fin + 1);
        // Queued, so that the next order is heard while a key has a window open that waits.
        QMetaObject::invokeMethod(
            qApp, [orden] { cumplir(orden); }, Qt::QueuedConnection);
    }
}

void enchufar() {
    auto *entrada = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(entrada, &QSocketNotifier::activated, entrada, &leer);
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, entrada, [](QWindow *ventana) {
        if (ventana == nullptr) return;
        vistas().removeAll(ventana);
        vistas().append(ventana);
    });
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(enchufar)
