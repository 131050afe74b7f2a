// The lists of the lines of an operation: rows, order, sums.

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "frame/entities.h"
#include "outputs/lists.h"
#include "tests/lists/filas.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using listas::BuscarLista;
using listas::Lista;

class ListasDeLineas : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into caratula (interno,idsubreg,factura7,fobcoddivisas) values "
            "('OP1','ic04','O''HIGGINS S.A.','DOL'),('OP2',null,null,null)"_s);
        // Keyed out of the order of their positions; the second and the fourth share one, the last has it in
        // small letters.
        linea(u"'A-2','Bielas','8409.91.12.100G','07',10,1.5,15,4.25,'203','2','07',10,'F-1'"_s);
        linea(u"'A-1','Bomba d''agua','8413.70.10.100L','07',2,118.4,236.8,9.1,'438','2','07',2,'F-1'"_s);
        linea(u"'','Junta','8409.91.12.100G','01',0.105,38.60005,4.05,0.105,null,'','01',0.11,null"_s);
        linea(u"null,null,'8413.70.10.100l','07',1,0.1,0.1,0,'438','2','',null,'F-2'"_s);
        ejecutar(u"insert into subitems (interno,ncm,fob) values ('OP9','0101.21.00.000A',77)"_s);
    }
    void linea(const QString &valores) {
        ejecutar(
            "insert into subitems (interno,idarticulo,descripcion,ncm,idunidad,cantidad,preciounitario,fob,"
            "kgneto,idpais,estadomerc,estadistica,valorrelacionestadistica,factura_nro) values ('OP1',"_L1 +
            valores + ")"_L1);
    }
    papel::Tabla armar(const char *nombre, const QString &clave = u"OP1"_s) {
        return BuscarLista(QLatin1String(nombre))->armar(*ctx, clave);
    }
};
EN_AMBOS_STORES(ListasDeLineas);

TEST_P(ListasDeLineas, GoByTheirNumberAndEndInTheirTotals) {
    const papel::Tabla t = armar("lineas");
    EXPECT_EQ(t.titulo, u"Líneas de la operación"_s);
    EXPECT_EQ(t.subtitulo, u"Operación OP1 - IC04 - O'HIGGINS S.A. - FOB en DOL - 4 líneas"_s);
    EXPECT_EQ(t.nombre, u"Lineas OP1"_s);
    EXPECT_EQ(t.orientacion, papel::Orientacion::Vertical);
    // FOB 15 + 236.8 + 4.05 + 0.1 = 255.95. Quantities in units and in kilograms make no sum.
    EXPECT_EQ(filasDe(t),
              "Línea|Artículo|Descripción|Posición|Un.|Cantidad|Precio unit.|FOB\n"
              "1|A-2|Bielas|8409.91.12.100G|07|10|1.5|15\n"
              "2|A-1|Bomba d'agua|8413.70.10.100L|07|2|118.4|236.8\n"
              "3||Junta|8409.91.12.100G|01|0.105|38.60005|4.05\n"
              "4|<null>|<null>|8413.70.10.100l|07|1|0.1|0.1\n"
              "Total: |||||||255.95");
}

TEST_P(ListasDeLineas, LyingTheyHaveEveryColumn) {
    const papel::Tabla t = armar("lineas-horizontal");
    EXPECT_EQ(t.orientacion, papel::Orientacion::Horizontal);
    // Net kilos 4.25 + 9.1 + 0.105 + 0 = 13.455.
    EXPECT_EQ(filasDe(t),
              "Línea|Artículo|Descripción|Posición|Un.|Cantidad|Precio unit.|FOB|Kg neto|Origen|Estado|"
              "Cant. estad.|Un.est.|Factura\n"
              "1|A-2|Bielas|8409.91.12.100G|07|10|1.5|15|4.25|203|2|10|07|F-1\n"
              "2|A-1|Bomba d'agua|8413.70.10.100L|07|2|118.4|236.8|9.1|438|2|2|07|F-1\n"
              "3||Junta|8409.91.12.100G|01|0.105|38.60005|4.05|0.105|<null>||0.11|01|<null>\n"
              "4|<null>|<null>|8413.70.10.100l|07|1|0.1|0.1|0|438|2|<null>||F-2\n"
              "Total: |||||||255.95|13.455|||||");
}

TEST_P(ListasDeLineas, ByPositionEachHasItsQuantityKilosAndFob) {
    const papel::Tabla t = armar("posiciones");
    EXPECT_EQ(t.titulo, u"Líneas por posición"_s);
    EXPECT_EQ(t.nombre, u"Posiciones OP1"_s);
    // 8409: 10 units and 0.105 kg are no quantity; kilos 4.25 + 0.105 = 4.355; FOB 15 + 4.05 = 19.05.
    // 8413, in capitals or not: 2 + 1 units, FOB 236.8 + 0.1.
    EXPECT_EQ(filasDe(t),
              "Línea|Artículo|Descripción|Posición|Un.|Cantidad|FOB|Kg neto\n"
              "Posición 8409.91.12.100G: \n"
              "1|A-2|Bielas|8409.91.12.100G|07|10|15|4.25\n"
              "3||Junta|8409.91.12.100G|01|0.105|4.05|0.105\n"
              "Subtotal 8409.91.12.100G: ||||||19.05|4.355\n"
              "Posición 8413.70.10.100L: \n"
              "2|A-1|Bomba d'agua|8413.70.10.100L|07|2|236.8|9.1\n"
              "4|<null>|<null>|8413.70.10.100L|07|1|0.1|0\n"
              "Subtotal 8413.70.10.100L: |||||3|236.9|9.1\n"
              "Total: ||||||255.95|13.455");
}

TEST_P(ListasDeLineas, LinesWithoutAPositionAreAGroupOfTheirOwn) {
    ejecutar(u"update subitems set ncm = null where idarticulo = 'A-2'"_s);
    const papel::Tabla t = armar("posiciones");
    EXPECT_EQ(t.filas[0].rotulo, u"Posición (sin dato)"_s);
    EXPECT_EQ(t.filas[1].celdas[0].toDouble(), 1);
}

TEST_P(ListasDeLineas, ByPositionLyingTheyHaveEveryColumnToo) {
    const papel::Tabla t = armar("posiciones-horizontal");
    EXPECT_EQ(t.orientacion, papel::Orientacion::Horizontal);
    EXPECT_EQ(t.columnas.size(), armar("lineas-horizontal").columnas.size());
    const QStringList filas = QString::fromStdString(filasDe(t)).split(u'\n');
    EXPECT_EQ(filas[4].toStdString(), "Subtotal 8409.91.12.100G: |||||||19.05|4.355|||||");
}

TEST_P(ListasDeLineas, AQuantityOfOneUnitIsSummed) {
    ejecutar(u"update subitems set idunidad = '07' where interno = 'OP1'"_s);
    // 10 + 2 + 0.105 + 1.
    EXPECT_EQ(filasDe(armar("lineas")).substr(filasDe(armar("lineas")).rfind('\n') + 1),
              "Total: |||||13.105||255.95");
    EXPECT_NE(filasDe(armar("posiciones")).find("Subtotal 8409.91.12.100G: |||||10.105|19.05|4.355"),
              std::string::npos);
}

TEST_P(ListasDeLineas, SumsAreOfWhatIsStoredToTheCent) {
    ejecutar(u"delete from subitems where interno = 'OP1'"_s);
    for (int n = 0; n < 10; ++n)
        linea(u"'A','B','8409.91.12.100G','07',1,0.1,0.1,0.1,null,null,null,0,null"_s);
    const papel::Tabla t = armar("lineas-horizontal");
    // Ten times 0.1, which binary adding makes 0.9999999999999999.
    EXPECT_EQ(t.filas.back().celdas[7].toDouble(), 1.0);
    EXPECT_EQ(t.filas.back().celdas[8].toDouble(), 1.0);
}

TEST_P(ListasDeLineas, AnOperationWithoutLinesMakesAListWithoutRows) {
    for (const char *nombre : {"lineas", "lineas-horizontal", "posiciones", "posiciones-horizontal"}) {
        EXPECT_TRUE(armar(nombre, u"OP2"_s).filas.empty()) << nombre;
        EXPECT_TRUE(armar(nombre, u"NO"_s).filas.empty()) << nombre;
    }
}

TEST_P(ListasDeLineas, AnOperationThatHasOnlyLinesIsCalledByItsKeyAlone) {
    EXPECT_EQ(armar("lineas", u"OP9"_s).subtitulo, u"Operación OP9 - 1 línea"_s);
}

TEST_P(ListasDeLineas, TwoStatementsMakeAListWhateverTheNumberOfLines) {
    for (int n = 0; n < 200; ++n) linea(u"'A','B','8409.91.12.100G','07',1,1,1,1,'203','2','07',1,'F'"_s);
    for (const Lista &l : listas::Listas()) {
        if (l.clave != listas::Clave::Operacion || l.rotulo.isEmpty()) continue;
        int sentencias = 0;
        Conexion::fijarTraza([&sentencias](const TrazaDeSentencia &) { ++sentencias; });
        const papel::Tabla t = l.armar(*ctx, u"OP1"_s);
        Conexion::fijarTraza({});
        EXPECT_EQ(sentencias, 2) << l.nombre.toStdString() << ": its lines, and its operation";
        EXPECT_GE(t.filas.size(), 204U);
    }
}

TEST_P(ListasDeLineas, OnPaperTextsAreAsWideAsTheyAreAndNumbersHaveTheirMasks) {
    const papel::Reporte r = papel::ReporteDe(armar("lineas"), u',');
    ASSERT_GE(r.renglones.size(), 5U);
    EXPECT_EQ(
        r.renglones[1].texto.toStdString(),
        " 0002  A-1       Bomba d'agua  8413.70.10.100L  07         02,00      118,40000        236,80");
    EXPECT_EQ(
        r.renglones.back().texto.toStdString(),
        "Total                                                                                  255,95");
}

}  // namespace
