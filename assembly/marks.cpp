#include <array>

#include "assembly/phases.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QLatin1StringView, 7> regimenesConMarcas{"IC"_L1,  "LAPI"_L1, "DJAI"_L1, "ZFE"_L1,
                                                              "DIR"_L1, "ECA"_L1,  "IG"_L1};

bool llevaMarcas(const QString &idsubreg) {
    for (const QLatin1StringView prefijo : regimenesConMarcas)
        if (idsubreg.startsWith(prefijo)) return true;
    return false;
}

}  // namespace

void VerificarMarcasNcm(ContextoArmado &r) {
    if (!llevaMarcas(r.idsubreg)) return;
    bool lapi = false;
    bool estampillas = false;
    Recordset rs;
    r.consultar(
        u"select distinct ncm from item "
        "where interno = %1 and id <> 0"_s.arg(r.clave()),
        rs);
    QStringList posiciones;
    for (; !rs.Eof(); rs.MoveNext()) posiciones << rs.Texto(u"ncm");
    for (const MarcasNcm &marcas : LeerMarcasNcm(r.ctx, posiciones)) {
        lapi = lapi || marcas.lapi;
        estampillas = estampillas || marcas.estampillado;
    }
    if (lapi) r.ctx.dialogos.informar(u"Se han encontrado posiciones con LAPI"_s);
    if (estampillas) r.ctx.dialogos.informar(u"Se han encontrado posiciones con ESTAMPILLAS"_s);
}
