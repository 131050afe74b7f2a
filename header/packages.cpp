#include "header/packages.h"

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::internos;

QString deLaOperacion(const QString &interno) {
    return "interno = "_L1 + EnComillas(interno);
}

Veredicto revisarVencimiento(AppContext &ctx, const QString &texto, const QDate &hoy) {
    if (texto.trimmed().isEmpty()) return Veredicto::bien();
    const auto vence = fechas::Leer(texto);
    if (vence && *vence > hoy) return Veredicto::bien();
    ctx.dialogos.advertir(vence ? u"La fecha Vencimiento de Embarque debe ser superior a la del día."_s
                                : u"En Vencimiendo de Embarque debe tener una fecha valida"_s);
    return Veredicto::mal(u"TxtVencimiento"_s);
}

QString vencimientoSql(const QString &texto) {
    const auto vence = fechas::Leer(texto);
    return vence ? EnComillas(vence->toString(u"dd-MM-yy"_s)) : u"null"_s;
}

}  // namespace

const std::vector<CampoDeBultos> &CamposDeBultos() {
    static const std::vector<CampoDeBultos> todos{
        {u"bulnro"_s, &Bultos::TxtNroBultos},
        {u"bulcod"_s, &Bultos::TxtCodigo},
        {u"bultip"_s, &Bultos::TxtTipo},
        {u"bulpes"_s, &Bultos::TxtPeso},
        {u"buldes"_s, &Bultos::TxtBultDesp},
        {u"marcabul"_s, &Bultos::TxtMarcaBul},
        {u"via"_s, &Bultos::TxtVia},
        {u"trans"_s, &Bultos::TxtNomTrans},
        {u"bandera"_s, &Bultos::TxtBandera},
        {u"cuittrans"_s, &Bultos::TxtCuit},
        {u"factura10"_s, &Bultos::TxtNombreTrans},
        {u"venemb"_s, &Bultos::TxtVencimiento},
    };
    return todos;
}

Bultos CargarBultos(AppContext &ctx, const QString &interno) {
    Bultos b;
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select factura9,BULNRO,BULCOD,BULTIP,BULPES,BULDES,"
                   "marcabul, via, trans, bandera, cuittrans ,factura10, venemb "
                   "from caratula where "_L1 +
                       deLaOperacion(interno),
                   rs))
        return b;
    const QString respondido = rs.Texto(u"factura9").trimmed();
    b.chTransBultos = respondido.isEmpty() || respondido == "1"_L1;
    for (const CampoDeBultos &c : CamposDeBultos()) b.*c.campo = rs.Texto(c.columna);
    b.TxtPeso = numeros::Format(rs.Numero(u"BULPES"), u"00.00", ctx.SeparadorDecimal);
    const auto vence = fechas::Leer(rs.Texto(u"venemb"));
    b.TxtVencimiento = vence ? vence->toString(u"dd/MM/yyyy"_s) : QString();
    return b;
}

Veredicto GuardarBultos(AppContext &ctx, const QString &interno, const Bultos &b, const QDate &hoy) {
    if (!b.chTransBultos) {
        Ejecutar(ctx, internos, "update caratula set factura9 = '1' where "_L1 + deLaOperacion(interno));
        ctx.dialogos.informar(u"Eligio no transferir bultos, los datos no seran guardados"_s);
        return Veredicto::bien();
    }
    if (Veredicto v = revisarVencimiento(ctx, b.TxtVencimiento, hoy); !v.ok) return v;
    if (!b.TxtPeso.trimmed().isEmpty() && !numeros::esNumerico(b.TxtPeso)) {
        ctx.dialogos.advertir(u"El Peso de los bultos no es un número, corríjalo."_s);
        return Veredicto::mal(u"TxtPeso"_s);
    }
    Escritura e(ctx);
    e.texto("marcabul", b.TxtMarcaBul)
        .texto("bulnro", b.TxtNroBultos)
        .texto("via", b.TxtVia)
        .texto("trans", b.TxtNomTrans)
        .texto("bandera", b.TxtBandera)
        .texto("cuittrans", b.TxtCuit)
        .texto("factura9", u"1"_s)
        .texto("factura10", b.TxtNombreTrans)
        .texto("bulcod", b.TxtCodigo)
        .texto("bultip", b.TxtTipo)
        .numero("bulpes", b.TxtPeso)
        .texto("buldes", b.TxtBultDesp)
        .crudo("venemb", vencimientoSql(b.TxtVencimiento));
    Ejecutar(ctx, internos, e.actualizar(u"caratula"_s, deLaOperacion(interno)));
    return Veredicto::bien();
}
