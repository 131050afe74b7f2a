#include "subitems/FrmDetalleNomenclador.h"

#include <QHeaderView>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/ventana.h"
#include "regulatory/letters.h"

using namespace Qt::StringLiterals;

namespace {

/// The sheet's units in a point of the screen.
constexpr int unidadesPorPunto = 15;

void resaltar(QTableWidget *grilla, int fila) {
    for (int columna = 0; columna < grilla->columnCount(); ++columna)
        grilla->item(fila, columna)->setBackground(estilo::ColorDePlataforma(colorResaltado));
}

/// As high as its rows, so that they are all seen.
void ajustarAlto(QTableWidget *grilla) {
    grilla->setMinimumHeight(grilla->rowCount() * grilla->verticalHeader()->defaultSectionSize() +
                             2 * grilla->frameWidth() + 4);
}

}  // namespace

FrmDetalleNomenclador::FrmDetalleNomenclador() : ventana(HacerDialogo()), secciones_{} {
    ui.setupUi(ventana.get());
    secciones_ = {ui.GrdDetalles, ui.GrdGravamenes, ui.GrdFuentes, ui.GrdPosee};
    Form_Load();
}

void FrmDetalleNomenclador::Form_Load() {
    const auto bajas = [](QTableWidget *grilla) {
        grilla->verticalHeader()->setDefaultSectionSize(qRound(grilla->fontMetrics().height() * 1.4));
    };
    for (QTableWidget *grilla : secciones_) {
        estilo::PrepararGrilla(grilla, {});
        grilla->setColumnCount(2);
        grilla->setSelectionMode(QAbstractItemView::NoSelection);
        grilla->setAlternatingRowColors(false);
        grilla->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        grilla->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
        grilla->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
        bajas(grilla);
    }
    estilo::PrepararGrilla(ui.GrdSufijos, {u"SUFIJO"_s, u"DETALLE"_s});
    ui.GrdSufijos->setAlternatingRowColors(false);
    bajas(ui.GrdSufijos);
    QHeaderView *titulos = ui.GrdSufijos->horizontalHeader();
    titulos->setStretchLastSection(true);
    ui.GrdSufijos->setColumnWidth(0, std::max(anchoDeSufijo / unidadesPorPunto, titulos->sectionSizeHint(0)));
    ui.GrdSufijos->setColumnWidth(1, anchoDeDetalle / unidadesPorPunto);
}

void FrmDetalleNomenclador::Cargar(const HojaDelNomenclador &hoja) {
    QString encabezado = hoja.encabezado;
    ui.LbEncabezado->setText(encabezado.replace("\r\n"_L1, "\n"_L1));
    ui.LbLetra->setText("Letra: "_L1 + hoja.letra +
                        (hoja.letra == letraNoPosee ? QString() : " - "_L1 + hoja.descripcionLetra));
    CargarSufijos(hoja.sufijos);
    for (std::size_t n = 0; n < std::min(secciones_.size(), hoja.secciones.size()); ++n)
        CargarSeccion(secciones_.at(n), hoja.secciones[n], secciones_.at(n) == ui.GrdGravamenes);
    ajustarAlto(ui.GrdDetalles);
    ajustarAlto(ui.GrdGravamenes);
    ui.GrdDetalles->setFocus();
}

void FrmDetalleNomenclador::CargarSufijos(const std::vector<SufijoDeHoja> &sufijos) {
    ui.GrdSufijos->setRowCount(static_cast<int>(sufijos.size()));
    int fila = 0;
    for (const SufijoDeHoja &s : sufijos) {
        estilo::PonerCelda(ui.GrdSufijos, fila, 0, s.sufijo);
        estilo::PonerCelda(ui.GrdSufijos, fila, 1, s.detalle);
        if (s.resaltado) resaltar(ui.GrdSufijos, fila);
        ++fila;
    }
}

void FrmDetalleNomenclador::CargarSeccion(QTableWidget *grilla, const SeccionDeHoja &seccion, bool cifras) {
    const int lineas = static_cast<int>(seccion.lineas.size());
    grilla->setRowCount(lineas + 1);
    for (int fila = 0; fila < lineas; ++fila) {
        const LineaDeHoja &linea = seccion.lineas[static_cast<std::size_t>(fila)];
        estilo::PonerCelda(grilla, fila, 0, linea.etiqueta);
        estilo::PonerCelda(grilla, fila, 1, linea.valor, cifras);
        grilla->item(fila, 1)->setToolTip(linea.valor);
    }
    // The section closes with a row in the colour of the highlighted ones.
    for (int columna = 0; columna < grilla->columnCount(); ++columna)
        estilo::PonerCelda(grilla, lineas, columna, {});
    resaltar(grilla, lineas);
}

void VerDetalleNomenclador(const QString &posicion) {
    AppContext &ctx = Contexto();
    std::optional<HojaDelNomenclador> hoja;
    Manejar(ctx, [&] { hoja = DetalleNomenclador(ctx, posicion); });
    if (!hoja) return;
    auto &pantalla = Pantalla<FrmDetalleNomenclador>();
    pantalla.Cargar(*hoja);
    pantalla.ventana->exec();
    CerrarPantalla<FrmDetalleNomenclador>();
}
