#include "assembly/kilomeasure.h"

#include "frame/base/numbers.h"
#include "frame/entities.h"
#include "frame/sqltext.h"

double Centavos(double kilos) {
    return numeros::redondear(kilos, 2);
}

double SinRastro(double suma) {
    constexpr int decimalesSeguros = 8;
    return numeros::redondear(suma, decimalesSeguros);
}

QString EnCentavos(const ContextoArmado &r, const QString &expresion) {
    return SqlRound(r.ctx, entidad::internos, expresion, u"00.00");
}

QString ParaLeer(const ContextoArmado &r, double valor) {
    QString texto = numeros::aTexto(valor);
    return ReemplazarSeparadorDecimal(texto, r.ctx.SeparadorDecimal);
}

void MarcarBarra(const ContextoArmado &r, const QString &control, int porciento) {
    r.ctx.dialogos.avance({Avance::Tipo::Barra, 0, control, porciento, 100, {}});
    r.ctx.dialogos.atenderEventos();
}

Medida MedidaDe(const Recordset &rs) {
    const bool estadistica = rs.Texto(u"estadistica") == unidadKilo;
    const bool especifica = rs.Texto(u"deresp") == unidadKilo;
    if (estadistica) return especifica ? Medida::Ambas : Medida::Estadistica;
    return especifica ? Medida::Especifica : Medida::Ninguna;
}
