// The options of a batch run: what each name fills, and what it does to an operation.

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <functional>

#include "operations/batch.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

QJsonObject objeto(const char *json) {
    return QJsonDocument::fromJson(json).object();
}

struct CasoDeOpcion {
    const char *json;
    std::function<bool(const Opciones &, const EleccionDelTablero &)> cumple;
};

TEST(OpcionesDeLote, EveryNameFillsItsMember) {
    using O = Opciones;
    using T = EleccionDelTablero;
    const auto flag = [](const char *json, bool O::*m, bool valor) {
        return CasoDeOpcion{json, [m, valor](const O &o, const T &) { return o.*m == valor; }};
    };
    const auto control = [](const char *json, bool T::*m, bool valor) {
        return CasoDeOpcion{json, [m, valor](const O &, const T &t) { return t.*m == valor; }};
    };
    const auto texto = [](const char *json, QString O::*m, const char *valor) {
        return CasoDeOpcion{json, [m, valor](const O &o, const T &) { return o.*m == L(valor); }};
    };
    const auto entero = [](const char *json, int O::*m, int valor) {
        return CasoDeOpcion{json, [m, valor](const O &o, const T &) { return o.*m == valor; }};
    };
    const auto numero = [](const char *json, double O::*m, double valor) {
        return CasoDeOpcion{json, [m, valor](const O &o, const T &) { return o.*m == valor; }};
    };
    const auto djai = [](const char *json, const char *valor) {
        return CasoDeOpcion{json, [valor](const O &, const T &t) { return t.opcionDJAI == L(valor); }};
    };
    const CasoDeOpcion casos[] = {
        flag(R"({"QUINDEL":"S"})", &O::QUINDEL, true),
        flag(R"({"QUINDELRAF":"S"})", &O::QUINDELRAF, true),
        flag(R"({"QUINDELRAF":true})", &O::QUINDELRAF, true),
        flag(R"({"GROUPBYART":"S"})", &O::GROUPBYART, true),
        flag(R"({"SbtMantCodart":"S"})", &O::SbtMantCodart, true),
        flag(R"({"SbtMantDatos":"S"})", &O::SbtMantDatos, true),
        flag(R"({"SbtMostrarAsc":"S"})", &O::SbtMostrarAsc, true),
        flag(R"({"FlgIdArtTOOtros":"S"})", &O::FlgIdArtTOOtros, true),
        flag(R"({"SbtNroArtAI":"S"})", &O::SbtNroArtAI, true),
        flag(R"({"NOCALCLIQU":"S"})", &O::NOCALCLIQU, true),
        flag(R"({"NOCALCLIQU":"N"})", &O::NOCALCLIQU, false),
        flag(R"({"EnviarComExt":"S"})", &O::EnviarComExt, true),
        flag(R"({"SbtForzarNroArtAI":"S"})", &O::SbtForzarNroArtAI, true),
        flag(R"({"VendedorOrderxNombre":"S"})", &O::VendedorOrderxNombre, true),
        flag(R"({"SbtFuncionCargaPor":"N"})", &O::SbtFuncionCargaPor, false),
        flag(R"({"Responder_Opciones_Obligatorio":"S"})", &O::Responder_Opciones_Obligatorio, true),
        flag(R"({"OperacionesMostrarTODO":"S"})", &O::OperacionesMostrarTODO, true),
        flag(R"({"NoEnviarDescripcionAlITEM":"S"})", &O::NoEnviarDescripcionAlITEM, true),
        flag(R"({"NoEnviarDescripcionAlITEM":"N"})", &O::NoEnviarDescripcionAlITEM, false),
        flag(R"({"CancelManual":"S"})", &O::CancelManual, true),
        flag(R"({"INSTMP.RestarPerMer":"S"})", &O::RestarPerMer, true),
        flag(R"({"opVDE":"S"})", &O::opVDE, true),
        texto(R"({"NROSUFIJ":"x"})", &O::NROSUFIJ, "x"),
        texto(R"({"MODARTSUB":"S"})", &O::MODARTSUB, "S"),
        texto(R"({"VrySbtDup":"S"})", &O::VrySbtDup, "S"),
        texto(R"({"VrySbtDup":false})", &O::VrySbtDup, "N"),
        texto(R"({"DEVICENAME":"HP"})", &O::DEVICENAME, "HP"),
        texto(R"({"DRIVERNAME":"d"})", &O::DRIVERNAME, "d"),
        texto(R"({"PORT":"p"})", &O::PORT, "p"),
        entero(R"({"MODIFCAT":"S"})", &O::MODIFCAT, 2),
        entero(R"({"VALORCAT":"N"})", &O::VALORCAT, 1),
        entero(R"({"PRIMR100":"S"})", &O::PRIMR100, 2),
        entero(R"({"ARMARITEM":1})", &O::ARMARITEM, 1),
        entero(R"({"ARMARITEM":"1"})", &O::ARMARITEM, 1),
        entero(R"({"ARMARITEM":2})", &O::ARMARITEM, 2),
        entero(R"({"ARMARITEM":3})", &O::ARMARITEM, 2),
        entero(R"({"LISTADO":1})", &O::LISTADO, 1),
        entero(R"({"VERSION":1})", &O::VERSION, 2),
        numero(R"({"IVARIN":21})", &O::IVARIN, 21),
        numero(R"({"IVARNI":"10,5"})", &O::IVARNI, 10.5),
        numero(R"({"DIEMCHINA-IndMaxArancel":20})", &O::DIEMCHINA_IndMaxArancel, 20),
        numero(R"({"DIEMCHINA-PrefPorc":"12.5"})", &O::DIEMCHINA_PrefPorc, 12.5),
        control(R"({"ARMARITEM":1})", &T::opOrdenxNCM, true),
        control(R"({"ARMARITEM":2})", &T::opOrdenxNCM, false),
        control(R"({"opOrdenxNCM":true})", &T::opOrdenxNCM, true),
        control(R"({"opOrdenxCarga":false})", &T::opOrdenxNCM, true),
        control(R"({"ChMulta":true})", &T::ChMulta, true),
        control(R"({"ChCOEF":"S"})", &T::ChCOEF, true),
        control(R"({"ChCOEF":false})", &T::ChCOEF, false),
        control(R"({"chkCalcularServicioDigitalizacion":true})", &T::chkCalcularServicioDigitalizacion, true),
        control(R"({"CALCULAR_SERVICIO_DIGITALIZACION":"S"})", &T::chkCalcularServicioDigitalizacion, true),
        djai(R"({"DJAI_USAR_DESCRIPCION":"MARIA"})", "MARIA"),
        djai(R"({"DJAI_USAR_DESCRIPCION":"CATALOGO"})", "CATALOGO"),
        djai(R"({"DJAI_USAR_DESCRIPCION":"MEZCLA"})", "MEZCLA"),
        djai(R"({"DJAI_USAR_DESCRIPCION":"NO"})", "NO"),
        djai(R"({"DJAI_USAR_DESCRIPCION":""})", "NO"),
    };
    for (const CasoDeOpcion &caso : casos) {
        AppContext ctx;
        EleccionDelTablero tablero;
        QString error;
        EXPECT_TRUE(lote::AplicarOpciones(objeto(caso.json), ctx, tablero, error)) << caso.json;
        EXPECT_TRUE(caso.cumple(ctx.opciones, tablero)) << caso.json;
    }
}

TEST(OpcionesDeLote, WhatIsAbsentStaysAsTheConfigurationLeftIt) {
    AppContext ctx;
    ctx.opciones.ARMARITEM = 1;
    ctx.opciones.IVARIN = 21;
    EleccionDelTablero tablero;
    tablero.opOrdenxNCM = true;
    QString error;
    EXPECT_TRUE(lote::AplicarOpciones(objeto(R"({"NOCALCLIQU":"S"})"), ctx, tablero, error));
    EXPECT_EQ(ctx.opciones.ARMARITEM, 1);
    EXPECT_EQ(ctx.opciones.IVARIN, 21);
    EXPECT_TRUE(tablero.opOrdenxNCM);
}

TEST(OpcionesDeLote, TheDashboardOfAProgramThatStartsFollowsOptionsAndSettings) {
    QTemporaryDir dir;
    AppContext ctx;
    ctx.ajustes = Ajustes(dir.filePath(u"a.ini"_s));
    EleccionDelTablero t = lote::TableroInicial(ctx);
    EXPECT_FALSE(t.opOrdenxNCM);
    EXPECT_FALSE(t.chkCalcularServicioDigitalizacion);
    EXPECT_EQ(t.opcionDJAI, "NO"_L1);
    ctx.opciones.ARMARITEM = 1;
    const QString flags = u"FLAGS"_s;
    ctx.ajustes.Guardar(u"ZENDRA"_s, flags, u"CALCULAR_SERVICIO_DIGITALIZACION"_s, u"S"_s);
    ctx.ajustes.Guardar(u"ZENDRA"_s, flags, u"DJAI_USAR_DESCRIPCION"_s, u"CATALOGO"_s);
    t = lote::TableroInicial(ctx);
    EXPECT_TRUE(t.opOrdenxNCM);
    EXPECT_TRUE(t.chkCalcularServicioDigitalizacion);
    EXPECT_EQ(t.opcionDJAI, "CATALOGO"_L1);
}

class OpcionesDeCorrida : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        configurar("");
    }
    bool conDemostracion() const override { return true; }
    bool servidor() const { return GetParam() == std::string("SQL"); }
    void configurar(const QByteArray &general) const {
        Escribir(tienda->carpeta(), u"Prueba.perfil.cfg"_s,
                 "[GENERAL]\r\nIVARIN=21\r\nIVARNI=10,5\r\n" + general);
    }
    Corrida correr(const char *comando, const char *clave, const char *opciones,
                   const char *respuestas = "[]") {
        if (L(comando) == "armar"_L1)
            ejecutar("update caratula set factura8 = 'S' where interno = '"_L1 + L(clave) + "'"_L1);
        const Corrida c =
            Lote(tienda->carpeta(),
                 {"--perfil", tienda->perfil(), "--ajustes", tienda->carpeta() + "/lote.ini", "--respuestas",
                  Escribir(tienda->carpeta(), u"r.json"_s, respuestas), "--opciones",
                  Escribir(tienda->carpeta(), u"o.json"_s, opciones), L(comando), L(clave)});
        EXPECT_EQ(c.estado, 0) << c.errores.toStdString() << c.textos().join('\n').toStdString();
        return c;
    }
    QString dato(const char *que, const char *clave, const char *cola = "") {
        return valor("select "_L1 + L(que) + " where interno = '"_L1 + L(clave) + "'"_L1 + L(cola));
    }
};

TEST_P(OpcionesDeCorrida, ARMARITEMNumbersByPositionOrByEntry) {
    correr("armar", "IC-2026-0001", R"({"ARMARITEM":1})");
    EXPECT_EQ(dato("ncm from item", "IC-2026-0001", " and id = 1"),
              dato("min(ncm) as n from item", "IC-2026-0001", " and id <> 0"));
    correr("armar", "IC-2026-0001", R"({"ARMARITEM":2})");
    EXPECT_EQ(dato("ncm from item", "IC-2026-0001", " and id = 1"), "8413.70.10.100L"_L1);
}

TEST_P(OpcionesDeCorrida, NOCALCLIQULeavesTheDutiesEmptyAndOverridesTheConfiguration) {
    correr("armar", "IT-2026-0003", R"({"NOCALCLIQU":"S"})");
    EXPECT_EQ(dato("count(*) as n from itemliq", "IT-2026-0003"), "0"_L1);
    EXPECT_NE(dato("count(*) as n from item", "IT-2026-0003"), "0"_L1);
    // From the configuration file when the options do not tell it.
    correr("armar", "IT-2026-0003", "{}");
    EXPECT_NE(dato("count(*) as n from itemliq", "IT-2026-0003"), "0"_L1);
    configurar("NOCALCLIQU=S\r\n");
    correr("armar", "IT-2026-0003", "{}");
    EXPECT_EQ(dato("count(*) as n from itemliq", "IT-2026-0003"), "0"_L1);
    correr("armar", "IT-2026-0003", R"({"NOCALCLIQU":"N"})");
    EXPECT_NE(dato("count(*) as n from itemliq", "IT-2026-0003"), "0"_L1);
}

TEST_P(OpcionesDeCorrida, VrySbtDupFoldsGroupsWhosePricesDifferBelowACent) {
    // Two lines of the same bearing: 1.35 and, rounded otherwise in the invoice, 1.354.
    const QString linea = valor(
        u"select max(id) as n from subitems where interno = 'IC-2026-0001' and idarticulo = "
        "'RB-6201'"_s);
    ejecutar("update subitems set preciounitario = 1.354 where id = "_L1 + linea);
    correr("armar", "IC-2026-0001", R"({"VrySbtDup":"N"})");
    const int sin = dato("count(*) as n from groupsubitems", "IC-2026-0001").toInt();
    correr("armar", "IC-2026-0001", R"({"VrySbtDup":"S"})");
    EXPECT_EQ(dato("count(*) as n from groupsubitems", "IC-2026-0001").toInt(), sin - 1);
    EXPECT_EQ(
        dato("count(*) as n from idrel", "IC-2026-0001", (" and idsub = "_L1 + linea).toLatin1().constData()),
        "1"_L1);
}

TEST_P(OpcionesDeCorrida, FlgIdArtTOOtrosTakesTheFreeCodeInTheFileStoresLink) {
    ejecutar(u"update subitems set otros = 'OTRO' where interno = 'IT-2026-0003'"_s);
    correr("armar", "IT-2026-0003", "{}");
    EXPECT_EQ(dato("count(*) as n from groupsubitems", "IT-2026-0003", " and idarticulo = 'OTRO'"), "0"_L1);
    correr("armar", "IT-2026-0003", R"({"FlgIdArtTOOtros":"S"})");
    const int todos = dato("count(*) as n from groupsubitems", "IT-2026-0003").toInt();
    const int otros =
        dato("count(*) as n from groupsubitems", "IT-2026-0003", " and idarticulo = 'OTRO'").toInt();
    if (servidor()) {
        // Only the group of several lines, which is linked row by row.
        EXPECT_EQ(otros, 1);
    } else {
        EXPECT_EQ(otros, todos);
    }
}

TEST_P(OpcionesDeCorrida, QUINDELRAFTiesItemsOfTypeDToTheOneOfTypeG) {
    ejecutar(u"update subitems set tipoitem = 'D' where interno = 'IT-2026-0003'"_s);
    ejecutar(u"update subitems set tipoitem = 'G' where interno = 'IT-2026-0003' and idarticulo = 'PE-CR'"_s);
    Corrida c = correr("armar", "IT-2026-0003", "{}");
    EXPECT_EQ(dato("count(*) as n from item", "IT-2026-0003", " and itemasociado = '001'"), "0"_L1);
    c = correr("armar", "IT-2026-0003", R"({"QUINDELRAF":"S"})");
    EXPECT_TRUE(
        c.textos().contains("Se establecio como ITEM RELACIONADO el 001 en todos los items tipo D"_L1))
        << c.textos().join('\n').toStdString();
    EXPECT_NE(dato("count(*) as n from item", "IT-2026-0003", " and itemasociado = '001'"), "0"_L1);
}

TEST_P(OpcionesDeCorrida, ChMultaAddsTheFine) {
    correr("armar", "IT-2026-0003", R"({"ChMulta":false})");
    EXPECT_EQ(dato("count(*) as n from itemliq", "IT-2026-0003", " and idconceptos = '041'"), "0"_L1);
    correr("armar", "IT-2026-0003", R"({"ChMulta":true})");
    EXPECT_NE(dato("count(*) as n from itemliq", "IT-2026-0003", " and idconceptos = '041'"), "0"_L1);
}

TEST_P(OpcionesDeCorrida, TheDigitalServiceIsConcept520OfItemOneAndIsKeptForTheNextStart) {
    correr("armar", "IC-2026-0001", R"({"chkCalcularServicioDigitalizacion":false})");
    EXPECT_EQ(dato("count(*) as n from itemliq", "IC-2026-0001", " and idconceptos = '520'"), "0"_L1);
    correr("armar", "IC-2026-0001", R"({"chkCalcularServicioDigitalizacion":true})");
    EXPECT_EQ(dato("max(iditem) as n from itemliq", "IC-2026-0001", " and idconceptos = '520'"), "1"_L1);
    // The dashboard's box starts as it was left.
    correr("armar", "IC-2026-0001", "{}");
    EXPECT_EQ(dato("max(iditem) as n from itemliq", "IC-2026-0001", " and idconceptos = '520'"), "1"_L1);
}

TEST_P(OpcionesDeCorrida, ChCOEFTakesTheDutyOutOfTheRefundOfAnExport) {
    correr("armar", "EC-2026-0002", "{}");
    // Refund of 7 % of 107,467.50: 7,522.73. With the duty of 4.5 % inside the value the coefficient is
    // 1 / 1.045 = 0.95694, and 7 % of 107,467.50 * 0.95694 is 7,198.79.
    const std::pair<const char *, const char *> casos[] = {{R"({"ChCOEF":false})", "601 7522,73"},
                                                           {R"({"ChCOEF":true})", "611 7198,79"}};
    for (const auto &[opciones, esperado] : casos) {
        const QJsonObject r = correr("liquidar", "EC-2026-0002", opciones).resultado();
        QString reintegro;
        for (const QJsonValue &v : r.value("conceptos"_L1).toArray())
            if (v.toObject().value("pgc"_L1).toString() == "C"_L1)
                reintegro = v.toObject().value("numero"_L1).toString() + QLatin1Char(' ') +
                            v.toObject().value("total"_L1).toString();
        EXPECT_EQ(reintegro.toStdString(), esperado);
    }
    // An import knows no coefficient.
    correr("armar", "IC-2026-0001", "{}");
    const QString sin =
        correr("liquidar", "IC-2026-0001", R"({"ChCOEF":false})").resultado().value("totalP"_L1).toString();
    EXPECT_EQ(
        correr("liquidar", "IC-2026-0001", R"({"ChCOEF":true})").resultado().value("totalP"_L1).toString(),
        sin);
}

TEST_P(OpcionesDeCorrida, EachSourceOfDescriptionsOfADjai) {
    const L advertencia("ADVERTENCIA: El sistema no env");
    const auto advierte = [&advertencia](const Corrida &c) {
        for (const QString &t : c.textos())
            if (t.startsWith(advertencia)) return true;
        return false;
    };
    EXPECT_TRUE(advierte(correr("armar", "DJAI-2026-0004", R"({"NoEnviarDescripcionAlITEM":"S"})")));
    EXPECT_EQ(dato("count(*) as n from item", "DJAI-2026-0004", " and id<>0 and descripcion <> ''"), "0"_L1);
    EXPECT_FALSE(advierte(correr("armar", "DJAI-2026-0004", R"({"DJAI_USAR_DESCRIPCION":"MARIA"})")));
    EXPECT_NE(dato("count(*) as n from item", "DJAI-2026-0004", " and id<>0 and descripcion <> ''"), "0"_L1);
    // What was chosen last is chosen at the next start.
    EXPECT_FALSE(advierte(correr("armar", "DJAI-2026-0004", "{}")));
    EXPECT_FALSE(advierte(correr("armar", "DJAI-2026-0004", R"({"DJAI_USAR_DESCRIPCION":"CATALOGO"})")));
    EXPECT_EQ(dato("count(*) as n from item", "DJAI-2026-0004", " and id<>0 and descripcion <> ''"),
              dato("count(*) as n from item", "DJAI-2026-0004", " and id<>0"));
    const Corrida c = correr("armar", "DJAI-2026-0004", R"({"DJAI_USAR_DESCRIPCION":"MEZCLA"})");
    EXPECT_EQ(c.resultado().value("armado"_L1).toString(), servidor() ? "SI"_L1 : "NO"_L1);
    EXPECT_EQ(c.resultado().value("corrida"_L1).toBool(), servidor());
    if (!servidor()) {
        EXPECT_TRUE(
            c.textos().value(0).startsWith("No puede usar la opcion DJAI - MEZCLAR DESCRIPCIONES"_L1));
    }
}

EN_AMBOS_STORES(OpcionesDeCorrida);

}  // namespace
