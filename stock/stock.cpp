#include "stock/stock.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/startup.h"
#include "header/parties.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

constexpr int decimalesUsuales = 2;
constexpr int decimalesExtendidos = 6;
constexpr double porCiento = 100;

/// Lines without an expiry stand behind all others.
bool vaAntes(const Linea &a, const Linea &b) {
    const auto orden = [](const Linea &l) {
        return std::make_tuple(!l.vencimiento.isValid(), l.vencimiento, l.dit.toUpper(), l.item, l.subitem,
                               l.id);
    };
    return orden(a) < orden(b);
}

QDate diaDe(const Recordset &rs, QStringView columna) {
    return AFecha(rs.Fields(columna).Value).date();
}

/// Goods without a code are told apart by what they are.
QString mismaMercaderia(const Pedido &p) {
    const QString comun = "idcatalogo = "_L1 + TextoEnComillas(p.idcatalogo) + " and idarticulo = "_L1 +
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
    return ctx.opciones.opVDE ? decimalesExtendidos : decimalesUsuales;
}

QString MascaraDeCantidad(const AppContext &ctx) {
    return "00."_L1 + QString(Decimales(ctx), u'0');
}

double FactorDe(const AppContext &ctx, const Linea &linea) {
    return ctx.opciones.RestarPerMer ? numeros::redondear(1 + linea.merma / porCiento, decimalesExtendidos)
                                     : 1;
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

QString ColumnasDeLinea() {
    return u"id,dit,item,subitem,ncm,idcatalogo,idarticulo,descripcion,idunidad,"
           "cantidad,saldo,cif,divisa,preciounitario,idpais,sufijos,merma,"
           "fecha,vencimiento,cuitcliente,expctit,interno,idlinea"_s;
}

Linea LineaDe(const Recordset &rs) {
    Linea l;
    l.id = static_cast<qint64>(rs.Numero(u"id"));
    l.dit = rs.Texto(u"dit");
    l.item = static_cast<int>(rs.Numero(u"item"));
    l.subitem = static_cast<int>(rs.Numero(u"subitem"));
    l.ncm = rs.Texto(u"ncm");
    l.idcatalogo = rs.Texto(u"idcatalogo");
    l.idarticulo = rs.Texto(u"idarticulo");
    l.descripcion = rs.Texto(u"descripcion");
    l.idunidad = rs.Texto(u"idunidad");
    l.cantidad = rs.Numero(u"cantidad");
    l.saldo = rs.Numero(u"saldo");
    l.cif = rs.Numero(u"cif");
    l.divisa = rs.Texto(u"divisa");
    l.preciounitario = rs.Numero(u"preciounitario");
    l.idpais = rs.Texto(u"idpais");
    l.sufijos = rs.Texto(u"sufijos");
    l.merma = rs.Numero(u"merma");
    l.fecha = diaDe(rs, u"fecha");
    l.vencimiento = diaDe(rs, u"vencimiento");
    l.cuitcliente = rs.Texto(u"cuitcliente");
    l.expctit = rs.Texto(u"expctit");
    l.interno = rs.Texto(u"interno");
    l.idlinea = static_cast<qint64>(rs.Numero(u"idlinea"));
    return l;
}

QString EntreIds(const QString &columna, const std::vector<qint64> &ids) {
    if (ids.empty()) return u"1 = 0"_s;
    QStringList textos;
    for (const qint64 id : ids) textos << QString::number(id);
    return columna + " in ("_L1 + textos.join(','_L1) + ")"_L1;
}

QString DiaEnSql(const AppContext &ctx, const QDate &dia) {
    return dia.isValid() ? ctx.DataManager.getDateFormatbyEntity(internos, dia.startOfDay()) : u"null"_s;
}

QString AhoraEnSql(const AppContext &ctx) {
    return ctx.DataManager.getDateFormatbyEntity(internos, QDateTime::currentDateTime());
}

std::vector<Linea> LeerLineas(AppContext &ctx, const QString &donde) {
    std::vector<Linea> lineas;
    Recordset rs;
    Consultar(ctx, internos,
              "select "_L1 + ColumnasDeLinea() +
                  " "
                  "from stock "
                  "where "_L1 +
                  donde,
              rs);
    lineas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) lineas.push_back(LineaDe(rs));
    std::sort(lineas.begin(), lineas.end(), vaAntes);
    return lineas;
}

std::vector<Movimiento> LeerMovimientos(AppContext &ctx, const QString &donde) {
    std::vector<Movimiento> movimientos;
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select id,idstock,interno,idlinea,iditem,paraitem,cantidad,factor,descontado,cif,"
                   "fecha,maquina,devuelta,maquinadevuelta "
                   "from stockmov "
                   "where "_L1 +
                       donde +
                       " "
                       "order by id"_L1,
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        Movimiento m;
        m.id = static_cast<qint64>(rs.Numero(u"id"));
        m.idstock = static_cast<qint64>(rs.Numero(u"idstock"));
        m.interno = rs.Texto(u"interno");
        m.idlinea = static_cast<qint64>(rs.Numero(u"idlinea"));
        m.iditem = static_cast<int>(rs.Numero(u"iditem"));
        m.paraItem = rs.Texto(u"paraitem") == "S"_L1;
        m.cantidad = rs.Numero(u"cantidad");
        m.factor = rs.Numero(u"factor");
        m.descontado = rs.Numero(u"descontado");
        m.cif = rs.Numero(u"cif");
        m.fecha = AFecha(rs.Fields(u"fecha").Value);
        m.maquina = rs.Texto(u"maquina");
        m.devuelta = AFecha(rs.Fields(u"devuelta").Value);
        m.maquinadevuelta = rs.Texto(u"maquinadevuelta");
        movimientos.push_back(m);
    }
    return movimientos;
}

QString ClienteDe(AppContext &ctx, const QString &interno) {
    Recordset rs;
    Consultar(ctx, internos,
              "select cuitcliente "
              "from caratula "
              "where interno = "_L1 +
                  EnComillas(interno),
              rs);
    return rs.Eof() ? QString() : rs.Texto(u"cuitcliente").trimmed();
}

QString ContieneEnAlguna(const QStringList &columnas, const QString &texto) {
    QStringList pruebas;
    for (const QString &columna : columnas)
        pruebas << columna + " like "_L1 + TextoEnComillas(u'%' + texto.trimmed() + u'%');
    return "("_L1 + pruebas.join(" or "_L1) + ")"_L1;
}

QString CantidadDicha(const AppContext &ctx, double cantidad, const QString &unidad) {
    const QString figura = numeros::Format(cantidad, MascaraDeCantidad(ctx), ctx.SeparadorDecimal);
    return unidad.isEmpty() ? figura : u"%1 (unidad %2)"_s.arg(figura, unidad);
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
        articulo.saldo = numeros::redondear(articulo.saldo, decimalesExtendidos);
        todos.push_back(articulo);
    }
    return todos;
}

std::vector<Oferta> OfertasDe(const AppContext &ctx, const std::vector<Linea> &lineas, const QDate &hoy) {
    std::vector<Oferta> ofertas;
    for (const Linea &l : lineas)
        ofertas.push_back({l, PlazoDe(l.vencimiento, hoy), LoQueAlcanza(ctx, l), 0});
    std::stable_partition(ofertas.begin(), ofertas.end(),
                          [](const Oferta &o) { return o.plazo != Plazo::Vencido; });
    return ofertas;
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
