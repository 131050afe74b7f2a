#include "regulatory/updatecheck.h"

#include <QSslCertificate>

#include "frame/base/ini.h"
#include "frame/base/web.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/version.h"

using namespace Qt::StringLiterals;

namespace {

const QString seccionDeActualizacion = u"ACTUALIZACION"_s;
const QString lugarDelDocumento = u"/sistemas/ZENDRA3/actualizaciones/VersionApp.xml"_s;
const QString separadorDelDocumento = u"</>"_s;
constexpr int guionesDeLaRaya = 117;

QString raya() {
    return {guionesDeLaRaya, u'-'};
}

/// A value of the installation as a 32-bit number; nothing when it is none.
std::optional<quint32> leerValorDeLaInstalacion(const AppContext &ctx, const QString &clave) {
    bool esNumero = false;
    const quint32 numero =
        ctx.ajustesDeLaMaquina.Leer(ajuste::zendra, u"INSTALACION"_s, clave).trimmed().toUInt(&esNumero);
    return esNumero ? std::optional(numero) : std::nullopt;
}

OrigenDeActualizacion sinOrigen(const QString &falta) {
    return {{}, {}, falta};
}

/// The first piece of a document as a version.
std::optional<qint64> versionPublicada(const QString &texto) {
    bool esNumero = false;
    const qint64 numero = texto.trimmed().toLongLong(&esNumero);
    return esNumero ? std::optional(numero) : std::nullopt;
}

}  // namespace

OrigenDeActualizacion LeerOrigenDeActualizacion(const AppContext &ctx) {
    const auto leer = [&ctx](const QString &clave) {
        return LeerIni(seccionDeActualizacion, clave, ctx.ConfigFilePath).trimmed();
    };
    const QString direccion = leer(u"DIRECCION"_s);
    if (direccion.isEmpty())
        return sinOrigen(
            u"No hay una dirección para buscar actualizaciones: escríbala en DIRECCION, sección [%1] de %2."_s
                .arg(seccionDeActualizacion, ctx.ConfigFilePath));
    QUrl url = DireccionDeLaWeb(direccion);
    if (url.isEmpty())
        return sinOrigen(
            u"La dirección %1 no es válida: escriba http:// o https:// y el servidor en DIRECCION, sección [%2] de %3."_s
                .arg(direccion, seccionDeActualizacion, ctx.ConfigFilePath));
    if (url.path().isEmpty() || url.path() == "/"_L1) url.setPath(lugarDelDocumento);
    const QString certificados = leer(u"CERTIFICADOS"_s);
    if (!certificados.isEmpty() && QSslCertificate::fromPath(certificados).isEmpty())
        return sinOrigen(
            u"No se pueden leer certificados en %1: corrija CERTIFICADOS, sección [%2] de %3."_s.arg(
                certificados, seccionDeActualizacion, ctx.ConfigFilePath));
    return {url, certificados, {}};
}

quint32 VersionInstalada(const AppContext &ctx) {
    return leerValorDeLaInstalacion(ctx, u"version"_s).value_or(NumeroDeVersion());
}

QString LineaDeLaVersion(quint32 instalada) {
    return u"Versión Actual : "_s + QString::number(instalada);
}

Comparacion CompararVersiones(quint32 instalada, const QByteArray &documento) {
    Comparacion comparacion{{LineaDeLaVersion(instalada), raya()}, {}, {}};
    const auto conFalta = [&comparacion](const QString &falta) {
        comparacion.falta = falta;
        return comparacion;
    };
    const QString texto = QString::fromUtf8(documento);
    if (texto.trimmed().isEmpty())
        return conFalta(
            u"El servidor de actualizaciones respondió con un documento vacío: avise a quien lo administra."_s);
    const QStringList piezas = texto.split(separadorDelDocumento);
    if (piezas.size() < 2)
        return conFalta(
            u"El servidor respondió con algo que no es el documento de actualizaciones: verifique la dirección."_s);
    const auto publicada = versionPublicada(piezas.at(0));
    if (!publicada)
        return conFalta(
            u"La versión publicada, \"%1\", no es un número entero: avise a quien administra las actualizaciones."_s
                .arg(piezas.at(0).simplified().left(40)));
    if (*publicada <= instalada) {
        comparacion.lineas << u"La Versión Actual está Actualizada. No necesita Actualizar."_s;
        return comparacion;
    }
    const QString enlace = DireccionDeLaWeb(piezas.at(1)).toString(QUrl::FullyEncoded);
    if (enlace.isEmpty())
        return conFalta(
            u"La versión %1 está publicada sin una dirección http o https de donde descargarla: avise a quien "
            "administra las actualizaciones."_s.arg(*publicada));
    comparacion.enlace = enlace;
    comparacion.lineas << u" "_s << u"Existe una Actualización Disponible."_s
                       << u"Versión Disponible para Actualizar : "_s + QString::number(*publicada) << raya()
                       << u"¿Procede a DESCARGAR e INSTALAR la Actualización?"_s
                       << u"-> Haga CLIC en el botón ACTUALIZAR si desea hacerlo ahora"_s;
    return comparacion;
}
