#include "header/FrmLstTrans.h"

#include <QAction>
#include <QHeaderView>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/iconos.h"
#include "frame/ui/ventana.h"
#include "header/FrmABMAgTrans.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeAgentes { CuitDeAgente, NombreDeAgente };

}  // namespace

FrmLstTrans::FrmLstTrans() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ArmarMenu();
    Conectar();
    CargarLst();
}

void FrmLstTrans::ArmarMenu() {
    ui.TbMenu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto boton = [this](Dibujo dibujo, const QString &texto, const QString &ayuda,
                              void (FrmLstTrans::*hacer)()) {
        QAction *accion = ui.TbMenu->addAction(IconoDe(dibujo), texto);
        accion->setToolTip(ayuda);
        QObject::connect(accion, &QAction::triggered, ventana.get(), [this, hacer] { (this->*hacer)(); });
    };
    boton(Dibujo::Crear, u"Agregar"_s, u"Agregar un agente (Insert)"_s, &FrmLstTrans::Agregar);
    boton(Dibujo::Formulario, u"Modificar"_s, u"Modificar el agente elegido (F6)"_s, &FrmLstTrans::Modificar);
    boton(Dibujo::Borrar, u"Eliminar"_s, u"Eliminar el agente elegido (Supr)"_s, &FrmLstTrans::Eliminar);
}

void FrmLstTrans::Conectar() {
    lista_.Preparar(
        ui.Lst, {u"Cuit"_s, u"Nombre"_s},
        {{ui.txtBuscar, NombreDeAgente}, {ui.txtBuscarPorCuit, CuitDeAgente}},
        {[this] { Tomar(); }, [this] { Modificar(); }, [this] { Agregar(); }, [this] { Eliminar(); }});
    ui.Lst->setColumnWidth(CuitDeAgente, ui.Lst->fontMetrics().averageCharWidth() * 18);
    ui.Lst->horizontalHeader()->setSectionResizeMode(NombreDeAgente, QHeaderView::Stretch);
}

void FrmLstTrans::CargarLst(const QString &cuit) {
    AppContext &ctx = Contexto();
    int actual = std::max(0, lista_.Actual());
    // What is shown stays where it cannot be read again.
    if (!Manejar(ctx, [&] { agentes_ = CargarAgentes(ctx); })) return;
    std::vector<QStringList> filas;
    for (const AgenteDeTransporte &a : agentes_) {
        if (a.cuit == cuit) actual = static_cast<int>(filas.size());
        filas.push_back({a.cuit, a.nombre});
    }
    lista_.Cargar(filas, actual);
}

void FrmLstTrans::Elegir() {
    AgenteElegido() = {};
    ui.txtBuscar->setFocus();
    ventana->exec();
}

void FrmLstTrans::Tomar() {
    AgenteElegido() = agentes_.at(static_cast<std::size_t>(lista_.Actual()));
    ventana->accept();
}

void FrmLstTrans::Agregar() {
    if (const auto agente = AgregarAgente({})) CargarLst(agente->cuit);
}

void FrmLstTrans::Modificar() {
    if (lista_.Actual() < 0) return;
    const AgenteDeTransporte elegido = agentes_.at(static_cast<std::size_t>(lista_.Actual()));
    const auto agente = Pantalla<FrmABMAgTrans>().Modificar(elegido);
    CerrarPantalla<FrmABMAgTrans>();
    CargarLst(agente ? agente->cuit : elegido.cuit);
}

void FrmLstTrans::Eliminar() {
    AppContext &ctx = Contexto();
    if (lista_.Actual() < 0) return;
    Manejar(ctx, [&] {
        EliminarAgente(ctx, agentes_.at(static_cast<std::size_t>(lista_.Actual())).cuit);
        CargarLst();
    });
}

bool ListarAgentes(QString &cuit, QString &nombre) {
    Pantalla<FrmLstTrans>().Elegir();
    CerrarPantalla<FrmLstTrans>();
    if (AgenteElegido().cuit.isEmpty()) return false;
    cuit = AgenteElegido().cuit;
    nombre = AgenteElegido().nombre;
    return true;
}
