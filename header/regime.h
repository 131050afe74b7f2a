#pragma once
// What a subregime code means: pure predicates, exact and case-sensitive on the code unless told. Who reads a
// code from the store or from a field reads it through RegimenEnMayusculas.

#include <QString>
#include <QStringView>

struct AppContext;

/// The code as the predicates spell it: the stores find a regime in any case, so one in small letters is the
/// one in capitals. "RnaE06", the only code in mixed case, stays where it is spelled so.
QString RegimenEnMayusculas(const QString &codigo);

/// `cstaimpexp` of the code in the table sta: "I" or "E"; empty for a missing row, a null, or an empty code
/// (which sends nothing to the store). Raises Falla.
QString DireccionRegimen(AppContext &ctx, const QString &codigo);

bool EsIC0oIG(QStringView codigo);
bool EsTransito(QStringView codigo);
bool EsExportacionConsumo(QStringView codigo);
bool EsDirectoOZona(QStringView codigo);
bool PreguntaOpcionesImpositivas(QStringView codigo);
bool EsDeclaracionDJAI(QStringView codigo);
bool EsDeclaracionLAPI(QStringView codigo);
bool EsEC16(QStringView codigo);
/// The exports that carry the data of meat (ONCCA): those that begin with "EC".
bool EsRegimenConONCCA(QStringView codigo);
bool RegimenUsaHojaValor(QStringView codigo);
/// "T" for a code that begins with "TG" in any case, otherwise "P".
QString TipoDeclaracion(QStringView codigo);

bool EsRegimenTemporal(QStringView codigo);
bool EsRegimenConInsumos(QStringView codigo);
/// Trims the code first.
bool EsRegimenConSolapaInsumos(QStringView codigo);

QString OpcionIVACodigo(int indice);
QString OpcionIVATexto(int indice);
int OpcionIVAIndice(const QString &codigo);
QString OpcionGananciasCodigo(int indice);
QString OpcionGananciasTexto(int indice);
int OpcionGananciasIndice(const QString &codigo);

/// True when the suffix text carries the article, or the position is automotive and so exempt.
bool SufijoContieneArticulo(const QString &posicion, const QString &sufijos, const QString &articulo);

/// Trim, upper case, 40 characters, and every character outside A-Z 0-9 Ñ . , / # & becomes one blank.
QString NormalizarTexto(const QString &texto);

/// The first `n` characters of the code: the "Left n" of the regime rules.
inline QStringView Left(QStringView codigo, qsizetype n) {
    return codigo.left(n);
}
