#pragma once
// The valuation sheet of an operation: what its parties declare of the price, what is added to it and taken
// from it, and what comes of that.

#include <QDate>
#include <QMap>
#include <QString>
#include <QStringList>
#include <vector>

#include "forms/valuationfields.h"
#include "frame/base/verdict.h"

struct AppContext;

namespace valoracion {

/// What the operation says, for the sheet's head and for the amounts that it proposes. Amounts are in the
/// currency of its FOB; freight and insurance come to it by the header's rates.
struct Operacion {
    bool existe = false;
    QString interno, idsubreg, idaduana;
    QDate fecha;  ///< the day that it was made
    QString cliente, domicilioDelCliente, despachante;
    QString vendedor, domicilioDelVendedor, paisDelVendedor;  ///< of an import
    QString comprador;                                        ///< of an export
    QString condicion;                                        ///< of sale
    QStringList facturas;                                     ///< its invoices
    QString divisa;                                           ///< of the FOB
    double cambio = 0;                                        ///< dollars for one of that currency
    double fob = 0;                                           ///< with the values that the header prorates
    double flete = 0;
    double seguro = 0;  ///< by amount, or by percentage where there is none
    double incluir = 0, deducir = 0;
};

/// One sheet; a text a column, as the screen shows it: amounts "00.00", days "dd/mm/yyyy".
struct Hoja {
    Clase clase = Clase::Importacion;
    Operacion operacion;
    bool guardada = false;  ///< the store has it
    QString divisa;         ///< of its amounts
    double cambio = 0;      ///< dollars for one of them
    QMap<QString, QString> valores;

    double importe(const QString &columna) const;
};

/// An import's for a regime that uses the valuation sheet, else an export's.
Clase ClaseDe(QStringView idsubreg);

/// The sheet of an operation as kept; with none, what the operation proposes, not saved. Raises Falla.
Hoja Leer(AppContext &ctx, const QString &interno);
/// Puts the operation's amounts, currency and rate into the sheet in place of its own; the rest stays.
void Proponer(const AppContext &ctx, Hoja &hoja);

/// What comes of a sheet, in its currency, each to the cent; `valorEnDolares` by its rate.
struct Totales {
    double precio = 0, incluir = 0, deducir = 0, valor = 0, valorEnDolares = 0;
};
Totales TotalesDe(const Hoja &hoja);

/// What a reader of the sheet would ask back, a sentence each: questions without an answer, answers that the
/// amounts or the method contradict, amounts that are not the operation's. Nothing of it keeps a sheet from
/// being saved.
QStringList ObservacionesDe(const AppContext &ctx, const Hoja &hoja);

/// Saves the sheet. An amount that is no number or is negative, and a day that is none, are told and refused
/// with the field's column in `foco`. Raises Falla.
Veredicto Guardar(AppContext &ctx, Hoja &hoja);

/// Asks and deletes; false when the user says No. Raises Falla.
bool Eliminar(AppContext &ctx, const Hoja &hoja);

}  // namespace valoracion
