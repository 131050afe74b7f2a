// The batch program: one command on the stores of a profile, every message a line of JSON on standard output.
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QScopeGuard>
#include <algorithm>
#include <cstdio>
#include <memory>

#include "frame/commandline.h"
#include "frame/jsondialogs.h"
#include "frame/lasthandler.h"
#include "frame/startup.h"
#include "operations/batch.h"
#include "stock/link.h"

using namespace Qt::StringLiterals;

namespace {

consola::Programa descripcion() {
    return {
        .nombre = "zendra_lote",
        .texto =
            u"Trabaja sin pantallas sobre las operaciones de un perfil. Cada mensaje y cada pregunta es "
            "una línea JSON de la salida; la última línea es el resultado."_s,
        .opciones =
            {
                {.nombre = "perfil",
                 .valor = "ARCHIVO",
                 .texto = "El perfil que dice dónde están los stores.",
                 .obligatoria = true},
                {.nombre = "ajustes",
                 .valor = "ARCHIVO",
                 .texto = "Los ajustes de la PC; sin ella, los del usuario."},
                {.nombre = "opciones",
                 .valor = "ARCHIVO",
                 .texto = "Opciones para esta corrida: un objeto JSON con los nombres del archivo de "
                          "configuración y de los controles de la pantalla de la operación."},
                {.nombre = "respuestas",
                 .valor = "ARCHIVO",
                 .texto = "Lo que se contesta a las preguntas, en su orden: una lista JSON de textos. Detrás "
                          "del último la respuesta es No, o el texto vacío."},
                {.nombre = "traza",
                 .valor = "ARCHIVO",
                 .texto = "Escribe ahí cada sentencia: microsegundos, filas, entidad y texto."},
            },
        .comandos = lote::Comandos(),
        .nota = "Termina con 0 si hizo lo pedido, con 1 si falló y con 2 si el pedido está mal hecho.",
    };
}

bool leerJson(const QString &archivo, QJsonDocument &documento, QString &error) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) {
        error = u"No se puede leer el archivo %1; revise la ruta y los permisos."_s.arg(archivo);
        return false;
    }
    QJsonParseError falla{};
    documento = QJsonDocument::fromJson(f.readAll(), &falla);
    if (falla.error == QJsonParseError::NoError) return true;
    error = u"El archivo %1 no es JSON válido (falla en el byte %2); corríjalo."_s.arg(
        archivo, QString::number(falla.offset));
    return false;
}

bool leerRespuestas(const QString &archivo, QStringList &respuestas, QString &error) {
    if (archivo.isEmpty()) return true;
    QJsonDocument documento;
    if (!leerJson(archivo, documento, error)) return false;
    if (!documento.isArray()) {
        error = u"El archivo %1 debe ser una lista de textos; corríjalo."_s.arg(archivo);
        return false;
    }
    const QJsonArray lista = documento.array();
    for (const auto &v : lista) {
        if (!v.isString()) {
            error = u"El archivo %1 debe ser una lista de textos; corríjalo."_s.arg(archivo);
            return false;
        }
        respuestas << v.toString();
    }
    return true;
}

/// `que` is what the file holds, for the sentence.
bool leerObjeto(const QString &archivo, const QString &que, QJsonObject &objeto, QString &error) {
    if (archivo.isEmpty()) return true;
    QJsonDocument documento;
    if (!leerJson(archivo, documento, error)) return false;
    if (!documento.isObject()) {
        error = u"El archivo %1 debe ser un objeto JSON con %2; corríjalo."_s.arg(archivo, que);
        return false;
    }
    objeto = documento.object();
    return true;
}

void escribirLinea(const QString &texto) {
    const QByteArray utf8 = texto.toUtf8() + '\n';
    std::fwrite(utf8.constData(), 1, static_cast<std::size_t>(utf8.size()), stdout);
    std::fflush(stdout);
}

/// What the files of the command line ask for; false with one Spanish line in `error`.
bool leerArchivos(const consola::Pedido &pedido, QStringList &respuestas, QJsonObject &opciones,
                  lote::Orden &orden, QString &error) {
    if (!leerRespuestas(pedido.valor("respuestas"), respuestas, error) ||
        !leerObjeto(pedido.valor("opciones"), u"las opciones"_s, opciones, error) ||
        !leerObjeto(pedido.valor("cambios"), u"los cambios"_s, orden.cambios, error))
        return false;
    error = lote::DefectoDeCambios(orden);
    if (!error.isEmpty()) return false;
    // A trial of the options on a context of its own: a wrong one is told before any store is touched.
    AppContext prueba;
    EleccionDelTablero tablero;
    if (!lote::AplicarOpciones(opciones, prueba, tablero, error)) return false;
    if (QFile::exists(pedido.valor("perfil"))) return true;
    error = u"No existe el perfil %1; corrija la ruta o créelo con DbUpgrade3."_s.arg(pedido.valor("perfil"));
    return false;
}

/// Statements go into `traza` from here on; false when it cannot be written.
bool trazar(QFile &traza) {
    if (traza.fileName().isEmpty()) return true;
    if (!traza.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    Conexion::fijarTraza([&traza](const TrazaDeSentencia &t) {
        QString texto = t.sentencia;
        texto.replace("\r\n"_L1, " "_L1).replace(QLatin1Char('\n'), QLatin1Char(' '));
        traza.write(u"%1\t%2\t%3\t%4\n"_s.arg(t.microsegundos).arg(t.filas).arg(t.entidad, texto).toUtf8());
    });
    return true;
}

int trabajar(AppContext &ctx, const consola::Pedido &pedido, QJsonObject &resultado) {
    QString error;
    QStringList respuestas;
    QJsonObject opciones;
    lote::Orden orden = lote::OrdenDe(pedido);
    if (!leerArchivos(pedido, respuestas, opciones, orden, error)) return consola::Negar(error);
    QFile traza(pedido.valor("traza"));
    const auto sinTraza = qScopeGuard([] { Conexion::fijarTraza({}); });
    if (!trazar(traza))
        return consola::Negar(
            u"No se puede escribir la traza en %1; elija otra ruta."_s.arg(traza.fileName()));

    ctx.ajustes = Ajustes(pedido.valor("ajustes"));
    ctx.dialogos = DialogosJson(escribirLinea, respuestas);
    ctx.PcName = NombreDeLaPC();
    if (!ctx.DataManager.usarPerfil(pedido.valor("perfil"), &error)) throw Falla{0, {}, error, {}};
    ctx.DataManager.LoadParameters();
    if (!lote::VersionAdecuada(ctx)) return lote::falla;
    // Their options are read with the others.
    stock::Enchufar(ctx);
    Arrancar(ctx);
    EleccionDelTablero tablero = lote::TableroInicial(ctx);
    lote::AplicarOpciones(opciones, ctx, tablero, error);
    return lote::Ejecutar(
        ctx, orden, tablero, [](const QJsonObject &objeto) { escribirLinea(LineaJson(objeto)); }, resultado);
}

/// What the window system says while it starts, which is what it misses of a desktop: nothing
/// that a night's run could mend, but for the one word that it does not start at all.
void callar(QtMsgType clase, const QMessageLogContext &, const QString &texto) {
    if (clase == QtFatalMsg) std::fprintf(stderr, "%s\n", texto.toUtf8().constData());
}

/// Fonts come with the window system, which a night's run has not: its commands of paper take the one that
/// draws in memory, all others none.
std::unique_ptr<QCoreApplication> crearAplicacion(int &argc, char **argv) {
    const bool deTexto =
        std::none_of(argv, argv + argc, [](const char *palabra) { return lote::EsDePapel(palabra); });
    if (deTexto) return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QtMessageHandler antes = qInstallMessageHandler(callar);
    auto app = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(antes);
    return app;
}

}  // namespace

int main(int argc, char **argv) {
    const std::unique_ptr<QCoreApplication> app = crearAplicacion(argc, argv);
    QCoreApplication::setApplicationName(u"zendra_lote"_s);
    // The program's own default, whatever an environment without a locale says.
    if (QLocale::system().language() == QLocale::C)
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));

    const consola::Pedido pedido = consola::Leer(descripcion(), QCoreApplication::arguments());
    if (pedido.que != consola::Que::Trabajar) return consola::Contestar(pedido);

    AppContext ctx;
    fijarContexto(&ctx);
    ctx.dialogos = DialogosJson(escribirLinea, {});
    QJsonObject resultado{{u"resultado"_s, pedido.comando}};
    const int estado =
        CorrerConUltimaDefensa([&] { return trabajar(ctx, pedido, resultado); },
                               [&ctx](const QString &texto) { ctx.dialogos.critico(texto); }, lote::falla);
    if (estado != lote::malPedido) {
        resultado[u"estado"_s] = estado;
        escribirLinea(LineaJson(resultado));
    }
    stock::Desenchufar();
    fijarContexto(nullptr);
    return estado;
}
