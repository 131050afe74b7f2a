// Texts that break what pastes them, pasted into every field of every screen: nothing is raised, no word of
// an engine is shown, and no other operation changes.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

#include "forms/FrmCertificado.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "header/FrmABMAgTrans.h"
#include "header/FrmBultos.h"
#include "header/FrmCliente.h"
#include "header/FrmLstDiv.h"
#include "header/FrmNewVendedor.h"
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

/// A field and where the store keeps it.
struct CampoGuardado {
    const char *campo;
    const char *columna;
};

/// A screen that keeps free texts: what is keyed so that it is kept at all, what is pasted, and the row.
struct PantallaQueGuarda {
    const char *nombre;
    void (*abrir)();
    std::vector<std::pair<const char *, const char *>> fijos;
    std::vector<CampoGuardado> campos;
    int atajo;  ///< ALT with it saves; 0: ESC does
    const char *tabla, *donde, *entidad;
};
const std::vector<PantallaQueGuarda> &pantallasQueGuardan() {
    static const std::vector<PantallaQueGuarda> todas{
        {"FrmBultos",
         [] {
             Pantalla<FrmBultos>().Mostrar(u"VACIA"_s);
             CerrarPantalla<FrmBultos>();
         },
         {},
         {{"TxtNroBultos", "bulnro"},
          {"TxtBultDesp", "buldes"},
          {"TxtMarcaBul", "marcabul"},
          {"TxtNomTrans", "trans"},
          {"TxtNombreTrans", "factura10"}},
         0,
         "caratula",
         "interno = 'VACIA'",
         "INTERNOS"},
        {"FrmNewVendedor",
         [] { AgregarVendedor({}); },
         {{"TxtCodigo", "FZ1"}},
         {{"TxtNombre", "nombre"}, {"TxtDomicilio", "domicilio"}},
         Qt::Key_G,
         "vendedor",
         "codigo = 'FZ1'",
         "PERSONAL"},
        {"FrmABMAgTrans",
         [] { AgregarAgente({}); },
         {{"TxtCuit", "30500000011"}},
         {{"TxtNombre", "nombre"}},
         Qt::Key_G,
         "transporte",
         "cuit = '30500000011'",
         "PERSONAL"},
        {"FrmCliente",
         [] {
             Pantalla<FrmCliente>().Agregar();
             CerrarPantalla<FrmCliente>();
         },
         {{"TxtCuit", "30500000011"}},
         {{"TxtNombre", "nombre"}, {"TxtDomicilio", "domicilio"}},
         Qt::Key_G,
         "clientes",
         "cuit = '30500000011'",
         "PERSONAL"},
        {"FrmLstDiv",
         [] {
             Pantalla<FrmLstDiv>().Mostrar(u"VACIA"_s);
             CerrarPantalla<FrmLstDiv>();
         },
         {},
         {{"TxtCom", "coment"}},
         0,
         "coment",
         "interno = 'VACIA'",
         "SYSTABLAS"},
        {"FrmCertificado",
         [] {
             certificados::Legajo legajo;
             legajo.interno = u"VACIA"_s;
             Pantalla<FrmCertificado>().Editar(legajo, {});
             CerrarPantalla<FrmCertificado>();
         },
         {{"TxtNumero", "CO-1"}, {"TxtFecha", "5/2/2026"}, {"TxtIdPais", "203"}},
         {{"TxtExportador", "exportador"}, {"TxtObservaciones", "observaciones"}},
         Qt::Key_G,
         "certorigen",
         "interno = 'VACIA'",
         "INTERNOS"},
    };
    return todas;
}

class FuzzDePantallas : public EnTodasLasPantallas {
 protected:
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
            const QString antes = campos::TextoDe(campo);
            anteriores.emplace_back(campo, antes);
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

    /// Puts back what the fields had: a screen keeps who leaves it with a date or a number that is none.
    void corregir() {
        for (const auto &[campo, texto] : anteriores)
            if (campo != nullptr) campos::PonerTexto(campo, texto);
        anteriores.clear();
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
    std::vector<std::pair<QPointer<QWidget>, QString>> anteriores;
};

TEST_P(FuzzDePantallas, WhatIsPastedIntoAFieldIsDataOrIsRefused) {
    RecordProperty("semilla", QString::number(azar.semilla()).toStdString());
    // The two lists of the quote take what ENTER adds to them.
    const SinContar sin{{u"VACIA"_s}, {u"conpresu"_s, u"referencias"_s}};
    const int vueltas = qEnvironmentVariable("ZENDRA_FUZZ_VECES", u"2"_s).toInt();
    const auto antes = Huella(*ctx, sin);
    for (int vez = 0; vez < vueltas; ++vez) {
        for (const Salida &salida : todas()) {
            alAbrir = [this, &salida] { llenar(QLatin1String(salida.nombre)); };
            alQuedarse = [this] { corregir(); };
            alSalir = [this] {
                escuchar();
                anteriores.clear();
            };
            entrarYSalir(salida);
        }
        // Some leave the operation changed or gone for good.
        if (valor(u"select count(*) from caratula where interno = 'VACIA'"_s) == u"0"_s)
            ejecutar(u"insert into caratula (interno,fechaalta,cuitcliente) values ('VACIA',null,'1')"_s);
    }
    constexpr int camposDeUnaVuelta = 150;
    EXPECT_GE(pegados, vueltas * camposDeUnaVuelta);
    EXPECT_EQ(Diferencias(antes, Huella(*ctx, sin)).toStdString(), "");
}

// What the field shows when it is saved is what the store holds, or a message told why not.
TEST_P(FuzzDePantallas, WhatAScreenKeepsIsWhatItShowed) {
    constexpr int rondas = 8;
    int guardados = 0;
    for (const PantallaQueGuarda &p : pantallasQueGuardan()) {
        for (int vez = 0; vez < rondas; ++vez) {
            const QString tabla = QLatin1String(p.tabla);
            const QString entidad = QLatin1String(p.entidad);
            const QString donde = QLatin1String(p.donde);
            if (tabla != u"caratula"_s) ejecutar(u"delete from %1 where %2"_s.arg(tabla, donde), entidad);
            std::vector<QString> mostrados;
            QStringList textos;
            QPointer<QWidget> enPie;
            QTimer deMas;
            // What comes over the screen is left.
            QObject::connect(&deMas, &QTimer::timeout, qApp, [&enPie] {
                QWidget *modal = QApplication::activeModalWidget();
                if (enPie != nullptr && modal != nullptr && modal != enPie &&
                    modal->windowHandle() != nullptr)
                    QTest::keyClick(modal->windowHandle(), Qt::Key_Escape);
            });
            constexpr int unMomento = 20;
            deMas.start(unMomento);
            conVentanaModal([&](QWidget *ventana) {
                enPie = ventana;
                for (const auto &[campo, texto] : p.fijos) {
                    ventana->findChild<QWidget *>(QLatin1String(campo))->setFocus();
                    escribir(QLatin1String(texto));
                }
                for (const CampoGuardado &c : p.campos) {
                    auto *campo = ventana->findChild<QWidget *>(QLatin1String(c.campo));
                    ASSERT_NE(campo, nullptr) << p.nombre << ' ' << c.campo;
                    const QString texto = ronda.siguiente();
                    textos << Visto(texto);
                    pegar(campo, texto);
                    const auto *llano = qobject_cast<const QPlainTextEdit *>(campo);
                    mostrados.push_back(llano != nullptr ? llano->toPlainText() : campos::TextoDe(campo));
                }
                if (p.atajo != 0)
                    atajo(p.atajo);
                else
                    tecla(Qt::Key_Escape);
                // To some "Si" is to leave, to others to save first.
                for (int n = 0; n < 3 && enPie != nullptr && enPie->isVisible(); ++n) {
                    registro.respuestas.assign(4, n % 2 == 0);
                    enPie->activateWindow();
                    QTest::keyClick(enPie->windowHandle(), Qt::Key_Escape);
                }
                if (enPie == nullptr || !enPie->isVisible()) return;
                QStringList dicho;
                for (const Mensaje &m : registro.mensajes) dicho << m.texto;
                ADD_FAILURE() << "ESC does not leave it: " << p.nombre << ' '
                              << textos.join(u" | "_s).toStdString() << ": "
                              << dicho.join(u" / "_s).toStdString();
                qobject_cast<QDialog *>(enPie)->done(QDialog::Rejected);
            });
            p.abrir();
            const QString sentado = textos.join(u" | "_s);
            const QStringList columnas = [&p] {
                QStringList todas;
                for (const CampoGuardado &c : p.campos) todas << QLatin1String(c.columna);
                return todas;
            }();
            Recordset rs;
            Consultar(*ctx, entidad, u"select %1 from %2 where %3"_s.arg(columnas.join(u','), tabla, donde),
                      rs);
            if (registro.mensajes.empty()) {
                ASSERT_FALSE(rs.Eof())
                    << p.nombre << ": nothing kept and nothing said, " << sentado.toStdString();
                for (std::size_t c = 0; c < mostrados.size(); ++c)
                    EXPECT_TRUE(rs.Texto(columnas.at(static_cast<qsizetype>(c))).trimmed() ==
                                mostrados[c].trimmed())
                        << p.nombre << '.' << p.campos[c].campo << ' ' << sentado.toStdString();
                ++guardados;
            }
            ultimo = QLatin1String(p.nombre) + u' ' + sentado;
            escuchar();
            registro = {};
        }
    }
    EXPECT_GE(guardados, 25);
}

EN_AMBOS_STORES(FuzzDePantallas);

}  // namespace
