// The valuation sheets: what the operation proposes, what comes of the amounts, what a reader asks back, and
// how a sheet is kept.

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "forms/valuation.h"
#include "forms/valuationsheet.h"
#include "frame/base/values.h"
#include "operations/lifecycle.h"
#include "operations/oOperationCopy.h"
#include "outputs/lists.h"
#include "tests/support/tienda.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

using valoracion::Clase;
using valoracion::Hoja;

const QString opValuada = u"IC-HV"_s;

class Valoracion : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = u',';
        // In euros at 1.085 dollars; freight in dollars, insurance in pounds at 1.27.
        ejecutar(
            u"insert into caratula (interno,fechaalta,idsubreg,idaduana,cuitcliente,factura7,factura3,"
            "idvendedor,factura2,idcondiciondeventa,fobdivisas,fobcoddivisas,fobdivcambio,valoraprorratear,"
            "fletedivisas,fletedivcambio,segurodivisas,segurodivcambio,seguroporcentaje,ajusteincluir,"
            "ajustededucir) values ('IC-HV','2026-01-12 09:14:00','ic04','001','30708123451','CLIENTE','BROKER',"
            "'V1','VENDEDORA','FOB',1000,'060',1.085,50,217,1,85.43,1.27,0,30.5,10)"_s);
        ejecutar(u"insert into clientes (cuit,nombre,domicilio) values ('30708123451','OTRO','Calle 1')"_s,
                 u"PERSONAL"_s);
        ejecutar(
            u"insert into vendedor (codigo,nombre,domicilio,paisdelexportador) "
            "values ('V1','VENDEDORA','Street 2','438')"_s,
            u"PERSONAL"_s);
        ejecutar(u"insert into pais (id,descripcion) values ('438','ALEMANIA')"_s, u"SYSTABLAS"_s);
        ejecutar(
            u"insert into facturas (interno,orden,factura) values ('IC-HV',1,'F-1'),('IC-HV',2,'F-2')"_s);
    }
    Hoja leer() { return valoracion::Leer(*ctx, opValuada); }
    /// Every question answered No, over what the operation proposes.
    Hoja contestada() {
        Hoja hoja = leer();
        for (const valoracion::CampoDeHoja &c : valoracion::Campos(hoja.clase))
            if (c.tipo == valoracion::Tipo::SiNo) hoja.valores[c.columna] = u"N"_s;
        return hoja;
    }
    std::string observaciones(const Hoja &hoja) const {
        return valoracion::ObservacionesDe(*ctx, hoja).join(u'\n').toStdString();
    }
    /// What is asked back once a column says `valor`, beyond what was asked before.
    std::string alPoner(Hoja hoja, const char *columna, const char *valor) const {
        hoja.valores[QLatin1String(columna)] = QString::fromUtf8(valor);
        return observaciones(hoja);
    }
    void exportacion() {
        ejecutar(u"update caratula set idsubreg = 'EC01', datocomprador = 'COMPRADORA INC'"_s);
    }
};
EN_AMBOS_STORES(Valoracion);

TEST(ClasesDeHoja, TheRegimeDecidesWhichSheetItIs) {
    for (const char16_t *codigo : {u"IC04", u"TR01", u"DJAI", u"RE01", u"LAPI", u"ZFE1", u"ZFET"})
        EXPECT_EQ(valoracion::ClaseDe(codigo), Clase::Importacion)
            << QString::fromUtf16(codigo).toStdString();
    for (const char16_t *codigo : {u"EC01", u"ET01", u"ZFTR", u"ZFRE", u""})
        EXPECT_EQ(valoracion::ClaseDe(codigo), Clase::Exportacion)
            << QString::fromUtf16(codigo).toStdString();
}

TEST(ClasesDeHoja, EveryFieldHasItsColumnOfItsKind) {
    for (const Clase clase : {Clase::Importacion, Clase::Exportacion}) {
        const esquema::Tabla *tabla = esquema::buscarTabla(valoracion::TablaDe(clase));
        ASSERT_NE(tabla, nullptr);
        QStringList columnas{u"interno"_s, u"datos"_s, u"divisa"_s, u"cambio"_s};
        for (const valoracion::CampoDeHoja &c : valoracion::Campos(clase)) {
            const esquema::Columna *columna = tabla->columna(c.columna);
            ASSERT_NE(columna, nullptr) << c.columna.toStdString();
            const esquema::Tipo esperado = c.esImporte()                       ? esquema::Tipo::Numero
                                           : c.tipo == valoracion::Tipo::Fecha ? esquema::Tipo::Fecha
                                                                               : esquema::Tipo::Texto;
            EXPECT_EQ(columna->tipo, esperado) << c.columna.toStdString();
            columnas << c.columna;
        }
        for (const esquema::Columna &c : tabla->columnas)
            EXPECT_TRUE(columnas.contains(c.nombre)) << "nothing fills " << c.nombre.toStdString();
    }
}

TEST_P(Valoracion, TheOperationProposesItsAmountsInTheCurrencyOfItsFob) {
    const Hoja hoja = leer();
    EXPECT_EQ(hoja.clase, Clase::Importacion);
    EXPECT_FALSE(hoja.guardada);
    EXPECT_EQ(hoja.divisa, u"060"_s);
    EXPECT_EQ(hoja.cambio, 1.085);
    // 1000 + 50 that the header prorates
    EXPECT_EQ(hoja.valores[u"precio"_s], u"1050,00"_s);
    // 217 dollars / 1.085 = 200 euros; 85.43 pounds x 1.27 / 1.085 = 108.4961 / 1.085 = 99.9964
    EXPECT_EQ(hoja.valores[u"flete"_s], u"200,00"_s);
    EXPECT_EQ(hoja.valores[u"seguro"_s], u"100,00"_s);
    EXPECT_EQ(hoja.valores[u"otrosincluir"_s], u"30,50"_s);
    EXPECT_EQ(hoja.valores[u"otrosdeducir"_s], u"10,00"_s);
    EXPECT_EQ(hoja.valores[u"canones"_s], u"00,00"_s);
    EXPECT_EQ(hoja.valores[u"metodo"_s], u"1"_s);
    EXPECT_EQ(hoja.valores[u"naturaleza"_s], u"V"_s);
    EXPECT_EQ(hoja.valores[u"vinculacion"_s], QString()) << "an answer is the user's";
}

TEST_P(Valoracion, APercentageIsTheInsuranceWhereThereIsNoAmount) {
    ejecutar(u"update caratula set segurodivisas = 0, seguroporcentaje = 2, segurodivcambio = 1.085"_s);
    // 2 % of 217 + 1050 = 25.34, in the currency of the FOB
    EXPECT_EQ(leer().valores[u"seguro"_s], u"25,34"_s);
}

TEST_P(Valoracion, WithoutARateNothingIsTurnedOver) {
    ejecutar(u"update caratula set fobdivcambio = 0"_s);
    const Hoja hoja = leer();
    EXPECT_EQ(hoja.valores[u"flete"_s], u"00,00"_s);
    EXPECT_EQ(valoracion::TotalesDe(hoja).valorEnDolares, 0);
}

TEST_P(Valoracion, TheValueIsThePriceWithWhatIsIncludedLessWhatIsDeducted) {
    Hoja hoja = leer();
    hoja.valores[u"pagosindirectos"_s] = u"5,005"_s;
    hoja.valores[u"canones"_s] = u"20.1"_s;
    hoja.valores[u"intereses"_s] = u"0,1"_s;
    const valoracion::Totales t = valoracion::TotalesDe(hoja);
    EXPECT_EQ(t.precio, 1055.01) << "an amount counts to the cent: 1050 + 5.01";
    EXPECT_EQ(t.incluir, 350.6) << "30.50 + 20.10 + 200 + 100";
    EXPECT_EQ(t.deducir, 10.1);
    EXPECT_EQ(t.valor, 1395.51);
    EXPECT_EQ(t.valorEnDolares, 1514.13) << "1395.51 x 1.085 = 1514.12835";
}

TEST_P(Valoracion, OfAnExportFreightAndInsuranceAreNotPartOfThePrice) {
    exportacion();
    const Hoja hoja = leer();
    EXPECT_EQ(hoja.clase, Clase::Exportacion);
    EXPECT_EQ(hoja.valores[u"precio"_s], u"1050,00"_s);
    EXPECT_EQ(hoja.valores[u"flete"_s], u"00,00"_s);
    EXPECT_EQ(hoja.operacion.comprador, u"COMPRADORA INC"_s);
    EXPECT_FALSE(hoja.valores.contains(u"metodo"_s));
    EXPECT_EQ(valoracion::TotalesDe(hoja).valor, 1070.5) << "1050 + 30.50 - 10";
}

TEST_P(Valoracion, ASavedSheetIsReadAsItWasKept) {
    for (const bool deExportacion : {false, true}) {
        if (deExportacion) exportacion();
        Hoja hoja = leer();
        int n = 1;
        for (const valoracion::CampoDeHoja &c : valoracion::Campos(hoja.clase)) {
            QString &texto = hoja.valores[c.columna];
            if (c.esImporte())
                texto = u"%1,5%2"_s.arg(n).arg(n % 10);
            else if (c.tipo == valoracion::Tipo::Fecha)
                texto = u"14/11/2025"_s;
            else if (c.tipo == valoracion::Tipo::Texto)
                texto = u"D'OR Ñ %1"_s.arg(n);
            else
                texto = c.opciones.empty() ? u"S"_s : c.opciones.back().codigo;
            if (c.esImporte() && n < 10) texto.prepend(u'0');
            ++n;
        }
        ASSERT_TRUE(valoracion::Guardar(*ctx, hoja).ok);
        EXPECT_TRUE(hoja.guardada);
        const Hoja otra = leer();
        EXPECT_TRUE(otra.guardada);
        EXPECT_EQ(otra.valores, hoja.valores);
        EXPECT_EQ(otra.divisa, u"060"_s);
        EXPECT_EQ(otra.cambio, 1.085);
        // Saved again it is the same row.
        ASSERT_TRUE(valoracion::Guardar(*ctx, hoja).ok);
        EXPECT_EQ(valor(u"select count(*) from %1"_s.arg(valoracion::TablaDe(hoja.clase)), u"SYSTABLAS"_s),
                  u"1"_s);
        EXPECT_TRUE(registro.mensajes.empty());
    }
}

TEST_P(Valoracion, ARowOfAnotherProgramIsNoSheetAndKeepsItsData) {
    ejecutar(u"insert into hval (interno,datos) values ('IC-HV','de otro')"_s, u"SYSTABLAS"_s);
    Hoja hoja = leer();
    EXPECT_FALSE(hoja.guardada);
    EXPECT_EQ(hoja.valores[u"precio"_s], u"1050,00"_s) << "the operation proposes";
    ASSERT_TRUE(valoracion::Guardar(*ctx, hoja).ok);
    EXPECT_EQ(filas(u"select datos,precio from hval"_s, u"SYSTABLAS"_s), u"de otro|1050"_s);
}

TEST_P(Valoracion, WhatIsNoAmountOrNoDayIsRefusedWithItsField) {
    struct Caso {
        const char *columna, *valor, *texto;
    };
    for (const Caso &c :
         {Caso{"precio", "mil", "Precio de factura: no es un número, corríjalo."},
          Caso{"seguro", "-1", "Seguro: el importe no puede ser negativo."},
          Caso{"fechacontrato", "31/2/26", "Fecha del contrato: no es una fecha válida, corríjala."}}) {
        Hoja hoja = leer();
        hoja.valores[QLatin1String(c.columna)] = QString::fromUtf8(c.valor);
        registro.mensajes.clear();
        const Veredicto v = valoracion::Guardar(*ctx, hoja);
        EXPECT_FALSE(v.ok);
        EXPECT_EQ(v.foco, QLatin1String(c.columna));
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto.toStdString(), c.texto);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    }
    EXPECT_EQ(valor(u"select count(*) from hval"_s, u"SYSTABLAS"_s), u"0"_s);
}

TEST_P(Valoracion, AnAnsweredSheetOfTheOperationsAmountsIsAskedNothing) {
    EXPECT_EQ(observaciones(contestada()), "");
    EXPECT_EQ(observaciones(leer()), "Faltan contestar 5 preguntas.")
        << "those of the relation count only when there is one";
}

TEST_P(Valoracion, AnswersThatTheMethodDoesNotBearAreAskedBack) {
    const Hoja hoja = contestada();
    EXPECT_EQ(alPoner(hoja, "metodo", ""), "Falta el método de valoración.");
    EXPECT_EQ(alPoner(hoja, "naturaleza", "C"),
              "Sin una compraventa no hay valor de transacción: revise el método.");
    Hoja restringida = hoja;
    restringida.valores[u"explicacion"_s] = u"Sólo en el sur"_s;
    EXPECT_EQ(alPoner(restringida, "restricciones", "S"),
              "Con restricciones (Ac. 1.1.a) el valor de transacción puede no aceptarse: revise el método.");
    restringida.valores[u"metodo"_s] = u"3"_s;
    EXPECT_EQ(alPoner(restringida, "restricciones", "S"), "") << "another method does not mind";
}

TEST_P(Valoracion, AnAnswerYesWantsItsDetail) {
    Hoja hoja = contestada();
    hoja.valores[u"metodo"_s] = u"3"_s;
    EXPECT_EQ(alPoner(hoja, "condiciones", "S"), "Falta el detalle de lo contestado con SÍ.");
}

TEST_P(Valoracion, ARelationThatWeighedOnThePriceIsAskedBackUnlessATestValueBearsItOut) {
    Hoja hoja = contestada();
    hoja.valores[u"vinculacion"_s] = u"S"_s;
    EXPECT_EQ(observaciones(hoja), "Falta el caso de vinculación.");
    hoja.valores[u"vinculocaso"_s] = u"e"_s;
    EXPECT_EQ(observaciones(hoja), "");
    hoja.valores[u"influencia"_s] = u"S"_s;
    EXPECT_EQ(observaciones(hoja), "La vinculación influyó en el precio: revise el método (Ac. 1.2).");
    hoja.valores[u"criterio"_s] = u"S"_s;
    EXPECT_EQ(observaciones(hoja), "");
    hoja.valores[u"criterio"_s].clear();
    EXPECT_EQ(observaciones(hoja),
              "Falta contestar una pregunta.\n"
              "La vinculación influyó en el precio: revise el método (Ac. 1.2).");
}

TEST_P(Valoracion, AnAnswerAndItsAmountHaveToAgree) {
    Hoja hoja = contestada();
    // The header's adjustment told apart: its sum stays the same.
    hoja.valores[u"otrosincluir"_s] = u"0"_s;
    hoja.valores[u"canones"_s] = u"30.5"_s;
    EXPECT_EQ(observaciones(hoja), "Hay un importe de cánones y se contestó NO.");
    hoja.valores[u"pagacanones"_s] = u"S"_s;
    hoja.valores[u"explicacion"_s] = u"Marca"_s;
    EXPECT_EQ(observaciones(hoja), "");
    hoja.valores[u"reversion"_s] = u"S"_s;
    EXPECT_EQ(observaciones(hoja), "Falta el importe: producto de la reventa.");
}

TEST_P(Valoracion, AmountsThatAreNotTheHeadersAreAskedBack) {
    const Hoja hoja = contestada();
    EXPECT_EQ(alPoner(hoja, "precio", "1050,01"), "Precio: la hoja dice 1050,01 y la carátula 1050,00.");
    EXPECT_EQ(alPoner(hoja, "flete", "0"), "Transporte: la hoja dice 00,00 y la carátula 200,00.");
    EXPECT_EQ(alPoner(hoja, "seguro", "1"), "Seguro: la hoja dice 01,00 y la carátula 100,00.");
    EXPECT_EQ(alPoner(hoja, "embalaje", "1"), "Ajustes a incluir: la hoja dice 31,50 y la carátula 30,50.");
    EXPECT_EQ(alPoner(hoja, "montaje", "1"), "Ajustes a deducir: la hoja dice 11,00 y la carátula 10,00.");
}

TEST_P(Valoracion, AnotherRateOfTheHeaderIsAskedBackUntilItIsProposedAgain) {
    Hoja hoja = contestada();
    ASSERT_TRUE(valoracion::Guardar(*ctx, hoja).ok);
    // Freight and insurance follow the rate: 217 / 1.1 = 197.27; 108.4961 / 1.1 = 98.63
    ejecutar(u"update caratula set fobdivcambio = 1.1"_s);
    hoja = leer();
    EXPECT_EQ(hoja.cambio, 1.085) << "the sheet stays as it was declared";
    EXPECT_EQ(observaciones(hoja),
              "La divisa o su cambio no son los de la carátula: propóngalos otra vez.\n"
              "Transporte: la hoja dice 200,00 y la carátula 197,27.\n"
              "Seguro: la hoja dice 100,00 y la carátula 98,63.");
    valoracion::Proponer(*ctx, hoja);
    EXPECT_EQ(hoja.cambio, 1.1);
    EXPECT_EQ(hoja.valores[u"vinculacion"_s], u"N"_s) << "answers stay";
    EXPECT_EQ(observaciones(hoja), "");
}

TEST_P(Valoracion, ItIsDeletedAfterAQuestion) {
    Hoja hoja = leer();
    valoracion::Guardar(*ctx, hoja);
    EXPECT_FALSE(valoracion::Eliminar(*ctx, hoja));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "¿Confirma eliminar la hoja de valoración de la operación IC-HV?");
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    registro.respuestas = {true};
    EXPECT_TRUE(valoracion::Eliminar(*ctx, hoja));
    EXPECT_FALSE(leer().guardada);
}

TEST_P(Valoracion, ACopyHasItsOwnAndADeletionTakesIt) {
    Hoja hoja = contestada();
    valoracion::Guardar(*ctx, hoja);
    oOperationCopy::Copiar(*ctx, opValuada, u"COPIA"_s);
    const Hoja copia = valoracion::Leer(*ctx, u"COPIA"_s);
    EXPECT_TRUE(copia.guardada);
    EXPECT_EQ(copia.valores, hoja.valores);
    EXPECT_TRUE(EliminarSinPreguntar(*ctx, opValuada));
    EXPECT_EQ(filas(u"select interno from hval"_s, u"SYSTABLAS"_s), u"COPIA"_s);
}

TEST_P(Valoracion, AnOperationThatIsNotThereProposesNothing) {
    const Hoja hoja = valoracion::Leer(*ctx, u"NO"_s);
    EXPECT_FALSE(hoja.operacion.existe);
    EXPECT_FALSE(hoja.guardada);
}

TEST_P(Valoracion, ThePaperTellsTheHeadTheAnswersTheAmountsAndWhatComesOfThem) {
    Hoja hoja = contestada();
    hoja.valores[u"explicacion"_s] = u"palabra "_s.repeated(20).trimmed();
    hoja.valores[u"vinculacion"_s] = u"S"_s;
    hoja.valores[u"vinculocaso"_s] = u"e"_s;
    const papel::Tabla tabla = valoracion::TablaDeHoja(*ctx, hoja);
    const papel::Reporte r = valoracion::PapelDeHoja(tabla, u',');
    EXPECT_EQ(r.titulo, u"Hoja de valoración de importación"_s);
    EXPECT_EQ(r.nombre, u"Hoja de valoración IC-HV"_s);
    QMap<QString, QString> ficha;
    for (const auto &[rotulo, texto] : r.ficha) ficha[rotulo] = texto;
    EXPECT_EQ(ficha[u"Importador"_s], u"CLIENTE - Calle 1"_s);
    EXPECT_EQ(ficha[u"Vendedor"_s], u"VENDEDORA - Street 2"_s);
    EXPECT_EQ(ficha[u"País del vendedor"_s], u"438 ALEMANIA"_s);
    EXPECT_EQ(ficha[u"Facturas"_s], u"F-1, F-2"_s);
    EXPECT_EQ(ficha[u"Subrégimen"_s], u"IC04"_s);
    EXPECT_EQ(ficha[u"Fecha"_s], u"12/01/2026"_s);
    // Dots and blanks between the columns are told as one bar.
    static const QRegularExpression entreColumnas(u" \\.{3,} *| {2,}"_s);
    QStringList lineas;
    for (const papel::Renglon &renglon : r.renglones) {
        EXPECT_LE(renglon.texto.size(), 105) << renglon.texto.toStdString();
        lineas << QString(renglon.texto).replace(entreColumnas, u"|"_s);
    }
    const QString hojaEntera = lineas.join(u'\n');
    for (const char *linea :
         {"|Precio de factura|Ac. 1.1|1050,00", "|Transporte hasta el lugar de importación|Ac. 8.2.a|200,00",
          "|Método de valoración|Ac. 1 a 7|Valor de transacción (art. 1)",
          "|¿Comprador y vendedor están vinculados?|Ac. 15.4|SÍ",
          "|Caso de vinculación|Ac. 15.4|e) Uno controla al otro", "|Contrato|\n",
          "\nAjustes a incluir\n|Comisiones de venta y corretajes|Ac. 8.1.a.i|00,00\n",
          "|Total a incluir|330,50\n", "|Total a deducir|10,00\n",
          // 1050 + 330.50 - 10 = 1370.50; x 1.085 = 1486.9925
          "|Valor en aduana en 060|1370,50", "|Valor en aduana en dólares, al cambio 1,085000|1486,99"})
        EXPECT_TRUE(hojaEntera.contains(QString::fromUtf8(linea))) << linea << "\n"
                                                                   << hojaEntera.toStdString();
    EXPECT_TRUE(hojaEntera.contains("\n|palabra palabra"_L1)) << "a long detail goes on below";
    EXPECT_TRUE(lineas.last().contains(u"Firma y aclaración"_s));
}

TEST_P(Valoracion, OnlyASavedSheetIsAList) {
    const listas::Lista *lista = listas::BuscarLista(u"valoracion"_s);
    ASSERT_NE(lista, nullptr);
    EXPECT_TRUE(lista->armar(*ctx, opValuada).filas.empty());
    EXPECT_EQ(listas::SinFilas(*lista, opValuada),
              u"La operación IC-HV no tiene hoja de valoración; llénela antes de pedir la lista."_s);
    Hoja hoja = contestada();
    valoracion::Guardar(*ctx, hoja);
    EXPECT_FALSE(lista->armar(*ctx, opValuada).filas.empty());
    EXPECT_EQ(listas::BuscarLista(u"certificados"_s)->armar(*ctx, opValuada).filas.size(), 0U);
}

}  // namespace
