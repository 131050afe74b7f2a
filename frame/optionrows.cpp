#include "frame/optionrows.h"

#include <array>

#include "frame/base/numbers.h"

using namespace Qt::StringLiterals;

namespace {

using C = ClaseDeOpcion;
using O = Opciones;
using T = TurnoDeCarga;

constexpr auto filas = std::to_array<FilaDeOpcion>({
    {"INICIALES", {}, C::Iniciales, "", "textIniciales"},
    {"LISTADO", &O::LISTADO, C::Lista, "0", "cboListado"},
    {"GROUPBYART", &O::GROUPBYART, C::Bandera, "N", "chByArt"},
    {"MODIFCAT", &O::MODIFCAT, C::Nivel, "N", "Check1"},
    {"PRIMR100", &O::PRIMR100, C::Nivel, "N", "Check2"},
    {"VALORCAT", &O::VALORCAT, C::Nivel, "N", "Check3"},
    {"FlgIdArtTOOtros", &O::FlgIdArtTOOtros, C::Bandera, "N", "Check4"},
    {"ARMARITEM", &O::ARMARITEM, C::Orden, "2", "opARMARITEM1"},
    {"VrySbtDup", &O::VrySbtDup, C::Letra, "N", "chVfySbtDup"},
    {"SbtNroArtAI", &O::SbtNroArtAI, C::Bandera, "N", "chSbtNroArtAI"},
    {"NOCALCLIQU", &O::NOCALCLIQU, C::Bandera, "N", "Chk_NoCalcularLiquidacion"},
    {"INSTMP.RestarPerMer", &O::RestarPerMer, C::BanderaDeInsumos, "N", "chINSTEMPPerMer", "ZENDRA/OBJ", "",
     T::TrasLasTasas},
    {"opVDE", &O::opVDE, C::BanderaDeInsumos, "N", "chINSTEMPVDE", "oInputsLink/CONFIG"},
    {"DEVICENAME", &O::DEVICENAME, C::Impresora, "", "LstImpresoras", "", "", T::TrasLasTasas},
    {"IVARIN", &O::IVARIN, C::Tasa, "0", "txtRIN", "", "", T::Tasas},
    {"IVARNI", &O::IVARNI, C::Tasa, "0", "TxtRNI", "", "", T::Tasas},
    {"MODARTSUB", &O::MODARTSUB, C::LetraRecortada, "N", "chFlgArtModSub"},
    {"SbtMantCodart", &O::SbtMantCodart, C::Bandera, "N", "chSbtMantCodart"},
    {"SbtMantDatos", &O::SbtMantDatos, C::Bandera, "N", "chSbtMantDatos"},
    {"SbtMostrarAsc", &O::SbtMostrarAsc, C::Bandera, "N", "chSbtMostrarAsc"},
    {"EnviarComExt", &O::EnviarComExt, C::Bandera, "N", "chkEnviarComExt"},
    {"SbtForzarNroArtAI", &O::SbtForzarNroArtAI, C::Bandera, "N", "chkSBTForzarARTenAI"},
    {"VendedorOrderxNombre", &O::VendedorOrderxNombre, C::Bandera, "N", "chVendedorxNombre"},
    {"CancelManual", &O::CancelManual, C::Bandera, "N", "chCANCSinStock", "GENERAL/OBJ"},
    {"SbtFuncionCargaPor", &O::SbtFuncionCargaPor, C::BanderaSalvoN, "S", "chSbtFuncionCargaPor"},
    {"OperacionesMostrarTODO", &O::OperacionesMostrarTODO, C::Bandera, "N", "chkMostrarOperaciones"},
    {"Responder_Opciones_Obligatorio", &O::Responder_Opciones_Obligatorio, C::Bandera, "N",
     "chResponderOpcionesObligatorio"},
    {"NoEnviarDescripcionAlITEM", &O::NoEnviarDescripcionAlITEM, C::Bandera, "N",
     "chkNoMandarDescripcionenITEM"},
    {"DIEMCHINA-IndMaxArancel", &O::DIEMCHINA_IndMaxArancel, C::Numero, "35", "txtIndMaxArancel", "",
     "Indice Maximo Arancel", T::TrasLasTasas},
    {"DIEMCHINA-PrefPorc", &O::DIEMCHINA_PrefPorc, C::Numero, "40", "txtPrefPorc", "",
     "Preferencia Porcentual", T::TrasLasTasas},
    {"QUINDEL", &O::QUINDEL, C::Bandera, "N"},
    {"QUINDELRAF", &O::QUINDELRAF, C::Bandera, "N"},
    {"NROSUFIJ", &O::NROSUFIJ, C::Texto, ""},
    {"VERSION", &O::VERSION, C::Fijo, "2"},
    {"DRIVERNAME", &O::DRIVERNAME, C::Texto, "", "", "", "", T::TrasLasTasas},
    {"PORT", &O::PORT, C::Texto, "", "", "", "", T::TrasLasTasas},
});

bool enciende(ClaseDeOpcion clase, const QString &texto) {
    if (clase == C::BanderaSalvoN) return texto != "N"_L1;
    return (clase == C::LetraRecortada ? texto.trimmed() : texto) == "S"_L1;
}

int entero(ClaseDeOpcion clase, const QString &texto) {
    if (clase == C::Nivel) return enciende(clase, texto) ? 2 : 1;
    const double numero = numeros::aNumero(texto);
    if (clase == C::Orden) return numero == 1 ? 1 : 2;
    return static_cast<int>(numero);
}

/// Whether the kind reads numbers.
bool esDeNumeros(ClaseDeOpcion clase) {
    return clase == C::Orden || clase == C::Fijo || clase == C::Lista || clase == C::Tasa ||
           clase == C::Numero;
}

bool esDeTexto(ClaseDeOpcion clase) {
    return clase == C::Texto || clase == C::Iniciales || clase == C::Impresora;
}

/// One assignment for each type of member.
struct Asignar {
    const FilaDeOpcion &fila;
    Opciones &opciones;
    const QString &texto;

    void operator()(std::monostate) const {}
    void operator()(bool Opciones::*m) const { opciones.*m = enciende(fila.clase, texto); }
    void operator()(int Opciones::*m) const { opciones.*m = entero(fila.clase, texto); }
    void operator()(double Opciones::*m) const { opciones.*m = numeros::aNumero(texto); }
    void operator()(QString Opciones::*m) const {
        const bool letra = fila.clase == C::Letra || fila.clase == C::LetraRecortada;
        opciones.*m = !letra ? texto : enciende(fila.clase, texto) ? u"S"_s : u"N"_s;
    }
};

struct Escribir {
    const FilaDeOpcion &fila;
    const Opciones &opciones;

    QString operator()(std::monostate) const { return {}; }
    QString operator()(bool Opciones::*m) const { return opciones.*m ? u"S"_s : u"N"_s; }
    QString operator()(int Opciones::*m) const {
        if (fila.clase == C::Nivel) return opciones.*m == 2 ? u"S"_s : u"N"_s;
        return QString::number(opciones.*m);
    }
    QString operator()(double Opciones::*m) const { return numeros::aTexto(opciones.*m); }
    QString operator()(QString Opciones::*m) const { return opciones.*m; }
};

}  // namespace

Opciones::Opciones() {
    for (const FilaDeOpcion &fila : filas) PonerOpcion(fila, *this, {});
}

std::span<const FilaDeOpcion> FilasDeOpciones() {
    return filas;
}

const FilaDeOpcion *BuscarOpcion(QStringView clave) {
    for (const FilaDeOpcion &fila : filas)
        if (clave == QLatin1String(fila.clave)) return &fila;
    return nullptr;
}

bool OpcionAdmite(const FilaDeOpcion &fila, const QString &texto) {
    if (esDeTexto(fila.clase)) return true;
    if (esDeNumeros(fila.clase)) return numeros::esNumerico(texto);
    return texto == "S"_L1 || texto == "N"_L1;
}

void PonerOpcion(const FilaDeOpcion &fila, Opciones &opciones, const QString &texto) {
    const bool legible = !texto.isEmpty() && (!esDeNumeros(fila.clase) || numeros::esNumerico(texto));
    const QString valor = legible && fila.clase != C::Fijo ? texto : QString(QLatin1String(fila.defecto));
    std::visit(Asignar{fila, opciones, valor}, fila.miembro);
}

QString TextoDeOpcion(const FilaDeOpcion &fila, const Opciones &opciones) {
    return std::visit(Escribir{fila, opciones}, fila.miembro);
}
