// Operations out to a file and in from one, without a screen.

#include <QFileInfo>
#include <QJsonArray>

#include "operations/batchwork.h"
#include "operations/exchange.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

using intercambio::Decision;
using intercambio::Importada;
using intercambio::OperacionEnArchivo;

const QString tituloDeImportacion = u"Importar Operaciones"_s;

/// What is done with an operation that is there already, as --existentes and a question call it.
struct ConLaExistente {
    QString palabra;
    QString respuesta;
    Decision decision;
};
const std::vector<ConLaExistente> &decisiones() {
    static const std::vector<ConLaExistente> todas{
        {u"omitir"_s, u"Omitir"_s, Decision::Omitir},
        {u"reemplazar"_s, u"Reemplazar"_s, Decision::Reemplazar},
        {u"nueva"_s, u"Nueva clave"_s, Decision::OtraClave},
    };
    return todas;
}

/// Without --existentes each one is asked about; no answer leaves it out.
Decision decidir(const Trabajo &t, const QString &clave) {
    QStringList respuestas;
    for (const ConLaExistente &d : decisiones()) {
        if (t.orden.valor("existentes") == d.palabra) return d.decision;
        respuestas << d.respuesta;
    }
    const int cual = t.ctx.dialogos.elegir(
        {tituloDeImportacion + u": la operación "_s + clave + u" ya existe"_s, respuestas, 0, {}});
    return cual < 0 ? Decision::Omitir : decisiones().at(static_cast<std::size_t>(cual)).decision;
}

std::map<QString, intercambio::Plan> planear(const Trabajo &t,
                                             const std::vector<OperacionEnArchivo> &operaciones) {
    std::map<QString, intercambio::Plan> plan;
    // A key of the file is no free one for another of its operations.
    QStringList tomadas;
    for (const OperacionEnArchivo &una : operaciones) tomadas << una.clave;
    for (const OperacionEnArchivo &una : operaciones) {
        intercambio::Plan &suyo = plan[una.clave];
        suyo.decision =
            intercambio::HayEnElStore(t.ctx, una.clave) ? decidir(t, una.clave) : Decision::Importar;
        if (suyo.decision != Decision::OtraClave) continue;
        suyo.clave = intercambio::ClaveLibre(t.ctx, una.clave, tomadas);
        tomadas << suyo.clave;
    }
    return plan;
}

QString palabraDe(Importada::Fin fin) {
    switch (fin) {
        case Importada::Fin::Importada:
            return u"importada"_s;
        case Importada::Fin::Reemplazada:
            return u"reemplazada"_s;
        case Importada::Fin::Omitida:
            return u"omitida"_s;
        case Importada::Fin::Fallida:
            return u"fallida"_s;
        case Importada::Fin::SinHacer:
            break;
    }
    return u"sin hacer"_s;
}

}  // namespace

QString DefectoDeExistentes(const QString &palabra) {
    for (const ConLaExistente &d : decisiones())
        if (palabra == d.palabra) return {};
    return u"\"%1\" no es omitir, reemplazar ni nueva"_s.arg(palabra);
}

int ExportarOperaciones(const Trabajo &t) {
    const intercambio::Exportacion r =
        intercambio::Exportar(t.ctx, t.orden.argumentos, t.orden.valor("salida"));
    t.resultado[u"exportado"_s] = r.hecho;
    if (!r.hecho) {
        t.ctx.dialogos.critico(r.aviso);
        return falla;
    }
    t.resultado[u"archivo"_s] = r.archivo;
    t.resultado[u"operaciones"_s] = r.operaciones;
    t.resultado[u"filas"_s] = r.filas;
    t.resultado[u"bytes"_s] = r.bytes;
    return bien;
}

int ImportarOperaciones(const Trabajo &t) {
    const QString archivo = QFileInfo(t.orden.argumentos.value(0)).absoluteFilePath();
    const intercambio::ContenidoDeArchivo contenido = intercambio::Mirar(t.ctx, archivo);
    if (!contenido.defecto.isEmpty()) {
        t.ctx.dialogos.critico(contenido.defecto);
        return falla;
    }
    const intercambio::Importacion r =
        intercambio::Importar(t.ctx, archivo, planear(t, contenido.operaciones));
    if (!r.defecto.isEmpty()) {
        t.ctx.dialogos.critico(r.defecto);
        return falla;
    }
    for (const Importada &una : r.operaciones) {
        t.salida({{u"tipo"_s, u"operacion"_s},
                  {u"interno"_s, una.clave},
                  {u"destino"_s, una.destino},
                  {u"fin"_s, palabraDe(una.fin)},
                  {u"texto"_s, una.aviso}});
    }
    t.resultado[u"archivo"_s] = archivo;
    t.resultado[u"importadas"_s] = r.cuantas(Importada::Fin::Importada);
    t.resultado[u"reemplazadas"_s] = r.cuantas(Importada::Fin::Reemplazada);
    t.resultado[u"omitidas"_s] = r.cuantas(Importada::Fin::Omitida);
    t.resultado[u"fallidas"_s] = r.cuantas(Importada::Fin::Fallida);
    t.resultado[u"relacionadas"_s] = r.relacionadas;
    return r.cuantas(Importada::Fin::Fallida) == 0 ? bien : falla;
}

}  // namespace lote
