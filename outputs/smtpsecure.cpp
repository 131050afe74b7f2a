#include "outputs/smtpsecure.h"

#include <curl/curl.h>

#include <QObject>
#include <QUrl>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstring>
#include <optional>
#include <thread>
#include <utility>

#include "outputs/mailmessage.h"

using namespace Qt::StringLiterals;

namespace {

const QString tapado = u"********"_s;
/// The conversation looks at this interval whether something is to be done: the library's own time-outs.
constexpr int intervaloDeVigilancia = 500;
constexpr std::chrono::seconds plazoDeDespedida{5};
constexpr int codigoDeDesafio = 334;
constexpr int codigoDeHecho = 250;

struct SoltarCurl {
    void operator()(CURL *c) const { curl_easy_cleanup(c); }
    void operator()(CURLU *u) const { curl_url_cleanup(u); }
    void operator()(curl_slist *l) const { curl_slist_free_all(l); }
};

using Direccion = std::unique_ptr<CURLU, SoltarCurl>;

/// The command, and how far the conversation is once it was sent.
struct ComandoSmtp {
    const char *palabra;
    FaseDeEnvio fase;
};
constexpr ComandoSmtp comandosSmtp[] = {{"STARTTLS", FaseDeEnvio::Cifrado},  {"AUTH", FaseDeEnvio::Login},
                                        {"EHLO", FaseDeEnvio::Conexion},     {"HELO", FaseDeEnvio::Conexion},
                                        {"RCPT", FaseDeEnvio::Destinatario}, {"MAIL", FaseDeEnvio::Remitente},
                                        {"DATA", FaseDeEnvio::Datos}};

/// The forms in which a login is told to a server; none of them is ever shown.
QStringList formasDelSecreto(const CuentaDeCorreo &cuenta) {
    if (cuenta.contrasena.isEmpty()) return {};
    const QByteArray contrasena = cuenta.contrasena.toUtf8();
    const QByteArray usuario = cuenta.usuario.toUtf8();
    const QByteArray cero(1, '\0');
    QStringList formas;
    for (const QByteArray &bytes : {cero + usuario + cero + contrasena, contrasena})
        formas << QString::fromLatin1(bytes.toBase64());
    formas << cuenta.contrasena;
    return formas;
}

/// Null for a server that is none.
Direccion hacerDireccion(const CuentaDeCorreo &cuenta) {
    // In parts: the name of a server holds nothing that could become another part.
    Direccion url(curl_url());
    const bool sexta = cuenta.servidor.host.contains(u':');
    const std::pair<CURLUPart, QByteArray> partes[] = {
        {CURLUPART_SCHEME, cuenta.tlsDesdeElComienzo ? "smtps" : "smtp"},
        {CURLUPART_HOST,
         sexta ? '[' + cuenta.servidor.host.toLatin1() + ']' : QUrl::toAce(cuenta.servidor.host)},
        {CURLUPART_PORT, QByteArray::number(cuenta.servidor.puerto)}};
    for (const auto &[parte, texto] : partes)
        if (texto.isEmpty() || curl_url_set(url.get(), parte, texto.constData(), 0) != CURLUE_OK) return {};
    return url;
}

}  // namespace

struct EnvioCifrado::Interior {
    Interior(Correo &elCorreo, std::function<void(const QString &)> alAnotar,
             std::function<void(const FinDeEnvio &)> alTerminar)
        : correo(elCorreo), anotar(std::move(alAnotar)), terminar(std::move(alTerminar)) {}

    // Of the thread that made it.
    Correo &correo;
    std::function<void(const QString &)> anotar;
    std::function<void(const FinDeEnvio &)> terminar;
    QObject receptor;  ///< what the other thread says comes to it as events
    std::thread hilo;

    // Set ahead of the other thread's start, its own from then on.
    CuentaDeCorreo cuenta;
    PlazosDeEnvio plazos;
    QByteArray remitente, destinatario, mensaje;
    QString asunto;
    QStringList secretos;
    qsizetype leidos = 0;
    ResultadoDeEnvio resultado;
    bool enLogin = false;
    std::optional<std::chrono::steady_clock::time_point> despedida;

    // Of both.
    struct Soltar {
        void operator()(CURLM *m) const { curl_multi_cleanup(m); }
    };
    std::unique_ptr<CURLM, Soltar> multi;
    std::atomic<FaseDeEnvio> fase{FaseDeEnvio::Conexion};
    std::atomic<bool> cortar{false};

    void Correr();
    void Preparar(CURL *curl);
    int Conversar(CURL *curl);
    QString SinSecretos(QString texto) const;
    void Anotar(const QString &texto);
    void Dicho(const QString &linea);
    void Oido(const QString &linea);
    size_t Entregar(char *lugar, size_t cuanto);
    bool HayQueCortar() const;
    void Acabar(const ResultadoDeEnvio &r);

    static int AlHablar(CURL *curl, curl_infotype tipo, char *datos, size_t cuanto, void *yo);
    static size_t AlLeer(char *lugar, size_t uno, size_t cuantos, void *yo) {
        return static_cast<Interior *>(yo)->Entregar(lugar, uno * cuantos);
    }
    static int AlAvanzar(void *yo, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
        return static_cast<Interior *>(yo)->HayQueCortar() ? 1 : 0;
    }
};

QString EnvioCifrado::Interior::SinSecretos(QString texto) const {
    for (const QString &secreto : secretos) texto.replace(secreto, tapado);
    return texto;
}

void EnvioCifrado::Interior::Anotar(const QString &texto) {
    QMetaObject::invokeMethod(
        &receptor, [this, visible = SinSecretos(texto)] { anotar(visible); }, Qt::QueuedConnection);
}

void EnvioCifrado::Interior::Dicho(const QString &linea) {
    // The goodbye is said behind a refusal too, which stays the answer.
    if (linea == "QUIT"_L1) {
        despedida = std::chrono::steady_clock::now();
        Anotar(linea);
        return;
    }
    resultado.codigo = 0;
    resultado.respuesta.clear();
    // Whatever is said from the login on to its answer is the login.
    if (linea.startsWith("AUTH"_L1)) {
        enLogin = true;
        fase = FaseDeEnvio::Login;
        Anotar(linea.section(u' ', 0, 1) + u' ' + tapado);
        return;
    }
    if (enLogin) {
        Anotar(tapado);
        return;
    }
    const auto *const comando =
        std::find_if(std::begin(comandosSmtp), std::end(comandosSmtp),
                     [&linea](const ComandoSmtp &c) { return linea.startsWith(QLatin1String(c.palabra)); });
    if (comando != std::end(comandosSmtp)) fase = comando->fase;
    Anotar(linea);
}

void EnvioCifrado::Interior::Oido(const QString &linea) {
    Anotar(linea);
    if (despedida) return;
    resultado.respuesta += (resultado.respuesta.isEmpty() ? ""_L1 : "\n"_L1) + SinSecretos(linea);
    resultado.codigo = linea.left(3).toInt();
    if (resultado.codigo != codigoDeDesafio) enLogin = false;
    if (fase == FaseDeEnvio::SinRespuesta && resultado.codigo == codigoDeHecho) fase = FaseDeEnvio::Aceptado;
}

int EnvioCifrado::Interior::AlHablar(CURL *, curl_infotype tipo, char *datos, size_t cuanto, void *yo) {
    if (tipo != CURLINFO_HEADER_OUT && tipo != CURLINFO_HEADER_IN) return 0;
    auto *este = static_cast<Interior *>(yo);
    const QString texto = TextoDelServidor(QByteArray(datos, static_cast<qsizetype>(cuanto)));
    for (const QString &linea : texto.split(u'\n', Qt::SkipEmptyParts)) {
        const QString limpia = linea.endsWith(u'\r') ? linea.chopped(1) : linea;
        tipo == CURLINFO_HEADER_OUT ? este->Dicho(limpia) : este->Oido(limpia);
    }
    return 0;
}

size_t EnvioCifrado::Interior::Entregar(char *lugar, size_t cuanto) {
    if (leidos == 0) Anotar("Subject: "_L1 + asunto);
    const qsizetype ahora = std::min(static_cast<qsizetype>(cuanto), mensaje.size() - leidos);
    if (leidos + ahora == mensaje.size()) {
        // The last piece. Told ahead of the look whether to stop: whoever stops it in between is not told
        // that nothing left.
        fase = FaseDeEnvio::SinRespuesta;
        resultado.codigo = 0;
        resultado.respuesta.clear();
    }
    if (cortar) return CURL_READFUNC_ABORT;
    std::memcpy(lugar, mensaje.constData() + leidos, static_cast<size_t>(ahora));
    leidos += ahora;
    return static_cast<size_t>(ahora);
}

bool EnvioCifrado::Interior::HayQueCortar() const {
    if (cortar) return true;
    // A server that took the message may say goodbye; one that did not is not waited for.
    return despedida && (fase != FaseDeEnvio::Aceptado ||
                         std::chrono::steady_clock::now() - *despedida > plazoDeDespedida);
}

void EnvioCifrado::Interior::Preparar(CURL *curl) {
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    curl_easy_setopt(curl, CURLOPT_PROXY, "");
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    // A look-up that hangs is left behind rather than waited for.
    curl_easy_setopt(curl, CURLOPT_QUICK_EXIT, 1L);

    curl_easy_setopt(curl, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
    curl_easy_setopt(curl, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, 2L);
    // The system's folder of authorities stays beside it.
    if (!cuenta.certificados.isEmpty())
        curl_easy_setopt(curl, CURLOPT_CAINFO, cuenta.certificados.toLocal8Bit().constData());

    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, static_cast<long>(plazos.conexion.count()));
    curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(plazos.respuesta.count()));
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, static_cast<long>(plazos.respuesta.count()));

    if (!cuenta.contrasena.isEmpty()) {
        curl_easy_setopt(curl, CURLOPT_USERNAME, cuenta.usuario.toUtf8().constData());
        curl_easy_setopt(curl, CURLOPT_PASSWORD, cuenta.contrasena.toUtf8().constData());
    }
    curl_easy_setopt(curl, CURLOPT_MAIL_FROM, remitente.constData());
    curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(mensaje.size()));
    curl_easy_setopt(curl, CURLOPT_READFUNCTION, AlLeer);
    curl_easy_setopt(curl, CURLOPT_READDATA, this);
    curl_easy_setopt(curl, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(curl, CURLOPT_DEBUGFUNCTION, AlHablar);
    curl_easy_setopt(curl, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, AlAvanzar);
    curl_easy_setopt(curl, CURLOPT_XFERINFODATA, this);
}

int EnvioCifrado::Interior::Conversar(CURL *curl) {
    curl_multi_add_handle(multi.get(), curl);
    int corriendo = 1;
    // It is stopped from within: a conversation that is taken out of the library's hands ends the message it
    // is in the middle of as if that were whole.
    while (corriendo != 0) {
        if (curl_multi_perform(multi.get(), &corriendo) != CURLM_OK) break;
        if (corriendo != 0) curl_multi_poll(multi.get(), nullptr, 0, intervaloDeVigilancia, nullptr);
    }
    int codigo = CURLE_ABORTED_BY_CALLBACK;
    int quedan = 0;
    while (const CURLMsg *dicho = curl_multi_info_read(multi.get(), &quedan))
        if (dicho->msg == CURLMSG_DONE) codigo = dicho->data.result;
    curl_easy_getinfo(curl, CURLINFO_SSL_VERIFYRESULT, &resultado.verificacion);
    curl_multi_remove_handle(multi.get(), curl);
    return codigo;
}

void EnvioCifrado::Interior::Correr() {
    char palabras[CURL_ERROR_SIZE] = {};  // goes behind the handle that writes into it
    const Direccion url = hacerDireccion(cuenta);
    const std::unique_ptr<CURL, SoltarCurl> curl(curl_easy_init());
    const std::unique_ptr<curl_slist, SoltarCurl> destinatarios(
        curl_slist_append(nullptr, destinatario.constData()));
    resultado.curl = CURLE_URL_MALFORMAT;
    if (url) {
        Preparar(curl.get());
        curl_easy_setopt(curl.get(), CURLOPT_CURLU, url.get());
        curl_easy_setopt(curl.get(), CURLOPT_MAIL_RCPT, destinatarios.get());
        curl_easy_setopt(curl.get(), CURLOPT_ERRORBUFFER, palabras);
        // Not kept for another message: the goodbye is said while this thread can wait for its answer.
        curl_easy_setopt(curl.get(), CURLOPT_FORBID_REUSE, 1L);
        resultado.curl = Conversar(curl.get());
        resultado.tecnico = SinSecretos(QString::fromUtf8(palabras));
    }
    resultado.fase = fase;
    QMetaObject::invokeMethod(
        &receptor, [this, r = resultado] { Acabar(r); }, Qt::QueuedConnection);
}

void EnvioCifrado::Interior::Acabar(const ResultadoDeEnvio &r) {
    const auto acabar = std::exchange(terminar, nullptr);
    if (!acabar) return;
    const FinDeEnvio fin = FinDeResultado(r, cuenta, correo);
    if (fin.enviado) correo.cuerpo.clear();
    acabar(fin);
}

EnvioCifrado::EnvioCifrado(Correo &correo, std::function<void(const QString &)> anotar,
                           std::function<void(const FinDeEnvio &)> terminar)
    : interior_(std::make_unique<Interior>(correo, std::move(anotar), std::move(terminar))) {}

EnvioCifrado::~EnvioCifrado() {
    Interrumpir();
    if (interior_->hilo.joinable()) interior_->hilo.join();
}

void EnvioCifrado::Iniciar(const CuentaDeCorreo &cuenta, const PlazosDeEnvio &plazos) {
    static const CURLcode iniciada = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(iniciada)
    Interior &i = *interior_;
    i.cuenta = cuenta;
    i.plazos = plazos;
    i.remitente = EnUnaLinea(i.correo.remitente).trimmed().toUtf8();
    i.destinatario = EnUnaLinea(i.correo.destinatario).trimmed().toUtf8();
    i.asunto = EnUnaLinea(i.correo.asunto);
    i.mensaje = MensajeMime(i.correo);
    i.secretos = formasDelSecreto(cuenta);
    i.multi.reset(curl_multi_init());
    i.hilo = std::thread([&i] { i.Correr(); });
}

FinDeEnvio EnvioCifrado::Interrumpir() {
    Interior &i = *interior_;
    i.terminar = nullptr;
    i.cortar = true;
    if (i.multi) curl_multi_wakeup(i.multi.get());
    const FaseDeEnvio fase = i.fase;
    if (fase == FaseDeEnvio::Aceptado) {
        i.correo.cuerpo.clear();
        return EnvioInterrumpido(Alcance::Aceptado);
    }
    return EnvioInterrumpido(fase == FaseDeEnvio::SinRespuesta ? Alcance::SinRespuesta : Alcance::NoSalio);
}
