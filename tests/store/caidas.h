#pragma once
// Base of the tests of a server that goes away, or of the line to it.

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/servidorpropio.h"
#include "tests/support/tienda.h"

/// Stores on a server that the test may stop; it runs again afterwards.
class Caidas : public ::testing::Test {
 protected:
    void SetUp() override {
        tienda = std::make_unique<Tienda>(QStringLiteral("SQL"), false, servidor.palabras());
        ctx = tienda->contexto(registro);
    }
    void TearDown() override {
        servidor.arrancar();
        ctx.reset();
        tienda.reset();
    }

    Conexion &internos() { return ctx->conexion(QStringLiteral("INTERNOS")); }
    qint64 ejecutar(const QString &sql) { return Ejecutar(*ctx, QStringLiteral("INTERNOS"), sql); }
    /// The first cell; "<nada>" without a row. Raises Falla.
    std::string valor(const QString &sql) {
        Recordset rs;
        return Consultar(*ctx, QStringLiteral("INTERNOS"), sql, rs)
                   ? rs.Texto(rs.nombreDeColumna(0)).toStdString()
                   : "<nada>";
    }
    /// What the store holds, asked on another connection.
    std::string fuera(const QString &sql) {
        return servidor.preguntar(sql, ctx->DataManager.datos(QStringLiteral("INTERNOS"))->base)
            .toStdString();
    }
    /// What `hacer` raises; empty when it runs.
    static Falla fallaDe(const std::function<void()> &hacer) {
        try {
            hacer();
        } catch (const Falla &e) {
            return e;
        }
        return {};
    }
    static std::string textoDe(const std::function<void()> &hacer) {
        return fallaDe(hacer).descripcion.toStdString();
    }

    ServidorPropio &servidor = ServidorDePaso();
    std::unique_ptr<Tienda> tienda;
    Registro registro;
    std::unique_ptr<AppContext> ctx;
};
