// The reports of licences by the batch program: the same file as the screen writes.

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonDocument>

#include "frame/entities.h"
#include "regulatory/lnapireports.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesDelReporte(const QString &archivo) {
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

class LicenciasEnLote : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }

    Corrida licencias(const QString &opcion, const QString &valor, const QString &archivo) const {
        return Lote(tienda->carpeta(), {u"--perfil"_s, tienda->perfil(), u"--ajustes"_s, en(u"lote.ini"_s),
                                        u"licencias"_s, u"--"_s + opcion, valor, u"--salida"_s, archivo});
    }
    QString en(const QString &nombre) const { return tienda->carpeta() + u'/' + nombre; }
};
EN_AMBOS_STORES(LicenciasEnLote);

TEST_P(LicenciasEnLote, EachReportIsTheOneOfTheScreen) {
    struct Caso {
        QString opcion, valor;
        int articulos, filas;
        bool (*reporte)(AppContext &, const QString &, const AvanceDeReporte &);
    };
    // The shock absorber's position has two norms.
    const Caso casos[] = {{u"catalogo"_s, u"HIDPLATA"_s, 20, 20, ReporteCatalogo},
                          {u"articulo"_s, u"AMO-DE"_s, 1, 2, ReporteArticulo},
                          {u"posicion"_s, u"8708.80"_s, 1, 2, ReportePosicion}};
    for (const Caso &caso : casos) {
        const QString archivo = en(caso.opcion + u".xls"_s);
        const Corrida c = licencias(caso.opcion, caso.valor, archivo);
        EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString() << c.errores.toStdString();
        EXPECT_TRUE(c.mensajes().empty());
        EXPECT_EQ(c.errores.toStdString(), "");
        EXPECT_EQ(c.resultado(), (QJsonObject{{u"resultado"_s, u"licencias"_s},
                                              {caso.opcion, caso.valor},
                                              {u"archivo"_s, archivo},
                                              {u"articulos"_s, caso.articulos},
                                              {u"filas"_s, caso.filas},
                                              {u"estado"_s, 0}}))
            << QJsonDocument(c.resultado()).toJson().toStdString();
        const QByteArray delLote = bytesDelReporte(archivo);
        EXPECT_EQ(delLote.count("\r\n"), caso.filas + 1);
        // A process whose locale says nothing writes the comma.
        ctx->SeparadorDecimal = u',';
        registro.archivos = {en(u"pantalla.xls"_s)};
        registro.respuestas = {true};
        EXPECT_TRUE(caso.reporte(*ctx, caso.valor, {}));
        EXPECT_TRUE(delLote == bytesDelReporte(en(u"pantalla.xls"_s))) << caso.opcion.toStdString();
    }
}

TEST_P(LicenciasEnLote, AWorkbookIsWrittenByTheEndOfItsName) {
    const Corrida c = licencias(u"catalogo"_s, u" hidplata "_s, en(u"libro.XLSX"_s));
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(c.resultado().value(u"catalogo"_s).toString(), u"hidplata"_s);
    EXPECT_TRUE(bytesDelReporte(en(u"libro.XLSX"_s)).startsWith("PK"));
}

TEST_P(LicenciasEnLote, WhatIsNotFoundAndWhatCannotBeWrittenAreTold) {
    Corrida c = licencias(u"articulo"_s, u"NO'HAY"_s, en(u"no.xls"_s));
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList{u"No se han encontrado los datos buscados"_s});
    EXPECT_FALSE(QFile::exists(en(u"no.xls"_s)));
    c = licencias(u"articulo"_s, u"AMO-DE"_s, u"/no/hay/r.xls"_s);
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(),
              QStringList{u"No se escribió /no/hay/r.xls: la carpeta /no/hay no existe; elija otra."_s});
    EXPECT_EQ(c.resultado().contains(u"archivo"_s), false);
}

TEST(LicenciasPedidas, AWrongUseIsOneSentence) {
    const QTemporaryDir dir;
    const QString archivo = dir.filePath(u"x.xls"_s);
    struct Caso {
        QStringList argumentos;
        QString dice;
    };
    const Caso casos[] = {
        {{u"--salida"_s, archivo},
         u"Falta --catalogo CATALOGO o --articulo ARTICULO o --posicion POSICION"_s},
        {{u"--catalogo"_s, u"A"_s, u"--articulo"_s, u"B"_s, u"--salida"_s, archivo},
         u"Las opciones --catalogo y --articulo no van juntas"_s},
        {{u"--catalogo"_s, u" "_s, u"--salida"_s, archivo}, u"A la opción --catalogo le falta su valor"_s},
        {{u"--posicion"_s, u"8708 "_s, u"--salida"_s, archivo},
         u"--posicion no sirve: \"8708 \" tiene menos de 5 caracteres"_s},
        {{u"--catalogo"_s, u"A"_s}, u"Falta --salida ARCHIVO.xls|.xlsx"_s},
        {{u"--catalogo"_s, u"A"_s, u"--salida"_s, u"x.csv"_s},
         u"--salida no sirve: \"x.csv\" no termina en .xls o .xlsx"_s},
        {{u"A"_s, u"--catalogo"_s, u"A"_s, u"--salida"_s, archivo},
         u"Sobra \"A\": el comando licencias no lleva argumentos"_s},
    };
    for (const Caso &caso : casos) {
        const Corrida c =
            Lote(dir.path(),
                 QStringList{u"--perfil"_s, dir.filePath(u"p.ini"_s), u"licencias"_s} + caso.argumentos);
        EXPECT_EQ(c.estado, 2);
        EXPECT_EQ(c.errores.trimmed().toStdString(),
                  (caso.dice + u"; vea zendra_lote licencias --ayuda."_s).toStdString());
    }
}

}  // namespace
