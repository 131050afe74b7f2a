#include "upgrade/instantanea.h"

#include <sqlite3.h>

#include <QFile>
#include <memory>

#include "upgrade/almacen.h"

using namespace Qt::StringLiterals;

using actualizacion::Detener;

namespace instantanea {

namespace {

using Mango = std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)>;

[[noreturn]] void rechazar(sqlite3 *db, const QString &archivo) {
    Detener(u"No se puede copiar el store %1 (%2); vuelva a intentarlo con menos gente trabajando."_s.arg(
        archivo, QString::fromUtf8(sqlite3_errmsg(db))));
}

void mandar(sqlite3 *db, const QString &sql, const QString &archivo) {
    if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        rechazar(db, archivo);
}

Mango abrir(const QString &archivo, int banderas) {
    sqlite3 *db = nullptr;
    const int estado = sqlite3_open_v2(QFile::encodeName(archivo).constData(), &db, banderas, nullptr);
    Mango mango(db, sqlite3_close_v2);
    if (estado != SQLITE_OK) rechazar(db, archivo);
    constexpr int paciencia = 30000;
    sqlite3_busy_timeout(db, paciencia);
    return mango;
}

QString nombreDe(qsizetype n) {
    return n == 0 ? u"main"_s : u"s%1"_s.arg(n);
}

/// One connection with all of them in reach.
Mango abrirTodos(const QStringList &archivos) {
    Mango db = abrir(archivos.front(), SQLITE_OPEN_READWRITE);
    for (qsizetype n = 1; n < archivos.size(); ++n) {
        QString ruta = archivos.at(n);
        mandar(db.get(), u"ATTACH '%1' AS %2"_s.arg(ruta.replace(u'\'', "''"_L1), nombreDe(n)),
               archivos.at(n));
    }
    return db;
}

}  // namespace

void Tomar(const QStringList &archivos, const QStringList &copias) {
    if (archivos.isEmpty()) return;
    const Mango lector = abrirTodos(archivos);
    {
        // Nobody writes between the first and the last of the looks that follow.
        const Mango turno = abrirTodos(archivos);
        mandar(turno.get(), u"BEGIN IMMEDIATE"_s, archivos.front());
        mandar(lector.get(), u"BEGIN"_s, archivos.front());
        for (qsizetype n = 0; n < archivos.size(); ++n)
            mandar(lector.get(), u"select count(*) from %1.sqlite_master"_s.arg(nombreDe(n)), archivos.at(n));
        mandar(turno.get(), u"ROLLBACK"_s, archivos.front());
    }
    for (qsizetype n = 0; n < archivos.size(); ++n) {
        const Mango copia = abrir(copias.at(n), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        sqlite3_backup *respaldo =
            sqlite3_backup_init(copia.get(), "main", lector.get(), nombreDe(n).toUtf8().constData());
        if (respaldo == nullptr) rechazar(copia.get(), archivos.at(n));
        sqlite3_backup_step(respaldo, -1);
        if (sqlite3_backup_finish(respaldo) != SQLITE_OK) rechazar(copia.get(), archivos.at(n));
        // One file each, without a log beside it.
        mandar(copia.get(), u"PRAGMA journal_mode=DELETE"_s, copias.at(n));
    }
}

}  // namespace instantanea
