// The certificates of origin of an operation: what is told, what is refused, and what becomes of the lines.

#include <gtest/gtest.h>

#include "forms/certificatelist.h"
#include "forms/certificates.h"
#include "header/automotive.h"
#include "operations/lifecycle.h"
#include "operations/oOperationCopy.h"
#include "subitems/lines.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using certificados::Ficha;

const QString opCertificada = u"IC-CO"_s;

class Certificados : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = u',';
        ejecutar(
            u"insert into caratula (interno,fechaalta,idsubreg,factura2,factura8,dcforzarpaisorigen) "
            "values ('IC-CO','2026-02-03 08:55:00','IC04','VENDEDORA','N','N')"_s);
        ejecutar(
            u"insert into pais (id,descripcion) values ('203','BRASIL'),('438','ALEMANIA'),"
            "('200','ARGENTINA'),('212','EEUU')"_s,
            u"SYSTABLAS"_s);
        ejecutar(u"insert into sta (id,cstaimpexp) values ('IC04','I'),('EC01','E')"_s, u"SYSTABLAS"_s);
        for (const char *linea :
             {"'A','203',100.5,null", "'B','203',50,''", "'C','438',25.25,'CO-VIEJO'", "'D','203',10,' '"})
            ejecutar(u"insert into subitems (interno,idarticulo,idpais,fob,certorig) values ('IC-CO',"_s +
                     QLatin1String(linea) + u')');
        for (const certificados::Linea &l : leer().lineas) ids.push_back(l.id);
        ASSERT_EQ(ids.size(), 4U);
    }
    certificados::Legajo leer() { return certificados::Leer(*ctx, opCertificada); }
    Ficha ficha(const std::set<qint64> &lineas) const {
        return {.id = 0,
                .TxtNumero = u" CO-1 "_s,
                .TxtFecha = u"20/01/2026"_s,
                .TxtIdPais = u"203"_s,
                .TxtExportador = u"D'OR"_s,
                .TxtVencimiento = u"19/07/2026"_s,
                .TxtObservaciones = u"Sin 'más'"_s,
                .lineas = lineas};
    }
    /// Saves it and answers the field to go to; "ok" when it was saved.
    std::string guardar(const Ficha &f) {
        registro.mensajes.clear();
        registro.preguntas.clear();
        const Veredicto v = certificados::Guardar(*ctx, opCertificada, f, id);
        return v.ok ? "ok" : v.foco.toStdString();
    }
    std::string dicho() const {
        if (registro.mensajes.size() != 1) return std::to_string(registro.mensajes.size()) + " messages";
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        return registro.mensajes[0].texto.toStdString();
    }
    std::string numeros() {
        return filas(u"select certorig from subitems where interno = 'IC-CO' order by id"_s)
            .replace(u'\n', u'|')
            .toStdString();
    }
    std::string marca() {
        return valor(u"select factura8 from caratula where interno = 'IC-CO'"_s).toStdString();
    }
    void sinMarca() { ejecutar(u"update caratula set factura8 = 'N'"_s); }

    std::vector<qint64> ids;
    qint64 id = 0;
};
EN_AMBOS_STORES(Certificados);

TEST_P(Certificados, ASavedOneFillsTheNumberOfItsLinesAndMarksTheOperation) {
    GuardarAEC(*ctx, opCertificada, u"R"_s);
    EXPECT_EQ(guardar(ficha({ids[0], ids[1]})), "ok");
    EXPECT_TRUE(registro.mensajes.empty() && registro.preguntas.empty());
    EXPECT_EQ(numeros(), "CO-1|CO-1|CO-VIEJO| ");
    EXPECT_EQ(
        filas(u"select numero,fecha,idpais,exportador,vencimiento,observaciones,interno from certorigen"_s)
            .toStdString(),
        "CO-1|2026-01-20 00:00:00|203|D'OR|2026-07-19 00:00:00|Sin 'más'|IC-CO");
    EXPECT_EQ(valor(u"select id from certorigen"_s), QString::number(id));
    EXPECT_EQ(marca(), "S");
    EXPECT_EQ(LeerAEC(*ctx, opCertificada), QString()) << "the answer to the tariff question is asked again";
}

TEST_P(Certificados, TakingALineAwayEmptiesItsNumber) {
    guardar(ficha({ids[0], ids[1]}));
    sinMarca();
    Ficha f = ficha({ids[1]});
    f.id = id;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_EQ(numeros(), "|CO-1|CO-VIEJO| ");
    EXPECT_EQ(marca(), "S");
}

TEST_P(Certificados, ANewNumberGoesToTheLines) {
    guardar(ficha({ids[0], ids[1]}));
    Ficha f = ficha({ids[0], ids[1]});
    f.id = id;
    f.TxtNumero = u"CO-2"_s;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_EQ(numeros(), "CO-2|CO-2|CO-VIEJO| ");
    EXPECT_EQ(valor(u"select count(*) from certorigen"_s), u"1"_s);
    EXPECT_TRUE(registro.preguntas.empty()) << "its own former number is no other certificate";
}

TEST_P(Certificados, WhatChangesNoLineDoesNotMarkTheOperation) {
    guardar(ficha({ids[0]}));
    sinMarca();
    Ficha f = ficha({ids[0]});
    f.id = id;
    f.TxtExportador = u"OTRO"_s;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_EQ(valor(u"select exportador from certorigen"_s), u"OTRO"_s);
    EXPECT_EQ(marca(), "N");
}

TEST_P(Certificados, WhatIsMissingOrWrongIsRefusedFieldByField) {
    struct Caso {
        QString Ficha::*campo;
        const char *valor;
        const char *foco;
        const char *texto;
    };
    const Caso casos[] = {
        {&Ficha::TxtNumero, " ", "TxtNumero",
         "Falta el número del certificado de origen, ingréselo para guardar."},
        {&Ficha::TxtFecha, "31/2/26", "TxtFecha", "La fecha del certificado no es válida, corríjala."},
        {&Ficha::TxtFecha, " ", "TxtFecha",
         "Falta la fecha del certificado de origen, ingrésela para guardar."},
        {&Ficha::TxtVencimiento, "pronto", "TxtVencimiento",
         "El vencimiento del certificado no es una fecha válida, corríjalo."},
        {&Ficha::TxtVencimiento, "19/01/2026", "TxtVencimiento",
         "El certificado vence antes de su fecha, corrija una de las dos."},
        {&Ficha::TxtIdPais, "", "TxtIdPais",
         "Falta el país de origen del certificado, ingréselo para guardar."},
        {&Ficha::TxtIdPais, "999", "TxtIdPais", "El país 999 no está en la tabla de países, elíjalo con F6."},
    };
    for (const Caso &c : casos) {
        Ficha f = ficha({ids[0]});
        f.*c.campo = QString::fromUtf8(c.valor);
        EXPECT_EQ(guardar(f), c.foco);
        EXPECT_EQ(dicho(), c.texto);
    }
    EXPECT_EQ(valor(u"select count(*) from certorigen"_s), u"0"_s);
    EXPECT_EQ(numeros(), "<null>||CO-VIEJO| ");
    EXPECT_EQ(marca(), "N");
}

TEST_P(Certificados, AnOpenExpiryAndOneOnItsOwnDayAreTaken) {
    Ficha f = ficha({ids[0]});
    f.TxtVencimiento = QString();
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_EQ(filas(u"select vencimiento from certorigen"_s), u"<null>"_s);
    f.id = id;
    f.TxtFecha = f.TxtVencimiento = u"3/2/26"_s;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_TRUE(registro.mensajes.empty()) << "it is good on its last day, that of the operation";
}

TEST_P(Certificados, ANumberIsInTheOperationOnceInAnyCase) {
    guardar(ficha({ids[0]}));
    Ficha f = ficha({});
    f.TxtNumero = u"co-1"_s;
    EXPECT_EQ(guardar(f), "TxtNumero");
    EXPECT_EQ(dicho(), "El certificado co-1 ya está en la operación, modifíquelo o ingrese otro número.");
}

TEST_P(Certificados, LinesOfAnotherCertificateAreAskedAboutFirst) {
    registro.respuestas = {false, true};
    EXPECT_EQ(guardar(ficha({ids[0], ids[2]})), "GrdLineas");
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "Ya hay otro certificado en la línea 3. ¿Desea reemplazarlo por el CO-1?");
    EXPECT_EQ(registro.preguntas[0].titulo, u"Certificado de origen"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(numeros(), "<null>||CO-VIEJO| ") << "nothing was written";
    EXPECT_EQ(guardar(ficha({ids[0], ids[2]})), "ok");
    EXPECT_EQ(numeros(), "CO-1||CO-1| ");
}

TEST_P(Certificados, OneThatIsExpiredOnTheOperationsDayIsTold) {
    Ficha f = ficha({ids[0]});
    f.TxtVencimiento = u"2/2/2026"_s;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_EQ(
        dicho(),
        "El certificado CO-1 venció el 02/02/2026, antes de la fecha de la operación (03/02/2026): pida "
        "uno vigente.");
    const certificados::Legajo legajo = leer();
    EXPECT_EQ(certificados::Aviso(legajo, legajo.certificados.at(0)), u"Vencido"_s);
}

TEST_P(Certificados, LinesOfAnotherCountryAreTold) {
    registro.respuestas = {true};
    Ficha f = ficha({ids[0], ids[2]});
    f.TxtVencimiento = u"2/2/2026"_s;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_EQ(
        dicho(),
        "El certificado CO-1 venció el 02/02/2026, antes de la fecha de la operación (03/02/2026): pida "
        "uno vigente.\r\n\r\nEl país del certificado CO-1 (203) no es el de la línea 3: revise el país o "
        "las líneas que cubre.");
    const certificados::Legajo legajo = leer();
    EXPECT_EQ(certificados::Aviso(legajo, legajo.certificados.at(0)), u"Vencido, Otro país"_s);
}

TEST_P(Certificados, TheHeadersCountryStandsForThatOfTheLinesAsTheAssemblyPutsIt) {
    ejecutar(u"update subitems set idpais = '' where idarticulo = 'A'"_s);
    ejecutar(u"update caratula set dcpaisorigen = '203'"_s);
    registro.respuestas = {true, true};
    guardar(ficha({ids[0], ids[2]}));
    EXPECT_EQ(
        dicho(),
        "El país del certificado CO-1 (203) no es el de la línea 3: revise el país o las líneas que cubre.");
    ejecutar(u"update caratula set dcforzarpaisorigen = 'S'"_s);
    EXPECT_TRUE(certificados::LineasDeOtroPais(leer(), leer().certificados.at(0)).empty()) << "forced on all";
}

TEST_P(Certificados, OfAnExportTheOriginIsWhereALineComesFrom) {
    ejecutar(u"update caratula set idsubreg = 'ec01'"_s);
    ejecutar(u"update subitems set idpais = '212', idpaisproc = '200'"_s);
    Ficha f = ficha({ids[0], ids[1]});
    f.TxtIdPais = u"200"_s;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_TRUE(registro.mensajes.empty());
    f.id = id;
    f.TxtIdPais = u"438"_s;
    guardar(f);
    EXPECT_EQ(dicho(),
              "El país del certificado CO-1 (438) no es el de las líneas 1 y 2: revise el país o las líneas "
              "que cubre.");
}

TEST_P(Certificados, DeletingOneEmptiesTheNumberOfItsLines) {
    guardar(ficha({ids[0], ids[1]}));
    sinMarca();
    EXPECT_FALSE(certificados::Eliminar(*ctx, opCertificada, id)) << "No is the default";
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "¿Confirma eliminar el certificado de origen CO-1? Sus 2 líneas quedan sin certificado.");
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(numeros(), "CO-1|CO-1|CO-VIEJO| ");
    registro.respuestas = {true};
    EXPECT_TRUE(certificados::Eliminar(*ctx, opCertificada, id));
    EXPECT_EQ(numeros(), "||CO-VIEJO| ");
    EXPECT_EQ(valor(u"select count(*) from certorigen"_s), u"0"_s);
    EXPECT_EQ(marca(), "S");
}

TEST_P(Certificados, OneThatAnotherScreenDeletedIsTold) {
    guardar(ficha({ids[0]}));
    Ficha f = ficha({ids[0], ids[1]});
    f.id = id;
    ejecutar(u"delete from certorigen"_s);
    EXPECT_EQ(guardar(f), "");
    EXPECT_EQ(dicho(), "El certificado ya no está en la operación: cierre la pantalla y vuelva a abrirla.");
    EXPECT_EQ(numeros(), "CO-1||CO-VIEJO| ") << "the lines stay as they were";
    registro.mensajes.clear();
    EXPECT_FALSE(certificados::Eliminar(*ctx, opCertificada, id));
    EXPECT_EQ(dicho(), "El certificado ya no está en la operación: cierre la pantalla y vuelva a abrirla.");
}

TEST_P(Certificados, AFailureLeavesTheCertificateAndItsLinesAsTheyWere) {
    ejecutar(u"drop table certorigen"_s);
    EXPECT_THROW(guardar(ficha({ids[0]})), Falla);
    EXPECT_EQ(numeros(), "<null>||CO-VIEJO| ");
    EXPECT_EQ(marca(), "N");
}

TEST_P(Certificados, ALineKeyedWithTheNumberIsCoveredAndOneKeyedWithAnotherIsNot) {
    guardar(ficha({ids[0], ids[1]}));
    ejecutar(u"update subitems set certorig = 'CO-9' where idarticulo = 'A'"_s);
    ejecutar(u"update subitems set certorig = ' co-1 ' where idarticulo = 'D'"_s);
    EXPECT_EQ(leer().lineasDe(u"CO-1"_s), (std::set<qint64>{ids[1], ids[3]}));
    EXPECT_EQ(leer().numerosSueltos(), (QStringList{u"CO-9"_s, u"CO-VIEJO"_s}));
    // Saved again, every line spells the number as the certificate does.
    Ficha f = ficha({ids[1], ids[3]});
    f.id = id;
    EXPECT_EQ(guardar(f), "ok");
    EXPECT_EQ(numeros(), "CO-9|CO-1|CO-VIEJO|CO-1");
}

TEST_P(Certificados, AThousandLinesAreCoveredAtOnce) {
    // More than one statement takes.
    QStringList valores;
    for (int n = 0; n < 1100; ++n) valores << u"('IC-CO','X%1','203',1)"_s.arg(n);
    ejecutar(u"insert into subitems (interno,idarticulo,idpais,fob) values "_s + valores.join(u','));
    std::set<qint64> todas;
    for (const certificados::Linea &l : leer().lineas)
        if (l.idarticulo.startsWith(u'X')) todas.insert(l.id);
    EXPECT_EQ(guardar(ficha(todas)), "ok");
    EXPECT_EQ(valor(u"select count(*) from subitems where certorig = 'CO-1'"_s), u"1100"_s);
}

TEST_P(Certificados, OtherOperationsAreNotTouched) {
    ejecutar(u"insert into caratula (interno,factura8) values ('OTRA','N')"_s);
    ejecutar(u"insert into subitems (interno,certorig) values ('OTRA','CO-1')"_s);
    guardar(ficha({ids[0]}));
    registro.respuestas = {true};
    EXPECT_TRUE(certificados::Eliminar(*ctx, opCertificada, id));
    EXPECT_EQ(filas(u"select certorig from subitems where interno = 'OTRA'"_s), u"CO-1"_s);
    EXPECT_EQ(filas(u"select factura8 from caratula where interno = 'OTRA'"_s), u"N"_s);
}

TEST_P(Certificados, ACopyCarriesThemWithItsLines) {
    guardar(ficha({ids[0], ids[1]}));
    oOperationCopy::Copiar(*ctx, opCertificada, u"COPIA"_s);
    const certificados::Legajo copia = certificados::Leer(*ctx, u"COPIA"_s);
    ASSERT_EQ(copia.certificados.size(), 1U);
    EXPECT_EQ(copia.certificados[0].exportador, u"D'OR"_s);
    EXPECT_NE(copia.certificados[0].id, id);
    EXPECT_EQ(copia.lineasDe(u"CO-1"_s).size(), 2U);
    // The copy's are its own.
    registro.respuestas = {true};
    EXPECT_TRUE(certificados::Eliminar(*ctx, u"COPIA"_s, copia.certificados[0].id));
    EXPECT_EQ(numeros(), "CO-1|CO-1|CO-VIEJO| ");
    EXPECT_EQ(leer().certificados.size(), 1U);
}

TEST_P(Certificados, TheyGoWithTheirOperation) {
    guardar(ficha({ids[0]}));
    ejecutar(u"insert into certorigen (interno,numero) values ('OTRA','CO-1')"_s);
    EXPECT_TRUE(EliminarSinPreguntar(*ctx, opCertificada));
    EXPECT_EQ(filas(u"select interno from certorigen"_s), u"OTRA"_s);
}

TEST_P(Certificados, TheListTellsEachWithItsLinesAndTheSumOfTheirFob) {
    guardar(ficha({ids[0], ids[1]}));
    Ficha sola = ficha({});
    sola.TxtNumero = u"CO-0"_s;
    sola.TxtVencimiento = QString();
    guardar(sola);
    const papel::Tabla tabla = certificados::TablaDeCertificados(*ctx, opCertificada);
    const papel::Reporte r = papel::ReporteDe(tabla, u',');
    QStringList lineas;
    for (const papel::Renglon &renglon : r.renglones) lineas << renglon.texto.simplified();
    lineas.removeAll(QString());
    lineas.removeIf([](const QString &l) { return l.startsWith(u'─') || l.startsWith(u'═'); });
    // 100.50 + 50.00 = 150.50
    EXPECT_EQ(lineas.join(u'\n').toStdString(),
              "CO-0 del 20/01/2026, país 203, D'OR\nCO-0\nSubtotal CO-0 00,00\n"
              "CO-1 del 20/01/2026, país 203, D'OR, vence el 19/07/2026\n"
              "CO-1 19/07/2026 0001 A 00,00 203 100,50\nCO-1 19/07/2026 0002 B 00,00 203 50,00\n"
              "Subtotal CO-1 150,50\nTotal 150,50");
    EXPECT_TRUE(certificados::TablaDeCertificados(*ctx, u"NO"_s).filas.empty());
}

TEST(NombresDeLineas, AreTheFirstSixAndHowManyMore) {
    EXPECT_EQ(certificados::NombrarLineas({3}), u"la línea 3"_s);
    EXPECT_EQ(certificados::NombrarLineas({3, 5}), u"las líneas 3 y 5"_s);
    EXPECT_EQ(certificados::NombrarLineas({1, 2, 3, 4, 5, 6}), u"las líneas 1, 2, 3, 4, 5 y 6"_s);
    EXPECT_EQ(certificados::NombrarLineas({1, 2, 3, 4, 5, 6, 7, 8}),
              u"las líneas 1, 2, 3, 4, 5, 6 y 2 más"_s);
}

}  // namespace
