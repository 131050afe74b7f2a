// What the item screen is given: the page of item 0, that of any other item, and what ends a load.

#include "liquidation/itemview.h"
#include "header/automotive.h"
#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Vista : public OperacionDePrueba {
 protected:
    VistaDeItem ver(const char *item, bool pagina = false) {
        calculo = std::make_unique<ClassLiquidacion>(*ctx, L(clave));
        return VerDetalleITEM(*ctx, L(clave), L(item), pagina, *calculo,
                              [this](const QString &texto) { estados << texto; });
    }
    static std::string comoTexto(const std::vector<FilaLiq> &grilla) {
        QStringList lineas;
        for (const FilaLiq &f : grilla)
            lineas << QStringList{f.numero, f.concepto, f.porcentaje, f.base, f.total, f.pgc, f.motivo}.join(
                QLatin1Char('|'));
        return lineas.join(QLatin1Char('\n')).toStdString();
    }
    static std::string campo(const VistaDeItem &v, const char *control) {
        return v.campo(L(control)).toStdString();
    }
};
EN_AMBOS_STORES(Vista);

// Item 0

TEST_P(Vista, ItemZeroOnTheLiquidationPageRunsTheOperation) {
    catalogo();
    item(0);
    item(1, {{"ajusteinc", "50"}, {"ajusteded", "20"}});
    item(2);
    fila(1, "010");
    fila(2, "010", {{"pgc", "'G'"}});
    fila(2, "041", {{"pgc", "'C'"}});
    const VistaDeItem v = ver("0", true);
    EXPECT_TRUE(v.cargada);
    EXPECT_TRUE(v.recalculada);
    EXPECT_EQ(v.cantidadDeItems, 2);
    EXPECT_EQ(v.idsubreg.toStdString(), "IC01");
    // Item 1: base 1140, duty 228.00; item 2: base 1110, duty 222.00 and 1 % 11.10.
    EXPECT_EQ(comoTexto(v.grilla), "010|DERECHOS|||450.00|P|\n041||||11.10|C|");
    EXPECT_EQ(v.lbTOTALG.toStdString(), "450.00");
    EXPECT_EQ(v.lbTOTGAR.toStdString(), "0") << "a plain number";
    EXPECT_EQ(v.lbTOTCOB.toStdString(), "11.1");
    EXPECT_EQ(campo(v, "LbBaseImp"), "2250.00");
    EXPECT_EQ(campo(v, "LbBaseIVA"), "2700.00");
    EXPECT_EQ(campo(v, "LbFobUs"), "2000.00");
    EXPECT_EQ(campo(v, "LbFleteUs"), "200.00");
    EXPECT_EQ(campo(v, "LbSeguroUS"), "20.00");
    EXPECT_EQ(campo(v, "LbAjusteIncUs"), "50.00");
    EXPECT_EQ(campo(v, "LbAjusteDedUs"), "20.00");
    EXPECT_EQ(liq(1), "010|<null>|<null>|<null>|P") << "not pending: nothing is written back";
}

TEST_P(Vista, ItemZeroWithAPendingLiquidationRunsFromAnyPage) {
    item(0);
    item(1);
    filas(1, {"010"});
    ctx->LiquidacionPendiente = true;
    EXPECT_TRUE(ver("0").recalculada);
    EXPECT_EQ(liq(1), "010|20|1110|222|P");
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    EXPECT_EQ(estados.join(QLatin1Char(';')).toStdString(), "Liquidando ITEM 1 ...;LISTO");
}

TEST_P(Vista, ItemZeroWithoutARunShowsTheTotalsOfTheLastOne) {
    catalogo();
    item(0);
    item(1);
    fila(1, "010");
    fila(1, "041", {{"pgc", "'G'"}});
    ver("0", true);
    ejecutar(u"update ncm set [015] = '10'"_s, u"NCM"_s);
    VistaDeItem v;
    const QStringList borrados = sentenciasDe("delete from", [&] { v = ver("0"); });
    EXPECT_TRUE(v.cargada);
    EXPECT_FALSE(v.recalculada);
    EXPECT_TRUE(borrados.isEmpty());
    EXPECT_EQ(comoTexto(v.grilla), "010|DERECHOS|||222.00|P|\n041||||11.10|G|");
    EXPECT_EQ(v.lbTOTALG.toStdString(), "222.00");
    EXPECT_EQ(v.lbTOTGAR.toStdString(), "11.1");
    EXPECT_EQ(campo(v, "LbBaseImp"), "1110.00");
    EXPECT_EQ(campo(v, "LbBaseIVA"), "1332.00");
}

TEST_P(Vista, ItemZeroSpreadsTheHeadersAdjustmentsOnEveryLoad) {
    caratula({{"ajusteincluir", "90"}});
    item(0);
    item(1);
    item(2, {{"fobtotal", "2000"}});
    ver("0");
    EXPECT_EQ(f("select id,ajusteinc from item where id <> 0 order by id"), "1|30\n2|60");
    ejecutar(u"update item set ajusteinc = 1 where id = 1"_s);
    ver("1");
    EXPECT_EQ(f("select ajusteinc from item where id = 1"), "1") << "any other item spreads nothing";
}

TEST_P(Vista, TheInputsOfItemZeroShowSixDecimals) {
    item(0, {{"insumostemp", "1.23456789"}, {"insumosacons", "0.5"}});
    item(1, {{"insumostemp", "1.23456789"}, {"insumosacons", "0.5"}});
    VistaDeItem v = ver("0");
    EXPECT_EQ(campo(v, "OLDTxtInsCons"), "01.234568");
    EXPECT_EQ(campo(v, "txtConsumo"), "00.500000");
    v = ver("1");
    EXPECT_EQ(campo(v, "OLDTxtInsCons"), "01.23");
    EXPECT_EQ(campo(v, "txtConsumo"), "00.50");
}

TEST_P(Vista, ItemZeroShowsItsOwnInformationAndAdvantages) {
    item(0);
    item(1);
    insertar(u"iteminfo"_s, {{"interno", "'OP1'"}, {"iditem", "0"}, {"idinfo", "'MARCA'"}, {"valor", "'X'"}});
    insertar(u"itemventaja"_s, {{"interno", "'OP1'"}, {"iditem", "1"}, {"idventaja", "'DE1'"}});
    insertar(u"itemventaja"_s, {{"interno", "'OP1'"}, {"iditem", "0"}, {"idventaja", "'DE0'"}});
    const VistaDeItem v = ver("0");
    ASSERT_EQ(v.informacion.size(), 1U);
    EXPECT_EQ(v.informacion[0].first.toStdString(), "MARCA");
    EXPECT_EQ(v.ventajas, QStringList{u"DE0"_s});
}

// Any other item

TEST_P(Vista, AnItemShowsItsStoredRowsWithoutCalculating) {
    item(0);
    item(1);
    fila(1, "415",
         {{"conceptos", "'IVA'"}, {"porcentaje", "21"}, {"baseimp", "1000.5"}, {"total", "210.105"}});
    fila(1, "010",
         {{"conceptos", "'DERECHOS'"},
          {"porcentaje", "12.345"},
          {"baseimp", "500"},
          {"total", "60"},
          {"pgc", "'G'"},
          {"motivo", "'M1'"}});
    fila(1, "011", {{"total", "0"}});
    fila(1, "016");
    QStringList grilla;
    VistaDeItem v;
    ctx->LiquidacionPendiente = true;
    const QStringList todas = sentenciasDe("", [&] { v = ver("1", true); });
    EXPECT_TRUE(v.cargada);
    EXPECT_FALSE(v.recalculada);
    EXPECT_EQ(comoTexto(v.grilla), "010|DERECHOS|12.35|500.00|60.00|G|M1\n415|IVA|21.00|1000.50|210.11|P|");
    for (const QString &sentencia : todas)
        EXPECT_TRUE(sentencia.trimmed().startsWith("select"_L1, Qt::CaseInsensitive))
            << sentencia.toStdString();
    EXPECT_TRUE(ctx->LiquidacionPendiente) << "still to be written from item 0";
    // The bases are those of now.
    EXPECT_EQ(campo(v, "LbBaseImp"), "1110.00");
    EXPECT_EQ(campo(v, "LbBaseIVA"), "1280.33")
        << "12.345 % in the 010 row: 137.03, and statistics of 3 %: 33.30";
}

TEST_P(Vista, ARowWithoutPercentageOrBaseShowsNoneAndOneOfZeroShowsZero) {
    item(0);
    item(1);
    fila(1, "010", {{"total", "60"}});
    fila(1, "415", {{"porcentaje", "0"}, {"baseimp", "0"}, {"total", "70"}});
    EXPECT_EQ(comoTexto(ver("1").grilla), "010||||60.00|P|\n415||00.00|00.00|70.00|P|");
}

TEST_P(Vista, AHandPercentageForcesTheDutyOnlyOnTheScreen) {
    ejecutar(u"update ncm set [028] = '*'"_s, u"NCM"_s);
    GuardarAEC(*ctx, L(clave), u"R"_s);
    item(0);
    item(1);
    fila(1, "010", {{"porcentaje", "12"}});
    // Replacement from outside: the row's 12 % stands against the common tariff of 18 %.
    EXPECT_EQ(campo(ver("1"), "LbBaseIVA"), "1243.20");
    recalcular();
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '###baseiva'"), "1309.8");
    ejecutar(u"update itemliq set porcentaje = null"_s);
    EXPECT_EQ(campo(ver("1"), "LbBaseIVA"), "1309.80");
}

TEST_P(Vista, APositionThatIsNotThereEndsTheLoad) {
    item(0);
    item(1, {{"ncm", "'9999.99.99.999Z'"}});
    const VistaDeItem v = ver("1");
    EXPECT_FALSE(v.cargada);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              "La Posición 9999.99.99.999Z no esta en el nomenclador");
    EXPECT_EQ(v.aviso, registro.mensajes[0].texto);
    EXPECT_TRUE(v.grilla.empty());
}

TEST_P(Vista, ANullPositionThatIsNotThereIsNamedByItsZeros) {
    item(0);
    item(1, {{"ncm", "null"}});
    EXPECT_EQ(ver("1").aviso.toStdString(), "La Posición 0000.00.00.000D no esta en el nomenclador");
}

TEST_P(Vista, APositionOfAnotherLengthEndsTheLoad) {
    item(0);
    item(1, {{"ncm", "'7318.15'"}});
    const VistaDeItem v = ver("1");
    EXPECT_FALSE(v.cargada);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Estructura de NCM incorrecta");
}

TEST_P(Vista, AnItemThatIsNotThereLoadsNothing) {
    item(0);
    const VistaDeItem v = ver("9");
    EXPECT_FALSE(v.cargada);
    EXPECT_TRUE(v.aviso.isEmpty());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Vista, TheNumbersOfTheItemsComeInOrderWithZeroFirst) {
    for (const int id : {10, 2, 0, 1}) item(id);
    EXPECT_EQ(ItemsDeOperacion(*ctx, L(clave)).join(QLatin1Char(' ')).toStdString(), "0 1 2 10");
    ejecutar(u"delete from item where id = 0"_s);
    EXPECT_EQ(ItemsDeOperacion(*ctx, L(clave)).join(QLatin1Char(' ')).toStdString(), "0 1 2 10")
        << "the operation's page needs no row";
    EXPECT_EQ(ItemsDeOperacion(*ctx, u"NO"_s), QStringList(u"0"_s));
}

TEST_P(Vista, ItemZeroWithoutItemRowsRunsWithNoneAndClearsTheMark) {
    insertar(u"liqcero"_s, {{"interno", "'OP1'"}, {"idconcepto", "'010'"}, {"valor", "5"}});
    ctx->LiquidacionPendiente = true;
    const VistaDeItem v = ver("0");
    EXPECT_TRUE(v.cargada);
    EXPECT_TRUE(v.recalculada);
    EXPECT_EQ(v.cantidadDeItems, 0);
    EXPECT_EQ(v.lbTOTALG.toStdString(), "00.00");
    EXPECT_EQ(campo(v, "LbBaseImp"), "00.00");
    EXPECT_EQ(campo(v, "TxtLista"), "");
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    EXPECT_EQ(totales(),
              "###baseiva|<null>|0|<null>\n###baseimp|<null>|0|<null>\n###ajded|<null>|0|<null>\n"
              "###ajinc|<null>|0|<null>");
}

TEST_P(Vista, ItemZeroOfItemsThatLackItsRowShowsTheirTotals) {
    catalogo();
    item(1);
    filas(1, {"010"});
    const VistaDeItem v = ver("0", true);
    EXPECT_TRUE(v.cargada);
    EXPECT_EQ(v.cantidadDeItems, 1);
    // 20 % of the base 1110.
    EXPECT_EQ(v.lbTOTALG.toStdString(), "222.00");
}

TEST_P(Vista, AnOperationThatIsGoneIsTold) {
    ejecutar(u"delete from caratula"_s);
    const VistaDeItem v = ver("0", true);
    EXPECT_FALSE(v.cargada);
    EXPECT_EQ(v.aviso.toStdString(), "El interno OP1 ya no existe: vuelva a buscarlo en la lista.");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, v.aviso);
}

TEST_P(Vista, TheGroupsShowTheirMasksAndOnlyADjaiTheirDescription) {
    item(0);
    item(1);
    for (const int sub : {7, 3})
        insertar(u"groupsubitems"_s, {{"interno", "'OP1'"},
                                      {"id", "1"},
                                      {"idsub", QString::number(sub)},
                                      {"idarticulo", u"'A%1'"_s.arg(sub)},
                                      {"ncm", "'7318.15.00.100A'"},
                                      {"descripcion", "'  TORNILLO '"},
                                      {"idunidad", "'07'"},
                                      {"cantidad", "2.5"},
                                      {"preciounitario", "1.123456"},
                                      {"fob", "3.005"},
                                      {"sufijos", "'AA01-'"},
                                      {"estadistica", "'01'"},
                                      {"valorrelacionestadistica", "0.5"}});
    const VistaDeItem v = ver("1");
    ASSERT_EQ(v.grupos.size(), 2U);
    EXPECT_EQ(v.grupos[0].idarticulo.toStdString(), "A3");
    EXPECT_EQ(v.grupos[0].cantidad.toStdString(), "02.50");
    EXPECT_EQ(v.grupos[0].preciounitario.toStdString(), "01.12346");
    EXPECT_EQ(v.grupos[0].fob.toStdString(), "03.01") << "halves away from zero";
    EXPECT_EQ(v.grupos[0].valorrelacionestadistica.toStdString(), "00.50");
    EXPECT_EQ(v.grupos[0].sufijos.toStdString(), "AA01-");
    EXPECT_TRUE(v.grupos[0].descripcion.isEmpty());
    caratula({{"idsubreg", "'DJAI'"}});
    EXPECT_EQ(ver("1").grupos.at(0).descripcion.toStdString(), "TORNILLO");
}

TEST_P(Vista, TheCertificatesOfAllFoldedLinesAreShown) {
    item(0);
    item(1);
    QStringList ids;
    for (const char *certificado : {"'C1'", "'C2'", "''", "null", "'C5'"}) {
        insertar(u"subitems"_s, {{"interno", "'OP1'"}, {"certorig", L(certificado)}});
        ids << valor(u"select max(id) as m from subitems"_s);
    }
    // Group 1 of item 1 is line 1, into which lines 2 to 4 were folded; line 5 belongs to item 2.
    insertar(u"groupsubitems"_s, {{"interno", "'OP1'"}, {"id", "1"}, {"idsub", ids[0]}});
    insertar(u"groupsubitems"_s, {{"interno", "'OP1'"}, {"id", "2"}, {"idsub", ids[4]}});
    for (const int i : {1, 2, 3})
        insertar(u"idrel"_s, {{"interno", "'OP1'"}, {"idroot", ids[0]}, {"idsub", ids[i]}});
    EXPECT_EQ(ver("1").certificados.join(QLatin1Char(' ')).toStdString(), "C1 C2");
}

TEST_P(Vista, TheMarksOfAnItemAreShown) {
    item(0);
    item(1);
    item(2, {{"lapi", "'S'"}, {"cancelaciones", "'OK'"}, {"biendeuso", "'S'"}, {"mineria", "'S'"}});
    for (const char *ventaja : {"ZZZ", "AUTOLIQLIBREIMP", "MMM"})
        insertar(u"itemventaja"_s,
                 {{"interno", "'OP1'"}, {"iditem", "2"}, {"idventaja", u"'%1'"_s.arg(L(ventaja))}});
    VistaDeItem v = ver("1");
    EXPECT_FALSE(v.lbAutoliq || v.LbLapi || v.esCancelacion || v.bienDeUso);
    EXPECT_EQ(campo(v, "chkMineria"), "N");
    v = ver("2");
    EXPECT_TRUE(v.lbAutoliq && v.LbLapi && v.esCancelacion && v.bienDeUso);
    EXPECT_EQ(campo(v, "chkMineria"), "S");
    EXPECT_EQ(v.ventajas.join(QLatin1Char(' ')).toStdString(), "AUTOLIQLIBREIMP MMM ZZZ");
    ejecutar(u"update itemventaja set idventaja = 'AUTOLIQLIBREEXP' where idventaja = 'AUTOLIQLIBREIMP'"_s);
    EXPECT_TRUE(ver("2").lbAutoliq);
}

TEST_P(Vista, TheCancellationsComeInTheirOrder) {
    item(0);
    item(1);
    for (const auto &[dit, itemDit, subitem, cantidad] :
         {std::tuple{2, 1, 1, "1.5"}, std::tuple{1, 2, 1, "2.0004"}, std::tuple{1, 1, 2, "3"}})
        insertar(u"descargas"_s, {{"interno", "'OP1'"},
                                  {"iditem", "'1'"},
                                  {"dit", QString::number(dit)},
                                  {"item", QString::number(itemDit)},
                                  {"subitem", QString::number(subitem)},
                                  {"ncm", "'7318.15.00.100A'"},
                                  {"expctit", "'E'"},
                                  {"cantidad", L(cantidad)},
                                  {"factorponderacion", "0.75"}});
    const VistaDeItem v = ver("1");
    QStringList filas;
    for (const FilaDeCancelacion &f : v.cancelaciones)
        filas << QStringList{f.dit, f.item, f.subitem, f.cantidad, f.factorponderacion}.join(
            QLatin1Char('|'));
    EXPECT_EQ(filas.join(QLatin1Char(' ')).toStdString(),
              "1|1|2|03.000|0.75 1|2|1|02.000|0.75 2|1|1|01.500|0.75");
}

TEST_P(Vista, TheirPageAlsoListsTheCancellationsOfTheItemsOwnLines) {
    item(0);
    item(1);
    // Line 1 is the root of item 1 and line 2 was folded into it; line 3 belongs to item 2.
    QStringList ids;
    for (const char *referencia : {"77", "78", "79"}) {
        insertar(u"subitems"_s, {{"interno", "'OP1'"}, {"idexportacion", L(referencia)}});
        ids << valor(u"select max(id) as m from subitems"_s);
    }
    insertar(u"groupsubitems"_s, {{"interno", "'OP1'"}, {"id", "1"}, {"idsub", ids[0]}});
    insertar(u"groupsubitems"_s, {{"interno", "'OP1'"}, {"id", "2"}, {"idsub", ids[2]}});
    insertar(u"idrel"_s, {{"interno", "'OP1'"}, {"idroot", ids[0]}, {"idsub", ids[1]}});
    for (const auto &[dit, deItem, referencia] :
         {std::tuple{"'A'", "'1'", "0"}, std::tuple{"'B'", "null", "77"}, std::tuple{"'C'", "null", "78"},
          std::tuple{"'D'", "null", "79"}, std::tuple{"'E'", "null", "0"}, std::tuple{"'F'", "'2'", "77"}})
        insertar(
            u"descargas"_s,
            {{"interno", "'OP1'"}, {"dit", L(dit)}, {"iditem", L(deItem)}, {"idexportacion", L(referencia)}});
    calculo = std::make_unique<ClassLiquidacion>(*ctx, L(clave));
    const auto dits = [this](bool enSuPagina) {
        QStringList textos;
        const VistaDeItem v = VerDetalleITEM(*ctx, L(clave), u"1"_s, false, *calculo, {}, enSuPagina);
        for (const FilaDeCancelacion &c : v.cancelaciones) textos << c.dit;
        return textos.join(QLatin1Char(' ')).toStdString();
    };
    EXPECT_EQ(dits(false), "A");
    EXPECT_EQ(dits(true), "A B C");
}

TEST_P(Vista, AnOptionShowsItsCodeAndThePageHoldsWhatASaveWrites) {
    item(0);
    item(1, {{"opcionesiva", "'IVAAD1'"}, {"opcionesganancias", "''"}, {"onccaacuerdo", "'AC '"}});
    const VistaDeItem v = ver("1");
    EXPECT_EQ(campo(v, "cboOpcionIVA"), "IVAAD1");
    EXPECT_EQ(campo(v, "cboOpcionesGanancias"), "");
    EXPECT_EQ(v.datos.value(u"OpcionesIVA"_s).toStdString(), "IVAAD1");
    EXPECT_EQ(v.datos.value(u"ONCCAAcuerdo"_s).toStdString(), "AC");
    EXPECT_EQ(v.datos.value(u"Mineria"_s).toStdString(), "N");
    EXPECT_FALSE(v.datos.contains(u"NCM"_s)) << "shown only";
}

TEST_P(Vista, TheFieldsShowTheirColumns) {
    insertar(u"pais"_s, {{"id", "'400'"}, {"descripcion", "'FRANCIA'"}}, u"SYSTABLAS"_s);
    insertar(u"pais"_s, {{"id", "'203'"}, {"descripcion", "'BRASIL'"}}, u"SYSTABLAS"_s);
    insertar(u"unidades"_s, {{"id", "'07'"}, {"descripcion", "'UNIDAD'"}});
    item(0);
    item(1, {{"naladisa", "'7318'"},
             {"lista", "'355'"},
             {"idproc", "'203'"},
             {"totalkneto", "1.5"},
             {"totalkbruto", "2"},
             {"cantidad", "12"},
             {"idunidad", "'07'"},
             {"estadistica", "'01'"},
             {"itcomext", "3.5"},
             {"cofexp", "0.90909"},
             {"ajusteinc", "0.125"},
             {"codprorrateo", "'A'"},
             {"regalias", "'S'"},
             {"standard", "'N'"},
             {"deresp", "'01'"},
             {"valorderesp", "7"},
             {"tipoitem", "'D'"},
             {"itemasociado", "'001'"},
             {"onccacortes", "'CO'"}});
    const VistaDeItem v = ver("1");
    for (const auto &[control, texto] : {std::pair{"LbPos", "7318.15.00.100A"},
                                         std::pair{"TxtNaladisa", "7318"},
                                         std::pair{"TxtLista", "355"},
                                         std::pair{"TxtIdpais", "400"},
                                         std::pair{"LbDescPais", "FRANCIA"},
                                         std::pair{"TxtIdproc", "203"},
                                         std::pair{"LbDest", "BRASIL"},
                                         std::pair{"TxtTotKgNeto", "1.5"},
                                         std::pair{"TxtKgBruto", "2"},
                                         std::pair{"TxtCantidad", "12.00"},
                                         std::pair{"lbItemCantidadDeclarada", "07 UNIDAD"},
                                         std::pair{"TxtUnidEst", "01"},
                                         std::pair{"txtItComExt", "03.50"},
                                         std::pair{"TxtCOEF", "0.90909"},
                                         std::pair{"TxtAjusteInc", "00.13"},
                                         std::pair{"txtAjusteDed", "00.00"},
                                         std::pair{"TxtCodPror", "A"},
                                         std::pair{"TxtReg", "S"},
                                         std::pair{"TxtStan", "N"},
                                         std::pair{"TxtDerEsp", "01"},
                                         std::pair{"TxtValorDerEsp", "07.00"},
                                         std::pair{"txtTipoItem", "D"},
                                         std::pair{"txtItemAsociado", "001"},
                                         std::pair{"txtCorte", "CO"},
                                         std::pair{"txtMatadero", ""}})
        EXPECT_EQ(campo(v, control), texto) << control;
}

}  // namespace
