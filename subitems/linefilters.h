#pragma once
// The filters of the list of lines.

#include <QString>
#include <vector>

#include "subitems/linelist.h"

struct AppContext;

/// One filter. Its texts are UTF-8, its conditions the SQL around the operation's key and around the value.
struct FiltroDeLineas {
    int numero;                 ///< 1 to 17
    const char *nombre;         ///< what the batch calls it
    const char *rotulo;         ///< which lines it shows, as the menu says it, with its mnemonic
    const char *pregunta = "";  ///< what it asks for first; empty for a filter without a value
    const char *titulo = "";
    bool esCodigo = false;                   ///< its value is a code: blanks around it say nothing
    const char *antes = "where interno = ";  ///< ahead of the operation's key
    const char *detras;                      ///< behind the key, up to the value
    const char *comodinDelante = "";         ///< with the value between its quotes, ahead of it
    const char *comodinDetras = "";          ///< behind it
    const char *trasElValor = "";            ///< behind the value and its quotes

    bool pideValor() const { return *pregunta != 0; }
};
/// In the order of their numbers.
const std::vector<FiltroDeLineas> &FiltrosDeLineas();
/// Null for a number that none has.
const FiltroDeLineas *FiltroDeNumero(int numero);
/// By its name in any case, or by its number; null for a text that is neither.
const FiltroDeLineas *FiltroDeNombre(const QString &nombre);

/// The filter that is on; number 0 is none.
struct FiltroActivo {
    int numero = 0;
    QString valor;

    bool activo() const { return numero != 0; }
    bool operator==(const FiltroActivo &) const = default;
};

/// The filter with a value, its apostrophes removed. A filter that needs a value and is left without one is
/// none.
FiltroActivo FiltroCon(const FiltroDeLineas &filtro, const QString &valor);
/// The same, its value asked for where it needs one; `anterior` is the filter that is on, whose value is
/// offered again by the same question. An empty answer, or none, leaves no filter.
FiltroActivo PedirFiltro(AppContext &ctx, const FiltroDeLineas &filtro, const FiltroActivo &anterior = {});

/// Which lines the filter shows; all of them for none.
CondicionDeLineas CondicionDe(const FiltroActivo &filtro);
/// The filter in words, with its value: "Por posición arancelaria: 8413". Empty for none.
QString TextoDeFiltro(const FiltroActivo &filtro);
