#include <utility>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/sqltext.h"
#include "header/changes.h"
#include "header/regime.h"
#include "subitems/ArticleStore.h"
#include "subitems/ReferenceValues.h"
#include "subitems/lines.h"
#include "subitems/nomenclature.h"
#include "subitems/suffixes.h"
#include "subitems/suffixtext.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using numeros::aNumero;
using numeros::esNumerico;
using numeros::Format;

const QString internos = u"INTERNOS"_s;
const QString kilogramo = u"01"_s;

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

bool esDeInsumos(const CamposSubItem &c) {
    return c.TxtIdCatalogo.contains("INS"_L1) || c.txtIdArticulo.contains("INS"_L1);
}

/// Checks 1 to 3: the units on the screen are those of the nomenclature.
Veredicto revisarUnidades(const Corrida &r) {
    const CamposSubItem &c = r.campos();
    if (c.LbCodigoEstadistica.isEmpty()) return r.mal("TxtPosicion", u"Falta unidad estadistica"_s);
    const ClavesNcm k = CortarPosicion(c.TxtPosicion);
    Recordset rs;
    const bool hay = Consultar(r.ctx, u"NCM"_s,
                               "select [012],[020] from ncm where [001] = '"_L1 + k.c001 +
                                   "' and [002] = '"_L1 + k.c002 + "' and [003] = '"_L1 + k.c003 + "'"_L1,
                               rs);
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
    return Veredicto::bien();
}

/// Checks 4 to 9: quantities, kilos and price.
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

QString sinComillas(QString texto) {
    return texto.replace(QLatin1Char('\''), QLatin1Char(' '));
}

QString sinRenglones(QString texto) {
    texto.replace("\r\n"_L1, " "_L1);
    texto.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
    return sinComillas(texto);
}

void normalizar(CamposSubItem &c) {
    c.TxtDescArticulos = sinComillas(c.TxtDescArticulos);
    c.txtDescripcionMaria = sinRenglones(c.txtDescripcionMaria);
    c.txtSufijos = sinComillas(c.txtSufijos);
    c.TxtNaladisa = sinComillas(c.TxtNaladisa.replace(QLatin1Char(','), QLatin1Char('.')));
}

/// Checks 11 and 12.
Veredicto revisarCodigos(const Corrida &r) {
    const CamposSubItem &c = r.campos();
    // The catalogue of a line from the inputs link is the link's own.
    const bool catalogoPropio = !r.s.VincularDatos && !esDeInsumos(c);
    if (r.s.FramCatalogo() && !c.TxtIdCatalogo.isEmpty() && catalogoPropio &&
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

/// Steps 13 and 14: the suffix text, asked for and checked.
Veredicto completarSufijos(const Corrida &r) {
    CamposSubItem &c = r.campos();
    const Opciones &o = r.ctx.opciones;
    const bool ofreceArticulo = o.SbtNroArtAI && !c.txtIdArticulo.isEmpty();
    const QString nuevos =
        ValidarSufijos(r.ctx, c.TxtPosicion.left(14), c.txtSufijos.trimmed(),
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

Veredicto revisar(const Corrida &r) {
    Veredicto v = revisarUnidades(r);
    if (v.ok) v = revisarCantidades(r);
    if (!v.ok) return v;
    if (!r.cambio) AnotarCambio(r.ctx, r.s.interno);
    normalizar(r.campos());
    v = revisarCodigos(r);
    return v.ok ? completarSufijos(r) : v;
}

/// The forms of a value inside the two statements.
struct Valores {
    AppContext &ctx;
    const SubItems &s;

    QString texto(const QString &valor) const {
        return QLatin1Char('\'') + DoblarComillas(valor) + QLatin1Char('\'');
    }
    QString numero(const QString &valor) const {
        return AStoreNumero(valor, ctx.DataManager.getDecimalSeparatorbyEntity(internos));
    }
    QString conMascara(const QString &valor, QStringView mascara = u"00.00") const {
        return numero(Format(valor, mascara, ctx.SeparadorDecimal));
    }
    QString marca(bool si) const { return si ? u"'S'"_s : u"'N'"_s; }
    QString biendeuso() const { return marca(s.campos.cboBiendeUso.startsWith(QLatin1Char('S'))); }
    QString ean() const { return texto(s.eanHabilitado ? s.campos.TxtCodigoEAN : QString()); }
};

QString sentenciaDeAlta(AppContext &ctx, const SubItems &s) {
    const Valores v{ctx, s};
    const CamposSubItem &c = s.campos;
    const QStringList valores{v.texto(c.TxtIdCatalogo),
                              v.texto(c.txtIdArticulo),
                              v.texto(c.TxtPosicion),
                              v.texto(c.TxtUnidad),
                              v.conMascara(c.TxtCantidad),
                              v.numero(c.TxtUnitario),
                              v.numero(c.TxtFobTotal),
                              v.texto(c.LbCodigoEstadistica),
                              v.conMascara(c.TxtValorsobreestadistica),
                              v.texto(c.TxtIdpais),
                              v.texto(c.TxtIdEstadoMercaderia),
                              v.texto(c.txtSufijos),
                              v.biendeuso(),
                              v.texto(c.TxtCodProrrateo),
                              v.numero(c.TxtInsumosTemp),
                              v.numero(c.TxtInsumCons),
                              v.texto(s.marcaERR ? u"ERR"_s : QString()),
                              v.texto(c.TxtCancCantidad),
                              v.texto(c.txtNroItem),
                              v.texto(c.TxtNroSubitem),
                              v.texto(c.LbIdDerEsp),
                              v.conMascara(c.TxtDerEsp),
                              v.marca(c.LbLapi),
                              v.conMascara(c.TxtKgNeto),
                              v.conMascara(c.TxtKgBruto),
                              v.texto(c.TxtDescArticulos),
                              v.texto(c.txtDescripcionMaria),
                              QLatin1Char('\'') + s.interno + QLatin1Char('\''),
                              v.texto(c.txtOtros),
                              v.texto(c.TxtFiller),
                              v.texto(c.txtCertOrig),
                              u"''"_s,
                              u"''"_s,
                              v.texto(c.txtIdPaisProc),
                              v.texto(c.TxtNaladisa),
                              v.ean()};
    return "insert into subitems (IdCatalogo,IdArticulo,ncm,IdUnidad,Cantidad,Preciounitario,fob,"
           "Estadistica,valorrelacionestadistica,IdPais,EstadoMerc,Sufijos,Biendeuso,codprorrateo,"
           "insumostemp,insumosacons,cancelaciones,cancCantidad,cancnroitem,cancnrosubitem,deresp,"
           "valorderesp,lapi,kgneto,kgbruto,descripcion,Descripcion_Maria,interno,otros,itfiller,certorig,"
           "ONCCACategoria, ONCCACortes,IdPaisProc,naladisa,codigoean) values ("_L1 +
           valores.join(QLatin1Char(',')) + ")"_L1;
}

QString sentenciaDeCambio(AppContext &ctx, const SubItems &s) {
    const Valores v{ctx, s};
    const CamposSubItem &c = s.campos;
    std::vector<std::pair<const char *, QString>> partes{
        {"ncm", v.texto(c.TxtPosicion)},
        {"idunidad", v.texto(c.TxtUnidad)},
        {"cantidad", v.conMascara(c.TxtCantidad)},
        {"preciounitario", v.numero(c.TxtUnitario)},
        {"fob", v.numero(c.TxtFobTotal)},
        {"estadistica", v.texto(c.LbCodigoEstadistica)},
        {"valorrelacionestadistica", v.conMascara(c.TxtValorsobreestadistica)},
        {"idpais", v.texto(c.TxtIdpais)},
        {"idpaisproc", v.texto(c.txtIdPaisProc)},
        {"estadomerc", v.texto(c.TxtIdEstadoMercaderia)},
        {"sufijos", v.texto(c.txtSufijos)},
        {"biendeuso", v.biendeuso()},
        {"otros", v.texto(c.txtOtros)},
        {"certorig", v.texto(c.txtCertOrig)},
        {"codprorrateo", v.texto(c.TxtCodProrrateo)}};
    // A line of the inputs link keeps what the link wrote.
    if (!esDeInsumos(c)) {
        partes.emplace_back("insumostemp", v.numero(c.TxtInsumosTemp));
        partes.emplace_back("insumosacons", v.numero(c.TxtInsumCons));
        partes.emplace_back("cancelaciones", v.texto(c.TxtCanelaciones));
    }
    const std::vector<std::pair<const char *, QString>> resto{
        {"canccantidad", v.texto(c.TxtCancCantidad)},
        {"cancnroitem", v.texto(c.txtNroItem)},
        {"lapi", v.marca(c.LbLapi)},
        {"SBTREI", v.numero(numeros::aTexto(s.SBTREI))},
        {"kgneto", v.conMascara(c.TxtKgNeto)},
        {"kgbruto", v.conMascara(c.TxtKgBruto)},
        {"deresp", v.texto(c.LbIdDerEsp)},
        {"valorderesp", v.conMascara(c.TxtDerEsp)},
        {"descripcion", v.texto(c.TxtDescArticulos)},
        {"codigoean", v.ean()},
        {"naladisa", v.texto(c.TxtNaladisa)},
        {"Descripcion_Maria", v.texto(c.txtDescripcionMaria)},
        {"cancnrosubitem", v.texto(c.TxtNroSubitem)},
        {"itfiller", v.texto(c.TxtFiller)}};
    partes.insert(partes.end(), resto.begin(), resto.end());
    QString texto;
    for (const auto &[columna, valor] : partes) {
        if (!texto.isEmpty()) texto += QLatin1Char(',');
        texto += L(columna) + " = "_L1 + valor;
    }
    return "update subitems set "_L1 + texto + " where id = "_L1 + QString::number(s.id) +
           " and interno = '"_L1 + s.interno + "'"_L1;
}

qint64 ultimaLinea(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, internos,
                     "select max(id) as id from subitems where interno = '"_L1 + interno + "'"_L1, rs)
               ? static_cast<qint64>(rs.Numero(u"id"))
               : 0;
}

void valoresDeReferencia(const SubItems &s, qint64 id) {
    if (s.idsubreg != "IC01"_L1 || !oReferenceValues::GetValoresCriterio) return;
    const CamposSubItem &c = s.campos;
    oReferenceValues::GetValoresCriterio({s.interno, id, c.TxtPosicion, c.TxtUnidad, c.TxtIdpais,
                                          aNumero(c.TxtCantidad), aNumero(c.TxtUnitario)});
}

/// Step 17: false when the link refuses the line, which is then gone.
bool tomarInsumos(AppContext &ctx, const SubItems &s) {
    if (!EsRegimenConInsumos(s.idsubreg) || !s.enlace) return true;
    const CamposSubItem &c = s.campos;
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select top 2 * from subitems where interno = '"_L1 + s.interno + "' and IdCatalogo='"_L1 +
                       c.TxtIdCatalogo + "' and IDARTICULO='"_L1 + c.txtIdArticulo + "' order by id desc"_L1,
                   rs))
        return true;
    const qint64 id = static_cast<qint64>(rs.Numero(u"id"));
    const QString donde = " where interno = '"_L1 + s.interno + "'  and id = "_L1 + QString::number(id);
    double CIFDescontado = 0;
    const insumos::Toma toma{c.TxtIdCatalogo, c.txtIdArticulo, s.interno, id,
                             Format(c.TxtCantidad, u"00.00", ctx.SeparadorDecimal)};
    if (s.enlace->AgregarInsumo(toma, CIFDescontado)) {
        Ejecutar(ctx, internos,
                 "update subitems set insumostemp = "_L1 + SqlNumber(ctx, CIFDescontado) +
                     ",cancelaciones = 'OK'"_L1 + donde);
        return true;
    }
    Ejecutar(ctx, internos, "delete from subitems"_L1 + donde);
    return false;
}

/// Step 18: the catalogue follows the line.
void seguirEnCatalogo(AppContext &ctx, const SubItems &s) {
    const Opciones &o = ctx.opciones;
    const CamposSubItem &c = s.campos;
    constexpr int activado = 2;
    if (o.MODARTSUB != "S"_L1 && o.MODIFCAT != activado) return;
    if (esDeInsumos(c) || !s.FramCatalogo() || c.TxtIdCatalogo.isEmpty() || c.txtIdArticulo.isEmpty()) return;
    ArticleStore::Articulo a;
    a.idcatalogo = c.TxtIdCatalogo;
    a.idarticulo = c.txtIdArticulo;
    a.descripcion = c.TxtDescArticulos;
    a.Descripcion_Maria = sinRenglones(c.txtDescripcionMaria);
    a.idunidad = c.TxtUnidad;
    a.ncm = c.TxtPosicion;
    a.idpais = c.TxtIdpais;
    a.idpaisproc = c.txtIdPaisProc;
    a.estadomerc = c.TxtIdEstadoMercaderia;
    a.sufijos = c.txtSufijos;
    a.biendeuso = c.cboBiendeUso.startsWith(QLatin1Char('S')) ? u"S"_s : u"N"_s;
    a.otros = c.txtOtros;
    a.codigoean = s.eanHabilitado ? c.TxtCodigoEAN : QString();
    a.itfiller = c.TxtFiller;
    a.naladisa = c.TxtNaladisa;
    if (o.VALORCAT == activado) {
        a.preciounitario = aNumero(c.TxtUnitario);
        a.kgneto = aNumero(c.txtKgUnitario);
    }
    ArticleStore::Agregar(ctx, a, o.MODARTSUB != "S"_L1);
}

QString primerCampo(const SubItems &s) {
    return s.FramCatalogo() ? u"txtIdArticulo"_s : u"TxtPosicion"_s;
}

Grabacion terminar(AppContext &ctx, SubItems &s, qint64 id) {
    seguirEnCatalogo(ctx, s);
    RefrescarTotales(ctx, s);
    if (ctx.opciones.SbtMantDatos) {
        // The texts stay for the next line, which is a new one.
        s.modo = 1;
        s.id = 0;
        s.articuloFijo = s.VincularDatos = s.marcaERR = false;
        s.SBTREI = 0;
    } else {
        VaciarCampos(ctx, s);
    }
    return {true, false, primerCampo(s), id};
}

/// The line itself, without a question and without its consequences; false when the link refuses.
bool borrarLinea(AppContext &ctx, const SubItems &s, qint64 id) {
    const QString donde = " where interno = '"_L1 + s.interno + "' and id = "_L1 + QString::number(id);
    Recordset rs;
    if (!Consultar(ctx, internos, "select cancelaciones,idcatalogo,idarticulo,id from subitems"_L1 + donde,
                   rs))
        return false;
    if (rs.Texto(u"cancelaciones") == "OK"_L1 &&
        (!s.enlace ||
         !s.enlace->EliminarInsumo(s.interno, rs.Texto(u"idcatalogo"), rs.Texto(u"idarticulo"), id))) {
        ctx.dialogos.advertir(u"Error en eliminar la relacion con insumos"_s);
        return false;
    }
    return Ejecutar(ctx, internos, "delete from subitems"_L1 + donde) > 0;
}

/// A deleted line cannot go on being changed.
void soltarLinea(const AppContext &ctx, SubItems &s, qint64 id) {
    if (s.modo == 2 && s.id == id) VaciarCampos(ctx, s);
}

}  // namespace

Grabacion GrabarSubItems(AppContext &ctx, SubItems &s) {
    const Veredicto v = revisar({ctx, s, false});
    if (!v.ok) return {false, false, v.foco, 0};
    Ejecutar(ctx, internos, sentenciaDeAlta(ctx, s));
    const qint64 id = ultimaLinea(ctx, s.interno);
    valoresDeReferencia(s, id);
    if (!tomarInsumos(ctx, s)) {
        RefrescarTotales(ctx, s);
        return {false, true, primerCampo(s), 0};
    }
    return terminar(ctx, s, id);
}

Grabacion ModificarSubItems(AppContext &ctx, SubItems &s) {
    AnotarCambio(ctx, s.interno);
    const Veredicto v = revisar({ctx, s, true});
    if (!v.ok) return {false, false, v.foco, s.id};
    const qint64 id = s.id;
    if (Ejecutar(ctx, internos, sentenciaDeCambio(ctx, s)) == 0) {
        ctx.dialogos.advertir(
            u"El subitem ya no está en la operación: cierre la pantalla y vuelva a abrirla."_s);
        return {false, false, {}, id};
    }
    valoresDeReferencia(s, id);
    return terminar(ctx, s, id);
}

Grabacion Grabar(AppContext &ctx, SubItems &s) {
    return s.modo == 2 ? ModificarSubItems(ctx, s) : GrabarSubItems(ctx, s);
}

bool EliminarSubItem(AppContext &ctx, SubItems &s, qint64 id) {
    if (!ctx.dialogos.preguntar({u"Confirma eliminar SUBITEM seleccinado."_s, {}, Icono::Pregunta, false}))
        return false;
    if (!borrarLinea(ctx, s, id)) return false;
    AnotarCambio(ctx, s.interno);
    soltarLinea(ctx, s, id);
    RefrescarTotales(ctx, s);
    return true;
}

int lpEliminar(AppContext &ctx, SubItems &s, const std::vector<qint64> &ids) {
    if (ids.empty() ||
        !ctx.dialogos.preguntar(
            {u"Confirma eliminar el o los subitems seleccionado"_s, {}, Icono::Pregunta, false}))
        return 0;
    int borradas = 0;
    for (const qint64 id : ids) {
        if (!borrarLinea(ctx, s, id)) continue;
        soltarLinea(ctx, s, id);
        ++borradas;
    }
    AnotarCambio(ctx, s.interno);
    RefrescarTotales(ctx, s);
    return borradas;
}
