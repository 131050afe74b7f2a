// What a line stores when its fields are typed in another order than the screen's, and how data is shown.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QRegularExpression>

#include "frame/ui/Pantalla.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmDetalleNomenclador.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmSufijos.h"
#include "tests/screens/subitems_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class DatosDeLinea : public EnLineas {
 protected:
    /// The labels of a window that show data and would read markup in it.
    static std::string conMarcado(const QWidget *ventana) {
        static const QRegularExpression deDatos(u"^(Lb|lb(?!Titulo|Teclas)|StB)"_s);
        QStringList nombres;
        const auto etiquetas = ventana->findChildren<QLabel *>(deDatos);
        for (const QLabel *etiqueta : etiquetas)
            if (etiqueta->textFormat() != Qt::PlainText) nombres << etiqueta->objectName();
        EXPECT_FALSE(etiquetas.isEmpty());
        return nombres.join(u' ').toStdString();
    }
};

TEST_P(DatosDeLinea, TheLicenceMarkIsThatOfAPositionTypedOverWithoutEnter) {
    // Two positions of the same unit, one with the mark.
    ejecutar("update ncm set [059] = '' where [001] = '8413.70.10' and [002] = '100'", "NCM");
    ejecutar("update ncm set [059] = '*' where [001] = '8413.70.10' and [002] = '200'", "NCM");
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    teclearBomba(pantalla);
    EXPECT_FALSE(ui.LbLapi->isVisible());
    llenar(ui.TxtPosicion, u"8413.70.10.200R"_s);
    tecla(Qt::Key_Tab);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(linea("ncm,lapi"), "8413.70.10.200R|S");
}

TEST_P(DatosDeLinea, EnterOnThePositionLeavesTheKilosThatWereTyped) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, hortaliza);
    llenarYSeguir(ui.TxtUnidad, u"29"_s);
    llenarYSeguir(ui.TxtCantidad, u"2"_s);
    EXPECT_EQ(ui.TxtKgNeto->text(), u"2000.00"_s) << "two tonnes";
    llenarYSeguir(ui.TxtKgNeto, u"1985.50"_s);
    irA(ui.TxtPosicion);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.TxtKgNeto->text(), u"1985.50"_s);
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), u"2000.00"_s);
}

TEST_P(DatosDeLinea, F6OnTheSuffixesOfAnArticleTellsThatItReconfirmsThem) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenar(ui.TxtIdCatalogo, u"HIDPLATA"_s);
    llenarYSeguir(ui.txtIdArticulo, u"NP-0750"_s);
    irA(ui.txtSufijos);
    tecla(Qt::Key_F6);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo, u"Verificación de Sufijos"_s);
    EXPECT_EQ(ui.txtSufijos->text(), u"AA01-AB(NORDPUMPEN NP 0750)-ZB(000750)-"_s);
    registro.mensajes.clear();
    tecla(Qt::Key_F6);
    EXPECT_TRUE(registro.mensajes.empty()) << "once";
}

TEST_P(DatosDeLinea, LettersInACodedFieldAreCapitalsAsTheyAreTyped) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    for (QLineEdit *campo : {ui.TxtUnidad, ui.TxtIdpais, ui.txtIdPaisProc, ui.TxtIdEstadoMercaderia,
                             ui.TxtPosicion, ui.TxtCodProrrateo}) {
        irA(campo);
        escribir(u"ac"_s);
        EXPECT_EQ(campo->text(), u"AC"_s) << campo->objectName().toStdString();
        tecla(Qt::Key_Left);
        escribir(u"b"_s);
        EXPECT_EQ(campo->text(), u"ABC"_s) << campo->objectName().toStdString();
        EXPECT_EQ(campo->cursorPosition(), 2) << campo->objectName().toStdString();
        campo->clear();
    }
}

TEST_P(DatosDeLinea, APositionWhoseFamiliesAreAllSkippedIsKeyedAndChanged) {
    ejecutar("delete from sufidos", "NCM");
    ejecutar("insert into sufidos (sim,sufijo,detalle) values ('0709.  .  .   ','BA1','Corto')", "NCM");
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    teclearHortalizas(pantalla);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(linea("sufijos"), "SIN SUFIJOS");
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Return);
    llenar(ui.TxtFobTotal, u"150"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(linea("fob,sufijos"), "150|SIN SUFIJOS");
}

TEST_P(DatosDeLinea, DataReadsAsItStandsAndNotAsMarkup) {
    ejecutar("update pais set descripcion = '<b>A&B</b>' where id = '203'", "SYSTABLAS");
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtIdpais, u"203"_s);
    EXPECT_EQ(ui.LbDescPais->text(), u"<b>A&B</b>"_s);
    EXPECT_EQ(conMarcado(pantalla.ventana.get()), "");
    EXPECT_EQ(conMarcado(FrmPosicion().ventana.get()), "");
    EXPECT_EQ(conMarcado(FrmConsultas().ventana.get()), "");
    EXPECT_EQ(conMarcado(FrmDetalleNomenclador().ventana.get()), "");
    EXPECT_EQ(conMarcado(FrmSufijos().ventana.get()), "");
}

EN_AMBOS_STORES(DatosDeLinea);

}  // namespace
