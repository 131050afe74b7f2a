#include "header/invoices.h"

#include "frame/base/numbers.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString internos = u"INTERNOS"_s;

QString clave(const QString &interno, const QString &factura) {
    return "interno = '"_L1 + interno + "' and factura = '"_L1 + factura + "'"_L1;
}

}  // namespace

QStringList CargarFacturas(AppContext &ctx, const QString &interno) {
    Recordset rs;
    Consultar(ctx, internos,
              "select factura from facturas where interno = '"_L1 + interno + "' order by orden"_L1, rs);
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
                  "select count(*) as cant from facturas where "_L1 + clave(c.interno, factura), rs) &&
        rs.Numero(u"cant") > 0) {
        ctx.dialogos.advertir(u"Ya existe esta factura."_s);
        return false;
    }
    Consultar(ctx, internos,
              "select Max(orden) as ord from facturas where interno = '"_L1 + c.interno + "'"_L1, rs);
    const double orden = rs.Eof() ? 0 : rs.Numero(u"ord");
    Ejecutar(ctx, internos,
             "insert into facturas(interno,orden,factura) values ('"_L1 + c.interno + "',"_L1 +
                 numeros::aTexto(orden + 1) + ",'"_L1 + factura + "')"_L1);
    RefrescarFacturas(ctx, c);
    c.poner("TxtFactura", {});
    return true;
}

void Eliminar_Factura(AppContext &ctx, Caratula &c, const QString &factura) {
    Ejecutar(ctx, internos, "delete from facturas where "_L1 + clave(c.interno, factura));
    RefrescarFacturas(ctx, c);
}
