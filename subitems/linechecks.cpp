#include "subitems/linechecks.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/changes.h"
#include "header/regime.h"
#include "subitems/ArticleStore.h"
#include "subitems/nomenclature.h"
#include "subitems/suffixes.h"
#include "subitems/suffixtext.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using numeros::aNumero;
using numeros::esNumerico;
using numeros::Format;

/// One save: its state and what tells a new line from a change.
struct Corrida {
    AppContext &ctx;
    SubItems &s;
    bool cambio = false;

    CamposSubItem &campos() const { return s.campos; }
    Veredicto mal(const char *foco, const QString &texto, const QString &titulo = {}) const {
        ctx.dialogos.advertir(texto, titulo);
        return Veredicto::mal(L(foco));
    }
    /// The field of the price that the mode lets the user type.
    const char *campoDePrecio() const { return s.TxtUnitarioHabilitado() ? "TxtUnitario" : "TxtFobTotal"; }
    const char *campoDeFob() const { return s.TxtFobTotalHabilitado() ? "TxtFobTotal" : "TxtUnitario"; }
};

bool vacioOCero(const QString &texto) {
    return texto.trimmed().isEmpty() || (esNumerico(texto) && aNumero(texto) == 0);
}

bool mayorQueCero(const QString &texto) {
    return esNumerico(texto) && aNumero(texto) > 0;
}

bool iguales(const QString &a, const QString &b) {
    if (esNumerico(a) && esNumerico(b)) return numeros::iguales(aNumero(a), aNumero(b), 2);
    return a == b;
}

QString sentenciaDeUnidades(const QString &posicion) {
    return "select [012],[020] "
           "from ncm "
           "where "_L1 +
           CondicionDePosicion(CortarPosicion(posicion));
}

/// The position as the suffixes go by it.
QString sinLetra(const CamposSubItem &c) {
    constexpr qsizetype largo = 14;
    return c.TxtPosicion.left(largo);
}

/// The units on the screen are those of the nomenclature, and so is the licence mark: the position may have
/// been typed over since its labels were shown.
Veredicto revisarUnidades(const Corrida &r) {
    CamposSubItem &c = r.campos();
    if (c.LbCodigoEstadistica.isEmpty()) return r.mal("TxtPosicion", u"Falta unidad estadistica"_s);
    Recordset rs;
    const bool hay = Consultar(r.ctx, entidad::ncm, sentenciaDeUnidades(c.TxtPosicion), rs);
    if (!hay && r.cambio) return r.mal("TxtPosicion", u"No se encontro la posición "_s + c.TxtPosicion);
    const QString estadistica = hay ? rs.Texto(u"012").trimmed() : QString();
    const QString deresp = hay ? rs.Texto(u"020").trimmed() : QString();
    if (estadistica.isEmpty() && r.cambio) return r.mal("TxtPosicion", u"Error: no hay unidad estadistica"_s);
    if (c.LbCodigoEstadistica != estadistica)
        return r.mal("TxtPosicion", "Error en Codigo de Estadistica debe ser [ "_L1 + estadistica + " ]"_L1);
    const QString pista = u"\r\nPara refrescar las unidades del ncm presione ENTER en el campo posición"_s;
    if (deresp.isEmpty() && !c.LbIdDerEsp.isEmpty())
        return r.mal("TxtPosicion",
                     u"Esta posición no tiene Unidad del Derecho Especifico, "
                     "pero en la pantalla tiene [ "_s +
                         c.LbIdDerEsp + " ]"_L1 + pista);
    if (c.LbIdDerEsp != deresp)
        return r.mal("TxtPosicion",
                     "Error en Codigo de Derecho Especifico debe ser [ "_L1 + deresp + " ]"_L1 + pista);
    c.LbLapi = LeerMarcasNcm(r.ctx, c.TxtPosicion).lapi;
    return Veredicto::bien();
}

Veredicto revisarCantidades(const Corrida &r) {
    CamposSubItem &c = r.campos();
    if (c.LbCodigoEstadistica != kilogramo && !mayorQueCero(c.TxtValorsobreestadistica))
        return r.mal("TxtValorsobreestadistica",
                     u"Debe ingresar un valor mayor a cero en CANTIDA ESTADISTICA"_s);
    if (vacioOCero(c.TxtCantidad)) return r.mal("TxtCantidad", u"Valor Invalido en CANTIDAD"_s);
    if (mayorQueCero(c.TxtKgNeto) && mayorQueCero(c.TxtKgBruto) &&
        aNumero(c.TxtKgNeto) >= aNumero(c.TxtKgBruto))
        return r.mal("TxtKgNeto", u"KG Neto debe ser Menor que KG Bruto"_s);
    if (c.LbCodigoEstadistica == kilogramo && c.TxtValorsobreestadistica.trimmed().isEmpty())
        c.TxtValorsobreestadistica = Format(aNumero(c.TxtKgNeto), u"00.00", r.ctx.SeparadorDecimal);
    if (c.TxtUnidad == c.LbCodigoEstadistica && !iguales(c.TxtCantidad, c.TxtValorsobreestadistica))
        return r.mal("TxtCantidad", "La CANTIDAD DECLARADA ( "_L1 + c.TxtCantidad +
                                        " ) debe ser igual a CANTIDAD ESTADISTICA ( "_L1 +
                                        c.TxtValorsobreestadistica + " )"_L1);
    if (vacioOCero(c.TxtUnitario)) return r.mal(r.campoDePrecio(), u"Valor Invalido en PRECIO UNITARIO"_s);
    return Veredicto::bien();
}

QString sinRenglones(QString texto) {
    texto.replace("\r\n"_L1, " "_L1);
    return texto.replace(u'\n', u' ').replace(u'\r', u' ');
}

/// Codes are stored in capitals, whatever brought them: keys, the catalogue, the inputs link, an older line.
void capitalizar(CamposSubItem &c) {
    for (const DefinicionDeCampo &d : CamposDeSubItem())
        if (d.esCodigo()) c.*d.campo = (c.*d.campo).toUpper();
}

void normalizar(CamposSubItem &c) {
    c.TxtDescArticulos = SinComillas(c.TxtDescArticulos);
    c.txtDescripcionMaria = SinComillas(sinRenglones(c.txtDescripcionMaria));
    c.txtSufijos = SinComillas(c.txtSufijos);
    c.TxtNaladisa = SinComillas(c.TxtNaladisa.replace(u',', u'.'));
}

Veredicto revisarCodigos(const Corrida &r) {
    const CamposSubItem &c = r.campos();
    // The catalogue of a line from the inputs link is the link's own.
    if (r.s.FramCatalogo() && !c.TxtIdCatalogo.isEmpty() && !r.s.VincularDatos &&
        !ArticleStore::ExisteCatalogo(r.ctx, c.TxtIdCatalogo))
        return r.mal("TxtIdCatalogo", u"Codigo de catalogo no esta en base de datos."_s,
                     u"Advertencia: CATALOGO"_s);
    if (c.TxtUnidad.isEmpty()) return r.mal("TxtUnidad", u"Debe ingresar el Codigo de UNIDAD"_s);
    if (!esNumerico(c.TxtCantidad))
        return r.mal("TxtCantidad", u"Debe ingresar un valor numerico en el campo CANTIDAD"_s);
    // A change says "numeric" in two of them.
    const L numerico(r.cambio ? "Debe ingresar un valor numeric en el campo "
                              : "Debe ingresar un valor numerico en el campo ");
    if (!esNumerico(c.TxtUnitario)) return r.mal(r.campoDePrecio(), numerico + "VALOR UNITARIO"_L1);
    if (!esNumerico(c.TxtFobTotal)) return r.mal(r.campoDeFob(), numerico + "FOB TOTAL"_L1);
    if (r.cambio && r.s.FramDerEsp && !esNumerico(c.TxtDerEsp))
        return r.mal("TxtDerEsp", u"El valor de el campo Derecho Especifico debe ser númerico"_s);
    if (c.TxtPosicion.isEmpty()) return r.mal("TxtPosicion", u"Debe ingresar una POSICION del Nomenclador"_s);
    return Veredicto::bien();
}

/// The suffix text, asked for and checked.
Veredicto completarSufijos(const Corrida &r) {
    CamposSubItem &c = r.campos();
    const Opciones &o = r.ctx.opciones;
    const bool ofreceArticulo = o.SbtNroArtAI && !c.txtIdArticulo.isEmpty();
    const QString nuevos =
        CompletarSufijos(r.ctx, sinLetra(c), c.txtSufijos.trimmed(),
                         r.cambio ? ModoDeSufijos::Reconfirmar : ModoDeSufijos::Construir,
                         ofreceArticulo ? c.txtIdArticulo : QString(), r.s.descripcionDefecto);
    if (r.cambio && !sufijos::EsTextoTerminado(nuevos))
        return r.mal("txtSufijos", u"Para Grabar es necesario completar los sufijos"_s);
    if (!SufijosAceptados(nuevos)) return Veredicto::mal(u"txtSufijos"_s);
    c.txtSufijos = nuevos;
    if (o.QUINDEL && !SufijoContieneArticulo(c.TxtPosicion, c.txtSufijos, c.txtIdArticulo))
        return r.mal("txtSufijos", u"Error sufijos AB invàlido "_s + c.txtSufijos +
                                       " codigo de articulo "_L1 + c.txtIdArticulo);
    if (o.SbtForzarNroArtAI) c.txtSufijos = sufijos::ForzarArticulo(c.txtSufijos, c.txtIdArticulo);
    return Veredicto::bien();
}

}  // namespace

Veredicto RevisarLinea(AppContext &ctx, SubItems &s, bool cambio) {
    const Corrida r{ctx, s, cambio};
    capitalizar(s.campos);
    LecturaAdelantada delNomenclador(
        ctx.conexion(entidad::ncm),
        {{sentenciaDeUnidades(s.campos.TxtPosicion), SentenciaDeMarcas(s.campos.TxtPosicion),
          SentenciaDePosicion(sinLetra(s.campos)), SentenciaDeFamilias(sinLetra(s.campos))}});
    delNomenclador.Vuelta();
    Veredicto v = revisarUnidades(r);
    if (v.ok) v = revisarCantidades(r);
    if (!v.ok) return v;
    if (!r.cambio) AnotarCambio(ctx, s.interno);
    normalizar(s.campos);
    v = revisarCodigos(r);
    return v.ok ? completarSufijos(r) : v;
}
