#include "liquidation/review.h"

#include <QStringBuilder>
#include <algorithm>

#include "frame/numbers.h"
#include "frame/values.h"
#include "header/automotive.h"
#include "liquidation/vehiculopartes.h"

namespace {

using L = QLatin1String;
using numeros::aNumero;
using numeros::Format;

const QString internos = QStringLiteral("INTERNOS");

QString conMascara(double valor) {
    return Format(valor, u"00.00");
}

/// One concept code of the operation, in order of first appearance.
struct Resumen {
    QString concepto;
    QString total;  ///< carried as text, added as numbers
    QString pgc;
};

/// The run and what it gathers.
struct Corrida {
    AppContext &ctx;
    const QString &interno;
    ClassLiquidacion &calculo;
    ResultadoRecalculo r;
    std::vector<Resumen> resumen;
    VehiculoPartes vehiculoPartes;
    double base = 0;  ///< goes from row to row
    bool lapi = false;

    qint64 ejecutar(const QString &sql) const { return Ejecutar(ctx, internos, sql); }
    bool consultar(const QString &sql, Recordset &rs) const { return Consultar(ctx, internos, sql, rs); }
};

/// The total of one stored row. A percentage fixed by hand runs on the row's own base; any other is the
/// system's.
double totalDe(Corrida &k, const Recordset &fila, const QString &codigo) {
    const double porcentaje = fila.Numero(u"Porcentaje");
    const double baseGuardada = fila.Numero(u"Baseimp");
    const double valor = fila.Numero(u"Valor");
    const bool vacio = fila.EsNulo(u"Porcentaje");
    const bool ordinario = vacio || porcentaje == 0 ||
                           (k.calculo.ItemLISTA_MERCOSUR && codigo != L("424") && codigo != L("422"));
    QString texto = vacio ? QStringLiteral("Vacio") : fila.Texto(u"Porcentaje");
    if (!ordinario) {
        k.base = baseGuardada;
        return k.calculo.ObtenerValorConcepto(codigo, texto, valor, k.base, fila.Texto(u"PorcentajeB"),
                                              baseGuardada, true);
    }
    static constexpr const char *conTasaPropia[] = {"424", "422", "900", "854", "856"};
    if (std::any_of(std::begin(conTasaPropia), std::end(conTasaPropia),
                    [&codigo](const char *c) { return codigo == L(c); }))
        return k.calculo.ObtenerValorConcepto(codigo, texto, valor, k.base, {}, 0, false);
    k.base = baseGuardada;
    if (porcentaje != 0 && baseGuardada != 0)
        return k.calculo.ObtenerValorConcepto(codigo, texto, valor, k.base, QStringLiteral("0"), 0, false);
    texto = QStringLiteral("Vacio");
    return k.calculo.ObtenerValorConcepto(codigo, texto, valor, k.base, {}, 0, false);
}

void sumarAlResumen(Corrida &k, const DetalleLiq &d) {
    const auto ya = std::find_if(k.resumen.begin(), k.resumen.end(),
                                 [&d](const Resumen &r) { return r.concepto == d.concepto; });
    if (ya != k.resumen.end())
        ya->total = conMascara(aNumero(ya->total) + aNumero(d.total));
    else
        k.resumen.push_back({d.concepto, d.total, d.pgc});
}

void recalcularConceptos(Corrida &k, const QString &id) {
    Recordset filas;
    for (k.consultar(L("select * from itemliq where iditem> 0 and interno = '") + k.interno +
                         L("' and iditem = ") + id + L(" ORDER BY idconceptos"),
                     filas);
         !filas.Eof(); filas.MoveNext()) {
        const QString codigo = filas.Texto(u"idconceptos").trimmed();
        const double total = totalDe(k, filas, codigo);
        const double porcentaje = k.calculo.ObtenerLqPorc();
        if (codigo == L("020") && id != L("0"))
            k.ejecutar(L("update item set COFEXP = ") +
                       PonerPuntoDecimal(k.calculo.ItemCoeficienteExportacion) + L(" where interno = '") +
                       k.interno + L("' and id = ") + id);
        DetalleLiq d{codigo,
                     conMascara(total),
                     conMascara(porcentaje),
                     id,
                     filas.EsNulo(u"pgc") ? QStringLiteral("P") : filas.Texto(u"pgc").trimmed(),
                     conMascara(k.base),
                     filas.Texto(u"motivo").trimmed()};
        sumarAlResumen(k, d);
        k.r.detalle.push_back(std::move(d));
    }
}

void recalcularItem(Corrida &k, const Recordset &item) {
    const QString id = item.Texto(u"ID");
    const CargaDePosicion carga = CargarItemEnCalculadora(k.ctx, k.interno, item, k.calculo, false, k.lapi);
    if (carga == CargaDePosicion::MalFormada)
        k.ctx.dialogos.advertir(QStringLiteral("Estructura de NCM incorrecta"));
    if (carga == CargaDePosicion::Encontrada)
        RevisarVehiculoPartes(k.ctx, k.interno, id, k.lapi, k.calculo, k.vehiculoPartes);
    k.r.sumaAjusteInc += item.Numero(u"ajusteinc");
    k.r.sumaAjusteDed += item.Numero(u"ajusteded");
    k.r.sumaBaseImponible += k.calculo.ObtenerBaseImponible();
    k.r.sumaBaseIVA += k.calculo.ObtenerBaseIVA();
    recalcularConceptos(k, id);
}

QString filaDeTotal(const Corrida &k, const QString &codigo, const QString &concepto, const QString &valor,
                    const QString &pgc) {
    return L("insert into liqcero (idconcepto,concepto,valor,interno,pgc) values ('") + codigo + L("','") +
           DoblarComillas(concepto) + L("',") + SqlNumber(valor) + L(",'") + k.interno + L("','") + pgc +
           L("')");
}

void sumarPorPago(ResultadoRecalculo &r, const QString &pgc, double importe) {
    if (pgc == L("P")) r.totalP += importe;
    if (pgc == L("G")) r.totalG += importe;
    if (pgc == L("C")) r.totalC += importe;
}

/// One concept's line of the operation, in the grid and in liqcero.
void escribirTotal(Corrida &k, const Resumen &s) {
    Recordset rs;
    const bool hay =
        k.consultar(L("select LTAXABR as descripcion from tax where ctax = '") + s.concepto + L("'"), rs);
    const QString descripcion = hay ? rs.Texto(u"descripcion") : QString();
    const double total = aNumero(s.total);
    const auto mostrar = [&k](const QString &numero, const QString &concepto, const QString &importe,
                              const QString &pgc) {
        k.r.grilla.push_back({numero, concepto, {}, {}, importe, pgc, {}});
    };
    if (!hay && s.concepto == L("FCV")) {
        const QString convergencia = QStringLiteral("Factor de Convergencia");
        mostrar({}, L("(") + s.concepto + L(") ") + convergencia, conMascara(total), s.pgc);
        if (k.ejecutar(L("insert into liqcero (idconcepto,concepto,valor,interno) values ('") + s.concepto +
                       L("','") + convergencia + L("',") + SqlNumber(s.total) + L(",'") + k.interno +
                       L("')")) > 0)
            sumarPorPago(k.r, s.pgc, total);
    } else if (s.concepto == L("500") || s.concepto == L("501")) {
        // The fee of the customs system: once an operation, whatever its items hold.
        constexpr double arancel = 10;
        const QString enGrilla = QStringLiteral("10.00");  // this text under either separator
        const QString nombre =
            s.concepto == L("501") ? QStringLiteral("ARANCEL SIM EXPO") : QStringLiteral("ARANCEL SIM IMPO");
        mostrar(s.concepto, hay ? descripcion : nombre, enGrilla, QStringLiteral("P"));
        k.ejecutar(filaDeTotal(k, s.concepto, nombre, QStringLiteral("10"), QStringLiteral("P")));
        k.r.totalP += arancel;
    } else if (total > 0) {
        mostrar(s.concepto, descripcion, conMascara(total), s.pgc);
        k.ejecutar(filaDeTotal(k, s.concepto, descripcion, s.total, s.pgc));
        sumarPorPago(k.r, s.pgc, total);
    }
}

void escribirTotales(Corrida &k) {
    k.ejecutar(L("delete from liqcero where interno = '") + k.interno + L("'"));
    for (const Resumen &s : k.resumen) escribirTotal(k, s);
    const auto reservado = [&k](const char *codigo, double valor) {
        k.ejecutar(L("insert into liqcero (idconcepto,valor,interno) values ('") + L(codigo) + L("',") +
                   PonerPuntoDecimal(valor) + L(",'") + k.interno + L("')"));
    };
    reservado("###baseiva", k.r.sumaBaseIVA);
    reservado("###baseimp", k.r.sumaBaseImponible);
    reservado("###ajded", k.r.sumaAjusteDed);
    reservado("###ajinc", k.r.sumaAjusteInc);
}

void escribirDetalle(Corrida &k, const std::function<void(const QString &)> &estado) {
    k.ctx.dialogos.atenderEventos();
    for (const DetalleLiq &d : k.r.detalle) {
        // One of these a concept: built in one go.
        k.ejecutar(L("update itemliq set baseimp = ") % SqlNumber(d.base) % L(",porcentaje = ") %
                   SqlNumber(d.porcentaje) % L(",total = ") % SqlNumber(d.total) % L(",pgc = '") % d.pgc %
                   L("',motivo = '") % d.motivo % L("' where interno = '") % k.interno %
                   L("'   and iditem = ") % d.iditem % L("  and idconceptos = '") % d.concepto % L("'"));
        if (estado) estado(L("Liquidando ITEM ") + d.iditem + L(" ..."));
    }
    k.r.escrito = true;
}

/// The header's adjustment over the items by FOB; items of type G carry none.
void repartirAjuste(AppContext &ctx, const QString &interno, const ClassLiquidacion &calculo,
                    const char *columna, double importe, const char *tipo) {
    if (importe == 0) return;
    Recordset rs;
    for (Consultar(ctx, internos,
                   L("select id,(FOBtotal * ") + SqlNumber(importe) + L(") / (") +
                       SqlNumber(calculo.CaratulaFobTotalSinG) +
                       L(") as valor from item where id<>0 and interno = '") + interno + L("' and ") +
                       L(tipo),
                   rs);
         !rs.Eof(); rs.MoveNext())
        Ejecutar(ctx, internos,
                 L("update item set ") + L(columna) + L(" = ") + SqlNumber(conMascara(rs.Numero(u"valor"))) +
                     L(" where id = ") + rs.Texto(u"ID") + L(" and interno = '") + interno + L("'"));
}

}  // namespace

void RepartirAjustesDeCaratula(AppContext &ctx, const QString &interno, const ClassLiquidacion &calculo) {
    repartirAjuste(ctx, interno, calculo, "ajusteinc", calculo.CaratulaAjusteIncluir, "tipoitem <> 'G'");
    repartirAjuste(ctx, interno, calculo, "ajusteded", calculo.CaratulaAjusteDeducir, "tipoitem<>'G'");
}

ResultadoRecalculo RecalcularOperacion(AppContext &ctx, const QString &interno, ClassLiquidacion &calculo,
                                       const std::function<void(const QString &)> &estado) {
    const Reloj reloj(ctx.dialogos);
    EscrituraLigera ligera(ctx.conexion(internos));
    Corrida k{ctx, interno, calculo, {}, {}, {}};
    if (!CargarCaratulaEnCalculadora(ctx, interno, calculo)) return k.r;
    RepartirAjustesDeCaratula(ctx, interno, calculo);
    ctx.CalculoAEC = LeerAEC(ctx, interno);
    Recordset items;
    for (k.consultar(L("select * from item where interno = '") + interno + L("' and id<>0"), items);
         !items.Eof(); items.MoveNext())
        recalcularItem(k, items);
    CerrarVehiculoPartes(ctx, interno, k.vehiculoPartes);
    escribirTotales(k);
    if (ctx.LiquidacionPendiente) escribirDetalle(k, estado);
    // The mark goes only when the rows are safe.
    ligera.Terminar();
    if (k.r.escrito) {
        ctx.LiquidacionPendiente = false;
        if (estado) estado(QStringLiteral("LISTO"));
    }
    return std::move(k.r);
}

ResultadoRecalculo LeerUltimoRecalculo(AppContext &ctx, const QString &interno) {
    ResultadoRecalculo r;
    const std::pair<QLatin1String, double *> reservados[] = {{L("###baseiva"), &r.sumaBaseIVA},
                                                             {L("###baseimp"), &r.sumaBaseImponible},
                                                             {L("###ajded"), &r.sumaAjusteDed},
                                                             {L("###ajinc"), &r.sumaAjusteInc}};
    Recordset rs;
    for (Consultar(ctx, internos, L("select * from liqcero where interno = '") + interno + L("'"), rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString codigo = rs.Texto(u"idconcepto");
        const double valor = rs.Numero(u"valor");
        const auto *reservado = std::find_if(std::begin(reservados), std::end(reservados),
                                             [&codigo](const auto &uno) { return uno.first == codigo; });
        if (reservado != std::end(reservados)) {
            *reservado->second = valor;
            continue;
        }
        const QString pgc = rs.Texto(u"pgc");
        r.grilla.push_back({codigo, rs.Texto(u"concepto"), {}, {}, conMascara(valor), pgc, {}});
        sumarPorPago(r, pgc, valor);
    }
    return r;
}

std::vector<FilaLiq> LeerLiquidacionDeItem(AppContext &ctx, const QString &interno, const QString &item) {
    std::vector<FilaLiq> filas;
    Recordset rs;
    for (Consultar(ctx, internos,
                   L("select idconceptos,conceptos,") +
                       SqlRound(internos, QStringLiteral("porcentaje"), u"00.00") +
                       L(",baseimp,total,pgc,motivo from itemliq where total>0 and interno = '") + interno +
                       L("' and iditem = ") + item + L(" order by idconceptos"),
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        const auto numero = [&rs](int columna) { return conMascara(EsNumero(rs.Fields(columna).Value)); };
        filas.push_back({rs.Texto(u"idconceptos"), rs.Texto(u"conceptos"), numero(2), numero(3), numero(4),
                         rs.Texto(u"pgc"), rs.Texto(u"motivo")});
    }
    return filas;
}
