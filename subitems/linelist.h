#pragma once
// The list of lines of an operation (LstArticulos).

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

struct AppContext;

/// One row of the list.
struct FilaSubItem {
    qint64 id = 0;
    QString numero;  ///< number of the line in the operation, "0000"
    QString NCM;
    QString idunidad;
    QString Cantidad;
    QString kgneto;
    QString preciounitario;  ///< "00.00000"
    QString Fob;
    QString idarticulo;
    QString factura_nro;
    bool marcada = false;  ///< its inputs were taken

    /// The cells in the order of the columns.
    QStringList celdas() const;
};
const QStringList &ColumnasDeSubItems();

/// The statement of GetRsSubtiems; `condicion` is what follows the operation's key, its closing quote
/// included (without a filter, the quote alone).
QString SentenciaSubItems(const QString &interno, bool descendente,
                          const QString &condicion = QStringLiteral("'"));

/// The operation's lines, in the order that the option SbtMostrarAsc asks for. Raises Falla.
std::vector<FilaSubItem> GetRsSubtiems(AppContext &ctx, const QString &interno,
                                       const QString &condicion = QStringLiteral("'"));

/// One line as its row, for a list that is already on the screen; `cantidadDeLineas` numbers a line just
/// added (the list grows by one row at its end, or at its head when it is descending). Nothing when the line
/// is not there. Raises Falla.
std::optional<FilaSubItem> FilaDeSubItem(AppContext &ctx, const QString &interno, qint64 id,
                                         int cantidadDeLineas);
