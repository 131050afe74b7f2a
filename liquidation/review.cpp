#include "liquidation/review.h"

#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/sqltext.h"
#include "header/automotive.h"
#include "liquidation/fees.h"
#include "liquidation/vehiculopartes.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using numeros::aNumero;
using numeros::Format;

using entidad::internos;
const QString liqcero = u"liqcero"_s;

QString conMascara(const AppContext &ctx, double valor) {
    return Format(valor, u"00.00", ctx.SeparadorDecimal);
}

/// The run and what it gathers.
struct Corrida {
    AppContext &ctx;
    const QString &interno;
    ClassLiquidacion &calculo;
    ResultadoRecalculo r;
    std::vector<ResumenLiq> resumen;
    VehiculoPartes vehiculoPartes;
    double base = 0;  ///< goes from row to row
    bool lapi = false;

    qint64 ejecutar(const QString &sql) const { return Ejecutar(ctx, internos, sql); }
    void mandar(const QString &sql) const { Mandar(ctx, internos, sql); }
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
                           (k.calculo.ItemLISTA_MERCOSUR && codigo != "424"_L1 && codigo != "422"_L1);
    QString texto = vacio ? u"Vacio"_s : fila.Texto(u"Porcentaje");
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
        return k.calculo.ObtenerValorConcepto(codigo, texto, valor, k.base, u"0"_s, 0, false);
    texto = u"Vacio"_s;
    return k.calculo.ObtenerValorConcepto(codigo, texto, valor, k.base, {}, 0, false);
}

QString sentenciaDeConceptos(const QString &interno, const QString &id) {
    return "select * from itemliq"
           " where iditem> 0 and interno = "_L1 +
           EnComillas(interno) + " and iditem = "_L1 + id + " ORDER BY idconceptos"_L1;
}

void recalcularConceptos(Corrida &k, const QString &id) {
    Recordset filas;
    for (k.consultar(sentenciaDeConceptos(k.interno, id), filas); !filas.Eof(); filas.MoveNext()) {
        const QString codigo = filas.Texto(u"idconceptos").trimmed();
        const double total = totalDe(k, filas, codigo);
        const double porcentaje = k.calculo.ObtenerLqPorc();
        if (codigo == "020"_L1 && id != "0"_L1)
            k.mandar("update item set COFEXP = "_L1 +
                     PonerPuntoDecimal(k.calculo.ItemCoeficienteExportacion) + " where interno = "_L1 +
                     EnComillas(k.interno) + " and id = "_L1 + id);
        DetalleLiq d{codigo,
                     conMascara(k.ctx, total),
                     conMascara(k.ctx, porcentaje),
                     id,
                     filas.EsNulo(u"pgc") ? u"P"_s : filas.Texto(u"pgc").trimmed(),
                     conMascara(k.ctx, k.base),
                     filas.Texto(u"motivo").trimmed()};
        SumarAlResumen(k.ctx, k.resumen, d.concepto, d.total, d.pgc);
        k.r.detalle.push_back(std::move(d));
    }
}

void recalcularItem(Corrida &k, const Recordset &item) {
    const QString id = item.Texto(u"ID");
    PosicionesLeidas posiciones(k.ctx);
    const CargaDePosicion carga =
        CargarItemEnCalculadora(k.ctx, k.interno, item, k.calculo, false, k.lapi, posiciones);
    if (carga == CargaDePosicion::MalFormada) k.ctx.dialogos.advertir(u"Estructura de NCM incorrecta"_s);
    if (carga == CargaDePosicion::Encontrada)
        RevisarVehiculoPartes(k.ctx, k.interno, id, k.lapi, k.calculo, k.vehiculoPartes);
    k.r.sumaAjusteInc += item.Numero(u"ajusteinc");
    k.r.sumaAjusteDed += item.Numero(u"ajusteded");
    k.r.sumaBaseImponible += k.calculo.ObtenerBaseImponible();
    k.r.sumaBaseIVA += k.calculo.ObtenerBaseIVA();
    recalcularConceptos(k, id);
}

/// What the items of a run read, asked ahead of them: nothing of it is written before all of them are done.
class LecturasDeItems {
 public:
    LecturasDeItems(const Corrida &k, Recordset &items)
        : propias_(k.ctx.conexion(internos),
                   porItem(items,
                           [&k](const Recordset &item) {
                               const QString id = item.Texto(u"ID");
                               const QString &regimen = k.calculo.CaratulaSubRegimen;
                               return LecturasDeItem(k.interno, id, regimen)
                                      << LecturasDeVehiculoPartes(k.ctx, k.interno, item, regimen)
                                      << sentenciaDeConceptos(k.interno, id);
                           })),
          delNomenclador_(k.ctx.conexion(entidad::ncm), dePosiciones(items, SentenciaDelNomenclador)),
          delMinimo_(k.ctx.conexion(entidad::systablas), dePosiciones(items, SentenciaDelMinimo)) {}

    void Vuelta() {
        propias_.Vuelta();
        delNomenclador_.Vuelta();
        delMinimo_.Vuelta();
    }

 private:
    using PorItem = std::function<QStringList(const Recordset &)>;
    static std::vector<QStringList> porItem(Recordset &items, const PorItem &lecturas) {
        std::vector<QStringList> todas;
        todas.reserve(static_cast<std::size_t>(items.RecordCount()));
        for (; !items.Eof(); items.MoveNext()) todas.push_back(lecturas(items));
        items.MoveFirst();
        return todas;
    }
    static std::vector<QStringList> dePosiciones(Recordset &items, QString (*sentencia)(const QString &)) {
        return porItem(items, [sentencia](const Recordset &item) {
            const QString ncm = PosicionDeItem(item);
            return PosicionBienFormada(ncm) ? QStringList{sentencia(ncm)} : QStringList{};
        });
    }

    LecturaAdelantada propias_, delNomenclador_, delMinimo_;
};

void recalcularItems(Corrida &k) {
    Recordset items;
    k.consultar("select * from item where interno = "_L1 + EnComillas(k.interno) + " and id<>0"_L1, items);
    LecturasDeItems lecturas(k, items);
    for (; !items.Eof(); items.MoveNext()) {
        lecturas.Vuelta();
        recalcularItem(k, items);
    }
}

/// A concept's row of liqcero, up to its payment kind.
Escritura filaDeTotal(const Corrida &k, const QString &codigo, const QString &concepto,
                      const QString &valor) {
    Escritura fila(k.ctx);
    fila.codigo("idconcepto", codigo)
        .texto("concepto", concepto)
        .numero("valor", valor)
        .codigo("interno", k.interno);
    return fila;
}

void sumarPorPago(ResultadoRecalculo &r, const QString &pgc, double importe) {
    if (pgc == "P"_L1) r.totalP += importe;
    if (pgc == "G"_L1) r.totalG += importe;
    if (pgc == "C"_L1) r.totalC += importe;
}

QString sentenciaDeTasa(const QString &concepto) {
    return "select LTAXABR as descripcion from tax where ctax = "_L1 + EnComillas(concepto);
}

/// One concept's line of the operation, in the grid and in liqcero.
void escribirTotal(Corrida &k, const ResumenLiq &s) {
    Recordset rs;
    const bool hay = k.consultar(sentenciaDeTasa(s.concepto), rs);
    const QString descripcion = hay ? rs.Texto(u"descripcion") : QString();
    const double total = aNumero(s.total);
    const auto mostrar = [&k](const QString &numero, const QString &concepto, const QString &importe,
                              const QString &pgc) {
        k.r.grilla.push_back({numero, concepto, {}, {}, importe, pgc, {}});
    };
    if (!hay && s.concepto == "FCV"_L1) {
        const QString convergencia = u"Factor de Convergencia"_s;
        mostrar({}, "("_L1 + s.concepto + ") "_L1 + convergencia, conMascara(k.ctx, total), s.pgc);
        if (k.ejecutar(filaDeTotal(k, s.concepto, convergencia, s.total).insertar(liqcero)) > 0)
            sumarPorPago(k.r, s.pgc, total);
    } else if (const Arancel *arancel = ArancelDe(s.concepto);
               arancel != nullptr && arancel->esDeLaOperacion()) {
        // The fee of the customs system: once an operation, whatever its items hold.
        const QString nombre = QString::fromLatin1(arancel->nombre);
        // A point under either separator.
        mostrar(s.concepto, hay ? descripcion : nombre, Format(arancel->importe, u"00.00", u'.'), u"P"_s);
        k.mandar(filaDeTotal(k, s.concepto, nombre, numeros::aTexto(arancel->importe))
                     .codigo("pgc", u"P"_s)
                     .insertar(liqcero));
        k.r.totalP += arancel->importe;
    } else if (total > 0) {
        mostrar(s.concepto, descripcion, conMascara(k.ctx, total), s.pgc);
        k.mandar(filaDeTotal(k, s.concepto, descripcion, s.total).codigo("pgc", s.pgc).insertar(liqcero));
        sumarPorPago(k.r, s.pgc, total);
    }
}

void escribirTotales(Corrida &k) {
    k.mandar("delete from liqcero where interno = "_L1 + EnComillas(k.interno));
    std::vector<QStringList> tasas;
    tasas.reserve(k.resumen.size());
    for (const ResumenLiq &s : k.resumen) tasas.push_back({sentenciaDeTasa(s.concepto)});
    LecturaAdelantada lecturas(k.ctx.conexion(internos), std::move(tasas));
    for (const ResumenLiq &s : k.resumen) {
        lecturas.Vuelta();
        escribirTotal(k, s);
    }
    const auto reservado = [&k](const char *codigo, double valor) {
        k.mandar(Escritura(k.ctx)
                     .codigo("idconcepto", L(codigo))
                     .crudo("valor", PonerPuntoDecimal(valor))
                     .codigo("interno", k.interno)
                     .insertar(liqcero));
    };
    reservado("###baseiva", k.r.sumaBaseIVA);
    reservado("###baseimp", k.r.sumaBaseImponible);
    reservado("###ajded", k.r.sumaAjusteDed);
    reservado("###ajinc", k.r.sumaAjusteInc);
}

void escribirDetalle(Corrida &k, const std::function<void(const QString &)> &estado) {
    k.ctx.dialogos.atenderEventos();
    for (const DetalleLiq &d : k.r.detalle) {
        k.mandar(Escritura(k.ctx)
                     .numero("baseimp", d.base)
                     .numero("porcentaje", d.porcentaje)
                     .numero("total", d.total)
                     .codigo("pgc", d.pgc)
                     .texto("motivo", d.motivo)
                     .actualizar(u"itemliq"_s, "interno = "_L1 + EnComillas(k.interno) +
                                                   "   and iditem = "_L1 + d.iditem +
                                                   "  and idconceptos = "_L1 + EnComillas(d.concepto)));
        if (estado) estado("Liquidando ITEM "_L1 + d.iditem + " ..."_L1);
    }
    k.r.escrito = true;
}

/// The header's adjustment over the items by FOB; items of type G carry none.
void repartirAjuste(AppContext &ctx, const QString &interno, const ClassLiquidacion &calculo,
                    const char *columna, double importe, const char *tipo) {
    if (importe == 0) return;
    Recordset rs;
    EscrituraLigera ligera(ctx.conexion(internos));
    for (Consultar(ctx, internos,
                   "select id,(FOBtotal * "_L1 + SqlNumber(ctx, importe) + ") / ("_L1 +
                       SqlNumber(ctx, calculo.CaratulaFobTotalSinG) +
                       ") as valor"
                       " from item"
                       " where id<>0 and interno = "_L1 +
                       EnComillas(interno) + " and "_L1 + L(tipo),
                   rs);
         !rs.Eof(); rs.MoveNext())
        Mandar(ctx, internos,
               "update item set "_L1 + L(columna) + " = "_L1 +
                   SqlNumber(ctx, conMascara(ctx, rs.Numero(u"valor"))) + " where id = "_L1 +
                   rs.Texto(u"ID") + " and interno = "_L1 + EnComillas(interno));
    ligera.Terminar();
}

}  // namespace

void SumarAlResumen(const AppContext &ctx, std::vector<ResumenLiq> &resumen, const QString &concepto,
                    const QString &total, const QString &pgc) {
    const auto ya = std::find_if(resumen.begin(), resumen.end(),
                                 [&concepto](const ResumenLiq &r) { return r.concepto == concepto; });
    if (ya != resumen.end())
        ya->total = conMascara(ctx, aNumero(ya->total) + aNumero(total));
    else
        resumen.push_back({concepto, total, pgc});
}

void RepartirAjustesDeCaratula(AppContext &ctx, const QString &interno, const ClassLiquidacion &calculo) {
    repartirAjuste(ctx, interno, calculo, "ajusteinc", calculo.CaratulaAjusteIncluir, "tipoitem <> 'G'");
    repartirAjuste(ctx, interno, calculo, "ajusteded", calculo.CaratulaAjusteDeducir, "tipoitem<>'G'");
}

ResultadoRecalculo RecalcularOperacion(AppContext &ctx, const QString &interno, ClassLiquidacion &calculo,
                                       const std::function<void(const QString &)> &estado) {
    const Reloj reloj(ctx.dialogos);
    EscrituraLigera ligera(ctx.conexion(internos));
    Corrida k{ctx, interno, calculo, {}, {}, {}};
    {
        LecturaAdelantada caratula(ctx.conexion(internos), {LecturasDeCaratula(interno)});
        caratula.Vuelta();
        if (!CargarCaratulaEnCalculadora(ctx, interno, calculo)) return k.r;
    }
    RepartirAjustesDeCaratula(ctx, interno, calculo);
    ctx.CalculoAEC = LeerAEC(ctx, interno);
    recalcularItems(k);
    CerrarVehiculoPartes(ctx, interno, k.vehiculoPartes);
    escribirTotales(k);
    if (ctx.LiquidacionPendiente) escribirDetalle(k, estado);
    // The mark goes only when the rows are safe.
    ligera.Terminar();
    if (k.r.escrito) {
        ctx.LiquidacionPendiente = false;
        if (estado) estado(u"LISTO"_s);
    }
    return std::move(k.r);
}

QString SentenciaDeUltimoRecalculo(const QString &interno) {
    return "select * from liqcero where interno = "_L1 + EnComillas(interno);
}

ResultadoRecalculo LeerUltimoRecalculo(AppContext &ctx, const QString &interno) {
    ResultadoRecalculo r;
    const std::pair<QLatin1String, double *> reservados[] = {{"###baseiva"_L1, &r.sumaBaseIVA},
                                                             {"###baseimp"_L1, &r.sumaBaseImponible},
                                                             {"###ajded"_L1, &r.sumaAjusteDed},
                                                             {"###ajinc"_L1, &r.sumaAjusteInc}};
    Recordset rs;
    for (Consultar(ctx, internos, SentenciaDeUltimoRecalculo(interno), rs); !rs.Eof(); rs.MoveNext()) {
        const QString codigo = rs.Texto(u"idconcepto");
        const double valor = rs.Numero(u"valor");
        const auto *reservado = std::find_if(std::begin(reservados), std::end(reservados),
                                             [&codigo](const auto &uno) { return uno.first == codigo; });
        if (reservado != std::end(reservados)) {
            *reservado->second = valor;
            continue;
        }
        const QString pgc = rs.Texto(u"pgc");
        r.grilla.push_back({codigo, rs.Texto(u"concepto"), {}, {}, conMascara(ctx, valor), pgc, {}});
        sumarPorPago(r, pgc, valor);
    }
    return r;
}

QString SentenciaDeLiquidacion(const AppContext &ctx, const QString &interno, const QString &item) {
    return "select idconceptos,conceptos,"_L1 + SqlRound(ctx, internos, u"porcentaje"_s, u"00.00") +
           ",baseimp,total,pgc,motivo"
           " from itemliq"
           " where total>0 and interno = "_L1 +
           EnComillas(interno) + " and iditem = "_L1 + item + " order by idconceptos"_L1;
}

std::vector<FilaLiq> LeerLiquidacionDeItem(AppContext &ctx, const QString &interno, const QString &item) {
    std::vector<FilaLiq> filas;
    Recordset rs;
    for (Consultar(ctx, internos, SentenciaDeLiquidacion(ctx, interno, item), rs); !rs.Eof(); rs.MoveNext()) {
        // What is not there is no 0.
        const auto numero = [&ctx, &rs](int columna) {
            const QVariant valor = rs.Fields(columna).Value;
            return valor.isNull() ? QString() : conMascara(ctx, EsNumero(valor));
        };
        filas.push_back({rs.Texto(u"idconceptos"), rs.Texto(u"conceptos"), numero(2), numero(3), numero(4),
                         rs.Texto(u"pgc"), rs.Texto(u"motivo")});
    }
    return filas;
}
