#include "outputs/transfer.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include "frame/base/failure.h"
#include "frame/files.h"
#include "frame/paper/replace.h"
#include "outputs/declarationchecks.h"
#include "outputs/declarationxml.h"

using namespace Qt::StringLiterals;

namespace {

QString rechazo(const QString &que) {
    return u"No se escribió el documento: %1."_s.arg(que);
}

}  // namespace

Transferencia PrepararTransferencia(AppContext &ctx, const QString &interno) {
    Transferencia t;
    t.declaracion = LeerDeclaracion(ctx, interno);
    t.advertencias = ControlarDeclaracion(ctx, t.declaracion);
    return t;
}

QString NombreDeArchivo(const QString &interno) {
    return NombreSeguro(interno) + u".xml"_s;
}

QString SumaDeDocumento(const QByteArray &documento) {
    return QString::fromLatin1(QCryptographicHash::hash(documento, QCryptographicHash::Sha256).toHex());
}

DocumentoEscrito EscribirTransferencia(const Declaracion &declaracion, const QString &archivo) {
    DocumentoEscrito r;
    r.archivo = QFileInfo(archivo).absoluteFilePath();
    const QString ruta = QDir::toNativeSeparators(r.archivo);
    QString defecto;
    QByteArray documento;
    try {
        documento = DocumentoDe(declaracion);
        defecto = DefectoDelDocumento(documento);
    } catch (const Falla &e) {
        r.aviso = e.descripcion;
        return r;
    }
    if (!defecto.isEmpty()) {
        r.aviso =
            u"No se escribió el documento, porque no cumple su forma: %1; corrija el dato y "
            "vuelva a transferir."_s.arg(defecto);
        return r;
    }
    if (QFileInfo(r.archivo).isDir()) {
        r.aviso = rechazo(u"%1 es una carpeta, elija un archivo"_s.arg(ruta));
        return r;
    }
    if (!papel::ReemplazarArchivo(r.archivo, documento).isEmpty()) {
        r.aviso = rechazo(
            u"no se puede escribir en %1, revise que la carpeta exista, los permisos y el espacio"_s.arg(
                ruta));
        return r;
    }
    r.hecho = true;
    r.bytes = documento.size();
    r.suma = SumaDeDocumento(documento);
    r.aviso = u"Se escribió la declaración en %1 (%2 bytes)."_s.arg(ruta, QString::number(r.bytes));
    return r;
}
