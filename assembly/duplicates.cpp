// Invoices round: groups that differ only by a fraction of a cent in their price are one.

#include <array>

#include "assembly/phases.h"
#include "frame/base/values.h"
#include "frame/escritura.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

// Half the width of the closed interval around a candidate's own price.
constexpr auto tolerancia = "0.0099"_L1;

void leerCandidatos(const ContextoArmado &r, Recordset &rs) {
    r.consultar(
        u"select * from groupsubitems as a "
        "where a.interno = %1 "
        "and exists( select preciounitario,sufijos,idunidad,idpais,idpaisproc,"
        "ncm,descripcion,cancelaciones,codigoean, tipoitem, itfiller "
        "from groupsubitems as b "
        "where a.interno = %1 "
        "and a.preciounitario = b.preciounitario "
        "and a.sufijos = b.sufijos "
        "and a.idunidad = b.idunidad "
        "and a.idpais = b.idpais "
        "and a.idpaisproc = b.idpaisproc "
        "and a.itfiller = b.itfiller "
        "and a.ncm = b.ncm "
        "%2"
        "and sufijos in (select sufijos from groupsubitems "
        "where interno = %1 "
        "group by interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,"
        "estadistica,deresp,lapi,itfiller,cancelaciones,codigoean,tipoitem "
        "having count(*)>1) "
        "group by preciounitario,sufijos,idunidad,idpais,idpaisproc,"
        "ncm,descripcion,cancelaciones,codigoean,tipoitem,"
        "ONCCACategoria,ONCCACortes, itfiller) "_s.arg(
            r.clave(), r.esDJAI() ? "and a.descripcion = b.descripcion "_L1 : ""_L1),
        rs);
}

/// What stands on equal terms with the candidate, its price within the tolerance.
QString filtro(const ContextoArmado &r, const Recordset &candidato) {
    constexpr std::array<QStringView, 17> columnas{
        u"ncm",           u"descripcion", u"idpais",      u"idpaisproc",     u"sufijos",    u"idunidad",
        u"estadomerc",    u"biendeuso",   u"estadistica", u"deresp",         u"LAPI",       u"itfiller",
        u"cancelaciones", u"codigoean",   u"tipoitem",    u"ONCCACategoria", u"ONCCACortes"};
    QString texto = u"where interno = %1 and \r\n"_s.arg(r.clave());
    for (const QStringView columna : columnas) {
        if (columna == u"descripcion" && !r.esDJAI()) continue;
        texto += u"%1 = %2 and \r\n"_s.arg(columna, TextoEnComillas(candidato.Texto(columna)));
    }
    const QString precio = SqlNumber(r.ctx, candidato.Numero(u"preciounitario"));
    return texto + u"preciounitario between (%1 - %2) and (%1 + %2) "_s.arg(precio, tolerancia);
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
        RecordarPlegada(r, raiz, id);
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
        u"select count(preciounitario) as reg,interno,ncm,descripcion,%1 as unitario,"
        "idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,"
        "sum(cantidad) as sumcantidad,"
        "estadistica,sum(valorrelacionestadistica) as valorestadistica,"
        "deresp,sum(valorderesp) as sumvalorderesp,"
        "lapi,sum(kgneto) as sumkgneto,sum(kgbruto) as sumkgbruto,sum(fob) as sumfob,"
        "itfiller,sum(insumostemp) as suminsumostemp,sum(insumosacons) as suminsumosacons,"
        "cancelaciones,codigoean,tipoitem, ONCCACategoria, ONCCACortes, "
        "sum(ajusteincluir) as tajusteincluir, sum(ajustededucir) as tajustededucir "
        "from groupsubitems "
        "%2group by interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,"
        "estadistica,deresp,lapi,itfiller,cancelaciones,codigoean,tipoitem,"
        "ONCCACategoria , ONCCACortes"_s.arg(
            SqlRound(r.ctx, u"INTERNOS"_s, u"(sum(fob) / sum(cantidad))"_s, u"00.00000"), donde),
        rs);
    if (!hay) return;
    r.ejecutar("delete from groupsubitems "_L1 + donde);

    Escritura fusion(r.ctx);
    fusion.texto("idcatalogo", catalogo)
        .texto("idarticulo", articulo)
        .crudo("idsub", raiz)
        .codigo("interno", r.interno)
        .texto("ncm", rs.Texto(u"ncm"))
        .texto("descripcion", rs.Texto(u"descripcion"))
        .numero("preciounitario", rs.Numero(u"unitario"))
        .texto("idpais", rs.Texto(u"idpais"))
        .texto("idpaisproc", rs.Texto(u"idpaisproc"))
        .texto("sufijos", rs.Texto(u"sufijos"))
        .texto("idunidad", rs.Texto(u"idunidad"))
        .texto("estadomerc", rs.Texto(u"estadomerc"))
        .texto("biendeuso", rs.Texto(u"biendeuso"))
        .numero("CANTIDAD", rs.Numero(u"sumcantidad"))
        .texto("estadistica", rs.Texto(u"estadistica"))
        .numero("valorrelacionestadistica", rs.Numero(u"valorestadistica"))
        .texto("deresp", rs.Texto(u"deresp"))
        .numero("valorderesp", rs.Numero(u"sumvalorderesp"))
        .texto("lapi", rs.Texto(u"lapi"))
        .numero("kgneto", rs.Numero(u"sumkgneto"))
        .numero("kgbruto", rs.Numero(u"sumkgbruto"))
        .numero("fob", rs.Numero(u"sumfob"))
        .texto("itfiller", rs.Texto(u"itfiller"))
        .numero("insumostemp", rs.Numero(u"suminsumostemp"))
        .numero("insumosacons", rs.Numero(u"suminsumosacons"))
        .texto("cancelaciones", rs.Texto(u"cancelaciones"))
        .texto("codigoean", rs.Texto(u"codigoean"))
        // The blanks belong to the statement as it is sent.
        .texto(" tipoitem", rs.Texto(u"tipoitem"))
        .texto("ONCCACategoria ", rs.Texto(u"ONCCACategoria"))
        .texto(" ONCCACortes", rs.Texto(u"ONCCACortes"))
        .numero(" ajusteincluir", rs.Numero(u"tajusteincluir"))
        .numero(" ajustededucir", rs.Numero(u"tajustededucir"));
    r.ejecutar(u"INSERT INTO GROUPSUBITEMS(%1) values (%2)"_s.arg(fusion.columnas(), fusion.valores()));
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
    const QString encadenadas =
        u"select idroot, idsub from idrel as a "
        "where a.interno = %1 "
        "and exists (select idroot from idrel as b "
        "where  b.interno = %1 and a.idsub = b.idroot)"_s.arg(r.clave());
    Recordset cadenas;
    while (r.consultar(encadenadas, cadenas)) {
        for (; !cadenas.Eof(); cadenas.MoveNext())
            r.ejecutar(
                u"update idrel set idroot = %1 "
                "where interno = %2 and idroot = %3"_s.arg(cadenas.Texto(u"idroot"), r.clave(),
                                                           cadenas.Texto(u"idsub")));
    }
}
