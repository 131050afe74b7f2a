#include "tests/support/pantallas.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "desktop/dialogosqt.h"
#include "desktop/salidasqt.h"
#include "frame/base/numbers.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "operations/FrmAbrir.h"
#include "operations/FrmDetalleInterno.h"

using namespace Qt::StringLiterals;

void EnPantalla::SetUp() {
    EnAmbosStores::SetUp();
    // As users see it: the locale of the program, not the plain one of the modules' tests.
    ctx->SeparadorDecimal = numeros::separadorDelSistema();
    ClCntrl::banderaDeCambios() = false;
    ClCntrl::bloqueoDeNavegacion() = false;
}

void EnPantalla::TearDown() {
    pantallas::CerrarTodas();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EnAmbosStores::TearDown();
}

void EnPantalla::conDialogosDeVerdad() {
    ctx->dialogos = DialogosQt();
    ctx->salidas = SalidasQt();
}

FrmDetalleInterno &EnPantalla::abrir(const QString &interno) {
    AbrirInterno(interno);
    auto &tablero = Pantalla<FrmDetalleInterno>();
    esperarVentana(tablero.ventana.get());
    return tablero;
}

void esperarVentana(QWidget *ventana) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(ventana));
    ventana->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ventana));
}

void tecla(int tecla, Qt::KeyboardModifiers con) {
    QWidget *foco = QApplication::focusWidget();
    if (foco == nullptr) foco = QApplication::activeWindow();
    ASSERT_NE(foco, nullptr) << "no window has the keyboard";
    // Through the window, as the platform sends it, so that shortcuts and mnemonics work.
    QTest::keyClick(foco->window()->windowHandle(), static_cast<Qt::Key>(tecla), con);
    QCoreApplication::processEvents();
}

void atajo(int letra) {
    tecla(letra, Qt::AltModifier);
    hasta([] {
        const QWidget *ventana = QApplication::activeWindow();
        if (ventana == nullptr) return true;
        const auto botones = ventana->findChildren<QAbstractButton *>();
        return std::none_of(botones.begin(), botones.end(),
                            [](const QAbstractButton *boton) { return boton->isDown(); });
    });
}

void teclaEn(QWidget *campo, int cual, Qt::KeyboardModifiers con) {
    campo->setFocus();
    tecla(cual, con);
}

void escribir(const QString &texto) {
    for (const QChar letra : texto) {
        QWidget *foco = QApplication::focusWidget();
        ASSERT_NE(foco, nullptr) << "no field has the keyboard";
        if (letra.unicode() < 0x80) {
            QTest::keyClicks(foco, QString(letra));
            continue;
        }
        // The test library knows the keys of plain letters only; a keyboard sends the others by their text.
        QKeyEvent apretar(QEvent::KeyPress, 0, Qt::NoModifier, QString(letra));
        QApplication::sendEvent(foco, &apretar);
    }
}

void hasta(const std::function<bool()> &listo) {
    QElapsedTimer reloj;
    reloj.start();
    while (!listo()) {
        ASSERT_LT(reloj.elapsed(), 10000) << "it never came";
        QTest::qWait(5);
    }
}

QString enMano(const QTableView *vista, int columna) {
    const QModelIndex fila = vista->currentIndex();
    return fila.isValid() ? fila.siblingAtColumn(columna).data().toString() : QString();
}

QStringList textosDe(const QTableView *vista, int columna) {
    QStringList textos;
    for (int fila = 0; fila < vista->model()->rowCount(); ++fila)
        textos << vista->model()->index(fila, columna).data().toString();
    return textos;
}

void conVentanaModal(const std::function<void(QWidget *)> &hacer) {
    QTimer::singleShot(5, qApp, [hacer] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible()) {
            conVentanaModal(hacer);
            return;
        }
        // Shown is not yet in hand: the keyboard comes a moment later.
        esperarVentana(modal);
        hacer(modal);
    });
}

namespace {

bool cabe(const QWidget *campo) {
    const QSize hace = campo->minimumSizeHint().expandedTo(QSize(campo->sizeHint().width(), 0));
    return campo->width() >= hace.width() && campo->height() >= hace.height();
}

}  // namespace

QStringList recortados(QWidget *ventana) {
    QStringList malos;
    const auto campos = ventana->findChildren<QWidget *>();
    for (const QWidget *campo : campos) {
        if (!campo->isVisible()) continue;
        QString texto;
        if (const auto *etiqueta = qobject_cast<const QLabel *>(campo)) {
            if (etiqueta->textFormat() != Qt::PlainText && !etiqueta->text().isEmpty())
                malos << etiqueta->objectName() + " as markup: "_L1 + etiqueta->text();
            if (etiqueta->wordWrap()) {
                if (etiqueta->height() < etiqueta->heightForWidth(etiqueta->width()))
                    malos << etiqueta->objectName() + ": "_L1 + etiqueta->text();
                continue;
            }
            texto = etiqueta->text();
        } else if (const auto *boton = qobject_cast<const QAbstractButton *>(campo)) {
            texto = boton->text();
        }
        if (!texto.isEmpty() && !cabe(campo)) malos << campo->objectName() + ": "_L1 + texto;
        if (const auto *titulos = qobject_cast<const QHeaderView *>(campo);
            titulos != nullptr && titulos->model() != nullptr)
            for (int n = 0; n < titulos->count(); ++n) {
                const QString rotulo =
                    titulos->model()->headerData(n, titulos->orientation(), Qt::DisplayRole).toString();
                if (titulos->isSectionHidden(n) || rotulo.isEmpty()) continue;
                if (titulos->sectionSizeHint(n) > titulos->sectionSize(n)) malos << "heading: "_L1 + rotulo;
            }
    }
    return malos;
}

void foto(QWidget *ventana, const QString &nombre) {
    QCoreApplication::processEvents();
    const QString carpeta =
        CarpetaDeConstruccion() + u"/screenshots/%1x"_s.arg(qRound(ventana->devicePixelRatioF()));
    ASSERT_TRUE(QDir().mkpath(carpeta));
    const QPixmap imagen = ventana->grab();
    EXPECT_TRUE(imagen.save(carpeta + QLatin1Char('/') + nombre + u".png"_s));
    EXPECT_EQ(recortados(ventana).join("; "_L1).toStdString(), "") << nombre.toStdString();
    EXPECT_LE(ventana->width(), 1280) << nombre.toStdString();
    EXPECT_LE(ventana->height(), 720) << nombre.toStdString();
}

QStringList ordenDeTab(QWidget *ventana) {
    QStringList nombres;
    QWidget *primero = QApplication::focusWidget();
    for (int n = 0; n < 200 && primero != nullptr; ++n) {
        QWidget *foco = QApplication::focusWidget();
        if (n > 0 && foco == primero) break;
        // A date keeps TAB for its own parts first.
        if (foco->window() == ventana && (nombres.isEmpty() || nombres.last() != foco->objectName()))
            nombres << foco->objectName();
        QTest::keyClick(foco, Qt::Key_Tab);
    }
    return nombres;
}
