#pragma once
// One small document of the web, read without waiting for it.

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <functional>

class QNetworkReply;

/// How a reading ended. Either it was read, or both texts are there.
struct LecturaDeUrl {
    QByteArray documento;  ///< as it came, empty when the server's is
    QString mensaje;       ///< what the user is told of a failure; empty: it was read
    QString motivo;        ///< the sentence that says why, and what to do
};

/// Reads http and https, straight from the server and past every cache. Follows redirections, but never from
/// https to http; takes neither cookies nor more than `tope` bytes; certificates are always verified.
class LectorDeUrl {
 public:
    static constexpr qint64 tope = 65536;

    /// `plazo`: for the whole document, connection and redirections included.
    explicit LectorDeUrl(std::chrono::milliseconds plazo = std::chrono::seconds(15));
    ~LectorDeUrl();
    LectorDeUrl(const LectorDeUrl &) = delete;
    LectorDeUrl &operator=(const LectorDeUrl &) = delete;

    /// Begins to read. `certificados`: a file (PEM) of authorities that are trusted besides the system's, or
    /// empty. `terminar` is called once, from the event loop; a reading still on its way is cancelled.
    void LeerUrl(const QUrl &url, const QString &certificados,
                 std::function<void(const LecturaDeUrl &)> terminar);
    /// Closes the line: `terminar` is not called any more.
    void Cancelar();

 private:
    void Pedir(const QUrl &url, const QString &certificados);
    void Acabar(const LecturaDeUrl &lectura);
    void Fallar(const QString &motivo);
    void MirarTamano();
    void Terminada();

    std::chrono::milliseconds plazo_;
    QNetworkAccessManager red_;
    QNetworkReply *respuesta_ = nullptr;  ///< of the manager, until it is let go
    QTimer vencimiento_;
    QString certificado_;   ///< what is wrong with the server's, as a sentence
    bool abierta_ = false;  ///< the question went out: what fails behind it is the page
    std::function<void(const LecturaDeUrl &)> terminar_;
};
