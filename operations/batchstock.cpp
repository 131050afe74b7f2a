// The stock of temporary inputs without a screen.

#include <QJsonArray>
#include <algorithm>

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "header/changes.h"
#include "operations/batchwork.h"
#include "operations/stocklists.h"
#include "stock/check.h"
#include "stock/load.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

QString dia(const QDate &fecha) {
    return fecha.toString(Qt::ISODate);
}

/// An absent option leaves what was proposed; an empty day takes it away.
void ponerDia(const Trabajo &t, const char *opcion, QDate &donde) {
    if (t.orden.tiene(opcion)) donde = fechas::Leer(t.orden.valor(opcion)).value_or(QDate());
}

/// "12" or "12:3.50": a line of the stock, and how much of it at most.
std::optional<stock::Parte> parteDe(const QString &texto) {
    bool esNumero = false;
    stock::Parte parte;
    parte.idstock = texto.section(u':', 0, 0).toLongLong(&esNumero);
    if (!esNumero || parte.idstock <= 0) return {};
    if (!texto.contains(u':')) return parte;
    const QString cantidad = texto.section(u':', 1);
    if (!numeros::esNumerico(cantidad) || numeros::aNumero(cantidad) <= 0) return {};
    parte.cantidad = numeros::aNumero(cantidad);
    return parte;
}

int cargarTomada(const Trabajo &t) {
    stock::DatosDeDeclaracion datos = stock::DatosPropuestos(t.ctx, t.orden.clave, QDate::currentDate());
    datos.dit = t.orden.valor("declaracion");
    ponerDia(t, "fecha", datos.fecha);
    ponerDia(t, "vencimiento", datos.vencimiento);
    if (t.orden.tiene("ctit")) datos.expctit = t.orden.valor("ctit");
    if (t.orden.tiene("merma")) datos.merma = numeros::aNumero(t.orden.valor("merma"));
    const stock::ResultadoDeCarga r = stock::CargarConDatos(t.ctx, t.orden.clave, datos);
    t.resultado[u"cargada"_s] = r.ok;
    t.resultado[u"nuevas"_s] = r.nuevas;
    t.resultado[u"cambiadas"_s] = r.cambiadas;
    t.resultado[u"quitadas"_s] = r.quitadas;
    t.resultado[u"negadas"_s] = r.negadas;
    return r.ok && r.negadas == 0 ? bien : falla;
}

int tomarTomada(const Trabajo &t) {
    std::vector<stock::Parte> elegidas;
    for (const QString &texto : t.orden.opciones.value(u"de"_s))
        if (const auto parte = parteDe(texto)) elegidas.push_back(*parte);
    const qint64 linea = t.orden.argumentos.value(0).toLongLong();
    const stock::Resultado r = stock::TomarParaLinea(t.ctx, t.orden.clave, linea, elegidas);
    t.resultado[u"linea"_s] = linea;
    t.resultado[u"tomado"_s] = r.ok;
    if (r.ok) t.resultado[u"cif"_s] = numeros::Format(r.CIF, u"00.00", t.ctx.SeparadorDecimal);
    return r.ok ? bien : falla;
}

int devolverTomada(const Trabajo &t) {
    const bool deUna = !t.orden.argumentos.isEmpty();
    const std::vector<stock::Movimiento> tomas =
        deUna ? stock::TomasQueSiguen(t.ctx, t.orden.clave, t.orden.argumentos.front().toLongLong())
              : stock::TomasQueSiguen(t.ctx, t.orden.clave);
    const int devueltas = stock::Devolver(t.ctx, tomas);
    if (std::any_of(tomas.begin(), tomas.end(), [](const stock::Movimiento &m) { return !m.paraItem; }))
        AnotarCambio(t.ctx, t.orden.clave);
    t.resultado[u"devueltas"_s] = devueltas;
    return bien;
}

QString nombreDeHallazgo(stock::Hallazgo::Clase clase) {
    using C = stock::Hallazgo::Clase;
    switch (clase) {
        case C::Saldo:
            return u"saldo"_s;
        case C::Sobregirada:
            return u"sobregirada"_s;
        case C::MovimientoSinDueno:
            return u"toma-sin-dueño"_s;
        case C::MovimientoSinStock:
            return u"toma-sin-stock"_s;
        case C::SinDescarga:
            return u"sin-descarga"_s;
        case C::DescargaSuelta:
            return u"descarga-suelta"_s;
        case C::MarcaSinToma:
            return u"marca-sin-toma"_s;
        case C::TomaSinMarca:
            return u"toma-sin-marca"_s;
    }
    return {};
}

}  // namespace

QString DefectoDeFecha(const QString &texto) {
    return texto.trimmed().isEmpty() || fechas::EsFecha(texto) ? QString()
                                                               : u"\"%1\" no es una fecha"_s.arg(texto);
}

QString DefectoDePorcentaje(const QString &texto) {
    constexpr double cien = 100;
    const double valor = numeros::aNumero(texto);
    return numeros::esNumerico(texto) && valor >= 0 && valor <= cien
               ? QString()
               : u"\"%1\" no es un porcentaje"_s.arg(texto);
}

QString DefectoDeLinea(const QString &texto) {
    bool esNumero = false;
    return texto.toLongLong(&esNumero) > 0 && esNumero ? QString()
                                                       : u"\"%1\" no es un número de línea"_s.arg(texto);
}

QString DefectoDeParte(const QString &texto) {
    return parteDe(texto) ? QString()
                          : u"\"%1\" no es una línea del stock (NUMERO o NUMERO:CANTIDAD)"_s.arg(texto);
}

int CargarStock(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return cargarTomada(t); });
}

int TomarDelStock(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return tomarTomada(t); });
}

int DevolverAlStock(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return devolverTomada(t); });
}

int RevisarStock(const Trabajo &t) {
    const std::vector<stock::Hallazgo> hallazgos = stock::Revisar(t.ctx);
    for (const stock::Hallazgo &h : hallazgos)
        t.salida({{u"tipo"_s, u"hallazgo"_s},
                  {u"clase"_s, nombreDeHallazgo(h.clase)},
                  {u"texto"_s, h.texto},
                  {u"reparable"_s, h.reparable}});
    const int reparados = t.orden.tiene("reparar") ? stock::Reparar(t.ctx, hallazgos) : 0;
    t.resultado[u"hallazgos"_s] = static_cast<int>(hallazgos.size());
    t.resultado[u"reparados"_s] = reparados;
    return reparados == static_cast<int>(hallazgos.size()) ? bien : falla;
}

int ListarStock(const Trabajo &t) {
    const stock::Filtro filtro{t.orden.valor("cliente"), t.orden.valor("declaracion"),
                               t.orden.valor("articulo"), t.orden.valor("posicion"),
                               t.orden.tiene("con-saldo")};
    const std::vector<stock::Linea> lineas = stock::Buscar(t.ctx, filtro);
    const QDate hoy = QDate::currentDate();
    for (const stock::Linea &l : lineas)
        t.salida({{u"tipo"_s, u"stock"_s},
                  {u"linea"_s, l.id},
                  {u"declaracion"_s, l.dit},
                  {u"item"_s, l.item},
                  {u"subitem"_s, l.subitem},
                  {u"posicion"_s, l.ncm},
                  {u"catalogo"_s, l.idcatalogo},
                  {u"articulo"_s, l.idarticulo},
                  {u"descripcion"_s, l.descripcion},
                  {u"unidad"_s, l.idunidad},
                  {u"cantidad"_s, l.cantidad},
                  {u"saldo"_s, l.saldo},
                  {u"cif"_s, l.cif},
                  {u"divisa"_s, l.divisa},
                  {u"vencimiento"_s, dia(l.vencimiento)},
                  {u"plazo"_s, stock::PalabraDePlazo(stock::PlazoDe(l.vencimiento, hoy))},
                  {u"cliente"_s, l.cuitcliente},
                  {u"interno"_s, l.interno}});
    t.resultado[u"cantidad"_s] = static_cast<int>(lineas.size());
    return bien;
}

}  // namespace lote
