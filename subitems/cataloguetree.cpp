#include "subitems/cataloguetree.h"

#include <QFont>
#include <QSet>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What a row's index carries: 0 on a catalogue's own row, on an article's the row of its catalogue plus one.
quintptr deLaRama(int rama) {
    return static_cast<quintptr>(rama) + 1;
}

bool mismoTexto(const QString &a, const QString &b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

}  // namespace

ModeloDeCatalogos::ModeloDeCatalogos(Lector leer, QObject *padre)
    : QAbstractItemModel(padre), leer_(std::move(leer)) {}

void ModeloDeCatalogos::fijar(std::vector<ArticleStore::FilaDeCatalogo> catalogos) {
    beginResetModel();
    ramas_.clear();
    for (ArticleStore::FilaDeCatalogo &fila : catalogos)
        ramas_.push_back({std::move(fila), {}, {}, 0, false});
    endResetModel();
}

bool ModeloDeCatalogos::esCatalogo(const QModelIndex &celda) {
    return celda.internalId() == 0;
}

const ModeloDeCatalogos::Rama *ModeloDeCatalogos::ramaDe(const QModelIndex &celda) const {
    if (!celda.isValid()) return nullptr;
    const std::size_t cual =
        esCatalogo(celda) ? static_cast<std::size_t>(celda.row()) : celda.internalId() - 1;
    return &ramas_.at(cual);
}

QString ModeloDeCatalogos::catalogoDe(const QModelIndex &celda) const {
    const Rama *rama = ramaDe(celda);
    return rama == nullptr ? QString() : rama->fila.idcatalogo;
}

QString ModeloDeCatalogos::articuloDe(const QModelIndex &celda) const {
    const Rama *rama = ramaDe(celda);
    if (rama == nullptr || esCatalogo(celda)) return {};
    return rama->articulos.at(static_cast<std::size_t>(celda.row())).idarticulo;
}

QModelIndex ModeloDeCatalogos::indiceDe(const QString &idcatalogo, const QString &idarticulo) {
    const auto rama = std::find_if(ramas_.begin(), ramas_.end(), [&idcatalogo](const Rama &r) {
        return mismoTexto(r.fila.idcatalogo, idcatalogo);
    });
    if (rama == ramas_.end()) return {};
    const QModelIndex catalogo = index(static_cast<int>(rama - ramas_.begin()), 0);
    if (idarticulo.isEmpty()) return catalogo;
    if (!rama->leida) fetchMore(catalogo);
    const auto articulo =
        std::find_if(rama->articulos.begin(), rama->articulos.end(),
                     [&idarticulo](const auto &a) { return mismoTexto(a.idarticulo, idarticulo); });
    if (articulo == rama->articulos.end()) return {};
    return index(static_cast<int>(articulo - rama->articulos.begin()), 0, catalogo);
}

std::vector<ModeloDeCatalogos::Marcados> ModeloDeCatalogos::marcados() const {
    std::vector<Marcados> todos;
    for (const Rama &rama : ramas_) {
        if (rama.marcadas == 0) continue;
        Marcados deRama{rama.fila.idcatalogo, {}};
        for (std::size_t n = 0; n < rama.marcas.size(); ++n)
            if (rama.marcas[n] != 0) deRama.articulos << rama.articulos[n].idarticulo;
        todos.push_back(std::move(deRama));
    }
    return todos;
}

int ModeloDeCatalogos::cantidadDeMarcados() const {
    int cantidad = 0;
    for (const Rama &rama : ramas_) cantidad += rama.marcadas;
    return cantidad;
}

void ModeloDeCatalogos::marcar(const std::vector<Marcados> &marcados) {
    for (const Marcados &deRama : marcados) {
        const QModelIndex catalogo = indiceDe(deRama.idcatalogo);
        if (!catalogo.isValid()) continue;
        fetchMore(catalogo);
        const QSet<QString> codigos(deRama.articulos.begin(), deRama.articulos.end());
        for (int fila = 0; fila < rowCount(catalogo); ++fila)
            if (const QModelIndex articulo = index(fila, 0, catalogo); codigos.contains(articuloDe(articulo)))
                marcar(articulo, true);
    }
}

void ModeloDeCatalogos::alternarMarca(const QModelIndex &celda) {
    if (celda.isValid()) marcar(celda, marcaDe(celda) != Qt::Checked);
}

Qt::CheckState ModeloDeCatalogos::marcaDe(const QModelIndex &celda) const {
    const Rama &rama = *ramaDe(celda);
    if (!esCatalogo(celda))
        return rama.marcas.at(static_cast<std::size_t>(celda.row())) != 0 ? Qt::Checked : Qt::Unchecked;
    if (rama.marcadas == 0) return Qt::Unchecked;
    return rama.marcadas == static_cast<int>(rama.marcas.size()) ? Qt::Checked : Qt::PartiallyChecked;
}

void ModeloDeCatalogos::marcar(const QModelIndex &celda, bool si) {
    const QModelIndex catalogo = esCatalogo(celda) ? celda.siblingAtColumn(0) : parent(celda);
    Rama &rama = ramas_.at(static_cast<std::size_t>(catalogo.row()));
    if (!esCatalogo(celda)) {
        char &marca = rama.marcas.at(static_cast<std::size_t>(celda.row()));
        if ((marca != 0) == si) return;
        marca = si ? 1 : 0;
        rama.marcadas += si ? 1 : -1;
        Q_EMIT dataChanged(celda.siblingAtColumn(0), celda.siblingAtColumn(0), {Qt::CheckStateRole});
    } else {
        if (!rama.leida) fetchMore(catalogo);
        if (rama.marcas.empty()) return;
        std::fill(rama.marcas.begin(), rama.marcas.end(), si ? 1 : 0);
        rama.marcadas = si ? static_cast<int>(rama.marcas.size()) : 0;
        Q_EMIT dataChanged(index(0, 0, catalogo),
                           index(static_cast<int>(rama.marcas.size()) - 1, 0, catalogo),
                           {Qt::CheckStateRole});
    }
    Q_EMIT dataChanged(catalogo, catalogo, {Qt::CheckStateRole});
}

QModelIndex ModeloDeCatalogos::index(int fila, int columna, const QModelIndex &padre) const {
    if (!hasIndex(fila, columna, padre)) return {};
    return createIndex(fila, columna, padre.isValid() ? deLaRama(padre.row()) : 0);
}

QModelIndex ModeloDeCatalogos::parent(const QModelIndex &celda) const {
    if (!celda.isValid() || esCatalogo(celda)) return {};
    return createIndex(static_cast<int>(celda.internalId()) - 1, 0, quintptr{0});
}

int ModeloDeCatalogos::rowCount(const QModelIndex &padre) const {
    if (!padre.isValid()) return static_cast<int>(ramas_.size());
    return esCatalogo(padre) && padre.column() == 0 ? static_cast<int>(ramaDe(padre)->articulos.size()) : 0;
}

int ModeloDeCatalogos::columnCount(const QModelIndex & /*padre*/) const {
    return columnas;
}

bool ModeloDeCatalogos::hasChildren(const QModelIndex &padre) const {
    if (!padre.isValid()) return !ramas_.empty();
    if (!esCatalogo(padre) || padre.column() != 0) return false;
    const Rama &rama = *ramaDe(padre);
    return rama.leida ? !rama.articulos.empty() : rama.fila.articulos > 0;
}

bool ModeloDeCatalogos::canFetchMore(const QModelIndex &padre) const {
    return padre.isValid() && esCatalogo(padre) && padre.column() == 0 && !ramaDe(padre)->leida;
}

void ModeloDeCatalogos::fetchMore(const QModelIndex &padre) {
    if (!canFetchMore(padre)) return;
    auto articulos = leer_(catalogoDe(padre));
    if (!articulos) return;
    Rama &rama = ramas_.at(static_cast<std::size_t>(padre.row()));
    rama.leida = true;
    if (!articulos->empty()) {
        beginInsertRows(padre, 0, static_cast<int>(articulos->size()) - 1);
        rama.articulos = std::move(*articulos);
        rama.marcas.assign(rama.articulos.size(), 0);
        endInsertRows();
    }
    rama.fila.articulos = static_cast<int>(rama.articulos.size());
    Q_EMIT dataChanged(padre, padre.siblingAtColumn(columnas - 1));
}

Qt::ItemFlags ModeloDeCatalogos::flags(const QModelIndex &celda) const {
    Qt::ItemFlags flags = QAbstractItemModel::flags(celda);
    if (celda.column() == Articulo) flags |= Qt::ItemIsUserCheckable;
    if (celda.isValid() && !esCatalogo(celda)) flags |= Qt::ItemNeverHasChildren;
    return flags;
}

QString ModeloDeCatalogos::cantidadDe(const Rama &rama) {
    return rama.fila.articulos == 1 ? u"1 artículo"_s : u"%1 artículos"_s.arg(rama.fila.articulos);
}

QVariant ModeloDeCatalogos::data(const QModelIndex &celda, int papel) const {
    if (!celda.isValid()) return {};
    if (papel == Qt::CheckStateRole && celda.column() == Articulo) return marcaDe(celda);
    const Rama &rama = *ramaDe(celda);
    if (esCatalogo(celda)) {
        if (papel == Qt::FontRole && celda.column() == Articulo) {
            QFont negrita;
            negrita.setBold(true);
            return negrita;
        }
        if (papel != Qt::DisplayRole) return {};
        if (celda.column() == Articulo) return rama.fila.idcatalogo;
        return celda.column() == Descripcion ? cantidadDe(rama) : QVariant();
    }
    if (papel != Qt::DisplayRole && !(papel == Qt::ToolTipRole && celda.column() == Descripcion)) return {};
    const ArticleStore::FilaDeArticulo &a = rama.articulos.at(static_cast<std::size_t>(celda.row()));
    switch (celda.column()) {
        case Articulo:
            return a.idarticulo;
        case Descripcion:
            return a.descripcion;
        default:
            return a.ncm;
    }
}

bool ModeloDeCatalogos::setData(const QModelIndex &celda, const QVariant &valor, int papel) {
    if (!celda.isValid() || papel != Qt::CheckStateRole || celda.column() != Articulo) return false;
    marcar(celda, valor.value<Qt::CheckState>() != Qt::Unchecked);
    return true;
}

QVariant ModeloDeCatalogos::headerData(int columna, Qt::Orientation orientacion, int papel) const {
    if (orientacion != Qt::Horizontal) return {};
    if (papel == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    if (papel != Qt::DisplayRole) return {};
    switch (columna) {
        case Articulo:
            return u"Catálogo / artículo"_s;
        case Descripcion:
            return u"Descripción"_s;
        case Posicion:
            return u"Posición"_s;
        default:
            return {};
    }
}
