#pragma once
// What the item screen shows, without a widget: one reading for item 0, one for any other.

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

#include "liquidation/itemfields.h"
#include "liquidation/review.h"

/// One row of the list of groups (LstV), texts as shown.
struct FilaDeGrupo {
    QString idarticulo, ncm, descripcion, idunidad, cantidad, preciounitario, fob, sufijos, estadistica,
        valorrelacionestadistica;
};

/// One row of the list of cancellations (lstVCancel), texts as shown.
struct FilaDeCancelacion {
    QString dit, item, subitem, ncm, expctit, cantidad, factorponderacion;
};

/// A page of the item screen. Texts are as shown: amounts and quantities "00.00".
struct VistaDeItem {
    bool cargada = false;  ///< false: the load ended before the item's data, for the reason in `aviso`
    QString aviso;         ///< told to the user already; empty when there is no such item
    QString item;          ///< its number
    int cantidadDeItems = 0;
    QString idsubreg;
    /// Control name and text: the fields in their order, an option by its code, and the labels.
    std::vector<std::pair<QString, QString>> campos;
    DatosDeItem datos;                     ///< the fields that a save writes back
    bool recalculada = false;              ///< item 0: the totals are those of a fresh run
    QString lbTOTALG, lbTOTGAR, lbTOTCOB;  ///< item 0 only; the last two as plain numbers
    std::vector<FilaLiq> grilla;
    std::vector<FilaDeGrupo> grupos;
    std::vector<std::pair<QString, QString>> informacion;
    QStringList ventajas;
    QStringList certificados;
    std::vector<FilaDeCancelacion> cancelaciones;
    bool lbAutoliq = false;
    bool LbLapi = false;
    bool esCancelacion = false;  ///< its lines took inputs
    bool bienDeUso = false;

    QString campo(const QString &control) const;
};

/// The numbers of the operation's items in order, 0 first: the operation's own page is there also when its
/// row is not. Raises Falla.
QStringList ItemsDeOperacion(AppContext &ctx, const QString &interno);

/// The tariff lists that an item is offered: those that matter to the liquidation, then those of the table.
/// Raises Falla.
QStringList ListasDeItem(AppContext &ctx);

/// Loads a page. Item "0" spreads the header's adjustments, and with the liquidation page wanted, or with the
/// liquidation pending, runs the recalculation of the operation (`estado` hears its progress); without a run
/// it shows the totals of the last one. It needs no row of its own, nor any item: what has no row reads as
/// empty. Any other item reads its stored rows; with the page of cancellations wanted, also the cancellations
/// that hang on no item yet but on the export reference of one of its lines. An operation that is gone is
/// told. Raises Falla.
VistaDeItem VerDetalleITEM(AppContext &ctx, const QString &interno, const QString &item,
                           bool paginaDeLiquidacion, ClassLiquidacion &calculo,
                           const std::function<void(const QString &)> &estado = {},
                           bool paginaDeCancelaciones = false);
