// Words searched in a nomenclature of real size: thirty thousand positions beside those of the demonstration.

#include "bench/waits/tiempos.h"
#include "subitems/FrmConsultas.h"
#include "subitems/tariffsearch.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Nomenclador : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        constexpr int posiciones = 30000;
        constexpr int porTanda = 500;
        static const QStringList bienes{u"Bombas para líquidos"_s,
                                        u"Válvulas de retención"_s,
                                        u"Contrapesos de fundición"_s,
                                        u"Neumáticos nuevos de caucho"_s,
                                        u"Motores eléctricos de corriente alterna"_s,
                                        u"Aparatos de óptica"_s,
                                        u"Preparaciones alimenticias compuestas"_s};
        for (int desde = 0; desde < posiciones; desde += porTanda) {
            QStringList valores;
            for (int i = desde; i < desde + porTanda; ++i)
                valores << u"('%1.%2.%3','%4','A','%5 y sus partes','%5, artículo %6')"_s.arg(1000 + i / 1000)
                               .arg(i / 10 % 100, 2, 10, '0'_L1)
                               .arg(i % 10 * 10, 2, 10, '0'_L1)
                               .arg(i % 9 * 100, 3, 10, '0'_L1)
                               .arg(bienes[i % bienes.size()])
                               .arg(i);
            ejecutar(u"insert into ncm ([001],[002],[003],[004],[010]) values "_s + valores.join(u','),
                     u"NCM"_s);
        }
    }
};

TEST_P(Nomenclador, WordsAnswer) {
    struct Caso {
        const char *que;
        QString palabras;
    };
    const std::vector<Caso> casos{
        {"words found once in 33,000 positions", u"artículo 12345"_s},
        {"words found in one of seven positions", u"NEUMÁTICOS"_s},
        {"words found nowhere", u"nada de esto"_s},
    };
    for (const Caso &c : casos)
        Informar(c.que, GetParam(), 150, MejorTiempo([this, &c] { ConsultarPorPalabras(*ctx, c.palabras); }));
}

TEST_P(Nomenclador, WordsAreShown) {
    auto &consultas = Pantalla<FrmConsultas>();
    consultas.Mostrar();
    esperarVentana(consultas.ventana.get());
    const double mostradas = MejorTiempo(
        [&consultas] {
            consultas.ui.TxtDescripcion->setFocus();
            consultas.ui.TxtDescripcion->clear();
            escribir(u"CONTRAPESOS"_s);
            tecla(Qt::Key_Return);
        },
        5);
    EXPECT_GT(consultas.ui.LstResult->model()->rowCount(), 4000);
    Informar("words keyed, searched and shown", GetParam(), 150, mostradas);
}

EN_AMBOS_STORES(Nomenclador);

}  // namespace
