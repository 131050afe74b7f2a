#include "frame/store/engines.h"

#include "frame/base/failure.h"
#include "frame/base/ini.h"

using namespace Qt::StringLiterals;

namespace motores {

QString Seccion::valor(const char *clave, const QString &defecto) const {
    const QString texto = LeerIni(entidad, QLatin1String(clave), ruta);
    return texto.isEmpty() ? defecto : texto;
}

void Seccion::rechazar(const QString &texto) {
    throw Falla{0, u"StoreProfiles"_s, texto, {}};
}

const Motor *porDriver(const QString &driver) {
    for (const Motor *motor : {&archivo(), &servidor()})
        if (motor->driver.compare(driver, Qt::CaseInsensitive) == 0) return motor;
    return nullptr;
}

}  // namespace motores
