#include "subitems/linefilters.h"

#include <algorithm>

#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

// A line and the position of the nomenclature that it names, in one statement: the stores find the table of
// the other entity by its bare name. As they are worded, 14 shows the lines whose position carries the LAPI
// mark or is not known, 15 those whose position is known and carries none.
constexpr char sinPosicionSinLapi[] =
    "where NOT EXISTS ("
    "select  (ncm.[001] + '.' + ncm.[002] + ncm.[003]) "
    "from ncm "
    "where ncm.[059] = '' and a.ncm = (ncm.[001] + '.' + ncm.[002] + ncm.[003])) "
    "and a.interno = ";
constexpr char conPosicionSinLapi[] =
    "where EXISTS ("
    "select  (ncm.[001] + '.' + ncm.[002] + ncm.[003]) "
    "from ncm "
    "where ncm.[059] = '' and a.ncm = (ncm.[001] + '.' + ncm.[002] + ncm.[003])) "
    "and a.interno = ";
constexpr char fueraDelNomenclador[] =
    "where NOT EXISTS ("
    "select  1 "
    "From NCM "
    "where left(a.ncm,10) = ncm.[001] and  substring (a.ncm,12,3) = ncm.[002] and right(a.ncm,1) = ncm.[003]) "
    "and a.interno = ";

}  // namespace

const std::vector<FiltroDeLineas> &FiltrosDeLineas() {
    static const std::vector<FiltroDeLineas> todos{
        {.numero = 1, .nombre = "con-kilos", .rotulo = "Con &kilos netos", .detras = " and (kgneto>0) "},
        {.numero = 2, .nombre = "sin-kilos", .rotulo = "Sin ki&los netos", .detras = " and (kgneto=0) "},
        {.numero = 3,
         .nombre = "con-pais",
         .rotulo = "Con país de &origen",
         .detras = " and not (idpais = '' or idpais is null) "},
        {.numero = 4,
         .nombre = "sin-pais",
         .rotulo = "Sin país de ori&gen",
         .detras = " and (idpais = '' or idpais is null) "},
        {.numero = 5,
         .nombre = "con-estado",
         .rotulo = "Con &estado de la mercadería",
         .detras = " and not (estadomerc = '' or estadomerc is null) "},
        {.numero = 6,
         .nombre = "sin-estado",
         .rotulo = "Sin estado de la &mercadería",
         .detras = " and (estadomerc = '' or estadomerc is null) "},
        {.numero = 7,
         .nombre = "posicion",
         .rotulo = "Por &posición arancelaria...",
         .pregunta = "Ingrese la posición arancelaria (completa o incompleta) a buscar:",
         .titulo = "Filtro por Posición ...",
         .esCodigo = true,
         .detras = " and ncm like ",
         .comodinDetras = "%",
         .trasElValor = " "},
        {.numero = 8,
         .nombre = "posicion-incompleta",
         .rotulo = "Posición que no tiene &15 caracteres",
         .detras = " and len(ncm)<>15 "},
        {.numero = 9,
         .nombre = "sin-sufijos",
         .rotulo = "&Sin sufijos",
         .detras = " and (sufijos='' or sufijos is null)"},
        {.numero = 10,
         .nombre = "sin-estadistica",
         .rotulo = "Sin &cantidad estadística",
         .detras = " and valorrelacionestadistica = 0"},
        {.numero = 11,
         .nombre = "sufijos-vacios",
         .rotulo = "Sufijos con paréntesis &vacíos",
         .detras = " and charindex('()',sufijos)>0 "},
        {.numero = 12,
         .nombre = "pais",
         .rotulo = "Por país de orige&n...",
         .pregunta = "Ingrese el codigo Maria del Pais de Origen",
         .titulo = "Filtro por País de Origen...",
         .esCodigo = true,
         .detras = " and idpais = ",
         .trasElValor = " "},
        {.numero = 13,
         .nombre = "descripcion",
         .rotulo = "Por &descripción del artículo...",
         .pregunta = "Ingrese el texto a buscar en descripción de articulos",
         .titulo = "Filtro por Descripción de artículos...",
         .detras = " and descripcion like ",
         .comodinDelante = "%",
         .comodinDetras = "%",
         .trasElValor = " "},
        {.numero = 14,
         .nombre = "con-lapi",
         .rotulo = "Posición con LAP&I o desconocida",
         .antes = sinPosicionSinLapi,
         .detras = ""},
        {.numero = 15,
         .nombre = "sin-lapi",
         .rotulo = "Posición sin L&API",
         .antes = conPosicionSinLapi,
         .detras = ""},
        {.numero = 16,
         .nombre = "fuera-del-nomenclador",
         .rotulo = "Posición que no está en el nomenclado&r",
         .antes = fueraDelNomenclador,
         .detras = ""},
        {.numero = 17,
         .nombre = "sufijos",
         .rotulo = "Por te&xto de los sufijos...",
         .pregunta = "Ingrese el texto a buscar en los sufijos",
         .titulo = "Filtro por texto de sufijos...",
         .detras = " and charindex(",
         .trasElValor = ",sufijos)>0 "},
    };
    return todos;
}

const FiltroDeLineas *FiltroDeNumero(int numero) {
    const auto &todos = FiltrosDeLineas();
    const auto f = std::find_if(todos.begin(), todos.end(),
                                [numero](const FiltroDeLineas &x) { return x.numero == numero; });
    return f == todos.end() ? nullptr : &*f;
}

const FiltroDeLineas *FiltroDeNombre(const QString &nombre) {
    const auto &todos = FiltrosDeLineas();
    const auto f = std::find_if(todos.begin(), todos.end(), [&nombre](const FiltroDeLineas &x) {
        return nombre.compare(L(x.nombre), Qt::CaseInsensitive) == 0 || nombre == QString::number(x.numero);
    });
    return f == todos.end() ? nullptr : &*f;
}

FiltroActivo FiltroCon(const FiltroDeLineas &filtro, const QString &valor) {
    if (!filtro.pideValor()) return {filtro.numero, {}};
    QString limpio = valor;
    limpio.remove(u'\'');
    if (filtro.esCodigo) limpio = limpio.trimmed();
    if (limpio.trimmed().isEmpty()) return {};
    return {filtro.numero, limpio};
}

FiltroActivo PedirFiltro(AppContext &ctx, const FiltroDeLineas &filtro, const FiltroActivo &anterior) {
    if (!filtro.pideValor()) return FiltroCon(filtro, {});
    Entrada entrada;
    entrada.titulo = QString::fromUtf8(filtro.titulo);
    entrada.texto = QString::fromUtf8(filtro.pregunta);
    if (anterior.numero == filtro.numero) entrada.inicial = anterior.valor;
    return FiltroCon(filtro, ctx.dialogos.pedirTexto(entrada).value_or(QString()));
}

CondicionDeLineas CondicionDe(const FiltroActivo &filtro) {
    const FiltroDeLineas *f = FiltroDeNumero(filtro.numero);
    if (f == nullptr) return {};
    if (!f->pideValor()) return {L(f->antes), L(f->detras)};
    const QString valor = TextoEnComillas(L(f->comodinDelante) + filtro.valor + L(f->comodinDetras));
    return {L(f->antes), L(f->detras) + valor + L(f->trasElValor)};
}

QString TextoDeFiltro(const FiltroActivo &filtro) {
    const FiltroDeLineas *f = FiltroDeNumero(filtro.numero);
    if (f == nullptr) return {};
    QString texto = QString::fromUtf8(f->rotulo).remove(u'&').remove(u"..."_s);
    if (f->pideValor()) texto += u": "_s + filtro.valor;
    return texto;
}
