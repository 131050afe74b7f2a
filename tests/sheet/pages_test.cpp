// Whole sheets against those worked out by hand.

#include <gtest/gtest.h>

#include "tests/sheet/hoja.h"

using namespace Qt::StringLiterals;

namespace {

class PaginasDeHoja : public HojaDePrueba {};
EN_AMBOS_STORES(PaginasDeHoja);

TEST_P(PaginasDeHoja, AnImportOfTwoItemsWithItsSubitems) {
    cargar(u"importacion"_s);
    const HojaDeOperacion hoja = imprimir(0, 2, true);
    EXPECT_EQ(comoTexto(hoja), leer(u"importacion"_s, "hoja.txt"));
    EXPECT_TRUE(hoja.hecha);
    EXPECT_EQ(hoja.items, 3);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PaginasDeHoja, AnExportWithItsCoefficient) {
    cargar(u"exportacion"_s);
    EXPECT_EQ(comoTexto(imprimir(0, 1, true)), leer(u"exportacion"_s, "hoja.txt"));
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PaginasDeHoja, AMercosurItemWithoutItsSubitems) {
    cargar(u"mercosur"_s);
    EXPECT_EQ(comoTexto(imprimir(0, 1)), leer(u"mercosur"_s, "hoja.txt"));
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PaginasDeHoja, FirstAndLastEqualToZeroPrintOnlyTheOperationsPage) {
    cargar(u"importacion"_s);
    const std::string entera = leer(u"importacion"_s, "hoja.txt");
    EXPECT_EQ(comoTexto(imprimir(0, 0, true)), entera.substr(0, entera.find("===", 3)));
}

TEST_P(PaginasDeHoja, ARangeOfItemsLeavesTheOthersOut) {
    cargar(u"importacion"_s);
    const std::string entera = leer(u"importacion"_s, "hoja.txt");
    const HojaDeOperacion hoja = imprimir(2, 2, true);
    EXPECT_EQ(comoTexto(hoja), entera.substr(entera.rfind("===")));
    EXPECT_EQ(hoja.items, 1);
    EXPECT_TRUE(hoja.documento.reporte.ficha.empty()) << "the form is the operation's";
}

TEST_P(PaginasDeHoja, EveryItemBeginsAPageOfPaper) {
    cargar(u"importacion"_s);
    const papel::Reporte reporte = imprimir(0, 2).documento.reporte;
    EXPECT_EQ(papel::Paginar(reporte, papel::MedidaDe(reporte.orientacion)).hojas.size(), 3U);
}

TEST_P(PaginasDeHoja, TheReportCarriesItsTitleAndTheFormOfTheOperation) {
    cargar(u"importacion"_s);
    const papel::Reporte reporte = imprimir(0, 1).documento.reporte;
    EXPECT_EQ(reporte.titulo, u"Zendra Para Windows"_s);
    EXPECT_EQ(reporte.subtitulo, u"Hoja de liquidación - Operación IMPORTACION"_s);
    EXPECT_EQ(reporte.orientacion, papel::Orientacion::Vertical);
    QStringList ficha;
    for (const auto &[rotulo, dato] : reporte.ficha) ficha << rotulo + u'=' + dato;
    EXPECT_EQ(ficha.join(u'\n').toStdString(),
              "Item=000\nNaladisa=8409.91.00\nLista=Varios\nEstado de la mercadería=2\n"
              "Total kg neto=19,75\nPaís de origen=438\nPaís de procedencia=Varios\n"
              "Unidad estadística=07\nCantidad=15,00\nAjuste a incluir=00,00\nAjuste a deducir=00,00\n"
              "FOB=1500,01\nFlete=150,00\nSeguro=15,00");
}

TEST_P(PaginasDeHoja, TheInformationIsKeptWholeAndNoHeadingIsLeftAlone) {
    cargar(u"importacion"_s);
    QStringList pegadas;
    for (const papel::Renglon &renglon : imprimir(1, 1, true).documento.reporte.renglones)
        if (renglon.conElSiguiente) pegadas << renglon.texto.left(12).trimmed();
    EXPECT_EQ(pegadas.join(u'|').toStdString(),
              "------------|LIQUIDACION:|Conceptos|------------|"
              "|---------|VENTAJAS:|---------||"
              "------------|INFORMACIÓN|------------||Información|------------|MARCA|"
              "|---------|SUBITEMS:|---------||Canti|-----|0001.- 03,00|0002.- 07,00");
}

TEST_P(PaginasDeHoja, TheProgressTellsTheItemInHandAndTheLast) {
    cargar(u"importacion"_s);
    QStringList textos;
    int total = 0;
    imprimir(0, 2, false, [&](const AvanceDeHoja &avance) {
        const QString texto = avance.texto + u" / "_s + QString::number(avance.hechos);
        if (textos.isEmpty() || textos.last() != texto) textos << texto;
        total = avance.total;
        return true;
    });
    EXPECT_EQ(textos,
              QStringList({u"Item: 00 de 02 / 0"_s, u"Item: 01 de 02 / 1"_s, u"Item: 02 de 02 / 2"_s}));
    EXPECT_EQ(total, 3);
}

}  // namespace
