#include "assembly/run.h"
#include "frame/numbers.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;

QString cerrado(const ContextoArmado &r, const char *sentencia) { return L(sentencia) + r.interno + L("'"); }

/// " and column ='value'" as the link spells it.
QString igual(const char *columna, const QString &valor) { return L(columna) + L("'") + valor + L("'"); }

void insertarGrupos(ContextoArmado &r) {
    const bool d = r.condicionDescripcion();
    const QString interno = QLatin1Char('\'') + r.interno + QLatin1Char('\'');
    const QString descripcion = d ? QStringLiteral(",Descripcion_Maria") : QString();
    const QString lista = L("interno,ncm,preciounitario") + descripcion +
                          L(",idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,cantidad ,estadistica,valorrelacionestadistica,deresp,"
                            "valorderesp,codprorrateo,kgneto,kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,codigoean,tipoitem,"
                            "ONCCACategoria,ONCCACortes, ajusteincluir, ajustededucir");
    r.ejecutar(L("INSERT INTO GROUPSUBITEMS (interno,ncm,preciounitario") + (d ? L(", Descripcion") : L("")) +
               L(",idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,valorderesp,"
                 "codprorrateo,kgneto,kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, "
                 "ajusteincluir, ajustededucir) \r\n") +
               L("select interno,ncm,preciounitario") + descripcion +
               L(",idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,sum(cantidad) as sumcantidad,estadistica,sum(valorrelacionestadistica) "
                 "as valorestadistica,deresp,sum(valorderesp) as sumvalorderesp,codprorrateo,sum(kgneto),sum(kgbruto),sum(fob),itfiller,"
                 "sum(insumostemp),sum(insumosacons),cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, sum(ajusteincluir), "
                 "sum(ajustededucir)\r\n") +
               L("from  (select ") + (d ? lista : QStringLiteral("*")) + L(" from subitems where interno = ") + interno + L(") as a \r\n") +
               L("where interno = ") + interno + L(" group by interno,ncm,preciounitario,") + (d ? L(" Descripcion_Maria ,") : L("")) +
               L(" idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,codprorrateo,itfiller,cancelaciones,codigoean,"
                 "tipoitem,ONCCACategoria,ONCCACortes "));
}

constexpr const char *rellenosDeGrupos[] = {
    "update groupsubitems set valorrelacionestadistica = cantidad where idunidad = estadistica and valorrelacionestadistica = 0 and interno = '",
    "update groupsubitems set valorderesp = cantidad where idunidad = deresp and valorderesp = 0 and interno = '",
    "update groupsubitems set valorrelacionestadistica = valorderesp where deresp = estadistica and valorrelacionestadistica = 0 and interno = '",
    "update groupsubitems set valorrelacionestadistica = kgneto where (estadistica = '01' and valorrelacionestadistica=0) and kgneto > 0 and "
    "interno = '",
    "update groupsubitems set kgneto = cantidad where (idunidad = '01' and estadistica = '01' and cantidad>0) and kgneto = 0 and interno = '",
    "update groupsubitems set kgneto = cantidad where (idunidad = '01' and estadistica <> '01'  and cantidad>0) and kgneto = 0 and interno = '",
    "update groupsubitems set kgneto = valorrelacionestadistica where (estadistica = '01' and idunidad <> '01' and valorrelacionestadistica>0) "
    "and kgneto = 0 and interno = '",
    "update groupsubitems set idarticulo = '' where idarticulo is null and interno = '",
    "update groupsubitems set kgbruto = '0' where kgbruto is null and interno = '",
    "update groupsubitems set Idpais = '' where Idpais is null and interno = '",
    // Tests the other country on purpose: it fills nothing behind the statement above.
    "update groupsubitems set Idpaisproc = '' where Idpais is null and interno = '",
    "update groupsubitems set sufijos = '' where sufijos is null and interno = '",
    "update groupsubitems set idunidad = '' where idunidad is null and interno = '",
    "update groupsubitems set estadomerc = '' where estadomerc is null and interno = '",
    "update groupsubitems set biendeuso = '' where biendeuso is null and interno = '",
    "update groupsubitems set IdArticulo = '' where IdArticulo is null and interno = '",
    "update groupsubitems set lapi = '' where lapi is null and interno = '",
    "update groupsubitems set cancelaciones = '' where cancelaciones is null and interno = '",
};

/// First pass: groups of one line, whose summed quantity is the line's own.
void enlazarDeUna(ContextoArmado &r) {
    const L comparaciones(
        "groupsubitems.idpais = subitems.Idpais and groupsubitems.idpaisproc = subitems.Idpaisproc and groupsubitems.cantidad = "
        "subitems.cantidad and groupsubitems.preciounitario = subitems.preciounitario and groupsubitems.sufijos = subitems.sufijos and "
        "groupsubitems.idunidad = subitems.idunidad and groupsubitems.estadomerc = subitems.estadomerc and groupsubitems.biendeuso = "
        "subitems.Biendeuso and groupsubitems.tipoitem = subitems.tipoitem and groupsubitems.itfiller = subitems.itfiller and "
        "groupsubitems.codigoean = subitems.codigoean and groupsubitems.codprorrateo = subitems.codprorrateo and "
        "groupsubitems.cancelaciones = subitems.cancelaciones)");
    const L claves("(groupsubitems.interno = subitems.Interno and groupsubitems.ncm = subitems.NCM and ");
    const QString where = L(" where groupsubitems.interno = '") + r.interno + L("'");
    if (r.esSQL()) {
        r.ejecutar(L("Update groupsubitems Set groupsubitems.IDsub = SubItems.ID,groupsubitems.idcatalogo = SubItems.idcatalogo,"
                     "groupsubitems.IdArticulo = SubItems.IdArticulo from groupsubitems INNER JOIN subitems ON ") +
                   claves + (r.condicionDescripcion() ? L("groupsubitems.descripcion = Descripcion_Maria and ") : L("")) + comparaciones + where);
        return;
    }
    r.ejecutar(L("Update groupsubitems Inner Join subitems On ") + claves +
               (r.condicionDescripcion() ? L("groupsubitems.descripcion = subitems.Descripcion_Maria and ") : L("")) + comparaciones +
               L(" Set groupsubitems.IDsub = SubItems.ID,  groupsubitems.idcatalogo = SubItems.idcatalogo, ") +
               (r.ctx.opciones.FlgIdArtTOOtros ? L(" groupsubitems.idarticulo = SubItems.otros ") : L(" groupsubitems.idarticulo = SubItems.idarticulo ")) +
               where);
}

/// A group in hand, as the statements of the second pass spell its key.
struct ClaveDeGrupo {
    QString ncm, descripcion, idpais, idpaisproc, sufijos, precio, idunidad, estadomerc, codigoean, tipoitem, itfiller, biendeuso, cancelaciones;
    explicit ClaveDeGrupo(const Recordset &g)
        : ncm(g.Texto(u"ncm")),
          descripcion(DoblarComillas(g.Texto(u"descripcion"))),
          idpais(g.Texto(u"idpais")),
          idpaisproc(g.Texto(u"idpaisproc")),
          sufijos(g.Texto(u"sufijos")),
          precio(SqlNumber(numeros::Format(g.Numero(u"preciounitario"), u"00.00000"))),
          idunidad(g.Texto(u"idunidad")),
          estadomerc(g.Texto(u"estadomerc")),
          codigoean(g.Texto(u"codigoean")),
          tipoitem(g.Texto(u"tipoitem")),
          itfiller(g.Texto(u"itfiller")),
          biendeuso(g.Texto(u"biendeuso")),
          cancelaciones(g.Texto(u"cancelaciones")) {}
};

void enviarGrupo(ContextoArmado &r, const QString &cancelaciones, const QString &raiz, const QStringList &lista) {
    if (cancelaciones.trimmed() != L("OK") || !r.go_InputsLink.EnviarGrupoIdSub) return;
    if (!r.go_InputsLink.EnviarGrupoIdSub(r.interno, raiz.toLongLong(), lista.join(QLatin1Char('|'))))
        throw ErrorDeStore{0, QStringLiteral("go_InputsLink.EnviarGrupoIdSub"), QStringLiteral("Error en enviar vinculación de subitems a insumos"), {}};
}

/// Second pass, one group: its lines, the root and what is folded into it.
void enlazarGrupo(ContextoArmado &r, const ClaveDeGrupo &g) {
    const bool d = r.condicionDescripcion();
    Recordset lineas;
    const bool hay = r.consultar(
        L("select id,") + (r.ctx.opciones.FlgIdArtTOOtros ? L("otros") : L("idarticulo")) +
            L(" as fidarticulo,idcatalogo,cancelaciones,certorig, itfiller from subitems where interno = '") + r.interno + L("' ") +
            igual(" and ncm = ", g.ncm) + (d ? igual(" and Descripcion_Maria = ", g.descripcion) + QLatin1Char(' ') : QString()) +
            igual(" and idpais =", g.idpais) + igual(" and idpaisproc =", g.idpaisproc) + igual(" and sufijos =", g.sufijos) +
            L(" and preciounitario = ") + g.precio + L(" ") + igual(" and idunidad =", g.idunidad) + igual(" and estadomerc =", g.estadomerc) +
            igual(" and codigoean =", g.codigoean) + igual(" and tipoitem =", g.tipoitem) + igual(" and itfiller =", g.itfiller) +
            igual(" and biendeuso =", g.biendeuso) + L(" order by id asc"),
        lineas);
    if (!hay) return;
    const QString raiz = lineas.Texto(u"id");
    const QString articulo = lineas.Texto(u"fidarticulo");
    const QString catalogo = lineas.Texto(u"idcatalogo");
    const QString cancelaciones = lineas.Texto(u"cancelaciones");
    bool mismoArticulo = true;
    QStringList plegadas;
    for (lineas.MoveNext(); !lineas.Eof(); lineas.MoveNext()) {
        mismoArticulo = mismoArticulo && lineas.Texto(u"fidarticulo").trimmed() == articulo.trimmed();
        const QString id = lineas.Texto(u"id");
        if (id == raiz) continue;
        r.ejecutar(L("insert into idrel (interno,idroot,idsub) values ('") + r.interno + L("',") + raiz + L(", ") + id + L(")"));
        plegadas << id;
    }
    enviarGrupo(r, cancelaciones, raiz, plegadas);
    const QString articulos = mismoArticulo ? L(", idarticulo = '") + articulo + L("' , idcatalogo = '") + catalogo + L("' ")
                                            : QStringLiteral(", idarticulo = 'agrupado!' ");
    r.ejecutar(L("update groupsubitems set idsub = ") + raiz + articulos + L(" where interno = '") + r.interno + L("' ") + igual("and ncm = ", g.ncm) + L(" ") +
               (d ? igual("and descripcion = ", g.descripcion) + QLatin1Char(' ') : QString()) + igual("and idpais =", g.idpais) + L(" ") +
               igual("and idpaisproc =", g.idpaisproc) + L(" ") + igual("and sufijos =", g.sufijos) + L(" and preciounitario = ") + g.precio + L(" ") +
               igual("and idunidad =", g.idunidad) + L(" ") + igual("and estadomerc =", g.estadomerc) + L(" ") + igual("and biendeuso =", g.biendeuso) + L(" ") +
               igual("and cancelaciones = ", g.cancelaciones) + L(" ") + igual("and codigoean = ", g.codigoean) + L(" ") + igual("and tipoitem = ", g.tipoitem) +
               L(" ") + igual("and itfiller = ", g.itfiller) + L(" "));
}

/// A header value onto the groups: all of them when forced, else those that have none.
void aplicar(ContextoArmado &r, const char *columna, const QString &valor, bool forzar, const char *huecos) {
    if (forzar)
        r.ejecutar(L("update groupsubitems set ") + L(columna) + L(" = '") + valor + L("' where interno = '") + r.interno + L("'"));
    else
        r.ejecutar(L("update groupsubitems set ") + L(columna) + L(" = '") + valor + L("' where ") + L(huecos) + r.interno + L("'"));
}

}  // namespace

void AgruparLineas(ContextoArmado &r) {
    insertarGrupos(r);
    for (const char *sentencia : rellenosDeGrupos) r.ejecutar(cerrado(r, sentencia));
    enlazarDeUna(r);
    Recordset grupos;
    for (r.consultar(L("select * from groupsubitems where interno = '") + r.interno + L("' and (idsub is null)"), grupos); !grupos.Eof(); grupos.MoveNext())
        enlazarGrupo(r, ClaveDeGrupo(grupos));
}

void AplicarDatosComunesAGrupos(ContextoArmado &r) {
    if (!r.DCEstMerc.isEmpty())
        aplicar(r, "EstadoMerc", r.DCEstMerc, r.DCForzarEstMerc, "(EstadoMerc='' or EstadoMerc is null) and  interno = '");
    if (!r.DCPaisOrigen.isEmpty()) aplicar(r, "IdPais", r.DCPaisOrigen, r.DCForzarPaisOrigen, "(IdPais='' or IdPais is null) and interno = '");
    if (!r.DCPaisDestino.isEmpty()) aplicar(r, "IdPaisProc", r.DCPaisDestino, false, "(IdPaisProc='' or IdPaisProc is null) and interno = '");
    const auto onccA = [&r](const char *columna, const QString &valor) {
        r.ejecutar(L("update groupsubitems set ") + L(columna) + L(" = '") + valor + L("' where interno = '") + r.interno + L("' and  (") + L(columna) +
                   L(" = '' or ") + L(columna) + L(" is null)"));
    };
    onccA("ONCCACategoria", r.ONCCACategoria);
    onccA("ONCCACortes", r.ONCCACortes);
    // Once the value is spread the codes must not split an item.
    r.ejecutar(cerrado(r, "update groupsubitems set codprorrateo = '' where interno = '"));
    r.ejecutar(cerrado(r, "update groupsubitems set descripcion = '' where descripcion is null and interno = '"));
    if (!r.esDJAI()) r.ejecutar(cerrado(r, "update groupsubitems set descripcion = '' where interno = '"));
}

void MezclarDescripcionITEM(ContextoArmado &r, const QString &descripcion) {
    r.ejecutar(L("Update groupsubitems Set groupsubitems.Descripcion = SubItems.Descripcion from groupsubitems INNER JOIN subitems ON "
                 "(groupsubitems.interno = subitems.Interno and groupsubitems.idsub = subitems.id) where groupsubitems.interno = '") +
               r.interno + L("'"));
    Recordset rs;
    const L dosBlancos("  ");
    const L blanco(" ");
    for (r.consultar(L("SELECT id, dbo.groupsubitem_descripcion_select_concat( id, interno ) as descripcion From groupsubitems where interno = '") + r.interno +
                         L("'"),
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        QString texto = descripcion + QLatin1Char(' ') + rs.Texto(u"descripcion").replace(L("\r\n"), blanco);
        for (int vez = 0; vez < 3; ++vez) texto.replace(dosBlancos, blanco);
        texto.chop(1);
        texto = texto.replace(dosBlancos, blanco).left(400);
        r.ejecutar(L("update item set descripcion = '") + DoblarComillas(texto) + L("'  where interno = '") + r.interno + L("' and id = ") + rs.Texto(u"id"));
    }
}
