#include <gtest/gtest.h>

#include "frame/base/values.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class TextosEnElStore : public EnAmbosStores {
 protected:
    bool esServidor() const { return std::string(GetParam()) == "SQL"; }
    bool falla(const QString &sql) {
        try {
            Recordset rs;
            Consultar(*ctx, "INTERNOS", sql, rs);
        } catch (const Falla &) {
            return true;
        }
        return false;
    }
    /// How many lines of operation A meet the condition.
    std::string cuantas(const QString &condicion) {
        return valor("select count(*) from subitems where interno = 'A' and " + condicion).toStdString();
    }
};
EN_AMBOS_STORES(TextosEnElStore);

TEST_P(TextosEnElStore, ADescriptionWithAQuoteIsStoredAsItWasTyped) {
    for (const QString &descripcion :
         {u"Válvula d'Or 5''"_s, u"'"_s, u"''"_s, u"''; delete from subitems; --"_s, u"fin'"_s}) {
        ejecutar("delete from subitems");
        ejecutar("insert into subitems (interno,descripcion) values ('A','" + DoblarComillas(descripcion) +
                 "')");
        EXPECT_EQ(valor("select descripcion from subitems").toStdString(), descripcion.toStdString());
        EXPECT_EQ(cuantas("descripcion = '" + DoblarComillas(descripcion) + "'"), "1");
    }
}

TEST_P(TextosEnElStore, AnOperationKeyWithAQuoteIsRefusedByTheStore) {
    const QString clave = u"OP'1"_s;
    EXPECT_TRUE(falla("select * from caratula where interno = '" + clave + "'"));
    EXPECT_TRUE(falla("insert into caratula (interno) values ('" + clave + "')"));
    EXPECT_TRUE(falla("delete from caratula where interno = '" + clave + "'"));
    EXPECT_EQ(valor("select count(*) from caratula").toStdString(), "0");
}

TEST_P(TextosEnElStore, AnyTextComesBackAsItWent) {
    for (const QString &texto :
         {u"ñandú ÁÉÍÓÚ ü"_s, u"日本語 Ω ✓"_s, u"🚢 contenedor"_s,
          u"e\u0301"_s,  // an accent of its own
          u"a\tb\r\nc"_s, u"C:\\ruta\\nueva"_s, u"100%_[x]{y}"_s, u"-- comentario /* no */"_s,
          u"#01/02/2026#"_s, u"\"doble\""_s, u"$1 $$ :x ?1"_s, u"  blancos  "_s, QString(20000, u'ñ')}) {
        ejecutar("delete from subitems");
        ejecutar("insert into subitems (interno,descripcion) values ('A','" + texto + "')");
        EXPECT_EQ(valor("select descripcion from subitems").toStdString(), texto.toStdString());
        EXPECT_EQ(cuantas("descripcion = '" + texto + "'"), "1");
    }
}

TEST_P(TextosEnElStore, TextsCompareWithoutRegardToCase) {
    ejecutar("insert into subitems (interno,descripcion,ncm) values ('A','Ñandú','8409.91.12.100g')");
    EXPECT_EQ(cuantas("descripcion = 'ÑANDÚ'"), "1");
    EXPECT_EQ(cuantas("descripcion = 'ñandú'"), "1");
    EXPECT_EQ(cuantas("descripcion <> 'ñANDÚ'"), "0");
    EXPECT_EQ(cuantas("descripcion in ('x','ÑANDÚ')"), "1");
    EXPECT_EQ(cuantas("descripcion like 'ñ%Ú'"), "1");
    EXPECT_EQ(cuantas("left(descripcion,2) = 'ña'"), "1");
    EXPECT_EQ(cuantas("right(ncm,4) = '100G'"), "1");
    EXPECT_EQ(cuantas("substring(descripcion,2,3) = 'AND'"), "1");
    EXPECT_EQ(valor("select interno from subitems where interno = 'a'").toStdString(), "A");
    // An accent is no case.
    EXPECT_EQ(cuantas("descripcion = 'Nandu'"), "0");
}

TEST_P(TextosEnElStore, GroupsAndDistinctFoldCaseToo) {
    for (const char *d : {"Ñu", "ÑU", "ñu", "b"})
        ejecutar(u"insert into subitems (interno,descripcion,cantidad) values ('A','%1',1)"_s.arg(
            QString::fromUtf8(d)));
    EXPECT_EQ(filas("select count(*), sum(cantidad) from subitems group by descripcion").toStdString(),
              "1|1\n3|3");
    Recordset rs;
    Consultar(*ctx, "INTERNOS", "select distinct descripcion from subitems", rs);
    EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_P(TextosEnElStore, TheOrderOfTextsIsTheSameOnBothStores) {
    for (const char *d :
         {"b", "A", "a1", "Zeta", "ñu", "Ñandú", "ómnibus", "_x", "10", "9", "", "z", "Bé", "be"})
        ejecutar(u"insert into subitems (interno,descripcion) values ('A','%1')"_s.arg(QString::fromUtf8(d)));
    ejecutar("insert into subitems (interno) values ('A')");
    // Nulls first, then by code point of the lower-cased text.
    EXPECT_EQ(filas("select descripcion from subitems order by descripcion").toStdString(),
              "<null>\n\n10\n9\n_x\nA\na1\nb\nbe\nBé\nz\nZeta\nÑandú\nñu\nómnibus");
    EXPECT_EQ(filas("select top 3 descripcion from subitems order by descripcion desc").toStdString(),
              "ómnibus\nñu\nÑandú");
}

TEST_P(TextosEnElStore, EndsOfTextAreNotTrimmed) {
    ejecutar("insert into subitems (interno,descripcion) values ('A','tubo ')");
    EXPECT_EQ(cuantas("descripcion = 'tubo'"), "0");
    EXPECT_EQ(cuantas("descripcion = 'tubo '"), "1");
    EXPECT_EQ(cuantas("descripcion like 'tubo'"), "0");
    EXPECT_EQ(valor("select descripcion from subitems").toStdString(), "tubo ");
    EXPECT_EQ(valor("select len(descripcion) from subitems").toStdString(), "5");
}

TEST_P(TextosEnElStore, LengthsCountCharacters) {
    ejecutar("insert into subitems (interno,descripcion) values ('A','ñ🚢日x')");
    EXPECT_EQ(valor("select len(descripcion) from subitems").toStdString(), "4");
    EXPECT_EQ(valor("select left(descripcion,2) from subitems").toStdString(), "ñ🚢");
    EXPECT_EQ(valor("select right(descripcion,2) from subitems").toStdString(), "日x");
    EXPECT_EQ(valor("select substring(descripcion,2,2) from subitems").toStdString(), "🚢日");
    EXPECT_EQ(valor("select charindex('X',descripcion) from subitems").toStdString(), "4");
    EXPECT_EQ(valor("select charindex('q',descripcion) from subitems").toStdString(), "0");
    EXPECT_EQ(cuantas("descripcion like 'ñ_日_'"), "1");
}

TEST_P(TextosEnElStore, NoCharacterOfAPatternEscapesAnother) {
    ejecutar("insert into subitems (interno,descripcion) values ('A','C:\\obra')");
    ejecutar("insert into subitems (interno,descripcion) values ('A','C:xobra')");
    EXPECT_EQ(cuantas("descripcion like 'c:\\%'"), "1");
    EXPECT_EQ(cuantas("descripcion like '%\\_bra'"), "1");
    EXPECT_EQ(cuantas("descripcion like 'c:_obra'"), "2");
}

// What the texts lean on without saying so

TEST_P(TextosEnElStore, ANumberBetweenQuotesIsANumberInANumericColumn) {
    ejecutar("insert into itemliq (iditem,interno,idconceptos,total) values ('1','A','010','12.50')");
    EXPECT_EQ(ejecutar("update itemliq set porcentaje = '0',baseimp = '0', total = '0' where interno = 'A'"),
              1);
    EXPECT_EQ(filas("select iditem,porcentaje,baseimp,total from itemliq").toStdString(), "1|0|0|0");
    ejecutar("update itemliq set total = '100.25'");
    EXPECT_EQ(valor("select total * 2 from itemliq").toStdString(), "200.5");
    EXPECT_EQ(valor("select count(*) from itemliq where total > '99'").toStdString(), "1");
    EXPECT_EQ(valor("select count(*) from itemliq where total = '100.250'").toStdString(), "1");
    EXPECT_EQ(valor("select count(*) from itemliq where iditem = '1' and idconceptos = '010'").toStdString(),
              "1");
}

TEST_P(TextosEnElStore, ATextColumnComparedWithANumberComparesAsText) {
    ejecutar("insert into subitems (interno,insumostemp,idunidad) values ('A','7','01')");
    EXPECT_EQ(cuantas("insumostemp = 7"), "1");
    EXPECT_EQ(cuantas("insumostemp <> 7"), "0");
    EXPECT_EQ(cuantas("insumostemp = 8"), "0");
    // "01" is no "1": a code keeps its zeros.
    EXPECT_EQ(cuantas("idunidad = 1"), "0");
    EXPECT_EQ(cuantas("7 = insumostemp"), "1");
}

TEST_P(TextosEnElStore, IsnumericTakesAnyType) {
    struct Caso {
        const char *texto;
        const char *es;
    };
    for (const Caso &c : {Caso{"'12'", "1"}, Caso{"'-1.5'", "1"}, Caso{"'1,5'", "1"}, Caso{"'1e3'", "1"},
                          Caso{"' 7 '", "1"}, Caso{"'1.2.3'", "0"}, Caso{"'abc'", "0"}, Caso{"''", "0"},
                          Caso{"'.'", "0"}, Caso{"null", "0"}, Caso{"'٣'", "0"}}) {
        ejecutar("delete from subitems");
        ejecutar(
            u"insert into subitems (interno,insumosacons) values ('A',%1)"_s.arg(QString::fromUtf8(c.texto)));
        EXPECT_EQ(valor("select isnumeric(insumosacons) from subitems").toStdString(), c.es) << c.texto;
        EXPECT_EQ(cuantas("isnumeric(insumosacons) = 1"), c.es) << c.texto;
    }
    ejecutar("update subitems set cantidad = 3");
    EXPECT_EQ(valor("select isnumeric(cantidad) from subitems").toStdString(), "1");
    EXPECT_EQ(valor("select isnumeric(kgneto) from subitems").toStdString(), "0");
    EXPECT_EQ(valor("select isnumeric(id) from subitems").toStdString(), "1");
}

TEST_P(TextosEnElStore, AnEmptyTextGoesIntoATextColumnThatHoldsNumbers) {
    ejecutar("insert into subitems (interno,insumostemp,ajusteincluir) values ('A','','')");
    EXPECT_EQ(cuantas("insumostemp = ''"), "1");
    ejecutar("update subitems set insumostemp = '0' where insumostemp = '' or isnumeric(insumostemp) = 0");
    ejecutar("update subitems set ajusteincluir = 0 where isnumeric(ajusteincluir) = 0");
    EXPECT_EQ(filas("select insumostemp,ajusteincluir from subitems").toStdString(), "0|0");
    ejecutar("update subitems set insumosacons = 12");
    EXPECT_EQ(filas("select insumosacons from subitems").toStdString(), "12");
}

TEST_P(TextosEnElStore, PlusJoinsTextsAndAddsNumbers) {
    ejecutar("insert into subitems (interno,ncm,idarticulo,cantidad,fob) values ('A','84','x',2,3)");
    EXPECT_EQ(valor("select ncm + '.' + idarticulo from subitems").toStdString(), "84.x");
    EXPECT_EQ(valor("select cantidad + fob from subitems").toStdString(), "5");
    EXPECT_EQ(cuantas("ncm + '-' = '84-'"), "1");
}

// Dates

TEST_P(TextosEnElStore, TheDateLiteralOfAnEntityGoesInAndComesBack) {
    const QDateTime momento(QDate(2026, 3, 5), QTime(14, 7, 9));
    const QString literal = ctx->DataManager.getDateFormatbyEntity("INTERNOS", momento);
    EXPECT_EQ(literal.toStdString(), esServidor() ? "'2026-03-05 14:07:09'" : "#03/05/2026 14:07:09#");
    ejecutar("insert into caratula (interno,fechaalta) values ('A'," + literal + ")");
    ejecutar("insert into caratula (interno,fechaalta) values ('B'," +
             ctx->DataManager.getDateFormatbyEntity("INTERNOS", momento.addDays(-40)) + ")");
    EXPECT_EQ(valor("select fechaalta from caratula where interno = 'A'").toStdString(),
              "2026-03-05 14:07:09");
    EXPECT_EQ(valor("select interno from caratula where fechaalta >= " + literal).toStdString(), "A");
    EXPECT_EQ(valor("select interno from caratula where fechaalta = " + literal).toStdString(), "A");
    EXPECT_EQ(filas("select interno from caratula order by fechaalta").toStdString(), "B\nA");
    // The local store keeps the file's form in a server profile too.
    EXPECT_EQ(ctx->DataManager.getDateFormatbyEntity("USUARIO", momento).toStdString(),
              "#03/05/2026 14:07:09#");
}

// The tables of an operation

TEST_P(TextosEnElStore, AnItemZeroIsKeptApartByItsIdentity) {
    for (int id = 0; id <= 3; ++id)
        ejecutar(u"insert into item (id,interno,fobtotal) values (%1,'A',10)"_s.arg(id));
    EXPECT_EQ(valor("select count(*) as n from item where interno = 'A' and id<>0").toStdString(), "3");
    EXPECT_EQ(valor("select count(*) as n from item where interno = 'A' and id>0").toStdString(), "3");
    EXPECT_EQ(valor("select sum(fobtotal) as n from item where interno = 'A' and id<>0").toStdString(), "30");
}

TEST_P(TextosEnElStore, ALockRowMayStandForAKeyThatNoHeaderHas) {
    ejecutar("insert into interno (interno,maquina,usuario) values ('X','PC1','PC1')");
    EXPECT_EQ(valor("select count(*) from caratula where interno = 'X'").toStdString(), "0");
    EXPECT_EQ(valor("select maquina from interno where interno = 'X'").toStdString(), "PC1");
}

TEST_P(TextosEnElStore, AKeyOfFortyCharactersFitsEveryTableOfAnOperation) {
    const QString clave(40, u'Ñ');
    for (const char *tabla :
         {"caratula", "subitems", "groupsubitems", "item", "itemliq", "itemventaja", "iteminfo", "liqcero",
          "sysflag", "idrel", "descargas", "facturas", "prorrateo", "itempresu", "itemref", "interno"}) {
        const QString de = QLatin1String(tabla);
        ejecutar("insert into " + de + " (interno) values ('" + clave + "')");
        EXPECT_EQ(
            valor("select interno from " + de + " where interno = '" + clave.toLower() + "'").toStdString(),
            clave.toStdString())
            << tabla;
    }
}

TEST_P(TextosEnElStore, TheCommentOfAnOperationStaysBehindInItsOwnStore) {
    ejecutar("insert into caratula (interno) values ('A')");
    ejecutar("insert into coment (interno,coment) values ('A','nota')", "SYSTABLAS");
    ejecutar("delete from caratula where interno = 'A'");
    EXPECT_EQ(valor("select coment from coment where interno = 'A'", "SYSTABLAS").toStdString(), "nota");
}

TEST_P(TextosEnElStore, TheScratchTableOfReportLinesNumbersThemInOrder) {
    for (const char *linea : {"uno", "dos", "tres"})
        ejecutar(u"insert into tabla (linea) values ('%1')"_s.arg(QLatin1String(linea)), "PERSONAL");
    EXPECT_EQ(filas("select linea from tabla order by idlin", "PERSONAL").toStdString(), "uno\ndos\ntres");
    EXPECT_EQ(ejecutar("delete from tabla", "PERSONAL"), 3);
}

}  // namespace
