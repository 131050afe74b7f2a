#include "frame/paper/report.h"

#include <algorithm>

#include "frame/paper/layout.h"

using namespace Qt::StringLiterals;

namespace papel {

namespace {

std::size_t renglonesQueEntran(const Traza &traza) {
    const double alto = traza.fin - traza.renglones;
    return alto < traza.altoDeRenglon ? 1 : static_cast<std::size_t>(alto / traza.altoDeRenglon + 1e-6);
}

/// Where the page that begins at `desde` ends.
std::size_t finDeHoja(const std::vector<Renglon> &renglones, std::size_t desde, std::size_t entran) {
    const std::size_t lleno = std::min(renglones.size(), desde + entran);
    for (std::size_t n = desde + 1; n < lleno; ++n)
        if (renglones[n].hojaNueva) return n;
    if (lleno == renglones.size()) return lleno;
    std::size_t hasta = lleno;
    while (hasta > desde && renglones[hasta - 1].conElSiguiente) --hasta;
    return hasta > desde ? hasta : lleno;
}

}  // namespace

QSizeF MedidaDe(Orientacion orientacion) {
    return orientacion == Orientacion::Horizontal ? QSizeF(297, 210) : QSizeF(210, 297);
}

Paginado Paginar(const Reporte &reporte, const QSizeF &medida) {
    Paginado p;
    p.medida = medida;
    p.letra = LetraDe(reporte, medida);
    const Traza primera = TrazaDe(reporte, medida, p.letra, true);
    const Traza otra = TrazaDe(reporte, medida, p.letra, false);
    p.renglon = otra.altoDeRenglon / unidadesPorMilimetro;
    std::size_t desde = 0;
    do {
        const std::size_t entran = renglonesQueEntran(p.hojas.empty() ? primera : otra);
        const std::size_t hasta = finDeHoja(reporte.renglones, desde, entran);
        p.hojas.push_back({desde, hasta});
        desde = hasta;
    } while (desde < reporte.renglones.size());
    return p;
}

QStringList TextoDeHoja(const Reporte &reporte, const Paginado &paginado, std::size_t hoja) {
    const Traza t = TrazaDe(reporte, paginado.medida, paginado.letra, hoja == 0);
    QStringList lineas;
    if (!reporte.titulo.isEmpty()) lineas << Acortado(reporte.titulo, Uso::Titulo, t.util.width());
    if (!reporte.subtitulo.isEmpty()) lineas << Acortado(reporte.subtitulo, Uso::Subtitulo, t.util.width());
    for (const FilaDeFicha &fila : t.filas)
        lineas << QStringList{fila.izquierda.first, fila.izquierda.second, fila.derecha.first,
                              fila.derecha.second}
                      .join(u"  "_s)
                      .trimmed();
    for (const QString &linea : reporte.encabezado) lineas << SinControles(linea);
    const Hoja &esta = paginado.hojas.at(hoja);
    for (std::size_t n = esta.desde; n < esta.hasta; ++n) lineas << SinControles(reporte.renglones[n].texto);
    const QString hojas = TextoDeHojas(hoja, paginado.hojas.size());
    lineas << (reporte.pie.isEmpty() ? hojas : PieDe(reporte, paginado, hoja) + u"  "_s + hojas);
    return lineas;
}

QString TextoDe(const Reporte &reporte) {
    QStringList lineas;
    for (const QString &linea : {reporte.titulo, reporte.subtitulo})
        if (!linea.isEmpty()) lineas << SinControles(linea);
    if (!lineas.isEmpty()) lineas << QString();
    qsizetype ancho = 0;
    for (const auto &[rotulo, dato] : reporte.ficha) ancho = std::max(ancho, rotulo.size() + 1);
    for (const auto &[rotulo, dato] : reporte.ficha)
        lineas << SinControles((rotulo + u':').leftJustified(ancho) + u' ' + dato);
    if (!reporte.ficha.empty()) lineas << QString();
    for (const QString &linea : reporte.encabezado) lineas << SinControles(linea);
    bool primero = true;
    for (const Renglon &renglon : reporte.renglones) {
        const QString texto = SinControles(renglon.texto);
        lineas << (renglon.hojaNueva && !primero ? u'\f' + texto : texto);
        primero = false;
    }
    if (!reporte.pie.isEmpty()) lineas << QString() << SinControles(reporte.pie);
    return lineas.join(u'\n') + u'\n';
}

}  // namespace papel
