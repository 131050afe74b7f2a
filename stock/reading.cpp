// What the stock holds, as it is asked.

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "header/parties.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

constexpr int decimalesUsuales = 2;
constexpr double porCiento = 100;

/// Goods without a code are told apart by what they are.
QString mismaMercaderia(const Pedido &p) {
    QString comun = "idcatalogo = "_L1 + TextoEnComillas(p.idcatalogo) + " and idarticulo = "_L1 +
                    TextoEnComillas(p.idarticulo) + " and idunidad = "_L1 + TextoEnComillas(p.idunidad);
    if (!p.idarticulo.isEmpty()) return comun;
    return comun + " and ncm = "_L1 + TextoEnComillas(p.ncm) + " and descripcion = "_L1 +
           TextoEnComillas(p.descripcion);
}

/// What makes two lines one article of the list.
using ClaveDeArticulo = std::tuple<QString, QString, QString, QString, QString>;

ClaveDeArticulo claveDe(const Linea &l) {
    const bool sinCodigo = l.idarticulo.isEmpty();
    return {l.idcatalogo.toUpper(), l.idarticulo.toUpper(), sinCodigo ? l.descripcion.toUpper() : QString(),
            sinCodigo ? l.ncm : QString(), l.idunidad.toUpper()};
}

}  // namespace

Plazo PlazoDe(const QDate &vencimiento, const QDate &hoy) {
    if (!vencimiento.isValid()) return Plazo::SinVencimiento;
    if (vencimiento < hoy) return Plazo::Vencido;
    return hoy.daysTo(vencimiento) <= diasDeAviso ? Plazo::PorVencer : Plazo::EnTermino;
}

QString PalabraDePlazo(Plazo plazo) {
    if (plazo == Plazo::Vencido) return u"vencido"_s;
    return plazo == Plazo::PorVencer ? u"por vencer"_s : QString();
}

int Decimales(const AppContext &ctx) {
    return ctx.opciones.opVDE ? decimalesDeSaldo : decimalesUsuales;
}

QString MascaraDeCantidad(const AppContext &ctx) {
    return "00."_L1 + QString(Decimales(ctx), u'0');
}

double FactorDe(const AppContext &ctx, const Linea &linea) {
    return ctx.opciones.RestarPerMer ? numeros::redondear(1 + linea.merma / porCiento, decimalesDeSaldo) : 1;
}

double Descontado(const AppContext &ctx, const Linea &linea, double cantidad) {
    return numeros::redondear(cantidad * FactorDe(ctx, linea), Decimales(ctx));
}

double LoQueAlcanza(const AppContext &ctx, const Linea &linea) {
    const int decimales = Decimales(ctx);
    const double paso = std::pow(10, -decimales);
    double cantidad = numeros::redondear(linea.saldo / FactorDe(ctx, linea), decimales);
    while (cantidad > 0 && Descontado(ctx, linea, cantidad) > linea.saldo)
        cantidad = numeros::redondear(cantidad - paso, decimales);
    return std::max(cantidad, 0.0);
}

std::vector<Linea> Buscar(AppContext &ctx, const Filtro &filtro) {
    QStringList pruebas;
    if (const QString cliente = filtro.cliente.trimmed(); !cliente.isEmpty())
        pruebas << "(cuitcliente = "_L1 + TextoEnComillas(cliente) +
                       " or cuitcliente in (select cuit from clientes where nombre like "_L1 +
                       TextoEnComillas(u'%' + cliente + u'%') + "))"_L1;
    if (const QString declaracion = filtro.declaracion.trimmed(); !declaracion.isEmpty())
        pruebas << "dit like "_L1 + TextoEnComillas(declaracion + u'%');
    if (!filtro.articulo.trimmed().isEmpty())
        pruebas << ContieneEnAlguna({u"idcatalogo"_s, u"idarticulo"_s, u"descripcion"_s}, filtro.articulo);
    if (QString posicion = filtro.posicion.trimmed(); !posicion.isEmpty())
        pruebas << "replace(ncm,'.','') like "_L1 +
                       TextoEnComillas(posicion.remove(u'.').remove(u',') + u'%');
    if (filtro.conSaldo) pruebas << u"saldo > 0"_s;
    return LeerLineas(ctx, pruebas.isEmpty() ? u"1 = 1"_s : pruebas.join(" and "_L1));
}

std::optional<Linea> LeerLinea(AppContext &ctx, qint64 id) {
    const std::vector<Linea> lineas = LeerLineas(ctx, "id = "_L1 + QString::number(id));
    if (lineas.empty()) return {};
    return lineas.front();
}

QString NombreDeCliente(AppContext &ctx, const QString &cuit) {
    const QString nombre = BuscarNombre(ctx, u"clientes"_s, cuit).trimmed();
    return nombre.isEmpty() ? cuit : nombre;
}

std::vector<Movimiento> MovimientosDe(AppContext &ctx, qint64 idstock) {
    return LeerMovimientos(ctx, "idstock = "_L1 + QString::number(idstock));
}

std::vector<Movimiento> TomasQueSiguen(AppContext &ctx, const QString &interno) {
    return LeerMovimientos(ctx, "interno = "_L1 + EnComillas(interno) + " and devuelta is null"_L1);
}

std::vector<Movimiento> TomasQueSiguen(AppContext &ctx, const QString &interno, qint64 idlinea) {
    return LeerMovimientos(ctx, "interno = "_L1 + EnComillas(interno) + " and idlinea = "_L1 +
                                    QString::number(idlinea) + " and devuelta is null"_L1);
}

std::vector<ArticuloEnStock> ArticulosDe(AppContext &ctx, const QString &interno, const QString &texto) {
    const QString cliente = ClienteDe(ctx, interno);
    if (cliente.isEmpty()) return {};
    QString donde = "cuitcliente = "_L1 + EnComillas(cliente) + " and saldo > 0"_L1;
    if (!texto.trimmed().isEmpty())
        donde += " and "_L1 +
                 ContieneEnAlguna({u"idcatalogo"_s, u"idarticulo"_s, u"descripcion"_s, u"ncm"_s}, texto);
    std::map<ClaveDeArticulo, ArticuloEnStock> articulos;
    const QDate hoy = QDate::currentDate();
    for (const Linea &l : LeerLineas(ctx, donde)) {
        ArticuloEnStock &a = articulos[claveDe(l)];
        if (a.lineas++ == 0) {
            a.idcatalogo = l.idcatalogo;
            a.idarticulo = l.idarticulo;
            a.descripcion = l.descripcion;
            a.ncm = l.ncm;
            a.idunidad = l.idunidad;
        }
        a.saldo += l.saldo;
        if (!a.vence.isValid() && l.vencimiento >= hoy) a.vence = l.vencimiento;
    }
    std::vector<ArticuloEnStock> todos;
    for (auto &[clave, articulo] : articulos) {
        articulo.saldo = numeros::redondear(articulo.saldo, decimalesDeSaldo);
        todos.push_back(articulo);
    }
    return todos;
}

std::vector<Oferta> Ofertas(AppContext &ctx, const Pedido &pedido, const QDate &hoy) {
    const QString cliente = ClienteDe(ctx, pedido.interno);
    if (cliente.isEmpty()) return {};
    return OfertasDe(ctx,
                     LeerLineas(ctx, "cuitcliente = "_L1 + EnComillas(cliente) + " and saldo > 0 and "_L1 +
                                         mismaMercaderia(pedido)),
                     hoy);
}

double Repartir(const AppContext &ctx, std::vector<Oferta> &ofertas, double cantidad) {
    const int decimales = Decimales(ctx);
    double falta = numeros::redondear(cantidad, decimales);
    for (Oferta &o : ofertas) {
        o.cantidad = o.plazo == Plazo::Vencido ? 0 : std::min(o.alcanza, std::max(falta, 0.0));
        falta = numeros::redondear(falta - o.cantidad, decimales);
    }
    return std::max(falta, 0.0);
}

double EnDivisa(AppContext &ctx, double importe, const QString &de, const QString &a) {
    if (de.trimmed().compare(a.trimmed(), Qt::CaseInsensitive) == 0) return importe;
    const auto valorDe = [&ctx](const QString &divisa) {
        Recordset rs;
        return Consultar(ctx, internos, "select [imp] from divisas where id = "_L1 + EnComillas(divisa), rs)
                   ? rs.Numero(u"imp")
                   : 0;
    };
    const double origen = valorDe(de);
    const double destino = valorDe(a);
    if (origen <= 0 || destino <= 0) return importe;
    return numeros::redondear(importe * origen / destino, decimalesUsuales);
}

}  // namespace stock
