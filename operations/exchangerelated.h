#pragma once
// What an operation needs beside its own rows: its parties, the articles of its lines, and the advantages of
// both.

#include <QSet>
#include <optional>

#include "frame/context.h"
#include "frame/transaction.h"
#include "operations/operationrows.h"

namespace intercambio {

/// A table of such rows. What is there already stays as it is.
struct TablaRelacionada {
    const char *entidad;
    const char *nombre;
    std::vector<const char *> clave;  ///< the columns that tell one from another
    const char *acompana = "";        ///< the table, ahead of this one, whose new rows these go along with
};
const std::vector<TablaRelacionada> &TablasRelacionadas();
/// The one of a name; null when there is none.
const TablaRelacionada *BuscarTablaRelacionada(const QString &nombre);

/// Hands over the rows that an operation needs of a table, by their keys and in each one by insertion,
/// whatever the store. Raises Falla.
void RecorrerRelacionadas(AppContext &ctx, const QString &interno, const TablaRelacionada &tabla,
                          const operacion::AlLeer &alLeer);

/// Where such rows go: what the store does not have yet is added, a table at a time and each one whole.
class DestinoDeRelacionadas {
 public:
    explicit DestinoDeRelacionadas(AppContext &ctx) : ctx_(ctx) {}
    /// Raise Falla.
    void Empezar(const TablaRelacionada &tabla, const QStringList &columnas);
    void Agregar(const operacion::Fila &fila);
    void Terminar();
    int agregadas() const { return agregadas_; }

 private:
    bool falta(const QStringList &clave);

    AppContext &ctx_;
    const TablaRelacionada *tabla_ = nullptr;
    QStringList columnas_, enElStore_;
    std::optional<Transaccion> transaccion_;
    QSet<QString> nuevas_;  ///< "table|key" of what this operation brought
    QSet<QString> vistas_;  ///< the keys of the table in hand that were asked for
    int agregadas_ = 0;
};

}  // namespace intercambio
