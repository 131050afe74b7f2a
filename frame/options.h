#pragma once
// The option screens: what FrmConGen and FrmBase show, and how ESC stores it.

#include <QString>
#include <QStringList>

#include "frame/base/verdict.h"

struct AppContext;

/// FrmConGen, one member a control.
struct ValoresConGen {
    QString rutaLabel;  ///< path of the configuration file, shown beside "UBICACION ZENDRA.INI:"
    QString textIniciales;
    int cboListado = 0;  ///< 0 "Numero de Interno", 1 "Fecha de Creación"
    bool chByArt = false;
    bool Check1 = false;        ///< MODIFCAT
    bool Check2 = false;        ///< PRIMR100
    bool Check3 = false;        ///< VALORCAT
    bool Check4 = false;        ///< FlgIdArtTOOtros
    bool opARMARITEM1 = false;  ///< else opARMARITEM2
    bool chVfySbtDup = false;
    bool chSbtNroArtAI = false;
    bool Chk_NoCalcularLiquidacion = false;
    bool insumosHabilitados = false;  ///< the two controls of the temporary inputs; cleared while disabled
    bool chINSTEMPPerMer = false;
    bool chINSTEMPVDE = false;
    QString LstImpresoras;  ///< the selected printer; empty: none
    QString txtRIN;
    QString TxtRNI;
    bool chFlgArtModSub = false;
    bool chSbtMantCodart = false;
    bool chSbtMantDatos = false;
    bool chSbtMostrarAsc = false;
    bool chkEnviarComExt = false;
    bool chkSBTForzarARTenAI = false;
    bool chVendedorxNombre = false;
    bool chCANCSinStock = false;
    bool chSbtFuncionCargaPor = false;
    bool chkMostrarOperaciones = false;
    bool chResponderOpcionesObligatorio = false;
    bool chkNoMandarDescripcionenITEM = false;
    QString txtIndMaxArancel;
    QString txtPrefPorc;
};

/// What the screen shows on load. `impresoras` are the platform's printers: the stored one is selected when
/// it is among them.
ValoresConGen LeerConGen(const AppContext &ctx, const QStringList &impresoras);

/// ESC: stores every option in its order into the file and the running context, the two DIEM-CHINA values
/// last. A value of these that is not a number is told and the screen stays, with the focus on it, while all
/// the earlier options are stored. A file that cannot be written is told once and the screen stays.
Veredicto GuardarConGen(AppContext &ctx, const ValoresConGen &valores);

/// FrmBase: the folder of each store.
struct ValoresBase {
    QString txtInterno;
    QString TxtPersonal;
    QString TxtNcm;
    QString TxtEstado;
    QString TxtUsuario;
};
/// The folders as the file holds them.
ValoresBase LeerBase(const AppContext &ctx);
/// On unload: a separator at the end of each, the five keys, and the paths of the context but that of
/// systablas. Open connections stay as they are.
bool GuardarBase(AppContext &ctx, const ValoresBase &valores);
