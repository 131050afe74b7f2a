#include "assembly/run.h"
#include "header/automotive.h"
#include "subitems/nomenclature.h"

namespace {

using L = QLatin1String;

void insertar(ContextoArmado &r, const QString &deItems, const QString &ventaja) {
    Recordset items;
    for (r.consultar(deItems, items); !items.Eof(); items.MoveNext())
        r.ejecutar(L("insert into itemventaja (iditem,interno,idventaja) values (") + items.Texto(u"ID") +
                   L(",'") + r.interno + L("','") + ventaja + L("')"));
}

/// A row of a client that has no regime and names a position is met by both passes; the second insert stands.
void insertarDelCliente(ContextoArmado &r, const QString &prueba, bool soloConPosicion) {
    const QString todos = L("select id from item where interno = '") + r.interno + L("' and id<>0");
    Recordset filas;
    for (r.consultar(L("select * from VentajasRel where cuit = '") + r.ClienteCuit + L("' and ") + prueba,
                     filas, QStringLiteral("PERSONAL"));
         !filas.Eof(); filas.MoveNext()) {
        const QString ncm = filas.Texto(u"NCM").trimmed();
        if (ncm.isEmpty() && soloConPosicion) continue;
        insertar(r, ncm.isEmpty() ? todos : todos + L(" and ncm like '") + ncm + L("%'"),
                 filas.Texto(u"idventaja"));
    }
}

void cierreICR(ContextoArmado &r, const QString &ncm, const Recordset &posicion) {
    if (posicion.Texto(u"estampillado").trimmed() == L("*"))
        r.ejecutar(L("insert into ITEMINFO (IDITEM, IDINFO, VALOR, INTERNO) select "
                     "id,'CANT.ESTAMPILLAS',cantidad,'") +
                   r.interno + L("' from item where interno = '") + r.interno + L("' and ncm = '") + ncm +
                   L("' and idunidad = '07'"));
    if (!r.ctx.CalculoAEC.isEmpty() && posicion.Texto(u"028") == L("*")) {
        PreguntarRegimenAutomotriz(r.ctx, r.interno);
        r.ctx.CalculoAEC = LeerAEC(r.ctx, r.interno, QStringLiteral("N"));
    }
}

}  // namespace

void VentajasDelCliente(ContextoArmado &r) {
    const QString sinRegimen = QStringLiteral("(idSubRegimen = '' or idSubRegimen is null)");
    insertarDelCliente(r, L("(idSubRegimen = '") + r.idsubreg + L("' or ") + sinRegimen + L(")"), false);
    insertarDelCliente(r, sinRegimen, true);
}

void CierreDelRegimen(ContextoArmado &r) {
    const QString &regimen = r.idsubreg;
    if (!regimen.startsWith(L("IC")) && !regimen.startsWith(L("IG")))
        GuardarAEC(r.ctx, r.interno, QStringLiteral("N"));
    const bool icr = regimen.startsWith(L("ICR"));
    if (!icr && regimen != L("IG04") && regimen != L("IG05") && regimen != L("IG06")) return;
    bool preguntado = false;
    bool agregar = false;
    Recordset rs;
    for (r.consultar(L("select distinct ncm from item where interno = '") + r.interno + L("' and id<>0"), rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString ncm = rs.Texto(u"ncm");
        Recordset posicion;
        for (r.consultar(L("select [028], [041] as estampillado, [059] as LAPI from ncm where [001] = '") +
                             ncm.left(10) + L("' and [002] = '") + CortarPosicion(ncm).c002 + L("'"),
                         posicion, QStringLiteral("NCM"));
             !posicion.Eof(); posicion.MoveNext()) {
            if (icr) {
                cierreICR(r, ncm, posicion);
                continue;
            }
            if (posicion.Texto(u"028").trimmed() != L("*") || posicion.Texto(u"LAPI").trimmed() != L("*"))
                continue;
            if (!preguntado) {
                preguntado = true;
                agregar = r.ctx.dialogos.preguntar(
                    {QStringLiteral("Hay Artículos con LAPI y Pertenecientes al Régimen automotriz\r\nDesea "
                                    "agregarle la ventaja << "
                                    "VEHICULOPARTES >>\r\n\r\n(Repuestos en IG04, IG05, IG06)"),
                     {},
                     Icono::Pregunta,
                     false});
            }
            if (agregar)
                r.ejecutar(L("insert into itemventaja (iditem,idventaja,interno) select id, "
                             "'VEHICULOPARTES', interno from item where interno = '") +
                           r.interno + L("' and ncm = '") + ncm + L("'"));
        }
    }
}

void ProcesarVentajasVinculadas(ContextoArmado &r) {
    const QString interno = QLatin1Char('\'') + r.interno + QLatin1Char('\'');
    Recordset items;
    for (r.consultar(L("select id from item where interno = ") + interno + L(" order by id"), items);
         !items.Eof(); items.MoveNext()) {
        const QString id = items.Texto(u"ID");
        const QString grupos =
            L("select idsub from groupsubitems where interno = ") + interno + L(" and [id]= ") + id;
        r.ejecutar(
            L(" insert into itemventaja (iditem, idventaja, interno)  select distinct ") + id +
            L(", ventaja, ") + interno +
            L(" from articulo_ventaja as v where exists(      select ventaja from subitems as a      where "
              "interno = ") +
            interno + L(" and  id in (          ") + grupos +
            L("         Union          select idsub from idrel where interno = ") + interno +
            L(" and idroot in (") + grupos +
            L(")     )      and a.idcatalogo = v.idcatalogo      and a.idarticulo = v.idarticulo  ) "));
    }
}
