// The hand-over without a screen: the check, its question, the warnings and the document.

#include "operations/batchwork.h"
#include "operations/handover.h"
#include "outputs/handedover.h"
#include "outputs/transfer.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

void contarEnElResultado(const ResumenDeDeclaracion &r, QJsonObject &resultado) {
    resultado[u"items"_s] = r.items;
    resultado[u"subitems"_s] = r.subitems;
    resultado[u"tributos"_s] = r.tributos;
    resultado[u"ventajas"_s] = r.ventajas;
    resultado[u"informaciones"_s] = r.informaciones;
    resultado[u"cancelaciones"_s] = r.cancelaciones;
}

int transferirTomada(const Trabajo &t) {
    t.resultado[u"transferido"_s] = false;
    if (!ConfirmarTransferencia(t.ctx, t.orden.clave)) return bien;
    const Transferencia preparada = PrepararTransferencia(t.ctx, t.orden.clave);
    for (const Advertencia &a : preparada.advertencias)
        t.salida({{u"tipo"_s, u"advertencia"_s}, {u"item"_s, a.item}, {u"texto"_s, a.texto}});
    t.resultado[u"advertencias"_s] = static_cast<int>(preparada.advertencias.size());
    const DocumentoEscrito escrito = EscribirTransferencia(preparada.declaracion, t.orden.valor("salida"));
    if (!escrito.hecho) {
        t.ctx.dialogos.critico(escrito.aviso);
        return falla;
    }
    AnotarEntrega(t.ctx, t.orden.clave, escrito);
    t.resultado[u"transferido"_s] = true;
    t.resultado[u"archivo"_s] = escrito.archivo;
    t.resultado[u"bytes"_s] = escrito.bytes;
    contarEnElResultado(Resumir(preparada.declaracion), t.resultado);
    return bien;
}

}  // namespace

int Transferir(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return transferirTomada(t); });
}

}  // namespace lote
