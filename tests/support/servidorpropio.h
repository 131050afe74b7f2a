#pragma once
// A PostgreSQL of a test's own, which may be stopped, started again and shaken without anybody else noticing.

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// An unprivileged server in a temporary folder, in memory where there is some. It listens on a socket in
/// that folder and on a port of the loopback address, trusts whoever comes, and ends with this object or with
/// the process. What goes wrong throws std::runtime_error with the server's words.
class ServidorPropio {
 public:
    /// `ajustes`: further lines for postgresql.conf; the last word on a setting wins.
    explicit ServidorPropio(const QStringList &ajustes = {});
    ~ServidorPropio();
    ServidorPropio(const ServidorPropio &) = delete;
    ServidorPropio &operator=(const ServidorPropio &) = delete;

    /// The words that ZENDRA_PG would hold for it.
    QString palabras() const;
    const QString &host() const { return carpeta_; }  ///< the folder of its socket
    int puerto() const { return puerto_; }            ///< of the socket and of 127.0.0.1
    bool corre() const { return proceso_.state() != QProcess::NotRunning; }

    /// Lets everyone go with a word (SIGINT), or as a machine that loses its power (SIGQUIT): what was not
    /// committed is undone, and the next start recovers. Nothing happens when it does not run.
    enum class Parada { Rapida, Inmediata };
    void parar(Parada como);
    /// Begins to run; with `esperar` only what is ready to be asked is answered. Nothing happens when it
    /// runs.
    void arrancar(bool esperar = true);
    /// Begins to run, and says that it is starting up for a second or so, as one that has much to recover.
    void arrancarDespacio();
    /// Waits until it can be asked.
    void esperarQueAtienda();
    void reiniciar(Parada como) {
        parar(como);
        arrancar();
    }
    /// Takes nobody any more and says so to nobody, as a machine whose memory ran out: who is in already goes
    /// on being served. Ends with reanimar, or with parar.
    void congelar();
    void reanimar();
    /// Ends every connection but the one that asks for it, and waits for their end; how many there were.
    int cortarConexiones();

    /// Runs one statement on its own connection to `base`; the first cell of its answer.
    QString preguntar(const QString &sql, const QString &base = QStringLiteral("postgres")) const;

 private:
    QTemporaryDir dir_;
    QString carpeta_, datos_;
    int puerto_ = 0;
    QProcess proceso_;
    qint64 leido_ = 0;  ///< of its log, when it was started last
};

/// The one of this process for tests that stop it; it runs when this answers.
ServidorPropio &ServidorDePaso();
