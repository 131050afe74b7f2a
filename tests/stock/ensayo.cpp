#include "tests/stock/ensayo.h"

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"

using namespace Qt::StringLiterals;

void Ensayo::SetUp() {
    EnAmbosStores::SetUp();
    for (const char *tabla : {"stockmov", "stock", "descargas"})
        ejecutar("delete from "_L1 + QLatin1StringView(tabla));
    // Nothing of what the demonstration took.
    ejecutar(u"update subitems set cancelaciones = '' where interno = 'EC-2026-0008'"_s);
    operacion(exportacion, {{u"fobdivisas"_s, u"1000"_s}});
    stock::Pantallas pantallas;
    pantallas.tomar = [this](const QString &interno) {
        pedidas << interno;
        return eleccion;
    };
    stock::Enchufar(*ctx, pantallas);
    AbrirSubItems(*ctx, s, exportacion, {1, 1, 1, 1, 1, 1, 1, 1});
    registro = Registro();
}

void Ensayo::TearDown() {
    stock::Desenchufar();
    EnAmbosStores::TearDown();
}

bool Ensayo::armar(const QString &interno) {
    ctx->ChequeoArmado = u"SI"_s;
    const bool entera = Generar(*ctx, interno, {});
    return entera && ctx->ChequeoArmado == "SI"_L1;
}

void Ensayo::cargar() {
    ASSERT_TRUE(armar(importacionTemporal)) << ultimo();
    registro = Registro();
    const stock::ResultadoDeCarga r = stock::CargarConDatos(
        *ctx, importacionTemporal,
        {u"26001IT01000123T"_s, hoy.addDays(-5), hoy.addDays(200), u"CTIT 2026/0412"_s, 0});
    ASSERT_TRUE(r.ok) << ultimo();
    registro = Registro();
}

qint64 Ensayo::stockDe(const QString &articulo) {
    return valor(u"select min(id) as id from stock where idarticulo = %1"_s.arg(EnComillas(articulo)))
        .toLongLong();
}

Grabacion Ensayo::grabarLinea(const QString &articulo, double cantidad,
                              const std::vector<stock::Parte> &partes) {
    for (const stock::ArticuloEnStock &a : stock::ArticulosDe(*ctx, exportacion, articulo))
        eleccion = stock::Elegido{a, partes};
    if (!SelectINSUMOS(*ctx, s)) return {};
    CamposSubItem &c = s.campos;
    c.TxtCantidad = numeros::aTexto(cantidad);
    c.TxtValorsobreestadistica = c.TxtCantidad;
    c.TxtKgNeto = c.TxtCantidad;
    c.TxtDerEsp = c.LbIdDerEsp.isEmpty() ? QString() : c.TxtCantidad;
    c.TxtFobTotal = numeros::aTexto(numeros::redondear(cantidad * numeros::aNumero(c.TxtUnitario), 2));
    return Grabar(*ctx, s);
}

Grabacion Ensayo::teclearLinea(const QString &articulo, double cantidad) {
    s.campos = CamposSubItem();
    CamposSubItem &c = s.campos;
    c.TxtIdCatalogo = u"ALERCES"_s;
    c.txtIdArticulo = articulo;
    c.TxtDescArticulos = u"Tela sin tejer"_s;
    c.TxtPosicion = u"5603.12.30.100L"_s;
    BuscarNCM(*ctx, s);
    c.TxtUnidad = u"01"_s;
    c.TxtCantidad = numeros::aTexto(cantidad);
    c.TxtValorsobreestadistica = c.TxtKgNeto = c.TxtCantidad;
    c.TxtDerEsp = c.LbIdDerEsp.isEmpty() ? QString() : c.TxtCantidad;
    c.TxtUnitario = u"4"_s;
    c.TxtFobTotal = numeros::aTexto(numeros::redondear(cantidad * numeros::aNumero(c.TxtUnitario), 2));
    return Grabar(*ctx, s);
}
