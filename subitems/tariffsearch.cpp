#include "subitems/tariffsearch.h"

#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

std::vector<FilaDeConsulta> consultar(AppContext &ctx, const QString &condicion, L separador) {
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    Consultar(ctx, u"NCM"_s,
              "select [001],[002],[003],[004],[010] "
              "from ncm "
              "where "_L1 +
                  condicion +
                  " "
                  "order by [001],[002],[003]"_L1,
              rs);
    std::vector<FilaDeConsulta> filas;
    filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    // By place: a common word answers thousands of rows, and names are looked up one by one.
    enum { Clave1, Clave2, Clave3, Superior, Propia };
    const auto texto = [&rs](int columna) { return EsNull(rs.Fields(columna).Value); };
    for (; !rs.Eof(); rs.MoveNext())
        filas.push_back({texto(Clave1) + QLatin1Char('.') + texto(Clave2) + texto(Clave3),
                         texto(Propia) + separador + texto(Superior)});
    return filas;
}

}  // namespace

std::vector<FilaDeConsulta> ConsultarPorPosicion(AppContext &ctx, const QString &texto) {
    if (texto.isEmpty()) {
        ctx.dialogos.advertir(u"Debe ingresar una posición"_s);
        return {};
    }
    QString buscado = texto;
    buscado.replace(QLatin1Char(','), QLatin1Char('.'));
    return consultar(ctx, "[001] like "_L1 + TextoEnComillas(buscado + u'%'), " - - "_L1);
}

std::vector<FilaDeConsulta> ConsultarPorPalabras(AppContext &ctx, const QString &texto) {
    constexpr int minimo = 3;
    if (texto.size() < minimo) {
        ctx.dialogos.advertir(u"Debe ingresar al menos 3 caracteres para buscar una posición"_s);
        return {};
    }
    const QString buscado = TextoEnComillas(u'%' + texto + u'%');
    return consultar(ctx, "[010] like "_L1 + buscado + " or [004] like "_L1 + buscado, " -- "_L1);
}
