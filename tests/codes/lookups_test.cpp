// Descriptions and codes behind the coded fields.

#include <gtest/gtest.h>

#include "header/codes.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Busquedas : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        const char *const filas[] = {
            "SYSTABLAS|insert into sta (id,descripcion,cstaimpexp) values ('IC04','Consumo','I')",
            "SYSTABLAS|insert into aduana (id,descripcion) values ('001','BUENOS AIRES')",
            "INTERNOS|insert into tipoemb (id,descripcion) values ('05','CAJA')",
            "INTERNOS|insert into codemb (id,descripcion) values ('10','PALLET')",
            "INTERNOS|insert into via (id,descripcion) values ('4','Aérea')",
            "SYSTABLAS|insert into condiciondeventa (id,descripcion) values ('FOB','Franco a bordo')",
            "INTERNOS|insert into divisas (id,descripcion,imp) values ('060','Euro',1.085)",
            "SYSTABLAS|insert into pais (id,descripcion) values ('200','ARGENTINA')",
            "SYSTABLAS|insert into motivo (id,descripcion) values ('REP','Reparación')",
            "INTERNOS|insert into puertos (cpor,lpor) values ('ARBUE','BUENOS AIRES')",
            "INTERNOS|insert into estadomercaderia (id,descripcion) values ('NU','Nueva')",
            "INTERNOS|insert into unidades (id,descripcion) values ('01','KILOGRAMO')",
            "SYSTABLAS|insert into bancos (id,descripcion) values ('007','GALICIA')",
        };
        for (const char *fila : filas) {
            const QString texto = QString::fromUtf8(fila);
            ejecutar(texto.section(u'|', 1), texto.section(u'|', 0, 0));
        }
    }
    QString descripcion(const char *clave, const char *codigo, int silencio = 0) {
        aux.clear();
        return BuscarDescripcion(*ctx, L(clave), QString::fromUtf8(codigo), aux, silencio);
    }
    QString id(const char *clave, const char *codigo) {
        aux.clear();
        return BuscarId(*ctx, L(clave), QString::fromUtf8(codigo), aux);
    }
    QString aux;
};

struct CasoDeClave {
    const char *clave;
    const char *codigo;
    const char *descripcion;  ///< null: not offered
    const char *entidadDescripcion;
    const char *tabla;
    const char *entidadId;  ///< null: not offered
};
const CasoDeClave claves[] = {
    {"SUBREG", "IC04", "Consumo", "SYSTABLAS", "STA", "INTERNOS"},
    {"ADUANA", "001", "BUENOS AIRES", "SYSTABLAS", "ADUANA", "INTERNOS"},
    {"TIPOEMB", "05", "CAJA", "INTERNOS", "TIPOEMB", "INTERNOS"},
    {"CODEMB", "10", "PALLET", "INTERNOS", "CODEMB", "INTERNOS"},
    {"VIA", "4", "Aérea", "INTERNOS", "via", "INTERNOS"},
    {"CODVENTA", "FOB", "Franco a bordo", "SYSTABLAS", "CONDICIONDEVENTA", "SYSTABLAS"},
    {"DIVISAS", "060", "Euro", "INTERNOS", "DIVISAS", "INTERNOS"},
    {"PAIS", "200", "ARGENTINA", "SYSTABLAS", "PAIS", "SYSTABLAS"},
    {"MOTIVO", "REP", "Reparación", "SYSTABLAS", "MOTIVO", "SYSTABLAS"},
    {"ESTADOMERCADERIA", "NU", "Nueva", "INTERNOS", "ESTADOMERCADERIA", "INTERNOS"},
    {"UNIDADES", "01", "KILOGRAMO", "INTERNOS", "UNIDADES", "INTERNOS"},
    {"BANCOS", "007", nullptr, nullptr, "BANCOS", "SYSTABLAS"},
};

TEST_P(Busquedas, EachKeyReadsItsTableThroughTheEntityOfTheService) {
    for (const CasoDeClave &c : claves) {
        SCOPED_TRACE(c.clave);
        {
            const Traza traza;
            EXPECT_EQ(descripcion(c.clave, c.codigo).toStdString(),
                      c.descripcion != nullptr ? c.descripcion : "");
            const QString primera = traza.sentencias().value(0);
            const QString esperada = c.descripcion == nullptr
                                         ? QString()
                                         : u"%1|select descripcion from %2 where id ='%3'"_s.arg(
                                               L(c.entidadDescripcion), L(c.tabla), L(c.codigo));
            EXPECT_EQ(primera.toStdString(), esperada.toStdString());
        }
        const Traza traza;
        EXPECT_EQ(id(c.clave, c.codigo).toStdString(), c.codigo);
        EXPECT_EQ(traza.sentencias().value(0).toStdString(),
                  u"%1|select id from %2 where id ='%3'"_s.arg(L(c.entidadId), L(c.tabla), L(c.codigo))
                      .toStdString());
    }
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Busquedas, APortIsFoundByItsOwnColumns) {
    const Traza traza;
    EXPECT_EQ(descripcion("PUERTO", "ARBUE").toStdString(), "BUENOS AIRES");
    EXPECT_EQ(traza.texto(), "INTERNOS|SELECT LPOR as descripcion FROM PUERTOS where cpor = 'ARBUE'");
}

TEST_P(Busquedas, AnEmptyCodeSendsNothingAndSaysNothing) {
    const Traza traza;
    EXPECT_TRUE(descripcion("PAIS", "").isEmpty());
    EXPECT_TRUE(descripcion("", "200").isEmpty());
    EXPECT_TRUE(id("PAIS", "").isEmpty());
    EXPECT_EQ(traza.texto(), "");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Busquedas, BanksHaveNoDescriptionLookUpTheirServiceIsTheId) {
    {
        const Traza traza;
        EXPECT_TRUE(descripcion("BANCOS", "007").isEmpty());
        EXPECT_EQ(traza.texto(), "");
    }
    EXPECT_EQ(id("BANCOS", "007").toStdString(), "007");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Busquedas, AnUnknownKeyIsNoLookUpAtAll) {
    const Traza traza;
    for (const char *clave : {"VENTAJAS", "MOTIVOS", "MOTIVOSTEMPI", "pais"}) {
        EXPECT_TRUE(descripcion(clave, "200").isEmpty()) << clave;
        EXPECT_TRUE(id(clave, "200").isEmpty()) << clave;
    }
    EXPECT_EQ(traza.texto(), "");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Busquedas, AMissingCodeIsToldInTheServicesOwnWords) {
    EXPECT_TRUE(descripcion("PAIS", "999").isEmpty());
    EXPECT_TRUE(id("ADUANA", "999").isEmpty());
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[0].titulo.toStdString(), "Buscar PAIS");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              "CODIGO INEXISTENTE DE PAIS\r\n\r\nNo se enconto DESCRIPCIÓN para esta CLAVE\r\n\r\n"
              "[CARATULA.BUSCARDESCRIPCION.PAIS]");
    EXPECT_EQ(registro.mensajes[1].texto.toStdString(),
              "CODIGO INEXISTENTE DE ADUANA\r\n\r\nNo se enconto DESCRIPCIÓN para esta CLAVE\r\n\r\n"
              "[CARATULA.BuscarId.ADUANA]");
}

TEST_P(Busquedas, SilenceSuppressesTheWarningAndChangesNothingElse) {
    aux = u"Div"_s;
    EXPECT_TRUE(BuscarDescripcion(*ctx, u"DIVISAS"_s, u"999"_s, aux, 1).isEmpty());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(aux.isEmpty());
    EXPECT_EQ(descripcion("DIVISAS", "060", 1).toStdString(), "Euro");
    // Only 1 silences.
    EXPECT_TRUE(descripcion("PAIS", "999", 2).isEmpty());
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(Busquedas, TheAuxTextBringsTheDirectionOrTheRate) {
    EXPECT_EQ(descripcion("SUBREG", "IC04").toStdString(), "Consumo");
    EXPECT_EQ(aux.toStdString(), "I");
    // 1.085 through the mask 00.000000.
    EXPECT_EQ(descripcion("DIVISAS", "060").toStdString(), "Euro");
    EXPECT_EQ(aux.toStdString(), "01.085000");
    EXPECT_EQ(id("DIVISAS", "060").toStdString(), "060");
    EXPECT_EQ(aux.toStdString(), "01.085000");
}

TEST_P(Busquedas, AStoreErrorGivesTheEmptyTextWithoutAWord) {
    ejecutar(u"drop table pais"_s, u"SYSTABLAS"_s);
    bool reloj = false;
    ctx->dialogos.reloj = [&reloj](bool puesto) { reloj = puesto; };
    EXPECT_TRUE(descripcion("PAIS", "200").isEmpty());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_FALSE(reloj);
}

TEST_P(Busquedas, EnterOnACodedFieldFillsOrEmptiesWhatStandsBesideIt) {
    CampoDeCodigo campo{u"200"_s, {}, {}};
    EXPECT_TRUE(ConfirmarCodigo(*ctx, u"PAIS"_s, campo));
    EXPECT_EQ(campo.descripcion.toStdString(), "ARGENTINA");
    campo.codigo = u"999"_s;
    EXPECT_FALSE(ConfirmarCodigo(*ctx, u"PAIS"_s, campo));
    EXPECT_TRUE(campo.descripcion.isEmpty());
    EXPECT_EQ(campo.codigo.toStdString(), "999");
    EXPECT_EQ(registro.mensajes.size(), 1U);

    campo = {QString(), u"ARGENTINA"_s, {}};
    EXPECT_TRUE(ConfirmarCodigo(*ctx, u"PAIS"_s, campo));
    EXPECT_TRUE(campo.descripcion.isEmpty());

    // The code comes back as stored, whatever the case it was typed in.
    campo = {u"fob"_s, {}, {}};
    EXPECT_TRUE(ConfirmarCodigo(*ctx, u"CODVENTA"_s, campo, ServicioDeCodigo::Id));
    EXPECT_EQ(campo.codigo.toStdString(), "FOB");
}

TEST(CamposDeCodigo, ANumericCodeShorterThanThreeTakesZeros) {
    struct Caso {
        const char *codigo;
        const char *salida;
    };
    const Caso casos[] = {{"2", "002"},   {"60", "060"}, {"007", "007"}, {"1234", "1234"}, {"", ""},
                          {"DOL", "DOL"}, {"A1", "A1"},  {"1,", "1,"},   {"-1", "-1"}};
    for (const Caso &c : casos)
        EXPECT_EQ(RellenarCodigo(QString::fromUtf8(c.codigo)).toStdString(), c.salida) << c.codigo;
    for (const char *campo : {"TxtCoddivfob", "TxtCodDivFlete", "TxtCodDivseguro", "txtDCBancos"})
        EXPECT_TRUE(CampoRellenaCeros(QString::fromUtf8(campo))) << campo;
    EXPECT_FALSE(CampoRellenaCeros(u"TxtSubReg"));
}

TEST(CamposDeCodigo, TheTagNamesTheKey) {
    EXPECT_EQ(ClaveDeEtiqueta(u"LL-PAIS"_s).toStdString(), "PAIS");
    EXPECT_EQ(ClaveDeEtiqueta(u"LL-PAIS#F6"_s).toStdString(), "PAIS");
    EXPECT_EQ(ClaveDeEtiqueta(u"NOENTER"_s).toStdString(), "");
}

TEST_P(Busquedas, ACodedFieldHoldsCapitalsAlsoWhereItsTableDoesNot) {
    ejecutar("insert into pais (id,descripcion) values ('br','BRASIL')", "SYSTABLAS");
    CampoDeCodigo campo{u"br"_s, {}, {}};
    EXPECT_TRUE(ConfirmarCodigo(*ctx, u"PAIS"_s, campo, ServicioDeCodigo::Id));
    EXPECT_EQ(campo.codigo.toStdString(), "BR");
    campo = {u"br"_s, {}, {}};
    EXPECT_TRUE(ConfirmarCodigo(*ctx, u"PAIS"_s, campo));
    EXPECT_EQ((campo.codigo + campo.descripcion).toStdString(), "BRBRASIL");
    campo = {};
    // By the length of the code first: 200, br.
    registro.indices = {1};
    EXPECT_TRUE(ElegirCodigo(*ctx, u"PAIS"_s, campo));
    EXPECT_EQ(campo.codigo.toStdString(), "BR");
    EXPECT_EQ(id("PAIS", "BR").toStdString(), "br") << "the service answers what is stored";
}

EN_AMBOS_STORES(Busquedas);

}  // namespace
