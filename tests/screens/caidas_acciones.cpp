#include "tests/screens/caidas_acciones.h"

#include <algorithm>
#include <random>

#include "assembly/run.h"
#include "tests/support/claves.h"
#include "tests/support/retrato.h"

using namespace Qt::StringLiterals;

namespace {

/// Which moments the falls choose: always the same ones, unless the run asks for others.
std::mt19937 azarDeCaidas() {
    constexpr int siempre = 20260504;
    bool dicha = false;
    const int otra = qEnvironmentVariableIntValue("ZENDRA_SEMILLA", &dicha);
    return std::mt19937(static_cast<std::mt19937::result_type>(dicha ? otra : siempre));
}

}  // namespace

QString celdasDe(const QAbstractItemView *vista) {
    QStringList filas;
    const QAbstractItemModel *modelo = vista->model();
    for (int fila = 0; fila < modelo->rowCount(); ++fila) {
        QStringList celdas;
        for (int columna = 0; columna < modelo->columnCount(); ++columna)
            celdas << modelo->index(fila, columna).data().toString();
        filas << celdas.join(u'|');
    }
    return filas.join(u'\n');
}

std::function<void()> la(int cual) {
    return [cual] { tecla(cual); };
}

std::function<void()> alt(int letra) {
    return [letra] { atajo(letra); };
}

void poner(QLineEdit *campo, const QString &texto) {
    campo->setFocus();
    campo->selectAll();
    escribir(texto);
}

void CaidasBajoPantallas::armar() {
    ctx->ChequeoArmado = u"SI"_s;
    registro.respuestas.assign(20, true);
    ASSERT_TRUE(Generar(*ctx, importacion, {}));
    ctx->LiquidacionPendiente = true;
}

void CaidasBajoPantallas::probar(const std::vector<AccionDeUsuario> &acciones) {
    std::mt19937 azar = azarDeCaidas();
    const QByteArray solo = qgetenv("ZENDRA_SOLO");
    std::size_t turno = 0;
    for (const AccionDeUsuario &accion : acciones) {
        const auto suyo = static_cast<std::uint32_t>(azar());
        const std::size_t vez = turno++;
        if (!solo.isEmpty() && !QByteArray(accion.nombre).startsWith(solo)) continue;
        SCOPED_TRACE(accion.nombre);
        probarUna(accion, vez, suyo);
    }
}

void CaidasBajoPantallas::probarUna(const AccionDeUsuario &accion, std::size_t turno, std::uint32_t azar) {
    const Hecho quieto = hacer(accion);
    EXPECT_GT(quieto.sentencias, 0) << "it asks the store for nothing";
    const auto igual = [&](const Hecho &otro) {
        EXPECT_EQ(DiferenciasDeRetratos(quieto.retrato, otro.retrato).toStdString(), "");
        EXPECT_EQ(otro.visto.toStdString(), quieto.visto.toStdString());
    };
    {
        SCOPED_TRACE("idle");
        const Hecho reposo = hacerTrasElReposo(accion);
        EXPECT_EQ(reposo.dicho.size(), quieto.dicho.size()) << reposo.dicho.join(" / "_L1).toStdString();
        igual(reposo);
    }
    const int ultima = std::max(0, quieto.sentencias - 1);
    std::mt19937 cual(azar);
    const std::vector<MomentoDeCaida> momentos{
        {0, true}, {std::uniform_int_distribution(0, ultima)(cual), false}, {ultima, false}};
    // Every action meets one of the moments; with this set each meets all of them.
    const bool todos = qEnvironmentVariableIsSet("ZENDRA_CAIDAS_TODAS");
    for (const MomentoDeCaida &momento : momentos) {
        if (!todos && &momento != &momentos[turno % momentos.size()]) continue;
        SCOPED_TRACE(std::to_string(momento.sentencias) + " of " + std::to_string(quieto.sentencias) +
                     (momento.servidor ? " (server)" : " (line)"));
        const Hecho caida = hacer(accion, momento);
        EXPECT_TRUE(caida.cayo);
        EXPECT_LE(static_cast<std::size_t>(caida.dicho.size()) + caida.preguntas,
                  static_cast<std::size_t>(std::max<qsizetype>(accion.avisos, quieto.dicho.size())) +
                      quieto.preguntas)
            << caida.dicho.join(" / "_L1).toStdString();
        // What is saved already may make room for the next one.
        if (DiferenciasDeRetratos(quieto.retrato, caida.alFallar) != QString()) {
            EXPECT_EQ(caida.vaciados.join(" / "_L1).toStdString(), "");
        }
        igual(caida);
    }
}

INSTANTIATE_TEST_SUITE_P(Stores, CaidasBajoPantallas, ::testing::Values("SQL"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });
