#pragma once
// The configuration file and every option it fills.

#include <QString>

struct AppContext;

/// The option members of AppContext, with their defaults for an empty file.
struct Opciones {
    bool QUINDEL = false;
    bool QUINDELRAF = false;
    QString NROSUFIJ;
    int MODIFCAT = 1;
    int VALORCAT = 1;
    int PRIMR100 = 1;
    bool GROUPBYART = false;
    int ARMARITEM = 2;
    QString MODARTSUB = QStringLiteral("N");
    int VERSION = 2;
    QString VrySbtDup = QStringLiteral("N");
    bool SbtMantCodart = false;
    bool SbtMantDatos = false;
    bool SbtMostrarAsc = false;
    bool FlgIdArtTOOtros = false;
    bool SbtNroArtAI = false;
    bool NOCALCLIQU = false;
    bool EnviarComExt = false;
    bool SbtForzarNroArtAI = false;
    bool VendedorOrderxNombre = false;
    bool SbtFuncionCargaPor = true;
    bool Responder_Opciones_Obligatorio = false;
    bool OperacionesMostrarTODO = false;
    bool NoEnviarDescripcionAlITEM = false;
    bool CancelManual = false;
    int LISTADO = 0;
    double IVARIN = 0;  ///< percent, VAT of a registered importer
    double IVARNI = 0;  ///< percent, reduced VAT
    QString DEVICENAME;
    QString DRIVERNAME;
    QString PORT;
    double DIEMCHINA_IndMaxArancel = 35;
    double DIEMCHINA_PrefPorc = 40;
    bool TempInputsAvailable = false;
    bool RestarPerMer = false;
};

/// The file that goes with a profile: its path with every "ini" (that spelling only) replaced by "cfg",
/// wherever it stands.
QString ArchivoDelPerfil(const QString &ProfileIniPath);
/// The configuration file for a profile path: its "ini" replaced by "cfg" wherever it stands, when that file
/// exists; else ZENDRA.ini in `carpetaDelPrograma`.
QString BuscarArchivoDeConfiguracion(const QString &ProfileIniPath, const QString &carpetaDelPrograma);

/// Finds the file, fills paths and options of `ctx` and writes the settings area's BASES. Raises Falla when
/// IVARIN or IVARNI is not a number, leaving the options after it unread.
void CargarConfiguracion(AppContext &ctx);
