// The articles of a large catalogue: opened, searched as one types, asked of the store, and found among all.

#include "bench/waits/tiempos.h"
#include "frame/entities.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmbArticulos.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class ArticulosDeUnCatalogo : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        constexpr int articulos = 50000;
        constexpr int porTanda = 500;
        static const QStringList bienes{u"Bomba para líquidos"_s,    u"Válvula de retención"_s,
                                        u"Rodamiento de rodillos"_s, u"Neumático nuevo de caucho"_s,
                                        u"Motor eléctrico"_s,        u"Aparato de óptica"_s};
        for (int desde = 0; desde < articulos; desde += porTanda) {
            QStringList valores;
            for (int i = desde; i < desde + porTanda; ++i)
                valores
                    << u"('GRANDE','ART-%1','%2.%3.%4.%5A','%6 modelo %1','%6 MODELO %1','','1','%7','203','203','07','2','N','AA01-AB(MODELO %1)-','1.5','','','','DEMO',{d})"_s
                           .arg(i, 6, 10, '0'_L1)
                           .arg(8400 + i / 1000)
                           .arg(i / 10 % 100, 2, 10, '0'_L1)
                           .arg(i % 10 * 10, 2, 10, '0'_L1)
                           .arg(i % 9 * 100, 3, 10, '0'_L1)
                           .arg(bienes[i % bienes.size()])
                           .arg(i % 500 + 1);
            QString todos = valores.join(u',');
            todos.replace("{d}"_L1, ctx->DataManager.getDateFormatbyEntity(entidad::catalogos,
                                                                           QDateTime({2026, 2, 1}, {9, 30})));
            ejecutar(
                u"insert into catarticulos (idcatalogo,idarticulo,ncm,descripcion,descripcion_maria,"
                "naladisa,cantidad,preciounitario,idpais,idpaisproc,idunidad,estadomerc,biendeuso,"
                "sufijos,kgneto,otros,codigoean,itfiller,usuario,fecha) values "_s +
                    todos,
                entidad::catalogos);
        }
    }
    /// The screen on the large catalogue: until it is painted, and a text narrowed and painted.
    template <class T>
    void medir(const char *abrir, double limite, const char *teclear) {
        double abierta = 1e9;
        double estrechada = 1e9;
        for (int vez = 0; vez < 5; ++vez) {
            conPantallaModal<T>([&estrechada](T &p) {
                int n = 0;
                estrechada = std::min(estrechada, MejorTiempo([&p, &n] {
                                          // All of them, and a hundred.
                                          p.ui.TxtValor->setText(++n % 2 == 0 ? u"a"_s : u"art-0123"_s);
                                          tecla(Qt::Key_Home);
                                          p.ventana->repaint();
                                      }));
                EXPECT_TRUE(p.ui.lbCantidad->text().contains(u"50000"_s));
                tecla(Qt::Key_Escape);
            });
            QElapsedTimer reloj;
            QTimer::singleShot(0, qApp, [&] {
                Pantalla<T>().ventana->repaint();
                abierta = std::min(abierta, static_cast<double>(reloj.nsecsElapsed()) / 1e6 / Apretura());
            });
            reloj.start();
            Pantalla<T>().Elegir(u"GRANDE"_s);
            CerrarPantalla<T>();
        }
        Informar(abrir, GetParam(), limite, abierta);
        Informar(teclear, GetParam(), 50, estrechada);
    }
};

TEST_P(ArticulosDeUnCatalogo, WithTotals) {
    medir<FrmbArticulos>("50,000 articles with totals opened", 300,
                         "a text keyed among 50,000 articles with totals");
}

TEST_P(ArticulosDeUnCatalogo, WithDates) {
    // The driver of the server takes fifty thousand moments apart.
    medir<FrmArticulos>("50,000 articles with dates opened", 700,
                        "a text keyed among 50,000 articles with dates");
}

TEST_P(ArticulosDeUnCatalogo, AcrossCatalogues) {
    Informar("a code found across catalogues of 50,000 articles", GetParam(), 50, MejorTiempo([this] {
                 EXPECT_EQ(BuscarEnCatalogos(*ctx, BusquedaEnCatalogos::Articulo, u"art-012345"_s).size(),
                           1U);
             }));
    Informar("a position found across catalogues of 50,000 articles", GetParam(), 150, MejorTiempo([this] {
                 EXPECT_EQ(BuscarEnCatalogos(*ctx, BusquedaEnCatalogos::Posicion, u"8410.05"_s).size(), 10U);
             }));
}

EN_AMBOS_STORES(ArticulosDeUnCatalogo);

}  // namespace
