#include "operations/browser.h"

#include <QDateTime>
#include <map>

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

QString detalleDe(const AppContext &ctx, const Recordset &rs, const QDateTime &alta,
                  const QString &nombreDeAduana) {
    return "Aduana: ("_L1 + rs.Texto(u"idaduana") + ") "_L1 + nombreDeAduana + " - Cond Venta: "_L1 +
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

/// A new operation has no mark until its first change.
QString estadoDe(const QString &marca) {
    if (marca == "S"_L1) return u"A armar"_s;
    return marca == "N"_L1 ? u"Armada"_s : u"Nueva"_s;
}

void ponerEntregas(AppContext &ctx, std::vector<FilaDeInterno> &filas) {
    if (filas.empty()) return;
    QStringList claves;
    for (const FilaDeInterno &fila : filas) claves << fila.Interno;
    const std::map<QString, Entrega> entregas = LeerEntregas(ctx, claves);
    for (FilaDeInterno &fila : filas) fila.entrega = EntregaDe(entregas, fila.Interno);
}

/// What a code means, asked of the store once a code and not once a row.
class Sabidos {
 public:
    Sabidos(AppContext &ctx, QString (*preguntar)(AppContext &, const QString &))
        : ctx_(ctx), preguntar_(preguntar) {}
    const QString &de(const QString &codigo) {
        const auto sabido = sabidos_.find(codigo);
        return sabido != sabidos_.end() ? sabido->second
                                        : sabidos_.emplace(codigo, preguntar_(ctx_, codigo)).first->second;
    }

 private:
    AppContext &ctx_;
    QString (*preguntar_)(AppContext &, const QString &);
    std::map<QString, QString> sabidos_;
};

/// What the rows' codes are asked of SYSTABLAS, each once; leaves `rs` on its first row.
QStringList lecturasDeCodigos(Recordset &rs) {
    QStringList sentencias;
    for (; !rs.Eof(); rs.MoveNext()) {
        sentencias << SentenciaDeDireccion(RegimenEnMayusculas(rs.Texto(u"idsubreg")));
        if (const QString aduana = rs.Texto(u"idaduana"); !aduana.isEmpty())
            sentencias << SentenciaDeDescripcion(u"ADUANA"_s, aduana);
    }
    sentencias.removeDuplicates();
    rs.MoveFirst();
    return sentencias;
}

}  // namespace

const std::vector<AgrupacionDeInternos> &AgrupacionesDeInternos() {
    static const std::vector<AgrupacionDeInternos> todas{
        {},
        {u"Importacion / Exportacion"_s, &FilaDeInterno::tipo},
        {u"Despachante"_s, &FilaDeInterno::Despachante},
        {u"Cliente"_s, &FilaDeInterno::Cliente},
        {u"Vendedor"_s, &FilaDeInterno::Vendedor},
    };
    return todas;
}

QString GrupoDe(const FilaDeInterno &fila, const AgrupacionDeInternos &por) {
    const QString &texto = fila.*por.campo;
    return texto.isEmpty() ? u"(sin dato)"_s : texto;
}

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
        condiciones << " interno like "_L1 + TextoEnComillas(f.txtInterno.trimmed() + u'%') + u' ';
    if (f.transferencias == Transferencias::Pendientes)
        condiciones << u" interno not in (select interno from transferidas) "_s;
    if (f.transferencias == Transferencias::Transferidos)
        condiciones << u" interno in (select interno from transferidas) "_s;
    return (f.todas || ctx.opciones.OperacionesMostrarTODO ? "select * from caratula "_L1
                                                           : "select top 50 * from caratula "_L1) +
           (condiciones.isEmpty() ? QString() : " where "_L1 + condiciones.join("and "_L1)) +
           (ctx.opciones.LISTADO != 0 ? " order by fechaalta desc,interno"_L1 : " order by interno"_L1);
}

std::vector<FilaDeInterno> LeerInternos(AppContext &ctx, const FiltroDeInternos &filtro) {
    const Reloj reloj(ctx.dialogos);
    std::vector<FilaDeInterno> filas;
    Sabidos direcciones(ctx, getTypeOPfromSubReg);
    Sabidos aduanas(ctx, getAduanaDescripcion);
    Recordset rs;
    Consultar(ctx, internos, SentenciaDeInternos(ctx, filtro), rs);
    LecturaAdelantada codigos(ctx.conexion(entidad::systablas), {lecturasDeCodigos(rs)});
    codigos.Vuelta();
    filas.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString subregimen = RegimenEnMayusculas(rs.Texto(u"idsubreg"));
        const QDateTime alta = AFecha(rs.Fields(u"fechaalta").Value);
        filas.push_back({tipoDe(direcciones.de(subregimen)), rs.Texto(u"interno"), subregimen,
                         rs.Texto(u"factura3"), rs.Texto(u"factura7"), rs.Texto(u"factura2"),
                         detalleDe(ctx, rs, alta, aduanas.de(rs.Texto(u"idaduana"))), alta.date(),
                         rs.Numero(u"fobdivisas"), rs.Texto(u"fobcoddivisas"),
                         estadoDe(rs.Texto(u"factura8"))});
    }
    ponerEntregas(ctx, filas);
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
