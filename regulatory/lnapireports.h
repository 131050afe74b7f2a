#pragma once
// Reports of catalogue articles with the licences of their positions, as a file that a spreadsheet opens.

#include <QString>
#include <optional>

#include "frame/context.h"
#include "frame/paper/report.h"

/// What a report is of: a catalogue, an article in all of them, or a position or a part of one.
enum class BusquedaDeReporte { Catalogo, Articulo, Posicion };

/// The characters of a position that a search takes at the least.
constexpr qsizetype minimoDePosicionBuscada = 5;

/// Hears how many articles are done and how many there are; false stops the report.
using AvanceDeReporte = papel::AlAvanzar;

/// How far a report is: "37 %".
QString TextoDeAvance(int hechos, int cantidad);

/// The articles that a report is of, in its order.
struct ArticulosDeReporte {
    BusquedaDeReporte busqueda = BusquedaDeReporte::Catalogo;
    QString valor;
    Recordset filas;
    int cantidad = 0;
};

/// Looks for the articles of a report; blanks around the value are none of it. Nothing when there are none,
/// or when fewer than five characters of a position are looked for, which was told. Raises Falla.
std::optional<ArticulosDeReporte> BuscarArticulosDeReporte(AppContext &ctx, BusquedaDeReporte busqueda,
                                                           const QString &valor);

/// What became of a report.
struct ReporteDeLicencias {
    bool hecho = false;
    bool detenido = false;
    QString porque;  ///< why it was not written, as one sentence
    int filas = 0;   ///< an article has one for each norm of its position
};

/// Looks up the licences of each article and writes the report: a workbook when the name ends in ".xlsx",
/// else text with a tab between cells. A file that was there is replaced once all of it is done. Raises
/// Falla.
ReporteDeLicencias EscribirReporte(AppContext &ctx, ArticulosDeReporte &articulos, const QString &archivo,
                                   const AvanceDeReporte &avance = {});

/// The whole road of a user: looks for the articles, asks for a file, writes the report, tells where it is
/// and opens it. False when no file was written: there are no articles, the user left or stopped it, or it
/// could not be written, which was told. Raises Falla.
bool ReporteCatalogo(AppContext &ctx, const QString &valor, const AvanceDeReporte &avance = {});
bool ReporteArticulo(AppContext &ctx, const QString &valor, const AvanceDeReporte &avance = {});
bool ReportePosicion(AppContext &ctx, const QString &valor, const AvanceDeReporte &avance = {});
