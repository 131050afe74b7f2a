#include "frame/secrets.h"

#include <qt6keychain/keychain.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <optional>

#include "frame/base/privatefile.h"
#include "frame/settings.h"

using namespace Qt::StringLiterals;

namespace {

/// The name under which a keyring's own program shows what is kept.
const QString servicioDelLlavero = u"Zendra"_s;

constexpr qint64 secretoMasLargo = 4096;

Llavero::Estado estadoDe(QKeychain::Error error) {
    switch (error) {
        case QKeychain::NoError:
            return Llavero::Estado::Bien;
        case QKeychain::EntryNotFound:
            return Llavero::Estado::NoEsta;
        case QKeychain::AccessDenied:
        case QKeychain::AccessDeniedByUser:
        case QKeychain::CouldNotDeleteEntry:
            return Llavero::Estado::Negado;
        // A session without its bus is told as any other error: there is no keyring to speak of.
        case QKeychain::NoBackendAvailable:
        case QKeychain::NotImplemented:
        case QKeychain::OtherError:
            break;
    }
    return Llavero::Estado::SinLlavero;
}

/// Starts a job of the keyring, which goes by itself once it answered.
template <class Trabajo>
void correrTrabajo(Trabajo *trabajo, const QString &nombre, const Llavero::AlResponder &al) {
    trabajo->setKey(nombre);
    QObject::connect(trabajo, &QKeychain::Job::finished, trabajo, [trabajo, al](QKeychain::Job *) {
        QString valor;
        if constexpr (std::is_same_v<Trabajo, QKeychain::ReadPasswordJob>) valor = trabajo->textData();
        al(estadoDe(trabajo->error()), valor);
    });
    trabajo->start();
}

/// What the file holds: nothing when there is none.
std::optional<Secreto> leerArchivo(const QString &ruta) {
    QFile archivo(ruta);
    if (!archivo.exists()) return {};
    const QString mostrada = QDir::toNativeSeparators(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        return Secreto{
            {}, u"No se puede leer %1, que guarda la contraseña: %2."_s.arg(mostrada, archivo.errorString())};
    if (LoAlcanzanOtros(ruta))
        return Secreto{{},
                       u"Otras personas pueden leer el archivo %1, que guarda la contraseña: no se usa. "
                       "Cambie la contraseña en su servidor y vuelva a cargarla aquí."_s.arg(mostrada)};
    return Secreto{QString::fromUtf8(archivo.read(secretoMasLargo)), {}};
}

/// Empty when it was written, else why not.
QString escribirArchivo(const QString &ruta, const QString &valor) {
    const QString porque = EscribirPrivado(ruta, valor.toUtf8());
    if (porque.isEmpty()) return {};
    return u"No se pudo guardar la contraseña en %1: %2."_s.arg(QDir::toNativeSeparators(ruta), porque);
}

QString quitarArchivo(const QString &ruta) {
    if (!QFile::exists(ruta) || QFile::remove(ruta)) return {};
    return u"No se pudo borrar %1, que guarda la contraseña: bórrelo a mano."_s.arg(
        QDir::toNativeSeparators(ruta));
}

const QString llaveroCerrado =
    u"El llavero del sistema no dio acceso a la contraseña: ábralo y vuelva a intentar."_s;

}  // namespace

Llavero LlaveroDelSistema() {
    Llavero l;
    l.leer = [](const QString &nombre, const Llavero::AlResponder &al) {
        correrTrabajo(new QKeychain::ReadPasswordJob(servicioDelLlavero), nombre, al);
    };
    l.guardar = [](const QString &nombre, const QString &valor, const Llavero::AlResponder &al) {
        auto *trabajo = new QKeychain::WritePasswordJob(servicioDelLlavero);
        trabajo->setTextData(valor);
        correrTrabajo(trabajo, nombre, al);
    };
    l.borrar = [](const QString &nombre, const Llavero::AlResponder &al) {
        correrTrabajo(new QKeychain::DeletePasswordJob(servicioDelLlavero), nombre, al);
    };
    return l;
}

Secretos::Secretos(Llavero llavero, const Ajustes &ajustes)
    : llavero_(std::move(llavero)), carpeta_(ajustes.carpeta()) {}

QString Secretos::archivo(const QString &nombre) const {
    // The name holds whatever an account may hold; a file's name does not.
    const QByteArray huella = QCryptographicHash::hash(nombre.toUtf8(), QCryptographicHash::Sha256).toHex();
    return QDir(carpeta_).filePath(u"secreto-"_s + QString::fromLatin1(huella));
}

void Secretos::Leer(const QString &nombre, QObject *quien, AlSaber al) const {
    if (const auto enArchivo = leerArchivo(archivo(nombre))) {
        al(*enArchivo);
        return;
    }
    llavero_.leer(nombre, [vive = QPointer<QObject>(quien), al = std::move(al)](Llavero::Estado estado,
                                                                                const QString &valor) {
        if (vive.isNull()) return;
        if (estado == Llavero::Estado::Negado)
            al({{}, llaveroCerrado});
        else
            al({estado == Llavero::Estado::Bien ? valor : QString(), {}});
    });
}

void Secretos::Guardar(const QString &nombre, const QString &valor, QObject *quien, AlSaber al) const {
    llavero_.guardar(nombre, valor,
                     [vive = QPointer<QObject>(quien), al = std::move(al), ruta = archivo(nombre), valor](
                         Llavero::Estado estado, const QString &) {
                         QString falla;
                         if (estado == Llavero::Estado::Bien)
                             falla = quitarArchivo(ruta);
                         else if (estado == Llavero::Estado::Negado)
                             falla = llaveroCerrado;
                         else
                             falla = escribirArchivo(ruta, valor);
                         if (!vive.isNull()) al({{}, falla});
                     });
}

void Secretos::Olvidar(const QString &nombre, QObject *quien, AlSaber al) const {
    const QString falla = quitarArchivo(archivo(nombre));
    llavero_.borrar(nombre, [vive = QPointer<QObject>(quien), al = std::move(al), falla](
                                Llavero::Estado estado, const QString &) {
        if (vive.isNull()) return;
        al({{}, estado == Llavero::Estado::Negado ? llaveroCerrado : falla});
    });
}
