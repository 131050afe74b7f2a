#include <array>

#include "assembly/run.h"
#include "assembly/sql_text.h"
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
    Recordset posiciones;
    r.consultar(
        "select distinct ncm from item where interno = "_L1 + EnComillas(r.interno) + " and id <> 0"_L1,
        posiciones);
    for (; !posiciones.Eof(); posiciones.MoveNext()) {
        const MarcasNcm marcas = LeerMarcasNcm(r.ctx, posiciones.Texto(u"ncm"));
        lapi = lapi || marcas.lapi;
        estampillas = estampillas || marcas.estampillado;
    }
    if (lapi) r.ctx.dialogos.informar(u"Se han encontrado posiciones con LAPI"_s);
    if (estampillas) r.ctx.dialogos.informar(u"Se han encontrado posiciones con ESTAMPILLAS"_s);
}
