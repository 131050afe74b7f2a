#include "frame/sqltext.h"

#include <cmath>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

QString separadorDeInternos(const AppContext &ctx) {
    static const QString entidad = u"INTERNOS"_s;
    return ctx.DataManager.getDecimalSeparatorbyEntity(entidad);
}

}  // namespace

QString SqlNumber(const AppContext &ctx, double valor) {
    const QString separador = separadorDeInternos(ctx);
    const QString texto = numeros::aTexto(valor);
    return std::isfinite(valor) && separador.size() == 1 && separador.front() == QLatin1Char('.')
               ? texto
               : AStoreNumero(texto, separador);
}

QString SqlNumber(const AppContext &ctx, const QString &valor) {
    return AStoreNumero(valor, separadorDeInternos(ctx));
}

QString SqlRound(const AppContext &ctx, const QString &entidad, const QString &expresion,
                 QStringView mascara) {
    const qsizetype punto = mascara.indexOf(QLatin1Char('.'));
    const int decimales = punto < 0 ? 0 : static_cast<int>(mascara.size() - punto - 1);
    QString texto = ctx.DataManager.getNumberFormatbyEntity(decimales, u"999,999"_s, entidad);
    return texto.replace("999.999"_L1, expresion);
}
