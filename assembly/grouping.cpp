// Equal merchandise at equal price is declared once: lines that agree on the key become one group.

#include <array>

#include "assembly/phases.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

/// The description takes part in the group under its condition alone.
void insertarGrupos(const ContextoArmado &r) {
    const bool conDescripcion = r.condicionDescripcion();
    const auto cuando = [conDescripcion](const QString &columna) {
        return conDescripcion ? columna : QString();
    };
    const QString deLasLineas =
        conDescripcion ? u"interno,ncm,preciounitario,Descripcion_Maria,idpais,idpaisproc,sufijos,"
                         "idunidad,estadomerc,biendeuso,cantidad ,"
                         "estadistica,valorrelacionestadistica,deresp,valorderesp,codprorrateo,"
                         "kgneto,kgbruto,fob,itfiller,insumostemp,insumosacons,"
                         "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, "
                         "ajusteincluir, ajustededucir"_s
                       : u"*"_s;
    r.mandar(
        u"INSERT INTO GROUPSUBITEMS ("
        "interno,ncm,preciounitario,%2idpais,idpaisproc,sufijos,"
        "idunidad,estadomerc,biendeuso,CANTIDAD,"
        "estadistica,valorrelacionestadistica,deresp,valorderesp,codprorrateo,"
        "kgneto,kgbruto,fob,itfiller,insumostemp,insumosacons,"
        "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, "
        "ajusteincluir, ajustededucir) \r\n"
        "select "
        "interno,ncm,preciounitario,%3idpais,idpaisproc,sufijos,"
        "idunidad,estadomerc,biendeuso,sum(cantidad) as sumcantidad,"
        "estadistica,sum(valorrelacionestadistica) as valorestadistica,"
        "deresp,sum(valorderesp) as sumvalorderesp,codprorrateo,"
        "sum(kgneto),sum(kgbruto),sum(fob),itfiller,sum(insumostemp),sum(insumosacons),"
        "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, "
        "sum(ajusteincluir), sum(ajustededucir)\r\n"
        "from  (select %5 from subitems where interno = %1) as a \r\n"
        "where interno = %1 "
        "group by "
        "interno,ncm,preciounitario,%4idpais,idpaisproc,sufijos,"
        "idunidad,estadomerc,biendeuso,"
        "estadistica,deresp,codprorrateo,itfiller,"
        "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes "_s.arg(
            r.clave(), cuando(u" Descripcion,"_s), cuando(u"Descripcion_Maria,"_s),
            cuando(u" Descripcion_Maria , "_s), deLasLineas));
}

/// A measure or a null that a group's other columns fill.
struct Relleno {
    const char *cambio;
    const char *prueba;
};

constexpr Relleno rellenosDeGrupos[] = {
    {"valorrelacionestadistica = cantidad", "idunidad = estadistica and valorrelacionestadistica = 0"},
    {"valorderesp = cantidad", "idunidad = deresp and valorderesp = 0"},
    {"valorrelacionestadistica = valorderesp", "deresp = estadistica and valorrelacionestadistica = 0"},
    {"valorrelacionestadistica = kgneto",
     "(estadistica = '01' and valorrelacionestadistica=0) and kgneto > 0"},
    {"kgneto = cantidad", "(idunidad = '01' and estadistica = '01' and cantidad>0) and kgneto = 0"},
    {"kgneto = cantidad", "(idunidad = '01' and estadistica <> '01'  and cantidad>0) and kgneto = 0"},
    {"kgneto = valorrelacionestadistica",
     "(estadistica = '01' and idunidad <> '01' and valorrelacionestadistica>0) and kgneto = 0"},
    {"idarticulo = ''", "idarticulo is null"},
    {"kgbruto = '0'", "kgbruto is null"},
    {"Idpais = ''", "Idpais is null"},
    // Tests Idpais, and so fills nothing: a group without a country of provenance keeps its null.
    {"Idpaisproc = ''", "Idpais is null"},
    {"sufijos = ''", "sufijos is null"},
    {"idunidad = ''", "idunidad is null"},
    {"estadomerc = ''", "estadomerc is null"},
    {"biendeuso = ''", "biendeuso is null"},
    {"IdArticulo = ''", "IdArticulo is null"},
    {"lapi = ''", "lapi is null"},
    {"cancelaciones = ''", "cancelaciones is null"},
};

/// The groups of one line and that line: a summed quantity equals a line's only where there is one. The
/// groups of several lines are left to the walk.
QString comparacionesDeUnaLinea(const ContextoArmado &r) {
    const auto descripcion = !r.condicionDescripcion() ? ""_L1
                             : r.esSQL() ? "groupsubitems.descripcion = Descripcion_Maria and "_L1
                                         : "groupsubitems.descripcion = subitems.Descripcion_Maria and "_L1;
    return u"(groupsubitems.interno = subitems.Interno and "
           "groupsubitems.ncm = subitems.NCM and "
           "%1"
           "groupsubitems.idpais = subitems.Idpais and "
           "groupsubitems.idpaisproc = subitems.Idpaisproc and "
           "groupsubitems.cantidad = subitems.cantidad and "
           "groupsubitems.preciounitario = subitems.preciounitario and "
           "groupsubitems.sufijos = subitems.sufijos and "
           "groupsubitems.idunidad = subitems.idunidad and "
           "groupsubitems.estadomerc = subitems.estadomerc and "
           "groupsubitems.biendeuso = subitems.Biendeuso and "
           "groupsubitems.tipoitem = subitems.tipoitem and "
           "groupsubitems.itfiller = subitems.itfiller and "
           "groupsubitems.codigoean = subitems.codigoean and "
           "groupsubitems.codprorrateo = subitems.codprorrateo and "
           "groupsubitems.cancelaciones = subitems.cancelaciones)"_s.arg(descripcion);
}

void vincularDeUnaLinea(const ContextoArmado &r) {
    const QString comparaciones = comparacionesDeUnaLinea(r);
    if (r.esSQL()) {
        r.mandar(
            u"Update groupsubitems "
            "Set groupsubitems.IDsub = SubItems.ID,"
            "groupsubitems.idcatalogo = SubItems.idcatalogo,"
            "groupsubitems.IdArticulo = SubItems.IdArticulo "
            "from groupsubitems INNER JOIN subitems ON %1 "
            "where groupsubitems.interno = %2"_s.arg(comparaciones, r.clave()));
        return;
    }
    r.mandar(
        u"Update groupsubitems Inner Join subitems On %1 "
        "Set groupsubitems.IDsub = SubItems.ID, "
        " groupsubitems.idcatalogo = SubItems.idcatalogo, "
        " groupsubitems.idarticulo = SubItems.%2 "
        " where groupsubitems.interno = %3"_s.arg(
            comparaciones, r.ctx.opciones.FlgIdArtTOOtros ? "otros"_L1 : "idarticulo"_L1, r.clave()));
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

QString sentenciaDeLineas(const ContextoArmado &r, const Recordset &grupo) {
    return u"select id,%1 as fidarticulo,idcatalogo,cancelaciones,certorig, itfiller "
           "from subitems "
           "where interno = %2 %3"_s.arg(r.ctx.opciones.FlgIdArtTOOtros ? "otros"_L1 : "idarticulo"_L1,
                                         r.clave(),
                                         comparar(r, grupo, lineasDelGrupo, r.condicionDescripcion()));
}

/// Finds the lines of one group: the first is its root, the others are remembered as folded into it.
void vincularGrupo(const ContextoArmado &r, const Recordset &grupo) {
    const bool conDescripcion = r.condicionDescripcion();
    Recordset lineas;
    if (!r.consultar(sentenciaDeLineas(r, grupo), lineas)) return;

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
        RecordarPlegada(r, raiz, id);
        plegadas << id;
    }
    if (cancela) EnviarGrupo(r, raiz.toLongLong(), plegadas);

    const QString nombres = unArticulo ? u", idarticulo = %1 , idcatalogo = %2 "_s.arg(
                                             TextoEnComillas(articulo), TextoEnComillas(catalogo))
                                       : u", idarticulo = 'agrupado!' "_s;
    r.mandar(
        u"update groupsubitems set idsub = %1%2 "
        "where interno = %3 %4"_s.arg(raiz, nombres, r.clave(), comparar(r, grupo, elGrupo, conDescripcion)));
}

}  // namespace

void RecordarPlegada(const ContextoArmado &r, const QString &raiz, const QString &plegada) {
    r.mandar(u"insert into idrel (interno,idroot,idsub) values (%1,%2, %3)"_s.arg(r.clave(), raiz, plegada));
}

void EnviarGrupo(const ContextoArmado &r, qint64 raiz, const QStringList &plegadas) {
    if (!r.go_InputsLink) return;
    if (r.go_InputsLink->EnviarGrupoIdSub(r.interno, raiz, plegadas.join('|'_L1))) return;
    throw Falla{
        0, u"go_InputsLink.EnviarGrupoIdSub"_s, u"Error en enviar vinculación de subitems a insumos"_s, {}};
}

void AgruparLineas(ContextoArmado &r) {
    insertarGrupos(r);
    for (const auto &[cambio, prueba] : rellenosDeGrupos)
        r.mandar(
            u"update groupsubitems set %1 "
            "where %2 and interno = %3"_s.arg(QLatin1StringView(cambio), QLatin1StringView(prueba),
                                              r.clave()));
    vincularDeUnaLinea(r);
    Recordset grupos;
    r.consultar(
        u"select * from groupsubitems "
        "where interno = %1 and (idsub is null)"_s.arg(r.clave()),
        grupos);
    std::vector<QStringList> preguntas;
    for (; !grupos.Eof(); grupos.MoveNext()) preguntas.push_back({sentenciaDeLineas(r, grupos)});
    LecturaAdelantada adelantada(r.internos(), std::move(preguntas));
    for (grupos.MoveFirst(); !grupos.Eof(); grupos.MoveNext()) {
        adelantada.Vuelta();
        vincularGrupo(r, grupos);
    }
}

void AplicarDatosComunesAGrupos(ContextoArmado &r) {
    const QString clave = r.clave();
    const auto enTodos = [&](QLatin1StringView columna, const QString &valor) {
        r.mandar(
            u"update groupsubitems set %1 = %2 "
            "where interno = %3"_s.arg(columna, EnComillas(valor), clave));
    };
    if (!r.DCEstMerc.isEmpty()) {
        if (r.DCForzarEstMerc)
            enTodos("EstadoMerc"_L1, r.DCEstMerc);
        else
            r.mandar(
                u"update groupsubitems set EstadoMerc = %1 "
                "where (EstadoMerc='' or EstadoMerc is null) and  interno = %2"_s.arg(EnComillas(r.DCEstMerc),
                                                                                      clave));
    }
    if (!r.DCPaisOrigen.isEmpty()) {
        if (r.DCForzarPaisOrigen)
            enTodos("IdPais"_L1, r.DCPaisOrigen);
        else
            r.mandar(
                u"update groupsubitems set IdPais = %1 "
                "where (IdPais='' or IdPais is null) and interno = %2"_s.arg(EnComillas(r.DCPaisOrigen),
                                                                             clave));
    }
    if (!r.DCPaisDestino.isEmpty())
        r.mandar(
            u"update groupsubitems set IdPaisProc = %1 "
            "where (IdPaisProc='' or IdPaisProc is null) and interno = %2"_s.arg(EnComillas(r.DCPaisDestino),
                                                                                 clave));
    // These two run even with an empty value, which turns a null into empty text.
    r.mandar(
        u"update groupsubitems set ONCCACategoria = %1 "
        "where interno = %2 and  (ONCCACategoria = '' or ONCCACategoria is null)"_s.arg(
            TextoEnComillas(r.ONCCACategoria), clave));
    r.mandar(
        u"update groupsubitems set ONCCACortes = %1 "
        "where interno = %2 and  (ONCCACortes = '' or ONCCACortes is null)"_s.arg(
            TextoEnComillas(r.ONCCACortes), clave));
    // The value is spread by now: its codes must not split an item.
    r.mandar("update groupsubitems set codprorrateo = '' where interno = "_L1 + clave);
    r.mandar("update groupsubitems set descripcion = '' where descripcion is null and interno = "_L1 + clave);
    if (!r.esDJAI()) r.mandar("update groupsubitems set descripcion = '' where interno = "_L1 + clave);
}

void MezclarDescripcionITEM(ContextoArmado &r, const QString &descripcion) {
    constexpr qsizetype largoMaximo = 400;
    r.mandar(
        "Update groupsubitems Set groupsubitems.Descripcion = SubItems.Descripcion "
        "from groupsubitems INNER JOIN subitems "
        "ON (groupsubitems.interno = subitems.Interno and groupsubitems.idsub = subitems.id) "
        "where groupsubitems.interno = "_L1 +
        r.clave());
    Recordset rs;
    r.consultar(
        "SELECT id, dbo.groupsubitem_descripcion_select_concat( id, interno ) as descripcion "
        "From groupsubitems "
        "where interno = "_L1 +
            r.clave(),
        rs);
    const auto plegarBlancos = [](QString &texto) { texto.replace("  "_L1, " "_L1); };
    for (; !rs.Eof(); rs.MoveNext()) {
        QString texto = descripcion + ' '_L1 + rs.Texto(u"descripcion").replace("\r\n"_L1, " "_L1);
        for (int vez = 0; vez < 3; ++vez) plegarBlancos(texto);
        texto.chop(1);  // the separator behind the last description
        plegarBlancos(texto);
        r.mandar(
            u"update item set descripcion = %1  "
            "where interno = %2 and id = %3"_s.arg(TextoEnComillas(texto.left(largoMaximo)), r.clave(),
                                                   rs.Texto(u"id")));
    }
}
