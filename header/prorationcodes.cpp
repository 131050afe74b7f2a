#include "header/prorationcodes.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/failures.h"
#include "frame/sqltext.h"
#include "header/changes.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::internos;

}  // namespace

std::vector<Prorrateo> CargarProrrateos(AppContext &ctx, const QString &interno) {
    const Reloj reloj(ctx.dialogos);
    std::vector<Prorrateo> codigos;
    try {
        Recordset rs;
        Consultar(ctx, internos, "select * from prorrateo where interno = "_L1 + EnComillas(interno), rs);
        for (; !rs.Eof(); rs.MoveNext())
            codigos.push_back({rs.Texto(u"codigo"), rs.Texto(u"descripcion"),
                               numeros::Format(rs.Numero(u"valor"), u"00.00", ctx.SeparadorDecimal)});
    } catch (const Falla &e) {
        ContarFalla(ctx, e, e.descripcion);
    }
    return codigos;
}

EstadoProrrateos EstadoDeProrrateos(const std::vector<Prorrateo> &codigos) {
    return codigos.empty() ? EstadoProrrateos::Carga : EstadoProrrateos::Lista;
}

QString BarraDeProrrateos(EstadoProrrateos estado) {
    return estado == EstadoProrrateos::Lista ? u"[INSERT] Agregar - [DELETE] Eliminar - [ESC] Cerrar"_s
                                             : u"[F11] Agregar - [ESC] Cancelar"_s;
}

SalidaDeProrrateos EscapeEnProrrateos(EstadoProrrateos estado, bool hayCodigos) {
    return estado == EstadoProrrateos::Carga && hayCodigos ? SalidaDeProrrateos::VuelveALista
                                                           : SalidaDeProrrateos::Cierra;
}

Veredicto AgregarProrrateo(AppContext &ctx, const QString &interno, const QString &TxtCodigo,
                           const QString &TxtDescripcion, const QString &TxtValor) {
    const QString codigo = TxtCodigo.trimmed().toUpper();
    if (codigo.isEmpty()) {
        ctx.dialogos.advertir(u"Debe ingresar un valor en el campo CODIGO"_s);
        return Veredicto::mal(u"TxtCodigo"_s);
    }
    if (!numeros::esNumerico(TxtValor)) {
        ctx.dialogos.advertir(u"Debe ingresar un dato Númerico en el campo VALOR"_s);
        return Veredicto::mal(u"TxtValor"_s);
    }
    if (numeros::aNumero(TxtValor) == 0) {
        ctx.dialogos.advertir(u"El dato en el campo VALOR debe ser MAYOR A 0 (cero)"_s);
        return Veredicto::mal(u"TxtValor"_s);
    }
    try {
        Recordset rs;
        Consultar(ctx, internos,
                  "select count(1) as cont from prorrateo where codigo = "_L1 + EnComillas(codigo) +
                      " and interno = "_L1 + EnComillas(interno),
                  rs);
        if (!rs.Eof() && rs.Numero(u"Cont") > 0) {
            ctx.dialogos.advertir(u"El codigo ya Existe"_s);
            return Veredicto::mal(u"TxtCodigo"_s);
        }
        // Ahead of it: should its answer be lost, a second key is refused and marks nothing.
        AnotarCambio(ctx, interno);
        Ejecutar(ctx, internos,
                 "Insert into prorrateo (interno,codigo,descripcion,valor) values ("_L1 +
                     EnComillas(interno) + u',' + EnComillas(codigo) + u',' +
                     TextoEnComillas(TxtDescripcion.toUpper()) + u',' + SqlNumber(ctx, TxtValor) + u')');
    } catch (const Falla &e) {
        ContarFalla(ctx, e, e.descripcion);
        return Veredicto::mal();
    }
    return Veredicto::bien(u"TxtCodigo"_s);
}

bool EliminarProrrateo(AppContext &ctx, const QString &interno, const QString &codigo) {
    try {
        AnotarCambio(ctx, interno);
        Ejecutar(ctx, internos,
                 "delete from prorrateo where interno = "_L1 + EnComillas(interno) + " and codigo = "_L1 +
                     EnComillas(codigo));
        return true;
    } catch (const Falla &e) {
        ContarFalla(ctx, e, e.descripcion);
        return false;
    }
}

double TotalizarProrrateos(AppContext &ctx, const QString &interno) {
    Recordset rs;
    Consultar(ctx, internos,
              "select sum(valor) as tot from prorrateo where interno = "_L1 + EnComillas(interno), rs);
    ctx.TotalProrrateado = rs.Eof() ? 0 : rs.Numero(u"tot");
    return ctx.TotalProrrateado;
}
