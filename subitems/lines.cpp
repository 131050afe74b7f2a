#include "subitems/lines.h"

#include <map>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/codes.h"
#include "header/regime.h"
#include "subitems/ArticleStore.h"
#include "subitems/nomenclature.h"
#include "subitems/suffixes.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using C = CamposSubItem;
using numeros::aNumero;
using numeros::esNumerico;
using numeros::Format;

using ajuste::flags;
using ajuste::zendra;
using entidad::internos;
const QString claveCargaPor = u"CARGASBTPOR"_s;

bool esControl(const QString &control, const char *nombre) {
    return control.compare(L(nombre), Qt::CaseInsensitive) == 0;
}

void leerCaratula(AppContext &ctx, SubItems &s) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select idsubreg,fobdivisas,ONCCAHabilitado "
                   "from caratula "
                   "where interno = "_L1 +
                       EnComillas(s.interno),
                   rs))
        return;
    s.idsubreg = RegimenEnMayusculas(rs.Texto(u"idsubreg"));
    s.fobdivisas = rs.Numero(u"fobdivisas");
    s.ONCCAHabilitado = rs.Texto(u"ONCCAHabilitado") == "S"_L1;
}

bool llevaEan(AppContext &ctx, const QString &regimen) {
    Recordset rs;
    if (!Consultar(ctx, u"SYSTABLAS"_s,
                   "select item "
                   "from EAN "
                   "where subreg = "_L1 +
                       EnComillas(regimen),
                   rs))
        return false;
    const QString item = rs.Texto(u"item").trimmed();
    return !item.isEmpty() && item.compare("N"_L1, Qt::CaseInsensitive) != 0;
}

void ponerDescripciones(AppContext &ctx, CamposSubItem &c) {
    c.LbDescUnidad = getUnidadDescripcion(ctx, c.TxtUnidad).trimmed();
    c.LbDescPais = getPaisDescripcion(ctx, c.TxtIdpais);
    c.LbDescPaisProc = getPaisDescripcion(ctx, c.txtIdPaisProc);
    c.LbDescEstado = getEstadoMercaderiaDescripcion(ctx, c.TxtIdEstadoMercaderia);
}

/// ENTER on a field with a code table.
void codigoEnter(AppContext &ctx, SubItems &s, const DefinicionDeCampo &d) {
    QString codigo = s.campos.*d.campo;
    if (L(d.clave) == "PAIS"_L1) codigo = RellenarCodigo(codigo);
    CampoDeCodigo campo{codigo, {}, {}};
    ConfirmarCodigo(ctx, L(d.clave), campo);
    s.campos.*d.campo = campo.codigo;
    s.campos.*d.descripcion = campo.descripcion.trimmed();
}

}  // namespace

const std::vector<DefinicionDeCampo> &CamposDeSubItem() {
    using T = TipoDeCampo;
    static const std::vector<DefinicionDeCampo> campos{
        {"TxtIdCatalogo", &C::TxtIdCatalogo},
        {"TxtCatalogo", &C::TxtCatalogo},
        {"TxtDescCatalogo", &C::TxtDescCatalogo},
        {"txtIdArticulo", &C::txtIdArticulo},
        {"LbDescCatalogo", &C::LbDescCatalogo, T::Descripcion},
        {"TxtDescArticulos", &C::TxtDescArticulos},
        {"txtDescripcionMaria", &C::txtDescripcionMaria},
        {"txtOtros", &C::txtOtros},
        {"TxtPosicion", &C::TxtPosicion},
        {"txtNCMDesc", &C::txtNCMDesc, T::Descripcion},
        {"LbCodigoEstadistica", &C::LbCodigoEstadistica, T::Descripcion},
        {"LbIdDerEsp", &C::LbIdDerEsp, T::Descripcion},
        {"TxtUnidad", &C::TxtUnidad, T::Texto, "UNIDADES", &C::LbDescUnidad},
        {"LbDescUnidad", &C::LbDescUnidad, T::Descripcion},
        {"TxtCantidad", &C::TxtCantidad},
        {"TxtUnitario", &C::TxtUnitario},
        {"TxtFobTotal", &C::TxtFobTotal},
        {"txtKgUnitario", &C::txtKgUnitario},
        {"TxtKgNeto", &C::TxtKgNeto},
        {"TxtKgBruto", &C::TxtKgBruto},
        {"TxtValorsobreestadistica", &C::TxtValorsobreestadistica},
        {"TxtDerEsp", &C::TxtDerEsp},
        {"TxtIdpais", &C::TxtIdpais, T::Texto, "PAIS", &C::LbDescPais},
        {"LbDescPais", &C::LbDescPais, T::Descripcion},
        {"txtIdPaisProc", &C::txtIdPaisProc, T::Texto, "PAIS", &C::LbDescPaisProc},
        {"LbDescPaisProc", &C::LbDescPaisProc, T::Descripcion},
        {"TxtIdEstadoMercaderia", &C::TxtIdEstadoMercaderia, T::Texto, "ESTADOMERCADERIA", &C::LbDescEstado},
        {"LbDescEstado", &C::LbDescEstado, T::Descripcion},
        {"cboBiendeUso", &C::cboBiendeUso, T::Opciones},
        {"TxtCodProrrateo", &C::TxtCodProrrateo},
        {"txtSufijos", &C::txtSufijos},
        {"TxtNaladisa", &C::TxtNaladisa},
        {"TxtCodigoEAN", &C::TxtCodigoEAN},
        {"TxtFiller", &C::TxtFiller},
        {"txtCertOrig", &C::txtCertOrig},
        {"TxtInsumosTemp", &C::TxtInsumosTemp},
        {"TxtInsumCons", &C::TxtInsumCons},
        {"TxtCanelaciones", &C::TxtCanelaciones},
        {"TxtCancCantidad", &C::TxtCancCantidad},
        {"txtNroItem", &C::txtNroItem},
        {"TxtNroSubitem", &C::TxtNroSubitem}};
    return campos;
}

const DefinicionDeCampo *CampoDeSubItem(const QString &control) {
    for (const DefinicionDeCampo &d : CamposDeSubItem())
        if (esControl(control, d.control)) return &d;
    return nullptr;
}

void AbrirSubItems(AppContext &ctx, SubItems &s, const QString &interno, const std::array<int, 8> &banderas) {
    ctx.ReconfirmarSufijos = false;
    s = SubItems();
    s.interno = interno;
    for (std::size_t n = 0; n < banderas.size(); ++n) s.ofrece.at(n) = banderas.at(n) != 0;
    s.opcionesDeFob = ctx.opciones.SbtFuncionCargaPor;
    if (s.opcionesDeFob) s.opFobUnitario = ctx.ajustes.Leer(zendra, flags, claveCargaPor) == "U"_L1;
    leerCaratula(ctx, s);
    s.eanHabilitado = llevaEan(ctx, s.idsubreg);
    s.enlace = insumos::Enlazar();
    RefrescarTotales(ctx, s);
}

void ElegirCargaPor(AppContext &ctx, SubItems &s, bool unitario) {
    s.opFobUnitario = unitario;
    ctx.ajustes.Guardar(zendra, flags, claveCargaPor, unitario ? u"U"_s : u"F"_s);
}

void VaciarCampos(AppContext &ctx, SubItems &s) {
    ctx.ReconfirmarSufijos = false;
    const CamposSubItem antes = s.campos;
    s.campos = CamposSubItem();
    s.campos.cboBiendeUso = antes.cboBiendeUso;
    s.campos.TxtIdCatalogo = antes.TxtIdCatalogo;
    if (ctx.opciones.SbtMantCodart) {
        s.campos.TxtCatalogo = antes.TxtCatalogo;
        s.campos.TxtDescCatalogo = antes.TxtDescCatalogo;
        s.campos.txtIdArticulo = antes.txtIdArticulo;
    }
    s.modo = 1;
    s.id = 0;
    s.FramDerEsp = s.articuloFijo = s.VincularDatos = s.marcaERR = false;
    s.SBTREI = 0;
    s.descripcionDefecto.clear();
    s.enDuda.reset();
}

bool SelectINSUMOS(AppContext &ctx, SubItems &s) {
    if (!EsRegimenConInsumos(s.idsubreg) || !s.enlace || !s.enlace->EstadoConexion()) return false;
    s.enlace->ConectarDB(s.interno);
    const auto eleccion = s.enlace->Mostrar();
    if (!eleccion) return false;
    CamposSubItem &c = s.campos;
    c.TxtIdCatalogo = eleccion->CATNRO;
    c.txtIdArticulo = eleccion->PRDNRO;
    c.TxtDescArticulos = eleccion->PRDDES;
    c.TxtPosicion = eleccion->PRDNCM;
    c.TxtUnidad = eleccion->PRDUNI;
    c.TxtUnitario = eleccion->PRDPRE;
    ReemplazarSeparadorDecimal(c.TxtUnitario, ctx.SeparadorDecimal);
    c.TxtIdpais = eleccion->PRDPAI;
    s.articuloFijo = true;
    s.VincularDatos = true;
    s.marcaERR = eleccion->ERR;
    BuscarNCM(ctx, s);
    CampoDeLineaEnter(ctx, s, u"TxtUnidad"_s);
    if (!eleccion->PRDCAN.isEmpty()) {
        c.TxtCantidad = eleccion->PRDCAN;
        ReemplazarSeparadorDecimal(c.TxtCantidad, ctx.SeparadorDecimal);
        CantidadCambia(ctx, s);
    }
    c.LbDescPais = getPaisDescripcion(ctx, c.TxtIdpais);
    c.txtSufijos = eleccion->PRDSUF;
    return true;
}

Veredicto CampoDeLineaEnter(AppContext &ctx, SubItems &s, const QString &control) {
    if (esControl(control, "TxtPosicion")) return BuscarNCM(ctx, s);
    const CamposSubItem &c = s.campos;
    if (esControl(control, "txtIdArticulo")) {
        if (!s.articuloFijo && !c.txtIdArticulo.isEmpty() && !c.TxtIdCatalogo.isEmpty())
            BuscarArticuloSobreCat(ctx, s);
    } else if (const DefinicionDeCampo *d = CampoDeSubItem(control); d != nullptr && *d->clave != 0) {
        codigoEnter(ctx, s, *d);
    }
    return Veredicto::bien();
}

bool CampoDeLineaF6(AppContext &ctx, SubItems &s, const QString &control) {
    const DefinicionDeCampo *d = CampoDeSubItem(control);
    if (d == nullptr || *d->clave == 0) return false;
    CampoDeCodigo campo{s.campos.*d->campo, {}, {}};
    if (!ElegirCodigo(ctx, L(d->clave), campo)) return false;
    s.campos.*d->campo = campo.codigo;
    s.campos.*d->descripcion = campo.descripcion;
    if (esControl(control, "TxtUnidad")) CantidadCambia(ctx, s);
    return true;
}

void CampoDeLineaCambia(AppContext &ctx, SubItems &s, const QString &control) {
    if (esControl(control, "TxtCantidad") || esControl(control, "TxtUnidad")) CantidadCambia(ctx, s);
    if (esControl(control, "txtKgUnitario")) CalcularKgUnitario(ctx, s);
    // Only the field that leads moves the other one.
    if (esControl(control, s.opFobUnitario ? "TxtUnitario" : "TxtFobTotal")) CalcularFob(ctx, s);
}

bool TomarArticulo(AppContext &ctx, SubItems &s, const ArticuloElegido &elegido) {
    if (s.articuloFijo || elegido.idcatalogo.isEmpty()) return false;
    s.campos.TxtIdCatalogo = elegido.idcatalogo;
    if (elegido.idarticulo.isEmpty()) return true;
    s.campos.txtIdArticulo = elegido.idarticulo;
    return BuscarArticuloSobreCat(ctx, s);
}

bool BuscarArticuloSobreCat(AppContext &ctx, SubItems &s) {
    CamposSubItem &c = s.campos;
    const auto articulo = ArticleStore::Leer(ctx, c.TxtIdCatalogo, c.txtIdArticulo);
    if (!articulo) {
        c.LbDescCatalogo.clear();
        s.descripcionDefecto.clear();
        return false;
    }
    c.LbDescCatalogo = articulo->idarticulo + " - "_L1 + articulo->descripcion;
    s.descripcionDefecto = articulo->descripcion;
    c.TxtDescArticulos = articulo->descripcion;
    c.txtDescripcionMaria = articulo->Descripcion_Maria;
    c.TxtPosicion = articulo->ncm;
    c.TxtUnidad = articulo->idunidad;
    c.TxtIdpais = articulo->idpais;
    c.txtIdPaisProc = articulo->idpaisproc;
    c.TxtIdEstadoMercaderia = articulo->estadomerc;
    c.txtSufijos = articulo->sufijos;
    ctx.ReconfirmarSufijos = true;
    c.cboBiendeUso = articulo->biendeuso == "S"_L1 ? u"S"_s : u"N"_s;
    c.txtOtros = articulo->otros;
    c.TxtFiller = articulo->itfiller;
    c.TxtNaladisa = articulo->naladisa;
    if (s.eanHabilitado) c.TxtCodigoEAN = articulo->codigoean;
    c.TxtUnitario = Format(articulo->preciounitario.value_or(0), u"00.00000", ctx.SeparadorDecimal);
    c.txtKgUnitario = Format(articulo->kgneto.value_or(0), u"00.00", ctx.SeparadorDecimal);
    ponerDescripciones(ctx, c);
    if (!c.TxtPosicion.isEmpty()) BuscarNCM(ctx, s);
    CantidadCambia(ctx, s);
    return true;
}

void ActuSufijos(AppContext &ctx, SubItems &s) {
    CamposSubItem &c = s.campos;
    const bool ofreceArticulo = ctx.opciones.SbtNroArtAI && !c.txtIdArticulo.isEmpty();
    c.txtSufijos = ActuSufijos(ctx, c.TxtPosicion.left(14), c.txtSufijos.trimmed(),
                               ofreceArticulo ? c.txtIdArticulo : QString(), s.descripcionDefecto);
}

bool BuscarSubItem(AppContext &ctx, SubItems &s, qint64 id) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select * "
                   "from subitems "
                   "where interno = "_L1 +
                       EnComillas(s.interno) + " and id = "_L1 + QString::number(id),
                   rs))
        return false;
    struct Columna {
        const char *nombre;
        QString C::*campo;
        const char16_t *mascara = nullptr;
    };
    static constexpr Columna columnas[] = {
        {"idcatalogo", &C::TxtIdCatalogo},
        {"idarticulo", &C::txtIdArticulo},
        {"ncm", &C::TxtPosicion},
        {"idunidad", &C::TxtUnidad},
        {"cantidad", &C::TxtCantidad, u"00.00"},
        {"preciounitario", &C::TxtUnitario, u"00.00000"},
        {"fob", &C::TxtFobTotal, u"00.00"},
        {"estadistica", &C::LbCodigoEstadistica},
        {"valorrelacionestadistica", &C::TxtValorsobreestadistica, u"00.00"},
        {"idpais", &C::TxtIdpais},
        {"idpaisproc", &C::txtIdPaisProc},
        {"estadomerc", &C::TxtIdEstadoMercaderia},
        {"sufijos", &C::txtSufijos},
        {"codprorrateo", &C::TxtCodProrrateo},
        {"insumostemp", &C::TxtInsumosTemp},
        {"insumosacons", &C::TxtInsumCons},
        {"cancelaciones", &C::TxtCanelaciones},
        {"canccantidad", &C::TxtCancCantidad},
        {"cancnroitem", &C::txtNroItem},
        {"cancnrosubitem", &C::TxtNroSubitem},
        {"deresp", &C::LbIdDerEsp},
        {"valorderesp", &C::TxtDerEsp, u"00.00"},
        {"kgneto", &C::TxtKgNeto, u"00.00"},
        {"kgbruto", &C::TxtKgBruto, u"00.00"},
        {"descripcion", &C::TxtDescArticulos},
        {"descripcion_maria", &C::txtDescripcionMaria},
        {"otros", &C::txtOtros},
        {"itfiller", &C::TxtFiller},
        {"certorig", &C::txtCertOrig},
        {"naladisa", &C::TxtNaladisa},
        {"codigoean", &C::TxtCodigoEAN}};
    s.campos = CamposSubItem();
    CamposSubItem &c = s.campos;
    for (const Columna &columna : columnas) {
        const QString nombre = L(columna.nombre);
        c.*columna.campo =
            columna.mascara == nullptr
                ? rs.Texto(nombre)
                : numeros::FormatSinPerdida(rs.Numero(nombre), columna.mascara, ctx.SeparadorDecimal);
    }
    c.cboBiendeUso = rs.Texto(u"biendeuso") == "S"_L1 ? u"S"_s : u"N"_s;
    c.LbLapi = rs.Texto(u"lapi") == "S"_L1;
    s.SBTREI = rs.Numero(u"sbtrei");
    s.FramDerEsp = !c.LbIdDerEsp.isEmpty();
    s.descripcionDefecto = c.TxtDescArticulos;
    s.modo = 2;
    s.id = id;
    // A change writes no column of the article.
    s.articuloFijo = true;
    // The link alone writes these two marks.
    s.VincularDatos = c.TxtCanelaciones == "OK"_L1 || c.TxtCanelaciones == "ERR"_L1;
    s.marcaERR = false;
    ctx.ReconfirmarSufijos = false;
    ponerDescripciones(ctx, c);
    return true;
}

QString SentenciaDeTotal(const QString &interno) {
    return "select sum(fob) as total "
           "from subitems "
           "where interno = "_L1 +
           EnComillas(interno);
}

void RefrescarTotales(AppContext &ctx, SubItems &s) {
    Recordset rs;
    const double total = Consultar(ctx, internos, SentenciaDeTotal(s.interno), rs) ? rs.Numero(u"total") : 0;
    // "##.00": no digit is forced before the separator.
    s.LbTotal = Format(s.fobdivisas, u".00", ctx.SeparadorDecimal);
    s.LbTotSubitems = Format(total, u"00.00", ctx.SeparadorDecimal);
    s.lbDIF = Format(s.fobdivisas - total, u"00.00", ctx.SeparadorDecimal);
}
