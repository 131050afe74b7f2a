#include "subitems/ArticleStore.h"

#include <QDateTime>
#include <vector>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using ArticleStore::Articulo;

const QString catalogos = u"CATALOGOS"_s;

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
    return " where idcatalogo = "_L1 + entreComillas(idcatalogo) + " and idarticulo = "_L1 +
           entreComillas(idarticulo);
}

/// Column and value of everything the record tells, ready for a statement.
std::vector<std::pair<QString, QString>> valores(AppContext &ctx, const Articulo &a) {
    std::vector<std::pair<QString, QString>> pares;
    for (const Columna &c : columnas) pares.emplace_back(L(c.nombre), entreComillas(a.*c.campo));
    if (a.preciounitario) pares.emplace_back("preciounitario"_L1, numero(ctx, *a.preciounitario));
    if (a.kgneto) pares.emplace_back("kgneto"_L1, numero(ctx, *a.kgneto));
    pares.emplace_back("usuario"_L1, entreComillas(ctx.PcName));
    pares.emplace_back("fecha"_L1,
                       ctx.DataManager.getDateFormatbyEntity(catalogos, QDateTime::currentDateTime()));
    return pares;
}

QString alta(AppContext &ctx, const Articulo &a) {
    QString nombres = u"cantidad"_s;
    QString textos = u"1"_s;
    for (const auto &[nombre, valor] : valores(ctx, a)) {
        nombres += QLatin1Char(',') + nombre;
        textos += QLatin1Char(',') + valor;
    }
    return "insert into catarticulos ("_L1 + nombres + ") values ("_L1 + textos + ")"_L1;
}

QString cambio(AppContext &ctx, const Articulo &a) {
    QString partes;
    for (const auto &[nombre, valor] : valores(ctx, a)) {
        if (!partes.isEmpty()) partes += QLatin1Char(',');
        partes += nombre + " = "_L1 + valor;
    }
    return "update catarticulos set "_L1 + partes + condicion(a.idcatalogo, a.idarticulo);
}

}  // namespace

bool ArticleStore::Agregar(AppContext &ctx, const Articulo &articulo, bool noSobrescribir) {
    Recordset rs;
    const bool existe = Consultar(
        ctx, catalogos,
        "select idarticulo from catarticulos"_L1 + condicion(articulo.idcatalogo, articulo.idarticulo), rs);
    if (existe && noSobrescribir) return false;
    return Ejecutar(ctx, catalogos, existe ? cambio(ctx, articulo) : alta(ctx, articulo)) > 0;
}

std::optional<Articulo> ArticleStore::Leer(AppContext &ctx, const QString &idcatalogo,
                                           const QString &idarticulo) {
    Recordset rs;
    if (!Consultar(ctx, catalogos, "select * from catarticulos"_L1 + condicion(idcatalogo, idarticulo), rs))
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
        "select top 1 idcatalogo from catarticulos where idcatalogo = "_L1 + entreComillas(idcatalogo), rs);
}

QStringList ArticleStore::Catalogos(AppContext &ctx) {
    Recordset rs;
    QStringList nombres;
    Consultar(ctx, catalogos, u"select distinct idcatalogo from catarticulos order by idcatalogo"_s, rs);
    for (; !rs.Eof(); rs.MoveNext()) nombres << rs.Texto(u"idcatalogo");
    return nombres;
}

std::vector<ArticleStore::FilaDeArticulo> ArticleStore::Articulos(AppContext &ctx,
                                                                  const QString &idcatalogo) {
    Recordset rs;
    std::vector<FilaDeArticulo> articulos;
    Consultar(ctx, catalogos,
              "select idarticulo,descripcion,ncm from catarticulos where idcatalogo = "_L1 +
                  entreComillas(idcatalogo) + " order by idarticulo"_L1,
              rs);
    articulos.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        articulos.push_back({rs.Texto(u"idarticulo"), rs.Texto(u"descripcion"), rs.Texto(u"ncm")});
    return articulos;
}
