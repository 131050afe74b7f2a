// Lists of a real office's size: twenty thousand codes behind F6, five thousand clients.

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "bench/waits/tiempos.h"
#include "frame/picklist.h"
#include "header/FrmClientes.h"
#include "header/FrmListado.h"
#include "header/ListadoCodigos.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int porVez = 1000;

QString enCincoCifras(int n) {
    return QString::number(n).rightJustified(5, '0'_L1);
}

class Listas : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        conDialogosDeVerdad();
    }
    /// `cuantas` rows "('00000',…)" into `tabla`; `fila` makes one out of its five digits.
    void llenar(const QString &tabla, const QString &columnas, int cuantas, const QString &fila,
                const QString &entidad) {
        for (int desde = 0; desde < cuantas; desde += porVez) {
            QStringList filas;
            for (int n = desde; n < desde + porVez; ++n) filas << fila.arg(enCincoCifras(n));
            ejecutar(u"insert into %1 (%2) values %3"_s.arg(tabla, columnas, filas.join(u',')), entidad);
        }
    }
};

TEST_P(Listas, TwentyThousandCodesFromF6ToTheWindowAndALetterTyped) {
    ejecutar(u"delete from puertos"_s);
    llenar(u"puertos"_s, u"cpor,lpor"_s, 20000, u"('%1','PUERTO %1')"_s, u"INTERNOS"_s);
    QWidget formulario;
    auto *columna = new QVBoxLayout(&formulario);
    auto *campo = new QLineEdit;
    campo->setObjectName(u"TxtPais"_s);
    campo->setProperty("tag", u"LL-PUERTO#F6"_s);
    auto *rotulo = new QLabel;
    columna->addWidget(campo);
    columna->addWidget(rotulo);
    VincularCodigo(campo, rotulo, {});
    formulario.show();
    esperarVentana(&formulario);
    campo->setFocus();

    const double abrir = MejorTiempo([&formulario] {
        conVentanaModal([](QWidget *modal) {
            esperarVentana(modal);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F6);
        esperarVentana(&formulario);
    });
    Informar("list of 20,000 codes, from F6 to the window and back", GetParam(), 200, abrir);

    conVentanaModal([this](QWidget *modal) {
        esperarVentana(modal);
        auto &lista = Pantalla<FrmListado>();
        ASSERT_EQ(lista.ui.LstCod->model()->rowCount(), 20000);
        const double letras = MejorTiempo([&lista] {
            lista.ui.TxtBs->clear();
            escribir(u"puerto 19998"_s);
        });
        Informar("twelve letters typed in it", GetParam(), 200, letras);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_EQ(campo->text(), u"19998"_s);

    EstadoDeLista lista(ListadoCodigosClass(*ctx).Listado(u"PUERTO"_s).vistas());
    constexpr int vueltas = 100;
    const double busqueda = MejorTiempo([&lista] {
                                for (int i = 0; i < vueltas; ++i) {
                                    lista.Escribir(u"p"_s);
                                    lista.Escribir(u"PUERTO 1234"_s);
                                }
                            }) /
                            (2.0 * vueltas);
    EXPECT_GE(lista.actual, 0);
    Informar("a letter's search in it", GetParam(), 1, busqueda);
}

TEST_P(Listas, FiveThousandClientsFromTheKeyToTheWindowAndThirteenLettersTyped) {
    llenar(u"clientes"_s, u"cuit,nombre"_s, 5000, u"('300000%1','CLIENTE %1')"_s, u"PERSONAL"_s);
    const auto mostrar = [] {
        CerrarPantalla<FrmClientes>();
        auto &libro = Pantalla<FrmClientes>();
        libro.Mostrar();
        esperarVentana(libro.ventana.get());
    };
    Informar("book of 5,000 clients to its window", GetParam(), 400, MejorTiempo(mostrar, 3));
    auto &libro = Pantalla<FrmClientes>();
    ASSERT_GE(libro.ui.Lst->rowCount(), 5000);
    const double letras = MejorTiempo([&libro] {
        libro.ui.txtBuscar->clear();
        escribir(u"cliente 04998"_s);
    });
    Informar("thirteen letters typed in it", GetParam(), 200, letras);
    EXPECT_EQ(libro.ui.Lst->item(libro.ui.Lst->currentRow(), 1)->text(), u"30000004998"_s);
}

EN_AMBOS_STORES(Listas);

}  // namespace
