#include "subitems/linelist.h"

#include <QHash>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using numeros::Format;

using entidad::internos;

QString conCeros(qsizetype numero) {
    constexpr int ancho = 4;
    return u"%1"_s.arg(numero, ancho, 10, QLatin1Char('0'));
}

FilaSubItem leerFila(const AppContext &ctx, const Recordset &rs, int numero) {
    FilaSubItem f;
    f.id = static_cast<qint64>(rs.Numero(u"id"));
    f.numero = conCeros(numero);
    f.NCM = rs.Texto(u"ncm");
    f.idunidad = rs.Texto(u"idunidad");
    f.Cantidad = Format(rs.Numero(u"cantidad"), u"00.00", ctx.SeparadorDecimal);
    f.kgneto = Format(rs.Numero(u"kgneto"), u"00.00", ctx.SeparadorDecimal);
    f.preciounitario = Format(rs.Numero(u"preciounitario"), u"00.00000", ctx.SeparadorDecimal);
    f.Fob = Format(rs.Numero(u"fob"), u"00.00", ctx.SeparadorDecimal);
    f.idarticulo = rs.Texto(u"idarticulo");
    f.factura_nro = rs.Texto(u"factura_nro");
    f.marcada = rs.Texto(u"cancelaciones") == "OK"_L1;
    return f;
}

/// Where every line of the operation stands among them, by its id.
QHash<qint64, int> numerosDeLineas(AppContext &ctx, const QString &interno) {
    Recordset rs;
    Consultar(ctx, internos,
              "select id "
              "from subitems "
              "where interno = "_L1 +
                  EnComillas(interno) +
                  " "
                  "order by id"_L1,
              rs);
    QHash<qint64, int> numeros;
    numeros.reserve(rs.RecordCount());
    for (int n = 1; !rs.Eof(); rs.MoveNext(), ++n) numeros.insert(static_cast<qint64>(rs.Numero(u"id")), n);
    return numeros;
}

}  // namespace

QStringList FilaSubItem::celdas() const {
    return {numero,     NCM,        idunidad, Cantidad, kgneto, preciounitario, Fob, QString::number(id),
            idarticulo, factura_nro};
}

const QStringList &ColumnasDeSubItems() {
    static const QStringList columnas{
        u"Línea"_s,           u"NCM"_s, u"Unidad"_s, u"Cantidad"_s, u"Kg Neto"_s,
        u"Precio Unitario"_s, u"Fob"_s, u"Id"_s,     u"Artículo"_s, u"Factura"_s};
    return columnas;
}

QString SentenciaSubItems(const QString &interno, bool descendente, const CondicionDeLineas &cuales) {
    return "select interno,estadomerc,sufijos,idpais,kgneto,"
           "id,ncm,idunidad,cantidad,preciounitario,fob,idarticulo,"
           "cancelaciones, itfiller, descripcion as descr, descripcion_maria, "
           "idcatalogo, naladisa, factura_nro "
           "from subitems as a "_L1 +
           cuales.antes + EnComillas(interno) + cuales.detras +
           (descendente ? " order by a.id desc"_L1 : " order by a.id asc"_L1);
}

std::vector<FilaSubItem> GetRsSubtiems(AppContext &ctx, const QString &interno,
                                       const CondicionDeLineas &cuales) {
    const bool descendente = ctx.opciones.SbtMostrarAsc;
    Recordset rs;
    Consultar(ctx, internos, SentenciaSubItems(interno, descendente, cuales), rs);
    std::vector<FilaSubItem> filas;
    const int total = rs.RecordCount();
    if (total == 0) return filas;
    const bool todas = cuales == CondicionDeLineas();
    const QHash<qint64, int> numeros = todas ? QHash<qint64, int>() : numerosDeLineas(ctx, interno);
    filas.reserve(static_cast<std::size_t>(total));
    for (int n = 0; !rs.Eof(); rs.MoveNext(), ++n) {
        filas.push_back(leerFila(ctx, rs, descendente ? total - n : n + 1));
        if (!todas) filas.back().numero = conCeros(numeros.value(filas.back().id));
    }
    return filas;
}

QString NumeroDeLinea(AppContext &ctx, const QString &interno, qint64 id) {
    const QHash<qint64, int> numeros = numerosDeLineas(ctx, interno);
    return numeros.contains(id) ? conCeros(numeros.value(id)) : QString();
}

std::optional<FilaSubItem> FilaDeSubItem(AppContext &ctx, const QString &interno, qint64 id,
                                         int cantidadDeLineas) {
    CondicionDeLineas una;
    una.detras = " and id = "_L1 + QString::number(id);
    Recordset rs;
    if (!Consultar(ctx, internos, SentenciaSubItems(interno, false, una), rs)) return {};
    return leerFila(ctx, rs, cantidadDeLineas);
}
