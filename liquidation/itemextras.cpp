#include "liquidation/itemextras.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using entidad::internos;

const QString itemDeTodos = u"0"_s;

/// What information and advantages differ in.
struct Clase {
    const char *catalogo;
    const char *tabla;
    const char *columna;
    const char *esDelCero;  ///< what is told where item 0 holds it
};
constexpr Clase informacion{
    "informacion", "iteminfo", "idinfo",
    "No se puede eliminar esta Información. Debe eliminar el mismo en el ITEM 0 (cero)"};
constexpr Clase ventajas{"ventajas", "itemventaja", "idventaja",
                         "No se puede eliminar esta Ventaja. Debe eliminar la misma en el ITEM 0 (cero)"};

bool esAutoliquidacion(const QString &id) {
    return id == "AUTOLIQLIBREEXP"_L1 || id == "AUTOLIQLIBREIMP"_L1;
}

std::vector<ExtraDeItem> listar(AppContext &ctx, const Clase &clase) {
    std::vector<ExtraDeItem> filas;
    Recordset rs;
    for (Consultar(ctx, entidad::systablas, "select * from "_L1 + L(clase.catalogo) + " order by id"_L1, rs);
         !rs.Eof(); rs.MoveNext())
        filas.push_back({rs.Texto(u"ID").trimmed(), rs.Texto(u"Descripcion").trimmed()});
    return filas;
}

/// An operation and an extra of it.
struct Extra {
    AppContext &ctx;
    const QString &interno;
    const Clase &clase;
    const QString &id;

    QString propio() const { return L(clase.columna) + " = "_L1 + EnComillas(id); }
    QString deOperacion() const { return " and interno = "_L1 + EnComillas(interno); }
    qint64 ejecutar(const QString &sql) const { return Ejecutar(ctx, internos, sql); }

    bool tiene(const QString &item) const {
        Recordset rs;
        return Consultar(ctx, internos,
                         "select count(*) as cont from "_L1 + L(clase.tabla) + " where iditem = "_L1 + item +
                             " and "_L1 + propio() + deOperacion(),
                         rs) &&
               rs.Numero(u"cont") != 0;
    }
    void agregar(const QString &item, const QString *valor) const {
        Escritura fila(ctx);
        fila.crudo("iditem", item).codigo(clase.columna, id);
        if (valor != nullptr) fila.texto("valor", *valor);
        ejecutar(fila.codigo("interno", interno).insertar(L(clase.tabla)));
        if (valor == nullptr && esAutoliquidacion(id)) marcar(u"'M'"_s, " and id = "_L1 + item);
    }
    void marcar(const QString &marca, const QString &deItem) const {
        ejecutar("update item set lman = "_L1 + marca + " where interno = "_L1 + EnComillas(interno) +
                 deItem);
    }
    void agregarATodos(const QString *valor) const {
        Recordset rs;
        Consultar(ctx, internos, "select id from item where id<>0"_L1 + deOperacion(), rs);
        EscrituraLigera ligera(ctx.conexion(internos));
        for (; !rs.Eof(); rs.MoveNext())
            if (const QString item = rs.Texto(u"id"); !tiene(item)) agregar(item, valor);
        ligera.Terminar();
    }
    /// False with the word to the user where the item has it.
    bool falta(const QString &item) const {
        if (!tiene(item)) return true;
        ctx.dialogos.advertir(u"Este item ya esta ingresado."_s);
        return false;
    }
    bool eliminar(const QString &item) const {
        const bool deTodos = item == itemDeTodos;
        if (!deTodos && tiene(itemDeTodos)) {
            ctx.dialogos.advertir(QString::fromUtf8(clase.esDelCero));
            return false;
        }
        const QString cuales = propio() + deOperacion();
        if (ejecutar("delete from "_L1 + L(clase.tabla) + " where "_L1 +
                     (deTodos ? cuales : "iditem = "_L1 + item + " and "_L1 + cuales)) > 0)
            return true;
        ctx.dialogos.advertir(u"El item %1 ya no tiene %2; vuelva a mirar la lista."_s.arg(item, id));
        return false;
    }
};

}  // namespace

std::vector<ExtraDeItem> ListarInformacion(AppContext &ctx) {
    return listar(ctx, informacion);
}

std::vector<ExtraDeItem> ListarVentajas(AppContext &ctx) {
    return listar(ctx, ventajas);
}

bool AgregarInformacion(AppContext &ctx, const QString &interno, const QString &item, const QString &id,
                        const PedirValor &pedir) {
    const Extra extra{ctx, interno, informacion, id};
    if (!extra.falta(item)) return false;
    const std::optional<QString> valor = pedir();
    if (!valor) return false;
    const Reloj reloj(ctx.dialogos);
    extra.agregar(item, &*valor);
    if (item == itemDeTodos) extra.agregarATodos(&*valor);
    return true;
}

bool AgregarVentajaAItem(AppContext &ctx, const QString &interno, const QString &item, const QString &id) {
    const Extra extra{ctx, interno, ventajas, id};
    if (!extra.falta(item)) return false;
    const Reloj reloj(ctx.dialogos);
    extra.agregar(item, nullptr);
    if (item == itemDeTodos) extra.agregarATodos(nullptr);
    return true;
}

bool EliminarInformacion(AppContext &ctx, const QString &interno, const QString &item, const QString &id) {
    return Extra{ctx, interno, informacion, id}.eliminar(item);
}

bool EliminarVentajaDeItem(AppContext &ctx, const QString &interno, const QString &item, const QString &id) {
    const Extra extra{ctx, interno, ventajas, id};
    if (!extra.eliminar(item)) return false;
    if (esAutoliquidacion(id))
        extra.marcar(u"''"_s, item == itemDeTodos ? QString() : " and id = "_L1 + item);
    return true;
}
