#pragma once
// How a row of the operation browser is painted: its columns, and the detail under them across the whole row.

#include <QModelIndex>
#include <QStyledItemDelegate>

class QStandardItemModel;
class QTreeView;

/// Data of the first column: the detail text, the operation's key, and whether the row is a group's.
constexpr int rolDetalle = Qt::UserRole + 1;
constexpr int rolInterno = Qt::UserRole + 2;
constexpr int rolGrupo = Qt::UserRole + 3;

/// The first row that is an operation; invalid in an empty model.
QModelIndex primeraOperacion(const QStandardItemModel &modelo);

class FilaConDetalle : public QStyledItemDelegate {
 public:
    explicit FilaConDetalle(QTreeView *vista);
    void paint(QPainter *pintor, const QStyleOptionViewItem &opcion,
               const QModelIndex &indice) const override;
    QSize sizeHint(const QStyleOptionViewItem &opcion, const QModelIndex &indice) const override;

 private:
    QTreeView *vista_;
};
