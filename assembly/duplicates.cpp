// Invoices round: groups that differ only by a fraction of a cent in their price are one.

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

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

// What stands on equal terms with a candidate.
constexpr std::array<QStringView, 17> columnasIguales{
    u"ncm",           u"descripcion", u"idpais",      u"idpaisproc",     u"sufijos",    u"idunidad",
    u"estadomerc",    u"biendeuso",   u"estadistica", u"deresp",         u"LAPI",       u"itfiller",
    u"cancelaciones", u"codigoean",   u"tipoitem",    u"ONCCACategoria", u"ONCCACortes"};

struct Candidato {
    QString donde;         ///< its groups, as the statements that read and write them say it
    QStringList terminos;  ///< its texts in the columns that have to be equal
    double precio = 0;

    QString raices() const {
        return "select idsub, cancelaciones from groupsubitems "_L1 + donde + "order by idsub asc"_L1;
    }
    QString articulos() const {
        return "select distinct idarticulo,idcatalogo from groupsubitems "_L1 + donde;
    }
    QString sumas(const ContextoArmado &r) const {
        return u"select count(preciounitario) as reg,interno,ncm,descripcion,%1 as unitario,"
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
                   SqlRound(r.ctx, u"INTERNOS"_s, u"(sum(fob) / sum(cantidad))"_s, u"00.00000"), donde);
    }
};

/// Its price within the tolerance.
Candidato candidatoDe(const ContextoArmado &r, const Recordset &fila) {
    Candidato c{u"where interno = %1 and \r\n"_s.arg(r.clave()), {}, fila.Numero(u"preciounitario")};
    for (const QStringView columna : columnasIguales) {
        if (columna == u"descripcion" && !r.esDJAI()) continue;
        c.terminos << fila.Texto(columna);
        c.donde += u"%1 = %2 and \r\n"_s.arg(columna, TextoEnComillas(c.terminos.back()));
    }
    const QString precio = SqlNumber(r.ctx, c.precio);
    c.donde += u"preciounitario between (%1 - %2) and (%1 + %2) "_s.arg(precio, tolerancia);
    return c;
}

bool esIngles(const QString &texto) {
    return std::all_of(texto.begin(), texto.end(), [](QChar c) { return c.unicode() < 0x80; });
}

/// Whether no store can take the two for equal. Letters outside English are folded by each in its own way.
bool sonDistintos(const QString &a, const QString &b) {
    return esIngles(a) && esIngles(b) && a.compare(b, Qt::CaseInsensitive) != 0;
}

/// The candidates that were folded since the groups of some later ones were asked for.
struct Plegados {
    struct Plegado {
        const Candidato *candidato;
        double precio;  ///< of the group that stands in their place
    };
    std::vector<Plegado> hechos;

    /// Whether what was asked for `c` still holds: no group of its own went, and none came.
    bool sigueValiendo(const Candidato &c) const {
        // A price is compared as the store does, and a hair wider.
        constexpr double alcance = 0.0099 + 1e-6;
        return std::none_of(hechos.begin(), hechos.end(), [&c](const Plegado &p) {
            for (qsizetype n = 0; n < c.terminos.size(); ++n)
                if (sonDistintos(c.terminos.at(n), p.candidato->terminos.at(n))) return false;
            return std::abs(c.precio - p.candidato->precio) <= 2 * alcance ||
                   std::abs(c.precio - p.precio) <= alcance;
        });
    }
};

/// The root of the candidate's groups; the others are remembered as folded into it. Empty when none is left,
/// which happens to a candidate that another has taken.
QString plegarRaices(const ContextoArmado &r, const Candidato &c) {
    Recordset rs;
    if (!r.consultar(c.raices(), rs)) return {};
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

/// Puts one group in the place of the candidate's; its price.
double fundir(const ContextoArmado &r, const Candidato &c, const QString &raiz) {
    Recordset articulos;
    r.consultar(c.articulos(), articulos);
    const bool uno = articulos.RecordCount() == 1;
    const QString articulo = uno ? articulos.Texto(u"idarticulo") : u"agrupado!"_s;
    const QString catalogo = uno ? articulos.Texto(u"idcatalogo") : u"agrupado!"_s;

    Recordset rs;
    if (!r.consultar(c.sumas(r), rs)) return c.precio;
    r.mandar("delete from groupsubitems "_L1 + c.donde);

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
    r.mandar(u"INSERT INTO GROUPSUBITEMS(%1) values (%2)"_s.arg(fusion.columnas(), fusion.valores()));
    return rs.Numero(u"unitario");
}

}  // namespace

void lp_BuscarDuplicados(ContextoArmado &r) {
    Recordset rs;
    leerCandidatos(r, rs);
    std::vector<Candidato> candidatos;
    candidatos.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) candidatos.push_back(candidatoDe(r, rs));
    // Their groups are asked for some candidates ahead, and again, for fewer, where a fold reached one of
    // those.
    constexpr std::size_t muchos = 64;
    std::size_t tramo = muchos;
    std::size_t hasta = 0;
    Conexion &internos = r.internos();
    Plegados plegados;
    for (std::size_t n = 0; n < candidatos.size(); ++n) {
        const Candidato &c = candidatos[n];
        const bool vale = plegados.sigueValiendo(c);
        if (n == hasta || !vale) {
            tramo = vale ? std::min(muchos, tramo * 2) : std::max<std::size_t>(1, tramo / 4);
            hasta = std::min(n + tramo, candidatos.size());
            QStringList preguntas;
            for (std::size_t i = n; i < hasta; ++i)
                preguntas << candidatos[i].raices() << candidatos[i].articulos() << candidatos[i].sumas(r);
            internos.OlvidarAnticipos();
            internos.Anticipar(preguntas);
            plegados.hechos.clear();
        }
        const QString raiz = plegarRaices(r, c);
        if (!raiz.isEmpty()) plegados.hechos.push_back({&c, fundir(r, c, raiz)});
    }
    internos.OlvidarAnticipos();
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
            r.mandar(
                u"update idrel set idroot = %1 "
                "where interno = %2 and idroot = %3"_s.arg(cadenas.Texto(u"idroot"), r.clave(),
                                                           cadenas.Texto(u"idsub")));
    }
}
