#include "stock/loadlines.h"

#include <map>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

QString deLaClave(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

/// The item of each line, over its root where it was folded.
std::map<qint64, int> itemsDeLineasDe(AppContext &ctx, const QString &interno) {
    std::map<qint64, int> items;
    Recordset rs;
    for (Consultar(ctx, internos, "select id,idsub from groupsubitems"_L1 + deLaClave(interno), rs);
         !rs.Eof(); rs.MoveNext())
        items[static_cast<qint64>(rs.Numero(u"idsub"))] = static_cast<int>(rs.Numero(u"id"));
    for (Consultar(ctx, internos, "select idroot,idsub from idrel"_L1 + deLaClave(interno), rs); !rs.Eof();
         rs.MoveNext())
        if (const auto raiz = items.find(static_cast<qint64>(rs.Numero(u"idroot"))); raiz != items.end())
            items[static_cast<qint64>(rs.Numero(u"idsub"))] = raiz->second;
    return items;
}

/// The CIF of each item in the FOB currency: freight and insurance are turned into it at the rates of the
/// header.
std::map<int, double> cifDeItems(AppContext &ctx, const QString &interno, const Recordset &caratula) {
    const double fob = caratula.Numero(u"fobdivcambio");
    const auto enFob = [fob](double importe, double cambio) {
        return fob > 0 && cambio > 0 ? importe * cambio / fob : importe;
    };
    const double flete = caratula.Numero(u"fletedivcambio");
    const double seguro = caratula.Numero(u"segurodivcambio");
    std::map<int, double> cif;
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select id,fobtotal,itflete,itseguro,ajusteinc,ajusteded from item"_L1 +
                       deLaClave(interno) + " and id <> 0"_L1,
                   rs);
         !rs.Eof(); rs.MoveNext())
        cif[static_cast<int>(rs.Numero(u"id"))] = numeros::redondear(
            rs.Numero(u"fobtotal") + enFob(rs.Numero(u"itflete"), flete) +
                enFob(rs.Numero(u"itseguro"), seguro) + rs.Numero(u"ajusteinc") - rs.Numero(u"ajusteded"),
            decimalesDeImporte);
    return cif;
}

/// A line of the operation with what its share of the CIF goes by.
struct LineaConPeso {
    Linea linea;
    double fob = 0;
};

/// Spreads the CIF of an item over its lines by their FOB, by their quantity where there is none; the sum is
/// the item's to the cent.
void repartirCif(std::vector<LineaConPeso> &lineas, double cif) {
    double total = 0;
    for (const LineaConPeso &l : lineas) total += l.fob;
    const bool porCantidad = total <= 0;
    if (porCantidad)
        for (const LineaConPeso &l : lineas) total += l.linea.cantidad;
    double corrido = 0;
    double repartido = 0;
    int subitem = 0;
    for (LineaConPeso &l : lineas) {
        corrido += porCantidad ? l.linea.cantidad : l.fob;
        const double hasta = total > 0 ? numeros::redondear(cif * corrido / total, decimalesDeImporte) : 0;
        l.linea.cif = numeros::redondear(hasta - repartido, decimalesDeImporte);
        repartido = hasta;
        l.linea.subitem = ++subitem;
    }
}

Linea leerLineaDeOperacion(const Recordset &rs) {
    Linea l;
    l.idlinea = static_cast<qint64>(rs.Numero(u"id"));
    l.ncm = rs.Texto(u"ncm");
    l.idcatalogo = rs.Texto(u"idcatalogo");
    l.idarticulo = rs.Texto(u"idarticulo");
    l.descripcion = rs.Texto(u"descripcion");
    l.idunidad = rs.Texto(u"idunidad");
    l.cantidad = numeros::redondear(rs.Numero(u"cantidad"), decimalesDeSaldo);
    l.preciounitario = rs.Numero(u"preciounitario");
    l.idpais = rs.Texto(u"idpais");
    l.sufijos = rs.Texto(u"sufijos");
    return l;
}

}  // namespace

std::vector<Linea> LineasCargadas(AppContext &ctx, const QString &interno) {
    return LeerLineas(ctx, "interno = "_L1 + EnComillas(interno) + " and idlinea <> 0"_L1);
}

std::vector<Linea> LineasDeOperacion(AppContext &ctx, const QString &interno,
                                     const DatosDeDeclaracion &datos) {
    Recordset caratula;
    if (!Consultar(ctx, internos,
                   "select cuitcliente,fobcoddivisas,fobdivcambio,fletedivcambio,segurodivcambio "
                   "from caratula"_L1 +
                       deLaClave(interno),
                   caratula))
        return {};
    const std::map<qint64, int> items = itemsDeLineasDe(ctx, interno);
    std::map<int, std::vector<LineaConPeso>> porItem;
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select id,ncm,idcatalogo,idarticulo,descripcion,idunidad,cantidad,preciounitario,fob,"
                   "idpais,sufijos "
                   "from subitems"_L1 +
                       deLaClave(interno) + " order by id"_L1,
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        Linea l = leerLineaDeOperacion(rs);
        const auto item = items.find(l.idlinea);
        // Nothing entered by a line without a quantity, which no group has either.
        if (item == items.end() || l.cantidad <= 0) continue;
        l.item = item->second;
        l.dit = datos.dit.trimmed().toUpper();
        l.fecha = datos.fecha;
        l.vencimiento = datos.vencimiento;
        l.expctit = datos.expctit.trimmed();
        l.merma = datos.merma;
        l.divisa = caratula.Texto(u"fobcoddivisas");
        l.cuitcliente = caratula.Texto(u"cuitcliente").trimmed();
        l.interno = interno;
        porItem[l.item].push_back({l, rs.Numero(u"fob")});
    }
    std::map<int, double> cif = cifDeItems(ctx, interno, caratula);
    std::vector<Linea> todas;
    for (auto &[item, lineas] : porItem) {
        repartirCif(lineas, cif[item]);
        for (const LineaConPeso &l : lineas) todas.push_back(l.linea);
    }
    return todas;
}

}  // namespace stock
