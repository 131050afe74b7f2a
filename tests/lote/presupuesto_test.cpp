// The quote by the batch program, on a demonstration operation of both stores.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include "frame/settings.h"
#include "outputs/quote.h"
#include "outputs/quotepage.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class PresupuestoEnLote : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        // Those linked to articles are the server's alone.
        ejecutar(u"delete from articulo_ventaja"_s, u"CATALOGOS"_s);
        ponerPase("1050.25");
        for (const char *orden : {"armar", "liquidar"})
            EXPECT_EQ(lote({QLatin1String(orden), operacion}).estado, 0);
    }
    bool conDemostracion() const override { return true; }

    Corrida lote(const QStringList &orden) const {
        return Lote(tienda->carpeta(),
                    QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s, en("lote.ini")} + orden);
    }
    Corrida presupuestar(const char *archivo, const QString &cual = u"IC-2026-0001"_s) const {
        return lote({u"presupuesto"_s, cual, u"--salida"_s, en(archivo)});
    }
    QString en(const char *nombre) const { return tienda->carpeta() + u'/' + QLatin1String(nombre); }
    void ponerPase(const char *pase) const {
        Ajustes(en("lote.ini")).Guardar(u"ZENDRA"_s, u"PRESUPUESTO"_s, u"PASE"_s, QLatin1String(pase));
    }
    static QString leer(const QString &ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? QString::fromLatin1(f.readAll()) : u"<nada>"_s;
    }
    static QString salidaDe(const QString &programa, const QStringList &argumentos) {
        QProcess p;
        p.start(programa, argumentos);
        EXPECT_TRUE(p.waitForFinished()) << programa.toStdString();
        return QString::fromUtf8(p.readAllStandardOutput());
    }

    const QString operacion = u"IC-2026-0001"_s;
};
EN_AMBOS_STORES(PresupuestoEnLote);

TEST_P(PresupuestoEnLote, WritesThePageAndTellsItsTotals) {
    const Corrida c = presupuestar("salida.html");
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.mensajes().empty());
    const QString pagina = leer(en("salida.html"));
    const QJsonObject r = c.resultado();
    EXPECT_TRUE(r.value("presupuestado"_L1).toBool());
    EXPECT_EQ(r.value("archivo"_L1).toString(), en("salida.html"));
    EXPECT_EQ(r.value("bytes"_L1).toInteger(), pagina.size());
    EXPECT_EQ(r.value("tipoDePase"_L1).toString(), u"1050,250000"_s);
    // 850 + 420 dollars and 185000 + 12500 pesos.
    EXPECT_EQ(r.value("operativosDolares"_L1).toString(), u"1270,00"_s);
    EXPECT_EQ(r.value("operativos"_L1).toString(), u"197500,00"_s);
    EXPECT_EQ(r.value("aCuenta"_L1).toString(), u"00,00"_s);
    EXPECT_EQ(r.value("subtotal"_L1), r.value("totalGeneral"_L1));
    // The module gives the same from here.
    AppContext &aqui = *ctx;
    aqui.SeparadorDecimal = u',';
    aqui.ConfigFilePath = en("Prueba.cfg");
    aqui.ajustes.Guardar(u"ZENDRA"_s, u"PRESUPUESTO"_s, u"PASE"_s, u"1050.25"_s);
    Presupuesto p;
    ASSERT_TRUE(CargarCaratula(aqui, operacion, p));
    const auto monto = [](double valor) { return numeros::Format(valor, u"00.00", u','); };
    EXPECT_GT(p.totalP.dolares, 0);
    EXPECT_EQ(r.value("totalP"_L1).toString(), monto(p.totalP.pesos));
    EXPECT_EQ(r.value("totalPDolares"_L1).toString(), monto(p.totalP.dolares));
    EXPECT_EQ(r.value("totalG"_L1).toString(), monto(p.totalG.pesos));
    EXPECT_EQ(r.value("totalC"_L1).toString(), monto(p.totalC.pesos));
    EXPECT_EQ(r.value("totalGeneral"_L1).toString(), monto(Resumir(p).totalGeneral));
    EXPECT_TRUE(pagina.contains(r.value("totalGeneral"_L1).toString()));
    EXPECT_TRUE(pagina.contains(u"HONORARIOS"_s) && pagina.contains(u"10 d&#237;as"_s));
}

TEST_P(PresupuestoEnLote, WritesThePdfAndItsPicture) {
    const Corrida c = presupuestar("salida.pdf");
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    const QString texto = salidaDe(u"pdftotext"_s, {u"-layout"_s, en("salida.pdf"), u"-"_s}).simplified();
    EXPECT_TRUE(
        texto.contains(u"TOTAL GENERAL (pesos) "_s + c.resultado().value("totalGeneral"_L1).toString()))
        << texto.toStdString();
    EXPECT_TRUE(texto.contains(u"HIDRAULICA DEL PLATA S.A."_s));
    const QString fotos = CarpetaDeConstruccion() + "/screenshots/papel"_L1;
    ASSERT_TRUE(QDir().mkpath(fotos));
    salidaDe(u"pdftoppm"_s,
             {u"-png"_s, u"-singlefile"_s, u"-r"_s, u"96"_s, en("salida.pdf"), fotos + "/presupuesto"_L1});
    EXPECT_TRUE(QFile::exists(fotos + "/presupuesto.png"_L1));
}

TEST_P(PresupuestoEnLote, ThePdfIsTheSameFromAFineScreenAndFromACoarseOne) {
    const auto deLaPantalla = [this](const char *puntos) {
        qputenv("QT_FONT_DPI", puntos);
        const Corrida c = presupuestar("pantalla.pdf");
        qunsetenv("QT_FONT_DPI");
        EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
        // What stands ahead tells the moment it was written.
        return salidaDe(u"pdftotext"_s, {u"-bbox"_s, en("pantalla.pdf"), u"-"_s}).section(u"<doc>"_s, 1);
    };
    const QString gruesa = deLaPantalla("72");
    EXPECT_TRUE(gruesa.contains(u">HONORARIOS<"_s)) << gruesa.toStdString();
    EXPECT_EQ(deLaPantalla("168").toStdString(), gruesa.toStdString());
}

TEST_P(PresupuestoEnLote, WithoutARateThereIsNoQuote) {
    ponerPase("no sé");
    const Corrida c = presupuestar("salida.html");
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList{u"Debe ingresar el tipo pase"_s});
    EXPECT_FALSE(c.resultado().value("presupuestado"_L1).toBool());
    EXPECT_EQ(leer(en("salida.html")), u"<nada>"_s);
}

TEST_P(PresupuestoEnLote, WhatCannotBeWrittenIsTold) {
    const std::pair<const char *, const char *> casos[] = {
        {"salida.doc", "no termina así"}, {"no/esta.html", "no existe"}, {"no/esta.pdf", "no existe"}};
    for (const auto &[archivo, aviso] : casos) {
        const Corrida c = presupuestar(archivo);
        EXPECT_EQ(c.estado, 1) << archivo;
        ASSERT_EQ(c.textos().size(), 1) << archivo;
        EXPECT_TRUE(c.textos()[0].contains(QString::fromUtf8(aviso))) << c.textos()[0].toStdString();
    }
}

TEST_P(PresupuestoEnLote, AnOperationThatIsNotThereIsToldAndAnEmptyOneHasAQuote) {
    EXPECT_EQ(presupuestar("salida.html", u"NADA"_s).estado, 1);
    ejecutar(u"insert into caratula (interno) values ('VACIA')"_s);
    const Corrida c = presupuestar("salida.html", u"VACIA"_s);
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value("totalGeneral"_L1).toString(), u"00,00"_s);
    EXPECT_TRUE(leer(en("salida.html")).contains(u"Sin Datos..."_s));
}

}  // namespace
