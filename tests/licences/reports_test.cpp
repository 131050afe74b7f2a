// The reports of catalogue articles with their licences: what is in the file, and the road to it.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include "frame/entities.h"
#include "regulatory/lnapireports.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const char *const lectorDeReportes = R"(
import datetime, sys, openpyxl
libro = openpyxl.load_workbook(sys.argv[1])
for fila in libro.worksheets[0].iter_rows(values_only=True):
    print("|".join(type(c).__name__ + ":" + str(c) for c in fila))
)";

const QString titulos =
    u"Catálogo\tArtículo\tDescripción\tDescripción (DJAI) MARIA\tOtros\tNCM\tNALADISA\tUnitario\tPaís\tSufijos\tKg "
    "Neto\tUsuario Modificación\tFecha Modificación\tCertificado de Importación -Licencia No Automática- (4ta "
    "Enmienda)\tNorma"_s;

class ReportesDeLicencias : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into LNAPIPosicionesAfectadas (posicion,lnapi,norma,aclaraciones) values "
            "('8708.80.00','LNA AUTOPARTES','RES.523-E/17','2 3'),"
            "('8708.80.00','LNA REPOSICION','RES.5-E/18','')"_s,
            entidad::ncm);
        ejecutar(u"insert into letrasncm (posicion,letra) values ('8482','L'),('8413.70','Z')"_s,
                 entidad::ncm);
        ejecutar(u"insert into letras (letra,descripcion) values ('L','Licencia automática')"_s,
                 entidad::ncm);
        articulo(
            u"'C1','B-2','8708.80.00.110K','Amortiguador ñandú','AMORTIGUADOR','Otro','8708',10.5,'203',"
            "'AA01-',3.8,'juan',"_s +
            ctx->DataManager.getDateFormatbyEntity(entidad::catalogos,
                                                   QDateTime(QDate(2025, 12, 10), QTime(9, 30))));
        articulo(u"'C1','A-1','8482.10.10.119A','Rodamiento','','','',2,'438','',null,'ana',null"_s);
        articulo(u"'C1','c-3','9403.20.00.000A','Sillas',null,null,null,null,null,null,null,null,null"_s);
        articulo(u"'C2','B-2','8413.70.10.100L','Bomba','','','',118.4,'438','',9.8,'ana',null"_s);
        archivo_ = tienda->carpeta() + "/reporte.xls"_L1;
    }
    void articulo(const QString &valores) {
        ejecutar(
            "insert into catarticulos "
            "(idcatalogo,idarticulo,ncm,descripcion,Descripcion_Maria,otros,naladisa,preciounitario,Idpais,"
            "sufijos,kgneto,usuario,fecha) values ("_L1 +
                valores + ")"_L1,
            entidad::catalogos);
    }
    static QString leido(const QString &archivo) {
        QFile f(archivo);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << archivo.toStdString();
        const QByteArray bytes = f.readAll();
        EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF")) << "the mark that spreadsheets know UTF-8 by";
        return QString::fromUtf8(bytes.mid(3));
    }
    /// The lines of the report written, without the titles.
    QStringList lineas(bool (*reporte)(AppContext &, const QString &, const AvanceDeReporte &),
                       const QString &valor) {
        registro.archivos = {archivo_};
        registro.respuestas = {true};
        EXPECT_TRUE(reporte(*ctx, valor, {}));
        QStringList todas = leido(archivo_).split(u"\r\n"_s);
        EXPECT_EQ(todas.takeLast(), QString()) << "the last line has its end";
        EXPECT_EQ(todas.takeFirst().toStdString(), titulos.toStdString());
        return todas;
    }
    /// One cell of each line.
    static QString columna(const QStringList &lineas, int cual) {
        QStringList celdas;
        for (const QString &linea : lineas) celdas << linea.split(u'\t').value(cual);
        return celdas.join(u';');
    }
    QString ultimoMensaje() const {
        return registro.mensajes.empty() ? QString() : registro.mensajes.back().texto;
    }

    QString archivo_;
};
EN_AMBOS_STORES(ReportesDeLicencias);

enum Columna {
    Catalogo,
    Articulo,
    Descripcion,
    Maria,
    Otros,
    Ncm,
    Naladisa,
    Unitario,
    Pais,
    Sufijos,
    KgNeto,
    Usuario,
    Fecha,
    Licencia,
    Norma
};

// What is in the file

TEST_P(ReportesDeLicencias, AnArticleHasItsCellsAndALineForEachNormOfItsPosition) {
    const QStringList filas = lineas(ReporteCatalogo, u"C1"_s);
    ASSERT_EQ(filas.size(), 4);
    const QString amortiguador =
        u"=\"C1\"\t=\"B-2\"\tAmortiguador ñandú\tAMORTIGUADOR\tOtro\t8708.80.00.110K\t8708\t10.5\t203\tAA01-\t3.8"
        "\tjuan\t10/12/2025 09:30:00\t"_s;
    EXPECT_EQ(filas[1].toStdString(), (amortiguador + u"LNA AUTOPARTES\tRES.523-E/17"_s).toStdString());
    EXPECT_EQ(filas[2].toStdString(), (amortiguador + u"LNA REPOSICION\tRES.5-E/18"_s).toStdString());
    EXPECT_EQ(columna(filas, Articulo), u"=\"A-1\";=\"B-2\";=\"B-2\";=\"c-3\""_s) << "by the article's code";
}

TEST_P(ReportesDeLicencias, RowsWithoutNetKilosShowZeroAndSoDoesAMissingPrice) {
    const QStringList filas = lineas(ReporteCatalogo, u"C1"_s);
    EXPECT_EQ(columna(filas, KgNeto), u"0;3.8;3.8;0"_s);
    EXPECT_EQ(columna(filas, Unitario), u"2;10.5;10.5;0"_s);
    EXPECT_EQ(columna(filas, Fecha), u";10/12/2025 09:30:00;10/12/2025 09:30:00;"_s);
}

TEST_P(ReportesDeLicencias, NumbersHaveTheSeparatorOfTheWorkstation) {
    ctx->SeparadorDecimal = u',';
    const QStringList filas = lineas(ReporteArticulo, u"b-2"_s);
    EXPECT_EQ(columna(filas, Unitario), u"10,5;10,5;118,4"_s);
    EXPECT_EQ(columna(filas, KgNeto), u"3,8;3,8;9,8"_s);
}

TEST_P(ReportesDeLicencias, WithoutANormTheLetterOfThePositionDecides) {
    const QStringList filas = lineas(ReporteCatalogo, u"C1"_s);
    EXPECT_EQ(columna(filas, Licencia), u"Licencia automática;LNA AUTOPARTES;LNA REPOSICION;NO POSEE"_s);
    EXPECT_EQ(columna(filas, Norma), u"SIN DATOS;RES.523-E/17;RES.5-E/18;SIN DATOS"_s);
    EXPECT_EQ(columna(lineas(ReporteCatalogo, u"C2"_s), Licencia), u"No Posee Descripción la letra: Z"_s);
}

TEST_P(ReportesDeLicencias, NoValueRunsInASpreadsheetAndNoneLeavesItsCell) {
    articulo(u"'D\"1','=1','1','=SUM(A1)','+54','-x','@y',-3,'\t=1','3/4\" x 2',0,'\"ana\"',null"_s);
    articulo(u"'D\"1','2','1','a\tb\r\nc','a=b','','','0','','',0,'',null"_s);
    const QStringList filas = lineas(ReporteCatalogo, u"D\"1"_s);
    ASSERT_EQ(filas.size(), 2) << "a tab or a line end of a value is none of the file";
    EXPECT_EQ(
        filas[1].toStdString(),
        "=\"D\"\"1\"\t=\"=1\"\t'=SUM(A1)\t'+54\t'-x\t1\t'@y\t-3\t' =1\t3/4\" x 2\t0\t\"\"\"ana\"\"\"\t\tNO "
        "POSEE\tSIN DATOS");
    EXPECT_EQ(filas[0].toStdString(),
              "=\"D\"\"1\"\t=\"2\"\ta b  c\ta=b\t\t1\t\t0\t\t\t0\t\t\tNO POSEE\tSIN DATOS");
}

TEST_P(ReportesDeLicencias, ALetterWhoseTextWouldRunGetsItsApostropheToo) {
    ejecutar(u"update letras set descripcion = '=HYPERLINK(1)'"_s, entidad::ncm);
    EXPECT_EQ(columna(lineas(ReporteCatalogo, u"C1"_s), Licencia).section(u';', 0, 0), u"'=HYPERLINK(1)"_s);
}

TEST_P(ReportesDeLicencias, TheWorkbookHasTheSameWithNumbersAsNumbersAndMomentsAsMoments) {
    articulo(u"'C2','=1','1','=SUM(A1)','','','',-3,'','',0,'',null"_s);
    registro.archivos = {tienda->carpeta() + "/libro.xlsx"_L1};
    ASSERT_TRUE(ReporteArticulo(*ctx, u"B-2"_s)) << ultimoMensaje().toStdString();
    registro.archivos = {tienda->carpeta() + "/otro.XLSX"_L1};
    ASSERT_TRUE(ReporteCatalogo(*ctx, u"C2"_s)) << ultimoMensaje().toStdString();
    const auto filasDe = [this](const QString &nombre) {
        QProcess p;
        p.start(u"/usr/bin/python3"_s,
                {u"-c"_s, QString::fromLatin1(lectorDeReportes), tienda->carpeta() + u'/' + nombre});
        EXPECT_TRUE(p.waitForFinished());
        EXPECT_EQ(p.readAllStandardError().toStdString(), "");
        return QString::fromUtf8(p.readAllStandardOutput()).trimmed().split(u'\n');
    };
    const QStringList filas = filasDe(u"libro.xlsx"_s);
    ASSERT_EQ(filas.size(), 4);
    EXPECT_EQ(filas[0].toStdString(), "str:" + QString(titulos).replace(u'\t', u"|str:"_s).toStdString());
    const std::string amortiguador =
        "str:C1|str:B-2|str:Amortiguador ñandú|str:AMORTIGUADOR|str:Otro|str:8708.80.00.110K|str:8708|float:10.5|"
        "str:203|str:AA01-|float:3.8|str:juan|datetime:2025-12-10 09:30:00|";
    EXPECT_EQ(filas[1].toStdString(), amortiguador + "str:LNA AUTOPARTES|str:RES.523-E/17");
    EXPECT_EQ(filas[2].toStdString(), amortiguador + "str:LNA REPOSICION|str:RES.5-E/18");
    const QStringList otras = filasDe(u"otro.XLSX"_s);
    EXPECT_TRUE(otras.value(1).startsWith(u"str:C2|str:=1|str:=SUM(A1)|"_s) &&
                otras[1].contains(u"|int:-3|"_s))
        << otras.value(1).toStdString();
}

// What is looked for

TEST_P(ReportesDeLicencias, AnArticleAndAPositionAreLookedForInEveryCatalogue) {
    QStringList filas = lineas(ReporteArticulo, u"B-2"_s);
    EXPECT_EQ(columna(filas, Catalogo), u"=\"C1\";=\"C1\";=\"C2\""_s);
    filas = lineas(ReportePosicion, u"8708.80.00.110K"_s);
    EXPECT_EQ(columna(filas, Articulo), u"=\"B-2\";=\"B-2\""_s);
    filas = lineas(ReportePosicion, u".10.1"_s);
    EXPECT_EQ(columna(filas, Ncm), u"8482.10.10.119A;8413.70.10.100L"_s) << "a part of it, by catalogue";
    filas = lineas(ReportePosicion, u"8413%._00L"_s);
    EXPECT_EQ(columna(filas, Ncm), u"8413.70.10.100L"_s) << "marks are those of the store";
}

TEST_P(ReportesDeLicencias, ASearchForAPositionTakesFiveCharactersAtTheLeast) {
    EXPECT_FALSE(ReportePosicion(*ctx, u" 8708 "_s)) << "blanks are no characters of it";
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimoMensaje(), u"Ingrese al menos 5 caracteres"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_TRUE(registro.pedidos.empty());
    EXPECT_EQ(lineas(ReportePosicion, u"8708."_s).size(), 2);
}

TEST_P(ReportesDeLicencias, WhatIsNotFoundIsToldAndAsksForNoFile) {
    for (const QString &valor : {u"NO-HAY"_s, u""_s, u"C1' or '1'='1"_s}) {
        registro.mensajes.clear();
        EXPECT_FALSE(ReporteCatalogo(*ctx, valor));
        ASSERT_EQ(registro.mensajes.size(), 1U) << valor.toStdString();
        EXPECT_EQ(ultimoMensaje(), u"No se han encontrado los datos buscados"_s);
        EXPECT_EQ(registro.mensajes[0].titulo, QString());
    }
    EXPECT_TRUE(registro.pedidos.empty());
}

TEST_P(ReportesDeLicencias, AValueWithAQuoteIsFoundLikeAnyOther) {
    articulo(u"'O''C','1''','1','x','','','',0,'','',0,'',null"_s);
    EXPECT_EQ(columna(lineas(ReporteCatalogo, u"O'C"_s), Articulo), u"=\"1'\""_s);
    EXPECT_EQ(columna(lineas(ReporteArticulo, u"1'"_s), Catalogo), u"=\"O'C\""_s);
}

TEST_P(ReportesDeLicencias, APositionIsLookedUpOnceHoweverManyArticlesHaveIt) {
    articulo(u"'C9','1','8708.80.00.110K','','','','',0,'','',0,'',null"_s);
    articulo(u"'C9','2','8708.80.00.110K','','','','',0,'','',0,'',null"_s);
    QStringList sentencias;
    Conexion::fijarTraza([&sentencias](const TrazaDeSentencia &t) { sentencias << t.sentencia; });
    lineas(ReporteCatalogo, u"C9"_s);
    Conexion::fijarTraza({});
    EXPECT_EQ(
        sentencias.join(u'\n').toStdString(),
        "select idcatalogo, idarticulo, ncm, descripcion, naladisa, preciounitario, Idpais, sufijos, "
        "kgneto, Descripcion_Maria, otros, usuario, fecha from catarticulos where idcatalogo='C9' ORDER BY "
        "idarticulo\n"
        "select idcatalogo, COUNT(idcatalogo) AS Cantidad from catarticulos where idcatalogo='C9' GROUP BY "
        "idcatalogo\n"
        "select lnapi, norma From LNAPIPosicionesAfectadas where posicion='8708.80.00' ORDER BY "
        "aclaraciones DESC");
    sentencias.clear();
    Conexion::fijarTraza([&sentencias](const TrazaDeSentencia &t) { sentencias << t.sentencia; });
    lineas(ReportePosicion, u"9403.20"_s);
    Conexion::fijarTraza({});
    EXPECT_TRUE(sentencias.value(0).endsWith(u" where ncm like '%9403.20%' ORDER BY idcatalogo"_s))
        << sentencias.value(0).toStdString();
    EXPECT_EQ(sentencias.value(1).toStdString(),
              "select COUNT(ncm) AS Cantidad from catarticulos where ncm like '%9403.20%'");
}

// The road to the file

TEST_P(ReportesDeLicencias, TheDialogOffersAnXlsOnTheDesktopAndTheFileIsOpened) {
    const QByteArray casa = qgetenv("HOME");
    qputenv("HOME", tienda->carpeta().toUtf8());
    QDir(tienda->carpeta()).mkdir(u"Desktop"_s);
    registro.archivos = {archivo_};
    EXPECT_TRUE(ReporteCatalogo(*ctx, u"C1"_s));
    qputenv("HOME", casa);
    ASSERT_EQ(registro.pedidos.size(), 1U);
    EXPECT_EQ(registro.pedidos[0].titulo, u"Guardar Reporte de catálogo"_s);
    EXPECT_EQ(registro.pedidos[0].inicial, tienda->carpeta() + u"/Desktop/Reporte de catálogo C1.xls"_s);
    EXPECT_EQ(registro.pedidos[0].filtros,
              u"XLS Delimitado por comas (*.xls);;Libro de Excel (*.xlsx);;All Files (*.*)"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimoMensaje(), u"Archivo generado, se procede a abrirse de la ubicación: "_s +
                                   QDir::toNativeSeparators(archivo_));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(registro.abiertos, std::vector<QString>{archivo_});
}

TEST_P(ReportesDeLicencias, ACancelledDialogLeavesNoFileAndNoMessage) {
    EXPECT_FALSE(ReporteCatalogo(*ctx, u"C1"_s));
    EXPECT_EQ(registro.pedidos.size(), 1U);
    EXPECT_TRUE(registro.mensajes.empty() && registro.preguntas.empty() && registro.abiertos.empty());
    EXPECT_EQ(QDir(tienda->carpeta()).entryList({u"*.xls*"_s}), QStringList());
}

TEST_P(ReportesDeLicencias, AnAnswerWithoutItsEndGetsIt) {
    const std::pair<QString, QString> casos[] = {{u"sin"_s, u"sin.xls"_s},
                                                 {u"otro.txt"_s, u"otro.txt.xls"_s},
                                                 {u"con.XLS"_s, u"con.XLS"_s},
                                                 {u"libro.xlsx"_s, u"libro.xlsx"_s}};
    for (const auto &[dicho, escrito] : casos) {
        registro.archivos = {tienda->carpeta() + u'/' + dicho};
        EXPECT_TRUE(ReporteCatalogo(*ctx, u"C1"_s));
        EXPECT_TRUE(QFile::exists(tienda->carpeta() + u'/' + escrito)) << escrito.toStdString();
        EXPECT_EQ(registro.abiertos.back(), tienda->carpeta() + u'/' + escrito);
    }
}

TEST_P(ReportesDeLicencias, AFileThatIsThereIsReplacedWhenTheUserWantsIt) {
    QFile viejo(archivo_);
    ASSERT_TRUE(viejo.open(QIODevice::WriteOnly));
    viejo.write("viejo");
    viejo.close();
    registro.archivos = {archivo_};
    EXPECT_FALSE(ReporteCatalogo(*ctx, u"C1"_s));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto,
              u"El archivo %1 ya existe, ¿desea reemplazarlo?"_s.arg(QDir::toNativeSeparators(archivo_)));
    EXPECT_EQ(registro.preguntas[0].titulo, u"Guardar Reporte de catálogo"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(QFileInfo(archivo_).size(), 5);
    EXPECT_EQ(lineas(ReporteCatalogo, u"C1"_s).size(), 4);
}

TEST_P(ReportesDeLicencias, AFileThatCannotBeWrittenIsToldAndNotOpened) {
    registro.archivos = {u"/no/hay/reporte.xls"_s};
    EXPECT_FALSE(ReporteCatalogo(*ctx, u"C1"_s));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(ultimoMensaje(), u"No se escribió %1: la carpeta %2 no existe; elija otra."_s.arg(
                                   QDir::toNativeSeparators(u"/no/hay/reporte.xls"_s),
                                   QDir::toNativeSeparators(u"/no/hay"_s)));
    EXPECT_TRUE(registro.abiertos.empty());
}

TEST_P(ReportesDeLicencias, WithoutAProgramThatOpensItTheFileIsThereAllTheSame) {
    registro.hayPrograma = false;
    registro.archivos = {archivo_};
    EXPECT_TRUE(ReporteCatalogo(*ctx, u"C1"_s));
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(ultimoMensaje(), u"No hay un programa que abra %1; ábralo desde su carpeta."_s.arg(
                                   QDir::toNativeSeparators(archivo_)));
    EXPECT_EQ(registro.mensajes[1].icono, Icono::Exclamacion);
}

TEST_P(ReportesDeLicencias, TheProgressTellsHowManyArticlesThereAreAndThePercentage) {
    QStringList dichos;
    registro.archivos = {archivo_};
    EXPECT_TRUE(ReporteCatalogo(*ctx, u"C1"_s, [&dichos](int hechos, int cantidad) {
        dichos << u"%1 de %2: %3"_s.arg(hechos).arg(cantidad).arg(TextoDeAvance(hechos, cantidad));
        return true;
    }));
    EXPECT_EQ(dichos.join(u", "_s).toStdString(), "0 de 3: 0 %, 1 de 3: 33 %, 2 de 3: 66 %, 3 de 3: 100 %");
    EXPECT_EQ(TextoDeAvance(0, 0), u"0 %"_s);
}

TEST_P(ReportesDeLicencias, AReportThatIsStoppedLeavesTheFileThatWasThere) {
    lineas(ReporteCatalogo, u"C2"_s);
    const QString antes = leido(archivo_);
    registro.mensajes.clear();
    registro.archivos = {archivo_};
    registro.respuestas = {true};
    EXPECT_FALSE(ReporteCatalogo(*ctx, u"C1"_s, [](int hechos, int) { return hechos < 2; }));
    EXPECT_EQ(leido(archivo_), antes);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimoMensaje(), u"El reporte se detuvo a su pedido; no se escribió ningún archivo."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
}

}  // namespace
