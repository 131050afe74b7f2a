// An operation whose every text is one that breaks what pastes it: it goes out and in between stores, and
// onto paper, into books and documents that others read.

#include <QFile>
#include <QProcess>
#include <QXmlStreamReader>

#include "frame/base/texts.h"
#include "frame/base/values.h"
#include "tests/lote/fuzz.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesDeSalida(const QString &ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

class FuzzDeSalidas : public EnAmbasALaVez {
 protected:
    const QString clave = u"IC-2026-0001"_s;

    void SetUp() override {
        EnAmbasALaVez::SetUp();
        hacer({u"armar"_s, clave, u"--forzar"_s});
        hacer({u"liquidar"_s, clave});
    }
    /// The next text that a store keeps, `largo` characters of it at most.
    QString otro(qsizetype largo) {
        for (;;)
            if (QString texto = Recortado(ronda.siguiente(), largo); DefectoDeTexto(texto).isEmpty())
                return texto;
    }
    /// Fills the named text columns of every row of the operation, each with another text.
    void ensuciar(const char *tabla, const QStringList &columnas, const QString &entidad = u"INTERNOS"_s) {
        constexpr qsizetype largo = 400;
        QStringList pares;
        for (const QString &c : columnas) pares << c + u" = "_s + TextoEnComillas(otro(largo));
        ejecutar(u"update %1 set "_s.arg(QLatin1String(tabla)) + pares.join(u',') + u" where interno = '"_s +
                     clave + u'\'',
                 entidad);
    }
    void ensuciarTextosLibres() {
        ensuciar("caratula",
                 {u"factura7"_s, u"marcabul"_s, u"datocomprador"_s, u"nrotransinter"_s, u"trans"_s,
                  u"bulnro"_s, u"factura2"_s, u"factura3"_s, u"factura10"_s, u"bultip"_s});
        ensuciar("subitems", {u"descripcion"_s, u"descripcion_maria"_s, u"idarticulo"_s, u"idcatalogo"_s,
                              u"otros"_s, u"itfiller"_s, u"factura_nro"_s, u"sufijos"_s});
        ensuciar("item", {u"descripcion"_s, u"naladisa"_s, u"itfiller"_s});
        ensuciar("facturas", {u"factura"_s});
        ensuciar("iteminfo", {u"valor"_s});
        ensuciar("itempresu", {u"concepto"_s});
        ensuciar("itemref", {u"referencia"_s, u"valor"_s});
        ensuciar("coment", {u"coment"_s}, u"SYSTABLAS"_s);
        ensuciar("hval", {u"datos"_s, u"restricciones"_s, u"explicacion"_s}, u"SYSTABLAS"_s);
    }
};

TEST_F(FuzzDeSalidas, AnOperationOfSuchTextsTravelsBetweenStoresOfBothKinds) {
    for (int vez = 0; vez < 3; ++vez) {
        // Every column that holds free text or a code, not only those of the screens.
        for (const esquema::Tabla &t : esquema::tablas()) {
            if (t.columna(u"interno") == nullptr || t.nombre == u"interno"_s ||
                t.nombre.startsWith(u"stock"_s))
                continue;
            QStringList columnas;
            for (const esquema::Columna &c : t.columnas)
                if (c.tipo == esquema::Tipo::Texto && c.nombre != u"interno"_s &&
                    c.nombre != u"cancelaciones"_s && !c.nombre.startsWith(u"cuit"_s) &&
                    c.nombre != u"idvendedor"_s)
                    columnas << c.nombre;
            if (!columnas.isEmpty()) ensuciar(t.nombre.toLatin1().constData(), columnas, t.entidad);
        }
        hacer({u"exportar"_s, clave, u"--salida"_s, carpeta + u"/feo.zop"_s});
        const QByteArray archivo = bytesDeSalida(tienda(0).carpeta() + u"/feo.zop"_s);
        EXPECT_FALSE(archivo.isEmpty());
        EXPECT_TRUE(archivo == bytesDeSalida(tienda(1).carpeta() + u"/feo.zop"_s))
            << "one file from both kinds";
        const SinContar sin{{clave}, {}};
        const auto antes = huellas(sin);
        hacer({u"importar"_s, carpeta + u"/feo.zop"_s, u"--existentes"_s, u"reemplazar"_s});
        hacer({u"exportar"_s, clave, u"--salida"_s, carpeta + u"/vuelta.zop"_s});
        EXPECT_TRUE(archivo == bytesDeSalida(tienda(0).carpeta() + u"/vuelta.zop"_s))
            << "made again, the same file";
        EXPECT_TRUE(archivo == bytesDeSalida(tienda(1).carpeta() + u"/vuelta.zop"_s));
        nadaMas(antes, sin, u"importar"_s);
    }
}

TEST_F(FuzzDeSalidas, EveryPaperIsWrittenOrRefusedByName) {
    struct Papel {
        QStringList orden;
        QString archivo;
    };
    const Papel papeles[] = {
        {{u"imprimir"_s, clave, u"--desde"_s, u"0"_s, u"--hasta"_s, u"3"_s, u"--subitems"_s}, u"hoja.txt"_s},
        {{u"imprimir"_s, clave, u"--desde"_s, u"0"_s, u"--hasta"_s, u"3"_s}, u"hoja.pdf"_s},
        {{u"presupuesto"_s, clave}, u"presupuesto.html"_s},
        {{u"presupuesto"_s, clave}, u"presupuesto.pdf"_s},
        {{u"lista"_s, u"lineas-horizontal"_s, clave}, u"lineas.xlsx"_s},
        {{u"lista"_s, u"lineas"_s, clave}, u"lineas.csv"_s},
        {{u"lista"_s, u"posiciones"_s, clave}, u"lineas.pdf"_s},
        {{u"lista"_s, u"bultos"_s, clave}, u"bultos.xlsx"_s},
        {{u"lista"_s, u"valoracion"_s, clave}, u"valoracion.xlsx"_s},
        {{u"lista"_s, u"operaciones"_s}, u"operaciones.xlsx"_s},
    };
    const auto antes = huellas({{clave}, {}});
    for (int vez = 0; vez < 3; ++vez) {
        ensuciarTextosLibres();
        for (const Papel &p : papeles) {
            hacer(p.orden + QStringList{u"--salida"_s, carpeta + u'/' + p.archivo});
            for (std::size_t n = 0; n < cuantas; ++n) {
                const QString ruta = tienda(n).carpeta() + u'/' + p.archivo;
                EXPECT_GT(QFile(ruta).size(), 0) << p.archivo.toStdString();
                if (!ruta.endsWith(u".xlsx"_s)) continue;
                QProcess lector;
                lector.start(u"/usr/bin/python3"_s,
                             {u"-c"_s, u"import openpyxl,sys; openpyxl.load_workbook(sys.argv[1])"_s, ruta});
                EXPECT_TRUE(lector.waitForFinished(30000));
                EXPECT_EQ(lector.exitCode(), 0)
                    << p.archivo.toStdString() << lector.readAllStandardError().right(400).toStdString();
            }
        }
    }
    nadaMas(antes, {{clave}, {}}, u"papeles"_s);
}

TEST_F(FuzzDeSalidas, TheDeclarationIsADocumentThatReadsOrIsRefusedByName) {
    const SinContar sin{{clave}, {}};
    const auto antes = huellas(sin);
    int escritas = 0;
    for (int vez = 0; vez < 10; ++vez) {
        ensuciar("caratula", {u"datocomprador"_s, u"nrotransinter"_s, u"marcabul"_s});
        ensuciar("item", {u"descripcion"_s});
        ensuciar("iteminfo", {u"valor"_s});
        escribir(u"d.xml"_s, {});
        const Corrida c =
            dar({{u"transferir"_s, clave, u"--salida"_s, carpeta + u"/d.xml"_s}, {u"Si"_s, u"Si"_s, u"Si"_s}},
                u"xml"_s);
        if (c.estado != 0) {
            EXPECT_EQ(c.textos().size(), 1) << c.textos().join(u'\n').toStdString();
            continue;
        }
        ++escritas;
        const QByteArray documento = bytesDeSalida(tienda(0).carpeta() + u"/d.xml"_s);
        EXPECT_TRUE(documento == bytesDeSalida(tienda(1).carpeta() + u"/d.xml"_s))
            << "the same bytes from both";
        QXmlStreamReader lector(documento);
        while (!lector.atEnd()) lector.readNext();
        EXPECT_FALSE(lector.hasError()) << lector.errorString().toStdString();
    }
    EXPECT_GT(escritas, 0) << "none was written: the texts are refused too soon";
    nadaMas(antes, sin, u"transferir"_s);
}

}  // namespace
