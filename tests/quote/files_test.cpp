// The quote in files: the page, the mail that was not sent, the PDF; and as a message.

#include <QDir>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>

#include "header/comments.h"
#include "outputs/quotemail.h"
#include "outputs/quotepage.h"
#include "outputs/quotepdf.h"
#include "tests/quote/presupuestos.h"

using namespace Qt::StringLiterals;

namespace {

class QuoteFiles : public Presupuestos {
 protected:
    void SetUp() override {
        Presupuestos::SetUp();
        casaAntes_ = qgetenv("HOME");
        qputenv("HOME", (tienda->carpeta() + "/casa"_L1).toLocal8Bit());
        ASSERT_TRUE(QDir().mkpath(tienda->carpeta() + "/casa"_L1));
    }
    void TearDown() override {
        qputenv("HOME", casaAntes_);
        Presupuestos::TearDown();
    }
    static QByteArray bytesDelArchivo(const QString &ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
    }
    /// What stands in the way of a file of this name in the program's folder, for root too.
    void estorbar(const char *nombre) const {
        ASSERT_TRUE(QDir().mkpath(ctx->ProgramFolder + QLatin1String(nombre)));
    }
    QString poner(const QString &nombre, const QByteArray &bytes) const {
        QFile f(tienda->carpeta() + u'/' + nombre);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
        return f.fileName();
    }
    static QString textoDelPdf(const QString &archivo) {
        QProcess lector;
        lector.start(u"pdftotext"_s, {u"-layout"_s, archivo, u"-"_s});
        EXPECT_TRUE(lector.waitForFinished()) << "pdftotext is part of poppler-utils";
        return QString::fromUtf8(lector.readAllStandardOutput());
    }
    /// The height of a word on the page, in points.
    static double altoEnElPdf(const QString &archivo, const QString &palabra) {
        QProcess lector;
        lector.start(u"pdftotext"_s, {u"-bbox"_s, archivo, u"-"_s});
        EXPECT_TRUE(lector.waitForFinished());
        const QRegularExpression cajaDe(u"yMin=\"([0-9.]+)\"[^>]*yMax=\"([0-9.]+)\">%1<"_s.arg(palabra));
        const QRegularExpressionMatch hallada =
            cajaDe.match(QString::fromUtf8(lector.readAllStandardOutput()));
        EXPECT_TRUE(hallada.hasMatch()) << palabra.toStdString();
        return hallada.captured(2).toDouble() - hallada.captured(1).toDouble();
    }

 private:
    QByteArray casaAntes_;
};
EN_AMBOS_STORES(QuoteFiles);

TEST_P(QuoteFiles, ThePageGoesToTheProgramsFolder) {
    const Presupuesto p = cargar();
    const QString archivo = EscribirVista(*ctx, p);
    EXPECT_EQ(archivo, ctx->ProgramFolder + "vista.htm"_L1);
    EXPECT_EQ(bytesDelArchivo(archivo), PaginaDelPresupuesto(*ctx, p, QDate::currentDate()).toLatin1());
}

TEST_P(QuoteFiles, WhereTheProgramsFolderTakesNoFilesTheyGoToTheUsersDocuments) {
    estorbar("vista.htm");
    estorbar("Presupuesto.eml");
    const QString documentos = tienda->carpeta() + "/casa/Documents/"_L1;
    EXPECT_EQ(EscribirVista(*ctx, cargar()), documentos + "vista.htm"_L1);
    EXPECT_EQ(EscribirEml(*ctx, cargar()), documentos + "Presupuesto.eml"_L1);
    EXPECT_TRUE(bytesDelArchivo(documentos + "vista.htm"_L1).startsWith("<!DOCTYPE html>"));
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(QuoteFiles, WhereNeitherFolderTakesThemItIsTold) {
    estorbar("vista.htm");
    estorbar("casa/Documents/vista.htm");
    EXPECT_EQ(EscribirVista(*ctx, cargar()), QString());
    EXPECT_TRUE(QString::fromStdString(ultimo()).contains(u"casa/Documents/vista.htm: es una carpeta"_s))
        << ultimo();
}

TEST_P(QuoteFiles, WithoutANameThereIsNoFile) {
    EXPECT_FALSE(LP_ArmarRep(*ctx, cargar(), {}));
    EXPECT_EQ(ultimo(), "Error Nombre el archivo no llego como parametro");
    EXPECT_FALSE(LP_ArmarRep(*ctx, cargar(), tienda->carpeta() + "/no/esta.html"_L1));
    EXPECT_EQ(registro.mensajes.size(), 2U);
    const QString archivo = tienda->carpeta() + "/esta.html"_L1;
    EXPECT_TRUE(LP_ArmarRep(*ctx, cargar(), archivo));
    EXPECT_TRUE(bytesDelArchivo(archivo).endsWith("</html>\n"));
}

TEST_P(QuoteFiles, TheMailThatWasNotSentHasItsHeadToTheLetterAndTheBytesThatItDeclares) {
    ejecutar(u"update clientes set nombre = 'Ñandú € S.A.'"_s, u"PERSONAL"_s);
    Presupuesto p = cargar();
    p.remitente = u"yo@estudio.example"_s;
    const QDate hoy = QDate::currentDate();
    const QByteArray bytes = bytesDelArchivo(EscribirEml(*ctx, p));
    const QByteArray esperado =
        "From: \"yo@estudio.example\"\r\n"
        "To: \"comex@hidraulica.example\"\r\n"
        "subject: " +
        AsuntoDelPresupuesto(hoy).toLatin1() +
        "\r\n"
        "Content-Type: text/html;Charset=\"iso-8859-1\"\r\n"
        "Content -Transfer - Encoding: quoted -printable\r\n"
        "X-Unsent: 1\r\n"
        "\r\n" +
        PaginaDelPresupuesto(*ctx, p, hoy).toLatin1().replace("\n", "\r\n");
    EXPECT_EQ(bytes.toStdString(), esperado.toStdString());
    EXPECT_TRUE(bytes.contains("&#209;and&#250; &#8364; S.A."));
}

TEST_P(QuoteFiles, ALineEndInAnAddressBeginsNoLineOfTheHead) {
    Presupuesto p = cargar();
    p.TxtEmail = u"a@b.example\nBcc: otro@b.example"_s;
    EXPECT_TRUE(
        bytesDelArchivo(EscribirEml(*ctx, p)).contains("To: \"a@b.example Bcc: otro@b.example\"\r\n"));
}

TEST_P(QuoteFiles, TheMessageHasAllItsParts) {
    Presupuesto p = cargar();
    p.remitente = u"yo@estudio.example"_s;
    p.servidor = u"correo.example"_s;
    const Correo c = EnviarMail(*ctx, p, diaDelPresupuesto);
    EXPECT_EQ(c.nombreDelRemitente, u"FERREYRA HORACIO"_s);
    EXPECT_EQ(c.remitente, u"yo@estudio.example"_s);
    EXPECT_EQ(c.servidor, u"correo.example"_s);
    EXPECT_TRUE(c.asunto.startsWith(u"Presupuesto "_s) && c.asunto.contains(u"2026"_s))
        << c.asunto.toStdString();
    EXPECT_EQ(c.cuerpo, PaginaDelPresupuesto(*ctx, p, diaDelPresupuesto));
    EXPECT_EQ(c.destinatario, u"comex@hidraulica.example"_s);
    EXPECT_EQ(c.nombreDelDestinatario, u"HIDRAULICA DEL PLATA S.A."_s);
    EXPECT_EQ(c.texto, TextoDelPresupuesto(*ctx, p, diaDelPresupuesto));
    EXPECT_TRUE(c.adjunto.startsWith("%PDF-"));
    EXPECT_EQ(c.nombreDelAdjunto, u"Presupuesto OP 1.pdf"_s);
    EXPECT_EQ(NombreDelPdf(u"A/1:B"_s), u"Presupuesto A_1_B.pdf"_s);
}

TEST_P(QuoteFiles, ThePdfIsTextOnA4) {
    ponerConceptos();
    ASSERT_TRUE(GrabarComentario(*ctx, operacionPresupuestada, u"Canal verde\nantes del viernes"_s));
    const QString archivo = tienda->carpeta() + "/presupuesto.pdf"_L1;
    ASSERT_EQ(EscribirPresupuestoPdf(*ctx, cargar(), archivo), QString());
    const QString texto = textoDelPdf(archivo).simplified();
    for (const QString &parte :
         {u"Presupuesto"_s, u"HIDRAULICA DEL PLATA S.A."_s, u"Canal verde antes del viernes"_s,
          u"BUQUE CAP SAN MARTIN"_s, u"TASA ESTADISTICA P 20500,00 20,50"_s, u"HONORARIOS 1500,50 01,50"_s,
          u"A CUENTA: -"_s, u"TOTAL GENERAL (pesos) 134250,50"_s})
        EXPECT_TRUE(texto.contains(parte)) << parte.toStdString() << '\n' << texto.toStdString();
    EXPECT_FALSE(texto.contains(u"font-size"_s)) << "the sheet of styles is not read aloud";
}

// The desktop's letter has no say on paper: whoever opens the PDF sees what the sheet of styles says.
TEST_P(QuoteFiles, TheLettersOfThePdfAreThoseOfTheSheetOfStyles) {
    const QFont antes = QGuiApplication::font();
    const auto deVuelta = qScopeGuard([&antes] { QGuiApplication::setFont(antes); });
    for (const int puntosDelEscritorio : {7, 18}) {
        QFont letra = antes;
        letra.setPointSize(puntosDelEscritorio);
        QGuiApplication::setFont(letra);
        const QString archivo =
            poner(u"letras.pdf"_s,
                  PresupuestoEnPdf(u"<style>* { font-family: Liberation Sans; } h1 { font-size: 18pt; } "
                                   "h2 { font-size: 9pt; } p { font-size: 9pt; }</style>"
                                   "<h1>Presupuesto</h1><h2>Valores</h2><p>de 9pt</p>"_s,
                                   u"Letras"_s));
        const double comun = altoEnElPdf(archivo, u"9pt"_s);
        // A line of this letter is 1.12 times as high as its size.
        EXPECT_NEAR(comun, 9 * 1.12, 0.1) << puntosDelEscritorio;
        EXPECT_NEAR(altoEnElPdf(archivo, u"Valores"_s), comun, 0.1) << puntosDelEscritorio;
        EXPECT_NEAR(altoEnElPdf(archivo, u"Presupuesto"_s), 2 * comun, 0.1) << puntosDelEscritorio;
    }
}

TEST_P(QuoteFiles, OnePageNeedsNoNumber) {
    const QString archivo = poner(u"corto.pdf"_s, PresupuestoEnPdf(u"<p>corto</p>"_s, u"Corto"_s));
    EXPECT_EQ(textoDelPdf(archivo).simplified(), u"corto"_s);
}

TEST_P(QuoteFiles, PagesOfALongQuoteAreNumberedAndCutNoLine) {
    for (int n = 0; n < 120; ++n)
        AgregarGasto(*ctx, operacionPresupuestada, u"CONCEPTO %1"_s.arg(n, 3, 10, QChar(u'0')), u"1"_s, true);
    const QString archivo = tienda->carpeta() + "/largo.pdf"_L1;
    ASSERT_EQ(EscribirPresupuestoPdf(*ctx, cargar(), archivo), QString());
    const QString texto = textoDelPdf(archivo);
    const QStringList hojas = texto.split(u'\f', Qt::SkipEmptyParts);
    ASSERT_GT(hojas.size(), 2);
    for (qsizetype n = 0; n < hojas.size(); ++n)
        EXPECT_TRUE(hojas[n].contains(u"Página %1 de %2"_s.arg(n + 1).arg(hojas.size())));
    for (int n = 0; n < 120; ++n) EXPECT_EQ(texto.count(u"CONCEPTO %1"_s.arg(n, 3, 10, QChar(u'0'))), 1) << n;
}

// Each number of concepts pushes the totals further down, over the end of a page somewhere.
TEST_P(QuoteFiles, TheTotalsStandTogetherOnOnePage) {
    const QString archivo = tienda->carpeta() + "/totales.pdf"_L1;
    for (int n = 0; n < 14; ++n) {
        AgregarGasto(*ctx, operacionPresupuestada, u"CONCEPTO %1"_s.arg(n), u"1"_s, true);
        ASSERT_EQ(EscribirPresupuestoPdf(*ctx, cargar(), archivo), QString());
        const QStringList hojas = textoDelPdf(archivo).split(u'\f', Qt::SkipEmptyParts);
        const QString &ultima = hojas.last();
        for (const QString &parte : {u"Total\n"_s, u"SUBTOTAL"_s, u"A CUENTA"_s, u"TOTAL GENERAL"_s})
            EXPECT_TRUE(ultima.contains(parte)) << n << ' ' << parte.toStdString() << ultima.toStdString();
    }
}

TEST_P(QuoteFiles, ThePdfOfAnEmptyQuoteSaysThatThereIsNothing) {
    Presupuesto p;
    ASSERT_TRUE(CargarCaratula(*ctx, u"OTRA"_s, p));
    const QString archivo = tienda->carpeta() + "/vacio.pdf"_L1;
    ASSERT_EQ(EscribirPresupuestoPdf(*ctx, p, archivo), QString());
    const QString texto = textoDelPdf(archivo).simplified();
    EXPECT_TRUE(texto.contains(u"Sin Datos... Total convenido"_s)) << texto.toStdString();
    EXPECT_TRUE(texto.contains(u"A CUENTA: 07,00"_s)) << texto.toStdString();
}

TEST_P(QuoteFiles, APdfThatCannotBeWrittenSaysWhy) {
    const QString defecto = EscribirPresupuestoPdf(*ctx, cargar(), tienda->carpeta() + "/no/esta.pdf"_L1);
    EXPECT_TRUE(defecto.contains(u"no existe"_s)) << defecto.toStdString();
}

}  // namespace
