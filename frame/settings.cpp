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
    return nombre(aplicacion) + QLatin1Char('/') + nombre(seccion) + QLatin1Char('/') + nombre(clave);
}

/// The area behind a path, or the user's own.
class Area {
  public:
    explicit Area(const QString &archivo)
        : area_(archivo.isEmpty() ? std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                                                QStringLiteral("Zendra"), QStringLiteral("ajustes"))
                                  : std::make_unique<QSettings>(archivo, QSettings::IniFormat)) {}
    QSettings *operator->() const { return area_.get(); }

  private:
    std::unique_ptr<QSettings> area_;
};

}  // namespace

Ajustes::Ajustes(const QString &archivo) : archivo_(archivo) {}

QString Ajustes::Leer(const QString &aplicacion, const QString &seccion, const QString &clave, const QString &defecto) const {
    return Area(archivo_)->value(camino(aplicacion, seccion, clave), defecto).toString();
}

void Ajustes::Guardar(const QString &aplicacion, const QString &seccion, const QString &clave, const QString &valor) {
    const Area area(archivo_);
    area->setValue(camino(aplicacion, seccion, clave), valor);
    area->sync();
}

void Ajustes::Borrar(const QString &aplicacion, const QString &seccion, const QString &clave) {
    const Area area(archivo_);
    area->remove(camino(aplicacion, seccion, clave));
    area->sync();
}
