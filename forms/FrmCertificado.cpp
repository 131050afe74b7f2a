#include "forms/FrmCertificado.h"

#include <QHeaderView>
#include <array>
#include <utility>

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmListado.h"

using namespace Qt::StringLiterals;

namespace {

using certificados::Ficha;
using FormaDeCertificado = Ui::FrmCertificado;

/// Each text and what it shows.
constexpr std::array<std::pair<QLineEdit * FormaDeCertificado::*, QString Ficha::*>, 6> textosDeCertificado{{
    {&FormaDeCertificado::TxtNumero, &Ficha::TxtNumero},
    {&FormaDeCertificado::TxtFecha, &Ficha::TxtFecha},
    {&FormaDeCertificado::TxtIdPais, &Ficha::TxtIdPais},
    {&FormaDeCertificado::TxtExportador, &Ficha::TxtExportador},
    {&FormaDeCertificado::TxtVencimiento, &Ficha::TxtVencimiento},
    {&FormaDeCertificado::TxtObservaciones, &Ficha::TxtObservaciones},
}};

enum ColumnaDeLineasCubiertas {
    CubreLinea,
    OrdenDeLinea,
    PosicionDeLinea,
    ArticuloDeLinea,
    OrigenDeLinea,
    FobDeLinea,
    CertificadoDeLinea
};

const QString cubierta = u"SÍ"_s;

}  // namespace

FrmCertificado::FrmCertificado() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmCertificado::Conectar() {
    QDialog *v = ventana.get();
    for (QLineEdit *campo :
         {ui.TxtNumero, ui.TxtFecha, ui.TxtVencimiento, ui.TxtExportador, ui.TxtObservaciones})
        ClCntrl::Vincular(campo);
    VincularCodigo(ui.TxtIdPais, ui.LbPais);
    for (QLineEdit *campo : {ui.TxtFecha, ui.TxtVencimiento})
        QObject::connect(campo, &QLineEdit::editingFinished, v, [this, campo] { Fecha_LostFocus(campo); });
    lista_.Preparar(
        ui.GrdLineas,
        {u"Cubre"_s, u"Línea"_s, u"Posición"_s, u"Artículo"_s, u"Origen"_s, u"FOB"_s, u"Certificado"_s},
        {{ui.txtBuscarPosicion, PosicionDeLinea, true}, {ui.txtBuscarArticulo, ArticuloDeLinea, true}},
        {[this] { CambiarEnMano(); }, {}, {}, {}, [this] { Contar(); }}, {OrdenDeLinea, FobDeLinea});
    const int letra = ui.GrdLineas->fontMetrics().averageCharWidth();
    for (const auto &[columna, letras] : {std::pair{CubreLinea, 12},
                                          {OrdenDeLinea, 12},
                                          {PosicionDeLinea, 21},
                                          {OrigenDeLinea, 12},
                                          {FobDeLinea, 15},
                                          {CertificadoDeLinea, 22}})
        ui.GrdLineas->setColumnWidth(columna, letra * letras);
    ui.GrdLineas->horizontalHeader()->setSectionResizeMode(ArticuloDeLinea, QHeaderView::Stretch);
    EscucharTeclas(ui.GrdLineas, [this](const QKeyEvent *tecla) { return GrdLineas_KeyDown(tecla); });
    QObject::connect(ui.CmdDelPais, &QPushButton::clicked, v, [this] { CmdDelPais_Click(); });
    QObject::connect(ui.CmdTodas, &QPushButton::clicked, v, [this] { MarcarAlaVista(true); });
    QObject::connect(ui.CmdNinguna, &QPushButton::clicked, v, [this] { MarcarAlaVista(false); });
    QObject::connect(ui.CmdGuardar, &QPushButton::clicked, v, [this] { CmdGuardar_Click(); });
    Escuchar(v, [this](QEvent *evento) {
        if (evento->type() == QEvent::KeyPress) return Form_KeyDown(static_cast<const QKeyEvent *>(evento));
        if (evento->type() != QEvent::Close || !ventana->isVisible()) return false;
        evento->ignore();
        Salir();
        return true;
    });
}

bool FrmCertificado::Form_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Escape) return false;
    Salir();
    return true;
}

bool FrmCertificado::GrdLineas_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_Space || tecla->modifiers() != Qt::NoModifier) return false;
    if (lista_.Actual() >= 0) CambiarEnMano();
    return true;
}

void FrmCertificado::Fecha_LostFocus(QLineEdit *campo) {
    if (const auto dia = fechas::Leer(campo->text())) campo->setText(dia->toString(u"dd/MM/yyyy"_s));
}

void FrmCertificado::Cargar(const certificados::Legajo &legajo,
                            const certificados::Certificado &certificado) {
    legajo_ = legajo;
    id_ = certificado.id;
    ventana->setWindowTitle(
        (id_ == 0 ? u"Agregar certificado de origen"_s : u"Modificar certificado de origen"_s) +
        u" - Operación "_s + legajo.interno);
    cargada_ = certificados::FichaDe(legajo, certificado);
    cubiertas_ = cargada_.lineas;
    for (const auto &[campo, miembro] : textosDeCertificado) (ui.*campo)->setText(cargada_.*miembro);
    MostrarDescripcion(ui.TxtIdPais, ui.LbPais);
    const QChar separador = Contexto().SeparadorDecimal;
    std::vector<QStringList> filas;
    for (const certificados::Linea &l : legajo_.lineas)
        filas.push_back({cubiertas_.contains(l.id) ? cubierta : QString(), QString::number(l.orden), l.ncm,
                         l.descripcion.isEmpty() ? l.idarticulo : l.idarticulo + " - "_L1 + l.descripcion,
                         l.idpais, numeros::Format(l.fob, u"00.00", separador), l.certorig});
    lista_.Cargar(std::move(filas), 0);
    Contar();
    (certificado.numero.isEmpty() ? ui.TxtNumero : ui.TxtFecha)->setFocus();
}

qint64 FrmCertificado::Editar(const certificados::Legajo &legajo,
                              const certificados::Certificado &certificado) {
    Cargar(legajo, certificado);
    ventana->exec();
    return id_;
}

Ficha FrmCertificado::Leer() const {
    Ficha ficha;
    ficha.id = id_;
    for (const auto &[campo, miembro] : textosDeCertificado) ficha.*miembro = (ui.*campo)->text();
    ficha.lineas = cubiertas_;
    return ficha;
}

bool FrmCertificado::Cambio() const {
    const Ficha ficha = Leer();
    for (const auto &[campo, miembro] : textosDeCertificado)
        if (ficha.*miembro != cargada_.*miembro) return true;
    return ficha.lineas != cargada_.lineas;
}

void FrmCertificado::Cubrir(int fila, bool cubre) {
    const qint64 linea = legajo_.lineas.at(static_cast<std::size_t>(fila)).id;
    if (cubre)
        cubiertas_.insert(linea);
    else
        cubiertas_.erase(linea);
    lista_.Escribir(fila, CubreLinea, cubre ? cubierta : QString());
}

void FrmCertificado::CambiarEnMano() {
    const int fila = lista_.Actual();
    Cubrir(fila, !cubiertas_.contains(legajo_.lineas.at(static_cast<std::size_t>(fila)).id));
    Contar();
}

void FrmCertificado::CmdDelPais_Click() {
    const QString pais = ui.TxtIdPais->text().trimmed();
    if (pais.isEmpty()) {
        Contexto().dialogos.informar(u"Ingrese primero el país de origen del certificado."_s);
        ui.TxtIdPais->setFocus();
        return;
    }
    lista_.EstrecharYa();
    bool alguna = false;
    for (const int fila : lista_.EnVista()) {
        const certificados::Linea &l = legajo_.lineas.at(static_cast<std::size_t>(fila));
        const bool delPais = l.idpais == pais || (legajo_.exportacion && l.idpaisproc == pais);
        // Those of another certificate are taken from it one by one.
        if (!delPais || (!l.certorig.isEmpty() && cargada_.lineas.count(l.id) == 0)) continue;
        Cubrir(fila, true);
        alguna = true;
    }
    Contar();
    if (!alguna)
        Contexto().dialogos.informar(
            u"A la vista no hay líneas de ese país sin certificado; marque con ESPACIO las que pasan de otro "
            "a éste."_s);
}

void FrmCertificado::MarcarAlaVista(bool cubre) {
    lista_.EstrecharYa();
    for (const int fila : lista_.EnVista()) Cubrir(fila, cubre);
    Contar();
}

void FrmCertificado::Contar() {
    const auto todas = static_cast<int>(legajo_.lineas.size());
    QString texto = u"%1 de %2 líneas"_s.arg(cubiertas_.size()).arg(todas);
    if (lista_.Visibles() != todas) texto += u", %1 a la vista"_s.arg(lista_.Visibles());
    ui.LbCubiertas->setText(texto);
}

void FrmCertificado::CmdGuardar_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        const Veredicto guardado = certificados::Guardar(ctx, legajo_.interno, Leer(), id_);
        if (guardado.ok) {
            ventana->accept();
            return;
        }
        campos::Enfocar(ventana.get(), guardado.foco);
    });
}

void FrmCertificado::Salir() {
    AppContext &ctx = Contexto();
    if (!Cambio()) {
        ventana->reject();
        return;
    }
    Pregunta pregunta;
    pregunta.titulo = u"Certificado de origen"_s;
    pregunta.texto = u"Los cambios del certificado no están guardados.\r\n¿Desea guardarlos?"_s;
    if (ctx.dialogos.preguntar(pregunta))
        CmdGuardar_Click();
    else
        ventana->reject();
}
