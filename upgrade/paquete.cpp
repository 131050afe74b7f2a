#include "upgrade/paquete.h"

#include <archive.h>
#include <archive_entry.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSet>
#include <memory>

#include "upgrade/almacen.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

using actualizacion::Detener;

namespace paquete {

namespace {

const QString nombreDeLaLista = u"respaldo.json"_s;
const QString formato = u"respaldo de stores"_s;
constexpr int versionDelFormato = 1;
constexpr qint64 porVez = 1 << 20;

using Escritor = std::unique_ptr<archive, decltype(&archive_write_free)>;
using Lector = std::unique_ptr<archive, decltype(&archive_read_free)>;
using Entrada = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

QString sumaDe(const QString &archivo) {
    QFile f(archivo);
    QCryptographicHash suma(QCryptographicHash::Sha256);
    if (!f.open(QIODevice::ReadOnly) || !suma.addData(&f))
        Detener(u"No se puede leer %1; revise sus permisos."_s.arg(archivo));
    return QString::fromLatin1(suma.result().toHex());
}

[[noreturn]] void noSePuedeEscribir(const QString &archivo, const QString &motivo) {
    Detener(u"No se puede escribir el respaldo %1 (%2); revise el lugar en el disco y los permisos."_s.arg(
        archivo, motivo));
}

[[noreturn]] void noEsRespaldo(const QString &archivo) {
    Detener(u"El archivo %1 no es un respaldo de este programa; elija otro."_s.arg(archivo));
}

[[noreturn]] void dañado(const QString &archivo, const QString &que) {
    Detener(u"El respaldo %1 está dañado (%2); no se restauró nada: elija otro."_s.arg(archivo, que));
}

QByteArray listaDe(const Contenido &contenido) {
    QJsonArray piezas;
    for (const Pieza &p : contenido.piezas)
        piezas.append(QJsonObject{{u"entidades"_s, p.entidades},
                                  {u"motor"_s, p.motor},
                                  {u"nombre"_s, p.nombre},
                                  {u"esquemas"_s, p.esquemas},
                                  {u"sha256"_s, p.suma}});
    const QJsonObject lista{{u"formato"_s, formato},
                            {u"version"_s, versionDelFormato},
                            {u"momento"_s, contenido.momento.toString(Qt::ISODate)},
                            {u"versionDelStore"_s, contenido.versionDelStore},
                            {u"piezas"_s, piezas}};
    return QJsonDocument(lista).toJson();
}

/// Nothing for what is no list of ours.
bool leerLista(const QByteArray &texto, Contenido &contenido, int &version) {
    const QJsonObject lista = QJsonDocument::fromJson(texto).object();
    if (lista[u"formato"_s].toString() != formato) return false;
    version = lista[u"version"_s].toInt();
    contenido.momento = QDateTime::fromString(lista[u"momento"_s].toString(), Qt::ISODate);
    contenido.versionDelStore = lista[u"versionDelStore"_s].toInt();
    const QJsonArray piezas = lista[u"piezas"_s].toArray();
    for (const auto &valor : piezas) {
        const QJsonObject p = valor.toObject();
        contenido.piezas.push_back({p[u"entidades"_s].toString(),
                                    p[u"motor"_s].toString(),
                                    p[u"nombre"_s].toString(),
                                    {},
                                    p[u"esquemas"_s].toString(),
                                    p[u"sha256"_s].toString()});
    }
    return true;
}

la_ssize_t alEscribir(archive *, void *destino, const void *datos, std::size_t cuantos) {
    return static_cast<QSaveFile *>(destino)->write(static_cast<const char *>(datos),
                                                    static_cast<qint64>(cuantos));
}

/// The head of one file of the archive; only the owner may read what is unpacked.
void ponerCabeza(archive *a, const QString &nombre, qint64 largo) {
    const Entrada entrada(archive_entry_new(), archive_entry_free);
    constexpr int delDueño = 0600;
    archive_entry_set_pathname_utf8(entrada.get(), nombre.toUtf8().constData());
    archive_entry_set_size(entrada.get(), largo);
    archive_entry_set_filetype(entrada.get(), AE_IFREG);
    archive_entry_set_perm(entrada.get(), delDueño);
    if (archive_write_header(a, entrada.get()) != ARCHIVE_OK)
        Detener(QString::fromUtf8(archive_error_string(a)));
}

void ponerDatos(archive *a, const QByteArray &datos) {
    if (archive_write_data(a, datos.constData(), static_cast<std::size_t>(datos.size())) != datos.size())
        Detener(QString::fromUtf8(archive_error_string(a)));
}

void ponerTodo(archive *a, const Contenido &contenido) {
    const QByteArray lista = listaDe(contenido);
    ponerCabeza(a, nombreDeLaLista, lista.size());
    ponerDatos(a, lista);
    for (const Pieza &p : contenido.piezas) {
        QFile f(p.archivo);
        if (!f.open(QIODevice::ReadOnly)) Detener(f.errorString());
        ponerCabeza(a, p.nombre, f.size());
        while (!f.atEnd()) {
            const QByteArray parte = f.read(porVez);
            if (parte.isEmpty()) Detener(f.errorString());
            ponerDatos(a, parte);
        }
    }
}

/// A name that stays where it is unpacked.
bool esNombreLlano(const QString &nombre) {
    return !nombre.isEmpty() && nombre == QFileInfo(nombre).fileName() && !nombre.startsWith(u'.');
}

void desempacar(archive *a, const QString &archivo, const QString &carpeta) {
    archive_entry *entrada = nullptr;
    int estado = ARCHIVE_OK;
    for (bool primera = true; (estado = archive_read_next_header(a, &entrada)) == ARCHIVE_OK;
         primera = false) {
        const QString nombre = QString::fromUtf8(archive_entry_pathname_utf8(entrada));
        if (!esNombreLlano(nombre) || (primera && nombre != nombreDeLaLista)) noEsRespaldo(archivo);
        QFile f(carpeta + u'/' + nombre);
        if (!f.open(QIODevice::WriteOnly) || !f.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
            noSePuedeEscribir(f.fileName(), f.errorString());
        QByteArray parte(porVez, Qt::Uninitialized);
        la_ssize_t leidos = 0;
        while ((leidos = archive_read_data(a, parte.data(), static_cast<std::size_t>(parte.size()))) > 0)
            if (f.write(parte.constData(), leidos) != leidos)
                noSePuedeEscribir(f.fileName(), f.errorString());
        if (leidos < 0) dañado(archivo, u"%1 no termina"_s.arg(nombre));
    }
    if (estado != ARCHIVE_EOF) dañado(archivo, u"el archivo está cortado"_s);
}

}  // namespace

void Escribir(const QString &archivo, const Contenido &contenido) {
    Contenido sumado = contenido;
    for (Pieza &p : sumado.piezas) p.suma = sumaDe(p.archivo);
    QSaveFile destino(archivo);
    if (!destino.open(QIODevice::WriteOnly)) noSePuedeEscribir(archivo, destino.errorString());
    const Escritor a(archive_write_new(), archive_write_free);
    archive_write_add_filter_gzip(a.get());
    archive_write_set_format_pax_restricted(a.get());
    try {
        if (archive_write_open(a.get(), &destino, nullptr, alEscribir, nullptr) != ARCHIVE_OK)
            Detener(QString::fromUtf8(archive_error_string(a.get())));
        ponerTodo(a.get(), sumado);
        if (archive_write_close(a.get()) != ARCHIVE_OK)
            Detener(QString::fromUtf8(archive_error_string(a.get())));
    } catch (const Falla &e) {
        noSePuedeEscribir(archivo, e.descripcion);
    }
    // Everything that the office has is in it.
    destino.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (!destino.commit()) noSePuedeEscribir(archivo, destino.errorString());
}

Contenido Leer(const QString &archivo, const QString &carpeta) {
    const Lector a(archive_read_new(), archive_read_free);
    archive_read_support_filter_gzip(a.get());
    archive_read_support_format_tar(a.get());
    if (!QFileInfo(archivo).isReadable())
        Detener(u"No se puede leer el respaldo %1; revise el nombre y los permisos."_s.arg(archivo));
    if (archive_read_open_filename(a.get(), QFile::encodeName(archivo).constData(), porVez) != ARCHIVE_OK)
        noEsRespaldo(archivo);
    // What is no archive at all shows at its first head.
    Contenido contenido;
    int version = 0;
    desempacar(a.get(), archivo, carpeta);
    QFile lista(carpeta + u'/' + nombreDeLaLista);
    if (!lista.open(QIODevice::ReadOnly) || !leerLista(lista.readAll(), contenido, version))
        noEsRespaldo(archivo);
    if (version > versionDelFormato || contenido.versionDelStore > actualizacion::versionDelStore)
        Detener(u"El respaldo %1 es de un programa más nuevo que éste; instale ese programa."_s.arg(archivo));
    for (Pieza &p : contenido.piezas) {
        if (!esNombreLlano(p.nombre)) noEsRespaldo(archivo);
        p.archivo = carpeta + u'/' + p.nombre;
        if (!QFileInfo::exists(p.archivo)) dañado(archivo, u"falta %1"_s.arg(p.nombre));
        if (sumaDe(p.archivo) != p.suma) dañado(archivo, u"%1 no es lo que era"_s.arg(p.nombre));
    }
    return contenido;
}

}  // namespace paquete
