// The changes of one column on all lines of an operation.

#include <gtest/gtest.h>

#include "header/automotive.h"
#include "subitems/linebulk.h"
#include "tests/lines/lineas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class CambiosDeTodas : public Lineas {
 protected:
    void SetUp() override {
        Lineas::SetUp();
        for (const char *operacion : {"OP 1", "OTRA"})
            for (const char *linea :
                 {// article, net kilos, statistics and its unit, specific duty and its unit
                  "'A',10,24,'07',3,'01'", "'B',40,40,'01',5,'05'", "'C',null,7,'01',null,''"})
                ejecutar(
                    u"insert into subitems (interno,idarticulo,kgneto,valorrelacionestadistica,estadistica,"
                    "valorderesp,deresp,idpais,idpaisproc,itfiller,codprorrateo) "
                    "values ('%1',%2,'203','438','LISTA:314','EMB')"_s.arg(QLatin1String(operacion),
                                                                           QLatin1String(linea)));
        GuardarAEC(*ctx, interno, u"S"_s);
        GuardarAEC(*ctx, u"OTRA"_s, u"S"_s);
    }
    void TearDown() override {
        GuardarAEC(*ctx, interno, {});
        GuardarAEC(*ctx, u"OTRA"_s, {});
        Lineas::TearDown();
    }
    /// Every column that an action may change, of each line.
    std::string todas(const QString &de) {
        return filas(
                   u"select idarticulo,kgneto,valorrelacionestadistica,valorderesp,idpais,idpaisproc,"
                   "itfiller,codprorrateo from subitems where interno = '%1' order by id"_s.arg(de))
            .toStdString();
    }
    std::string marcas(const QString &de) {
        return valor(u"select factura8 from caratula where interno = '%1'"_s.arg(de)).toStdString() +
               LeerAEC(*ctx, de).toStdString();
    }
    /// The action as its menu does it.
    bool pedir(const char *nombre) {
        const CambioMasivo &cambio = *CambioDeNombre(QLatin1String(nombre));
        QString valor;
        if (!PedirCambioMasivo(*ctx, cambio, valor)) return false;
        HacerCambioMasivo(*ctx, interno, cambio, valor);
        return true;
    }
};

struct CasoMasivo {
    const char *nombre;
    const char16_t *pregunta;
    const char16_t *titulo;  ///< of the prompt; empty: a question
    const char *sentencias;
    const char *queda;
};
const CasoMasivo casosMasivos[] = {
    // Statistics and specific duty go where they are measured in kilograms alone.
    {"SetearKilosCero", u"CONFIRMA DEJAR EN 0 (cero), KG NETO, ESTADISTICA, ESPECIFICO en todos los subitems",
     u"",
     "INTERNOS|update subitems set kgneto = 0 where interno = 'OP 1'\n"
     "INTERNOS|update subitems set valorrelacionestadistica = 0 where estadistica = '01' and interno = 'OP 1'\n"
     "INTERNOS|update subitems set valorderesp = 0 where deresp = '01' and interno = 'OP 1'",
     "A|0|24|0|203|438|LISTA:314|EMB\n"
     "B|0|0|5|203|438|LISTA:314|EMB\n"
     "C|0|0|<null>|203|438|LISTA:314|EMB"},
    {"VariarPaisOrigen", u"Confirma vaciar el campo Pais Origen en todos los articulos cargados?", u"",
     "INTERNOS|update subitems set idpais = '' where interno = 'OP 1'",
     "A|10|24|3||438|LISTA:314|EMB\n"
     "B|40|40|5||438|LISTA:314|EMB\n"
     "C|<null>|7|<null>||438|LISTA:314|EMB"},
    {"VaciarFiller", u"Confirma vaciar el campo Filler en todos los articulos cargados?", u"",
     "INTERNOS|update subitems set itfiller = '' where interno = 'OP 1'",
     "A|10|24|3|203|438||EMB\n"
     "B|40|40|5|203|438||EMB\n"
     "C|<null>|7|<null>|203|438||EMB"},
    {"VaciarIdProrrateo", u"Confirma vaciar el campo Id Prorrateo en todos los articulos cargados?", u"",
     "INTERNOS|update subitems set codprorrateo = '' where interno = 'OP 1'",
     "A|10|24|3|203|438|LISTA:314|\n"
     "B|40|40|5|203|438|LISTA:314|\n"
     "C|<null>|7|<null>|203|438|LISTA:314|"},
    {"EstablecerFiller", u"Ingrese el valor de filler para todos los subitems:", u"Establecer Filler",
     "INTERNOS|update subitems set itfiller = '310' where interno = 'OP 1'",
     "A|10|24|3|203|438|310|EMB\n"
     "B|40|40|5|203|438|310|EMB\n"
     "C|<null>|7|<null>|203|438|310|EMB"},
    {"EstablecerPaisDeOrigen", u"Ingrese el valor (código) de País De Origen para todos los subitems:",
     u"Establecer País De Origen", "INTERNOS|update subitems set idpais = '310' where interno = 'OP 1'",
     "A|10|24|3|310|438|LISTA:314|EMB\n"
     "B|40|40|5|310|438|LISTA:314|EMB\n"
     "C|<null>|7|<null>|310|438|LISTA:314|EMB"},
    {"EstablecerPaisDeProcedencia",
     u"Ingrese el valor (código) de País De Procedencia para todos los subitems:",
     u"Establecer País De Procedencia",
     "INTERNOS|update subitems set idpaisproc = '310' where interno = 'OP 1'",
     "A|10|24|3|203|310|LISTA:314|EMB\n"
     "B|40|40|5|203|310|LISTA:314|EMB\n"
     "C|<null>|7|<null>|203|310|LISTA:314|EMB"},
};

TEST_P(CambiosDeTodas, EachAsksSendsItsStatementsAndChangesTheLinesOfItsOperationAlone) {
    EXPECT_EQ(CambiosMasivos().size(), std::size(casosMasivos));
    const std::string antes = todas(interno);
    for (const CasoMasivo &c : casosMasivos) {
        SCOPED_TRACE(c.nombre);
        ejecutar(u"delete from subitems where interno = 'OP 1'"_s);
        ejecutar(
            u"insert into subitems (interno,idarticulo,kgneto,valorrelacionestadistica,estadistica,"
            "valorderesp,deresp,idpais,idpaisproc,itfiller,codprorrateo) "
            "select 'OP 1',idarticulo,kgneto,valorrelacionestadistica,estadistica,"
            "valorderesp,deresp,idpais,idpaisproc,itfiller,codprorrateo from subitems where interno = "
            "'OTRA' order by id"_s);
        ASSERT_EQ(todas(interno), antes);
        registro = Registro();
        registro.respuestas = {true};
        registro.textos = {u" 310 "_s};
        QStringList mandadas;
        {
            const Traza traza;
            EXPECT_TRUE(pedir(c.nombre));
            mandadas = traza.sentencias().filter(u"update subitems"_s);
        }
        EXPECT_EQ(mandadas.join(u'\n').toStdString(), c.sentencias);
        EXPECT_EQ(todas(interno), c.queda);
        EXPECT_EQ(todas(u"OTRA"_s), antes);
        const QString titulo = QString::fromUtf16(c.titulo);
        if (titulo.isEmpty()) {
            ASSERT_EQ(registro.preguntas.size(), 1U);
            EXPECT_EQ(registro.preguntas[0].texto, QString::fromUtf16(c.pregunta));
            EXPECT_EQ(registro.preguntas[0].icono, Icono::Pregunta);
            EXPECT_FALSE(registro.preguntas[0].porDefectoNo);
            EXPECT_TRUE(registro.entradas.empty());
        } else {
            ASSERT_EQ(registro.entradas.size(), 1U);
            EXPECT_EQ(registro.entradas[0].texto, QString::fromUtf16(c.pregunta));
            EXPECT_EQ(registro.entradas[0].titulo, titulo);
            EXPECT_TRUE(registro.preguntas.empty());
        }
        EXPECT_TRUE(registro.mensajes.empty());
    }
}

TEST_P(CambiosDeTodas, ANoOrAnEmptyAnswerSendsNothing) {
    const std::string antes = todas(interno);
    for (const CasoMasivo &c : casosMasivos) {
        for (const auto &respuesta :
             {std::optional<QString>(), std::optional(QString()), std::optional(u"  "_s)}) {
            registro.textos = {respuesta};
            const Traza traza;
            EXPECT_FALSE(pedir(c.nombre)) << c.nombre;
            EXPECT_EQ(traza.texto(), "");
        }
    }
    EXPECT_EQ(todas(interno), antes);
    EXPECT_EQ(marcas(interno), "NS") << "armed, and its answer kept";
}

TEST_P(CambiosDeTodas, AChangeOfLinesAsksForTheOperationToBeArmedAgainAndEmptiesItsAnswer) {
    for (const CambioMasivo &c : CambiosMasivos()) {
        ejecutar(u"update caratula set factura8 = 'N'"_s);
        GuardarAEC(*ctx, interno, u"S"_s);
        EXPECT_EQ(HacerCambioMasivo(*ctx, interno, c, u"9"_s), 3) << c.nombre;
        EXPECT_EQ(marcas(interno), "S") << c.nombre;
        EXPECT_EQ(marcas(u"OTRA"_s), "NS") << c.nombre;
    }
}

TEST_P(CambiosDeTodas, WithoutLinesThereIsNothingToArmAgain) {
    ejecutar(u"delete from subitems where interno = 'OP 1'"_s);
    for (const CambioMasivo &c : CambiosMasivos())
        EXPECT_EQ(HacerCambioMasivo(*ctx, interno, c, u"9"_s), 0) << c.nombre;
    EXPECT_EQ(marcas(interno), "NS");
}

TEST_P(CambiosDeTodas, AValueWithAQuoteIsKeptAsTyped) {
    for (const char *nombre : {"EstablecerFiller", "EstablecerPaisDeOrigen", "EstablecerPaisDeProcedencia"}) {
        registro.textos = {u"O'B\" %"_s};
        EXPECT_TRUE(pedir(nombre));
    }
    EXPECT_EQ(filas(u"select distinct itfiller,idpais,idpaisproc from subitems where interno = 'OP 1'"_s)
                  .toStdString(),
              "O'B\" %|O'B\" %|O'B\" %");
    EXPECT_EQ(valor(u"select count(*) as n from subitems where interno = 'OTRA' and idpais = '203'"_s),
              u"3"_s);
}

TEST_P(CambiosDeTodas, TheStoredLineInHandShowsWhatBecameOfIt) {
    const qint64 segunda =
        valor(u"select id from subitems where interno = 'OP 1' and idarticulo = 'B'"_s).toLongLong();
    ASSERT_TRUE(BuscarSubItem(*ctx, s, segunda));
    s.campos.TxtDescArticulos = u"a medio escribir"_s;
    const auto seguir = [this](const char *nombre, const QString &valor) {
        const CambioMasivo &cambio = *CambioDeNombre(QLatin1String(nombre));
        HacerCambioMasivo(*ctx, interno, cambio, valor);
        SeguirCambioMasivo(*ctx, cambio, valor, s);
    };
    const CamposSubItem &c = s.campos;
    EXPECT_EQ(c.LbDescPais, u"BRASIL"_s);
    seguir("SetearKilosCero", {});
    EXPECT_EQ(c.TxtKgNeto, u"00.00"_s);
    EXPECT_EQ(c.TxtValorsobreestadistica, u"00.00"_s);
    EXPECT_EQ(c.TxtDerEsp, u"05.00"_s) << "its unit is another";
    seguir("VariarPaisOrigen", {});
    EXPECT_EQ(c.TxtIdpais, QString());
    EXPECT_EQ(c.LbDescPais, QString());
    seguir("EstablecerPaisDeProcedencia", u"203"_s);
    EXPECT_EQ(c.txtIdPaisProc, u"203"_s);
    EXPECT_EQ(c.LbDescPaisProc, u"BRASIL"_s);
    seguir("VaciarFiller", {});
    EXPECT_EQ(c.TxtFiller, QString());
    seguir("EstablecerFiller", u"X"_s);
    EXPECT_EQ(c.TxtFiller, u"X"_s);
    seguir("VaciarIdProrrateo", {});
    EXPECT_EQ(c.TxtCodProrrateo, QString());
    EXPECT_EQ(c.TxtDescArticulos, u"a medio escribir"_s);
    // The fields agree with the store.
    SubItems otra = s;
    ASSERT_TRUE(BuscarSubItem(*ctx, otra, segunda));
    for (const CambioMasivo &cambio : CambiosMasivos())
        for (const ColumnaMasiva &columna : cambio.columnas)
            EXPECT_EQ(otra.campos.*columna.campo, s.campos.*columna.campo) << columna.columna;
}

TEST_P(CambiosDeTodas, ALineThatIsNotYetOneOfThemStaysAsItIs) {
    llenarBomba();
    s.campos.TxtIdpais = u"203"_s;
    for (const CambioMasivo &cambio : CambiosMasivos()) SeguirCambioMasivo(*ctx, cambio, u"9"_s, s);
    EXPECT_EQ(s.campos.TxtIdpais, u"203"_s);
    EXPECT_EQ(s.campos.TxtFiller, QString());
}

TEST_P(CambiosDeTodas, ActionsAreFoundByTheirNames) {
    for (const CambioMasivo &c : CambiosMasivos()) {
        EXPECT_EQ(CambioDeNombre(QString::fromLatin1(c.nombre).toLower()), &c);
        EXPECT_EQ(CambioDeNombre(QString::fromLatin1(c.nombre).chopped(1)), nullptr);
    }
    EXPECT_EQ(CambioDeNombre(QString()), nullptr);
}

EN_AMBOS_STORES(CambiosDeTodas);

}  // namespace
