// Dates as people type them.

#include <gtest/gtest.h>

#include "frame/base/dates.h"

namespace {

TEST(Fechas, WhatReadsAsADate) {
    struct Caso {
        const char *texto;
        const char *esperado;  // ISO; empty: no date
    };
    for (const Caso &c : {Caso{"5/1/2026", "2026-01-05"},
                          Caso{"05-01-2026", "2026-01-05"},
                          Caso{" 5.1.26 ", "2026-01-05"},
                          Caso{"31/12/29", "2029-12-31"},
                          Caso{"01/01/30", "1930-01-01"},
                          Caso{"29/02/2024", "2024-02-29"},
                          Caso{"2026-01-05", "2026-01-05"},
                          Caso{"2026/1/5", "2026-01-05"},
                          Caso{"2026-01-05 10:30:00", "2026-01-05"},
                          Caso{"2026-01-05T10:30:00", "2026-01-05"},
                          Caso{"29/02/2026", ""},
                          Caso{"31/04/2026", ""},
                          Caso{"13/13/2026", ""},
                          Caso{"5/1", ""},
                          Caso{"5/1/2026/7", ""},
                          Caso{"5/1/6", ""},
                          Caso{"5/1/026", ""},
                          Caso{"5/1/20266", ""},
                          Caso{"", ""},
                          Caso{"mañana", ""},
                          Caso{"720", ""},
                          Caso{"-5/1/2026", ""},
                          Caso{"5/ene/2026", ""}}) {
        const auto fecha = fechas::Leer(QString::fromUtf8(c.texto));
        EXPECT_EQ(fecha ? fecha->toString(Qt::ISODate).toStdString() : std::string(), c.esperado) << c.texto;
        EXPECT_EQ(fechas::EsFecha(QString::fromUtf8(c.texto)), *c.esperado != 0) << c.texto;
    }
}

}  // namespace
