// Pictures of the exchange of operations and of the browser with what was handed over.

#include <gtest/gtest.h>

#include <QFile>

#include "operations/FrmExportarOperaciones.h"
#include "operations/FrmImportarOperaciones.h"
#include "operations/FrmInternoNew.h"
#include "operations/exchange.h"
#include "outputs/declaration.h"
#include "outputs/handedover.h"
#include "outputs/transfer.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDeIntercambio : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"INTERCAMBIO"_s, u"CARPETA"_s, tienda->carpeta());
    }
    /// What the grid tells of the hand-over, row by row.
    static QStringList textosDeColumna(const FrmInternoNew &navegador) {
        QStringList todos;
        const QAbstractItemModel *modelo = navegador.ui.lstInterno->model();
        for (int fila = 0; fila < modelo->rowCount(); ++fila)
            todos << modelo->index(fila, 6).data().toString();
        return todos;
    }
};

TEST_P(CapturasDeIntercambio, TheExport) {
    conPantallaModal<FrmExportarOperaciones>([](FrmExportarOperaciones &p) {
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Space);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Space);
        foto(p.ventana.get(), u"exportar-operaciones"_s);
        tecla(Qt::Key_Escape);
    });
    Pantalla<FrmExportarOperaciones>().Mostrar();
    CerrarPantalla<FrmExportarOperaciones>();
}

TEST_P(CapturasDeIntercambio, TheImport) {
    const QString archivo = tienda->carpeta() + u"/operaciones-de-otra-oficina.zop"_s;
    ASSERT_TRUE(
        intercambio::Exportar(*ctx, {u"IC-2026-0001"_s, u"EC-2026-0002"_s, u"DJAI-2026-0004"_s}, archivo)
            .hecho);
    ejecutar(u"delete from caratula where interno = 'IC-2026-0001'"_s);
    conPantallaModal<FrmImportarOperaciones>([this](FrmImportarOperaciones &p) {
        foto(p.ventana.get(), u"importar-operaciones-vacia"_s);
        escribir(u"operaciones-de-otra-oficina.zop"_s);
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Space);
        tecla(Qt::Key_Down);
        registro.textos.emplace_back(u"DJAI-2026-0004-2"_s);
        atajo(Qt::Key_N);
        foto(p.ventana.get(), u"importar-operaciones"_s);
        p.ui.Pb->setVisible(true);
        p.ui.Pb->setValue(40);
        p.ui.LbAvance->setText(u"EC-2026-0002"_s);
        foto(p.ventana.get(), u"importar-operaciones-en-marcha"_s);
        tecla(Qt::Key_Escape);
    });
    Pantalla<FrmImportarOperaciones>().Mostrar();
    CerrarPantalla<FrmImportarOperaciones>();
    QFile::remove(archivo);
}

TEST_P(CapturasDeIntercambio, TheBrowserWithWhatWasHandedOver) {
    for (const QString &clave : {u"EC-2026-0002"_s, u"IC-2026-0001"_s})
        AnotarEntrega(*ctx, clave,
                      EscribirTransferencia(LeerDeclaracion(*ctx, clave), tienda->carpeta() + u"/d.xml"_s));
    ejecutar(u"update caratula set fobdivisas = 77 where interno = 'IC-2026-0001'"_s);
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    tecla(Qt::Key_Return);
    hasta([&navegador] { return textosDeColumna(navegador).contains(u"transferida, cambiada después"_s); });
    foto(navegador.ventana.get(), u"operaciones-transferidas"_s);
    tecla(Qt::Key_Menu);
    foto(navegador.popup.get(), u"operaciones-menu"_s);
    navegador.popup->close();
}

INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeIntercambio, ::testing::Values("ACCESS"),
                         [](const auto &caso) { return std::string(caso.param); });

}  // namespace
