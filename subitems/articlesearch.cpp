#include "subitems/articlesearch.h"

#include <QDateTime>
#include <QStringBuilder>
#include <algorithm>

#include "frame/base/dates.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "subitems/ArticleStore.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::catalogos;
using Forma = ConsultaDeArticulos::Forma;

/// How figures of articles are shown.
QString cifra(const AppContext &ctx, const QVariant &valor, QStringView mascara) {
    return valor.isNull() ? QString() : numeros::Format(EsNumero(valor), mascara, ctx.SeparadorDecimal);
}

QString precio(const AppContext &ctx, const QVariant &valor) {
    return cifra(ctx, valor, u"00.00000");
}

/// The day of a moment as the stores give it: a catalogue holds tens of thousands, too many to be guessed.
QString dia(const QVariant &valor) {
    if (valor.userType() == QMetaType::QDateTime) return valor.toDateTime().date().toString(u"dd/MM/yyyy");
    const QString momento = EsNull(valor);
    const QStringView texto(momento);
    if (texto.size() >= 10 && texto[4] == u'-' && texto[7] == u'-')
        return texto.mid(8, 2) % u'/' % texto.mid(5, 2) % u'/' % texto.left(4);
    const auto fecha = fechas::Leer(momento);
    return fecha ? fecha->toString(u"dd/MM/yyyy") : QString();
}

QString celda(const AppContext &ctx, const QVariant &valor, Forma forma) {
    switch (forma) {
        case Forma::Texto:
            break;
        case Forma::Precio:
            return precio(ctx, valor);
        case Forma::Total:
            return cifra(ctx, valor, u"00.00");
        case Forma::Dia:
            return dia(valor);
    }
    return EsNull(valor);
}

/// The rows of a statement as the list shows them, by the article's code.
std::vector<QStringList> filasDe(AppContext &ctx, const ConsultaDeArticulos &consulta,
                                 const QString &sentencia) {
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    Consultar(ctx, catalogos, sentencia, rs);
    // By place: a catalogue holds tens of thousands, and names are looked up one by one.
    std::vector<int> lugares;
    for (const auto &c : consulta.columnas)
        for (int i = 0; i < rs.columnas(); ++i)
            if (rs.nombreDeColumna(i).compare(c.columna, Qt::CaseInsensitive) == 0) lugares.push_back(i);
    std::vector<QStringList> filas;
    filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) {
        QStringList celdas;
        celdas.reserve(static_cast<qsizetype>(lugares.size()));
        for (std::size_t i = 0; i < lugares.size(); ++i)
            celdas << celda(ctx, rs.Fields(lugares[i]).Value, consulta.columnas[i].forma);
        filas.push_back(std::move(celdas));
    }
    // The statements have no order, and people look codes up by theirs.
    std::stable_sort(filas.begin(), filas.end(), [](const QStringList &a, const QStringList &b) {
        return a.first().compare(b.first(), Qt::CaseInsensitive) < 0;
    });
    return filas;
}

}  // namespace

const std::vector<CampoDeArticulos> &CamposDeArticulos() {
    static const std::vector<CampoDeArticulos> campos{{u"MOSTRAR TODO"_s, {}},
                                                      {u"ARTICULO"_s, u"idarticulo"_s},
                                                      {u"DESCRIPCIÓN"_s, u"descripcion"_s},
                                                      {u"POSICIÓN"_s, u"ncm"_s}};
    return campos;
}

QStringList ConsultaDeArticulos::titulos() const {
    QStringList todos;
    for (const Columna &c : columnas) todos << c.titulo;
    return todos;
}

std::vector<int> ConsultaDeArticulos::numericas() const {
    std::vector<int> cuales;
    for (std::size_t i = 0; i < columnas.size(); ++i)
        if (columnas[i].esNumero()) cuales.push_back(static_cast<int>(i));
    return cuales;
}

int ConsultaDeArticulos::donde(const QString &columna) const {
    const auto c = std::find_if(columnas.begin(), columnas.end(),
                                [&columna](const Columna &una) { return una.columna == columna; });
    return c == columnas.end() ? -1 : static_cast<int>(c - columnas.begin());
}

const ConsultaDeArticulos &ArticulosConTotal() {
    // Its sum is no column of the store: the whole catalogue is asked for it too.
    static const QString sentencia =
        u"select idarticulo,descripcion,ncm,Cantidad*Preciounitario as total "
        "from catarticulos "
        "where idcatalogo = "_s;
    static const ConsultaDeArticulos consulta{sentencia,
                                              sentencia,
                                              {{u"IdArticulo"_s, u"idarticulo"_s},
                                               {u"Descripcion"_s, u"descripcion"_s},
                                               {u"NCM"_s, u"ncm"_s},
                                               {u"Total"_s, u"total"_s, Forma::Total}}};
    return consulta;
}

const ConsultaDeArticulos &ArticulosConFecha() {
    static const ConsultaDeArticulos consulta{
        u"select idarticulo,ncm,descripcion,cantidad,preciounitario,usuario, fecha "
        "from catarticulos "
        "where idcatalogo = "_s,
        u"select * "
        "from catarticulos "
        "where idcatalogo = "_s,
        {{u"IdArticulo"_s, u"idarticulo"_s},
         {u"Descripcion"_s, u"descripcion"_s},
         {u"NCM"_s, u"ncm"_s},
         {u"preciounitario"_s, u"preciounitario"_s, Forma::Precio},
         {u"Usuario"_s, u"usuario"_s},
         {u"Fecha"_s, u"fecha"_s, Forma::Dia}}};
    return consulta;
}

QString SentenciaDeArticulos(const ConsultaDeArticulos &consulta, const QString &idcatalogo,
                             const CampoDeArticulos &campo, const QString &valor) {
    const QString catalogo = TextoEnComillas(idcatalogo);
    if (campo.columna.isEmpty()) return consulta.todo + catalogo;
    return consulta.sentencia + catalogo + " and "_L1 + campo.columna + " like "_L1 +
           TextoEnComillas(u'%' + valor + u'%');
}

std::vector<QStringList> BuscarArticulos(AppContext &ctx, const ConsultaDeArticulos &consulta,
                                         const QString &idcatalogo, const CampoDeArticulos &campo,
                                         const QString &valor) {
    return filasDe(ctx, consulta, SentenciaDeArticulos(consulta, idcatalogo, campo, valor));
}

std::vector<QStringList> ArticulosDelCatalogo(AppContext &ctx, const ConsultaDeArticulos &consulta,
                                              const QString &idcatalogo) {
    return filasDe(ctx, consulta, consulta.sentencia + TextoEnComillas(idcatalogo));
}

QString CuantosArticulos(int enVista, int todos) {
    if (enVista != todos) return u"%1 de %2 artículos"_s.arg(enVista).arg(todos);
    return todos == 1 ? u"1 artículo"_s : u"%1 artículos"_s.arg(todos);
}

QString TituloDeBusqueda(BusquedaEnCatalogos por) {
    return por == BusquedaEnCatalogos::Articulo ? u"Buscar en TODOS los catálogos por código de artículo"_s
                                                : u"Buscar en TODOS los catálogos por posición arancelaria"_s;
}

std::optional<QString> PreguntarBusqueda(AppContext &ctx, BusquedaEnCatalogos por) {
    constexpr int minimo = 5;
    constexpr int largoDePosicion = 15;
    const bool posicion = por == BusquedaEnCatalogos::Posicion;
    Entrada entrada;
    entrada.titulo = TituloDeBusqueda(por);
    entrada.texto = posicion ? u"Ingrese la posición arancelaria (completa o incompleta) a buscar:"_s
                             : u"Ingrese el código de artículo (completo) a buscar:"_s;
    if (posicion) entrada.maximo = largoDePosicion;
    const QString valor = ctx.dialogos.pedirTexto(entrada).value_or(QString()).trimmed();
    if (valor.isEmpty()) return {};
    if (posicion && valor.size() < minimo) {
        ctx.dialogos.advertir(u"Ingrese al menos 5 caracteres"_s);
        return {};
    }
    return valor;
}

std::vector<ArticuloEncontrado> BuscarEnCatalogos(AppContext &ctx, BusquedaEnCatalogos por,
                                                  const QString &valor) {
    const Reloj reloj(ctx.dialogos);
    QString buscado = valor;
    if (por == BusquedaEnCatalogos::Posicion)
        buscado = "ncm like "_L1 + TextoEnComillas(buscado.replace(u',', u'.') + u'%');
    else
        buscado = "idarticulo = "_L1 + TextoEnComillas(buscado);
    Recordset rs;
    Consultar(ctx, catalogos,
              "select idcatalogo,idarticulo,descripcion,ncm,preciounitario "
              "from catarticulos "
              "where "_L1 +
                  buscado +
                  " "
                  "order by idcatalogo,idarticulo"_L1,
              rs);
    enum { Catalogo, Articulo, Descripcion, Posicion, Precio };
    const auto texto = [&rs](int columna) { return EsNull(rs.Fields(columna).Value); };
    std::vector<ArticuloEncontrado> filas;
    filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        filas.push_back({{texto(Catalogo), texto(Articulo)},
                         texto(Descripcion),
                         texto(Posicion),
                         precio(ctx, rs.Fields(Precio).Value)});
    if (filas.empty())
        ctx.dialogos.informar(
            por == BusquedaEnCatalogos::Articulo
                ? u"Ningún catálogo tiene el artículo %1, revise el código completo."_s.arg(valor)
                : u"Ningún catálogo tiene artículos en la posición %1, revise la posición."_s.arg(valor),
            TituloDeBusqueda(por));
    return filas;
}

bool EliminarArticuloDeLista(AppContext &ctx, const ArticuloElegido &articulo) {
    if (!ctx.dialogos.preguntar(
            {"Confima eliminar el articulo "_L1 + articulo.idarticulo, {}, Icono::Pregunta, false}))
        return false;
    ArticleStore::Borrar(ctx, articulo.idcatalogo, articulo.idarticulo);
    return true;
}
