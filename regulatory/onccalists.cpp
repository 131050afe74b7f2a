#include "regulatory/onccalists.h"

#include "frame/context.h"

using namespace Qt::StringLiterals;

const oncca::Enlace *oncca::enlace = nullptr;

const std::vector<oncca::CampoConLista> &oncca::CamposConLista() {
    static const std::vector<CampoConLista> campos{
        {"txtAcuerdo", "cmdAcuerdo", "lbAcuerdo", Lista::Acuerdo},
        {"txtCategoria", "cmdCategoria", "lbCategoria", Lista::Categoria},
        {"txtCorte", "cmdCorte", "lbCorte", Lista::Cortes},
        {"txtElaborador", "cmdListaElaborador", "lbElaborador", Lista::Elaborador},
        {"txtEspecie", "cmdExpecie", "lbEspecie", Lista::Especie},
        {"txtFaneador", "cmdListaFaneador", "lbFaneador", Lista::Faneador},
        {"txtEOC", "cmdEOB", "lbEOC", Lista::Mecoorgbio},
        {"txtRes3106", "cmdRes3106", "lbRes3106", Lista::Res3106},
        {"txtSisProd", "cmdSisProd", "lbSisProd", Lista::SisPro},
        {"txtMatadero", "cmdMatadero", "lbMatadero", Lista::Faneador},
    };
    return campos;
}

QString oncca::Elegir(const AppContext &ctx, Lista lista) {
    if (enlace != nullptr) return enlace->Listado(lista).trimmed();
    ctx.dialogos.informar(
        u"Esta lista es de la biblioteca oCodeListings, que no está instalada: escriba el código a mano."_s);
    return {};
}

QString oncca::Describir(Lista lista, const QString &codigo) {
    return enlace == nullptr || codigo.isEmpty() ? QString() : enlace->Descripcion(lista, codigo);
}
