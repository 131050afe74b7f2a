#include "regulatory/onccalists.h"

#include "header/codes.h"

const std::array<oncca::CampoConLista, oncca::cuantosCampos> &oncca::CamposConLista() {
    static constexpr std::array<CampoConLista, cuantosCampos> campos{{
        {"txtAcuerdo", "ONCCAAcuerdo", "cmdAcuerdo", "lbAcuerdo", "ONCCA_ACUERDO"},
        {"txtCategoria", "ONCCACategoria", "cmdCategoria", "lbCategoria", "ONCCA_CATEGORIA"},
        {"txtCorte", "ONCCACortes", "cmdCorte", "lbCorte", "ONCCA_CORTES"},
        {"txtElaborador", "ONCCAElaborador", "cmdListaElaborador", "lbElaborador", "ONCCA_ELABORADOR"},
        {"txtEspecie", "ONCCAEspecie", "cmdExpecie", "lbEspecie", "ONCCA_ESPECIE"},
        {"txtFaneador", "ONCCAFaneador", "cmdListaFaneador", "lbFaneador", "ONCCA_FANEADOR"},
        {"txtEOC", "ONCCAMeccoorgbio", "cmdEOB", "lbEOC", "ONCCA_MECOORGBIO"},
        {"txtRes3106", "ONCCAres3106", "cmdRes3106", "lbRes3106", "ONCCA_RES3106"},
        {"txtSisProd", "ONCCAsispro", "cmdSisProd", "lbSisProd", "ONCCA_SISPRO"},
        {"txtMatadero", "ONCCAMatadero", "cmdMatadero", "lbMatadero", "ONCCA_FANEADOR"},
    }};
    return campos;
}

QString oncca::Describir(AppContext &ctx, const QString &clave, const QString &codigo) {
    QString aux;
    constexpr int sinAviso = 1;
    return BuscarDescripcion(ctx, clave, codigo, aux, sinAviso);
}
