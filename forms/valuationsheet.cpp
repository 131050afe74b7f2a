#include "forms/valuationsheet.h"

#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/paper/cells.h"

using namespace Qt::StringLiterals;

namespace valoracion {

namespace {

enum ColumnaDeHoja : std::size_t { Concepto, Norma, Dato, Importe };

// Characters of a line of the paper.
constexpr int anchoDeConcepto = 58;
constexpr int anchoDeNorma = 15;
constexpr int anchoDeDato = 30;
constexpr int sangria = 2;
constexpr int anchoDeLinea = sangria + anchoDeConcepto + anchoDeNorma + anchoDeDato;

const QString tituloDeCabeza = u"Declaración"_s;
const QString tituloDeValor = u"Valor declarado"_s;

papel::Fila dato(const QString &concepto, const QString &norma, const QString &texto,
                 const QVariant &importe = {}) {
    return {{concepto, norma, texto, importe}, papel::Fila::Tipo::Dato, {}};
}

papel::Fila grupo(const QString &titulo) {
    return {std::vector<QVariant>(Importe + 1), papel::Fila::Tipo::Grupo, titulo};
}

papel::Fila total(const QString &rotulo, double importe) {
    papel::Fila fila{std::vector<QVariant>(Importe + 1), papel::Fila::Tipo::Subtotal, rotulo};
    fila.celdas[Importe] = importe;
    return fila;
}

QString junto(const QString &nombre, const QString &domicilio) {
    return domicilio.isEmpty() ? nombre : nombre + " - "_L1 + domicilio;
}

void agregarCabeza(const Hoja &hoja, papel::Tabla &tabla) {
    const Operacion &o = hoja.operacion;
    const bool importacion = hoja.clase == Clase::Importacion;
    tabla.filas.push_back(grupo(tituloDeCabeza));
    const auto agregar = [&tabla](const QString &concepto, const QString &texto) {
        tabla.filas.push_back(dato(concepto, {}, texto));
    };
    agregar(u"Operación"_s, o.interno);
    agregar(u"Subrégimen"_s, o.idsubreg);
    agregar(u"Aduana"_s, o.idaduana);
    agregar(u"Fecha"_s, o.fecha.toString(u"dd/MM/yyyy"_s));
    agregar(importacion ? u"Importador"_s : u"Exportador"_s, junto(o.cliente, o.domicilioDelCliente));
    if (importacion) {
        agregar(u"Vendedor"_s, junto(o.vendedor, o.domicilioDelVendedor));
        agregar(u"País del vendedor"_s, o.paisDelVendedor);
    } else {
        agregar(u"Comprador"_s, o.comprador);
    }
    agregar(u"Despachante"_s, o.despachante);
    agregar(u"Condición de venta"_s, o.condicion);
    agregar(u"Facturas"_s, o.facturas.join(", "_L1));
    agregar(u"Divisa"_s, hoja.divisa);
}

/// What was answered, as it is read.
QString respuestaDe(const CampoDeHoja &campo, const QString &valor) {
    switch (campo.tipo) {
        case Tipo::SiNo:
            return valor == "S"_L1 ? u"SÍ"_s : valor == "N"_L1 ? u"NO"_s : u"sin contestar"_s;
        case Tipo::Lista:
            return valor.isEmpty() ? u"sin contestar"_s : campo.textoDe(valor);
        case Tipo::Texto:
        case Tipo::Fecha:
        case Tipo::Importe:
            break;
    }
    return valor.trimmed();
}

/// Without a relation nothing more is asked about it.
bool corresponde(const Hoja &hoja, const CampoDeHoja &campo) {
    return campo.seccion != Seccion::Vinculacion || campo.columna == "vinculacion"_L1 ||
           hoja.valores.value(u"vinculacion"_s) == "S"_L1;
}

void agregarSecciones(const Hoja &hoja, papel::Tabla &tabla) {
    const Totales t = TotalesDe(hoja);
    const auto cerrar = [&](Seccion seccion) {
        if (seccion == Seccion::Precio) tabla.filas.push_back(total(u"Total del precio"_s, t.precio));
        if (seccion == Seccion::Incluir) tabla.filas.push_back(total(u"Total a incluir"_s, t.incluir));
        if (seccion == Seccion::Deducir) tabla.filas.push_back(total(u"Total a deducir"_s, t.deducir));
    };
    const std::vector<CampoDeHoja> &campos = Campos(hoja.clase);
    for (std::size_t i = 0; i < campos.size(); ++i) {
        const CampoDeHoja &c = campos[i];
        if (i == 0 || campos[i - 1].seccion != c.seccion) {
            if (i > 0) cerrar(campos[i - 1].seccion);
            tabla.filas.push_back(grupo(TituloDe(c.seccion)));
        }
        if (c.esImporte())
            tabla.filas.push_back(dato(c.rotulo, c.norma, {}, hoja.importe(c.columna)));
        else if (corresponde(hoja, c))
            tabla.filas.push_back(dato(c.rotulo, c.norma, respuestaDe(c, hoja.valores.value(c.columna))));
    }
    cerrar(campos.back().seccion);
}

/// One line of the paper: the words, dots, the rule, and at the right what was answered.
QString linea(const QString &concepto, const QString &norma, const QString &derecha) {
    QString texto = QString(sangria, u' ') + concepto + u' ';
    texto = texto.leftJustified(sangria + anchoDeConcepto - 1, u'.') + u' ' + norma;
    if (derecha.isEmpty()) return texto;
    return texto.leftJustified(anchoDeLinea - anchoDeDato) + derecha.rightJustified(anchoDeDato);
}

/// A long text in lines of its own, cut at blanks.
QStringList enLineas(QString texto) {
    constexpr int ancho = anchoDeLinea - 2 * sangria;
    QStringList lineas;
    texto = texto.simplified();
    while (texto.size() > ancho) {
        const qsizetype blanco = texto.lastIndexOf(u' ', ancho);
        const qsizetype hasta = blanco > 0 ? blanco : ancho;
        lineas << texto.left(hasta);
        texto = texto.mid(hasta).trimmed();
    }
    if (!texto.isEmpty()) lineas << texto;
    return lineas;
}

/// The paper as it grows.
class Papel {
 public:
    Papel(const papel::Tabla &tabla, QChar separador) : tabla_(tabla), separador_(separador) {
        r_.titulo = tabla.titulo;
        r_.subtitulo = tabla.subtitulo;
        r_.nombre = tabla.nombre;
    }
    papel::Reporte hacer() {
        for (const papel::Fila &fila : tabla_.filas) agregar(fila);
        firma();
        return std::move(r_);
    }

 private:
    void agregar(const papel::Fila &fila) {
        if (fila.tipo == papel::Fila::Tipo::Grupo) {
            seccion_ = fila.rotulo;
            if (seccion_ == tituloDeCabeza) return;
            if (!r_.renglones.empty()) r_.renglones.push_back({QString(), false, false, true});
            r_.renglones.push_back({seccion_, true, false, true});
            return;
        }
        const QString importe = papel::TextoDeCelda(tabla_, fila, Importe, separador_);
        if (fila.tipo != papel::Fila::Tipo::Dato) {
            if (!r_.renglones.empty()) r_.renglones.back().conElSiguiente = true;
            r_.renglones.push_back({linea(fila.rotulo, {}, importe), true});
            return;
        }
        const QString concepto = papel::LibreDe(fila, Concepto);
        const QString respuesta = papel::LibreDe(fila, Dato);
        if (seccion_ == tituloDeCabeza) {
            r_.ficha.emplace_back(concepto, respuesta);
            return;
        }
        const bool negrita = seccion_ == tituloDeValor;
        const QString derecha = importe.isEmpty() ? respuesta : importe;
        if (derecha.size() <= anchoDeDato) {
            r_.renglones.push_back({linea(concepto, papel::LibreDe(fila, Norma), derecha), negrita});
            return;
        }
        r_.renglones.push_back({linea(concepto, papel::LibreDe(fila, Norma), {}), negrita, false, true});
        const QString doble = QString(sangria, u' ').repeated(2);
        const QStringList lineas = enLineas(derecha);
        for (const QString &l : lineas) r_.renglones.push_back({doble + l, negrita});
    }
    void firma() {
        for (
            const QString &texto :
            {QString(), u"  Declaro que lo expresado en esta hoja es exacto y completo."_s, QString(),
             QString(),
             u"  Lugar y fecha: ____________________________    Firma y aclaración: _______________________"_s})
            r_.renglones.push_back({texto, false, false, true});
        r_.renglones.back().conElSiguiente = false;
    }

    const papel::Tabla &tabla_;
    QChar separador_;
    papel::Reporte r_;
    QString seccion_;
};

}  // namespace

papel::Tabla TablaDeHoja(const AppContext &ctx, const Hoja &hoja) {
    const bool importacion = hoja.clase == Clase::Importacion;
    papel::Tabla tabla;
    tabla.titulo =
        importacion ? u"Hoja de valoración de importación"_s : u"Hoja de valoración de exportación"_s;
    tabla.subtitulo = u"Operación "_s + hoja.operacion.interno;
    tabla.nombre = u"Hoja de valoración "_s + hoja.operacion.interno;
    constexpr int anchoDeImporte = 14;
    tabla.columnas = {{u"Concepto"_s, papel::Clase::Texto, anchoDeConcepto},
                      {u"Norma"_s, papel::Clase::Texto, anchoDeNorma},
                      {u"Respuesta"_s, papel::Clase::Texto, anchoDeDato},
                      {u"Importe"_s, papel::Clase::Numero, anchoDeImporte, u"00.00"_s}};
    agregarCabeza(hoja, tabla);
    agregarSecciones(hoja, tabla);
    const Totales t = TotalesDe(hoja);
    const QString valor = importacion ? u"Valor en aduana"_s : u"Valor imponible"_s;
    tabla.filas.push_back(grupo(tituloDeValor));
    tabla.filas.push_back(dato(valor + " en "_L1 + hoja.divisa, {}, {}, t.valor));
    tabla.filas.push_back(dato(valor + u" en dólares, al cambio "_s +
                                   numeros::Format(hoja.cambio, u"0.000000", ctx.SeparadorDecimal),
                               {}, {}, t.valorEnDolares));
    return tabla;
}

papel::Reporte PapelDeHoja(const papel::Tabla &tabla, QChar separador) {
    return Papel(tabla, separador).hacer();
}

papel::Tabla HojaDeOperacion(AppContext &ctx, const QString &interno) {
    const Hoja hoja = Leer(ctx, interno);
    return hoja.guardada ? TablaDeHoja(ctx, hoja) : papel::Tabla();
}

}  // namespace valoracion
