#include "header/invoices.h"

#include "frame/context.h"
#include "frame/numbers.h"

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");

QString clave(const QString &interno, const QString &factura) {
    return L("interno = '") + interno + L("' and factura = '") + factura + L("'");
}

}  // namespace

QStringList CargarFacturas(AppContext &ctx, const QString &interno) {
    Recordset rs;
    Consultar(ctx, internos,
              L("select factura from facturas where interno = '") + interno + L("' order by orden"), rs);
    QStringList facturas;
    for (; !rs.Eof(); rs.MoveNext()) facturas << rs.Texto(u"factura");
    return facturas;
}

void RefrescarFacturas(AppContext &ctx, Caratula &c) {
    c.LstFact = CargarFacturas(ctx, c.interno);
    c["LstFact"].habilitado = c["ChFacturas"].habilitado = !c.LstFact.isEmpty();
}

bool Agregar_Facturas(AppContext &ctx, Caratula &c, const QString &factura) {
    Recordset rs;
    if (Consultar(ctx, internos,
                  L("select count(*) as cant from facturas where ") + clave(c.interno, factura), rs) &&
        rs.Numero(u"cant") > 0) {
        ctx.dialogos.advertir(QStringLiteral("Ya existe esta factura."));
        return false;
    }
    Consultar(ctx, internos,
              L("select Max(orden) as ord from facturas where interno = '") + c.interno + L("'"), rs);
    const double orden = rs.Eof() ? 0 : rs.Numero(u"ord");
    Ejecutar(ctx, internos,
             L("insert into facturas(interno,orden,factura) values ('") + c.interno + L("',") +
                 numeros::aTexto(orden + 1) + L(",'") + factura + L("')"));
    RefrescarFacturas(ctx, c);
    c.poner("TxtFactura", {});
    return true;
}

void Eliminar_Factura(AppContext &ctx, Caratula &c, const QString &factura) {
    Ejecutar(ctx, internos, L("delete from facturas where ") + clave(c.interno, factura));
    RefrescarFacturas(ctx, c);
}
