#pragma once
// What the item screen shows, without a widget: one reading for item 0, one for any other.

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

#include "liquidation/review.h"

/// One row of the list of groups (LstV), texts as shown.
struct FilaDeGrupo {
    QString idarticulo, ncm, descripcion, idunidad, cantidad, preciounitario, fob, sufijos, estadistica, valorrelacionestadistica;
};

/// A page of the item screen. Texts are as shown: amounts and quantities "00.00".
struct VistaDeItem {
    bool cargada = false;   ///< false: `aviso` says why and the page stays as it was
    QString aviso;
    QString item;           ///< its number
    int cantidadDeItems = 0;
    QString idsubreg;
    /// Control name and text, in the order of the page.
    std::vector<std::pair<QString, QString>> campos;
    QString lbTOTALG, lbTOTGAR, lbTOTCOB;  ///< item 0 only
    std::vector<FilaLiq> grilla;
    std::vector<FilaDeGrupo> grupos;
    std::vector<std::pair<QString, QString>> informacion;
    QStringList ventajas;
    QStringList certificados;
    bool lbAutoliq = false;
    bool LbLapi = false;
    bool esCancelacion = false;  ///< its lines took inputs
    bool bienDeUso = false;

    QString campo(const QString &control) const;
};

/// The numbers of the operation's items in order, 0 first.
QStringList ItemsDeOperacion(AppContext &ctx, const QString &interno);

/// Loads a page. Item "0" with the liquidation page wanted, or with the liquidation pending, runs the recalculation of
/// the operation (`estado` hears its progress); any other item reads its stored rows. Raises ErrorDeStore.
VistaDeItem VerDetalleITEM(AppContext &ctx, const QString &interno, const QString &item, bool paginaDeLiquidacion, ClassLiquidacion &calculo,
                           const std::function<void(const QString &)> &estado = {});
