// The lines of an operation, four ways.

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "outputs/listcells.h"
#include "outputs/listrows.h"

using namespace Qt::StringLiterals;

namespace listas {

namespace {

using entidad::internos;

/// The four lists, as bits.
enum En : unsigned { vertical = 1, horizontal = 2, posVertical = 4, posHorizontal = 8 };
constexpr unsigned porPosicion = posVertical | posHorizontal;
constexpr unsigned acostadas = horizontal | posHorizontal;
constexpr unsigned enTodas = vertical | horizontal | porPosicion;

const QString campoNumero = u"numero"_s;
const QString campoPosicion = u"ncm"_s;
const QString campoUnidad = u"idunidad"_s;
const QString campoCantidad = u"cantidad"_s;

struct ColumnaDeLineas {
    QString columna;  ///< of `subitems`; the number of the line has none
    papel::Columna forma;
    unsigned en = enTodas;
};

const std::vector<ColumnaDeLineas> &columnasDeLineas() {
    static const std::vector<ColumnaDeLineas> columnas{
        {campoNumero, DeNumero(u"Línea"_s, 5, u"0000"_s)},
        {u"idarticulo"_s, DeTexto(u"Artículo"_s, 18)},
        {u"descripcion"_s, DeTexto(u"Descripción"_s, 38)},
        {campoPosicion, DeTexto(u"Posición"_s, 15)},
        {campoUnidad, DeTexto(u"Un."_s, 3)},
        {campoCantidad, DeNumero(u"Cantidad"_s, 11, u"00.00"_s, true)},
        {u"preciounitario"_s, DeNumero(u"Precio unit."_s, 13, u"00.00000"_s),
         vertical | horizontal | posHorizontal},
        {u"fob"_s, DeNumero(u"FOB"_s, 12, u"00.00"_s, true)},
        {u"kgneto"_s, DeNumero(u"Kg neto"_s, 11, u"00.00"_s, true), horizontal | porPosicion},
        {u"idpais"_s, DeTexto(u"Origen"_s, 6), acostadas},
        {u"estadomerc"_s, DeTexto(u"Estado"_s, 6), acostadas},
        {u"valorrelacionestadistica"_s, DeNumero(u"Cant. estad."_s, 12, u"00.00"_s), acostadas},
        {u"estadistica"_s, DeTexto(u"Un.est."_s, 7), acostadas},
        {u"factura_nro"_s, DeTexto(u"Factura"_s, 18), acostadas},
    };
    return columnas;
}

std::vector<ColumnaDeLineas> columnasEn(unsigned lista) {
    std::vector<ColumnaDeLineas> suyas;
    std::copy_if(columnasDeLineas().begin(), columnasDeLineas().end(), std::back_inserter(suyas),
                 [lista](const ColumnaDeLineas &c) { return (c.en & lista) != 0; });
    return suyas;
}

std::size_t lugarDe(const std::vector<ColumnaDeLineas> &columnas, const QString &columna) {
    const auto hallada = std::find_if(columnas.begin(), columnas.end(),
                                      [&columna](const ColumnaDeLineas &c) { return c.columna == columna; });
    return static_cast<std::size_t>(hallada - columnas.begin());
}

/// By position, which is the same in capitals and in small letters; its lines stay in the order of their
/// keying.
void ordenarPorPosicion(std::vector<papel::Fila> &filas, std::size_t posicion) {
    for (papel::Fila &f : filas) f.celdas[posicion] = f.celdas[posicion].toString().toUpper();
    std::stable_sort(filas.begin(), filas.end(), [posicion](const papel::Fila &a, const papel::Fila &b) {
        return a.celdas[posicion].toString() < b.celdas[posicion].toString();
    });
}

/// Kilograms and units make no sum: the quantity of rows with more than one unit is left empty.
void vaciarCantidadesMezcladas(papel::Tabla &tabla, std::size_t unidad, std::size_t cantidad) {
    std::set<QString> delGrupo;
    std::set<QString> deTodos;
    for (papel::Fila &fila : tabla.filas) {
        switch (fila.tipo) {
            case papel::Fila::Tipo::Grupo:
                delGrupo.clear();
                break;
            case papel::Fila::Tipo::Dato:
                delGrupo.insert(fila.celdas[unidad].toString());
                deTodos.insert(fila.celdas[unidad].toString());
                break;
            case papel::Fila::Tipo::Subtotal:
                if (delGrupo.size() > 1) fila.celdas[cantidad] = QVariant();
                break;
            case papel::Fila::Tipo::Total:
                if (deTodos.size() > 1) fila.celdas[cantidad] = QVariant();
                break;
        }
    }
}

bool deUnaUnidad(const std::vector<papel::Fila> &filas, std::size_t unidad) {
    return std::all_of(filas.begin(), filas.end(), [&](const papel::Fila &f) {
        return f.celdas[unidad].toString() == filas.front().celdas[unidad].toString();
    });
}

papel::Tabla lineas(AppContext &ctx, const QString &interno, unsigned lista) {
    const std::vector<ColumnaDeLineas> columnas = columnasEn(lista);
    papel::Tabla tabla;
    tabla.orientacion =
        (lista & acostadas) != 0 ? papel::Orientacion::Horizontal : papel::Orientacion::Vertical;
    for (const ColumnaDeLineas &c : columnas) tabla.columnas.push_back(c.forma);
    Recordset rs;
    Consultar(ctx, internos,
              "select idarticulo,descripcion,ncm,idunidad,cantidad,preciounitario,fob,kgneto,"
              "idpais,estadomerc,valorrelacionestadistica,estadistica,factura_nro "
              "from subitems "
              "where interno = "_L1 +
                  EnComillas(interno) +
                  " "
                  "order by id"_L1,
              rs);
    tabla.filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (int numero = 1; !rs.Eof(); rs.MoveNext(), ++numero) {
        papel::Fila fila;
        for (const ColumnaDeLineas &c : columnas)
            fila.celdas.push_back(c.columna == campoNumero ? QVariant(double(numero))
                                                           : Celda(rs, c.columna, c.forma.clase));
        tabla.filas.push_back(std::move(fila));
    }
    if (tabla.filas.empty()) return tabla;
    const bool agrupada = (lista & porPosicion) != 0;
    const int cuantas = static_cast<int>(tabla.filas.size());
    tabla.titulo = agrupada ? u"Líneas por posición"_s : u"Líneas de la operación"_s;
    tabla.subtitulo =
        EncabezadoDeOperacion(ctx, interno, true) + " - "_L1 + Contadas(cuantas, u"línea"_s, u"líneas"_s);
    tabla.nombre = (agrupada ? u"Posiciones "_s : u"Lineas "_s) + interno;
    const std::size_t posicion = lugarDe(columnas, campoPosicion);
    const std::size_t unidad = lugarDe(columnas, campoUnidad);
    const std::size_t cantidad = lugarDe(columnas, campoCantidad);
    AjustarAnchos(tabla);
    if (agrupada) {
        ordenarPorPosicion(tabla.filas, posicion);
        papel::Totalizar(tabla, static_cast<int>(posicion));
        vaciarCantidadesMezcladas(tabla, unidad, cantidad);
    } else {
        tabla.columnas[cantidad].suma = deUnaUnidad(tabla.filas, unidad);
        papel::Totalizar(tabla);
    }
    return tabla;
}

}  // namespace

papel::Tabla LineasVertical(AppContext &ctx, const QString &interno) {
    return lineas(ctx, interno, vertical);
}
papel::Tabla LineasHorizontal(AppContext &ctx, const QString &interno) {
    return lineas(ctx, interno, horizontal);
}
papel::Tabla PosicionesVertical(AppContext &ctx, const QString &interno) {
    return lineas(ctx, interno, posVertical);
}
papel::Tabla PosicionesHorizontal(AppContext &ctx, const QString &interno) {
    return lineas(ctx, interno, posHorizontal);
}

}  // namespace listas
