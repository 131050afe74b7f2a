// The batch program: one command on the stores of a profile, every message a line of JSON on standard output.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QTextStream>
#include <cstdio>

#include "frame/jsondialogs.h"
#include "frame/startup.h"
#include "operations/batch.h"

using namespace Qt::StringLiterals;

namespace {

/// What the command line asked for.
struct Pedido {
    QString perfil, ajustes, opciones, respuestas, traza;
    lote::Orden orden;
};

bool leerPedido(const QStringList &argumentos, Pedido &pedido, QString &error) {
    QCommandLineParser linea;
    const QCommandLineOption perfil(u"perfil"_s, QString(), u"archivo"_s);
    const QCommandLineOption ajustes(u"ajustes"_s, QString(), u"archivo"_s);
    const QCommandLineOption opciones(u"opciones"_s, QString(), u"archivo"_s);
    const QCommandLineOption respuestas(u"respuestas"_s, QString(), u"archivo"_s);
    const QCommandLineOption traza(u"traza"_s, QString(), u"archivo"_s);
    const QCommandLineOption forzar(u"forzar"_s);
    linea.addOptions({perfil, ajustes, opciones, respuestas, traza, forzar});
    const QString uso =
        u"Use: zendra_lote --perfil ARCHIVO [--ajustes ARCHIVO] [--opciones ARCHIVO.json] [--respuestas "
        "ARCHIVO.json] [--traza ARCHIVO] [--forzar] "
        "armar|liquidar|comprobar|crear|borrar CLAVE | listar"_s;
    if (!linea.parse(argumentos)) {
        const QStringList desconocidas = linea.unknownOptionNames();
        error = (desconocidas.isEmpty() ? u"A una opción le falta su valor. "_s
                                        : u"No existe la opción --%1. "_s.arg(desconocidas.front())) +
                uso;
        return false;
    }
    const QStringList resto = linea.positionalArguments();
    pedido = {linea.value(perfil),   linea.value(ajustes),
              linea.value(opciones), linea.value(respuestas),
              linea.value(traza),    {resto.value(0), resto.value(1).trimmed(), linea.isSet(forzar)}};
    const bool listar = pedido.orden.comando == "listar"_L1;
    if (pedido.perfil.isEmpty())
        error = u"Falta --perfil. "_s + uso;
    else if (!lote::Comandos().contains(pedido.orden.comando))
        error = u"No existe el comando \"%1\". "_s.arg(pedido.orden.comando) + uso;
    else if (resto.size() != (listar ? 1 : 2) || (!listar && pedido.orden.clave.isEmpty()))
        error = u"El comando %1 lleva %2. "_s.arg(
                    pedido.orden.comando, listar ? u"ninguna clave"_s : u"la clave de una operación"_s) +
                uso;
    else if (pedido.orden.clave.size() > 40)
        error = u"La clave de una operación tiene 40 caracteres como máximo."_s;
    return error.isEmpty();
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
    error =
        u"El archivo %1 no es JSON válido (falla en el byte %2); corríjalo."_s.arg(archivo).arg(falla.offset);
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

bool leerOpciones(const QString &archivo, QJsonObject &opciones, QString &error) {
    if (archivo.isEmpty()) return true;
    QJsonDocument documento;
    if (!leerJson(archivo, documento, error)) return false;
    if (!documento.isObject()) {
        error = u"El archivo %1 debe ser un objeto JSON con las opciones; corríjalo."_s.arg(archivo);
        return false;
    }
    opciones = documento.object();
    return true;
}

int negar(const QString &texto) {
    std::fprintf(stderr, "%s\n", texto.toUtf8().constData());
    return lote::malPedido;
}

void escribirLinea(const QString &texto) {
    const QByteArray utf8 = texto.toUtf8() + '\n';
    std::fwrite(utf8.constData(), 1, static_cast<std::size_t>(utf8.size()), stdout);
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char **argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"zendra_lote"_s);
    // The program's own default, whatever an environment without a locale says.
    if (QLocale::system().language() == QLocale::C)
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));

    Pedido pedido;
    QString error;
    QStringList respuestas;
    QJsonObject opciones;
    if (!leerPedido(QCoreApplication::arguments(), pedido, error) ||
        !leerRespuestas(pedido.respuestas, respuestas, error) ||
        !leerOpciones(pedido.opciones, opciones, error))
        return negar(error);

    AppContext ctx;
    fijarContexto(&ctx);
    ctx.ajustes = Ajustes(pedido.ajustes);
    ctx.dialogos = DialogosJson(escribirLinea, respuestas);
    ctx.PcName = NombreDeLaPC();
    {
        // A trial of the options on a context of its own: a wrong one is told before any store is touched.
        AppContext prueba;
        EleccionDelTablero tablero;
        if (!lote::AplicarOpciones(opciones, prueba, tablero, error)) return negar(error);
    }
    if (!QFile::exists(pedido.perfil))
        return negar(
            u"No existe el perfil %1; corrija la ruta o créelo con DbUpgrade3."_s.arg(pedido.perfil));

    QFile traza(pedido.traza);
    if (!pedido.traza.isEmpty()) {
        if (!traza.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return negar(u"No se puede escribir la traza en %1; elija otra ruta."_s.arg(pedido.traza));
        Conexion::fijarTraza([&traza](const TrazaDeSentencia &t) {
            QString texto = t.sentencia;
            texto.replace("\r\n"_L1, " "_L1).replace(QLatin1Char('\n'), QLatin1Char(' '));
            traza.write(
                u"%1\t%2\t%3\t%4\n"_s.arg(t.microsegundos).arg(t.filas).arg(t.entidad, texto).toUtf8());
        });
    }

    int estado = lote::falla;
    QJsonObject resultado;
    try {
        if (!ctx.DataManager.usarPerfil(pedido.perfil, &error)) throw Falla{0, {}, error, {}};
        ctx.DataManager.LoadParameters();
        if (lote::VersionAdecuada(ctx)) {
            Arrancar(ctx);
            EleccionDelTablero tablero = lote::TableroInicial(ctx);
            lote::AplicarOpciones(opciones, ctx, tablero, error);
            const auto escribir = [](const QJsonObject &objeto) { escribirLinea(LineaJson(objeto)); };
            estado = lote::Ejecutar(ctx, pedido.orden, tablero, escribir, resultado);
        }
    } catch (const Falla &e) {
        ctx.dialogos.critico(e.descripcion);
    } catch (const QString &texto) {
        ctx.dialogos.critico(texto);
    }
    if (resultado.isEmpty()) resultado[u"resultado"_s] = pedido.orden.comando;
    resultado[u"estado"_s] = estado;
    escribirLinea(LineaJson(resultado));
    Conexion::fijarTraza({});
    fijarContexto(nullptr);
    return estado;
}
