// Reports as files: what a reader of PDF finds in them, and what becomes of the file that was there.

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <csignal>

#include "tests/paper/ejemplos.h"

using namespace Qt::StringLiterals;
using papel::Orientacion;

namespace {

class ArchivosDePapel : public ::testing::Test {
 protected:
    QString ruta(const QString &nombre) const { return dir_.filePath(nombre); }
    /// The lines of a page of a PDF without the blanks that stand for room; the empty ones left out.
    static QStringList lineasDePdf(const QString &archivo, std::size_t hoja) {
        const QString cual = QString::number(hoja + 1);
        QStringList lineas;
        const QStringList crudas =
            dichoPor(u"pdftotext"_s, {u"-layout"_s, u"-f"_s, cual, u"-l"_s, cual, archivo, u"-"_s})
                .remove(u'\f')
                .split(u'\n');
        for (const QString &linea : crudas)
            if (const QString simple = linea.simplified(); !simple.isEmpty()) lineas << simple;
        return lineas;
    }
    static QStringList simples(const QStringList &lineas) {
        QStringList todas;
        for (const QString &linea : lineas)
            if (const QString simple = linea.simplified(); !simple.isEmpty()) todas << simple;
        return todas;
    }
    QTemporaryDir dir_;
};

papel::Reporte hojaDeMuestra() {
    papel::Reporte r = reporteDe(0);
    r.ficha = {{u"Importador"_s, u"HIDRÁULICA DEL PLATA S.A."_s},
               {u"CUIT"_s, u"30-70812345-1"_s},
               {u"Aduana"_s, u"001 BUENOS AIRES"_s},
               {u"Subrégimen"_s, u"IC04"_s}};
    r.encabezado = {u"Conceptos                       Porc. %          Base Imponible   Importe"_s,
                    u"------------------------------  ---------------  ---------------  ---------------"_s};
    const QStringList conceptos = {u"DERECHOS IMPORTACIÓN (010)"_s, u"TASA ESTADÍSTICA (011)"_s,
                                   u"I.V.A. <415> & \"año\" 'ñ' €"_s};
    for (int item = 1; item <= 24; ++item) {
        r.renglones.push_back({u"ITEM %1"_s.arg(item, 3, 10, QLatin1Char('0')), true, item == 9, true});
        for (const QString &concepto : conceptos)
            r.renglones.push_back({u"%1  %2  %3  %4"_s.arg(concepto, -30)
                                       .arg(u"16,00"_s, -15)
                                       .arg(u"35950,00"_s, -15)
                                       .arg(u"5752,00"_s, 15)});
    }
    return r;
}

TEST_F(ArchivosDePapel, APdfSaysTheLinesOfEachPageWholeAndInOrder) {
    papel::Reporte r = hojaDeMuestra();
    for (const Orientacion lado : {Orientacion::Vertical, Orientacion::Horizontal}) {
        r.orientacion = lado;
        const QString archivo = ruta(u"hoja.pdf"_s);
        ASSERT_EQ(papel::EscribirPdf(r, archivo), QString());
        const papel::Paginado p = papel::Paginar(r, papel::MedidaDe(lado));
        ASSERT_GT(p.hojas.size(), 1U);
        for (std::size_t hoja = 0; hoja < p.hojas.size(); ++hoja)
            EXPECT_EQ(lineasDePdf(archivo, hoja).join(u'\n').toStdString(),
                      simples(papel::TextoDeHoja(r, p, hoja)).join(u'\n').toStdString());
        const QString datos = dichoPor(u"pdfinfo"_s, {archivo});
        EXPECT_TRUE(datos.contains(u"Pages:           %1\n"_s.arg(p.hojas.size()))) << datos.toStdString();
        EXPECT_TRUE(
            datos.contains(lado == Orientacion::Vertical ? u"595 x 842 pts (A4)"_s : u"842 x 595 pts (A4)"_s))
            << datos.toStdString();
        EXPECT_TRUE(datos.contains(u"Liquidación de la operación - Operación IC-2026-0001"_s))
            << datos.toStdString();
        const QString foto =
            carpetaDeFotos() + (lado == Orientacion::Vertical ? u"/hoja-vertical"_s : u"/hoja-horizontal"_s);
        EXPECT_EQ(dichoPor(u"pdftoppm"_s, {u"-r"_s, u"100"_s, u"-png"_s, u"-singlefile"_s, archivo, foto}),
                  QString());
        EXPECT_FALSE(QImage(foto + u".png"_s).isNull());
    }
}

TEST_F(ArchivosDePapel, TheFontsOfAPdfTravelWithIt) {
    ASSERT_EQ(papel::EscribirPdf(hojaDeMuestra(), ruta(u"hoja.pdf"_s)), QString());
    const QStringList filas = dichoPor(u"pdffonts"_s, {ruta(u"hoja.pdf"_s)}).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_GE(filas.size(), 4) << "two lines of heading, and a font for the lines and one for the rest";
    for (qsizetype n = 2; n < filas.size(); ++n) {
        // "... yes no yes  7 0": embedded, subset, with its letters told.
        const QStringList datos = filas[n].simplified().split(u' ');
        ASSERT_GT(datos.size(), 5) << filas[n].toStdString();
        EXPECT_EQ(datos[datos.size() - 5], u"yes"_s) << filas[n].toStdString();
        EXPECT_EQ(datos[datos.size() - 3], u"yes"_s) << filas[n].toStdString();
    }
}

TEST_F(ArchivosDePapel, ThePaintedPageStaysWithinTheMarginsThatPrintersPrint) {
    papel::Reporte r = hojaDeMuestra();
    r.renglones.push_back({QString(141, u'M'), true});
    const papel::Paginado p = papel::Paginar(r, papel::MedidaDe(r.orientacion));
    QImage hoja(2100, 2970, QImage::Format_RGB32);  // ten dots a millimetre
    hoja.fill(Qt::white);
    QPainter pintor(&hoja);
    papel::PintarHoja(pintor, hoja.rect(), r, p, 0);
    pintor.end();
    QRect tinta;
    for (int y = 0; y < hoja.height(); ++y)
        for (int x = 0; x < hoja.width(); ++x)
            if (qGray(hoja.pixel(x, y)) < 200) tinta |= QRect(x, y, 1, 1);
    EXPECT_GE(tinta.left(), 175) << "room to file it";
    EXPECT_GE(tinta.top(), 115);
    EXPECT_LE(tinta.right(), 2100 - 115);
    EXPECT_LE(tinta.bottom(), 2970 - 115);
    EXPECT_GT(tinta.width(), 1700) << "and it is used";
}

TEST_F(ArchivosDePapel, ProgressIsToldPageByPage) {
    QStringList dicho;
    ASSERT_EQ(papel::EscribirPdf(reporteDe(130), ruta(u"a.pdf"_s),
                                 [&dicho](int hechas, int total) {
                                     dicho << u"%1/%2"_s.arg(hechas).arg(total);
                                     return true;
                                 }),
              QString());
    EXPECT_EQ(dicho.join(u' ').toStdString(), "1/3 2/3 3/3");
}

TEST_F(ArchivosDePapel, StoppedInTheMiddleTheOldFileStaysAndNothingElseIsLeft) {
    const QString archivo = ruta(u"a.pdf"_s);
    dejarEn(archivo, "anterior");
    EXPECT_EQ(papel::EscribirPdf(reporteDe(130), archivo, [](int hechas, int) { return hechas < 2; }),
              u"No se escribió %1: se detuvo a su pedido; vuelva a guardarlo cuando quiera."_s.arg(archivo));
    EXPECT_EQ(contenidoDe(archivo), "anterior");
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files), QStringList{u"a.pdf"_s});
}

TEST_F(ArchivosDePapel, TheTextIsUtf8) {
    ASSERT_EQ(papel::EscribirTexto(reporteDe(1), ruta(u"a.txt"_s)), QString());
    EXPECT_EQ(
        contenidoDe(ruta(u"a.txt"_s)).toStdString(),
        "Liquidación de la operación\nOperación IC-2026-0001\n\nLínea 0001\n\nEstudio Ñandú & Asociados\n");
}

TEST_F(ArchivosDePapel, TheEndOfTheNameSaysWhatIsWritten) {
    const papel::Documento lista{papel::ReporteDe(tablaDeLineas(), u','), tablaDeLineas()};
    const papel::Documento hoja{reporteDe(1)};
    const std::pair<const char16_t *, const char *> fines[] = {
        {u"a.pdf", "%PDF-"}, {u"A.PDF", "%PDF-"}, {u"a.txt", "L"}, {u"a.xlsx", "PK"}, {u"a.csv", "P"}};
    for (const auto &[nombre, principio] : fines) {
        const QString archivo = ruta(QString::fromUtf16(nombre));
        EXPECT_EQ(papel::Escribir(lista, archivo), QString());
        EXPECT_TRUE(contenidoDe(archivo).startsWith(principio)) << archivo.toStdString();
    }
    EXPECT_EQ(
        papel::Escribir(lista, ruta(u"a.doc"_s)),
        u"No se escribió %1: el nombre debe terminar en .pdf, .txt, .xlsx o .csv."_s.arg(ruta(u"a.doc"_s)));
    EXPECT_EQ(papel::Escribir(hoja, ruta(u"b.xlsx"_s)),
              u"No se escribió %1: el nombre debe terminar en .pdf o .txt."_s.arg(ruta(u"b.xlsx"_s)));
    EXPECT_FALSE(QFile::exists(ruta(u"b.xlsx"_s)));
}

TEST_F(ArchivosDePapel, WhatKeepsAFileFromBeingWrittenIsTold) {
    const papel::Documento lista{papel::ReporteDe(tablaDeLineas(), u','), tablaDeLineas()};
    ASSERT_TRUE(QDir(dir_.path()).mkdir(u"carpeta.pdf"_s));
    for (const auto &fin : {u"pdf"_s, u"txt"_s, u"xlsx"_s, u"csv"_s}) {
        const QString lejos = ruta(u"no/hay/a."_s + fin);
        EXPECT_EQ(papel::Escribir(lista, lejos),
                  u"No se escribió %1: la carpeta %2 no existe; elija otra."_s.arg(lejos, ruta(u"no/hay"_s)));
    }
    EXPECT_EQ(papel::EscribirPdf(reporteDe(1), ruta(u"carpeta.pdf"_s)),
              u"No se escribió %1: es una carpeta; elija un archivo."_s.arg(ruta(u"carpeta.pdf"_s)));
    EXPECT_EQ(papel::EscribirPdf(reporteDe(1), {}), u"Indique el archivo donde se escribe."_s);
}

/// Says on the error channel what writing answers in a process that may do less.
void decirYSalir(const QString &aviso) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(aviso));
    _exit(0);
}

TEST_F(ArchivosDePapel, WithoutPermissionTheFolderOrTheFileIsNamed) {
    ASSERT_EQ(::chmod(qPrintable(dir_.path()), 0755), 0);
    dejarEn(ruta(u"a.pdf"_s), "anterior");
    const auto comoNadie = [this](const QString &archivo) {
        if (::geteuid() == 0 && ::setuid(65534) != 0) _exit(3);
        if (::geteuid() == ::getuid() && ::access(qPrintable(dir_.path()), W_OK) == 0)
            ::chmod(qPrintable(dir_.path()), 0555);
        decirYSalir(papel::EscribirPdf(reporteDe(1), archivo));
    };
    EXPECT_EXIT(comoNadie(ruta(u"nuevo.pdf"_s)), ::testing::ExitedWithCode(0),
                "nuevo.pdf: no tiene permiso para escribir en la carpeta .*; elija otra");
    ASSERT_EQ(::chmod(qPrintable(dir_.path()), 0777), 0);
    ASSERT_EQ(::chmod(qPrintable(ruta(u"a.pdf"_s)), 0444), 0);
    const auto conArchivoCerrado = [this] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) _exit(3);
        decirYSalir(papel::EscribirPdf(reporteDe(1), ruta(u"a.pdf"_s)));
    };
    EXPECT_EXIT(conArchivoCerrado(), ::testing::ExitedWithCode(0),
                "a.pdf: el archivo no admite cambios; elija otro nombre o revise sus permisos");
    EXPECT_EQ(contenidoDe(ruta(u"a.pdf"_s)), "anterior");
}

TEST_F(ArchivosDePapel, ADiskThatTakesNoMoreLeavesTheOldFileAndIsTold) {
    dejarEn(ruta(u"a.pdf"_s), "anterior");
    const auto conPocoLugar = [this] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit poco{4096, 4096};
        if (::setrlimit(RLIMIT_FSIZE, &poco) != 0) _exit(3);
        decirYSalir(papel::EscribirPdf(reporteDe(2000), ruta(u"a.pdf"_s)));
    };
    EXPECT_EXIT(conPocoLugar(), ::testing::ExitedWithCode(0),
                "a.pdf: no se pudo terminar de escribir \\(.*\\); revise el disco o elija otra carpeta");
    EXPECT_EQ(contenidoDe(ruta(u"a.pdf"_s)), "anterior");
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::Files), QStringList{u"a.pdf"_s});
}

}  // namespace
