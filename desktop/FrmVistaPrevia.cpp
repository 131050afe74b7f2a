#include "desktop/FrmVistaPrevia.h"

#include <QDir>
#include <QIntValidator>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/pageprogress.h"
#include "frame/files.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

const QString seccionDeVista = u"VISTAPREVIA"_s;
const QString tituloDeVista = u"Vista preliminar"_s;

constexpr int entreHojas = 16;  ///< pixels, around each page
constexpr int sombraDeHoja = 3;
constexpr int pasoDeFlecha = 48;
constexpr double pasoDeZoom = 1.25;
constexpr double zoomMinimo = 0.2;
constexpr double zoomMaximo = 4;
constexpr double milimetrosPorPulgada = 25.4;

constexpr QRgb fondoDeHojas = 0xffd3dcdd;
constexpr QRgb sombra = 0x33000000;
constexpr QRgb marcaDeHallazgo = 0xfffff3b0;
constexpr QRgb marcaEnMano = 0xffffc233;

QString filtrosDe(const papel::Documento &documento) {
    QString filtros = u"Documento PDF (*.pdf)"_s;
    if (documento.tabla) filtros += u";;Planilla de cálculo (*.xlsx);;Valores separados por comas (*.csv)"_s;
    return filtros + u";;Texto (*.txt)"_s;
}

}  // namespace

FrmVistaPrevia::FrmVistaPrevia() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    for (QLineEdit *campo : {ui.TxtBuscar, ui.TxtHoja}) ClCntrl::Vincular(campo);
    Conectar();
}

void FrmVistaPrevia::Conectar() {
    QDialog *v = ventana.get();
    QObject::connect(ui.CmdImprimir, &QPushButton::clicked, v,
                     [this] { Contexto().dialogos.imprimir(documento_); });
    QObject::connect(ui.CmdGuardar, &QPushButton::clicked, v, [this] { CmdGuardar_Click(); });
    QObject::connect(ui.CmdAlejar, &QPushButton::clicked, v, [this] { acercar(1 / pasoDeZoom); });
    QObject::connect(ui.CmdAcercar, &QPushButton::clicked, v, [this] { acercar(pasoDeZoom); });
    QObject::connect(ui.CmdAncho, &QPushButton::clicked, v, [this] { ajustar(Ajuste::Ancho); });
    QObject::connect(ui.CmdEntera, &QPushButton::clicked, v, [this] { ajustar(Ajuste::Entera); });
    QObject::connect(ui.TxtBuscar, &QLineEdit::textChanged, v, [this] { TxtBuscar_Change(); });
    QObject::connect(ui.ZonaHojas->verticalScrollBar(), &QScrollBar::valueChanged, v,
                     [this] { mostrarDonde(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
    Escuchar(ui.Hojas, [this](QEvent *evento) {
        if (evento->type() != QEvent::Paint) return false;
        Hojas_Paint(static_cast<QPaintEvent *>(evento));
        return true;
    });
    Escuchar(ui.ZonaHojas->viewport(), [this](QEvent *evento) {
        if (evento->type() == QEvent::Resize) acomodar();
        return evento->type() == QEvent::Wheel && ZonaHojas_Wheel(static_cast<QWheelEvent *>(evento));
    });
}

void FrmVistaPrevia::Mostrar(const papel::Documento &documento) {
    documento_ = documento;
    paginado_ = papel::Paginar(documento_.reporte, papel::MedidaDe(documento_.reporte.orientacion));
    hallazgos_.clear();
    enMano_.reset();
    ui.LbHojas->setText(u"de %1"_s.arg(paginado_.hojas.size()));
    ui.TxtHoja->setValidator(new QIntValidator(1, static_cast<int>(paginado_.hojas.size()), ui.TxtHoja));
    ajuste_ = Ajuste::Ancho;
    acomodar();
    irAHoja(0);
    ui.ZonaHojas->setFocus();
    ventana->exec();
}

bool FrmVistaPrevia::Form_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) return Form_Enter();
    switch (tecla->key()) {
        case Qt::Key_Escape:
            ventana->reject();
            return true;
        case Qt::Key_F3:
            siguienteHallazgo(tecla->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
            return true;
        case Qt::Key_F:
        case Qt::Key_B:
            ui.TxtBuscar->setFocus();
            ui.TxtBuscar->selectAll();
            return true;
        case Qt::Key_F11:
        case Qt::Key_G:
            CmdGuardar_Click();
            return true;
        case Qt::Key_F12:
        case Qt::Key_P:
            ui.CmdImprimir->click();
            return true;
        default:
            return teclaDeZoom(tecla) || teclaDeRecorrido(tecla);
    }
}

bool FrmVistaPrevia::teclaDeZoom(const QKeyEvent *tecla) {
    switch (tecla->key()) {
        case Qt::Key_Plus:
            acercar(pasoDeZoom);
            return true;
        case Qt::Key_Minus:
            acercar(1 / pasoDeZoom);
            return true;
        case Qt::Key_A:
            ajustar(Ajuste::Ancho);
            return true;
        case Qt::Key_E:
            ajustar(Ajuste::Entera);
            return true;
        default:
            return false;
    }
}

bool FrmVistaPrevia::teclaDeRecorrido(const QKeyEvent *tecla) {
    QScrollBar *barra = ui.ZonaHojas->verticalScrollBar();
    const bool porHoja = tecla->modifiers().testFlag(Qt::ControlModifier);
    const std::size_t hoja = hojaEnMano();
    switch (tecla->key()) {
        case Qt::Key_PageDown:
            if (porHoja)
                irAHoja(hoja + 1);
            else
                barra->triggerAction(QScrollBar::SliderPageStepAdd);
            return true;
        case Qt::Key_PageUp:
            if (porHoja)
                irAHoja(hoja > 0 ? hoja - 1 : 0);
            else
                barra->triggerAction(QScrollBar::SliderPageStepSub);
            return true;
        case Qt::Key_Down:
            barra->triggerAction(QScrollBar::SliderSingleStepAdd);
            return true;
        case Qt::Key_Up:
            barra->triggerAction(QScrollBar::SliderSingleStepSub);
            return true;
        case Qt::Key_Home:
            barra->setValue(barra->minimum());
            return true;
        case Qt::Key_End:
            barra->setValue(barra->maximum());
            return true;
        default:
            break;
    }
    // A digit typed over the pages begins the number of one.
    if (tecla->key() < Qt::Key_0 || tecla->key() > Qt::Key_9 || porHoja) return false;
    ui.TxtHoja->setFocus();
    ui.TxtHoja->setText(tecla->text());
    return true;
}

bool FrmVistaPrevia::Form_Enter() {
    if (ui.TxtBuscar->hasFocus())
        siguienteHallazgo(1);
    else if (ui.TxtHoja->hasFocus())
        TxtHoja_Enter();
    else if (auto *boton = qobject_cast<QPushButton *>(ventana->focusWidget()))
        boton->click();
    return true;
}

void FrmVistaPrevia::TxtHoja_Enter() {
    const int hojas = static_cast<int>(paginado_.hojas.size());
    irAHoja(static_cast<std::size_t>(std::clamp(ui.TxtHoja->text().toInt(), 1, hojas) - 1));
    ui.ZonaHojas->setFocus();
    mostrarDonde();
}

bool FrmVistaPrevia::ZonaHojas_Wheel(const QWheelEvent *rueda) {
    if (!rueda->modifiers().testFlag(Qt::ControlModifier)) return false;
    if (rueda->angleDelta().y() != 0) acercar(rueda->angleDelta().y() > 0 ? pasoDeZoom : 1 / pasoDeZoom);
    return true;
}

void FrmVistaPrevia::ajustar(Ajuste ajuste) {
    const std::size_t hoja = hojaEnMano();
    ajuste_ = ajuste;
    acomodar();
    if (ajuste == Ajuste::Entera) irAHoja(hoja);
}

void FrmVistaPrevia::acercar(double veces) {
    zoom_ = std::clamp(zoom_ * veces, zoomMinimo, zoomMaximo);
    ajustar(Ajuste::Libre);
}

void FrmVistaPrevia::acomodar() {
    if (paginado_.hojas.empty()) return;
    QScrollBar *barra = ui.ZonaHojas->verticalScrollBar();
    const QSize vista = ui.ZonaHojas->viewport()->size();
    const double hasta = lugarDeHoja(0).height() + entreHojas;
    const double enVista = (barra->value() + entreHojas / 2.0) / hasta;

    const double porMilimetro = ventana->logicalDpiX() / milimetrosPorPulgada;
    const double porAncho = (vista.width() - 2 * entreHojas) / paginado_.medida.width();
    const double porAlto = (vista.height() - 2 * entreHojas) / paginado_.medida.height();
    if (ajuste_ == Ajuste::Ancho) zoom_ = porAncho / porMilimetro;
    if (ajuste_ == Ajuste::Entera) zoom_ = std::min(porAncho, porAlto) / porMilimetro;
    zoom_ = std::clamp(zoom_, zoomMinimo, zoomMaximo);
    escala_ = zoom_ * porMilimetro;

    const QSizeF hoja = paginado_.medida * escala_;
    const double paso = hoja.height() + entreHojas;
    // Rounded: what was fitted to the view may come back a hair wider than it.
    const int ancho = std::max(vista.width(), static_cast<int>(std::lround(hoja.width())) + 2 * entreHojas);
    const int alto =
        static_cast<int>(std::ceil(paso * static_cast<double>(paginado_.hojas.size()))) + entreHojas;
    ui.Hojas->resize(ancho, std::max(vista.height(), alto));
    // A page that is seen whole is followed by the next one; else a bit of what was read stays in view.
    barra->setPageStep(paso <= vista.height() + entreHojas ? static_cast<int>(std::round(paso))
                                                           : vista.height() - pasoDeFlecha);
    barra->setSingleStep(pasoDeFlecha);
    barra->setValue(static_cast<int>(std::round(enVista * paso - entreHojas / 2.0)));
    QScrollBar *horizontal = ui.ZonaHojas->horizontalScrollBar();
    horizontal->setValue((horizontal->minimum() + horizontal->maximum()) / 2);
    ui.LbZoom->setText(u"%1 %"_s.arg(std::lround(zoom_ * 100)));
    ui.Hojas->update();
    mostrarNombres();
    mostrarDonde();
}

void FrmVistaPrevia::mostrarNombres() {
    for (const auto &[etiqueta, texto] : {std::pair(ui.LbTitulo, &documento_.reporte.titulo),
                                          std::pair(ui.LbSubtitulo, &documento_.reporte.subtitulo)})
        etiqueta->setText(etiqueta->fontMetrics().elidedText(*texto, Qt::ElideRight, etiqueta->width()));
    ui.LbSubtitulo->setVisible(!documento_.reporte.subtitulo.isEmpty());
}

QRectF FrmVistaPrevia::lugarDeHoja(std::size_t hoja) const {
    const QSizeF medida = paginado_.medida * escala_;
    const double x = std::max<double>(entreHojas, (ui.Hojas->width() - medida.width()) / 2);
    return {QPointF(std::round(x), entreHojas + (medida.height() + entreHojas) * static_cast<double>(hoja)),
            medida};
}

std::size_t FrmVistaPrevia::hojaEnMano() const {
    // The page in the upper third of what is seen.
    const double donde =
        ui.ZonaHojas->verticalScrollBar()->value() + ui.ZonaHojas->viewport()->height() / 3.0;
    const double hoja = (donde - entreHojas) / (lugarDeHoja(0).height() + entreHojas);
    return std::min(static_cast<std::size_t>(std::max(0.0, hoja)), paginado_.hojas.size() - 1);
}

void FrmVistaPrevia::mostrarDonde() {
    if (!paginado_.hojas.empty() && !ui.TxtHoja->hasFocus())
        ui.TxtHoja->setText(QString::number(hojaEnMano() + 1));
}

void FrmVistaPrevia::irAHoja(std::size_t hoja) {
    const QRectF lugar = lugarDeHoja(std::min(hoja, paginado_.hojas.size() - 1));
    ui.ZonaHojas->verticalScrollBar()->setValue(static_cast<int>(std::round(lugar.top())) - entreHojas);
}

void FrmVistaPrevia::Hojas_Paint(const QPaintEvent *pedido) {
    QPainter pintor(ui.Hojas);
    pintor.fillRect(pedido->rect(), QColor::fromRgba(fondoDeHojas));
    for (std::size_t hoja = 0; hoja < paginado_.hojas.size(); ++hoja) {
        const QRectF lugar = lugarDeHoja(hoja);
        if (lugar.bottom() + sombraDeHoja < pedido->rect().top()) continue;
        if (lugar.top() > pedido->rect().bottom()) break;
        pintor.fillRect(lugar.translated(sombraDeHoja, sombraDeHoja), QColor::fromRgba(sombra));
        pintor.fillRect(lugar, Qt::white);
        const papel::Hoja &esta = paginado_.hojas[hoja];
        for (std::size_t n = 0; n < hallazgos_.size(); ++n) {
            const papel::Hallazgo &hallazgo = hallazgos_[n];
            if (hallazgo.renglon < esta.desde || hallazgo.renglon >= esta.hasta) continue;
            pintor.fillRect(lugarDelHallazgo(hallazgo),
                            QColor::fromRgba(enMano_ == n ? marcaEnMano : marcaDeHallazgo));
        }
        papel::PintarHoja(pintor, lugar, documento_.reporte, paginado_, hoja);
    }
}

QRectF FrmVistaPrevia::lugarDelHallazgo(const papel::Hallazgo &hallazgo) const {
    const std::size_t hoja = papel::HojaDe(paginado_, hallazgo.renglon);
    const QRectF enPapel = papel::LugarDe(documento_.reporte, paginado_, hoja, hallazgo.renglon,
                                          hallazgo.desde, hallazgo.letras);
    return {lugarDeHoja(hoja).topLeft() + enPapel.topLeft() * escala_, enPapel.size() * escala_};
}

void FrmVistaPrevia::TxtBuscar_Change() {
    hallazgos_ = papel::Buscar(documento_.reporte, ui.TxtBuscar->text());
    enMano_.reset();
    if (!hallazgos_.empty()) {
        // From the page in hand on, or from the beginning when there is none behind.
        const std::size_t desde = paginado_.hojas[hojaEnMano()].desde;
        const auto primero =
            std::find_if(hallazgos_.begin(), hallazgos_.end(),
                         [desde](const papel::Hallazgo &uno) { return uno.renglon >= desde; });
        enMano_ = primero == hallazgos_.end() ? 0 : static_cast<std::size_t>(primero - hallazgos_.begin());
    }
    mostrarHallazgo();
}

void FrmVistaPrevia::siguienteHallazgo(int paso) {
    if (ui.TxtBuscar->text().isEmpty()) {
        ui.TxtBuscar->setFocus();
        return;
    }
    if (enMano_) {
        const std::size_t cuantos = hallazgos_.size();
        enMano_ = (*enMano_ + (paso > 0 ? 1 : cuantos - 1)) % cuantos;
    }
    mostrarHallazgo();
}

void FrmVistaPrevia::mostrarHallazgo() {
    const bool falta = !enMano_ && !ui.TxtBuscar->text().isEmpty();
    ui.LbHallazgos->setText(enMano_ ? u"%1 de %2"_s.arg(*enMano_ + 1).arg(hallazgos_.size())
                            : falta ? u"No se encontró"_s
                                    : QString());
    ui.LbHallazgos->setProperty("estado", falta ? u"falta"_s : u"nada"_s);
    ui.LbHallazgos->style()->unpolish(ui.LbHallazgos);
    ui.LbHallazgos->style()->polish(ui.LbHallazgos);
    if (enMano_) {
        const QRect lugar = lugarDelHallazgo(hallazgos_[*enMano_]).toAlignedRect();
        ui.ZonaHojas->ensureVisible(lugar.center().x(), lugar.center().y(), lugar.width() / 2 + entreHojas,
                                    ui.ZonaHojas->viewport()->height() / 4);
        ui.TxtHoja->setText(QString::number(papel::HojaDe(paginado_, hallazgos_[*enMano_].renglon) + 1));
    }
    ui.Hojas->update();
}

void FrmVistaPrevia::CmdGuardar_Click() {
    AppContext &ctx = Contexto();
    const papel::Reporte &reporte = documento_.reporte;
    const QString nombre = NombreSeguro(reporte.nombre.isEmpty() ? reporte.titulo : reporte.nombre);
    const QString archivo = ctx.dialogos.guardarComo(
        {u"Guardar como"_s, QDir(CarpetaDeArchivos(ctx, seccionDeVista)).filePath(nombre + u".pdf"_s),
         filtrosDe(documento_)});
    if (archivo.isEmpty() || !PuedeReemplazarse(ctx, archivo, tituloDeVista)) return;
    QString aviso;
    {
        const Reloj reloj(ctx.dialogos);
        AvanceDeHojas avance(u"Guardando"_s, ventana.get());
        aviso = papel::Escribir(documento_, archivo,
                                [&avance](int hechas, int total) { return avance.Seguir(hechas, total); });
    }
    if (!aviso.isEmpty()) {
        ctx.dialogos.critico(aviso, tituloDeVista);
        return;
    }
    RecordarCarpeta(ctx, seccionDeVista, archivo);
    const QString ruta = QDir::toNativeSeparators(archivo);
    if (!ctx.dialogos.preguntar(
            {u"Se guardó en %1, ¿desea abrirlo?"_s.arg(ruta), tituloDeVista, Icono::Pregunta, true}))
        return;
    if (!ctx.dialogos.abrirArchivo(archivo))
        ctx.dialogos.advertir(u"No hay un programa que abra %1; ábralo desde su carpeta."_s.arg(ruta),
                              tituloDeVista);
}
