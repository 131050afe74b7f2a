#include "header/FrmListadoDespachante.h"

#include <QHeaderView>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeDespachantes { CuitDeDespachante, NombreDeDespachante };

}  // namespace

FrmListadoDespachante::FrmListadoDespachante() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
    Form_Load();
}

void FrmListadoDespachante::Form_Load() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { despachantes_ = CargarDespachantes(ctx); });
    std::vector<QStringList> filas;
    for (const Despachante &d : despachantes_) filas.push_back({d.cuit, d.nombre});
    lista_.Cargar(filas);
}

void FrmListadoDespachante::Conectar() {
    lista_.Preparar(ui.Lst, {u"Cuit"_s, u"Nombre"_s},
                    {{ui.txtBuscar, NombreDeDespachante}, {ui.txtBuscarPorCuit, CuitDeDespachante}},
                    {[this] { Tomar(); }, {}, {}, {}});
    ui.Lst->setColumnWidth(CuitDeDespachante, ui.Lst->fontMetrics().averageCharWidth() * 18);
    ui.Lst->horizontalHeader()->setSectionResizeMode(NombreDeDespachante, QHeaderView::Stretch);
}

void FrmListadoDespachante::Elegir() {
    DespachanteElegido() = {};
    ui.txtBuscar->setFocus();
    ventana->exec();
}

void FrmListadoDespachante::Tomar() {
    const Despachante &d = despachantes_.at(static_cast<std::size_t>(lista_.Actual()));
    DespachanteElegido() = {d.cuit, d.nombre};
    ventana->accept();
}

bool ListarDespachantes(QString &cuit, QString &nombre) {
    Pantalla<FrmListadoDespachante>().Elegir();
    CerrarPantalla<FrmListadoDespachante>();
    if (DespachanteElegido().codigo.isEmpty()) return false;
    cuit = DespachanteElegido().codigo;
    nombre = DespachanteElegido().nombre;
    return true;
}
