#include "header/invoices.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/changes.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::internos;

/// The condition that finds one invoice of the operation.
QString esFactura(const QString &interno, const QString &factura) {
    return "interno = "_L1 + EnComillas(interno) + " and factura = "_L1 + EnComillas(factura);
}

bool yaEsta(AppContext &ctx, const QString &interno, const QString &factura) {
    Recordset rs;
    Consultar(ctx, internos, "select count(*) as cant from facturas where "_L1 + esFactura(interno, factura),
              rs);
    return !rs.Eof() && rs.Numero(u"cant") > 0;
}

double ultimoOrden(AppContext &ctx, const QString &interno) {
    Recordset rs;
    Consultar(ctx, internos,
              "select Max(orden) as ord from facturas where interno = "_L1 + EnComillas(interno), rs);
    return rs.Eof() ? 0 : rs.Numero(u"ord");
}

}  // namespace

QStringList CargarFacturas(AppContext &ctx, const QString &interno) {
    Recordset rs;
    Consultar(ctx, internos,
              "select factura from facturas where interno = "_L1 + EnComillas(interno) + " order by orden"_L1,
              rs);
    QStringList facturas;
    for (; !rs.Eof(); rs.MoveNext()) facturas << rs.Texto(u"factura");
    return facturas;
}

void RefrescarFacturas(AppContext &ctx, Caratula &c) {
    c.LstFact = CargarFacturas(ctx, c.interno);
    c["LstFact"].habilitado = c["ChFacturas"].habilitado = !c.LstFact.isEmpty();
}

bool Agregar_Facturas(AppContext &ctx, Caratula &c, const QString &factura) {
    if (yaEsta(ctx, c.interno, factura)) {
        ctx.dialogos.advertir(u"Ya existe esta factura."_s);
        return false;
    }
    const QString orden = numeros::aTexto(ultimoOrden(ctx, c.interno) + 1);
    Ejecutar(ctx, internos,
             "insert into facturas(interno,orden,factura) values ("_L1 + EnComillas(c.interno) + u',' +
                 orden + u',' + EnComillas(factura) + u')');
    AnotarCambio(ctx, c.interno);
    RefrescarFacturas(ctx, c);
    c.poner("TxtFactura", {});
    return true;
}

void Eliminar_Factura(AppContext &ctx, Caratula &c, const QString &factura) {
    Ejecutar(ctx, internos, "delete from facturas where "_L1 + esFactura(c.interno, factura));
    AnotarCambio(ctx, c.interno);
    RefrescarFacturas(ctx, c);
}
