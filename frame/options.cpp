#include "frame/options.h"

#include "frame/base/ini.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString general = u"GENERAL"_s;
const QString zendra = u"ZENDRA"_s;
const QString obj = u"OBJ"_s;
const QString enlace = u"oInputsLink"_s;
const QString config = u"CONFIG"_s;

QString letra(bool si) {
    return si ? u"S"_s : u"N"_s;
}

QString conSeparador(const AppContext &ctx, double valor) {
    QString texto = numeros::aTexto(valor);
    return ReemplazarSeparadorDecimal(texto, ctx.SeparadorDecimal);
}

/// Writes keys into the configuration file and remembers whether all could be written.
struct Escritor {
    const QString &archivo;
    bool ok = true;

    void texto(const char *clave, const QString &valor, const QString &seccion = general) {
        ok = EscribirIni(seccion, L(clave), valor, archivo) && ok;
    }
    void bandera(const char *clave, bool valor, bool &opcion) {
        texto(clave, letra(valor));
        opcion = valor;
    }
    void nivel(const char *clave, bool valor, int &opcion) {
        texto(clave, letra(valor));
        opcion = valor ? 2 : 1;
    }
    void letras(const char *clave, bool valor, QString &opcion) {
        texto(clave, letra(valor));
        opcion = letra(valor);
    }
    void tasa(const char *clave, const QString &valor, double &opcion) {
        if (valor.trimmed().isEmpty()) return;
        texto(clave, valor.trimmed());
        if (numeros::esNumerico(valor)) opcion = numeros::aNumero(valor);
    }
};

void avisarArchivo(const AppContext &ctx) {
    ctx.dialogos.critico(
        u"No se pudo escribir el archivo de configuración %1: revise que la "
        "carpeta exista y permita guardar."_s.arg(ctx.ConfigFilePath));
}

void guardarImpresora(Escritor &e, Opciones &o, const QString &impresora) {
    // An empty selection keeps the old printer.
    if (impresora.isEmpty()) return;
    e.texto("DEVICENAME", impresora);
    o.DEVICENAME = impresora;
    o.DRIVERNAME.clear();
    o.PORT.clear();
}

void guardarInsumos(AppContext &ctx, const ValoresConGen &v) {
    const bool hay = ctx.opciones.TempInputsAvailable;
    ctx.opciones.RestarPerMer = hay && v.chINSTEMPPerMer;
    ctx.ajustes.Guardar(zendra, obj, u"INSTMP.RestarPerMer"_s, letra(ctx.opciones.RestarPerMer));
    ctx.ajustes.Guardar(enlace, config, u"opVDE"_s, letra(hay && v.chINSTEMPVDE));
}

Veredicto guardarDiemChina(AppContext &ctx, Escritor &e, const ValoresConGen &v) {
    if (!numeros::esNumerico(v.txtIndMaxArancel)) {
        ctx.dialogos.advertir(u"El campo Indice Maximo Arancel debe tener un valor númerico"_s);
        return Veredicto::mal(u"txtIndMaxArancel"_s);
    }
    if (!numeros::esNumerico(v.txtPrefPorc)) {
        ctx.dialogos.advertir(u"El campo Preferencia Porcentual debe tener un valor númerico"_s);
        return Veredicto::mal(u"txtPrefPorc"_s);
    }
    e.texto("DIEMCHINA-IndMaxArancel", v.txtIndMaxArancel.trimmed());
    e.texto("DIEMCHINA-PrefPorc", v.txtPrefPorc.trimmed());
    ctx.opciones.DIEMCHINA_IndMaxArancel = numeros::aNumero(v.txtIndMaxArancel);
    ctx.opciones.DIEMCHINA_PrefPorc = numeros::aNumero(v.txtPrefPorc);
    return Veredicto::bien();
}

}  // namespace

ValoresConGen LeerConGen(const AppContext &ctx, const QStringList &impresoras) {
    const Opciones &o = ctx.opciones;
    const auto leer = [&ctx](const char *clave) { return LeerIni(general, L(clave), ctx.ConfigFilePath); };
    ValoresConGen v;
    v.rutaLabel = ctx.ConfigFilePath;
    v.textIniciales = leer("INICIALES").left(2);
    v.cboListado = o.LISTADO == 1 ? 1 : 0;
    v.chByArt = o.GROUPBYART;
    v.Check1 = o.MODIFCAT == 2;
    v.Check2 = o.PRIMR100 == 2;
    v.Check3 = o.VALORCAT == 2;
    v.Check4 = o.FlgIdArtTOOtros;
    v.opARMARITEM1 = o.ARMARITEM == 1;
    v.chVfySbtDup = o.VrySbtDup == "S"_L1;
    v.chSbtNroArtAI = o.SbtNroArtAI;
    v.Chk_NoCalcularLiquidacion = o.NOCALCLIQU;
    v.insumosHabilitados = o.TempInputsAvailable;
    if (v.insumosHabilitados) {
        v.chINSTEMPPerMer = ctx.ajustes.Leer(zendra, obj, u"INSTMP.RestarPerMer"_s) == "S"_L1;
        v.chINSTEMPVDE = ctx.ajustes.Leer(enlace, config, u"opVDE"_s) == "S"_L1;
    }
    if (impresoras.contains(o.DEVICENAME)) v.LstImpresoras = o.DEVICENAME;
    // A rate that the file does not tell stays blank, so that ESC writes none.
    if (!leer("IVARIN").trimmed().isEmpty()) v.txtRIN = conSeparador(ctx, o.IVARIN);
    if (!leer("IVARNI").trimmed().isEmpty()) v.TxtRNI = conSeparador(ctx, o.IVARNI);
    v.chFlgArtModSub = o.MODARTSUB == "S"_L1;
    v.chSbtMantCodart = o.SbtMantCodart;
    v.chSbtMantDatos = o.SbtMantDatos;
    v.chSbtMostrarAsc = o.SbtMostrarAsc;
    v.chkEnviarComExt = o.EnviarComExt;
    v.chkSBTForzarARTenAI = o.SbtForzarNroArtAI;
    v.chVendedorxNombre = o.VendedorOrderxNombre;
    v.chCANCSinStock = o.CancelManual;
    v.chSbtFuncionCargaPor = o.SbtFuncionCargaPor;
    v.chkMostrarOperaciones = o.OperacionesMostrarTODO;
    v.chResponderOpcionesObligatorio = o.Responder_Opciones_Obligatorio;
    v.chkNoMandarDescripcionenITEM = o.NoEnviarDescripcionAlITEM;
    v.txtIndMaxArancel = conSeparador(ctx, o.DIEMCHINA_IndMaxArancel);
    v.txtPrefPorc = conSeparador(ctx, o.DIEMCHINA_PrefPorc);
    return v;
}

Veredicto GuardarConGen(AppContext &ctx, const ValoresConGen &v) {
    Opciones &o = ctx.opciones;
    Escritor e{ctx.ConfigFilePath};
    e.texto("INICIALES", v.textIniciales.toUpper().left(2));
    e.texto("LISTADO", QString::number(v.cboListado));
    o.LISTADO = v.cboListado;
    e.bandera("GROUPBYART", v.chByArt, o.GROUPBYART);
    e.nivel("MODIFCAT", v.Check1, o.MODIFCAT);
    e.nivel("PRIMR100", v.Check2, o.PRIMR100);
    e.nivel("VALORCAT", v.Check3, o.VALORCAT);
    e.bandera("FlgIdArtTOOtros", v.Check4, o.FlgIdArtTOOtros);
    o.ARMARITEM = v.opARMARITEM1 ? 1 : 2;
    e.texto("ARMARITEM", QString::number(o.ARMARITEM));
    e.letras("VrySbtDup", v.chVfySbtDup, o.VrySbtDup);
    e.bandera("SbtNroArtAI", v.chSbtNroArtAI, o.SbtNroArtAI);
    e.bandera("NOCALCLIQU", v.Chk_NoCalcularLiquidacion, o.NOCALCLIQU);
    guardarInsumos(ctx, v);
    guardarImpresora(e, o, v.LstImpresoras);
    e.tasa("IVARIN", v.txtRIN, o.IVARIN);
    e.tasa("IVARNI", v.TxtRNI, o.IVARNI);
    e.letras("MODARTSUB", v.chFlgArtModSub, o.MODARTSUB);
    e.bandera("SbtMantCodart", v.chSbtMantCodart, o.SbtMantCodart);
    e.bandera("SbtMantDatos", v.chSbtMantDatos, o.SbtMantDatos);
    e.bandera("SbtMostrarAsc", v.chSbtMostrarAsc, o.SbtMostrarAsc);
    e.bandera("EnviarComExt", v.chkEnviarComExt, o.EnviarComExt);
    e.bandera("SbtForzarNroArtAI", v.chkSBTForzarARTenAI, o.SbtForzarNroArtAI);
    e.bandera("VendedorOrderxNombre", v.chVendedorxNombre, o.VendedorOrderxNombre);
    o.CancelManual = v.chCANCSinStock;
    ctx.ajustes.Guardar(general, obj, u"CancelManual"_s, letra(v.chCANCSinStock));
    e.bandera("SbtFuncionCargaPor", v.chSbtFuncionCargaPor, o.SbtFuncionCargaPor);
    e.bandera("OperacionesMostrarTODO", v.chkMostrarOperaciones, o.OperacionesMostrarTODO);
    e.bandera("Responder_Opciones_Obligatorio", v.chResponderOpcionesObligatorio,
              o.Responder_Opciones_Obligatorio);
    e.bandera("NoEnviarDescripcionAlITEM", v.chkNoMandarDescripcionenITEM, o.NoEnviarDescripcionAlITEM);
    Veredicto salida = guardarDiemChina(ctx, e, v);
    if (e.ok) return salida;
    avisarArchivo(ctx);
    return Veredicto::mal(salida.foco);
}

ValoresBase LeerBase(const AppContext &ctx) {
    const auto leer = [&ctx](const char *seccion, const char *clave) {
        return LeerIni(L(seccion), L(clave), ctx.ConfigFilePath);
    };
    return {leer("BASESERVER", "INTERNO"), leer("BASESERVER", "PERSONAL"), leer("BASESERVER", "NCM"),
            leer("BASESERVER", "ESTADO"), leer("BASELOCAL", "USUARIO")};
}

bool GuardarBase(AppContext &ctx, const ValoresBase &v) {
    struct Carpeta {
        const char *seccion;
        const char *clave;
        QString ValoresBase::*campo;
        const char *archivo;
        QString AppContext::*ruta;
    };
    // systablas is not among them: its path follows that of the operations at the next start.
    static constexpr Carpeta carpetas[] = {
        {"BASESERVER", "INTERNO", &ValoresBase::txtInterno, "internos.mdb", &AppContext::PathInternos},
        {"BASESERVER", "PERSONAL", &ValoresBase::TxtPersonal, "personal.mdb", &AppContext::PathPersonal},
        {"BASESERVER", "NCM", &ValoresBase::TxtNcm, "ncm.mdb", &AppContext::PathNcm},
        {"BASELOCAL", "USUARIO", &ValoresBase::TxtUsuario, "usuario.mdb", &AppContext::PathUsuario},
        {"BASESERVER", "ESTADO", &ValoresBase::TxtEstado, "estados.mdb", &AppContext::PathEstados}};
    Escritor e{ctx.ConfigFilePath};
    for (const Carpeta &c : carpetas) {
        const QString carpeta = TerminarEnBarra(v.*c.campo);
        e.texto(c.clave, carpeta, L(c.seccion));
        ctx.*c.ruta = carpeta + L(c.archivo);
    }
    if (!e.ok) avisarArchivo(ctx);
    return e.ok;
}
