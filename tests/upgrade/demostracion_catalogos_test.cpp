#include <gtest/gtest.h>

#include "regulatory/letters.h"
#include "regulatory/lnapi.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const QString dosCatalogos = u"idcatalogo in ('BARRACAS','LITORAL')"_s;

/// The last digit of an EAN-13: the even places count three times, and the sum of all is a whole ten.
bool eanValido(const QString &codigo) {
    int suma = 0;
    for (int i = 0; i < codigo.size(); ++i) suma += codigo.at(i).digitValue() * (i % 2 == 1 ? 3 : 1);
    return codigo.size() == 13 && suma % 10 == 0;
}

class CatalogosDeMuestra : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    int cuenta(const QString &desde, const QString &entidad) {
        return valor(u"select count(*) as n from "_s + desde, entidad).toInt();
    }
};

TEST_P(CatalogosDeMuestra, TwoCataloguesHoldSixtyArticles) {
    EXPECT_EQ(cuenta("catarticulos where idcatalogo = 'BARRACAS'", "CATALOGOS"), 40);
    EXPECT_EQ(cuenta("catarticulos where idcatalogo = 'LITORAL'", "CATALOGOS"), 20);
    Recordset a;
    ASSERT_TRUE(Consultar(*ctx, "CATALOGOS", "select * from catarticulos where " + dosCatalogos, a));
    for (; !a.Eof(); a.MoveNext()) {
        const std::string que = a.Texto(u"idarticulo").toStdString();
        const QString ncm = a.Texto(u"ncm");
        Recordset n;
        ASSERT_TRUE(
            Consultar(*ctx, "NCM",
                      u"select [012] from ncm where [001] = '%1' and [002] = '%2' and [003] = '%3'"_s.arg(
                          ncm.left(10), ncm.mid(11, 3), ncm.right(1)),
                      n))
            << que;
        EXPECT_EQ(a.Texto(u"idunidad"), n.Texto(u"012")) << que;
        EXPECT_GT(a.Numero(u"preciounitario"), 0) << que;
        EXPECT_FALSE(a.Texto(u"sufijos").isEmpty()) << que;
        EXPECT_EQ(cuenta(u"pais where id = '%1'"_s.arg(a.Texto(u"idpais")), "SYSTABLAS"), 1) << que;
        EXPECT_EQ(cuenta(u"estadomercaderia where id = '%1'"_s.arg(a.Texto(u"estadomerc")), "INTERNOS"), 1)
            << que;
        const QString ean = a.Texto(u"codigoean");
        EXPECT_TRUE(ean.isEmpty() || eanValido(ean)) << que << " " << ean.toStdString();
    }
    // Some weigh nothing that is known: lists and reports show what they make of it.
    EXPECT_EQ(cuenta("catarticulos where kgneto is null and " + dosCatalogos, "CATALOGOS"), 2);
}

TEST_P(CatalogosDeMuestra, AnAdvantageIsOneOfTheTableAndOfAnArticleThatIsThere) {
    EXPECT_EQ(cuenta("articulo_ventaja where " + dosCatalogos, "CATALOGOS"), 16);
    Recordset v;
    ASSERT_TRUE(Consultar(*ctx, "CATALOGOS", "select * from articulo_ventaja", v));
    for (; !v.Eof(); v.MoveNext()) {
        const QString que = v.Texto(u"idarticulo") + QLatin1Char(' ') + v.Texto(u"ventaja");
        EXPECT_EQ(cuenta(u"ventajas where id = '%1'"_s.arg(v.Texto(u"ventaja")), "SYSTABLAS"), 1)
            << que.toStdString();
        EXPECT_EQ(cuenta(u"catarticulos where idcatalogo = '%1' and idarticulo = '%2'"_s.arg(
                             v.Texto(u"idcatalogo"), v.Texto(u"idarticulo")),
                         "CATALOGOS"),
                  1)
            << que.toStdString();
    }
}

TEST_P(CatalogosDeMuestra, EveryNoteOfALicenceIsTold) {
    Recordset l;
    ASSERT_TRUE(Consultar(*ctx, "NCM", "select * from lnapiposicionesafectadas", l));
    for (; !l.Eof(); l.MoveNext()) {
        const QString posicion = l.Texto(u"posicion");
        EXPECT_GT(cuenta(u"ncm where [001] = '%1'"_s.arg(posicion), "NCM"), 0) << posicion.toStdString();
        EXPECT_FALSE(ObtenerAclaraciones(*ctx, posicion).contains("No Posee"_L1)) << posicion.toStdString();
    }
    EXPECT_EQ(cuenta("lnapiposicionesafectadas", "NCM"), 29);
    EXPECT_EQ(cuenta("lnapiaclaraciones", "NCM"), 8);
    EXPECT_EQ(cuenta("lnapifechadedatos", "NCM"), 1);
}

TEST_P(CatalogosDeMuestra, TheArticlesShowEveryKindOfLicence) {
    const auto normas = [this](const char *articulo) {
        const QString ncm =
            valor(u"select ncm from catarticulos where idarticulo = '%1'"_s.arg(QLatin1String(articulo)),
                  "CATALOGOS");
        return std::pair(ObtenerNormaLnapi(*ctx, ncm).size(), obtenerDelNcmLaLetraDeUnaPADada(*ctx, ncm));
    };
    // One row, two rows, a letter alone, neither.
    EXPECT_EQ(normas("NEU-13"), std::pair(std::size_t{1}, u"A"_s));
    EXPECT_EQ(normas("ZAP-DEP"), std::pair(std::size_t{2}, u"C"_s));
    EXPECT_EQ(normas("PAR-6"), std::pair(std::size_t{0}, u"E"_s));
    EXPECT_EQ(normas("BOL-AZ"), std::pair(std::size_t{0}, letraNoPosee));
    EXPECT_TRUE(ObtenerAclaraciones(*ctx, u"8467.21.00.000P"_s).contains("No posee aclaraciones"_L1));
}

EN_AMBOS_STORES(CatalogosDeMuestra);

}  // namespace
