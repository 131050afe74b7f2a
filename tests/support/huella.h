#pragma once
// What all stores of a profile hold, as numbers that two moments, or two stores, can be compared by.

#include <QString>
#include <QStringList>
#include <map>

#include "frame/context.h"

/// Rows that are left out.
struct SinContar {
    QStringList operaciones;  ///< every row of theirs, in every table that has their key
    QStringList tablas;       ///< whole tables
};

/// By table, "rows:sum" of all rows as they are read, whatever their order; moments are left out, since two
/// runs write two. Raises Falla.
std::map<QString, QString> Huella(AppContext &ctx, const SinContar &sin = {});

/// The tables that differ, one a line; empty for none.
QString Diferencias(const std::map<QString, QString> &antes, const std::map<QString, QString> &despues);
