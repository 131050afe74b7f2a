#include "outputs/declarationxml.h"

#include <QBuffer>
#include <QXmlStreamWriter>
#include <algorithm>
#include <tuple>
#include <utility>

#include "frame/base/numbers.h"
#include "outputs/declaration.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

constexpr int sangria = 2;

bool estaVacia(const FilaDeclarada &fila) {
    return std::all_of(fila.valores.begin(), fila.valores.end(),
                       [](const ValorDeclarado &v) { return v.texto.isEmpty(); });
}

/// The values of a row into the element in hand: its attributes, its groups, its texts.
void escribirValores(QXmlStreamWriter &xml, const FilaDeclarada &fila) {
    L grupo;
    const auto entrarEn = [&](L otro) {
        if (grupo == otro) return;
        if (!grupo.isEmpty()) xml.writeEndElement();
        if (!otro.isEmpty()) xml.writeStartElement(otro);
        grupo = otro;
    };
    for (std::size_t i = 0; i < fila.valores.size(); ++i) {
        const QString &texto = fila.valores[i].texto;
        if (texto.isEmpty()) continue;
        const DatoDeParte &dato = fila.parte->datos[i];
        entrarEn(L(dato.grupo));
        if (dato.clase == ClaseDeDato::Texto)
            xml.writeTextElement(L(dato.nombre), texto);
        else
            xml.writeAttribute(L(dato.nombre), texto);
    }
    entrarEn(L());
}

void escribirFilas(QXmlStreamWriter &xml, const std::vector<FilaDeclarada> &filas, bool numeradas = false) {
    if (filas.empty()) return;
    xml.writeStartElement(L(filas.front().parte->lista));
    int numero = 0;
    for (const FilaDeclarada &fila : filas) {
        xml.writeStartElement(L(fila.parte->elemento));
        if (numeradas) xml.writeAttribute("numero"_L1, QString::number(++numero));
        escribirValores(xml, fila);
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

/// The lists that hang on an item, or on the operation.
void escribirListas(QXmlStreamWriter &xml, const ItemDeclarado &item) {
    for (const Parte que : partesDeItem) escribirFilas(xml, item.filas(que), que == Parte::Subitem);
    if (item.certificados.isEmpty()) return;
    xml.writeStartElement("certificados"_L1);
    for (const QString &numero : item.certificados) {
        xml.writeEmptyElement("certificado"_L1);
        xml.writeAttribute("numero"_L1, numero);
    }
    xml.writeEndElement();
}

QString conDecimales(double valor, ClaseDeDato clase) {
    const int decimales = DecimalesDe(clase);
    return QString::number(numeros::redondear(valor, decimales), 'f', decimales);
}

void escribirCaratula(QXmlStreamWriter &xml, const Declaracion &d) {
    xml.writeStartElement("caratula"_L1);
    if (!d.sentido.isEmpty()) xml.writeAttribute("sentido"_L1, d.sentido);
    if (d.ncmMayorFob) xml.writeAttribute("ncmMayorFob"_L1, QString::number(*d.ncmMayorFob));
    escribirValores(xml, d.caratula);
    escribirFilas(xml, d.facturas);
    escribirFilas(xml, d.prorrateos);
    xml.writeEndElement();
}

void escribirTotales(QXmlStreamWriter &xml, const Declaracion &d) {
    // Reserved concepts are no duties: they stand as attributes of the list.
    constexpr std::pair<L, L> reservados[] = {{"###baseimp"_L1, "baseImponible"_L1},
                                              {"###baseiva"_L1, "baseIva"_L1},
                                              {"###ajinc"_L1, "ajusteIncluir"_L1},
                                              {"###ajded"_L1, "ajusteDeducir"_L1}};
    if (d.totales.empty()) return;
    xml.writeStartElement("totales"_L1);
    for (const auto &[concepto, nombre] : reservados)
        for (const FilaDeclarada &total : d.totales)
            if (total.texto("idconcepto") == concepto) {
                xml.writeAttribute(nombre, total.texto("valor"));
                break;
            }
    for (const FilaDeclarada &total : d.totales) {
        if (EsTotalReservado(total.texto("idconcepto"))) continue;
        xml.writeStartElement("total"_L1);
        escribirValores(xml, total);
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

void escribirControl(QXmlStreamWriter &xml, const ResumenDeDeclaracion &r) {
    xml.writeEmptyElement("control"_L1);
    const std::pair<L, int> cuentas[] = {{"items"_L1, r.items},
                                         {"subitems"_L1, r.subitems},
                                         {"tributos"_L1, r.tributos},
                                         {"ventajas"_L1, r.ventajas},
                                         {"informaciones"_L1, r.informaciones},
                                         {"cancelaciones"_L1, r.cancelaciones}};
    for (const auto &[nombre, cuenta] : cuentas) xml.writeAttribute(nombre, QString::number(cuenta));
    const std::tuple<L, double, ClaseDeDato> sumas[] = {
        {"fob"_L1, r.fob, ClaseDeDato::Importe},
        {"flete"_L1, r.flete, ClaseDeDato::Importe},
        {"seguro"_L1, r.seguro, ClaseDeDato::Importe},
        {"kilosNetos"_L1, r.kilosNetos, ClaseDeDato::Kilos},
        {"kilosBrutos"_L1, r.kilosBrutos, ClaseDeDato::Kilos},
        {"totalTributos"_L1, r.totalTributos, ClaseDeDato::Importe},
        {"aPagar"_L1, r.aPagar, ClaseDeDato::Importe},
        {"aGarantizar"_L1, r.aGarantizar, ClaseDeDato::Importe},
        {"aCobrar"_L1, r.aCobrar, ClaseDeDato::Importe}};
    for (const auto &[nombre, suma, clase] : sumas) xml.writeAttribute(nombre, conDecimales(suma, clase));
}

}  // namespace

QByteArray DocumentoDe(const Declaracion &d) {
    QByteArray bytes;
    QBuffer destino(&bytes);
    destino.open(QIODevice::WriteOnly);
    QXmlStreamWriter xml(&destino);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(sangria);
    xml.writeStartDocument();
    xml.writeStartElement("declaracion"_L1);
    xml.writeDefaultNamespace(espacioDeDeclaracion);
    xml.writeAttribute("version"_L1, versionDeDeclaracion);
    xml.writeAttribute("interno"_L1, d.interno);
    escribirCaratula(xml, d);
    if (!estaVacia(d.bultos)) {
        xml.writeStartElement("bultos"_L1);
        escribirValores(xml, d.bultos);
        xml.writeEndElement();
    }
    xml.writeStartElement("operacion"_L1);
    escribirListas(xml, d.operacion);
    escribirTotales(xml, d);
    xml.writeEndElement();
    xml.writeStartElement("items"_L1);
    for (const ItemDeclarado &item : d.items) {
        xml.writeStartElement("item"_L1);
        escribirValores(xml, item.datos);
        escribirListas(xml, item);
        xml.writeEndElement();
    }
    xml.writeEndElement();
    escribirControl(xml, Resumir(d));
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}
