#include "assembly/run.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;

QString candidatos(const ContextoArmado &r) {
    return L("select * from groupsubitems as a where a.interno = '") + r.interno +
           L("' and exists( select preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,cancelaciones,codigoean, tipoitem, itfiller from "
             "groupsubitems as b where a.interno = '") +
           r.interno +
           L("' and a.preciounitario = b.preciounitario and a.sufijos = b.sufijos and a.idunidad = b.idunidad and a.idpais = b.idpais and "
             "a.idpaisproc = b.idpaisproc and a.itfiller = b.itfiller and a.ncm = b.ncm ") +
           (r.esDJAI() ? L("and a.descripcion = b.descripcion ") : L("")) +
           L("and sufijos in (select sufijos from groupsubitems where interno = '") + r.interno +
           L("' group by interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,lapi,itfiller,"
             "cancelaciones,codigoean,tipoitem having count(*)>1) group by preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,"
             "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, itfiller) ");
}

/// The groups that are the candidate's but for less than a cent in the price.
QString filtro(const ContextoArmado &r, const Recordset &c) {
    static constexpr const char *columnas[] = {"ncm",    "descripcion", "idpais", "idpaisproc",    "sufijos",   "idunidad", "estadomerc",     "biendeuso",  "estadistica",
                                               "deresp", "LAPI",        "itfiller", "cancelaciones", "codigoean", "tipoitem", "ONCCACategoria", "ONCCACortes"};
    QString texto = L("where interno = '") + r.interno + L("' and \r\n");
    for (const char *columna : columnas) {
        if (L(columna) == L("descripcion") && !r.esDJAI()) continue;
        texto += L(columna) + L(" = '") + DoblarComillas(c.Texto(QString(L(columna)))) + L("' and \r\n");
    }
    const QString p = SqlNumber(c.Numero(u"preciounitario"));
    return texto + L("preciounitario between (") + p + L(" - 0.0099) and (") + p + L(" + 0.0099) ");
}

/// The root of the fold; the others get their link.
QString plegar(ContextoArmado &r, const QString &filtrado) {
    Recordset rs;
    if (!r.consultar(L("select idsub, cancelaciones from groupsubitems ") + filtrado + L("order by idsub asc"), rs)) return QStringLiteral("NULL");
    const QString raiz = rs.EsNulo(u"IdSub") ? QStringLiteral("NULL") : rs.Texto(u"IdSub");
    const QString cancelaciones = rs.Texto(u"cancelaciones").trimmed();
    QStringList plegadas;
    for (rs.MoveNext(); !rs.Eof(); rs.MoveNext()) {
        const QString id = rs.Texto(u"IdSub");
        if (id.isEmpty() || id == raiz) continue;
        r.ejecutar(L("insert into idrel (interno,idroot,idsub) values ('") + r.interno + L("',") + raiz + L(", ") + id + L(")"));
        plegadas << id;
    }
    if (cancelaciones == L("OK") && r.go_InputsLink.EnviarGrupoIdSub &&
        !r.go_InputsLink.EnviarGrupoIdSub(r.interno, raiz.toLongLong(), plegadas.join(QLatin1Char('|'))))
        throw ErrorDeStore{0, QStringLiteral("go_InputsLink.EnviarGrupoIdSub"), QStringLiteral("Error en enviar vinculación de subitems a insumos"), {}};
    return raiz;
}

void fundir(ContextoArmado &r, const QString &filtrado, const QString &raiz, const QString &catalogo, const QString &articulo) {
    Recordset m;
    const bool hay = r.consultar(
        L("select count(preciounitario) as reg,interno,ncm,descripcion,") + SqlRound(QStringLiteral("INTERNOS"), QStringLiteral("(sum(fob) / sum(cantidad))"), u"00.00000") +
            L(" as unitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,sum(cantidad) as sumcantidad,estadistica,sum(valorrelacionestadistica) as "
              "valorestadistica,deresp,sum(valorderesp) as sumvalorderesp,lapi,sum(kgneto) as sumkgneto,sum(kgbruto) as sumkgbruto,sum(fob) as "
              "sumfob,itfiller,sum(insumostemp) as suminsumostemp,sum(insumosacons) as suminsumosacons,cancelaciones,codigoean,tipoitem, "
              "ONCCACategoria, ONCCACortes, sum(ajusteincluir) as tajusteincluir, sum(ajustededucir) as tajustededucir from groupsubitems ") +
            filtrado +
            L("group by interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,lapi,itfiller,cancelaciones,codigoean,"
              "tipoitem,ONCCACategoria , ONCCACortes"),
        m);
    if (!hay) return;
    const auto texto = [&m](QStringView columna) { return QLatin1Char('\'') + DoblarComillas(m.Texto(columna)) + QLatin1Char('\''); };
    const auto numero = [&m](QStringView columna) { return SqlNumber(m.Numero(columna)); };
    r.ejecutar(L("delete from groupsubitems ") + filtrado);
    const QStringList valores{QLatin1Char('\'') + catalogo + QLatin1Char('\''),
                              QLatin1Char('\'') + articulo + QLatin1Char('\''),
                              raiz,
                              texto(u"interno"),
                              texto(u"ncm"),
                              texto(u"descripcion"),
                              numero(u"unitario"),
                              texto(u"idpais"),
                              texto(u"idpaisproc"),
                              texto(u"sufijos"),
                              texto(u"idunidad"),
                              texto(u"estadomerc"),
                              texto(u"biendeuso"),
                              numero(u"sumcantidad"),
                              texto(u"estadistica"),
                              numero(u"valorestadistica"),
                              texto(u"deresp"),
                              numero(u"sumvalorderesp"),
                              texto(u"lapi"),
                              numero(u"sumkgneto"),
                              numero(u"sumkgbruto"),
                              numero(u"sumfob"),
                              texto(u"itfiller"),
                              numero(u"suminsumostemp"),
                              numero(u"suminsumosacons"),
                              texto(u"cancelaciones"),
                              texto(u"codigoean"),
                              texto(u"tipoitem"),
                              texto(u"ONCCACategoria"),
                              texto(u"ONCCACortes"),
                              numero(u"tajusteincluir"),
                              numero(u"tajustededucir")};
    r.ejecutar(L("INSERT INTO GROUPSUBITEMS(idcatalogo,idarticulo,idsub,interno,ncm,descripcion,preciounitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,"
                 "biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,valorderesp,lapi,kgneto,kgbruto,fob,itfiller,insumostemp,insumosacons,"
                 "cancelaciones,codigoean, tipoitem,ONCCACategoria , ONCCACortes, ajusteincluir, ajustededucir) values (") +
               valores.join(QLatin1Char(',')) + L(")"));
}

}  // namespace

void lp_BuscarDuplicados(ContextoArmado &r) {
    Recordset c;
    for (r.consultar(candidatos(r), c); !c.Eof(); c.MoveNext()) {
        const QString filtrado = filtro(r, c);
        const QString raiz = plegar(r, filtrado);
        // An earlier candidate took this one along.
        if (raiz == L("NULL")) continue;
        Recordset articulos;
        r.consultar(L("select distinct idarticulo,idcatalogo from groupsubitems ") + filtrado, articulos);
        const bool uno = articulos.RecordCount() == 1;
        const QString agrupado = QStringLiteral("agrupado!");
        fundir(r, filtrado, raiz, uno ? articulos.Texto(u"idcatalogo") : agrupado, uno ? articulos.Texto(u"idarticulo") : agrupado);
    }
}

void UnificarIdRELbyInterno(ContextoArmado &r) {
    const QString cadenas = L("select idroot, idsub from idrel as a where a.interno = '") + r.interno +
                            L("' and exists (select idroot from idrel as b where  b.interno = '") + r.interno + L("' and a.idsub = b.idroot)");
    Recordset rs;
    while (r.consultar(cadenas, rs))
        for (; !rs.Eof(); rs.MoveNext())
            r.ejecutar(L("update idrel set idroot = ") + rs.Texto(u"idRoot") + L(" where interno = '") + r.interno + L("' and idroot = ") + rs.Texto(u"IdSub"));
}
