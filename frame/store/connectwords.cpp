#include "frame/store/connectwords.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace motores {

namespace {

enum class Clase { Modo, Archivo, Plazo };

/// How long something is waited for. Without an end it would be waited for ever, so 0 is none.
struct Plazo {
    int menor, mayor;
    const char *unidad;
};
struct Palabra {
    const char *nombre;
    Clase clase;
    Plazo plazo;
};
constexpr std::array<Palabra, 7> deLaBiblioteca{{
    {"sslmode", Clase::Modo, {}},
    {"sslrootcert", Clase::Archivo, {}},
    {"sslcert", Clase::Archivo, {}},
    {"sslkey", Clase::Archivo, {}},
    {"sslcrl", Clase::Archivo, {}},
    {"connect_timeout", Clase::Plazo, {2, 600, "segundos"}},
    {"tcp_user_timeout", Clase::Plazo, {1000, 600000, "milisegundos"}},
}};

struct Modo {
    const char *nombre;
    bool exigeTls;
};
constexpr std::array<Modo, 6> modos{{{"disable", false},
                                     {"allow", false},
                                     {"prefer", false},
                                     {"require", true},
                                     {"verify-ca", true},
                                     {"verify-full", true}}};

/// What every connection asks for, unless the profile says it otherwise: a server that went silent is given
/// up after a minute and a half, and not when the system's own patience of hours ends.
constexpr std::array<std::pair<const char *, const char *>, 7> deTodas{{
    {"connect_timeout", "10"},
    {"keepalives", "1"},
    {"keepalives_idle", "60"},
    {"keepalives_interval", "10"},
    {"keepalives_count", "3"},
    {"tcp_user_timeout", "30000"},
    {"application_name", "zendra"},
}};

const Modo *modoDe(const QString &nombre) {
    const auto *const modo = std::find_if(modos.begin(), modos.end(),
                                          [&](const Modo &m) { return nombre == QLatin1String(m.nombre); });
    return modo == modos.end() ? nullptr : modo;
}

/// A value as the library takes it whole, whatever it holds.
QString citada(QString valor) {
    valor.replace(QLatin1Char('\\'), "\\\\"_L1).replace(QLatin1Char('\''), "\\'"_L1);
    return QLatin1Char('\'') + valor + QLatin1Char('\'');
}

QString enPalabras(const std::vector<std::pair<QString, QString>> &palabras) {
    QStringList partes;
    for (const auto &[nombre, valor] : palabras) partes << nombre + QLatin1Char('=') + citada(valor);
    return partes.join(QLatin1Char(' '));
}

/// The fixed words that the profile does not say itself, and the profile's behind them.
std::vector<std::pair<QString, QString>> palabrasDe(const Datos &datos) {
    std::vector<std::pair<QString, QString>> todas;
    todas.reserve(deTodas.size() + datos.palabras.size());
    for (const auto &[nombre, valor] : deTodas) {
        const QLatin1String fija(nombre);
        if (std::none_of(datos.palabras.begin(), datos.palabras.end(),
                         [fija](const auto &una) { return una.first == fija; }))
            todas.emplace_back(fija, QLatin1String(valor));
    }
    todas.insert(todas.end(), datos.palabras.begin(), datos.palabras.end());
    return todas;
}

QString archivoDe(const OrigenDePalabras &origen, const QString &palabra, const QString &valor) {
    QString ruta = QDir::cleanPath(QDir(origen.carpeta).absoluteFilePath(valor));
    const QFileInfo info(ruta);
    if (!info.isFile() || !info.isReadable())
        Seccion::rechazar(
            u"%1 nombra en %2 el archivo %3, que no está o no se puede leer; corrija la ruta o cópielo ahí."_s
                .arg(origen.quien, palabra, ruta));
    // Qt makes blanks of them on the way to the library.
    if (ruta.contains(QLatin1Char(';')))
        Seccion::rechazar(
            u"%1 nombra en %2 el archivo %3, y esa ruta tiene un punto y coma; cópielo a otra carpeta."_s.arg(
                origen.quien, palabra, ruta));
    return ruta;
}

void comprobarModo(const OrigenDePalabras &origen, const QString &modo, Datos &datos) {
    const Modo *conocido = modoDe(modo);
    if (conocido == nullptr) {
        QStringList nombres;
        for (const Modo &m : modos) nombres << QLatin1String(m.nombre);
        Seccion::rechazar(
            u"%1 pide sslmode=%2, que no existe; use %3."_s.arg(origen.quien, modo, nombres.join(", "_L1)));
    }
    if (!conocido->exigeTls) return;
    // The library sends nothing encrypted through a folder's socket, whatever it is asked for.
    const QStringList lugares = datos.host.split(QLatin1Char(','));
    for (const QString &lugar : lugares)
        if (lugar.trimmed().startsWith(QLatin1Char('/')) || lugar.trimmed().startsWith(QLatin1Char('@')))
            Seccion::rechazar(
                u"%1 pide sslmode=%2 y su host %3 es una carpeta de esta PC, por donde nada se cifra; "
                "escriba el nombre del servidor o quite sslmode."_s.arg(origen.quien, modo, lugar.trimmed()));
    // Else it would take a ticket of the network in place of the certificate.
    datos.palabras.emplace_back(u"gssencmode"_s, u"disable"_s);
}

/// In digits alone, as the library reads it.
QString plazoDe(const OrigenDePalabras &origen, const Palabra &palabra, const QString &valor) {
    bool esNumero = false;
    const int plazo = valor.toInt(&esNumero);
    if (!esNumero || plazo < palabra.plazo.menor || plazo > palabra.plazo.mayor)
        Seccion::rechazar(u"%1 pide %2=%3; escriba cuántos %4 se espera, de %5 a %6."_s.arg(
            origen.quien, QLatin1String(palabra.nombre), valor, QLatin1String(palabra.plazo.unidad),
            QString::number(palabra.plazo.menor), QString::number(palabra.plazo.mayor)));
    return QString::number(plazo);
}

}  // namespace

const QStringList &palabrasDelPerfil() {
    static const QStringList todas = [] {
        QStringList nombres;
        for (const Palabra &p : deLaBiblioteca) nombres << QLatin1String(p.nombre);
        return nombres;
    }();
    return todas;
}

void tomarPalabras(const OrigenDePalabras &origen, Datos &datos) {
    datos.palabras.clear();
    QString modo;
    bool conRaiz = false;
    for (const Palabra &p : deLaBiblioteca) {
        const QString nombre = QLatin1String(p.nombre);
        QString valor = origen.valor(nombre);
        if (valor.isEmpty()) continue;
        if (p.clase == Clase::Archivo) {
            valor = archivoDe(origen, nombre, valor);
            conRaiz = conRaiz || nombre == "sslrootcert"_L1;
        } else if (p.clase == Clase::Plazo) {
            valor = plazoDe(origen, p, valor);
        } else {
            modo = valor = valor.toLower();
            comprobarModo(origen, modo, datos);
        }
        datos.palabras.emplace_back(nombre, valor);
    }
    if (conRaiz && modo.isEmpty())
        Seccion::rechazar(
            u"%1 nombra sslrootcert y no sslmode, sin el cual ningún certificado se verifica; agregue "
            "sslmode=verify-full."_s.arg(origen.quien));
}

void prepararConexion(const Datos &datos, QSqlDatabase &db) {
    db.setHostName(datos.host);
    db.setPort(datos.puerto);
    db.setDatabaseName(datos.base);
    db.setUserName(datos.usuario);
    // An empty one leaves the answer to PostgreSQL's own password file.
    if (!datos.clave.isEmpty()) db.setPassword(datos.clave);
    db.setConnectOptions(enPalabras(palabrasDe(datos)));
}

QString textoDeConexion(const Datos &datos) {
    std::vector<std::pair<QString, QString>> todas{
        {u"host"_s, datos.host}, {u"port"_s, QString::number(datos.puerto)}, {u"dbname"_s, datos.base}};
    if (!datos.usuario.isEmpty()) todas.emplace_back(u"user"_s, datos.usuario);
    const auto demas = palabrasDe(datos);
    todas.insert(todas.end(), demas.begin(), demas.end());
    return enPalabras(todas);
}

}  // namespace motores
