#include "tests/support/tienda.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <map>
#include <mutex>

#include "frame/startup.h"
#include "frame/values.h"
#include "upgrade/upgrade.h"

QString CarpetaDeFuentes() {
    return QStringLiteral(ZENDRA_FUENTES);
}
QString CarpetaDeConstruccion() {
    return QStringLiteral(ZENDRA_CONSTRUCCION);
}

namespace {

[[noreturn]] void fallar(const QString &texto) {
    throw std::runtime_error(texto.toStdString());
}

struct Servidor {
    QString host, usuario;
    int puerto = 5432;
};

Servidor servidorDePrueba() {
    Servidor s;
    const QStringList palabras =
        qEnvironmentVariable("ZENDRA_PG").split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &palabra : palabras) {
        const QString clave = palabra.section(QLatin1Char('='), 0, 0);
        const QString valor = palabra.section(QLatin1Char('='), 1);
        if (clave == QLatin1String("host")) s.host = valor;
        if (clave == QLatin1String("port")) s.puerto = valor.toInt();
        if (clave == QLatin1String("user")) s.usuario = valor;
    }
    if (s.host.isEmpty())
        fallar(QStringLiteral(
            "The tests on a server need ZENDRA_PG (\"host=… port=… user=…\"): ./test sets it, and so does "
            "`scripts/test-server start`, which prints it."));
    return s;
}

void enServidor(const Servidor &s, const QString &sql) {
    const QString nombre = QUuid::createUuid().toString();
    QString error;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), nombre);
        db.setHostName(s.host);
        db.setPort(s.puerto);
        db.setUserName(s.usuario);
        db.setDatabaseName(QStringLiteral("postgres"));
        if (!db.open()) {
            error = db.lastError().text();
        } else {
            QSqlQuery consulta(db);
            if (!consulta.exec(sql)) error = consulta.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(nombre);
    if (!error.isEmpty()) fallar(QStringLiteral("Test server: ") + error);
}

/// Stores made once a process; every test takes a copy.
struct Molde {
    QTemporaryDir dir;
    QString base;
    ~Molde() {
        if (base.isEmpty()) return;
        try {
            enServidor(servidorDePrueba(),
                       QStringLiteral("drop database if exists %1 with (force)").arg(base));
        } catch (const std::exception &) {
            // The server went away first.
        }
    }
};

QString nombreDeBase() {
    return QStringLiteral("z_") + QUuid::createUuid().toString(QUuid::Id128);
}

void copiar(const QString &de, const QString &a) {
    const QFileInfoList archivos = QDir(de).entryInfoList(QDir::Files);
    for (const QFileInfo &archivo : archivos)
        if (!QFile::copy(archivo.filePath(), a + QLatin1Char('/') + archivo.fileName()))
            fallar(QStringLiteral("copy: ") + archivo.filePath());
}

bool escribirPerfil(const QString &carpeta, const QString &base, QString &perfil) {
    perfil = carpeta + QStringLiteral("/Prueba.perfil.ini");
    QFile::remove(perfil);
    if (base.isEmpty())
        return StoreProfiles::escribirPerfilDeArchivos(perfil, QStringLiteral("Prueba"), QStringLiteral("."));
    const Servidor s = servidorDePrueba();
    return StoreProfiles::escribirPerfilDeServidor(perfil, QStringLiteral("Prueba"), s.host, s.puerto, base,
                                                   s.usuario, QStringLiteral("."));
}

Molde &molde(bool servidor, bool conDemostracion) {
    static std::map<std::pair<bool, bool>, std::unique_ptr<Molde>> moldes;
    // Their bases go while the drivers can still be loaded: once the application object is gone it is too
    // late.
    static const bool limpieza = [] {
        qAddPostRoutine([] { moldes.clear(); });
        return true;
    }();
    Q_UNUSED(limpieza)
    auto &uno = moldes[{servidor, conDemostracion}];
    if (uno) return *uno;
    auto nuevo = std::make_unique<Molde>();
    if (servidor) {
        nuevo->base = nombreDeBase();
        enServidor(servidorDePrueba(), QStringLiteral("create database %1").arg(nuevo->base));
    }
    QString perfil;
    if (!escribirPerfil(nuevo->dir.path(), nuevo->base, perfil)) fallar(QStringLiteral("profile"));
    const auto hecho =
        conDemostracion ? actualizacion::CargarDemostracion(perfil) : actualizacion::Actualizar(perfil);
    if (!hecho.ok) fallar(hecho.error);
    uno = std::move(nuevo);
    return *uno;
}

}  // namespace

Dialogos DialogosDePrueba(Registro &r) {
    Dialogos d;
    d.mensaje = [&r](const Mensaje &m) { r.mensajes.push_back(m); };
    d.preguntar = [&r](const Pregunta &p) {
        r.preguntas.push_back(p);
        if (r.respuestas.empty()) return false;
        const bool si = r.respuestas.front();
        r.respuestas.pop_front();
        return si;
    };
    d.pedirTexto = [&r](const Entrada &e) {
        r.entradas.push_back(e);
        if (r.textos.empty()) return std::optional<QString>();
        auto texto = r.textos.front();
        r.textos.pop_front();
        if (texto) texto = texto->left(e.maximo);
        return texto;
    };
    d.elegir = [&r](const Eleccion &e) {
        r.elecciones.push_back(e);
        if (r.indices.empty()) return -1;
        const int cual = r.indices.front();
        r.indices.pop_front();
        return cual;
    };
    d.preguntarConOpciones = [&r](const PreguntaConOpciones &p) {
        r.conOpciones.push_back(p);
        if (r.opciones.empty()) return RespuestaConOpciones();
        const auto respuesta = r.opciones.front();
        r.opciones.pop_front();
        return respuesta;
    };
    d.informe = [&r](const Informe &i) { r.informes.push_back(i); };
    d.avance = [&r](const Avance &a) { r.avances.push_back(a); };
    return d;
}

Tienda::Tienda(const QString &etiqueta, bool conDemostracion) : carpeta_(dir_.path()) {
    const bool servidor = etiqueta == QLatin1String("SQL");
    const Molde &m = molde(servidor, conDemostracion);
    copiar(m.dir.path(), carpeta_);
    if (servidor) {
        base_ = nombreDeBase();
        enServidor(servidorDePrueba(), QStringLiteral("create database %1 template %2").arg(base_, m.base));
    }
    if (!escribirPerfil(carpeta_, base_, perfil_)) fallar(QStringLiteral("profile"));
}

Tienda::~Tienda() {
    if (base_.isEmpty()) return;
    try {
        enServidor(servidorDePrueba(), QStringLiteral("drop database if exists %1 with (force)").arg(base_));
    } catch (const std::exception &) {
        // Nothing else of the test hangs on it.
    }
}

std::unique_ptr<AppContext> Tienda::contexto(Registro &registro) const {
    auto ctx = std::make_unique<AppContext>();
    ctx->ajustes = Ajustes(carpeta_ + QStringLiteral("/ajustes.ini"));
    ctx->dialogos = DialogosDePrueba(registro);
    QString error;
    if (!ctx->DataManager.usarPerfil(perfil_, &error)) fallar(error);
    ctx->DataManager.LoadParameters();
    ctx->ConnNcm = &ctx->conexion(QStringLiteral("NCM"));
    ctx->ConnInternos = &ctx->conexion(QStringLiteral("INTERNOS"));
    ctx->ConnCatalogos = &ctx->conexion(QStringLiteral("CATALOGOS"));
    ctx->ConnSystablas = &ctx->conexion(QStringLiteral("SYSTABLAS"));
    ctx->SuffixChecker.SetDataManager(&ctx->DataManager);
    ctx->ProgramFolder = carpeta_ + QLatin1Char('/');
    ctx->PcName = QStringLiteral("PC1");
    return ctx;
}

void EnAmbosStores::SetUp() {
    tienda = std::make_unique<Tienda>(QLatin1String(GetParam()), conDemostracion());
    ctx = tienda->contexto(registro);
    fijarContexto(ctx.get());
}

void EnAmbosStores::TearDown() {
    fijarContexto(nullptr);
    ctx.reset();
    tienda.reset();
}

qint64 EnAmbosStores::ejecutar(const QString &sql, const QString &entidad) {
    return Ejecutar(*ctx, entidad, sql);
}

QString EnAmbosStores::valor(const QString &sql, const QString &entidad) {
    Recordset rs;
    if (!Consultar(*ctx, entidad, sql, rs)) return QStringLiteral("<nada>");
    const QVariant v = rs.Fields(0).Value;
    return v.isNull() ? QStringLiteral("<null>") : EsNull(v);
}

QString EnAmbosStores::filas(const QString &sql, const QString &entidad) {
    Recordset rs;
    Consultar(*ctx, entidad, sql, rs);
    QStringList lineas;
    for (; !rs.Eof(); rs.MoveNext()) {
        QStringList celdas;
        for (int c = 0; c < rs.columnas(); ++c) {
            if (rs.nombreDeColumna(c) == QLatin1String("zfila")) continue;
            const QVariant v = rs.Fields(c).Value;
            celdas << (v.isNull() ? QStringLiteral("<null>") : EsNull(v));
        }
        lineas << celdas.join(QLatin1Char('|'));
    }
    return lineas.join(QLatin1Char('\n'));
}
