#include "outputs/handedover.h"

#include <QDir>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/startup.h"
#include "outputs/declaration.h"
#include "outputs/declarationxml.h"
#include "outputs/transfer.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// Above it all of them are read: a longer list of keys costs more than the rows it leaves out.
constexpr qsizetype clavesEnLista = 200;

QString deEstas(const QStringList &operaciones) {
    if (operaciones.isEmpty() || operaciones.size() > clavesEnLista) return {};
    QStringList claves;
    for (const QString &interno : operaciones) claves << EnComillas(interno);
    return " where interno in ("_L1 + claves.join(u',') + ")"_L1;
}

}  // namespace

void AnotarEntrega(AppContext &ctx, const QString &interno, const DocumentoEscrito &escrito) {
    Ejecutar(ctx, entidad::internos,
             Escritura(ctx)
                 .codigo("interno", interno)
                 .crudo("fecha", ctx.DataManager.getDateFormatbyEntity(entidad::internos,
                                                                       QDateTime::currentDateTime()))
                 .texto("maquina", ctx.PcName)
                 .texto("archivo", escrito.archivo)
                 .codigo("suma", escrito.suma)
                 .insertar(u"transferidas"_s));
}

std::map<QString, Entrega> LeerEntregas(AppContext &ctx, const QStringList &internos) {
    std::map<QString, Entrega> entregas;
    Recordset rs;
    for (Consultar(ctx, entidad::internos,
                   "select interno,fecha,maquina,archivo,suma from transferidas"_L1 + deEstas(internos), rs);
         !rs.Eof(); rs.MoveNext()) {
        Entrega &una = entregas[rs.Texto(u"interno").toCaseFolded()];
        una = {AFecha(rs.Fields(u"fecha").Value), rs.Texto(u"maquina"), rs.Texto(u"archivo"),
               rs.Texto(u"suma"), una.veces + 1};
    }
    return entregas;
}

std::optional<Entrega> EntregaDe(const std::map<QString, Entrega> &entregas, const QString &interno) {
    const auto una = entregas.find(interno.toCaseFolded());
    return una == entregas.end() ? std::nullopt : std::optional(una->second);
}

bool CambioDespues(AppContext &ctx, const QString &interno, const Entrega &entrega) {
    Recordset rs;
    if (!Consultar(ctx, entidad::internos,
                   "select interno from caratula where interno = "_L1 + EnComillas(interno), rs))
        return false;
    return SumaDeDocumento(DocumentoDe(LeerDeclaracion(ctx, interno))) != entrega.suma;
}

bool SeComparaEnUnMomento(AppContext &ctx, const QString &interno) {
    constexpr double lineasDeUnMomento = 1500;
    Recordset rs;
    Consultar(ctx, entidad::internos,
              "select count(*) as n from groupsubitems where interno = "_L1 + EnComillas(interno), rs);
    return rs.Numero(u"n") <= lineasDeUnMomento;
}

QString TextoDeEntrega(const std::optional<Entrega> &entrega, bool cambiada) {
    if (!entrega) return {};
    return cambiada ? u"transferida, cambiada después"_s : u"transferida"_s;
}

QString DetalleDeEntrega(const std::optional<Entrega> &entrega) {
    if (!entrega) return {};
    QString texto = u"Transferida"_s;
    if (entrega->fecha.isValid()) texto += entrega->fecha.toString(u" el dd/MM/yyyy HH:mm"_s);
    if (!entrega->maquina.isEmpty()) texto += u" por la PC "_s + entrega->maquina;
    if (!entrega->archivo.isEmpty()) texto += u" en "_s + QDir::toNativeSeparators(entrega->archivo);
    return texto;
}
