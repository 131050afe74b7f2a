#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/sqltext.h"
#include "header/changes.h"
#include "header/regime.h"
#include "subitems/ArticleStore.h"
#include "subitems/ReferenceValues.h"
#include "subitems/linechecks.h"

using namespace Qt::StringLiterals;

namespace {

using numeros::aNumero;
using numeros::Format;

using entidad::internos;

bool esDeInsumos(const CamposSubItem &c) {
    return c.TxtIdCatalogo.contains("INS"_L1) || c.txtIdArticulo.contains("INS"_L1);
}

bool esBienDeUso(const CamposSubItem &c) {
    return c.cboBiendeUso.startsWith(u'S');
}

QString codigoEan(const SubItems &s) {
    return s.eanHabilitado ? s.campos.TxtCodigoEAN : QString();
}

QString sentenciaDeAlta(AppContext &ctx, const SubItems &s) {
    const CamposSubItem &c = s.campos;
    const auto figura = [&ctx](const QString &valor) {
        return Format(valor, u"00.00", ctx.SeparadorDecimal);
    };
    return Escritura(ctx, internos)
        .texto("IdCatalogo", c.TxtIdCatalogo)
        .texto("IdArticulo", c.txtIdArticulo)
        .texto("ncm", c.TxtPosicion)
        .texto("IdUnidad", c.TxtUnidad)
        .numero("Cantidad", figura(c.TxtCantidad))
        .numero("Preciounitario", c.TxtUnitario)
        .numero("fob", c.TxtFobTotal)
        .texto("Estadistica", c.LbCodigoEstadistica)
        .numero("valorrelacionestadistica", figura(c.TxtValorsobreestadistica))
        .texto("IdPais", c.TxtIdpais)
        .texto("EstadoMerc", c.TxtIdEstadoMercaderia)
        .texto("Sufijos", c.txtSufijos)
        .marca("Biendeuso", esBienDeUso(c))
        .texto("codprorrateo", c.TxtCodProrrateo)
        .numero("insumostemp", c.TxtInsumosTemp)
        .numero("insumosacons", c.TxtInsumCons)
        .codigo("cancelaciones", s.marcaERR ? u"ERR"_s : QString())
        .texto("cancCantidad", c.TxtCancCantidad)
        .texto("cancnroitem", c.txtNroItem)
        .texto("cancnrosubitem", c.TxtNroSubitem)
        .texto("deresp", c.LbIdDerEsp)
        .numero("valorderesp", figura(c.TxtDerEsp))
        .marca("lapi", c.LbLapi)
        .numero("kgneto", figura(c.TxtKgNeto))
        .numero("kgbruto", figura(c.TxtKgBruto))
        .texto("descripcion", c.TxtDescArticulos)
        .texto("Descripcion_Maria", c.txtDescripcionMaria)
        .codigo("interno", s.interno)
        .texto("otros", c.txtOtros)
        .texto("itfiller", c.TxtFiller)
        .texto("certorig", c.txtCertOrig)
        // Filled later; the blank in the list is how the statement is spelled.
        .codigo("ONCCACategoria", {})
        .codigo(" ONCCACortes", {})
        .texto("IdPaisProc", c.txtIdPaisProc)
        .texto("naladisa", c.TxtNaladisa)
        .texto("codigoean", codigoEan(s))
        .insertar(u"subitems"_s);
}

QString sentenciaDeCambio(AppContext &ctx, const SubItems &s) {
    const CamposSubItem &c = s.campos;
    const auto figura = [&ctx](const QString &valor) {
        return Format(valor, u"00.00", ctx.SeparadorDecimal);
    };
    Escritura e(ctx, internos);
    e.texto("ncm", c.TxtPosicion)
        .texto("idunidad", c.TxtUnidad)
        .numero("cantidad", figura(c.TxtCantidad))
        .numero("preciounitario", c.TxtUnitario)
        .numero("fob", c.TxtFobTotal)
        .texto("estadistica", c.LbCodigoEstadistica)
        .numero("valorrelacionestadistica", figura(c.TxtValorsobreestadistica))
        .texto("idpais", c.TxtIdpais)
        .texto("idpaisproc", c.txtIdPaisProc)
        .texto("estadomerc", c.TxtIdEstadoMercaderia)
        .texto("sufijos", c.txtSufijos)
        .marca("biendeuso", esBienDeUso(c))
        .texto("otros", c.txtOtros)
        .texto("certorig", c.txtCertOrig)
        .texto("codprorrateo", c.TxtCodProrrateo);
    // A line of the inputs link keeps what the link wrote.
    if (!esDeInsumos(c))
        e.numero("insumostemp", c.TxtInsumosTemp)
            .numero("insumosacons", c.TxtInsumCons)
            .texto("cancelaciones", c.TxtCanelaciones);
    e.texto("canccantidad", c.TxtCancCantidad)
        .texto("cancnroitem", c.txtNroItem)
        .marca("lapi", c.LbLapi)
        .numero("SBTREI", s.SBTREI)
        .numero("kgneto", figura(c.TxtKgNeto))
        .numero("kgbruto", figura(c.TxtKgBruto))
        .texto("deresp", c.LbIdDerEsp)
        .numero("valorderesp", figura(c.TxtDerEsp))
        .texto("descripcion", c.TxtDescArticulos)
        .texto("codigoean", codigoEan(s))
        .texto("naladisa", c.TxtNaladisa)
        .texto("Descripcion_Maria", c.txtDescripcionMaria)
        .texto("cancnrosubitem", c.TxtNroSubitem)
        .texto("itfiller", c.TxtFiller);
    return e.actualizar(u"subitems"_s,
                        "id = "_L1 + QString::number(s.id) + " and interno = "_L1 + EnComillas(s.interno));
}

QString sentenciaDeUltima(const QString &interno) {
    return "select max(id) as id "
           "from subitems "
           "where interno = "_L1 +
           EnComillas(interno);
}

qint64 ultimaLinea(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, internos, sentenciaDeUltima(interno), rs) ? static_cast<qint64>(rs.Numero(u"id"))
                                                                    : 0;
}

void valoresDeReferencia(const SubItems &s, qint64 id) {
    if (s.idsubreg != "IC01"_L1 || !oReferenceValues::GetValoresCriterio) return;
    const CamposSubItem &c = s.campos;
    oReferenceValues::GetValoresCriterio({s.interno, id, c.TxtPosicion, c.TxtUnidad, c.TxtIdpais,
                                          aNumero(c.TxtCantidad), aNumero(c.TxtUnitario)});
}

bool puedeTomarInsumos(const SubItems &s) {
    return EsRegimenConInsumos(s.idsubreg) && s.enlace;
}

/// What a new line's save asks of INTERNOS behind its insert. A line that takes inputs may be gone again
/// before the total is asked for.
QStringList lecturasDeAlta(const SubItems &s) {
    QStringList sentencias{sentenciaDeUltima(s.interno)};
    if (!puedeTomarInsumos(s)) sentencias << SentenciaDeTotal(s.interno);
    return sentencias;
}

/// False when the link refuses the line, which is then gone.
bool tomarInsumos(AppContext &ctx, const SubItems &s) {
    if (!puedeTomarInsumos(s)) return true;
    const CamposSubItem &c = s.campos;
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select top 2 * "
                   "from subitems "
                   "where interno = "_L1 +
                       EnComillas(s.interno) + " and IdCatalogo="_L1 + TextoEnComillas(c.TxtIdCatalogo) +
                       " and IDARTICULO="_L1 + TextoEnComillas(c.txtIdArticulo) +
                       " "
                       "order by id desc"_L1,
                   rs))
        return true;
    const qint64 id = static_cast<qint64>(rs.Numero(u"id"));
    const QString donde =
        " where interno = "_L1 + EnComillas(s.interno) + "  and id = "_L1 + QString::number(id);
    double CIFDescontado = 0;
    const insumos::Toma toma{c.TxtIdCatalogo,
                             c.txtIdArticulo,
                             s.interno,
                             id,
                             Format(c.TxtCantidad, u"00.00", ctx.SeparadorDecimal),
                             c.TxtUnidad};
    if (!s.enlace->Participa(toma)) return true;
    if (s.enlace->AgregarInsumo(toma, CIFDescontado)) {
        Ejecutar(ctx, internos,
                 "update subitems "
                 "set insumostemp = "_L1 +
                     SqlNumber(ctx, CIFDescontado) + ",cancelaciones = 'OK'"_L1 + donde);
        return true;
    }
    Ejecutar(ctx, internos, "delete from subitems"_L1 + donde);
    return false;
}

/// What a line took follows its quantity and its unit; false when the link refuses the change, which it told.
bool retomarInsumos(AppContext &ctx, SubItems &s) {
    if (!s.enlace || s.enlace->QueTomo(s.interno, s.id) != insumos::Tomado::Propio) return true;
    CamposSubItem &c = s.campos;
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select idcatalogo,idarticulo,idunidad,cantidad "
                   "from subitems "
                   "where id = "_L1 +
                       QString::number(s.id) + " and interno = "_L1 + EnComillas(s.interno),
                   rs))
        return true;
    c.TxtCanelaciones = u"OK"_s;
    const QString cantidad = Format(c.TxtCantidad, u"00.00", ctx.SeparadorDecimal);
    if (numeros::iguales(aNumero(cantidad), rs.Numero(u"cantidad"), 2) &&
        c.TxtUnidad == rs.Texto(u"idunidad"))
        return true;
    double CIFDescontado = 0;
    const insumos::Toma toma{
        rs.Texto(u"idcatalogo"), rs.Texto(u"idarticulo"), s.interno, s.id, cantidad, c.TxtUnidad};
    if (!s.enlace->RetomarInsumo(toma, CIFDescontado)) return false;
    c.TxtInsumosTemp = numeros::aTexto(CIFDescontado);
    return true;
}

/// The figure that a line hands to its article: none where the field has none, or still shows what the
/// article has, which the form of the field may have cut.
std::optional<double> cifraParaCatalogo(const AppContext &ctx, const QString &campo,
                                        const std::optional<double> &guardada, QStringView mascara) {
    const double valor = aNumero(campo);
    if (valor <= 0 || (guardada && campo == Format(*guardada, mascara, ctx.SeparadorDecimal))) return {};
    return valor;
}

/// The catalogue follows the line: what the line carries goes into its article, what it does not stays there
/// as it is.
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
    a.Descripcion_Maria = c.txtDescripcionMaria;
    a.idunidad = c.TxtUnidad;
    a.ncm = c.TxtPosicion;
    a.idpais = c.TxtIdpais;
    a.idpaisproc = c.txtIdPaisProc;
    a.estadomerc = c.TxtIdEstadoMercaderia;
    a.sufijos = c.txtSufijos;
    // Where the box is hidden it says nothing.
    if (s.bloque(BloqueDeLinea::BienDeUso)) a.biendeuso = esBienDeUso(c) ? u"S"_s : u"N"_s;
    a.otros = c.txtOtros;
    a.codigoean = codigoEan(s);
    a.itfiller = c.TxtFiller;
    a.naladisa = c.TxtNaladisa;
    if (o.VALORCAT == activado) {
        const auto guardado =
            ArticleStore::Leer(ctx, a.idcatalogo, a.idarticulo).value_or(ArticleStore::Articulo{});
        a.preciounitario = cifraParaCatalogo(ctx, c.TxtUnitario, guardado.preciounitario, u"00.00000");
        a.kgneto = cifraParaCatalogo(ctx, c.txtKgUnitario, guardado.kgneto, u"00.00");
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
        s.enDuda.reset();
    } else {
        VaciarCampos(ctx, s);
    }
    return {true, false, primerCampo(s), id};
}

Grabacion rechazadaPorInsumos(AppContext &ctx, SubItems &s) {
    s.enDuda.reset();
    RefrescarTotales(ctx, s);
    return {false, true, primerCampo(s), 0};
}

/// The line that a save which lost its store left behind; 0 when it left none. Nobody else adds to an
/// operation that is open.
qint64 lineaEnDuda(AppContext &ctx, const SubItems &s) {
    if (!s.enDuda) return 0;
    const qint64 ultima = ultimaLinea(ctx, s.interno);
    return ultima > s.enDuda->tras ? ultima : 0;
}

/// The rest of a new line's save, for the line `s.id` that its first try left: it takes what the screen says
/// now.
Grabacion seguirConLaQueQuedo(AppContext &ctx, SubItems &s) {
    const qint64 id = s.id;
    const bool otra = sentenciaDeAlta(ctx, s) != s.enDuda->sentencia;
    const bool tomo = s.enlace && s.enlace->QueTomo(s.interno, id) != insumos::Tomado::Nada;
    if (!retomarInsumos(ctx, s)) return {false, false, u"TxtCantidad"_s, id};
    // What it took may not have come into it.
    if (otra || tomo) Ejecutar(ctx, internos, sentenciaDeCambio(ctx, s));
    valoresDeReferencia(s, id);
    if (!tomo && !tomarInsumos(ctx, s)) return rechazadaPorInsumos(ctx, s);
    return terminar(ctx, s, id);
}

enum class Borrado { Hecho, NoEsta, Negado };

/// A line of the list that is gone is a change as well: its deletion may be one whose answer was lost.
Borrado yaNoEsta(AppContext &ctx, const SubItems &s) {
    AnotarCambio(ctx, s.interno);
    return Borrado::NoEsta;
}

/// Takes the line away and notes the change, without a question; a refusal of the link is told.
Borrado borrarLinea(AppContext &ctx, SubItems &s, qint64 id) {
    const QString donde =
        "where interno = "_L1 + EnComillas(s.interno) + " and id = "_L1 + QString::number(id);
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select cancelaciones,idcatalogo,idarticulo,id "
                   "from subitems "_L1 +
                       donde,
                   rs))
        return yaNoEsta(ctx, s);
    // A cancellation of its item hangs on a line without the mark.
    const bool tomo = rs.Texto(u"cancelaciones") == "OK"_L1 ||
                      (s.enlace && s.enlace->QueTomo(s.interno, id) != insumos::Tomado::Nada);
    if (tomo && (!s.enlace || !s.enlace->EliminarInsumo(s.interno, rs.Texto(u"idcatalogo"),
                                                        rs.Texto(u"idarticulo"), id))) {
        ctx.dialogos.advertir(u"Error en eliminar la relacion con insumos"_s);
        return Borrado::Negado;
    }
    if (Ejecutar(ctx, internos, "delete from subitems "_L1 + donde) == 0) return yaNoEsta(ctx, s);
    AnotarCambio(ctx, s.interno);
    // A deleted line cannot go on being changed.
    if (s.modo == 2 && s.id == id) VaciarCampos(ctx, s);
    return Borrado::Hecho;
}

}  // namespace

Grabacion GrabarSubItems(AppContext &ctx, SubItems &s) {
    const Veredicto v = RevisarLinea(ctx, s, false);
    if (!v.ok) return {false, false, v.foco, 0};
    if (const qint64 quedo = lineaEnDuda(ctx, s); quedo != 0) {
        s.id = quedo;
        return seguirConLaQueQuedo(ctx, s);
    }
    const QString alta = sentenciaDeAlta(ctx, s);
    if (s.ultimaVista) s.enDuda = AltaEnDuda{*s.ultimaVista, alta};
    Ejecutar(ctx, internos, alta);
    LecturaAdelantada lecturas(ctx.conexion(internos), {lecturasDeAlta(s)});
    lecturas.Vuelta();
    const qint64 id = ultimaLinea(ctx, s.interno);
    valoresDeReferencia(s, id);
    if (!tomarInsumos(ctx, s)) return rechazadaPorInsumos(ctx, s);
    return terminar(ctx, s, id);
}

Grabacion ModificarSubItems(AppContext &ctx, SubItems &s) {
    AnotarCambio(ctx, s.interno);
    const Veredicto v = RevisarLinea(ctx, s, true);
    if (!v.ok) return {false, false, v.foco, s.id};
    const qint64 id = s.id;
    if (!retomarInsumos(ctx, s)) return {false, false, u"TxtCantidad"_s, id};
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
    if (borrarLinea(ctx, s, id) == Borrado::Negado) return false;
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
        const Borrado borrado = borrarLinea(ctx, s, id);
        if (borrado == Borrado::Hecho) ++borradas;
        if (borrado == Borrado::Negado) break;
    }
    RefrescarTotales(ctx, s);
    return borradas;
}
