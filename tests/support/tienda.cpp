#include "tests/support/tienda.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <map>
#include <mutex>

#include "frame/base/values.h"
#include "frame/startup.h"
#include "tests/support/intermediario.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

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

Servidor servidorDe(const QString &dicho) {
    Servidor s;
    const QStringList palabras = dicho.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &palabra : palabras) {
        const QString clave = palabra.section(QLatin1Char('='), 0, 0);
        const QString valor = palabra.section(QLatin1Char('='), 1);
        if (clave == "host"_L1) s.host = valor;
        if (clave == "port"_L1) s.puerto = valor.toInt();
        if (clave == "user"_L1) s.usuario = valor;
    }
    return s;
}

/// The same where there has to be one.
Servidor servidorDePrueba(const QString &palabras) {
    const Servidor s = servidorDe(palabras);
    if (s.host.isEmpty())
        fallar(
            u"The tests on a server need ZENDRA_PG (\"host=… port=… user=…\"): ./test sets it, and so does "
            "`scripts/test-server start`, which prints it."_s);
    return s;
}

void enServidor(const Servidor &s, const QString &sql) {
    const QString nombre = QUuid::createUuid().toString();
    QString error;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QPSQL"_s, nombre);
        db.setHostName(s.host);
        db.setPort(s.puerto);
        db.setUserName(s.usuario);
        db.setDatabaseName(u"postgres"_s);
        if (!db.open()) {
            error = db.lastError().text();
        } else {
            QSqlQuery consulta(db);
            if (!consulta.exec(sql)) error = consulta.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(nombre);
    if (!error.isEmpty()) fallar(u"Test server: "_s + error);
}

/// Stores made once a process; every test takes a copy.
struct Molde {
    QTemporaryDir dir;
    QString base;
    QString palabras;
    ~Molde() {
        if (base.isEmpty()) return;
        try {
            enServidor(servidorDePrueba(palabras), u"drop database if exists %1 with (force)"_s.arg(base));
        } catch (const std::exception &) {
            // The server went away first.
        }
    }
};

QString nombreDeBase() {
    return u"z_"_s + QUuid::createUuid().toString(QUuid::Id128);
}

void copiar(const QString &de, const QString &a) {
    const QFileInfoList archivos = QDir(de).entryInfoList(QDir::Files);
    for (const QFileInfo &archivo : archivos)
        if (!QFile::copy(archivo.filePath(), a + QLatin1Char('/') + archivo.fileName()))
            fallar(u"copy: "_s + archivo.filePath());
}

bool escribirPerfilEn(const Servidor &s, const QString &base, const QString &perfil) {
    return StoreProfiles::escribirPerfilDeServidor(perfil, u"Prueba"_s, s.host, s.puerto, base, s.usuario,
                                                   u"."_s);
}

/// Where stores lie: a database of a server, or files where there is none.
struct Sitio {
    QString palabras, base;
};

bool escribirPerfil(const QString &carpeta, const Sitio &sitio, QString &perfil) {
    perfil = carpeta + u"/Prueba.perfil.ini"_s;
    QFile::remove(perfil);
    if (sitio.base.isEmpty()) return StoreProfiles::escribirPerfilDeArchivos(perfil, u"Prueba"_s, u"."_s);
    return escribirPerfilEn(servidorDePrueba(sitio.palabras), sitio.base, perfil);
}

/// Without words: on files.
Molde &molde(const QString &palabras, bool conDemostracion) {
    static std::map<std::pair<QString, bool>, std::unique_ptr<Molde>> moldes;
    // Their bases go while the drivers can still be loaded: once the application object is gone it is too
    // late.
    static const bool limpieza = [] {
        qAddPostRoutine([] { moldes.clear(); });
        return true;
    }();
    Q_UNUSED(limpieza)
    auto &uno = moldes[{palabras, conDemostracion}];
    if (uno) return *uno;
    auto nuevo = std::make_unique<Molde>();
    if (!palabras.isEmpty()) {
        nuevo->base = nombreDeBase();
        nuevo->palabras = palabras;
        enServidor(servidorDePrueba(palabras), u"create database %1"_s.arg(nuevo->base));
    }
    QString perfil;
    if (!escribirPerfil(nuevo->dir.path(), {palabras, nuevo->base}, perfil)) fallar(u"profile"_s);
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
    d.guardarComo = [&r](const PedidoDeArchivo &p) {
        r.pedidos.push_back(p);
        if (r.archivos.empty()) return QString();
        const QString archivo = r.archivos.front();
        r.archivos.pop_front();
        return archivo;
    };
    d.abrirArchivo = [&r](const QString &archivo) {
        r.abiertos.push_back(archivo);
        return r.hayPrograma;
    };
    d.abrirEnlace = [&r](const QString &enlace) {
        r.enlaces.push_back(enlace);
        return r.hayPrograma;
    };
    d.vistaPrevia = [&r](const papel::Documento &documento) { r.vistos.push_back(documento); };
    d.imprimir = [&r](const papel::Documento &documento) {
        r.impresos.push_back(documento);
        return r.imprime;
    };
    return d;
}

Tienda::Tienda(const QString &etiqueta, bool conDemostracion, QString palabras)
    : carpeta_(dir_.path()), palabras_(std::move(palabras)) {
    const bool servidor = etiqueta == "SQL"_L1;
    // Whoever names none is told at once.
    if (servidor) servidorDePrueba(palabras_);
    const Molde &m = molde(servidor ? palabras_ : QString(), conDemostracion);
    copiar(m.dir.path(), carpeta_);
    if (servidor) {
        base_ = nombreDeBase();
        enServidor(servidorDePrueba(palabras_), u"create database %1 template %2"_s.arg(base_, m.base));
    }
    if (!escribirPerfil(carpeta_, {palabras_, base_}, perfil_)) fallar(u"profile"_s);
}

Tienda::~Tienda() {
    if (base_.isEmpty()) return;
    try {
        enServidor(servidorDePrueba(palabras_), u"drop database if exists %1 with (force)"_s.arg(base_));
    } catch (const std::exception &) {
        // Nothing else of the test hangs on it.
    }
}

void Tienda::PasarPor(const Intermediario &linea) {
    if (base_.isEmpty()) return;
    QFile::remove(perfil_);
    if (!escribirPerfilEn(servidorDe(linea.palabras()), base_, perfil_)) fallar(u"profile"_s);
}

void Tienda::IrDerecho() {
    if (!escribirPerfil(carpeta_, {palabras_, base_}, perfil_)) fallar(u"profile"_s);
}

std::unique_ptr<AppContext> Tienda::contexto(Registro &registro) const {
    auto ctx = std::make_unique<AppContext>();
    ctx->ajustes = Ajustes(carpeta_ + u"/ajustes.ini"_s);
    ctx->ajustesDeLaMaquina = Ajustes(carpeta_ + u"/maquina.ini"_s);
    ctx->dialogos = DialogosDePrueba(registro);
    QString error;
    if (!ctx->DataManager.usarPerfil(perfil_, &error)) fallar(error);
    ctx->DataManager.LoadParameters();
    ctx->ConnNcm = &ctx->conexion(u"NCM"_s);
    ctx->ConnInternos = &ctx->conexion(u"INTERNOS"_s);
    ctx->ConnCatalogos = &ctx->conexion(u"CATALOGOS"_s);
    ctx->ConnSystablas = &ctx->conexion(u"SYSTABLAS"_s);
    ctx->SeparadorDecimal = u'.';
    ctx->ProgramFolder = carpeta_ + QLatin1Char('/');
    ctx->PcName = u"PC1"_s;
    return ctx;
}

void EnAmbosStores::SetUp() {
    tienda = std::make_unique<Tienda>(QLatin1String(GetParam()), conDemostracion(), palabrasDelServidor());
    AlHacerLaTienda();
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
    if (!Consultar(*ctx, entidad, sql, rs)) return u"<nada>"_s;
    const QVariant v = rs.Fields(0).Value;
    return v.isNull() ? u"<null>"_s : EsNull(v);
}

QString EnAmbosStores::filas(const QString &sql, const QString &entidad) {
    Recordset rs;
    Consultar(*ctx, entidad, sql, rs);
    QStringList lineas;
    for (; !rs.Eof(); rs.MoveNext()) {
        QStringList celdas;
        for (int c = 0; c < rs.columnas(); ++c) {
            const QVariant v = rs.Fields(c).Value;
            celdas << (v.isNull() ? u"<null>"_s : EsNull(v));
        }
        lineas << celdas.join(QLatin1Char('|'));
    }
    return lineas.join(QLatin1Char('\n'));
}
