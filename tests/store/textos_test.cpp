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
            Consultar(*ctx, u"INTERNOS"_s, sql, rs);
        } catch (const Falla &) {
            return true;
        }
        return false;
    }
    /// How many lines of operation A meet the condition.
    std::string cuantas(const QString &condicion) {
        return valor("select count(*) from subitems where interno = 'A' and "_L1 + condicion).toStdString();
    }
};
EN_AMBOS_STORES(TextosEnElStore);

TEST_P(TextosEnElStore, ADescriptionWithAQuoteIsStoredAsItWasTyped) {
    for (const QString &descripcion :
         {u"Válvula d'Or 5''"_s, u"'"_s, u"''"_s, u"''; delete from subitems; --"_s, u"fin'"_s}) {
        ejecutar(u"delete from subitems"_s);
        ejecutar("insert into subitems (interno,descripcion) values ('A','"_L1 + DoblarComillas(descripcion) +
                 "')"_L1);
        EXPECT_EQ(valor(u"select descripcion from subitems"_s).toStdString(), descripcion.toStdString());
        EXPECT_EQ(cuantas("descripcion = '"_L1 + DoblarComillas(descripcion) + "'"_L1), "1");
    }
}

TEST_P(TextosEnElStore, AnOperationKeyWithAQuoteIsRefusedByTheStore) {
    const QString clave = u"OP'1"_s;
    EXPECT_TRUE(falla("select * from caratula where interno = '"_L1 + clave + "'"_L1));
    EXPECT_TRUE(falla("insert into caratula (interno) values ('"_L1 + clave + "')"_L1));
    EXPECT_TRUE(falla("delete from caratula where interno = '"_L1 + clave + "'"_L1));
    EXPECT_EQ(valor(u"select count(*) from caratula"_s).toStdString(), "0");
}

TEST_P(TextosEnElStore, AnyTextComesBackAsItWent) {
    for (const QString &texto :
         {u"ñandú ÁÉÍÓÚ ü"_s, u"日本語 Ω ✓"_s, u"🚢 contenedor"_s,
          u"e\u0301"_s,  // an accent of its own
          u"a\tb\r\nc"_s, u"C:\\ruta\\nueva"_s, u"100%_[x]{y}"_s, u"-- comentario /* no */"_s,
          u"#01/02/2026#"_s, u"\"doble\""_s, u"$1 $$ :x ?1"_s, u"  blancos  "_s, QString(20000, u'ñ')}) {
        ejecutar(u"delete from subitems"_s);
        ejecutar("insert into subitems (interno,descripcion) values ('A','"_L1 + texto + "')"_L1);
        EXPECT_EQ(valor(u"select descripcion from subitems"_s).toStdString(), texto.toStdString());
        EXPECT_EQ(cuantas("descripcion = '"_L1 + texto + "'"_L1), "1");
    }
}

TEST_P(TextosEnElStore, TextsCompareWithoutRegardToCase) {
    ejecutar(u"insert into subitems (interno,descripcion,ncm) values ('A','Ñandú','8409.91.12.100g')"_s);
    EXPECT_EQ(cuantas(u"descripcion = 'ÑANDú'"_s), "1");
    EXPECT_EQ(cuantas(u"descripcion <> 'ÑanDú'"_s), "0");
    EXPECT_EQ(cuantas(u"descripcion in ('x','ÑANDú')"_s), "1");
    EXPECT_EQ(cuantas(u"left(descripcion,2) = 'ÑA'"_s), "1");
    EXPECT_EQ(cuantas(u"right(ncm,4) = '100G'"_s), "1");
    EXPECT_EQ(cuantas(u"substring(descripcion,2,3) = 'AND'"_s), "1");
    EXPECT_EQ(valor(u"select interno from subitems where interno = 'a'"_s).toStdString(), "A");
    // An accent is no case.
    EXPECT_EQ(cuantas(u"descripcion = 'Nandu'"_s), "0");
}

TEST_P(TextosEnElStore, TheCaseOfLettersOutsideTheEnglishOnesIsFoldedByTheServerAndBySearches) {
    ejecutar(u"insert into subitems (interno,descripcion) values ('A','Ñandú')"_s);
    // What every tool knows of a file is the case of English letters.
    const std::string iguales = GetParam() == std::string("SQL") ? "1" : "0";
    EXPECT_EQ(cuantas(u"descripcion = 'ÑANDÚ'"_s), iguales);
    EXPECT_EQ(cuantas(u"descripcion = 'ñandú'"_s), iguales);
    EXPECT_EQ(cuantas(u"left(descripcion,2) = 'ña'"_s), iguales);
    EXPECT_EQ(cuantas(u"descripcion like 'ñ%Ú'"_s), "1");
    EXPECT_EQ(cuantas(u"descripcion like '%ÑANDÚ%'"_s), "1");
    EXPECT_EQ(cuantas(u"charindex('ÑAND',descripcion) = 1"_s), "1");
}

TEST_P(TextosEnElStore, GroupsAndDistinctFoldCaseToo) {
    for (const char *d : {"Ñu", "ÑU", "ÑU", "b"})
        ejecutar(u"insert into subitems (interno,descripcion,cantidad) values ('A','%1',1)"_s.arg(
            QString::fromUtf8(d)));
    EXPECT_EQ(filas(u"select count(*), sum(cantidad) from subitems group by descripcion"_s).toStdString(),
              "1|1\n3|3");
    Recordset rs;
    Consultar(*ctx, u"INTERNOS"_s, u"select distinct descripcion from subitems"_s, rs);
    EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_P(TextosEnElStore, TheOrderOfTextsIsTheSameOnBothStores) {
    for (const char *d :
         {"b", "A", "a1", "Zeta", "ñu", "Ñandú", "ómnibus", "_x", "10", "9", "", "z", "Bé", "be"})
        ejecutar(u"insert into subitems (interno,descripcion) values ('A','%1')"_s.arg(QString::fromUtf8(d)));
    ejecutar(u"insert into subitems (interno) values ('A')"_s);
    // Nulls first, then by code point of the lower-cased text.
    EXPECT_EQ(filas(u"select descripcion from subitems order by descripcion"_s).toStdString(),
              "<null>\n\n10\n9\n_x\nA\na1\nb\nbe\nBé\nz\nZeta\nÑandú\nñu\nómnibus");
    EXPECT_EQ(filas(u"select top 3 descripcion from subitems order by descripcion desc"_s).toStdString(),
              "ómnibus\nñu\nÑandú");
}

TEST_P(TextosEnElStore, EndsOfTextAreNotTrimmed) {
    ejecutar(u"insert into subitems (interno,descripcion) values ('A','tubo ')"_s);
    EXPECT_EQ(cuantas(u"descripcion = 'tubo'"_s), "0");
    EXPECT_EQ(cuantas(u"descripcion = 'tubo '"_s), "1");
    EXPECT_EQ(cuantas(u"descripcion like 'tubo'"_s), "0");
    EXPECT_EQ(valor(u"select descripcion from subitems"_s).toStdString(), "tubo ");
    EXPECT_EQ(valor(u"select len(descripcion) from subitems"_s).toStdString(), "5");
}

TEST_P(TextosEnElStore, LengthsCountCharacters) {
    ejecutar(u"insert into subitems (interno,descripcion) values ('A','ñ🚢日x')"_s);
    EXPECT_EQ(valor(u"select len(descripcion) from subitems"_s).toStdString(), "4");
    EXPECT_EQ(valor(u"select left(descripcion,2) from subitems"_s).toStdString(), "ñ🚢");
    EXPECT_EQ(valor(u"select right(descripcion,2) from subitems"_s).toStdString(), "日x");
    EXPECT_EQ(valor(u"select substring(descripcion,2,2) from subitems"_s).toStdString(), "🚢日");
    EXPECT_EQ(valor(u"select charindex('X',descripcion) from subitems"_s).toStdString(), "4");
    EXPECT_EQ(valor(u"select charindex('q',descripcion) from subitems"_s).toStdString(), "0");
    EXPECT_EQ(cuantas(u"descripcion like 'ñ_日_'"_s), "1");
}

TEST_P(TextosEnElStore, NoCharacterOfAPatternEscapesAnother) {
    ejecutar(u"insert into subitems (interno,descripcion) values ('A','C:\\obra')"_s);
    ejecutar(u"insert into subitems (interno,descripcion) values ('A','C:xobra')"_s);
    EXPECT_EQ(cuantas(u"descripcion like 'c:\\%'"_s), "1");
    EXPECT_EQ(cuantas(u"descripcion like '%\\_bra'"_s), "1");
    EXPECT_EQ(cuantas(u"descripcion like 'c:_obra'"_s), "2");
}

// What the texts lean on without saying so

TEST_P(TextosEnElStore, ANumberBetweenQuotesIsANumberInANumericColumn) {
    ejecutar(u"insert into itemliq (iditem,interno,idconceptos,total) values ('1','A','010','12.50')"_s);
    EXPECT_EQ(
        ejecutar(u"update itemliq set porcentaje = '0',baseimp = '0', total = '0' where interno = 'A'"_s), 1);
    EXPECT_EQ(filas(u"select iditem,porcentaje,baseimp,total from itemliq"_s).toStdString(), "1|0|0|0");
    ejecutar(u"update itemliq set total = '100.25'"_s);
    EXPECT_EQ(valor(u"select total * 2 from itemliq"_s).toStdString(), "200.5");
    EXPECT_EQ(valor(u"select count(*) from itemliq where total > '99'"_s).toStdString(), "1");
    EXPECT_EQ(valor(u"select count(*) from itemliq where total = '100.250'"_s).toStdString(), "1");
    EXPECT_EQ(
        valor(u"select count(*) from itemliq where iditem = '1' and idconceptos = '010'"_s).toStdString(),
        "1");
}

TEST_P(TextosEnElStore, ATextColumnComparedWithANumberComparesAsText) {
    ejecutar(u"insert into subitems (interno,insumostemp,idunidad) values ('A','7','01')"_s);
    EXPECT_EQ(cuantas(u"insumostemp = 7"_s), "1");
    EXPECT_EQ(cuantas(u"insumostemp <> 7"_s), "0");
    EXPECT_EQ(cuantas(u"insumostemp = 8"_s), "0");
    // "01" is no "1": a code keeps its zeros.
    EXPECT_EQ(cuantas(u"idunidad = 1"_s), "0");
    EXPECT_EQ(cuantas(u"7 = insumostemp"_s), "1");
}

TEST_P(TextosEnElStore, IsnumericTakesAnyType) {
    struct Caso {
        const char *texto;
        const char *es;
    };
    for (const Caso &c : {Caso{"'12'", "1"}, Caso{"'-1.5'", "1"}, Caso{"'1,5'", "1"}, Caso{"'1e3'", "1"},
                          Caso{"' 7 '", "1"}, Caso{"'1.2.3'", "0"}, Caso{"'abc'", "0"}, Caso{"''", "0"},
                          Caso{"'.'", "0"}, Caso{"null", "0"}, Caso{"'٣'", "0"}}) {
        ejecutar(u"delete from subitems"_s);
        ejecutar(
            u"insert into subitems (interno,insumosacons) values ('A',%1)"_s.arg(QString::fromUtf8(c.texto)));
        EXPECT_EQ(valor(u"select isnumeric(insumosacons) from subitems"_s).toStdString(), c.es) << c.texto;
        EXPECT_EQ(cuantas(u"isnumeric(insumosacons) = 1"_s), c.es) << c.texto;
    }
    ejecutar(u"update subitems set cantidad = 3"_s);
    EXPECT_EQ(valor(u"select isnumeric(cantidad) from subitems"_s).toStdString(), "1");
    EXPECT_EQ(valor(u"select isnumeric(kgneto) from subitems"_s).toStdString(), "0");
    EXPECT_EQ(valor(u"select isnumeric(id) from subitems"_s).toStdString(), "1");
}

TEST_P(TextosEnElStore, AnEmptyTextGoesIntoATextColumnThatHoldsNumbers) {
    ejecutar(u"insert into subitems (interno,insumostemp,ajusteincluir) values ('A','','')"_s);
    EXPECT_EQ(cuantas(u"insumostemp = ''"_s), "1");
    ejecutar(u"update subitems set insumostemp = '0' where insumostemp = '' or isnumeric(insumostemp) = 0"_s);
    ejecutar(u"update subitems set ajusteincluir = 0 where isnumeric(ajusteincluir) = 0"_s);
    EXPECT_EQ(filas(u"select insumostemp,ajusteincluir from subitems"_s).toStdString(), "0|0");
    ejecutar(u"update subitems set insumosacons = 12"_s);
    EXPECT_EQ(filas(u"select insumosacons from subitems"_s).toStdString(), "12");
}

TEST_P(TextosEnElStore, PlusJoinsTextsAndAddsNumbers) {
    ejecutar(u"insert into subitems (interno,ncm,idarticulo,cantidad,fob) values ('A','84','x',2,3)"_s);
    EXPECT_EQ(valor(u"select ncm + '.' + idarticulo from subitems"_s).toStdString(), "84.x");
    EXPECT_EQ(valor(u"select cantidad + fob from subitems"_s).toStdString(), "5");
    EXPECT_EQ(cuantas(u"ncm + '-' = '84-'"_s), "1");
}

// Dates

TEST_P(TextosEnElStore, TheDateLiteralOfAnEntityGoesInAndComesBack) {
    const QDateTime momento(QDate(2026, 3, 5), QTime(14, 7, 9));
    const QString literal = ctx->DataManager.getDateFormatbyEntity(u"INTERNOS"_s, momento);
    EXPECT_EQ(literal.toStdString(), esServidor() ? "'2026-03-05 14:07:09'" : "#03/05/2026 14:07:09#");
    ejecutar("insert into caratula (interno,fechaalta) values ('A',"_L1 + literal + ")"_L1);
    ejecutar("insert into caratula (interno,fechaalta) values ('B',"_L1 +
             ctx->DataManager.getDateFormatbyEntity(u"INTERNOS"_s, momento.addDays(-40)) + ")"_L1);
    EXPECT_EQ(valor(u"select fechaalta from caratula where interno = 'A'"_s).toStdString(),
              "2026-03-05 14:07:09");
    EXPECT_EQ(valor("select interno from caratula where fechaalta >= "_L1 + literal).toStdString(), "A");
    EXPECT_EQ(valor("select interno from caratula where fechaalta = "_L1 + literal).toStdString(), "A");
    EXPECT_EQ(filas(u"select interno from caratula order by fechaalta"_s).toStdString(), "B\nA");
    // The local store keeps the file's form in a server profile too.
    EXPECT_EQ(ctx->DataManager.getDateFormatbyEntity(u"USUARIO"_s, momento).toStdString(),
              "#03/05/2026 14:07:09#");
}

// The tables of an operation

TEST_P(TextosEnElStore, AnItemZeroIsKeptApartByItsIdentity) {
    for (int id = 0; id <= 3; ++id)
        ejecutar(u"insert into item (id,interno,fobtotal) values (%1,'A',10)"_s.arg(id));
    EXPECT_EQ(valor(u"select count(*) as n from item where interno = 'A' and id<>0"_s).toStdString(), "3");
    EXPECT_EQ(valor(u"select count(*) as n from item where interno = 'A' and id>0"_s).toStdString(), "3");
    EXPECT_EQ(valor(u"select sum(fobtotal) as n from item where interno = 'A' and id<>0"_s).toStdString(),
              "30");
}

TEST_P(TextosEnElStore, ALockRowMayStandForAKeyThatNoHeaderHas) {
    ejecutar(u"insert into interno (interno,maquina,usuario) values ('X','PC1','PC1')"_s);
    EXPECT_EQ(valor(u"select count(*) from caratula where interno = 'X'"_s).toStdString(), "0");
    EXPECT_EQ(valor(u"select maquina from interno where interno = 'X'"_s).toStdString(), "PC1");
}

TEST_P(TextosEnElStore, AKeyOfFortyCharactersFitsEveryTableOfAnOperation) {
    const QString clave = QString(39, u'Ñ') + u'X';
    const QString otroCaso = QString(39, u'Ñ') + u'x';
    for (const char *tabla :
         {"caratula", "subitems", "groupsubitems", "item", "itemliq", "itemventaja", "iteminfo", "liqcero",
          "sysflag", "idrel", "descargas", "facturas", "prorrateo", "itempresu", "itemref", "interno"}) {
        const QString de = QLatin1String(tabla);
        ejecutar("insert into "_L1 + de + " (interno) values ('"_L1 + clave + "')"_L1);
        EXPECT_EQ(
            valor("select interno from "_L1 + de + " where interno = '"_L1 + otroCaso + "'"_L1).toStdString(),
            clave.toStdString())
            << tabla;
    }
}

TEST_P(TextosEnElStore, TheCommentOfAnOperationStaysBehindInItsOwnStore) {
    ejecutar(u"insert into caratula (interno) values ('A')"_s);
    ejecutar(u"insert into coment (interno,coment) values ('A','nota')"_s, u"SYSTABLAS"_s);
    ejecutar(u"delete from caratula where interno = 'A'"_s);
    EXPECT_EQ(valor(u"select coment from coment where interno = 'A'"_s, u"SYSTABLAS"_s).toStdString(),
              "nota");
}

TEST_P(TextosEnElStore, TheScratchTableOfReportLinesNumbersThemInOrder) {
    for (const char *linea : {"uno", "dos", "tres"})
        ejecutar(u"insert into tabla (linea) values ('%1')"_s.arg(QLatin1String(linea)), u"PERSONAL"_s);
    EXPECT_EQ(filas(u"select linea from tabla order by idlin"_s, u"PERSONAL"_s).toStdString(),
              "uno\ndos\ntres");
    EXPECT_EQ(ejecutar(u"delete from tabla"_s, u"PERSONAL"_s), 3);
}

}  // namespace
