#pragma once
// The road from process start to the main menu.

#include <QString>

#include "frame/context.h"
#include "frame/version.h"

/// The family of profiles that a start looks for, and the name of the one that a first start makes.
inline const QString familiaDePerfiles = QStringLiteral("ZENDRA3");

/// The start-up from the profile to the date of the nomenclature. The profile is chosen through
/// ctx.DataManager (or already, through usarPerfil). Raises Falla; nothing is retried.
void Arrancar(AppContext &ctx);

/// NomenclatureDate: the newest date of the nomenclature in long form, or empty. Raises Falla.
QString LeerFechaDelNomenclador(AppContext &ctx);
QString TituloDelMarco(const QString &perfil, int mayor, int menor, int revision, const QString &pc);
/// The oldest version of the stores the program works with.
constexpr int versionMinima = 330;
/// The store's version, 300 when it tells none. Raises Falla, also for a version that is no number.
int LeerVersionDelStore(AppContext &ctx);
/// The same, with the message and the start of the upgrade program below the oldest. A failure is dropped
/// silently.
int ControlarVersionDelStore(AppContext &ctx);
/// How the upgrade program is started; tests replace it.
extern std::function<bool(const QString &programa, const QStringList &argumentos)> iniciarPrograma;

/// The labels of the main menu that speak of data: nomenclature date, licence data date.
QString TextoNomenclador(AppContext &ctx);
QString TextoFechaDatosLNAPI(AppContext &ctx);
/// The computer's name, at most 255 characters.
QString NombreDeLaPC();
/// Long and short date of the workstation's locale.
QString FechaLarga(const QDateTime &fecha);
QString FechaCorta(const QDateTime &fecha);
/// A field that holds a moment, as QDateTime; invalid for null or a text that is none.
QDateTime AFecha(const QVariant &valor);
