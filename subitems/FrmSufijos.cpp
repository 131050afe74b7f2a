#include "subitems/FrmSufijos.h"

#include <QHeaderView>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"
#include "regulatory/lnapi.h"
#include "subitems/nomenclature.h"
#include "subitems/suffixes.h"

using namespace Qt::StringLiterals;

FrmSufijos::FrmSufijos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
}

void FrmSufijos::Form_Load() {
    const QStringList columnas{u"Sufijo"_s, u"Detalle"_s};
    catalogo_.Preparar(ui.Grid, columnas, {}, {});
    linea_.Preparar(ui.Grid2, columnas, {}, {});
    const int letra = ui.Grid->fontMetrics().averageCharWidth();
    ui.Grid->setColumnWidth(0, letra * 12);
    ui.Grid2->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    for (QTableWidget *grilla : {ui.Grid, ui.Grid2}) grilla->horizontalHeader()->setStretchLastSection(true);
}

void FrmSufijos::Cargar(const QString &posicion, const QString &sufijos) {
    AppContext &ctx = Contexto();
    const DatosDeSufijos datos = LeerDatosDeSufijos(ctx, posicion, sufijos);
    ui.LbPosicion->setText(datos.posicion);
    ui.StB->setText(datos.estado);
    std::vector<QStringList> catalogo;
    for (const FilaDeSufijo &s : datos.catalogo) catalogo.push_back({s.sufijo, s.detalle});
    catalogo_.Cargar(catalogo);
    std::vector<QStringList> linea;
    for (const SufijoDeLinea &s : datos.linea) linea.push_back({s.token, s.detalle});
    linea_.Cargar(linea, -1);
    ui.txtLNAPINcm->setText(LeerMarcasNcm(ctx, posicion).lapi
                                ? u"La posición lleva la marca de licencia"_s
                                : u"La posición no lleva la marca de licencia"_s);
    QString licencia = DetalleLnapi(ctx, posicion);
    ui.txtLNAPI->setPlainText(licencia.replace("\r\n"_L1, "\n"_L1));
    ui.Grid->setFocus();
}

void VerSufijos(const QString &posicion, const QString &sufijos) {
    auto &pantalla = Pantalla<FrmSufijos>();
    if (Manejar(Contexto(), [&] { pantalla.Cargar(posicion, sufijos); })) pantalla.ventana->exec();
    CerrarPantalla<FrmSufijos>();
}
