#include "header/FrmCliente.h"

#include <QHeaderView>
#include <algorithm>
#include <array>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmListado.h"

using namespace Qt::StringLiterals;

namespace {

using ClientBook::Ficha;

/// Which control shows which column.
struct Texto {
    const char *columna;
    QString Ficha::*campo;
    QLineEdit *Ui::FrmCliente::*control;
};
constexpr std::array<Texto, 11> textos{
    {{"cuit", &Ficha::cuit, &Ui::FrmCliente::TxtCuit},
     {"nombre", &Ficha::nombre, &Ui::FrmCliente::TxtNombre},
     {"domicilio", &Ficha::domicilio, &Ui::FrmCliente::TxtDomicilio},
     {"email", &Ficha::email, &Ui::FrmCliente::TxtEmail},
     {"regalias", &Ficha::regalias, &Ui::FrmCliente::TxtRegalias},
     {"ajxvinc_4102", &Ficha::ajxvinc_4102, &Ui::FrmCliente::TxtAjxVinc},
     {"ingbru", &Ficha::ingbru, &Ui::FrmCliente::TxtIngBru},
     {"eximganvalor", &Ficha::eximganvalor, &Ui::FrmCliente::TxtEximGan},
     {"eximganvalortemp", &Ficha::eximganvalortemp, &Ui::FrmCliente::TxtEximGanTemp},
     {"ivaareduccionvalor", &Ficha::ivaareduccionvalor, &Ui::FrmCliente::TxtIvaReduccion},
     {"ivaareduccionvalortemp", &Ficha::ivaareduccionvalortemp, &Ui::FrmCliente::TxtIvaReduccionTemp}}};

struct Bandera {
    bool Ficha::*campo;
    QCheckBox *Ui::FrmCliente::*control;
};
constexpr std::array<Bandera, 4> banderas{{{&Ficha::eximgan, &Ui::FrmCliente::chkEximGan},
                                           {&Ficha::ivaareduccion, &Ui::FrmCliente::chkIvaReduccion},
                                           {&Ficha::cvdi, &Ui::FrmCliente::chkCvdi},
                                           {&Ficha::ExcepLAPIAEC, &Ui::FrmCliente::chkExcepLAPIAEC}}};

}  // namespace

FrmCliente::FrmCliente() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmCliente::Form_Load() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] { catalogo_ = ClientBook::CatalogoDeVentajas(ctx); });
}

void FrmCliente::Conectar() {
    QWidget *v = ventana.get();
    for (const Texto &t : textos) ClCntrl::Vincular(ui.*t.control);
    for (const Bandera &b : banderas) ClCntrl::Vincular(ui.*b.control);
    for (const QCheckBox *marca : {ui.chkEximGan, ui.chkIvaReduccion})
        QObject::connect(marca, &QCheckBox::toggled, v, [this] { HabilitarPorcentajes(); });

    for (QLineEdit *campo : {ui.TxtVentaja, ui.TxtNcm}) {
        ClCntrl::Vincular(campo);
        campos::EnMayusculas(campo);
    }
    EscucharTeclas(ui.TxtVentaja, [this](QKeyEvent *tecla) { return TxtVentaja_KeyDown(tecla); });
    QObject::connect(ui.TxtVentaja, &QLineEdit::textChanged, v,
                     [this](const QString &id) { ui.LbVentaja->setText(DescripcionDeVentaja(id)); });
    VincularCodigo(ui.TxtSubReg, ui.LbSubReg);
    lista_.Preparar(ui.GrdVentajas, {u"Ventaja"_s, u"Descripción"_s, u"Subrégimen"_s, u"Posición"_s}, {},
                    {[this] { ModificarVentaja(); }, [this] { ModificarVentaja(); },
                     [this] {
                         VaciarVentaja();
                         ui.TxtVentaja->setFocus();
                     },
                     [this] { QuitarVentaja(); }});
    const int letra = ui.GrdVentajas->fontMetrics().averageCharWidth();
    ui.GrdVentajas->setColumnWidth(0, letra * 24);
    ui.GrdVentajas->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    ui.GrdVentajas->setColumnWidth(2, letra * 20);
    ui.GrdVentajas->setColumnWidth(3, letra * 20);

    QObject::connect(ui.cmdAgregarVentaja, &QPushButton::clicked, v, [this] { cmdAgregarVentaja_Click(); });
    QObject::connect(ui.cmdGuardar, &QPushButton::clicked, v, [this] { cmdGuardar_Click(); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() == QEvent::KeyPress) return Form_KeyDown(static_cast<const QKeyEvent *>(evento));
        if (evento->type() != QEvent::Close) return false;
        evento->ignore();
        Salir();
        return true;
    });
}

bool FrmCliente::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape) return false;
    Salir();
    return true;
}

void FrmCliente::HabilitarPorcentajes() {
    // A percentage counts only with its mark; it is kept while the mark is off.
    for (QLineEdit *campo : {ui.TxtEximGan, ui.TxtEximGanTemp}) campo->setEnabled(ui.chkEximGan->isChecked());
    for (QLineEdit *campo : {ui.TxtIvaReduccion, ui.TxtIvaReduccionTemp})
        campo->setEnabled(ui.chkIvaReduccion->isChecked());
}

void FrmCliente::Cargar(const Ficha &ficha, bool nuevo) {
    nuevo_ = nuevo;
    ventana->setWindowTitle(nuevo ? u"Agregar cliente"_s : u"Modificar cliente"_s);
    for (const Texto &t : textos) (ui.*t.control)->setText(ficha.*t.campo);
    for (const Bandera &b : banderas) (ui.*b.control)->setChecked(ficha.*b.campo);
    HabilitarPorcentajes();
    // The number names the client in operations and advantages.
    ui.TxtCuit->setEnabled(nuevo);
    ventajas_ = ficha.ventajas;
    VaciarVentaja();
    MostrarVentajas(0);
    cargada_ = Leer();
    (nuevo && ficha.cuit.isEmpty() ? ui.TxtCuit : ui.TxtNombre)->setFocus();
}

Ficha FrmCliente::Leer() const {
    Ficha ficha;
    for (const Texto &t : textos) ficha.*t.campo = (ui.*t.control)->text();
    for (const Bandera &b : banderas) ficha.*b.campo = (ui.*b.control)->isChecked();
    ficha.ventajas = ventajas_;
    return ficha;
}

QString FrmCliente::Mostrar() {
    return ventana->exec() == QDialog::Accepted ? cargada_.cuit : QString();
}

QString FrmCliente::Agregar(const QString &cuit) {
    Ficha ficha = ClientBook::Nueva();
    ficha.cuit = cuit;
    Cargar(ficha, true);
    return Mostrar();
}

QString FrmCliente::Modificar(const QString &cuit) {
    AppContext &ctx = Contexto();
    const auto ficha = ClientBook::Leer(ctx, cuit);
    if (!ficha) {
        ctx.dialogos.advertir(
            u"El cliente con el CUIT %1 ya no está en la base, otro puesto lo eliminó."_s.arg(cuit),
            u"Clientes"_s);
        return {};
    }
    Cargar(*ficha, false);
    return Mostrar();
}

void FrmCliente::cmdGuardar_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        Ficha ficha = Leer();
        if (const auto falta = ClientBook::Guardar(ctx, ficha, nuevo_)) {
            IrA(*falta);
            return;
        }
        if (nuevo_) ficha.cuit = ClientBook::LimpiarCuit(ficha.cuit);
        cargada_ = ficha;
        ventana->accept();
    });
}

void FrmCliente::Salir() {
    AppContext &ctx = Contexto();
    if (Leer() == cargada_) {
        ventana->reject();
        return;
    }
    Pregunta pregunta;
    pregunta.titulo = u"Clientes"_s;
    pregunta.texto = u"Los cambios del cliente no están guardados.\r\n¿Desea guardarlos?"_s;
    if (ctx.dialogos.preguntar(pregunta))
        cmdGuardar_Click();
    else
        ventana->reject();
}

void FrmCliente::IrA(const ClientBook::Falta &falta) {
    if (falta.fila >= 0) {
        lista_.Seleccionar(falta.fila);
        ui.GrdVentajas->setFocus();
        return;
    }
    for (const Texto &t : textos) {
        if (falta.campo != QLatin1String(t.columna)) continue;
        // A wrong percentage under a mark that is off can be mended all the same.
        (ui.*t.control)->setEnabled(true);
        (ui.*t.control)->setFocus();
        (ui.*t.control)->selectAll();
    }
}

QString FrmCliente::DescripcionDeVentaja(const QString &id) const {
    const auto es = [&id](const ClientBook::VentajaDeCatalogo &v) {
        return v.id.trimmed().compare(id.trimmed(), Qt::CaseInsensitive) == 0;
    };
    const auto hallada = std::find_if(catalogo_.begin(), catalogo_.end(), es);
    return hallada == catalogo_.end() ? QString() : hallada->descripcion;
}

void FrmCliente::MostrarVentajas(int actual) {
    std::vector<QStringList> filas;
    for (const ClientBook::Ventaja &v : ventajas_)
        filas.push_back({v.idventaja, DescripcionDeVentaja(v.idventaja), v.idSubRegimen, v.NCM});
    lista_.Cargar(filas, std::max(0, actual));
}

bool FrmCliente::TxtVentaja_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_F6) return false;
    ElegirVentaja();
    return true;
}

void FrmCliente::ElegirVentaja() {
    AppContext &ctx = Contexto();
    QString id;
    Manejar(ctx, [&] { id = ClientBook::getVentajasListado(ctx); });
    if (!id.isEmpty()) ui.TxtVentaja->setText(id);
    ui.TxtVentaja->selectAll();
}

void FrmCliente::cmdAgregarVentaja_Click() {
    AppContext &ctx = Contexto();
    const ClientBook::Ventaja v{ui.TxtSubReg->text().trimmed(), ui.TxtNcm->text().trimmed(),
                                ui.TxtVentaja->text().trimmed()};
    if (v == ClientBook::Ventaja()) {
        // Nothing to add: the work goes on.
        ui.cmdGuardar->setFocus();
        return;
    }
    Manejar(ctx, [&] {
        std::vector<ClientBook::Ventaja> propuestas = ventajas_;
        int fila = modificando_;
        if (fila < 0) {
            fila = static_cast<int>(propuestas.size());
            propuestas.push_back(v);
        } else {
            propuestas[static_cast<std::size_t>(fila)] = v;
        }
        Ficha ficha = Leer();
        ficha.ventajas = propuestas;
        for (const ClientBook::Falta &falta : ClientBook::Revisar(ctx, ficha, false)) {
            if (falta.fila != fila) continue;
            ctx.dialogos.advertir(falta.mensaje, u"Clientes"_s);
            ui.TxtVentaja->setFocus();
            return;
        }
        ventajas_ = propuestas;
        VaciarVentaja();
        MostrarVentajas(fila);
        ui.TxtVentaja->setFocus();
    });
}

void FrmCliente::ModificarVentaja() {
    const int fila = lista_.Actual();
    if (fila < 0) return;
    const ClientBook::Ventaja &v = ventajas_[static_cast<std::size_t>(fila)];
    modificando_ = fila;
    ui.TxtVentaja->setText(v.idventaja);
    ui.TxtSubReg->setText(v.idSubRegimen);
    MostrarDescripcion(ui.TxtSubReg, ui.LbSubReg);
    ui.TxtNcm->setText(v.NCM);
    ui.cmdAgregarVentaja->setText(u"C&ambiar ventaja"_s);
    ui.TxtVentaja->setFocus();
}

void FrmCliente::QuitarVentaja() {
    const int fila = lista_.Actual();
    ventajas_.erase(ventajas_.begin() + fila);
    VaciarVentaja();
    MostrarVentajas(fila);
}

void FrmCliente::VaciarVentaja() {
    modificando_ = -1;
    for (QLineEdit *campo : {ui.TxtVentaja, ui.TxtSubReg, ui.TxtNcm}) campo->clear();
    for (QLabel *rotulo : {ui.LbVentaja, ui.LbSubReg}) rotulo->clear();
    ui.cmdAgregarVentaja->setText(u"&Agregar ventaja"_s);
}
