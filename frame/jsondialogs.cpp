#include "frame/jsondialogs.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// What the dialogs share.
struct Guion {
    SalidaDeLineas salida;
    QStringList respuestas;

    QString siguiente() { return respuestas.isEmpty() ? QString() : respuestas.takeFirst(); }
    void escribir(const QJsonObject &objeto) const { salida(LineaJson(objeto)); }
};

bool esSi(const QString &respuesta) {
    const QString limpia = respuesta.trimmed().toLower();
    return limpia == "si"_L1 || limpia == u"sí"_s || limpia == "s"_L1 || limpia == "yes"_L1;
}

QString nombreDe(Icono icono) {
    switch (icono) {
        case Icono::Informacion:
            return u"informacion"_s;
        case Icono::Exclamacion:
            return u"exclamacion"_s;
        case Icono::Critico:
            return u"critico"_s;
        case Icono::Pregunta:
            return u"pregunta"_s;
        case Icono::Ninguno:
            break;
    }
    return {};
}

QJsonObject linea(const char *tipo, Icono icono, const QString &titulo, const QString &texto) {
    return {{u"tipo"_s, L(tipo)}, {u"icono"_s, nombreDe(icono)}, {u"titulo"_s, titulo}, {u"texto"_s, texto}};
}

RespuestaConOpciones elegida(const QString &respuesta) {
    const QString limpia = respuesta.trimmed().toUpper();
    if (limpia == "R"_L1 || limpia == "OPREP"_L1) return {true, 1};
    if (limpia == "P"_L1 || limpia == "OPPRO"_L1) return {true, 0};
    return {esSi(respuesta), 0};
}

}  // namespace

QString LineaJson(const QJsonObject &objeto) {
    return QString::fromUtf8(QJsonDocument(objeto).toJson(QJsonDocument::Compact));
}

Dialogos DialogosJson(SalidaDeLineas salida, const QStringList &respuestas) {
    auto guion = std::make_shared<Guion>(Guion{std::move(salida), respuestas});
    const QString claveRespuesta = u"respuesta"_s;
    Dialogos d;
    d.mensaje = [guion, claveRespuesta](const Mensaje &m) {
        QJsonObject o = linea("mensaje", m.icono, m.titulo, m.texto);
        o[claveRespuesta] = QJsonValue::Null;
        guion->escribir(o);
    };
    d.preguntar = [guion, claveRespuesta](const Pregunta &p) {
        const bool si = esSi(guion->siguiente());
        QJsonObject o = linea("pregunta", p.icono, p.titulo, p.texto);
        o[claveRespuesta] = si ? "Si"_L1 : "No"_L1;
        guion->escribir(o);
        return si;
    };
    d.pedirTexto = [guion, claveRespuesta](const Entrada &e) {
        const QString texto = guion->siguiente().left(e.maximo);
        QJsonObject o = linea("entrada", Icono::Ninguno, e.titulo, e.texto);
        o[claveRespuesta] = texto;
        guion->escribir(o);
        return std::optional<QString>(texto);
    };
    d.elegir = [guion, claveRespuesta](const Eleccion &e) {
        const int cual = static_cast<int>(e.filas.indexOf(guion->siguiente()));
        QJsonObject o = linea("eleccion", Icono::Ninguno, e.titulo, e.filas.join(QLatin1Char('\n')));
        o[claveRespuesta] = cual >= 0 ? QJsonValue(e.filas.at(cual)) : QJsonValue(QJsonValue::Null);
        guion->escribir(o);
        return cual;
    };
    d.preguntarConOpciones = [guion, claveRespuesta](const PreguntaConOpciones &p) {
        const RespuestaConOpciones respuesta = elegida(guion->siguiente());
        QJsonObject o = linea("pregunta", Icono::Pregunta, p.titulo, p.texto);
        o[u"opciones"_s] = QJsonArray::fromStringList(p.opciones);
        o[claveRespuesta] = respuesta.si ? "Si, "_L1 + p.opciones.value(respuesta.opcion) : u"No"_s;
        guion->escribir(o);
        return respuesta;
    };
    d.informe = [guion, claveRespuesta](const Informe &i) {
        QJsonObject o = linea("informe", Icono::Ninguno, i.titulo, i.texto);
        o[claveRespuesta] = QJsonValue::Null;
        guion->escribir(o);
    };
    return d;
}
