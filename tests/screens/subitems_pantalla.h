#pragma once
// An empty operation and the screen of its lines, by keyboard.

#include <array>

#include "subitems/FrmSubItems.h"
#include "tests/support/pantallas.h"

class EnLineas : public EnPantalla {
 protected:
    void SetUp() override;
    void TearDown() override;

    /// The screen of an operation's lines, with the keyboard.
    FrmSubItems &lineas(const QString &interno = QStringLiteral("OP 1"),
                        const std::array<int, 8> &banderas = {1, 1, 1, 1, 1, 1, 1, 1});
    /// TAB until the field has the keyboard.
    static void irA(QWidget *campo);
    /// TAB to the field, then the text in place of what it holds.
    static void llenar(QWidget *campo, const QString &texto);
    /// The same, and ENTER.
    static void llenarYSeguir(QWidget *campo, const QString &texto);
    /// The columns of a stored line that are keyed, in the order that `teclearLinea` takes their values.
    static constexpr const char *columnasDeLinea =
        "idcatalogo,idarticulo,otros,ncm,descripcion,descripcion_maria,idunidad,cantidad,preciounitario,fob,"
        "estadistica,valorrelacionestadistica,deresp,valorderesp,idpais,idpaisproc,estadomerc,sufijos,"
        "biendeuso,codprorrateo,kgneto,kgbruto,lapi";
    /// Keys one line of those values, priced by unit, in the order of the screen, and saves it.
    static void teclearLinea(FrmSubItems &pantalla, const QStringList &v);
    /// 24 pumps for 2841.60 in all, without catalogue, suffixes told; ready to be saved.
    void teclearBomba(FrmSubItems &pantalla);
    /// 5 units of a position measured in kilograms, for 100 in all, 40 kilos net and 45 gross.
    void teclearHortalizas(FrmSubItems &pantalla);
    /// Keys a line of pumps and saves it.
    void nuevaBomba(FrmSubItems &pantalla);

    /// The entry of the menu that the letter chooses: of the filters (0) or of the changes of all lines (1).
    static void menu(int cual, int letra);

    std::string ultimoMensaje() const;
    std::string linea(const char *columnas, const QString &interno = QStringLiteral("OP 1"));
    int cuantas(const QString &interno = QStringLiteral("OP 1"));
    static std::string celda(const FrmSubItems &pantalla, int fila, int columna);

    /// What the suffix engine tells of a position that asks for none.
    const std::string sinSufijos = "No se encontro Sufijo en el nomenclador";
    const QString bomba = QStringLiteral("8413.70.10.100L");      ///< unit 07; suffixes AA, AB, ZB
    const QString hortaliza = QStringLiteral("0709.60.00.000X");  ///< unit 01, no suffixes, no specific duty
    const QString leche = QStringLiteral("0402.21.10.110X");      ///< unit 01, specific duty in kilograms
};
