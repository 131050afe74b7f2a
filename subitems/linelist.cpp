#include "subitems/linelist.h"

#include "frame/context.h"
#include "frame/numbers.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;
using numeros::Format;

const QString internos = QStringLiteral("INTERNOS");

QString numeroDeLinea(int numero) {
    constexpr int ancho = 4;
    return QStringLiteral("%1").arg(numero, ancho, 10, QLatin1Char('0'));
}

FilaSubItem leerFila(const Recordset &rs, int numero) {
    FilaSubItem f;
    f.id = static_cast<qint64>(rs.Numero(u"id"));
    f.numero = numeroDeLinea(numero);
    f.NCM = rs.Texto(u"ncm");
    f.idunidad = rs.Texto(u"idunidad");
    f.Cantidad = Format(rs.Numero(u"cantidad"), u"00.00");
    f.kgneto = Format(rs.Numero(u"kgneto"), u"00.00");
    f.preciounitario = Format(rs.Numero(u"preciounitario"), u"00.00000");
    f.Fob = Format(rs.Numero(u"fob"), u"00.00");
    f.idarticulo = rs.Texto(u"idarticulo");
    f.factura_nro = rs.Texto(u"factura_nro");
    f.marcada = rs.Texto(u"cancelaciones") == L("OK");
    return f;
}

}  // namespace

QStringList FilaSubItem::celdas() const {
    return {numero,     NCM,        idunidad, Cantidad, kgneto, preciounitario, Fob, QString::number(id),
            idarticulo, factura_nro};
}

const QStringList &ColumnasDeSubItems() {
    static const QStringList columnas{QStringLiteral("Línea"),    QStringLiteral("NCM"),
                                      QStringLiteral("Unidad"),   QStringLiteral("Cantidad"),
                                      QStringLiteral("Kg Neto"),  QStringLiteral("Precio Unitario"),
                                      QStringLiteral("Fob"),      QStringLiteral("Id"),
                                      QStringLiteral("Artículo"), QStringLiteral("Factura")};
    return columnas;
}

QString SentenciaSubItems(const QString &interno, bool descendente, const QString &condicion) {
    return L("select interno,estadomerc,sufijos,idpais,kgneto,id,ncm,idunidad,cantidad,preciounitario,fob,"
             "idarticulo,cancelaciones, itfiller, descripcion as descr, descripcion_maria, idcatalogo, "
             "naladisa, factura_nro from subitems as a where interno = '") +
           interno + condicion + (descendente ? L(" order by a.id desc") : L(" order by a.id asc"));
}

std::vector<FilaSubItem> GetRsSubtiems(AppContext &ctx, const QString &interno, const QString &condicion) {
    const bool descendente = ctx.opciones.SbtMostrarAsc;
    Recordset rs;
    Consultar(ctx, internos, SentenciaSubItems(interno, descendente, condicion), rs);
    std::vector<FilaSubItem> filas;
    const int total = rs.RecordCount();
    filas.reserve(static_cast<std::size_t>(total));
    for (int n = 0; !rs.Eof(); rs.MoveNext(), ++n)
        filas.push_back(leerFila(rs, descendente ? total - n : n + 1));
    return filas;
}

std::optional<FilaSubItem> FilaDeSubItem(AppContext &ctx, const QString &interno, qint64 id,
                                         int cantidadDeLineas) {
    Recordset rs;
    if (!Consultar(ctx, internos, SentenciaSubItems(interno, false, L("' and id = ") + QString::number(id)),
                   rs))
        return {};
    return leerFila(rs, cantidadDeLineas);
}
