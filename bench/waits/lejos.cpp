// What a user waits for when the server is twenty milliseconds away, through the real windows.

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "bench/waits/tiempos.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmInternoNew.h"
#include "tests/screens/lejos_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double idaYVuelta = 20;
constexpr double limite = 300;
const QString hastaVeinteMil =
    u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 20000) "_s;

class ALoLejos : public EnLejos {
 protected:
    /// The best of a few runs, and the round trips of one. The lines to the server are open, as they are
    /// behind the first screen of a day.
    template <class F, class P = void (*)()>
    void medir(const char *que, F hacer, P preparar = NadaAntes) {
        preparar();
        hacer();
        preparar();
        const qint64 cuantos = viajes(hacer);
        linea.IdaYVuelta(idaYVuelta);
        constexpr int veces = 5;
        const double ms = MejorTiempo(hacer, veces, preparar, static_cast<double>(cuantos) * idaYVuelta);
        linea.IdaYVuelta(0);
        const QString viajados = u"%1, %2 round trips of 20 ms"_s.arg(QLatin1String(que)).arg(cuantos);
        Informar(qPrintable(viajados), "SQL", limite, ms);
    }
    void veinteMilOperaciones() {
        ejecutar(
            u"insert into caratula (interno,idsubreg,idaduana,fechaalta,fobdivisas,fobcoddivisas,factura2,"
            "factura3,factura7,factura8) "_s +
            hastaVeinteMil +
            u"select 'A-' || i,case i % 3 when 0 then 'IC04' when 1 then 'EC01' else 'IT14' end,"
            "case i % 4 when 0 then '001' when 1 then '073' when 2 then '033' else '003' end,"
            "'2026-01-05',1000,'DOL','Vendedor','Despachante','Cliente','N' from n"_s);
    }
    static void buscar() {
        auto &buscador = Pantalla<FrmInternoNew>();
        buscador.Mostrar();
        esperarVentana(buscador.ventana.get());
        tecla(Qt::Key_Return);
    }
};

TEST_P(ALoLejos, TheBrowserOfTwentyThousandOperations) {
    veinteMilOperaciones();
    const auto cerrar = [] { CerrarPantalla<FrmInternoNew>(); };
    medir("the browser opened on 20,000 operations, with its first fifty", buscar, cerrar);
    EXPECT_EQ(Pantalla<FrmInternoNew>().ui.lstInterno->model()->rowCount(), 50);
}

TEST_P(ALoLejos, AListOfTwentyThousandCodes) {
    ejecutar(u"delete from puertos"_s);
    ejecutar(u"insert into puertos (cpor,lpor) "_s + hastaVeinteMil +
             u"select cast(10000 + i as varchar(5)),'PUERTO ' || (10000 + i) from n"_s);
    QWidget formulario;
    auto *columna = new QVBoxLayout(&formulario);
    auto *campo = new QLineEdit;
    campo->setProperty("tag", u"LL-PUERTO#F6"_s);
    columna->addWidget(campo);
    VincularCodigo(campo, nullptr, {});
    conDialogosDeVerdad();
    formulario.show();
    esperarVentana(&formulario);
    campo->setFocus();
    int filas = 0;
    medir("a list of 20,000 codes, from F6 to its window and back", [&] {
        conVentanaModal([&filas](QWidget *modal) {
            esperarVentana(modal);
            filas = Pantalla<FrmListado>().ui.LstCod->model()->rowCount();
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F6);
        esperarVentana(&formulario);
    });
    EXPECT_EQ(filas, 20000);
}

TEST_P(ALoLejos, ALineSaved) {
    auto &pantalla = lineas();
    ctx->opciones.SbtMantDatos = true;
    teclearBomba(pantalla);
    medir("a line saved", [] { tecla(Qt::Key_F11); });
    EXPECT_GT(cuantas(), 2) << ultimoMensaje();
}

TEST_P(ALoLejos, AnItemPagedAndSaved) {
    ejecutar(
        u"insert into item (interno,id,ncm,idpais,idproc,idunidad,estadistica,estadomerc,fobtotal,itflete,"
        "itseguro,lista,tipoitem) "_s +
        hastaVeinteMil +
        u"select 'IC-2026-0001',100 + i,'8413.70.10.100L','438','438','07','07','2',100,10,1,'','N' "
        "from n where i <= 500"_s);
    auto &items = Pantalla<FrmVerItem>();
    items.Mostrar(u"IC-2026-0001"_s);
    esperarVentana(items.ventana.get());
    tecla(Qt::Key_F1);
    medir("from an item to the next", [] { tecla(Qt::Key_PageDown); });
    EXPECT_GT(items.ui.TxtItem->text().toInt(), 2);
    medir("an item saved", [] { tecla(Qt::Key_F11); });
    EXPECT_TRUE(items.ui.lbEstado->text().endsWith(u"grabado"_s));
}

EN_UN_SERVIDOR(ALoLejos);

}  // namespace
