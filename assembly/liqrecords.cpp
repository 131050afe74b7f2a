// Which duties and taxes each item gets, and with which percentages; no amounts.

#include <algorithm>
#include <initializer_list>

#include "assembly/phases.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1StringView;

bool esUnaDe(const QString &codigo, std::initializer_list<L> codigos) {
    return std::any_of(codigos.begin(), codigos.end(), [&](L uno) { return codigo == uno; });
}

bool empiezaCon(const QString &codigo, std::initializer_list<L> prefijos) {
    return std::any_of(prefijos.begin(), prefijos.end(), [&](L uno) { return codigo.startsWith(uno); });
}

/// The concept lists of one run.
struct Listas {
    QString general;
    QString bienUso;
    QString itemCero;
};

Listas elegirListas(ContextoArmado &r) {
    if (r.esDJAI()) return {};
    const QString &regimen = r.idsubreg;
    if (esUnaDe(regimen, {"LAPI"_L1, "IC34"_L1, "EC02"_L1}) || regimen.startsWith("RE"_L1))
        return {"501"_L1, "501"_L1, "501"_L1};
    if (!r.cstaimpexp.startsWith("I"_L1)) {
        const QString exportacion = u"020,501,601,611"_s;
        return {exportacion, exportacion, exportacion};
    }
    Listas listas{"010,015,011,016,032,059,061,062,415,417,422,424,500,852,854,856,866"_L1,
                  "015,010,011,032,415,500,061,062"_L1, "020,500"_L1};
    if (regimen.startsWith("IC"_L1)) listas.general += ",900,065,417"_L1;
    if (regimen.startsWith("IG"_L1)) listas.general += ",900,065"_L1;
    if (esUnaDe(regimen, {"ZFE1"_L1, "ZFE3"_L1, "ZFE5"_L1, "ZFET"_L1, "ZFTR"_L1}))
        listas.general += ",900"_L1;
    if (regimen.startsWith("IDA4"_L1)) {
        listas.general = listas.bienUso = u"500"_s;
        r.asentar();
        r.opciones.ChMulta = r.ctx.CalcularMulta =
            r.ctx.dialogos.preguntar({u"Desea calcular multas?"_s, {}, Icono::Pregunta, false});
        // The dashboard stands behind the run's screen: its box follows.
        r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, u"ChMulta"_s, r.opciones.ChMulta ? 1 : 0, 1, {}});
    }
    if (r.opciones.ChMulta) {
        listas.general += ",041"_L1;
        listas.bienUso += ",041"_L1;
    }
    return listas;
}

/// An "update itemliq" over the rows of one item.
struct FilasDelItem {
    ContextoArmado &r;
    QString iditem;

    void poner(const QString &cambios, L donde) const {
        r.mandar(
            u"update itemliq set %1 "
            "where %2 and interno = %3 and iditem = %4"_s.arg(cambios, donde, r.clave(), iditem));
    }
    void pgcGarantizado() const {
        r.mandar(
            u"update itemliq set pgc = 'G' "
            "where interno = %1 and iditem = %2"_s.arg(r.clave(), iditem));
    }
};

constexpr auto adicionales = "idconceptos in ('422','854')"_L1;
constexpr auto ganancias = "idconceptos in ('424','856')"_L1;
constexpr auto soloGanancias = "idconceptos = '424'"_L1;

/// Concepts 422 and 854: additional VAT, less the client's exclusion, doubled without a registered
/// declaration.
void ponerIvaAdicional(const FilasDelItem &filas, const QString &idsubreg, double ivareduccion,
                       double factor) {
    const ContextoArmado &r = filas.r;
    const QString f = SqlNumber(r.ctx, factor);
    if (ivareduccion > 0 && !empiezaCon(idsubreg, {"TR"_L1, "IT"_L1}) && !idsubreg.isEmpty()) {
        if (ivareduccion >= 100) {
            // Not zero, so that the row stays alive.
            filas.poner(u"porcentaje = 0.00001"_s, adicionales);
        } else {
            const auto reducido = [&](const QString &forma) {
                const QString expresion = forma.arg(f, SqlNumber(r.ctx, ivareduccion));
                return SqlRound(r.ctx, u"INTERNOS"_s, expresion, u"00.000");
            };
            filas.poner(u"porcentajeb = '5', porcentaje='10'"_s, adicionales);
            filas.poner(
                "porcentaje = "_L1 + reducido(u"(porcentaje * %1) - ((%2 * (porcentaje * %1)) / 100)"_s),
                adicionales);
            filas.poner(
                "porcentajeb = "_L1 + reducido(u"((porcentajeb) * %1) - ((%2 * (porcentajeb * %1)) / 100)"_s),
                adicionales);
        }
        if (!empiezaCon(idsubreg, {"DIR"_L1, "IDA"_L1})) AgregarVentaja(r, filas.iditem, u"IVAADREDUCCION"_s);
    } else if (idsubreg.startsWith("TR"_L1)) {
        filas.poner(u"porcentajeb = '20', porcentaje='20'"_s, adicionales);
    } else {
        filas.poner(u"porcentajeb = '5', porcentaje='10'"_s, adicionales);
        filas.poner(u"porcentaje = porcentaje * %1, porcentajeb = porcentajeb * %1"_s.arg(f), adicionales);
    }
}

/// Concepts 424 and 856: advance income tax. An exclusion of exactly 100 becomes 200 and stays so for the
/// later items.
void ponerGanancias(const FilasDelItem &filas, const QString &idsubreg, double &eximgan, double factor) {
    const ContextoArmado &r = filas.r;
    const QString f = SqlNumber(r.ctx, factor);
    if (eximgan > 0 && !empiezaCon(idsubreg, {"DIR"_L1, "IDA"_L1})) {
        if (eximgan == 100) eximgan = 200;
        const QString reducido = u"(3 * %1) - ((%2 * 3 * %1) / 100)"_s.arg(f, SqlNumber(r.ctx, eximgan));
        filas.poner("porcentaje = "_L1 + SqlRound(r.ctx, u"INTERNOS"_s, reducido, u"00.00"), ganancias);
        AgregarVentaja(r, filas.iditem, u"GANANEXIMICION"_s);
    } else {
        filas.poner("porcentaje = 3 * "_L1 + f, ganancias);
    }
}

}  // namespace

void LeerCliente(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar("select cuit, eximgan,eximganvalor,eximganvalortemp,"
                     "ivaareduccion,ivaareduccionvalor,cvdi,ivaareduccionvalortemp,"
                     "ingbru,ExcepLAPIAEC "
                     "from clientes "
                     "where cuit = "_L1 +
                         EnComillas(r.cuitcliente),
                     rs, u"PERSONAL"_s))
        return;
    const auto si = [&rs](QStringView columna) { return rs.Texto(columna).toUpper() == "S"_L1; };
    const bool temporal = r.idsubreg.startsWith("TG"_L1);
    r.ClienteCuit = rs.Texto(u"Cuit");
    r.ingbru = rs.Numero(u"INGBRU");
    r.cvdi = si(u"CVDI");
    r.eximgan = si(u"EximGan") ? rs.Numero(temporal ? u"eximganvalortemp" : u"eximganvalor") : 0;
    r.ivareduccion =
        si(u"ivaareduccion") ? rs.Numero(temporal ? u"ivaareduccionvalortemp" : u"ivaareduccionvalor") : 0;
    if (empiezaCon(r.idsubreg, {"EC"_L1, "DIR"_L1})) r.ivareduccion = 0;
}

void GenerarLiq(ContextoArmado &r, const QString &conceptos, const QString &iditem, double &eximgan,
                double ivareduccion, bool cvdi, double porcentajeiva, double /*sbtrei*/, double &ingbru,
                const QString &itfiller) {
    const QString lista = "('"_L1 + QString(conceptos).replace(','_L1, "','"_L1) + "')"_L1;
    const FilasDelItem filas{r, iditem};
    r.mandar(
        u"insert into itemliq (PGC,iditem,idconceptos,interno,conceptos,porcentaje) "
        "select distinct CTAXPOG,%1,ctax,%2,ltaxabr,porcentaje "
        "from tax "
        "where ctax in %3"_s.arg(iditem, r.clave(), lista));
    r.mandar(
        u"update itemliq set porcentaje = '0',baseimp = '0', total = '0' "
        "where interno = %1 and iditem = %2 and idconceptos in %3"_s.arg(r.clave(), iditem, lista));
    if (porcentajeiva == 10.5) filas.poner(u"porcentaje = 10.5"_s, "idconceptos in ('415','852')"_L1);
    if (ingbru > 0) {
        if (!cvdi) ingbru = 1.5;
        filas.poner("porcentaje = "_L1 + SqlNumber(r.ctx, ingbru), "idconceptos = '900'"_L1);
    }
    const double factor = cvdi ? 1 : 2;
    ponerIvaAdicional(filas, r.idsubreg, ivareduccion, factor);
    ponerGanancias(filas, r.idsubreg, eximgan, factor);
    if (r.ctx.decreto.alguno()) filas.poner(u"porcentaje = 11"_s, soloGanancias);
    if (r.idsubreg.startsWith("TR"_L1)) {
        filas.poner(u"porcentaje = 11"_s, soloGanancias);
        filas.pgcGarantizado();
    }
    if (r.idsubreg == "IT04"_L1) filas.pgcGarantizado();
    if (r.idsubreg.startsWith("EC"_L1) && itfiller.toUpper() == "M"_L1)
        AgregarVentaja(r, iditem, u"MUESTRAEXPO"_s);
}

void ArmarRegistrosDeLiquidacion(ContextoArmado &r) {
    Listas listas = elegirListas(r);
    if (!r.esDJAI())
        GenerarLiq(r, listas.itemCero, u"0"_s, r.eximgan, r.ivareduccion, r.cvdi, 0, 0, r.ingbru, {});
    const bool digitalizacion = r.opciones.chkCalcularServicioDigitalizacion;
    Recordset items;
    r.consultar(
        u"select * from item "
        "where interno = %1 and id<>0"_s.arg(r.clave()),
        items);
    for (; !items.Eof(); items.MoveNext()) {
        const QString id = items.Texto(u"id");
        const QString itfiller = items.Texto(u"itfiller");
        const double sbtrei = items.Numero(u"SBTREI");
        const QString estado = items.Texto(u"estadomerc");
        const auto generar = [&](const QString &conceptos, double iva) {
            GenerarLiq(r, conceptos, id, r.eximgan, r.ivareduccion, r.cvdi, iva, sbtrei, r.ingbru, itfiller);
        };
        r.ctx.dialogos.avance(
            {Avance::Tipo::Etiqueta, 0, u"lbITM"_s, 0, 0, u"Creando liquidación Item: %1"_s.arg(id)});
        r.ctx.dialogos.atenderEventos();
        if (id == "1"_L1 && digitalizacion) generar(u"520"_s, 21);
        if (items.Texto(u"Biendeuso") == "S"_L1) {
            // The code stays in the list for every later capital good of the run.
            if (estado == "1"_L1) listas.bienUso += ",601"_L1;
            generar(listas.bienUso, 21);
        } else {
            generar(
                esUnaDe(estado, {"2"_L1, "4"_L1, "6"_L1}) ? listas.general : listas.general + ",601,611"_L1,
                0);
        }
    }
    r.mandar("update itemliq set valor = 0 where interno = "_L1 + r.clave());
    if (r.ctx.decreto.alguno())
        r.mandar(
            "update itemliq set pgc = 'G' "
            "where idconceptos not in ('900','500') and interno = "_L1 +
            r.clave());
}
