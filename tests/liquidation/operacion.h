#pragma once
// An operation with items and liquidation rows written by hand, for the recalculation.

#include <QMap>
#include <memory>

#include "liquidation/review.h"
#include "tests/support/tienda.h"

/// Columns and their SQL literals.
using Fila = QMap<QString, QString>;

/// Operation OP1: an import at rates of 1. Position 7318.15.00.100A: duty of 20 %, statistics of 3 %, export
/// duty of 10 %, refunds of 5 % (2 % inside the zone), common tariff of 18 %, general IVA of 21 %.
class OperacionDePrueba : public EnAmbosStores {
 protected:
    static constexpr const char *clave = "OP1";

    void SetUp() override;
    void TearDown() override;

    void insertar(const QString &tabla, const Fila &fila,
                  const QString &entidad = QStringLiteral("INTERNOS"));
    void posicion(const char *ncm, const Fila &cambios = {});
    void caratula(const Fila &cambios);
    /// FOB 1000, freight 100, insurance 10: a taxable base of 1110 and an IVA base of 1365.30. Item 0 has no
    /// values of its own.
    void item(int id, const Fila &cambios = {});
    /// Rows of an item, without percentage, to pay.
    void filas(int id, std::initializer_list<const char *> conceptos);
    void fila(int id, const char *concepto, const Fila &cambios = {});
    void catalogo();  ///< concept names in `tax`
    using EnAmbosStores::filas;

    /// The run of item 0, with a calculator of its own.
    ResultadoRecalculo recalcular(bool pendiente = false);
    /// "concepto|porcentaje|baseimp|total|pgc" a row.
    std::string liq(int id);
    /// "idconcepto|concepto|valor|pgc" a row in the order written.
    std::string totales();
    std::string f(const char *sql) { return filas(QString::fromUtf8(sql)).toStdString(); }

    /// The statements sent while `hacer` runs, as the modules spell them, of which `parte` is part.
    template <class Hacer>
    QStringList sentenciasDe(const char *parte, Hacer hacer) {
        QStringList textos;
        Conexion::fijarTraza([&textos, parte](const TrazaDeSentencia &t) {
            if (t.sentencia.contains(QLatin1String(parte))) textos << t.sentencia;
        });
        hacer();
        Conexion::fijarTraza({});
        return textos;
    }

    std::unique_ptr<ClassLiquidacion> calculo;
    QStringList estados;
};
