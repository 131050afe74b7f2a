// Lists as paper, workbooks and text with separators.

#include <gtest/gtest.h>

#include <QImage>

#include "tests/paper/ejemplos.h"

using namespace Qt::StringLiterals;
using papel::Clase;
using papel::Fila;

namespace {

std::string textoDe(const papel::Tabla &tabla) {
    const papel::Reporte r = papel::ReporteDe(tabla, u',');
    QStringList lineas = r.encabezado;
    for (const papel::Renglon &renglon : r.renglones)
        lineas << renglon.texto + (renglon.negrita ? u" *"_s : QString()) +
                      (renglon.conElSiguiente ? u" >"_s : QString());
    return lineas.join(u'\n').toStdString();
}

TEST(Listas, ColumnsStandUnderTheirHeadingsNumbersToTheRightAndLongTextsAreCut) {
    EXPECT_EQ(textoDe(tablaDeLineas()),
              "Posición          Mercadería    Ingreso       Cantidad         FOB\n"
              "────────────────  ────────────  ──────────  ──────────  ──────────\n"
              "8413.70.10.100L   =SUM(A1:A9)   12/01/2026         2,5     1234,50\n"
              "8413.70.10.100L   Bomba centr…  03/02/2026          10       00,25\n"
              "8481.80.99.900X   +54 \"válvul…                               99,99");
}

TEST(Listas, GroupsHaveATitleAheadTheirSumBehindAndTheTotalIsOfAll) {
    papel::Tabla t = tablaDeLineas();
    papel::Totalizar(t, 0);
    // 1234.50 + 0.25 = 1234.75, and 99.99: 1334.74. A title stays with its first row, a sum with its last.
    EXPECT_EQ(textoDe(t),
              "Posición          Mercadería    Ingreso       Cantidad         FOB\n"
              "────────────────  ────────────  ──────────  ──────────  ──────────\n"
              "Posición 8413.70.10.100L * >\n"
              "8413.70.10.100L   =SUM(A1:A9)   12/01/2026         2,5     1234,50\n"
              "8413.70.10.100L   Bomba centr…  03/02/2026          10       00,25 >\n"
              "                                                        ────────── >\n"
              "Subtotal 8413.70.10.100L                                   1234,75 *\n"
              " >\n"
              "Posición 8481.80.99.900X * >\n"
              "8481.80.99.900X   +54 \"válvul…                               99,99 >\n"
              "                                                        ────────── >\n"
              "Subtotal 8481.80.99.900X                                     99,99 * >\n"
              "                                                        ══════════ >\n"
              "Total                                                      1334,74 *");
}

TEST(Listas, WithoutGroupsThereIsATotalAloneAndNoneWhenNothingIsSummed) {
    papel::Tabla t = tablaDeLineas();
    papel::Totalizar(t);
    ASSERT_EQ(t.filas.size(), 4U);
    EXPECT_EQ(t.filas.back().tipo, Fila::Tipo::Total);
    EXPECT_EQ(t.filas.back().rotulo, u"Total"_s);
    EXPECT_DOUBLE_EQ(t.filas.back().celdas[4].toDouble(), 1334.74);
    EXPECT_TRUE(t.filas.back().celdas[3].isNull()) << "not summed";
    t = tablaDeLineas();
    t.columnas[4].suma = false;
    papel::Totalizar(t, 0);
    ASSERT_EQ(t.filas.size(), 5U) << "two titles, no sums";
    EXPECT_EQ(t.filas[0].tipo, Fila::Tipo::Grupo);
    EXPECT_EQ(t.filas[3].tipo, Fila::Tipo::Grupo);
}

TEST(Listas, AListWithoutRowsHasItsHeadingAndATotalOfZero) {
    papel::Tabla t = tablaDeLineas();
    t.filas.clear();
    papel::Totalizar(t, 0);
    ASSERT_EQ(t.filas.size(), 1U);
    EXPECT_EQ(t.filas[0].celdas[4].toDouble(), 0);
    EXPECT_TRUE(papel::ReporteDe(t, u',').renglones.back().texto.endsWith(u"00,00"_s));
}

TEST(Listas, ASumKeepsTheCentsThatItsOrderWouldLose) {
    papel::Tabla t;
    t.columnas = {{u"Importe"_s, Clase::Numero, 10, u"00.00"_s, true}};
    for (const double valor : {1e16, 0.25, 0.5, -1e16, 0.25}) t.filas.push_back({{valor}});
    papel::Totalizar(t);
    EXPECT_DOUBLE_EQ(t.filas.back().celdas[0].toDouble(), 1);
    // Without a text column ahead of the sum its name has a line of its own.
    const auto renglones = papel::ReporteDe(t, u'.').renglones;
    ASSERT_EQ(renglones.size(), 8U);
    EXPECT_EQ(renglones[6].texto, u"Total"_s);
    EXPECT_EQ(renglones[7].texto.trimmed(), u"01.00"_s);
}

TEST(Listas, ANameThatDoesNotFitAheadOfItsSumsHasALineOfItsOwn) {
    papel::Tabla t = tablaDeLineas();
    t.columnas = {{u"Posición"_s, Clase::Texto, 15}, {u"FOB"_s, Clase::Numero, 10, u"00.00"_s, true}};
    t.filas = {{{u"8413.70.10.100L"_s, 5.0}}};
    papel::Totalizar(t, 0);
    EXPECT_EQ(textoDe(t),
              "Posición                FOB\n"
              "───────────────  ──────────\n"
              "Posición 8413.70.10.100L * >\n"
              "8413.70.10.100L       05,00 >\n"
              "                 ────────── >\n"
              "Subtotal 8413.70.10.100L * >\n"
              "                      05,00 * >\n"
              "                 ══════════ >\n"
              "Total                 05,00 *");
}

TEST(Listas, ANumberIsNeverCutItsColumnGrows) {
    papel::Tabla t;
    t.columnas = {{u"N"_s, Clase::Numero, 3, u"00.00"_s}, {u"Texto"_s, Clase::Texto, 5}};
    t.filas = {{{123456789.5, u"abcdefgh"_s}}, {{u"sin número"_s, u"x"_s}}};
    const papel::Reporte r = papel::ReporteDe(t, u',');
    EXPECT_EQ(r.renglones[0].texto, u"123456789,50  abcd…"_s);
    EXPECT_EQ(r.renglones[1].texto, u"  sin número  x"_s) << "what is no number is shown as it is";
}

TEST(Listas, ANullGroupHasAName) {
    papel::Tabla t = tablaDeLineas();
    t.filas[0].celdas[0] = QVariant();
    papel::Totalizar(t, 0);
    EXPECT_EQ(t.filas[0].rotulo, u"Posición (sin dato)"_s);
}

// What stands in a workbook, cell by cell: value and type as a reader of such files finds them.
const char *const lector = R"(
import sys, openpyxl
libro = openpyxl.load_workbook(sys.argv[1])
hoja = libro.active
for fila in hoja.iter_rows():
    for c in fila:
        if c.value is not None:
            print(c.coordinate, c.data_type, repr(c.value), c.number_format, ('N' if c.font.b else '-') + ('F' if c.fill.fill_type else ''))
p = hoja.page_setup
print('freeze', hoja.freeze_panes, 'filter', hoja.auto_filter.ref, 'page', p.orientation, p.paperSize, p.fitToHeight)
print('widths', *[round(hoja.column_dimensions[x].width, 1) for x in 'ABCDE'])
print('title', hoja.title, '|', libro.properties.title, '| rows', hoja.print_title_rows, '|', hoja.oddHeader.left.text)
valores = openpyxl.load_workbook(sys.argv[1], data_only=True).active
print('values', *[valores[x].value for x in sys.argv[2:]])
)";

QStringList leido(const papel::Tabla &tabla, const QStringList &celdas = {}) {
    const QTemporaryDir dir;
    const QString archivo = dir.filePath(u"lista.xlsx"_s);
    EXPECT_EQ(papel::EscribirXlsx(tabla, archivo), QString());
    return dichoPor(u"/usr/bin/python3"_s, QStringList{u"-c"_s, QString::fromUtf8(lector), archivo} + celdas)
        .split(u'\n', Qt::SkipEmptyParts);
}

TEST(Planilla, NumbersAreNumbersDaysAreDaysAndNoTextRunsAsAFormula) {
    EXPECT_EQ(leido(tablaDeLineas()).join(u'\n').toStdString(),
              "A1 s 'Posición' General NF\n"
              "B1 s 'Mercadería' General NF\n"
              "C1 s 'Ingreso' General NF\n"
              "D1 s 'Cantidad' General NF\n"
              "E1 s 'FOB' General NF\n"
              "A2 s '8413.70.10.100L' General -\n"
              "B2 s '=SUM(A1:A9)' General -\n"
              "C2 d datetime.datetime(2026, 1, 12, 0, 0) dd/mm/yyyy -\n"
              "D2 n 2.5 General -\n"
              "E2 n 1234.5 00.00 -\n"
              "A3 s '8413.70.10.100L' General -\n"
              "B3 s 'Bomba centrífuga de ñandú' General -\n"
              "C3 d datetime.datetime(2026, 2, 3, 0, 0) dd/mm/yyyy -\n"
              "D3 n 10 General -\n"
              "E3 n 0.25 00.00 -\n"
              "A4 s '8481.80.99.900X' General -\n"
              "B4 s '+54 \"válvula\", €' General -\n"
              "E4 n 99.99 00.00 -\n"
              "freeze A2 filter A1:E4 page landscape 9 0\n"
              // As wide as asked for, as the longest text, or as the heading with the arrow of its filter.
              "widths 18.3 27.3 12.3 12.3 12.3\n"
              "title Líneas & posiciones | Líneas & posiciones | rows $1:$1 | Líneas && posiciones\n"
              "values");
}

TEST(Planilla, SumsAreFormulasThatKnowTheirValue) {
    papel::Tabla t = tablaDeLineas();
    papel::Totalizar(t, 0);
    const QStringList lineas = leido(t, {u"E5"_s, u"E8"_s, u"E9"_s});
    for (const char16_t *esperada :
         {u"A2 s 'Posición 8413.70.10.100L' General N", u"A5 s 'Subtotal 8413.70.10.100L' General N",
          u"E5 f '=SUBTOTAL(9,E3:E4)' 00.00 N", u"E8 f '=SUBTOTAL(9,E7:E7)' 00.00 N",
          u"A9 s 'Total' General N", u"E9 f '=SUBTOTAL(9,E2:E8)' 00.00 N", u"values 1234.75 99.99 1334.74"})
        EXPECT_TRUE(lineas.contains(QString::fromUtf16(esperada)))
            << QString::fromUtf16(esperada).toStdString() << "\n"
            << lineas.join(u'\n').toStdString();
    EXPECT_TRUE(lineas.join(u' ').contains(u"filter A1:E8 "_s)) << "the total stays in view";
}

TEST(Planilla, WhatASpreadsheetWouldRefuseIsWrittenAsItCan) {
    papel::Tabla t;
    t.titulo = u"Líneas [por posición]: a/b*c?\\d y más todavía"_s;
    t.columnas = {{u"N"_s, Clase::Numero, 5}, {u"Día"_s, Clase::Fecha, 10}, {u"T"_s, Clase::Texto, 5}};
    t.filas = {{{qQNaN(), QDate(1850, 3, 1), QString(40000, u'x')}}, {{u"dos"_s, u"mañana"_s, 0.1}}};
    const QStringList lineas = leido(t);
    EXPECT_TRUE(lineas.contains(u"B2 s '01/03/1850' dd/mm/yyyy -"_s))
        << lineas.join(u'\n').left(3000).toStdString();
    EXPECT_TRUE(lineas.contains(u"C2 s '"_s + QString(32767, u'x') + u"' General -"_s));
    EXPECT_TRUE(lineas.contains(u"A3 s 'dos' General -"_s));
    EXPECT_TRUE(lineas.contains(u"B3 s 'mañana' dd/mm/yyyy -"_s));
    EXPECT_TRUE(lineas.join(u' ').contains(u"title Líneas por posición a b c d y m |"_s))
        << lineas.value(lineas.size() - 2).toStdString();
}

TEST(Planilla, AListWithoutRowsIsAHeading) {
    papel::Tabla t = tablaDeLineas();
    t.filas.clear();
    const QStringList lineas = leido(t);
    EXPECT_TRUE(lineas.join(u' ').contains(u"freeze A2 filter None"_s)) << lineas.join(u'\n').toStdString();
}

TEST(Csv, RowsOfDataAloneWithTheirQuotesAndNothingThatRuns) {
    const QTemporaryDir dir;
    papel::Tabla t = tablaDeLineas();
    papel::Totalizar(t, 0);
    t.filas.push_back({{u"-1\nx"_s, u"@a"_s, QDate(2026, 3, 4), -2.5, 1e-7}});
    ASSERT_EQ(papel::EscribirCsv(t, dir.filePath(u"a.csv"_s)), QString());
    EXPECT_EQ(contenidoDe(dir.filePath(u"a.csv"_s)).toStdString(),
              "Posición,Mercadería,Ingreso,Cantidad,FOB\r\n"
              "8413.70.10.100L,'=SUM(A1:A9),2026-01-12,2.5,1234.5\r\n"
              "8413.70.10.100L,Bomba centrífuga de ñandú,2026-02-03,10,0.25\r\n"
              "8481.80.99.900X,\"'+54 \"\"válvula\"\", €\",,,99.99\r\n"
              "'-1 x,'@a,2026-03-04,-2.5,0.0000001\r\n");
}

TEST(Listas, AMomentTellsItsHourEverywhereAndMidnightIsADay) {
    papel::Tabla t;
    t.titulo = u"Cambios"_s;
    t.columnas = {{u"Cuándo"_s, Clase::Fecha, 20}};
    t.filas = {{{QDateTime(QDate(2025, 12, 10), QTime(9, 30, 5))}},
               {{QDateTime(QDate(2025, 12, 11), QTime(0, 0))}}};
    EXPECT_EQ(textoDe(t),
              "Cuándo              \n"
              "────────────────────\n"
              "10/12/2025 09:30:05\n"
              "11/12/2025");
    const QStringList celdas = leido(t);
    EXPECT_TRUE(celdas.contains(u"A2 d datetime.datetime(2025, 12, 10, 9, 30, 5) dd/mm/yyyy hh:mm:ss -"_s))
        << celdas.join(u'\n').toStdString();
    EXPECT_TRUE(celdas.contains(u"A3 d datetime.datetime(2025, 12, 11, 0, 0) dd/mm/yyyy -"_s));
    const QTemporaryDir dir;
    ASSERT_EQ(papel::EscribirCsv(t, dir.filePath(u"a.csv"_s)), QString());
    EXPECT_EQ(contenidoDe(dir.filePath(u"a.csv"_s)).toStdString(),
              "Cuándo\r\n2025-12-10 09:30:05\r\n2025-12-11\r\n");
}

TEST(Csv, AFormulaBehindBlanksGetsItsApostropheToo) {
    papel::Tabla t;
    t.columnas = {{u"T"_s, Clase::Texto, 5}};
    t.filas = {{{u" =1+1"_s}}, {{u"\t@a"_s}}, {{u" a=1"_s}}, {{u"  "_s}}};
    const QTemporaryDir dir;
    ASSERT_EQ(papel::EscribirCsv(t, dir.filePath(u"a.csv"_s)), QString());
    EXPECT_EQ(contenidoDe(dir.filePath(u"a.csv"_s)).toStdString(), "T\r\n' =1+1\r\n' @a\r\n a=1\r\n  \r\n");
}

TEST(Listas, AFirstPageIsPictured) {
    papel::Tabla t = tablaDeLineas();
    t.columnas[1].ancho = 44;
    t.filas.clear();
    for (int n = 0; n < 60; ++n)
        t.filas.push_back({{u"84%1.70.10.100L"_s.arg(13 + n / 8),
                            u"Bomba centrífuga de acero inoxidable, modelo %1"_s.arg(n),
                            QDate(2026, 1, 1).addDays(n), 1.5 * n, 120.25 * n}});
    papel::Totalizar(t, 0);
    const QTemporaryDir dir;
    papel::Reporte r = papel::ReporteDe(t, u',');
    r.pie = u"Estudio Ferreyra"_s;
    ASSERT_EQ(papel::EscribirPdf(r, dir.filePath(u"a.pdf"_s)), QString());
    const QString foto = carpetaDeFotos() + u"/lista-horizontal"_s;
    EXPECT_EQ(dichoPor(u"pdftoppm"_s,
                       {u"-r"_s, u"100"_s, u"-png"_s, u"-singlefile"_s, dir.filePath(u"a.pdf"_s), foto}),
              QString());
    EXPECT_FALSE(QImage(foto + u".png"_s).isNull());
}

}  // namespace
