#pragma once
// Pairs of texts: what a module sends, and what each engine is given.

#include <gtest/gtest.h>

#include <QString>
#include <vector>

#include "frame/store/engines.h"

struct Par {
    const char *caso;  ///< the fact, as the test's name
    const char *texto;
    const char *sqlite;      ///< nullptr: as it stands
    const char *postgresql;  ///< nullptr: as it stands
};

/// So that a failure names the fact.
inline void PrintTo(const Par &par, std::ostream *salida) {
    *salida << par.caso;
}

/// The tables of the tests that keep an order of insertion.
inline dialecto::Ajustes ajustesDePrueba(const motores::Motor &motor) {
    return {&motor.gramatica,
            {QStringLiteral("subitems"), QStringLiteral("item"), QStringLiteral("groupsubitems"),
             QStringLiteral("ncm"), QStringLiteral("tax")}};
}

inline QString enSQLite(const char *texto) {
    return dialecto::traducir(QString::fromUtf8(texto), ajustesDePrueba(motores::archivo()));
}
inline QString enPostgreSQL(const char *texto) {
    return dialecto::traducir(QString::fromUtf8(texto), ajustesDePrueba(motores::servidor()));
}

class Pares : public ::testing::TestWithParam<Par> {};
inline std::string nombreDelPar(const ::testing::TestParamInfo<Par> &info) {
    return info.param.caso;
}
