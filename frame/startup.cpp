#include "frame/startup.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>
#include <QSysInfo>
#include <cmath>
#include <limits>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/config.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using entidad::internos;
using entidad::ncm;

/// A store that tells no version counts as old.
constexpr int sinVersion = 300;

/// A stored date in the form `largo` or short; a text that is no date stands unchanged.
QString enForma(const QVariant &valor, bool largo) {
    const QDateTime fecha = AFecha(valor);
    if (!fecha.isValid()) return EsNull(valor);
    return largo ? FechaLarga(fecha) : FechaCorta(fecha);
}

}  // namespace

std::function<bool(const QString &, const QStringList &)> iniciarPrograma =
    [](const QString &programa, const QStringList &argumentos) {
        // A sibling program lies beside this one, or where the installation put it.
        const QString ruta =
            QDir::fromNativeSeparators(QString(programa).replace(QLatin1Char('\\'), QLatin1Char('/')));
        const QString propio =
            QStandardPaths::findExecutable(QFileInfo(ruta).completeBaseName(),
                                           {QCoreApplication::applicationDirPath(), QFileInfo(ruta).path()});
        return QProcess::startDetached(propio.isEmpty() ? ruta : propio, argumentos);
    };

void Arrancar(AppContext &ctx) {
    // Ahead of the first number that is read: the options' own.
    if (!numeros::haySeparadorDelSistema())
        ctx.dialogos.mensaje({u"No se puedo obtener la información"_s, {}, Icono::Ninguno, false});
    if (ctx.ProgramFolder.isEmpty())
        ctx.ProgramFolder =
            QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator();
    if (ctx.DataManager.rutaDelPerfil().isEmpty())
        ctx.ProfileIniPath = ctx.DataManager.seleccionarPerfil(familiaDePerfiles);
    else
        ctx.ProfileIniPath = ctx.DataManager.rutaDelPerfil();
    if (const QString aviso = ctx.DataManager.aviso(); !aviso.isEmpty())
        ctx.dialogos.mensaje({aviso, {}, Icono::Exclamacion, false});
    ctx.DataManager.LoadParameters();
    ctx.ConnNcm = &ctx.conexion(ncm);
    ctx.ConnInternos = &ctx.conexion(internos);
    ctx.ConnCatalogos = &ctx.conexion(u"CATALOGOS"_s);
    ctx.ConnSystablas = &ctx.conexion(u"SYSTABLAS"_s);
    ctx.TodayInternos = ctx.DataManager.getDateFormatbyEntity(internos, QDate::currentDate().startOfDay());
    ctx.DateKeyPattern = u"yyyyMMdd"_s;
    const Reloj reloj(ctx.dialogos);
    CargarConfiguracion(ctx);
    ctx.NomenclatureDate = LeerFechaDelNomenclador(ctx);
}

QString LeerFechaDelNomenclador(AppContext &ctx) {
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    if (!Consultar(ctx, ncm, u"select max(fecha) as vfecha from control_fecha"_s, rs) || rs.EsNulo(u"vfecha"))
        return {};
    return enForma(rs.Fields(u"vfecha").Value, true);
}

QString TituloDelMarco(const QString &perfil, int mayor, int menor, int revision, const QString &pc) {
    return (perfil.isEmpty() ? QString() : "["_L1 + perfil + "] "_L1) + "Zendra Windows - v"_L1 +
           QString::number(mayor) + QLatin1Char('.') + QString::number(menor) + QLatin1Char('.') +
           QString::number(revision).rightJustified(3, '0'_L1) + " - PC ["_L1 + pc + "]"_L1;
}

int LeerVersionDelStore(AppContext &ctx) {
    Recordset rs;
    if (!Consultar(ctx, internos, u"select valor from version where propiedad = 'version'"_s, rs))
        return sinVersion;
    const QString valor = rs.Texto(u"Valor");
    const double version = numeros::aNumero(valor);
    if (!numeros::esNumerico(valor) || std::abs(version) > std::numeric_limits<int>::max())
        throw Falla{13, internos, u"La versión del store no es un número: \"%1\"."_s.arg(valor), {}};
    return static_cast<int>(version);
}

int ControlarVersionDelStore(AppContext &ctx) {
    int version = sinVersion;
    try {
        version = LeerVersionDelStore(ctx);
        // A workstation's role could not do it: whoever keeps the base does.
        if (version < versionMinima && !ctx.DataManager.rolDueno().isEmpty()) {
            ctx.dialogos.informar(
                u"Se necesita actualizar la base de datos; pida a quien la administra que ejecute %1."_s.arg(
                    ctx.DataManager.comoActualizar()));
        } else if (version < versionMinima) {
            ctx.dialogos.informar(u"Se necesita actualizar la base de datos"_s);
            const QString perfil = ctx.DataManager.rutaDelPerfil();
            iniciarPrograma(qEnvironmentVariable("ProgramFiles") + "\\Zendra\\DbUpgrade3.exe"_L1,
                            perfil.isEmpty() ? QStringList() : QStringList{u"--perfil"_s, perfil});
        }
    } catch (const Falla &) {
        // Start-up goes on without the prompt.
        return version;
    }
    return version;
}

QString TextoNomenclador(AppContext &ctx) {
    Recordset rs;
    if (!Consultar(ctx, ncm, u"select fecha from control_fecha order by fecha desc"_s, rs))
        return u"Leyendo Fecha...."_s;
    return enForma(rs.Fields(u"fecha").Value, true);
}

QString TextoFechaDatosLNAPI(AppContext &ctx) {
    Recordset rs;
    QString cabeza = u"Fecha:  "_s;
    if (!Consultar(ctx, ncm, u"select fecha from LNAPIFechaDeDatos"_s, rs)) return cabeza;
    return cabeza + enForma(rs.Fields(u"fecha").Value, false);
}

QString NombreDeLaPC() {
    constexpr qsizetype largo = 255;
    return QSysInfo::machineHostName().left(largo);
}

QString FechaLarga(const QDateTime &fecha) {
    return QLocale().toString(fecha.date(), QLocale::LongFormat);
}
QString FechaCorta(const QDateTime &fecha) {
    return QLocale().toString(fecha.date(), QLocale::ShortFormat);
}

QDateTime AFecha(const QVariant &valor) {
    if (valor.isNull()) return {};
    if (valor.typeId() == QMetaType::QDateTime) return valor.toDateTime();
    return QDateTime::fromString(valor.toString().replace(QLatin1Char(' '), QLatin1Char('T')), Qt::ISODate);
}
