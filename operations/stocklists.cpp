#include "operations/stocklists.h"

#include "stock/report.h"

using namespace Qt::StringLiterals;

const listas::Lista &ListaDeStock() {
    static const listas::Lista lista{
        .nombre = u"stock"_s,
        .clave = listas::Clave::Ninguna,
        .sinFilas = u"El stock está vacío; cárguelo desde una importación temporal armada."_s,
        .armar = [](AppContext &ctx, const QString &) {
            return stock::TablaDeStock(ctx, {}, QDate::currentDate());
        }};
    return lista;
}

const listas::Lista &ListaDeInsumos() {
    static const listas::Lista lista{
        .nombre = u"insumos"_s,
        .clave = listas::Clave::Operacion,
        .sinFilas = u"La operación %1 no tomó insumos ni los cargó en el stock."_s,
        .armar = [](AppContext &ctx, const QString &interno) { return stock::TablaDeInsumos(ctx, interno); }};
    return lista;
}
