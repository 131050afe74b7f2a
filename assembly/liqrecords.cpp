#include <array>

#include "assembly/run.h"
#include "frame/numbers.h"
#include "frame/values.h"

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
        return {L("501"), L("501"), L("501")};
    if (!r.cstaimpexp.startsWith(L("I"))) {
        const QString exportacion = QStringLiteral("020,501,601,611");
        return {exportacion, exportacion, exportacion};
    }
    Listas listas{L("010,015,011,016,032,059,061,062,415,417,422,424,500,852,854,856,866"),
                  L("015,010,011,032,415,500,061,062"), L("020,500")};
    if (empieza(regimen, "IC")) listas.general += L(",900,065,417");
    if (empieza(regimen, "IG")) listas.general += L(",900,065");
    if (esUnaDe(regimen, {"ZFE1", "ZFE3", "ZFE5", "ZFET", "ZFTR"})) listas.general += L(",900");
    if (empieza(regimen, "IDA4")) {
        // Without a comma, so that the last two codes run together; the list is replaced right away.
        listas.general += L("010");
        listas.general = listas.bienUso = QStringLiteral("500");
        r.opciones.ChMulta = r.ctx.CalcularMulta =
            r.ctx.dialogos.preguntar({QStringLiteral("Desea calcular multas?"), {}, Icono::Pregunta, false});
        // The dashboard stands behind the run's screen: its box follows.
        r.ctx.dialogos.avance(
            {Avance::Tipo::Etiqueta, 0, QStringLiteral("ChMulta"), r.opciones.ChMulta ? 1 : 0, 1, {}});
    }
    if (r.opciones.ChMulta) {
        listas.general += L(",041");
        listas.bienUso += L(",041");
    }
    return listas;
}

/// An "update itemliq" over the rows of one item.
struct FilasDelItem {
    ContextoArmado &r;
    QString iditem;

    void poner(const QString &cambios, const char *donde) const {
        r.ejecutar(L("update itemliq set ") + cambios + L(" where ") + L(donde) + L(" and interno = '") +
                   r.interno + L("' and iditem = ") + iditem);
    }
    void pgcGarantizado() const {
        r.ejecutar(L("update itemliq set pgc = 'G' where interno = '") + r.interno + L("' and iditem = ") +
                   iditem);
    }
    void ventaja(const char *codigo) const {
        r.ejecutar(L("insert into itemventaja (iditem,interno,idventaja) values (") + iditem + L(",'") +
                   r.interno + L("','") + L(codigo) + L("')"));
    }
};

constexpr const char *adicionales = "idconceptos in ('422','854')";
constexpr const char *ganancias = "idconceptos in ('424','856')";

/// Concepts 422 and 854: additional VAT, less the client's exclusion, doubled without a registered
/// declaration.
void ponerIvaAdicional(const FilasDelItem &filas, const QString &idsubreg, double ivareduccion,
                       double factor) {
    const QString f = SqlNumber(factor);
    if (ivareduccion > 0 && !empieza(idsubreg, "TR") && !empieza(idsubreg, "IT") && !idsubreg.isEmpty()) {
        if (ivareduccion >= 100) {
            // Not zero, so that the row stays alive.
            filas.poner(QStringLiteral("porcentaje = 0.00001"), adicionales);
        } else {
            const QString reduccion = SqlNumber(ivareduccion);
            filas.poner(QStringLiteral("porcentajeb = '5', porcentaje='10'"), adicionales);
            filas.poner(L("porcentaje = ") + SqlRound(QStringLiteral("INTERNOS"),
                                                      L("(porcentaje * ") + f + L(") - ((") + reduccion +
                                                          L(" * (porcentaje * ") + f + L(")) / 100)"),
                                                      u"00.000"),
                        adicionales);
            filas.poner(L("porcentajeb = ") + SqlRound(QStringLiteral("INTERNOS"),
                                                       L("((porcentajeb) * ") + f + L(") - ((") + reduccion +
                                                           L(" * (porcentajeb * ") + f + L(")) / 100)"),
                                                       u"00.000"),
                        adicionales);
        }
        if (!empieza(idsubreg, "DIR") && !empieza(idsubreg, "IDA")) filas.ventaja("IVAADREDUCCION");
    } else if (empieza(idsubreg, "TR")) {
        filas.poner(QStringLiteral("porcentajeb = '20', porcentaje='20'"), adicionales);
    } else {
        filas.poner(QStringLiteral("porcentajeb = '5', porcentaje='10'"), adicionales);
        filas.poner(L("porcentaje = porcentaje * ") + f + L(", porcentajeb = porcentajeb * ") + f,
                    adicionales);
    }
}

/// Concepts 424 and 856: advance income tax. An exclusion of exactly 100 becomes 200 and stays so for the
/// later items.
void ponerGanancias(const FilasDelItem &filas, const QString &idsubreg, double &eximgan, double factor) {
    const QString f = SqlNumber(factor);
    if (eximgan > 0 && !empieza(idsubreg, "DIR") && !empieza(idsubreg, "IDA")) {
        if (eximgan == 100) eximgan = 200;
        filas.poner(L("porcentaje = ") + SqlRound(QStringLiteral("INTERNOS"),
                                                  L("(3 * ") + f + L(") - ((") + SqlNumber(eximgan) +
                                                      L(" * 3 * ") + f + L(") / 100)"),
                                                  u"00.00"),
                    ganancias);
        filas.ventaja("GANANEXIMICION");
    } else {
        filas.poner(L("porcentaje = 3 * ") + f, ganancias);
    }
}

}  // namespace

void LeerCliente(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar(L("select cuit, "
                       "eximgan,eximganvalor,eximganvalortemp,ivaareduccion,ivaareduccionvalor,cvdi,"
                       "ivaareduccionvalortemp,ingbru,ExcepLAPIAEC from "
                       "clientes where cuit = '") +
                         r.cuitcliente + L("'"),
                     rs, QStringLiteral("PERSONAL")))
        return;
    const auto si = [&rs](QStringView columna) { return rs.Texto(columna).toUpper() == L("S"); };
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
    const QString lista = L("('") + QString(conceptos).replace(QLatin1Char(','), L("','")) + L("')");
    const FilasDelItem filas{r, iditem};
    r.ejecutar(L("insert into itemliq (PGC,iditem,idconceptos,interno,conceptos,porcentaje) select distinct "
                 "CTAXPOG,") +
               iditem + L(",ctax,'") + r.interno + L("',ltaxabr,porcentaje from tax where ctax in ") + lista);
    r.ejecutar(L("update itemliq set porcentaje = '0',baseimp = '0', total = '0' where interno = '") +
               r.interno + L("' and iditem = ") + iditem + L(" and idconceptos in ") + lista);
    if (porcentajeiva == 10.5)
        filas.poner(QStringLiteral("porcentaje = 10.5"), "idconceptos in ('415','852')");
    if (ingbru > 0) {
        if (!cvdi) ingbru = 1.5;
        filas.poner(L("porcentaje = ") + SqlNumber(ingbru), "idconceptos = '900'");
    }
    const double factor = cvdi ? 1 : 2;
    ponerIvaAdicional(filas, r.idsubreg, ivareduccion, factor);
    ponerGanancias(filas, r.idsubreg, eximgan, factor);
    if (r.ctx.decreto.alguno()) filas.poner(QStringLiteral("porcentaje = 11"), "idconceptos = '424'");
    if (empieza(r.idsubreg, "TR")) {
        filas.poner(QStringLiteral("porcentaje = 11"), "idconceptos = '424'");
        filas.pgcGarantizado();
    }
    if (r.idsubreg == L("IT04")) filas.pgcGarantizado();
    if (empieza(r.idsubreg, "EC") && itfiller.toUpper() == L("M")) filas.ventaja("MUESTRAEXPO");
}

void ArmarRegistrosDeLiquidacion(ContextoArmado &r) {
    Listas listas = elegirListas(r);
    if (!r.esDJAI())
        GenerarLiq(r, listas.itemCero, QStringLiteral("0"), r.eximgan, r.ivareduccion, r.cvdi, 0, 0, r.ingbru,
                   {});
    const bool digitalizacion = r.opciones.chkCalcularServicioDigitalizacion;
    Recordset items;
    for (r.consultar(L("select * from item where interno = '") + r.interno + L("' and id<>0"), items);
         !items.Eof(); items.MoveNext()) {
        const QString id = items.Texto(u"id");
        const QString itfiller = items.Texto(u"itfiller");
        const double sbtrei = items.Numero(u"SBTREI");
        const QString estado = items.Texto(u"estadomerc");
        const auto generar = [&](const QString &conceptos, double iva) {
            GenerarLiq(r, conceptos, id, r.eximgan, r.ivareduccion, r.cvdi, iva, sbtrei, r.ingbru, itfiller);
        };
        r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, QStringLiteral("lbITM"), 0, 0,
                               QStringLiteral("Creando liquidación Item: %1").arg(id)});
        r.ctx.dialogos.atenderEventos();
        if (id == L("1") && digitalizacion) generar(QStringLiteral("520"), 21);
        if (items.Texto(u"Biendeuso") == L("S")) {
            // The code stays in the list for every later capital good of the run.
            if (estado == L("1")) listas.bienUso += L(",601");
            generar(listas.bienUso, 21);
        } else {
            generar(esUnaDe(estado, {"2", "4", "6"}) ? listas.general : listas.general + L(",601,611"), 0);
        }
    }
    r.ejecutar(L("update itemliq set valor = 0 where interno = '") + r.interno + L("'"));
    if (r.ctx.decreto.alguno())
        r.ejecutar(L("update itemliq set pgc = 'G' where idconceptos not in ('900','500') and interno = '") +
                   r.interno + L("'"));
}
