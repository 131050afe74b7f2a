// The quote as plain text.

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/startup.h"
#include "header/comments.h"
#include "outputs/quote.h"
#include "outputs/quotepage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype anchoDeConcepto = 40;
constexpr qsizetype anchoDeMonto = 16;

/// A name and its amounts, under each other from line to line; a long name keeps a line of its own.
QString renglon(const QString &nombre, const QStringList &montos) {
    QString texto = nombre;
    if (texto.size() >= anchoDeConcepto)
        texto += u'\n' + QString(anchoDeConcepto, u' ');
    else
        texto = texto.leftJustified(anchoDeConcepto);
    for (const QString &monto : montos) texto += monto.rightJustified(anchoDeMonto);
    return texto + u'\n';
}

QString encabezado(const QString &texto) {
    return u'\n' + texto + u'\n' + QString(texto.size(), u'-') + u'\n';
}

}  // namespace

QString TextoDelPresupuesto(AppContext &ctx, const Presupuesto &p, const QDate &dia) {
    const auto monto = [&ctx](double valor) {
        return numeros::Format(valor, u"00.00", ctx.SeparadorDecimal);
    };
    const auto par = [&monto](const EnDosMonedas &m) {
        return QStringList{monto(m.pesos), monto(m.dolares)};
    };
    QString t =
        u"PRESUPUESTO\n\nOperación: %1\nFecha: %2\nCliente: %3\nDomicilio: %4\nDespachante: %5\n"_s.arg(
            p.interno, FechaLarga(dia.startOfDay()), p.LbCliente, p.LbCLIDOM, p.LbDespachante);
    for (const ReferenciaDePresupuesto &r : p.referencias) t += r.referencia + ": "_L1 + r.valor + u'\n';
    if (const QString comentario = LeerComentario(ctx, p.interno); !comentario.trimmed().isEmpty())
        t += encabezado(u"Comentarios"_s) + comentario + u'\n';

    t += encabezado(u"Valores"_s) + renglon({}, {u"Pase"_s, u"Dólares"_s});
    t += renglon(u"FOB"_s, {p.LbPaseFob, p.LbFOB});
    t += renglon(u"Flete"_s, {p.LbPaseFlete, p.LbFlete});
    t += renglon(u"Seguro"_s, {p.LbPaseSeguro, p.LbSeguro});
    t += renglon(u"Ajuste a incluir"_s, {{}, p.LbAjInc});
    t += renglon(u"Ajuste a deducir"_s, {{}, p.LbAjDed});
    t += renglon(u"Base imponible"_s, {{}, p.LbBaseImp});
    t += renglon(u"Base IVA"_s, {{}, p.LbBaseIVA});
    t += renglon(u"Tipo de cambio, pesos por dólar"_s, {{}, p.TxtPase});

    t += encabezado(u"Gastos de despacho"_s) + renglon({}, {u"Pesos"_s, u"Dólares"_s});
    for (const GastoDeDespacho &g : p.gastos)
        t += renglon(g.pgc.isEmpty() ? g.concepto : u"%1 (%2)"_s.arg(g.concepto, g.pgc),
                     par({g.pesos, g.dolares}));
    t += renglon(u"Total a pagar (P)"_s, par(p.totalP));
    t += renglon(u"Total a garantizar (G)"_s, par(p.totalG));
    t += renglon(u"Total a cobrar (C)"_s, par(p.totalC));

    const ResumenDePresupuesto r = Resumir(p);
    t += encabezado(u"Gastos operativos"_s) + renglon({}, {u"Pesos"_s, u"Dólares"_s});
    for (const GastoOperativo &g : p.operativos) t += renglon(g.concepto, par(ImporteMostrado(p, g)));
    t += renglon(u"Total convenido en cada moneda"_s, par(r.operativos));

    t += encabezado(u"Total en pesos"_s);
    t += renglon(u"Subtotal"_s, {monto(r.subtotal)});
    t += renglon(u"A cuenta"_s, {r.aCuenta == 0 ? u"-"_s : monto(r.aCuenta)});
    t += renglon(u"Total general"_s, {monto(r.totalGeneral)});
    return t;
}
