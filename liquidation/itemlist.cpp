#include "liquidation/itemlist.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

std::vector<ItemDeLista> ListarItems(AppContext &ctx, const QString &interno) {
    std::vector<ItemDeLista> items;
    Recordset rs;
    Consultar(ctx, entidad::internos,
              "select id,ncm, IdUnidad,estadistica,deresp,"
              " EstadoMerc, idpais, idproc,"
              " ITFILLER , descripcion"
              " from item"
              " where interno = "_L1 +
                  EnComillas(interno) + " and id >0 order by id"_L1,
              rs);
    items.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        items.push_back({rs.Texto(u"id"), numeros::Format(rs.Numero(u"id"), u"000", ctx.SeparadorDecimal),
                         rs.Texto(u"ncm"), rs.Texto(u"IdUnidad"), rs.Texto(u"estadistica"),
                         rs.Texto(u"deresp"), rs.Texto(u"EstadoMerc"), rs.Texto(u"idpais"),
                         rs.Texto(u"idproc"), rs.Texto(u"ITFILLER"), rs.Texto(u"descripcion")});
    return items;
}
