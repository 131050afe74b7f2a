#pragma once
// What the commands of the batch share: a command is a routine over a Trabajo, and a row of the table in
// batch.cpp.

#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>

#include "frame/commandline.h"
#include "frame/context.h"
#include "liquidation/review.h"
#include "operations/status.h"

namespace lote {

struct Orden {
    QString comando;                       ///< the name of one of Comandos()
    QString clave;                         ///< of the operation; empty for a command on none
    QStringList argumentos;                ///< what stands behind the key, or behind a command on none
    QHash<QString, QStringList> opciones;  ///< what came, by name; a switch has no value
    QJsonObject cambios = {};              ///< what the file of --cambios holds

    /// Whether the option came.
    bool tiene(const char *opcion) const { return opciones.contains(QLatin1String(opcion)); }
    /// Its value; empty when it did not come.
    QString valor(const char *opcion) const { return opciones.value(QLatin1String(opcion)).value(0); }
};

constexpr int bien = 0;
constexpr int falla = 1;
constexpr int malPedido = consola::malUso;

/// Hears what the order answers besides its result: an operation of the list at a time.
using SalidaDeObjetos = std::function<void(const QJsonObject &)>;

/// What a command works on.
struct Trabajo {
    AppContext &ctx;
    const Orden &orden;
    const EleccionDelTablero &tablero;
    const SalidaDeObjetos &salida;
    QJsonObject &resultado;
};

/// Whether the operation is there; a message tells when it is not. Raises Falla.
bool HayOperacion(AppContext &ctx, const QString &clave);

/// Work on an operation that is held like a dashboard would hold it: locked first, given back on every road.
/// Answers what `hacer` answers, `falla` when another workstation holds it, which was told. Raises Falla.
int ConLaOperacion(const Trabajo &t, const std::function<int()> &hacer);

/// What is still to be done behind the work. Where its failure was told (`dicha`), another one, of a store
/// that is gone mostly, is not told again; otherwise raises Falla.
void TrasElTrabajo(bool dicha, const std::function<void()> &hacer);

/// Puts the totals of a recalculation into the result, amounts with two decimals.
void DecirLiquidacion(const Trabajo &t, const ResultadoRecalculo &r);

// Commands that stand in files of their own; each answers the exit status and raises Falla.

/// Hands the operation over into the file of --salida, which is replaced when it is there.
int Transferir(const Trabajo &t);
/// Writes the sheet of the items --desde to --hasta into the file of --salida.
int Imprimir(const Trabajo &t);
/// Writes the quote into the file of --salida.
int Presupuestar(const Trabajo &t);
/// Writes a list, of an operation, a catalogue or none, into the file of --salida.
int EscribirLista(const Trabajo &t);
/// Changes one column on all lines of the operation, locked meanwhile.
int CambiarLineas(const Trabajo &t);
/// Tells the lines that a filter shows, one an object.
int FiltrarLineas(const Trabajo &t);
/// Writes the report of --catalogo, --articulo or --posicion with its licences into the file of --salida.
int EscribirLicencias(const Trabajo &t);
/// Loads a file into a catalogue, tells what was found in each line; `falla` when a row was not kept.
int CargarCatalogoDeArchivo(const Trabajo &t);
/// Tells the catalogues, or the articles of one.
int ListarCatalogos(const Trabajo &t);
/// Moves articles of a catalogue to another; `falla` when one stays.
int MoverArticulos(const Trabajo &t);
/// Puts a temporary import into the stock, locked meanwhile; `falla` when a line stays as it was.
int CargarStock(const Trabajo &t);
/// A line takes its quantity from the stock.
int TomarDelStock(const Trabajo &t);
/// Gives back what a line took, or the whole operation.
int DevolverAlStock(const Trabajo &t);
/// Tells what does not agree in the stock, one an object, and mends it with --reparar; `falla` when something
/// stays.
int RevisarStock(const Trabajo &t);
/// Tells the lines of the stock, one an object.
int ListarStock(const Trabajo &t);

/// Writes the operations of the keys into the file of --salida.
int ExportarOperaciones(const Trabajo &t);
/// Imports a file, tells what became of each operation; `falla` when one could not be imported.
int ImportarOperaciones(const Trabajo &t);
/// What is wrong with the word of --existentes.
QString DefectoDeExistentes(const QString &palabra);

// Controls of the command line: what is wrong with the name of a list, with the key beside it, and with the
// file that it is written into.

QString DefectoDeLista(const QString &nombre);
QString DefectoDeClaveDeLista(const QStringList &argumentos);
QString DefectoDeSalidaDeLista(const QString &archivo);
/// What is wrong with the code of a catalogue that may not be there yet.
QString DefectoDeCatalogo(const QString &catalogo);

// The same for the name of a change and of a filter, and for the value beside it.

QString DefectoDeCambioMasivo(const QString &nombre);
QString DefectoDeValorDeCambio(const QStringList &argumentos);
QString DefectoDeFiltro(const QString &nombre);
QString DefectoDeValorDeFiltro(const QStringList &argumentos);

// What is wrong with a day, a percentage, a line, a part of a position to look for, and the file of a report.

QString DefectoDeFecha(const QString &texto);
QString DefectoDePorcentaje(const QString &texto);
/// Of the number of a line of an operation.
QString DefectoDeLinea(const QString &texto);
/// Of a line of the stock, with a quantity behind ":" or not.
QString DefectoDeParte(const QString &texto);
QString DefectoDePosicionBuscada(const QString &posicion);
QString DefectoDeSalidaDeLicencias(const QString &archivo);

}  // namespace lote
