// Pictures of the preview.

#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/FrmVistaPrevia.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDePapel : public EnPantalla {
 protected:
    static papel::Tabla lineas() {
        using papel::Clase;
        papel::Tabla t;
        t.titulo = u"Líneas de la operación por posición"_s;
        t.subtitulo = u"Operación IC-2026-0001  ·  HIDRAULICA DEL PLATA S.A."_s;
        t.nombre = u"lineas-IC-2026-0001"_s;
        t.orientacion = papel::Orientacion::Horizontal;
        t.columnas = {{u"Línea"_s, Clase::Numero, 5, u"0000"_s},
                      {u"Posición"_s, Clase::Texto, 16},
                      {u"Descripción"_s, Clase::Texto, 36},
                      {u"Un."_s, Clase::Texto, 3},
                      {u"Cantidad"_s, Clase::Numero, 12, u"00.00"_s, true},
                      {u"Unitario"_s, Clase::Numero, 12, u"00.00000"_s},
                      {u"FOB"_s, Clase::Numero, 14, u"00.00"_s, true}};
        for (int n = 0; n < 90; ++n)
            t.filas.push_back(
                {{n + 1.0, u"84%1.70.10.100L"_s.arg(13 + n / 9),
                  n % 4 == 0 ? u"Bomba centrífuga de acero inoxidable"_s : u"Válvula esférica, paso total"_s,
                  u"07"_s, 1.5 * n, 12.34567 + n, 1.5 * n * (12.34567 + n)}});
        papel::Totalizar(t, 1);
        return t;
    }
    static void pintar(const papel::Documento &documento,
                       const std::function<void(FrmVistaPrevia &)> &hacer) {
        conPantallaModal<FrmVistaPrevia>([&hacer](FrmVistaPrevia &p) {
            hacer(p);
            tecla(Qt::Key_Escape);
        });
        Pantalla<FrmVistaPrevia>().Mostrar(documento);
        CerrarPantalla<FrmVistaPrevia>();
    }
};

TEST_P(CapturasDePapel, ThePreview) {
    const papel::Tabla tabla = lineas();
    papel::Documento documento{papel::ReporteDe(tabla, u','), tabla};
    documento.reporte.pie = u"Estudio Ferreyra  ·  despachantes de aduana"_s;
    documento.reporte.ficha = {{u"Importador"_s, u"HIDRAULICA DEL PLATA S.A."_s},
                               {u"CUIT"_s, u"30-70812345-1"_s},
                               {u"Aduana"_s, u"001 BUENOS AIRES"_s},
                               {u"Subrégimen"_s, u"IC04"_s}};
    pintar(documento, [](FrmVistaPrevia &p) {
        foto(p.ventana.get(), u"vista-previa"_s);
        tecla(Qt::Key_B);
        escribir(u"bomba"_s);
        foto(p.ventana.get(), u"vista-previa-buscando"_s);
    });
    documento.reporte.orientacion = papel::Orientacion::Vertical;
    pintar(documento, [](FrmVistaPrevia &p) {
        tecla(Qt::Key_E);
        tecla(Qt::Key_B);
        escribir(u"tornillo"_s);
        foto(p.ventana.get(), u"vista-previa-entera"_s);
    });
}

INSTANTIATE_TEST_SUITE_P(Stores, CapturasDePapel, ::testing::Values("ACCESS"),
                         [](const auto &caso) { return std::string(caso.param); });

}  // namespace
