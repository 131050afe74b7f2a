#include "header/FrmNewVendedor.h"

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmNewVendedor::FrmNewVendedor() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmNewVendedor::Form_Load() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        for (const PaisDeLista &pais : CargarPais(ctx)) ui.cboPais->addItem(pais.vista, pais.id);
    });
    ui.cboPais->setCurrentIndex(-1);
}

void FrmNewVendedor::Conectar() {
    for (QWidget *campo : {static_cast<QWidget *>(ui.TxtCodigo), static_cast<QWidget *>(ui.TxtNombre),
                           static_cast<QWidget *>(ui.TxtDomicilio), static_cast<QWidget *>(ui.cboPais)})
        ClCntrl::Vincular(campo);
    QObject::connect(ui.Command1, &QPushButton::clicked, ventana.get(), [this] { Command1_Click(); });
}

void FrmNewVendedor::Cargar(const Vendedor &vendedor, bool editando) {
    vendedor_ = vendedor;
    editando_ = editando;
    ventana->setWindowTitle(editando ? u"Modificar vendedor"_s : u"Agregar vendedor"_s);
    ui.TxtCodigo->setText(vendedor.codigo);
    // The code names the row that is changed.
    ui.TxtCodigo->setEnabled(!editando);
    ui.TxtNombre->setText(vendedor.nombre);
    ui.TxtDomicilio->setText(vendedor.domicilio);
    ui.cboPais->setCurrentIndex(
        ui.cboPais->findData(vendedor.paisdelexportador, Qt::UserRole, Qt::MatchFixedString));
    const bool conCodigo = editando || !vendedor.codigo.isEmpty();
    (conCodigo ? ui.TxtNombre : ui.TxtCodigo)->setFocus();
}

QString FrmNewVendedor::Mostrar() {
    return ventana->exec() == QDialog::Accepted ? vendedor_.codigo : QString();
}

QString FrmNewVendedor::Agregar(const QString &codigo) {
    Cargar({codigo, {}, {}, {}, {}}, false);
    return Mostrar();
}

QString FrmNewVendedor::Modificar(const QString &codigo) {
    AppContext &ctx = Contexto();
    const auto vendedor = CargarVendedor(ctx, codigo);
    if (!vendedor) {
        ctx.dialogos.advertir(u"El vendedor %1 ya no está en la base, otro puesto lo eliminó."_s.arg(codigo));
        return {};
    }
    Cargar(*vendedor, true);
    return Mostrar();
}

void FrmNewVendedor::Command1_Click() {
    AppContext &ctx = Contexto();
    Vendedor v = vendedor_;
    v.codigo = ui.TxtCodigo->text();
    v.nombre = ui.TxtNombre->text();
    v.domicilio = ui.TxtDomicilio->text();
    // A country that the table does not hold stays as it was stored.
    if (ui.cboPais->currentIndex() >= 0) v.paisdelexportador = ui.cboPais->currentData().toString();
    Manejar(ctx, [&] {
        switch (GuardarVendedor(ctx, v, editando_)) {
            case GuardadoDeVendedor::FaltaCodigo:
            case GuardadoDeVendedor::CodigoRepetido:
                ui.TxtCodigo->setFocus();
                return;
            case GuardadoDeVendedor::FaltaNombre:
                ui.TxtNombre->setFocus();
                return;
            case GuardadoDeVendedor::Guardado:
                vendedor_ = v;
                ventana->accept();
        }
    });
}

void AgregarVendedor(const QString &codigo) {
    Pantalla<FrmNewVendedor>().Agregar(codigo);
    CerrarPantalla<FrmNewVendedor>();
}
