#include <array>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

bool empieza(const QString &codigo, const char *prefijo) {
    return codigo.startsWith(L(prefijo));
}

/// The concept lists of one run.
struct Listas {
    QString general;
    QString bienUso;
    QString itemCero;
};

bool esUnaDe(const QString &codigo, std::initializer_list<const char *> codigos) {
    for (const char *c : codigos)
        if (codigo == L(c)) return true;
    return false;
}

Listas elegirListas(ContextoArmado &r) {
    if (r.esDJAI()) return {};
    const QString &regimen = r.idsubreg;
    if (esUnaDe(regimen, {"LAPI", "IC34", "EC02"}) || empieza(regimen, "RE"))
        return {"501"_L1, "501"_L1, "501"_L1};
    if (!r.cstaimpexp.startsWith("I"_L1)) {
        const QString exportacion = u"020,501,601,611"_s;
        return {exportacion, exportacion, exportacion};
    }
    Listas listas{"010,015,011,016,032,059,061,062,415,417,422,424,500,852,854,856,866"_L1,
                  "015,010,011,032,415,500,061,062"_L1, "020,500"_L1};
    if (empieza(regimen, "IC")) listas.general += ",900,065,417"_L1;
    if (empieza(regimen, "IG")) listas.general += ",900,065"_L1;
    if (esUnaDe(regimen, {"ZFE1", "ZFE3", "ZFE5", "ZFET", "ZFTR"})) listas.general += ",900"_L1;
    if (empieza(regimen, "IDA4")) {
        // Without a comma, so that the last two codes run together; the list is replaced right away.
        listas.general += "010"_L1;
        listas.general = listas.bienUso = u"500"_s;
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

    void poner(const QString &cambios, const char *donde) const {
        r.ejecutar("update itemliq set "_L1 + cambios + " where "_L1 + L(donde) + " and interno = '"_L1 +
                   r.interno + "' and iditem = "_L1 + iditem);
    }
    void pgcGarantizado() const {
        r.ejecutar("update itemliq set pgc = 'G' where interno = '"_L1 + r.interno + "' and iditem = "_L1 +
                   iditem);
    }
    void ventaja(const char *codigo) const {
        r.ejecutar("insert into itemventaja (iditem,interno,idventaja) values ("_L1 + iditem + ",'"_L1 +
                   r.interno + "','"_L1 + L(codigo) + "')"_L1);
    }
};

constexpr const char *adicionales = "idconceptos in ('422','854')";
constexpr const char *ganancias = "idconceptos in ('424','856')";

/// Concepts 422 and 854: additional VAT, less the client's exclusion, doubled without a registered
/// declaration.
void ponerIvaAdicional(const FilasDelItem &filas, const QString &idsubreg, double ivareduccion,
                       double factor) {
    const QString f = SqlNumber(filas.r.ctx, factor);
    if (ivareduccion > 0 && !empieza(idsubreg, "TR") && !empieza(idsubreg, "IT") && !idsubreg.isEmpty()) {
        if (ivareduccion >= 100) {
            // Not zero, so that the row stays alive.
            filas.poner(u"porcentaje = 0.00001"_s, adicionales);
        } else {
            const QString reduccion = SqlNumber(filas.r.ctx, ivareduccion);
            filas.poner(u"porcentajeb = '5', porcentaje='10'"_s, adicionales);
            filas.poner("porcentaje = "_L1 + SqlRound(filas.r.ctx, u"INTERNOS"_s,
                                                      "(porcentaje * "_L1 + f + ") - (("_L1 + reduccion +
                                                          " * (porcentaje * "_L1 + f + ")) / 100)"_L1,
                                                      u"00.000"),
                        adicionales);
            filas.poner("porcentajeb = "_L1 + SqlRound(filas.r.ctx, u"INTERNOS"_s,
                                                       "((porcentajeb) * "_L1 + f + ") - (("_L1 + reduccion +
                                                           " * (porcentajeb * "_L1 + f + ")) / 100)"_L1,
                                                       u"00.000"),
                        adicionales);
        }
        if (!empieza(idsubreg, "DIR") && !empieza(idsubreg, "IDA")) filas.ventaja("IVAADREDUCCION");
    } else if (empieza(idsubreg, "TR")) {
        filas.poner(u"porcentajeb = '20', porcentaje='20'"_s, adicionales);
    } else {
        filas.poner(u"porcentajeb = '5', porcentaje='10'"_s, adicionales);
        filas.poner("porcentaje = porcentaje * "_L1 + f + ", porcentajeb = porcentajeb * "_L1 + f,
                    adicionales);
    }
}

/// Concepts 424 and 856: advance income tax. An exclusion of exactly 100 becomes 200 and stays so for the
/// later items.
void ponerGanancias(const FilasDelItem &filas, const QString &idsubreg, double &eximgan, double factor) {
    const QString f = SqlNumber(filas.r.ctx, factor);
    if (eximgan > 0 && !empieza(idsubreg, "DIR") && !empieza(idsubreg, "IDA")) {
        if (eximgan == 100) eximgan = 200;
        filas.poner(
            "porcentaje = "_L1 + SqlRound(filas.r.ctx, u"INTERNOS"_s,
                                          "(3 * "_L1 + f + ") - (("_L1 + SqlNumber(filas.r.ctx, eximgan) +
                                              " * 3 * "_L1 + f + ") / 100)"_L1,
                                          u"00.00"),
            ganancias);
        filas.ventaja("GANANEXIMICION");
    } else {
        filas.poner("porcentaje = 3 * "_L1 + f, ganancias);
    }
}

}  // namespace

void LeerCliente(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar("select cuit, "
                     "eximgan,eximganvalor,eximganvalortemp,ivaareduccion,ivaareduccionvalor,cvdi,"
                     "ivaareduccionvalortemp,ingbru,ExcepLAPIAEC from "
                     "clientes where cuit = '"_L1 +
                         r.cuitcliente + "'"_L1,
                     rs, u"PERSONAL"_s))
        return;
    const auto si = [&rs](QStringView columna) { return rs.Texto(columna).toUpper() == "S"_L1; };
    const bool temporal = empieza(r.idsubreg, "TG");
    r.ClienteCuit = rs.Texto(u"Cuit");
    r.ingbru = rs.Numero(u"INGBRU");
    r.cvdi = si(u"CVDI");
    r.eximgan = si(u"EximGan") ? rs.Numero(temporal ? u"eximganvalortemp" : u"eximganvalor") : 0;
    r.ivareduccion =
        si(u"ivaareduccion") ? rs.Numero(temporal ? u"ivaareduccionvalortemp" : u"ivaareduccionvalor") : 0;
    if (empieza(r.idsubreg, "EC") || empieza(r.idsubreg, "DIR")) r.ivareduccion = 0;
}

void GenerarLiq(ContextoArmado &r, const QString &conceptos, const QString &iditem, double &eximgan,
                double ivareduccion, bool cvdi, double porcentajeiva, double /*sbtrei*/, double &ingbru,
                const QString &itfiller) {
    const QString lista = "('"_L1 + QString(conceptos).replace(QLatin1Char(','), "','"_L1) + "')"_L1;
    const FilasDelItem filas{r, iditem};
    r.ejecutar(
        "insert into itemliq (PGC,iditem,idconceptos,interno,conceptos,porcentaje) select distinct "
        "CTAXPOG,"_L1 +
        iditem + ",ctax,'"_L1 + r.interno + "',ltaxabr,porcentaje from tax where ctax in "_L1 + lista);
    r.ejecutar("update itemliq set porcentaje = '0',baseimp = '0', total = '0' where interno = '"_L1 +
               r.interno + "' and iditem = "_L1 + iditem + " and idconceptos in "_L1 + lista);
    if (porcentajeiva == 10.5) filas.poner(u"porcentaje = 10.5"_s, "idconceptos in ('415','852')");
    if (ingbru > 0) {
        if (!cvdi) ingbru = 1.5;
        filas.poner("porcentaje = "_L1 + SqlNumber(r.ctx, ingbru), "idconceptos = '900'");
    }
    const double factor = cvdi ? 1 : 2;
    ponerIvaAdicional(filas, r.idsubreg, ivareduccion, factor);
    ponerGanancias(filas, r.idsubreg, eximgan, factor);
    if (r.ctx.decreto.alguno()) filas.poner(u"porcentaje = 11"_s, "idconceptos = '424'");
    if (empieza(r.idsubreg, "TR")) {
        filas.poner(u"porcentaje = 11"_s, "idconceptos = '424'");
        filas.pgcGarantizado();
    }
    if (r.idsubreg == "IT04"_L1) filas.pgcGarantizado();
    if (empieza(r.idsubreg, "EC") && itfiller.toUpper() == "M"_L1) filas.ventaja("MUESTRAEXPO");
}

void ArmarRegistrosDeLiquidacion(ContextoArmado &r) {
    Listas listas = elegirListas(r);
    if (!r.esDJAI())
        GenerarLiq(r, listas.itemCero, u"0"_s, r.eximgan, r.ivareduccion, r.cvdi, 0, 0, r.ingbru, {});
    const bool digitalizacion = r.opciones.chkCalcularServicioDigitalizacion;
    Recordset items;
    for (r.consultar("select * from item where interno = '"_L1 + r.interno + "' and id<>0"_L1, items);
         !items.Eof(); items.MoveNext()) {
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
            generar(esUnaDe(estado, {"2", "4", "6"}) ? listas.general : listas.general + ",601,611"_L1, 0);
        }
    }
    r.ejecutar("update itemliq set valor = 0 where interno = '"_L1 + r.interno + "'"_L1);
    if (r.ctx.decreto.alguno())
        r.ejecutar("update itemliq set pgc = 'G' where idconceptos not in ('900','500') and interno = '"_L1 +
                   r.interno + "'"_L1);
}
