#pragma once
// An operation with groups or items written by hand, for the phases that build on them.

#include <QMap>
#include <memory>

#include "assembly/phases.h"
#include "assembly/run.h"
#include "tests/support/tienda.h"

/// Columns and their SQL literals.
using Fila = QMap<QString, QString>;

class ArmadoDePrueba : public EnAmbosStores {
 protected:
    static constexpr const char *clave = "OP1";

    void SetUp() override {
        EnAmbosStores::SetUp();
        // Thousands of rows, none to be kept.
        ligera = std::make_unique<EscrituraLigera>(ctx->conexion(QStringLiteral("INTERNOS")));
        insertar(QStringLiteral("caratula"), {{"interno", "'OP1'"}});
        nuevaCorrida(QStringLiteral("IC01"));
    }
    void TearDown() override {
        corrida.reset();
        ligera.reset();
        EnAmbosStores::TearDown();
    }

    /// A run's context of its own, with nothing read yet.
    ContextoArmado &nuevaCorrida(const QString &idsubreg, const QString &cstaimpexp = QStringLiteral("I")) {
        corrida = std::make_unique<ContextoArmado>(*ctx, QString::fromLatin1(clave));
        corrida->idsubreg = idsubreg;
        corrida->cstaimpexp = cstaimpexp;
        return *corrida;
    }

    void insertar(const QString &tabla, const Fila &fila,
                  const QString &entidad = QStringLiteral("INTERNOS")) {
        ejecutar(QStringLiteral("insert into ") + tabla + QStringLiteral(" (") +
                     QStringList(fila.keys()).join(QLatin1Char(',')) + QStringLiteral(") values (") +
                     QStringList(fila.values()).join(QLatin1Char(',')) + QStringLiteral(")"),
                 entidad);
    }

    static Fila con(Fila base, const Fila &cambios) {
        for (auto it = cambios.begin(); it != cambios.end(); ++it) base[it.key()] = it.value();
        return base;
    }

    /// A group of one piece of FOB 100; its line is the next one.
    void grupo(const Fila &cambios = {}) {
        insertar(QStringLiteral("groupsubitems"), con({{"interno", "'OP1'"},
                                                       {"idsub", QString::number(++linea)},
                                                       {"idcatalogo", "''"},
                                                       {"idarticulo", "''"},
                                                       {"ncm", "'7318.15.00.100A'"},
                                                       {"descripcion", "''"},
                                                       {"preciounitario", "1"},
                                                       {"idpais", "'203'"},
                                                       {"idpaisproc", "'203'"},
                                                       {"sufijos", "''"},
                                                       {"idunidad", "'07'"},
                                                       {"estadomerc", "'1'"},
                                                       {"biendeuso", "'N'"},
                                                       {"cantidad", "1"},
                                                       {"estadistica", "'07'"},
                                                       {"valorrelacionestadistica", "1"},
                                                       {"deresp", "''"},
                                                       {"valorderesp", "0"},
                                                       {"codprorrateo", "''"},
                                                       {"lapi", "''"},
                                                       {"kgneto", "1"},
                                                       {"kgbruto", "1"},
                                                       {"fob", "100"},
                                                       {"itfiller", "''"},
                                                       {"insumostemp", "0"},
                                                       {"insumosacons", "0"},
                                                       {"cancelaciones", "''"},
                                                       {"codigoean", "''"},
                                                       {"tipoitem", "'N'"},
                                                       {"onccacategoria", "''"},
                                                       {"onccacortes", "''"},
                                                       {"ajusteincluir", "0"},
                                                       {"ajustededucir", "0"}},
                                                      cambios));
    }

    void item(int id, const Fila &cambios = {}) {
        insertar(QStringLiteral("item"), con({{"interno", "'OP1'"},
                                              {"id", QString::number(id)},
                                              {"ncm", "'7318.15.00.100A'"},
                                              {"idunidad", "'07'"},
                                              {"estadomerc", "'1'"},
                                              {"biendeuso", "'N'"},
                                              {"estadistica", "'07'"},
                                              {"deresp", "''"},
                                              {"cantidad", "1"},
                                              {"fobtotal", "100"},
                                              {"itfiller", "''"},
                                              {"tipoitem", "'N'"}},
                                             cambios));
    }

    /// What a whole run needs beside lines: the position, the regime and the client.
    void entornoDeCorrida() {
        insertar(QStringLiteral("ncm"), {{"[001]", "'7318.15.00'"}, {"[002]", "'100'"}, {"[003]", "'A'"}},
                 QStringLiteral("NCM"));
        insertar(QStringLiteral("sta"), {{"id", "'IC01'"}, {"cstaimpexp", "'I'"}},
                 QStringLiteral("SYSTABLAS"));
        insertar(QStringLiteral("clientes"), {{"cuit", "'30'"}, {"cvdi", "'S'"}}, QStringLiteral("PERSONAL"));
        ejecutar(
            QStringLiteral("update caratula set idsubreg = 'IC01', cuitcliente = '30', fobdivisas = 100, "
                           "valoraprorratear = 0, fletedivisas = 0, segurodivisas = 0 "
                           "where interno = 'OP1'"));
    }
    void renglon(const Fila &cambios = {}) {
        insertar(QStringLiteral("subitems"), con({{"interno", "'OP1'"},
                                                  {"ncm", "'7318.15.00.100A'"},
                                                  {"idpais", "'203'"},
                                                  {"idpaisproc", "'203'"},
                                                  {"idunidad", "'07'"},
                                                  {"estadomerc", "'1'"},
                                                  {"cantidad", "1"},
                                                  {"preciounitario", "10"},
                                                  {"fob", "10"},
                                                  {"estadistica", "'07'"},
                                                  {"valorrelacionestadistica", "1"},
                                                  {"deresp", "''"},
                                                  {"kgneto", "0"},
                                                  {"kgbruto", "0"}},
                                                 cambios));
    }

    /// The texts sent while `hacer` runs, as the module spells them.
    template <class Hacer>
    QStringList sentenciasDe(Hacer hacer) {
        QStringList textos;
        Conexion::fijarTraza([&textos](const TrazaDeSentencia &t) { textos << t.sentencia; });
        hacer();
        // What was told is traced when it has run.
        ctx->conexion(QStringLiteral("INTERNOS")).Asentar();
        Conexion::fijarTraza({});
        return textos;
    }

    std::string f(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS")) {
        return filas(sql, entidad).toStdString();
    }

    int linea = 0;
    std::unique_ptr<ContextoArmado> corrida;

 private:
    std::unique_ptr<EscrituraLigera> ligera;
};
