#include "forms/certificatelist.h"

#include <algorithm>
#include <iterator>

#include "forms/certificates.h"

using namespace Qt::StringLiterals;

namespace certificados {

namespace {

constexpr std::size_t columnasDeLista = 9;

QString diaDeLista(const std::optional<QDate> &dia) {
    return dia ? dia->toString(u"dd/MM/yyyy"_s) : QString();
}

/// "BR-2026-1188 del 20/01/2026, país 203, AUTOPECAS PAULISTA LTDA., vence el 18/07/2026".
QString tituloDe(const Certificado &c) {
    QStringList partes{c.numero + " del "_L1 + diaDeLista(c.fecha), u"país "_s + c.idpais};
    if (!c.exportador.isEmpty()) partes << c.exportador;
    if (c.vencimiento) partes << u"vence el "_s + diaDeLista(c.vencimiento);
    return partes.join(", "_L1);
}

/// A row of a certificate and a line; of the certificate alone without one.
papel::Fila filaDe(const Certificado &c, const Linea *l) {
    std::vector<QVariant> celdas{c.numero, c.vencimiento ? QVariant(*c.vencimiento) : QVariant()};
    celdas.resize(columnasDeLista);
    if (l != nullptr) {
        const QVariant delaLinea[] = {double(l->orden), l->ncm,    l->idarticulo, l->cantidad,
                                      l->idunidad,      l->idpais, l->fob};
        std::copy(std::begin(delaLinea), std::end(delaLinea), celdas.begin() + 2);
    }
    return {celdas, papel::Fila::Tipo::Dato, {}};
}

}  // namespace

papel::Tabla TablaDeCertificados(AppContext &ctx, const QString &interno) {
    const Legajo legajo = Leer(ctx, interno);
    papel::Tabla tabla;
    tabla.titulo = u"Certificados de origen"_s;
    tabla.subtitulo = u"Operación "_s + interno;
    tabla.nombre = u"Certificados "_s + interno;
    tabla.columnas = {{u"Certificado"_s, papel::Clase::Texto, 20},
                      {u"Vence"_s, papel::Clase::Fecha, 10},
                      {u"Línea"_s, papel::Clase::Numero, 5, u"0000"_s},
                      {u"Posición"_s, papel::Clase::Texto, 15},
                      {u"Artículo"_s, papel::Clase::Texto, 18},
                      {u"Cantidad"_s, papel::Clase::Numero, 11, u"00.00"_s},
                      {u"Un."_s, papel::Clase::Texto, 3},
                      {u"Origen"_s, papel::Clase::Texto, 6},
                      {u"FOB"_s, papel::Clase::Numero, 12, u"00.00"_s, true}};
    constexpr std::size_t lugarDeFob = columnasDeLista - 1;
    double todo = 0;
    for (const Certificado &c : legajo.certificados) {
        tabla.filas.push_back(
            {std::vector<QVariant>(tabla.columnas.size()), papel::Fila::Tipo::Grupo, tituloDe(c)});
        double suma = 0;
        for (const Linea &l : legajo.lineas) {
            if (!l.lleva(c.numero)) continue;
            suma += l.fob;
            tabla.filas.push_back(
                {{c.numero, c.vencimiento ? QVariant(*c.vencimiento) : QVariant(), double(l.orden), l.ncm,
                  l.idarticulo, l.cantidad, l.idunidad, l.idpais, l.fob},
                 papel::Fila::Tipo::Dato,
                 {}});
        }
        // One that covers nothing yet is told all the same.
        if (tabla.filas.back().tipo == papel::Fila::Tipo::Grupo) tabla.filas.push_back(filaDe(c, nullptr));
        papel::Fila subtotal{std::vector<QVariant>(tabla.columnas.size()), papel::Fila::Tipo::Subtotal,
                             u"Subtotal "_s + c.numero};
        subtotal.celdas[lugarDeFob] = suma;
        tabla.filas.push_back(std::move(subtotal));
        todo += suma;
    }
    if (legajo.certificados.empty()) return tabla;
    papel::Fila total{std::vector<QVariant>(tabla.columnas.size()), papel::Fila::Tipo::Total, u"Total"_s};
    total.celdas[lugarDeFob] = todo;
    tabla.filas.push_back(std::move(total));
    return tabla;
}

}  // namespace certificados
