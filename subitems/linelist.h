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

/// Which lines of an operation: what stands on either side of its key and the key's quotes. All of them
/// unless told.
struct CondicionDeLineas {
    QString antes = QStringLiteral("where interno = ");
    QString detras = QString();

    bool operator==(const CondicionDeLineas &) const = default;
};

/// The statement of GetRsSubtiems.
QString SentenciaSubItems(const QString &interno, bool descendente, const CondicionDeLineas &cuales = {});

/// The operation's lines, in the order that the option SbtMostrarAsc asks for; each keeps the number that it
/// has among all of them, as the lists on paper tell it. Raises Falla.
std::vector<FilaSubItem> GetRsSubtiems(AppContext &ctx, const QString &interno,
                                       const CondicionDeLineas &cuales = {});

/// The number of a line among all of its operation, "0000"; empty when it is not there. Raises Falla.
QString NumeroDeLinea(AppContext &ctx, const QString &interno, qint64 id);

/// One line as its row, for a list that is already on the screen; `cantidadDeLineas` numbers a line just
/// added (the list grows by one row at its end, or at its head when it is descending). Nothing when the line
/// is not there. Raises Falla.
std::optional<FilaSubItem> FilaDeSubItem(AppContext &ctx, const QString &interno, qint64 id,
                                         int cantidadDeLineas);
