#include "operations/batchchanges.h"

#include <QJsonArray>
#include <algorithm>

#include "assembly/kilosbyitem.h"
#include "frame/base/numbers.h"
#include "header/packages.h"
#include "header/transportagents.h"
#include "liquidation/conceptedit.h"
#include "liquidation/consistency.h"
#include "liquidation/itemextras.h"
#include "liquidation/itemsave.h"
#include "liquidation/itemview.h"
#include "operations/batchfile.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

using L = QLatin1String;

// What the files may hold

const std::vector<Miembro> &miembrosDeConcepto() {
    static const std::vector<Miembro> todos{{u"codigo"_s, Forma::Valor, {}, true},
                                            {u"nuevo"_s},
                                            {u"porcentaje"_s},
                                            {u"base"_s},
                                            {u"total"_s},
                                            {u"pgc"_s},
                                            {u"motivo"_s}};
    return todos;
}

const std::vector<Miembro> &miembrosDeItem() {
    static const std::vector<Miembro> todos = [] {
        std::vector<Miembro> campos;
        for (const CampoDeItem &c : CamposDeItem())
            if (c.seGraba) campos.push_back({L(c.columna)});
        return std::vector<Miembro>{
            {u"campos"_s, Forma::Objeto, campos, false, true},
            {u"conceptos"_s,
             Forma::Objeto,
             {{u"agregar"_s, Forma::Lista, miembrosDeConcepto()},
              {u"modificar"_s, Forma::Lista, miembrosDeConcepto()},
              {u"eliminar"_s, Forma::Textos}}},
            {u"informacion"_s,
             Forma::Objeto,
             {{u"agregar"_s,
               Forma::Lista,
               {{u"id"_s, Forma::Valor, {}, true}, {u"valor"_s, Forma::Valor, {}, true}}},
              {u"eliminar"_s, Forma::Textos}}},
            {u"ventajas"_s, Forma::Objeto, {{u"agregar"_s, Forma::Textos}, {u"eliminar"_s, Forma::Textos}}},
            {u"kilos"_s},
            {u"kilosPorGrupos"_s},
        };
    }();
    return todos;
}

const std::vector<Miembro> &miembrosDeBultos() {
    static const std::vector<Miembro> todos = [] {
        std::vector<Miembro> columnas;
        for (const CampoDeBultos &c : CamposDeBultos()) columnas.push_back({c.columna});
        return std::vector<Miembro>{{u"transferir"_s}, {u"campos"_s, Forma::Objeto, columnas, false, true}};
    }();
    return todos;
}

// The item

/// An item while it is changed.
struct ItemEnMano {
    const Trabajo &t;
    AppContext &ctx;
    const QString &interno;
    QString item;
    ClassLiquidacion calculo;

    QJsonObject parte(const char *nombre) const { return t.orden.cambios.value(L(nombre)).toObject(); }
    QString texto(const QJsonObject &objeto, const char *nombre) const {
        return TextoDeValor(objeto.value(L(nombre)), ctx.SeparadorDecimal);
    }
    /// A refusal in one sentence.
    bool negar(const QString &sentencia) const {
        ctx.dialogos.advertir(sentencia);
        return false;
    }
};

/// Whether one of the rows has the code.
bool hay(const std::vector<ExtraDeItem> &filas, const QString &id) {
    return std::any_of(filas.begin(), filas.end(), [&id](const ExtraDeItem &f) { return f.id == id; });
}

bool cambiarKilos(ItemEnMano &m) {
    const QJsonObject &cambios = m.t.orden.cambios;
    const QString kilos = m.texto(cambios, "kilos");
    if (!kilos.isEmpty() && !ProrratearKilos(m.ctx, m.interno, m.item, kilos).ok) return false;
    const QString porGrupos = m.texto(cambios, "kilosPorGrupos");
    if (porGrupos.isEmpty()) return true;
    if (m.item != "0"_L1)
        return m.negar(u"Los kilos por grupos son los de toda la operación; pídalos en el item 0."_s);
    if (!numeros::esNumerico(porGrupos)) return m.negar(u"Debe ingresar un valor númerico"_s);
    return Prorratear_ItemCeroEx(m.ctx, m.interno, numeros::aNumero(porGrupos));
}

bool cambiarInformacion(ItemEnMano &m) {
    const QJsonObject parte = m.parte("informacion");
    for (const QString &id : TextosDeLista(parte.value("eliminar"_L1)))
        if (!EliminarInformacion(m.ctx, m.interno, m.item, id)) return false;
    const std::vector<ExtraDeItem> ofrecidas = ListarInformacion(m.ctx);
    const QJsonArray nuevas = parte.value("agregar"_L1).toArray();
    for (const auto &una : nuevas) {
        const QJsonObject fila = una.toObject();
        const QString id = m.texto(fila, "id");
        if (!hay(ofrecidas, id)) return m.negar(u"No existe la información %1; revise el código."_s.arg(id));
        if (!AgregarInformacion(m.ctx, m.interno, m.item, id, [&] { return m.texto(fila, "valor"); }))
            return false;
    }
    return true;
}

bool cambiarVentajas(ItemEnMano &m) {
    const QJsonObject parte = m.parte("ventajas");
    for (const QString &id : TextosDeLista(parte.value("eliminar"_L1)))
        if (!EliminarVentajaDeItem(m.ctx, m.interno, m.item, id)) return false;
    const std::vector<ExtraDeItem> ofrecidas = ListarVentajas(m.ctx);
    for (const QString &id : TextosDeLista(parte.value("agregar"_L1))) {
        if (!hay(ofrecidas, id)) return m.negar(u"No existe la ventaja %1; revise el código."_s.arg(id));
        if (!AgregarVentajaAItem(m.ctx, m.interno, m.item, id)) return false;
    }
    return true;
}

/// Takes what the file says over what the editor would show.
void editarConcepto(const ItemEnMano &m, const QJsonObject &fila, ConceptoEditado &c) {
    constexpr std::pair<const char *, QString ConceptoEditado::*> miembros[] = {
        {"porcentaje", &ConceptoEditado::porcentaje},
        {"base", &ConceptoEditado::base},
        {"pgc", &ConceptoEditado::pgc},
        {"motivo", &ConceptoEditado::motivo}};
    for (const auto &[nombre, miembro] : miembros)
        if (fila.contains(L(nombre))) c.*miembro = m.texto(fila, nombre);
    // The total follows the other two unless it is told.
    if (fila.contains("porcentaje"_L1) || fila.contains("base"_L1))
        c.total = TotalDeConcepto(m.ctx, c.porcentaje, c.base);
    if (fila.contains("total"_L1)) c.total = m.texto(fila, "total");
}

/// The concept under its name; an empty code for one that is not offered, as with nothing selected.
void nombrarConcepto(const ItemEnMano &m, const QString &codigo, ConceptoEditado &c) {
    c.codigo.clear();
    for (const ConceptoOfrecido &o : ListarConceptos(m.ctx, m.interno, m.item, ModoDeConcepto::MOD)) {
        if (o.codigo != codigo) continue;
        c.codigo = o.codigo;
        c.descripcion = o.descripcion;
        return;
    }
}

bool modificarConcepto(const ItemEnMano &m, const QJsonObject &fila) {
    const QString codigo = m.texto(fila, "codigo");
    const std::vector<FilaLiq> filas = LeerLiquidacionDeItem(m.ctx, m.interno, m.item);
    const auto vieja =
        std::find_if(filas.begin(), filas.end(), [&codigo](const FilaLiq &f) { return f.numero == codigo; });
    if (vieja == filas.end())
        return m.negar(u"El item %1 no tiene el concepto %2; agréguelo."_s.arg(m.item, codigo));
    ConceptoEditado c{vieja->numero, vieja->concepto, vieja->pgc,   vieja->porcentaje,
                      vieja->base,   vieja->total,    vieja->motivo};
    if (fila.contains("nuevo"_L1)) nombrarConcepto(m, m.texto(fila, "nuevo"), c);
    editarConcepto(m, fila, c);
    return PF_Modificar(m.ctx, m.interno, m.item, codigo, c).ok;
}

bool agregarConcepto(const ItemEnMano &m, const QJsonObject &fila) {
    ConceptoEditado c;
    c.pgc = u"P"_s;
    nombrarConcepto(m, m.texto(fila, "codigo"), c);
    editarConcepto(m, fila, c);
    return PF_Guardar(m.ctx, m.interno, m.item, c).ok;
}

bool cambiarConceptos(ItemEnMano &m) {
    const QJsonObject parte = m.parte("conceptos");
    if (parte.isEmpty()) return true;
    if (m.item == "0"_L1)
        return m.negar(u"Los conceptos del item 0 son la suma de los items; cámbielos en cada item."_s);
    for (const QString &codigo : TextosDeLista(parte.value("eliminar"_L1)))
        if (!EliminarConcepto(m.ctx, m.interno, m.item, codigo))
            return m.negar(u"El item %1 no tiene el concepto %2; no hay qué eliminar."_s.arg(m.item, codigo));
    const auto cada = [&parte, &m](QLatin1String lista,
                                   bool (*hacer)(const ItemEnMano &, const QJsonObject &)) {
        const QJsonArray filas = parte.value(lista).toArray();
        return std::all_of(filas.begin(), filas.end(),
                           [&](const auto &fila) { return hacer(m, fila.toObject()); });
    };
    return cada("modificar"_L1, modificarConcepto) && cada("agregar"_L1, agregarConcepto);
}

/// A field as the page takes it; false when the page does not.
bool cambiarCampo(const ItemEnMano &m, const CampoDeItem &campo, const QString &texto, DatosDeItem &datos) {
    const bool cero = m.item == "0"_L1;
    if (cero && *campo.respuestaEnCero != '\0') return m.negar(QString::fromUtf8(campo.respuestaEnCero));
    if (cero && !campo.enCero)
        return m.negar(u"\"%1\" no se cambia en el item 0; cámbielo en cada item."_s.arg(
            QString::fromUtf8(campo.nombre)));
    if (!CampoAdmite(campo, texto))
        return m.negar(u"\"%1\" no admite el valor %2; corrija el archivo de cambios."_s.arg(
            QString::fromUtf8(campo.nombre), texto));
    QString &dato = datos[L(campo.columna)];
    if (dato == texto) return true;
    dato = texto;
    if (campo.dejaPendiente) m.ctx.LiquidacionPendiente = true;
    if (L(campo.columna) == "lista"_L1 && !cero && !texto.isEmpty())
        MarcarListaTipeada(m.ctx, m.interno, m.item);
    return true;
}

bool cambiarCampos(ItemEnMano &m) {
    // A part without fields saves the page as it stands, as leaving it does.
    if (!m.t.orden.cambios.contains("campos"_L1)) return true;
    const QJsonObject parte = m.parte("campos");
    const VistaDeItem vista = VerDetalleITEM(m.ctx, m.interno, m.item, false, m.calculo);
    if (!vista.cargada) return false;
    DatosDeItem datos = vista.datos;
    for (auto c = parte.constBegin(); c != parte.constEnd(); ++c)
        if (!cambiarCampo(m, *CampoDeColumna(c.key()), TextoDeValor(c.value(), m.ctx.SeparadorDecimal),
                          datos))
            return false;
    return GrabarItem(m.ctx, m.interno, m.item, datos, m.calculo).ok;
}

int cambiarTomado(const Trabajo &t) {
    AppContext &ctx = t.ctx;
    const QString &interno = t.orden.clave;
    const QString item = QString::number(t.orden.argumentos.value(0).toInt());
    t.resultado[u"item"_s] = item;
    if (!ItemsDeOperacion(ctx, interno).contains(item)) {
        ctx.dialogos.critico(
            u"El interno %1 no tiene el item %2; revise el número o ármelo primero."_s.arg(interno, item));
        return falla;
    }
    ctx.CalcularCoeficiente = t.tablero.ChCOEF;
    ctx.LiquidacionPendiente = false;
    ItemEnMano m{t, ctx, interno, item, ClassLiquidacion(ctx, interno)};
    bool hecho = true;
    for (bool (*cambiar)(ItemEnMano &) :
         {cambiarKilos, cambiarInformacion, cambiarVentajas, cambiarConceptos, cambiarCampos})
        hecho = hecho && cambiar(m);
    // Who leaves the items has passed by the operation's page.
    if (ctx.LiquidacionPendiente) DecirLiquidacion(t, RecalcularOperacion(ctx, interno, m.calculo));
    t.resultado[u"diferencias"_s] = ComprobarInterno(ctx, interno);
    return hecho ? bien : falla;
}

// The packages

int cambiarBultosTomados(const Trabajo &t) {
    AppContext &ctx = t.ctx;
    Bultos b = CargarBultos(ctx, t.orden.clave);
    const QJsonValue transferir = t.orden.cambios.value("transferir"_L1);
    if (!transferir.isUndefined()) b.chTransBultos = TextoDeValor(transferir, ctx.SeparadorDecimal) == "S"_L1;
    const QJsonObject campos = t.orden.cambios.value("campos"_L1).toObject();
    for (auto c = campos.constBegin(); c != campos.constEnd(); ++c)
        for (const CampoDeBultos &campo : CamposDeBultos())
            if (campo.columna.compare(c.key(), Qt::CaseInsensitive) == 0)
                b.*campo.campo = TextoDeValor(c.value(), ctx.SeparadorDecimal);
    if (campos.contains("cuittrans"_L1) &&
        BuscarAgente(ctx, b.TxtCuit, b.TxtNombreTrans) == BusquedaDeAgente::CuitInvalido)
        return falla;
    return GuardarBultos(ctx, t.orden.clave, b, QDate::currentDate()).ok ? bien : falla;
}

}  // namespace

QString DefectoDeCambiosDeItem(const QJsonObject &cambios) {
    return DefectoDe(cambios, miembrosDeItem());
}

int CambiarItem(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return cambiarTomado(t); });
}

QString DefectoDeCambiosDeBultos(const QJsonObject &cambios) {
    return DefectoDe(cambios, miembrosDeBultos());
}

int CambiarBultos(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return cambiarBultosTomados(t); });
}

}  // namespace lote
