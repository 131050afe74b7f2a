#include "outputs/declaration.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/regime.h"
#include "subitems/largestposition.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// Where a value was met, for the word about it.
struct LugarDeReparo {
    std::vector<Advertencia> &reparos;
    const ParteDeDeclaracion &parte;
    int item = 0;

    void decir(const DatoDeParte &dato, const QString &que) const {
        const QString nombre = QString::fromUtf8(parte.nombre);
        const QString delItem =
            &parte == &DatosDe(Parte::Item) ? u"el item %1"_s : nombre + u" del item %1"_s;
        const QString donde = item == 0 ? nombre : delItem.arg(item);
        const QString grupo = *dato.grupo == '\0' ? QString() : L(dato.grupo) + u'/';
        reparos.push_back({item, u"En %1, el dato \"%2\" %3"_s.arg(donde, grupo + L(dato.nombre), que)});
    }
};

/// Whether XML 1.0 can hold the character at `i`; steps over the second half of a pair.
bool cabeEnXml(const QString &texto, qsizetype &i) {
    const QChar c = texto.at(i);
    if (c.isHighSurrogate() && i + 1 < texto.size() && texto.at(i + 1).isLowSurrogate()) {
        ++i;
        return true;
    }
    if (c.isSurrogate() || c == QChar(0xFFFE) || c == QChar(0xFFFF)) return false;
    return c >= u' ' || c == u'\t' || c == u'\n';
}

/// A text that the document can hold: line ends as "\n", what XML cannot hold as a blank.
QString textoLimpio(QString texto, const DatoDeParte &dato, const LugarDeReparo &lugar) {
    if (texto.contains(u'\r')) texto.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    bool cambiado = false;
    for (qsizetype i = 0; i < texto.size(); ++i)
        if (qsizetype hasta = i; !cabeEnXml(texto, hasta)) {
            texto[i] = u' ';
            cambiado = true;
        } else {
            i = hasta;
        }
    if (cambiado) lugar.decir(dato, u"tiene caracteres que el documento no admite; van como blancos."_s);
    return texto;
}

/// One letter out of `letras`.
QString letraDe(const QString &texto, QStringView letras, const DatoDeParte &dato,
                const LugarDeReparo &lugar) {
    QString letra = texto.trimmed().toUpper();
    if (letra.isEmpty() || (letra.size() == 1 && letras.contains(letra))) return letra;
    lugar.decir(dato, u"dice \"%1\" y no va; corríjalo antes de enviar."_s.arg(texto.trimmed()));
    return {};
}

QString fechaDe(const QString &texto, const DatoDeParte &dato, const LugarDeReparo &lugar) {
    if (texto.trimmed().isEmpty()) return {};
    if (const auto fecha = fechas::Leer(texto)) return fecha->toString(Qt::ISODate);
    lugar.decir(dato, u"dice \"%1\", que no es una fecha, y no va; corríjalo antes de enviar."_s.arg(texto));
    return {};
}

ValorDeclarado numeroDe(const QString &texto, const DatoDeParte &dato, const LugarDeReparo &lugar) {
    if (texto.trimmed().isEmpty()) return {};
    const double numero = numeros::aNumero(texto);
    if (!numeros::esNumerico(texto) || !std::isfinite(numero)) {
        lugar.decir(dato,
                    u"dice \"%1\", que no es un número, y no va; corríjalo antes de enviar."_s.arg(texto));
        return {};
    }
    const int decimales = DecimalesDe(dato.clase);
    return {QString::number(numeros::redondear(numero, decimales), 'f', decimales), numero};
}

ValorDeclarado valorDe(const DatoDeParte &dato, const QVariant &celda, const LugarDeReparo &lugar) {
    const QString texto = EsNull(celda);
    switch (dato.clase) {
        case ClaseDeDato::Codigo:
            return {textoLimpio(texto, dato, lugar).trimmed()};
        case ClaseDeDato::Texto:
            return {textoLimpio(texto, dato, lugar)};
        case ClaseDeDato::Marca:
            return {letraDe(texto, u"SN", dato, lugar)};
        case ClaseDeDato::Obligacion:
            return {letraDe(texto, u"PGC", dato, lugar)};
        case ClaseDeDato::Fecha:
            return {fechaDe(texto, dato, lugar)};
        default:
            return numeroDe(texto, dato, lugar);
    }
}

/// The whole order of a part: its first key, then every value as the document spells it. Codes compare by
/// code unit, so that no store's collation has a say.
bool vaAntes(const FilaDeclarada &a, const FilaDeclarada &b) {
    if (a.orden != b.orden) return a.orden < b.orden;
    for (std::size_t i = 0; i < a.valores.size(); ++i) {
        const ValorDeclarado &x = a.valores[i];
        const ValorDeclarado &y = b.valores[i];
        if (x.numero != y.numero) return x.numero < y.numero;
        if (x.texto != y.texto) return x.texto < y.texto;
    }
    return false;
}

/// A declaration while it is read.
struct Lectura {
    AppContext &ctx;
    const QString &interno;
    Declaracion &d;

    QString sentencia(Parte que) const {
        const ParteDeDeclaracion &parte = DatosDe(que);
        QStringList columnas;
        for (const char *clave : {parte.item, parte.orden})
            if (*clave != '\0') columnas << L(clave);
        for (const DatoDeParte &dato : parte.datos) columnas << L(dato.columna);
        return "select "_L1 + columnas.join(u',') + " from "_L1 + L(parte.tabla) + " where interno = "_L1 +
               EnComillas(interno) + L(parte.filtro);
    }
    bool abrir(Parte que, Recordset &rs) const {
        return Consultar(ctx, entidad::internos, sentencia(que), rs);
    }
    /// The row in hand of a recordset that `abrir` opened.
    FilaDeclarada fila(Parte que, const Recordset &rs) const {
        const ParteDeDeclaracion &parte = DatosDe(que);
        const LugarDeReparo lugar{d.reparos, parte, itemDe(que, rs)};
        int columna = *parte.item == '\0' ? 0 : 1;
        FilaDeclarada f{&parte, {}};
        if (*parte.orden != '\0') f.orden = EsNumero(rs.Fields(columna++).Value);
        f.valores.reserve(parte.datos.size());
        for (const DatoDeParte &dato : parte.datos) {
            const QVariant celda = rs.Fields(columna++).Value;
            const bool va = !dato.esComision || ctx.opciones.EnviarComExt;
            f.valores.push_back(va ? valorDe(dato, celda, lugar) : ValorDeclarado());
        }
        return f;
    }
    /// The item of the row in hand; 0 for a part of the operation.
    static int itemDe(Parte que, const Recordset &rs) {
        return *DatosDe(que).item == '\0' ? 0 : static_cast<int>(EsNumero(rs.Fields(0).Value));
    }
};

FilaDeclarada leerUna(const Lectura &l, Parte que) {
    Recordset rs;
    if (!l.abrir(que, rs))
        throw Falla{
            0,
            u"transferencia"_s,
            u"El interno %1 ya no existe; vuelva a buscarlo en la lista de operaciones."_s.arg(l.interno),
            {}};
    return l.fila(que, rs);
}

std::vector<FilaDeclarada> leerTodas(const Lectura &l, Parte que) {
    std::vector<FilaDeclarada> filas;
    Recordset rs;
    for (l.abrir(que, rs); !rs.Eof(); rs.MoveNext()) filas.push_back(l.fila(que, rs));
    std::sort(filas.begin(), filas.end(), vaAntes);
    return filas;
}

void leerItems(const Lectura &l) {
    for (FilaDeclarada &f : leerTodas(l, Parte::Item)) {
        ItemDeclarado item;
        item.numero = static_cast<int>(f.numero("id"));
        item.datos = std::move(f);
        l.d.items.push_back(std::move(item));
    }
}

/// Items by their number, 0 for the operation.
using IndiceDeItems = std::map<int, ItemDeclarado *>;

void leerDeItems(const Lectura &l, Parte que, const IndiceDeItems &indice) {
    int sueltas = 0;
    Recordset rs;
    for (l.abrir(que, rs); !rs.Eof(); rs.MoveNext()) {
        const auto item = indice.find(Lectura::itemDe(que, rs));
        // A group without a number of its own was never put into an item.
        if (item == indice.end() || (que == Parte::Subitem && item->first == 0)) {
            ++sueltas;
            continue;
        }
        item->second->filas(que).push_back(l.fila(que, rs));
    }
    for (const auto &[numero, item] : indice)
        std::sort(item->filas(que).begin(), item->filas(que).end(), vaAntes);
    if (sueltas > 0)
        l.d.reparos.push_back(
            {0, u"Quedan afuera %1 sin item (%2); vuelva a armar la operación antes de enviar."_s
                    .arg(QString::fromUtf8(DatosDe(que).nombre))
                    .arg(sueltas)});
}

QString sentenciaDePlegadas(const QString &interno) {
    return "select idroot,idsub from idrel where interno = "_L1 + EnComillas(interno);
}

QString sentenciaDeCertificados(const QString &interno) {
    return "select id,certorig from subitems"
           " where interno = "_L1 +
           EnComillas(interno) + " and certorig is not null and certorig <> ''"_L1;
}

QString sentenciaDeMarcas(const QString &interno) {
    return "select factura8,factura9 from caratula where interno = "_L1 + EnComillas(interno);
}

/// The certificates of the lines that each item's groups stand for.
void leerCertificados(const Lectura &l, const IndiceDeItems &indice) {
    std::multimap<double, double> lineas;  // a group's line and those folded into it
    Recordset rs;
    for (Consultar(l.ctx, entidad::internos, sentenciaDePlegadas(l.interno), rs); !rs.Eof(); rs.MoveNext())
        lineas.emplace(rs.Numero(u"idroot"), rs.Numero(u"idsub"));
    std::map<double, QString> certificados;
    for (Consultar(l.ctx, entidad::internos, sentenciaDeCertificados(l.interno), rs); !rs.Eof();
         rs.MoveNext())
        certificados.emplace(rs.Numero(u"id"), rs.Texto(u"certorig").trimmed());
    if (certificados.empty()) return;
    const DatoDeParte certificado{"", "certificado", "certorig", ClaseDeDato::Codigo};
    const auto agregar = [&](ItemDeclarado &item, double linea) {
        const auto c = certificados.find(linea);
        if (c == certificados.end()) return;
        const LugarDeReparo lugar{l.d.reparos, DatosDe(Parte::Item), item.numero};
        item.certificados << textoLimpio(c->second, certificado, lugar).trimmed();
    };
    for (const auto &[numero, item] : indice) {
        for (const FilaDeclarada &grupo : item->subitems) {
            agregar(*item, grupo.orden);
            const auto [desde, hasta] = lineas.equal_range(grupo.orden);
            for (auto linea = desde; linea != hasta; ++linea) agregar(*item, linea->second);
        }
        item->certificados.removeAll(QString());
        std::sort(item->certificados.begin(), item->certificados.end());
        item->certificados.removeDuplicates();
    }
}

void leerMarcas(const Lectura &l) {
    Recordset rs;
    Consultar(l.ctx, entidad::internos, sentenciaDeMarcas(l.interno), rs);
    l.d.porArmar = rs.Texto(u"factura8") == "S"_L1;
    l.d.bultosContestados = rs.Texto(u"factura9").trimmed() == "1"_L1;
}

/// All that a declaration asks of INTERNOS.
QStringList lecturasDe(const Lectura &l) {
    QStringList sentencias{l.sentencia(Parte::Caratula), l.sentencia(Parte::Bultos),
                           sentenciaDeMarcas(l.interno)};
    for (const Parte que : {Parte::Factura, Parte::Prorrateo, Parte::Total, Parte::Item})
        sentencias << l.sentencia(que);
    for (const Parte que : partesDeItem) sentencias << l.sentencia(que);
    return sentencias << sentenciaDePlegadas(l.interno) << sentenciaDeCertificados(l.interno);
}

}  // namespace

const ValorDeclarado &FilaDeclarada::valor(const char *columna) const {
    return valores.at(parte->lugarDe(columna));
}

std::vector<FilaDeclarada> ItemDeclarado::*ItemDeclarado::listaDe(Parte parte) {
    switch (parte) {
        case Parte::Subitem:
            return &ItemDeclarado::subitems;
        case Parte::Tributo:
            return &ItemDeclarado::tributos;
        case Parte::Ventaja:
            return &ItemDeclarado::ventajas;
        case Parte::Informacion:
            return &ItemDeclarado::informaciones;
        case Parte::Cancelacion:
            return &ItemDeclarado::cancelaciones;
        default:
            throw Falla{0, L(DatosDe(parte).tabla), u"Esa parte de la declaración no es de un item"_s, {}};
    }
}

double Mostrado(const FilaDeclarada &fila, const char *columna) {
    return fila.texto(columna).toDouble();
}

bool EsTotalReservado(const QString &concepto) {
    return concepto.startsWith("###"_L1);
}

Declaracion LeerDeclaracion(AppContext &ctx, const QString &interno) {
    Declaracion d;
    d.interno = interno;
    const Lectura l{ctx, interno, d};
    LecturaAdelantada lecturas(ctx.conexion(entidad::internos), {lecturasDe(l)});
    lecturas.Vuelta();
    d.caratula = leerUna(l, Parte::Caratula);
    d.bultos = leerUna(l, Parte::Bultos);
    leerMarcas(l);
    d.sentido = DireccionRegimen(ctx, d.caratula.texto("idsubreg"));
    d.facturas = leerTodas(l, Parte::Factura);
    d.prorrateos = leerTodas(l, Parte::Prorrateo);
    d.totales = leerTodas(l, Parte::Total);
    leerItems(l);
    IndiceDeItems indice{{0, &d.operacion}};
    for (ItemDeclarado &item : d.items) indice.emplace(item.numero, &item);
    for (const Parte que : partesDeItem) leerDeItems(l, que, indice);
    leerCertificados(l, indice);
    if (EsDeclaracionDJAI(d.caratula.texto("idsubreg")) && !d.items.empty())
        d.ncmMayorFob = InformarNcmMayorFob(ctx, interno);
    std::stable_sort(d.reparos.begin(), d.reparos.end(),
                     [](const Advertencia &a, const Advertencia &b) { return a.item < b.item; });
    return d;
}

ResumenDeDeclaracion Resumir(const Declaracion &d) {
    ResumenDeDeclaracion r;
    const auto contar = [&r](const ItemDeclarado &item) {
        r.subitems += static_cast<int>(item.subitems.size());
        r.tributos += static_cast<int>(item.tributos.size());
        r.ventajas += static_cast<int>(item.ventajas.size());
        r.informaciones += static_cast<int>(item.informaciones.size());
        r.cancelaciones += static_cast<int>(item.cancelaciones.size());
        r.totalTributos += TributosDe(item);
    };
    contar(d.operacion);
    for (const ItemDeclarado &item : d.items) {
        contar(item);
        r.fob += Mostrado(item.datos, "fobtotal");
        r.flete += Mostrado(item.datos, "itflete");
        r.seguro += Mostrado(item.datos, "itseguro");
        r.kilosNetos += Mostrado(item.datos, "totalkneto");
        r.kilosBrutos += Mostrado(item.datos, "totalkbruto");
    }
    r.items = static_cast<int>(d.items.size());
    for (const FilaDeclarada &total : d.totales) {
        if (EsTotalReservado(total.texto("idconcepto"))) continue;
        const QString &obligacion = total.texto("pgc");
        if (obligacion == "P"_L1) r.aPagar += Mostrado(total, "valor");
        if (obligacion == "G"_L1) r.aGarantizar += Mostrado(total, "valor");
        if (obligacion == "C"_L1) r.aCobrar += Mostrado(total, "valor");
    }
    return r;
}

double TributosDe(const ItemDeclarado &item) {
    double suma = 0;
    for (const FilaDeclarada &t : item.tributos) suma += Mostrado(t, "total");
    return suma;
}
