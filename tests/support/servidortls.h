#pragma once
// A server of the test's own on the loopback, which takes nobody without TLS and a password.

#include <QString>
#include <memory>

class ServidorTls {
 public:
    /// Started with the "bueno" of CertificadosDePrueba(); a server that does not start fails the test.
    ServidorTls();
    ~ServidorTls();
    ServidorTls(const ServidorTls &) = delete;
    ServidorTls &operator=(const ServidorTls &) = delete;

    QString puerto() const { return puerto_; }
    /// Its administrator, by name and password.
    static QString administrador() { return QStringLiteral("zendra"); }
    static QString clave() { return QStringLiteral("la clave; de 'todos'"); }

    /// Runs `sql` as the administrator, past network and password; the first cell of its answer.
    QString correr(const QString &sql, const QString &base = QStringLiteral("postgres")) const;
    /// Goes on with another certificate of CertificadosDePrueba(), for who connects from here on.
    void usarCertificado(const QString &archivo) const;
    /// Goes on with TLS or without.
    void conTls(bool activo) const;

 private:
    void ajustar(const QString &nombre, const QString &valor) const;

    QString carpeta_, puerto_;
};

/// The one of this process, started at the first call.
ServidorTls &ServidorConTls();
