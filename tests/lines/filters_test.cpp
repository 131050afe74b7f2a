// The filters of the list of lines.

#include "subitems/linefilters.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/lines/lineas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class FiltrosDeLaLista : public Lineas {
 protected:
    void SetUp() override {
        Lineas::SetUp();
        const char *const lineas[] = {
            // article, position, net kilos, origin, condition, suffixes, statistical quantity, description
            "'A','8413.70.10.100L',10,'203','2','AA01-AB(X 1)-',24,'Bomba chica'",
            "'B','2204.21.00.100X',0,'','','',0,'Vino de mesa'",
            "'C','3901.10.10.000A',40.5,null,null,null,40.5,'Polietileno 100% lineal'",
            "'D','3901.10.10.000',null,'310','1','AB()-AI(x)-',null,null",
            "'E','9999.99.99.999Z',1,'203','2','SIN SUFIJOS',0,'DArtagnan y ÑANDÚ'",
            "'F',null,0,'','','AB(a)-',0,'Bolsa_1'",
            "'G','8413.70.10.100l',3,'438','2','aa01-ab(x 1)-',5,'bomba grande'"};
        for (const char *operacion : {"OP 1", "OTRA"})
            for (const char *linea : lineas)
                ejecutar(
                    u"insert into subitems (interno,idarticulo,ncm,kgneto,idpais,estadomerc,sufijos,"
                    "valorrelacionestadistica,descripcion) values ('%1',%2)"_s.arg(QLatin1String(operacion),
                                                                                   QString::fromUtf8(linea)));
    }

    /// The articles that the filter shows, in the order of the list.
    std::string articulos(int numero, const QString &valor = {}) {
        QString todos;
        for (const FilaSubItem &f :
             GetRsSubtiems(*ctx, interno, CondicionDe(FiltroCon(*FiltroDeNumero(numero), valor))))
            todos += f.idarticulo;
        return todos.toStdString();
    }
    static std::string sentencia(int numero, const QString &valor = {}) {
        return SentenciaSubItems(u"OP 1"_s, true, CondicionDe(FiltroCon(*FiltroDeNumero(numero), valor)))
            .toStdString();
    }
};

TEST_P(FiltrosDeLaLista, EachShowsItsLines) {
    struct Caso {
        int numero;
        const char *valor;
        const char *muestra;
    };
    const Caso casos[] = {
        {1, "", "ACEG"},     {2, "", "BF"},  // D has none at all
        {3, "", "ADEG"},     {4, "", "BCF"},
        {5, "", "ADEG"},     {6, "", "BCF"},
        {7, "8413", "AG"},   {7, " 8413.70.10.100L ", "AG"},  // either case, and no blanks around a code
        {7, "39%000A", "C"}, {7, "8413.7_.1", "AG"},
        {7, "7", ""},  // by its beginning
        {8, "", "D"},        {9, "", "BC"},
        {10, "", "BEF"},     {11, "", "D"},
        {12, "203", "AE"},   {12, "20", ""},  // whole
        {13, "bomba", "AG"}, {13, "ñandú", "E"},
        {13, "100%", "C"},   {13, "a_1", "F"},
        {13, "D'Art", "E"},                     // its apostrophe removed
        {13, "o c", ""},     {13, "a c", "A"},  // blanks in a text are looked for
        {14, "", "ADEFG"},                      // the mark, or a position that is not known
        {15, "", "BC"},                         // known, and without the mark
        {16, "", "DEF"},                        // G's in another case is known
        {17, "ab(x", "AG"},  {17, "AI(X)", "D"},
        {17, "%", ""},  // no pattern
    };
    std::set<int> vistos;
    for (const Caso &c : casos) {
        EXPECT_EQ(articulos(c.numero, QString::fromUtf8(c.valor)), c.muestra)
            << c.numero << " \"" << c.valor << '"';
        vistos.insert(c.numero);
    }
    EXPECT_EQ(vistos.size(), FiltrosDeLineas().size());
}

TEST_P(FiltrosDeLaLista, TheListTakesTheOrderOfTheOptionAndEachLineKeepsItsNumberInTheOperation) {
    const auto numeros = [this] {
        QStringList todos;
        for (const FilaSubItem &f : GetRsSubtiems(*ctx, interno, CondicionDe({12, u"203"_s})))
            todos << f.numero + f.idarticulo;
        return todos.join(u' ').toStdString();
    };
    ctx->opciones.SbtMostrarAsc = false;
    EXPECT_EQ(numeros(), "0001A 0005E");
    ctx->opciones.SbtMostrarAsc = true;
    EXPECT_EQ(numeros(), "0005E 0001A");
    const qint64 quinta = valor(
                              u"select max(id) as n from subitems where interno = 'OP 1' and idarticulo = "
                              "'E'"_s)
                              .toLongLong();
    EXPECT_EQ(NumeroDeLinea(*ctx, interno, quinta).toStdString(), "0005");
    EXPECT_EQ(NumeroDeLinea(*ctx, u"OTRA"_s, quinta).toStdString(), "");
}

// Filter 8 lists lines with a position not of 15 characters, whatever the nomenclature says.
TEST_P(FiltrosDeLaLista, Filter8ListsAPositionOfAnotherLengthWhateverTheNomenclatureSays) {
    ejecutar(u"insert into ncm ([001],[002],[003],[059]) values ('3901.10.10','000','','')"_s, u"NCM"_s);
    EXPECT_EQ(articulos(15), "BCD") << "the nomenclature has the fourteen characters";
    EXPECT_EQ(articulos(8), "D");
    ejecutar(u"delete from ncm"_s, u"NCM"_s);
    EXPECT_EQ(articulos(8), "D");
}

// Filter 11 finds suffix texts with an empty parenthesis.
TEST_P(FiltrosDeLaLista, Filter11FindsSuffixTextsWithAnEmptyParenthesis) {
    ejecutar(u"update subitems set sufijos = 'AA01-AB(X)-ZB()-' where idarticulo = 'A'"_s);
    ejecutar(u"update subitems set sufijos = 'AB( )-' where idarticulo = 'G'"_s);
    EXPECT_EQ(articulos(11), "AD") << "a blank in it is no empty one";
}

// With filter 14 or 15, a line whose position isn't in the nomenclature falls under "NOT EXISTS".
TEST_P(FiltrosDeLaLista, AnUnknownPositionFallsUnderNotExists) {
    ejecutar(u"delete from ncm"_s, u"NCM"_s);
    EXPECT_EQ(articulos(14), "ABCDEFG");
    EXPECT_EQ(articulos(15), "");
    EXPECT_EQ(articulos(16), "ABCDEFG");
}

TEST_P(FiltrosDeLaLista, APositionThatSaysNothingOfLapiFallsUnderNotExistsToo) {
    ejecutar(u"update ncm set [059] = null where [001] = '2204.21.00'"_s, u"NCM"_s);
    EXPECT_EQ(articulos(14), "ABDEFG");
    EXPECT_EQ(articulos(15), "C");
    EXPECT_EQ(articulos(16), "DEF");
}

TEST_P(FiltrosDeLaLista, AnEmptyNomenclatureColumnTakesNoLineAlong) {
    // A row that names no position: in a list of names it is one that is not known.
    ejecutar(u"insert into ncm ([001],[002],[003],[059]) values ('1111.11.11',null,'A','')"_s, u"NCM"_s);
    EXPECT_EQ(articulos(14), "ADEFG");
    EXPECT_EQ(articulos(15), "BC");
}

TEST_P(FiltrosDeLaLista, WhatIsSentIsTheOneStatementOfTheList) {
    const std::string cabeza =
        "select interno,estadomerc,sufijos,idpais,kgneto,id,ncm,idunidad,cantidad,preciounitario,fob,idarticulo,"
        "cancelaciones, itfiller, descripcion as descr, descripcion_maria, idcatalogo, naladisa, factura_nro "
        "from subitems as a ";
    const std::string deUna = "where interno = 'OP 1";
    const std::string cola = " order by a.id desc";
    const std::string posicion = "(ncm.[001] + '.' + ncm.[002] + ncm.[003])";
    const std::string lapi = "EXISTS (select  " + posicion +
                             " from ncm where ncm.[059] = '' and a.ncm = " + posicion +
                             ") and a.interno = 'OP 1'";
    const std::string esperadas[] = {
        deUna + "'",
        deUna + "' and (kgneto>0) ",
        deUna + "' and (kgneto=0) ",
        deUna + "' and not (idpais = '' or idpais is null) ",
        deUna + "' and (idpais = '' or idpais is null) ",
        deUna + "' and not (estadomerc = '' or estadomerc is null) ",
        deUna + "' and (estadomerc = '' or estadomerc is null) ",
        deUna + "' and ncm like '8413%' ",
        deUna + "' and len(ncm)<>15 ",
        deUna + "' and (sufijos='' or sufijos is null)",
        deUna + "' and valorrelacionestadistica = 0",
        deUna + "' and charindex('()',sufijos)>0 ",
        deUna + "' and idpais = '8413' ",
        deUna + "' and descripcion like '%8413%' ",
        "where NOT " + lapi,
        "where " + lapi,
        "where NOT EXISTS (select  1 From NCM where left(a.ncm,10) = ncm.[001] and  substring (a.ncm,12,3) = "
        "ncm.[002] and right(a.ncm,1) = ncm.[003]) and a.interno = 'OP 1'",
        deUna + "' and charindex('8413',sufijos)>0 ",
    };
    EXPECT_EQ(SentenciaSubItems(u"OP 1"_s, true).toStdString(), cabeza + esperadas[0] + cola);
    EXPECT_EQ(SentenciaSubItems(u"OP 1"_s, false, CondicionDe({})).toStdString(),
              cabeza + esperadas[0] + " order by a.id asc");
    for (const FiltroDeLineas &f : FiltrosDeLineas())
        EXPECT_EQ(sentencia(f.numero, u"8413"_s), cabeza + esperadas[f.numero] + cola) << f.numero;
}

TEST_P(FiltrosDeLaLista, FourOfThemAskForAValueAndTheOthersForNothing) {
    struct Caso {
        int numero;
        const char16_t *pregunta;
        const char16_t *titulo;
    };
    const Caso casos[] = {
        {7, u"Ingrese la posición arancelaria (completa o incompleta) a buscar:", u"Filtro por Posición ..."},
        {12, u"Ingrese el codigo Maria del Pais de Origen", u"Filtro por País de Origen..."},
        {13, u"Ingrese el texto a buscar en descripción de articulos",
         u"Filtro por Descripción de artículos..."},
        {17, u"Ingrese el texto a buscar en los sufijos", u"Filtro por texto de sufijos..."}};
    std::set<int> preguntan;
    for (const Caso &c : casos) {
        preguntan.insert(c.numero);
        registro.textos = {u"L'o que sea"_s};
        const FiltroActivo f = PedirFiltro(*ctx, *FiltroDeNumero(c.numero));
        ASSERT_EQ(registro.entradas.size(), preguntan.size());
        EXPECT_EQ(registro.entradas.back().texto, QString::fromUtf16(c.pregunta));
        EXPECT_EQ(registro.entradas.back().titulo, QString::fromUtf16(c.titulo));
        EXPECT_EQ(registro.entradas.back().inicial, QString());
        EXPECT_EQ(f.numero, c.numero);
        EXPECT_EQ(f.valor, u"Lo que sea"_s);
    }
    for (const FiltroDeLineas &f : FiltrosDeLineas()) {
        if (preguntan.count(f.numero) != 0) continue;
        EXPECT_EQ(PedirFiltro(*ctx, f).numero, f.numero);
    }
    EXPECT_EQ(registro.entradas.size(), 4U);
}

TEST_P(FiltrosDeLaLista, AnEmptyAnswerSetsTheFilterBackToNone) {
    for (const int numero : {7, 12, 13, 17}) {
        for (const auto &respuesta : {std::optional<QString>(), std::optional(QString()),
                                      std::optional(u" "_s), std::optional(u"''"_s)}) {
            registro.textos = {respuesta};
            const FiltroActivo f = PedirFiltro(*ctx, *FiltroDeNumero(numero), {4, {}});
            EXPECT_FALSE(f.activo()) << numero;
            EXPECT_EQ(CondicionDe(f), CondicionDeLineas());
            EXPECT_EQ(TextoDeFiltro(f), QString());
        }
    }
}

TEST_P(FiltrosDeLaLista, TheSameQuestionOffersTheValueThatIsOn) {
    registro.textos = {u"8482"_s, u"438"_s};
    EXPECT_EQ(PedirFiltro(*ctx, *FiltroDeNumero(7), {7, u"8413"_s}).valor, u"8482"_s);
    EXPECT_EQ(registro.entradas.back().inicial, u"8413"_s);
    EXPECT_EQ(PedirFiltro(*ctx, *FiltroDeNumero(12), {7, u"8413"_s}).valor, u"438"_s);
    EXPECT_EQ(registro.entradas.back().inicial, QString());
}

TEST_P(FiltrosDeLaLista, FiltersAreFoundByNumberAndByName) {
    std::set<QString> nombres;
    int numero = 0;
    for (const FiltroDeLineas &f : FiltrosDeLineas()) {
        EXPECT_EQ(f.numero, ++numero);
        EXPECT_EQ(FiltroDeNumero(f.numero), &f);
        EXPECT_EQ(FiltroDeNombre(QString::number(f.numero)), &f);
        EXPECT_EQ(FiltroDeNombre(QString::fromLatin1(f.nombre).toUpper()), &f);
        nombres.insert(QString::fromLatin1(f.nombre));
    }
    EXPECT_EQ(numero, 17);
    EXPECT_EQ(nombres.size(), 17U);
    for (const char *ninguno : {"", "0", "18", "04", "kilos"})
        EXPECT_EQ(FiltroDeNombre(QLatin1String(ninguno)), nullptr) << ninguno;
    EXPECT_EQ(FiltroDeNumero(0), nullptr);
}

TEST_P(FiltrosDeLaLista, AFilterIsToldInWordsWithItsValue) {
    EXPECT_EQ(TextoDeFiltro({4, {}}), u"Sin país de origen"_s);
    EXPECT_EQ(TextoDeFiltro({7, u"8413"_s}), u"Por posición arancelaria: 8413"_s);
    EXPECT_EQ(TextoDeFiltro({13, u"R&D..."_s}), u"Por descripción del artículo: R&D..."_s);
}

EN_AMBOS_STORES(FiltrosDeLaLista);

}  // namespace
