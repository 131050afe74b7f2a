#pragma once
// The process-wide record.

#include <QDate>
#include <QString>
#include <QStringList>
#include <memory>

#include "frame/base/numbers.h"
#include "frame/dialogs.h"
#include "frame/optionrows.h"
#include "frame/salidas.h"
#include "frame/secrets.h"
#include "frame/settings.h"
#include "frame/store/StoreProfiles.h"
#include "frame/store/store.h"

/// The five decree flags of a temporary operation, "S" or "N"; set by the assembly, read by the calculator.
struct MotivoDecreto {
    QString d1439_96 = QStringLiteral("N");
    QString d1439_96A1 = QStringLiteral("N");
    QString d1330_04A6 = QStringLiteral("N");
    QString d1330_04A7 = QStringLiteral("N");
    QString d1330_04A8 = QStringLiteral("N");
    bool alguno() const;
};

/// The tariff position that the search screen left chosen, with what entry of lines asks of it.
struct PosicionElegida {
    QString posicion;  ///< empty: the search was left without a choice
    QString estadistica;
    QString deresp;
    bool lapi = false;         ///< [059] is "*"
    bool reintegro = false;    ///< [019] is above 0
    bool seguridad = false;    ///< [052] is "*"
    bool prohibicion = false;  ///< [044] is "*"
};

/// Filled in the order of the start-up steps, read directly by every screen and module, never rebuilt.
struct AppContext {
    StoreProfiles::SPMain DataManager;
    QString ProfileIniPath;
    Conexion *ConnNcm = nullptr;
    Conexion *ConnInternos = nullptr;
    Conexion *ConnCatalogos = nullptr;
    Conexion *ConnSystablas = nullptr;
    QString TodayInternos;   ///< date literal; not refreshed at midnight
    QString DateKeyPattern;  ///< "yyyyMMdd"
    QString PcName;          ///< identity in lock rows
    /// The workstation's decimal separator, "." or ",": what numbers are shown with and read back.
    QChar SeparadorDecimal = numeros::separadorDelSistema();
    QString NomenclatureDate;

    QString ProgramFolder;  ///< with its closing separator
    QString ConfigFilePath;
    QString PathInternos, PathSystablas, PathPersonal, PathNcm, PathUsuario, PathEstados;
    Opciones opciones;
    Ajustes ajustes;
    Ajustes ajustesDeLaMaquina = Ajustes::DeLaMaquina();  ///< what an installation says; only read
    Dialogos dialogos;
    Salidas salidas;
    Llavero llavero;  ///< none, until the desktop puts the session's in its place

    // Shared between the dashboard, the assembly and the review of one operation.
    QString ChequeoArmado;  ///< the run's result: "SI", "No" or "NO"
    bool CalcularCoeficiente = false;
    bool CalcularMulta = false;
    bool CalcularDigitalizacion = false;
    bool LiquidacionPendiente = false;  ///< the liquidation has to be written back
    QString CalculoAEC;                 ///< the shared answer to the common external tariff question
    MotivoDecreto decreto;
    double TotalProrrateado = 0;  ///< sum of the proration codes of the operation in hand

    /// The key in hand told already that a store is gone; see ContarFalla.
    std::shared_ptr<bool> perdidaContada = std::make_shared<bool>(false);

    // Shared by the screens of entry.
    PosicionElegida posicion;
    bool ReconfirmarSufijos = false;  ///< the next suffix check tells first that it will reconfirm

    /// Shorthand for DataManager.getDataConnectionByEntity.
    Conexion &conexion(const QString &entidad) { return DataManager.getDataConnectionByEntity(entidad); }
};

/// The record of this process, which its program (or test) owns. Raises Falla while there is none.
AppContext &Contexto();
void fijarContexto(AppContext *contexto);  ///< null takes it away

/// A read in two lines: opens `rs` with `sql` on `entidad`; true when it holds a row. Raises Falla.
bool Consultar(AppContext &ctx, const QString &entidad, const QString &sql, Recordset &rs);
/// Several reads in one journey to a server: the rows of each, in their order. Raises Falla.
std::vector<Recordset> ConsultarSeguidas(AppContext &ctx, const QString &entidad,
                                         const QStringList &sentencias);
/// A write: the number of rows touched. Raises Falla.
qint64 Ejecutar(AppContext &ctx, const QString &entidad, const QString &sql);
/// A write that nothing is asked of: see Conexion::Mandar. Raises Falla.
void Mandar(AppContext &ctx, const QString &entidad, const QString &sql);
