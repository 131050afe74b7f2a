// Pictures of the check for a newer version, and the order of TAB in it.

#include <gtest/gtest.h>

#include <QTimer>

#include "frame/base/ini.h"
#include "regulatory/frmActualizacion.h"
#include "tests/support/pantallas.h"
#include "tests/support/servidorhttp.h"
#include "tests/support/servidorsmtp.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDeActualizacion : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ConfigFilePath = tienda->carpeta() + "/Prueba.cfg"_L1;
    }
    /// Opens the check on this address and takes its picture: at its end, or while it asks.
    void fotografiar(const QString &direccion, const QString &nombre, bool mientrasBusca = false) {
        ASSERT_TRUE(EscribirIni(u"ACTUALIZACION"_s, u"DIRECCION"_s, direccion, ctx->ConfigFilePath));
        conPantallaModal<frmActualizacion>([&](frmActualizacion &f) {
            hasta([&] {
                return mientrasBusca ? f.ui.lbEstado->text().startsWith(u"Buscando en"_s)
                                     : !f.ui.ListaEstado->hasFocus();
            });
            foto(f.ventana.get(), nombre);
            orden = ordenDeTab(f.ventana.get()).join(u' ').toStdString();
            f.ventana->reject();
        });
        Pantalla<frmActualizacion>().Mostrar();
        CerrarPantalla<frmActualizacion>();
    }
    std::string orden;
};

TEST_P(CapturasDeActualizacion, EachEndOfTheCheck) {
    const ServidorHttp servidor;
    servidor.publicar(u"/nueva"_s, "3006000</>https://actualizaciones.ejemplo.com.ar/zendra-3.6.0.exe");
    servidor.publicar(u"/igual"_s, "3005001</>https://actualizaciones.ejemplo.com.ar/zendra-3.5.1.exe");
    fotografiar(servidor.direccion(u"/nueva"_s), u"actualizacion"_s);
    EXPECT_EQ(orden, "cmdActualizar cmdSalir ListaEstado");
    fotografiar(servidor.direccion(u"/igual"_s), u"actualizacion-al-dia"_s);
    EXPECT_EQ(orden, "cmdSalir ListaEstado");
    fotografiar("http://127.0.0.1:"_L1 + QString::number(PuertoSinNadie()), u"actualizacion-sin-conexion"_s);
    fotografiar(servidor.direccion(u"/calla"_s), u"actualizacion-buscando"_s, true);
    EXPECT_EQ(orden, "ListaEstado cmdSalir");
}

// Pictures of one store are enough: the screens are the same.
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeActualizacion, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
