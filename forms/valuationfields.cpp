#include "forms/valuationfields.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace valoracion {

namespace {

constexpr int corto = 40;
constexpr int largoDeDetalle = 250;

// The rules are named on paper as brokers name them: "Ac." is the agreement on customs valuation (the one on
// the implementation of article VII of the GATT 1994), "Nota" its interpretative notes, "C.A." the customs
// code. docs/valoracion.md tells them whole.

std::vector<Opcion> naturalezas() {
    return {{u"V"_s, u"Compraventa"_s},
            {u"C"_s, u"Consignación"_s},
            {u"A"_s, u"Alquiler o leasing"_s},
            {u"G"_s, u"Sin cargo"_s},
            {u"O"_s, u"Otra"_s}};
}

CampoDeHoja texto(const QString &columna, const QString &rotulo, Seccion seccion, int largo = corto) {
    return {columna, rotulo, {}, seccion, Tipo::Texto, largo};
}

CampoDeHoja pregunta(const QString &columna, const QString &rotulo, const QString &norma, Seccion seccion) {
    return {columna, rotulo, norma, seccion, Tipo::SiNo};
}

CampoDeHoja importe(const QString &columna, const QString &rotulo, const QString &norma, Seccion seccion) {
    return {columna, rotulo, norma, seccion, Tipo::Importe};
}

std::vector<CampoDeHoja> deImportacion() {
    using S = Seccion;
    return {
        {u"metodo"_s,
         u"Método de valoración"_s,
         u"Ac. 1 a 7"_s,
         S::Operacion,
         Tipo::Lista,
         0,
         {{u"1"_s, u"Valor de transacción (art. 1)"_s},
          {u"2"_s, u"Mercaderías idénticas (art. 2)"_s},
          {u"3"_s, u"Mercaderías similares (art. 3)"_s},
          {u"5"_s, u"Deductivo (art. 5)"_s},
          {u"6"_s, u"Valor reconstruido (art. 6)"_s},
          {u"7"_s, u"Último recurso (art. 7)"_s}}},
        {u"naturaleza"_s, u"Naturaleza de la operación"_s, u"Ac. 1.1"_s, S::Operacion, Tipo::Lista, 0,
         naturalezas()},
        {u"nivelcomercial"_s,
         u"Nivel comercial del comprador"_s,
         u"Ac. 2 y 3"_s,
         S::Operacion,
         Tipo::Lista,
         0,
         {{u"M"_s, u"Mayorista"_s},
          {u"D"_s, u"Minorista"_s},
          {u"U"_s, u"Usuario o industrial"_s},
          {u"O"_s, u"Otro"_s}}},
        texto(u"contrato"_s, u"Contrato"_s, S::Operacion),
        {u"fechacontrato"_s, u"Fecha del contrato"_s, {}, S::Operacion, Tipo::Fecha},
        texto(u"formadepago"_s, u"Forma de pago"_s, S::Operacion),

        pregunta(u"restricciones"_s, u"¿Hay restricciones para ceder o usar la mercadería?"_s, u"Ac. 1.1.a"_s,
                 S::Circunstancias),
        pregunta(u"condiciones"_s, u"¿El precio depende de condiciones o contraprestaciones?"_s,
                 u"Ac. 1.1.b"_s, S::Circunstancias),
        pregunta(u"pagacanones"_s, u"¿Se pagan cánones o derechos de licencia?"_s, u"Ac. 8.1.c"_s,
                 S::Circunstancias),
        pregunta(u"reversion"_s, u"¿Parte de la reventa revierte al vendedor?"_s, u"Ac. 8.1.d"_s,
                 S::Circunstancias),
        texto(u"explicacion"_s, u"Detalle de lo contestado con SÍ"_s, S::Circunstancias, largoDeDetalle),

        pregunta(u"vinculacion"_s, u"¿Comprador y vendedor están vinculados?"_s, u"Ac. 15.4"_s,
                 S::Vinculacion),
        {u"vinculocaso"_s,
         u"Caso de vinculación"_s,
         u"Ac. 15.4"_s,
         S::Vinculacion,
         Tipo::Lista,
         0,
         {{u"a"_s, u"a) Uno es directivo o responsable de la empresa del otro"_s},
          {u"b"_s, u"b) Socios en negocios"_s},
          {u"c"_s, u"c) Empleador y empleado"_s},
          {u"d"_s, u"d) Un tercero posee el 5 % o más de ambos"_s},
          {u"e"_s, u"e) Uno controla al otro"_s},
          {u"f"_s, u"f) Ambos controlados por un tercero"_s},
          {u"g"_s, u"g) Juntos controlan a un tercero"_s},
          {u"h"_s, u"h) De la misma familia"_s}}},
        pregunta(u"influencia"_s, u"¿La vinculación influyó en el precio?"_s, u"Ac. 1.2.a"_s, S::Vinculacion),
        pregunta(u"criterio"_s, u"¿El valor se aproxima a un valor criterio?"_s, u"Ac. 1.2.b"_s,
                 S::Vinculacion),
        texto(u"vinculodetalle"_s, u"Detalle de la vinculación"_s, S::Vinculacion, largoDeDetalle),

        importe(u"precio"_s, u"Precio de factura"_s, u"Ac. 1.1"_s, S::Precio),
        importe(u"pagosindirectos"_s, u"Pagos indirectos al vendedor"_s, u"Nota art. 1"_s, S::Precio),

        importe(u"comisiones"_s, u"Comisiones de venta y corretajes"_s, u"Ac. 8.1.a.i"_s, S::Incluir),
        importe(u"envases"_s, u"Envases y embalajes que son un todo"_s, u"Ac. 8.1.a.ii"_s, S::Incluir),
        importe(u"embalaje"_s, u"Gastos de embalar"_s, u"Ac. 8.1.a.iii"_s, S::Incluir),
        importe(u"materiales"_s, u"Materiales, piezas y partes"_s, u"Ac. 8.1.b.i"_s, S::Incluir),
        importe(u"herramientas"_s, u"Herramientas, matrices y moldes"_s, u"Ac. 8.1.b.ii"_s, S::Incluir),
        importe(u"consumidos"_s, u"Materiales consumidos"_s, u"Ac. 8.1.b.iii"_s, S::Incluir),
        importe(u"ingenieria"_s, u"Ingeniería, diseño, planos y croquis"_s, u"Ac. 8.1.b.iv"_s, S::Incluir),
        importe(u"canones"_s, u"Cánones y derechos de licencia"_s, u"Ac. 8.1.c"_s, S::Incluir),
        importe(u"producto"_s, u"Producto de la reventa"_s, u"Ac. 8.1.d"_s, S::Incluir),
        importe(u"otrosincluir"_s, u"Otros ajustes a incluir"_s, u"Ac. 8.1"_s, S::Incluir),
        importe(u"flete"_s, u"Transporte hasta el lugar de importación"_s, u"Ac. 8.2.a"_s, S::Incluir),
        importe(u"carga"_s, u"Carga, descarga y manipulación"_s, u"Ac. 8.2.b"_s, S::Incluir),
        importe(u"seguro"_s, u"Seguro"_s, u"Ac. 8.2.c"_s, S::Incluir),

        importe(u"montaje"_s, u"Montaje, instalación y asistencia"_s, u"Nota art. 1"_s, S::Deducir),
        importe(u"transporteinterno"_s, u"Transporte posterior a la importación"_s, u"Nota art. 1"_s,
                S::Deducir),
        importe(u"tributos"_s, u"Derechos y tributos en el país"_s, u"Nota art. 1"_s, S::Deducir),
        importe(u"intereses"_s, u"Intereses por financiación"_s, {}, S::Deducir),
        importe(u"otrosdeducir"_s, u"Otros ajustes a deducir"_s, {}, S::Deducir),
    };
}

std::vector<CampoDeHoja> deExportacion() {
    using S = Seccion;
    return {
        {u"naturaleza"_s, u"Naturaleza de la operación"_s, u"C.A. 735"_s, S::Operacion, Tipo::Lista, 0,
         naturalezas()},
        texto(u"contrato"_s, u"Contrato"_s, S::Operacion),
        {u"fechacontrato"_s, u"Fecha del contrato"_s, {}, S::Operacion, Tipo::Fecha},
        texto(u"formadepago"_s, u"Forma de pago"_s, S::Operacion),

        pregunta(u"preciorevisable"_s, u"¿El precio queda sujeto a revisión?"_s, u"C.A. 735"_s,
                 S::Circunstancias),
        pregunta(u"condiciones"_s, u"¿El precio depende de condiciones o contraprestaciones?"_s,
                 u"C.A. 735"_s, S::Circunstancias),
        texto(u"explicacion"_s, u"Detalle de lo contestado con SÍ"_s, S::Circunstancias, largoDeDetalle),

        pregunta(u"vinculacion"_s, u"¿Comprador y vendedor están vinculados?"_s, u"C.A. 735"_s,
                 S::Vinculacion),
        texto(u"vinculodetalle"_s, u"Detalle de la vinculación"_s, S::Vinculacion, largoDeDetalle),

        importe(u"precio"_s, u"Precio de factura"_s, u"C.A. 735"_s, S::Precio),

        importe(u"envases"_s, u"Envases"_s, u"C.A. 736"_s, S::Incluir),
        importe(u"embalaje"_s, u"Gastos de embalar"_s, u"C.A. 736"_s, S::Incluir),
        importe(u"comisiones"_s, u"Comisiones"_s, u"C.A. 736"_s, S::Incluir),
        importe(u"gastosanteriores"_s, u"Gastos hasta el lugar de carga"_s, u"C.A. 736"_s, S::Incluir),
        importe(u"otrosincluir"_s, u"Otros ajustes a incluir"_s, u"C.A. 736"_s, S::Incluir),

        importe(u"flete"_s, u"Transporte posterior a la carga"_s, u"C.A. 736"_s, S::Deducir),
        importe(u"seguro"_s, u"Seguro posterior a la carga"_s, u"C.A. 736"_s, S::Deducir),
        importe(u"gastosposteriores"_s, u"Otros gastos posteriores a la carga"_s, u"C.A. 736"_s, S::Deducir),
        importe(u"tributos"_s, u"Tributos a la exportación en el precio"_s, {}, S::Deducir),
        importe(u"otrosdeducir"_s, u"Otros ajustes a deducir"_s, {}, S::Deducir),
    };
}

}  // namespace

QString CampoDeHoja::textoDe(const QString &codigo) const {
    for (const Opcion &o : opciones)
        if (o.codigo == codigo) return o.texto;
    return {};
}

const std::vector<CampoDeHoja> &Campos(Clase clase) {
    static const std::vector<CampoDeHoja> importacion = deImportacion();
    static const std::vector<CampoDeHoja> exportacion = deExportacion();
    return clase == Clase::Importacion ? importacion : exportacion;
}

const CampoDeHoja *BuscarCampo(Clase clase, const QString &columna) {
    const std::vector<CampoDeHoja> &todos = Campos(clase);
    const auto hallado = std::find_if(todos.begin(), todos.end(),
                                      [&columna](const CampoDeHoja &c) { return c.columna == columna; });
    return hallado == todos.end() ? nullptr : &*hallado;
}

QString TituloDe(Seccion seccion) {
    switch (seccion) {
        case Seccion::Operacion:
            return u"Operación"_s;
        case Seccion::Circunstancias:
            return u"Circunstancias de la venta"_s;
        case Seccion::Vinculacion:
            return u"Vinculación entre las partes"_s;
        case Seccion::Precio:
            return u"Precio pagado o por pagar"_s;
        case Seccion::Incluir:
            return u"Ajustes a incluir"_s;
        case Seccion::Deducir:
            break;
    }
    return u"Ajustes a deducir"_s;
}

QString TablaDe(Clase clase) {
    return clase == Clase::Importacion ? u"hval"_s : u"hvalexp"_s;
}

}  // namespace valoracion
