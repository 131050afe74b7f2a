// Pictures of the searches of articles, and the order of TAB in each.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/ui/Pantalla.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmbArticulos.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDeArticulos : public EnPantalla {
 protected:
    static std::string orden(QWidget *ventana, QWidget *primero) {
        primero->setFocus();
        return ordenDeTab(ventana).join(u' ').toStdString();
    }
    template <class T>
    void enUnCatalogo(const QString &nombre) {
        conPantallaModal<T>([&nombre](T &p) {
            foto(p.ventana.get(), nombre);
            escribir(u"NP"_s);
            hasta([&p] { return p.ui.lbCantidad->text().contains(u" de "_s); });
            foto(p.ventana.get(), nombre + u"-buscados"_s);
            EXPECT_EQ(orden(p.ventana.get(), p.ui.CboCampo), "CboCampo TxtValor CmdBuscar Lst");
            tecla(Qt::Key_Escape);
        });
        Pantalla<T>().Elegir(u"HIDPLATA"_s);
        CerrarPantalla<T>();
    }
};
EN_AMBOS_STORES(CapturasDeArticulos);

TEST_P(CapturasDeArticulos, OfACatalogueWithTotals) {
    enUnCatalogo<FrmbArticulos>(u"articulos-totales"_s);
}

TEST_P(CapturasDeArticulos, OfACatalogueWithDates) {
    enUnCatalogo<FrmArticulos>(u"articulos-fechas"_s);
}

TEST_P(CapturasDeArticulos, AcrossCatalogues) {
    // A description of some length.
    ejecutar(u"update catarticulos set descripcion = '%1' where idarticulo = 'NP-4000'"_s.arg(
                 u"Electrobomba sumergible para pozo profundo, con cable y accesorios; "_s.repeated(4)),
             u"CATALOGOS"_s);
    conPantallaModal<FrmCatArticulosBuscar>([](FrmCatArticulosBuscar &p) {
        foto(p.ventana.get(), u"articulos-en-todos"_s);
        EXPECT_EQ(orden(p.ventana.get(), p.ui.TxtDescripcion), "TxtDescripcion Lst");
        tecla(Qt::Key_Escape);
    });
    Pantalla<FrmCatArticulosBuscar>().Buscar(BusquedaEnCatalogos::Posicion, u"8413."_s);
    CerrarPantalla<FrmCatArticulosBuscar>();
}

}  // namespace
