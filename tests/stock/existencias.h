#pragma once
// A client with a stock, and operations that take from it.

#include <map>

#include "stock/stock.h"
#include "tests/support/tienda.h"

inline const QString clienteDeStock = QStringLiteral("30709988111");
inline const QString otroCliente = QStringLiteral("30711223343");
inline const QString exportacion = QStringLiteral("EX 1");

/// Column to SQL literal, as {"saldo", "12.5"}.
using Cambios = std::map<QString, QString>;

class Existencias : public EnAmbosStores {
 protected:
    /// An export EX 1 (EC02, FOB in dollars) of the client, and no stock.
    void SetUp() override;

    /// A line of stock: 100 kilograms of HILADOS HI-AL, CIF 1000.00 DOL, declaration 26001IT01000001A, item
    /// 1, subitem 1, that expires in a hundred days; its number.
    qint64 entrar(const Cambios &cambios = {});
    /// A line of an operation, 10 kilograms of that article; its number.
    qint64 linea(const Cambios &cambios = {}, const QString &interno = exportacion);
    void operacion(const QString &interno, const Cambios &cambios = {});

    QString saldo(qint64 idstock);
    stock::Resultado tomar(qint64 idlinea, const std::vector<stock::Parte> &partes,
                           const QString &interno = exportacion);
    stock::Pedido pedido() const;
    QString dia(int dentroDe) const;  ///< a day from today on, as SQL
    std::string ultimo() const;       ///< the last message
    QString marca(qint64 idlinea);    ///< "cancelaciones|insumostemp"
    /// What a count of the movements says of every line: nothing when all agree.
    QString desacuerdos();

    const QDate hoy = QDate::currentDate();
};
