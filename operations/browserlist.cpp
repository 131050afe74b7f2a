#include "operations/browserlist.h"

#include <QStringList>
#include <algorithm>
#include <iterator>

#include "outputs/listcells.h"

using namespace Qt::StringLiterals;

namespace {

/// A column of the list, and its cell.
struct ColumnaDeInternos {
    papel::Columna forma;
    QVariant (*celda)(const FilaDeInterno &);
};

const std::vector<ColumnaDeInternos> &columnasDeInternos() {
    using F = FilaDeInterno;
    static const std::vector<ColumnaDeInternos> columnas{
        {listas::DeTexto(u"Interno"_s, 40), [](const F &f) { return QVariant(f.Interno); }},
        {listas::DeDia(u"Fecha"_s),
         [](const F &f) { return f.alta.isValid() ? QVariant(f.alta) : QVariant(); }},
        {listas::DeTexto(u"Régimen"_s, 7), [](const F &f) { return QVariant(f.SubRegimen); }},
        {listas::DeTexto(u"Despachante"_s, 28), [](const F &f) { return QVariant(f.Despachante); }},
        {listas::DeTexto(u"Cliente"_s, 30), [](const F &f) { return QVariant(f.Cliente); }},
        {listas::DeTexto(u"Vendedor"_s, 26), [](const F &f) { return QVariant(f.Vendedor); }},
        {listas::DeNumero(u"FOB"_s, 14, u"00.00"_s), [](const F &f) { return QVariant(f.fob); }},
        {listas::DeTexto(u"Div."_s, 4), [](const F &f) { return QVariant(f.divisa); }},
        {listas::DeTexto(u"Estado"_s, 8), [](const F &f) { return QVariant(f.estado); }},
    };
    return columnas;
}

papel::Fila filaDe(const FilaDeInterno &operacion) {
    papel::Fila fila;
    for (const ColumnaDeInternos &c : columnasDeInternos()) fila.celdas.push_back(c.celda(operacion));
    return fila;
}

/// A row that tells no more than its text.
papel::Fila conRotulo(papel::Fila::Tipo tipo, const QString &rotulo) {
    return {std::vector<QVariant>(columnasDeInternos().size()), tipo, rotulo};
}

QString contadas(std::size_t cuantas) {
    return listas::Contadas(static_cast<int>(cuantas), u"operación"_s, u"operaciones"_s);
}

QString dia(const QDate &fecha) {
    return fecha.toString(u"dd/MM/yyyy"_s);
}

QString subtituloDe(const AppContext &ctx, std::size_t cuantas, const FiltroDeInternos &f,
                    const AgrupacionDeInternos &por) {
    QStringList partes;
    if (const QString interno = f.txtInterno.trimmed(); !interno.isEmpty())
        partes << u"Interno "_s + interno + u"…"_s;
    if (!f.txtCliente.isEmpty()) partes << u"Cliente "_s + f.txtCliente;
    if (!f.txtDespachante.isEmpty()) partes << u"Despachante "_s + f.txtDespachante;
    if (f.chkFiltroFecha) partes << u"Creadas del %1 al %2"_s.arg(dia(f.desde), dia(f.hasta));
    if (f.transferencias == Transferencias::Pendientes) partes << u"Pendientes de transferir"_s;
    if (f.transferencias == Transferencias::Transferidos) partes << u"Transferidas"_s;
    if (partes.isEmpty()) partes << u"Sin filtros"_s;
    if (por.campo != nullptr) partes << u"Por %1"_s.arg(por.rotulo);
    const bool todas = f.todas || ctx.opciones.OperacionesMostrarTODO;
    partes << (todas || cuantas < topeDeInternos ? QString() : u"las primeras "_s) + contadas(cuantas);
    return partes.join(" - "_L1);
}

/// The rows of a group stand together behind its title; groups go by their titles, as in the browser.
void agrupar(papel::Tabla &tabla, std::vector<FilaDeInterno> filas, const AgrupacionDeInternos &por) {
    std::stable_sort(filas.begin(), filas.end(), [&por](const FilaDeInterno &a, const FilaDeInterno &b) {
        return GrupoDe(a, por) < GrupoDe(b, por);
    });
    for (auto desde = filas.begin(); desde != filas.end();) {
        const QString grupo = GrupoDe(*desde, por);
        const auto hasta = std::find_if(desde, filas.end(),
                                        [&](const FilaDeInterno &f) { return GrupoDe(f, por) != grupo; });
        tabla.filas.push_back(conRotulo(papel::Fila::Tipo::Grupo, grupo));
        std::transform(desde, hasta, std::back_inserter(tabla.filas), filaDe);
        tabla.filas.push_back(
            conRotulo(papel::Fila::Tipo::Subtotal, contadas(static_cast<std::size_t>(hasta - desde))));
        desde = hasta;
    }
}

papel::Tabla todasLasOperaciones(AppContext &ctx, const QString &) {
    FiltroDeInternos filtro;
    filtro.todas = true;
    std::vector<FilaDeInterno> filas = LeerInternos(ctx, filtro);
    std::stable_sort(filas.begin(), filas.end(), [](const FilaDeInterno &a, const FilaDeInterno &b) {
        return listas::vaAntes(a.Interno, b.Interno);
    });
    return TablaDeInternos(ctx, filas, filtro, {});
}

}  // namespace

papel::Tabla TablaDeInternos(AppContext &ctx, const std::vector<FilaDeInterno> &filas,
                             const FiltroDeInternos &filtro, const AgrupacionDeInternos &por) {
    papel::Tabla tabla;
    tabla.orientacion = papel::Orientacion::Horizontal;
    for (const ColumnaDeInternos &c : columnasDeInternos()) tabla.columnas.push_back(c.forma);
    if (filas.empty()) return tabla;
    tabla.titulo = u"Operaciones"_s;
    tabla.subtitulo = subtituloDe(ctx, filas.size(), filtro, por);
    tabla.nombre = u"Operaciones"_s;
    tabla.filas.reserve(filas.size() + 1);
    if (por.campo != nullptr)
        agrupar(tabla, filas, por);
    else
        std::transform(filas.begin(), filas.end(), std::back_inserter(tabla.filas), filaDe);
    listas::AjustarAnchos(tabla);
    tabla.filas.push_back(conRotulo(papel::Fila::Tipo::Total, u"Total: "_s + contadas(filas.size())));
    return tabla;
}

void ListarInternos(AppContext &ctx, const std::vector<FilaDeInterno> &filas, const FiltroDeInternos &filtro,
                    const AgrupacionDeInternos &por) {
    listas::Ver(ctx, ListaDeOperaciones(), TablaDeInternos(ctx, filas, filtro, por), {});
}

const listas::Lista &ListaDeOperaciones() {
    static const listas::Lista lista{
        .nombre = u"operaciones"_s,
        .clave = listas::Clave::Ninguna,
        .sinFilas = u"No hay operaciones para listar; búsquelas con otros filtros o cree la primera."_s,
        .armar = todasLasOperaciones};
    return lista;
}
