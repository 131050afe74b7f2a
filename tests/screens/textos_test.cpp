// Words of users on the screens: what they typed is what they read.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QXmlStreamReader>

#include "assembly/run.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmCaratula.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmInternoNew.h"
#include "subitems/FrmSubItems.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

const QString clave = u"<b>A&B</b>"_s;

/// An operation whose key and client read like markup.
class TextosDeUsuario : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        for (const auto &tabla : {u"caratula"_s, u"subitems"_s, u"facturas"_s})
            ejecutar(u"update %1 set interno = '%2' where interno = 'IC-2026-0001'"_s.arg(tabla, clave));
        ejecutar(u"update caratula set factura7 = '<i>Uno & Cia</i>' where interno = '%1'"_s.arg(clave));
    }
    /// The labels of a window that would not show their text as it stands.
    static std::string torcidos(QWidget *ventana) {
        esperarVentana(ventana);
        QStringList malos;
        const auto etiquetas = ventana->findChildren<QLabel *>();
        EXPECT_FALSE(etiquetas.isEmpty());
        for (const QLabel *etiqueta : etiquetas) {
            // A field's caption may have a mnemonic; words of a user may not.
            const bool deUsuario =
                etiqueta->text().contains("A&B"_L1) || etiqueta->text().contains("Uno & Cia"_L1);
            if (etiqueta->textFormat() != Qt::PlainText || (deUsuario && etiqueta->buddy() != nullptr))
                malos << etiqueta->objectName();
        }
        return malos.join(QLatin1Char(' ')).toStdString();
    }
};

TEST_P(TextosDeUsuario, TheDashboardShowsAKeyThatReadsLikeMarkupAsItWasTyped) {
    auto &tablero = abrir(clave);
    EXPECT_EQ(torcidos(tablero.ventana.get()), "");
    const QLabel *etiqueta = tablero.ui.LbInterno;
    EXPECT_EQ(etiqueta->text(), clave);
    // As markup it would be three letters wide.
    EXPECT_GE(etiqueta->sizeHint().width(), etiqueta->fontMetrics().horizontalAdvance(clave));
}

TEST_P(TextosDeUsuario, TheListOfOperationsShowsThem) {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    navegador.ui.txtInterno->setText(clave);
    tecla(Qt::Key_Return);
    EXPECT_EQ(navegador.InternoSeleccionado(), clave);
    EXPECT_EQ(torcidos(navegador.ventana.get()), "");
}

TEST_P(TextosDeUsuario, HeaderAndLinesShowThem) {
    auto &caratula = Pantalla<FrmCaratula>();
    caratula.Mostrar(clave);
    EXPECT_EQ(torcidos(caratula.ventana.get()), "");
    CerrarPantalla<FrmCaratula>();
    auto &lineas = Pantalla<FrmSubItems>();
    lineas.Mostrar(clave, {1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(torcidos(lineas.ventana.get()), "");
}

TEST_P(TextosDeUsuario, TheItemsShowThem) {
    ctx->ChequeoArmado = u"SI"_s;
    ASSERT_TRUE(Generar(*ctx, clave, {}));
    ctx->LiquidacionPendiente = true;
    auto &items = Pantalla<FrmVerItem>();
    items.Mostrar(clave);
    EXPECT_EQ(torcidos(items.ventana.get()), "");
}

EN_AMBOS_STORES(TextosDeUsuario);

TEST(Formularios, NoLabelOfAFormAsksForMarkupAndNoneThatShowsDataHasAMnemonic) {
    int etiquetas = 0;
    const QDir fuentes(CarpetaDeFuentes());
    const QStringList carpetas = fuentes.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &carpeta : carpetas) {
        const QFileInfoList formas = QDir(fuentes.filePath(carpeta)).entryInfoList({u"*.ui"_s});
        for (const QFileInfo &forma : formas) {
            QFile archivo(forma.filePath());
            ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
            QXmlStreamReader xml(&archivo);
            QString etiqueta;
            while (!xml.atEnd()) {
                xml.readNext();
                if (!xml.isStartElement()) continue;
                const QString nombre = xml.attributes().value("name"_L1).toString();
                if (xml.name() == "widget"_L1) {
                    const bool esEtiqueta = xml.attributes().value("class"_L1) == "QLabel"_L1;
                    etiqueta = esEtiqueta ? nombre : QString();
                    etiquetas += esEtiqueta ? 1 : 0;
                } else if (!etiqueta.isEmpty() && nombre == "textFormat"_L1) {
                    const QString valor = xml.readElementText(QXmlStreamReader::IncludeChildElements);
                    EXPECT_EQ(valor.trimmed().toStdString(), "Qt::PlainText") << etiqueta.toStdString();
                } else if (!etiqueta.isEmpty() && nombre == "buddy"_L1) {
                    // Captions of fields are named "rotulo…"; every other label is written by its screen.
                    EXPECT_TRUE(etiqueta.startsWith("rotulo"_L1)) << etiqueta.toStdString();
                }
            }
            EXPECT_FALSE(xml.hasError()) << forma.fileName().toStdString();
        }
    }
    EXPECT_GT(etiquetas, 300);
}

}  // namespace
