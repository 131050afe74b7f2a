#include "outputs/mailmessage.h"

#include <gmime/gmime.h>

#include <QTextDocument>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct SoltarObjeto {
    void operator()(gpointer objeto) const { g_object_unref(objeto); }
};
template <class T>
using Objeto = std::unique_ptr<T, SoltarObjeto>;

struct SoltarTexto {
    void operator()(char *texto) const { g_free(texto); }
};
using TextoDeC = std::unique_ptr<char, SoltarTexto>;

GMimeObject *comoObjeto(void *parte) {
    return static_cast<GMimeObject *>(parte);
}

Objeto<GMimePart> hacerParte(const char *tipo, const char *subtipo, const QByteArray &contenido,
                             GMimeContentEncoding codificacion) {
    Objeto<GMimePart> parte(g_mime_part_new_with_type(tipo, subtipo));
    const Objeto<GMimeStream> bytes(
        g_mime_stream_mem_new_with_buffer(contenido.constData(), static_cast<size_t>(contenido.size())));
    const Objeto<GMimeDataWrapper> envoltorio(
        g_mime_data_wrapper_new_with_stream(bytes.get(), GMIME_CONTENT_ENCODING_DEFAULT));
    g_mime_part_set_content(parte.get(), envoltorio.get());
    g_mime_part_set_content_encoding(parte.get(), codificacion);
    return parte;
}

Objeto<GMimePart> hacerTexto(const char *subtipo, QString texto) {
    texto.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    auto parte = hacerParte("text", subtipo, texto.toUtf8(), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    g_mime_object_set_content_type_parameter(comoObjeto(parte.get()), "charset", "utf-8");
    return parte;
}

QString textoSinMarcas(const QString &html) {
    QTextDocument documento;
    documento.setHtml(html);
    return documento.toPlainText();
}

Objeto<GMimeMultipart> hacerAlternativas(const Correo &correo) {
    Objeto<GMimeMultipart> alternativas(g_mime_multipart_new_with_subtype("alternative"));
    // The last one is what a reader shows when it can.
    const auto texto =
        hacerTexto("plain", correo.texto.isEmpty() ? textoSinMarcas(correo.cuerpo) : correo.texto);
    const auto html = hacerTexto("html", correo.cuerpo);
    g_mime_multipart_add(alternativas.get(), comoObjeto(texto.get()));
    g_mime_multipart_add(alternativas.get(), comoObjeto(html.get()));
    return alternativas;
}

Objeto<GMimeMultipart> hacerCuerpo(const Correo &correo) {
    auto alternativas = hacerAlternativas(correo);
    if (correo.nombreDelAdjunto.isEmpty()) return alternativas;
    Objeto<GMimeMultipart> todo(g_mime_multipart_new_with_subtype("mixed"));
    g_mime_multipart_add(todo.get(), comoObjeto(alternativas.get()));
    const auto adjunto = hacerParte("application", "pdf", correo.adjunto, GMIME_CONTENT_ENCODING_BASE64);
    g_mime_object_set_disposition(comoObjeto(adjunto.get()), "attachment");
    g_mime_part_set_filename(adjunto.get(), EnUnaLinea(correo.nombreDelAdjunto).toUtf8().constData());
    g_mime_multipart_add(todo.get(), comoObjeto(adjunto.get()));
    return todo;
}

void ponerCabeceras(GMimeMessage *mensaje, const Correo &correo) {
    const auto enLinea = [](const QString &texto) { return EnUnaLinea(texto).trimmed().toUtf8(); };
    const QByteArray remitente = enLinea(correo.remitente);
    g_mime_message_add_mailbox(mensaje, GMIME_ADDRESS_TYPE_FROM,
                               enLinea(correo.nombreDelRemitente).constData(), remitente.constData());
    g_mime_message_add_mailbox(mensaje, GMIME_ADDRESS_TYPE_TO,
                               enLinea(correo.nombreDelDestinatario).constData(),
                               enLinea(correo.destinatario).constData());
    g_mime_message_set_subject(mensaje, enLinea(correo.asunto).constData(), "utf-8");
    GDateTime *ahora = g_date_time_new_now_local();
    g_mime_message_set_date(mensaje, ahora);
    g_date_time_unref(ahora);
    // Of the sender's domain: the workstation's own name stays in the office.
    const TextoDeC identidad(
        g_mime_utils_generate_message_id(remitente.mid(remitente.indexOf('@') + 1).constData()));
    g_mime_message_set_message_id(mensaje, identidad.get());
}

}  // namespace

QByteArray MensajeMime(const Correo &correo) {
    static const bool iniciada = [] {
        g_mime_init();
        return true;
    }();
    Q_UNUSED(iniciada)
    const Objeto<GMimeMessage> mensaje(g_mime_message_new(TRUE));
    ponerCabeceras(mensaje.get(), correo);
    const auto cuerpo = hacerCuerpo(correo);
    g_mime_message_set_mime_part(mensaje.get(), comoObjeto(cuerpo.get()));
    const TextoDeC escrito(g_mime_object_to_string(comoObjeto(mensaje.get()), nullptr));
    QByteArray bytes(escrito.get());
    return bytes.replace("\r\n", "\n").replace("\n", "\r\n");
}
