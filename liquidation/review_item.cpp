// What one recalculation reads ahead of the concepts: the header, the item, the position and its rates.
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "header/regime.h"
#include "liquidation/review.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using entidad::internos;

QString sentenciaDeCaratula(const QString &interno) {
    return "select * from caratula where interno = "_L1 + EnComillas(interno);
}
QString sentenciaDelFobDeLineas(const QString &interno) {
    return "select sum(fob) as total from groupsubitems where interno = "_L1 + EnComillas(interno);
}
QString sentenciaDelFobSinG(const QString &interno) {
    return "select sum(fobtotal) as total from item where interno = "_L1 + EnComillas(interno) +
           " and tipoitem <> 'G'"_L1;
}
QString sentenciaDeDecretos(const QString &interno) {
    return "select flag,valor from sysflag where interno = "_L1 + EnComillas(interno);
}
QString sentenciaDeSumas(const QString &interno, const QString &id) {
    return "select SUM(fobtotal) as vfob,sum(itflete) as flete,sum(itseguro) as seguro"
           " from item"
           " where interno = "_L1 +
           EnComillas(interno) + (id == "0"_L1 ? u" and id <> 0"_s : " and id = "_L1 + id);
}

double suma(AppContext &ctx, const QString &sql) {
    Recordset rs;
    return Consultar(ctx, internos, sql, rs) ? rs.Numero(u"total") : 0;
}

/// A number of the nomenclature, kept as text with either separator.
double numeroDe(const Recordset &rs, QStringView columna) {
    return numeros::aNumero(rs.Texto(columna));
}

/// The percentage kept in a row of the item, where the row is; null when it holds none.
struct TasaGuardada {
    bool hay = false;
    double porcentaje = 0;
};
QString sentenciaDeTasa(const QString &interno, const QString &id, const char *concepto,
                        const char *cola = "") {
    return "select porcentaje from itemliq"
           " where idconceptos = "_L1 +
           EnComillas(L(concepto)) + " and interno = "_L1 + EnComillas(interno) + " and iditem = "_L1 + id +
           L(cola);
}

QString sentenciaDelAdicional(const QString &interno, const QString &id) {
    return sentenciaDeTasa(interno, id, "016", " and valor = 1");
}

TasaGuardada leerTasa(AppContext &ctx, const QString &sentencia) {
    Recordset rs;
    return Consultar(ctx, internos, sentencia, rs) ? TasaGuardada{true, rs.Numero(u"Porcentaje")}
                                                   : TasaGuardada{};
}

/// Percent of the additional rate that a decree of temporary importation sets.
const char *tasaDelDecreto(const MotivoDecreto &d) {
    const L si("S");
    if (d.d1439_96 == si) return "24";
    if (d.d1439_96A1 == si) return "48";
    if (d.d1330_04A6 == si) return "24";
    if (d.d1330_04A7 == si) return "48";
    return d.d1330_04A8 == si ? "72" : "0";
}

bool llevaAdicional(const QString &regimen) {
    return regimen == "IC81"_L1 || EsRegimenTemporal(regimen);
}

QString derechoAdicional(AppContext &ctx, const QString &interno, const QString &id, const QString &regimen) {
    if (!llevaAdicional(regimen)) return u"0"_s;
    const TasaGuardada manual = leerTasa(ctx, sentenciaDelAdicional(interno, id));
    return manual.hay ? numeros::aTexto(manual.porcentaje) : QString(L(tasaDelDecreto(ctx.decreto)));
}

void leerDecretos(AppContext &ctx, const QString &interno) {
    MotivoDecreto d;
    Recordset rs;
    for (Consultar(ctx, internos, sentenciaDeDecretos(interno), rs); !rs.Eof(); rs.MoveNext()) {
        const QString flag = rs.Texto(u"flag");
        const QString valor = rs.Texto(u"valor");
        if (flag == "1439/96"_L1) d.d1439_96 = valor;
        if (flag == "1439/96A1"_L1) d.d1439_96A1 = valor;
        if (flag == "D1330/04A6"_L1) d.d1330_04A6 = valor;
        if (flag == "D1330/04A7"_L1) d.d1330_04A7 = valor;
        if (flag == "D1330/04A8"_L1) d.d1330_04A8 = valor;
    }
    ctx.decreto = d;
}

void cargarPosicion(AppContext &ctx, const QString &interno, const QString &id, const QString &ncm,
                    const Recordset &p, ClassLiquidacion &c, bool paraVer) {
    const TasaGuardada derecho = leerTasa(ctx, sentenciaDeTasa(interno, id, "010"));
    const TasaGuardada estadistica = leerTasa(ctx, sentenciaDeTasa(interno, id, "011"));
    const bool fijado = derecho.hay && derecho.porcentaje > 0;
    c.NcmDerechodeImportacionExtrazona =
        fijado ? derecho.porcentaje : (derecho.hay ? numeroDe(p, u"015") : 0);
    if (paraVer) c.NcmDerechodeImportacionExtrazonaForce = fijado;
    c.NcmTasaEstadistica = estadistica.hay && estadistica.porcentaje != 0
                               ? estadistica.porcentaje
                               : (estadistica.hay ? numeroDe(p, u"016") : 0);
    c.fijarNcmDerechoAdicional(derechoAdicional(ctx, interno, id, c.CaratulaSubRegimen));
    c.GetMarcaImpuestosInternos(ncm);
    c.NcmDerechodeExpo = numeroDe(p, u"018");
    c.ncmCantidadDerechoEspecifico = numeroDe(p, u"017");
    c.NcmUnidadDerechoEspecifico = p.Texto(u"020");
    c.NcmIndicadorMaximoArancel = numeroDe(p, u"053");
    c.ncmReintegroFijo = numeroDe(p, u"019");
    c.ncmReintFijoIntraZona = numeroDe(p, u"023");
    c.ncmExencionReduccionIVA = static_cast<int>(numeroDe(p, u"048"));
    c.ncm_AEC = p.Texto(u"028");
    c.ncmValor_AEC = numeroDe(p, u"026");
}

}  // namespace

QStringList LecturasDeCaratula(const QString &interno, FobDeOperacion fob) {
    QStringList sentencias{sentenciaDeCaratula(interno)};
    if (fob == FobDeOperacion::DeSusLineas) sentencias << sentenciaDelFobDeLineas(interno);
    return sentencias << sentenciaDelFobSinG(interno) << sentenciaDeDecretos(interno);
}

QStringList LecturasDeItem(const QString &interno, const QString &id, const QString &regimen) {
    QStringList sentencias{sentenciaDeSumas(interno, id), sentenciaDeTasa(interno, id, "010"),
                           sentenciaDeTasa(interno, id, "011")};
    if (llevaAdicional(regimen)) sentencias << sentenciaDelAdicional(interno, id);
    return sentencias;
}

bool CargarCaratulaEnCalculadora(AppContext &ctx, const QString &interno, ClassLiquidacion &c,
                                 FobDeOperacion fob) {
    Recordset rs;
    if (!Consultar(ctx, internos, sentenciaDeCaratula(interno), rs)) return false;
    c.CaratulaSubRegimen = RegimenEnMayusculas(rs.Texto(u"idsubreg"));
    c.CaratulaFobTotal = rs.Numero(u"fobdivisas");
    if (fob == FobDeOperacion::DeSuCaratula) c.CaratulaFobTotal += rs.Numero(u"valoraprorratear");
    c.CaratulaFleteTotal = rs.Numero(u"fletedivisas");
    c.CaratulaSeguroValor = rs.Numero(u"segurodivisas");
    // The value first: the percentage fills it when it is 0.
    c.fijarCaratulaSeguroProcent(rs.Numero(u"seguroporcentaje"));
    c.CaratulaFactordeConvergencia = rs.Numero(u"factorconver");
    c.CaratulaAjusteIncluir = rs.Numero(u"ajusteincluir");
    c.CaratulaAjusteDeducir = rs.Numero(u"ajustededucir");
    c.CaratulaDivisasFOB = rs.Numero(u"fobdivcambio");
    c.CaratulaDivisasFlete = rs.Numero(u"fletedivcambio");
    c.CaratulaDivisasSeguro = rs.Numero(u"segurodivcambio");
    if (fob == FobDeOperacion::DeSusLineas) c.CaratulaFobTotal = suma(ctx, sentenciaDelFobDeLineas(interno));
    c.CaratulaFobTotalSinG = suma(ctx, sentenciaDelFobSinG(interno));
    leerDecretos(ctx, interno);
    return true;
}

CargaDePosicion CargarItemEnCalculadora(AppContext &ctx, const QString &interno, const Recordset &item,
                                        ClassLiquidacion &c, bool paraVer, bool &lapi,
                                        PosicionesLeidas &posiciones) {
    const QString id = item.Texto(u"ID");
    Recordset rs;
    Consultar(ctx, internos, sentenciaDeSumas(interno, id), rs);
    c.FOBTotalITEM = rs.Numero(u"vfob");
    c.FLETETotalITEM = rs.Numero(u"flete");
    c.SEGUROTotalITEM = rs.Numero(u"seguro");
    c.AJUSTEINCLUIRtotalITEM = item.Numero(u"ajusteinc");
    c.AJUSTEDEDUCIRtotalITEM = item.Numero(u"ajusteded");
    c.ItemLista = item.Texto(u"Lista");
    c.ItemLISTA_MERCOSUR = c.ItemLista.toUpper() == "MERCOSUR"_L1;
    c.fijarItemCantidad(item.Numero(u"Cantidad"));
    c.ItemIdPais = item.Texto(u"Idpais");
    c.ItmComsionesExt = item.Numero(u"itcomext");
    c.ItmImportacionTemporal = item.Numero(u"insumostemp");
    c.ItmImportacionTmpCons = item.Numero(u"insumosacons");
    c.ItemCoeficienteExportacion = item.Numero(u"cofexp");
    c.ItemEstadoMercaderia = item.Texto(u"estadomerc").left(1);
    c.ItemCantidadDerechoEspecifico = item.Numero(u"valorderesp");
    c.ItemCalcularCoeficienteExportacion =
        c.CaratulaSubRegimen.left(1).toUpper() == "E"_L1 && ctx.CalcularCoeficiente;
    c.ItemMineria = item.Texto(u"Mineria") == "S"_L1;
    c.ncmMineriaTasaLey = 1;

    const QString ncm = PosicionDeItem(item);
    if (!PosicionBienFormada(ncm)) return CargaDePosicion::MalFormada;
    const Recordset &posicion = posiciones.nomenclador(ncm);
    // Everything that hangs on the position stays as the item before left it.
    if (posicion.Eof()) return CargaDePosicion::NoEsta;
    cargarPosicion(ctx, interno, id, ncm, posicion, c, paraVer);
    lapi = posicion.Texto(u"lapi") == "*"_L1;
    c.CalculoAEC = ctx.CalculoAEC;
    c.ncmDIEMPREFPorcValor = ctx.opciones.DIEMCHINA_PrefPorc;
    c.ncmDIEMIndMaxArancelValor = ctx.opciones.DIEMCHINA_IndMaxArancel;
    const Recordset &diem = posiciones.diemChina(ncm);
    c.ncmCalculaDIEMCHINA = !diem.Eof();
    if (c.ncmCalculaDIEMCHINA) c.ncmDIEMCHINAValor = diem.Numero(u"diem");
    return CargaDePosicion::Encontrada;
}
