#include "liquidation/itemview.h"

#include "frame/numbers.h"
#include "header/codes.h"
#include "header/regime.h"

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");

QString conMascara(double valor) {
    return numeros::Format(valor, u"00.00");
}

/// A plain number, with the workstation's separator.
QString comoNumero(double valor) {
    return numeros::aTexto(valor).replace(QLatin1Char('.'), numeros::separadorDecimal());
}

/// A page while it is filled.
struct Pagina {
    AppContext &ctx;
    const QString &interno;
    VistaDeItem &v;

    void poner(const char *control, const QString &texto) const { v.campos.emplace_back(L(control), texto); }
    void monto(const char *control, double valor) const { poner(control, conMascara(valor)); }
    bool consultar(const QString &sql, Recordset &rs) const { return Consultar(ctx, internos, sql, rs); }
};

void leerGrupos(const Pagina &p) {
    Recordset rs;
    for (p.consultar(L("select "
                       "idarticulo,ncm,descripcion,idunidad,cantidad,preciounitario,fob,sufijos,estadistica,"
                       "valorrelacionestadistica from groupsubitems where id = ") +
                         p.v.item + L(" and interno = '") + p.interno + L("'  ORDER BY idsub"),
                     rs);
         !rs.Eof(); rs.MoveNext())
        p.v.grupos.push_back({rs.Texto(u"idarticulo"), rs.Texto(u"ncm"),
                              p.v.idsubreg == L("DJAI") ? rs.Texto(u"Descripcion").trimmed() : QString(),
                              rs.Texto(u"idunidad"), conMascara(rs.Numero(u"cantidad")),
                              numeros::Format(rs.Numero(u"preciounitario"), u"00.00000"),
                              conMascara(rs.Numero(u"fob")), rs.Texto(u"sufijos"), rs.Texto(u"estadistica"),
                              conMascara(rs.Numero(u"valorrelacionestadistica"))});
}

void leerCertificados(const Pagina &p) {
    const QString grupos =
        L(" select idsub from groupsubitems where interno = '") + p.interno + L("' and id = ") + p.v.item;
    Recordset rs;
    for (p.consultar(L("select certorig from subitems where interno = '") + p.interno +
                         L("' and  (certorig is not null and certorig<>'') and  id in ( select * from ( ") +
                         grupos + L(" Union  select idsub from idrel where interno = '") + p.interno +
                         L("' and idroot in (  select idsub from groupsubitems where interno = '") +
                         p.interno + L("'  and id = ") + p.v.item + L(")) as tino ) "),
                     rs);
         !rs.Eof(); rs.MoveNext())
        p.v.certificados << rs.Texto(u"certorig");
}

void leerListas(const Pagina &p) {
    Recordset rs;
    for (p.consultar(L("select * from iteminfo where iditem = ") + p.v.item + L(" and interno = '") +
                         p.interno + L("'"),
                     rs);
         !rs.Eof(); rs.MoveNext())
        p.v.informacion.emplace_back(rs.Texto(u"idinfo"), rs.Texto(u"valor"));
    for (p.consultar(L("select * from itemventaja where iditem = ") + p.v.item + L(" and interno ='") +
                         p.interno + L("' order by idventaja"),
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString ventaja = rs.Texto(u"idventaja");
        p.v.ventajas << ventaja;
        if (ventaja == L("AUTOLIQLIBREEXP") || ventaja == L("AUTOLIQLIBREIMP")) p.v.lbAutoliq = true;
    }
}

void leerCancelaciones(const Pagina &p) {
    Recordset rs;
    for (p.consultar(L("select dit,item,subitem,ncm,expctit,cantidad,factorponderacion from descargas where "
                       "interno = '") +
                         p.interno + L("' and iditem =  ") + p.v.item + L(" order by dit, item, subitem"),
                     rs);
         !rs.Eof(); rs.MoveNext())
        p.v.cancelaciones.push_back({rs.Texto(u"dit"), rs.Texto(u"item"), rs.Texto(u"subitem"),
                                     rs.Texto(u"ncm"), rs.Texto(u"expctit"),
                                     numeros::Format(rs.Numero(u"cantidad"), u"00.000"),
                                     comoNumero(rs.Numero(u"factorponderacion"))});
}

void ponerDatos(const Pagina &p, const Recordset &item) {
    const auto codigo = [&](const char *control, QStringView columna) {
        p.poner(control, item.Texto(columna));
    };
    codigo("LbPos", u"NCM");
    codigo("TxtNaladisa", u"naladisa");
    codigo("TxtLista", u"Lista");
    codigo("TxtEstadoMerc", u"estadomerc");
    p.poner("LbEstMerc", getEstadoMercaderiaDescripcion(p.ctx, item.Texto(u"estadomerc")));
    codigo("TxtIdpais", u"Idpais");
    p.poner("LbDescPais", getPaisDescripcion(p.ctx, item.Texto(u"Idpais")));
    codigo("TxtIdproc", u"idproc");
    p.poner("LbDest", getPaisDescripcion(p.ctx, item.Texto(u"idproc")));
    p.monto("TxtTotKgNeto", item.Numero(u"totalkneto"));
    p.monto("TxtKgBruto", item.Numero(u"totalkbruto"));
    const QString unidad = item.Texto(u"idunidad");
    p.poner("TxtCantidad", (conMascara(item.Numero(u"Cantidad")) + QLatin1Char(' ') + unidad +
                            QLatin1Char(' ') + getUnidadDescripcion(p.ctx, unidad))
                               .trimmed());
    codigo("TxtUnidEst", u"estadistica");
    p.monto("Txt", item.Numero(u"valorrelacionestadistica"));
    codigo("TxtDerEsp", u"deresp");
    p.monto("TxtValorDerEsp", item.Numero(u"valorderesp"));
    p.monto("txtItComExt", item.Numero(u"itcomext"));
    p.poner("TxtCOEF", comoNumero(item.Numero(u"cofexp")));
    p.monto("TxtAjusteInc", item.Numero(u"ajusteinc"));
    p.monto("txtAjusteDed", item.Numero(u"ajusteded"));
    const QStringView mascara = p.v.item == L("0") ? QStringView(u"00.000000") : QStringView(u"00.00");
    p.poner("OLDTxtInsCons", numeros::Format(item.Numero(u"insumostemp"), mascara));
    p.poner("txtConsumo", numeros::Format(item.Numero(u"insumosacons"), mascara));
    codigo("TxtCodPror", u"codprorrateo");
    codigo("TxtReg", u"regalias");
    codigo("TxtStan", u"standard");
    codigo("txtTipoItem", u"tipoitem");
    codigo("txtItemAsociado", u"ItemAsociado");
    p.poner("chkMineria", item.Texto(u"Mineria") == L("S") ? QStringLiteral("S") : QStringLiteral("N"));
    p.poner("cboOpcionIVA", OpcionIVATexto(OpcionIVAIndice(item.Texto(u"OpcionesIVA"))));
    p.poner("cboOpcionesGanancias",
            OpcionGananciasTexto(OpcionGananciasIndice(item.Texto(u"OpcionesGanancias"))));
    static constexpr std::pair<const char *, const char16_t *> oncca[] = {
        {"txtAcuerdo", u"ONCCAAcuerdo"}, {"txtCategoria", u"ONCCACategoria"},
        {"txtCorte", u"ONCCACortes"},    {"txtElaborador", u"ONCCAElaborador"},
        {"txtEspecie", u"ONCCAEspecie"}, {"txtFaneador", u"ONCCAFaneador"},
        {"txtEOC", u"ONCCAMeccoorgbio"}, {"txtRes3106", u"ONCCAres3106"},
        {"txtSisProd", u"ONCCAsispro"},  {"txtMatadero", u"ONCCAMatadero"}};
    for (const auto &[control, columna] : oncca) codigo(control, columna);
    p.v.LbLapi = item.Texto(u"LAPI") == L("S");
    p.v.esCancelacion = item.Texto(u"cancelaciones") == L("OK");
    p.v.bienDeUso = item.Texto(u"Biendeuso") == L("S");
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
    p.consultar(L("select sum(fobtotal) as fob,sum(itflete) as flete,sum(itseguro) as seguro from item where "
                  "interno = '") +
                    p.interno + L("' and id<>0"),
                rs);
    c.FOBTotalITEM = rs.Numero(u"fob");
    c.FLETETotalITEM = rs.Numero(u"flete");
    c.SEGUROTotalITEM = rs.Numero(u"seguro");
    c.AJUSTEINCLUIRtotalITEM = r.sumaAjusteInc;
    c.AJUSTEDEDUCIRtotalITEM = r.sumaAjusteDed;
    ponerImportes(p, c, r.sumaBaseImponible, r.sumaBaseIVA);
    p.v.lbTOTALG = conMascara(r.totalP);
    p.v.lbTOTGAR = comoNumero(r.totalG);
    p.v.lbTOTCOB = comoNumero(r.totalC);
    p.v.grilla = std::move(r.grilla);
}

/// False with the word to the user when the position ends the load.
bool verItem(const Pagina &p, const Recordset &item, ClassLiquidacion &c) {
    bool lapi = false;
    const CargaDePosicion carga = CargarItemEnCalculadora(p.ctx, p.interno, item, c, true, lapi);
    if (carga != CargaDePosicion::Encontrada) {
        p.v.aviso = carga == CargaDePosicion::MalFormada
                        ? QStringLiteral("Estructura de NCM incorrecta")
                        : QStringLiteral("La Posición ") + PosicionDeItem(item) +
                              QStringLiteral(" no esta en el nomenclador");
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
    QStringList numeros;
    Recordset rs;
    for (Consultar(ctx, internos, L("select id from item where interno = '") + interno + L("' order by id"),
                   rs);
         !rs.Eof(); rs.MoveNext())
        numeros << rs.Texto(u"id");
    return numeros;
}

VistaDeItem VerDetalleITEM(AppContext &ctx, const QString &interno, const QString &item,
                           bool paginaDeLiquidacion, ClassLiquidacion &calculo,
                           const std::function<void(const QString &)> &estado) {
    const Reloj reloj(ctx.dialogos);
    VistaDeItem v;
    v.item = item;
    const Pagina p{ctx, interno, v};
    if (!CargarCaratulaEnCalculadora(ctx, interno, calculo)) return v;
    v.idsubreg = calculo.CaratulaSubRegimen;
    v.cantidadDeItems = static_cast<int>(ItemsDeOperacion(ctx, interno).size()) - 1;
    Recordset fila;
    if (!p.consultar(L("select * from item where interno = '") + interno + L("' and id = ") + item, fila))
        return v;
    const bool recalcular = paginaDeLiquidacion || ctx.LiquidacionPendiente;
    if (item == L("0")) {
        leerListas(p);
        verItemCero(p, recalcular, calculo, estado);
    } else {
        leerGrupos(p);
        leerCertificados(p);
        leerListas(p);
        if (!verItem(p, fila, calculo)) return v;
        leerCancelaciones(p);
    }
    ponerDatos(p, fila);
    v.cargada = true;
    return v;
}
