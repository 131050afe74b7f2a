#pragma once
// A whole declaration in memory, as the document tells it.

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "outputs/declarationparts.h"

struct AppContext;

/// A value as the document spells it; an empty text is absent, whether the store held a null or nothing.
struct ValorDeclarado {
    QString texto;
    double numero = 0;  ///< as stored, ahead of the document's rounding; 0 for what is no number or absent
};

/// A row of a part: one value for each of its `datos`.
struct FilaDeclarada {
    const ParteDeDeclaracion *parte = nullptr;
    std::vector<ValorDeclarado> valores;
    double orden = 0;  ///< the part's first key; not in the document

    /// By column; empty and 0 for what is absent. Raise Falla for a column that the part does not carry.
    const QString &texto(const char *columna) const { return valor(columna).texto; }
    double numero(const char *columna) const { return valor(columna).numero; }
    const ValorDeclarado &valor(const char *columna) const;
};

/// What the user should know ahead of sending.
struct Advertencia {
    int item = 0;   ///< its number; 0: the operation
    QString texto;  ///< one Spanish sentence
};

struct ItemDeclarado {
    int numero = 0;
    FilaDeclarada datos;  ///< without values for item 0
    std::vector<FilaDeclarada> subitems, tributos, ventajas, informaciones, cancelaciones;
    QStringList certificados;  ///< of origin, of all lines behind the item, each once

    /// Where the rows of a part that hangs on items are. Raises Falla for another part.
    static std::vector<FilaDeclarada> ItemDeclarado::*listaDe(Parte parte);
    std::vector<FilaDeclarada> &filas(Parte parte) { return this->*listaDe(parte); }
    const std::vector<FilaDeclarada> &filas(Parte parte) const { return this->*listaDe(parte); }
};

/// Every list is in an order that the data alone settle, so that two stores with the same data give the same
/// document.
struct Declaracion {
    QString interno;
    QString sentido;  ///< of the regime: "I", "E", or empty
    FilaDeclarada caratula, bultos;
    std::vector<FilaDeclarada> facturas, prorrateos, totales;
    ItemDeclarado operacion;  ///< item 0: what stands for all items
    std::vector<ItemDeclarado> items;
    /// The figure that the nomenclature gives to the position of the largest FOB, -1 for none; asked for
    /// where the regime is a DJAI and there are items.
    std::optional<int> ncmMayorFob;
    bool porArmar = false;             ///< the mark of the operation asks for another assembly
    bool bultosContestados = false;    ///< the packages screen was answered
    std::vector<Advertencia> reparos;  ///< what could not be carried as it is stored
};

/// The parts that hang on an item, in the order of the document.
inline constexpr Parte partesDeItem[] = {Parte::Subitem, Parte::Tributo, Parte::Ventaja, Parte::Informacion,
                                         Parte::Cancelacion};

/// Counts and totals to check by eye; the document ends with them.
struct ResumenDeDeclaracion {
    int items = 0, subitems = 0, tributos = 0, ventajas = 0, informaciones = 0, cancelaciones = 0;
    double fob = 0, flete = 0, seguro = 0, kilosNetos = 0, kilosBrutos = 0;  ///< of the items
    double totalTributos = 0;                         ///< of the items' duties, all kinds together
    double aPagar = 0, aGarantizar = 0, aCobrar = 0;  ///< of the operation's totals
};

/// Reads an operation in a handful of statements, however many items it has. Commissions abroad only with
/// the option EnviarComExt. Raises Falla, also for an operation that is not there.
Declaracion LeerDeclaracion(AppContext &ctx, const QString &interno);

/// The rows of item 0 count too. Sums are over what the document shows, cents and grams.
ResumenDeDeclaracion Resumir(const Declaracion &d);

/// A number of a row as the document shows it; 0 when it is absent.
double Mostrado(const FilaDeclarada &fila, const char *columna);

/// A concept of the totals that is none: the bases and the adjustments of the operation.
bool EsTotalReservado(const QString &concepto);

/// The duties of an item, all kinds together.
double TributosDe(const ItemDeclarado &item);
