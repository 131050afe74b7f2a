// Filters of an operation of ten thousand lines against a nomenclature of real size, from the key to the
// list.

#include "subitems/linefilters.h"
#include "bench/waits/tiempos.h"
#include "tests/screens/subitems_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int cuantasLineas = 10000;
constexpr int cuantasPosiciones = 33000;

class DiezMilLineas : public EnLineas {
 protected:
    void SetUp() override {
        EnLineas::SetUp();
        llenar(u"ncm"_s, u"[001],[002],[003],[059]"_s, cuantasPosiciones, u"NCM"_s, [](int i) {
            return u"('%1','%2','A','%3')"_s.arg(comienzo(i), sim(i), i % 3 == 0 ? u"*"_s : QString());
        });
        // One line in thirty is of no position, and one in fifty lacks its country and its suffixes.
        llenar(u"subitems"_s,
               u"interno,ncm,idunidad,cantidad,preciounitario,fob,kgneto,valorrelacionestadistica,"
               "estadomerc,idarticulo,descripcion,idpais,sufijos"_s,
               cuantasLineas, u"INTERNOS"_s, [](int i) {
                   const int posicion = i * 7 % (cuantasPosiciones + cuantasPosiciones / 30);
                   return u"('OP 1','%1.%2A','07',1,0.5,0.5,%3,%3,'2','ART-%3','Artículo %3',%4)"_s
                       .arg(comienzo(posicion), sim(posicion))
                       .arg(i)
                       .arg(i % 50 == 0 ? u"'',''"_s : u"'203','AA01-AB(X %1)-'"_s.arg(i));
               });
    }

    static QString comienzo(int i) {
        return u"%1.%2.%3"_s.arg(1000 + i / 1000)
            .arg(i / 10 % 100, 2, 10, '0'_L1)
            .arg(i % 10 * 10, 2, 10, '0'_L1);
    }
    static QString sim(int i) { return u"%1"_s.arg(i % 9 * 100, 3, 10, '0'_L1); }
    template <class Fila>
    void llenar(const QString &tabla, const QString &columnas, int cuantas, const QString &entidad,
                Fila fila) {
        constexpr int porTanda = 500;
        for (int desde = 0; desde < cuantas; desde += porTanda) {
            QStringList valores;
            for (int i = desde; i < desde + porTanda; ++i) valores << fila(i);
            ejecutar(u"insert into %1 (%2) values %3"_s.arg(tabla, columnas, valores.join(u',')), entidad);
        }
    }
};

TEST_P(DiezMilLineas, EachFilterIsRead) {
    double peor = 0;
    int cual = 0;
    for (const FiltroDeLineas &f : FiltrosDeLineas()) {
        const CondicionDeLineas condicion = CondicionDe(FiltroCon(f, u"1"_s));
        const double ms = MejorTiempo([&] { GetRsSubtiems(*ctx, u"OP 1"_s, condicion); }, 3);
        if (ms < peor) continue;
        peor = ms;
        cual = f.numero;
    }
    std::printf("(the slowest is %d)\n", cual);
    Informar("the slowest filter of 10,000 lines against 33,000 positions, read", GetParam(), 150, peor);
}

TEST_P(DiezMilLineas, FromTheKeyToTheList) {
    auto &pantalla = lineas();
    ASSERT_EQ(pantalla.ui.LstArticulos->rowCount(), cuantasLineas);
    const auto filtro = [](int letra) {
        return MejorTiempo(
            [letra] {
                menu(0, letra);
                menu(0, Qt::Key_T);
            },
            3);
    };
    Informar("a filter that shows 200 lines of 10,000, on and off", GetParam(), 500, filtro(Qt::Key_G));
    Informar("the positions out of the nomenclature, on and off", GetParam(), 500, filtro(Qt::Key_R));
    Informar("the positions with the mark, on and off", GetParam(), 500, filtro(Qt::Key_I));
    menu(0, Qt::Key_G);
    Informar("a filter that shows 10,000 lines, on", GetParam(), 250,
             MejorTiempo([] { menu(0, Qt::Key_E); }, 3));
}

EN_AMBOS_STORES(DiezMilLineas);

}  // namespace
