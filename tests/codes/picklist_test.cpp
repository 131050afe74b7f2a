// The search as one types, and lists of real size.

#include "frame/picklist.h"

#include <gtest/gtest.h>

#include "header/ListadoCodigos.h"
#include "header/codes.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

TEST(BusquedaPorPrefijo, IgnoresCaseAndAccentsAndTheBlankOfUnits) {
    const QStringList filas{u"Zinc"_s, u"Aérea"_s, u" METRO CÚBICO"_s, u"AEROSOL"_s, u"Ñandú"_s};
    const BuscadorPorPrefijo buscador(filas);
    struct Caso {
        const char *texto;
        int fila;
    };
    // "aer" begins rows 1 and 3: the first of the list wins, not the first by key.
    const Caso casos[] = {{"aer", 1},  {"AÉR", 1},    {"aero", 3}, {"metro cu", 2}, {" metro", 2}, {"z", 0},
                          {"Zinc", 0}, {"zincs", -1}, {"x", -1},   {"ñan", 4},      {"NAN", 4},    {"", 0}};
    for (const Caso &c : casos) EXPECT_EQ(buscador.Primera(QString::fromUtf8(c.texto)), c.fila) << c.texto;
    EXPECT_EQ(BuscadorPorPrefijo().Primera(u"a"_s), -1);
}

TEST(BusquedaPorContenido, FindsEveryRowThatHoldsTheTextWhateverItsCaseAndAccents) {
    const BuscadorPorContenido buscador({u"Bomba"_s, u"Cañón 50%"_s, QString(), u"BOMBÍN"_s});
    using Filas = std::vector<int>;
    EXPECT_EQ(buscador.Filas(u"omb"_s), (Filas{0, 3}));
    EXPECT_EQ(buscador.Filas(u"bin"_s), Filas{3});
    EXPECT_EQ(buscador.Filas(u"CAÑ"_s), Filas{1});
    EXPECT_EQ(buscador.Filas(u"0%"_s), Filas{1});
    EXPECT_EQ(buscador.Filas(u"b%b"_s), Filas{}) << "no pattern";
    EXPECT_EQ(buscador.Filas({}), (Filas{0, 1, 2, 3}));
    EXPECT_EQ(BuscadorPorContenido().Filas(u"a"_s), Filas{});
}

TEST(EstadoDeUnaLista, TypingChoosesTheFirstRowThatBeginsSoAndNoMatchChoosesNone) {
    EstadoDeLista lista({u"Bolsa"_s, u"Caja"_s, u"Cajón"_s});
    EXPECT_EQ(lista.actual, -1);
    lista.Escribir(u"caj"_s);
    EXPECT_EQ(lista.actual, 1);
    lista.Escribir(u"cajo"_s);
    EXPECT_EQ(lista.actual, 2);
    lista.Escribir(u"cajx"_s);
    EXPECT_EQ(lista.actual, -1);
    EXPECT_EQ(lista.texto.toStdString(), "cajx");
}

TEST(EstadoDeUnaLista, ArrowsMoveWithinTheListAndReplaceTheText) {
    EstadoDeLista lista({u"Bolsa"_s, u"Caja"_s, u"Cajón"_s});
    EXPECT_FALSE(lista.Mover(-1));
    EXPECT_EQ(lista.actual, -1);
    EXPECT_TRUE(lista.Mover(1));
    EXPECT_EQ(lista.actual, 0);
    EXPECT_EQ(lista.texto.toStdString(), "Bolsa");
    EXPECT_FALSE(lista.Mover(-1));
    EXPECT_EQ(lista.actual, 0);
    EXPECT_TRUE(lista.Mover(10));
    EXPECT_EQ(lista.actual, 2);
    EXPECT_FALSE(lista.Mover(1));
    EXPECT_EQ(lista.texto.toStdString(), "Cajón");
    EXPECT_TRUE(lista.IrAlPrincipio());
    EXPECT_EQ(lista.actual, 0);
    EXPECT_TRUE(lista.IrAlFinal());
    EXPECT_EQ(lista.actual, 2);
    EstadoDeLista vacia;
    EXPECT_FALSE(vacia.Mover(1));
    EXPECT_FALSE(vacia.IrAlFinal());
}

TEST(ListaGeneral, SearchesFromTheRowInHandOn) {
    const QStringList filas{u"Tornillo"_s, u"Tuerca"_s, u"Atornillador"_s};
    EXPECT_EQ(BuscarCadena(filas, u"TORN"_s, -1), 0);
    EXPECT_EQ(BuscarCadena(filas, u"torn"_s, 0), 2);
    // Nothing behind the row in hand: the row in hand itself holds it.
    EXPECT_EQ(BuscarCadena(filas, u"torn"_s, 2), 2);
    // It does not go round.
    EXPECT_EQ(BuscarCadena(filas, u"tuerca"_s, 2), -1);
    EXPECT_EQ(BuscarCadena(filas, u"x"_s, 0), -1);
}

TEST(ListaGeneral, AsksForTheTextAndTellsWhenNothingMatches) {
    AppContext ctx;
    Registro registro;
    ctx.dialogos = DialogosDePrueba(registro);
    const QStringList filas{u"Tornillo"_s, u"Tuerca"_s};
    registro.textos = {u"tuer"_s, u"zzz"_s, std::nullopt};
    EXPECT_EQ(BuscarCod(ctx, filas, -1), 1);
    EXPECT_EQ(BuscarDesc(ctx, filas, 0), -1);
    EXPECT_EQ(BuscarDesc(ctx, filas, 0), -1);
    ASSERT_EQ(registro.entradas.size(), 3U);
    EXPECT_EQ(registro.entradas[0].texto.toStdString(), "Ingrese el texto a buscar en CODIGO");
    EXPECT_EQ(registro.entradas[1].texto.toStdString(), "Ingrese el texto a buscar en DESCRIPCIÓN");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Cadena no encontrada");
}

class ListaGrande : public EnAmbosStores {};

TEST_P(ListaGrande, TwentyThousandRowsAreOfferedAndSearched) {
    constexpr int filas = 20000;
    constexpr int porVez = 500;
    for (int desde = 0; desde < filas; desde += porVez) {
        QStringList valores;
        for (int i = desde; i < desde + porVez; ++i)
            valores << u"('%1','Aduana número %2')"_s.arg(i).arg((i * 7919) % filas, 5, 10, QLatin1Char('0'));
        ejecutar(u"insert into aduana (id,descripcion) values "_s + valores.join(u','), u"SYSTABLAS"_s);
    }
    ctx->dialogos.elegir = [&](const Eleccion &e) {
        EstadoDeLista lista(e.filas, e.inicial);
        EXPECT_EQ(lista.filas.size(), filas);
        lista.Escribir(u"ADUANA NUMERO 1234"_s);
        return lista.actual;
    };
    QString codigo;
    QString aux;
    EXPECT_EQ(Listar(*ctx, u"ADUANA"_s, codigo, aux).toStdString(), "Aduana número 12340");
}

EN_AMBOS_STORES(ListaGrande);

}  // namespace
