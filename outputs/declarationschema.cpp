// Validation with libxml2: the one file that knows it.

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <QFile>
#include <algorithm>
#include <array>
#include <iterator>
#include <memory>

#include "frame/base/failure.h"
#include "outputs/declarationxml.h"

using namespace Qt::StringLiterals;

// The resource lies in a static library, so somebody has to ask for it by name.
static void prenderEsquemas() {
    Q_INIT_RESOURCE(esquemas);
}

namespace {

struct Liberar {
    void operator()(xmlDocPtr p) const { xmlFreeDoc(p); }
    void operator()(xmlParserCtxtPtr p) const { xmlFreeParserCtxt(p); }
    void operator()(xmlSchemaPtr p) const { xmlSchemaFree(p); }
    void operator()(xmlSchemaParserCtxtPtr p) const { xmlSchemaFreeParserCtxt(p); }
    void operator()(xmlSchemaValidCtxtPtr p) const { xmlSchemaFreeValidCtxt(p); }
};
template <class T>
using DeLibxml = std::unique_ptr<T, Liberar>;

/// The first thing that the library complained of; its own words are not for the user.
struct PrimerError {
    int codigo = 0;
    int linea = 0;
    QString lugar;  ///< element or attribute
};

void anotarError(void *donde, xmlErrorPtr error) {
    auto *primero = static_cast<PrimerError *>(donde);
    if (primero->codigo != 0) return;
    primero->codigo = error->code == 0 ? -1 : error->code;
    primero->linea = error->line;
    if (error->node != nullptr) {
        const auto *nodo = static_cast<const xmlNode *>(error->node);
        primero->lugar = QString::fromUtf8(reinterpret_cast<const char *>(nodo->name));
        if (primero->linea <= 0) primero->linea = static_cast<int>(xmlGetLineNo(nodo));
    }
}

struct MotivoDeRechazo {
    int codigo;
    const char *texto;
};
constexpr std::array motivosDeRechazo{
    MotivoDeRechazo{XML_SCHEMAV_CVC_IDC, "un número se repite o falta"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_COMPLEX_TYPE_4, "falta un dato obligatorio"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1, "hay un dato de más"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_2, "hay un dato de más"},
    MotivoDeRechazo{XML_SCHEMAV_ELEMENT_CONTENT, "hay un elemento de más o fuera de su lugar"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_ELT_1, "no es el documento de una declaración"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "un valor no es de su tipo"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID, "un número tiene decimales de más"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_ENUMERATION_VALID, "un valor no es de los admitidos"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_MINLENGTH_VALID, "un dato está vacío"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_MAXLENGTH_VALID, "un dato es demasiado largo"},
    MotivoDeRechazo{XML_SCHEMAV_CVC_PATTERN_VALID, "un valor no tiene la forma que debe"},
};

QString contarError(const PrimerError &error, const QString &sinCausa) {
    const auto *const motivo =
        std::find_if(motivosDeRechazo.begin(), motivosDeRechazo.end(),
                     [&error](const MotivoDeRechazo &uno) { return uno.codigo == error.codigo; });
    QString donde = error.linea > 0 ? u"línea %1"_s.arg(error.linea) : QString();
    if (!error.lugar.isEmpty())
        donde += (donde.isEmpty() ? QString() : u", "_s) + u"\"%1\""_s.arg(error.lugar);
    return (motivo != motivosDeRechazo.end() ? QString::fromUtf8(motivo->texto) : sinCausa) +
           (donde.isEmpty() ? QString() : u" ("_s + donde + u')');
}

DeLibxml<xmlSchema> cargarEsquema(const QByteArray &texto) {
    const DeLibxml<xmlSchemaParserCtxt> lector(
        xmlSchemaNewMemParserCtxt(texto.constData(), static_cast<int>(texto.size())));
    PrimerError error;
    xmlSchemaSetParserStructuredErrors(lector.get(), anotarError, &error);
    return DeLibxml<xmlSchema>(xmlSchemaParse(lector.get()));
}

/// Parsed from memory alone: no network, no entities, no document type.
DeLibxml<xmlDoc> leerDocumento(const QByteArray &texto, PrimerError &error) {
    const DeLibxml<xmlParserCtxt> lector(xmlNewParserCtxt());
    DeLibxml<xmlDoc> documento(xmlCtxtReadMemory(lector.get(), texto.constData(),
                                                 static_cast<int>(texto.size()), nullptr, nullptr,
                                                 XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
    if (documento == nullptr || lector->wellFormed == 0) {
        if (const xmlError *e = xmlCtxtGetLastError(lector.get())) error.linea = e->line;
        error.codigo = -1;
        documento.reset();
    }
    return documento;
}

}  // namespace

QByteArray EsquemaDeDeclaracion() {
    prenderEsquemas();
    QFile archivo(u":/outputs/declaracion-1.xsd"_s);
    if (!archivo.open(QIODevice::ReadOnly))
        throw Falla{0,
                    u"transferencia"_s,
                    u"El programa no tiene el esquema de la declaración; vuelva a instalarlo."_s,
                    {}};
    return archivo.readAll();
}

QString DefectoDelDocumento(const QByteArray &documento) {
    PrimerError error;
    const DeLibxml<xmlDoc> leido = leerDocumento(documento, error);
    if (leido == nullptr) return contarError(error, u"no es un documento XML bien formado"_s);
    if (leido->intSubset != nullptr || leido->extSubset != nullptr)
        return u"trae una definición de tipo de documento, que no se admite"_s;
    const DeLibxml<xmlSchema> esquema = cargarEsquema(EsquemaDeDeclaracion());
    if (esquema == nullptr)
        throw Falla{0,
                    u"transferencia"_s,
                    u"El esquema de la declaración no se puede leer; vuelva a instalar el programa."_s,
                    {}};
    const DeLibxml<xmlSchemaValidCtxt> control(xmlSchemaNewValidCtxt(esquema.get()));
    xmlSchemaSetValidStructuredErrors(control.get(), anotarError, &error);
    if (xmlSchemaValidateDoc(control.get(), leido.get()) == 0) return {};
    return contarError(error, u"no cumple su esquema"_s);
}
