#include "operations/FrmFormularios.h"

#include "forms/FrmCertificados.h"
#include "forms/FrmHojaValoracion.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/lifecycle.h"
#include "operations/pickoperation.h"

using namespace Qt::StringLiterals;

namespace {

void pedirYAbrir(const QString &titulo, void (*abrir)(const QString &interno)) {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        const QString interno = PedirOperacion(ctx, titulo);
        if (interno.isEmpty()) return;
        if (PantallaAbierta<FrmDetalleInterno>() &&
            Pantalla<FrmDetalleInterno>().Interno().compare(interno, Qt::CaseInsensitive) == 0) {
            abrir(interno);
            Pantalla<FrmDetalleInterno>().VerDatos();
            return;
        }
        const Apertura apertura = AbrirSinPantalla(ctx, interno);
        if (!apertura.abierta) return;
        abrir(interno);
        GuardarYLiberar(ctx, interno, apertura.banderas, std::nullopt);
    });
}

}  // namespace

void PedirHojaValoracion() {
    pedirYAbrir(u"Hoja de Valoración"_s, AbrirHojaValoracion);
}

void PedirCertificados() {
    pedirYAbrir(u"Certificados de Origen"_s, AbrirCertificados);
}
