#include "frame/base/privatefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

bool LoAlcanzanOtros(const QString &ruta) {
    constexpr QFileDevice::Permissions deOtros = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                                 QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                 QFileDevice::WriteOther | QFileDevice::ExeOther;
    return QFileInfo::exists(ruta) && (QFile::permissions(ruta) & deOtros);
}

QString EscribirPrivado(const QString &ruta, const QByteArray &bytes) {
    const QFileInfo info(ruta);
    const QString lugar = info.isSymLink() ? info.symLinkTarget() : ruta;
    QDir().mkpath(QFileInfo(lugar).absolutePath());
    QTemporaryFile nuevo(lugar + u".XXXXXX"_s);
    if (!nuevo.open() || !nuevo.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        nuevo.write(bytes) != bytes.size() || !nuevo.flush())
        return nuevo.errorString();
    std::error_code error;
    std::filesystem::rename(nuevo.fileName().toStdU16String(), lugar.toStdU16String(), error);
    if (error) return QString::fromStdString(error.message());
    nuevo.setAutoRemove(false);
    return {};
}
