// The lists by the batch program: every list in every form, read back by the programs that offices read them
// with.

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include "operations/batchwork.h"
#include "operations/browserlist.h"
#include "tests/support/claves.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

/// Cells of the first sheet as JSON; a day as {"dia": "yyyy-MM-dd"}, so that it cannot be a text.
const char *const lectorDeLibros = R"(
import datetime, json, sys, openpyxl
valores = openpyxl.load_workbook(sys.argv[1], data_only=True).worksheets[0]
formulas = openpyxl.load_workbook(sys.argv[1]).worksheets[0]
def celda(c):
    return {"dia": c.strftime("%Y-%m-%d")} if isinstance(c, (datetime.datetime, datetime.date)) else c
print(json.dumps({"filas": [[celda(c) for c in f] for f in valores.iter_rows(values_only=True)],
                  "formulas": [[celda(c) for c in f] for f in formulas.iter_rows(values_only=True)],
                  "fija": valores.freeze_panes}))
)";

QByteArray salidaDe(const QString &programa, const QStringList &argumentos) {
    QProcess p;
    p.start(programa, argumentos);
    EXPECT_TRUE(p.waitForFinished(30000)) << programa.toStdString();
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    return p.readAllStandardOutput();
}

class ListasEnLote : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }

    Corrida lote(const QStringList &orden) const {
        return Lote(tienda->carpeta(),
                    QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s, en(u"lote.ini"_s)} + orden);
    }
    Corrida lista(const QString &nombre, const QString &clave, const QString &archivo) const {
        QStringList orden{u"lista"_s, nombre};
        if (!clave.isEmpty()) orden << clave;
        return lote(orden << u"--salida"_s << archivo);
    }
    /// The list written, which has to be done without a word.
    QString escrita(const QString &nombre, const QString &clave, const char *clase, int filas) const {
        const QString archivo = en(nombre + QLatin1Char('.') + QLatin1String(clase));
        const Corrida c = lista(nombre, clave, archivo);
        EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString() << c.errores.toStdString();
        EXPECT_TRUE(c.mensajes().empty());
        EXPECT_EQ(c.errores.toStdString(), "");
        QJsonObject esperado{{u"resultado"_s, u"lista"_s},
                             {u"lista"_s, nombre},
                             {u"archivo"_s, archivo},
                             {u"filas"_s, filas},
                             {u"estado"_s, 0}};
        if (!clave.isEmpty()) esperado[u"clave"_s] = clave;
        EXPECT_EQ(c.resultado(), esperado) << QJsonDocument(c.resultado()).toJson().toStdString();
        return archivo;
    }
    QJsonObject libro(const QString &archivo) const {
        const QByteArray json =
            salidaDe(u"/usr/bin/python3"_s, {u"-c"_s, QString::fromLatin1(lectorDeLibros), archivo});
        return QJsonDocument::fromJson(json).object();
    }
    static QString texto(const QString &pdf) {
        return QString::fromUtf8(salidaDe(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s}));
    }
    static QStringList lineasDe(const QString &csv) {
        QFile f(csv);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return QString::fromUtf8(f.readAll()).remove(QChar(0xFEFF)).remove(u'\r').trimmed().split(u'\n');
    }
    QString en(const QString &nombre) const { return tienda->carpeta() + u'/' + nombre; }
};
EN_AMBOS_STORES(ListasEnLote);

TEST_P(ListasEnLote, LinesLeaveAsCsvWithWhatTheStoreHolds) {
    const QStringList filas = lineasDe(escrita(u"lineas-horizontal"_s, importacion, "csv", 25));
    ASSERT_EQ(filas.size(), 26) << "the titles, and rows of data alone";
    EXPECT_EQ(filas[0].toStdString(),
              "Línea,Artículo,Descripción,Posición,Un.,Cantidad,Precio unit.,FOB,Kg neto,Origen,Estado,"
              "Cant. estad.,Un.est.,Factura");
    EXPECT_EQ(filas[1].toStdString(),
              "1,NP-0750,Electrobomba sumergible 750 W,8413.70.10.100L,07,24,118.4,2841.6,0,438,2,24,07,"
              "NP-88120");
    EXPECT_EQ(filas[11].toStdString(),
              "11,TO-M10A,\"Tornillo M10 con arandela, inoxidable\",7318.15.00.111J,01,64,9.45,604.8,64,438,"
              "2,64,01,NP-88120");
}

TEST_P(ListasEnLote, LinesByPositionLeaveAsAWorkbookWithNumbersAsNumbers) {
    const QJsonObject l = libro(escrita(u"posiciones-horizontal"_s, importacion, "xlsx", 25));
    EXPECT_EQ(l.value(u"fija"_s).toString(), u"A2"_s) << "the titles stay in view";
    const QJsonArray filas = l.value(u"filas"_s).toArray();
    // The first position by its text is that of the rubber rings: one line of 18 kg at 26.40.
    EXPECT_EQ(filas[1].toArray()[0].toString(), u"Posición 4016.93.00.190P"_s);
    const QJsonArray aro = filas[2].toArray();
    EXPECT_TRUE(aro[5].isDouble() && aro[6].isDouble() && aro[7].isDouble());
    EXPECT_EQ(aro[5].toDouble(), 18);
    EXPECT_EQ(aro[6].toDouble(), 26.4);
    EXPECT_EQ(aro[7].toDouble(), 475.2);
    EXPECT_EQ(aro[4].toString(), u"01"_s) << "a code is a text";
    EXPECT_EQ(filas[3].toArray()[7].toDouble(), 475.2);
    const QJsonArray formulas = l.value(u"formulas"_s).toArray();
    EXPECT_TRUE(formulas[3].toArray()[7].toString().startsWith("=SUBTOTAL("_L1));
    const QJsonArray total = filas.last().toArray();
    EXPECT_EQ(total[0].toString(), u"Total"_s);
    EXPECT_EQ(total[7].toDouble(),
              valor(u"select round(sum(fob),2) from subitems where interno = 'IC-2026-0001'"_s).toDouble());
    EXPECT_TRUE(total[5].isNull()) << "units and kilograms make no sum";
}

TEST_P(ListasEnLote, LinesLeaveAsAPdfWithTextAndSums) {
    const QString hoja = texto(escrita(u"posiciones"_s, importacion, "pdf", 25));
    for (const char16_t *parte : {u"Líneas por posición",
                                  u"Operación IC-2026-0001 - IC04 - HIDRAULICA DEL PLATA S.A. - FOB en 060 - "
                                  "25 líneas",
                                  u"Posición 8413.70.10.100L", u"Electrobomba sumergible 750 W", u"2841",
                                  u"Subtotal 8482.10.10.111H"})
        EXPECT_TRUE(hoja.contains(QString::fromUtf16(parte))) << QString::fromUtf16(parte).toStdString();
    const QString vertical = texto(escrita(u"lineas"_s, importacion, "pdf", 25));
    EXPECT_TRUE(vertical.contains(u"Precio unit."_s));
    EXPECT_FALSE(vertical.contains(u"Kg neto"_s)) << "what does not fit is in the one that lies";
}

TEST_P(ListasEnLote, EveryListLeavesInEveryForm) {
    struct Caso {
        QString nombre, clave;
        int filas;
    };
    const Caso casos[] = {{u"lineas"_s, importacion, 25},     {u"lineas-horizontal"_s, importacion, 25},
                          {u"posiciones"_s, importacion, 25}, {u"posiciones-horizontal"_s, importacion, 25},
                          {u"catalogo"_s, u"HIDPLATA"_s, 20}, {u"bultos"_s, importacion, 1},
                          {u"operaciones"_s, {}, 6}};
    EXPECT_EQ(std::size(casos), listas::Listas().size() + 1);
    for (const Caso &c : casos) {
        EXPECT_TRUE(texto(escrita(c.nombre, c.clave, "pdf", c.filas)).contains(u"Hoja 1 de "_s)) << c.filas;
        const QJsonArray filas =
            libro(escrita(c.nombre, c.clave, "xlsx", c.filas)).value(u"filas"_s).toArray();
        EXPECT_GT(filas.size(), c.filas) << c.nombre.toStdString();
        EXPECT_EQ(lineasDe(escrita(c.nombre, c.clave, "csv", c.filas)).size(), c.filas + 1);
    }
}

TEST_P(ListasEnLote, OperationsAndPackagesHaveTheirDaysAsDays) {
    const QJsonArray operaciones =
        libro(escrita(u"operaciones"_s, {}, "xlsx", 6)).value(u"filas"_s).toArray();
    const QJsonArray cuarta = operaciones[4].toArray();
    EXPECT_EQ(cuarta[0].toString(), importacion);
    EXPECT_EQ(cuarta[1].toObject().value(u"dia"_s).toString(), u"2026-01-12"_s);
    EXPECT_EQ(cuarta[6].toDouble(), 35950);
    EXPECT_EQ(cuarta[8].toString(), u"A armar"_s);
    EXPECT_EQ(operaciones.last().toArray()[0].toString(), u"Total: 6 operaciones"_s);
    const QJsonArray bultos =
        libro(escrita(u"bultos"_s, importacion, "xlsx", 1)).value(u"filas"_s).toArray()[1].toArray();
    EXPECT_EQ(bultos[0].toString(), u"14"_s);
    EXPECT_EQ(bultos[4].toDouble(), 2908.22);
    EXPECT_EQ(bultos[11].toObject().value(u"dia"_s).toString(), u"2026-12-30"_s);
    const QString hoja = texto(escrita(u"bultos"_s, importacion, "pdf", 1));
    EXPECT_TRUE(hoja.contains(u"Kilos brutos"_s) && hoja.contains(u"30/12/2026"_s)) << hoja.toStdString();
}

TEST_P(ListasEnLote, AnOperationOrACatalogueThatIsNotThereIsToldAndLeavesNoFile) {
    struct Caso {
        QString nombre, clave, dice;
    };
    const Caso casos[] = {
        {u"lineas"_s, u"NO-HAY"_s, u"No se encontró el interno NO-HAY; revise la clave o créelo primero."_s},
        {u"bultos"_s, u"NO-HAY"_s, u"No se encontró el interno NO-HAY; revise la clave o créelo primero."_s},
        {u"bultos"_s, djai,
         u"La operación DJAI-2026-0004 no tiene bultos ni transporte; cárguelos antes de pedir la lista."_s},
        {u"catalogo"_s, u"D'OR"_s, u"El catálogo D'OR no tiene artículos; revise el código."_s}};
    ejecutar(u"update caratula set bulpes = 0 where interno = 'DJAI-2026-0004'"_s);
    for (const Caso &caso : casos) {
        const Corrida c = lista(caso.nombre, caso.clave, en(u"no.pdf"_s));
        EXPECT_EQ(c.estado, 1);
        EXPECT_EQ(c.textos(), QStringList{caso.dice});
        EXPECT_FALSE(QFile::exists(en(u"no.pdf"_s)));
    }
}

TEST_P(ListasEnLote, AFileThatCannotBeWrittenIsTold) {
    const Corrida c = lista(u"lineas"_s, importacion, u"/no/hay/lista.csv"_s);
    EXPECT_EQ(c.estado, 1);
    ASSERT_EQ(c.textos().size(), 1);
    EXPECT_TRUE(c.textos()[0].contains(u"/no/hay/lista.csv"_s)) << c.textos()[0].toStdString();
}

TEST_P(ListasEnLote, AnOperationThatAnotherWorkstationHoldsIsListedAllTheSame) {
    ejecutar(u"insert into interno (interno,maquina,usuario) values ('IC-2026-0001','OTRA','X')"_s);
    escrita(u"lineas"_s, importacion, "csv", 25);
    EXPECT_EQ(valor(u"select maquina from interno where interno = 'IC-2026-0001'"_s), u"OTRA"_s);
}

TEST(ListasEnLotePedidas, AWrongUseIsOneSentence) {
    const QTemporaryDir dir;
    const QString p = dir.filePath(u"p.ini"_s);
    const QString nombres =
        u"lineas, lineas-horizontal, posiciones, posiciones-horizontal, catalogo, bultos, operaciones, "
        "transferidas"_s;
    struct Caso {
        QStringList argumentos;
        QString dice;
    };
    const QStringList salida{u"--salida"_s, dir.filePath(u"x.pdf"_s)};
    const Caso casos[] = {
        {salida, u"Falta NOMBRE (la lista, por su nombre)"_s},
        {QStringList{u"todo"_s} + salida,
         u"NOMBRE no sirve: \"todo\" no es una de las listas (%1)"_s.arg(nombres)},
        {QStringList{u"lineas"_s} + salida, u"Falta CLAVE: la lista lineas es de una operación"_s},
        {QStringList{u"lineas"_s, u" "_s} + salida, u"Falta CLAVE: la lista lineas es de una operación"_s},
        {QStringList{u"catalogo"_s} + salida, u"Falta CLAVE: la lista catalogo es de un catálogo"_s},
        {QStringList{u"operaciones"_s, u"A1"_s} + salida,
         u"Sobra \"A1\": la lista operaciones no lleva clave"_s},
        {QStringList{u"lineas"_s, u"A1"_s, u"A2"_s} + salida,
         u"Sobra \"A2\": el comando lista lleva sólo NOMBRE (la lista, por su nombre) y [CLAVE] (la "
         "operación o el catálogo, para la lista que es de uno)"_s},
        {{u"lineas"_s, u"A1"_s}, u"Falta --salida ARCHIVO.pdf|.xlsx|.csv"_s},
        {{u"lineas"_s, u"A1"_s, u"--salida"_s, u"x.doc"_s},
         u"--salida no sirve: \"x.doc\" no termina en .pdf, .xlsx o .csv"_s},
    };
    for (const Caso &caso : casos) {
        const Corrida c = Lote(dir.path(), QStringList{u"--perfil"_s, p, u"lista"_s} + caso.argumentos);
        EXPECT_EQ(c.estado, 2);
        EXPECT_EQ(c.errores.trimmed().toStdString(),
                  (caso.dice + u"; vea zendra_lote lista --ayuda."_s).toStdString());
    }
    const Corrida ayuda = Lote(dir.path(), {u"lista"_s, u"--ayuda"_s});
    EXPECT_TRUE(ayuda.ilegibles.join(u'\n').contains(
        u"Uso: zendra_lote --perfil ARCHIVO lista NOMBRE [CLAVE] --salida ARCHIVO.pdf|.xlsx|.csv"_s))
        << ayuda.ilegibles.join(u'\n').toStdString();
}

TEST(ListasEnElDocumento, EveryListHasItsRowInTheTable) {
    QFile archivo(CarpetaDeFuentes() + "/docs/lote.md"_L1);
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    const QString texto = QString::fromUtf8(archivo.readAll());
    QStringList nombres{ListaDeOperaciones().nombre};
    for (const listas::Lista &l : listas::Listas()) nombres << l.nombre;
    for (const QString &nombre : nombres)
        EXPECT_TRUE(texto.contains(u"\n| `%1` | "_s.arg(nombre))) << nombre.toStdString();
}

}  // namespace
