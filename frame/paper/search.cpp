#include "frame/paper/search.h"

#include <algorithm>

namespace papel {

namespace {

/// Each letter as its plain small one; as many as there were.
QString plegado(QString texto) {
    for (QChar &letra : texto) {
        const QString partes = letra.decomposition();
        letra = (partes.isEmpty() ? letra : partes.front()).toCaseFolded();
    }
    return texto;
}

}  // namespace

std::vector<Hallazgo> Buscar(const Reporte &reporte, const QString &texto) {
    std::vector<Hallazgo> hallazgos;
    const QString buscado = plegado(texto);
    if (buscado.isEmpty()) return hallazgos;
    for (std::size_t n = 0; n < reporte.renglones.size(); ++n) {
        const QString linea = plegado(reporte.renglones[n].texto);
        for (qsizetype desde = linea.indexOf(buscado); desde >= 0;
             desde = linea.indexOf(buscado, desde + buscado.size()))
            hallazgos.push_back({n, desde, buscado.size()});
    }
    return hallazgos;
}

std::size_t HojaDe(const Paginado &paginado, std::size_t renglon) {
    const auto hoja = std::find_if(paginado.hojas.begin(), paginado.hojas.end(),
                                   [renglon](const Hoja &una) { return renglon < una.hasta; });
    return static_cast<std::size_t>(std::min(hoja, paginado.hojas.end() - 1) - paginado.hojas.begin());
}

}  // namespace papel
