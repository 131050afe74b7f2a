#pragma once
// The operation browser's search.

#include <QDate>
#include <QString>
#include <vector>

#include "frame/context.h"

struct FiltroDeInternos {
    QString txtInterno, txtCliente, txtDespachante;
    bool chkFiltroFecha = false;
    QDate desde, hasta;
};
struct FilaDeInterno {
    QString tipo;  ///< "Importacion", "Exportacion" or "Otros"
    QString Interno, SubRegimen, Despachante, Cliente, Vendedor, detalle;
};
/// The statement of the search, as sent.
QString SentenciaDeInternos(AppContext &ctx, const FiltroDeInternos &filtro);
/// The rows of the search, in order. Raises Falla.
std::vector<FilaDeInterno> LeerInternos(AppContext &ctx, const FiltroDeInternos &filtro);
/// The same for the screen, which finds what it looked for last (INTERNO_NRO) at its next start. Raises
/// Falla.
std::vector<FilaDeInterno> BuscarInternos(AppContext &ctx, const FiltroDeInternos &filtro);
/// First and last day of the month of `hoy`.
std::pair<QDate, QDate> PeriodoInicial(const QDate &hoy);
