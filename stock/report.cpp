#include "stock/report.h"

#include <algorithm>
#include <map>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/codes.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;
using papel::Clase;
using papel::Columna;
using papel::Fila;

/// What a row of a list is made from.
struct Renglon {
    Linea linea;
    Movimiento movimiento = {};
    Plazo plazo = Plazo::SinVencimiento;
};

/// A column and its cell.
struct ColumnaDeLista {
    Columna forma;
    QVariant (*celda)(const Renglon &);
};

QVariant diaOVacio(const QDate &dia) {
    return dia.isValid() ? QVariant(dia) : QVariant();
}

QString articuloDe(const Linea &l) {
    return (l.idcatalogo + u' ' + l.idarticulo).trimmed();
}

double tomadoDeLinea(const Linea &l) {
    return numeros::redondear(l.cantidad - l.saldo, decimalesDeSaldo);
}

Columna deTexto(const QString &titulo, int ancho) {
    return {titulo, Clase::Texto, ancho};
}
Columna deCantidad(const AppContext &ctx, const QString &titulo) {
    constexpr int ancho = 14;
    return {titulo, Clase::Numero, ancho, MascaraDeCantidad(ctx)};
}
Columna deImporte(const QString &titulo) {
    constexpr int ancho = 14;
    return {titulo, Clase::Numero, ancho, u"00.00"_s};
}
Columna deEntero(const QString &titulo) {
    constexpr int ancho = 5;
    return {titulo, Clase::Numero, ancho, u"0"_s};
}
Columna deDia(const QString &titulo) {
    constexpr int ancho = 10;
    return {titulo, Clase::Fecha, ancho};
}

using R = Renglon;

std::vector<ColumnaDeLista> columnasDeStock(const AppContext &ctx) {
    return {
        {deTexto(u"Declaración"_s, 18), [](const R &r) { return QVariant(r.linea.dit); }},
        {deEntero(u"Item"_s), [](const R &r) { return QVariant(double(r.linea.item)); }},
        {deEntero(u"Sub."_s), [](const R &r) { return QVariant(double(r.linea.subitem)); }},
        {deTexto(u"Posición"_s, 15), [](const R &r) { return QVariant(r.linea.ncm); }},
        {deTexto(u"Artículo"_s, 22), [](const R &r) { return QVariant(articuloDe(r.linea)); }},
        {deTexto(u"Descripción"_s, 30), [](const R &r) { return QVariant(r.linea.descripcion); }},
        {deTexto(u"Un."_s, 3), [](const R &r) { return QVariant(r.linea.idunidad); }},
        {deCantidad(ctx, u"Entró"_s), [](const R &r) { return QVariant(r.linea.cantidad); }},
        {deCantidad(ctx, u"Tomado"_s), [](const R &r) { return QVariant(tomadoDeLinea(r.linea)); }},
        {deCantidad(ctx, u"Saldo"_s), [](const R &r) { return QVariant(r.linea.saldo); }},
        {deImporte(u"CIF"_s), [](const R &r) { return QVariant(r.linea.cif); }},
        {deTexto(u"Div."_s, 4), [](const R &r) { return QVariant(r.linea.divisa); }},
        {deDia(u"Vence"_s), [](const R &r) { return diaOVacio(r.linea.vencimiento); }},
        {deTexto(u"Plazo"_s, 10), [](const R &r) { return QVariant(PalabraDePlazo(r.plazo)); }},
    };
}

std::vector<ColumnaDeLista> columnasDeInsumos(const AppContext &ctx) {
    return {
        {deTexto(u"Declaración"_s, 18), [](const R &r) { return QVariant(r.linea.dit); }},
        {deEntero(u"Item"_s), [](const R &r) { return QVariant(double(r.linea.item)); }},
        {deEntero(u"Sub."_s), [](const R &r) { return QVariant(double(r.linea.subitem)); }},
        {deTexto(u"Posición"_s, 15), [](const R &r) { return QVariant(r.linea.ncm); }},
        {deTexto(u"CTIT"_s, 16), [](const R &r) { return QVariant(r.linea.expctit); }},
        {deTexto(u"Artículo"_s, 22), [](const R &r) { return QVariant(articuloDe(r.linea)); }},
        {deTexto(u"Un."_s, 3), [](const R &r) { return QVariant(r.linea.idunidad); }},
        {deCantidad(ctx, u"Cantidad"_s), [](const R &r) { return QVariant(r.movimiento.cantidad); }},
        {{u"Factor"_s, Clase::Numero, 8, u"0.0000"_s},
         [](const R &r) { return QVariant(r.movimiento.factor); }},
        {deCantidad(ctx, u"Descontado"_s), [](const R &r) { return QVariant(r.movimiento.descontado); }},
        {deCantidad(ctx, u"Saldo"_s),
         [](const R &r) { return r.linea.id == 0 ? QVariant() : QVariant(r.linea.saldo); }},
        {deImporte(u"CIF"_s), [](const R &r) { return QVariant(r.movimiento.cif); }},
        {deTexto(u"Div."_s, 4), [](const R &r) { return QVariant(r.linea.divisa); }},
        {deDia(u"Vence"_s), [](const R &r) { return diaOVacio(r.linea.vencimiento); }},
    };
}

std::vector<ColumnaDeLista> columnasDeMovimientos(const AppContext &ctx) {
    return {
        {{u"Fecha"_s, Clase::Fecha, 16},
         [](const R &r) { return r.movimiento.fecha.isValid() ? QVariant(r.movimiento.fecha) : QVariant(); }},
        {deTexto(u"Operación"_s, 24), [](const R &r) { return QVariant(r.movimiento.interno); }},
        {deEntero(u"Item"_s),
         [](const R &r) {
             return r.movimiento.iditem == 0 ? QVariant() : QVariant(double(r.movimiento.iditem));
         }},
        {deCantidad(ctx, u"Cantidad"_s), [](const R &r) { return QVariant(r.movimiento.cantidad); }},
        {{u"Factor"_s, Clase::Numero, 8, u"0.0000"_s},
         [](const R &r) { return QVariant(r.movimiento.factor); }},
        {deCantidad(ctx, u"Descontado"_s), [](const R &r) { return QVariant(r.movimiento.descontado); }},
        {deImporte(u"CIF"_s), [](const R &r) { return QVariant(r.movimiento.cif); }},
        {deTexto(u"PC"_s, 16), [](const R &r) { return QVariant(r.movimiento.maquina); }},
        {{u"Devuelto"_s, Clase::Fecha, 16},
         [](const R &r) {
             return r.movimiento.devuelta.isValid() ? QVariant(r.movimiento.devuelta) : QVariant();
         }},
        {deTexto(u"PC que devolvió"_s, 16),
         [](const R &r) { return QVariant(r.movimiento.maquinadevuelta); }},
    };
}

Fila filaDe(const std::vector<ColumnaDeLista> &columnas, const Renglon &renglon) {
    Fila fila;
    for (const ColumnaDeLista &c : columnas) fila.celdas.push_back(c.celda(renglon));
    return fila;
}

papel::Tabla tablaDe(const std::vector<ColumnaDeLista> &columnas) {
    papel::Tabla tabla;
    tabla.orientacion = papel::Orientacion::Horizontal;
    for (const ColumnaDeLista &c : columnas) tabla.columnas.push_back(c.forma);
    return tabla;
}

void ponerGrupo(papel::Tabla &tabla, const QString &rotulo) {
    tabla.filas.push_back({std::vector<QVariant>(tabla.columnas.size()), Fila::Tipo::Grupo, rotulo});
}

QString filtrosDichos(const Filtro &f) {
    QStringList partes;
    if (!f.cliente.trimmed().isEmpty()) partes << u"Cliente "_s + f.cliente.trimmed();
    if (!f.declaracion.trimmed().isEmpty()) partes << u"Declaración "_s + f.declaracion.trimmed() + u"…"_s;
    if (!f.articulo.trimmed().isEmpty()) partes << u"Artículo "_s + f.articulo.trimmed();
    if (!f.posicion.trimmed().isEmpty()) partes << u"Posición "_s + f.posicion.trimmed() + u"…"_s;
    if (f.conSaldo) partes << u"Con saldo"_s;
    return partes.isEmpty() ? u"Todo el stock"_s : partes.join(" - "_L1);
}

/// "Operación EC-1 - EC02 - 001 Buenos Aires - HILADOS S.A.".
QString encabezadoDe(AppContext &ctx, const QString &interno) {
    QStringList partes{u"Operación "_s + interno};
    Recordset rs;
    if (Consultar(ctx, internos,
                  "select idsubreg,idaduana,cuitcliente "
                  "from caratula "
                  "where interno = "_L1 +
                      EnComillas(interno),
                  rs)) {
        const QString aduana = rs.Texto(u"idaduana");
        partes << rs.Texto(u"idsubreg")
               << (aduana.isEmpty() ? QString()
                                    : (aduana + u' ' + getAduanaDescripcion(ctx, aduana).trimmed()).trimmed())
               << NombreDeCliente(ctx, rs.Texto(u"cuitcliente"));
    }
    partes.removeAll(QString());
    return partes.join(" - "_L1);
}

/// The rows of descargas tell what a cancellation by hand has no stock line for.
std::map<qint64, Linea> lineasAMano(AppContext &ctx, const QString &interno) {
    std::map<qint64, Linea> lineas;
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select idexportacion,dit,item,subitem,ncm,expctit "
                   "from descargas "
                   "where idexportacion <> 0 and interno = "_L1 +
                       EnComillas(interno),
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        Linea &l = lineas[static_cast<qint64>(rs.Numero(u"idexportacion"))];
        l.dit = rs.Texto(u"dit");
        l.item = static_cast<int>(rs.Numero(u"item"));
        l.subitem = static_cast<int>(rs.Numero(u"subitem"));
        l.ncm = rs.Texto(u"ncm");
        l.expctit = rs.Texto(u"expctit");
    }
    return lineas;
}

/// What the operation took, by its items; what is not armed yet first.
std::vector<Renglon> tomasPorItem(AppContext &ctx, const QString &interno) {
    std::vector<Renglon> renglones;
    std::vector<qint64> ids;
    for (const Movimiento &m : TomasQueSiguen(ctx, interno)) {
        renglones.push_back({{}, m});
        if (m.idstock != 0) ids.push_back(m.idstock);
    }
    if (renglones.empty()) return renglones;
    std::map<qint64, Linea> lineas;
    for (const Linea &l : LeerLineas(ctx, EntreIds(u"id"_s, ids))) lineas[l.id] = l;
    std::map<qint64, Linea> aMano = lineasAMano(ctx, interno);
    for (Renglon &r : renglones)
        r.linea = r.movimiento.idstock == 0 ? aMano[r.movimiento.id] : lineas[r.movimiento.idstock];
    std::stable_sort(renglones.begin(), renglones.end(), [](const Renglon &a, const Renglon &b) {
        const auto orden = [](const Renglon &r) {
            return std::make_tuple(r.movimiento.iditem, r.linea.dit, r.linea.item, r.linea.subitem,
                                   r.movimiento.id);
        };
        return orden(a) < orden(b);
    });
    return renglones;
}

/// A line that entered, in the columns of what is taken: all that was taken of it, by whomever.
Renglon comoTomada(const Linea &l) {
    Renglon r{l};
    r.movimiento.cantidad = l.cantidad;
    r.movimiento.descontado = tomadoDeLinea(l);
    r.movimiento.cif = l.cif;
    return r;
}

}  // namespace

papel::Tabla TablaDeStock(AppContext &ctx, const Filtro &filtro, const QDate &hoy) {
    const std::vector<ColumnaDeLista> columnas = columnasDeStock(ctx);
    papel::Tabla tabla = tablaDe(columnas);
    std::map<QString, std::vector<Linea>> porCliente;
    for (const Linea &l : Buscar(ctx, filtro)) porCliente[l.cuitcliente].push_back(l);
    if (porCliente.empty()) return tabla;
    tabla.titulo = u"Stock de insumos temporales"_s;
    tabla.subtitulo = filtrosDichos(filtro) + u" - al "_s + hoy.toString(u"dd/MM/yyyy"_s);
    tabla.nombre = u"Stock de insumos"_s;
    for (const auto &[cuit, lineas] : porCliente) {
        ponerGrupo(tabla, u"%1 (%2)"_s.arg(NombreDeCliente(ctx, cuit), cuit));
        for (const Linea &l : lineas)
            tabla.filas.push_back(filaDe(columnas, {l, {}, PlazoDe(l.vencimiento, hoy)}));
    }
    return tabla;
}

papel::Tabla TablaDeInsumos(AppContext &ctx, const QString &interno) {
    const std::vector<ColumnaDeLista> columnas = columnasDeInsumos(ctx);
    papel::Tabla tabla = tablaDe(columnas);
    int item = -1;
    for (const Renglon &r : tomasPorItem(ctx, interno)) {
        if (r.movimiento.iditem != item) {
            item = r.movimiento.iditem;
            ponerGrupo(tabla,
                       item == 0 ? u"Tomado por líneas sin armar"_s : u"Tomado por el item %1"_s.arg(item));
        }
        tabla.filas.push_back(filaDe(columnas, r));
    }
    const std::vector<Linea> cargadas = LeerLineas(ctx, "interno = "_L1 + EnComillas(interno));
    if (!cargadas.empty()) ponerGrupo(tabla, u"Entró al stock con esta operación"_s);
    for (const Linea &l : cargadas) tabla.filas.push_back(filaDe(columnas, comoTomada(l)));
    if (tabla.filas.empty()) return tabla;
    tabla.titulo = u"Insumos temporales"_s;
    tabla.subtitulo = encabezadoDe(ctx, interno);
    tabla.nombre = u"Insumos "_s + interno;
    return tabla;
}

papel::Tabla TablaDeMovimientos(AppContext &ctx, qint64 idstock) {
    const std::vector<ColumnaDeLista> columnas = columnasDeMovimientos(ctx);
    papel::Tabla tabla = tablaDe(columnas);
    const auto linea = LeerLinea(ctx, idstock);
    if (!linea) return tabla;
    for (const Movimiento &m : MovimientosDe(ctx, idstock))
        tabla.filas.push_back(filaDe(columnas, {*linea, m}));
    if (tabla.filas.empty()) return tabla;
    tabla.titulo = u"Movimientos de una línea del stock"_s;
    tabla.subtitulo = u"Declaración %1, item %2, subitem %3 - %4 - entró %5, queda %6"_s.arg(
        linea->dit, QString::number(linea->item), QString::number(linea->subitem),
        articuloDe(*linea).isEmpty() ? linea->descripcion : articuloDe(*linea),
        CantidadDicha(ctx, linea->cantidad, {}), CantidadDicha(ctx, linea->saldo, {}));
    tabla.nombre = u"Movimientos "_s + linea->dit;
    return tabla;
}

papel::Documento DocumentoDe(const AppContext &ctx, const papel::Tabla &tabla) {
    return {papel::ReporteDe(tabla, ctx.SeparadorDecimal), tabla};
}

}  // namespace stock
