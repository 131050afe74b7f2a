#include "assembly/run.h"

#include <algorithm>
#include <array>

#include "assembly/sql_text.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"
#include "header/automotive.h"
#include "header/changes.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

bool esIC(const ContextoArmado &r) {
    return r.idsubreg.left(2).toUpper() == "IC"_L1;
}

/// Outside the IC regimes nobody is asked about the external tariff: the stored answer is No.
void negarAEC(ContextoArmado &r) {
    if (!esIC(r)) GuardarAEC(r.ctx, r.interno, u"N"_s);
}

/// A reason of a temporary operation, the flag of the context it sets and the name of its row.
struct Decreto {
    const char *motivo;
    QString MotivoDecreto::*bandera;
    const char *fila;
};
constexpr std::array<Decreto, 5> decretos{{
    {"DTO.1439/96", &MotivoDecreto::d1439_96, "1439/96"},
    {"D1439/96-AI", &MotivoDecreto::d1439_96A1, "1439/96A1"},
    {"D1330/04-A6", &MotivoDecreto::d1330_04A6, "D1330/04A6"},
    {"D1330/04-A7", &MotivoDecreto::d1330_04A7, "D1330/04A7"},
    {"D1330/04-A8", &MotivoDecreto::d1330_04A8, "D1330/04A8"},
}};

void insertarBandera(const ContextoArmado &r, QLatin1StringView bandera, QLatin1StringView valor) {
    r.ejecutar("insert into SYSFLAG (flag,valor,item,interno) values ('"_L1 + bandera + "','"_L1 + valor +
               "',0,"_L1 + EnComillas(r.interno) + ')'_L1);
}

void advertirSinDescripcion(const ContextoArmado &r) {
    const OpcionesDeArmado &o = r.opciones;
    if (!r.esDJAI() || !o.sinDescripcion || r.descripcionForzada || o.modo == ModoDescripcion::Mezcla) return;
    r.ctx.dialogos.informar(
        u"ADVERTENCIA: El sistema no envía la descripción de mercadería, ni lo tiene encuenta para el armado "
        u"de "
        "ítems, requerido por DJAI.\r\n\r\nEs su responsabilidad cargar la descripción correspondiente en el SIM."_s);
}

void preguntarCoeficiente(ContextoArmado &r) {
    r.opciones.ChCOEF = false;
    if (r.idsubreg.startsWith('E'_L1)) {
        Pregunta p;
        p.texto =
            u"calculo del coeficiente de Exportación\r\n\r\n¿Los derechos y demás tributos están incluidos "
            u"en el "
            "precio FOB declarado?"_s;
        r.opciones.ChCOEF = r.ctx.dialogos.preguntar(p);
    }
    r.ctx.CalcularCoeficiente = r.opciones.ChCOEF;
    // The dashboard stands behind the run's screen: its box and its label follow.
    r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, u"ChCOEF"_s, r.opciones.ChCOEF ? 1 : 0, 1, {}});
    r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, u"LbSubregimen"_s, 0, 100, r.idsubreg});
}

void borrarDerivados(const ContextoArmado &r) {
    for (const char *tabla : {"groupsubitems", "idrel", "itemliq", "itemventaja", "iteminfo"})
        r.ejecutar("delete from "_L1 + QLatin1StringView(tabla) + " where interno = "_L1 +
                   EnComillas(r.interno));
}

/// Tells the input-records service the number of each item that consumes inputs, with its root lines.
Fase enviarItems(ContextoArmado &r) {
    if (!r.go_InputsLink) return Fase::Sigue;
    constexpr auto paso = PasoArmado::ActualizandoInsumos;
    r.ctx.dialogos.avance({Avance::Tipo::MostrarPaso, static_cast<int>(paso), u"lbInsumos"_s, 0, 100,
                           TextosDePasos().at(static_cast<int>(paso))});
    MarcarCorriendo(r, paso);
    if (EsRegimenConInsumos(r.idsubreg)) {
        Recordset items;
        r.consultar("select id from item where interno = "_L1 + EnComillas(r.interno) +
                        " and cancelaciones = 'OK'"_L1,
                    items);
        for (; !items.Eof(); items.MoveNext()) {
            const QString id = items.Texto(u"id");
            Recordset grupos;
            QStringList lineas;
            r.consultar("select idsub from groupsubitems where interno = "_L1 + EnComillas(r.interno) +
                            " and id = "_L1 + id,
                        grupos);
            for (; !grupos.Eof(); grupos.MoveNext()) lineas << grupos.Texto(u"idsub");
            if (!r.go_InputsLink->EnviarNroItem(static_cast<qint64>(items.Numero(u"id")),
                                                lineas.join('|'_L1))) {
                r.ctx.ChequeoArmado = u"NO"_s;
                return Fase::Corta;
            }
            r.ctx.dialogos.atenderEventos();
        }
    }
    MarcarHecho(r, paso);
    return Fase::Sigue;
}

void pedirTLR1(ContextoArmado &r) {
    Entrada entrada;
    entrada.titulo = u"NÚMERO TLR1"_s;
    entrada.texto = u"Por favor, ingrese el número de TLR1 (NRO.DECLAR-TLR1)"_s;
    const QString numero = r.ctx.dialogos.pedirTexto(entrada).value_or(QString());
    if (!numero.trimmed().isEmpty()) AgregarInformacionAdicional(r, 1, u"NRO.DECLAR-TLR1"_s, numero);
    r.ejecutar("exec ProcesarDescargasconTLR1 "_L1 + EnComillas(r.interno));
}

// The run in five stretches; together they are its 27 steps, whose number stands in `paso` for the error box.

void abrirCorrida(ContextoArmado &r) {
    r.paso = 1;
    MarcarCorriendo(r, PasoArmado::RevalidandoSufijos);
    r.paso = 2;
    r.ejecutar("delete from SYSFLAG where interno = "_L1 + EnComillas(r.interno));
    LeerCaratula(r);
    r.paso = 3;
    advertirSinDescripcion(r);
    r.paso = 4;
    FijarDecreto(r);
    r.paso = 5;
    negarAEC(r);
    r.paso = 6;
    r.cstaimpexp = DireccionRegimen(r.ctx, r.idsubreg);
    preguntarCoeficiente(r);
    r.paso = 7;
    borrarDerivados(r);
}

Fase prepararLineas(ContextoArmado &r) {
    r.paso = 8;
    NormalizarLineas(r);
    if (ControlarDescripciones(r) == Fase::Corta) return Fase::Corta;
    r.paso = 9;
    if (RevalidarSufijos(r) == Fase::Corta) return Fase::Corta;
    MarcarHecho(r, PasoArmado::RevalidandoSufijos);
    return Fase::Sigue;
}

Fase armarGrupos(ContextoArmado &r) {
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
    if (r.ctx.opciones.VrySbtDup == "S"_L1) lp_BuscarDuplicados(r);
    UnificarIdRELbyInterno(r);
    return Fase::Sigue;
}

void armarItems(ContextoArmado &r) {
    r.paso = 13;
    MarcarCorriendo(r, PasoArmado::VerificadoKiloBruto);
    ControlarKiloBruto(r);
    MarcarHecho(r, PasoArmado::VerificadoKiloBruto);
    MarcarCorriendo(r, PasoArmado::GenerarItems);
    r.paso = 14;
    r.ejecutar("delete from item where interno = "_L1 + EnComillas(r.interno));
    r.ejecutar("update groupsubitems set fob = "_L1 + SqlRound(r.ctx, u"INTERNOS"_s, u"fob"_s, u"00.00") +
               " where interno = "_L1 + EnComillas(r.interno));
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
    negarAEC(r);
    r.paso = 18;
    MarcarCorriendo(r, PasoArmado::VerificandoIntegridad);
    r.ejecutar("Update item set itmodif = '' where interno = "_L1 + EnComillas(r.interno));
    MarcarHecho(r, PasoArmado::VerificandoIntegridad);
    r.paso = 19;
    if (r.ctx.opciones.QUINDELRAF) ControlarTiposGD(r);
}

void cerrarCorrida(ContextoArmado &r) {
    r.paso = 20;
    if (enviarItems(r) == Fase::Corta) return;
    r.paso = 21;
    if (r.DCComExt > 0) ProrratearComExt(r, r.DCComExt, r.FobDeclarado);
    if (r.DCKgNeto > 0) Prorratear_ItemCeroEx(r, r.DCKgNeto);
    if (r.esSQL()) ProcesarVentajasVinculadas(r);
    r.paso = 22;
    MarcarCorriendo(r, PasoArmado::VerificandoMarcas);
    VerificarMarcasNcm(r);
    MarcarHecho(r, PasoArmado::VerificandoMarcas);
    r.paso = 23;
    VerificarIntegridad(r);  // what it finds is shown, and does not stop the run
    r.paso = 24;
    if (r.idsubreg == "TLR1"_L1)
        r.ejecutar("delete from itemventaja where interno = "_L1 + EnComillas(r.interno));
    r.paso = 25;
    if (r.idsubreg == "ICR3"_L1) pedirTLR1(r);
    r.paso = 26;
    if (r.esDJAI() && r.opciones.modo == ModoDescripcion::Mezcla && r.esSQL())
        MezclarDescripcionITEM(r, r.DC_DJAI_DescripcionMercaderia);
    r.paso = 27;
}

void correr(ContextoArmado &r) {
    abrirCorrida(r);
    if (prepararLineas(r) == Fase::Corta) return;
    if (armarGrupos(r) == Fase::Corta) return;
    armarItems(r);
    cerrarCorrida(r);
}

void mostrarFalla(const ContextoArmado &r, const Falla &e) {
    r.ctx.dialogos.critico(QString::number(e.numero) + " - "_L1 + e.fuente + " [ArmarItem.Generar]:"_L1 +
                               QString::number(r.paso) + " : "_L1 + e.descripcion,
                           {}, true);
}

}  // namespace

qint64 ContextoArmado::ejecutar(const QString &sql) const {
    return Ejecutar(ctx, u"INTERNOS"_s, sql);
}

bool ContextoArmado::consultar(const QString &sql, Recordset &rs, const QString &entidad) const {
    return Consultar(ctx, entidad, sql, rs);
}

const QStringList &TextosDePasos() {
    static const QStringList textos{
        u"Revalidando sufijos..."_s, u"Agrupar SubItem's"_s,      u"Verificando y Generando Prorrateo"_s,
        u"Verificado Kilo Bruto"_s,  u"Generar Item's"_s,         u"Armar Registros de Liquidación"_s,
        u"Terminar Proceso"_s,       u"Verificando Integridad"_s, u"Verificando Marcas de NCM"_s,
        u"Actualizando Insumos"_s,
    };
    return textos;
}

static void marcar(const ContextoArmado &r, Avance::Tipo tipo, PasoArmado paso) {
    const int cual = static_cast<int>(paso);
    r.ctx.dialogos.avance({tipo, cual, {}, 0, 100, TextosDePasos().at(cual)});
    r.ctx.dialogos.atenderEventos();
}

void MarcarCorriendo(ContextoArmado &r, PasoArmado paso) {
    marcar(r, Avance::Tipo::PasoCorriendo, paso);
}

void MarcarHecho(ContextoArmado &r, PasoArmado paso) {
    marcar(r, Avance::Tipo::PasoHecho, paso);
}

void LeerCaratula(ContextoArmado &r) {
    Recordset rs;
    r.consultar(
        "SELECT "
        "idsubreg,cuitcliente,FOBDIVISAS,VALORAPRORRATEAR,fletedivisas,segurodivisas,motivodestsuspensiva,"
        "DCEstMerc, DCForzarEstMerc, DCPaisOrigen, DCForzarPaisOrigen, DCPaisDestino, DCStandard, "
        "DCRegalias, "
        "DCKgNeto, DCComExt, ONCCAAcuerdo, ONCCAElaborador, ONCCAEspecie, ONCCAFaneador, ONCCAMatadero, "
        "ONCCAMeccoorgbio, ONCCARes3106, ONCCASisPro, ONCCACategoria, ONCCACortes, OpcionesIVA, "
        "OpcionesGanancias, "
        "DATOCOMPRADOR, NROTRANSINTER, DC_DJAI_ForzarDescripcionMercaderia, DC_DJAI_DescripcionMercaderia  "
        "FROM "
        "CARATULA where interno = "_L1 +
            EnComillas(r.interno),
        rs);
    struct Texto {
        QStringView columna;
        QString ContextoArmado::*campo;
    };
    static const std::array<Texto, 20> textos{{
        {u"idsubreg", &ContextoArmado::idsubreg},
        {u"cuitcliente", &ContextoArmado::cuitcliente},
        {u"motivodestsuspensiva", &ContextoArmado::motivodestsuspensiva},
        {u"DCEstMerc", &ContextoArmado::DCEstMerc},
        {u"DCPaisOrigen", &ContextoArmado::DCPaisOrigen},
        {u"DCPaisDestino", &ContextoArmado::DCPaisDestino},
        {u"DCStandard", &ContextoArmado::DCStandard},
        {u"DCRegalias", &ContextoArmado::DCRegalias},
        {u"ONCCAAcuerdo", &ContextoArmado::ONCCAAcuerdo},
        {u"ONCCAElaborador", &ContextoArmado::ONCCAElaborador},
        {u"ONCCAEspecie", &ContextoArmado::ONCCAEspecie},
        {u"ONCCAFaneador", &ContextoArmado::ONCCAFaneador},
        {u"ONCCAMatadero", &ContextoArmado::ONCCAMatadero},
        {u"ONCCAMeccoorgbio", &ContextoArmado::ONCCAMeccoorgbio},
        {u"ONCCARes3106", &ContextoArmado::ONCCARes3106},
        {u"ONCCASisPro", &ContextoArmado::ONCCASisPro},
        {u"ONCCACategoria", &ContextoArmado::ONCCACategoria},
        {u"ONCCACortes", &ContextoArmado::ONCCACortes},
        {u"OpcionesIVA", &ContextoArmado::OpcionesIVA},
        {u"OpcionesGanancias", &ContextoArmado::OpcionesGanancias},
    }};
    for (const Texto &t : textos) r.*t.campo = rs.Texto(t.columna);
    r.idsubreg = RegimenEnMayusculas(r.idsubreg);
    r.fobdivisas = rs.Numero(u"FOBDIVISAS");
    r.valoraprorratear = rs.Numero(u"VALORAPRORRATEAR");
    r.fletedivisas = rs.Numero(u"fletedivisas");
    r.segurodivisas = rs.Numero(u"segurodivisas");
    r.DCKgNeto = rs.Numero(u"DCKgNeto");
    r.DCComExt = rs.Numero(u"DCComExt");
    r.DCForzarEstMerc = rs.Texto(u"DCForzarEstMerc") == "S"_L1;
    r.DCForzarPaisOrigen = rs.Texto(u"DCForzarPaisOrigen") == "S"_L1;
    r.DATOCOMPRADOR = rs.Texto(u"DATOCOMPRADOR").trimmed();
    r.NROTRANSINTER = rs.Texto(u"NROTRANSINTER").trimmed();
    r.descripcionForzada = rs.Texto(u"DC_DJAI_ForzarDescripcionMercaderia") == "S"_L1;
    r.DC_DJAI_DescripcionMercaderia =
        rs.Texto(u"DC_DJAI_DescripcionMercaderia").trimmed().replace("\r\n"_L1, " "_L1);
    if (r.descripcionForzada) {
        r.opciones.sinDescripcion = true;
        r.opciones.modo = ModoDescripcion::Ninguno;
    }
}

void FijarDecreto(ContextoArmado &r) {
    r.ctx.decreto = MotivoDecreto();
    if (EsRegimenTemporal(r.idsubreg)) {
        const QString motivo = r.motivodestsuspensiva.trimmed();
        const auto *d = std::find_if(decretos.begin(), decretos.end(), [&](const Decreto &uno) {
            return motivo == QLatin1StringView(uno.motivo);
        });
        if (d != decretos.end()) {
            r.ctx.decreto.*(d->bandera) = u"S"_s;
            insertarBandera(r, QLatin1StringView(d->fila), "S"_L1);
            return;
        }
    }
    insertarBandera(r, "1439/96"_L1, "N"_L1);
    insertarBandera(r, "1439/96A1"_L1, "N"_L1);
}

bool Generar(AppContext &ctx, const QString &interno, const OpcionesDeArmado &opciones) {
    const Reloj reloj(ctx.dialogos);
    ContextoArmado r{ctx, interno};
    r.opciones = opciones;
    r.go_InputsLink = insumos::Enlazar();
    bool seCierra = true;
    const auto conManejador = [&](const auto &hacer) {
        try {
            hacer();
        } catch (const Falla &e) {
            mostrarFalla(r, e);
            seCierra = false;
        }
    };
    conManejador([&] {
        r.internos().escrituraLigera(true);
        correr(r);
    });
    // Not left to a destructor: that the disk took everything may fail, and the user has to hear of it.
    conManejador([&] { r.internos().escrituraLigera(false); });
    return seCierra;
}
