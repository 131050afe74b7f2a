#pragma once
// An operation of a temporary import goes into the stock, once; a second time only what is different.

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

#include "stock/stock.h"

namespace stock {

/// What the declaration says of all its lines.
struct DatosDeDeclaracion {
    QString dit;        ///< number of the declaration
    QDate fecha;        ///< null: not told
    QDate vencimiento;  ///< null: no expiry
    QString expctit;
    double merma = 0;  ///< percent
};

/// Why an operation cannot be loaded, as one sentence; empty when it can: an armed one of a temporary import.
QString DefectoParaCargar(AppContext &ctx, const QString &interno);
/// What is wrong with the data, as one sentence; empty for nothing.
QString DefectoDeDatos(const DatosDeDeclaracion &datos);
/// What is proposed: what was told the first time, else the operation's authorization as file number, `hoy`
/// and `hoy` plus its term when that is a number of days.
DatosDeDeclaracion DatosPropuestos(AppContext &ctx, const QString &interno, const QDate &hoy);

/// A line that the stock would take, keep, change or lose.
struct Diferencia {
    enum class Clase { Nueva, Cambiada, Quitada, Negada };
    Clase clase = Clase::Nueva;
    Linea antes;    ///< as the stock has it; id 0 for a new one
    Linea despues;  ///< as the operation says; id 0 for one that is gone
    QString texto;  ///< one line for the user
};
/// What a loading would do, in the order of items and subitems: nothing when the stock has it all. "Negada"
/// is a change that what was taken does not allow.
std::vector<Diferencia> Diferencias(AppContext &ctx, const QString &interno, const DatosDeDeclaracion &datos);

/// How a loading ended.
struct ResultadoDeCarga {
    bool ok = false;
    int nuevas = 0;
    int cambiadas = 0;
    int quitadas = 0;
    int negadas = 0;
};
/// Does what `diferencias` say but what is refused, as one. False, with a sentence told and nothing done,
/// when another workstation took of a line meanwhile.
ResultadoDeCarga Aplicar(AppContext &ctx, const std::vector<Diferencia> &diferencias);

/// The whole road with the user: the data are asked for, differences of a second time are shown and asked,
/// and the end is told. False when it was left or refused.
bool CargarPreguntando(AppContext &ctx, const QString &interno, const QDate &hoy);
/// The same with the data known; only the differences of a second time are asked.
ResultadoDeCarga CargarConDatos(AppContext &ctx, const QString &interno, const DatosDeDeclaracion &datos);

}  // namespace stock
