// Advantages of the client, of the regime and of the articles.

#include "assembly/phases.h"
#include "frame/base/values.h"
#include "frame/escritura.h"
#include "header/automotive.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

void agregarAItems(const ContextoArmado &r, const QString &deItems, const QString &ventaja) {
    Recordset items;
    for (r.consultar(deItems, items); !items.Eof(); items.MoveNext())
        AgregarVentaja(r, items.Texto(u"ID"), ventaja);
}

/// A row of a client that has no regime and names a position is met by both passes; the second insert stands.
void insertarDelCliente(ContextoArmado &r, const QString &prueba, bool soloConPosicion) {
    const QString todos =
        u"select id from item "
        "where interno = %1 and id<>0"_s.arg(r.clave());
    Recordset filas;
    r.consultar(
        u"select * from VentajasRel "
        "where cuit = %1 and %2"_s.arg(EnComillas(r.ClienteCuit), prueba),
        filas, u"PERSONAL"_s);
    for (; !filas.Eof(); filas.MoveNext()) {
        const QString ncm = filas.Texto(u"NCM").trimmed();
        if (ncm.isEmpty() && soloConPosicion) continue;
        agregarAItems(r, ncm.isEmpty() ? todos : todos + " and ncm like "_L1 + TextoEnComillas(ncm + u'%'),
                      filas.Texto(u"idventaja"));
    }
}

QString sentenciaDeMarcas(const QString &ncm) {
    return u"select [028], [041] as estampillado, [059] as LAPI "
           "from ncm "
           "where [001] = %1 and [002] = %2"_s.arg(EnComillas(ncm.left(10)),
                                                   EnComillas(CortarPosicion(ncm).c002));
}

void cierreICR(ContextoArmado &r, const QString &ncm, const Recordset &posicion) {
    if (posicion.Texto(u"estampillado").trimmed() == "*"_L1)
        r.mandar(
            u"insert into ITEMINFO (IDITEM, IDINFO, VALOR, INTERNO) "
            "select id,'CANT.ESTAMPILLAS',cantidad,%1 "
            "from item "
            "where interno = %1 and ncm = %2 and idunidad = '07'"_s.arg(r.clave(), EnComillas(ncm)));
    if (!r.ctx.CalculoAEC.isEmpty() && posicion.Texto(u"028") == "*"_L1) {
        r.asentar();
        PreguntarRegimenAutomotriz(r.ctx, r.interno);
        r.ctx.CalculoAEC = LeerAEC(r.ctx, r.interno, u"N"_s);
    }
}

}  // namespace

void AgregarVentaja(const ContextoArmado &r, const QString &iditem, const QString &idventaja) {
    r.mandar(Escritura(r.ctx)
                 .crudo("iditem", iditem)
                 .codigo("interno", r.interno)
                 .codigo("idventaja", idventaja)
                 .insertar(u"itemventaja"_s));
}

void VentajasDelCliente(ContextoArmado &r) {
    const QString sinRegimen = u"(idSubRegimen = '' or idSubRegimen is null)"_s;
    insertarDelCliente(r, u"(idSubRegimen = %1 or %2)"_s.arg(EnComillas(r.idsubreg), sinRegimen), false);
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
    r.consultar(
        u"select distinct ncm from item "
        "where interno = %1 and id<>0"_s.arg(r.clave()),
        rs);
    std::vector<QStringList> preguntas;
    for (; !rs.Eof(); rs.MoveNext()) preguntas.push_back({sentenciaDeMarcas(rs.Texto(u"ncm"))});
    LecturaAdelantada adelantada(r.ctx.conexion(u"NCM"_s), std::move(preguntas));
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const QString ncm = rs.Texto(u"ncm");
        Recordset posicion;
        adelantada.Vuelta();
        r.consultar(sentenciaDeMarcas(ncm), posicion, u"NCM"_s);
        for (; !posicion.Eof(); posicion.MoveNext()) {
            if (icr) {
                cierreICR(r, ncm, posicion);
                continue;
            }
            if (posicion.Texto(u"028").trimmed() != "*"_L1 || posicion.Texto(u"LAPI").trimmed() != "*"_L1)
                continue;
            if (!preguntado) {
                preguntado = true;
                r.asentar();
                agregar = r.ctx.dialogos.preguntar(
                    {u"Hay Artículos con LAPI y Pertenecientes al Régimen automotriz\r\n"
                     "Desea agregarle la ventaja << VEHICULOPARTES >>\r\n\r\n"
                     "(Repuestos en IG04, IG05, IG06)"_s,
                     {},
                     Icono::Pregunta,
                     false});
            }
            if (agregar)
                r.mandar(
                    u"insert into itemventaja (iditem,idventaja,interno) "
                    "select id, 'VEHICULOPARTES', interno "
                    "from item "
                    "where interno = %1 and ncm = %2"_s.arg(r.clave(), EnComillas(ncm)));
        }
    }
}

void ProcesarVentajasVinculadas(ContextoArmado &r) {
    Recordset items;
    r.consultar(
        u"select id from item "
        "where interno = %1 order by id"_s.arg(r.clave()),
        items);
    for (; !items.Eof(); items.MoveNext()) {
        r.mandar(
            u" insert into itemventaja (iditem, idventaja, interno) "
            " select distinct %2, ventaja, %1 "
            "from articulo_ventaja as v "
            "where exists( "
            "     select ventaja from subitems as a "
            "     where interno = %1 and  id in ( "
            "         select idsub from groupsubitems where interno = %1 and [id]= %2"
            "         Union "
            "         select idsub from idrel where interno = %1 and idroot in ("
            "select idsub from groupsubitems where interno = %1 and [id]= %2"
            ")     ) "
            "     and a.idcatalogo = v.idcatalogo "
            "     and a.idarticulo = v.idarticulo "
            " ) "_s.arg(r.clave(), items.Texto(u"ID")));
    }
}
