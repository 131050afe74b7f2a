#include "frame/startup.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>
#include <QSysInfo>

#include "frame/numbers.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");
const QString ncm = QStringLiteral("NCM");

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
    if (ctx.ProgramFolder.isEmpty())
        ctx.ProgramFolder =
            QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator();
    if (ctx.DataManager.rutaDelPerfil().isEmpty())
        ctx.ProfileIniPath = ctx.DataManager.seleccionarPerfil(QStringLiteral("ZENDRA3"));
    else
        ctx.ProfileIniPath = ctx.DataManager.rutaDelPerfil();
    ctx.DataManager.LoadParameters();
    ctx.ConnNcm = &ctx.conexion(ncm);
    ctx.ConnInternos = &ctx.conexion(internos);
    ctx.ConnCatalogos = &ctx.conexion(QStringLiteral("CATALOGOS"));
    ctx.ConnSystablas = &ctx.conexion(QStringLiteral("SYSTABLAS"));
    ctx.TodayInternos = ctx.DataManager.getDateFormatbyEntity(internos, QDate::currentDate().startOfDay());
    ctx.SuffixChecker.SetDataManager(&ctx.DataManager);
    ctx.DateKeyPattern = QStringLiteral("yyyyMMdd");
    const Reloj reloj(ctx.dialogos);
    CargarConfiguracion(ctx);
    ctx.NomenclatureDate = LeerFechaDelNomenclador(ctx);
}

QString LeerFechaDelNomenclador(AppContext &ctx) {
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    if (!Consultar(ctx, ncm, QStringLiteral("select max(fecha) as vfecha from control_fecha"), rs) ||
        rs.EsNulo(u"vfecha"))
        return {};
    return enForma(rs.Fields(u"vfecha").Value, true);
}

QString TituloDelMarco(const QString &perfil, int mayor, int menor, int revision, const QString &pc) {
    return (perfil.isEmpty() ? QString() : L("[") + perfil + L("] ")) + L("Zendra Windows - v") +
           numeros::Format(mayor, u"0") + QLatin1Char('.') + numeros::Format(menor, u"0") + QLatin1Char('.') +
           numeros::Format(revision, u"000") + L(" - PC [") + pc + L("]");
}

int LeerVersionDelStore(AppContext &ctx) {
    Recordset rs;
    if (!Consultar(ctx, internos, QStringLiteral("select valor from version where propiedad = 'version'"),
                   rs))
        return sinVersion;
    return static_cast<int>(rs.Numero(u"Valor"));
}

int ControlarVersionDelStore(AppContext &ctx) {
    int version = sinVersion;
    try {
        version = LeerVersionDelStore(ctx);
        if (version < versionMinima) {
            ctx.dialogos.informar(QStringLiteral("Se necesita actualizar la base de datos"));
            const QString perfil = ctx.DataManager.rutaDelPerfil();
            iniciarPrograma(
                qEnvironmentVariable("ProgramFiles") + L("\\Zendra\\DbUpgrade3.exe"),
                perfil.isEmpty() ? QStringList() : QStringList{QStringLiteral("--perfil"), perfil});
        }
    } catch (const ErrorDeStore &) {
        // Start-up goes on without the prompt.
        return version;
    }
    return version;
}

QString TextoDeVersion(int mayor, int menor, int revision) {
    return QStringLiteral("%1.%2.%3").arg(mayor).arg(menor).arg(revision);
}

QString TextoFechaZendra() {
    return enForma(QStringLiteral("Generado 21-11-2026"), true);
}

QString TextoNomenclador(AppContext &ctx) {
    Recordset rs;
    if (!Consultar(ctx, ncm, QStringLiteral("select fecha from control_fecha order by fecha desc"), rs))
        return QStringLiteral("Leyendo Fecha....");
    return enForma(rs.Fields(u"fecha").Value, true);
}

QString TextoFechaDatosLNAPI(AppContext &ctx) {
    Recordset rs;
    QString cabeza = QStringLiteral("Fecha:  ");
    if (!Consultar(ctx, ncm, QStringLiteral("select fecha from LNAPIFechaDeDatos"), rs)) return cabeza;
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
