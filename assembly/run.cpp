#include "assembly/run.h"

#include "assembly/phases.h"
#include "frame/failures.h"
#include "frame/sqltext.h"
#include "header/automotive.h"
#include "header/changes.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

bool esIC(const ContextoArmado &r) {
    return r.idsubreg.startsWith("IC"_L1);
}

/// Outside the IC regimes nobody is asked about the external tariff: the stored answer is No.
void negarAEC(ContextoArmado &r) {
    if (!esIC(r)) GuardarAEC(r.ctx, r.interno, u"N"_s);
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
        r.consultar(
            u"select id from item "
            "where interno = %1 and cancelaciones = 'OK'"_s.arg(r.clave()),
            items);
        const auto sentencia = [&] {
            return u"select idsub from groupsubitems "
                   "where interno = %1 and id = %2"_s.arg(r.clave(), items.Texto(u"id"));
        };
        std::vector<QStringList> preguntas;
        for (; !items.Eof(); items.MoveNext()) preguntas.push_back({sentencia()});
        LecturaAdelantada adelantada(r.internos(), std::move(preguntas));
        for (items.MoveFirst(); !items.Eof(); items.MoveNext()) {
            Recordset grupos;
            QStringList lineas;
            adelantada.Vuelta();
            r.consultar(sentencia(), grupos);
            for (; !grupos.Eof(); grupos.MoveNext()) lineas << grupos.Texto(u"idsub");
            if (!r.go_InputsLink->EnviarNroItem(static_cast<qint64>(items.Numero(u"id")),
                                                lineas.join('|'_L1))) {
                r.ctx.ChequeoArmado = u"NO"_s;
                return Fase::Corta;
            }
            r.ctx.dialogos.atenderEventos();
        }
    }
    r.go_InputsLink->ReubicarItems(r.interno);
    MarcarHecho(r, paso);
    return Fase::Sigue;
}

void pedirTLR1(ContextoArmado &r) {
    Entrada entrada;
    entrada.titulo = u"NÚMERO TLR1"_s;
    entrada.texto = u"Por favor, ingrese el número de TLR1 (NRO.DECLAR-TLR1)"_s;
    const QString numero = r.ctx.dialogos.pedirTexto(entrada).value_or(QString());
    if (!numero.trimmed().isEmpty()) AgregarInformacionAdicional(r, 1, u"NRO.DECLAR-TLR1"_s, numero);
    r.mandar("exec ProcesarDescargasconTLR1 "_L1 + r.clave());
}

// The run in five stretches. Between the phases stands the number that the error box tells.

void abrirCorrida(ContextoArmado &r) {
    r.entrar(1);
    MarcarCorriendo(r, PasoArmado::RevalidandoSufijos);
    r.entrar(2);
    r.mandar("delete from SYSFLAG where interno = "_L1 + r.clave());
    LeerCaratula(r);
    r.entrar(3);
    AdvertirSinDescripcion(r);
    r.entrar(4);
    FijarDecreto(r);
    r.entrar(5);
    negarAEC(r);
    r.entrar(6);
    r.cstaimpexp = DireccionRegimen(r.ctx, r.idsubreg);
    PreguntarCoeficiente(r);
    r.entrar(7);
    BorrarDerivados(r);
}

Fase prepararLineas(ContextoArmado &r) {
    r.entrar(8);
    NormalizarLineas(r);
    if (ControlarDescripciones(r) == Fase::Corta) return Fase::Corta;
    r.entrar(9);
    if (RevalidarSufijos(r) == Fase::Corta) return Fase::Corta;
    MarcarHecho(r, PasoArmado::RevalidandoSufijos);
    return Fase::Sigue;
}

Fase armarGrupos(ContextoArmado &r) {
    MarcarCorriendo(r, PasoArmado::AgruparSubItems);
    r.entrar(10);
    AgruparLineas(r);
    MarcarHecho(r, PasoArmado::AgruparSubItems);
    MarcarCorriendo(r, PasoArmado::VerificandoProrrateo);
    r.entrar(11);
    LeerCliente(r);
    if (ProrratearValor(r) == Fase::Corta) return Fase::Corta;
    r.entrar(12);
    MarcarHecho(r, PasoArmado::VerificandoProrrateo);
    AplicarDatosComunesAGrupos(r);
    if (r.ctx.opciones.VrySbtDup == "S"_L1) lp_BuscarDuplicados(r);
    UnificarIdRELbyInterno(r);
    return Fase::Sigue;
}

void armarItems(ContextoArmado &r) {
    r.entrar(13);
    MarcarCorriendo(r, PasoArmado::VerificadoKiloBruto);
    ControlarKiloBruto(r);
    MarcarHecho(r, PasoArmado::VerificadoKiloBruto);
    MarcarCorriendo(r, PasoArmado::GenerarItems);
    r.entrar(14);
    r.mandar("delete from item where interno = "_L1 + r.clave());
    r.mandar(
        u"update groupsubitems set fob = %1"
        " where interno = %2"_s.arg(SqlRound(r.ctx, u"INTERNOS"_s, u"fob"_s, u"00.00"), r.clave()));
    DividirItemsGrandes(r);
    GenerarItems(r);
    ProrratearFleteYSeguro(r);
    AgregarItemCero(r);
    MarcarHecho(r, PasoArmado::GenerarItems);
    MarcarCorriendo(r, PasoArmado::ArmarLiquidacion);
    r.entrar(15);
    if (!r.ctx.opciones.NOCALCLIQU) ArmarRegistrosDeLiquidacion(r);
    VentajasDelCliente(r);
    MarcarHecho(r, PasoArmado::ArmarLiquidacion);
    MarcarCorriendo(r, PasoArmado::TerminarProceso);
    r.entrar(16);
    CierreDelRegimen(r);
    MarcarHecho(r, PasoArmado::TerminarProceso);
    r.entrar(17);
    MarcarArmado(r.ctx, r.interno, false);
    negarAEC(r);
    r.entrar(18);
    MarcarCorriendo(r, PasoArmado::VerificandoIntegridad);
    r.mandar("Update item set itmodif = '' where interno = "_L1 + r.clave());
    MarcarHecho(r, PasoArmado::VerificandoIntegridad);
    r.entrar(19);
    if (r.ctx.opciones.QUINDELRAF) ControlarTiposGD(r);
}

void cerrarCorrida(ContextoArmado &r) {
    r.entrar(20);
    if (enviarItems(r) == Fase::Corta) return;
    r.entrar(21);
    if (r.DCComExt > 0) ProrratearComExt(r, r.DCComExt, r.FobDeclarado);
    if (r.DCKgNeto > 0) Prorratear_ItemCeroEx(r, r.DCKgNeto);
    if (r.esSQL()) ProcesarVentajasVinculadas(r);
    r.entrar(22);
    MarcarCorriendo(r, PasoArmado::VerificandoMarcas);
    VerificarMarcasNcm(r);
    MarcarHecho(r, PasoArmado::VerificandoMarcas);
    r.entrar(23);
    VerificarIntegridad(r);  // what it finds is shown, and does not stop the run
    r.entrar(24);
    if (r.idsubreg == "TLR1"_L1) r.mandar("delete from itemventaja where interno = "_L1 + r.clave());
    r.entrar(25);
    if (r.idsubreg == "ICR3"_L1) pedirTLR1(r);
    r.entrar(26);
    if (r.esDJAI() && r.opciones.modo == ModoDescripcion::Mezcla && r.esSQL())
        MezclarDescripcionITEM(r, r.DC_DJAI_DescripcionMercaderia);
    r.entrar(27);
}

void correr(ContextoArmado &r) {
    abrirCorrida(r);
    if (prepararLineas(r) == Fase::Corta) return;
    if (armarGrupos(r) == Fase::Corta) return;
    armarItems(r);
    cerrarCorrida(r);
}

void mostrarFalla(const ContextoArmado &r, const Falla &e) {
    ContarFalla(r.ctx, e,
                QString::number(e.numero) + " - "_L1 + e.fuente + " [ArmarItem.Generar]:"_L1 +
                    QString::number(r.paso) + " : "_L1 + e.descripcion,
                true);
}

}  // namespace

qint64 ContextoArmado::ejecutar(const QString &sql) const {
    return Ejecutar(ctx, u"INTERNOS"_s, sql);
}

void ContextoArmado::mandar(const QString &sql) const {
    Mandar(ctx, u"INTERNOS"_s, sql);
}

void ContextoArmado::asentar() const {
    internos().Asentar();
}

void ContextoArmado::entrar(int numero) {
    asentar();
    paso = numero;
}

bool ContextoArmado::consultar(const QString &sql, Recordset &rs, const QString &entidad) const {
    return Consultar(ctx, entidad, sql, rs);
}

double ContextoArmado::numero(const QString &sql, QStringView columna) const {
    Recordset rs;
    return consultar(sql, rs) ? rs.Numero(columna) : 0;
}

bool ContextoArmado::abrirActualizable(const QString &sql, Recordset &rs, const QString &tabla) const {
    internos().Sql = sql;
    return internos().crearrsActualizable(rs, tabla);
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
        EscrituraLigera ligera(r.internos());
        conManejador([&] { correr(r); });
        // Not left to the destructor: that the disk took everything may fail, and the user has to hear of it,
        // unless a failure was told that this one only follows.
        if (seCierra) ligera.Terminar();
    });
    return seCierra;
}
