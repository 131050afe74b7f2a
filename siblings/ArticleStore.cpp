#include "siblings/ArticleStore.h"

#include <QDateTime>
#include <vector>

#include "frame/context.h"
#include "frame/numbers.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;
using ArticleStore::Articulo;

const QString catalogos = QStringLiteral("CATALOGOS");

/// The text columns of an article in the order of its record; the first two are its key.
struct Columna {
    const char *nombre;
    QString Articulo::*campo;
};
constexpr Columna columnas[] = {
    {"idcatalogo", &Articulo::idcatalogo},   {"idarticulo", &Articulo::idarticulo},
    {"descripcion", &Articulo::descripcion}, {"descripcion_maria", &Articulo::Descripcion_Maria},
    {"idunidad", &Articulo::idunidad},       {"ncm", &Articulo::ncm},
    {"idpais", &Articulo::idpais},           {"idpaisproc", &Articulo::idpaisproc},
    {"estadomerc", &Articulo::estadomerc},   {"sufijos", &Articulo::sufijos},
    {"biendeuso", &Articulo::biendeuso},     {"otros", &Articulo::otros},
    {"codigoean", &Articulo::codigoean},     {"itfiller", &Articulo::itfiller},
    {"naladisa", &Articulo::naladisa}};

QString entreComillas(const QString &texto) {
    return QLatin1Char('\'') + DoblarComillas(texto) + QLatin1Char('\'');
}

QString numero(AppContext &ctx, double valor) {
    return AStoreNumero(numeros::aTexto(valor), ctx.DataManager.getDecimalSeparatorbyEntity(catalogos));
}

QString condicion(const QString &idcatalogo, const QString &idarticulo) {
    return L(" where idcatalogo = ") + entreComillas(idcatalogo) + L(" and idarticulo = ") +
           entreComillas(idarticulo);
}

/// Column and value of everything the record tells, ready for a statement.
std::vector<std::pair<QString, QString>> valores(AppContext &ctx, const Articulo &a) {
    std::vector<std::pair<QString, QString>> pares;
    for (const Columna &c : columnas) pares.emplace_back(L(c.nombre), entreComillas(a.*c.campo));
    if (a.preciounitario) pares.emplace_back(L("preciounitario"), numero(ctx, *a.preciounitario));
    if (a.kgneto) pares.emplace_back(L("kgneto"), numero(ctx, *a.kgneto));
    pares.emplace_back(L("usuario"), entreComillas(ctx.PcName));
    pares.emplace_back(L("fecha"),
                       ctx.DataManager.getDateFormatbyEntity(catalogos, QDateTime::currentDateTime()));
    return pares;
}

QString alta(AppContext &ctx, const Articulo &a) {
    QString nombres = QStringLiteral("cantidad");
    QString textos = QStringLiteral("1");
    for (const auto &[nombre, valor] : valores(ctx, a)) {
        nombres += QLatin1Char(',') + nombre;
        textos += QLatin1Char(',') + valor;
    }
    return L("insert into catarticulos (") + nombres + L(") values (") + textos + L(")");
}

QString cambio(AppContext &ctx, const Articulo &a) {
    QString partes;
    for (const auto &[nombre, valor] : valores(ctx, a)) {
        if (!partes.isEmpty()) partes += QLatin1Char(',');
        partes += nombre + L(" = ") + valor;
    }
    return L("update catarticulos set ") + partes + condicion(a.idcatalogo, a.idarticulo);
}

}  // namespace

bool ArticleStore::Agregar(AppContext &ctx, const Articulo &articulo, bool noSobrescribir) {
    Recordset rs;
    const bool existe = Consultar(
        ctx, catalogos,
        L("select idarticulo from catarticulos") + condicion(articulo.idcatalogo, articulo.idarticulo), rs);
    if (existe && noSobrescribir) return false;
    return Ejecutar(ctx, catalogos, existe ? cambio(ctx, articulo) : alta(ctx, articulo)) > 0;
}

std::optional<Articulo> ArticleStore::Leer(AppContext &ctx, const QString &idcatalogo,
                                           const QString &idarticulo) {
    Recordset rs;
    if (!Consultar(ctx, catalogos, L("select * from catarticulos") + condicion(idcatalogo, idarticulo), rs))
        return {};
    Articulo a;
    for (const Columna &c : columnas) a.*c.campo = rs.Texto(QString(L(c.nombre)));
    if (!rs.EsNulo(u"preciounitario")) a.preciounitario = rs.Numero(u"preciounitario");
    if (!rs.EsNulo(u"kgneto")) a.kgneto = rs.Numero(u"kgneto");
    return a;
}

bool ArticleStore::ExisteCatalogo(AppContext &ctx, const QString &idcatalogo) {
    Recordset rs;
    return Consultar(
        ctx, catalogos,
        L("select top 1 idcatalogo from catarticulos where idcatalogo = ") + entreComillas(idcatalogo), rs);
}

QStringList ArticleStore::Catalogos(AppContext &ctx) {
    Recordset rs;
    QStringList nombres;
    Consultar(ctx, catalogos,
              QStringLiteral("select distinct idcatalogo from catarticulos order by idcatalogo"), rs);
    for (; !rs.Eof(); rs.MoveNext()) nombres << rs.Texto(u"idcatalogo");
    return nombres;
}

std::vector<ArticleStore::FilaDeArticulo> ArticleStore::Articulos(AppContext &ctx,
                                                                  const QString &idcatalogo) {
    Recordset rs;
    std::vector<FilaDeArticulo> articulos;
    Consultar(ctx, catalogos,
              L("select idarticulo,descripcion,ncm from catarticulos where idcatalogo = ") +
                  entreComillas(idcatalogo) + L(" order by idarticulo"),
              rs);
    articulos.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        articulos.push_back({rs.Texto(u"idarticulo"), rs.Texto(u"descripcion"), rs.Texto(u"ncm")});
    return articulos;
}
