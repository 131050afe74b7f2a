#include <QFileInfo>
#include <QIODevice>

#include "frame/base/numbers.h"
#include "frame/paper/cells.h"
#include "frame/paper/replace.h"
#include "frame/paper/table.h"

using namespace Qt::StringLiterals;

namespace papel {

namespace {

QString entrecomillada(QString texto) {
    if (!texto.contains(u',') && !texto.contains(u'"') && !texto.contains(u'\n') && !texto.contains(u'\r'))
        return texto;
    return u'"' + texto.replace(u'"', u"\"\""_s) + u'"';
}

QString enCsv(const Tabla &tabla, const Fila &fila, std::size_t columna) {
    if (const auto numero = NumeroDe(tabla, fila, columna)) return numeros::aTexto(*numero);
    if (const auto momento = MomentoDe(tabla, fila, columna))
        return momento->toString(u"yyyy-MM-dd HH:mm:ss"_s);
    if (const auto dia = DiaDe(tabla, fila, columna)) return dia->toString(Qt::ISODate);
    return entrecomillada(SinFormula(LibreDe(fila, columna)));
}

}  // namespace

QString EscribirCsv(const Tabla &tabla, const QString &archivo) {
    return ReemplazarArchivo(archivo, [&](QIODevice &destino) {
        QStringList celdas;
        for (const Columna &columna : tabla.columnas) celdas << entrecomillada(SinFormula(columna.titulo));
        destino.write((celdas.join(u',') + u"\r\n"_s).toUtf8());
        for (const Fila &fila : tabla.filas) {
            if (fila.tipo != Fila::Tipo::Dato) continue;
            celdas.clear();
            for (std::size_t c = 0; c < tabla.columnas.size(); ++c) celdas << enCsv(tabla, fila, c);
            destino.write((celdas.join(u',') + u"\r\n"_s).toUtf8());
        }
        return QString();
    });
}

QString Escribir(const Documento &documento, const QString &archivo, const AlAvanzar &alAvanzar) {
    const QString fin = QFileInfo(archivo).suffix().toLower();
    if (fin == "pdf"_L1) return EscribirPdf(documento.reporte, archivo, alAvanzar);
    if (fin == "txt"_L1) return EscribirTexto(documento.reporte, archivo);
    if (documento.tabla && fin == "xlsx"_L1) return EscribirXlsx(*documento.tabla, archivo);
    if (documento.tabla && fin == "csv"_L1) return EscribirCsv(*documento.tabla, archivo);
    return NoSeEscribio(archivo, documento.tabla ? u"el nombre debe terminar en .pdf, .txt, .xlsx o .csv"_s
                                                 : u"el nombre debe terminar en .pdf o .txt"_s);
}

}  // namespace papel
