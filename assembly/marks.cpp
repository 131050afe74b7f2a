#include <algorithm>
#include <array>

#include "assembly/run.h"
#include "subitems/nomenclature.h"

void VerificarMarcasNcm(ContextoArmado &r) {
    MarcarCorriendo(r, PasoArmado::VerificandoMarcas);
    static constexpr std::array<const char *, 7> prefijos{"IC", "LAPI", "DJAI", "ZFE", "DIR", "ECA", "IG"};
    const bool mira = std::any_of(prefijos.begin(), prefijos.end(), [&r](const char *p) { return r.idsubreg.startsWith(QLatin1String(p)); });
    if (mira) {
        bool lapi = false;
        bool estampillas = false;
        Recordset rs;
        for (r.consultar(QLatin1String("select distinct ncm from item where interno = '") + r.interno + QLatin1String("' and id <> 0"), rs); !rs.Eof(); rs.MoveNext()) {
            const MarcasNcm marcas = LeerMarcasNcm(r.ctx, rs.Texto(u"ncm"));
            lapi = lapi || marcas.lapi;
            estampillas = estampillas || marcas.estampillado;
        }
        if (lapi) r.ctx.dialogos.informar(QStringLiteral("Se han encontrado posiciones con LAPI"));
        if (estampillas) r.ctx.dialogos.informar(QStringLiteral("Se han encontrado posiciones con ESTAMPILLAS"));
    }
    MarcarHecho(r, PasoArmado::VerificandoMarcas);
}
