// Printing by the system's dialog, to printers of a print service of the test's own.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QRadioButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include "desktop/ClassPrinterOrientation.h"
#include "desktop/FrmVistaPrevia.h"
#include "desktop/printing.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

/// The print service of this process: the machine's own is never asked. It is read once, so it is told ahead
/// of the first test; nobody answers there but while `ConImpresoras` runs.
class ServicioDeImpresion : public ::testing::Environment {
 public:
    void SetUp() override {
        dir = std::make_unique<QTemporaryDir>(u"/tmp/zimpXXXXXX"_s);
        qputenv("CUPS_SERVER", QFile::encodeName(dir->filePath(u"cups.sock"_s)));
    }
    void TearDown() override { dir.reset(); }
    static inline std::unique_ptr<QTemporaryDir> dir;
};
const auto *const entornoDeImpresion = ::testing::AddGlobalTestEnvironment(new ServicioDeImpresion);

void dejarConfiguracion(const QString &nombre, const QString &texto) {
    QFile f(ServicioDeImpresion::dir->filePath(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(texto.toUtf8());
}

/// What a program of the system says.
QString leidoCon(const QString &programa, const QStringList &argumentos) {
    QProcess proceso;
    proceso.start(programa, argumentos);
    return proceso.waitForFinished() ? QString::fromUtf8(proceso.readAllStandardOutput())
                                     : proceso.errorString();
}

/// Two hundred lines that lie: 37 a page, six pages.
papel::Documento seisHojas() {
    papel::Reporte r;
    r.titulo = u"Líneas de la operación"_s;
    r.orientacion = papel::Orientacion::Horizontal;
    for (int n = 1; n <= 200; ++n) r.renglones.push_back({u"Línea %1"_s.arg(n)});
    return {r};
}

class SinImpresoras : public EnPantalla {
 protected:
    QString archivo(const QString &nombre) const { return tienda->carpeta() + u'/' + nombre; }
};
INSTANTIATE_TEST_SUITE_P(Stores, SinImpresoras, ::testing::Values("ACCESS"),
                         [](const auto &caso) { return std::string(caso.param); });

/// Two printers, Oficina and Recepcion, which is the system's; what they are given stays in the queue.
class ConImpresoras : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        conDialogosDeVerdad();
        const QString raiz = ServicioDeImpresion::dir->path();
        for (const QString &carpeta : {u"cola"_s, u"config"_s, u"cache"_s, u"estado"_s})
            ASSERT_TRUE(QDir(raiz).mkpath(carpeta));
        dejarConfiguracion(u"cupsd.conf"_s,
                           u"Listen %1/cups.sock\nBrowsing No\nWebInterface No\n"
                           "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                           "<Policy default>\n<Limit All>\nOrder deny,allow\nAuthType None\n"
                           "</Limit>\n</Policy>\n"_s.arg(raiz));
        dejarConfiguracion(u"cups-files.conf"_s,
                           u"ServerRoot %1/config\nRequestRoot %1/cola\nCacheDir %1/cache\n"
                           "StateDir %1/estado\nDocumentRoot %1\nAccessLog %1/accesos\n"
                           "ErrorLog %1/errores\nPageLog %1/hojas\nPrintcap\n"_s.arg(raiz));
        // Stopped: what comes waits in the queue.
        const QString impresora =
            u"<%1 %2>\nDeviceURI file:///dev/null\nState Stopped\nAccepting Yes\n</%1>\n"_s;
        dejarConfiguracion(u"config/printers.conf"_s, impresora.arg(u"DefaultPrinter"_s, u"Recepcion"_s) +
                                                          impresora.arg(u"Printer"_s, u"Oficina"_s));
        servidor_.start(u"/usr/sbin/cupsd"_s,
                        {u"-f"_s, u"-c"_s, raiz + u"/cupsd.conf"_s, u"-s"_s, raiz + u"/cups-files.conf"_s});
        ASSERT_TRUE(servidor_.waitForStarted()) << "scripts/packages installs it";
        hasta([] { return QPrinterInfo::availablePrinterNames().size() == 2; });
    }
    void TearDown() override {
        servidor_.terminate();
        servidor_.waitForFinished();
        QDir(ServicioDeImpresion::dir->filePath(u"cola"_s)).removeRecursively();
        EnPantalla::TearDown();
    }
    /// The documents that wait to be printed, the oldest first.
    static QStringList enCola() {
        const QDir cola(ServicioDeImpresion::dir->filePath(u"cola"_s));
        QStringList rutas;
        const QStringList nombres = cola.entryList({u"d*"_s}, QDir::Files, QDir::Name);
        for (const QString &nombre : nombres) rutas << cola.filePath(nombre);
        return rutas;
    }
    QProcess servidor_;
};
INSTANTIATE_TEST_SUITE_P(Stores, ConImpresoras, ::testing::Values("ACCESS"),
                         [](const auto &caso) { return std::string(caso.param); });

/// Opens the preview, prints by F12 and does `enElDialogo` in the system's dialog.
void imprimirConF12(const std::function<void(QPrintDialog &)> &enElDialogo) {
    bool visto = false;
    conPantallaModal<FrmVistaPrevia>([&](FrmVistaPrevia &p) {
        conVentanaModal([&](QWidget *modal) {
            auto *dialogo = qobject_cast<QPrintDialog *>(modal);
            ASSERT_NE(dialogo, nullptr);
            visto = true;
            enElDialogo(*dialogo);
        });
        tecla(Qt::Key_F12);
        EXPECT_TRUE(p.ventana->isVisible());
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Escape);
    });
    Contexto().dialogos.vistaPrevia(seisHojas());
    EXPECT_TRUE(visto);
}

TEST_P(ConImpresoras, TheDialogStartsWithThePrinterOfTheOptionsAndEnterPrintsEveryPage) {
    ctx->opciones.DEVICENAME = u"Oficina"_s;
    imprimirConF12([](QPrintDialog &dialogo) {
        EXPECT_EQ(dialogo.windowTitle(), u"Imprimir"_s);
        EXPECT_EQ(dialogo.printer()->printerName(), u"Oficina"_s);
        QTest::keyClick(&dialogo, Qt::Key_Return);
    });
    ASSERT_EQ(enCola().size(), 1);
    const QString texto = leidoCon(u"pdftotext"_s, {u"-layout"_s, enCola().first(), u"-"_s});
    EXPECT_EQ(texto.count(u'\f'), 6);
    EXPECT_TRUE(texto.contains(u"Línea 200"_s));
    EXPECT_TRUE(leidoCon(u"pdfinfo"_s, {enCola().first()}).contains(u"842 x 595 pts (A4)"_s)) << "as it lies";
}

TEST_P(ConImpresoras, WithoutOneInTheOptionsTheSystemsPrinterIsTaken) {
    ctx->opciones.DEVICENAME = u"La que no está"_s;
    imprimirConF12([](QPrintDialog &dialogo) {
        EXPECT_EQ(dialogo.printer()->printerName(), u"Recepcion"_s);
        QTest::keyClick(&dialogo, Qt::Key_Escape);
    });
    EXPECT_EQ(enCola(), QStringList()) << "left, nothing is printed";
}

TEST_P(ConImpresoras, ARangeOfPagesIsPrintedAlone) {
    imprimirConF12([](QPrintDialog &dialogo) {
        auto *rango = dialogo.findChild<QRadioButton *>(u"printRange"_s);
        auto *desde = dialogo.findChild<QSpinBox *>(u"from"_s);
        auto *final = dialogo.findChild<QSpinBox *>(u"to"_s);
        ASSERT_TRUE(rango != nullptr && desde != nullptr && final != nullptr);
        EXPECT_EQ(final->maximum(), 6);
        rango->click();
        desde->setValue(2);
        final->setValue(3);
        QTest::keyClick(&dialogo, Qt::Key_Return);
    });
    ASSERT_EQ(enCola().size(), 1);
    const QString texto = leidoCon(u"pdftotext"_s, {u"-layout"_s, enCola().first(), u"-"_s});
    EXPECT_EQ(texto.count(u'\f'), 2);
    EXPECT_TRUE(texto.contains(u"Hoja 2 de 6"_s) && texto.contains(u"Hoja 3 de 6"_s)) << texto.toStdString();
}

TEST_P(ConImpresoras, TheOrientationOfThePrinterIsTheReportsWhileItPrintsAndThenAsBefore) {
    ctx->opciones.DEVICENAME = u"Oficina"_s;
    qint16 lado = 0;
    ASSERT_TRUE(ClassPrinterOrientation::GetPrinterOrientation(u"Oficina"_s, lado));
    EXPECT_EQ(lado, 1);
    imprimirConF12([&](QPrintDialog &dialogo) {
        EXPECT_TRUE(ClassPrinterOrientation::GetPrinterOrientation(u"Oficina"_s, lado));
        EXPECT_EQ(lado, 2);
        EXPECT_TRUE(ClassPrinterOrientation::GetPrinterOrientation(u"Recepcion"_s, lado));
        EXPECT_EQ(lado, 1) << "the current one alone";
        QTest::keyClick(&dialogo, Qt::Key_Escape);
    });
    EXPECT_TRUE(ClassPrinterOrientation::GetPrinterOrientation(u"Oficina"_s, lado));
    EXPECT_EQ(lado, 1);
    bool puesta = false;
    ClassPrinterOrientation::SetPrinterOrientation(3, puesta);
    EXPECT_FALSE(puesta) << "neither portrait nor landscape";
}

TEST_P(SinImpresoras, APrinterThatIsNotThereAnswersFalse) {
    ctx->opciones.DEVICENAME = u"Oficina"_s;
    qint16 lado = 7;
    EXPECT_FALSE(ClassPrinterOrientation::GetPrinterOrientation(u"Oficina"_s, lado));
    EXPECT_EQ(lado, 7);
    bool puesta = true;
    ClassPrinterOrientation::SetPrinterOrientation(2, puesta);
    EXPECT_FALSE(puesta);
    EXPECT_EQ(ImpresoraActual(), QString());
}

TEST_P(SinImpresoras, ThePreviewSaysWhatToDo) {
    EXPECT_FALSE(ImprimirDocumento(seisHojas(), nullptr));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"No hay impresoras en este equipo; guarde el documento como PDF, o instale una impresora."_s);
    EXPECT_EQ(registro.mensajes[0].titulo, u"Imprimir"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
}

TEST_P(SinImpresoras, APrinterWithOtherPaperGetsThePagesThatFitIt) {
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFileName(archivo(u"chico.pdf"_s));
    impresora.setPageSize(QPageSize(QPageSize::A5));
    EXPECT_EQ(ImprimirEn(impresora, seisHojas().reporte), QString());
    const QString texto = leidoCon(u"pdftotext"_s, {u"-layout"_s, archivo(u"chico.pdf"_s), u"-"_s});
    // 148 mm without 30 are 334.5 pt; the furniture without a subtitle takes 43.75: 23 lines of 12.2 pt.
    EXPECT_TRUE(texto.contains(u"Hoja 9 de 9"_s)) << texto.toStdString();
    EXPECT_TRUE(texto.contains(u"Línea 200"_s));
}

TEST_P(SinImpresoras, PagesThatAreNotThereAreTold) {
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFileName(archivo(u"a.pdf"_s));
    impresora.setPrintRange(QPrinter::PageRange);
    impresora.setFromTo(17, 19);
    EXPECT_EQ(ImprimirEn(impresora, seisHojas().reporte),
              u"No se imprimió en %1: las hojas van de 1 a 6; elija otras."_s.arg(archivo(u"a.pdf"_s)));
}

TEST_P(SinImpresoras, PrintingThatIsStoppedSaysSo) {
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFileName(archivo(u"parado.pdf"_s));
    EXPECT_EQ(ImprimirEn(impresora, seisHojas().reporte, [](int hechas, int) { return hechas < 2; }),
              u"No se imprimió en %1: se detuvo a su pedido; vuelva a imprimirlo cuando quiera."_s.arg(
                  archivo(u"parado.pdf"_s)));
}

}  // namespace
