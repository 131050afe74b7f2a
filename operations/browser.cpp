#include "operations/browser.h"

#include <QDateTime>

#include "frame/numbers.h"
#include "frame/startup.h"
#include "header/codes.h"
#include "operations/lifecycle.h"

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");

QString importe(const Recordset &rs, QStringView monto, QStringView divisa) {
    return numeros::Format(rs.Numero(monto), u"00.00") + L(" (") + rs.Texto(divisa) + L(")");
}

QString detalleDe(AppContext &ctx, const Recordset &rs) {
    const QString aduana = rs.Texto(u"idaduana");
    const QDateTime alta = AFecha(rs.Fields(u"fechaalta").Value);
    return L("Aduana: (") + aduana + L(") ") + getAduanaDescripcion(ctx, aduana) + L(" - Cond Venta: ") +
           rs.Texto(u"idcondiciondeventa") + L("\r\nFOB : ") + importe(rs, u"fobdivisas", u"fobcoddivisas") +
           L(" - Flete : ") + importe(rs, u"fletedivisas", u"fletecoddivisas") + L(" - Seguro : ") +
           importe(rs, u"segurodivisas", u"segurocoddivisas") + L("\r\nCreado : ") +
           (alta.isValid() ? FechaLarga(alta) : rs.Texto(u"fechaalta"));
}

QString tipoDe(const QString &direccion) {
    if (direccion == L("I")) return QStringLiteral("Importacion");
    return direccion == L("E") ? QStringLiteral("Exportacion") : QStringLiteral("Otros");
}

}  // namespace

QString SentenciaDeInternos(AppContext &ctx, const FiltroDeInternos &f) {
    QStringList condiciones;
    if (!f.txtCliente.isEmpty()) condiciones << L(" cuitcliente = '") + f.txtCliente + L("' ");
    if (!f.txtDespachante.isEmpty()) condiciones << L(" cuitdespaduana = '") + f.txtDespachante + L("' ");
    if (f.chkFiltroFecha)
        condiciones << L(" ( FechaAlta between ") +
                           ctx.DataManager.getDateFormatbyEntity(internos, f.desde.startOfDay()) +
                           L(" and ") + ctx.DataManager.getDateFormatbyEntity(internos, f.hasta.endOfDay()) +
                           L(" )");
    if (!f.txtInterno.trimmed().isEmpty())
        condiciones << L(" interno like '") + f.txtInterno.trimmed() + L("%' ");
    return (ctx.opciones.OperacionesMostrarTODO ? L("select * from caratula ")
                                                : L("select top 50 * from caratula ")) +
           (condiciones.isEmpty() ? QString() : L(" where ") + condiciones.join(L("and "))) +
           (ctx.opciones.LISTADO != 0 ? L(" order by fechaalta desc,interno") : L(" order by interno"));
}

std::vector<FilaDeInterno> LeerInternos(AppContext &ctx, const FiltroDeInternos &filtro) {
    const Reloj reloj(ctx.dialogos);
    std::vector<FilaDeInterno> filas;
    Recordset rs;
    for (Consultar(ctx, internos, SentenciaDeInternos(ctx, filtro), rs); !rs.Eof(); rs.MoveNext()) {
        const QString subregimen = rs.Texto(u"idsubreg");
        filas.push_back({tipoDe(getTypeOPfromSubReg(ctx, subregimen)), rs.Texto(u"interno"), subregimen,
                         rs.Texto(u"factura3"), rs.Texto(u"factura7"), rs.Texto(u"factura2"),
                         detalleDe(ctx, rs)});
    }
    return filas;
}

std::vector<FilaDeInterno> BuscarInternos(AppContext &ctx, const FiltroDeInternos &filtro) {
    std::vector<FilaDeInterno> filas = LeerInternos(ctx, filtro);
    ctx.ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("APLICACION"), QStringLiteral("INTERNO_NRO"),
                        filtro.txtInterno);
    return filas;
}

std::pair<QDate, QDate> PeriodoInicial(const QDate &hoy) {
    const QDate primero(hoy.year(), hoy.month(), 1);
    return {primero, primero.addMonths(1).addDays(-1)};
}
