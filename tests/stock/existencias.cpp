#include "tests/stock/existencias.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"

using namespace Qt::StringLiterals;

namespace {

QString insercion(const QString &tabla, Cambios fila, const Cambios &cambios) {
    for (const auto &[columna, valor] : cambios) fila[columna] = valor;
    QStringList columnas;
    QStringList valores;
    for (const auto &[columna, valor] : fila) {
        columnas << columna;
        valores << valor;
    }
    return u"insert into %1 (%2) values (%3)"_s.arg(tabla, columnas.join(u','), valores.join(u','));
}

}  // namespace

void Existencias::SetUp() {
    EnAmbosStores::SetUp();
    operacion(exportacion);
    for (const char *fila : {"'DOL','Dólar',1", "'060','Euro',1.10", "'PES','Peso',0.001"})
        ejecutar(u"insert into divisas (id,descripcion,imp) values (%1)"_s.arg(QString::fromUtf8(fila)));
}

void Existencias::operacion(const QString &interno, const Cambios &cambios) {
    ejecutar(insercion(u"caratula"_s,
                       {{u"interno"_s, EnComillas(interno)},
                        {u"idsubreg"_s, u"'EC02'"_s},
                        {u"cuitcliente"_s, EnComillas(clienteDeStock)},
                        {u"fobcoddivisas"_s, u"'DOL'"_s},
                        {u"fobdivcambio"_s, u"1"_s},
                        {u"factura8"_s, u"'N'"_s}},
                       cambios));
}

QString Existencias::dia(int dentroDe) const {
    return ctx->DataManager.getDateFormatbyEntity(u"INTERNOS"_s, hoy.addDays(dentroDe).startOfDay());
}

qint64 Existencias::entrar(const Cambios &cambios) {
    Cambios fila{{u"dit"_s, u"'26001IT01000001A'"_s},
                 {u"item"_s, u"1"_s},
                 {u"subitem"_s, u"1"_s},
                 {u"ncm"_s, u"'5205.11.00.000A'"_s},
                 {u"idcatalogo"_s, u"'HILADOS'"_s},
                 {u"idarticulo"_s, u"'HI-AL'"_s},
                 {u"descripcion"_s, u"'Hilado de algodón'"_s},
                 {u"idunidad"_s, u"'01'"_s},
                 {u"cantidad"_s, u"100"_s},
                 {u"cif"_s, u"1000"_s},
                 {u"divisa"_s, u"'DOL'"_s},
                 {u"preciounitario"_s, u"9.5"_s},
                 {u"idpais"_s, u"'315'"_s},
                 {u"sufijos"_s, u"''"_s},
                 {u"merma"_s, u"0"_s},
                 {u"fecha"_s, dia(-10)},
                 {u"vencimiento"_s, dia(100)},
                 {u"cuitcliente"_s, EnComillas(clienteDeStock)},
                 {u"expctit"_s, u"'CTIT 7'"_s},
                 {u"interno"_s, u"'IT 1'"_s},
                 {u"idlinea"_s, u"1"_s}};
    for (const auto &[columna, valor] : cambios) fila[columna] = valor;
    if (fila.count(u"saldo"_s) == 0) fila[u"saldo"_s] = fila[u"cantidad"_s];
    ejecutar(insercion(u"stock"_s, fila, {}));
    return valor(u"select max(id) as id from stock"_s).toLongLong();
}

qint64 Existencias::linea(const Cambios &cambios, const QString &interno) {
    ejecutar(insercion(u"subitems"_s,
                       {{u"interno"_s, EnComillas(interno)},
                        {u"idcatalogo"_s, u"'HILADOS'"_s},
                        {u"idarticulo"_s, u"'HI-AL'"_s},
                        {u"ncm"_s, u"'5205.11.00.000A'"_s},
                        {u"descripcion"_s, u"'Hilado de algodón'"_s},
                        {u"idunidad"_s, u"'01'"_s},
                        {u"cantidad"_s, u"10"_s},
                        {u"preciounitario"_s, u"12"_s},
                        {u"fob"_s, u"120"_s},
                        {u"cancelaciones"_s, u"''"_s},
                        {u"insumostemp"_s, u"0"_s}},
                       cambios));
    return valor(u"select max(id) as id from subitems"_s).toLongLong();
}

QString Existencias::saldo(qint64 idstock) {
    return valor(u"select saldo from stock where id = %1"_s.arg(idstock));
}

stock::Resultado Existencias::tomar(qint64 idlinea, const std::vector<stock::Parte> &partes,
                                    const QString &interno) {
    return stock::Tomar(*ctx, {interno, idlinea}, partes);
}

stock::Pedido Existencias::pedido() const {
    return {exportacion, u"HILADOS"_s, u"HI-AL"_s, u"01"_s, {}, {}};
}

std::string Existencias::ultimo() const {
    return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
}

QString Existencias::marca(qint64 idlinea) {
    return filas(u"select cancelaciones,insumostemp from subitems where id = %1"_s.arg(idlinea));
}

QString Existencias::desacuerdos() {
    std::map<QString, double> tomado;
    Recordset rs;
    for (Consultar(*ctx, u"INTERNOS"_s, u"select idstock,descontado from stockmov where devuelta is null"_s,
                   rs);
         !rs.Eof(); rs.MoveNext())
        tomado[rs.Texto(u"idstock")] += rs.Numero(u"descontado");
    QStringList malos;
    for (Consultar(*ctx, u"INTERNOS"_s, u"select id,cantidad,saldo from stock order by id"_s, rs); !rs.Eof();
         rs.MoveNext()) {
        const double cuenta = numeros::redondear(rs.Numero(u"cantidad") - tomado[rs.Texto(u"id")], 6);
        if (cuenta < 0 || cuenta != rs.Numero(u"saldo"))
            malos << u"%1: %2 y no %3"_s.arg(rs.Texto(u"id"), rs.Texto(u"saldo")).arg(cuenta);
    }
    return malos.join(u'\n');
}
