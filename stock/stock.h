#pragma once
// The stock of temporary inputs: what entered by each line of a temporary import, what was taken of it, what
// is left and until when. The balance of a line is what entered less what stands taken; nothing is deleted
// from the movements. Every routine that reads or writes raises Falla.

#include <QDate>
#include <QDateTime>
#include <QString>
#include <optional>
#include <vector>

struct AppContext;

namespace stock {

/// A row of `stock`: a line of a temporary import that was loaded. Quantities are in `idunidad`.
struct Linea {
    qint64 id = 0;  ///< 0: none
    QString dit;    ///< number of the import's declaration
    int item = 0;
    int subitem = 0;  ///< number of the line within its item
    QString ncm, idcatalogo, idarticulo, descripcion, idunidad;
    double cantidad = 0;  ///< what entered
    double saldo = 0;     ///< what is left
    double cif = 0;       ///< of the whole line, in `divisa`
    QString divisa;
    double preciounitario = 0;
    QString idpais, sufijos;
    double merma = 0;   ///< waste and loss, percent
    QDate fecha;        ///< of the declaration; null: not told
    QDate vencimiento;  ///< last day; null: it does not expire
    QString cuitcliente;
    QString expctit;     ///< file number of the input and output certificate (CTIT)
    QString interno;     ///< operation that it was loaded from
    qint64 idlinea = 0;  ///< and its line
};

/// How a line stands on a day. One that expires today is still within its term.
enum class Plazo { SinVencimiento, EnTermino, PorVencer, Vencido };
constexpr int diasDeAviso = 30;  ///< ahead of the expiry, from which on it is told
Plazo PlazoDe(const QDate &vencimiento, const QDate &hoy);
/// "vencido", "por vencer"; empty for the others.
QString PalabraDePlazo(Plazo plazo);

/// Decimals of the quantities that are taken: two, six with the extended decimal value (opVDE).
int Decimales(const AppContext &ctx);
/// The mask of a quantity: "00.00", or with six decimals.
QString MascaraDeCantidad(const AppContext &ctx);
/// What a taking of one unit takes from the balance: 1, or 1 + waste/100 where it counts (RestarPerMer).
double FactorDe(const AppContext &ctx, const Linea &linea);
/// What a declared quantity takes from the balance, rounded to the decimals of quantities.
double Descontado(const AppContext &ctx, const Linea &linea, double cantidad);
/// The largest declared quantity that the balance allows, rounded down.
double LoQueAlcanza(const AppContext &ctx, const Linea &linea);

/// What the stock is searched by; empty members do not filter.
struct Filtro {
    QString cliente = {};      ///< tax number or a part of the name
    QString declaracion = {};  ///< the beginning of its number
    QString articulo = {};     ///< a part of catalogue, article or description
    QString posicion = {};     ///< the beginning of the position, with or without dots
    bool conSaldo = false;
};
/// The lines that pass, oldest expiry first (those without one last), then by declaration, item and subitem.
std::vector<Linea> Buscar(AppContext &ctx, const Filtro &filtro);
/// Nothing for a line that is not there.
std::optional<Linea> LeerLinea(AppContext &ctx, qint64 id);
/// The name of a client, its tax number where the book does not have it.
QString NombreDeCliente(AppContext &ctx, const QString &cuit);

/// A row of `stockmov`: one taking.
struct Movimiento {
    qint64 id = 0;
    qint64 idstock = 0;  ///< 0: a cancellation by hand, without stock
    QString interno;
    qint64 idlinea = 0;     ///< line that took it, or keeps the cancellation of its item
    int iditem = 0;         ///< 0: not armed yet
    double cantidad = 0;    ///< declared
    double factor = 1;      ///< of weighting
    double descontado = 0;  ///< what left the balance
    double cif = 0;         ///< in the currency of the stock line
    bool paraItem = false;  ///< a cancellation of the item, which `idlinea` only keeps
    QDateTime fecha;
    QString maquina;
    QDateTime devuelta;  ///< invalid: it stands
    QString maquinadevuelta;
    bool sigue() const { return !devuelta.isValid(); }
};
/// Every movement of a line of the stock, oldest first.
std::vector<Movimiento> MovimientosDe(AppContext &ctx, qint64 idstock);
/// The movements that stand of an operation, or of one line of it, oldest first.
std::vector<Movimiento> TomasQueSiguen(AppContext &ctx, const QString &interno);
std::vector<Movimiento> TomasQueSiguen(AppContext &ctx, const QString &interno, qint64 idlinea);

/// An article that the client of an operation has in stock.
struct ArticuloEnStock {
    QString idcatalogo, idarticulo, descripcion, ncm, idunidad;
    double saldo = 0;
    int lineas = 0;
    QDate vence;  ///< the first expiry among those that did not expire yet; null: none
};
/// The articles of the operation's client with a balance, by catalogue and article; `texto` is a part of
/// catalogue, article, description or position, empty for all.
std::vector<ArticuloEnStock> ArticulosDe(AppContext &ctx, const QString &interno, const QString &texto = {});

/// What is asked of the stock: an article for an operation, in a unit. Position and description tell goods
/// apart that have no code.
struct Pedido {
    QString interno;
    QString idcatalogo, idarticulo, idunidad;
    QString ncm, descripcion;
};
/// A part of a taking: a declared quantity out of one line of the stock.
struct Parte {
    qint64 idstock = 0;
    double cantidad = 0;
};
/// A line of the stock as it is offered for a taking.
struct Oferta {
    Linea linea;
    Plazo plazo = Plazo::SinVencimiento;
    double alcanza = 0;   ///< the largest declared quantity
    double cantidad = 0;  ///< proposed
};
/// The lines with a balance that a request may take from, oldest expiry first, expired ones behind them.
/// Nothing is proposed yet.
std::vector<Oferta> Ofertas(AppContext &ctx, const Pedido &pedido, const QDate &hoy);
/// Proposes `cantidad` over the offers in their order, never from an expired one; answers what is missing.
double Repartir(const AppContext &ctx, std::vector<Oferta> &ofertas, double cantidad);

/// What the screen of taking answers: the article, and what was chosen of it. Without parts the oldest expiry
/// goes first.
struct Elegido {
    ArticuloEnStock articulo;
    std::vector<Parte> partes;
};

/// Who takes: a line for itself, which then bears the mark 'OK' and the value.
struct Destino {
    QString interno;
    qint64 idlinea = 0;
};
/// How a taking ended.
struct Resultado {
    bool ok = false;
    double CIF = 0;  ///< what the line took in all, in the FOB currency of the operation
};
/// Takes `partes` as one: each from its balance, with its movement and its row of descargas, and the line's
/// mark. False, with one sentence told and nothing done, when a part is no quantity, a line is not the
/// client's, or a balance does not reach (any more).
Resultado Tomar(AppContext &ctx, const Destino &destino, const std::vector<Parte> &partes);
/// Takes a quantity: from what was chosen first, in its order, then from the oldest expiry. False, with one
/// sentence told and nothing done, when the stock does not reach.
Resultado TomarCantidad(AppContext &ctx, const Destino &destino, const Pedido &pedido, double cantidad,
                        const std::vector<Parte> &elegidas = {});
/// The same in the place of what the line took, of which it keeps what it can. When it does not reach, what
/// the line took stands.
Resultado RetomarCantidad(AppContext &ctx, const Destino &destino, const Pedido &pedido, double cantidad);
/// A stored line takes its quantity, as when it was keyed. False with a sentence told: no such line, a regime
/// without inputs, a line that took already, a stock that does not reach. A change of the operation.
Resultado TomarParaLinea(AppContext &ctx, const QString &interno, qint64 idlinea,
                         const std::vector<Parte> &elegidas = {});

/// Gives movements back, as one: balances, rows of descargas. The mark of a line that has no taking any more
/// goes, with its value. Those that were given back already are passed over. The number given back.
int Devolver(AppContext &ctx, const std::vector<Movimiento> &movimientos);
/// Gives back all that stands of an operation; the number given back.
int DevolverTodo(AppContext &ctx, const QString &interno);

/// An amount of one currency in another, over the table of currencies; as it stands when they are the same,
/// or when one of them is not in the table.
double EnDivisa(AppContext &ctx, double importe, const QString &de, const QString &a);

}  // namespace stock
