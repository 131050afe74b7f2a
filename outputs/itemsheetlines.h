#pragma once
// A run of the sheet while its lines are written: what both kinds of page are made of.

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <span>
#include <utility>
#include <vector>

#include "frame/paper/report.h"
#include "liquidation/review.h"

/// A column of a block: its heading is cut or filled to its width, and so are its cells.
struct ColumnaDeHoja {
    const char16_t *titulo;
    int ancho;
    int separacion = 1;  ///< blanks ahead of the next one
};

/// The two bases of an item on what was invoiced.
struct BasesDeItem {
    double imponible = 0, iva = 0;
};

/// The run in hand. Every line goes to `tabla` as it is written; what is printed is read from there.
struct CorridaDeHoja {
    AppContext &ctx;
    const QString &interno;
    bool subitems;
    ClassLiquidacion &calculo;
    std::function<bool()> seguir;  ///< false: the user stopped the run
    /// How each line lies on paper, in the order written; without their texts.
    std::vector<papel::Renglon> marcas = {};
    std::vector<std::pair<QString, QString>> ficha = {};
    bool lapi = false;  ///< goes from item to item, like the calculator
    PosicionesLeidas posiciones{ctx};
    /// Of the items that the page of the operation went through, so that theirs does not read them again.
    QHash<QString, BasesDeItem> bases = {};
    QStringList porMandar = {};

    bool consultar(const QString &sql, Recordset &rs) const;
    /// Several reads in one journey.
    std::vector<Recordset> consultarJuntas(const QStringList &sentencias) const;
    /// Writes one line, its single quotes as "`". Some hundred lines travel together.
    void linea(const QString &texto, bool conElSiguiente = false);
    /// Sends the lines that have not left yet.
    void mandarLineas();
    /// The same for one that begins a page of paper.
    void enHojaNueva(const QString &texto);
    /// A heading of a block and the dashes below it, which are never left alone; `margen` stands ahead.
    void encabezado(std::span<const ColumnaDeHoja> columnas, const QString &margen = {});

    QString conMascara(double valor, QStringView mascara = u"00.00") const;
    /// A number in the workstation's plain form.
    QString comoNumero(double valor) const;
};

/// The cells of a row, each in its column.
QString FilaDeHoja(std::span<const ColumnaDeHoja> columnas, const QStringList &celdas);

/// Loads an item into the calculator and notes its bases.
void CargarItemDeHoja(CorridaDeHoja &h, const Recordset &item);

/// What reads the advantages and the information of an item.
QString SentenciaDeVentajas(const QString &interno, const QString &item);
QString SentenciaDeInformacion(const QString &interno, const QString &item);
/// Their blocks, each only where there is something in it.
void EscribirVentajas(CorridaDeHoja &h, Recordset &rs);
void EscribirInformacion(CorridaDeHoja &h, Recordset &rs);
/// The title of the block of lines.
void EscribirTituloDeSubitems(CorridaDeHoja &h);

/// The page of the operation (outputs/operationpage.cpp). False when the user stopped it.
bool EscribirPaginaDeOperacion(CorridaDeHoja &h);
/// The page of the row in hand of `item` (outputs/itempage.cpp).
void EscribirPaginaDeItem(CorridaDeHoja &h, const Recordset &item);
