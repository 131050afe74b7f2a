#pragma once
// The positions of a run's items, each read once.

#include <QHash>
#include <QString>
#include <QStringList>

#include "frame/context.h"

/// What the stores tell of tariff positions, for the life of the object: an operation mostly repeats a few,
/// and asking for them ahead is one journey to a server.
class PosicionesLeidas {
 public:
    explicit PosicionesLeidas(AppContext &ctx) : ctx_(ctx) {}

    /// Reads those of the rows of `items` (column NCM) ahead, and leaves it on its first row. Raises Falla.
    void Adelantar(Recordset &items);

    /// The rates of a position of 14 or 15 characters; without a row when the nomenclature lacks it. Raises
    /// Falla.
    const Recordset &nomenclador(const QString &ncm);
    /// Its minimum specific duty for goods of China; without a row when there is none. Raises Falla.
    const Recordset &diemChina(const QString &ncm);

 private:
    /// The answers of one entity by their statement.
    using Respuestas = QHash<QString, Recordset>;
    const Recordset &leer(Respuestas &leidas, const QString &entidad, const QString &sentencia);
    void leerJuntas(Respuestas &leidas, const QString &entidad, const QStringList &sentencias);

    AppContext &ctx_;
    Respuestas nomenclador_, minimos_;
};

/// What PosicionesLeidas asks of NCM and of SYSTABLAS for a position of 14 or 15 characters.
QString SentenciaDelNomenclador(const QString &ncm);
QString SentenciaDelMinimo(const QString &ncm);

/// The position of the row in hand of `item`; "0000.00.00.000D" for a null.
QString PosicionDeItem(const Recordset &item);
/// Whether its length is that of a position, with its letter or without.
bool PosicionBienFormada(const QString &ncm);
