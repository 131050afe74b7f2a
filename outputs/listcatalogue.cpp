// The articles of a catalogue.

#include <algorithm>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "outputs/listcells.h"
#include "outputs/listrows.h"

using namespace Qt::StringLiterals;

namespace listas {

namespace {

struct ColumnaDeCatalogo {
    QString columna;
    papel::Columna forma;
};

const std::vector<ColumnaDeCatalogo> &columnasDeCatalogo() {
    static const std::vector<ColumnaDeCatalogo> columnas{
        {u"idarticulo"_s, DeTexto(u"Artículo"_s, 24)},
        {u"descripcion"_s, DeTexto(u"Descripción"_s, 42)},
        {u"ncm"_s, DeTexto(u"Posición"_s, 15)},
        {u"idunidad"_s, DeTexto(u"Un."_s, 3)},
        {u"preciounitario"_s, DeNumero(u"Precio unit."_s, 14, u"00.00000"_s)},
        {u"idpais"_s, DeTexto(u"País"_s, 4)},
    };
    return columnas;
}

}  // namespace

papel::Tabla ArticulosDeCatalogo(AppContext &ctx, const QString &catalogo) {
    papel::Tabla tabla;
    for (const ColumnaDeCatalogo &c : columnasDeCatalogo()) tabla.columnas.push_back(c.forma);
    Recordset rs;
    Consultar(ctx, entidad::catalogos,
              "select idarticulo,descripcion,ncm,idunidad,preciounitario,idpais "
              "from catarticulos "
              "where idcatalogo = "_L1 +
                  TextoEnComillas(catalogo),
              rs);
    tabla.filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) {
        papel::Fila fila;
        for (const ColumnaDeCatalogo &c : columnasDeCatalogo())
            fila.celdas.push_back(Celda(rs, c.columna, c.forma.clase));
        tabla.filas.push_back(std::move(fila));
    }
    std::stable_sort(tabla.filas.begin(), tabla.filas.end(), [](const papel::Fila &a, const papel::Fila &b) {
        return vaAntes(a.celdas.front().toString(), b.celdas.front().toString());
    });
    AjustarAnchos(tabla);
    tabla.titulo = u"Catálogo de artículos"_s;
    tabla.subtitulo = u"Catálogo "_s + catalogo + " - "_L1 +
                      Contadas(static_cast<int>(tabla.filas.size()), u"artículo"_s, u"artículos"_s);
    tabla.nombre = u"Catalogo "_s + catalogo;
    return tabla;
}

}  // namespace listas
