#include "header/parties.h"

#include <cstdlib>

#include "frame/context.h"

namespace {

using L = QLatin1String;

constexpr qsizetype largoDeCuit = 11;

QString leerNombre(AppContext &ctx, const QString &sentencia) {
    Recordset rs;
    return Consultar(ctx, QStringLiteral("PERSONAL"), sentencia, rs) ? rs.Texto(u"nombre").trimmed()
                                                                     : QString();
}

}  // namespace

bool CUITValido(const QString &cuit) {
    if (cuit.size() != largoDeCuit) return false;
    int suma = 0;
    int peso = 2;
    for (qsizetype i = largoDeCuit - 2; i >= 0; --i) {
        const int digito = cuit[i].digitValue();
        if (digito < 0) return false;
        suma += digito * peso;
        peso = peso == 7 ? 2 : peso + 1;
    }
    const int resto = suma % 11;
    const int esperado = resto == 0 || resto == 1 ? resto : std::abs(11 - resto);
    return QString::number(esperado) == cuit.back();
}

bool BuscarDespachante(AppContext &ctx, const QString &cuit, QString &nombre) {
    nombre.clear();
    if (cuit.size() != largoDeCuit) {
        ctx.dialogos.advertir(QStringLiteral("Cuit Invalido"));
        return false;
    }
    Recordset rs;
    if (!Consultar(ctx, QStringLiteral("PERSONAL"),
                   L("select nombre from despadu where cuit = '") + cuit + L("'"), rs)) {
        ctx.dialogos.advertir(QStringLiteral("No se encontró el CUIT Ingresado"));
        return false;
    }
    nombre = rs.Texto(u"nombre").trimmed();
    return true;
}

QString BuscarNombre(AppContext &ctx, const QString &tabla, const QString &codigo) {
    if (tabla == L("clientes"))
        return leerNombre(ctx, L("select nombre from clientes where cuit = '") + codigo + L("'"));
    if (tabla == L("despadu"))
        return leerNombre(ctx, L("select nombre from despadu where cuit = '") + codigo + L("'"));
    if (tabla == L("vendedor"))
        return leerNombre(ctx, L("select nombre from vendedor where codigo = '") + codigo + L("'"));
    return {};
}
