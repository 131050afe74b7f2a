#pragma once
// Certificates of the tests' own, for servers on the loopback.

#include <QString>

/// Certificates made once a process, in PEM files of a folder that goes with it.
struct Certificados {
    QString autoridad;    ///< the authority of "bueno", "otro" and "vencido"
    QString bueno;        ///< for 127.0.0.1
    QString otroNombre;   ///< for another host
    QString vencido;      ///< until yesterday
    QString autofirmado;  ///< its own authority
    QString clave;        ///< the key of them all
    QString error;        ///< why they could not be made
};
const Certificados &CertificadosDePrueba();
