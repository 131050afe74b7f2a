// The tree of catalogues, without a view.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "subitems/cataloguetree.h"

using namespace Qt::StringLiterals;

namespace {

using Filas = std::vector<ArticleStore::FilaDeArticulo>;

/// Two catalogues, of three and of one article; counts what is read.
struct ArbolDePrueba {
    int lecturas = 0;
    bool falla = false;
    ModeloDeCatalogos modelo{[this](const QString &idcatalogo) -> std::optional<Filas> {
        ++lecturas;
        if (falla) return {};
        if (idcatalogo == "UNO"_L1)
            return Filas{
                {u"A"_s, u"Alfa"_s, u"1"_s}, {u"B"_s, u"Beta"_s, u"2"_s}, {u"C"_s, u"Gama"_s, u"3"_s}};
        return Filas{{u"A"_s, u"Otra"_s, u"4"_s}};
    }};
    ArbolDePrueba() { modelo.fijar({{u"UNO"_s, 3}, {u"DOS"_s, 1}}); }
};

TEST(CatalogueTree, ArticlesAreReadWhenTheirCatalogueIsExpandedAndOnce) {
    ArbolDePrueba t;
    EXPECT_EQ(t.lecturas, 0);
    const QModelIndex catalogo = t.modelo.index(0, 0);
    EXPECT_EQ(catalogo.data().toString(), u"UNO"_s);
    EXPECT_EQ(catalogo.siblingAtColumn(ModeloDeCatalogos::Descripcion).data().toString(), u"3 artículos"_s);
    EXPECT_TRUE(t.modelo.hasChildren(catalogo));
    t.modelo.fetchMore(catalogo);
    EXPECT_EQ(t.modelo.rowCount(catalogo), 3);
    EXPECT_FALSE(t.modelo.canFetchMore(catalogo));
    t.modelo.fetchMore(catalogo);
    EXPECT_EQ(t.lecturas, 1);
    const QModelIndex beta = t.modelo.index(1, 0, catalogo);
    EXPECT_EQ(t.modelo.catalogoDe(beta), u"UNO"_s);
    EXPECT_EQ(t.modelo.articuloDe(beta), u"B"_s);
    EXPECT_EQ(beta.siblingAtColumn(ModeloDeCatalogos::Posicion).data().toString(), u"2"_s);
    EXPECT_EQ(t.modelo.articuloDe(catalogo), QString());
}

TEST(CatalogueTree, AViewFindsItSoundWhileItGrowsAndAfterItWasReplaced) {
    using Vigia = QAbstractItemModelTester;
    ArbolDePrueba t;
    {
        // It reads what can be read, and holds every notice against the rows.
        const Vigia vigia(&t.modelo, Vigia::FailureReportingMode::Fatal);
        t.modelo.alternarMarca(t.modelo.index(0, 0));
        EXPECT_EQ(t.modelo.cantidadDeMarcados(), 3);
    }
    t.modelo.fijar({{u"DOS"_s, 1}});
    const Vigia vigia(&t.modelo, Vigia::FailureReportingMode::Fatal);
    t.modelo.alternarMarca(t.modelo.index(0, 0));
    EXPECT_EQ(t.modelo.rowCount(t.modelo.index(0, 0)), 1);
    EXPECT_EQ(t.modelo.cantidadDeMarcados(), 1);
}

TEST(CatalogueTree, AReadThatFailedIsTriedAgain) {
    ArbolDePrueba t;
    t.falla = true;
    const QModelIndex catalogo = t.modelo.index(0, 0);
    t.modelo.fetchMore(catalogo);
    EXPECT_EQ(t.modelo.rowCount(catalogo), 0);
    EXPECT_TRUE(t.modelo.canFetchMore(catalogo));
    t.falla = false;
    t.modelo.fetchMore(catalogo);
    EXPECT_EQ(t.modelo.rowCount(catalogo), 3);
    EXPECT_EQ(t.lecturas, 2);
}

TEST(CatalogueTree, AnArticleIsFoundInItsCatalogueWhateverTheCase) {
    ArbolDePrueba t;
    const QModelIndex celda = t.modelo.indiceDe(u"dos"_s, u"a"_s);
    ASSERT_TRUE(celda.isValid());
    EXPECT_EQ(t.modelo.catalogoDe(celda), u"DOS"_s);
    EXPECT_FALSE(t.modelo.indiceDe(u"DOS"_s, u"B"_s).isValid());
    EXPECT_FALSE(t.modelo.indiceDe(u"TRES"_s).isValid());
    EXPECT_EQ(t.modelo.indiceDe(u"UNO"_s).row(), 0);
    EXPECT_EQ(t.lecturas, 1) << "the catalogue that was not asked about was not read";
}

TEST(CatalogueTree, ACatalogueIsCheckedWholeOrInPart) {
    ArbolDePrueba t;
    const QModelIndex uno = t.modelo.index(0, 0);
    t.modelo.alternarMarca(t.modelo.indiceDe(u"UNO"_s, u"C"_s));
    EXPECT_EQ(uno.data(Qt::CheckStateRole).value<Qt::CheckState>(), Qt::PartiallyChecked);
    t.modelo.alternarMarca(t.modelo.index(1, 0));
    EXPECT_EQ(t.modelo.cantidadDeMarcados(), 2) << "the articles of the second were read for it";
    const auto marcados = t.modelo.marcados();
    ASSERT_EQ(marcados.size(), 2U);
    EXPECT_EQ(marcados[0].articulos, QStringList{u"C"_s});
    t.modelo.alternarMarca(uno);
    EXPECT_EQ(uno.data(Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
    t.modelo.alternarMarca(uno);
    EXPECT_EQ(t.modelo.cantidadDeMarcados(), 1);

    t.modelo.fijar({{u"UNO"_s, 3}, {u"DOS"_s, 1}});
    EXPECT_EQ(t.modelo.cantidadDeMarcados(), 0);
    t.modelo.marcar(marcados);
    EXPECT_EQ(t.modelo.cantidadDeMarcados(), 2) << "what is there again is checked again";
}

}  // namespace
