// A whole shipment keyed through the modules: header, lines, assembly, and the figures of the stored one.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "header/fieldrules.h"
#include "header/invoices.h"
#include "header/record.h"
#include "liquidation/ClassLiquidacion.h"
#include "liquidation/review.h"
#include "subitems/lines.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class Embarque : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->opciones.IVARIN = 21;
        ctx->opciones.IVARNI = 10.5;
        ctx->SeparadorDecimal = QLatin1Char(',');  // as the workstation of the program's own default
    }
    void TearDown() override {
        ctx->SeparadorDecimal = QLatin1Char('.');
        EnAmbosStores::TearDown();
    }

    /// The stored header's values typed field by field into the empty one.
    void teclearCaratula(const QString &de, const QString &a);
    /// The stored lines keyed again, one after the other, each from its article where it has one.
    void teclearLineas(const QString &de, const QString &a);
    /// Keys the operation `de` again and holds its items and duties against the stored one's.
    void comparar(const QString &de);
    void armar(const QString &interno) {
        ctx->ChequeoArmado = "SI";
        Generar(*ctx, interno, {});
        ASSERT_EQ(ctx->ChequeoArmado.toStdString(), "SI");
        ClassLiquidacion calculo(*ctx, interno);
        ctx->LiquidacionPendiente = true;
        const ResultadoRecalculo r = RecalcularOperacion(*ctx, interno, calculo);
        EXPECT_TRUE(r.escrito);
    }
    std::string sinClave(QString sql, const QString &interno) {
        return filas(sql.replace("@", interno)).toStdString();
    }
    void sinPalabras(const QString &donde) {
        for (const Mensaje &m : registro.mensajes)
            ADD_FAILURE() << donde.toStdString() << ": " << m.texto.toStdString();
        for (const Pregunta &p : registro.preguntas)
            ADD_FAILURE() << donde.toStdString() << ": " << p.texto.toStdString();
        registro = Registro();
    }
};

void Embarque::teclearCaratula(const QString &de, const QString &a) {
    Caratula guardada = CaratulaVacia(de);
    ASSERT_TRUE(CargarCaratula(*ctx, guardada));
    Caratula c = CaratulaVacia(a);
    ASSERT_TRUE(CargarCaratula(*ctx, c));
    for (const DefinicionDeControl &d : ControlesDeCaratula()) {
        const QString nombre = QLatin1String(d.nombre);
        if (d.tipo == TipoDeControl::Descripcion || !c.control(nombre).activo()) continue;
        c.control(nombre).texto = guardada.control(nombre).texto;
        CampoCambia(*ctx, c, nombre);
        if (nombre == "TxtFactura") continue;
        if (d.tipo == TipoDeControl::Texto && !c.control(nombre).texto.isEmpty()) {
            EXPECT_TRUE(CampoEnter(*ctx, c, nombre).ok) << d.nombre;
            // The rates of the stored operation are those of the table.
            CampoPierdeFoco(*ctx, c, nombre);
        }
        sinPalabras(nombre);
    }
    for (const QString &factura : guardada.LstFact) {
        c.poner("TxtFactura", factura);
        CampoEnter(*ctx, c, "TxtFactura");
    }
    c.cboOpcionIVA = guardada.cboOpcionIVA;
    c.cboOpcionesGanancias = guardada.cboOpcionesGanancias;
    const SalidaDeCaratula salida = GuardarCaratula(*ctx, c);
    EXPECT_TRUE(salida.cierra);
    EXPECT_TRUE(salida.guardada);
    sinPalabras("ESC");
}

void Embarque::teclearLineas(const QString &de, const QString &a) {
    SubItems origen;
    AbrirSubItems(*ctx, origen, de, {1, 1, 1, 1, 1, 1, 1, 1});
    SubItems s;
    AbrirSubItems(*ctx, s, a, {1, 1, 1, 1, 1, 1, 1, 1});
    ElegirCargaPor(*ctx, s, true);
    Recordset rs;
    ASSERT_TRUE(
        Consultar(*ctx, "INTERNOS", "select id from subitems where interno = '" + de + "' order by id", rs));
    for (; !rs.Eof(); rs.MoveNext()) {
        const qint64 id = static_cast<qint64>(rs.Numero(u"id"));
        SCOPED_TRACE(id);
        ASSERT_TRUE(BuscarSubItem(*ctx, origen, id));
        const CamposSubItem &q = origen.campos;
        s.campos.TxtIdCatalogo = q.TxtIdCatalogo;
        s.campos.txtIdArticulo = q.txtIdArticulo;
        CampoDeLineaEnter(*ctx, s, "txtIdArticulo");
        s.campos.TxtPosicion = q.TxtPosicion;
        ASSERT_TRUE(CampoDeLineaEnter(*ctx, s, "TxtPosicion").ok);
        for (const char *control : {"TxtUnidad", "TxtCantidad", "TxtUnitario", "TxtIdpais", "txtIdPaisProc",
                                    "TxtIdEstadoMercaderia"}) {
            const DefinicionDeCampo *d = CampoDeSubItem(control);
            s.campos.*d->campo = q.*d->campo;
            CampoDeLineaCambia(*ctx, s, control);
            CampoDeLineaEnter(*ctx, s, control);
        }
        EXPECT_EQ(s.campos.TxtFobTotal.toStdString(), q.TxtFobTotal.toStdString()) << "price times quantity";
        for (const char *control :
             {"TxtValorsobreestadistica", "TxtDerEsp", "TxtKgNeto", "TxtKgBruto", "TxtDescArticulos",
              "txtDescripcionMaria", "txtOtros", "txtSufijos", "cboBiendeUso", "TxtCodProrrateo", "TxtFiller",
              "txtCertOrig", "TxtNaladisa", "TxtInsumosTemp", "TxtInsumCons"}) {
            const DefinicionDeCampo *d = CampoDeSubItem(control);
            s.campos.*d->campo = q.*d->campo;
        }
        const Grabacion g = Grabar(*ctx, s);
        // A position without suffixes says so; nothing else is said.
        std::erase_if(registro.mensajes, [](const Mensaje &m) {
            return m.texto == "No se encontro Sufijo en el nomenclador"_L1;
        });
        sinPalabras(q.TxtPosicion);
        ASSERT_TRUE(g.ok) << q.txtIdArticulo.toStdString();
    }
}

void Embarque::comparar(const QString &de) {
    SCOPED_TRACE(de.toStdString());
    const QString a = "NUEVA " + de;
    ejecutar(u"insert into caratula (interno,factura8,onccahabilitado) values ('%1','S','N')"_s.arg(a));
    ejecutar(
        u"insert into prorrateo (interno,codigo,descripcion,valor) select '%1',codigo,"
        "descripcion,valor from prorrateo where interno = '%2'"_s.arg(a, de));
    teclearCaratula(de, a);
    if (HasFatalFailure()) return;
    teclearLineas(de, a);
    if (HasFatalFailure()) return;
    const char *const cuantas = "select count(*) as n from subitems where interno = '@'";
    EXPECT_EQ(sinClave(cuantas, a), sinClave(cuantas, de));
    EXPECT_EQ(sinClave("select factura8 from caratula where interno = '@'", a), "S");

    armar(de);
    registro = Registro();
    armar(a);
    const char *const items =
        "select id,ncm,idpais,idunidad,estadistica,valorrelacionestadistica,cantidad,preciounitario,fobtotal,"
        "totalkneto,totalkbruto,itflete,itseguro from item where interno = '@' order by id";
    EXPECT_FALSE(sinClave(items, de).empty());
    EXPECT_EQ(sinClave(items, a), sinClave(items, de));
    const char *const conceptos =
        "select iditem,idconceptos,pgc,porcentaje,porcentajeb,baseimp,total,valor from itemliq where interno "
        "= "
        "'@' order by iditem,idconceptos";
    EXPECT_EQ(sinClave(conceptos, a), sinClave(conceptos, de));
    const char *const totales =
        "select idconcepto,valor,pgc from liqcero where interno = '@' order by idconcepto";
    EXPECT_EQ(sinClave(totales, a), sinClave(totales, de));
}

TEST_P(Embarque, TheDemonstrationsImportKeyedAgainGivesTheSameItemsAndDuties) {
    comparar("IC-2026-0001");
    EXPECT_EQ(valor("select count(*) as n from subitems where interno = 'NUEVA IC-2026-0001'").toStdString(),
              "25");
}
TEST_P(Embarque, TheDemonstrationsExportKeyedAgainGivesTheSameItemsAndDuties) {
    comparar("EC-2026-0002");
}
TEST_P(Embarque, TheDemonstrationsTemporaryImportKeyedAgainGivesTheSameItemsAndDuties) {
    comparar("IT-2026-0003");
}
TEST_P(Embarque, TheDemonstrationsDjaiKeyedAgainGivesTheSameItems) {
    comparar("DJAI-2026-0004");
}
TEST_P(Embarque, TheDemonstrationsAutomotiveImportKeyedAgainGivesTheSameItemsAndDuties) {
    comparar("ICR-2026-0005");
}

EN_AMBOS_STORES(Embarque);

}  // namespace
