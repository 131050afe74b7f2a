// The line to the server is cut under every screen of the program, and every key that a screen tells of is
// pressed: nobody hears of a line that is there again, and of one that is gone once.

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QTest>
#include <optional>

#include "operations/FrmAbrir.h"
#include "tests/screens/todas_pantallas.h"
#include "tests/support/claves.h"
#include "tests/support/intermediario.h"

using namespace Qt::StringLiterals;

namespace {

struct LlaveDeFila {
    int llave = 0;
    Qt::KeyboardModifiers con;
};

/// The keys that a row of keys tells of, but for the one that leaves.
std::vector<LlaveDeFila> llavesDe(const QWidget *ventana) {
    static const std::pair<const char *, int> nombres[] = {{"ENTER", Qt::Key_Return},
                                                           {"INSERT", Qt::Key_Insert},
                                                           {"SUPR", Qt::Key_Delete},
                                                           {"ESPACIO", Qt::Key_Space}};
    static const QRegularExpression efe(u"\\bF(\\d{1,2})\\b"_s);
    static const QRegularExpression alt(u"\\bALT\\+([A-Z])\\b"_s);
    std::vector<LlaveDeFila> llaves;
    for (const QLabel *etiqueta : ventana->findChildren<QLabel *>()) {
        const QString texto = etiqueta->text().toUpper();
        if (!etiqueta->isVisible() || !texto.contains("ESC"_L1)) continue;
        for (const auto &[nombre, llave] : nombres)
            if (texto.contains(QLatin1String(nombre))) llaves.push_back({llave, Qt::NoModifier});
        for (auto m = efe.globalMatch(texto); m.hasNext();)
            llaves.push_back({Qt::Key_F1 + m.next().captured(1).toInt() - 1, Qt::NoModifier});
        for (auto m = alt.globalMatch(texto); m.hasNext();)
            llaves.push_back({Qt::Key_A + m.next().captured(1).at(0).unicode() - u'A', Qt::AltModifier});
    }
    return llaves;
}

std::map<QString, QString> escritoEn(const QWidget *ventana) {
    std::map<QString, QString> campos;
    for (const QLineEdit *linea : ventana->findChildren<QLineEdit *>())
        if (!linea->objectName().isEmpty() && linea->isVisible() && !linea->isReadOnly())
            campos[linea->objectName()] = linea->text();
    return campos;
}

class CaidasBajoTodas : public EnTodasLasPantallas {
 protected:
    void SetUp() override {
        EnTodasLasPantallas::SetUp();
        bastantesEscapes = 1000;
    }
    void TearDown() override {
        linea->Seguir();
        EnTodasLasPantallas::TearDown();
        linea.reset();
    }
    void AlHacerLaTienda() override {
        linea.emplace();
        tienda->PasarPor(*linea);
    }

    /// What was said of a line since the last time, and forgets everything that was.
    QStringList dichoDeLaLinea() {
        QStringList textos;
        for (const Mensaje &m : registro.mensajes)
            if (m.texto.contains(u"Se perdió la conexión"_s) || m.texto.contains(u"No se puede conectar"_s))
                textos << m.texto;
        registro = {};
        registro.respuestas.assign(8, false);
        return textos;
    }

    /// Presses every key of the window in hand while it stands; `antes` of each.
    void pulsarTodas(const QPointer<QWidget> &ventana, qsizetype cuantasVeces,
                     const std::function<void()> &antes) {
        for (const LlaveDeFila &una : llavesDe(ventana)) {
            if (!volverA(ventana)) return;
            antes();
            dichoDeLaLinea();
            escapesEncima = 0;
            tecla(una.llave, una.con);
            QTest::qWait(2);
            volverA(ventana);
            const QStringList dicho = dichoDeLaLinea();
            // The ESC that leaves what the key opened is a key as well.
            EXPECT_LE(dicho.size(), cuantasVeces * (1 + escapesEncima))
                << QKeySequence(una.llave | una.con).toString().toStdString() << ": "
                << dicho.join(" / "_L1).toStdString();
            ++pulsadas;
        }
    }
    /// Waits until what a key opened over the window was left; false when the window itself is gone.
    static bool volverA(const QPointer<QWidget> &ventana) {
        constexpr int vueltas = 300;
        constexpr int pausa = 10;  // milliseconds
        for (int n = 0; n < vueltas; ++n) {
            if (ventana == nullptr || !ventana->isVisible()) return false;
            if (ventana->isActiveWindow()) return true;
            const QWidget *modal = QApplication::activeModalWidget();
            if (modal == ventana || (modal == nullptr && QApplication::activeWindow() == nullptr))
                ventana->activateWindow();
            QTest::qWait(pausa);
        }
        ADD_FAILURE() << "what a key opened over it was not left";
        return false;
    }
    /// Every screen; the dashboard over an operation whose steps can be entered and left.
    std::vector<Salida> conSusPasos() const {
        std::vector<Salida> salidas = todas();
        for (Salida &salida : salidas)
            if (salida.nombre == "FrmDetalleInterno"_L1) salida.abrir = [] { AbrirInterno(importacion); };
        return salidas;
    }
    static QPointer<QWidget> enMano() {
        return QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                            : QApplication::activeWindow();
    }

    std::optional<Intermediario> linea;
    int pulsadas = 0;
};
INSTANTIATE_TEST_SUITE_P(Stores, CaidasBajoTodas, ::testing::Values("SQL"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

TEST_P(CaidasBajoTodas, ALineThatWasCutWhileNobodyUsedItIsMissedByNoKey) {
    for (const Salida &salida : conSusPasos()) {
        alAbrir = [this, &salida] {
            SCOPED_TRACE(salida.nombre);
            const QPointer<QWidget> ventana = enMano();
            const QScopedValueRollback<QPointer<QWidget>> solo(enManos, ventana);
            pulsarTodas(ventana, 0, [this] { linea->Cortar(Intermediario::Corte::Fin); });
            registro.respuestas.assign(8, true);
        };
        entrarYSalir(salida);
    }
    EXPECT_GT(pulsadas, 100);
}

TEST_P(CaidasBajoTodas, AServerThatIsGoneIsOneMessageAKeyAndTheFieldsKeepWhatTheyHold) {
    for (const Salida &salida : conSusPasos()) {
        alAbrir = [this, &salida] {
            SCOPED_TRACE(salida.nombre);
            const QPointer<QWidget> ventana = enMano();
            const QScopedValueRollback<QPointer<QWidget>> solo(enManos, ventana);
            const auto campos = escritoEn(ventana);
            linea->Rechazar();
            linea->Cortar();
            pulsarTodas(ventana, 1, [] {});
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            if (ventana != nullptr && ventana->isVisible()) {
                const auto ahora = escritoEn(ventana);
                for (const auto &[campo, texto] : campos) {
                    const auto suyo = ahora.find(campo);
                    const bool vaciado = suyo != ahora.end() && suyo->second.isEmpty() && !texto.isEmpty();
                    EXPECT_FALSE(vaciado) << campo.toStdString() << " held \"" << texto.toStdString() << '"';
                }
            }
            linea->Seguir();
            registro.respuestas.assign(8, true);
        };
        entrarYSalir(salida);
    }
    EXPECT_GT(pulsadas, 100);
}

}  // namespace
