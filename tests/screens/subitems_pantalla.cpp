#include "tests/screens/subitems_pantalla.h"

#include <QApplication>

#include "frame/numbers.h"
#include "frame/ui/Pantalla.h"
#include "siblings/ReferenceValues.h"

void EnLineas::SetUp() {
    EnPantalla::SetUp();
    numeros::fijarSeparadorDecimal(QLatin1Char('.'));
    ejecutar("insert into caratula (interno,idsubreg,fobdivisas,factura8) values ('OP 1','IC04',3000,'N')");
    registro = Registro();
}

void EnLineas::TearDown() {
    insumos::crearEnlace = nullptr;
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

void EnLineas::teclearBomba(FrmSubItems &pantalla) {
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, bomba);
    llenarYSeguir(ui.TxtUnidad, QStringLiteral("07"));
    llenarYSeguir(ui.TxtCantidad, QStringLiteral("24"));
    llenarYSeguir(ui.TxtFobTotal, QStringLiteral("2841.60"));
    llenar(ui.txtSufijos, QStringLiteral("AA01-AB(X 1)-ZB(000750)-"));
}

void EnLineas::teclearHortalizas(FrmSubItems &pantalla) {
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, hortaliza);
    llenarYSeguir(ui.TxtUnidad, QStringLiteral("07"));
    llenarYSeguir(ui.TxtCantidad, QStringLiteral("5"));
    llenarYSeguir(ui.TxtFobTotal, QStringLiteral("100"));
    llenarYSeguir(ui.TxtKgNeto, QStringLiteral("40"));
    llenarYSeguir(ui.TxtKgBruto, QStringLiteral("45"));
}

void EnLineas::nuevaBomba(FrmSubItems &pantalla) {
    teclearBomba(pantalla);
    tecla(Qt::Key_F11);
    ASSERT_EQ(ultimoMensaje(), "<ninguno>");
}

std::string EnLineas::ultimoMensaje() const {
    return registro.mensajes.empty() ? "<ninguno>" : registro.mensajes.back().texto.toStdString();
}

std::string EnLineas::linea(const char *columnas, const QString &interno) {
    return filas(QStringLiteral("select %1 from subitems where interno = '%2' order by id")
                     .arg(QLatin1String(columnas), interno))
        .toStdString();
}

int EnLineas::cuantas(const QString &interno) {
    return valor(QStringLiteral("select count(*) as n from subitems where interno = '%1'").arg(interno))
        .toInt();
}

std::string EnLineas::celda(const FrmSubItems &pantalla, int fila, int columna) {
    const QTableWidgetItem *una = pantalla.ui.LstArticulos->item(fila, columna);
    return una == nullptr ? "<nada>" : una->text().toStdString();
}
