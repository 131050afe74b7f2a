#include "assembly/run.h"

#include "frame/values.h"
#include "header/automotive.h"
#include "header/regime.h"

namespace {




void guardarAEC(ContextoArmado &r, const QString &valor) { GuardarAEC(r.ctx, r.interno, valor); }

bool empieza(const ContextoArmado &r, const char *prefijo) { return r.idsubreg.startsWith(QLatin1String(prefijo)); }

bool empiezaConIC(const ContextoArmado &r) { return r.idsubreg.left(2).toUpper() == QLatin1String("IC"); }

QString donde(const ContextoArmado &r, const char *sentencia) { return QLatin1String(sentencia) + r.interno + QLatin1String("'"); }

void leerCaratula(ContextoArmado &r) {
    Recordset rs;
    r.consultar(donde(r,
                      "SELECT idsubreg,cuitcliente,FOBDIVISAS,VALORAPRORRATEAR,fletedivisas,segurodivisas,motivodestsuspensiva,DCEstMerc, "
                      "DCForzarEstMerc, DCPaisOrigen, DCForzarPaisOrigen, DCPaisDestino, DCStandard, DCRegalias, DCKgNeto, DCComExt, "
                      "ONCCAAcuerdo, ONCCAElaborador, ONCCAEspecie, ONCCAFaneador, ONCCAMatadero, ONCCAMeccoorgbio, ONCCARes3106, "
                      "ONCCASisPro, ONCCACategoria, ONCCACortes, OpcionesIVA, OpcionesGanancias, DATOCOMPRADOR, NROTRANSINTER, "
                      "DC_DJAI_ForzarDescripcionMercaderia, DC_DJAI_DescripcionMercaderia  FROM CARATULA where interno = '"),
                rs);
    const QLatin1String si("S");
    r.idsubreg = rs.Texto(u"idsubreg");
    r.cuitcliente = rs.Texto(u"cuitcliente");
    r.fobdivisas = rs.Numero(u"FOBDIVISAS");
    r.valoraprorratear = rs.Numero(u"VALORAPRORRATEAR");
    r.fletedivisas = rs.Numero(u"fletedivisas");
    r.segurodivisas = rs.Numero(u"segurodivisas");
    r.motivodestsuspensiva = rs.Texto(u"motivodestsuspensiva").trimmed();
    r.DCEstMerc = rs.Texto(u"DCEstMerc");
    r.DCForzarEstMerc = rs.Texto(u"DCForzarEstMerc") == si;
    r.DCPaisOrigen = rs.Texto(u"DCPaisOrigen");
    r.DCForzarPaisOrigen = rs.Texto(u"DCForzarPaisOrigen") == si;
    r.DCPaisDestino = rs.Texto(u"DCPaisDestino");
    r.DCStandard = rs.Texto(u"DCStandard");
    r.DCRegalias = rs.Texto(u"DCRegalias");
    r.DCKgNeto = rs.Numero(u"DCKgNeto");
    r.DCComExt = rs.Numero(u"DCComExt");
    r.ONCCAAcuerdo = rs.Texto(u"ONCCAAcuerdo");
    r.ONCCAElaborador = rs.Texto(u"ONCCAElaborador");
    r.ONCCAEspecie = rs.Texto(u"ONCCAEspecie");
    r.ONCCAFaneador = rs.Texto(u"ONCCAFaneador");
    r.ONCCAMatadero = rs.Texto(u"ONCCAMatadero");
    r.ONCCAMeccoorgbio = rs.Texto(u"ONCCAMeccoorgbio");
    r.ONCCARes3106 = rs.Texto(u"ONCCARes3106");
    r.ONCCASisPro = rs.Texto(u"ONCCASisPro");
    r.ONCCACategoria = rs.Texto(u"ONCCACategoria");
    r.ONCCACortes = rs.Texto(u"ONCCACortes");
    r.OpcionesIVA = rs.Texto(u"OpcionesIVA");
    r.OpcionesGanancias = rs.Texto(u"OpcionesGanancias");
    r.DATOCOMPRADOR = rs.Texto(u"DATOCOMPRADOR").trimmed();
    r.NROTRANSINTER = rs.Texto(u"NROTRANSINTER").trimmed();
    r.descripcionForzada = rs.Texto(u"DC_DJAI_ForzarDescripcionMercaderia") == si;
    r.DC_DJAI_DescripcionMercaderia = rs.Texto(u"DC_DJAI_DescripcionMercaderia").trimmed().replace(QLatin1String("\r\n"), QLatin1String(" "));
    if (r.descripcionForzada) {
        r.opciones.sinDescripcion = true;
        r.opciones.modo = ModoDescripcion::Ninguno;
    }
}

void insertarFlag(ContextoArmado &r, const char *flag, const char *valor) {
    r.ejecutar(QLatin1String("insert into SYSFLAG (flag,valor,item,interno) values ('") + QLatin1String(flag) + QLatin1String("','") +
               QLatin1String(valor) + QLatin1String("',0,'") + r.interno + QLatin1String("')"));
}

/// The decree a temporary destination names.
void fijarDecretos(ContextoArmado &r) {
    struct Decreto {
        const char *motivo;
        QString MotivoDecreto::*marca;
        const char *flag;
    };
    static constexpr Decreto decretos[] = {{"DTO.1439/96", &MotivoDecreto::d1439_96, "1439/96"},
                                           {"D1439/96-AI", &MotivoDecreto::d1439_96A1, "1439/96A1"},
                                           {"D1330/04-A6", &MotivoDecreto::d1330_04A6, "D1330/04A6"},
                                           {"D1330/04-A7", &MotivoDecreto::d1330_04A7, "D1330/04A7"},
                                           {"D1330/04-A8", &MotivoDecreto::d1330_04A8, "D1330/04A8"}};
    r.ctx.decreto = MotivoDecreto();
    if (EsRegimenTemporal(r.idsubreg)) {
        for (const Decreto &d : decretos) {
            if (r.motivodestsuspensiva != QLatin1String(d.motivo)) continue;
            r.ctx.decreto.*d.marca = QStringLiteral("S");
            insertarFlag(r, d.flag, "S");
            return;
        }
    }
    insertarFlag(r, "1439/96", "N");
    insertarFlag(r, "1439/96A1", "N");
}

void preguntarCoeficiente(ContextoArmado &r) {
    r.cstaimpexp = DireccionRegimen(r.ctx, r.idsubreg);
    r.opciones.ChCOEF = empieza(r, "E") &&
                        r.ctx.dialogos.preguntar({QStringLiteral("calculo del coeficiente de Exportación\r\n\r\n¿Los derechos y demás "
                                                                 "tributos están incluidos en el precio FOB declarado?"),
                                                  {},
                                                  Icono::Pregunta,
                                                  false});
    r.ctx.CalcularCoeficiente = r.opciones.ChCOEF;
    r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, QStringLiteral("ChCOEF"), r.opciones.ChCOEF ? 1 : 0, 1, {}});
    r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, QStringLiteral("LbSubregimen"), 0, 0, r.idsubreg});
}

/// Every item whose lines took inputs tells the link its number.
Fase actualizarInsumos(ContextoArmado &r) {
    if (!r.go_InputsLink.presente()) return Fase::Sigue;
    r.ctx.dialogos.avance({Avance::Tipo::MostrarPaso, static_cast<int>(PasoArmado::ActualizandoInsumos), {}, 0, 0, {}});
    MarcarCorriendo(r, PasoArmado::ActualizandoInsumos);
    if (EsRegimenConInsumos(r.idsubreg) && r.go_InputsLink.EnviarNroItem) {
        Recordset items;
        for (r.consultar(QLatin1String("select id from item where interno = '") + r.interno + QLatin1String("' and cancelaciones = 'OK'"), items);
             !items.Eof(); items.MoveNext()) {
            const QString id = items.Texto(u"id");
            Recordset grupos;
            QStringList lista;
            for (r.consultar(QLatin1String("select idsub from groupsubitems where interno = '") + r.interno + QLatin1String("' and id = ") + id, grupos);
                 !grupos.Eof(); grupos.MoveNext())
                lista << grupos.Texto(u"idsub");
            if (!r.go_InputsLink.EnviarNroItem(id.toLongLong(), lista.join(QLatin1Char('|')))) {
                r.ctx.ChequeoArmado = QStringLiteral("NO");
                return Fase::Corta;
            }
        }
    }
    MarcarHecho(r, PasoArmado::ActualizandoInsumos);
    return Fase::Sigue;
}

void cierreICR3(ContextoArmado &r) {
    const auto numero = r.ctx.dialogos.pedirTexto(
        {QStringLiteral("NÚMERO TLR1"), QStringLiteral("Por favor, ingrese el número de TLR1 (NRO.DECLAR-TLR1)"), 255, {}});
    if (numero && !numero->trimmed().isEmpty()) AgregarInformacionAdicional(r, 1, QStringLiteral("NRO.DECLAR-TLR1"), *numero);
    r.ejecutar(donde(r, "exec ProcesarDescargasconTLR1 '"));
}

/// The steps in their order. Each number is the one the error box tells.
Fase correr(ContextoArmado &r) {
    const Dialogos &d = r.ctx.dialogos;
    r.paso = 1;
    MarcarCorriendo(r, PasoArmado::RevalidandoSufijos);
    r.paso = 2;
    r.ejecutar(donde(r, "delete from SYSFLAG where interno = '"));
    leerCaratula(r);
    r.paso = 3;
    if (r.esDJAI() && r.opciones.sinDescripcion && !r.descripcionForzada && r.opciones.modo != ModoDescripcion::Mezcla)
        d.informar(QStringLiteral("ADVERTENCIA: El sistema no envía la descripción de mercadería, ni lo tiene encuenta para el armado de "
                                  "ítems, requerido por DJAI.\r\n\r\nEs su responsabilidad cargar la descripción correspondiente en el SIM."));
    r.paso = 4;
    fijarDecretos(r);
    r.paso = 5;
    if (!empiezaConIC(r)) guardarAEC(r, QStringLiteral("N"));
    r.paso = 6;
    preguntarCoeficiente(r);
    r.paso = 7;
    for (const char *tabla : {"groupsubitems", "idrel", "itemliq", "itemventaja", "iteminfo"})
        r.ejecutar(QLatin1String("delete from ") + QLatin1String(tabla) + QLatin1String(" where interno = '") + r.interno + QLatin1String("'"));
    r.paso = 8;
    NormalizarLineas(r);
    if (ControlarDescripciones(r) == Fase::Corta) return Fase::Corta;
    r.paso = 9;
    if (RevalidarSufijos(r) == Fase::Corta) return Fase::Corta;
    MarcarHecho(r, PasoArmado::RevalidandoSufijos);
    MarcarCorriendo(r, PasoArmado::AgruparSubItems);
    r.paso = 10;
    AgruparLineas(r);
    MarcarHecho(r, PasoArmado::AgruparSubItems);
    MarcarCorriendo(r, PasoArmado::VerificandoProrrateo);
    r.paso = 11;
    LeerCliente(r);
    if (ProrratearValor(r) == Fase::Corta) return Fase::Corta;
    r.paso = 12;
    MarcarHecho(r, PasoArmado::VerificandoProrrateo);
    AplicarDatosComunesAGrupos(r);
    if (r.ctx.opciones.VrySbtDup == QLatin1String("S")) lp_BuscarDuplicados(r);
    UnificarIdRELbyInterno(r);
    r.paso = 13;
    MarcarCorriendo(r, PasoArmado::VerificadoKiloBruto);
    ControlarKiloBruto(r);
    MarcarHecho(r, PasoArmado::VerificadoKiloBruto);
    MarcarCorriendo(r, PasoArmado::GenerarItems);
    r.paso = 14;
    r.ejecutar(donde(r, "delete from item where interno = '"));
    r.ejecutar(QLatin1String("update groupsubitems set fob = ") + SqlRound(QStringLiteral("INTERNOS"), QStringLiteral("fob"), u"00.00") +
               QLatin1String(" where interno = '") + r.interno + QLatin1String("'"));
    DividirItemsGrandes(r);
    GenerarItems(r);
    ProrratearFleteYSeguro(r);
    AgregarItemCero(r);
    MarcarHecho(r, PasoArmado::GenerarItems);
    MarcarCorriendo(r, PasoArmado::ArmarLiquidacion);
    r.paso = 15;
    if (!r.ctx.opciones.NOCALCLIQU) ArmarRegistrosDeLiquidacion(r);
    VentajasDelCliente(r);
    MarcarHecho(r, PasoArmado::ArmarLiquidacion);
    MarcarCorriendo(r, PasoArmado::TerminarProceso);
    r.paso = 16;
    CierreDelRegimen(r);
    MarcarHecho(r, PasoArmado::TerminarProceso);
    r.paso = 17;
    MarcarArmado(r.ctx, r.interno, false);
    if (!empiezaConIC(r)) guardarAEC(r, QStringLiteral("N"));
    r.paso = 18;
    MarcarCorriendo(r, PasoArmado::VerificandoIntegridad);
    r.ejecutar(donde(r, "Update item set itmodif = '' where interno = '"));
    MarcarHecho(r, PasoArmado::VerificandoIntegridad);
    r.paso = 19;
    if (r.ctx.opciones.QUINDELRAF) ControlarTiposGD(r);
    r.paso = 20;
    if (actualizarInsumos(r) == Fase::Corta) return Fase::Corta;
    r.paso = 21;
    if (r.DCComExt > 0) ProrratearComExt(r, r.DCComExt, r.FobDeclarado);
    if (r.DCKgNeto > 0) Prorratear_ItemCeroEx(r, r.DCKgNeto);
    if (r.esSQL()) ProcesarVentajasVinculadas(r);
    r.paso = 22;
    VerificarMarcasNcm(r);
    r.paso = 23;
    VerificarIntegridad(r);
    r.paso = 24;
    if (r.idsubreg == QLatin1String("TLR1")) r.ejecutar(donde(r, "delete from itemventaja where interno = '"));
    r.paso = 25;
    if (r.idsubreg == QLatin1String("ICR3")) cierreICR3(r);
    r.paso = 26;
    if (r.esDJAI() && r.opciones.modo == ModoDescripcion::Mezcla && r.esSQL()) MezclarDescripcionITEM(r, r.DC_DJAI_DescripcionMercaderia);
    r.paso = 27;
    return Fase::Sigue;
}

}  // namespace

qint64 ContextoArmado::ejecutar(const QString &sql) const { return Ejecutar(ctx, QStringLiteral("INTERNOS"), sql); }

bool ContextoArmado::consultar(const QString &sql, Recordset &rs, const QString &entidad) const { return Consultar(ctx, entidad, sql, rs); }

const QStringList &TextosDePasos() {
    static const QStringList textos{QStringLiteral("Revalidando sufijos..."),         QStringLiteral("Agrupar SubItem's"),
                                    QStringLiteral("Verificando y Generando Prorrateo"), QStringLiteral("Verificado Kilo Bruto"),
                                    QStringLiteral("Generar Item's"),                 QStringLiteral("Armar Registros de Liquidación"),
                                    QStringLiteral("Terminar Proceso"),               QStringLiteral("Verificando Integridad"),
                                    QStringLiteral("Verificando Marcas de NCM"),      QStringLiteral("Actualizando Insumos")};
    return textos;
}

void MarcarCorriendo(ContextoArmado &r, PasoArmado paso) {
    r.ctx.dialogos.avance({Avance::Tipo::PasoCorriendo, static_cast<int>(paso), {}, 0, 0, TextosDePasos().at(static_cast<int>(paso))});
    r.ctx.dialogos.atenderEventos();
}

void MarcarHecho(ContextoArmado &r, PasoArmado paso) {
    r.ctx.dialogos.avance({Avance::Tipo::PasoHecho, static_cast<int>(paso), {}, 0, 0, TextosDePasos().at(static_cast<int>(paso))});
    r.ctx.dialogos.atenderEventos();
}

bool Generar(AppContext &ctx, const QString &interno, const OpcionesDeArmado &opciones, const EnlaceDeInsumos &enlace) {
    ContextoArmado r(ctx, interno);
    r.opciones = opciones;
    r.go_InputsLink = enlace;
    const Reloj reloj(ctx.dialogos);
    try {
        // Everything the run writes can be rebuilt by another; it is made durable once, at its end.
        const EscrituraLigera ligera(r.internos());
        correr(r);
        return true;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(QString::number(e.numero) + QLatin1String(" - ") + e.fuente + QLatin1String(" [ArmarItem.Generar]:") +
                                 QString::number(r.paso) + QLatin1String(" : ") + e.descripcion,
                             {}, true);
        return false;
    }
}

void MarcarArmado(AppContext &ctx, const QString &interno, bool pendiente) {
    Ejecutar(ctx, QStringLiteral("INTERNOS"),
             QLatin1String("update caratula set factura8 = '") + QLatin1String(pendiente ? "S" : "N") + QLatin1String("' where interno = '") + interno +
                 QLatin1String("'"));
}
