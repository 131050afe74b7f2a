#include "upgrade/destino.h"

#include <QDateTime>

#include "frame/base/numbers.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

using esquema::Columna;
using esquema::Tipo;

void abrirDestino(Destino &destino, const QString &rutaDelPerfil, const QString &tabla) {
    destino.tabla = esquema::buscarTabla(tabla);
    if (destino.tabla == nullptr) Detener(u"No hay ninguna tabla %1; revise el nombre."_s.arg(tabla));
    leerPerfil(destino.manager, rutaDelPerfil);
    destino.manager.LoadParameters();
    const Conexion::Datos *datos = destino.manager.datos(destino.tabla->entidad);
    if (datos == nullptr)
        Detener(u"El perfil %1 no nombra el store %2, donde está la tabla %3; agréguelo al perfil."_s.arg(
            rutaDelPerfil, destino.tabla->entidad, destino.tabla->nombre));
    destino.almacen = std::make_unique<Almacen>(*datos, destino.manager);
    destino.esquemaDe = datos->esquema;
    destino.nombre = destino.almacen->nombreDe(datos->esquema, destino.tabla->nombre);
    if (!destino.almacen->tablas(datos->esquema).contains(destino.tabla->nombre))
        Detener(u"El store %1 todavía no tiene la tabla %2; ejecute antes DbUpgrade3 sobre ese perfil."_s.arg(
            destino.tabla->entidad, destino.tabla->nombre));
}

std::optional<QVariant> valorDe(const Almacen &almacen, const Columna &columna, const QString &texto) {
    const QString limpio = texto.trimmed();
    switch (columna.tipo) {
        case Tipo::Generado:
        case Tipo::Numero:
            if (limpio.isEmpty()) return QVariant(QMetaType(QMetaType::Double));
            if (!numeros::esNumerico(limpio)) return std::nullopt;
            if (columna.tipo == Tipo::Generado)
                return QVariant(static_cast<qlonglong>(numeros::aNumero(limpio)));
            return QVariant(numeros::aNumero(limpio));
        case Tipo::Fecha: {
            if (limpio.isEmpty()) return QVariant(QMetaType(QMetaType::QString));
            static const char *const formas[] = {"yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd HH:mm", "yyyy-MM-dd",
                                                 "dd/MM/yyyy HH:mm:ss", "dd/MM/yyyy HH:mm", "dd/MM/yyyy"};
            for (const char *forma : formas) {
                const QDateTime momento = QDateTime::fromString(limpio, QString::fromLatin1(forma));
                if (!momento.isValid()) continue;
                if (almacen.servidor()) return QVariant(momento);
                return QVariant(momento.toString(u"yyyy-MM-dd HH:mm:ss"_s));
            }
            return std::nullopt;
        }
        case Tipo::Texto:
        case Tipo::TextoNumerico:
            break;
    }
    // Ends of texts are the store's business to keep: the keys of sufidos end in blanks.
    return QVariant(texto.isNull() ? u""_s : texto);
}

}  // namespace actualizacion
