#include "header/transportagents.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/parties.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::personal;

bool leerAgente(AppContext &ctx, const QString &cuit, Recordset &rs) {
    return Consultar(ctx, personal, "select nombre from transporte where cuit = "_L1 + EnComillas(cuit), rs);
}

bool rechazar(const AppContext &ctx, const QString &texto) {
    ctx.dialogos.advertir(texto);
    return false;
}

}  // namespace

std::vector<AgenteDeTransporte> CargarAgentes(AppContext &ctx) {
    std::vector<AgenteDeTransporte> agentes;
    Recordset rs;
    for (Consultar(ctx, personal, u"select * from transporte order by nombre"_s, rs); !rs.Eof();
         rs.MoveNext())
        agentes.push_back({rs.Texto(u"cuit"), rs.Texto(u"nombre")});
    return agentes;
}

BusquedaDeAgente BuscarAgente(AppContext &ctx, const QString &cuit, QString &nombre) {
    nombre.clear();
    if (cuit.isEmpty()) return BusquedaDeAgente::Vacio;
    if (!CUITValido(cuit)) {
        ctx.dialogos.advertir(u"CUIT Incorrecto, ingreselo nuevamente"_s);
        return BusquedaDeAgente::CuitInvalido;
    }
    Recordset rs;
    if (!leerAgente(ctx, cuit, rs)) return BusquedaDeAgente::NoEncontrado;
    nombre = rs.Texto(u"nombre");
    return nombre.trimmed().isEmpty() ? BusquedaDeAgente::NoEncontrado : BusquedaDeAgente::Encontrado;
}

Veredicto GuardarAgente(AppContext &ctx, const AgenteDeTransporte &agente,
                        const std::optional<QString> &cuitAnterior) {
    // The number names the row, and the packages look it up by its check digit.
    if (!CUITValido(agente.cuit)) {
        rechazar(ctx, u"CUIT Incorrecto, ingreselo nuevamente"_s);
        return Veredicto::mal(u"TxtCuit"_s);
    }
    if (agente.nombre.trimmed().isEmpty()) {
        rechazar(ctx, u"Falta el nombre del agente de transporte, ingréselo para guardar."_s);
        return Veredicto::mal(u"TxtNombre"_s);
    }
    Recordset rs;
    const bool otroNumero = !cuitAnterior || *cuitAnterior != agente.cuit;
    if (otroNumero && leerAgente(ctx, agente.cuit, rs)) {
        rechazar(ctx, u"El CUIT ingresado ya existe en el sistema"_s);
        return Veredicto::mal(u"TxtCuit"_s);
    }
    if (cuitAnterior)
        Ejecutar(ctx, personal,
                 "update transporte set cuit = "_L1 + EnComillas(agente.cuit) + ", nombre = "_L1 +
                     TextoEnComillas(agente.nombre) + " where cuit = "_L1 + EnComillas(*cuitAnterior));
    else
        Ejecutar(ctx, personal,
                 "insert into transporte(cuit,nombre) values ("_L1 + EnComillas(agente.cuit) + ","_L1 +
                     TextoEnComillas(agente.nombre) + ")"_L1);
    return Veredicto::bien();
}

bool EliminarAgente(AppContext &ctx, const QString &cuit) {
    if (!ctx.dialogos.preguntar(
            {u"Confirma eliminar el Agente de Tranporte seleccionado"_s, {}, Icono::Pregunta, false}))
        return false;
    if (Ejecutar(ctx, personal, "delete from transporte where cuit = "_L1 + EnComillas(cuit)) == 0)
        return rechazar(ctx, u"0 cero registros eliminados"_s);
    return true;
}

AgenteDeTransporte &AgenteElegido() {
    static AgenteDeTransporte elegido;
    return elegido;
}
