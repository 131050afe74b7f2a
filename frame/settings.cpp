#include "frame/settings.h"

#include <QFileInfo>
#include <QSettings>
#include <QUrl>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// QSettings splits names at "/" and "\": what is outside plain letters is written by its code.
QString nombre(const QString &texto) {
    // An empty part would vanish from the path.
    return texto.isEmpty() ? u"%"_s : QString::fromLatin1(QUrl::toPercentEncoding(texto));
}

QString camino(const QString &aplicacion, const QString &seccion, const QString &clave) {
    // The first part becomes a section of the file, and a section "GENERAL" would come back as "General".
    return "Ajustes/"_L1 + nombre(aplicacion) + QLatin1Char('/') + nombre(seccion) + QLatin1Char('/') +
           nombre(clave);
}

}  // namespace

Ajustes::Ajustes(const QString &archivo)
    : archivo_(archivo),
      area_(archivo.isEmpty() ? std::make_shared<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                                            u"Zendra"_s, u"ajustes"_s)
                              : std::make_shared<QSettings>(archivo, QSettings::IniFormat)) {}

Ajustes::Ajustes(QString archivo, std::shared_ptr<QSettings> area)
    : archivo_(std::move(archivo)), area_(std::move(area)) {}

Ajustes Ajustes::DeLaMaquina() {
    return {
        {},
        std::make_shared<QSettings>(QSettings::IniFormat, QSettings::SystemScope, u"Zendra"_s, u"ajustes"_s)};
}

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

QString Ajustes::carpeta() const {
    return QFileInfo(area_->fileName()).absolutePath();
}
