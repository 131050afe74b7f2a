#include "stock/itemcancel.h"

#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/transaction.h"
#include "header/changes.h"
#include "liquidation/itemview.h"
#include "stock/posting.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;

bool negar(const AppContext &ctx, const QString &porque) {
    ctx.dialogos.advertir(porque);
    return false;
}

/// The line that keeps what is taken for an item; 0 for an item without lines.
qint64 primeraLineaDe(AppContext &ctx, const QString &interno, const QString &item) {
    Recordset rs;
    return Consultar(ctx, internos,
                     "select min(idsub) as id "
                     "from groupsubitems "
                     "where interno = "_L1 +
                         EnComillas(interno) + " and id = "_L1 + QString::number(item.toInt()),
                     rs)
               ? static_cast<qint64>(rs.Numero(u"id"))
               : 0;
}

QString defectoDeManual(const AppContext &ctx, const Cancelacion &c) {
    if (!ctx.opciones.CancelManual)
        return u"Para cancelar sin stock encienda en las opciones \"Carga manual sin Stock\", o elija una línea "
               "del stock."_s;
    if (c.dit.trimmed().isEmpty()) return u"Falta el número de la declaración que se cancela."_s;
    if (c.factor <= 0) return u"El factor de ponderación debe ser mayor que cero."_s;
    return DefectoDeCantidad(ctx, c.cantidad);
}

/// What a cancellation enters; what is wrong as one sentence.
QString prepararCancelacion(AppContext &ctx, const QString &interno, const Cancelacion &c,
                            std::vector<Asiento> &asientos) {
    if (c.idstock != 0) return Preparar(ctx, interno, {{c.idstock, c.cantidad}}, asientos);
    if (QString defecto = defectoDeManual(ctx, c); !defecto.isEmpty()) return defecto;
    Asiento a;
    a.linea.dit = c.dit.trimmed();
    a.linea.item = c.item;
    a.linea.subitem = c.subitem;
    a.linea.ncm = c.ncm.trimmed();
    a.linea.expctit = c.expctit.trimmed();
    a.cantidad = numeros::redondear(c.cantidad, Decimales(ctx));
    a.factor = c.factor;
    asientos.push_back(a);
    return {};
}

/// The rows of descargas of movements, by the movement.
std::vector<Cancelacion> leerCancelacionesDe(AppContext &ctx, const QString &interno,
                                             const std::vector<Movimiento> &movimientos) {
    std::vector<qint64> ids;
    ids.reserve(movimientos.size());
    for (const Movimiento &m : movimientos) ids.push_back(m.id);
    std::vector<Cancelacion> todas;
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select idexportacion,dit,item,subitem,ncm,expctit,cantidad,factorponderacion "
                   "from descargas "
                   "where interno = "_L1 +
                       EnComillas(interno) + " and "_L1 + EntreIds(u"idexportacion"_s, ids) +
                       " order by dit,item,subitem,idexportacion"_L1,
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        Cancelacion c;
        c.id = static_cast<qint64>(rs.Numero(u"idexportacion"));
        c.dit = rs.Texto(u"dit");
        c.item = static_cast<int>(rs.Numero(u"item"));
        c.subitem = static_cast<int>(rs.Numero(u"subitem"));
        c.ncm = rs.Texto(u"ncm");
        c.expctit = rs.Texto(u"expctit");
        c.cantidad = rs.Numero(u"cantidad");
        c.factor = rs.Numero(u"factorponderacion");
        const auto m = std::find_if(movimientos.begin(), movimientos.end(),
                                    [&c](const Movimiento &uno) { return uno.id == c.id; });
        if (m != movimientos.end()) c.idstock = m->idstock;
        todas.push_back(c);
    }
    return todas;
}

std::optional<Movimiento> movimientoQueSigue(AppContext &ctx, qint64 id) {
    const auto movimientos = LeerMovimientos(ctx, "devuelta is null and id = "_L1 + QString::number(id));
    if (movimientos.empty()) return {};
    return movimientos.front();
}

const QString yaDevuelta = u"La cancelación ya no está: se devolvió desde otra pantalla u otra PC."_s;

}  // namespace

std::vector<Cancelacion> CancelacionesDe(AppContext &ctx, const QString &interno, const QString &item) {
    std::vector<Movimiento> tomas = TomasQueSiguen(ctx, interno);
    std::erase_if(tomas, [numero = item.toInt()](const Movimiento &m) { return m.iditem != numero; });
    return tomas.empty() ? std::vector<Cancelacion>() : leerCancelacionesDe(ctx, interno, tomas);
}

std::optional<Cancelacion> BuscarCancelacion(AppContext &ctx, const QString &interno, const QString &item,
                                             const FilaDeCancelacion &fila) {
    for (const Cancelacion &c : CancelacionesDe(ctx, interno, item)) {
        const bool misma = c.dit == fila.dit && QString::number(c.item) == fila.item &&
                           QString::number(c.subitem) == fila.subitem && c.ncm == fila.ncm &&
                           c.expctit == fila.expctit &&
                           numeros::Format(c.cantidad, u"00.000", ctx.SeparadorDecimal) == fila.cantidad &&
                           numeros::iguales(c.factor, numeros::aNumero(fila.factorponderacion), 6);
        if (misma) return c;
    }
    return {};
}

std::vector<Oferta> OfertasParaItem(AppContext &ctx, const QString &interno, const QString &texto,
                                    const QDate &hoy) {
    const QString cliente = ClienteDe(ctx, interno);
    if (cliente.isEmpty()) return {};
    QString donde = "cuitcliente = "_L1 + EnComillas(cliente) + " and saldo > 0"_L1;
    if (!texto.trimmed().isEmpty())
        donde +=
            " and "_L1 +
            ContieneEnAlguna({u"dit"_s, u"idcatalogo"_s, u"idarticulo"_s, u"descripcion"_s, u"ncm"_s}, texto);
    return OfertasDe(ctx, LeerLineas(ctx, donde), hoy);
}

bool IngresarCancelacion(AppContext &ctx, const QString &interno, const QString &item, const Cancelacion &c) {
    const qint64 linea = primeraLineaDe(ctx, interno, item);
    if (linea == 0)
        return negar(
            ctx, u"El item %1 no tiene líneas; arme la operación antes de cargar cancelaciones."_s.arg(item));
    std::vector<Asiento> asientos;
    QString defecto = prepararCancelacion(ctx, interno, c, asientos);
    if (!defecto.isEmpty()) return negar(ctx, defecto);
    {
        Transaccion transaccion(ctx.conexion(internos));
        defecto = AsentarToma(ctx, {interno, linea, item.toInt(), true}, asientos);
        if (defecto.isEmpty()) transaccion.Confirmar();
    }
    return defecto.isEmpty() || negar(ctx, defecto);
}

bool ModificarCancelacion(AppContext &ctx, const QString &interno, const QString &item,
                          const Cancelacion &c) {
    const auto anterior = movimientoQueSigue(ctx, c.id);
    if (!anterior) return negar(ctx, yaDevuelta);
    QString defecto;
    {
        Transaccion transaccion(ctx.conexion(internos));
        if (AsentarDevolucion(ctx, {*anterior}) == 0) defecto = yaDevuelta;
        std::vector<Asiento> asientos;
        if (defecto.isEmpty()) defecto = prepararCancelacion(ctx, interno, c, asientos);
        if (defecto.isEmpty())
            defecto =
                AsentarToma(ctx, {interno, anterior->idlinea, item.toInt(), anterior->paraItem}, asientos);
        if (defecto.isEmpty()) {
            if (!anterior->paraItem) AsentarMarca(ctx, interno, anterior->idlinea);
            transaccion.Confirmar();
        }
    }
    if (!defecto.isEmpty()) return negar(ctx, defecto);
    if (!anterior->paraItem) AnotarCambio(ctx, interno);
    return true;
}

bool EliminarCancelacion(AppContext &ctx, const Cancelacion &c) {
    const auto movimiento = movimientoQueSigue(ctx, c.id);
    if (!movimiento || Devolver(ctx, {*movimiento}) == 0) return negar(ctx, yaDevuelta);
    if (!movimiento->paraItem) AnotarCambio(ctx, movimiento->interno);
    return true;
}

}  // namespace stock
