#pragma once
// The certificates of origin of an operation, and the lines that each one covers: those whose `certorig`
// holds its number. A line has one certificate at most.

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>
#include <set>
#include <vector>

#include "frame/base/verdict.h"

struct AppContext;

namespace certificados {

struct Certificado {
    qint64 id = 0;  ///< 0: a new one
    QString numero;
    std::optional<QDate> fecha;
    QString idpais;                    ///< country of origin that it certifies
    QString exportador;                ///< who exports, or the producer
    std::optional<QDate> vencimiento;  ///< its last day; none: it does not expire
    QString observaciones;
};

/// A line of the operation, as far as certificates ask.
struct Linea {
    qint64 id = 0;
    int orden = 0;  ///< its place in the order of keying, from 1
    QString idarticulo, ncm, descripcion;
    double cantidad = 0;
    QString idunidad;
    double fob = 0;
    QString idpais;      ///< of origin, with the header's in its place as the assembly puts it
    QString idpaisproc;  ///< where it comes from: of an export, its origin
    QString certorig;    ///< the number that it bears, without blanks around it

    /// Whether it bears this number, in any case.
    bool lleva(const QString &numero) const;
};

/// The certificates of an operation by their number, and its lines in the order of their keying.
struct Legajo {
    QString interno;
    bool existe = false;       ///< the operation
    bool exportacion = false;  ///< by its regime
    QDate fecha;               ///< the day that the operation was made, against which expiries are told
    QString vendedor;          ///< its seller, who is offered as the exporter
    std::vector<Certificado> certificados;
    std::vector<Linea> lineas;

    /// Null when there is none of this identity.
    const Certificado *buscar(qint64 id) const;
    /// The identities of the lines that bear a number.
    std::set<qint64> lineasDe(const QString &numero) const;
    /// Numbers on lines that no certificate of the operation has, each once, in the order of the lines.
    QStringList numerosSueltos() const;
};
/// Raises Falla.
Legajo Leer(AppContext &ctx, const QString &interno);

/// Expired on the day of the operation.
bool Vencido(const Legajo &legajo, const Certificado &certificado);
/// Lines that bear its number and are of another country; of an export, those that neither are of its country
/// nor come from it. A line or a certificate without a country is not judged.
std::vector<int> LineasDeOtroPais(const Legajo &legajo, const Certificado &certificado);
/// What is odd about a certificate in a word or two: "Vencido", "Otro país", "Sin líneas", joined by commas;
/// empty: nothing.
QString Aviso(const Legajo &legajo, const Certificado &certificado);

/// What the screen of a certificate holds, as typed.
struct Ficha {
    qint64 id = 0;  ///< 0: a new one
    QString TxtNumero, TxtFecha, TxtIdPais, TxtExportador, TxtVencimiento, TxtObservaciones;
    std::set<qint64> lineas;  ///< those that it is to cover
};
Ficha FichaDe(const Legajo &legajo, const Certificado &certificado);

/// Saves a certificate and puts its number on its lines and takes it from the others, all or nothing. What is
/// missing or wrong is told and refused, with the field to go to; lines that bear another number are asked
/// about first. A line that changes is a change of the operation. An expired certificate and lines of another
/// country are told behind it. `id` takes the identity of the saved one. Raises Falla.
Veredicto Guardar(AppContext &ctx, const QString &interno, const Ficha &ficha, qint64 &id);

/// Asks, deletes the certificate and empties the number on its lines, all or nothing; false when the user
/// says No, or it was gone already, which is told. Raises Falla.
bool Eliminar(AppContext &ctx, const QString &interno, qint64 id);

/// "la línea 3", "las líneas 3 y 5"; of many the first ones and how many more there are.
QString NombrarLineas(const std::vector<int> &ordenes);

}  // namespace certificados
