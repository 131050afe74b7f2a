#include "operations/browser.h"

#include <QDateTime>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/startup.h"
#include "header/codes.h"
#include "header/regime.h"
#include "operations/lifecycle.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using entidad::internos;

QString importe(const AppContext &ctx, const Recordset &rs, QStringView monto, QStringView divisa) {
    return numeros::Format(rs.Numero(monto), u"00.00", ctx.SeparadorDecimal) + " ("_L1 + rs.Texto(divisa) +
           ")"_L1;
}

QString detalleDe(AppContext &ctx, const Recordset &rs) {
    const QString aduana = rs.Texto(u"idaduana");
    const QDateTime alta = AFecha(rs.Fields(u"fechaalta").Value);
    return "Aduana: ("_L1 + aduana + ") "_L1 + getAduanaDescripcion(ctx, aduana) + " - Cond Venta: "_L1 +
           rs.Texto(u"idcondiciondeventa") + "\r\nFOB : "_L1 +
           importe(ctx, rs, u"fobdivisas", u"fobcoddivisas") + " - Flete : "_L1 +
           importe(ctx, rs, u"fletedivisas", u"fletecoddivisas") + " - Seguro : "_L1 +
           importe(ctx, rs, u"segurodivisas", u"segurocoddivisas") + "\r\nCreado : "_L1 +
           (alta.isValid() ? FechaLarga(alta) : rs.Texto(u"fechaalta"));
}

QString tipoDe(const QString &direccion) {
    if (direccion == "I"_L1) return u"Importacion"_s;
    return direccion == "E"_L1 ? u"Exportacion"_s : u"Otros"_s;
}

}  // namespace

QString SentenciaDeInternos(AppContext &ctx, const FiltroDeInternos &f) {
    QStringList condiciones;
    if (!f.txtCliente.isEmpty()) condiciones << " cuitcliente = "_L1 + EnComillas(f.txtCliente) + " "_L1;
    if (!f.txtDespachante.isEmpty())
        condiciones << " cuitdespaduana = "_L1 + EnComillas(f.txtDespachante) + " "_L1;
    if (f.chkFiltroFecha)
        condiciones << " ( FechaAlta between "_L1 +
                           ctx.DataManager.getDateFormatbyEntity(internos, f.desde.startOfDay()) +
                           " and "_L1 + ctx.DataManager.getDateFormatbyEntity(internos, f.hasta.endOfDay()) +
                           " )"_L1;
    if (!f.txtInterno.trimmed().isEmpty())
        condiciones << " interno like '"_L1 + f.txtInterno.trimmed() + "%' "_L1;
    return (ctx.opciones.OperacionesMostrarTODO ? "select * from caratula "_L1
                                                : "select top 50 * from caratula "_L1) +
           (condiciones.isEmpty() ? QString() : " where "_L1 + condiciones.join("and "_L1)) +
           (ctx.opciones.LISTADO != 0 ? " order by fechaalta desc,interno"_L1 : " order by interno"_L1);
}

std::vector<FilaDeInterno> LeerInternos(AppContext &ctx, const FiltroDeInternos &filtro) {
    const Reloj reloj(ctx.dialogos);
    std::vector<FilaDeInterno> filas;
    Recordset rs;
    for (Consultar(ctx, internos, SentenciaDeInternos(ctx, filtro), rs); !rs.Eof(); rs.MoveNext()) {
        const QString subregimen = RegimenEnMayusculas(rs.Texto(u"idsubreg"));
        filas.push_back({tipoDe(getTypeOPfromSubReg(ctx, subregimen)), rs.Texto(u"interno"), subregimen,
                         rs.Texto(u"factura3"), rs.Texto(u"factura7"), rs.Texto(u"factura2"),
                         detalleDe(ctx, rs)});
    }
    return filas;
}

std::vector<FilaDeInterno> BuscarInternos(AppContext &ctx, const FiltroDeInternos &filtro) {
    std::vector<FilaDeInterno> filas = LeerInternos(ctx, filtro);
    ctx.ajustes.Guardar(u"ZENDRA"_s, u"APLICACION"_s, u"INTERNO_NRO"_s, filtro.txtInterno);
    return filas;
}

std::pair<QDate, QDate> PeriodoInicial(const QDate &hoy) {
    const QDate primero(hoy.year(), hoy.month(), 1);
    return {primero, primero.addMonths(1).addDays(-1)};
}
