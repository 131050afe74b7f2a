#include "header/ClListadoEx.h"

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"
#include "header/FrmListadoeX.h"
#include "header/tarifflists.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int listasDePaises = 6;

/// Both coordinates of the screen's corner, in the platform's twentieths of a point, and how many of those
/// make a pixel.
constexpr int lugarDeListas = 2000;
constexpr int twipsPorPixel = 15;

}  // namespace

void ClListadoEx::EjecutarLista(QString &resultado, const QString &paisOrigen,
                                const QString &paisProcedencia) const {
    if (TipoLista != listasDePaises) return;
    AppContext &ctx = Contexto();
    std::vector<FilaDeListado> listas;
    Manejar(ctx, [&] { listas = ListarListasDePaises(ctx, paisOrigen, paisProcedencia); });
    if (listas.empty()) return;
    constexpr int corrido = lugarDeListas / twipsPorPixel;
    const QString elegida = Pantalla<FrmListadoeX>().Elegir(u"LISTAS"_s, listas, QPoint(corrido, corrido));
    CerrarPantalla<FrmListadoeX>();
    if (!elegida.isEmpty()) resultado = elegida;
}
