// The operation browser's search.

#include "operations/browser.h"

#include <gtest/gtest.h>

#include <QLocale>

#include "frame/base/numbers.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Buscador : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
        ctx->SeparadorDecimal = QLatin1Char('.');
    }
    void TearDown() override {
        QLocale::setDefault(anterior);
        EnAmbosStores::TearDown();
    }
    void crear(const char *clave, const char *columnas = "", const char *valores = "") {
        ejecutar("insert into caratula (interno"_L1 + L(columnas) + ") values ('"_L1 + L(clave) + "'"_L1 +
                 L(valores) + ")"_L1);
    }
    QString encontradas(const FiltroDeInternos &filtro = {}) {
        QStringList claves;
        for (const FilaDeInterno &f : BuscarInternos(*ctx, filtro)) claves << f.Interno;
        return claves.join(QLatin1Char(' '));
    }
    QString literal(const char *fecha) const {
        return ctx->DataManager.getDateFormatbyEntity(u"INTERNOS"_s,
                                                      QDateTime::fromString(L(fecha), Qt::ISODate));
    }
    QLocale anterior;
    QChar separador;
};

TEST_P(Buscador, NoFilterAndNoOptionIsTheTopFiftyWithoutAWhere) {
    EXPECT_EQ(SentenciaDeInternos(*ctx, {}).toStdString(), "select top 50 * from caratula  order by interno");
}

TEST_P(Buscador, TheChoiceByHandOverIsTheLastConditionAndAsksTheStore) {
    FiltroDeInternos filtro;
    filtro.transferencias = Transferencias::Pendientes;
    EXPECT_EQ(
        SentenciaDeInternos(*ctx, filtro).toStdString(),
        "select top 50 * from caratula  where  interno not in (select interno from transferidas)  order by "
        "interno");
    filtro.txtInterno = u"A"_s;
    filtro.transferencias = Transferencias::Transferidos;
    EXPECT_EQ(SentenciaDeInternos(*ctx, filtro).toStdString(),
              "select top 50 * from caratula  where  interno like 'A%' and  interno in (select interno from "
              "transferidas)  order by interno");
    for (const char *clave : {"A1", "A2", "B1", "B2"}) crear(clave);
    ejecutar(u"insert into transferidas (interno,maquina,suma) values ('a2','PC1','x')"_s);
    ejecutar(u"insert into transferidas (interno,maquina,suma) values ('A2','PC2','y')"_s);
    ejecutar(u"insert into transferidas (interno,suma) values ('B2','z')"_s);
    EXPECT_EQ(encontradas(filtro), u"A2"_s);
    filtro.transferencias = Transferencias::Pendientes;
    EXPECT_EQ(encontradas(filtro), u"A1"_s);
    filtro.txtInterno.clear();
    EXPECT_EQ(encontradas(filtro), u"A1 B1"_s);
    // A row knows its last hand-over.
    const std::vector<FilaDeInterno> todas = LeerInternos(*ctx, {});
    EXPECT_FALSE(todas.at(0).entrega.has_value());
    ASSERT_TRUE(todas.at(1).entrega.has_value());
    EXPECT_EQ(todas.at(1).entrega->maquina, u"PC2"_s);
    EXPECT_EQ(todas.at(1).entrega->suma, u"y"_s);
    EXPECT_EQ(todas.at(1).entrega->veces, 2);
}

TEST_P(Buscador, EveryFilterAndOptionHasItsPlaceInTheStatement) {
    const std::string entre = " ( FechaAlta between " + literal("2026-01-01T00:00:00").toStdString() +
                              " and " + literal("2026-01-31T23:59:59").toStdString() + " )";
    FiltroDeInternos todo;
    todo.txtCliente = u"30"_s;
    todo.txtDespachante = u"20"_s;
    todo.txtInterno = u" A "_s;
    todo.chkFiltroFecha = true;
    todo.desde = QDate(2026, 1, 1);
    todo.hasta = QDate(2026, 1, 31);
    EXPECT_EQ(SentenciaDeInternos(*ctx, todo).toStdString(),
              "select top 50 * from caratula  where  cuitcliente = '30' and  cuitdespaduana = '20' and " +
                  entre + "and  interno like 'A%'  order by interno");

    struct Caso {
        FiltroDeInternos filtro;
        bool todas;
        int listado;
        std::string esperada;
    };
    FiltroDeInternos cliente, despachante, clave, fecha, blanco;
    cliente.txtCliente = u"30"_s;
    despachante.txtDespachante = u"20"_s;
    clave.txtInterno = u"A"_s;
    blanco.txtInterno = u"   "_s;
    fecha.chkFiltroFecha = true;
    fecha.desde = QDate(2026, 1, 1);
    fecha.hasta = QDate(2026, 1, 31);
    const Caso casos[] = {
        {{}, true, 0, "select * from caratula  order by interno"},
        {{}, false, 1, "select top 50 * from caratula  order by fechaalta desc,interno"},
        {cliente, false, 0, "select top 50 * from caratula  where  cuitcliente = '30'  order by interno"},
        {despachante, true, 1,
         "select * from caratula  where  cuitdespaduana = '20'  order by fechaalta desc,interno"},
        {clave, true, 0, "select * from caratula  where  interno like 'A%'  order by interno"},
        {blanco, true, 0, "select * from caratula  order by interno"},
        {fecha, true, 0, "select * from caratula  where " + entre + " order by interno"},
    };
    for (const Caso &caso : casos) {
        ctx->opciones.OperacionesMostrarTODO = caso.todas;
        ctx->opciones.LISTADO = caso.listado;
        EXPECT_EQ(SentenciaDeInternos(*ctx, caso.filtro).toStdString(), caso.esperada);
        encontradas(caso.filtro);  // and it runs
    }
}

TEST_P(Buscador, TheKeyIsAPrefix) {
    for (const char *clave : {"A1", "ABC", "BA"}) crear(clave);
    FiltroDeInternos f;
    f.txtInterno = u"A"_s;
    EXPECT_EQ(encontradas(f).toStdString(), "A1 ABC");
}

TEST_P(Buscador, FiftyRowsAtMostInTheChosenOrderUnlessAllAreWanted) {
    for (int n = 0; n < 60; ++n) crear(u"K%1"_s.arg(n, 2, 10, QLatin1Char('0')).toLatin1().constData());
    QStringList claves = encontradas().split(QLatin1Char(' '));
    ASSERT_EQ(claves.size(), 50);
    EXPECT_EQ(claves.front(), "K00"_L1);
    EXPECT_EQ(claves.back(), "K49"_L1);
    ctx->opciones.OperacionesMostrarTODO = true;
    EXPECT_EQ(encontradas().split(QLatin1Char(' ')).size(), 60);
}

TEST_P(Buscador, ListingByDateShowsTheNewestFirst) {
    crear("A1", ",fechaalta", ",'2026-01-12 00:00:00'");
    crear("A3", ",fechaalta", ",'2026-02-01 00:00:00'");
    crear("A2", ",fechaalta", ",'2026-02-01 00:00:00'");
    ctx->opciones.LISTADO = 1;
    EXPECT_EQ(encontradas().toStdString(), "A2 A3 A1");
}

TEST_P(Buscador, ThePeriodTakesItsFirstAndItsLastDayWhole) {
    crear("A0", ",fechaalta", ",'2025-12-31 23:59:59'");
    crear("A1", ",fechaalta", ",'2026-01-01 00:00:00'");
    crear("A2", ",fechaalta", ",'2026-01-31 18:00:00'");
    crear("A3", ",fechaalta", ",'2026-02-01 00:00:00'");
    FiltroDeInternos f;
    f.chkFiltroFecha = true;
    f.desde = QDate(2026, 1, 1);
    f.hasta = QDate(2026, 1, 31);
    EXPECT_EQ(encontradas(f).toStdString(), "A1 A2");
}

TEST_P(Buscador, KindFollowsTheSubregimeAndOneThatIsNotInStaIsOther) {
    ejecutar(u"insert into sta (id,cstaimpexp) values ('IC04','I')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into sta (id,cstaimpexp) values ('EC01','E')"_s, u"SYSTABLAS"_s);
    crear("A1", ",idsubreg", ",'IC04'");
    crear("A2", ",idsubreg", ",'EC01'");
    crear("A3", ",idsubreg", ",'XX99'");
    crear("A4");
    QStringList tipos;
    for (const FilaDeInterno &f : BuscarInternos(*ctx, {})) tipos << f.tipo;
    EXPECT_EQ(tipos.join(QLatin1Char(' ')).toStdString(), "Importacion Exportacion Otros Otros");
}

TEST_P(Buscador, ARowCarriesTheNamesOfTheHeaderAndItsDetail) {
    ejecutar(u"insert into aduana (id,descripcion) values ('001','BUENOS AIRES')"_s, u"SYSTABLAS"_s);
    crear("A1",
          ",idsubreg,idaduana,factura2,factura3,factura7,idcondiciondeventa,fobdivisas,fobcoddivisas,"
          "fletedivisas,fletecoddivisas,"
          "segurodivisas,segurocoddivisas,fechaalta",
          ",'IC04','001','Vende','Despacha','Compra','FOB',1234.5,'DOL',10,'060',0.5,'021','2026-01-12 "
          "00:00:00'");
    const std::vector<FilaDeInterno> filasVistas = BuscarInternos(*ctx, {});
    ASSERT_EQ(filasVistas.size(), 1U);
    const FilaDeInterno &f = filasVistas[0];
    EXPECT_EQ(f.Interno, "A1"_L1);
    EXPECT_EQ(f.SubRegimen, "IC04"_L1);
    EXPECT_EQ(f.Despachante, "Despacha"_L1);
    EXPECT_EQ(f.Cliente, "Compra"_L1);
    EXPECT_EQ(f.Vendedor, "Vende"_L1);
    EXPECT_EQ(f.detalle.toStdString(),
              "Aduana: (001) BUENOS AIRES - Cond Venta: FOB\r\nFOB : 1234.50 (DOL) - Flete : 10.00 (060) - "
              "Seguro : 00.50 (021)\r\n"
              "Creado : lunes, 12 de enero de 2026");
}

TEST_P(Buscador, MissingValuesOfARowReadAsEmpty) {
    crear("A1");
    EXPECT_EQ(
        BuscarInternos(*ctx, {})[0].detalle.toStdString(),
        "Aduana: ()  - Cond Venta: \r\nFOB : 00.00 () - Flete : 00.00 () - Seguro : 00.00 ()\r\nCreado : ");
    EXPECT_TRUE(registro.mensajes.empty()) << "no word about the missing office";
}

TEST_P(Buscador, TheKeyLookedForIsKeptByTheScreensSearchOnly) {
    FiltroDeInternos f;
    f.txtInterno = u"A/1"_s;
    const auto guardado = [this] {
        return ctx->ajustes.Leer(u"ZENDRA"_s, u"APLICACION"_s, u"INTERNO_NRO"_s, u"<nada>"_s);
    };
    LeerInternos(*ctx, f);
    EXPECT_EQ(guardado(), "<nada>"_L1);
    BuscarInternos(*ctx, f);
    EXPECT_EQ(guardado(), "A/1"_L1);
}

EN_AMBOS_STORES(Buscador);

TEST(PeriodoInicial, IsTheWholeMonthAlsoInDecemberAndInAFebruaryOfALeapYear) {
    EXPECT_EQ(PeriodoInicial(QDate(2026, 11, 21)), std::pair(QDate(2026, 11, 1), QDate(2026, 11, 30)));
    EXPECT_EQ(PeriodoInicial(QDate(2026, 12, 31)), std::pair(QDate(2026, 12, 1), QDate(2026, 12, 31)));
    EXPECT_EQ(PeriodoInicial(QDate(2028, 2, 1)), std::pair(QDate(2028, 2, 1), QDate(2028, 2, 29)));
}

}  // namespace
