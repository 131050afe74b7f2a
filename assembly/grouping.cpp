// Equal merchandise at equal price is declared once: lines that agree on the key become one group.

#include <array>

#include "assembly/run.h"
#include "assembly/sql_text.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

void insertarGrupos(const ContextoArmado &r) {
    const QString clave = EnComillas(r.interno);
    if (r.condicionDescripcion()) {
        r.ejecutar(
            "INSERT INTO GROUPSUBITEMS (interno,ncm,preciounitario, "
            "Descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,CANTIDAD,estadistica,"
            "valorrelacionestadistica,deresp,valorderesp,codprorrateo,kgneto,kgbruto,fob,itfiller,"
            "insumostemp,"
            "insumosacons,cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, ajusteincluir, "
            "ajustededucir) \r\n"
            "select "
            "interno,ncm,preciounitario,Descripcion_Maria,idpais,idpaisproc,sufijos,idunidad,estadomerc,"
            "biendeuso,"
            "sum(cantidad) as sumcantidad,estadistica,sum(valorrelacionestadistica) as "
            "valorestadistica,deresp,sum(valorderesp) as "
            "sumvalorderesp,codprorrateo,sum(kgneto),sum(kgbruto),sum(fob),itfiller,sum(insumostemp),sum("
            "insumosacons),cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, sum(ajusteincluir), "
            "sum(ajustededucir)\r\n"
            "from  (select "
            "interno,ncm,preciounitario,Descripcion_Maria,idpais,idpaisproc,sufijos,idunidad,estadomerc,"
            "biendeuso,"
            "cantidad "
            ",estadistica,valorrelacionestadistica,deresp,valorderesp,codprorrateo,kgneto,kgbruto,fob,"
            "itfiller,"
            "insumostemp,insumosacons,cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, "
            "ajusteincluir, "
            "ajustededucir from subitems where interno = "_L1 +
            clave + ") as a \r\nwhere interno = "_L1 + clave +
            " group by interno,ncm,preciounitario, Descripcion_Maria , "
            "idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,codprorrateo,"
            "itfiller,"
            "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes "_L1);
        return;
    }
    r.ejecutar(
        "INSERT INTO GROUPSUBITEMS "
        "(interno,ncm,preciounitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,CANTIDAD,"
        "estadistica,"
        "valorrelacionestadistica,deresp,valorderesp,codprorrateo,kgneto,kgbruto,fob,itfiller,insumostemp,"
        "insumosacons,cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, ajusteincluir, "
        "ajustededucir) \r\n"
        "select "
        "interno,ncm,preciounitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,sum(cantidad) as "
        "sumcantidad,estadistica,sum(valorrelacionestadistica) as valorestadistica,deresp,sum(valorderesp) "
        "as "
        "sumvalorderesp,codprorrateo,sum(kgneto),sum(kgbruto),sum(fob),itfiller,sum(insumostemp),sum("
        "insumosacons),"
        "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, sum(ajusteincluir), "
        "sum(ajustededucir)\r\n"
        "from  (select * from subitems where interno = "_L1 +
        clave + ") as a \r\nwhere interno = "_L1 + clave +
        " group by "
        "interno,ncm,preciounitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,"
        "deresp,"
        "codprorrateo,itfiller,cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes "_L1);
}

constexpr const char *rellenosDeGrupos[] = {
    "update groupsubitems set valorrelacionestadistica = cantidad where idunidad = estadistica and "
    "valorrelacionestadistica = 0 and interno = '",
    "update groupsubitems set valorderesp = cantidad where idunidad = deresp and valorderesp = 0 and interno "
    "= '",
    "update groupsubitems set valorrelacionestadistica = valorderesp where deresp = estadistica and "
    "valorrelacionestadistica = 0 and interno = '",
    "update groupsubitems set valorrelacionestadistica = kgneto where (estadistica = '01' and "
    "valorrelacionestadistica=0) and kgneto > 0 and interno = '",
    "update groupsubitems set kgneto = cantidad where (idunidad = '01' and estadistica = '01' and "
    "cantidad>0) and "
    "kgneto = 0 and interno = '",
    "update groupsubitems set kgneto = cantidad where (idunidad = '01' and estadistica <> '01'  and "
    "cantidad>0) and "
    "kgneto = 0 and interno = '",
    "update groupsubitems set kgneto = valorrelacionestadistica where (estadistica = '01' and idunidad <> "
    "'01' and "
    "valorrelacionestadistica>0) and kgneto = 0 and interno = '",
    "update groupsubitems set idarticulo = '' where idarticulo is null and interno = '",
    "update groupsubitems set kgbruto = '0' where kgbruto is null and interno = '",
    "update groupsubitems set Idpais = '' where Idpais is null and interno = '",
    // Tests Idpais, and so fills nothing: a group without a country of provenance keeps its null.
    "update groupsubitems set Idpaisproc = '' where Idpais is null and interno = '",
    "update groupsubitems set sufijos = '' where sufijos is null and interno = '",
    "update groupsubitems set idunidad = '' where idunidad is null and interno = '",
    "update groupsubitems set estadomerc = '' where estadomerc is null and interno = '",
    "update groupsubitems set biendeuso = '' where biendeuso is null and interno = '",
    "update groupsubitems set IdArticulo = '' where IdArticulo is null and interno = '",
    "update groupsubitems set lapi = '' where lapi is null and interno = '",
    "update groupsubitems set cancelaciones = '' where cancelaciones is null and interno = '",
};

/// Links the groups of one line: a summed quantity equals a line's only where there is one. The groups of
/// several lines are left to the walk.
void vincularDeUnaLinea(const ContextoArmado &r) {
    const bool sql = r.esSQL();
    QString texto =
        sql ? u"Update groupsubitems Set groupsubitems.IDsub = SubItems.ID,groupsubitems.idcatalogo = "
              "SubItems.idcatalogo,groupsubitems.IdArticulo = SubItems.IdArticulo from groupsubitems INNER "
              "JOIN "
              "subitems ON "_s
            : u"Update groupsubitems Inner Join subitems On "_s;
    texto += "(groupsubitems.interno = subitems.Interno and groupsubitems.ncm = subitems.NCM and "_L1;
    if (r.condicionDescripcion())
        texto += sql ? "groupsubitems.descripcion = Descripcion_Maria and "_L1
                     : "groupsubitems.descripcion = subitems.Descripcion_Maria and "_L1;
    texto +=
        "groupsubitems.idpais = subitems.Idpais and groupsubitems.idpaisproc = subitems.Idpaisproc and "
        "groupsubitems.cantidad = subitems.cantidad and groupsubitems.preciounitario = "
        "subitems.preciounitario and "
        "groupsubitems.sufijos = subitems.sufijos and groupsubitems.idunidad = subitems.idunidad and "
        "groupsubitems.estadomerc = subitems.estadomerc and groupsubitems.biendeuso = subitems.Biendeuso and "
        "groupsubitems.tipoitem = subitems.tipoitem and groupsubitems.itfiller = subitems.itfiller and "
        "groupsubitems.codigoean = subitems.codigoean and groupsubitems.codprorrateo = subitems.codprorrateo "
        "and "
        "groupsubitems.cancelaciones = subitems.cancelaciones)"_L1;
    if (!sql) {
        texto +=
            " Set groupsubitems.IDsub = SubItems.ID,  groupsubitems.idcatalogo = SubItems.idcatalogo, "_L1;
        texto += r.ctx.opciones.FlgIdArtTOOtros ? " groupsubitems.idarticulo = SubItems.otros "_L1
                                                : " groupsubitems.idarticulo = SubItems.idarticulo "_L1;
    }
    r.ejecutar(texto + " where groupsubitems.interno = "_L1 + EnComillas(r.interno));
}

/// One comparison with a column of the group in hand.
struct Clausula {
    enum class Valor { Texto, Precio, Descripcion };  ///< Descripcion: under its condition only
    const char *antes;
    QStringView columna;
    const char *despues;
    Valor valor = Valor::Texto;
};

constexpr std::array<Clausula, 12> lineasDelGrupo{{
    {" and ncm = '", u"ncm", "'"},
    {" and Descripcion_Maria = '", u"descripcion", "' ", Clausula::Valor::Descripcion},
    {" and idpais ='", u"idpais", "'"},
    {" and idpaisproc ='", u"idpaisproc", "'"},
    {" and sufijos ='", u"sufijos", "'"},
    {" and preciounitario = ", u"preciounitario", " ", Clausula::Valor::Precio},
    {" and idunidad ='", u"idunidad", "'"},
    {" and estadomerc ='", u"estadomerc", "'"},
    {" and codigoean ='", u"codigoean", "'"},
    {" and tipoitem ='", u"tipoitem", "'"},
    {" and itfiller ='", u"itfiller", "'"},
    {" and biendeuso ='", u"biendeuso", "' order by id asc"},
}};

constexpr std::array<Clausula, 13> elGrupo{{
    {"and ncm = '", u"ncm", "' "},
    {"and descripcion = '", u"descripcion", "' ", Clausula::Valor::Descripcion},
    {"and idpais ='", u"idpais", "' "},
    {"and idpaisproc ='", u"idpaisproc", "' "},
    {"and sufijos ='", u"sufijos", "' "},
    {"and preciounitario = ", u"preciounitario", " ", Clausula::Valor::Precio},
    {"and idunidad ='", u"idunidad", "' "},
    {"and estadomerc ='", u"estadomerc", "' "},
    {"and biendeuso ='", u"biendeuso", "' "},
    {"and cancelaciones = '", u"cancelaciones", "' "},
    {"and codigoean = '", u"codigoean", "' "},
    {"and tipoitem = '", u"tipoitem", "' "},
    {"and itfiller = '", u"itfiller", "' "},
}};

template <std::size_t N>
QString comparar(const ContextoArmado &r, const Recordset &grupo, const std::array<Clausula, N> &clausulas,
                 bool conDescripcion) {
    QString texto;
    for (const Clausula &c : clausulas) {
        if (c.valor == Clausula::Valor::Descripcion && !conDescripcion) continue;
        texto += QLatin1StringView(c.antes);
        if (c.valor == Clausula::Valor::Precio)
            texto += SqlNumber(r.ctx,
                               numeros::Format(grupo.Numero(c.columna), u"00.00000", r.ctx.SeparadorDecimal));
        else
            texto += DoblarComillas(grupo.Texto(c.columna));
        texto += QLatin1StringView(c.despues);
    }
    return texto;
}

/// Finds the lines of one group: the first is its root, the others are remembered as folded into it.
void vincularGrupo(ContextoArmado &r, const Recordset &grupo) {
    const bool conDescripcion = r.condicionDescripcion();
    const QString clave = EnComillas(r.interno);
    Recordset lineas;
    const bool hay = r.consultar(
        "select id,"_L1 + (r.ctx.opciones.FlgIdArtTOOtros ? "otros"_L1 : "idarticulo"_L1) +
            " as fidarticulo,idcatalogo,cancelaciones,certorig, itfiller from subitems where interno = "_L1 +
            clave + ' '_L1 + comparar(r, grupo, lineasDelGrupo, conDescripcion),
        lineas);
    if (!hay) return;

    const QString raiz = lineas.Texto(u"id");
    const QString articulo = lineas.Texto(u"fidarticulo");
    const QString catalogo = lineas.Texto(u"idcatalogo");
    const bool cancela = lineas.Texto(u"cancelaciones").trimmed() == "OK"_L1;
    bool unArticulo = true;
    QStringList plegadas;
    for (lineas.MoveNext(); !lineas.Eof(); lineas.MoveNext()) {
        unArticulo = unArticulo && lineas.Texto(u"fidarticulo").trimmed() == articulo.trimmed();
        const QString id = lineas.Texto(u"id");
        if (id == raiz) continue;
        r.ejecutar("insert into idrel (interno,idroot,idsub) values ("_L1 + clave + ','_L1 + raiz + ", "_L1 +
                   id + ')'_L1);
        plegadas << id;
    }
    if (cancela) EnviarGrupo(r, raiz.toLongLong(), plegadas);

    QString texto = "update groupsubitems set idsub = "_L1 + raiz;
    if (unArticulo)
        texto += ", idarticulo = '"_L1 + DoblarComillas(articulo) + "' , idcatalogo = '"_L1 +
                 DoblarComillas(catalogo) + "' "_L1;
    else
        texto += ", idarticulo = 'agrupado!' "_L1;
    r.ejecutar(texto + " where interno = "_L1 + clave + ' '_L1 + comparar(r, grupo, elGrupo, conDescripcion));
}

}  // namespace

void EnviarGrupo(const ContextoArmado &r, qint64 raiz, const QStringList &plegadas) {
    if (!r.go_InputsLink) return;
    if (r.go_InputsLink->EnviarGrupoIdSub(r.interno, raiz, plegadas.join('|'_L1))) return;
    throw Falla{
        0, u"go_InputsLink.EnviarGrupoIdSub"_s, u"Error en enviar vinculación de subitems a insumos"_s, {}};
}

void AgruparLineas(ContextoArmado &r) {
    insertarGrupos(r);
    for (const char *relleno : rellenosDeGrupos) r.ejecutar(ConClave(relleno, r.interno));
    vincularDeUnaLinea(r);
    Recordset grupos;
    r.consultar(
        "select * from groupsubitems where interno = "_L1 + EnComillas(r.interno) + " and (idsub is null)"_L1,
        grupos);
    for (; !grupos.Eof(); grupos.MoveNext()) vincularGrupo(r, grupos);
}

void AplicarDatosComunesAGrupos(ContextoArmado &r) {
    const QString clave = EnComillas(r.interno);
    const auto siempre = [&](QLatin1StringView columna, const QString &valor) {
        r.ejecutar("update groupsubitems set "_L1 + columna + " = "_L1 + EnComillas(valor) +
                   " where interno = "_L1 + clave);
    };
    if (!r.DCEstMerc.isEmpty()) {
        if (r.DCForzarEstMerc)
            siempre("EstadoMerc"_L1, r.DCEstMerc);
        else
            r.ejecutar("update groupsubitems set EstadoMerc = "_L1 + EnComillas(r.DCEstMerc) +
                       " where (EstadoMerc='' or EstadoMerc is null) and  interno = "_L1 + clave);
    }
    if (!r.DCPaisOrigen.isEmpty()) {
        if (r.DCForzarPaisOrigen)
            siempre("IdPais"_L1, r.DCPaisOrigen);
        else
            r.ejecutar("update groupsubitems set IdPais = "_L1 + EnComillas(r.DCPaisOrigen) +
                       " where (IdPais='' or IdPais is null) and interno = "_L1 + clave);
    }
    if (!r.DCPaisDestino.isEmpty())
        r.ejecutar("update groupsubitems set IdPaisProc = "_L1 + EnComillas(r.DCPaisDestino) +
                   " where (IdPaisProc='' or IdPaisProc is null) and interno = "_L1 + clave);
    // These two run even with an empty value, which turns a null into empty text.
    r.ejecutar("update groupsubitems set ONCCACategoria = "_L1 + EnComillas(r.ONCCACategoria) +
               " where interno = "_L1 + clave + " and  (ONCCACategoria = '' or ONCCACategoria is null)"_L1);
    r.ejecutar("update groupsubitems set ONCCACortes = "_L1 + EnComillas(r.ONCCACortes) +
               " where interno = "_L1 + clave + " and  (ONCCACortes = '' or ONCCACortes is null)"_L1);
    // The value is spread by now: its codes must not split an item.
    r.ejecutar("update groupsubitems set codprorrateo = '' where interno = "_L1 + clave);
    r.ejecutar("update groupsubitems set descripcion = '' where descripcion is null and interno = "_L1 +
               clave);
    if (!r.esDJAI()) r.ejecutar("update groupsubitems set descripcion = '' where interno = "_L1 + clave);
}

void MezclarDescripcionITEM(ContextoArmado &r, const QString &descripcion) {
    constexpr qsizetype largoMaximo = 400;
    const QString clave = EnComillas(r.interno);
    r.ejecutar(
        "Update groupsubitems Set groupsubitems.Descripcion = SubItems.Descripcion from groupsubitems INNER "
        "JOIN "
        "subitems ON (groupsubitems.interno = subitems.Interno and groupsubitems.idsub = subitems.id) where "
        "groupsubitems.interno = "_L1 +
        clave);
    Recordset rs;
    r.consultar(
        "SELECT id, dbo.groupsubitem_descripcion_select_concat( id, interno ) as descripcion From "
        "groupsubitems "
        "where interno = "_L1 +
            clave,
        rs);
    const auto plegarBlancos = [](QString &texto) { texto.replace("  "_L1, " "_L1); };
    for (; !rs.Eof(); rs.MoveNext()) {
        QString texto = descripcion + ' '_L1 + rs.Texto(u"descripcion").replace("\r\n"_L1, " "_L1);
        for (int vez = 0; vez < 3; ++vez) plegarBlancos(texto);
        texto.chop(1);  // the separator behind the last description
        plegarBlancos(texto);
        r.ejecutar("update item set descripcion = '"_L1 + DoblarComillas(texto.left(largoMaximo)) +
                   "'  where interno = "_L1 + clave + " and id = "_L1 + rs.Texto(u"id"));
    }
}
