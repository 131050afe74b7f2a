// How a report falls into pages.

#include <gtest/gtest.h>

#include <QFontMetricsF>

#include "frame/paper/layout.h"
#include "frame/paper/search.h"
#include "tests/paper/ejemplos.h"

using namespace Qt::StringLiterals;
using papel::Orientacion;

namespace {

papel::Paginado paginar(const papel::Reporte &reporte) {
    return papel::Paginar(reporte, papel::MedidaDe(reporte.orientacion));
}

/// "0-54 54-55": the lines of each page.
std::string hojasDe(const papel::Reporte &reporte) {
    QStringList textos;
    for (const papel::Hoja &hoja : paginar(reporte).hojas)
        textos << u"%1-%2"_s.arg(hoja.desde).arg(hoja.hasta);
    return textos.join(u' ').toStdString();
}

/// How many lines of the usual size a page holds.
std::size_t lineasPorHoja(const papel::Reporte &reporte) {
    return paginar(reporte).hojas.front().hasta;
}

TEST(Paginas, AnUprightPageHoldsSixtyLinesAndALyingOneFortyOrSo) {
    // A4 of 297 mm without 12 above and below: 773.86 pt. Title 18.75, subtitle 11.88, rule 9, footer 16:
    // 718 pt of lines of 12.2 pt are 58.
    papel::Reporte r = reporteDe(500);
    EXPECT_EQ(lineasPorHoja(r), 58U);
    // 210 mm without 18 above and 12 below: 510.2 pt, less the same 55.6: 454.6 pt are 37 lines.
    r.orientacion = Orientacion::Horizontal;
    EXPECT_EQ(lineasPorHoja(r), 37U);
}

TEST(Paginas, AnExactlyFullPageIsOneAndALineMoreMakesTwo) {
    const auto entran = static_cast<int>(lineasPorHoja(reporteDe(500)));
    EXPECT_EQ(hojasDe(reporteDe(entran - 1)), "0-57");
    EXPECT_EQ(hojasDe(reporteDe(entran)), "0-58");
    EXPECT_EQ(hojasDe(reporteDe(entran + 1)), "0-58 58-59");
    EXPECT_EQ(hojasDe(reporteDe(2 * entran)), "0-58 58-116");
}

TEST(Paginas, AReportWithoutLinesIsOnePage) {
    EXPECT_EQ(hojasDe({}), "0-0");
    EXPECT_EQ(hojasDe(reporteDe(0)), "0-0");
    EXPECT_EQ(papel::TextoDeHoja({}, paginar({}), 0), QStringList{u"Hoja 1 de 1"_s});
}

TEST(Paginas, ALineThatBeginsAPageDoesSoAndTheFirstOneMakesNoEmptyPage) {
    papel::Reporte r = reporteDe(10);
    r.renglones[0].hojaNueva = true;
    EXPECT_EQ(hojasDe(r), "0-10");
    r.renglones[4].hojaNueva = true;
    r.renglones[5].hojaNueva = true;
    EXPECT_EQ(hojasDe(r), "0-4 4-5 5-10");
    // The line behind a full page begins the next one once.
    r = reporteDe(60);
    r.renglones[58].hojaNueva = true;
    EXPECT_EQ(hojasDe(r), "0-58 58-60");
}

TEST(Paginas, ATitleNeverStandsAloneAtTheEndOfAPage) {
    papel::Reporte r = reporteDe(70);
    r.renglones[57].conElSiguiente = true;
    EXPECT_EQ(hojasDe(r), "0-57 57-70");
    r.renglones[56].conElSiguiente = true;
    EXPECT_EQ(hojasDe(r), "0-56 56-70") << "nor do two of them";
    r.renglones[40].conElSiguiente = true;
    EXPECT_EQ(hojasDe(r), "0-56 56-70");
    r = reporteDe(60);
    r.renglones[59].conElSiguiente = true;
    EXPECT_EQ(hojasDe(r), "0-58 58-60") << "the last line of all has nothing behind it";
}

TEST(Paginas, APageOfTitlesAloneIsFilled) {
    papel::Reporte r = reporteDe(70);
    for (papel::Renglon &renglon : r.renglones) renglon.conElSiguiente = true;
    EXPECT_EQ(hojasDe(r), "0-58 58-70");
}

TEST(Paginas, TheFontBecomesSmallerUntilTheWidestLineFits) {
    // Characters are 0.6 of the size wide, paper has 180 mm, 510.2 pt: 85 of 10 pt.
    struct Caso {
        int letras;
        double letra;
    };
    for (const Caso &caso : {Caso{1, 10}, Caso{85, 10}, Caso{86, 9.85}, Caso{102, 8.3}, Caso{141, 6},
                             Caso{142, 6}, Caso{300, 6}}) {
        papel::Reporte r = reporteDe(1);
        r.renglones.push_back({QString(caso.letras, u'W')});
        const papel::Paginado p = paginar(r);
        EXPECT_NEAR(p.letra, caso.letra, 0.051) << caso.letras;
        const double ancho = QFontMetricsF(papel::FuenteDe(papel::Uso::RenglonNegrita, p.letra))
                                 .horizontalAdvance(r.renglones.back().texto);
        EXPECT_EQ(ancho <= 180 * papel::unidadesPorMilimetro, caso.letras <= 141) << caso.letras;
    }
}

TEST(Paginas, AWideHeadingShrinksTheFontToo) {
    papel::Reporte r = reporteDe(1);
    r.encabezado = {QString(120, u'-')};
    EXPECT_LT(paginar(r).letra, 7.2);
    r.orientacion = Orientacion::Horizontal;
    EXPECT_EQ(paginar(r).letra, 10) << "126 of them fit a lying page";
}

TEST(Paginas, TheHeadingIsRepeatedAndTheRecordStandsOnTheFirstPageAlone) {
    papel::Reporte r = reporteDe(70);
    r.encabezado = {u"CÓDIGO   IMPORTE"_s, u"------   -------"_s};
    r.ficha = {
        {u"Importador"_s, u"HIDRAULICA DEL PLATA S.A."_s}, {u"Aduana"_s, u"001"_s}, {u"Moneda"_s, u"DOL"_s}};
    const papel::Paginado p = paginar(r);
    ASSERT_EQ(p.hojas.size(), 2U);
    const QStringList primera = papel::TextoDeHoja(r, p, 0);
    EXPECT_EQ(primera.mid(0, 7),
              (QStringList{r.titulo, r.subtitulo, u"Importador  HIDRAULICA DEL PLATA S.A.  Aduana  001"_s,
                           u"Moneda  DOL"_s, r.encabezado[0], r.encabezado[1], u"Línea 0001"_s}));
    EXPECT_EQ(primera.last(), u"Estudio Ñandú & Asociados  Hoja 1 de 2"_s);
    const QStringList segunda = papel::TextoDeHoja(r, p, 1);
    EXPECT_EQ(segunda.mid(0, 4), (QStringList{r.titulo, r.subtitulo, r.encabezado[0], r.encabezado[1]}));
    EXPECT_EQ(segunda.last(), u"Estudio Ñandú & Asociados  Hoja 2 de 2"_s);
    // Of the 718 pt for lines, 34.2 are the record's (two lines of 12.6 and the gaps) and 24.4 the heading's.
    EXPECT_EQ(p.hojas[0].hasta, 54U);
}

TEST(Paginas, ALongTextOfTheRecordTakesLinesOfItsOwnAndLosesNoWord) {
    papel::Reporte r;
    const QString larga = u"palabra "_s.repeated(60).trimmed();
    r.ficha = {{u"Aduana"_s, u"001"_s}, {u"Observaciones"_s, larga}, {u"Moneda"_s, u"DOL"_s}};
    QStringList lineas = papel::TextoDeHoja(r, paginar(r), 0);
    EXPECT_EQ(lineas.takeFirst(), u"Aduana  001"_s);
    EXPECT_EQ(lineas.takeLast(), u"Hoja 1 de 1"_s);
    EXPECT_EQ(lineas.takeLast(), u"Moneda  DOL"_s);
    EXPECT_GT(lineas.size(), 3);
    EXPECT_EQ(lineas.join(u' ').simplified(), u"Observaciones "_s + larga);
    r.ficha = {{u"Clave"_s, QString(300, u'X')}};
    EXPECT_GT(papel::TextoDeHoja(r, paginar(r), 0).size(), 3) << "also one without blanks";
}

TEST(Paginas, PageNumbersOfThreeDigitsAreTold) {
    const papel::Reporte r = reporteDe(58 * 120);
    const papel::Paginado p = paginar(r);
    ASSERT_EQ(p.hojas.size(), 120U);
    EXPECT_EQ(papel::TextoDeHoja(r, p, 99).last(), u"Estudio Ñandú & Asociados  Hoja 100 de 120"_s);
}

TEST(Paginas, MarksThatWouldMoveALineAreBlanks) {
    papel::Reporte r;
    r.renglones = {{u"uno\tdos\ntres\rcuatro"_s}};
    EXPECT_EQ(papel::TextoDeHoja(r, paginar(r), 0).first(), u"uno dos tres cuatro"_s);
    EXPECT_EQ(papel::TextoDe(r), u"uno dos tres cuatro\n"_s);
}

TEST(Paginas, ATitleThatIsTooLongEndsInAnEllipsis) {
    papel::Reporte r;
    r.titulo = u"Título "_s.repeated(30);
    EXPECT_TRUE(papel::TextoDeHoja(r, paginar(r), 0).first().endsWith(u'…'));
}

TEST(Paginas, TheTextOfAReportHasNoPages) {
    papel::Reporte r = reporteDe(2);
    r.ficha = {{u"Importador"_s, u"ACME"_s}, {u"CUIT"_s, u"30-1"_s}};
    r.encabezado = {u"LÍNEA"_s};
    r.renglones[0].hojaNueva = true;
    r.renglones.push_back({u"Otra"_s, false, true});
    EXPECT_EQ(papel::TextoDe(r).toStdString(),
              "Liquidación de la operación\nOperación IC-2026-0001\n\nImportador: ACME\nCUIT:       30-1\n\n"
              "LÍNEA\nLínea 0001\nLínea 0002\n\fOtra\n\nEstudio Ñandú & Asociados\n");
    EXPECT_EQ(papel::TextoDe({}), u"\n"_s);
}

TEST(Busqueda, FindsWhateverTheCaseAndTheAccents) {
    papel::Reporte r;
    r.renglones = {{u"POSICIÓN posicion"_s}, {u"nada"_s}, {u"Ñandú: Posición"_s}};
    const auto lugares = [&r](const QString &texto) {
        QStringList textos;
        for (const papel::Hallazgo &h : papel::Buscar(r, texto))
            textos << u"%1:%2+%3"_s.arg(h.renglon).arg(h.desde).arg(h.letras);
        return textos.join(u' ').toStdString();
    };
    EXPECT_EQ(lugares(u"posición"_s), "0:0+8 0:9+8 2:7+8");
    EXPECT_EQ(lugares(u"NANDU"_s), "2:0+5");
    EXPECT_EQ(lugares(u"falta"_s), "");
    EXPECT_EQ(lugares({}), "");
}

TEST(Busqueda, APlaceIsOnThePageThatHoldsItsLine) {
    const papel::Reporte r = reporteDe(100);
    const papel::Paginado p = paginar(r);
    EXPECT_EQ(papel::HojaDe(p, 0), 0U);
    EXPECT_EQ(papel::HojaDe(p, 57), 0U);
    EXPECT_EQ(papel::HojaDe(p, 58), 1U);
    const QRectF una = papel::LugarDe(r, p, 0, 0, 0, 5);
    const QRectF otra = papel::LugarDe(r, p, 0, 1, 2, 5);
    // Characters of 10 pt are 6 pt wide, 2.117 mm; lines are 12.2 pt high, 4.304 mm.
    EXPECT_NEAR(una.left(), 18, 0.01);
    EXPECT_NEAR(una.width(), 5 * 2.117, 0.02);
    EXPECT_NEAR(otra.left() - una.left(), 2 * 2.117, 0.02);
    EXPECT_NEAR(otra.top() - una.top(), 4.304, 0.01);
    EXPECT_EQ(papel::LugarDe(r, p, 1, 58, 0, 5), una) << "the next page has the same furniture";
}

}  // namespace
