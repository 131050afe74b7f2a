#pragma once
// The operation that the benchmarks assemble and recalculate.

#include <QString>

struct AppContext;

/// How the lines of an operation fall together.
struct FormaDeOperacion {
    int lineasPorGrupo = 1;  ///< of one article at one price
    int itemsPorCienGrupos = 100;
};

/// Five hundred lines are 315 items: the shape of an operation with many articles.
constexpr FormaDeOperacion formaSurtida{1, 63};

/// How many items `lineas` lines make.
int itemsDe(int lineas, const FormaDeOperacion &forma);

/// An import of `lineas` lines, "BANCO": freight, insurance, a value and kilos to spread, and a client with
/// every kind of percentage. The stores hold the demonstration.
void sembrar(AppContext &ctx, int lineas, const FormaDeOperacion &forma);

/// By tariff position.
void armar(AppContext &ctx);
/// In the order in which the lines were entered, with the prices that differ by less than a cent folded.
void armarComoSeCargo(AppContext &ctx);
void recalcular(AppContext &ctx);

/// The statement with its numbers and texts left out.
QString formaDe(QString sentencia);

/// Ends the benchmark.
[[noreturn]] void terminar(const QString &texto);
