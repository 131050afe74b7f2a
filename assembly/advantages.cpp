#include "assembly/run.h"
#include "header/automotive.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

void insertar(ContextoArmado &r, const QString &deItems, const QString &ventaja) {
    Recordset items;
    for (r.consultar(deItems, items); !items.Eof(); items.MoveNext())
        r.ejecutar("insert into itemventaja (iditem,interno,idventaja) values ("_L1 + items.Texto(u"ID") +
                   ",'"_L1 + r.interno + "','"_L1 + ventaja + "')"_L1);
}

/// A row of a client that has no regime and names a position is met by both passes; the second insert stands.
void insertarDelCliente(ContextoArmado &r, const QString &prueba, bool soloConPosicion) {
    const QString todos = "select id from item where interno = '"_L1 + r.interno + "' and id<>0"_L1;
    Recordset filas;
    for (r.consultar("select * from VentajasRel where cuit = '"_L1 + r.ClienteCuit + "' and "_L1 + prueba,
                     filas, u"PERSONAL"_s);
         !filas.Eof(); filas.MoveNext()) {
        const QString ncm = filas.Texto(u"NCM").trimmed();
        if (ncm.isEmpty() && soloConPosicion) continue;
        insertar(r, ncm.isEmpty() ? todos : todos + " and ncm like '"_L1 + ncm + "%'"_L1,
                 filas.Texto(u"idventaja"));
    }
}

void cierreICR(ContextoArmado &r, const QString &ncm, const Recordset &posicion) {
    if (posicion.Texto(u"estampillado").trimmed() == "*"_L1)
        r.ejecutar(
            "insert into ITEMINFO (IDITEM, IDINFO, VALOR, INTERNO) select "
            "id,'CANT.ESTAMPILLAS',cantidad,'"_L1 +
            r.interno + "' from item where interno = '"_L1 + r.interno + "' and ncm = '"_L1 + ncm +
            "' and idunidad = '07'"_L1);
    if (!r.ctx.CalculoAEC.isEmpty() && posicion.Texto(u"028") == "*"_L1) {
        PreguntarRegimenAutomotriz(r.ctx, r.interno);
        r.ctx.CalculoAEC = LeerAEC(r.ctx, r.interno, u"N"_s);
    }
}

}  // namespace

void VentajasDelCliente(ContextoArmado &r) {
    const QString sinRegimen = u"(idSubRegimen = '' or idSubRegimen is null)"_s;
    insertarDelCliente(r, "(idSubRegimen = '"_L1 + r.idsubreg + "' or "_L1 + sinRegimen + ")"_L1, false);
    insertarDelCliente(r, sinRegimen, true);
}

void CierreDelRegimen(ContextoArmado &r) {
    const QString &regimen = r.idsubreg;
    if (!regimen.startsWith("IC"_L1) && !regimen.startsWith("IG"_L1)) GuardarAEC(r.ctx, r.interno, u"N"_s);
    const bool icr = regimen.startsWith("ICR"_L1);
    if (!icr && regimen != "IG04"_L1 && regimen != "IG05"_L1 && regimen != "IG06"_L1) return;
    bool preguntado = false;
    bool agregar = false;
    Recordset rs;
    for (r.consultar("select distinct ncm from item where interno = '"_L1 + r.interno + "' and id<>0"_L1, rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString ncm = rs.Texto(u"ncm");
        Recordset posicion;
        for (r.consultar("select [028], [041] as estampillado, [059] as LAPI from ncm where [001] = '"_L1 +
                             ncm.left(10) + "' and [002] = '"_L1 + CortarPosicion(ncm).c002 + "'"_L1,
                         posicion, u"NCM"_s);
             !posicion.Eof(); posicion.MoveNext()) {
            if (icr) {
                cierreICR(r, ncm, posicion);
                continue;
            }
            if (posicion.Texto(u"028").trimmed() != "*"_L1 || posicion.Texto(u"LAPI").trimmed() != "*"_L1)
                continue;
            if (!preguntado) {
                preguntado = true;
                agregar = r.ctx.dialogos.preguntar(
                    {u"Hay Artículos con LAPI y Pertenecientes al Régimen automotriz\r\nDesea "
                     "agregarle la ventaja << "
                     "VEHICULOPARTES >>\r\n\r\n(Repuestos en IG04, IG05, IG06)"_s,
                     {},
                     Icono::Pregunta,
                     false});
            }
            if (agregar)
                r.ejecutar(
                    "insert into itemventaja (iditem,idventaja,interno) select id, "
                    "'VEHICULOPARTES', interno from item where interno = '"_L1 +
                    r.interno + "' and ncm = '"_L1 + ncm + "'"_L1);
        }
    }
}

void ProcesarVentajasVinculadas(ContextoArmado &r) {
    const QString interno = QLatin1Char('\'') + r.interno + QLatin1Char('\'');
    Recordset items;
    for (r.consultar("select id from item where interno = "_L1 + interno + " order by id"_L1, items);
         !items.Eof(); items.MoveNext()) {
        const QString id = items.Texto(u"ID");
        const QString grupos =
            "select idsub from groupsubitems where interno = "_L1 + interno + " and [id]= "_L1 + id;
        r.ejecutar(
            " insert into itemventaja (iditem, idventaja, interno)  select distinct "_L1 + id +
            ", ventaja, "_L1 + interno +
            " from articulo_ventaja as v where exists(      select ventaja from subitems as a      where "
            "interno = "_L1 +
            interno + " and  id in (          "_L1 + grupos +
            "         Union          select idsub from idrel where interno = "_L1 + interno +
            " and idroot in ("_L1 + grupos +
            ")     )      and a.idcatalogo = v.idcatalogo      and a.idarticulo = v.idarticulo  ) "_L1);
    }
}
