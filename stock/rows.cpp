#include "stock/rows.h"

#include <algorithm>
#include <tuple>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/startup.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

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

}  // namespace

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

std::vector<Oferta> OfertasDe(const AppContext &ctx, const std::vector<Linea> &lineas, const QDate &hoy) {
    std::vector<Oferta> ofertas;
    ofertas.reserve(lineas.size());
    for (const Linea &l : lineas)
        ofertas.push_back({l, PlazoDe(l.vencimiento, hoy), LoQueAlcanza(ctx, l), 0});
    std::stable_partition(ofertas.begin(), ofertas.end(),
                          [](const Oferta &o) { return o.plazo != Plazo::Vencido; });
    return ofertas;
}

}  // namespace stock
