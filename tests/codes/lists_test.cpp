// The pick lists of the code tables.

#include <gtest/gtest.h>

#include "header/ListadoCodigos.h"
#include "header/codes.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Listas : public EnAmbosStores {
 protected:
    QString listar(const char *clave, int fila, const char *auxDeEntrada = "") {
        registro.elecciones.clear();
        registro.indices = {fila};
        codigo = aux = QString();
        aux = QString::fromUtf8(auxDeEntrada);
        return Listar(*ctx, L(clave), codigo, aux);
    }
    std::string vistas() const {
        return registro.elecciones.empty() ? "<none>"
                                           : registro.elecciones.back().filas.join(u'\n').toStdString();
    }
    std::string devueltos(const char *clave) const {
        QStringList textos;
        for (const FilaDeCodigo &f : ListadoCodigosClass(*ctx).Listado(L(clave)).filas)
            textos << f.devuelto + u'|' + f.codigo;
        return textos.join(u'\n').toStdString();
    }
    QString codigo, aux;
};

TEST_P(Listas, SubregimesShowAndAnswerCodeAndDescription) {
    ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('IG','General','E')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('IC04',' Consumo ','I')"_s,
             u"SYSTABLAS"_s);
    // The same code and description twice is one row.
    ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('IC04',' Consumo ','I')"_s,
             u"SYSTABLAS"_s);
    const Traza traza;
    EXPECT_EQ(listar("SUBREG", 1).toStdString(), "IG   General");
    EXPECT_EQ(vistas(), "IC04 Consumo\nIG   General");
    EXPECT_EQ(codigo.toStdString(), "IG");
    EXPECT_EQ(aux.toStdString(), "E");
    EXPECT_EQ(traza.texto(),
              "SYSTABLAS|select distinct id,descripcion from sta order by id,descripcion\n"
              "SYSTABLAS|select cstaimpexp from sta where id = 'IG'");
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].tipo, Eleccion::Tipo::Codigos);
    EXPECT_EQ(registro.elecciones[0].inicial, -1);
}

struct CasoDeLista {
    const char *clave;
    const char *entidad;
    const char *sentencia;
    const char *vistas;
    const char *devueltos;  ///< "text|code" a line
};
const CasoDeLista casosDeLista[] = {
    {"ADUANA", "SYSTABLAS", "select * from ADUANA order by descripcion,id", "BUENOS AIRES\nEZEIZA",
     "001  BUENOS AIRES|001\n073  EZEIZA|073"},
    {"CODEMB", "INTERNOS", "select * from CODEMB order by descripcion,id", "Bolsa (09)\nCaja (05)",
     "09|09\n05|05"},
    {"TIPOEMB", "INTERNOS", "select * from TIPOEMB order by descripcion,id", "Granel (2)\nSuelto (1)",
     "2|2\n1|1"},
    {"VIA", "INTERNOS", "select * from via order by descripcion,id", "1 (Acuática)\n4 (Aérea)", "1|1\n4|4"},
    {"CODVENTA", "SYSTABLAS", "select * from CONDICIONDEVENTA order by id,descripcion",
     "EXW (En fábrica)\nFOB (Franco a bordo)", "EXW|EXW\nFOB|FOB"},
    // The longest codes first.
    {"PAIS", "SYSTABLAS", "select * from PAIS order by len(id) desc,descripcion",
     "ARGENTINA\nBRASIL\nMERCOSUR", "200  ARGENTINA|200\n203  BRASIL|203\n9    MERCOSUR|9"},
    {"BANCOS", "SYSTABLAS", "select * from BANCOS order by descripcion", "GALICIA (007)\nNACION (011)",
     "007|007\n011|011"},
    {"MOTIVOS", "SYSTABLAS", "select * from MOTIVOS order by descripcion", "Feria\nReparación",
     "FE   Feria|FE\nRE   Reparación|RE"},
    {"MOTIVOSTEMPI", "SYSTABLAS",
     "select id,descripcion,dias from MOTTMP where impexpo = 'I' order by descripcion",
     "Ensayo EN\nPerfeccionamiento DTO.1439/96", "EN|180|EN|180\nDTO.1439/96|720|DTO.1439/96|720"},
    {"MOTIVOSTEMPE", "SYSTABLAS",
     "select id,descripcion,dias from MOTTMP where impexpo = 'E' order by descripcion", "Exposición XP",
     "XP|360|XP|360"},
    {"ESTADOMERCADERIA", "INTERNOS", "select id , descripcion from ESTADOMERCADERIA order by id",
     "NU (Nueva)\nUS (Usada)", "NU|NU\nUS|US"},
    {"UNIDADES", "SYSTABLAS", "select id,' ' + descripcion AS descr from UNIDADES order by descripcion ",
     " KILOGRAMO\n METRO", "01    KILOGRAMO|01\n02    METRO|02"},
    {"PUERTO", "INTERNOS",
     "select cpor as id,lpor as descripcion from puertos where cpor is not null and lpor is not null  order "
     "by lpor",
     "BUENOS AIRES\nSANTOS", "ARBUE BUENOS AIRES|ARBUE\nBRS   SANTOS|BRS"},
    // 1.085 and 1 through the mask 000.000000; descriptions padded to 25.
    {"DIVISAS", "INTERNOS", "select * from DIVISAS order by descripcion,id", "Dólar estadounidense\nEuro",
     "DOL  Dólar estadounidense      001.000000|DOL\n060  Euro                      001.085000|060"},
};

TEST_P(Listas, EachKeyHasItsStatementItsRowsAndItsAnswers) {
    const char *const filas[] = {
        "SYSTABLAS|insert into aduana (id,descripcion) values ('073','EZEIZA')",
        "SYSTABLAS|insert into aduana (id,descripcion) values ('001','BUENOS AIRES')",
        "INTERNOS|insert into codemb (id,descripcion) values ('05','Caja')",
        "INTERNOS|insert into codemb (id,descripcion) values ('09','Bolsa')",
        "INTERNOS|insert into tipoemb (id,descripcion) values ('1','Suelto')",
        "INTERNOS|insert into tipoemb (id,descripcion) values ('2','Granel')",
        "INTERNOS|insert into via (id,descripcion) values ('4','Aérea')",
        "INTERNOS|insert into via (id,descripcion) values ('1','Acuática')",
        "SYSTABLAS|insert into condiciondeventa (id,descripcion) values ('FOB','Franco a bordo')",
        "SYSTABLAS|insert into condiciondeventa (id,descripcion) values ('EXW','En fábrica')",
        "SYSTABLAS|insert into pais (id,descripcion) values ('9','MERCOSUR')",
        "SYSTABLAS|insert into pais (id,descripcion) values ('203','BRASIL')",
        "SYSTABLAS|insert into pais (id,descripcion) values ('200','ARGENTINA')",
        "SYSTABLAS|insert into bancos (id,descripcion) values ('011','NACION')",
        "SYSTABLAS|insert into bancos (id,descripcion) values ('007','GALICIA')",
        "SYSTABLAS|insert into motivos (id,descripcion) values ('RE','Reparación')",
        "SYSTABLAS|insert into motivos (id,descripcion) values ('FE','Feria')",
        "SYSTABLAS|insert into mottmp (id,descripcion,dias,impexpo) values "
        "('DTO.1439/96','Perfeccionamiento',720,'I')",
        "SYSTABLAS|insert into mottmp (id,descripcion,dias,impexpo) values ('EN','Ensayo',180,'I')",
        "SYSTABLAS|insert into mottmp (id,descripcion,dias,impexpo) values ('XP','Exposición',360,'E')",
        "INTERNOS|insert into estadomercaderia (id,descripcion) values ('US','Usada')",
        "INTERNOS|insert into estadomercaderia (id,descripcion) values ('NU','Nueva')",
        "INTERNOS|insert into unidades (id,descripcion) values ('02','METRO')",
        "INTERNOS|insert into unidades (id,descripcion) values ('01','KILOGRAMO')",
        "INTERNOS|insert into puertos (cpor,lpor) values ('BRS','SANTOS')",
        "INTERNOS|insert into puertos (cpor,lpor) values ('ARBUE','BUENOS AIRES')",
        "INTERNOS|insert into puertos (cpor,lpor) values ('XXXXX',null)",
        "INTERNOS|insert into divisas (id,descripcion,imp) values ('060','Euro',1.085)",
        "INTERNOS|insert into divisas (id,descripcion,imp) values ('DOL','Dólar estadounidense',1)",
    };
    for (const char *fila : filas) {
        const QString texto = QString::fromUtf8(fila);
        ejecutar(texto.section(u'|', 1), texto.section(u'|', 0, 0));
    }
    for (const CasoDeLista &c : casosDeLista) {
        SCOPED_TRACE(c.clave);
        const Traza traza;
        listar(c.clave, -1);
        EXPECT_EQ(traza.texto(), std::string(c.entidad) + "|" + c.sentencia);
        EXPECT_EQ(vistas(), c.vistas);
        EXPECT_EQ(devueltos(c.clave), c.devueltos);
    }
}

TEST_P(Listas, AUnitRowsDescriptionBeginsWithABlank) {
    ejecutar(u"insert into unidades (id,descripcion) values ('01','KILOGRAMO')"_s);
    EXPECT_EQ(listar("UNIDADES", 0).toStdString(), " KILOGRAMO");
    EXPECT_EQ(codigo.toStdString(), "01");
    // id padded to 4, a blank, the description with its own.
    EXPECT_EQ(devueltos("UNIDADES"), "01    KILOGRAMO|01");
}

TEST_P(Listas, ACurrencyDescriptionLongerThanItsWidthIsKeptUnpadded) {
    ejecutar(
        u"insert into divisas (id,descripcion,imp) values "
        "('099','Peso de la República Oriental del Uruguay',0.025)"_s);
    EXPECT_EQ(devueltos("DIVISAS"), "099  Peso de la República Oriental del Uruguay 000.025000|099");
}

TEST_P(Listas, APortAnswersItsCodeAndItsNameApart) {
    ejecutar(u"insert into puertos (cpor,lpor) values ('ARBUE','BUENOS AIRES')"_s);
    EXPECT_EQ(listar("PUERTO", 0).toStdString(), "BUENOS AIRES");
    EXPECT_EQ(codigo.toStdString(), "ARBUE");
    EXPECT_EQ(aux.toStdString(), "BUENOS AIRES");
}

TEST_P(Listas, ACurrencyAnswersItsRateWhenItIsAskedFor) {
    ejecutar(u"insert into divisas (id,descripcion,imp) values ('060','Euro',1.085)"_s);
    listar("DIVISAS", 0, "Div");
    EXPECT_EQ(codigo.toStdString(), "060");
    EXPECT_EQ(aux.toStdString(), "01.085000");
    listar("DIVISAS", 0);
    EXPECT_TRUE(aux.isEmpty());
}

TEST_P(Listas, LeavingTheListAnswersNothingAndTouchesNothing) {
    ejecutar(u"insert into pais (id,descripcion) values ('200','ARGENTINA')"_s, u"SYSTABLAS"_s);
    for (const int fila : {-1, -2, 5}) {
        registro.indices = {fila};
        codigo = u"was"_s;
        aux = u"Div"_s;
        EXPECT_TRUE(Listar(*ctx, u"PAIS"_s, codigo, aux).isEmpty()) << fila;
        EXPECT_EQ(codigo.toStdString(), "was");
        EXPECT_EQ(aux.toStdString(), "Div");
    }
}

TEST_P(Listas, ARowWithoutTextAnswersNothing) {
    ejecutar(u"insert into bancos (id,descripcion) values (null,'SIN CODIGO')"_s, u"SYSTABLAS"_s);
    EXPECT_TRUE(listar("BANCOS", 0).isEmpty());
    EXPECT_TRUE(codigo.isEmpty());
}

TEST_P(Listas, TheReasonsOfHeadersAreNotOffered) {
    const Traza traza;
    EXPECT_TRUE(listar("MOTIVO", 0).isEmpty());
    EXPECT_EQ(traza.texto(), "");
    EXPECT_TRUE(registro.elecciones.empty());
}

TEST_P(Listas, AnyOtherKeyIsTheNameOfATable) {
    ejecutar(u"insert into informacion (id,descripcion) values ('A1','Dato')"_s, u"SYSTABLAS"_s);
    EXPECT_EQ(listar("INFORMACION", 0).toStdString(), "Dato");
    EXPECT_EQ(codigo.toStdString(), "A1");
    // A table that is not there is a failed look-up: nothing is shown.
    EXPECT_TRUE(listar("NOEXISTE", 0).isEmpty());
    EXPECT_TRUE(registro.elecciones.empty());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Listas, F6FillsTheFieldAndTheDescriptionBesideIt) {
    ejecutar(u"insert into bancos (id,descripcion) values ('007','GALICIA')"_s, u"SYSTABLAS"_s);
    registro.indices = {0};
    CampoDeCodigo campo{u"1"_s, u"old"_s, {}};
    EXPECT_TRUE(ElegirCodigo(*ctx, u"BANCOS"_s, campo));
    EXPECT_EQ(campo.codigo.toStdString(), "007");
    EXPECT_EQ(campo.descripcion.toStdString(), "GALICIA");
    EXPECT_FALSE(ElegirCodigo(*ctx, u"BANCOS"_s, campo));
    EXPECT_EQ(campo.codigo.toStdString(), "007");
}

EN_AMBOS_STORES(Listas);

}  // namespace
