// A catalogue of fifty thousand articles: its screen, its articles in the tree, and one of them found.

#include <QTreeView>

#include "bench/waits/tiempos.h"
#include "subitems/FrmCatArticulos.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int cuantosArticulos = 50000;
constexpr int porInsercion = 1000;

class CatalogoGrande : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        for (int desde = 0; desde < cuantosArticulos; desde += porInsercion) {
            QStringList filas;
            for (int n = desde; n < desde + porInsercion; ++n)
                filas << u"('GRANDE','ART-%1','Artículo número %1 del catálogo','8413.70.10.100L','07',1)"_s
                             .arg(QString::number(n).rightJustified(5, '0'_L1));
            ejecutar(
                u"insert into catarticulos (idcatalogo,idarticulo,descripcion,ncm,idunidad,preciounitario) "
                "values "_s +
                    filas.join(u','),
                u"CATALOGOS"_s);
        }
    }
    static FrmCatArticulos &abrir() {
        CerrarPantalla<FrmCatArticulos>();
        auto &p = Pantalla<FrmCatArticulos>();
        p.Mostrar();
        esperarVentana(p.ventana.get());
        return p;
    }
    /// The catalogue's own row in hand, by the arrows.
    static void bajarA(FrmCatArticulos &p, const QString &catalogo) {
        while (p.ui.TvArticulos->currentIndex().data().toString() != catalogo) tecla(Qt::Key_Down);
    }
};

TEST_P(CatalogoGrande, FiftyThousandArticlesFromTheKeyToTheirRows) {
    Informar("catalogues to their window", GetParam(), 300, MejorTiempo([] { abrir(); }, 3));
    const double expandir = MejorTiempo(
        [] {
            auto &p = Pantalla<FrmCatArticulos>();
            tecla(Qt::Key_Plus);
            p.ventana->repaint();
        },
        3, [] { bajarA(abrir(), u"GRANDE"_s); });
    Informar("catalogue of 50,000 articles, expanded", GetParam(), 300, expandir);
    auto &p = Pantalla<FrmCatArticulos>();
    ASSERT_EQ(p.ui.TvArticulos->model()->rowCount(p.ui.TvArticulos->currentIndex()), cuantosArticulos);

    const double marcar = MejorTiempo([] { tecla(Qt::Key_Space); }, 4);
    Informar("its articles checked or unchecked whole", GetParam(), 100, marcar);
    const double recorrer = MejorTiempo(
        [&p] {
            tecla(Qt::Key_End);
            tecla(Qt::Key_Home);
            p.ventana->repaint();
        },
        3);
    Informar("from its first row to its last and back", GetParam(), 200, recorrer);
    tecla(Qt::Key_Escape);

    const double elegir = MejorTiempo(
        [] {
            conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &) { tecla(Qt::Key_Return); });
            EXPECT_EQ(SeleccionarArticulo(u"GRANDE"_s), (ArticuloElegido{u"GRANDE"_s, u"ART-00000"_s}));
        },
        3);
    Informar("from a line to the catalogue and back", GetParam(), 500, elegir);
}

EN_AMBOS_STORES(CatalogoGrande);

}  // namespace
