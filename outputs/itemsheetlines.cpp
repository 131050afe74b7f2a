#include "outputs/itemsheetlines.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "outputs/fixedfield.h"

using namespace Qt::StringLiterals;

namespace {

constexpr ColumnaDeHoja columnasDeInformacion[] = {{u"Información", 25}, {u"Valor", 30}};

}  // namespace

bool CorridaDeHoja::consultar(const QString &sql, Recordset &rs) const {
    return Consultar(ctx, entidad::internos, sql, rs);
}

std::vector<Recordset> CorridaDeHoja::consultarJuntas(const QStringList &sentencias) const {
    return ConsultarSeguidas(ctx, entidad::internos, sentencias);
}

void CorridaDeHoja::linea(const QString &texto, bool conElSiguiente) {
    QString sinComillas = texto;
    sinComillas.replace(u'\'', u'`');
    porMandar << "insert into tabla (linea) values ("_L1 + EnComillas(sinComillas) + u')';
    constexpr qsizetype bastantes = 500;
    if (porMandar.size() >= bastantes) mandarLineas();
    papel::Renglon &marca = marcas.emplace_back();
    marca.conElSiguiente = conElSiguiente;
}

void CorridaDeHoja::mandarLineas() {
    ctx.conexion(entidad::personal).MandarSeguidas(std::exchange(porMandar, {}));
}

void CorridaDeHoja::enHojaNueva(const QString &texto) {
    linea(texto);
    // The first page is on paper already.
    marcas.back().hojaNueva = marcas.size() > 1;
}

void CorridaDeHoja::encabezado(std::span<const ColumnaDeHoja> columnas, const QString &margen) {
    QStringList titulos;
    QStringList guiones;
    for (const ColumnaDeHoja &c : columnas) {
        titulos << QString::fromUtf16(c.titulo);
        guiones << QString(c.ancho, u'-');
    }
    linea(margen + FilaDeHoja(columnas, titulos), true);
    linea(margen + FilaDeHoja(columnas, guiones), true);
}

QString CorridaDeHoja::conMascara(double valor, QStringView mascara) const {
    return numeros::Format(valor, mascara, ctx.SeparadorDecimal);
}

QString CorridaDeHoja::comoNumero(double valor) const {
    QString texto = numeros::aTexto(valor);
    return ReemplazarSeparadorDecimal(texto, ctx.SeparadorDecimal);
}

QString FilaDeHoja(std::span<const ColumnaDeHoja> columnas, const QStringList &celdas) {
    QString fila;
    for (std::size_t n = 0; n < columnas.size(); ++n) {
        if (n > 0) fila += QString(columnas[n - 1].separacion, u' ');
        fila += CampoFijo(celdas.value(static_cast<qsizetype>(n)), columnas[n].ancho);
    }
    return fila;
}

void CargarItemDeHoja(CorridaDeHoja &h, const Recordset &item) {
    LecturaAdelantada lecturas(h.ctx.conexion(entidad::internos),
                               {LecturasDeItem(h.interno, item.Texto(u"id"), h.calculo.CaratulaSubRegimen)});
    lecturas.Vuelta();
    CargarItemEnCalculadora(h.ctx, h.interno, item, h.calculo, false, h.lapi, h.posiciones);
    // The bases change some of the rates: what is asked next begins from those that were loaded.
    ClassLiquidacion aparte = h.calculo;
    BasesDeItem &bases = h.bases[item.Texto(u"id")];
    bases.imponible = aparte.ObtenerBaseImponible();
    bases.iva = aparte.ObtenerBaseIVA();
}

QString SentenciaDeVentajas(const QString &interno, const QString &item) {
    return "select * from itemventaja"
           " where interno = "_L1 +
           EnComillas(interno) + " and iditem = "_L1 + item;
}

QString SentenciaDeInformacion(const QString &interno, const QString &item) {
    return "select * from iteminfo"
           " where interno = "_L1 +
           EnComillas(interno) + " and iditem = "_L1 + item;
}

void EscribirVentajas(CorridaDeHoja &h, Recordset &rs) {
    if (rs.Eof()) return;
    for (const auto *texto : {u" ", u"---------", u"VENTAJAS:", u"---------", u" "})
        h.linea(QString::fromUtf16(texto), true);
    for (; !rs.Eof(); rs.MoveNext()) h.linea(rs.Texto(u"idventaja"));
    h.linea(u" "_s);
}

void EscribirInformacion(CorridaDeHoja &h, Recordset &rs) {
    if (rs.Eof()) return;
    const QString guiones(22, u'-');
    for (const QString &texto : {guiones, u"INFORMACIÓN ADICIONAL:"_s, guiones, u" "_s}) h.linea(texto, true);
    h.encabezado(columnasDeInformacion);
    // The block is kept whole: where it does not fit any more it has a page of its own.
    for (; !rs.Eof(); rs.MoveNext())
        h.linea(FilaDeHoja(columnasDeInformacion, {rs.Texto(u"idinfo"), rs.Texto(u"Valor")}), true);
    h.marcas.back().conElSiguiente = false;
}

void EscribirTituloDeSubitems(CorridaDeHoja &h) {
    for (const auto *texto : {u" ", u"---------", u"SUBITEMS:", u"---------", u" "})
        h.linea(QString::fromUtf16(texto), true);
}
