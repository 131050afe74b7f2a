#pragma once
// The batch program under texts that break what pastes them: the same order on a store of files and on a
// server, what both say, and what any run has to keep to.

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "tests/support/huella.h"
#include "tests/support/lote.h"
#include "tests/support/textosfeos.h"
#include "tests/support/tienda.h"

/// One order as a command line and the files beside it.
struct OrdenDeLote {
    QStringList palabras;
    QStringList respuestas = {};
    /// Its lines come in the order of texts, which only a server tells of accents and small letters alike.
    bool enOrdenDeTextos = false;
};

/// A store of each kind with the demonstration, always given the same orders.
class EnAmbasALaVez : public ::testing::Test {
 protected:
    void SetUp() override;
    void TearDown() override;

    static constexpr std::size_t cuantas = 2;
    /// In a word of an order, the folder of the store that the order goes to.
    inline static const QString carpeta = QStringLiteral("{CARPETA}");

    /// Sends the order to both at once, holds what they answer against the rules of every run and against
    /// each other, and answers what the files' store said. `donde` names it in a failure.
    Corrida dar(const OrdenDeLote &orden, const QString &donde);
    /// The same for an order that has to be done (status 0).
    Corrida hacer(const QStringList &palabras, const QStringList &respuestas = {});

    /// Sends a statement to both; the entity is INTERNOS.
    void ejecutar(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS"));
    /// The first column of every row on both, which has to be the same.
    QStringList columna(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS"));
    /// Writes a file beside both stores.
    void escribir(const QString &nombre, const QByteArray &datos);
    AppContext &contexto(std::size_t cual) { return *ctx_[cual]; }
    const Tienda &tienda(std::size_t cual) const { return *tiendas_[cual]; }

    /// What both hold; a difference between them is told.
    std::array<std::map<QString, QString>, cuantas> huellas(const SinContar &sin = {});
    /// That nothing else changed since `antes` on either.
    void nadaMas(const std::array<std::map<QString, QString>, cuantas> &antes, const SinContar &sin,
                 const QString &donde);

    Azar azar;
    Ronda ronda{azar};

 private:
    std::array<std::unique_ptr<Tienda>, cuantas> tiendas_;
    std::array<Registro, cuantas> registros_;
    std::array<std::unique_ptr<AppContext>, cuantas> ctx_;
};

/// What is wrong with what a run left, whatever it was asked for: a status of its own, lines of JSON, a word
/// of an engine, a refusal without a message; empty for nothing.
QString DefectoDeCorrida(const Corrida &c);
