#include "header/FrmClientes.h"

#include <QAction>
#include <QHeaderView>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/eventos.h"
#include "frame/ui/iconos.h"
#include "frame/ui/ventana.h"
#include "header/FrmCliente.h"

using namespace Qt::StringLiterals;

namespace {

enum ColumnaDeClientes { NombreDeCliente, CuitDeCliente, DomicilioDeCliente, CorreoDeCliente };

}  // namespace

FrmClientes::FrmClientes() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ArmarMenu();
    Conectar();
    CargarLst();
}

void FrmClientes::ArmarMenu() {
    ui.TbMenu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto boton = [this](Dibujo dibujo, const QString &texto, const QString &ayuda,
                              void (FrmClientes::*hacer)()) {
        QAction *accion = ui.TbMenu->addAction(IconoDe(dibujo), texto);
        accion->setToolTip(ayuda);
        QObject::connect(accion, &QAction::triggered, ventana.get(), [this, hacer] { (this->*hacer)(); });
    };
    boton(Dibujo::Crear, u"Agregar"_s, u"Agregar un cliente (Insert)"_s, &FrmClientes::Agregar);
    boton(Dibujo::Formulario, u"Modificar"_s, u"Modificar el cliente elegido (F6)"_s,
          &FrmClientes::Modificar);
    boton(Dibujo::Borrar, u"Eliminar"_s, u"Eliminar el cliente elegido (Supr)"_s, &FrmClientes::Eliminar);
}

void FrmClientes::Conectar() {
    lista_.Preparar(
        ui.Lst, {u"Nombre"_s, u"CUIT"_s, u"Domicilio"_s, u"Correo"_s},
        {{ui.txtBuscar, NombreDeCliente}, {ui.txtBuscarPorCuit, CuitDeCliente}},
        {[this] { Tomar(); }, [this] { Modificar(); }, [this] { Agregar(); }, [this] { Eliminar(); }});
    const int letra = ui.Lst->fontMetrics().averageCharWidth();
    ui.Lst->setColumnWidth(NombreDeCliente, letra * 38);
    ui.Lst->setColumnWidth(CuitDeCliente, letra * 20);
    ui.Lst->horizontalHeader()->setSectionResizeMode(DomicilioDeCliente, QHeaderView::Stretch);
    ui.Lst->setColumnWidth(CorreoDeCliente, letra * 44);
    EscucharTeclas(ventana.get(), [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

bool FrmClientes::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape) return false;
    if (eligiendo_)
        ventana->reject();
    else
        CerrarPantalla<FrmClientes>();
    return true;
}

void FrmClientes::CargarLst(const QString &cuit) {
    AppContext &ctx = Contexto();
    int actual = std::max(0, lista_.Actual());
    // What is shown stays where it cannot be read again.
    if (!Manejar(ctx, [&] { filas_ = ClientBook::Listar(ctx); })) return;
    std::vector<QStringList> celdas;
    celdas.reserve(filas_.size());
    for (const ClientBook::Fila &f : filas_) {
        if (f.cuit == cuit) actual = static_cast<int>(celdas.size());
        celdas.push_back({f.nombre, f.cuit, f.domicilio, f.email});
    }
    lista_.Cargar(celdas, actual);
}

void FrmClientes::Preparar(bool eligiendo) {
    eligiendo_ = eligiendo;
    ClientBook::Elegido() = {};
    ui.lbTeclas->setText(
        u"Escriba para buscar   ·   %1   ·   INSERT  agregar   ·   SUPR  eliminar (en la lista)"
        "   ·   ESC  salir"_s.arg(eligiendo ? u"ENTER  tomar   ·   F6  modificar"_s
                                            : u"ENTER o F6  modificar"_s));
    ui.txtBuscar->setFocus();
}

void FrmClientes::Mostrar() {
    Preparar(false);
    MostrarVentana(ventana.get());
    ui.txtBuscar->setFocus();
}

void FrmClientes::Elegir(const QString &cuit) {
    buscado_ = cuit;
    Preparar(true);
    ventana->exec();
}

void FrmClientes::Tomar() {
    if (!eligiendo_) {
        Modificar();
        return;
    }
    const ClientBook::Fila &f = filas_.at(static_cast<std::size_t>(lista_.Actual()));
    ClientBook::Elegido() = {f.cuit, f.nombre};
    ventana->accept();
}

void FrmClientes::Agregar() {
    const QString cuit = Pantalla<FrmCliente>().Agregar(buscado_);
    CerrarPantalla<FrmCliente>();
    if (!cuit.isEmpty()) CargarLst(cuit);
}

void FrmClientes::Modificar() {
    if (lista_.Actual() < 0) return;
    const QString cuit = filas_.at(static_cast<std::size_t>(lista_.Actual())).cuit;
    Manejar(Contexto(), [&] { Pantalla<FrmCliente>().Modificar(cuit); });
    CerrarPantalla<FrmCliente>();
    CargarLst(cuit);
}

void FrmClientes::Eliminar() {
    AppContext &ctx = Contexto();
    if (lista_.Actual() < 0) return;
    Manejar(ctx, [&] {
        ClientBook::Borrar(ctx, filas_.at(static_cast<std::size_t>(lista_.Actual())).cuit);
        // Also one that was gone already is to be seen no longer.
        CargarLst();
    });
}

bool SeleccionarCliente(QString &cuit, QString &nombre, const QString &buscado) {
    // A book that stands open to be kept gives way to the modal one.
    CerrarPantalla<FrmClientes>();
    Pantalla<FrmClientes>().Elegir(buscado);
    CerrarPantalla<FrmClientes>();
    if (ClientBook::Elegido().codigo.isEmpty()) return false;
    cuit = ClientBook::Elegido().codigo;
    nombre = ClientBook::Elegido().nombre;
    return true;
}
