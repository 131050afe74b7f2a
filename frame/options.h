#pragma once
// The option screens: what FrmConGen and FrmBase show, and how ESC stores it.

#include <QString>
#include <QStringList>
#include <QStringView>
#include <map>

#include "frame/base/verdict.h"

struct AppContext;

/// What FrmConGen shows beside its controls' values.
struct ValoresConGen {
    QString rutaLabel;                ///< path of the configuration file
    bool insumosHabilitados = false;  ///< the two controls of the temporary inputs; cleared while disabled
    /// For each control that an option's row names, what it holds: a box or a button "S" or "N", a list the
    /// number of its row from 0, the printers the selected one's name, else the text as typed.
    std::map<QString, QString> controles;

    /// Raises Falla for a name that no option's row holds.
    QString &operator[](QStringView control);
    const QString &operator[](QStringView control) const;
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
