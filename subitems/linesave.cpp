#include <utility>

#include "frame/context.h"
#include "frame/numbers.h"
#include "frame/values.h"
#include "header/regime.h"
#include "operations/changes.h"
#include "siblings/ArticleStore.h"
#include "siblings/ReferenceValues.h"
#include "subitems/lines.h"
#include "subitems/nomenclature.h"
#include "subitems/suffixes.h"
#include "subitems/suffixtext.h"

namespace {

using L = QLatin1String;
using numeros::aNumero;
using numeros::esNumerico;
using numeros::Format;

const QString internos = QStringLiteral("INTERNOS");
const QString kilogramo = QStringLiteral("01");

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
    if (esNumerico(a) && esNumerico(b)) return Format(aNumero(a), u"00.00") == Format(aNumero(b), u"00.00");
    return a == b;
}

bool esDeInsumos(const CamposSubItem &c) {
    return c.TxtIdCatalogo.contains(L("INS")) || c.txtIdArticulo.contains(L("INS"));
}

/// Checks 1 to 3: the units on the screen are those of the nomenclature.
Veredicto revisarUnidades(const Corrida &r) {
    const CamposSubItem &c = r.campos();
    if (c.LbCodigoEstadistica.isEmpty())
        return r.mal("TxtPosicion", QStringLiteral("Falta unidad estadistica"));
    const ClavesNcm k = CortarPosicion(c.TxtPosicion);
    Recordset rs;
    const bool hay = Consultar(r.ctx, QStringLiteral("NCM"),
                               L("select [012],[020] from ncm where [001] = '") + k.c001 +
                                   L("' and [002] = '") + k.c002 + L("' and [003] = '") + k.c003 + L("'"),
                               rs);
    if (!hay && r.cambio)
        return r.mal("TxtPosicion", QStringLiteral("No se encontro la posición ") + c.TxtPosicion);
    const QString estadistica = hay ? rs.Texto(u"012").trimmed() : QString();
    const QString deresp = hay ? rs.Texto(u"020").trimmed() : QString();
    if (estadistica.isEmpty() && r.cambio)
        return r.mal("TxtPosicion", QStringLiteral("Error: no hay unidad estadistica"));
    if (c.LbCodigoEstadistica != estadistica)
        return r.mal("TxtPosicion", L("Error en Codigo de Estadistica debe ser [ ") + estadistica + L(" ]"));
    const QString pista =
        QStringLiteral("\r\nPara refrescar las unidades del ncm presione ENTER en el campo posición");
    if (deresp.isEmpty() && !c.LbIdDerEsp.isEmpty())
        return r.mal("TxtPosicion", QStringLiteral("Esta posición no tiene Unidad del Derecho Especifico, "
                                                   "pero en la pantalla tiene [ ") +
                                        c.LbIdDerEsp + L(" ]") + pista);
    if (c.LbIdDerEsp != deresp)
        return r.mal("TxtPosicion",
                     L("Error en Codigo de Derecho Especifico debe ser [ ") + deresp + L(" ]") + pista);
    return Veredicto::bien();
}

/// Checks 4 to 9: quantities, kilos and price.
Veredicto revisarCantidades(const Corrida &r) {
    CamposSubItem &c = r.campos();
    if (c.LbCodigoEstadistica != kilogramo && !mayorQueCero(c.TxtValorsobreestadistica))
        return r.mal("TxtValorsobreestadistica",
                     QStringLiteral("Debe ingresar un valor mayor a cero en CANTIDA ESTADISTICA"));
    if (vacioOCero(c.TxtCantidad)) return r.mal("TxtCantidad", QStringLiteral("Valor Invalido en CANTIDAD"));
    if (mayorQueCero(c.TxtKgNeto) && mayorQueCero(c.TxtKgBruto) &&
        aNumero(c.TxtKgNeto) >= aNumero(c.TxtKgBruto))
        return r.mal("TxtKgNeto", QStringLiteral("KG Neto debe ser Menor que KG Bruto"));
    if (c.LbCodigoEstadistica == kilogramo && c.TxtValorsobreestadistica.trimmed().isEmpty())
        c.TxtValorsobreestadistica = Format(aNumero(c.TxtKgNeto), u"00.00");
    if (c.TxtUnidad == c.LbCodigoEstadistica && !iguales(c.TxtCantidad, c.TxtValorsobreestadistica))
        return r.mal("TxtCantidad", L("La CANTIDAD DECLARADA ( ") + c.TxtCantidad +
                                        L(" ) debe ser igual a CANTIDAD ESTADISTICA ( ") +
                                        c.TxtValorsobreestadistica + L(" )"));
    if (vacioOCero(c.TxtUnitario))
        return r.mal(r.campoDePrecio(), QStringLiteral("Valor Invalido en PRECIO UNITARIO"));
    return Veredicto::bien();
}

QString sinComillas(QString texto) {
    return texto.replace(QLatin1Char('\''), QLatin1Char(' '));
}

QString sinRenglones(QString texto) {
    texto.replace(L("\r\n"), L(" "));
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
        return r.mal("TxtIdCatalogo", QStringLiteral("Codigo de catalogo no esta en base de datos."),
                     QStringLiteral("Advertencia: CATALOGO"));
    if (c.TxtUnidad.isEmpty()) return r.mal("TxtUnidad", QStringLiteral("Debe ingresar el Codigo de UNIDAD"));
    if (!esNumerico(c.TxtCantidad))
        return r.mal("TxtCantidad", QStringLiteral("Debe ingresar un valor numerico en el campo CANTIDAD"));
    // A change says "numeric" in two of them.
    const L numerico(r.cambio ? "Debe ingresar un valor numeric en el campo "
                              : "Debe ingresar un valor numerico en el campo ");
    if (!esNumerico(c.TxtUnitario)) return r.mal(r.campoDePrecio(), numerico + L("VALOR UNITARIO"));
    if (!esNumerico(c.TxtFobTotal)) return r.mal(r.campoDeFob(), numerico + L("FOB TOTAL"));
    if (r.cambio && r.s.FramDerEsp && !esNumerico(c.TxtDerEsp))
        return r.mal("TxtDerEsp",
                     QStringLiteral("El valor de el campo Derecho Especifico debe ser númerico"));
    if (c.TxtPosicion.isEmpty())
        return r.mal("TxtPosicion", QStringLiteral("Debe ingresar una POSICION del Nomenclador"));
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
        return r.mal("txtSufijos", QStringLiteral("Para Grabar es necesario completar los sufijos"));
    if (!SufijosAceptados(nuevos)) return Veredicto::mal(QStringLiteral("txtSufijos"));
    c.txtSufijos = nuevos;
    if (o.QUINDEL && !SufijoContieneArticulo(c.TxtPosicion, c.txtSufijos, c.txtIdArticulo))
        return r.mal("txtSufijos", QStringLiteral("Error sufijos AB invàlido ") + c.txtSufijos +
                                       L(" codigo de articulo ") + c.txtIdArticulo);
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
        return numero(Format(valor, mascara));
    }
    QString marca(bool si) const { return si ? QStringLiteral("'S'") : QStringLiteral("'N'"); }
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
                              v.texto(s.marcaERR ? QStringLiteral("ERR") : QString()),
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
                              QStringLiteral("''"),
                              QStringLiteral("''"),
                              v.texto(c.txtIdPaisProc),
                              v.texto(c.TxtNaladisa),
                              v.ean()};
    return L("insert into subitems (IdCatalogo,IdArticulo,ncm,IdUnidad,Cantidad,Preciounitario,fob,"
             "Estadistica,valorrelacionestadistica,IdPais,EstadoMerc,Sufijos,Biendeuso,codprorrateo,"
             "insumostemp,insumosacons,cancelaciones,cancCantidad,cancnroitem,cancnrosubitem,deresp,"
             "valorderesp,lapi,kgneto,kgbruto,descripcion,Descripcion_Maria,interno,otros,itfiller,certorig,"
             "ONCCACategoria, ONCCACortes,IdPaisProc,naladisa,codigoean) values (") +
           valores.join(QLatin1Char(',')) + L(")");
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
        texto += L(columna) + L(" = ") + valor;
    }
    return L("update subitems set ") + texto + L(" where id = ") + QString::number(s.id) +
           L(" and interno = '") + s.interno + L("'");
}

qint64 ultimaLinea(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, internos,
                     L("select max(id) as id from subitems where interno = '") + interno + L("'"), rs)
               ? static_cast<qint64>(rs.Numero(u"id"))
               : 0;
}

void valoresDeReferencia(const SubItems &s, qint64 id) {
    if (s.idsubreg != L("IC01") || !oReferenceValues::GetValoresCriterio) return;
    const CamposSubItem &c = s.campos;
    oReferenceValues::GetValoresCriterio({s.interno, id, c.TxtPosicion, c.TxtUnidad, c.TxtIdpais,
                                          aNumero(c.TxtCantidad), aNumero(c.TxtUnitario)});
}

/// Step 17: false when the link refuses the line, which is then gone.
bool tomarInsumos(AppContext &ctx, const SubItems &s) {
    if (!EsRegimenConInsumos(s.idsubreg) || !s.enlace.AgregarInsumo) return true;
    const CamposSubItem &c = s.campos;
    Recordset rs;
    if (!Consultar(ctx, internos,
                   L("select top 2 * from subitems where interno = '") + s.interno + L("' and IdCatalogo='") +
                       c.TxtIdCatalogo + L("' and IDARTICULO='") + c.txtIdArticulo + L("' order by id desc"),
                   rs))
        return true;
    const qint64 id = static_cast<qint64>(rs.Numero(u"id"));
    const QString donde = L(" where interno = '") + s.interno + L("'  and id = ") + QString::number(id);
    double CIFDescontado = 0;
    const insumos::Toma toma{c.TxtIdCatalogo, c.txtIdArticulo, s.interno, id,
                             Format(c.TxtCantidad, u"00.00")};
    if (s.enlace.AgregarInsumo(toma, CIFDescontado)) {
        Ejecutar(ctx, internos,
                 L("update subitems set insumostemp = ") + SqlNumber(CIFDescontado) +
                     L(",cancelaciones = 'OK'") + donde);
        return true;
    }
    Ejecutar(ctx, internos, L("delete from subitems") + donde);
    return false;
}

/// Step 18: the catalogue follows the line.
void seguirEnCatalogo(AppContext &ctx, const SubItems &s) {
    const Opciones &o = ctx.opciones;
    const CamposSubItem &c = s.campos;
    constexpr int activado = 2;
    if (o.MODARTSUB != L("S") && o.MODIFCAT != activado) return;
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
    a.biendeuso = c.cboBiendeUso.startsWith(QLatin1Char('S')) ? QStringLiteral("S") : QStringLiteral("N");
    a.otros = c.txtOtros;
    a.codigoean = s.eanHabilitado ? c.TxtCodigoEAN : QString();
    a.itfiller = c.TxtFiller;
    a.naladisa = c.TxtNaladisa;
    if (o.VALORCAT == activado) {
        a.preciounitario = aNumero(c.TxtUnitario);
        a.kgneto = aNumero(c.txtKgUnitario);
    }
    ArticleStore::Agregar(ctx, a, o.MODARTSUB != L("S"));
}

QString primerCampo(const SubItems &s) {
    return s.FramCatalogo() ? QStringLiteral("txtIdArticulo") : QStringLiteral("TxtPosicion");
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
    const QString donde = L(" where interno = '") + s.interno + L("' and id = ") + QString::number(id);
    Recordset rs;
    if (!Consultar(ctx, internos, L("select cancelaciones,idcatalogo,idarticulo,id from subitems") + donde,
                   rs))
        return false;
    if (rs.Texto(u"cancelaciones") == L("OK") &&
        (!s.enlace.EliminarInsumo ||
         !s.enlace.EliminarInsumo(s.interno, rs.Texto(u"idcatalogo"), rs.Texto(u"idarticulo"), id))) {
        ctx.dialogos.advertir(QStringLiteral("Error en eliminar la relacion con insumos"));
        return false;
    }
    return Ejecutar(ctx, internos, L("delete from subitems") + donde) > 0;
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
            QStringLiteral("El subitem ya no está en la operación: cierre la pantalla y vuelva a abrirla."));
        return {false, false, {}, id};
    }
    valoresDeReferencia(s, id);
    return terminar(ctx, s, id);
}

Grabacion Grabar(AppContext &ctx, SubItems &s) {
    return s.modo == 2 ? ModificarSubItems(ctx, s) : GrabarSubItems(ctx, s);
}

bool EliminarSubItem(AppContext &ctx, SubItems &s, qint64 id) {
    if (!ctx.dialogos.preguntar(
            {QStringLiteral("Confirma eliminar SUBITEM seleccinado."), {}, Icono::Pregunta, false}))
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
            {QStringLiteral("Confirma eliminar el o los subitems seleccionado"), {}, Icono::Pregunta, false}))
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
