#pragma once
// Passwords of this user on this workstation: in the system's keyring where there is one, else in a file that
// only its owner reads. Never in the configuration file, which an office shares.

#include <QString>
#include <functional>

class Ajustes;
class QObject;

/// The system's keyring as functions that answer later, on the thread that asked. The default one is not
/// there.
struct Llavero {
    enum class Estado {
        Bien,
        NoEsta,      ///< the keyring holds nothing under that name
        SinLlavero,  ///< there is no keyring, or none that answers
        Negado       ///< it is there and gave nothing away: closed, or the user said no
    };
    using AlResponder = std::function<void(Estado, const QString &valor)>;

    std::function<void(const QString &nombre, AlResponder)> leer =
        [](const QString &, const AlResponder &al) { al(Estado::SinLlavero, {}); };
    std::function<void(const QString &nombre, const QString &valor, AlResponder)> guardar =
        [](const QString &, const QString &, const AlResponder &al) { al(Estado::SinLlavero, {}); };
    std::function<void(const QString &nombre, AlResponder)> borrar =
        [](const QString &, const AlResponder &al) { al(Estado::SinLlavero, {}); };
};

/// The keyring of the user's session.
Llavero LlaveroDelSistema();

/// A secret, or why there is none.
struct Secreto {
    QString valor;  ///< empty: none is kept
    QString falla;  ///< what to tell the user when it could not be read, kept or forgotten; else empty
};

/// Where secrets are kept. A file that is there is always newer than the keyring's: it was written when the
/// keyring did not answer, and goes when it does. The answers come later or at once; none comes when `quien`
/// is gone by then. The secret itself is in no answer but that of a reading.
class Secretos {
 public:
    /// The file stands beside the settings.
    Secretos(Llavero llavero, const Ajustes &ajustes);

    using AlSaber = std::function<void(const Secreto &)>;
    /// A file that others may read is refused: `falla` tells which one.
    void Leer(const QString &nombre, QObject *quien, AlSaber al) const;
    void Guardar(const QString &nombre, const QString &valor, QObject *quien, AlSaber al) const;
    /// Forgetting what is not there is no failure.
    void Olvidar(const QString &nombre, QObject *quien, AlSaber al) const;

    /// The file that holds a secret when there is no keyring.
    QString archivo(const QString &nombre) const;

 private:
    Llavero llavero_;
    QString carpeta_;
};
