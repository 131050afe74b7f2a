// The list of the operations whose declaration was handed over.

#include <algorithm>

#include "operations/browserlist.h"
#include "outputs/listcells.h"

using namespace Qt::StringLiterals;

namespace {

struct ColumnaDeTransferidas {
    papel::Columna forma;
    QVariant (*celda)(const FilaDeInterno &);
};

const std::vector<ColumnaDeTransferidas> &columnasDeTransferidas() {
    using F = FilaDeInterno;
    static const std::vector<ColumnaDeTransferidas> columnas{
        {listas::DeTexto(u"Interno"_s, 40), [](const F &f) { return QVariant(f.Interno); }},
        {listas::DeTexto(u"Régimen"_s, 7), [](const F &f) { return QVariant(f.SubRegimen); }},
        {listas::DeTexto(u"Cliente"_s, 30), [](const F &f) { return QVariant(f.Cliente); }},
        {listas::DeTexto(u"Transferida"_s, 16),
         [](const F &f) {
             return QVariant(f.entrega->fecha.isValid() ? f.entrega->fecha.toString(u"dd/MM/yyyy HH:mm"_s)
                                                        : QString());
         }},
        {listas::DeTexto(u"PC"_s, 16), [](const F &f) { return QVariant(f.entrega->maquina); }},
        {listas::DeNumero(u"Veces"_s, 5, u"0"_s),
         [](const F &f) { return QVariant(static_cast<double>(f.entrega->veces)); }},
        {listas::DeTexto(u"Estado"_s, 16),
         [](const F &f) { return QVariant(f.cambiada ? u"cambiada después"_s : u"sin cambios"_s); }},
        {listas::DeTexto(u"Archivo"_s, 44), [](const F &f) { return QVariant(f.entrega->archivo); }},
    };
    return columnas;
}

/// The latest first; those of one moment by key.
bool vaDespues(const FilaDeInterno &a, const FilaDeInterno &b) {
    if (a.entrega->fecha != b.entrega->fecha) return a.entrega->fecha > b.entrega->fecha;
    return listas::vaAntes(a.Interno, b.Interno);
}

papel::Tabla lasTransferidas(AppContext &ctx, const QString &) {
    const Reloj reloj(ctx.dialogos);
    FiltroDeInternos filtro;
    filtro.todas = true;
    filtro.transferencias = Transferencias::Transferidos;
    std::vector<FilaDeInterno> operaciones = LeerInternos(ctx, filtro);
    std::erase_if(operaciones, [](const FilaDeInterno &f) { return !f.entrega; });
    std::sort(operaciones.begin(), operaciones.end(), vaDespues);
    papel::Tabla tabla;
    tabla.orientacion = papel::Orientacion::Horizontal;
    for (const ColumnaDeTransferidas &c : columnasDeTransferidas()) tabla.columnas.push_back(c.forma);
    if (operaciones.empty()) return tabla;
    tabla.titulo = u"Operaciones transferidas"_s;
    tabla.nombre = u"Transferidas"_s;
    int cambiadas = 0;
    for (FilaDeInterno &operacion : operaciones) {
        operacion.cambiada = CambioDespues(ctx, operacion.Interno, *operacion.entrega);
        cambiadas += operacion.cambiada ? 1 : 0;
        papel::Fila fila;
        for (const ColumnaDeTransferidas &c : columnasDeTransferidas())
            fila.celdas.push_back(c.celda(operacion));
        tabla.filas.push_back(fila);
    }
    tabla.subtitulo =
        listas::Contadas(static_cast<int>(operaciones.size()), u"operación"_s, u"operaciones"_s) + u", "_s +
        listas::Contadas(cambiadas, u"cambiada después"_s, u"cambiadas después"_s);
    listas::AjustarAnchos(tabla);
    return tabla;
}

}  // namespace

void lp_ImprimirList(AppContext &ctx) {
    listas::VerLista(ctx, ListaDeTransferidas(), {});
}

const listas::Lista &ListaDeTransferidas() {
    static const listas::Lista lista{
        .nombre = u"transferidas"_s,
        .clave = listas::Clave::Ninguna,
        .sinFilas = u"No hay operaciones transferidas; una lo está cuando se escribió su declaración."_s,
        .armar = lasTransferidas};
    return lista;
}
