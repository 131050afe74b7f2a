#include "header/FrmBultos.h"

#include <array>
#include <utility>

#include "frame/base/dates.h"
#include "frame/entities.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmABMAgTrans.h"
#include "header/FrmListado.h"
#include "header/FrmLstTrans.h"
#include "header/transportagents.h"

using namespace Qt::StringLiterals;

namespace {

using FormaDeBultos = Ui::FrmBultos;

/// Each text and what it shows.
constexpr std::array<std::pair<QLineEdit * FormaDeBultos::*, QString Bultos::*>, 12> textosDeBultos{{
    {&FormaDeBultos::TxtNroBultos, &Bultos::TxtNroBultos},
    {&FormaDeBultos::TxtCodigo, &Bultos::TxtCodigo},
    {&FormaDeBultos::TxtTipo, &Bultos::TxtTipo},
    {&FormaDeBultos::TxtPeso, &Bultos::TxtPeso},
    {&FormaDeBultos::TxtBultDesp, &Bultos::TxtBultDesp},
    {&FormaDeBultos::TxtMarcaBul, &Bultos::TxtMarcaBul},
    {&FormaDeBultos::TxtVia, &Bultos::TxtVia},
    {&FormaDeBultos::TxtNomTrans, &Bultos::TxtNomTrans},
    {&FormaDeBultos::TxtBandera, &Bultos::TxtBandera},
    {&FormaDeBultos::TxtCuit, &Bultos::TxtCuit},
    {&FormaDeBultos::TxtNombreTrans, &Bultos::TxtNombreTrans},
    {&FormaDeBultos::TxtVencimiento, &Bultos::TxtVencimiento},
}};

/// Each coded field and the label of its description.
constexpr std::array<std::pair<QLineEdit * FormaDeBultos::*, QLabel * FormaDeBultos::*>, 4> codigosDeBultos{{
    {&FormaDeBultos::TxtCodigo, &FormaDeBultos::LbCodigo},
    {&FormaDeBultos::TxtTipo, &FormaDeBultos::LbTipo},
    {&FormaDeBultos::TxtVia, &FormaDeBultos::LbVia},
    {&FormaDeBultos::TxtBandera, &FormaDeBultos::LbBandera},
}};

}  // namespace

FrmBultos::FrmBultos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmBultos::Conectar() {
    QDialog *v = ventana.get();
    for (const auto &[campo, descripcion] : codigosDeBultos) VincularCodigo(ui.*campo, ui.*descripcion);
    for (QLineEdit *campo : {ui.TxtNroBultos, ui.TxtPeso, ui.TxtBultDesp, ui.TxtMarcaBul, ui.TxtNomTrans,
                             ui.TxtCuit, ui.TxtNombreTrans, ui.TxtVencimiento})
        ClCntrl::Vincular(campo);
    EscucharTeclas(ui.TxtCuit, [this](QKeyEvent *tecla) { return TxtCuit_KeyDown(tecla); });
    QObject::connect(ui.TxtVencimiento, &QLineEdit::editingFinished, v,
                     [this] { TxtVencimiento_LostFocus(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() != QEvent::Close || !ventana->isVisible()) return false;
        evento->ignore();
        Form_Escape();
        return true;
    });
}

void FrmBultos::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    interno_ = interno;
    if (!Manejar(ctx, [&] { guardados_ = CargarBultos(ctx, interno); })) return;
    ventana->setWindowTitle(u"Bultos - Operación "_s + interno);
    Escribir(guardados_);
    ui.chTransBultos->setFocus();
    ventana->exec();
}

void FrmBultos::Escribir(const Bultos &bultos) {
    ui.chTransBultos->setChecked(bultos.chTransBultos);
    for (const auto &[campo, miembro] : textosDeBultos) (ui.*campo)->setText(bultos.*miembro);
    for (const auto &[campo, descripcion] : codigosDeBultos) MostrarDescripcion(ui.*campo, ui.*descripcion);
}

Bultos FrmBultos::Leer() const {
    Bultos bultos;
    bultos.chTransBultos = ui.chTransBultos->isChecked();
    for (const auto &[campo, miembro] : textosDeBultos) bultos.*miembro = (ui.*campo)->text();
    return bultos;
}

bool FrmBultos::Form_KeyDown(const QKeyEvent *tecla) {
    // ENTER on the box goes on, as on every field.
    if (EsEnter(tecla)) {
        if (ui.chTransBultos->hasFocus()) ui.TxtNroBultos->setFocus();
        return true;
    }
    switch (tecla->key()) {
        case Qt::Key_F12:
            Listar();
            return true;
        case Qt::Key_Escape:
            Form_Escape();
            return true;
        default:
            return false;
    }
}

bool FrmBultos::TxtCuit_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() == Qt::Key_F6) {
        TxtCuit_F6();
        return true;
    }
    // A number that was refused keeps the focus on its emptied field.
    return EsEnter(tecla) && !TxtCuit_Enter();
}

bool FrmBultos::TxtCuit_Enter() {
    AppContext &ctx = Contexto();
    const QString cuit = ui.TxtCuit->text().trimmed();
    bool sigue = true;
    Manejar(ctx, [&] {
        QString nombre;
        switch (BuscarAgente(ctx, cuit, nombre)) {
            case BusquedaDeAgente::Vacio:
                return;
            case BusquedaDeAgente::CuitInvalido:
                TomarAgente({}, {});
                sigue = false;
                return;
            case BusquedaDeAgente::NoEncontrado:
                if (const auto nuevo = AgregarAgente(cuit)) TomarAgente(nuevo->cuit, nuevo->nombre);
                return;
            case BusquedaDeAgente::Encontrado:
                TomarAgente(cuit, nombre);
        }
    });
    return sigue;
}

void FrmBultos::TxtCuit_F6() {
    QString cuit;
    QString nombre;
    if (ListarAgentes(cuit, nombre)) TomarAgente(cuit, nombre);
    ui.TxtCuit->selectAll();
}

void FrmBultos::TomarAgente(const QString &cuit, const QString &nombre) {
    ui.TxtCuit->setText(cuit);
    ui.TxtNombreTrans->setText(nombre);
}

void FrmBultos::TxtVencimiento_LostFocus() {
    if (const auto vence = fechas::Leer(ui.TxtVencimiento->text()))
        ui.TxtVencimiento->setText(vence->toString(u"dd/MM/yyyy"_s));
}

void FrmBultos::Form_Escape() {
    AppContext &ctx = Contexto();
    Veredicto guardado;
    bool escrito = false;
    const bool seFue = SeFueElStore(ctx, entidad::internos, [&] {
        escrito =
            Manejar(ctx, [&] { guardado = GuardarBultos(ctx, interno_, Leer(), QDate::currentDate()); });
    });
    if (!escrito && seFue) return;
    // What could not be written was told with the store's words; a second ESC would meet the same.
    if (!escrito || guardado.ok) {
        ventana->accept();
        return;
    }
    IrA(guardado.foco);
}

void FrmBultos::Listar() {
    AppContext &ctx = Contexto();
    if (!ctx.salidas.bultos) {
        ctx.dialogos.informar(u"Los listados no están en este programa."_s);
        return;
    }
    // The paper tells what the screen shows: what was keyed is saved first, as leaving would.
    const Bultos enPantalla = Leer();
    Veredicto guardado = Veredicto::bien();
    const bool escrito = Manejar(ctx, [&] {
        if (enPantalla != guardados_)
            guardado = GuardarBultos(ctx, interno_, enPantalla, QDate::currentDate());
    });
    if (!escrito) return;
    if (!guardado.ok) {
        IrA(guardado.foco);
        return;
    }
    guardados_ = enPantalla;
    Manejar(ctx, [&] { ctx.salidas.bultos(interno_); });
}

void FrmBultos::IrA(const QString &control) {
    campos::Enfocar(ventana.get(), control);
}
