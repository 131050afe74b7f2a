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
        static const QStringList bienes{u"Bomba para líquidos"_s,  u"Válvula de retención"_s,
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
            todos.replace("{d}"_L1, ctx->DataManager.getDateFormatbyEntity(
                                        entidad::catalogos, QDateTime({2026, 2, 1}, {9, 30})));
            ejecutar(u"insert into catarticulos (idcatalogo,idarticulo,ncm,descripcion,descripcion_maria,"
                     "naladisa,cantidad,preciounitario,idpais,idpaisproc,idunidad,estadomerc,biendeuso,"
                     "sufijos,kgneto,otros,codigoean,itfiller,usuario,fecha) values "_s +
                         todos,
                     entidad::catalogos);
        }
    }
    template <class T>
    void abrirYTeclear(const char *abrir, const char *teclear) {
        double abierta = 1e9;
        double escrita = 1e9;
        for (int vez = 0; vez < 5; ++vez) {
            conPantallaModal<T>([&escrita](T &p) {
                for (const QString &texto : {u"a"_s, u"-0499"_s, u"9"_s}) {
                    escrita = std::min(1e9, escrita);
                    p.ui.TxtValor->setText(texto);
                    QElapsedTimer reloj;
                    reloj.start();
                    tecla(Qt::Key_Down);
                    p.ventana->repaint();
                    const double ms = static_cast<double>(reloj.nsecsElapsed()) / 1e6;
                    std::printf("  %s %g\n", texto.toUtf8().constData(), ms);
                    escrita = std::min(escrita, ms);
                }
                tecla(Qt::Key_Escape);
            });
            QElapsedTimer reloj;
            reloj.start();
            auto &p = Pantalla<T>();
            QTimer::singleShot(0, qApp, [&] { abierta = std::min(abierta, static_cast<double>(reloj.nsecsElapsed()) / 1e6); std::printf("  abierta %g\n", static_cast<double>(reloj.nsecsElapsed()) / 1e6); });
            p.Elegir(u"GRANDE"_s);
            CerrarPantalla<T>();
        }
        Informar(abrir, GetParam(), 300, abierta);
        Informar(teclear, GetParam(), 50, escrita);
    }
};

TEST_P(ArticulosDeUnCatalogo, WithTotals) {
    abrirYTeclear<FrmbArticulos>("50,000 articles with their totals opened", "and narrowed by a text");
}
TEST_P(ArticulosDeUnCatalogo, WithDates) {
    abrirYTeclear<FrmArticulos>("50,000 articles with their dates opened", "and narrowed by a text");
}

EN_AMBOS_STORES(ArticulosDeUnCatalogo);

}  // namespace
