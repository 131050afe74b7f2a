// The document: what it holds, spelled to the letter, and what it does not depend on.

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include "tests/transfer/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class DocumentoDeDeclaracion : public OperacionParaEnviar {};
EN_AMBOS_STORES(DocumentoDeDeclaracion);

constexpr char documentoDeA1[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<declaracion xmlns="urn:zendra:declaracion:1" version="1.0" interno="A1">
  <caratula regimen="IC04" aduana="001" condicionVenta="FOB" fechaEmbarque="2026-01-02">
    <cliente cuit="30708123451" nombre="ALFA S.A."/>
    <fob importe="100.00" moneda="DOL" cambio="1.000000"/>
    <flete importe="10.00"/>
    <seguro importe="1.00"/>
    <facturas>
      <factura numero="F-1"/>
      <factura numero="A-2"/>
    </facturas>
  </caratula>
  <bultos numero="3" kilosBrutos="12.500" vencimientoEmbarque="2026-12-30">
    <declarados>3 CAJAS</declarados>
  </bultos>
  <operacion>
    <informaciones>
      <informacion codigo="GENERAL">
        <valor>Sí</valor>
      </informacion>
    </informaciones>
    <totales baseImponible="111.00">
      <total concepto="010" nombre="DERECHOS DE IMPORTACION" obligacion="P" importe="11.10"/>
    </totales>
  </operacion>
  <items>
    <item numero="1" posicion="8413.70.10.100L" tipo="N" paisOrigen="438" paisProcedencia="438" unidad="07" cantidad="3.00000" unidadEstadistica="07" cantidadEstadistica="3.00000" cantidadEspecifica="0.00000" kilosNetos="5.000" kilosBrutos="6.000" fob="60.00" flete="6.00" seguro="0.60">
      <subitems>
        <subitem numero="1" articulo="BOMBA" posicion="8413.70.10.100L" cantidad="1.00000" precioUnitario="25.50000" fob="25.50">
          <sufijos>AA01-AB(UNO)-</sufijos>
        </subitem>
        <subitem numero="2" articulo="BOMBA 2" posicion="8413.70.10.100L" cantidad="2.00000" precioUnitario="17.25000" fob="34.50"/>
      </subitems>
      <tributos>
        <tributo concepto="010" nombre="DERECHOS DE IMPORTACION" obligacion="P" porcentaje="10.000000" base="66.60" total="6.66"/>
      </tributos>
      <ventajas>
        <ventaja codigo="BIENCAPITAL"/>
      </ventajas>
    </item>
    <item numero="2" posicion="8482.10.10.111H" tipo="N" paisOrigen="212" paisProcedencia="212" unidad="07" cantidad="8.00000" kilosNetos="4.500" kilosBrutos="6.500" fob="40.00" flete="4.00" seguro="0.40">
      <subitems>
        <subitem numero="1" articulo="RULEMAN" posicion="8482.10.10.111H" cantidad="8.00000" precioUnitario="5.00000" fob="40.00"/>
      </subitems>
      <tributos>
        <tributo concepto="010" nombre="DERECHOS DE IMPORTACION" obligacion="G" porcentaje="10.000000" base="44.40" total="4.44">
          <motivo>DTO.1</motivo>
        </tributo>
      </tributos>
      <informaciones>
        <informacion codigo="DATO">
          <valor>x &lt; y &amp; &quot;z&quot;</valor>
        </informacion>
      </informaciones>
      <cancelaciones>
        <cancelacion despacho="25001IT04000123A" item="1" subitem="2" posicion="8482.10.10.111H" expediente="EXP-1" cantidad="1.50000" factorPonderacion="0.250000"/>
      </cancelaciones>
    </item>
  </items>
  <control items="2" subitems="3" tributos="2" ventajas="1" informaciones="2" cancelaciones="1" fob="100.00" flete="10.00" seguro="1.00" kilosNetos="9.500" kilosBrutos="12.500" totalTributos="11.10" aPagar="11.10" aGarantizar="0.00" aCobrar="0.00"/>
</declaracion>
)";

TEST_P(DocumentoDeDeclaracion, HoldsTheWholeDeclarationInAnOrderAndASpellingOfItsOwn) {
    EXPECT_EQ(documento().toStdString(), documentoDeA1);
    EXPECT_EQ(DefectoDelDocumento(documentoDeA1).toStdString(), "");
}

TEST_P(DocumentoDeDeclaracion, DoesNotDependOnTheOrderThatRowsWereWrittenIn) {
    for (const char *tabla : {"item", "groupsubitems", "itemliq", "iteminfo", "facturas", "liqcero"}) {
        const QString nombre = QLatin1String(tabla);
        // Rows that are written again come behind all others.
        ejecutar(u"create table vuelta as select * from "_s + nombre + u" where interno = 'A1'"_s);
        ejecutar(u"delete from "_s + nombre + u" where interno = 'A1'"_s);
        QStringList columnas;
        Recordset rs;
        Consultar(*ctx, u"INTERNOS"_s, u"select * from vuelta"_s, rs);
        for (int c = 0; c < rs.columnas(); ++c) columnas << rs.nombreDeColumna(c);
        const QString lista = columnas.join(u',');
        const QString orden = nombre == "itemliq"_L1 || nombre == "iteminfo"_L1 ? u"iditem"_s
                              : nombre == "facturas"_L1                         ? u"orden"_s
                              : nombre == "liqcero"_L1                          ? u"idconcepto"_s
                                                                                : u"id"_s;
        ejecutar(u"insert into %1 (%2) select %2 from vuelta order by %3 desc"_s.arg(nombre, lista, orden));
        ejecutar(u"drop table vuelta"_s);
    }
    EXPECT_EQ(documento().toStdString(), documentoDeA1);
}

TEST_P(DocumentoDeDeclaracion, ANullAndAnEmptyTextAreBothAbsent) {
    ejecutar(
        u"update caratula set factura3 = '', idvendedor = null, cierreventa = '' where interno = 'A1'"_s);
    ejecutar(u"update item set descripcion = '', lista = null, naladisa = '  ' where interno = 'A1'"_s);
    EXPECT_EQ(documento().toStdString(), documentoDeA1);
}

TEST_P(DocumentoDeDeclaracion, CodesWithTheSameLettersAreOrderedByTheirCodePoints) {
    for (const char *codigo : {"b", "A", "ñ", "B", "a"})
        ejecutar(u"insert into itemventaja (interno,iditem,idventaja) values ('A1',2,'%1')"_s.arg(
            QString::fromUtf8(codigo)));
    QStringList codigos;
    const Declaracion d = LeerDeclaracion(*ctx, u"A1"_s);
    for (const FilaDeclarada &v : d.items.at(1).ventajas) codigos << v.texto("idventaja");
    EXPECT_EQ(codigos.join(u' ').toStdString(), "A B a b ñ");
}

TEST_P(DocumentoDeDeclaracion, CommissionsGoInOnlyWithTheirOption) {
    ejecutar(u"update caratula set dccomext = 7 where interno = 'A1'"_s);
    ejecutar(u"update item set itcomext = 4.2 where interno = 'A1' and id = 1"_s);
    ejecutar(u"update item set itcomext = 2.8 where interno = 'A1' and id = 2"_s);
    EXPECT_FALSE(documento().contains("comisiones"));
    EXPECT_EQ(advertencias(), QStringList());
    ctx->opciones.EnviarComExt = true;
    const QByteArray con = documento();
    EXPECT_TRUE(con.contains(R"(<comunes comisiones="7.00"/>)")) << con.toStdString();
    EXPECT_TRUE(con.contains(R"(comisiones="4.20")"));
    EXPECT_EQ(DefectoDelDocumento(con), QString());
    EXPECT_EQ(advertencias(), QStringList());
}

TEST_P(DocumentoDeDeclaracion, NumbersHaveTheirDecimalsAndNoExponent) {
    ejecutar(
        u"update item set fobtotal = 123456789012.345, cantidad = 0.000001, totalkneto = 1234567.0005 "
        "where interno = 'A1' and id = 1"_s);
    const QByteArray d = documento();
    // Halves go away from zero: .345 is .35, and .0005 is .001.
    EXPECT_TRUE(d.contains(R"(cantidad="0.00000")")) << d.toStdString();
    EXPECT_TRUE(d.contains(R"(kilosNetos="1234567.001")"));
    EXPECT_TRUE(d.contains(R"(fob="123456789012.35")"));
    EXPECT_EQ(DefectoDelDocumento(d), QString());
}

TEST_P(DocumentoDeDeclaracion, WhatXmlCannotHoldBecomesABlankAndIsTold) {
    const QString malo = u"a%1b%2c\r\nd"_s.arg(QChar(1)).arg(QChar(0xFFFE));
    ejecutar(u"update iteminfo set valor = '%1' where interno = 'A1' and iditem = 2"_s.arg(malo));
    const QByteArray d = documento();
    EXPECT_TRUE(d.contains("<valor>a b c\nd</valor>")) << d.toStdString();
    EXPECT_EQ(DefectoDelDocumento(d), QString());
    EXPECT_EQ(
        advertencias().join(u'\n').toStdString(),
        "2|En las informaciones del item 2, el dato \"valor\" tiene caracteres que el documento no admite; "
        "van como blancos.");
}

TEST_P(DocumentoDeDeclaracion, ACharacterBeyondTheFirstPlaneStays) {
    ejecutar(u"update iteminfo set valor = 'x %1 y' where interno = 'A1' and iditem = 2"_s.arg(
        QString::fromUcs4(U"\U0001F4E6")));
    EXPECT_TRUE(documento().contains("<valor>x \xF0\x9F\x93\xA6 y</valor>"));
    EXPECT_EQ(advertencias(), QStringList());
}

TEST_P(DocumentoDeDeclaracion, WhatIsOfAnotherKindIsLeftOutAndTold) {
    ejecutar(u"update caratula set fechaembarque = 'pronto' where interno = 'A1'"_s);
    ejecutar(u"update item set regalias = 'X' where interno = 'A1' and id = 2"_s);
    ejecutar(u"update itemliq set pgc = 'Z' where interno = 'A1' and iditem = 1"_s);
    const QByteArray d = documento();
    EXPECT_FALSE(d.contains("fechaEmbarque"));
    EXPECT_FALSE(d.contains("regalias"));
    EXPECT_EQ(DefectoDelDocumento(d), QString());
    EXPECT_EQ(advertencias().join(u'\n').toStdString(),
              "0|En la carátula, el dato \"fechaEmbarque\" dice \"pronto\", que no es una fecha, y no va; "
              "corríjalo antes de enviar.\n"
              "1|En los tributos del item 1, el dato \"obligacion\" dice \"Z\" y no va; corríjalo antes de "
              "enviar.\n"
              "2|En el item 2, el dato \"regalias\" dice \"X\" y no va; corríjalo antes de enviar.");
}

TEST_P(DocumentoDeDeclaracion, CertificatesAreThoseOfTheLinesBehindTheGroups) {
    ejecutar(u"insert into subitems (interno,certorig) values ('A1','C-2')"_s);
    const QString raiz = valor(u"select max(id) as n from subitems"_s);
    ejecutar(u"insert into subitems (interno,certorig) values ('A1','C-1')"_s);
    const QString plegada = valor(u"select max(id) as n from subitems"_s);
    ejecutar(u"update groupsubitems set idsub = %1 where interno = 'A1' and idsub = 13"_s.arg(raiz));
    ejecutar(u"insert into idrel (interno,idroot,idsub) values ('A1',%1,%2)"_s.arg(raiz, plegada));
    const Declaracion d = LeerDeclaracion(*ctx, u"A1"_s);
    EXPECT_EQ(d.items.at(0).certificados, QStringList());
    EXPECT_EQ(d.items.at(1).certificados, (QStringList{u"C-1"_s, u"C-2"_s}));
    EXPECT_EQ(DefectoDelDocumento(DocumentoDe(d)), QString());
}

TEST_P(DocumentoDeDeclaracion, ADjaiTellsTheTermOfItsLargestPosition) {
    ejecutar(u"update caratula set idsubreg = 'DJAI' where interno = 'A1'"_s);
    EXPECT_TRUE(documento().contains(R"(ncmMayorFob="-1")"));
    ejecutar(u"insert into ncm ([001],[002],[003],[071]) values ('8413.70.10','10','L','4x')"_s, u"NCM"_s);
    ejecutar(u"update ncm set [002] = '10' where [001] = '8413.70.10'"_s, u"NCM"_s);
    ejecutar(u"update item set ncm = '8413.70.10.10L' where interno = 'A1' and id = 1"_s);
    const QByteArray d = documento();
    EXPECT_TRUE(d.contains(R"(ncmMayorFob="4")")) << d.left(300).toStdString();
    EXPECT_EQ(DefectoDelDocumento(d), QString());
    ejecutar(u"delete from item where interno = 'A1'"_s);
    EXPECT_FALSE(documento().contains("ncmMayorFob")) << "asked for only where there are items";
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(DocumentoDeDeclaracion, TheNumberOfStatementsDoesNotGrowWithTheItems) {
    const auto contadas = [this] {
        int cuantas = 0;
        Conexion::fijarTraza([&cuantas](const TrazaDeSentencia &) { ++cuantas; });
        PrepararTransferencia(*ctx, u"A1"_s);
        Conexion::fijarTraza({});
        return cuantas;
    };
    const int conDos = contadas();
    for (int n = 3; n <= 40; ++n) {
        ejecutar(u"insert into item (interno,id,fobtotal) values ('A1',%1,1)"_s.arg(n));
        ejecutar(
            u"insert into groupsubitems (interno,id,idsub,fob) values ('A1',%1,%2,1)"_s.arg(n).arg(n + 50));
    }
    EXPECT_EQ(contadas(), conDos);
    EXPECT_LT(conDos, 40);
}

TEST_P(DocumentoDeDeclaracion, AnOperationThatIsGoneIsToldByItsKey) {
    try {
        LeerDeclaracion(*ctx, u"B2"_s);
        FAIL();
    } catch (const Falla &e) {
        EXPECT_EQ(e.descripcion,
                  u"El interno B2 ya no existe; vuelva a buscarlo en la lista de operaciones."_s);
    }
}

TEST_P(DocumentoDeDeclaracion, AnOperationWithoutItemsIsADocumentToo) {
    for (const char *tabla :
         {"item", "groupsubitems", "itemliq", "itemventaja", "iteminfo", "descargas", "liqcero"})
        ejecutar(u"delete from "_s + QLatin1String(tabla) + u" where interno = 'A1'"_s);
    const QByteArray d = documento();
    EXPECT_TRUE(d.contains("<items/>")) << d.toStdString();
    EXPECT_EQ(DefectoDelDocumento(d), QString());
}

}  // namespace
