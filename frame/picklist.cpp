#include "frame/picklist.h"

#include <algorithm>

#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

int buscarConPregunta(AppContext &ctx, const QString &pregunta, const QStringList &columna, int actual) {
    constexpr int maximo = 60;
    const auto buscado = ctx.dialogos.pedirTexto({u"Buscar"_s, pregunta, maximo, {}});
    if (!buscado || buscado->isEmpty()) return -1;
    const int fila = BuscarCadena(columna, *buscado, actual);
    if (fila < 0) ctx.dialogos.informar(u"Cadena no encontrada"_s);
    return fila;
}

}  // namespace

QString PlegarTexto(const QString &texto) {
    qsizetype desde = 0;
    while (desde < texto.size() && texto[desde].isSpace()) ++desde;
    const QString sinBlancos = desde == 0 ? texto : texto.mid(desde);
    const bool llano =
        std::all_of(sinBlancos.begin(), sinBlancos.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (llano) return sinBlancos.toLower();
    QString plegado = sinBlancos.normalized(QString::NormalizationForm_KD);
    plegado.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    return plegado.toCaseFolded();
}

BuscadorPorPrefijo::BuscadorPorPrefijo(const QStringList &filas) {
    entradas_.reserve(static_cast<std::size_t>(filas.size()));
    for (int i = 0; i < filas.size(); ++i) entradas_.push_back({PlegarTexto(filas[i]), i});
    std::sort(entradas_.begin(), entradas_.end(), [](const Entrada &a, const Entrada &b) {
        const int orden = a.clave.compare(b.clave);
        return orden != 0 ? orden < 0 : a.fila < b.fila;
    });
}

int BuscadorPorPrefijo::Primera(const QString &texto) const {
    const QString prefijo = PlegarTexto(texto);
    const auto desde =
        std::lower_bound(entradas_.begin(), entradas_.end(), prefijo,
                         [](const Entrada &e, const QString &p) { return e.clave.compare(p) < 0; });
    const auto hasta =
        std::upper_bound(desde, entradas_.end(), prefijo, [](const QString &p, const Entrada &e) {
            return p.compare(QStringView(e.clave).left(p.size())) < 0;
        });
    // A short prefix takes in many rows; the first of the list is not the first by key.
    const auto primera =
        std::min_element(desde, hasta, [](const Entrada &a, const Entrada &b) { return a.fila < b.fila; });
    return primera == hasta ? -1 : primera->fila;
}

BuscadorPorContenido::BuscadorPorContenido(const QStringList &filas) {
    claves_.reserve(filas.size());
    for (const QString &fila : filas) claves_ << PlegarTexto(fila);
}

std::vector<int> BuscadorPorContenido::Filas(const QString &texto) const {
    const QString buscado = PlegarTexto(texto);
    std::vector<int> filas;
    for (int i = 0; i < claves_.size(); ++i)
        if (claves_[i].contains(buscado)) filas.push_back(i);
    return filas;
}

EstadoDeLista::EstadoDeLista(QStringList lista, int inicial)
    : filas(std::move(lista)),
      actual(inicial >= 0 && inicial < filas.size() ? inicial : -1),
      buscador_(filas) {}

void EstadoDeLista::Escribir(const QString &nuevo) {
    texto = nuevo;
    actual = buscador_.Primera(texto);
}

bool EstadoDeLista::irA(int fila) {
    const int ultima = static_cast<int>(filas.size()) - 1;
    if (ultima < 0) return false;
    const int destino = std::clamp(fila, 0, ultima);
    if (destino == actual) return false;
    actual = destino;
    texto = filas[actual];
    return true;
}

bool EstadoDeLista::Mover(int pasos) {
    if (actual < 0) return pasos > 0 && irA(0);
    return irA(actual + pasos);
}

bool EstadoDeLista::IrAlPrincipio() {
    return irA(0);
}

bool EstadoDeLista::IrAlFinal() {
    return irA(static_cast<int>(filas.size()) - 1);
}

int BuscarCadena(const QStringList &columna, const QString &buscado, int actual) {
    const QString clave = PlegarTexto(buscado);
    const int filas = static_cast<int>(columna.size());
    for (int i = std::max(actual, -1) + 1; i < filas; ++i)
        if (PlegarTexto(columna[i]).contains(clave)) return i;
    return actual >= 0 && actual < filas && PlegarTexto(columna[actual]).contains(clave) ? actual : -1;
}

int BuscarCod(AppContext &ctx, const QStringList &codigos, int actual) {
    return buscarConPregunta(ctx, u"Ingrese el texto a buscar en CODIGO"_s, codigos, actual);
}

int BuscarDesc(AppContext &ctx, const QStringList &descripciones, int actual) {
    return buscarConPregunta(ctx, u"Ingrese el texto a buscar en DESCRIPCIÓN"_s, descripciones, actual);
}
