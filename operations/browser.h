#pragma once
// The operation browser's search.

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

#include "frame/context.h"
#include "outputs/handedover.h"

/// Which operations by their hand-over: an operation waits for it until its declaration was written once.
enum class Transferencias { Todo, Pendientes, Transferidos };

struct FiltroDeInternos {
    QString txtInterno, txtCliente, txtDespachante;
    bool chkFiltroFecha = false;
    QDate desde, hasta;
    bool todas = false;  ///< all of them, whatever the option says: the fifty are a matter of the screen
    Transferencias transferencias = Transferencias::Todo;
};
struct FilaDeInterno {
    QString tipo;  ///< "Importacion", "Exportacion" or "Otros"
    QString Interno, SubRegimen, Despachante, Cliente, Vendedor, detalle;
    QDate alta;  ///< the day it was made; none for one that tells no day
    double fob = 0;
    QString divisa;                       ///< of the FOB
    QString estado;                       ///< "Nueva" until its first change, then "A armar" or "Armada"
    std::optional<Entrega> entrega = {};  ///< nothing until it was handed over
    bool cambiada = false;  ///< since then; only told by whoever compares it, which is no part of a search
};
/// What the rows can be grouped by: the choice as shown, and the text that makes a group; the first choice is
/// none.
struct AgrupacionDeInternos {
    QString rotulo;
    QString FilaDeInterno::*campo = nullptr;
};
const std::vector<AgrupacionDeInternos> &AgrupacionesDeInternos();
/// The title of a row's group: its text, or a word for an empty one.
QString GrupoDe(const FilaDeInterno &fila, const AgrupacionDeInternos &por);
/// How many rows the search answers at most, without the option OperacionesMostrarTODO.
constexpr std::size_t topeDeInternos = 50;
/// The statement of the search, as sent.
QString SentenciaDeInternos(AppContext &ctx, const FiltroDeInternos &filtro);
/// The rows of the search, in order. Raises Falla.
std::vector<FilaDeInterno> LeerInternos(AppContext &ctx, const FiltroDeInternos &filtro);
/// The same for the screen, which finds what it looked for last (INTERNO_NRO) at its next start. Raises
/// Falla.
std::vector<FilaDeInterno> BuscarInternos(AppContext &ctx, const FiltroDeInternos &filtro);
/// First and last day of the month of `hoy`.
std::pair<QDate, QDate> PeriodoInicial(const QDate &hoy);
