#pragma once
// The catalogues and their articles as a tree of two floors. A catalogue of an office holds tens of thousands
// of articles: they are read when it is expanded, and no cell is made for a row that is not seen.

#include <QAbstractItemModel>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "subitems/ArticleStore.h"

class ModeloDeCatalogos : public QAbstractItemModel {
 public:
    enum Columna { Articulo, Descripcion, Posicion, columnas };

    /// Reads the articles of a catalogue; nothing when the store failed, which was told.
    using Lector =
        std::function<std::optional<std::vector<ArticleStore::FilaDeArticulo>>(const QString &idcatalogo)>;

    explicit ModeloDeCatalogos(Lector leer, QObject *padre = nullptr);

    /// Replaces the catalogues; none has its articles read, none is checked.
    void fijar(std::vector<ArticleStore::FilaDeCatalogo> catalogos);

    /// Whose row it is; the article is empty on a catalogue's own row, both are without a row.
    QString catalogoDe(const QModelIndex &celda) const;
    QString articuloDe(const QModelIndex &celda) const;
    /// The row of a catalogue, or of its article, whose articles are read for it. Invalid when it is not
    /// there.
    QModelIndex indiceDe(const QString &idcatalogo, const QString &idarticulo = {});

    /// The checked articles of one catalogue, in its order.
    struct Marcados {
        QString idcatalogo;
        QStringList articulos;
    };
    /// Of every catalogue that has any.
    std::vector<Marcados> marcados() const;
    int cantidadDeMarcados() const;
    /// Checks those of them that are there.
    void marcar(const std::vector<Marcados> &marcados);
    /// Checks what is not checked whole, and the other way round: an article, or every one of a catalogue,
    /// which are read for it.
    void alternarMarca(const QModelIndex &celda);

    QModelIndex index(int fila, int columna, const QModelIndex &padre = {}) const override;
    QModelIndex parent(const QModelIndex &celda) const override;
    int rowCount(const QModelIndex &padre = {}) const override;
    int columnCount(const QModelIndex &padre = {}) const override;
    bool hasChildren(const QModelIndex &padre = {}) const override;
    bool canFetchMore(const QModelIndex &padre) const override;
    void fetchMore(const QModelIndex &padre) override;
    Qt::ItemFlags flags(const QModelIndex &celda) const override;
    QVariant data(const QModelIndex &celda, int papel = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &celda, const QVariant &valor, int papel = Qt::EditRole) override;
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override;

 private:
    struct Rama {
        ArticleStore::FilaDeCatalogo fila;
        std::vector<ArticleStore::FilaDeArticulo> articulos;
        std::vector<char> marcas;  ///< one an article that was read
        int marcadas = 0;
        bool leida = false;
    };
    const Rama *ramaDe(const QModelIndex &celda) const;
    static bool esCatalogo(const QModelIndex &celda);
    Qt::CheckState marcaDe(const QModelIndex &celda) const;
    void marcar(const QModelIndex &celda, bool si);
    static QString cantidadDe(const Rama &rama);

    Lector leer_;
    std::vector<Rama> ramas_;
};
