// The catalogue, the packages and the operations as lists, and what the user is shown of a list.

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "frame/paper/report.h"
#include "operations/browserlist.h"
#include "outputs/lists.h"
#include "tests/lists/filas.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using listas::BuscarLista;

class OtrasListas : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = u',';
        ctx->dialogos.vistaPrevia = [this](const papel::Documento &d) { vistos.push_back(d); };
        ejecutar(
            u"insert into catarticulos (idcatalogo,idarticulo,descripcion,ncm,idunidad,preciounitario,idpais)"
            " values ('CAT','b-2','Bomba','8413.70.10.100L','07',118.4,'438'),"
            "('CAT','B-10','Junta d''agua','8484.10.00.000Z','01',0.12345,null),"
            "('CAT','a-1',null,null,null,null,null),"
            "('CAT','B-2','La misma','8413.70.10.100L','07',1,'203'),"
            "('OTRO','Z','Otra','0101.21.00.000A','07',1,'203'),"
            "('D''OR','Z','De otro','0101.21.00.000A','07',1,'203')"_s,
            entidad::catalogos);
        operacion(u"'C-3','2026-03-01 10:00:00','ic04','BROKER','CLIENTE 2','VEND',100,'DOL','N'"_s);
        operacion(u"'a-1','2026-01-05 09:14:00','EC01','BROKER','CLIENTE 1','',1234.567,'060','S'"_s);
        operacion(u"'B-2',null,'ZZ99','OTRO','CLIENTE 2','VEND',0,null,null"_s);
        ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('IC04','I','I'),('EC01','E','E')"_s,
                 entidad::systablas);
    }
    void operacion(const QString &valores) {
        ejecutar(
            "insert into caratula (interno,fechaalta,idsubreg,factura3,factura7,factura2,fobdivisas,"
            "fobcoddivisas,factura8) values ("_L1 +
            valores + ")"_L1);
    }
    papel::Tabla armar(const char *nombre, const QString &clave) {
        return BuscarLista(QLatin1String(nombre))->armar(*ctx, clave);
    }
    std::vector<papel::Documento> vistos;
};
EN_AMBOS_STORES(OtrasListas);

TEST_P(OtrasListas, TheArticlesOfACatalogueGoByTheirCode) {
    const papel::Tabla t = armar("catalogo", u"cat"_s);
    EXPECT_EQ(t.titulo, u"Catálogo de artículos"_s);
    EXPECT_EQ(t.subtitulo, u"Catálogo cat - 4 artículos"_s);
    EXPECT_EQ(filasDe(t),
              "Artículo|Descripción|Posición|Un.|Precio unit.|País\n"
              "a-1|<null>|<null>|<null>|<null>|<null>\n"
              "B-10|Junta d'agua|8484.10.00.000Z|01|0.12345|<null>\n"
              "B-2|La misma|8413.70.10.100L|07|1|203\n"
              "b-2|Bomba|8413.70.10.100L|07|118.4|438");
}

TEST_P(OtrasListas, ACatalogueIsFoundByAnyCode) {
    EXPECT_EQ(armar("catalogo", u"D'OR"_s).filas.size(), 1U);
    EXPECT_TRUE(armar("catalogo", u"NO' or '1'='1"_s).filas.empty());
    EXPECT_TRUE(armar("catalogo", u""_s).filas.empty());
}

TEST_P(OtrasListas, PackagesAreOneRowOfDataAndACardOnPaper) {
    ejecutar(u"insert into codemb (id,descripcion) values ('11','PALLETS')"_s);
    ejecutar(u"insert into via (id,descripcion) values ('8','ACUATICO')"_s);
    ejecutar(u"insert into pais (id,descripcion) values ('438','ALEMANIA')"_s, entidad::systablas);
    ejecutar(
        u"update caratula set bulnro = '14', buldes = '14 PALLETS', bulcod = '11', bultip = 'B', "
        "bulpes = 2908.225, marcabul = 'D''OR 1/14', via = '8', trans = 'CAP SAN MARTIN', bandera = '438', "
        "cuittrans = '30571234080', factura10 = 'AGENCIA', venemb = '30-12-26' where interno = 'C-3'"_s);
    const papel::Tabla t = armar("bultos", u"C-3"_s);
    EXPECT_EQ(filasDe(t),
              "Número de bultos|Bultos declarados|Embalaje|Tipo de embalaje|Kilos brutos|Marcas|Vía|"
              "Medio de transporte|Bandera|CUIT del agente|Agente de transporte|Vencimiento de embarque\n"
              "14|14 PALLETS|11 PALLETS|B|2908.225|D'OR 1/14|8 ACUATICO|CAP SAN MARTIN|438 ALEMANIA|"
              "30571234080|AGENCIA|2026-12-30");
    EXPECT_EQ(t.subtitulo, u"Operación C-3 - IC04 - CLIENTE 2"_s);
    const papel::Reporte r = BuscarLista(u"bultos"_s)->hoja(t, u',');
    EXPECT_TRUE(r.renglones.empty());
    ASSERT_EQ(r.ficha.size(), 12U);
    EXPECT_EQ(r.ficha[4], std::pair(u"Kilos brutos"_s, u"2908,23"_s));
    EXPECT_EQ(r.ficha[11], std::pair(u"Vencimiento de embarque"_s, u"30/12/2026"_s));
    EXPECT_TRUE(registro.mensajes.empty()) << "a code that nothing describes is not told here";
}

TEST_P(OtrasListas, AnOperationWithoutPackagesMakesNoCard) {
    ejecutar(u"update caratula set bulpes = 0, marcabul = ' ' where interno = 'C-3'"_s);
    EXPECT_TRUE(armar("bultos", u"C-3"_s).filas.empty()) << "a weight of zero is none";
    EXPECT_TRUE(armar("bultos", u"NO"_s).filas.empty());
}

TEST_P(OtrasListas, OperationsGoByTheirKeyWhateverTheOptionsSay) {
    ctx->opciones.LISTADO = 1;
    for (int n = 100; n < 160; ++n) operacion(u"'Z-%1',null,null,null,null,null,null,null,null"_s.arg(n));
    const papel::Tabla t = ListaDeOperaciones().armar(*ctx, {});
    const QStringList filas = QString::fromStdString(filasDe(t)).split(u'\n');
    ASSERT_EQ(filas.size(), 1 + 63 + 1);
    EXPECT_EQ(t.subtitulo, u"Sin filtros - 63 operaciones"_s);
    EXPECT_EQ(filas.mid(0, 5).join(u'\n').toStdString(),
              "Interno|Fecha|Régimen|Despachante|Cliente|Vendedor|FOB|Div.|Estado\n"
              "a-1|2026-01-05|EC01|BROKER|CLIENTE 1||1234.567|060|A armar\n"
              "B-2|<null>|ZZ99|OTRO|CLIENTE 2|VEND|0||Nueva\n"
              "C-3|2026-03-01|IC04|BROKER|CLIENTE 2|VEND|100|DOL|Armada\n"
              "Z-100|<null>|||||0||Nueva");
    EXPECT_EQ(filas.last().toStdString(), "Total: 63 operaciones: ||||||||");
}

TEST_P(OtrasListas, OperationsGroupedAsInTheBrowserHaveTheirCount) {
    const FiltroDeInternos filtro;
    const std::vector<FilaDeInterno> filas = LeerInternos(*ctx, filtro);
    const papel::Tabla t = TablaDeInternos(*ctx, filas, filtro, AgrupacionesDeInternos()[3]);
    EXPECT_EQ(t.subtitulo, u"Sin filtros - Por Cliente - 3 operaciones"_s);
    EXPECT_EQ(filasDe(t),
              "Interno|Fecha|Régimen|Despachante|Cliente|Vendedor|FOB|Div.|Estado\n"
              "CLIENTE 1: ||||||||\n"
              "a-1|2026-01-05|EC01|BROKER|CLIENTE 1||1234.567|060|A armar\n"
              "1 operación: ||||||||\n"
              "CLIENTE 2: ||||||||\n"
              "B-2|<null>|ZZ99|OTRO|CLIENTE 2|VEND|0||Nueva\n"
              "C-3|2026-03-01|IC04|BROKER|CLIENTE 2|VEND|100|DOL|Armada\n"
              "2 operaciones: ||||||||\n"
              "Total: 3 operaciones: ||||||||");
    const papel::Tabla porTipo = TablaDeInternos(*ctx, filas, filtro, AgrupacionesDeInternos()[1]);
    EXPECT_EQ(porTipo.filas[0].rotulo, u"Exportacion"_s);
    EXPECT_EQ(porTipo.filas[3].rotulo, u"Importacion"_s);
    EXPECT_EQ(porTipo.filas[6].rotulo, u"Otros"_s);
    const papel::Tabla porVendedor = TablaDeInternos(*ctx, filas, filtro, AgrupacionesDeInternos()[4]);
    EXPECT_EQ(porVendedor.filas[0].rotulo, u"(sin dato)"_s);
}

TEST_P(OtrasListas, TheLineBelowTheTitleTellsTheFilters) {
    const FiltroDeInternos filtro{u" IC "_s, u"307"_s, u"201"_s, true, QDate(2026, 1, 1), QDate(2026, 1, 31)};
    const papel::Tabla t = TablaDeInternos(*ctx, {FilaDeInterno{}}, filtro, {});
    EXPECT_EQ(t.subtitulo,
              u"Interno IC… - Cliente 307 - Despachante 201 - Creadas del 01/01/2026 al 31/01/2026 - "
              "1 operación"_s);
    const std::vector<FilaDeInterno> cincuenta(topeDeInternos);
    EXPECT_EQ(TablaDeInternos(*ctx, cincuenta, {}, {}).subtitulo,
              u"Sin filtros - las primeras 50 operaciones"_s);
    ctx->opciones.OperacionesMostrarTODO = true;
    EXPECT_EQ(TablaDeInternos(*ctx, cincuenta, {}, {}).subtitulo, u"Sin filtros - 50 operaciones"_s);
}

TEST_P(OtrasListas, TheCodesOfOperationsAreAskedOnceEach) {
    for (int n = 100; n < 160; ++n) operacion(u"'Z-%1',null,'IC04',null,null,null,null,null,null"_s.arg(n));
    int sentencias = 0;
    Conexion::fijarTraza([&sentencias](const TrazaDeSentencia &) { ++sentencias; });
    ListaDeOperaciones().armar(*ctx, {});
    Conexion::fijarTraza({});
    // The operations, what was handed over of them, and the direction of IC04, EC01 and ZZ99; none has a
    // customs house.
    EXPECT_EQ(sentencias, 5);
}

TEST_P(OtrasListas, AListIsShownAsADocumentWithItsData) {
    listas::VerLista(*ctx, *BuscarLista(u"catalogo"_s), u"CAT"_s);
    ASSERT_EQ(vistos.size(), 1U);
    EXPECT_EQ(vistos[0].reporte.titulo, u"Catálogo de artículos"_s);
    ASSERT_TRUE(vistos[0].tabla.has_value());
    EXPECT_EQ(vistos[0].tabla->filas.size(), 4U);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(OtrasListas, AListWithoutRowsIsOneSentenceAndNoPaper) {
    listas::VerLista(*ctx, *BuscarLista(u"catalogo"_s), u"NO"_s);
    listas::VerLista(*ctx, *BuscarLista(u"lineas"_s), u"C-3"_s);
    listas::VerListaDeBultos(*ctx, u"C-3"_s);
    ListarInternos(*ctx, {}, {}, {});
    EXPECT_TRUE(vistos.empty());
    ASSERT_EQ(registro.mensajes.size(), 4U);
    EXPECT_EQ(registro.mensajes[0].texto, u"El catálogo NO no tiene artículos; revise el código."_s);
    EXPECT_EQ(registro.mensajes[1].texto,
              u"La operación C-3 no tiene líneas; cárguelas antes de pedir la lista."_s);
    EXPECT_EQ(registro.mensajes[2].texto,
              u"La operación C-3 no tiene bultos ni transporte; cárguelos antes de pedir la lista."_s);
    EXPECT_EQ(registro.mensajes[3].texto,
              u"No hay operaciones para listar; búsquelas con otros filtros o cree la primera."_s);
    for (const Mensaje &m : registro.mensajes) EXPECT_EQ(m.icono, Icono::Informacion);
}

TEST_P(OtrasListas, ThePickOffersTheFourListsAndTheCatalogueOfTheLineInHand) {
    const QStringList cuatro{u"Líneas, en hoja vertical"_s,
                             u"Líneas con todas sus columnas, en hoja horizontal"_s,
                             u"Por posición con subtotales, en hoja vertical"_s,
                             u"Por posición con subtotales y todas sus columnas, en hoja horizontal"_s};
    listas::ElegirListaDeLineas(*ctx, u"C-3"_s, {});
    registro.indices = {4};
    listas::ElegirListaDeLineas(*ctx, u"C-3"_s, u"CAT"_s);
    ASSERT_EQ(registro.elecciones.size(), 2U);
    EXPECT_EQ(registro.elecciones[0].titulo, u"Listados de la operación C-3"_s);
    EXPECT_EQ(registro.elecciones[0].filas, cuatro);
    EXPECT_EQ(registro.elecciones[1].filas, cuatro + QStringList{u"Catálogo de artículos CAT"_s});
    ASSERT_EQ(vistos.size(), 1U) << "a pick that is left shows nothing";
    EXPECT_EQ(vistos[0].reporte.nombre, u"Catalogo CAT"_s);
    registro.indices = {5};
    listas::ElegirListaDeLineas(*ctx, u"C-3"_s, u"CAT"_s);
    EXPECT_EQ(vistos.size(), 1U) << "and so does one that closes with nothing chosen";
}

}  // namespace
