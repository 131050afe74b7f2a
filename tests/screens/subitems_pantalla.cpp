#include "tests/screens/subitems_pantalla.h"

#include <QApplication>
#include <QMenu>

#include "frame/base/numbers.h"
#include "frame/ui/Pantalla.h"
#include "subitems/ReferenceValues.h"

using namespace Qt::StringLiterals;

void EnLineas::SetUp() {
    EnPantalla::SetUp();
    ctx->SeparadorDecimal = QLatin1Char('.');
    ejecutar("insert into caratula (interno,idsubreg,fobdivisas,factura8) values ('OP 1','IC04',3000,'N')");
    registro = Registro();
}

void EnLineas::TearDown() {
    oReferenceValues::GetValoresCriterio = nullptr;
    EnPantalla::TearDown();
}

FrmSubItems &EnLineas::lineas(const QString &interno, const std::array<int, 8> &banderas) {
    auto &pantalla = Pantalla<FrmSubItems>();
    pantalla.Mostrar(interno, banderas);
    esperarVentana(pantalla.ventana.get());
    return pantalla;
}

void EnLineas::irA(QWidget *campo) {
    for (int n = 0; n < 60 && QApplication::focusWidget() != campo; ++n) tecla(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), campo) << campo->objectName().toStdString();
}

void EnLineas::llenar(QWidget *campo, const QString &texto) {
    irA(campo);
    escribir(texto);
}

void EnLineas::llenarYSeguir(QWidget *campo, const QString &texto) {
    llenar(campo, texto);
    tecla(Qt::Key_Return);
}

void EnLineas::teclearLinea(FrmSubItems &pantalla, const QStringList &v) {
    auto &ui = pantalla.ui;
    llenar(ui.TxtIdCatalogo, v[0]);
    llenar(ui.txtIdArticulo, v[1]);
    llenar(ui.TxtDescArticulos, v[4]);
    llenar(ui.txtDescripcionMaria, v[5]);
    llenar(ui.txtOtros, v[2]);
    llenarYSeguir(ui.TxtPosicion, v[3]);
    llenarYSeguir(ui.TxtUnidad, v[6]);
    llenarYSeguir(ui.TxtCantidad, v[7]);
    llenarYSeguir(ui.TxtUnitario, v[8]);
    llenarYSeguir(ui.TxtKgNeto, v[20]);
    llenarYSeguir(ui.TxtKgBruto, v[21]);
    if (ui.TxtValorsobreestadistica->focusPolicy() == Qt::StrongFocus)
        llenarYSeguir(ui.TxtValorsobreestadistica, v[11]);
    if (ui.FramDerEsp->isEnabled()) llenarYSeguir(ui.TxtDerEsp, v[13]);
    llenarYSeguir(ui.TxtIdpais, v[14]);
    llenarYSeguir(ui.txtIdPaisProc, v[15]);
    llenarYSeguir(ui.TxtIdEstadoMercaderia, v[16]);
    irA(ui.cboBiendeUso);
    // Letters typed as fast as here would be searched for as one word.
    tecla(v[18] == "S"_L1 ? Qt::Key_End : Qt::Key_Home);
    llenarYSeguir(ui.TxtCodProrrateo, v[19]);
    if (v[17] != "SIN SUFIJOS"_L1) llenar(ui.txtSufijos, v[17]);
    tecla(Qt::Key_F11);
}

void EnLineas::teclearBomba(FrmSubItems &pantalla) {
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, bomba);
    llenarYSeguir(ui.TxtUnidad, u"07"_s);
    llenarYSeguir(ui.TxtCantidad, u"24"_s);
    llenarYSeguir(ui.TxtFobTotal, u"2841.60"_s);
    llenar(ui.txtSufijos, u"AA01-AB(X 1)-ZB(000750)-"_s);
}

void EnLineas::teclearHortalizas(FrmSubItems &pantalla) {
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, hortaliza);
    llenarYSeguir(ui.TxtUnidad, u"07"_s);
    llenarYSeguir(ui.TxtCantidad, u"5"_s);
    llenarYSeguir(ui.TxtFobTotal, u"100"_s);
    llenarYSeguir(ui.TxtKgNeto, u"40"_s);
    llenarYSeguir(ui.TxtKgBruto, u"45"_s);
}

void EnLineas::nuevaBomba(FrmSubItems &pantalla) {
    teclearBomba(pantalla);
    tecla(Qt::Key_F11);
    ASSERT_EQ(ultimoMensaje(), "<ninguno>");
}

void EnLineas::menu(int cual, int letra) {
    tecla(Qt::Key_F10);
    if (cual == 1) tecla(Qt::Key_Right);
    const auto *abierto = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(abierto, nullptr);
    ASSERT_EQ(abierto->objectName(), cual == 0 ? u"mnuFiltros"_s : u"mnuCambios"_s);
    tecla(letra);
    ASSERT_EQ(QApplication::activePopupWidget(), nullptr);
}

std::string EnLineas::ultimoMensaje() const {
    return registro.mensajes.empty() ? "<ninguno>" : registro.mensajes.back().texto.toStdString();
}

std::string EnLineas::linea(const char *columnas, const QString &interno) {
    return filas(u"select %1 from subitems where interno = '%2' order by id"_s.arg(QLatin1String(columnas),
                                                                                   interno))
        .toStdString();
}

int EnLineas::cuantas(const QString &interno) {
    return valor(u"select count(*) as n from subitems where interno = '%1'"_s.arg(interno)).toInt();
}

std::string EnLineas::celda(const FrmSubItems &pantalla, int fila, int columna) {
    const QTableWidgetItem *una = pantalla.ui.LstArticulos->item(fila, columna);
    return una == nullptr ? "<nada>" : una->text().toStdString();
}
