#pragma once
// A line that is cut at every moment of an action, so that the answer to each of its writes is once lost
// behind its commit: what was written must then not lack what has to go with it.

#include <functional>

#include "tests/support/intermediario.h"
#include "tests/support/tienda.h"

class RespuestaPerdida : public ::testing::Test {
 protected:
    void SetUp() override {
        tienda = std::make_unique<Tienda>(QStringLiteral("SQL"));
        tienda->PasarPor(linea);
        ctx = tienda->contexto(registro);
        fijarContexto(ctx.get());
    }
    void TearDown() override {
        fijarContexto(nullptr);
        ctx.reset();
        tienda.reset();
    }

    void ejecutar(const char *sql) { Ejecutar(*ctx, QStringLiteral("INTERNOS"), QString::fromUtf8(sql)); }
    /// The first cell; empty without a row.
    std::string valor(const char *sql) {
        Recordset rs;
        return Consultar(*ctx, QStringLiteral("INTERNOS"), QString::fromUtf8(sql), rs)
                   ? rs.Texto(rs.nombreDeColumna(0)).toStdString()
                   : std::string();
    }

    /// The steps of the action with the line cut behind ever more bytes of its answers, up to the first time
    /// that it is not cut.
    struct Accion {
        std::function<void()> preparar;
        std::function<bool()> hacer;  ///< whether it says that it did
        std::function<bool()> escrito;
        std::function<void()> comprobar;  ///< where it is written
    };
    /// How often it was written and said that it was not.
    int cortarSiempre(const Accion &accion) {
        constexpr int paso = 12;
        int calladas = 0;
        for (int bytes = 0;; bytes += paso) {
            SCOPED_TRACE(bytes);
            accion.preparar();
            linea.CortarTras(Intermediario::Medida::BytesAlCliente, bytes);
            bool dicho = false;
            try {
                dicho = accion.hacer();
            } catch (const Falla &) {
                // Told by whoever called.
            }
            const bool entera = linea.cortePendiente();
            linea.Seguir();
            if (accion.escrito()) {
                accion.comprobar();
                calladas += dicho ? 0 : 1;
            }
            if (entera) return calladas;
        }
    }

    Intermediario linea;
    std::unique_ptr<Tienda> tienda;
    Registro registro;
    std::unique_ptr<AppContext> ctx;
};
