// A whole shipment keyed from nothing by key events alone, with the windows that users see: the operation,
// its proration codes, header and lines, assembly and liquidation; held against the stored one.

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTest>

#include "assembly/FrmArmarItem.h"
#include "frame/base/numbers.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "header/FrmABMProrrateos.h"
#include "header/FrmCaratula.h"
#include "header/FrmListado.h"
#include "header/FrmLstProrrateo.h"
#include "header/regime.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmInternoNew.h"
#include "subitems/FrmCargaSufijos.h"
#include "subitems/FrmSubItems.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

const QString guardada = u"IC-2026-0001"_s;
const QString nueva = u"NUEVA 1"_s;

class EmbarquePorTeclado : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->opciones.IVARIN = 21;
        ctx->opciones.IVARNI = 10.5;
        ctx->SeparadorDecimal = QLatin1Char(',');
        conDialogosDeVerdad();
        // Every message box is read and confirmed by ENTER, as a user would.
        QObject::connect(&mensajero, &QTimer::timeout, qApp, [this] {
            auto *caja = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (caja == nullptr || !caja->isVisible()) return;
            leidos << caja->text();
            QTest::keyClick(caja, Qt::Key_Return);
        });
        mensajero.start(20);
    }
    void TearDown() override {
        mensajero.stop();
        EnPantalla::TearDown();
    }

    static void irA(QWidget *campo) {
        // Without a window manager a window that closed gives the keyboard to none.
        if (QApplication::activeWindow() != campo->window()) esperarVentana(campo->window());
        for (int n = 0; n < 120 && QApplication::focusWidget() != campo; ++n) tecla(Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), campo) << campo->objectName().toStdString();
    }
    /// TAB to the field, its text typed in place of what it holds, and on.
    static void teclear(QWidget *campo, const QString &texto) {
        irA(campo);
        if (auto *caja = qobject_cast<QComboBox *>(campo)) {
            // A box is chosen in by its letters: the arrows go to the next field.
            escribir(texto);
            ASSERT_EQ(caja->currentText(), texto) << campo->objectName().toStdString();
            return;
        }
        tecla(Qt::Key_A, Qt::ControlModifier);
        if (texto.isEmpty())
            tecla(Qt::Key_Delete);
        else
            escribir(texto);
        if (qobject_cast<QLineEdit *>(campo) != nullptr) tecla(Qt::Key_Return);
    }
    void crearYAbrir();
    void teclearCaratula();
    void teclearProrrateo();
    void teclearLinea(FrmSubItems &pantalla, const CamposSubItem &q, bool conListas);
    void preguntarSufijos(FrmSubItems &pantalla, const QString &esperado);
    void teclearLineas();
    void armar(const QString &interno);
    std::string deLaOperacion(QString sql, const QString &interno) {
        return filas(sql.replace(QLatin1Char('@'), interno)).toStdString();
    }

    QTimer mensajero;
    QStringList leidos;
};

void EmbarquePorTeclado::crearYAbrir() {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    conVentanaModal([](QWidget *modal) {
        escribir(nueva);
        QTest::keyClick(modal, Qt::Key_Return);
    });
    tecla(Qt::Key_Insert);
    esperarVentana(navegador.ventana.get());
    ASSERT_EQ(navegador.InternoSeleccionado(), nueva);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmDetalleInterno>());
    esperarVentana(Pantalla<FrmDetalleInterno>().ventana.get());
}

void EmbarquePorTeclado::teclearCaratula() {
    Caratula q = CaratulaVacia(guardada);
    ASSERT_TRUE(CargarCaratula(*ctx, q));
    auto &tablero = Pantalla<FrmDetalleInterno>();
    tablero.ui.cmdCaratula->setFocus();
    tecla(Qt::Key_Space);
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>());
    auto &pantalla = Pantalla<FrmCaratula>();
    auto &ui = pantalla.ui;
    esperarVentana(pantalla.ventana.get());
    for (const DefinicionDeControl &d : ControlesDeCaratula()) {
        const QString nombre = QLatin1String(d.nombre);
        auto *campo = pantalla.ventana->findChild<QWidget *>(nombre);
        if (campo == nullptr || !campo->isVisible() || !campo->isEnabled()) continue;
        if (campo == ui.CmdProrrat) {
            teclearProrrateo();
        } else if (campo == ui.TxtFactura) {
            for (const QString &factura : q.LstFact) teclear(campo, factura);
        } else if (campo == ui.cboOpcionIVA) {
            teclear(campo, OpcionIVATexto(q.cboOpcionIVA));
        } else if (campo == ui.cboOpcionesGanancias) {
            teclear(campo, OpcionGananciasTexto(q.cboOpcionesGanancias));
        } else if (auto *casilla = qobject_cast<QCheckBox *>(campo)) {
            irA(casilla);
            if (casilla->isChecked() != (q.texto(d.nombre) == "S"_L1)) tecla(Qt::Key_Space);
        } else if (d.tipo == TipoDeControl::Texto && campos::TextoDe(campo) != q.texto(d.nombre)) {
            teclear(campo, q.texto(d.nombre));
        }
    }
    foto(pantalla.ventana.get(), u"caratula-tecleada"_s);
    irA(ui.TxtSubReg);
    tecla(Qt::Key_Escape);
    ASSERT_FALSE(PantallaAbierta<FrmCaratula>()) << leidos.join(" / "_L1).toStdString();
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.LbEstadoCaratula->text(), u"COMPLETO!"_s);
    EXPECT_EQ(leidos.join(" / "_L1).toStdString(), "");
}

/// The stored operation's proration codes, keyed on their own screen.
void EmbarquePorTeclado::teclearProrrateo() {
    const QStringList codigos =
        filas(u"select codigo,descripcion,valor from prorrateo where interno = '%1'"_s.arg(guardada))
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    irA(Pantalla<FrmCaratula>().ui.CmdProrrat);
    conPantallaModal<FrmABMProrrateos>([&](FrmABMProrrateos &pantalla) {
        for (const QString &codigo : codigos) {
            const QStringList partes = codigo.split(QLatin1Char('|'));
            teclear(pantalla.ui.TxtCodigo, partes.at(0));
            teclear(pantalla.ui.TxtDescripcion, partes.at(1));
            teclear(pantalla.ui.TxtValor, partes.at(2));
            tecla(Qt::Key_F11);
        }
        tecla(Qt::Key_Escape);
        tecla(Qt::Key_Escape);
    });
    tecla(Qt::Key_Space);
}

/// The suffixes asked for one by one in their windows: the coded family from its list, the free values typed.
void EmbarquePorTeclado::preguntarSufijos(FrmSubItems &pantalla, const QString &esperado) {
    auto &ui = pantalla.ui;
    teclear(ui.txtSufijos, {});
    irA(ui.txtSufijos);
    // The next window is waited for just ahead of the ENTER that brings it.
    const auto responder = [](const QString &texto, const std::function<void()> &despues) {
        conVentanaModal([texto, despues](QWidget *modal) {
            esperarVentana(modal);
            escribir(texto);
            despues();
            tecla(Qt::Key_Return);
        });
    };
    conPantallaModal<FrmCargaSufijos>([&](FrmCargaSufijos &) {
        tecla(Qt::Key_Down);
        responder(u"Nordpumpen NP 0750"_s, [=] { responder(u"750"_s, [] {}); });
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_EQ(ui.txtSufijos->text(), esperado);
}

/// Keys one line. With lists, its country, proration code and suffixes are taken from their lists.
void EmbarquePorTeclado::teclearLinea(FrmSubItems &pantalla, const CamposSubItem &q, bool conListas) {
    auto &ui = pantalla.ui;
    if (ui.TxtIdCatalogo->text() != q.TxtIdCatalogo) teclear(ui.TxtIdCatalogo, q.TxtIdCatalogo);
    teclear(ui.txtIdArticulo, q.txtIdArticulo);
    if (ui.TxtPosicion->text() != q.TxtPosicion) teclear(ui.TxtPosicion, q.TxtPosicion);
    if (conListas) {
        irA(ui.TxtIdpais);
        conPantallaModal<FrmListado>([](FrmListado &lista) {
            escribir(u"alemania"_s);
            Q_UNUSED(lista)
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_F6);
        EXPECT_EQ(ui.TxtIdpais->text(), q.TxtIdpais);
        irA(ui.TxtCodProrrateo);
        conVentanaModal([](QWidget *) { tecla(Qt::Key_Return); });
        tecla(Qt::Key_F6);
        EXPECT_EQ(ui.TxtCodProrrateo->text(), q.TxtCodProrrateo);
    }
    if (conListas) preguntarSufijos(pantalla, q.txtSufijos);
    for (const DefinicionDeCampo &d : CamposDeSubItem()) {
        auto *campo = pantalla.ventana->findChild<QWidget *>(QLatin1String(d.control));
        if (campo == nullptr || d.tipo == TipoDeCampo::Descripcion || !campo->isVisible() ||
            !campo->isEnabled())
            continue;
        if (auto *caja = qobject_cast<QComboBox *>(campo)) {
            if (campos::TextoDe(campo) != q.*d.campo)
                teclear(campo, caja->itemText(caja->findData(q.*d.campo)));
            continue;
        }
        const QString texto = q.*d.campo;
        if (campos::TextoDe(campo) != texto && d.campo != &CamposSubItem::txtSufijos) teclear(campo, texto);
    }
    if (ui.txtSufijos->text() != q.txtSufijos) teclear(ui.txtSufijos, q.txtSufijos);
    irA(ui.TxtCantidad);
    tecla(Qt::Key_F11);
    esperarVentana(pantalla.ventana.get());
}

void EmbarquePorTeclado::teclearLineas() {
    auto &tablero = Pantalla<FrmDetalleInterno>();
    SubItems origen;
    AbrirSubItems(*ctx, origen, guardada, {1, 1, 1, 1, 1, 1, 1, 1});
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s,
                          u"select id from subitems where interno = '"_s + guardada + u"' order by id"_s,
                          rs));
    tablero.ui.CmdSubItems->setFocus();
    tecla(Qt::Key_Space);
    ASSERT_TRUE(PantallaAbierta<FrmSubItems>());
    auto &pantalla = Pantalla<FrmSubItems>();
    esperarVentana(pantalla.ventana.get());
    int lineas = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        const auto id = static_cast<qint64>(rs.Numero(u"id"));
        SCOPED_TRACE(id);
        ASSERT_TRUE(BuscarSubItem(*ctx, origen, id));
        teclearLinea(pantalla, origen.campos, lineas == 0);
        ++lineas;
        ASSERT_EQ(pantalla.ui.LstArticulos->rowCount(), lineas) << leidos.join(" / "_L1).toStdString();
        const QTableWidget *lista = pantalla.ui.LstArticulos;
        for (int columna = 0; columna < lista->columnCount(); ++columna)
            EXPECT_GE(lista->columnWidth(columna),
                      lista->sizeHintForIndex(lista->model()->index(lineas - 1, columna)).width())
                << "column " << columna << " cuts its text";
    }
    EXPECT_EQ(pantalla.ui.lbDIF->text(), u"00,00"_s);
    tecla(Qt::Key_Escape);
    ASSERT_FALSE(PantallaAbierta<FrmSubItems>());
    esperarVentana(tablero.ventana.get());
}

void EmbarquePorTeclado::armar(const QString &interno) {
    auto &tablero = Pantalla<FrmDetalleInterno>();
    ASSERT_EQ(tablero.Interno(), interno);
    tablero.ui.cmdITEM->setFocus();
    tecla(Qt::Key_Space);
    hasta([] { return !PantallaAbierta<FrmArmarItem>() && PantallaAbierta<FrmVerItem>(); });
    auto &items = Pantalla<FrmVerItem>();
    esperarVentana(items.ventana.get());
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    tecla(Qt::Key_Escape);
    esperarVentana(tablero.ventana.get());
}

TEST_P(EmbarquePorTeclado, TheImportOfTwentyFiveLinesGivesTheSameItemsAndDutiesAsTheStoredOne) {
    crearYAbrir();
    if (HasFatalFailure()) return;
    teclearCaratula();
    if (HasFatalFailure()) return;
    teclearLineas();
    if (HasFatalFailure()) return;
    armar(nueva);
    if (HasFatalFailure()) return;
    EXPECT_EQ(leidos.join(" / "_L1).toStdString(),
              "No se encontro Sufijo en el nomenclador / No se encontro Sufijo en el nomenclador / "
              "Se han encontrado posiciones con LAPI")
        << "two positions ask for no suffix; nothing else is told";
    tecla(Qt::Key_Escape);
    ASSERT_FALSE(PantallaAbierta<FrmDetalleInterno>());
    abrir(guardada);
    armar(guardada);
    if (HasFatalFailure()) return;
    for (const char *igual :
         {"select "
          "id,ncm,idpais,idunidad,estadistica,valorrelacionestadistica,cantidad,preciounitario,fobtotal,"
          "totalkneto,totalkbruto,itflete,itseguro from item where interno = '@' order by id",
          "select iditem,idconceptos,pgc,porcentaje,baseimp,total from itemliq where interno = '@' order by "
          "iditem,idconceptos",
          "select idconcepto,valor,pgc from liqcero where interno = '@' order by idconcepto"}) {
        EXPECT_FALSE(deLaOperacion(QLatin1String(igual), guardada).empty());
        EXPECT_EQ(deLaOperacion(QLatin1String(igual), nueva), deLaOperacion(QLatin1String(igual), guardada));
    }
}

EN_AMBOS_STORES(EmbarquePorTeclado);

}  // namespace
