#pragma once
// The way of one connection's statements to its store: opened when needed, made again when it was lost, and
// what need not be waited for travels with what follows.

#include <QElapsedTimer>
#include <QHash>
#include <QQueue>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <chrono>
#include <memory>
#include <optional>
#include <vector>

#include "frame/store/dialect.h"
#include "frame/store/engines.h"

namespace motores {

/// How long a server that went away is waited for.
std::chrono::milliseconds &EsperaDelServidor();

/// Everything that runs here may raise Falla, with the entity and the statement as the module spelled it. A
/// statement that finds its store gone raises one that says so, and the next one opens a new way.
class Canal {
 public:
    explicit Canal(std::unique_ptr<Datos> datos);
    ~Canal();
    Canal(const Canal &) = delete;
    Canal &operator=(const Canal &) = delete;

    const Datos &datos() const { return *datos_; }
    const Motor &motor() const { return motor_; }
    bool abierto() const { return abierto_; }

    /// Ready for a statement: open, and nothing of the other ways of this process ahead of it. One that was
    /// lost while nothing was asked of it is made again without a word, unless a run or a session needs what
    /// went with it.
    void Abrir();
    /// Ends what is on its way and leaves the store; the next statement comes back. Raises nothing.
    void Cerrar();
    /// The engine's own handle, with nothing on its way.
    QSqlDatabase Manija();
    /// The failure that tells that the store went away, for what was asked through the handle; nothing when
    /// it is there, or was left.
    std::optional<Falla> Perdida();

    /// `sentencia` as the engine takes it.
    QString Traducir(const QString &sentencia) const { return dialecto::traducir(sentencia, ajustes_); }
    QString ConIdentidad(const QString &sentencia) const {
        return dialecto::conIdentidad(sentencia, ajustes_);
    }
    /// Runs one statement, behind those that wait for company; see Motor::correr.
    qint64 Correr(const QString &sentencia, const QString &traducida, Filas *filas);

    /// See Conexion::Mandar, Asentar, MandarSeguidas, ConsultarSeguidas, Anticipar.
    void Mandar(const QString &sentencia);
    void Asentar();
    void MandarSeguidas(const QStringList &sentencias);
    std::vector<Filas> ConsultarSeguidas(const QStringList &sentencias);
    void Anticipar(const QStringList &sentencias);
    void OlvidarAnticipos() { anticipadas_.clear(); }
    /// The answer that was asked ahead for the same text; nothing when there is none.
    std::optional<Filas> TomarAnticipada(const QString &sentencia);

    /// See Conexion::escrituraLigera, retenerSesion.
    void EscribirLigero(bool activo);
    void RetenerSesion(bool activa);

 private:
    /// Statements that go together, as the modules spelled them and as the engine takes them.
    struct Envio {
        QStringList sentencias;
        std::vector<Encargo> encargos;
        QElapsedTimer reloj;
        Llegada llegada;  ///< none: it has not left
    };

    void conectar();
    void soltar();
    void perder();
    QString palabrasDePerdida() const;
    [[noreturn]] void fallar(Falla falla, const QString &sentencia);
    void fijarLigero(bool activo);
    bool seLeeOtraVez(const QString &sentencia, Filas *filas);

    bool hayPendientes() const { return enCamino_.llegada || !porSalir_.encargos.empty(); }
    void agregar(const QString &sentencia, const QString &traducida, Filas *filas);
    void despachar();
    Envio esperar();
    void recoger() {
        if (enCamino_.llegada) esperar();
    }
    void abandonar();
    void trazar(const Envio &envio) const;

    std::unique_ptr<Datos> datos_;
    const Motor &motor_;
    QString nombre_;   ///< Qt's name of the handle
    QSqlDatabase db_;  ///< held, because Qt looks a name up under a lock
    bool abierto_ = false;
    int ligeros_ = 0;       ///< how many runs asked for light writing
    int sesiones_ = 0;      ///< how many hold something that lives in the session
    bool perdido_ = false;  ///< it went by itself, and nobody has come back since
    dialecto::Ajustes ajustes_;
    Envio porSalir_;
    Envio enCamino_;
    QHash<QString, QQueue<Filas>> anticipadas_;  ///< by the text that asked for them
};

}  // namespace motores
