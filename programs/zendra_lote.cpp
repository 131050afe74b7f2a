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

namespace {

/// What the command line asked for.
struct Pedido {
    QString perfil, ajustes, opciones, respuestas, traza;
    lote::Orden orden;
};

bool leerPedido(const QStringList &argumentos, Pedido &pedido, QString &error) {
    QCommandLineParser linea;
    const QCommandLineOption perfil(QStringLiteral("perfil"), QString(), QStringLiteral("archivo"));
    const QCommandLineOption ajustes(QStringLiteral("ajustes"), QString(), QStringLiteral("archivo"));
    const QCommandLineOption opciones(QStringLiteral("opciones"), QString(), QStringLiteral("archivo"));
    const QCommandLineOption respuestas(QStringLiteral("respuestas"), QString(), QStringLiteral("archivo"));
    const QCommandLineOption traza(QStringLiteral("traza"), QString(), QStringLiteral("archivo"));
    const QCommandLineOption forzar(QStringLiteral("forzar"));
    linea.addOptions({perfil, ajustes, opciones, respuestas, traza, forzar});
    const QString uso = QStringLiteral(
        "Use: zendra_lote --perfil ARCHIVO [--ajustes ARCHIVO] [--opciones ARCHIVO.json] [--respuestas "
        "ARCHIVO.json] [--traza ARCHIVO] [--forzar] "
        "armar|liquidar|comprobar|crear|borrar CLAVE | listar");
    if (!linea.parse(argumentos)) {
        const QStringList desconocidas = linea.unknownOptionNames();
        error = (desconocidas.isEmpty()
                     ? QStringLiteral("A una opción le falta su valor. ")
                     : QStringLiteral("No existe la opción --%1. ").arg(desconocidas.front())) +
                uso;
        return false;
    }
    const QStringList resto = linea.positionalArguments();
    pedido = {linea.value(perfil),   linea.value(ajustes),
              linea.value(opciones), linea.value(respuestas),
              linea.value(traza),    {resto.value(0), resto.value(1).trimmed(), linea.isSet(forzar)}};
    const bool listar = pedido.orden.comando == QLatin1String("listar");
    if (pedido.perfil.isEmpty())
        error = QStringLiteral("Falta --perfil. ") + uso;
    else if (!lote::Comandos().contains(pedido.orden.comando))
        error = QStringLiteral("No existe el comando \"%1\". ").arg(pedido.orden.comando) + uso;
    else if (resto.size() != (listar ? 1 : 2) || (!listar && pedido.orden.clave.isEmpty()))
        error = QStringLiteral("El comando %1 lleva %2. ")
                    .arg(pedido.orden.comando, listar ? QStringLiteral("ninguna clave")
                                                      : QStringLiteral("la clave de una operación")) +
                uso;
    else if (pedido.orden.clave.size() > 40)
        error = QStringLiteral("La clave de una operación tiene 40 caracteres como máximo.");
    return error.isEmpty();
}

bool leerJson(const QString &archivo, QJsonDocument &documento, QString &error) {
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("No se puede leer el archivo %1; revise la ruta y los permisos.").arg(archivo);
        return false;
    }
    QJsonParseError falla{};
    documento = QJsonDocument::fromJson(f.readAll(), &falla);
    if (falla.error == QJsonParseError::NoError) return true;
    error = QStringLiteral("El archivo %1 no es JSON válido (falla en el byte %2); corríjalo.")
                .arg(archivo)
                .arg(falla.offset);
    return false;
}

bool leerRespuestas(const QString &archivo, QStringList &respuestas, QString &error) {
    if (archivo.isEmpty()) return true;
    QJsonDocument documento;
    if (!leerJson(archivo, documento, error)) return false;
    if (!documento.isArray()) {
        error = QStringLiteral("El archivo %1 debe ser una lista de textos; corríjalo.").arg(archivo);
        return false;
    }
    const QJsonArray lista = documento.array();
    for (const auto &v : lista) {
        if (!v.isString()) {
            error = QStringLiteral("El archivo %1 debe ser una lista de textos; corríjalo.").arg(archivo);
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
        error =
            QStringLiteral("El archivo %1 debe ser un objeto JSON con las opciones; corríjalo.").arg(archivo);
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
    QCoreApplication::setApplicationName(QStringLiteral("zendra_lote"));
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
        return negar(QStringLiteral("No existe el perfil %1; corrija la ruta o créelo con DbUpgrade3.")
                         .arg(pedido.perfil));

    QFile traza(pedido.traza);
    if (!pedido.traza.isEmpty()) {
        if (!traza.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return negar(
                QStringLiteral("No se puede escribir la traza en %1; elija otra ruta.").arg(pedido.traza));
        Conexion::fijarTraza([&traza](const TrazaDeSentencia &t) {
            QString texto = t.sentencia;
            texto.replace(QLatin1String("\r\n"), QLatin1String(" "))
                .replace(QLatin1Char('\n'), QLatin1Char(' '));
            traza.write(QStringLiteral("%1\t%2\t%3\t%4\n")
                            .arg(t.microsegundos)
                            .arg(t.filas)
                            .arg(t.entidad, texto)
                            .toUtf8());
        });
    }

    int estado = lote::falla;
    QJsonObject resultado;
    try {
        if (!ctx.DataManager.usarPerfil(pedido.perfil, &error)) throw ErrorDeStore{0, {}, error, {}};
        ctx.DataManager.LoadParameters();
        if (lote::VersionAdecuada(ctx)) {
            Arrancar(ctx);
            EleccionDelTablero tablero = lote::TableroInicial(ctx);
            lote::AplicarOpciones(opciones, ctx, tablero, error);
            const auto escribir = [](const QJsonObject &objeto) { escribirLinea(LineaJson(objeto)); };
            estado = lote::Ejecutar(ctx, pedido.orden, tablero, escribir, resultado);
        }
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
    } catch (const QString &texto) {
        ctx.dialogos.critico(texto);
    }
    if (resultado.isEmpty()) resultado[QStringLiteral("resultado")] = pedido.orden.comando;
    resultado[QStringLiteral("estado")] = estado;
    escribirLinea(LineaJson(resultado));
    Conexion::fijarTraza({});
    fijarContexto(nullptr);
    return estado;
}
