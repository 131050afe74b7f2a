// The lists without a screen: nothing is locked, as nothing is written but the file.

#include <QFileInfo>
#include <algorithm>

#include "operations/batchwork.h"
#include "operations/browserlist.h"
#include "operations/stocklists.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

using listas::Clave;
using listas::Lista;

const std::vector<Lista> &todasLasListas() {
    static const std::vector<Lista> todas = [] {
        std::vector<Lista> filas = listas::Listas();
        filas.push_back(ListaDeOperaciones());
        filas.push_back(ListaDeStock());
        filas.push_back(ListaDeInsumos());
        filas.push_back(ListaDeTransferidas());
        return filas;
    }();
    return todas;
}

/// Null for a list that there is not.
const Lista *buscarLista(const QString &nombre) {
    const std::vector<Lista> &todas = todasLasListas();
    const auto lista =
        std::find_if(todas.begin(), todas.end(), [&nombre](const Lista &l) { return l.nombre == nombre; });
    return lista == todas.end() ? nullptr : &*lista;
}

}  // namespace

QString DefectoDeLista(const QString &nombre) {
    if (buscarLista(nombre) != nullptr) return {};
    QStringList nombres;
    for (const Lista &l : todasLasListas()) nombres << l.nombre;
    return u"\"%1\" no es una de las listas (%2)"_s.arg(nombre, nombres.join(", "_L1));
}

QString DefectoDeClaveDeLista(const QStringList &argumentos) {
    const QString &nombre = argumentos.front();
    const QString clave = argumentos.value(1);
    switch (buscarLista(nombre)->clave) {
        case Clave::Ninguna:
            return clave.isEmpty() ? QString()
                                   : u"Sobra \"%1\": la lista %2 no lleva clave"_s.arg(clave, nombre);
        case Clave::Operacion:
            return clave.isEmpty() ? u"Falta CLAVE: la lista %1 es de una operación"_s.arg(nombre)
                                   : QString();
        case Clave::Catalogo:
            break;
    }
    return clave.isEmpty() ? u"Falta CLAVE: la lista %1 es de un catálogo"_s.arg(nombre) : QString();
}

QString DefectoDeSalidaDeLista(const QString &archivo) {
    static const QStringList clases{u"pdf"_s, u"xlsx"_s, u"csv"_s};
    return clases.contains(QFileInfo(archivo).suffix().toLower())
               ? QString()
               : u"\"%1\" no termina en .pdf, .xlsx o .csv"_s.arg(archivo);
}

int EscribirLista(const Trabajo &t) {
    AppContext &ctx = t.ctx;
    const Lista &lista = *buscarLista(t.orden.argumentos.value(0));
    const QString clave = t.orden.argumentos.value(1);
    t.resultado[u"lista"_s] = lista.nombre;
    if (!clave.isEmpty()) t.resultado[u"clave"_s] = clave;
    if (lista.clave == Clave::Operacion && !HayOperacion(ctx, clave)) return falla;
    const papel::Tabla tabla = lista.armar(ctx, clave);
    if (tabla.filas.empty()) {
        ctx.dialogos.critico(listas::SinFilas(lista, clave));
        return falla;
    }
    const QString archivo = QFileInfo(t.orden.valor("salida")).absoluteFilePath();
    const QString porque = papel::Escribir(listas::DocumentoDe(lista, tabla, ctx.SeparadorDecimal), archivo);
    if (!porque.isEmpty()) {
        ctx.dialogos.critico(porque);
        return falla;
    }
    t.resultado[u"archivo"_s] = archivo;
    t.resultado[u"filas"_s] =
        static_cast<int>(std::count_if(tabla.filas.begin(), tabla.filas.end(), [](const papel::Fila &f) {
            return f.tipo == papel::Fila::Tipo::Dato;
        }));
    return bien;
}

}  // namespace lote
