#pragma once
// Every statement the modules send, run on both stores over the same sample rows.

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>
#include <ostream>
#include <vector>

enum class Espera {
    Filas,    ///< a select answers rows, a command touches some
    Nada,     ///< it runs, and neither answers nor touches a row
    Rechazo,  ///< the engine refuses it
};

/// A statement with its placeholders filled. "{2026-02-10 10:00:00}" stands for the date literal of the
/// entity.
struct Caso {
    const char *caso;
    const char *texto;
    Espera espera = Espera::Filas;
    const char *entidad = "INTERNOS";
    /// Worked out by hand: of a select its rows as "a|b", joined by "\n"; of a command the rows touched.
    /// nullptr: only the agreement of the stores is asserted.
    const char *respuesta = nullptr;
};

/// So that a failure names the case.
inline void PrintTo(const Caso &caso, std::ostream *salida) {
    *salida << caso.caso;
}
inline std::string nombreDelCaso(const ::testing::TestParamInfo<Caso> &info) {
    return info.param.caso;
}

/// Both stores with the sample rows. What a command changes is undone behind it.
class Statements : public ::testing::TestWithParam<Caso> {};

#define SENTENCIAS(Grupo, casos) \
    INSTANTIATE_TEST_SUITE_P(Grupo, Statements, ::testing::ValuesIn(casos), nombreDelCaso)

/// The answer of one store: what a statement read, or the rows of the table it wrote.
struct Respuesta {
    bool rechazada = false;
    QString error;
    qint64 tocadas = 0;    ///< of a command
    QStringList columnas;  ///< lower case
    QStringList filas;     ///< "a|b"; nulls as "<null>", texts between quotes
    QString sinComillas() const;
};
struct LosDos {
    Respuesta archivos, servidor;
};
/// Runs `texto` on both stores.
LosDos correrEnLosDos(const QString &texto, const QString &entidad);
