#pragma once
// The packages and the transport of a declaration, kept beside its header: FrmBultos without the widgets.

#include <QDate>
#include <QString>
#include <vector>

#include "frame/base/verdict.h"

struct AppContext;

/// One member a control of FrmBultos, as the screen shows it.
struct Bultos {
    /// The packages are handed over with the declaration. An operation whose packages were never answered
    /// starts with the box ticked, so that nothing typed is lost by a box that nobody looked at.
    bool chTransBultos = true;
    QString TxtNroBultos;    ///< number of packages
    QString TxtCodigo;       ///< package code
    QString TxtTipo;         ///< package type
    QString TxtPeso;         ///< gross kilos, "00.00" on load
    QString TxtBultDesp;     ///< packages declared
    QString TxtMarcaBul;     ///< marks
    QString TxtVia;          ///< transport road
    QString TxtNomTrans;     ///< means of transport
    QString TxtBandera;      ///< country of the flag
    QString TxtCuit;         ///< tax number of the transport agent
    QString TxtNombreTrans;  ///< the agent's name
    QString TxtVencimiento;  ///< expiry of the shipment, "dd/mm/yyyy"; empty: none

    bool operator==(const Bultos &otros) const = default;
};

/// Each text of the packages by the column of `caratula` that keeps it.
struct CampoDeBultos {
    QString columna;
    QString Bultos::*campo;
};
const std::vector<CampoDeBultos> &CamposDeBultos();

/// The packages as stored; blank fields for an operation without any. Raises Falla.
Bultos CargarBultos(AppContext &ctx, const QString &interno);

/// Leaving the screen: with the box unticked only the mark of the answer is written, and told; else the
/// checks in their order and the one update. Not ok: a message was shown, the screen stays with the focus on
/// the field. `hoy` is the day that the expiry must lie behind. Raises Falla.
Veredicto GuardarBultos(AppContext &ctx, const QString &interno, const Bultos &bultos, const QDate &hoy);
