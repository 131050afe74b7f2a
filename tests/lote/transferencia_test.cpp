// The hand-over by the batch program, on the demonstration operations of both stores.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <algorithm>

#include "frame/startup.h"
#include "outputs/declarationxml.h"
#include "outputs/transfer.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class TransferenciaEnLote : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        // Those linked to articles are the server's alone.
        ejecutar(u"delete from articulo_ventaja"_s, u"CATALOGOS"_s);
        for (const char *orden : {"armar", "liquidar"})
            EXPECT_EQ(lote({QLatin1String(orden), clave}).estado, 0);
    }
    bool conDemostracion() const override { return true; }

    Corrida lote(const QStringList &orden, const char *respuestas = "[]") const {
        return Lote(
            tienda->carpeta(),
            QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s, en("lote.ini"), u"--respuestas"_s,
                        Escribir(tienda->carpeta(), u"respuestas.json"_s, respuestas)} +
                orden);
    }
    Corrida transferir(const char *respuestas = "[]") const {
        return lote({u"transferir"_s, clave, u"--salida"_s, en("salida.xml")}, respuestas);
    }
    QString en(const char *nombre) const { return tienda->carpeta() + u'/' + QLatin1String(nombre); }
    static QByteArray bytesDe(const QString &ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
    }

    const QString clave = u"IC-2026-0001"_s;
};
EN_AMBOS_STORES(TransferenciaEnLote);

TEST_P(TransferenciaEnLote, WritesTheBytesOfTheDesktopAndTellsFileSizeAndCounts) {
    const Corrida c = transferir();
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.mensajes().empty());
    const QByteArray escrito = bytesDe(en("salida.xml"));
    const QJsonObject r = c.resultado();
    EXPECT_TRUE(r.value("transferido"_L1).toBool());
    EXPECT_EQ(r.value("archivo"_L1).toString(), en("salida.xml"));
    EXPECT_EQ(r.value("bytes"_L1).toInteger(), escrito.size());
    EXPECT_EQ(r.value("advertencias"_L1).toInt(), 0);
    EXPECT_EQ(r.value("items"_L1).toInt(), 19);
    EXPECT_EQ(r.value("subitems"_L1).toInt(), 20);
    EXPECT_GT(r.value("tributos"_L1).toInt(), 0);
    EXPECT_EQ(r.value("ventajas"_L1).toInt(), 10);
    EXPECT_EQ(r.value("informaciones"_L1).toInt(), 0);
    EXPECT_EQ(r.value("cancelaciones"_L1).toInt(), 0);
    EXPECT_EQ(DefectoDelDocumento(escrito), QString());
    // What the screen writes is this routine's.
    ASSERT_TRUE(EscribirTransferencia(LeerDeclaracion(*ctx, clave), en("pantalla.xml")).hecho);
    EXPECT_EQ(escrito, bytesDe(en("pantalla.xml")));
    EXPECT_EQ(valor(u"select count(*) as n from interno"_s), u"0"_s) << "the lock is given back";
    EXPECT_EQ(filas(u"select interno,archivo,suma from transferidas"_s),
              clave + u'|' + en("salida.xml") + u'|' + SumaDeDocumento(escrito));
}

TEST_P(TransferenciaEnLote, DifferencesAreAskedAboutAndNoWritesNothing) {
    ejecutar(u"update item set idpais = '999' where interno = 'IC-2026-0001' and id = 1"_s);
    for (const char *respuestas : {"[]", R"(["No"])"}) {
        const Corrida c = transferir(respuestas);
        EXPECT_EQ(c.estado, 0);
        EXPECT_FALSE(c.resultado().value("transferido"_L1).toBool());
        EXPECT_TRUE(c.resultado().contains("transferido"_L1));
        ASSERT_EQ(c.mensajes().size(), 2U);
        EXPECT_EQ(c.mensajes()[0].value("tipo"_L1).toString(), u"informe"_s);
        EXPECT_EQ(c.mensajes()[1].value("tipo"_L1).toString(), u"pregunta"_s);
        EXPECT_EQ(bytesDe(en("salida.xml")), "<nada>");
        EXPECT_EQ(valor(u"select count(*) as n from transferidas"_s), u"0"_s);
    }
    const Corrida c = transferir(R"(["Si"])");
    EXPECT_EQ(c.estado, 0);
    EXPECT_TRUE(c.resultado().value("transferido"_L1).toBool());
    EXPECT_TRUE(bytesDe(en("salida.xml")).startsWith("<?xml"));
}

TEST_P(TransferenciaEnLote, EveryWarningIsALineWithItsItem) {
    ejecutar(u"update item set totalkneto = null where interno = 'IC-2026-0001' and id = 2"_s);
    ejecutar(u"update caratula set factura9 = '' where interno = 'IC-2026-0001'"_s);
    const Corrida c = transferir();
    EXPECT_EQ(c.estado, 0);
    EXPECT_TRUE(c.resultado().value("transferido"_L1).toBool());
    EXPECT_EQ(c.resultado().value("advertencias"_L1).toInt(), 2);
    ASSERT_EQ(c.mensajes().size(), 2U);
    for (const QJsonObject &o : c.mensajes()) EXPECT_EQ(o.value("tipo"_L1).toString(), u"advertencia"_s);
    EXPECT_EQ(c.mensajes()[0].value("item"_L1).toInt(), 0);
    EXPECT_EQ(c.mensajes()[0].value("texto"_L1).toString(),
              u"Los bultos no están contestados; complételos en la pantalla de bultos."_s);
    EXPECT_EQ(c.mensajes()[1].value("item"_L1).toInt(), 2);
    EXPECT_EQ(c.mensajes()[1].value("texto"_L1).toString(),
              u"El item 2 no tiene kilos netos; complételos en la pantalla de items."_s);
}

TEST_P(TransferenciaEnLote, AnEarlierFileIsReplacedAndOneThatCannotBeWrittenStays) {
    Escribir(tienda->carpeta(), u"salida.xml"_s, "anterior");
    EXPECT_EQ(transferir().estado, 0);
    EXPECT_TRUE(bytesDe(en("salida.xml")).startsWith("<?xml"));
    ASSERT_TRUE(QFile::remove(en("salida.xml")));
    ASSERT_TRUE(QDir().mkpath(en("salida.xml")));
    const Corrida c = transferir();
    EXPECT_EQ(c.estado, 1);
    EXPECT_FALSE(c.resultado().value("transferido"_L1).toBool());
    ASSERT_EQ(c.textos().size(), 1);
    EXPECT_TRUE(c.textos()[0].contains(u"es una carpeta"_s));
    EXPECT_TRUE(QDir(en("salida.xml")).exists());
}

TEST_P(TransferenciaEnLote, ADocumentThatBreaksItsFormIsNotWritten) {
    Escribir(tienda->carpeta(), u"salida.xml"_s, "anterior");
    ejecutar(u"update item set id = 1 where interno = 'IC-2026-0001' and id = 2"_s);
    const Corrida c = transferir(R"(["Si"])");
    EXPECT_EQ(c.estado, 1);
    EXPECT_FALSE(c.resultado().value("transferido"_L1).toBool());
    EXPECT_TRUE(c.textos().last().contains(u"no cumple su forma"_s)) << c.textos().last().toStdString();
    EXPECT_EQ(bytesDe(en("salida.xml")), "anterior");
}

TEST_P(TransferenciaEnLote, AnOperationThatAnotherWorkstationHoldsIsNotHandedOver) {
    ejecutar(u"insert into interno (interno,maquina,usuario) values ('IC-2026-0001','OTRA','x')"_s);
    const Corrida c = transferir();
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos().size(), 1);
    EXPECT_EQ(bytesDe(en("salida.xml")), "<nada>");
}

TEST_P(TransferenciaEnLote, WithoutAFileItIsAWrongUse) {
    const Corrida c = lote({u"transferir"_s, clave});
    EXPECT_EQ(c.estado, 2);
    EXPECT_TRUE(c.errores.contains(u"--salida"_s)) << c.errores.toStdString();
    const Corrida otra = lote({u"liquidar"_s, clave, u"--salida"_s, en("x.xml")});
    EXPECT_EQ(otra.estado, 2) << "the option is this command's alone";
}

}  // namespace
