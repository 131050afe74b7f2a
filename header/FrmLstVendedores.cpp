#include "header/FrmLstVendedores.h"

#include <QAction>
#include <QHeaderView>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/iconos.h"
#include "frame/ui/ventana.h"
#include "header/FrmNewVendedor.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeVendedores { NombreDeVendedor, CodigoDeVendedor, DomicilioDeVendedor, NivelDeVendedor };

}  // namespace

FrmLstVendedores::FrmLstVendedores() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ArmarMenu();
    Conectar();
    CargarLst();
}

void FrmLstVendedores::ArmarMenu() {
    ui.TbMenu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto boton = [this](Dibujo dibujo, const QString &texto, const QString &ayuda,
                              void (FrmLstVendedores::*hacer)()) {
        QAction *accion = ui.TbMenu->addAction(IconoDe(dibujo), texto);
        accion->setToolTip(ayuda);
        QObject::connect(accion, &QAction::triggered, ventana.get(), [this, hacer] { (this->*hacer)(); });
    };
    boton(Dibujo::Crear, u"Agregar"_s, u"Agregar un vendedor (Insert)"_s, &FrmLstVendedores::Agregar);
    boton(Dibujo::Formulario, u"Modificar"_s, u"Modificar el vendedor elegido (F6)"_s,
          &FrmLstVendedores::Modificar);
    boton(Dibujo::Borrar, u"Eliminar"_s, u"Eliminar el vendedor elegido (Supr)"_s,
          &FrmLstVendedores::Eliminar);
}

void FrmLstVendedores::Conectar() {
    lista_.Preparar(
        ui.Lst, {u"Nombre"_s, u"Codigo"_s, u"Domicilio"_s, u"nivel"_s},
        {{ui.txtBuscar, NombreDeVendedor}, {ui.txtBuscarPorCodigo, CodigoDeVendedor}},
        {[this] { LstC(); }, [this] { Modificar(); }, [this] { Agregar(); }, [this] { Eliminar(); }});
    const int letra = ui.Lst->fontMetrics().averageCharWidth();
    ui.Lst->setColumnWidth(NombreDeVendedor, letra * 38);
    ui.Lst->setColumnWidth(CodigoDeVendedor, letra * 14);
    ui.Lst->horizontalHeader()->setSectionResizeMode(DomicilioDeVendedor, QHeaderView::Stretch);
    ui.Lst->setColumnWidth(NivelDeVendedor, letra * 16);
}

void FrmLstVendedores::CargarLst(const QString &codigo) {
    AppContext &ctx = Contexto();
    const int habia = lista_.Actual();
    // What is shown stays where it cannot be read again.
    if (!Manejar(ctx, [&] { vendedores_ = CargarVendedores(ctx, OrdenDeVendedoresElegido(ctx)); })) return;
    std::vector<QStringList> filas;
    int actual = std::max(0, habia);
    for (const Vendedor &v : vendedores_) {
        if (v.codigo == codigo) actual = static_cast<int>(filas.size());
        filas.push_back({v.nombre, v.codigo, v.domicilio, v.nivel});
    }
    lista_.Cargar(filas, actual);
}

void FrmLstVendedores::Elegir() {
    VendedorElegido() = {};
    ui.txtBuscar->setFocus();
    ventana->exec();
}

void FrmLstVendedores::LstC() {
    const Vendedor &v = vendedores_.at(static_cast<std::size_t>(lista_.Actual()));
    VendedorElegido() = {v.codigo, v.nombre};
    ventana->accept();
}

void FrmLstVendedores::Agregar() {
    const QString codigo = Pantalla<FrmNewVendedor>().Agregar();
    CerrarPantalla<FrmNewVendedor>();
    if (!codigo.isEmpty()) CargarLst(codigo);
}

void FrmLstVendedores::Modificar() {
    if (lista_.Actual() < 0) return;
    const QString codigo = vendedores_.at(static_cast<std::size_t>(lista_.Actual())).codigo;
    Manejar(Contexto(), [&] { Pantalla<FrmNewVendedor>().Modificar(codigo); });
    CerrarPantalla<FrmNewVendedor>();
    CargarLst(codigo);
}

void FrmLstVendedores::Eliminar() {
    AppContext &ctx = Contexto();
    if (lista_.Actual() < 0) return;
    Manejar(ctx, [&] {
        EliminarVendedor(ctx, vendedores_.at(static_cast<std::size_t>(lista_.Actual())).codigo);
        CargarLst();
    });
}

bool ListarVendedores(QString &codigo, QString &nombre) {
    const bool elegido = ListarVendedores([] { Pantalla<FrmLstVendedores>().Elegir(); }, codigo, nombre);
    CerrarPantalla<FrmLstVendedores>();
    return elegido;
}
