// The option screens and those of the proration codes, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QMap>
#include <QTest>

#include "desktop/FrmBase.h"
#include "desktop/FrmConGen.h"
#include "desktop/FrmConfig.h"
#include "frame/base/ini.h"
#include "frame/config.h"
#include "frame/optionrows.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmABMProrrateos.h"
#include "header/FrmLstProrrateo.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class PantallasDeOpciones : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ConfigFilePath = tienda->carpeta() + u"/ZENDRA.ini"_s;
    }
    QString leer(const char *clave, const char *seccion = "GENERAL") {
        return LeerIni(QLatin1String(seccion), QLatin1String(clave), ctx->ConfigFilePath);
    }
    FrmConGen &opciones() {
        auto &pantalla = Pantalla<FrmConGen>();
        pantalla.Mostrar();
        esperarVentana(pantalla.ventana.get());
        return pantalla;
    }
};

TEST_P(PantallasDeOpciones, TheDoorOpensBothScreensByKeyboardAndClosesOnEscape) {
    auto &puerta = Pantalla<FrmConfig>();
    puerta.Mostrar();
    esperarVentana(puerta.ventana.get());
    foto(puerta.ventana.get(), u"configuracion"_s);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmConGen>());
    esperarVentana(Pantalla<FrmConGen>().ventana.get());
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmConGen>());
    esperarVentana(puerta.ventana.get());
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmBase>());
    esperarVentana(Pantalla<FrmBase>().ventana.get());
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmBase>());
    esperarVentana(puerta.ventana.get());
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmConfig>());
}

TEST_P(PantallasDeOpciones, EscapeStoresEveryOptionIntoTheFileAndTheRun) {
    auto &ui = opciones().ui;
    EXPECT_EQ(ui.rutaLabel->text(), ctx->ConfigFilePath);
    escribir(u"ab"_s);
    teclaEn(ui.chkMostrarOperaciones, Qt::Key_Space);
    ui.cboListado->setCurrentIndex(1);
    ui.opARMARITEM1->setChecked(true);
    teclaEn(ui.txtRIN, Qt::Key_Home);
    ui.txtRIN->setText(u"21"_s);
    foto(Pantalla<FrmConGen>().ventana.get(), u"opciones"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmConGen>());
    EXPECT_EQ(leer("INICIALES"), u"AB"_s);
    EXPECT_EQ(leer("OperacionesMostrarTODO"), u"S"_s);
    EXPECT_EQ(leer("LISTADO"), u"1"_s);
    EXPECT_EQ(leer("ARMARITEM"), u"1"_s);
    EXPECT_EQ(leer("IVARIN"), u"21"_s);
    EXPECT_TRUE(ctx->opciones.OperacionesMostrarTODO);
    EXPECT_EQ(ctx->opciones.LISTADO, 1);
    EXPECT_EQ(ctx->opciones.ARMARITEM, 1);
    EXPECT_DOUBLE_EQ(ctx->opciones.IVARIN, 21);
    auto &otra = opciones().ui;
    EXPECT_TRUE(otra.chkMostrarOperaciones->isChecked());
    EXPECT_TRUE(otra.opARMARITEM1->isChecked());
    EXPECT_EQ(otra.cboListado->currentText(), u"Fecha de Creación"_s);
}

TEST_P(PantallasDeOpciones, EveryBoxSetsItsOwnOptionAndNoOther) {
    ctx->opciones.TempInputsAvailable = true;
    const auto todas = [this] {
        QMap<QString, QString> valores;
        for (const FilaDeOpcion &fila : FilasDeOpciones())
            valores[QLatin1String(fila.clave)] = TextoDeOpcion(fila, ctx->opciones);
        return valores;
    };
    int casillas = 0;
    for (const FilaDeOpcion &fila : FilasDeOpciones()) {
        auto *casilla = opciones().ventana->findChild<QCheckBox *>(QLatin1String(fila.control));
        if (*fila.control == '\0' || casilla == nullptr) {
            tecla(Qt::Key_Escape);
            continue;
        }
        ++casillas;
        QMap<QString, QString> esperadas = todas();
        QString &suya = esperadas[QLatin1String(fila.clave)];
        // The one that the run does not keep changes its setting alone.
        if (!suya.isEmpty()) suya = suya == "S"_L1 ? u"N"_s : u"S"_s;
        teclaEn(casilla, Qt::Key_Space);
        tecla(Qt::Key_Escape);
        EXPECT_EQ(todas(), esperadas) << fila.clave;
    }
    EXPECT_EQ(casillas, 22);
    EXPECT_EQ(ctx->ajustes.Leer(u"oInputsLink"_s, u"CONFIG"_s, u"opVDE"_s), u"S"_s);
}

TEST_P(PantallasDeOpciones, AValueOfDiemChinaThatIsNoNumberKeepsTheScreenWithTheRestStored) {
    auto &ui = opciones().ui;
    ui.chkMostrarOperaciones->setChecked(true);
    ui.txtIndMaxArancel->setText(u"mucho"_s);
    tecla(Qt::Key_Escape);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"El campo Indice Maximo Arancel debe tener un valor númerico"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    ASSERT_TRUE(PantallaAbierta<FrmConGen>());
    EXPECT_EQ(QApplication::focusWidget(), ui.txtIndMaxArancel);
    EXPECT_EQ(leer("OperacionesMostrarTODO"), u"S"_s);
    ui.txtIndMaxArancel->setText(u"35"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmConGen>());
}

TEST_P(PantallasDeOpciones, APreferenceThatIsNoNumberInTheFileShowsForty) {
    EscribirIni(u"GENERAL"_s, u"DIEMCHINA-PREFPORC"_s, u"abc"_s, ctx->ConfigFilePath);
    CargarConfiguracion(*ctx);
    EXPECT_EQ(opciones().ui.txtPrefPorc->text(), u"40"_s);
}

TEST_P(PantallasDeOpciones, WithoutTheTemporaryInputsTheirTwoBoxesAreDisabledAndClear) {
    ctx->opciones.TempInputsAvailable = false;
    auto &ui = opciones().ui;
    for (const QCheckBox *casilla : {ui.chINSTEMPPerMer, ui.chINSTEMPVDE}) {
        EXPECT_FALSE(casilla->isEnabled());
        EXPECT_FALSE(casilla->isChecked());
    }
}

TEST_P(PantallasDeOpciones, AFileThatCannotBeWrittenIsToldAndDoesNotHoldTheUser) {
    ctx->ConfigFilePath = tienda->carpeta() + u"/no/existe/ZENDRA.ini"_s;
    opciones();
    tecla(Qt::Key_Escape);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(ctx->ConfigFilePath));
    EXPECT_FALSE(PantallaAbierta<FrmConGen>());
}

TEST_P(PantallasDeOpciones, TheFoldersAreStoredWithTheirClosingSeparator) {
    auto &base = Pantalla<FrmBase>();
    base.Mostrar();
    esperarVentana(base.ventana.get());
    escribir(u"/datos/internos"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), base.ui.TxtPersonal);
    foto(base.ventana.get(), u"ubicaciones"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmBase>());
    const QString carpeta = leer("INTERNO", "BASESERVER");
    EXPECT_TRUE(carpeta.startsWith("/datos/internos"_L1));
    EXPECT_EQ(ctx->PathInternos, carpeta + u"internos.mdb"_s);
}

class PantallasDeProrrateo : public EnPantalla {
 protected:
    const QString interno = u"IC-2026-0001"_s;
    void SetUp() override {
        EnPantalla::SetUp();
        ejecutar(u"delete from prorrateo"_s);
    }
    FrmABMProrrateos &abrirCodigos() {
        auto &pantalla = Pantalla<FrmABMProrrateos>();
        pantalla.Abrir(interno);
        pantalla.ventana->show();
        esperarVentana(pantalla.ventana.get());
        return pantalla;
    }
    void cargar(const char *codigo, const char *valor) {
        ejecutar(u"insert into prorrateo (interno,codigo,descripcion,valor) values ('"_s + interno +
                 u"','"_s + QLatin1String(codigo) + u"','X',"_s + QLatin1String(valor) + QLatin1Char(')'));
    }
};

TEST_P(PantallasDeProrrateo, WithoutCodesTheScreenGoesStraightToEntryAndKeysThem) {
    auto &ui = abrirCodigos().ui;
    EXPECT_EQ(ui.Sb->text(), u"[F11] Agregar - [ESC] Cancelar"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCodigo);
    escribir(u"emb"_s);
    EXPECT_EQ(ui.TxtCodigo->text(), u"EMB"_s);
    tecla(Qt::Key_Return);
    escribir(u"embalaje"_s);
    tecla(Qt::Key_Return);
    escribir(u"125"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(filas(u"select codigo,descripcion,valor from prorrateo"_s), u"EMB|EMBALAJE|125"_s);
    ASSERT_EQ(ui.Lst->rowCount(), 1);
    EXPECT_EQ(ui.Lst->item(0, 2)->text(), u"125,00"_s);
    EXPECT_TRUE(ui.TxtCodigo->text().isEmpty());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCodigo);
    foto(Pantalla<FrmABMProrrateos>().ventana.get(), u"prorrateos"_s);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ui.Sb->text(), u"[INSERT] Agregar - [DELETE] Eliminar - [ESC] Cerrar"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(Pantalla<FrmABMProrrateos>().ventana->isVisible());
    EXPECT_DOUBLE_EQ(ctx->TotalProrrateado, 125);
}

TEST_P(PantallasDeProrrateo, EachRefusalHasItsWordsAndItsField) {
    auto &ui = abrirCodigos().ui;
    struct Caso {
        const char16_t *codigo, *valor, *mensaje;
        QLineEdit *foco;
    };
    cargar("A", "1");
    for (const Caso &caso :
         {Caso{u" ", u"1", u"Debe ingresar un valor en el campo CODIGO", ui.TxtCodigo},
          Caso{u"B", u"x", u"Debe ingresar un dato Númerico en el campo VALOR", ui.TxtValor},
          Caso{u"B", u"0", u"El dato en el campo VALOR debe ser MAYOR A 0 (cero)", nullptr},
          Caso{u"A", u"1", u"El codigo ya Existe", nullptr}}) {
        registro.mensajes.clear();
        ui.TxtCodigo->setText(QString::fromUtf16(caso.codigo));
        ui.TxtValor->setText(QString::fromUtf16(caso.valor));
        ui.TxtDescripcion->setFocus();
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, QString::fromUtf16(caso.mensaje));
        if (caso.foco != nullptr) {
            EXPECT_EQ(QApplication::focusWidget(), caso.foco);
        }
    }
}

TEST_P(PantallasDeProrrateo, ANegativeValuePasses) {
    auto &ui = abrirCodigos().ui;
    ui.TxtCodigo->setText(u"NEG"_s);
    ui.TxtValor->setText(u"-5"_s);
    tecla(Qt::Key_F11);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(ui.Lst->rowCount(), 1);
}

TEST_P(PantallasDeProrrateo, ACodeIsDeletedAlthoughLinesCarryIt) {
    cargar("EMB", "10");
    ejecutar(u"update subitems set codprorrateo = 'EMB' where interno = 'IC-2026-0001'"_s);
    auto &ui = abrirCodigos().ui;
    EXPECT_EQ(ui.Sb->text(), u"[INSERT] Agregar - [DELETE] Eliminar - [ESC] Cerrar"_s);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(valor(u"select count(*) from prorrateo"_s), u"0"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCodigo) << "an empty list goes to entry";
}

TEST_P(PantallasDeProrrateo, InsertPassesFromTheListToEntryAndEscapeBack) {
    cargar("EMB", "10");
    auto &ui = abrirCodigos().ui;
    tecla(Qt::Key_Insert);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCodigo);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), ui.Lst);
    EXPECT_TRUE(Pantalla<FrmABMProrrateos>().ventana->isVisible());
}

TEST_P(PantallasDeProrrateo, ThePickListHandsTheCodeBackAndAnEmptyOneNothing) {
    FrmLstProrrateo lista;
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal->focusWidget(), Qt::Key_Return); });
    EXPECT_TRUE(lista.Elegir(interno).isEmpty());
    cargar("A", "10");
    cargar("B", "20.5");
    conVentanaModal([&lista](QWidget *modal) {
        EXPECT_EQ(lista.ui.Lst->item(1, 2)->text(), u"20,50"_s);
        foto(modal, u"prorrateos-lista"_s);
        QTest::keyClick(lista.ui.Lst, Qt::Key_Down);
        QTest::keyClick(lista.ui.Lst, Qt::Key_Return);
    });
    EXPECT_EQ(lista.Elegir(interno), u"B"_s);
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    EXPECT_TRUE(lista.Elegir(interno).isEmpty());
}

EN_AMBOS_STORES(PantallasDeOpciones);
EN_AMBOS_STORES(PantallasDeProrrateo);

}  // namespace
