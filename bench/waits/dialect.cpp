// Statements that no screen sends: deep, long, and many operators in a row.

#include "frame/store/dialect.h"
#include "bench/waits/tiempos.h"
#include "tests/dialect/casos.h"

using namespace Qt::StringLiterals;

namespace {

TEST(Dialecto, DeepLongAndChained) {
    const QString hondo = QString(20000, '('_L1) + u"a"_s + QString(20000, ')'_L1);
    QString cadena = u"update t set b = a"_s;
    for (int i = 0; i < 5000; ++i) cadena += u" + 1"_s;
    const QString largo = u"update t set b = '"_s + QString(200000, 'x'_L1) + u"' + 'y'"_s;
    for (const motores::Motor *motor : {&motores::archivo(), &motores::servidor()}) {
        const char *nombre = motor == &motores::archivo() ? "ACCESS" : "SQL";
        const auto traducir = [motor](const QString &texto) {
            return MejorTiempo(
                [&] { EXPECT_FALSE(dialecto::traducir(texto, ajustesDePrueba(*motor)).isEmpty()); });
        };
        Informar("a division of twice 20,000 parentheses, translated", nombre, 500,
                 traducir(u"update t set b = %1 / %1"_s.arg(hondo)));
        Informar("a text of 200,000 characters, translated", nombre, 500, traducir(largo));
        Informar("5,000 operators in a row, translated", nombre, 500, traducir(cadena));
    }
}

}  // namespace
