// Invoices round: groups that differ only by a fraction of a cent in their price are one.

#include <array>

#include "assembly/run.h"
#include "assembly/sql_text.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

// Half the width of the closed interval around a candidate's own price.
constexpr auto tolerancia = "0.0099"_L1;

void leerCandidatos(const ContextoArmado &r, Recordset &rs) {
    const QString clave = EnComillas(r.interno);
    r.consultar(
        "select * from groupsubitems as a where a.interno = "_L1 + clave +
            " and exists( select "
            "preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,cancelaciones,codigoean, "
            "tipoitem, "
            "itfiller from groupsubitems as b where a.interno = "_L1 +
            clave +
            " and a.preciounitario = b.preciounitario and a.sufijos = b.sufijos and a.idunidad = b.idunidad "
            "and "
            "a.idpais = b.idpais and a.idpaisproc = b.idpaisproc and a.itfiller = b.itfiller and a.ncm = b.ncm "_L1 +
            (r.esDJAI() ? "and a.descripcion = b.descripcion "_L1 : ""_L1) +
            "and sufijos in (select sufijos from groupsubitems where interno = "_L1 + clave +
            " group by "
            "interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,"
            "deresp,"
            "lapi,itfiller,cancelaciones,codigoean,tipoitem having count(*)>1) group by "
            "preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,cancelaciones,codigoean,"
            "tipoitem,"
            "ONCCACategoria,ONCCACortes, itfiller) "_L1,
        rs);
}

/// What stands on equal terms with the candidate, its price within the tolerance.
QString filtro(const ContextoArmado &r, const Recordset &candidato) {
    constexpr std::array<QStringView, 17> columnas{
        u"ncm",           u"descripcion", u"idpais",      u"idpaisproc",     u"sufijos",    u"idunidad",
        u"estadomerc",    u"biendeuso",   u"estadistica", u"deresp",         u"LAPI",       u"itfiller",
        u"cancelaciones", u"codigoean",   u"tipoitem",    u"ONCCACategoria", u"ONCCACortes"};
    QString texto = "where interno = "_L1 + EnComillas(r.interno) + " and \r\n"_L1;
    for (const QStringView columna : columnas) {
        if (columna == u"descripcion" && !r.esDJAI()) continue;
        texto += columna.toString() + " = "_L1 + EnComillas(DoblarComillas(candidato.Texto(columna))) +
                 " and \r\n"_L1;
    }
    const QString precio = SqlNumber(r.ctx, candidato.Numero(u"preciounitario"));
    return texto + "preciounitario between ("_L1 + precio + " - "_L1 + tolerancia + ") and ("_L1 + precio +
           " + "_L1 + tolerancia + ") "_L1;
}

/// The root of the groups of `donde`; the others are remembered as folded into it. Empty when none is left,
/// which happens to a candidate that another has taken.
QString plegarRaices(const ContextoArmado &r, const QString &donde) {
    Recordset rs;
    if (!r.consultar("select idsub, cancelaciones from groupsubitems "_L1 + donde + "order by idsub asc"_L1,
                     rs))
        return {};
    QString raiz = rs.Texto(u"idsub");
    const bool cancela = rs.Texto(u"cancelaciones").trimmed() == "OK"_L1;
    QStringList plegadas;
    for (rs.MoveNext(); !rs.Eof(); rs.MoveNext()) {
        const QString id = rs.Texto(u"idsub");
        // A link of a root to itself would never leave the chains.
        if (id == raiz) continue;
        r.ejecutar("insert into idrel (interno,idroot,idsub) values ("_L1 + EnComillas(r.interno) + ','_L1 +
                   raiz + ", "_L1 + id + ')'_L1);
        plegadas << id;
    }
    if (cancela) EnviarGrupo(r, raiz.toLongLong(), plegadas);
    return raiz;
}

void fundir(const ContextoArmado &r, const QString &donde, const QString &raiz) {
    Recordset articulos;
    r.consultar("select distinct idarticulo,idcatalogo from groupsubitems "_L1 + donde, articulos);
    const bool uno = articulos.RecordCount() == 1;
    const QString articulo = uno ? articulos.Texto(u"idarticulo") : u"agrupado!"_s;
    const QString catalogo = uno ? articulos.Texto(u"idcatalogo") : u"agrupado!"_s;

    Recordset rs;
    const bool hay = r.consultar(
        "select count(preciounitario) as reg,interno,ncm,descripcion,"_L1 +
            SqlRound(r.ctx, u"INTERNOS"_s, u"(sum(fob) / sum(cantidad))"_s, u"00.00000") +
            " as unitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,sum(cantidad) as "
            "sumcantidad,estadistica,sum(valorrelacionestadistica) as "
            "valorestadistica,deresp,sum(valorderesp) as "
            "sumvalorderesp,lapi,sum(kgneto) as sumkgneto,sum(kgbruto) as sumkgbruto,sum(fob) as "
            "sumfob,itfiller,sum(insumostemp) as suminsumostemp,sum(insumosacons) as "
            "suminsumosacons,cancelaciones,codigoean,tipoitem, ONCCACategoria, ONCCACortes, "
            "sum(ajusteincluir) as "
            "tajusteincluir, sum(ajustededucir) as tajustededucir from groupsubitems "_L1 +
            donde +
            "group by "
            "interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,"
            "deresp,"
            "lapi,itfiller,cancelaciones,codigoean,tipoitem,ONCCACategoria , ONCCACortes"_L1,
        rs);
    if (!hay) return;

    const auto texto = [&r, &rs](QStringView columna) {
        return ",'"_L1 + DoblarComillas(rs.Texto(columna)) + '\''_L1;
    };
    const auto numero = [&r, &rs](QStringView columna) {
        return ','_L1 + SqlNumber(r.ctx, rs.Numero(columna));
    };
    r.ejecutar("delete from groupsubitems "_L1 + donde);
    r.ejecutar(
        "INSERT INTO "
        "GROUPSUBITEMS(idcatalogo,idarticulo,idsub,interno,ncm,descripcion,preciounitario,idpais,idpaisproc,"
        "sufijos,"
        "idunidad,estadomerc,biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,valorderesp,lapi,"
        "kgneto,"
        "kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,codigoean, tipoitem,ONCCACategoria , "
        "ONCCACortes, ajusteincluir, ajustededucir) values ("_L1 +
        EnComillas(DoblarComillas(catalogo)) + ','_L1 + EnComillas(DoblarComillas(articulo)) + ','_L1 + raiz +
        ','_L1 + EnComillas(r.interno) + texto(u"ncm") + texto(u"descripcion") + numero(u"unitario") +
        texto(u"idpais") + texto(u"idpaisproc") + texto(u"sufijos") + texto(u"idunidad") +
        texto(u"estadomerc") + texto(u"biendeuso") + numero(u"sumcantidad") + texto(u"estadistica") +
        numero(u"valorestadistica") + texto(u"deresp") + numero(u"sumvalorderesp") + texto(u"lapi") +
        numero(u"sumkgneto") + numero(u"sumkgbruto") + numero(u"sumfob") + texto(u"itfiller") +
        numero(u"suminsumostemp") + numero(u"suminsumosacons") + texto(u"cancelaciones") +
        texto(u"codigoean") + texto(u"tipoitem") + texto(u"ONCCACategoria") + texto(u"ONCCACortes") +
        numero(u"tajusteincluir") + numero(u"tajustededucir") + ')'_L1);
}

}  // namespace

void lp_BuscarDuplicados(ContextoArmado &r) {
    Recordset candidatos;
    leerCandidatos(r, candidatos);
    for (; !candidatos.Eof(); candidatos.MoveNext()) {
        const QString donde = filtro(r, candidatos);
        const QString raiz = plegarRaices(r, donde);
        if (!raiz.isEmpty()) fundir(r, donde, raiz);
    }
}

void UnificarIdRELbyInterno(ContextoArmado &r) {
    const QString clave = EnComillas(r.interno);
    Recordset cadenas;
    while (r.consultar("select idroot, idsub from idrel as a where a.interno = "_L1 + clave +
                           " and exists (select idroot from idrel as b where  b.interno = "_L1 + clave +
                           " and a.idsub = b.idroot)"_L1,
                       cadenas)) {
        for (; !cadenas.Eof(); cadenas.MoveNext())
            r.ejecutar("update idrel set idroot = "_L1 + cadenas.Texto(u"idroot") + " where interno = "_L1 +
                       clave + " and idroot = "_L1 + cadenas.Texto(u"idsub"));
    }
}
