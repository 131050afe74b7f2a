#include "subitems/ArticleStore.h"

#include <QDateTime>
#include <vector>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using ArticleStore::Articulo;

using entidad::catalogos;

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

/// The record's key, ready behind a "where".
QString claveDe(const QString &idcatalogo, const QString &idarticulo) {
    return "idcatalogo = "_L1 + TextoEnComillas(idcatalogo) + " and idarticulo = "_L1 +
           TextoEnComillas(idarticulo);
}

void ponerCifrasYFirma(const AppContext &ctx, const Articulo &a, Escritura &e) {
    if (a.preciounitario) e.numero("preciounitario", *a.preciounitario);
    if (a.kgneto) e.numero("kgneto", *a.kgneto);
    e.texto("usuario", ctx.PcName)
        .crudo("fecha", ctx.DataManager.getDateFormatbyEntity(catalogos, QDateTime::currentDateTime()));
}

QString cambio(const AppContext &ctx, const Articulo &a) {
    Escritura e(ctx, catalogos);
    for (const Columna &c : columnas)
        if (!(a.*c.campo).isEmpty()) e.texto(c.nombre, a.*c.campo);
    ponerCifrasYFirma(ctx, a, e);
    return e.actualizar(u"catarticulos"_s, claveDe(a.idcatalogo, a.idarticulo));
}

/// The article of the row in hand.
Articulo articuloDe(const Recordset &rs) {
    Articulo a;
    for (const Columna &c : columnas) a.*c.campo = rs.Texto(QString(L(c.nombre)));
    if (!rs.EsNulo(u"preciounitario")) a.preciounitario = rs.Numero(u"preciounitario");
    if (!rs.EsNulo(u"kgneto")) a.kgneto = rs.Numero(u"kgneto");
    return a;
}

}  // namespace

QString ArticleStore::SentenciaDeAlta(const AppContext &ctx, const Articulo &articulo) {
    Articulo a = articulo;
    if (a.biendeuso.isEmpty()) a.biendeuso = u"N"_s;
    Escritura e(ctx, catalogos);
    e.crudo("cantidad", u"1"_s);
    for (const Columna &c : columnas) e.texto(c.nombre, a.*c.campo);
    ponerCifrasYFirma(ctx, a, e);
    return e.insertar(u"catarticulos"_s);
}

QString ArticleStore::SentenciaDeReemplazo(const AppContext &ctx, const Articulo &a) {
    Escritura e(ctx, catalogos);
    for (const Columna &c : columnas) e.texto(c.nombre, a.*c.campo);
    if (!a.preciounitario) e.crudo("preciounitario", u"null"_s);
    if (!a.kgneto) e.crudo("kgneto", u"null"_s);
    ponerCifrasYFirma(ctx, a, e);
    return e.actualizar(u"catarticulos"_s, claveDe(a.idcatalogo, a.idarticulo));
}

bool ArticleStore::Agregar(AppContext &ctx, const Articulo &articulo, bool noSobrescribir) {
    Recordset rs;
    const bool existe = Consultar(ctx, catalogos,
                                  "select idarticulo "
                                  "from catarticulos "
                                  "where "_L1 +
                                      claveDe(articulo.idcatalogo, articulo.idarticulo),
                                  rs);
    if (existe && noSobrescribir) return false;
    return Ejecutar(ctx, catalogos, existe ? cambio(ctx, articulo) : SentenciaDeAlta(ctx, articulo)) > 0;
}

bool ArticleStore::Modificar(AppContext &ctx, const Articulo &articulo) {
    return Ejecutar(ctx, catalogos, SentenciaDeReemplazo(ctx, articulo)) > 0;
}

bool ArticleStore::Borrar(AppContext &ctx, const QString &idcatalogo, const QString &idarticulo) {
    const QString donde = claveDe(idcatalogo, idarticulo);
    if (Ejecutar(ctx, catalogos, "delete from catarticulos where "_L1 + donde) == 0) return false;
    // A later article of the same code starts without them.
    Ejecutar(ctx, catalogos, "delete from articulo_ventaja where "_L1 + donde);
    return true;
}

std::optional<Articulo> ArticleStore::Leer(AppContext &ctx, const QString &idcatalogo,
                                           const QString &idarticulo) {
    Recordset rs;
    if (!Consultar(ctx, catalogos,
                   "select * "
                   "from catarticulos "
                   "where "_L1 +
                       claveDe(idcatalogo, idarticulo),
                   rs))
        return {};
    return articuloDe(rs);
}

std::vector<Articulo> ArticleStore::LeerTodos(AppContext &ctx, const QString &idcatalogo) {
    Recordset rs;
    Consultar(ctx, catalogos,
              "select * "
              "from catarticulos "
              "where idcatalogo = "_L1 +
                  TextoEnComillas(idcatalogo),
              rs);
    std::vector<Articulo> todos;
    todos.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) todos.push_back(articuloDe(rs));
    return todos;
}

bool ArticleStore::ExisteCatalogo(AppContext &ctx, const QString &idcatalogo) {
    Recordset rs;
    return Consultar(ctx, catalogos,
                     "select top 1 idcatalogo "
                     "from catarticulos "
                     "where idcatalogo = "_L1 +
                         TextoEnComillas(idcatalogo),
                     rs);
}

QStringList ArticleStore::Catalogos(AppContext &ctx) {
    Recordset rs;
    QStringList nombres;
    Consultar(ctx, catalogos,
              u"select distinct idcatalogo "
              "from catarticulos "
              "order by idcatalogo"_s,
              rs);
    for (; !rs.Eof(); rs.MoveNext()) nombres << rs.Texto(u"idcatalogo");
    return nombres;
}

std::vector<ArticleStore::FilaDeCatalogo> ArticleStore::CatalogosContados(AppContext &ctx) {
    Recordset rs;
    std::vector<FilaDeCatalogo> contados;
    Consultar(ctx, catalogos,
              u"select idcatalogo, COUNT(idcatalogo) AS Cantidad "
              "from catarticulos "
              "group by idcatalogo "
              "order by idcatalogo"_s,
              rs);
    for (; !rs.Eof(); rs.MoveNext())
        contados.push_back({rs.Texto(u"idcatalogo"), static_cast<int>(rs.Numero(u"cantidad"))});
    return contados;
}

std::vector<ArticleStore::FilaDeArticulo> ArticleStore::Articulos(AppContext &ctx,
                                                                  const QString &idcatalogo) {
    Recordset rs;
    std::vector<FilaDeArticulo> articulos;
    Consultar(ctx, catalogos,
              "select idarticulo,descripcion,ncm "
              "from catarticulos "
              "where idcatalogo = "_L1 +
                  TextoEnComillas(idcatalogo) +
                  " "
                  "order by idarticulo"_L1,
              rs);
    articulos.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        articulos.push_back({rs.Texto(u"idarticulo"), rs.Texto(u"descripcion"), rs.Texto(u"ncm")});
    return articulos;
}
