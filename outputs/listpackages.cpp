// The packages and the transport of an operation.

#include <algorithm>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/paper/cells.h"
#include "header/codes.h"
#include "outputs/listcells.h"
#include "outputs/listrows.h"

using namespace Qt::StringLiterals;

namespace listas {

namespace {

struct ColumnaDeBultos {
    QString columna;
    papel::Columna forma;
    const char *clave = "";  ///< the table of codes that describes it
};

const std::vector<ColumnaDeBultos> &columnasDeBultos() {
    static const std::vector<ColumnaDeBultos> columnas{
        {u"bulnro"_s, DeTexto(u"Número de bultos"_s, 16)},
        {u"buldes"_s, DeTexto(u"Bultos declarados"_s, 20)},
        {u"bulcod"_s, DeTexto(u"Embalaje"_s, 24), "CODEMB"},
        {u"bultip"_s, DeTexto(u"Tipo de embalaje"_s, 24), "TIPOEMB"},
        {u"bulpes"_s, DeNumero(u"Kilos brutos"_s, 12, u"00.00"_s)},
        {u"marcabul"_s, DeTexto(u"Marcas"_s, 24)},
        {u"via"_s, DeTexto(u"Vía"_s, 16), "VIA"},
        {u"trans"_s, DeTexto(u"Medio de transporte"_s, 24)},
        {u"bandera"_s, DeTexto(u"Bandera"_s, 20), "PAIS"},
        {u"cuittrans"_s, DeTexto(u"CUIT del agente"_s, 15)},
        {u"factura10"_s, DeTexto(u"Agente de transporte"_s, 32)},
        {u"venemb"_s, DeDia(u"Vencimiento de embarque"_s)},
    };
    return columnas;
}

/// Nothing was keyed: an empty weight is kept as zero.
bool vacia(const papel::Fila &fila) {
    return std::all_of(fila.celdas.begin(), fila.celdas.end(), [](const QVariant &celda) {
        return celda.isNull() || celda.toString().isEmpty() ||
               (celda.typeId() == QMetaType::Double && celda.toDouble() == 0);
    });
}

/// "11 PALLETS"; the code alone when nothing describes it.
QVariant conDescripcion(AppContext &ctx, const char *clave, const QVariant &codigo) {
    QString aux;
    const QString descripcion =
        BuscarDescripcion(ctx, QString(QLatin1String(clave)), codigo.toString(), aux, 1);
    return (codigo.toString() + QLatin1Char(' ') + descripcion.trimmed()).trimmed();
}

}  // namespace

papel::Tabla BultosDeOperacion(AppContext &ctx, const QString &interno) {
    papel::Tabla tabla;
    QStringList columnas;
    for (const ColumnaDeBultos &c : columnasDeBultos()) {
        tabla.columnas.push_back(c.forma);
        columnas << c.columna;
    }
    Recordset rs;
    if (!Consultar(ctx, entidad::internos,
                   "select "_L1 + columnas.join(QLatin1Char(',')) +
                       " "
                       "from caratula "
                       "where interno = "_L1 +
                       EnComillas(interno),
                   rs))
        return tabla;
    papel::Fila fila;
    for (const ColumnaDeBultos &c : columnasDeBultos())
        fila.celdas.push_back(Celda(rs, c.columna, c.forma.clase));
    if (vacia(fila)) return tabla;
    for (std::size_t i = 0; i < fila.celdas.size(); ++i)
        if (const char *clave = columnasDeBultos()[i].clave; *clave != 0)
            fila.celdas[i] = conDescripcion(ctx, clave, fila.celdas[i]);
    tabla.filas.push_back(std::move(fila));
    tabla.titulo = u"Bultos y transporte"_s;
    tabla.subtitulo = EncabezadoDeOperacion(ctx, interno, false);
    tabla.nombre = u"Bultos "_s + interno;
    return tabla;
}

papel::Reporte FichaDe(const papel::Tabla &tabla, QChar separador) {
    papel::Reporte reporte;
    reporte.titulo = tabla.titulo;
    reporte.subtitulo = tabla.subtitulo;
    reporte.nombre = tabla.nombre;
    reporte.orientacion = tabla.orientacion;
    for (const papel::Fila &fila : tabla.filas)
        for (std::size_t i = 0; i < fila.celdas.size(); ++i)
            reporte.ficha.emplace_back(tabla.columnas[i].titulo,
                                       papel::TextoDeCelda(tabla, fila, i, separador));
    return reporte;
}

}  // namespace listas
