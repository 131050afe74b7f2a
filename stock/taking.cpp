// Taking and giving back, each as one.

#include <algorithm>
#include <set>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/transaction.h"
#include "header/changes.h"
#include "header/regime.h"
#include "stock/posting.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

/// The name of what is asked, for a sentence.
QString nombrar(const Pedido &p) {
    if (p.idarticulo.isEmpty()) return p.descripcion;
    return p.idcatalogo.isEmpty() ? p.idarticulo : p.idcatalogo + u' ' + p.idarticulo;
}

QString noAlcanza(const AppContext &ctx, const Pedido &pedido, double cantidad,
                  const std::vector<Oferta> &ofertas) {
    double enTermino = 0;
    double vencido = 0;
    for (const Oferta &o : ofertas) (o.plazo == Plazo::Vencido ? vencido : enTermino) += o.alcanza;
    const QString texto = u"El stock de %1 no alcanza: se necesitan %2 y hay %3"_s.arg(
        nombrar(pedido), CantidadDicha(ctx, cantidad, pedido.idunidad), CantidadDicha(ctx, enTermino, {}));
    if (vencido <= 0) return texto + u"."_s;
    return texto +
           u", y otros %1 vencidos, que sólo se toman si se eligen."_s.arg(CantidadDicha(ctx, vencido, {}));
}

/// Takes of the offer of one line; what is still missing.
double tomarDe(const AppContext &ctx, Oferta &oferta, double cuanto, double falta,
               std::vector<Parte> &partes) {
    const double cantidad = std::min({oferta.alcanza, cuanto, falta});
    if (cantidad <= 0) return falta;
    oferta.alcanza = numeros::redondear(oferta.alcanza - cantidad, Decimales(ctx));
    partes.push_back({oferta.linea.id, cantidad});
    return numeros::redondear(falta - cantidad, Decimales(ctx));
}

/// From which lines a quantity is taken; what is wrong as one sentence.
QString planear(AppContext &ctx, const Pedido &pedido, double pedida, const std::vector<Parte> &elegidas,
                std::vector<Parte> &partes) {
    if (QString defecto = DefectoDeCantidad(ctx, pedida); !defecto.isEmpty()) return defecto;
    const double cantidad = numeros::redondear(pedida, Decimales(ctx));
    double falta = cantidad;
    std::vector<Oferta> ofertas = Ofertas(ctx, pedido, QDate::currentDate());
    const std::vector<Oferta> todas = ofertas;
    for (const Parte &elegida : elegidas) {
        const auto oferta = std::find_if(ofertas.begin(), ofertas.end(), [&elegida](const Oferta &o) {
            return o.linea.id == elegida.idstock;
        });
        if (oferta == ofertas.end()) continue;
        falta = tomarDe(ctx, *oferta, elegida.cantidad > 0 ? elegida.cantidad : falta, falta, partes);
    }
    for (Oferta &o : ofertas)
        if (o.plazo != Plazo::Vencido) falta = tomarDe(ctx, o, falta, falta, partes);
    return falta > 0 ? noAlcanza(ctx, pedido, cantidad, todas) : QString();
}

std::vector<Parte> partesDe(const std::vector<Movimiento> &movimientos) {
    std::vector<Parte> partes;
    for (const Movimiento &m : movimientos)
        if (!m.paraItem && m.idstock != 0) partes.push_back({m.idstock, m.cantidad});
    return partes;
}

Resultado noPuede(const AppContext &ctx, const QString &porque) {
    ctx.dialogos.advertir(porque);
    return {};
}

/// Enters a taking and its mark; what is wrong as one sentence.
QString asentar(AppContext &ctx, const Destino &destino, const std::vector<Parte> &partes, double &cif) {
    std::vector<Asiento> asientos;
    QString defecto = Preparar(ctx, destino.interno, partes, asientos);
    if (defecto.isEmpty()) defecto = AsentarToma(ctx, {destino.interno, destino.idlinea}, asientos);
    if (defecto.isEmpty()) cif = AsentarMarca(ctx, destino.interno, destino.idlinea);
    return defecto;
}

/// A line as its taking needs it.
struct LineaQueToma {
    Pedido pedido;
    double cantidad = 0;
    QString regimen;
};

std::optional<LineaQueToma> leerLineaQueToma(AppContext &ctx, const QString &interno, qint64 idlinea) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select s.idcatalogo,s.idarticulo,s.idunidad,s.ncm,s.descripcion,s.cantidad,c.idsubreg "
                   "from subitems s,caratula c "
                   "where s.interno = c.interno and s.interno = "_L1 +
                       EnComillas(interno) + " and s.id = "_L1 + QString::number(idlinea),
                   rs))
        return {};
    return LineaQueToma{{interno, rs.Texto(u"idcatalogo"), rs.Texto(u"idarticulo"), rs.Texto(u"idunidad"),
                         rs.Texto(u"ncm"), rs.Texto(u"descripcion")},
                        rs.Numero(u"cantidad"),
                        RegimenEnMayusculas(rs.Texto(u"idsubreg"))};
}

}  // namespace

Resultado Tomar(AppContext &ctx, const Destino &destino, const std::vector<Parte> &partes) {
    std::vector<Asiento> asientos;
    QString defecto = Preparar(ctx, destino.interno, partes, asientos);
    if (!defecto.isEmpty()) return noPuede(ctx, defecto);
    Resultado resultado{true, 0};
    {
        Transaccion transaccion(ctx.conexion(internos));
        defecto = AsentarToma(ctx, {destino.interno, destino.idlinea}, asientos);
        if (defecto.isEmpty()) {
            resultado.CIF = AsentarMarca(ctx, destino.interno, destino.idlinea);
            transaccion.Confirmar();
        }
    }
    // Told where nobody waits for this connection any more.
    return defecto.isEmpty() ? resultado : noPuede(ctx, defecto);
}

Resultado TomarCantidad(AppContext &ctx, const Destino &destino, const Pedido &pedido, double cantidad,
                        const std::vector<Parte> &elegidas) {
    std::vector<Parte> partes;
    if (const QString defecto = planear(ctx, pedido, cantidad, elegidas, partes); !defecto.isEmpty())
        return noPuede(ctx, defecto);
    return Tomar(ctx, destino, partes);
}

Resultado RetomarCantidad(AppContext &ctx, const Destino &destino, const Pedido &pedido, double cantidad) {
    std::vector<Movimiento> anteriores = TomasQueSiguen(ctx, destino.interno, destino.idlinea);
    std::erase_if(anteriores, [](const Movimiento &m) { return m.paraItem; });
    Resultado resultado{true, 0};
    QString defecto;
    {
        Transaccion transaccion(ctx.conexion(internos));
        AsentarDevolucion(ctx, anteriores);
        std::vector<Parte> partes;
        defecto = planear(ctx, pedido, cantidad, partesDe(anteriores), partes);
        if (defecto.isEmpty()) defecto = asentar(ctx, destino, partes, resultado.CIF);
        if (defecto.isEmpty()) transaccion.Confirmar();
    }
    return defecto.isEmpty() ? resultado : noPuede(ctx, defecto);
}

Resultado TomarParaLinea(AppContext &ctx, const QString &interno, qint64 idlinea,
                         const std::vector<Parte> &elegidas) {
    const auto linea = leerLineaQueToma(ctx, interno, idlinea);
    if (!linea)
        return noPuede(ctx, u"La operación %1 no tiene la línea %2; revise su número."_s.arg(
                                interno, QString::number(idlinea)));
    if (!EsRegimenConInsumos(linea->regimen))
        return noPuede(ctx, u"El régimen %1 no descarga insumos del stock."_s.arg(linea->regimen));
    const std::vector<Movimiento> tomas = TomasQueSiguen(ctx, interno, idlinea);
    if (std::any_of(tomas.begin(), tomas.end(), [](const Movimiento &m) { return !m.paraItem; }))
        return noPuede(
            ctx, u"La línea %1 ya tomó del stock; devuelva lo que tomó para tomar de nuevo."_s.arg(idlinea));
    const Resultado r = TomarCantidad(ctx, {interno, idlinea}, linea->pedido, linea->cantidad, elegidas);
    if (r.ok) AnotarCambio(ctx, interno);
    return r;
}

int Devolver(AppContext &ctx, const std::vector<Movimiento> &movimientos) {
    if (movimientos.empty()) return 0;
    std::set<std::pair<QString, qint64>> lineas;
    for (const Movimiento &m : movimientos)
        if (!m.paraItem && m.idlinea != 0) lineas.emplace(m.interno, m.idlinea);
    Transaccion transaccion(ctx.conexion(internos));
    const int devueltos = AsentarDevolucion(ctx, movimientos);
    for (const auto &[interno, idlinea] : lineas) AsentarMarca(ctx, interno, idlinea);
    transaccion.Confirmar();
    return devueltos;
}

int DevolverTodo(AppContext &ctx, const QString &interno) {
    return Devolver(ctx, TomasQueSiguen(ctx, interno));
}

}  // namespace stock
