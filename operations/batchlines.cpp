// The lines of an operation without a screen: what changes them all, and which of them a filter shows.

#include "frame/base/numbers.h"
#include "operations/batchwork.h"
#include "subitems/linebulk.h"
#include "subitems/linefilters.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

using L = QLatin1String;

/// Where the arguments of both commands stand, behind the key.
constexpr qsizetype dondeElNombre = 0;
constexpr qsizetype dondeElValor = 1;

/// What is wrong with a value beside a row of either table; `que` is "el cambio" or "el filtro".
template <class F>
QString defectoDeValor(const F &fila, const QString &dado, const char *que) {
    const QString cual = QString::fromUtf8(que) + u' ' + L(fila.nombre);
    if (!fila.pideValor())
        return dado.isEmpty() ? QString() : u"Sobra \"%1\": %2 no lleva valor"_s.arg(dado, cual);
    return dado.isEmpty() ? u"Falta VALOR: %1 lo lleva"_s.arg(cual) : QString();
}

template <class Filas>
QString nombresDe(const Filas &filas) {
    QStringList nombres;
    for (const auto &f : filas) nombres << L(f.nombre);
    return nombres.join(", "_L1);
}

/// The line as the list shows it, its figures as numbers.
QJsonObject enJson(const FilaSubItem &f) {
    using numeros::aNumero;
    return {{u"tipo"_s, u"linea"_s},
            {u"linea"_s, f.numero},
            {u"id"_s, f.id},
            {u"posicion"_s, f.NCM},
            {u"unidad"_s, f.idunidad},
            {u"cantidad"_s, aNumero(f.Cantidad)},
            {u"kgneto"_s, aNumero(f.kgneto)},
            {u"preciounitario"_s, aNumero(f.preciounitario)},
            {u"fob"_s, aNumero(f.Fob)},
            {u"articulo"_s, f.idarticulo},
            {u"factura"_s, f.factura_nro}};
}

}  // namespace

QString DefectoDeCambioMasivo(const QString &nombreDado) {
    return CambioDeNombre(nombreDado) != nullptr
               ? QString()
               : u"\"%1\" no es uno de los cambios (%2)"_s.arg(nombreDado, nombresDe(CambiosMasivos()));
}

QString DefectoDeValorDeCambio(const QStringList &argumentos) {
    return defectoDeValor(*CambioDeNombre(argumentos.value(1)), argumentos.value(2), "el cambio");
}

QString DefectoDeFiltro(const QString &nombreDado) {
    return FiltroDeNombre(nombreDado) != nullptr
               ? QString()
               : u"\"%1\" no es uno de los filtros (1 a %2: %3)"_s.arg(
                     nombreDado, QString::number(FiltrosDeLineas().size()), nombresDe(FiltrosDeLineas()));
}

QString DefectoDeValorDeFiltro(const QStringList &argumentos) {
    const FiltroDeLineas &filtro = *FiltroDeNombre(argumentos.value(1));
    const QString dado = argumentos.value(2);
    QString defecto = defectoDeValor(filtro, dado, "el filtro");
    if (!defecto.isEmpty() || FiltroCon(filtro, dado).activo()) return defecto;
    return u"VALOR no sirve: \"%1\" queda vacío sin sus apóstrofos"_s.arg(dado);
}

int CambiarLineas(const Trabajo &t) {
    const CambioMasivo &cambio = *CambioDeNombre(t.orden.argumentos.value(dondeElNombre));
    QString dado = t.orden.argumentos.value(dondeElValor);
    t.resultado[u"cambio"_s] = L(cambio.nombre);
    t.resultado[u"cambiado"_s] = false;
    return ConLaOperacion(t, [&] {
        // The screen's own question: without a "Si" among the answers nothing is changed.
        if (!cambio.pideValor() && !PedirCambioMasivo(t.ctx, cambio, dado)) return bien;
        t.resultado[u"lineas"_s] = HacerCambioMasivo(t.ctx, t.orden.clave, cambio, dado);
        t.resultado[u"cambiado"_s] = true;
        return bien;
    });
}

int FiltrarLineas(const Trabajo &t) {
    const FiltroDeLineas &filtro = *FiltroDeNombre(t.orden.argumentos.value(dondeElNombre));
    const FiltroActivo activo = FiltroCon(filtro, t.orden.argumentos.value(dondeElValor));
    const auto lineas = GetRsSubtiems(t.ctx, t.orden.clave, CondicionDe(activo));
    for (const FilaSubItem &f : lineas) t.salida(enJson(f));
    t.resultado[u"filtro"_s] = filtro.numero;
    t.resultado[u"muestra"_s] = TextoDeFiltro(activo);
    t.resultado[u"lineas"_s] = static_cast<int>(lineas.size());
    return bien;
}

}  // namespace lote
