#pragma once
// Parties of an operation: tax numbers, names, the book of sellers and the list of brokers.

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

struct AppContext;

/// The check digit of an 11-digit tax number, with the weights 2 to 7 from the right; a remainder of 1 keeps
/// the digit 1. A text of another length, or with anything but digits, is invalid.
bool CUITValido(const QString &cuit);

/// The broker's trimmed name; false with a message for a number of another length or one that is not kept.
/// The check digit is not looked at. Raises Falla.
bool BuscarDespachante(AppContext &ctx, const QString &cuit, QString &nombre);

/// The name behind a code of "clientes", "despadu" or "vendedor"; empty for any other table and for a code
/// that is not kept. Raises Falla.
QString BuscarNombre(AppContext &ctx, const QString &tabla, const QString &codigo);

// Clients, as the header asks for them; the book itself is header/ClientBook.h

/// What the header keeps of its client.
struct ClienteDeCaratula {
    QString cuit;
    QString nombre;
    double regalias = 0;      ///< percent
    double ajxvinc_4102 = 0;  ///< percent, adjustment for linked parties
};
enum class BusquedaDeCliente {
    FaltaCuit,     ///< the text was empty; told with a message
    Encontrado,    ///< `cliente` is filled
    NoEncontrado,  ///< nothing was told: the screen opens the book of clients
};
/// ENTER on the client's field. Raises Falla.
BusquedaDeCliente BuscarCliente(AppContext &ctx, const QString &cuit, ClienteDeCaratula &cliente);

// Sellers

struct Vendedor {
    QString codigo;
    QString nombre;
    QString domicilio;
    QString paisdelexportador;  ///< country code
    QString nivel;              ///< only shown: no screen writes it
};

/// The seller's name; true when it is kept. An empty code is told. A code that is not kept is offered to be
/// added: on Yes `agregar` opens FrmNewVendedor with the code filled in, and a seller saved there is found.
/// Raises Falla.
bool BuscarVendedor(AppContext &ctx, const QString &codigo, QString &nombre,
                    const std::function<void(const QString &codigo)> &agregar);

enum class OrdenDeVendedores { Nombre, Codigo };
/// The order that the options ask for (VendedorOrderxNombre).
OrdenDeVendedores OrdenDeVendedoresElegido(const AppContext &ctx);
/// Every seller in that order (CargarLst); none is told with "No hay vendedores en la Base". Raises
/// Falla.
std::vector<Vendedor> CargarVendedores(AppContext &ctx, OrdenDeVendedores orden);
/// One column of them, for the searches as one types (EstadoDeLista).
QStringList NombresDeVendedores(const std::vector<Vendedor> &vendedores);
QStringList CodigosDeVendedores(const std::vector<Vendedor> &vendedores);

/// The seller as stored; nothing when the code is not kept. Raises Falla.
std::optional<Vendedor> CargarVendedor(AppContext &ctx, const QString &codigo);

/// What a save came to.
enum class GuardadoDeVendedor { Guardado, FaltaCodigo, FaltaNombre, CodigoRepetido };
/// FrmNewVendedor's save: a new seller, or with `editando` the change of the one with this code; the country
/// goes in capitals. What is missing and a code that exists are told; the answer names the field to go to.
/// Raises Falla.
GuardadoDeVendedor GuardarVendedor(AppContext &ctx, const Vendedor &vendedor, bool editando);

/// Deletes without a question; rows touched. Raises Falla.
qint64 EliminarVendedor(AppContext &ctx, const QString &codigo);

/// A row of the list of countries: the code, and "code - description" as shown.
struct PaisDeLista {
    QString id;
    QString vista;
};
/// Every country by its code (CargarPais). Raises Falla.
std::vector<PaisDeLista> CargarPais(AppContext &ctx);

// Brokers

struct Despachante {
    QString cuit;
    QString nombre;
};
/// Every broker by name (FrmListadoDespachante). Raises Falla.
std::vector<Despachante> CargarDespachantes(AppContext &ctx);

/// What the lists of parties left chosen, for the screen that opened them. A list left with ESC empties its
/// own.
struct ParteElegida {
    QString codigo;  ///< the seller's code, or the broker's tax number
    QString nombre;
};
ParteElegida &VendedorElegido();
ParteElegida &DespachanteElegido();

/// Opens the list of sellers through `mostrar` (the screen) and takes what it left chosen; true when it did.
bool ListarVendedores(const std::function<void()> &mostrar, QString &codigo, QString &nombre);
