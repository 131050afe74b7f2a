// No window keeps its user: every screen is left by ESC, over an operation that is only a header, over stores
// without a table, and when the tables go while the screen stands.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDirIterator>

#include "tests/screens/todas_pantallas.h"
#include "upgrade/schema.h"

using namespace Qt::StringLiterals;

namespace {

class Salidas : public EnTodasLasPantallas {
 protected:
    /// Takes every table away, with what hangs from it.
    void quitarTablas(const char *menos = "") {
        for (const esquema::Tabla &t : esquema::tablas()) {
            if (t.nombre == QLatin1String(menos)) continue;
            const bool servidor = ctx->DataManager.getDataConnectionTAG(t.entidad) == "SQL"_L1;
            ejecutar("drop table "_L1 + t.nombre + (servidor ? " cascade"_L1 : ""_L1), t.entidad);
        }
    }
};

TEST_P(Salidas, EveryScreenOfTheProgramIsAmongThem) {
    QStringList faltan;
    QStringList estan;
    for (const Salida &salida : todas()) estan << QLatin1String(salida.nombre);
    for (const char *carpeta : {"assembly", "desktop", "forms", "frame", "header", "liquidation",
                                "operations", "outputs", "regulatory", "stock", "subitems"}) {
        QDirIterator formas(CarpetaDeFuentes() + QLatin1Char('/') + QLatin1String(carpeta), {u"*.ui"_s},
                            QDir::Files, QDirIterator::Subdirectories);
        while (formas.hasNext()) {
            formas.next();
            if (const QString nombre = formas.fileInfo().completeBaseName(); !estan.contains(nombre))
                faltan << nombre;
        }
    }
    EXPECT_EQ(faltan.join(QLatin1Char(' ')).toStdString(), "");
    EXPECT_GE(estan.size(), 30);
}

TEST_P(Salidas, AnOperationThatIsOnlyAHeaderKeepsNobody) {
    for (const Salida &salida : todas()) entrarYSalir(salida);
}

TEST_P(Salidas, StoresWithoutTablesKeepNobody) {
    quitarTablas();
    for (const Salida &salida : todas()) entrarYSalir(salida);
}

TEST_P(Salidas, AHeaderAloneInStoresWithoutOtherTablesKeepsNobody) {
    quitarTablas("caratula");
    for (const Salida &salida : todas()) entrarYSalir(salida);
}

// What writes when it is left, or asks the store then.
TEST_P(Salidas, TablesThatGoWhileTheScreenStandsKeepNobody) {
    for (const char *nombre : {"FrmABMProrrateos", "FrmAdCon", "FrmArmarItem", "FrmBultos", "FrmCaratula",
                               "FrmCliente", "FrmClientes", "FrmDetalleInterno", "FrmInternoNew", "FrmLstDiv",
                               "FrmLstProrrateo", "FrmNewVendedor", "FrmSubItems", "FrmVerItem"}) {
        TearDown();
        SetUp();
        for (const Salida &salida : todas()) {
            if (QLatin1String(salida.nombre) != QLatin1String(nombre)) continue;
            alAbrir = [this] { quitarTablas(); };
            entrarYSalir(salida);
            break;
        }
    }
}

TEST_P(Salidas, AnOperationThatIsGoneKeepsNobody) {
    ejecutar(u"delete from caratula where interno = 'VACIA'"_s);
    for (const Salida &salida : todas()) entrarYSalir(salida);
}

TEST_P(Salidas, EveryBoxOfTheSeamIsLeftByEscape) {
    const Dialogos d = [this] {
        conDialogosDeVerdad();
        return ctx->dialogos;
    }();
    const std::pair<const char *, std::function<void()>> cajas[] = {
        {"mensaje", [&d] { d.informar(u"Texto"_s); }},
        {"mensaje del sistema", [&d] { d.critico(u"Texto"_s, {}, true); }},
        {"pregunta",
         [&d] {
             EXPECT_FALSE(d.preguntar({u"¿?"_s, {}, Icono::Pregunta, false}));
         }},
        {"entrada",
         [&d] {
             EXPECT_FALSE(d.pedirTexto({u"Título"_s, u"Texto"_s, 10, {}}).has_value());
         }},
        {"lista", [&d] { EXPECT_EQ(d.elegir(tresFilas(Eleccion::Tipo::General)), -1); }},
        {"lista de códigos", [&d] { EXPECT_EQ(d.elegir(tresFilas(Eleccion::Tipo::Codigos)), -1); }},
        {"lista de sufijos", [&d] { EXPECT_EQ(d.elegir(tresFilas(Eleccion::Tipo::Sufijos)), -1); }},
        {"lista vacía",
         [&d] {
             EXPECT_EQ(d.elegir({u"Lista"_s, {}, -1, Eleccion::Tipo::General}), -1);
         }},
        {"pregunta con opciones",
         [&d] {
             EXPECT_FALSE(d.preguntarConOpciones({u"¿?"_s, {}, {}, {u"A"_s, u"B"_s}, u"&Si"_s, u"&No"_s}).si);
         }},
        {"informe",
         [&d] {
             d.informe({u"Informe"_s, u"Una línea"_s, false});
         }},
        {"informe como lista",
         [&d] {
             d.informe({u"Informe"_s, u"Una\r\nDos"_s, true});
         }},
    };
    for (const auto &[nombre, abrir] : cajas)
        entrarYSalir({nombre, abrir, [] { return QApplication::activeModalWidget() != nullptr; }, {}});
}

EN_AMBOS_STORES(Salidas);

}  // namespace
