// Pictures of the first sheet of each list, and lists of ten thousand lines.

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QPainter>

#include "frame/paper/report.h"
#include "operations/browserlist.h"
#include "outputs/lists.h"
#include "tests/support/claves.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class HojasDeListas : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    /// Saves the first sheet as screenshots/1x/hoja-<nombre>.png of the build folder.
    static void foto(const papel::Reporte &reporte, const QString &nombre) {
        const QString carpeta = CarpetaDeConstruccion() + u"/screenshots/1x"_s;
        ASSERT_TRUE(QDir().mkpath(carpeta));
        const papel::Paginado paginado = papel::Paginar(reporte, papel::MedidaDe(reporte.orientacion));
        constexpr double puntosPorMilimetro = 5;
        QImage imagen((paginado.medida * puntosPorMilimetro).toSize(), QImage::Format_RGB32);
        imagen.fill(Qt::white);
        QPainter pintor(&imagen);
        papel::PintarHoja(pintor, imagen.rect(), reporte, paginado, 0);
        pintor.end();
        EXPECT_TRUE(imagen.save(carpeta + u"/hoja-"_s + nombre + u".png"_s));
    }
};
EN_AMBOS_STORES(HojasDeListas);

TEST_P(HojasDeListas, EveryListFitsItsSheet) {
    std::vector<listas::Lista> todas = listas::Listas();
    todas.push_back(ListaDeOperaciones());
    for (const listas::Lista &l : todas) {
        const QString clave = l.clave == listas::Clave::Catalogo ? u"HIDPLATA"_s : importacion;
        const papel::Tabla tabla = l.armar(*ctx, clave);
        const papel::Reporte reporte = l.hoja(tabla, u',');
        foto(reporte, l.nombre);
        // A sheet is 186 mm wide or 273 between its margins, and a monospaced letter six tenths of its size.
        const papel::Paginado paginado = papel::Paginar(reporte, papel::MedidaDe(reporte.orientacion));
        qsizetype ancho = 0;
        for (const papel::Renglon &r : reporte.renglones) ancho = std::max(ancho, r.texto.size());
        constexpr double milimetrosPorPunto = 25.4 / 72;
        EXPECT_LT(static_cast<double>(ancho) * paginado.letra * 0.6 * milimetrosPorPunto,
                  paginado.medida.width() - 2 * 8)
            << l.nombre.toStdString();
        EXPECT_GE(paginado.letra, 6) << l.nombre.toStdString() << ": small, and still read";
    }
    const FiltroDeInternos filtro;
    foto(papel::ReporteDe(
             TablaDeInternos(*ctx, LeerInternos(*ctx, filtro), filtro, AgrupacionesDeInternos()[2]), u','),
         u"operaciones-agrupadas"_s);
}

}  // namespace
