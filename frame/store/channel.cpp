#include "frame/store/channel.h"

#include <QUuid>
#include <chrono>
#include <thread>
#include <utility>

#include "frame/store/trace.h"

using namespace Qt::StringLiterals;

namespace motores {

namespace {

/// The one way of this thread on which something waits or travels. Whoever asks the same server through
/// another one may mean what this one writes.
Canal *&conPendientes() {
    static thread_local Canal *canal = nullptr;
    return canal;
}

void asentarLosOtros(const Canal *este) {
    Canal *otro = conPendientes();
    if (otro != nullptr && otro != este && &otro->motor() == &este->motor()) otro->Asentar();
}

/// Since when a server was waited for in vain. All connections of this thread go with it: once is enough for
/// a screen that asks through several of them.
QElapsedTimer &esperadoEnVano() {
    static thread_local QElapsedTimer desde;
    return desde;
}

bool esSelect(QStringView sentencia) {
    return sentencia.trimmed().startsWith("select"_L1, Qt::CaseInsensitive);
}

/// The engines end a text at its first zero character: what stands behind it, a condition perhaps, would be
/// lost. Half of a character that takes two would reach them as another one.
void comprobarTexto(const Datos &datos, const QString &sentencia) {
    if (sentencia.contains(QChar::Null))
        throw Falla{0, datos.entidad, u"La sentencia contiene un carácter nulo."_s, sentencia};
    if (!sentencia.isValidUtf16())
        throw Falla{0, datos.entidad,
                    u"La sentencia contiene un carácter incompleto; bórrelo del texto y vuelva a intentar."_s,
                    sentencia};
}

}  // namespace

std::chrono::milliseconds &EsperaDelServidor() {
    using namespace std::chrono_literals;
    static std::chrono::milliseconds espera = 3s;
    return espera;
}

Canal::Canal(std::unique_ptr<Datos> datos)
    : datos_(std::move(datos)),
      motor_(*datos_->motor),
      nombre_(datos_->entidad + u'-' + QUuid::createUuid().toString(QUuid::WithoutBraces)),
      ajustes_{&motor_.gramatica, {}} {}

Canal::~Canal() {
    Cerrar();
}

// Coming and going

void Canal::Abrir() {
    asentarLosOtros(this);
    if (abierto_ && !hayPendientes() && motor_.seFue(db_)) perder();
    recoger();
    if (abierto_) return;
    if (perdido_ && sesiones_ > 0) throw Falla{Falla::sinStore, datos_->entidad, palabrasDePerdida(), {}};
    try {
        conectar();
        abierto_ = true;
        if (ligeros_ > 0) motor_.escrituraLigera(db_, true);
    } catch (Falla &e) {
        // It may go in the middle of the greeting.
        if (e.numero != Falla::sinStore && db_.isOpen() && motor_.seFue(db_)) {
            e.numero = Falla::sinStore;
            e.descripcion = palabrasDePerdida();
        }
        abierto_ = false;
        soltar();
        e.fuente = datos_->entidad;
        throw;
    }
}

void Canal::conectar() {
    constexpr std::chrono::milliseconds pausa(100);
    constexpr std::chrono::milliseconds otraVez(20000);
    QElapsedTimer &enVano = esperadoEnVano();
    // Between its end and its new beginning a server is not there for a while.
    const bool espera = perdido_ && (!enVano.isValid() || enVano.hasExpired(otraVez.count()));
    // Who begins says so at once; who said nothing until the try was given up is not asked again.
    constexpr std::chrono::milliseconds enSeguida(1000);
    QElapsedTimer reloj;
    reloj.start();
    for (;;) {
        QElapsedTimer intento;
        intento.start();
        try {
            db_ = motor_.abrir(*datos_, nombre_);
            break;
        } catch (const Falla &) {
            const bool callo = intento.hasExpired(enSeguida.count());
            if (reloj.hasExpired(EsperaDelServidor().count()) ||
                (!espera && (callo || !motor_.empieza(*datos_)))) {
                if (espera) enVano.start();
                throw;
            }
            soltar();
            std::this_thread::sleep_for(pausa);
        }
    }
    enVano.invalidate();
    perdido_ = false;
    const auto &comunes = datos_->tablasOrdenadas;
    const bool vuelve = !ajustes_.tablasOrdenadas.isEmpty();
    if (comunes && *comunes && !vuelve) {
        ajustes_.tablasOrdenadas = **comunes;
    } else {
        ajustes_.tablasOrdenadas = motor_.tablasOrdenadas(db_);
        if (comunes) *comunes = ajustes_.tablasOrdenadas;
    }
}

void Canal::soltar() {
    db_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(nombre_);
}

void Canal::Cerrar() {
    abandonar();
    anticipadas_.clear();
    if (!abierto_) return;
    if (ligeros_ > 0 && !perdido_) {
        try {
            motor_.escrituraLigera(db_, false);
        } catch (const Falla &) {
            // The handle goes all the same; a server that went away is the usual reason to be here.
        }
    }
    abierto_ = false;
    db_.close();
    soltar();
}

/// Who works without a run or a session of its own hears nothing of it.
void Canal::perder() {
    const bool seNota = sesiones_ > 0 || ligeros_ > 0;
    perdido_ = true;
    Cerrar();
    if (seNota) throw Falla{Falla::sinStore, datos_->entidad, palabrasDePerdida(), {}};
}

std::optional<Falla> Canal::Perdida() {
    if (abierto_ && motor_.seFue(db_)) {
        perdido_ = true;
        Cerrar();
    }
    if (abierto_ || !perdido_) return std::nullopt;
    return Falla{Falla::sinStore, datos_->entidad, palabrasDePerdida(), {}};
}

QString Canal::palabrasDePerdida() const {
    return u"Se perdió la conexión con la base \"%1\" del servidor %2:%3; vuelva a intentar."_s.arg(
        datos_->base, datos_->host, QString::number(datos_->puerto));
}

void Canal::fallar(Falla falla, const QString &sentencia) {
    falla.fuente = datos_->entidad;
    falla.sentencia = sentencia;
    if (!motor_.vive(db_)) {
        // A transaction that failed keeps the engine's words; it is over all the same.
        if (motor_.seFue(db_)) {
            falla.numero = Falla::sinStore;
            falla.descripcion = palabrasDePerdida();
        }
        perdido_ = true;
        Cerrar();
    }
    throw Falla(std::move(falla));
}

QSqlDatabase Canal::Manija() {
    Abrir();
    Asentar();
    return db_;
}

// Statements

qint64 Canal::Correr(const QString &sentencia, const QString &traducida, Filas *filas) {
    comprobarTexto(*datos_, sentencia);
    if (!porSalir_.encargos.empty()) {
        agregar(sentencia, traducida, filas);
        despachar();
        return esperar().encargos.back().cuantas;
    }
    const auto &hilo = TrazaDelProceso();
    QElapsedTimer reloj;
    if (hilo) reloj.start();
    qint64 cuantas = 0;
    for (bool primera = true;; primera = false) {
        try {
            cuantas = motor_.correr(db_, traducida, filas);
            break;
        } catch (const Falla &e) {
            if (!primera || !seLeeOtraVez(sentencia, filas)) fallar(e, sentencia);
        }
    }
    if (hilo) hilo({datos_->entidad, sentencia, traducida, reloj.nsecsElapsed() / 1000, cuantas});
    return cuantas;
}

/// A line may be dead and look alive until something is sent over it. A select has done nothing by then, so
/// it is asked again over a new one.
bool Canal::seLeeOtraVez(const QString &sentencia, Filas *filas) {
    if (filas == nullptr || sesiones_ > 0 || ligeros_ > 0 || !esSelect(sentencia) || motor_.vive(db_))
        return false;
    *filas = Filas();
    perdido_ = true;
    Cerrar();
    Abrir();
    return true;
}

void Canal::agregar(const QString &sentencia, const QString &traducida, Filas *filas) {
    if (Canal *otro = conPendientes(); otro != nullptr && otro != this) otro->Asentar();
    porSalir_.sentencias << sentencia;
    porSalir_.encargos.push_back({traducida, filas, 0});
    conPendientes() = this;
}

void Canal::Mandar(const QString &sentencia) {
    const bool acompanada = ligeros_ > 0 && motor_.porViaje > 1;
    if (!acompanada || !hayPendientes()) Abrir();
    const QString traducida = Traducir(sentencia);
    if (!acompanada) {
        Correr(sentencia, traducida, nullptr);
        return;
    }
    comprobarTexto(*datos_, sentencia);
    agregar(sentencia, traducida, nullptr);
    if (porSalir_.encargos.size() >= motor_.porViaje) despachar();
}

/// What waits leaves, behind what left before: should that have failed, nothing of this may run.
void Canal::despachar() {
    recoger();
    enCamino_ = std::exchange(porSalir_, {});
    enCamino_.reloj.start();
    enCamino_.llegada = motor_.mandar(db_, enCamino_.encargos);
}

/// Waits for what left. Raises the first failure among it, and what waits behind it does not run.
Canal::Envio Canal::esperar() {
    Envio envio = std::exchange(enCamino_, {});
    std::optional<Falla> falla;
    const std::size_t hechas = envio.llegada(envio.encargos, falla);
    if (falla) porSalir_ = {};
    if (!hayPendientes() && conPendientes() == this) conPendientes() = nullptr;
    if (falla) fallar(*falla, envio.sentencias.value(static_cast<qsizetype>(hechas)));
    trazar(envio);
    return envio;
}

void Canal::trazar(const Envio &envio) const {
    const auto &hilo = TrazaDelProceso();
    if (!hilo) return;
    const auto n = static_cast<qint64>(envio.encargos.size());
    const qint64 cadaUna = envio.reloj.nsecsElapsed() / 1000 / n;
    for (std::size_t i = 0; i < envio.encargos.size(); ++i)
        hilo({datos_->entidad, envio.sentencias.at(static_cast<qsizetype>(i)), envio.encargos[i].sql, cadaUna,
              envio.encargos[i].cuantas});
}

void Canal::Asentar() {
    if (!porSalir_.encargos.empty()) despachar();
    recoger();
}

/// What was told still runs; what fails of it is not told to anybody.
void Canal::abandonar() {
    try {
        if (!perdido_) Asentar();
    } catch (const Falla &) {
        // Who gave it up does not ask.
    }
    porSalir_ = {};
    enCamino_ = {};
    if (conPendientes() == this) conPendientes() = nullptr;
}

void Canal::MandarSeguidas(const QStringList &sentencias) {
    if (sentencias.isEmpty()) return;
    for (const QString &sentencia : sentencias) comprobarTexto(*datos_, sentencia);
    Abrir();
    for (const QString &sentencia : sentencias) {
        agregar(sentencia, Traducir(sentencia), nullptr);
        if (motor_.porViaje > 1 && porSalir_.encargos.size() >= motor_.porViaje) despachar();
    }
    if (!porSalir_.encargos.empty()) despachar();
}

std::vector<Filas> Canal::ConsultarSeguidas(const QStringList &sentencias) {
    std::vector<Filas> respuestas(static_cast<std::size_t>(sentencias.size()));
    if (sentencias.isEmpty()) return respuestas;
    for (const QString &sentencia : sentencias) comprobarTexto(*datos_, sentencia);
    Abrir();
    for (qsizetype n = 0; n < sentencias.size(); ++n)
        agregar(sentencias.at(n), Traducir(sentencias.at(n)), &respuestas[static_cast<std::size_t>(n)]);
    Asentar();
    return respuestas;
}

void Canal::Anticipar(const QStringList &sentencias) {
    if (motor_.porViaje == 1 || sentencias.isEmpty()) return;
    for (const QString &sentencia : sentencias) comprobarTexto(*datos_, sentencia);
    Abrir();
    std::vector<Filas> respuestas(static_cast<std::size_t>(sentencias.size()));
    const std::size_t delante = porSalir_.encargos.size();
    for (qsizetype n = 0; n < sentencias.size(); ++n)
        agregar(sentencias.at(n), Traducir(sentencias.at(n)), &respuestas[static_cast<std::size_t>(n)]);
    despachar();
    Envio envio = std::exchange(enCamino_, {});
    if (conPendientes() == this) conPendientes() = nullptr;
    std::optional<Falla> falla;
    const std::size_t hechas = envio.llegada(envio.encargos, falla);
    if (falla && hechas < delante) fallar(*falla, envio.sentencias.value(static_cast<qsizetype>(hechas)));
    // The one that failed fails again where it is asked for, and is told there.
    const std::size_t leidas = hechas - delante;
    envio.sentencias.resize(static_cast<qsizetype>(hechas));
    envio.encargos.resize(hechas);
    if (hechas > 0) trazar(envio);
    for (std::size_t n = 0; n < leidas; ++n)
        anticipadas_[sentencias.at(static_cast<qsizetype>(n))].append(std::move(respuestas[n]));
}

std::optional<Filas> Canal::TomarAnticipada(const QString &sentencia) {
    const auto suyas = anticipadas_.find(sentencia);
    if (suyas == anticipadas_.end()) return std::nullopt;
    Filas filas = suyas->dequeue();
    if (suyas->isEmpty()) anticipadas_.erase(suyas);
    return filas;
}

// What lasts longer than a statement

void Canal::EscribirLigero(bool activo) {
    if (activo) {
        // A connection that was lost ahead of the run is nothing that the run would miss.
        if (ligeros_ == 0) {
            Abrir();
            fijarLigero(true);
        }
        ++ligeros_;
        return;
    }
    std::optional<Falla> falla;
    try {
        // The end of a run is the last moment to tell what failed in it, or that its store went away.
        if (abierto_) Abrir();
        Asentar();
    } catch (const Falla &e) {
        falla = e;
    }
    if (--ligeros_ == 0 && abierto_) {
        try {
            fijarLigero(false);
        } catch (const Falla &e) {
            if (!falla) falla = e;
        }
    }
    if (falla) throw Falla(*std::move(falla));
}

void Canal::fijarLigero(bool activo) {
    try {
        motor_.escrituraLigera(db_, activo);
    } catch (const Falla &e) {
        fallar(e, {});
    }
}

void Canal::RetenerSesion(bool activa) {
    sesiones_ += activa ? 1 : -1;
}

}  // namespace motores
