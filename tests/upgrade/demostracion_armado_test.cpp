// The demonstration operations go through the whole run, and come out alike on both stores.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "frame/base/values.h"
#include "liquidation/review.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const char *const operaciones[] = {"IC-2026-0001",  "EC-2026-0002", "IT-2026-0003", "DJAI-2026-0004",
                                   "ICR-2026-0005", "EC-2026-0006", "IT-2026-0007", "EC-2026-0008"};

void armar(AppContext &ctx, const QString &clave) {
    ctx.ChequeoArmado = u"SI"_s;
    OpcionesDeArmado opciones;
    opciones.ARMARITEM = 1;
    opciones.modo = ModoDescripcion::Maria;
    EXPECT_TRUE(Generar(ctx, clave, opciones));
}

ResultadoRecalculo liquidar(AppContext &ctx, const QString &clave) {
    ctx.opciones.IVARIN = 21;
    ctx.opciones.IVARNI = 10.5;
    ctx.LiquidacionPendiente = true;
    ClassLiquidacion calculo(ctx, clave);
    EXPECT_TRUE(CargarCaratulaEnCalculadora(ctx, clave, calculo));
    return RecalcularOperacion(ctx, clave, calculo);
}

class ArmadoDeDemostracion : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    double numero(const QString &sql) { return valor(sql).toDouble(); }
};

TEST_P(ArmadoDeDemostracion, EveryOperationAssemblesWithoutAFault) {
    for (const char *clave : operaciones) {
        registro = {};
        const QString donde = u"interno = '%1'"_s.arg(QLatin1String(clave));
        armar(*ctx, QLatin1String(clave));
        EXPECT_EQ(ctx->ChequeoArmado.toStdString(), "SI") << clave;
        EXPECT_EQ(valor("select factura8 from caratula where " + donde).toStdString(), "N") << clave;
        for (const Mensaje &m : registro.mensajes)
            EXPECT_TRUE(m.texto.contains("LAPI"_L1) || m.texto.contains("ESTAMPILLAS"_L1))
                << clave << ": " << m.texto.toStdString();
        EXPECT_TRUE(registro.informes.empty())
            << clave << ": " << registro.informes.front().texto.toStdString();

        // Nothing is lost on the way: lines and codes make the items, header amounts are shared out to the
        // cent.
        const QString items = "id <> 0 and " + donde;
        EXPECT_NEAR(numero("select sum(fobtotal) as t from item where " + items),
                    numero("select fobdivisas from caratula where " + donde) +
                        numero("select sum(valor) as t from prorrateo where " + donde),
                    0.005)
            << clave;
        for (const auto &[propio, comun] :
             {std::pair{"itflete", "fletedivisas"}, std::pair{"itseguro", "segurodivisas"}})
            EXPECT_NEAR(numero(u"select sum(%1) as t from item where "_s.arg(QLatin1String(propio)) + items),
                        numero(u"select %1 from caratula where "_s.arg(QLatin1String(comun)) + donde), 0.005)
                << clave << " " << propio;
        if (const double kilos = numero("select dckgneto from caratula where " + donde); kilos > 0) {
            EXPECT_NEAR(numero("select sum(totalkneto) as t from item where " + items), kilos, 0.005)
                << clave;
        }
        EXPECT_EQ(
            valor("select count(*) as n from item where totalkneto > totalkbruto and " + items).toStdString(),
            "0")
            << clave;
        EXPECT_EQ(valor("select count(*) as n from item where totalkneto = 0 and " + items).toStdString(),
                  "0")
            << clave;
        const double lineas = numero("select count(*) as n from subitems where " + donde);
        const double grupos = numero("select count(*) as n from groupsubitems where " + donde);
        // Each line of the stock is of an article of its own.
        const bool delStock =
            QLatin1String(clave) == "IT-2026-0007"_L1 || QLatin1String(clave) == "EC-2026-0008"_L1;
        EXPECT_TRUE(delStock ? grupos == lineas : grupos < lineas) << clave << ": equal lines fold";
        EXPECT_EQ(
            valor("select count(*) as n from groupsubitems where (id is null or idsub is null) and " + donde)
                .toStdString(),
            "0")
            << clave;
    }
    EXPECT_GT(
        numero(
            "select count(*) as n from item where lista = '314/R.AUTOMOTRIZ' and interno = 'ICR-2026-0005'"),
        0);
    EXPECT_EQ(
        valor("select valor from sysflag where flag = '1439/96' and interno = 'IT-2026-0003'").toStdString(),
        "S");
    EXPECT_EQ(
        valor(
            "select count(*) as n from item where (descripcion is null or descripcion = '') and id <> 0 and "
            "interno = 'DJAI-2026-0004'")
            .toStdString(),
        "0");
}

TEST_P(ArmadoDeDemostracion, ImportsPayExportsCollectAndADecreeGuarantees) {
    const auto correr = [&](const char *clave) {
        armar(*ctx, QLatin1String(clave));
        return liquidar(*ctx, QLatin1String(clave));
    };
    const ResultadoRecalculo consumo = correr("IC-2026-0001");
    EXPECT_GT(consumo.totalP, 0);
    EXPECT_EQ(consumo.totalG, 0);
    EXPECT_EQ(consumo.totalC, 0);
    EXPECT_TRUE(consumo.escrito);
    // Item 3, screws: FOB 604.80 euros of 36,370.00 (35,950.00 and 420.00 of packing). Freight 604.80 * 2350
    // / 36370 = 39.08 dollars, insurance 604.80 * 410 / 36370 = 6.82 pounds. Base 604.80 * 1.085 + 39.08
    // + 6.82 * 1.27 = 703.9494: duty of 25 % 175.99, statistics of 3 % 21.12, VAT of 21 % on 703.9494 +
    // 175.99 + 21.12 = 901.0594: 189.22.
    EXPECT_EQ(filas("select idconceptos,total from itemliq where interno = 'IC-2026-0001' and iditem = 3 and "
                    "idconceptos in "
                    "('010','011','415') order by idconceptos")
                  .toStdString(),
              "010|175.99\n011|21.12\n415|189.22");

    const ResultadoRecalculo exportacion = correr("EC-2026-0002");
    // Duty of 4.5 % on 107,467.50 is 4,836.04; the SIM fee 10. Refund of 7 % on the same is 7,522.73.
    EXPECT_NEAR(exportacion.totalP, 4846.04, 0.005);
    EXPECT_NEAR(exportacion.totalC, 7522.73, 0.005);

    const ResultadoRecalculo temporal = correr("IT-2026-0003");
    EXPECT_NEAR(temporal.totalP, 10, 0.005);
    EXPECT_GT(temporal.totalG, 0);
    // The additional rate of the decree: 24 % of the base, item by item.
    EXPECT_NEAR(
        numero("select sum(total) as t from itemliq where interno = 'IT-2026-0003' and idconceptos = '016'"),
        temporal.sumaBaseImponible * 0.24, 0.05);

    const ResultadoRecalculo automotriz = correr("ICR-2026-0005");
    EXPECT_GT(automotriz.totalP, 0);
    EXPECT_GT(automotriz.totalG, 0);
    EXPECT_GT(
        numero("select sum(total) as t from itemliq where interno = 'ICR-2026-0005' and idconceptos = '866'"),
        0);

    const ResultadoRecalculo anticipada = correr("DJAI-2026-0004");
    EXPECT_EQ(anticipada.totalP + anticipada.totalG + anticipada.totalC, 0);
    EXPECT_TRUE(anticipada.grilla.empty());
}

EN_AMBOS_STORES(ArmadoDeDemostracion);

/// Every row of a query as "a|b|c" lines.
QString filas(AppContext &ctx, const QString &sql) {
    Recordset rs;
    Consultar(ctx, u"INTERNOS"_s, sql, rs);
    QString todas;
    for (; !rs.Eof(); rs.MoveNext()) {
        for (int c = 0; c < rs.columnas(); ++c) todas += EsNull(rs.Fields(c).Value) + QLatin1Char('|');
        todas += QLatin1Char('\n');
    }
    return todas;
}

TEST(DemonstrationOnBothStores, ItemsGroupsAndLiquidationAreTheSame) {
    Registro registros[2];
    const Tienda archivo(u"ACCESS"_s, true);
    const Tienda servidor(u"SQL"_s, true);
    const auto deArchivo = archivo.contexto(registros[0]);
    const auto deServidor = servidor.contexto(registros[1]);
    const char *const consultas[] = {
        "select "
        "id,ncm,descripcion,idpais,idproc,estadomerc,biendeuso,estadistica,valorrelacionestadistica,deresp,"
        "valorderesp,cantidad,fobtotal,totalkneto,totalkbruto,itflete,itseguro,lista,lapi,itfiller from item "
        "where interno "
        "= '%1' order by id",
        "select "
        "id,idsub,idarticulo,idcatalogo,preciounitario,sufijos,cantidad,fob,kgneto,valorrelacionestadistica "
        "from "
        "groupsubitems where interno = '%1' order by id,idsub",
        "select iditem,idconceptos,conceptos,pgc,porcentaje,porcentajeb from itemliq where interno = '%1' "
        "order by "
        "iditem,idconceptos",
        "select idroot,idsub from idrel where interno = '%1' order by idroot,idsub",
        "select iditem,idinfo,valor from iteminfo where interno = '%1' order by iditem,idinfo",
    };
    for (const char *clave : operaciones) {
        fijarContexto(deArchivo.get());
        armar(*deArchivo, QLatin1String(clave));
        liquidar(*deArchivo, QLatin1String(clave));
        fijarContexto(deServidor.get());
        armar(*deServidor, QLatin1String(clave));
        liquidar(*deServidor, QLatin1String(clave));
        for (const char *consulta : consultas) {
            const QString sql = QString::fromLatin1(consulta).arg(QLatin1String(clave));
            EXPECT_EQ(filas(*deArchivo, sql).toStdString(), filas(*deServidor, sql).toStdString())
                << sql.toStdString();
        }
    }
    fijarContexto(nullptr);
}

}  // namespace
