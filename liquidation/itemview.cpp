#include "liquidation/itemview.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "header/codes.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using entidad::internos;
const QString itemCero = u"0"_s;

/// A page while it is filled.
struct Pagina {
    AppContext &ctx;
    const QString &interno;
    VistaDeItem &v;

    void poner(const char *control, const QString &texto) const { v.campos.emplace_back(L(control), texto); }
    void monto(const char *control, double valor) const { poner(control, conMascara(valor)); }
    QString conMascara(double valor, QStringView mascara = u"00.00") const {
        return numeros::Format(valor, mascara, ctx.SeparadorDecimal);
    }
    /// A plain number, with the workstation's separator.
    QString comoNumero(double valor) const {
        QString texto = numeros::aTexto(valor);
        return ReemplazarSeparadorDecimal(texto, ctx.SeparadorDecimal);
    }
    bool consultar(const QString &sql, Recordset &rs) const { return Consultar(ctx, internos, sql, rs); }
};

QString sentenciaDeGrupos(const Pagina &p) {
    return "select idarticulo,ncm,descripcion,"
           "idunidad,cantidad,preciounitario,fob,"
           "sufijos,estadistica,valorrelacionestadistica"
           " from groupsubitems"
           " where id = "_L1 +
           p.v.item + " and interno = "_L1 + EnComillas(p.interno) + "  ORDER BY idsub"_L1;
}

void leerGrupos(const Pagina &p) {
    Recordset rs;
    for (p.consultar(sentenciaDeGrupos(p), rs); !rs.Eof(); rs.MoveNext())
        p.v.grupos.push_back({rs.Texto(u"idarticulo"), rs.Texto(u"ncm"),
                              p.v.idsubreg == "DJAI"_L1 ? rs.Texto(u"Descripcion").trimmed() : QString(),
                              rs.Texto(u"idunidad"), p.conMascara(rs.Numero(u"cantidad")),
                              p.conMascara(rs.Numero(u"preciounitario"), u"00.00000"),
                              p.conMascara(rs.Numero(u"fob")), rs.Texto(u"sufijos"), rs.Texto(u"estadistica"),
                              p.conMascara(rs.Numero(u"valorrelacionestadistica"))});
}

/// The item's groups and the lines that were folded into them.
QString lineasDelItem(const Pagina &p) {
    const QString interno = EnComillas(p.interno);
    const QString grupos = " select idsub from groupsubitems where interno = "_L1 + interno;
    return " select * from ( "_L1 + grupos + " and id = "_L1 + p.v.item +
           " Union "
           " select idsub from idrel where interno = "_L1 +
           interno + " and idroot in ( "_L1 + grupos + "  and id = "_L1 + p.v.item + ")) as tino "_L1;
}

QString sentenciaDeCertificados(const Pagina &p) {
    return "select certorig from subitems"
           " where interno = "_L1 +
           EnComillas(p.interno) +
           " and  (certorig is not null and certorig<>'')"
           " and  id in ("_L1 +
           lineasDelItem(p) + ") "_L1;
}

void leerCertificados(const Pagina &p) {
    Recordset rs;
    for (p.consultar(sentenciaDeCertificados(p), rs); !rs.Eof(); rs.MoveNext())
        p.v.certificados << rs.Texto(u"certorig");
}

QString sentenciaDeInformacion(const Pagina &p) {
    return "select * from iteminfo"
           " where iditem = "_L1 +
           p.v.item + " and interno = "_L1 + EnComillas(p.interno);
}

QString sentenciaDeVentajas(const Pagina &p) {
    return "select * from itemventaja"
           " where iditem = "_L1 +
           p.v.item + " and interno ="_L1 + EnComillas(p.interno) + " order by idventaja"_L1;
}

void leerListas(const Pagina &p) {
    Recordset rs;
    for (p.consultar(sentenciaDeInformacion(p), rs); !rs.Eof(); rs.MoveNext())
        p.v.informacion.emplace_back(rs.Texto(u"idinfo"), rs.Texto(u"valor"));
    for (p.consultar(sentenciaDeVentajas(p), rs); !rs.Eof(); rs.MoveNext()) {
        const QString ventaja = rs.Texto(u"idventaja");
        p.v.ventajas << ventaja;
        if (ventaja == "AUTOLIQLIBREEXP"_L1 || ventaja == "AUTOLIQLIBREIMP"_L1) p.v.lbAutoliq = true;
    }
}

QString sentenciaDeCancelaciones(const Pagina &p, bool tambienDeSusLineas) {
    const QString interno = EnComillas(p.interno);
    QString cuales = "iditem =  "_L1 + p.v.item;
    if (tambienDeSusLineas)
        cuales = "("_L1 + cuales +
                 " or (iditem is null and idexportacion<>0"
                 " and idexportacion in (select idexportacion from subitems"
                 " where interno = "_L1 +
                 interno + " and id in ("_L1 + lineasDelItem(p) + "))))"_L1;
    return "select dit,item,subitem,ncm,expctit,"
           "cantidad,factorponderacion"
           " from descargas"
           " where interno = "_L1 +
           interno + " and "_L1 + cuales + " order by dit, item, subitem"_L1;
}

void leerCancelaciones(const Pagina &p, bool tambienDeSusLineas) {
    Recordset rs;
    for (p.consultar(sentenciaDeCancelaciones(p, tambienDeSusLineas), rs); !rs.Eof(); rs.MoveNext())
        p.v.cancelaciones.push_back({rs.Texto(u"dit"), rs.Texto(u"item"), rs.Texto(u"subitem"),
                                     rs.Texto(u"ncm"), rs.Texto(u"expctit"),
                                     p.conMascara(rs.Numero(u"cantidad"), u"00.000"),
                                     p.comoNumero(rs.Numero(u"factorponderacion"))});
}

/// The item's row. Item 0 may have none: every column reads as a null then.
struct FilaDeItem {
    const Recordset &rs;
    QString Texto(QStringView columna) const { return rs.Eof() ? QString() : rs.Texto(columna); }
    double Numero(QStringView columna) const { return rs.Eof() ? 0 : rs.Numero(columna); }
};

/// The text of a field.
QString textoDeCampo(const Pagina &p, const CampoDeItem &campo, const FilaDeItem &item) {
    const QString columna = L(campo.columna);
    switch (campo.clase) {
        case ClaseDeCampo::Numero: {
            const bool otra = campo.mascaraEnCero != nullptr && p.v.item == itemCero;
            const QString mascara = L(otra ? campo.mascaraEnCero : campo.mascara);
            const double valor = item.Numero(columna);
            return mascara.isEmpty() ? p.comoNumero(valor) : p.conMascara(valor, mascara);
        }
        case ClaseDeCampo::Opcion:
            return item.Texto(columna) == "S"_L1 ? u"S"_s : u"N"_s;
        case ClaseDeCampo::CodigoConBlanco: {
            // The blank of the last save, or it would grow by one each time.
            QString texto = item.Texto(columna);
            while (texto.endsWith(QLatin1Char(' '))) texto.chop(1);
            return texto;
        }
        default:
            return item.Texto(columna);
    }
}

void ponerDescripciones(const Pagina &p, const FilaDeItem &item) {
    const QString unidad = item.Texto(u"idunidad");
    const QString estadistica = item.Texto(u"estadistica");
    const QString deresp = item.Texto(u"deresp");
    const QString estado = item.Texto(u"estadomerc");
    const QString origen = item.Texto(u"Idpais");
    const QString procedencia = item.Texto(u"idproc");
    const DescripcionesAnticipadas juntas(p.ctx, {{u"UNIDADES"_s, unidad},
                                                  {u"UNIDADES"_s, estadistica},
                                                  {u"UNIDADES"_s, deresp},
                                                  {u"ESTADOMERCADERIA"_s, estado},
                                                  {u"PAIS"_s, origen},
                                                  {u"PAIS"_s, procedencia}});
    p.poner("lbItemCantidadDeclarada",
            (unidad + QLatin1Char(' ') + getUnidadDescripcion(p.ctx, unidad)).trimmed());
    p.poner("lbUnidEst", getUnidadDescripcion(p.ctx, estadistica));
    p.poner("lbDerEsp", getUnidadDescripcion(p.ctx, deresp));
    p.poner("LbEstMerc", getEstadoMercaderiaDescripcion(p.ctx, estado));
    p.poner("LbDescPais", getPaisDescripcion(p.ctx, origen));
    p.poner("LbDest", getPaisDescripcion(p.ctx, procedencia));
}

void ponerDatos(const Pagina &p, const FilaDeItem &item) {
    for (const CampoDeItem &campo : CamposDeItem()) {
        const QString texto = textoDeCampo(p, campo, item);
        p.poner(campo.control, texto);
        if (!campo.seGraba) continue;
        const QString columna = L(campo.columna);
        p.v.datos.insert(columna,
                         campo.clase == ClaseDeCampo::Numero ? p.comoNumero(item.Numero(columna)) : texto);
    }
    ponerDescripciones(p, item);
    p.v.LbLapi = item.Texto(u"LAPI") == "S"_L1;
    p.v.esCancelacion = item.Texto(u"cancelaciones") == "OK"_L1;
    p.v.bienDeUso = item.Texto(u"Biendeuso") == "S"_L1;
}

void ponerImportes(const Pagina &p, ClassLiquidacion &c, double baseImponible, double baseIVA) {
    p.monto("LbFobUs", c.ObtenerFobItemUS());
    p.monto("LbFleteUs", c.ObtenerFLETEItemUs());
    p.monto("LbSeguroUS", c.ObtenerSEGUROItemUs());
    p.monto("LbAjusteIncUs", c.ObtenerAjusteIncUs());
    p.monto("LbAjusteDedUs", c.ObtenerAjusteDedUs());
    p.monto("LbBaseImp", baseImponible);
    p.monto("LbBaseIVA", baseIVA);
}

QString sentenciaDeSumas(const Pagina &p) {
    return "select sum(fobtotal) as fob,sum(itflete) as flete,sum(itseguro) as seguro"
           " from item"
           " where interno = "_L1 +
           EnComillas(p.interno) + " and id<>0"_L1;
}

void verItemCero(const Pagina &p, bool recalcular, ClassLiquidacion &c,
                 const std::function<void(const QString &)> &estado) {
    ResultadoRecalculo r;
    if (recalcular) {
        r = RecalcularOperacion(p.ctx, p.interno, c, estado);
    } else {
        RepartirAjustesDeCaratula(p.ctx, p.interno, c);
        r = LeerUltimoRecalculo(p.ctx, p.interno);
    }
    p.v.recalculada = recalcular;
    Recordset rs;
    p.consultar(sentenciaDeSumas(p), rs);
    c.FOBTotalITEM = rs.Numero(u"fob");
    c.FLETETotalITEM = rs.Numero(u"flete");
    c.SEGUROTotalITEM = rs.Numero(u"seguro");
    c.AJUSTEINCLUIRtotalITEM = r.sumaAjusteInc;
    c.AJUSTEDEDUCIRtotalITEM = r.sumaAjusteDed;
    ponerImportes(p, c, r.sumaBaseImponible, r.sumaBaseIVA);
    p.v.lbTOTALG = p.conMascara(r.totalP);
    p.v.lbTOTGAR = p.comoNumero(r.totalG);
    p.v.lbTOTCOB = p.comoNumero(r.totalC);
    p.v.grilla = std::move(r.grilla);
}

QString sentenciaDeCuenta(const Pagina &p) {
    return "select count(*) as cont from item where interno = "_L1 + EnComillas(p.interno) + " and id<>0"_L1;
}

int contarItems(const Pagina &p) {
    Recordset rs;
    p.consultar(sentenciaDeCuenta(p), rs);
    return static_cast<int>(rs.Numero(u"cont"));
}

QString sentenciaDeItem(const Pagina &p) {
    return "select * from item where interno = "_L1 + EnComillas(p.interno) + " and id = "_L1 + p.v.item;
}

/// What a page asks of INTERNOS whatever its item holds.
QStringList lecturasDePagina(const Pagina &p, bool recalcular, bool paginaDeCancelaciones) {
    QStringList sentencias = LecturasDeCaratula(p.interno);
    sentencias << sentenciaDeCuenta(p) << sentenciaDeItem(p);
    if (p.v.item == itemCero) {
        sentencias << sentenciaDeInformacion(p) << sentenciaDeVentajas(p);
        // Behind a run these are another answer.
        if (!recalcular) sentencias << SentenciaDeUltimoRecalculo(p.interno) << sentenciaDeSumas(p);
        return sentencias;
    }
    return sentencias << sentenciaDeGrupos(p) << sentenciaDeCertificados(p) << sentenciaDeInformacion(p)
                      << sentenciaDeVentajas(p) << LecturasDeItem(p.interno, p.v.item, {})
                      << SentenciaDeLiquidacion(p.ctx, p.interno, p.v.item)
                      << sentenciaDeCancelaciones(p, paginaDeCancelaciones);
}

/// False with the word to the user when the position ends the load.
bool verItem(const Pagina &p, const Recordset &item, ClassLiquidacion &c) {
    bool lapi = false;
    PosicionesLeidas posiciones(p.ctx);
    const CargaDePosicion carga = CargarItemEnCalculadora(p.ctx, p.interno, item, c, true, lapi, posiciones);
    if (carga != CargaDePosicion::Encontrada) {
        p.v.aviso = carga == CargaDePosicion::MalFormada
                        ? u"Estructura de NCM incorrecta"_s
                        : u"La Posición "_s + PosicionDeItem(item) + u" no esta en el nomenclador"_s;
        p.ctx.dialogos.advertir(p.v.aviso);
        return false;
    }
    const double base = c.ObtenerBaseImponible();
    ponerImportes(p, c, base, c.ObtenerBaseIVA());
    p.v.grilla = LeerLiquidacionDeItem(p.ctx, p.interno, p.v.item);
    return true;
}

}  // namespace

QString VistaDeItem::campo(const QString &control) const {
    for (const auto &[nombre, texto] : campos)
        if (nombre == control) return texto;
    return {};
}

QStringList ItemsDeOperacion(AppContext &ctx, const QString &interno) {
    QStringList numeros{itemCero};
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select id from item where interno = "_L1 + EnComillas(interno) + " order by id"_L1, rs);
         !rs.Eof(); rs.MoveNext())
        if (const QString id = rs.Texto(u"id"); id != itemCero) numeros << id;
    return numeros;
}

QStringList ListasDeItem(AppContext &ctx) {
    QStringList listas{u"MERCOSUR"_s, u"314/R.AUTOMOTRIZ"_s};
    Recordset rs;
    for (Consultar(ctx, entidad::systablas, u"select distinct id from lista order by id"_s, rs); !rs.Eof();
         rs.MoveNext())
        if (const QString id = rs.Texto(u"id").trimmed(); !id.isEmpty() && !listas.contains(id)) listas << id;
    return listas;
}

VistaDeItem VerDetalleITEM(AppContext &ctx, const QString &interno, const QString &item,
                           bool paginaDeLiquidacion, ClassLiquidacion &calculo,
                           const std::function<void(const QString &)> &estado, bool paginaDeCancelaciones) {
    const Reloj reloj(ctx.dialogos);
    VistaDeItem v;
    v.item = item;
    const Pagina p{ctx, interno, v};
    const bool recalcular = paginaDeLiquidacion || ctx.LiquidacionPendiente;
    LecturaAdelantada lecturas(ctx.conexion(internos),
                               {lecturasDePagina(p, recalcular, paginaDeCancelaciones)});
    lecturas.Vuelta();
    if (!CargarCaratulaEnCalculadora(ctx, interno, calculo)) {
        v.aviso = u"El interno %1 ya no existe: vuelva a buscarlo en la lista."_s.arg(interno);
        ctx.dialogos.advertir(v.aviso);
        return v;
    }
    v.idsubreg = calculo.CaratulaSubRegimen;
    v.cantidadDeItems = contarItems(p);
    const bool cero = item == itemCero;
    Recordset fila;
    if (!p.consultar(sentenciaDeItem(p), fila) && !cero) return v;
    if (cero) {
        leerListas(p);
        verItemCero(p, recalcular, calculo, estado);
    } else {
        leerGrupos(p);
        leerCertificados(p);
        leerListas(p);
        if (!verItem(p, fila, calculo)) return v;
        leerCancelaciones(p, paginaDeCancelaciones);
    }
    ponerDatos(p, {fila});
    v.cargada = true;
    return v;
}
