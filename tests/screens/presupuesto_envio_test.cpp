// The quote leaves its screen: seen in a browser, saved as PDF, handed to the mail program, sent.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <cerrno>

#include "frame/base/ini.h"
#include "outputs/FrmCorreo.h"
#include "outputs/FrmProcesando.h"
#include "tests/screens/presupuesto_pantalla.h"
#include "tests/support/servidorsmtp.h"

using namespace Qt::StringLiterals;

namespace {

class EnvioDelPresupuesto : public EnElPresupuesto {
 protected:
    static QByteArray contenidoDe(const QString &ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
    }
    QString propio(const char *nombre) const { return ctx->ProgramFolder + QLatin1String(nombre); }
};
EN_AMBOS_STORES(EnvioDelPresupuesto);

TEST_P(EnvioDelPresupuesto, F12WritesThePageWithWhatIsTypedAndOpensIt) {
    mostrar([this](FrmPresupuesto &p) {
        escribir(u"2000"_s);
        tecla(Qt::Key_F12);
        EXPECT_EQ(p.ui.TxtPase->text(), u"2000,000000"_s);
        EXPECT_EQ(abiertos, QStringList{propio("vista.htm")});
        EXPECT_TRUE(p.ui.LbArchivo->text().endsWith(u"vista.htm"_s));
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(contenidoDe(propio("vista.htm")).contains("200000,00"));
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(EnvioDelPresupuesto, WhereItCannotBeOpenedTheMessageTellsWhereItIs) {
    seAbren = false;
    mostrar([](FrmPresupuesto &) {
        tecla(Qt::Key_F12);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(ultimo(), "El sistema no tiene con qué abrir el presupuesto, que está en " +
                            QDir::toNativeSeparators(propio("vista.htm")).toStdString() +
                            "; ábralo desde allí.");
}

TEST_P(EnvioDelPresupuesto, OutsideTheProgramsFolderItIsToldOnceWhereItIs) {
    ASSERT_TRUE(QDir().mkpath(propio("vista.htm")));
    mostrar([this](FrmPresupuesto &) {
        tecla(Qt::Key_F12);
        tecla(Qt::Key_F12);
        EXPECT_EQ(abiertos, QStringList(2, documentos() + "vista.htm"_L1));
        tecla(Qt::Key_Escape);
    });
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimo(), "La carpeta del programa no admite archivos; el presupuesto se escribió en " +
                            (documentos() + "vista.htm"_L1).toStdString() + ".");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
}

TEST_P(EnvioDelPresupuesto, WithoutARateNothingLeaves) {
    registro.respuestas = {true};
    mostrar([this](FrmPresupuesto &p) {
        escribir(u"nada"_s);
        for (const int salida : {Qt::Key_F12, Qt::Key_F11, Qt::Key_F10}) {
            p.ui.Grd->setFocus();
            tecla(salida);
            EXPECT_EQ(ultimo(), "Debe ingresar el tipo pase");
            EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtPase);
            EXPECT_EQ(p.ui.TxtPase->selectedText(), u"nada"_s);
        }
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(registro.mensajes.size(), 3U);
    EXPECT_TRUE(abiertos.isEmpty());
}

TEST_P(EnvioDelPresupuesto, AMissingTemplateIsToldAndTheScreenStays) {
    ASSERT_TRUE(QFile::remove(propio("seccion/seccion04.cpl")));
    mostrar([this](FrmPresupuesto &p) {
        tecla(Qt::Key_F12);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_TRUE(QString::fromStdString(ultimo()).endsWith("seccion04.cpl: "_L1 + qt_error_string(ENOENT)))
            << ultimo();
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(contenidoDe(propio("vista.htm")), "<nada>");
}

TEST_P(EnvioDelPresupuesto, SendingIsAskedAboutAndNoEndsIt) {
    mostrar([this](FrmPresupuesto &) {
        tecla(Qt::Key_F10);
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_EQ(registro.preguntas[0].texto,
                  u"Desea enviar el mail, antes de la vista preliminar (F12)?"_s);
        EXPECT_FALSE(registro.preguntas[0].porDefectoNo);
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(EnvioDelPresupuesto, AWrongAddressIsToldAndGetsTheKeyboard) {
    registro.respuestas = {true};
    mostrar([this](FrmPresupuesto &p) {
        p.ui.TxtEmail->setText(u"señor@estudio.example"_s);
        tecla(Qt::Key_F10);
        EXPECT_EQ(ultimo(), "Dirección de Correo no válido (Email)");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtEmail);
        EXPECT_EQ(p.ui.TxtEmail->selectedText(), u"señor@estudio.example"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(EnvioDelPresupuesto, EveryClientOfTheDemonstrationCanBeSentOne) {
    const QStringList direcciones =
        filas(u"select email from clientes"_s, u"PERSONAL"_s).split(u'\n', Qt::SkipEmptyParts);
    EXPECT_GE(direcciones.size(), 8);
    for (const QString &direccion : direcciones)
        EXPECT_TRUE(EsDireccionValida(direccion.trimmed())) << direccion.toStdString();
}

TEST_P(EnvioDelPresupuesto, TheMailProgramGetsAMailThatWasNotSent) {
    registro.respuestas = {true};
    mostrar([this](FrmPresupuesto &p) {
        p.ui.TxtEmail->setText(u"compras@cliente.com"_s);
        p.ui.opOutLook->setChecked(true);
        atajo(Qt::Key_E);
        EXPECT_EQ(abiertos, QStringList{propio("Presupuesto.eml")});
        tecla(Qt::Key_Escape);
    });
    const QByteArray eml = contenidoDe(propio("Presupuesto.eml"));
    EXPECT_TRUE(eml.startsWith("From: \"\"\r\nTo: \"compras@cliente.com\"\r\nsubject: Presupuesto "));
    EXPECT_TRUE(eml.contains("DERECHOS"));
}

TEST_P(EnvioDelPresupuesto, TheOwnSenderHandsItToTheServer) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    ASSERT_TRUE(EscribirIni(u"SMTP"_s, u"EMAIL"_s, u"yo@estudio.com"_s, ctx->ConfigFilePath));
    ASSERT_TRUE(EscribirIni(u"SMTP"_s, u"SERVER"_s, servidor.direccion(), ctx->ConfigFilePath));
    registro.respuestas = {true};
    mostrar([this](FrmPresupuesto &p) {
        p.ui.TxtEmail->setText(u"compras@cliente.com"_s);
        tecla(Qt::Key_F10);
        EXPECT_EQ(ultimo(), "Datos enviados.");
        EXPECT_FALSE(PantallaAbierta<FrmProcesando>());
        EXPECT_TRUE(p.ventana->isVisible());
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Escape);
    });
    const QByteArray &dicho = servidor.recibido();
    EXPECT_TRUE(dicho.contains("RCPT TO:<compras@cliente.com>\r\n"));
    EXPECT_TRUE(dicho.contains("Subject:Presupuesto ")) << dicho.left(400).toStdString();
    EXPECT_TRUE(dicho.contains("From:FERREYRA HORACIO DANIEL <yo@estudio.com>"));
    EXPECT_TRUE(dicho.contains("DERECHOS"));
}

TEST_P(EnvioDelPresupuesto, TheSettingsOfTheMailAreReadAgainBehindTheirScreen) {
    mostrar([this](FrmPresupuesto &p) {
        conPantallaModal<FrmCorreo>([this](FrmCorreo &) {
            EscribirIni(u"SMTP"_s, u"EMAIL"_s, u"otra@estudio.com"_s, ctx->ConfigFilePath);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F7);
        esperarVentana(p.ventana.get());
        p.ui.TxtEmail->setText(u"compras@cliente.com"_s);
        p.ui.opOutLook->setChecked(true);
        registro.respuestas = {true};
        tecla(Qt::Key_F10);
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(contenidoDe(propio("Presupuesto.eml")).startsWith("From: \"otra@estudio.com\"\r\n"));
}

TEST_P(EnvioDelPresupuesto, F11SavesThePdfAndAsksAheadOfReplacingOne) {
    QString pedido;
    QString elegido = tienda->carpeta() + "/Oferta.pdf"_L1;
    ctx->dialogos.guardarComo = [&](const PedidoDeArchivo &p) {
        pedido = p.inicial;
        return elegido;
    };
    mostrar([&](FrmPresupuesto &p) {
        tecla(Qt::Key_F11);
        EXPECT_EQ(pedido, documentos() + "Presupuesto IC-2026-0001.pdf"_L1);
        EXPECT_EQ(ultimo(), "Se escribió el presupuesto en " + elegido.toStdString() + ".");
        EXPECT_TRUE(contenidoDe(elegido).startsWith("%PDF-"));
        tecla(Qt::Key_F11);
        EXPECT_EQ(pedido, tienda->carpeta() + "/Presupuesto IC-2026-0001.pdf"_L1)
            << "where the last one went";
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
        EXPECT_EQ(registro.mensajes.size(), 1U) << "No keeps the file";
        elegido = tienda->carpeta() + "/no/esta.pdf"_L1;
        tecla(Qt::Key_F11);
        EXPECT_EQ(registro.mensajes.back().icono, Icono::Critico);
        elegido.clear();
        tecla(Qt::Key_F11);
        EXPECT_EQ(registro.mensajes.size(), 2U);
        EXPECT_TRUE(p.ventana->isVisible());
        tecla(Qt::Key_Escape);
    });
}

}  // namespace
