#pragma once
// Our own book of clients: the list, the record with its advantages, what a record must hold, and its life.

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "header/parties.h"

struct AppContext;

namespace ClientBook {

/// A row of the list.
struct Fila {
    QString cuit;
    QString nombre;
    QString domicilio;
    QString email;
};
enum class Orden { Nombre, Cuit };
/// Every client. Raises Falla.
std::vector<Fila> Listar(AppContext &ctx, Orden orden = Orden::Nombre);
/// One column of them, for the searches as one types (EstadoDeLista).
QStringList Nombres(const std::vector<Fila> &filas);
QStringList Cuits(const std::vector<Fila> &filas);

/// An advantage tied to a client.
struct Ventaja {
    QString idSubRegimen;  ///< empty: every subregime
    QString NCM;           ///< the beginning of the positions it is for; empty: every position
    QString idventaja;
    bool operator==(const Ventaja &) const = default;
};

/// A client as its screen holds it: numbers are the typed texts.
struct Ficha {
    QString cuit;
    QString nombre;
    QString domicilio;
    QString email;
    QString regalias;      ///< percent of royalties, added to the value
    QString ajxvinc_4102;  ///< percent of adjustment between linked parties
    bool eximgan = false;  ///< exempt from the income tax payment on account …
    QString eximganvalor;  ///< … by this percent
    QString eximganvalortemp;
    bool ivaareduccion = false;  ///< reduced additional VAT …
    QString ivaareduccionvalor;  ///< … by this percent
    QString ivaareduccionvalortemp;
    bool cvdi = false;
    QString ingbru;  ///< percent of gross income tax
    bool ExcepLAPIAEC = false;
    std::vector<Ventaja> ventajas;
    bool operator==(const Ficha &) const = default;
};

/// The record as stored; nothing when the number is not kept. Raises Falla.
std::optional<Ficha> Leer(AppContext &ctx, const QString &cuit);
/// A record for a new client, with its numbers at zero.
Ficha Nueva();

/// A tax number without the marks people write in it: "30-12345678-1" gives "30123456781".
QString LimpiarCuit(const QString &texto);

/// Whether a text may be a mail address: something, "@", and a name with a dot in it, without blanks.
bool PareceCorreo(const QString &texto);

/// Something wrong with a record. `campo` is the column's name, or "ventajas" with the row in `fila`.
struct Falta {
    QString campo;
    QString mensaje;
    int fila = -1;
};
/// Everything wrong, in the order of the fields; empty for a record that may be stored. The tax number is
/// looked at only for a new client: a stored one cannot be changed. Raises Falla.
std::vector<Falta> Revisar(AppContext &ctx, const Ficha &ficha, bool nuevo);

/// Stores a new client or the change of a stored one, and its advantages. When something is wrong the first
/// fault is shown and answered, and nothing is written. Raises Falla.
std::optional<Falta> Guardar(AppContext &ctx, const Ficha &ficha, bool nuevo);

/// How many operations name the client. Raises Falla.
int OperacionesQueLoUsan(AppContext &ctx, const QString &cuit);
/// Asks and deletes the client with its advantages; the question says so when operations use it, and its
/// default is No. False when the user says No or the number is not kept. Raises Falla.
bool Borrar(AppContext &ctx, const QString &cuit);

/// What the list left chosen; a list left with ESC empties it.
ParteElegida &Elegido();

/// The catalogue of advantages, for the list behind the advantage's field: code and description. Raises
/// Falla.
struct VentajaDeCatalogo {
    QString id;
    QString descripcion;
};
std::vector<VentajaDeCatalogo> CatalogoDeVentajas(AppContext &ctx);

/// The pick list of advantages: the code of the chosen one in capitals, empty when the list was left. Raises
/// Falla.
QString getVentajasListado(AppContext &ctx);

}  // namespace ClientBook
