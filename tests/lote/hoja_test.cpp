// The sheet of an operation by the batch program, on both stores.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "outputs/itemsheet.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const QString operacionDeHoja = u"IC-2026-0001"_s;

class HojaEnLote : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        for (const char *orden : {"armar", "liquidar"})
            ASSERT_EQ(lote({QLatin1String(orden), operacionDeHoja}).estado, 0);
    }
    bool conDemostracion() const override { return true; }

    Corrida lote(const QStringList &orden) const {
        return Lote(tienda->carpeta(),
                    QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s, en("lote.ini")} + orden);
    }
    Corrida imprimir(const char *desde, const char *hasta, const char *archivo,
                     const QStringList &mas = {}) const {
        return lote(QStringList{u"imprimir"_s, operacionDeHoja, u"--desde"_s, QLatin1String(desde),
                                u"--hasta"_s, QLatin1String(hasta), u"--salida"_s, en(archivo)} +
                    mas);
    }
    QString en(const char *nombre) const { return tienda->carpeta() + u'/' + QLatin1String(nombre); }
    QString leer(const char *nombre) const {
        QFile f(en(nombre));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : u"<nada>"_s;
    }
    /// The texts of the lines, without the blanks at their ends nor the lines that have nothing else.
    static QStringList palabras(const QString &texto) {
        QStringList lineas;
        for (const QString &linea : texto.split(QRegularExpression(u"[\n\f]"_s)))
            if (const QString limpia = linea.simplified(); !limpia.isEmpty()) lineas << limpia;
        return lineas;
    }
    QString textoDelPdf(const char *nombre) const {
        QProcess proceso;
        proceso.start(u"pdftotext"_s, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, en(nombre), u"-"_s});
        EXPECT_TRUE(proceso.waitForFinished()) << "poppler-utils is not installed";
        return QString::fromUtf8(proceso.readAllStandardOutput());
    }
};
EN_AMBOS_STORES(HojaEnLote);

TEST_P(HojaEnLote, WritesTheLinesOfTheDesktopAndTellsHowManyThereAre) {
    const Corrida c = imprimir("0", "3", "hoja.txt", {u"--subitems"_s});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.mensajes().empty());
    const QJsonObject r = c.resultado();
    EXPECT_TRUE(r.value("impreso"_L1).toBool());
    EXPECT_EQ(r.value("archivo"_L1).toString(), en("hoja.txt"));
    EXPECT_EQ(r.value("items"_L1).toInt(), 4);
    EXPECT_GE(r.value("hojas"_L1).toInt(), 4);
    // The screen's own routine. The batch runs under a locale that says nothing: a comma.
    ctx->SeparadorDecimal = u',';
    ctx->opciones = {};
    const HojaDeOperacion hoja = pr_ImprimirLiq(*ctx, {operacionDeHoja, 0, 3, true});
    EXPECT_EQ(r.value("renglones"_L1).toInt(), static_cast<int>(hoja.documento.reporte.renglones.size()));
    EXPECT_EQ(leer("hoja.txt").toStdString(), papel::TextoDe(hoja.documento.reporte).toStdString());
    EXPECT_EQ(valor(u"select count(*) from interno"_s), u"0"_s) << "no lock is taken";
    EXPECT_EQ(valor(u"select count(*) from tabla"_s, u"PERSONAL"_s), u"0"_s);
}

TEST_P(HojaEnLote, ThePdfHoldsTheSameLines) {
    ASSERT_EQ(imprimir("0", "2", "hoja.txt").estado, 0);
    const Corrida c = imprimir("0", "2", "hoja.pdf");
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
    const QStringList delPdf = palabras(textoDelPdf("hoja.pdf"));
    const QStringList delTexto = palabras(leer("hoja.txt"));
    ASSERT_GT(delTexto.size(), 40);
    // The file of text begins with the title and the form, which lie in two columns on paper.
    const qsizetype primera = delTexto.indexOf(u"Interno: IC-2026-0001"_s);
    ASSERT_GE(primera, 0);
    qsizetype desde = delPdf.indexOf(delTexto.at(primera));
    for (qsizetype n = primera; n < delTexto.size() - 1; ++n) {
        const qsizetype hallada = delPdf.indexOf(delTexto.at(n), desde);
        ASSERT_GE(hallada, desde) << delTexto.at(n).toStdString();
        desde = hallada + 1;
    }
    EXPECT_EQ(delPdf.filter(u"Zendra Para Windows"_s).size(), c.resultado().value("hojas"_L1).toInt());
}

TEST_P(HojaEnLote, AFirstItemAboveTheLastIsRefusedAsOnTheScreen) {
    const Corrida c = imprimir("3", "2", "hoja.pdf");
    EXPECT_EQ(c.estado, 1);
    EXPECT_FALSE(c.resultado().value("impreso"_L1).toBool(true));
    EXPECT_EQ(c.textos(), QStringList{u"El campo DESDE no puede ser mayor que HASTA"_s});
    EXPECT_FALSE(QFile::exists(en("hoja.pdf")));
}

TEST_P(HojaEnLote, ItemsThatAreNotThereAreNamed) {
    EXPECT_EQ(imprimir("0", "20", "hoja.pdf").textos(),
              QStringList{u"La operación IC-2026-0001 no tiene el item 20; sus items van del 0 al 19."_s});
    EXPECT_EQ(imprimir("21", "22", "hoja.pdf").textos(),
              QStringList{u"La operación IC-2026-0001 no tiene el item 21; sus items van del 0 al 19."_s});
    EXPECT_FALSE(QFile::exists(en("hoja.pdf")));
}

TEST_P(HojaEnLote, AnotherEndingIsRefusedAndTheFileStays) {
    Escribir(tienda->carpeta(), u"hoja.doc"_s, "anterior");
    const Corrida c = imprimir("0", "1", "hoja.doc");
    EXPECT_EQ(c.estado, 1);
    ASSERT_EQ(c.textos().size(), 1);
    EXPECT_EQ(c.textos()[0],
              u"La hoja se escribe en un archivo .pdf o .txt, y %1 no termina así; cámbiele el nombre."_s.arg(
                  en("hoja.doc")));
    EXPECT_EQ(leer("hoja.doc"), u"anterior"_s);
}

TEST_P(HojaEnLote, AFileThatCannotBeWrittenIsTold) {
    ASSERT_TRUE(QDir().mkpath(en("hoja.pdf")));
    const Corrida c = imprimir("0", "0", "hoja.pdf");
    EXPECT_EQ(c.estado, 1);
    EXPECT_FALSE(c.resultado().value("impreso"_L1).toBool(true));
    EXPECT_EQ(c.textos().size(), 1);
}

TEST_P(HojaEnLote, AnOperationThatIsNotThereIsTold) {
    const Corrida c = lote({u"imprimir"_s, u"NINGUNA"_s, u"--desde"_s, u"0"_s, u"--hasta"_s, u"0"_s,
                            u"--salida"_s, en("hoja.pdf")});
    EXPECT_EQ(c.estado, 1);
    ASSERT_EQ(c.textos().size(), 1);
    EXPECT_TRUE(c.textos()[0].contains(u"NINGUNA"_s));
}

}  // namespace
