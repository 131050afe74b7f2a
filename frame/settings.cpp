#include "frame/settings.h"

#include <QSettings>
#include <QUrl>
#include <memory>

namespace {

/// QSettings splits names at "/" and "\": what is outside plain letters is written by its code.
QString nombre(const QString &texto) {
    // An empty part would vanish from the path.
    return texto.isEmpty() ? QStringLiteral("%") : QString::fromLatin1(QUrl::toPercentEncoding(texto));
}

QString camino(const QString &aplicacion, const QString &seccion, const QString &clave) {
    // The first part becomes a section of the file, and a section "GENERAL" would come back as "General".
    return QLatin1String("Ajustes/") + nombre(aplicacion) + QLatin1Char('/') + nombre(seccion) +
           QLatin1Char('/') + nombre(clave);
}

}  // namespace

Ajustes::Ajustes(const QString &archivo)
    : archivo_(archivo),
      area_(archivo.isEmpty()
                ? std::make_shared<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                              QStringLiteral("Zendra"), QStringLiteral("ajustes"))
                : std::make_shared<QSettings>(archivo, QSettings::IniFormat)) {}

QString Ajustes::Leer(const QString &aplicacion, const QString &seccion, const QString &clave,
                      const QString &defecto) const {
    return area_->value(camino(aplicacion, seccion, clave), defecto).toString();
}

void Ajustes::Guardar(const QString &aplicacion, const QString &seccion, const QString &clave,
                      const QString &valor) {
    area_->setValue(camino(aplicacion, seccion, clave), valor);
    area_->sync();
}

void Ajustes::Borrar(const QString &aplicacion, const QString &seccion, const QString &clave) {
    area_->remove(camino(aplicacion, seccion, clave));
    area_->sync();
}
