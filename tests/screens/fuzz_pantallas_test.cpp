// Texts that break what pastes them, pasted into every field of every screen: nothing is raised, no word of
// an engine is shown, and no other operation changes.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTextEdit>

#include "tests/screens/todas_pantallas.h"
#include "tests/support/huella.h"
#include "tests/support/textosfeos.h"

using namespace Qt::StringLiterals;

namespace {

/// The fields of a window that take what is pasted, in the order they were made.
std::vector<QPointer<QWidget>> camposDeTexto(const QWidget *ventana) {
    std::vector<QPointer<QWidget>> campos;
    for (QWidget *w : ventana->findChildren<QWidget *>()) {
        const auto *linea = qobject_cast<QLineEdit *>(w);
        const auto *llano = qobject_cast<QPlainTextEdit *>(w);
        const auto *rico = qobject_cast<QTextEdit *>(w);
        const bool escribible = (linea != nullptr && !linea->isReadOnly()) ||
                                (llano != nullptr && !llano->isReadOnly()) ||
                                (rico != nullptr && !rico->isReadOnly());
        if (escribible && w->window() == ventana) campos.emplace_back(w);
    }
    return campos;
}

class FuzzDePantallas : public EnTodasLasPantallas {
 protected:
    void SetUp() override {
        EnTodasLasPantallas::SetUp();
        bastantesEscapes = 1000;
    }

    /// Pastes a text in place of what the field has.
    static void pegar(QWidget *campo, const QString &texto) {
        campo->setFocus();
        QApplication::clipboard()->setText(texto);
        tecla(Qt::Key_A, Qt::ControlModifier);
        tecla(Qt::Key_V, Qt::ControlModifier);
    }

    /// Pastes into each field of the window in hand and leaves it by ENTER, as who fills a form.
    void llenar(const QString &pantalla) {
        const QPointer<QWidget> ventana = QApplication::activeModalWidget() != nullptr
                                              ? QApplication::activeModalWidget()
                                              : QApplication::activeWindow();
        if (ventana == nullptr) return;
        const QScopedValueRollback<QPointer<QWidget>> solo(enManos, ventana);
        for (const QPointer<QWidget> &campo : camposDeTexto(ventana)) {
            if (campo == nullptr || !campo->isVisible() || !campo->isEnabled()) continue;
            if (ventana == nullptr || !ventana->isVisible() || !ventana->isActiveWindow()) return;
            const QString texto = ronda.siguiente();
            ultimo = pantalla + u'.' + campo->objectName() + u" <- "_s + Visto(texto);
            pegar(campo, texto);
            ++pegados;
            registro.respuestas.assign(8, false);
            if (QApplication::focusWidget() != nullptr) tecla(Qt::Key_Return);
            escuchar();
            if (ventana != nullptr && ventana->isVisible() && !ventana->isActiveWindow())
                ventana->activateWindow();
        }
        registro.respuestas.assign(8, true);
    }

    /// Looks at what was said since the last time.
    void escuchar() {
        QStringList dicho;
        for (const Mensaje &m : registro.mensajes) dicho << m.texto;
        for (const Informe &i : registro.informes) dicho << i.texto;
        for (const Pregunta &p : registro.preguntas) dicho << p.texto;
        for (const QString &texto : dicho)
            EXPECT_FALSE(TienePalabrasDeMotor(texto))
                << ultimo.toStdString() << ": " << texto.left(300).toStdString();
        registro.mensajes.clear();
        registro.informes.clear();
        registro.preguntas.clear();
    }

    Azar azar;
    Ronda ronda{azar};
    QString ultimo;
    int pegados = 0;
};

TEST_P(FuzzDePantallas, WhatIsPastedIntoAFieldIsDataOrIsRefused) {
    RecordProperty("semilla", QString::number(azar.semilla()).toStdString());
    // Whom the screens write beside the operation in hand: the books, and what keeps what the user saw last.
    const SinContar sin{{u"VACIA"_s}, {}};
    const auto antes = Huella(*ctx, sin);
    for (int vez = 0; vez < 2; ++vez) {
        for (const Salida &salida : todas()) {
            alAbrir = [this, &salida] { llenar(QLatin1String(salida.nombre)); };
            alSalir = [this] { escuchar(); };
            entrarYSalir(salida);
        }
        // Some leave the operation changed or gone for good.
        if (valor(u"select count(*) from caratula where interno = 'VACIA'"_s) == u"0"_s)
            ejecutar(u"insert into caratula (interno,fechaalta,cuitcliente) values ('VACIA',null,'1')"_s);
    }
    EXPECT_GE(pegados, 300);
    EXPECT_EQ(Diferencias(antes, Huella(*ctx, sin)).toStdString(), "");
}

EN_AMBOS_STORES(FuzzDePantallas);

}  // namespace
