#include "frame/store/dialect.h"

#include "frame/store/dialect_rewrites.h"
#include "frame/store/dialect_tokens.h"

namespace dialecto {

namespace {

QString traducirCon(const QString &texto, const Ajustes &ajustes, bool conIdentidadDeFila) {
    thread_local Tokens t;
    // Something does not close: the engine is to say so of the text as it stands.
    if (!t.partir(texto)) return texto;
    for (const auto cambiar : ajustes.gramatica->expresiones) cambiar(t);
    if (const auto exec = cambiarExec(t)) return *exec;
    cambiarSelects(t, ajustes, conIdentidadDeFila);
    if (const auto update = cambiarUpdateConJoin(t)) return *update;
    return t.editado() ? t.escribir(0, t.size()) : texto;
}

}  // namespace

QString traducir(const QString &texto, const Ajustes &ajustes) {
    return traducirCon(texto, ajustes, false);
}

QString conIdentidad(const QString &texto, const Ajustes &ajustes) {
    return traducirCon(texto, ajustes, true);
}

}  // namespace dialecto
