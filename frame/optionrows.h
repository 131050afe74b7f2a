#pragma once
// Every option, one row each: what the configuration file, the option screen, the batch program and
// docs/opciones.md know of it.

#include <QString>
#include <QStringView>
#include <cstdint>
#include <span>
#include <variant>

/// The options of a run. A new one holds the defaults of the rows, as an empty file gives them.
struct Opciones {
    Opciones();

    bool QUINDEL = false;
    bool QUINDELRAF = false;
    QString NROSUFIJ;
    int MODIFCAT = 0;  ///< 2 on, 1 off, as the other two levels
    int VALORCAT = 0;
    int PRIMR100 = 0;
    bool GROUPBYART = false;
    int ARMARITEM = 0;  ///< 1 by tariff position, 2 as the lines were entered
    QString MODARTSUB;  ///< "S" or "N"
    int VERSION = 0;
    QString VrySbtDup;  ///< "S" or "N"
    bool SbtMantCodart = false;
    bool SbtMantDatos = false;
    bool SbtMostrarAsc = false;
    bool FlgIdArtTOOtros = false;
    bool SbtNroArtAI = false;
    bool NOCALCLIQU = false;
    bool EnviarComExt = false;
    bool SbtForzarNroArtAI = false;
    bool VendedorOrderxNombre = false;
    bool SbtFuncionCargaPor = false;
    bool Responder_Opciones_Obligatorio = false;
    bool OperacionesMostrarTODO = false;
    bool NoEnviarDescripcionAlITEM = false;
    bool CancelManual = false;
    int LISTADO = 0;    ///< 0 by number, 1 by date of creation
    double IVARIN = 0;  ///< percent, VAT of a registered importer
    double IVARNI = 0;  ///< percent, reduced VAT
    QString DEVICENAME;
    QString DRIVERNAME;
    QString PORT;
    double DIEMCHINA_IndMaxArancel = 0;  ///< percent
    double DIEMCHINA_PrefPorc = 0;       ///< percent
    bool RestarPerMer = false;
    bool opVDE = false;  ///< quantities of inputs have six decimals

    /// Whether the library of the temporary inputs is there. No option: found out at the start.
    bool TempInputsAvailable = false;
};

/// How an option's value is spelled, and what the spelling means.
enum class ClaseDeOpcion : std::uint8_t {
    Bandera,           ///< on by "S", off by anything else
    BanderaSalvoN,     ///< on by anything but "N"
    BanderaDeInsumos,  ///< a flag that is off while the temporary inputs are not there
    Nivel,             ///< 2 by "S", 1 by anything else
    Letra,             ///< the text "S", or "N" for anything else
    LetraRecortada,    ///< the same without regard to blanks around it
    Orden,             ///< 1 by the number 1, 2 by anything else
    Fijo,              ///< read for its own sake: the default, whatever it says
    Lista,             ///< the row of a list, from 0
    Tasa,              ///< a percentage with either separator; the load ends at one that is no number
    Numero,            ///< a percentage that the screen demands; no number in the file reads as the default
    Texto,
    Iniciales,  ///< up to two letters in capitals, kept in the file alone
    Impresora,  ///< the name of a printer; another one clears the driver's name and the port
};

/// When the load reads it: a rate that is no number leaves what comes later unread.
enum class TurnoDeCarga : std::uint8_t { AntesDeLasTasas, Tasas, TrasLasTasas };

/// What an option fills; nothing for one that is not kept.
using MiembroDeOpcion =
    std::variant<std::monostate, bool Opciones::*, int Opciones::*, double Opciones::*, QString Opciones::*>;

struct FilaDeOpcion {
    const char *clave;  ///< as the batch program and the docs spell it; the file takes any case
    MiembroDeOpcion miembro;
    ClaseDeOpcion clase;
    const char *defecto;          ///< spelled as in the file; what an absent key means
    const char *control = "";     ///< of FrmConGen; empty: the screen neither shows nor stores it
    const char *area = "";        ///< "application/section" of the settings area; empty: the file's [GENERAL]
    const char *enRechazos = "";  ///< how a refusal of the screen calls it
    TurnoDeCarga turno = TurnoDeCarga::AntesDeLasTasas;
};

/// The rows in the order in which the screen stores them; those it does not store stand behind.
std::span<const FilaDeOpcion> FilasDeOpciones();
/// The row of this key, spelled exactly so; null for a name that is none.
const FilaDeOpcion *BuscarOpcion(QStringView clave);
/// Whether `texto` is a value of the option's kind, spelled strictly: the file itself takes more.
bool OpcionAdmite(const FilaDeOpcion &fila, const QString &texto);
/// Takes `texto` into the option's member; the default for an empty text, or one that its kind can't read.
void PonerOpcion(const FilaDeOpcion &fila, Opciones &opciones, const QString &texto);
/// The member's value, spelled as in the file with a decimal point; empty for an option that is not kept.
QString TextoDeOpcion(const FilaDeOpcion &fila, const Opciones &opciones);
