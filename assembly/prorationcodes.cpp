#include "assembly/prorationcodes.h"

#include "frame/context.h"
#include "frame/numbers.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");

}  // namespace

std::vector<Prorrateo> CargarProrrateos(AppContext &ctx, const QString &interno) {
    const Reloj reloj(ctx.dialogos);
    std::vector<Prorrateo> codigos;
    try {
        Recordset rs;
        Consultar(ctx, internos, L("select * from prorrateo where interno = '") + interno + L("'"), rs);
        for (; !rs.Eof(); rs.MoveNext())
            codigos.push_back({rs.Texto(u"codigo"), rs.Texto(u"descripcion"),
                               numeros::Format(rs.Numero(u"valor"), u"00.00")});
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
    }
    return codigos;
}

EstadoProrrateos EstadoDeProrrateos(const std::vector<Prorrateo> &codigos) {
    return codigos.empty() ? EstadoProrrateos::Carga : EstadoProrrateos::Lista;
}

QString BarraDeProrrateos(EstadoProrrateos estado) {
    return estado == EstadoProrrateos::Lista
               ? QStringLiteral("[INSERT] Agregar - [DELETE] Eliminar - [ESC] Cerrar")
               : QStringLiteral("[F11] Agregar - [ESC] Cancelar");
}

SalidaDeProrrateos EscapeEnProrrateos(EstadoProrrateos estado, bool hayCodigos) {
    return estado == EstadoProrrateos::Carga && hayCodigos ? SalidaDeProrrateos::VuelveALista
                                                           : SalidaDeProrrateos::Cierra;
}

Veredicto AgregarProrrateo(AppContext &ctx, const QString &interno, const QString &TxtCodigo,
                           const QString &TxtDescripcion, const QString &TxtValor) {
    const QString codigo = TxtCodigo.trimmed().toUpper();
    if (codigo.isEmpty()) {
        ctx.dialogos.advertir(QStringLiteral("Debe ingresar un valor en el campo CODIGO"));
        return Veredicto::mal(QStringLiteral("TxtCodigo"));
    }
    if (!numeros::esNumerico(TxtValor)) {
        ctx.dialogos.advertir(QStringLiteral("Debe ingresar un dato Númerico en el campo VALOR"));
        return Veredicto::mal(QStringLiteral("TxtValor"));
    }
    if (numeros::aNumero(TxtValor) == 0) {
        ctx.dialogos.advertir(QStringLiteral("El dato en el campo VALOR debe ser MAYOR A 0 (cero)"));
        return Veredicto::mal(QStringLiteral("TxtValor"));
    }
    try {
        Recordset rs;
        Consultar(ctx, internos,
                  L("select count(1) as cont from prorrateo where codigo = '") + codigo +
                      L("' and interno = '") + interno + L("'"),
                  rs);
        if (!rs.Eof() && rs.Numero(u"Cont") > 0) {
            ctx.dialogos.advertir(QStringLiteral("El codigo ya Existe"));
            return Veredicto::mal(QStringLiteral("TxtCodigo"));
        }
        Ejecutar(ctx, internos,
                 L("Insert into prorrateo (interno,codigo,descripcion,valor) values ('") + interno +
                     L("','") + codigo + L("','") + DoblarComillas(TxtDescripcion.toUpper()) + L("',") +
                     SqlNumber(TxtValor) + L(")"));
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
        return Veredicto::mal();
    }
    return Veredicto::bien(QStringLiteral("TxtCodigo"));
}

bool EliminarProrrateo(AppContext &ctx, const QString &interno, const QString &codigo) {
    try {
        Ejecutar(
            ctx, internos,
            L("delete from prorrateo where interno = '") + interno + L("' and codigo = '") + codigo + L("'"));
        return true;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
        return false;
    }
}

double TotalizarProrrateos(AppContext &ctx, const QString &interno) {
    Recordset rs;
    ctx.TotalProrrateado =
        Consultar(ctx, internos,
                  L("select sum(valor) as tot from prorrateo where interno = '") + interno + L("'"), rs)
            ? rs.Numero(u"tot")
            : 0;
    return ctx.TotalProrrateado;
}
