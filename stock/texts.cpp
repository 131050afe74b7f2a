#include "stock/texts.h"

#include "frame/base/failure.h"
#include "frame/base/numbers.h"
#include "frame/context.h"
#include "header/codes.h"

using namespace Qt::StringLiterals;

namespace stock {

QString TextoDeCantidad(const AppContext &ctx, double cantidad) {
    return numeros::FormatSinPerdida(cantidad, MascaraDeCantidad(ctx), ctx.SeparadorDecimal);
}

QString TextoDeUnidad(AppContext &ctx, const QString &idunidad) {
    try {
        return (idunidad + u' ' + getUnidadDescripcion(ctx, idunidad).trimmed()).trimmed();
    } catch (const Falla &) {
        return idunidad;
    }
}

QString TextoDeImporte(const AppContext &ctx, double importe, const QString &divisa) {
    return (numeros::Format(importe, u"00.00", ctx.SeparadorDecimal) + u' ' + divisa).trimmed();
}

QString TextoDeDia(const QDate &dia) {
    return dia.toString(u"dd/MM/yyyy"_s);
}

QString TextoDeMomento(const QDateTime &momento) {
    return momento.toString(u"dd/MM/yyyy HH:mm"_s);
}

QString EstadoDeLinea(const Linea &linea, const QDate &hoy) {
    return linea.saldo <= 0 ? u"sin saldo"_s : PalabraDePlazo(PlazoDe(linea.vencimiento, hoy));
}

QString DetalleDeLinea(const AppContext &ctx, const Linea &linea) {
    QStringList partes{linea.descripcion};
    const auto agregar = [&partes](const QString &rotulo, const QString &valor) {
        if (!valor.isEmpty()) partes << rotulo + u' ' + valor;
    };
    agregar(u"CIF"_s, TextoDeImporte(ctx, linea.cif, linea.divisa));
    agregar(u"Origen"_s, linea.idpais);
    agregar(u"CTIT"_s, linea.expctit);
    if (linea.merma > 0)
        agregar(u"Merma"_s, numeros::FormatSinPerdida(linea.merma, u"0.00", ctx.SeparadorDecimal) + u" %"_s);
    agregar(u"Entró el"_s, TextoDeDia(linea.fecha));
    agregar(u"Operación"_s, linea.interno);
    return partes.join(u"   ·   "_s);
}

QString CuantasLineas(const std::vector<Linea> &lineas, const QDate &hoy) {
    int vencidas = 0;
    int porVencer = 0;
    for (const Linea &l : lineas) {
        if (l.saldo <= 0) continue;
        const Plazo plazo = PlazoDe(l.vencimiento, hoy);
        if (plazo == Plazo::Vencido) ++vencidas;
        if (plazo == Plazo::PorVencer) ++porVencer;
    }
    const auto cuantas = static_cast<int>(lineas.size());
    QString texto = cuantas == 1 ? u"1 línea"_s : u"%1 líneas"_s.arg(cuantas);
    if (vencidas > 0) texto += vencidas == 1 ? u", 1 vencida"_s : u", %1 vencidas"_s.arg(vencidas);
    if (porVencer > 0) texto += u", %1 por vencer"_s.arg(porVencer);
    return texto;
}

std::optional<double> CantidadEscrita(const QString &texto) {
    if (!numeros::esNumerico(texto)) return {};
    return numeros::aNumero(texto);
}

bool PreguntarVencida(const AppContext &ctx, const Linea &linea) {
    return ctx.dialogos.preguntar({u"La línea de la declaración %1 venció el %2. ¿Toma de ella igual?"_s.arg(
                                       linea.dit, TextoDeDia(linea.vencimiento)),
                                   u"Insumo vencido"_s, Icono::Exclamacion, true});
}

}  // namespace stock
