#pragma once
// The quote of an operation: what it shows, and the arithmetic of its totals.

#include <QDate>
#include <QString>
#include <vector>

struct AppContext;

/// A duty of the operation. The amounts are not rounded; what is shown has two decimals.
struct GastoDeDespacho {
    QString concepto;
    QString pgc;  ///< "P" is paid, "G" guaranteed, "C" collected; another one is in no total
    double pesos = 0;
    double dolares = 0;
};

/// A concept of the broker's own, as stored: in pesos or in dollars, the other one 0.
struct GastoOperativo {
    QString concepto;
    double pesos = 0;
    double dolares = 0;
};

struct ReferenciaDePresupuesto {
    QString referencia;
    QString valor;
};

/// An amount in both currencies.
struct EnDosMonedas {
    double pesos = 0;
    double dolares = 0;
};

/// What the quote's screen shows, by the names of its controls. Amounts of goods are in dollars.
struct Presupuesto {
    QString interno;
    QString subregimen;
    QString LbDespachante;
    QString LbCliente;
    QString LbCLIDOM;
    QString TxtEmail;
    QString LbFOB, LbFlete, LbSeguro, LbAjInc, LbAjDed;  ///< "00.00"
    QString LbPaseFob, LbPaseFlete, LbPaseSeguro;        ///< "00.000000"
    QString LbBaseImp, LbBaseIVA;                        ///< "00.00"
    QString TxtPase;                                     ///< pesos a dollar, "00.000000" when it is a number
    QString txtAcuenta;                                  ///< pesos received on account, as typed

    std::vector<GastoDeDespacho> gastos;               ///< GrdLiq
    std::vector<GastoOperativo> operativos;            ///< Grd
    std::vector<ReferenciaDePresupuesto> referencias;  ///< Grd2
    EnDosMonedas totalP, totalG, totalC;               ///< of `gastos` by payment kind

    QString remitente;        ///< EMAIL of section SMTP
    QString servidor;         ///< SERVER of section SMTP
    int lineasEnBlanco = 0;   ///< blank lines ahead of the page
    bool porOutlook = false;  ///< the mail goes through the system's mail program
};

/// What the totals of a quote come to.
struct ResumenDePresupuesto {
    EnDosMonedas operativos;  ///< what is stored in each currency; what is derived is not added
    double subtotal = 0;      ///< pesos: to be paid, operative in pesos, operative in dollars by the rate
    double aCuenta = 0;       ///< pesos; 0 for a text that is no number
    double totalGeneral = 0;  ///< pesos
};

/// Reads the quote of an operation, its settings and those of the mail. False when there is no such
/// operation, which was told. Raises Falla.
bool CargarCaratula(AppContext &ctx, const QString &interno, Presupuesto &p);
/// Reads EMAIL and SERVER again: their screen may have changed them.
void LeerDatosDelCorreo(const AppContext &ctx, Presupuesto &p);
/// Reads the concepts, and the references, of the quote. Both raise Falla.
void Cargar(AppContext &ctx, Presupuesto &p);
void Cargar2(AppContext &ctx, Presupuesto &p);

/// Whether TxtPase is a number: without one there is no quote.
bool HayPase(const Presupuesto &p);
/// Pesos a dollar; 0 when TxtPase is no number.
double PaseDe(const Presupuesto &p);
/// Takes a typed rate: a number gets its mask, is kept for the next quote, and every duty follows it.
/// Anything else only stands in TxtPase.
void CambiarPase(AppContext &ctx, Presupuesto &p, const QString &texto);
/// Gives a duty other amounts, for this quote alone; its total follows.
void CambiarGasto(Presupuesto &p, std::size_t cual, const EnDosMonedas &importe);
/// What a concept shows in each currency: the one it has not got is derived with the rate (0 without one).
EnDosMonedas ImporteMostrado(const Presupuesto &p, const GastoOperativo &gasto);
/// An amount typed in one currency, in both. A rate of 0 derives no dollars.
EnDosMonedas EnAmbasMonedas(const Presupuesto &p, double importe, bool enDolares);
ResumenDePresupuesto Resumir(const Presupuesto &p);

/// Keeps the road of the mail, and writes the amount on account. Raises Falla.
void GrabarACuenta(AppContext &ctx, const Presupuesto &p);
/// Keeps the number of blank lines.
void GuardarLineas(AppContext &ctx, int lineas);

/// Whether the quote may take a concept, and a reference; one that it has is told. Both raise Falla.
bool ConceptoLibre(AppContext &ctx, const QString &interno, const QString &concepto);
bool ReferenciaLibre(AppContext &ctx, const QString &interno, const QString &referencia);
/// Adds a concept with a value in one currency. Raises Falla.
void AgregarGasto(AppContext &ctx, const QString &interno, const QString &concepto, const QString &valor,
                  bool enDolares);
/// LP_DEL_CONCEPTO: takes a concept out of the quote. Raises Falla.
void QuitarGasto(AppContext &ctx, const QString &interno, const QString &concepto);
/// Asks the value of a reference until there is one or the user gives up; whether it was added. Raises Falla.
bool AgregarReferencia(AppContext &ctx, const QString &interno, const QString &referencia);
void QuitarReferencia(AppContext &ctx, const QString &interno, const QString &referencia);
