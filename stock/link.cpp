#include "stock/link.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/failures.h"
#include "stock/rows.h"

using namespace Qt::StringLiterals;

namespace stock {

namespace {

using entidad::internos;
using insumos::Toma;
using insumos::Tomado;

/// What a link remembers between the list and the line that is saved.
struct Memoria {
    QString interno;
    std::optional<Elegido> elegido;
};

bool esLoElegido(const Memoria &memoria, const Toma &toma) {
    return memoria.elegido && memoria.interno == toma.Interno &&
           memoria.elegido->articulo.idcatalogo == toma.CATNRO &&
           memoria.elegido->articulo.idarticulo == toma.PRDNRO;
}

/// The line as the stock is asked for it: what the store has of it, in the unit that is told.
Pedido pedidoDe(AppContext &ctx, const Toma &toma) {
    Pedido pedido{toma.Interno, toma.CATNRO, toma.PRDNRO, toma.PRDUNI, {}, {}};
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select ncm,descripcion,idunidad "
                   "from subitems "
                   "where interno = "_L1 +
                       EnComillas(toma.Interno) + " and id = "_L1 + QString::number(toma.SUBITEM),
                   rs))
        return pedido;
    pedido.ncm = rs.Texto(u"ncm");
    pedido.descripcion = rs.Texto(u"descripcion");
    if (pedido.idunidad.isEmpty()) pedido.idunidad = rs.Texto(u"idunidad");
    return pedido;
}

/// The price that the link's list hands over: that of the line which is taken first.
insumos::Eleccion eleccionDe(AppContext &ctx, const QString &interno, const Elegido &elegido) {
    const ArticuloEnStock &a = elegido.articulo;
    insumos::Eleccion e;
    e.CATNRO = a.idcatalogo;
    e.PRDNRO = a.idarticulo;
    e.PRDDES = a.descripcion;
    e.PRDNCM = a.ncm;
    e.PRDUNI = a.idunidad;
    double cantidad = 0;
    for (const Parte &p : elegido.partes) cantidad += p.cantidad;
    if (cantidad > 0) e.PRDCAN = numeros::aTexto(numeros::redondear(cantidad, Decimales(ctx)));
    std::optional<Linea> primera;
    if (!elegido.partes.empty()) {
        primera = LeerLinea(ctx, elegido.partes.front().idstock);
    } else {
        const Pedido pedido{interno, a.idcatalogo, a.idarticulo, a.idunidad, a.ncm, a.descripcion};
        if (const auto ofertas = Ofertas(ctx, pedido, QDate::currentDate()); !ofertas.empty())
            primera = ofertas.front().linea;
    }
    if (!primera) return e;
    e.PRDPRE = numeros::aTexto(primera->preciounitario);
    e.PRDPAI = primera->idpais;
    e.PRDSUF = primera->sufijos;
    return e;
}

/// A failing store is a refusal that was told: a line that could not take must not stay as if it had. Of one
/// that went away nobody knows whether it did: that is for whoever asks it again.
bool conAviso(AppContext &ctx, const std::function<bool()> &hacer) {
    try {
        return hacer();
    } catch (const Falla &e) {
        if (e.numero == Falla::sinStore) throw;
        ContarFalla(ctx, e, u"No se pudo tomar del stock: %1"_s.arg(e.descripcion));
        return false;
    }
}

std::vector<qint64> idsDe(const QString &lista) {
    std::vector<qint64> ids;
    for (const QString &id : lista.split(u'|', Qt::SkipEmptyParts)) ids.push_back(id.toLongLong());
    return ids;
}

/// The root lines and those that were folded into them.
std::vector<qint64> conSusPlegadas(AppContext &ctx, const QString &interno, std::vector<qint64> raices) {
    Recordset rs;
    const QString deLasRaices = EntreIds(u"idroot"_s, raices);
    for (Consultar(ctx, internos,
                   "select idsub "
                   "from idrel "
                   "where interno = "_L1 +
                       EnComillas(interno) + " and "_L1 + deLasRaices,
                   rs);
         !rs.Eof(); rs.MoveNext())
        raices.push_back(static_cast<qint64>(rs.Numero(u"idsub")));
    return raices;
}

void numerar(AppContext &ctx, const QString &interno, const std::vector<qint64> &movimientos, qint64 iditem) {
    if (movimientos.empty()) return;
    Ejecutar(ctx, internos,
             Escritura(ctx)
                 .numero("iditem", static_cast<double>(iditem))
                 .actualizar(u"stockmov"_s, EntreIds(u"id"_s, movimientos)));
    Ejecutar(ctx, internos,
             Escritura(ctx)
                 .texto("iditem", QString::number(iditem))
                 .actualizar(u"descargas"_s, "interno = "_L1 + EnComillas(interno) + " and "_L1 +
                                                 EntreIds(u"idexportacion"_s, movimientos)));
}

bool enviarGrupo(AppContext &ctx, const QString &interno, qint64 raiz, const QString &lista) {
    std::vector<qint64> ids = idsDe(lista);
    ids.push_back(raiz);
    const std::set<qint64> distintos(ids.begin(), ids.end());
    Recordset rs;
    Consultar(ctx, internos,
              "select count(*) as cuantas "
              "from subitems "
              "where interno = "_L1 +
                  EnComillas(interno) + " and "_L1 + EntreIds(u"id"_s, ids),
              rs);
    return static_cast<std::size_t>(rs.Numero(u"cuantas")) == distintos.size();
}

bool enviarItem(AppContext &ctx, qint64 iditem, const QString &lista) {
    const std::vector<qint64> raices = idsDe(lista);
    Recordset rs;
    if (raices.empty() || !Consultar(ctx, internos,
                                     "select interno "
                                     "from subitems "
                                     "where id = "_L1 +
                                         QString::number(raices.front()),
                                     rs))
        return false;
    const QString interno = rs.Texto(u"interno");
    std::vector<qint64> movimientos;
    for (const Movimiento &m :
         LeerMovimientos(ctx, "interno = "_L1 + EnComillas(interno) + " and devuelta is null and "_L1 +
                                  EntreIds(u"idlinea"_s, conSusPlegadas(ctx, interno, raices))))
        movimientos.push_back(m.id);
    numerar(ctx, interno, movimientos, iditem);
    return true;
}

/// The item of each line of an operation, also of those that were folded into another.
std::map<qint64, qint64> itemsDeLineas(AppContext &ctx, const QString &interno) {
    std::map<qint64, qint64> items;
    const QString donde = "where interno = "_L1 + EnComillas(interno);
    Recordset rs;
    for (Consultar(ctx, internos, "select id,idsub from groupsubitems "_L1 + donde, rs); !rs.Eof();
         rs.MoveNext())
        if (!rs.EsNulo(u"idsub"))
            items[static_cast<qint64>(rs.Numero(u"idsub"))] = static_cast<qint64>(rs.Numero(u"id"));
    for (Consultar(ctx, internos, "select idroot,idsub from idrel "_L1 + donde, rs); !rs.Eof(); rs.MoveNext())
        if (const auto raiz = items.find(static_cast<qint64>(rs.Numero(u"idroot"))); raiz != items.end())
            items[static_cast<qint64>(rs.Numero(u"idsub"))] = raiz->second;
    return items;
}

void reubicar(AppContext &ctx, const QString &interno) {
    const std::vector<Movimiento> tomas = TomasQueSiguen(ctx, interno);
    if (tomas.empty()) return;
    const std::map<qint64, qint64> items = itemsDeLineas(ctx, interno);
    std::map<qint64, std::vector<qint64>> porItem;
    for (const Movimiento &m : tomas)
        if (const auto item = items.find(m.idlinea); item != items.end() && item->second != m.iditem)
            porItem[item->second].push_back(m.id);
    for (const auto &[item, movimientos] : porItem) numerar(ctx, interno, movimientos, item);
}

bool eliminar(AppContext &ctx, const QString &interno, qint64 linea) {
    try {
        Devolver(ctx, TomasQueSiguen(ctx, interno, linea));
        return true;
    } catch (const Falla &) {
        return false;
    }
}

bool conectado(AppContext &ctx) {
    try {
        Recordset rs;
        Consultar(ctx, internos, u"select id from stock where id = 0"_s, rs);
        return true;
    } catch (const Falla &e) {
        // No stock is an answer; no store to ask is none.
        if (e.numero == Falla::sinStore) throw;
        return false;
    }
}

Tomado queTomo(AppContext &ctx, const QString &interno, qint64 linea) {
    const std::vector<Movimiento> tomas = TomasQueSiguen(ctx, interno, linea);
    if (tomas.empty()) return Tomado::Nada;
    const bool propia =
        std::any_of(tomas.begin(), tomas.end(), [](const Movimiento &m) { return !m.paraItem; });
    return propia ? Tomado::Propio : Tomado::ParaSuItem;
}

bool agregar(AppContext &ctx, Memoria &memoria, const Toma &toma, double &cif) {
    return conAviso(ctx, [&] {
        std::vector<Parte> elegidas;
        if (esLoElegido(memoria, toma)) elegidas = memoria.elegido->partes;
        const Resultado r = TomarCantidad(ctx, {toma.Interno, toma.SUBITEM}, pedidoDe(ctx, toma),
                                          numeros::aNumero(toma.PRDCAN), elegidas);
        if (!r.ok) return false;
        cif = r.CIF;
        memoria.elegido.reset();
        return true;
    });
}

bool retomar(AppContext &ctx, const Toma &toma, double &cif) {
    return conAviso(ctx, [&] {
        const Resultado r = RetomarCantidad(ctx, {toma.Interno, toma.SUBITEM}, pedidoDe(ctx, toma),
                                            numeros::aNumero(toma.PRDCAN));
        cif = r.CIF;
        return r.ok;
    });
}

}  // namespace

insumos::Enlace CrearEnlace(AppContext &ctx, const Pantallas &pantallas) {
    const auto memoria = std::make_shared<Memoria>();
    insumos::Enlace e;
    e.EstadoConexion = [&ctx] { return conectado(ctx); };
    e.ConectarDB = [memoria](const QString &interno) { *memoria = {interno, {}}; };
    e.Mostrar = [&ctx, memoria, tomar = pantallas.tomar]() -> std::optional<insumos::Eleccion> {
        memoria->elegido = tomar ? tomar(memoria->interno) : std::nullopt;
        if (!memoria->elegido) return {};
        return eleccionDe(ctx, memoria->interno, *memoria->elegido);
    };
    e.Participa = [&ctx, memoria](const Toma &toma) {
        return esLoElegido(*memoria, toma) ||
               !Ofertas(ctx, pedidoDe(ctx, toma), QDate::currentDate()).empty();
    };
    e.AgregarInsumo = [&ctx, memoria](const Toma &toma, double &cif) {
        return agregar(ctx, *memoria, toma, cif);
    };
    e.QueTomo = [&ctx](const QString &interno, qint64 linea) { return queTomo(ctx, interno, linea); };
    e.RetomarInsumo = [&ctx](const Toma &toma, double &cif) { return retomar(ctx, toma, cif); };
    e.EliminarInsumo = [&ctx](const QString &interno, const QString &, const QString &, qint64 linea) {
        return eliminar(ctx, interno, linea);
    };
    e.EnviarGrupoIdSub = [&ctx](const QString &interno, qint64 raiz, const QString &lista) {
        return enviarGrupo(ctx, interno, raiz, lista);
    };
    e.EnviarNroItem = [&ctx](qint64 iditem, const QString &lista) { return enviarItem(ctx, iditem, lista); };
    e.ReubicarItems = [&ctx](const QString &interno) { reubicar(ctx, interno); };
    return e;
}

namespace {

/// The screens of cancellations of this process.
std::optional<cancelaciones::Enlace> &enlaceDeCancelaciones() {
    static std::optional<cancelaciones::Enlace> enlace;
    return enlace;
}

}  // namespace

void Enchufar(AppContext &ctx, const Pantallas &pantallas) {
    insumos::crearEnlace = [&ctx, pantallas] { return CrearEnlace(ctx, pantallas); };
    enlaceDeCancelaciones() = pantallas.cancelaciones;
    cancelaciones::enlace = enlaceDeCancelaciones() ? &*enlaceDeCancelaciones() : nullptr;
    ctx.opciones.TempInputsAvailable = true;
}

void Desenchufar() {
    insumos::crearEnlace = nullptr;
    cancelaciones::enlace = nullptr;
    enlaceDeCancelaciones().reset();
}

}  // namespace stock
