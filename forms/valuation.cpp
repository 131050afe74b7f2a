#include "forms/valuation.h"

#include <algorithm>
#include <optional>

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "header/codes.h"
#include "header/invoices.h"
#include "header/parties.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace valoracion {

namespace {

using entidad::internos;
using entidad::personal;
using entidad::systablas;

const QString precio = u"precio"_s;
const QString flete = u"flete"_s;
const QString seguro = u"seguro"_s;
const QString otrosIncluir = u"otrosincluir"_s;
const QString otrosDeducir = u"otrosdeducir"_s;

QString deLaOperacion(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

QString enPantalla(const AppContext &ctx, double valor) {
    return numeros::Format(valor, u"00.00", ctx.SeparadorDecimal);
}

double alCentavo(double valor) {
    return numeros::redondear(valor, 2);
}

/// An amount of another currency in that of the FOB; 0 while one of the rates is missing.
double enDivisaDelFob(double valor, double suCambio, double cambioDelFob) {
    return cambioDelFob == 0 ? 0 : alCentavo(valor * suCambio / cambioDelFob);
}

void leerImportes(Operacion &o, const Recordset &c) {
    o.divisa = c.Texto(u"fobcoddivisas").trimmed();
    o.cambio = c.Numero(u"fobdivcambio");
    o.fob = alCentavo(c.Numero(u"fobdivisas") + c.Numero(u"valoraprorratear"));
    const double fleteSuyo = c.Numero(u"fletedivisas");
    double seguroSuyo = c.Numero(u"segurodivisas");
    // As the liquidation reckons it.
    if (seguroSuyo == 0)
        seguroSuyo = numeros::PorcentajeRedondeado(fleteSuyo + o.fob, c.Numero(u"seguroporcentaje"));
    o.flete = enDivisaDelFob(fleteSuyo, c.Numero(u"fletedivcambio"), o.cambio);
    o.seguro = enDivisaDelFob(seguroSuyo, c.Numero(u"segurodivcambio"), o.cambio);
    o.incluir = alCentavo(c.Numero(u"ajusteincluir"));
    o.deducir = alCentavo(c.Numero(u"ajustededucir"));
}

void leerPartes(AppContext &ctx, Operacion &o, const Recordset &c) {
    o.cliente = c.Texto(u"factura7").trimmed();
    o.despachante = c.Texto(u"factura3").trimmed();
    o.vendedor = c.Texto(u"factura2").trimmed();
    o.comprador = c.Texto(u"datocomprador").trimmed();
    Recordset rs;
    if (Consultar(
            ctx, personal,
            "select nombre,domicilio from clientes where cuit = "_L1 + EnComillas(c.Texto(u"cuitcliente")),
            rs)) {
        if (o.cliente.isEmpty()) o.cliente = rs.Texto(u"nombre").trimmed();
        o.domicilioDelCliente = rs.Texto(u"domicilio").trimmed();
    }
    if (const auto v = CargarVendedor(ctx, c.Texto(u"idvendedor"))) {
        if (o.vendedor.isEmpty()) o.vendedor = v->nombre.trimmed();
        o.domicilioDelVendedor = v->domicilio.trimmed();
        o.paisDelVendedor =
            (v->paisdelexportador + QLatin1Char(' ') + getPaisDescripcion(ctx, v->paisdelexportador))
                .trimmed();
    }
}

Operacion leerOperacion(AppContext &ctx, const QString &interno) {
    Operacion o;
    o.interno = interno;
    Recordset c;
    if (!Consultar(ctx, internos,
                   "select idsubreg,idaduana,fechaalta,cuitcliente,idvendedor,factura2,factura3,factura7,"
                   "datocomprador,idcondiciondeventa,fobdivisas,fobcoddivisas,fobdivcambio,valoraprorratear,"
                   "fletedivisas,fletedivcambio,segurodivisas,segurodivcambio,seguroporcentaje,"
                   "ajusteincluir,ajustededucir "
                   "from caratula"_L1 +
                       deLaOperacion(interno),
                   c))
        return o;
    o.existe = true;
    o.idsubreg = RegimenEnMayusculas(c.Texto(u"idsubreg")).trimmed();
    o.idaduana = c.Texto(u"idaduana").trimmed();
    o.fecha = fechas::Leer(c.Texto(u"fechaalta")).value_or(QDate());
    o.condicion = c.Texto(u"idcondiciondeventa").trimmed();
    leerImportes(o, c);
    leerPartes(ctx, o, c);
    o.facturas = CargarFacturas(ctx, interno);
    return o;
}

/// A column of the store as the screen shows it.
QString deLaFila(const AppContext &ctx, const Recordset &rs, const CampoDeHoja &campo) {
    switch (campo.tipo) {
        case Tipo::Importe:
            return enPantalla(ctx, rs.Numero(campo.columna));
        case Tipo::Fecha: {
            const auto dia = fechas::Leer(rs.Texto(campo.columna));
            return dia ? dia->toString(u"dd/MM/yyyy"_s) : QString();
        }
        case Tipo::Texto:
            return rs.Texto(campo.columna);
        case Tipo::Lista:
        case Tipo::SiNo:
            break;
    }
    return rs.Texto(campo.columna).trimmed();
}

double sumaDe(const Hoja &hoja, Seccion seccion) {
    double suma = 0;
    for (const CampoDeHoja &c : Campos(hoja.clase))
        if (c.seccion == seccion && c.esImporte()) suma += hoja.importe(c.columna);
    return alCentavo(suma);
}

/// What is typed wrong in a field, as a sentence; empty: nothing.
QString defectoDe(const CampoDeHoja &campo, const QString &texto) {
    const QString limpio = texto.trimmed();
    if (limpio.isEmpty()) return {};
    if (campo.tipo == Tipo::Fecha && !fechas::EsFecha(limpio))
        return u"%1: no es una fecha válida, corríjala."_s.arg(campo.rotulo);
    if (!campo.esImporte()) return {};
    if (!numeros::esNumerico(limpio)) return u"%1: no es un número, corríjalo."_s.arg(campo.rotulo);
    return numeros::aNumero(limpio) < 0 ? u"%1: el importe no puede ser negativo."_s.arg(campo.rotulo)
                                        : QString();
}

void poner(AppContext &ctx, Escritura &e, const CampoDeHoja &campo, const QString &texto) {
    const QByteArray columna = campo.columna.toLatin1();
    switch (campo.tipo) {
        case Tipo::Importe:
            e.numero(columna.constData(), alCentavo(numeros::aNumero(texto)));
            return;
        case Tipo::Fecha: {
            const auto dia = fechas::Leer(texto);
            e.crudo(columna.constData(),
                    dia ? ctx.DataManager.getDateFormatbyEntity(systablas, dia->startOfDay()) : u"null"_s);
            return;
        }
        case Tipo::Texto:
        case Tipo::Lista:
        case Tipo::SiNo:
            e.texto(columna.constData(), texto.trimmed());
    }
}

/// The reader of a sheet, who asks back.
class Lector {
 public:
    Lector(const AppContext &ctx, const Hoja &hoja) : ctx_(ctx), hoja_(hoja) {}

    QStringList leer() {
        respuestas();
        if (hoja_.clase == Clase::Importacion) {
            metodo();
            vinculacion();
            segunLaRespuesta(u"pagacanones"_s, u"canones"_s, u"cánones"_s);
            segunLaRespuesta(u"reversion"_s, u"producto"_s, u"producto de la reventa"_s);
        }
        importes();
        return observaciones_;
    }

 private:
    bool es(const char *columna, const char *valor) const {
        return hoja_.valores.value(QString(QLatin1String(columna))) == QLatin1String(valor);
    }
    void observar(const QString &texto) { observaciones_ << texto; }

    /// Questions of the relation count only when there is one.
    bool cuenta(const CampoDeHoja &c) const {
        return c.seccion != Seccion::Vinculacion || c.columna == "vinculacion"_L1 || es("vinculacion", "S");
    }
    void respuestas() {
        int faltan = 0;
        bool hayQueExplicar = false;
        for (const CampoDeHoja &c : Campos(hoja_.clase)) {
            if (c.tipo != Tipo::SiNo || !cuenta(c)) continue;
            const QString respuesta = hoja_.valores.value(c.columna);
            faltan += respuesta.isEmpty() ? 1 : 0;
            hayQueExplicar |= respuesta == "S"_L1 && c.seccion == Seccion::Circunstancias;
        }
        if (faltan > 0)
            observar(faltan == 1 ? u"Falta contestar una pregunta."_s
                                 : u"Faltan contestar %1 preguntas."_s.arg(faltan));
        if (hayQueExplicar && hoja_.valores.value(u"explicacion"_s).trimmed().isEmpty())
            observar(u"Falta el detalle de lo contestado con SÍ."_s);
    }
    void metodo() {
        if (hoja_.valores.value(u"metodo"_s).isEmpty()) observar(u"Falta el método de valoración."_s);
        if (!es("metodo", "1")) return;
        if (!es("naturaleza", "V") && !es("naturaleza", ""))
            observar(u"Sin una compraventa no hay valor de transacción: revise el método."_s);
        for (const char *columna : {"restricciones", "condiciones"})
            if (es(columna, "S"))
                observar(u"Con %1 (%2) el valor de transacción puede no aceptarse: revise el método."_s.arg(
                    QLatin1String(columna),
                    BuscarCampo(hoja_.clase, QString(QLatin1String(columna)))->norma));
        if (es("vinculacion", "S") && es("influencia", "S") && !es("criterio", "S"))
            observar(u"La vinculación influyó en el precio: revise el método (Ac. 1.2)."_s);
    }
    void vinculacion() {
        if (es("vinculacion", "S") && es("vinculocaso", "")) observar(u"Falta el caso de vinculación."_s);
    }
    /// An answer and the amount that goes with it.
    void segunLaRespuesta(const QString &pregunta, const QString &columna, const QString &cosa) {
        const bool hay = hoja_.importe(columna) != 0;
        const QString respuesta = hoja_.valores.value(pregunta);
        if (respuesta == "S"_L1 && !hay) observar(u"Falta el importe: %1."_s.arg(cosa));
        if (respuesta == "N"_L1 && hay) observar(u"Hay un importe de %1 y se contestó NO."_s.arg(cosa));
    }
    void comparar(const QString &que, double suyo, double deLaOperacion) {
        if (numeros::iguales(suyo, deLaOperacion, 2)) return;
        observar(u"%1: la hoja dice %2 y la carátula %3."_s.arg(que, enPantalla(ctx_, suyo),
                                                                enPantalla(ctx_, deLaOperacion)));
    }
    void importes() {
        const Operacion &o = hoja_.operacion;
        const bool importacion = hoja_.clase == Clase::Importacion;
        if (hoja_.divisa != o.divisa || !numeros::iguales(hoja_.cambio, o.cambio, 6))
            observar(u"La divisa o su cambio no son los de la carátula: propóngalos otra vez."_s);
        comparar(u"Precio"_s, hoja_.importe(precio), o.fob);
        double incluir = sumaDe(hoja_, Seccion::Incluir);
        if (importacion) {
            comparar(u"Transporte"_s, hoja_.importe(flete), o.flete);
            comparar(u"Seguro"_s, hoja_.importe(seguro), o.seguro);
            // The header's adjustment is what is neither freight nor insurance.
            incluir += hoja_.importe(u"pagosindirectos"_s) - hoja_.importe(flete) - hoja_.importe(seguro);
        }
        comparar(u"Ajustes a incluir"_s, incluir, o.incluir);
        comparar(u"Ajustes a deducir"_s, sumaDe(hoja_, Seccion::Deducir), o.deducir);
    }

    const AppContext &ctx_;
    const Hoja &hoja_;
    QStringList observaciones_;
};

}  // namespace

double Hoja::importe(const QString &columna) const {
    return alCentavo(numeros::aNumero(valores.value(columna)));
}

Clase ClaseDe(QStringView idsubreg) {
    return RegimenUsaHojaValor(idsubreg) ? Clase::Importacion : Clase::Exportacion;
}

void Proponer(const AppContext &ctx, Hoja &hoja) {
    const Operacion &o = hoja.operacion;
    hoja.divisa = o.divisa;
    hoja.cambio = o.cambio;
    for (const CampoDeHoja &c : Campos(hoja.clase))
        if (c.esImporte()) hoja.valores[c.columna] = enPantalla(ctx, 0);
    const auto proponer = [&](const QString &columna, double valor) {
        hoja.valores[columna] = enPantalla(ctx, valor);
    };
    proponer(precio, o.fob);
    proponer(otrosIncluir, o.incluir);
    proponer(otrosDeducir, o.deducir);
    // What is exported is sold without what comes behind its loading.
    if (hoja.clase == Clase::Exportacion) return;
    proponer(flete, o.flete);
    proponer(seguro, o.seguro);
}

Hoja Leer(AppContext &ctx, const QString &interno) {
    Hoja hoja;
    hoja.operacion = leerOperacion(ctx, interno);
    hoja.clase = ClaseDe(hoja.operacion.idsubreg);
    Recordset rs;
    // A row of another program has its data and no price.
    hoja.guardada =
        Consultar(ctx, systablas, "select * from "_L1 + TablaDe(hoja.clase) + deLaOperacion(interno), rs) &&
        !rs.EsNulo(precio);
    if (!hoja.guardada) {
        for (const CampoDeHoja &c : Campos(hoja.clase)) hoja.valores[c.columna] = QString();
        if (BuscarCampo(hoja.clase, u"metodo"_s) != nullptr) hoja.valores[u"metodo"_s] = u"1"_s;
        hoja.valores[u"naturaleza"_s] = u"V"_s;
        Proponer(ctx, hoja);
        return hoja;
    }
    hoja.divisa = rs.Texto(u"divisa").trimmed();
    hoja.cambio = rs.Numero(u"cambio");
    for (const CampoDeHoja &c : Campos(hoja.clase)) hoja.valores[c.columna] = deLaFila(ctx, rs, c);
    return hoja;
}

Totales TotalesDe(const Hoja &hoja) {
    Totales t;
    t.precio = sumaDe(hoja, Seccion::Precio);
    t.incluir = sumaDe(hoja, Seccion::Incluir);
    t.deducir = sumaDe(hoja, Seccion::Deducir);
    t.valor = alCentavo(t.precio + t.incluir - t.deducir);
    t.valorEnDolares = alCentavo(t.valor * hoja.cambio);
    return t;
}

QStringList ObservacionesDe(const AppContext &ctx, const Hoja &hoja) {
    return Lector(ctx, hoja).leer();
}

Veredicto Guardar(AppContext &ctx, Hoja &hoja) {
    for (const CampoDeHoja &c : Campos(hoja.clase))
        if (const QString defecto = defectoDe(c, hoja.valores.value(c.columna)); !defecto.isEmpty()) {
            ctx.dialogos.advertir(defecto);
            return Veredicto::mal(c.columna);
        }
    const QString &interno = hoja.operacion.interno;
    const QString tabla = TablaDe(hoja.clase);
    Escritura e(ctx, systablas);
    e.codigo("divisa", hoja.divisa).numero("cambio", hoja.cambio);
    for (const CampoDeHoja &c : Campos(hoja.clase)) poner(ctx, e, c, hoja.valores.value(c.columna));
    if (Ejecutar(ctx, systablas, e.actualizar(tabla, "interno = "_L1 + EnComillas(interno))) == 0)
        Ejecutar(ctx, systablas, e.codigo("interno", interno).insertar(tabla));
    hoja.guardada = true;
    return Veredicto::bien();
}

bool Eliminar(AppContext &ctx, const Hoja &hoja) {
    if (!ctx.dialogos.preguntar(
            {u"¿Confirma eliminar la hoja de valoración de la operación %1?"_s.arg(hoja.operacion.interno),
             u"Hoja de valoración"_s, Icono::Pregunta, true}))
        return false;
    Ejecutar(ctx, systablas, "delete from "_L1 + TablaDe(hoja.clase) + deLaOperacion(hoja.operacion.interno));
    return true;
}

}  // namespace valoracion
