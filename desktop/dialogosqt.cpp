#include "desktop/dialogosqt.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "assembly/FrmMostrarDatos.h"
#include "desktop/FrmVistaPrevia.h"
#include "desktop/printing.h"
#include "frame/base/web.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"
#include "header/FrmABMClientes.h"
#include "header/FrmListado.h"
#include "liquidation/Frm_ComprobacionErrores.h"
#include "subitems/FrmCargaSufijos.h"

using namespace Qt::StringLiterals;

namespace {

QWidget *duenio() {
    QWidget *activa = QApplication::activeModalWidget();
    if (activa == nullptr) activa = QApplication::activeWindow();
    return activa != nullptr ? activa : pantallas::marco();
}

void ponerReloj(bool activo) {
    const bool puesto = QApplication::overrideCursor() != nullptr;
    if (activo && !puesto) QApplication::setOverrideCursor(Qt::WaitCursor);
    if (!activo && puesto) QApplication::restoreOverrideCursor();
}

/// The arrow while a box waits for the user, also in the middle of long work.
class SinReloj {
 public:
    SinReloj() : habia_(QApplication::overrideCursor() != nullptr) { ponerReloj(false); }
    ~SinReloj() { ponerReloj(habia_); }
    SinReloj(const SinReloj &) = delete;
    SinReloj &operator=(const SinReloj &) = delete;

 private:
    bool habia_;
};

QString tituloDe(const QString &titulo) {
    return titulo.isEmpty() ? QApplication::applicationName() : titulo;
}

QMessageBox::Icon iconoDe(Icono icono) {
    switch (icono) {
        case Icono::Informacion:
            return QMessageBox::Information;
        case Icono::Exclamacion:
            return QMessageBox::Warning;
        case Icono::Critico:
            return QMessageBox::Critical;
        case Icono::Pregunta:
            return QMessageBox::Question;
        case Icono::Ninguno:
            break;
    }
    return QMessageBox::NoIcon;
}

/// A text from elsewhere is never taken for markup, and its line ends are kept.
void ponerTexto(QMessageBox &caja, const QString &texto) {
    caja.setTextFormat(Qt::PlainText);
    QString conFinales = texto;
    caja.setText(conFinales.replace("\r\n"_L1, "\n"_L1));
    // The texts carry their own line ends: a line of usual length is not broken again.
    if (auto *etiqueta = caja.findChild<QLabel *>(u"qt_msgbox_label"_s)) {
        const int ancho = etiqueta->fontMetrics().size(0, conFinales).width();
        etiqueta->setMinimumWidth(std::min(ancho + 8, etiqueta->fontMetrics().averageCharWidth() * 100));
    }
}

void mensaje(const Mensaje &m) {
    const SinReloj sinReloj;
    QMessageBox caja(duenio());
    caja.setIcon(iconoDe(m.icono));
    caja.setWindowTitle(tituloDe(m.titulo));
    ponerTexto(caja, m.texto);
    caja.addButton(u"&Aceptar"_s, QMessageBox::AcceptRole);
    // Never modal to one window alone: such a box is made a sheet, which the platform of VNC never gives the
    // keyboard.
    caja.setWindowModality(Qt::ApplicationModal);
    if (m.modalDeSistema) caja.setWindowFlag(Qt::WindowStaysOnTopHint);
    caja.exec();
}

bool preguntar(const Pregunta &p) {
    const SinReloj sinReloj;
    QMessageBox caja(duenio());
    caja.setIcon(iconoDe(p.icono));
    caja.setWindowTitle(tituloDe(p.titulo));
    ponerTexto(caja, p.texto);
    QPushButton *si = caja.addButton(u"&Sí"_s, QMessageBox::YesRole);
    QPushButton *no = caja.addButton(u"&No"_s, QMessageBox::NoRole);
    caja.setDefaultButton(p.porDefectoNo ? no : si);
    caja.setEscapeButton(no);
    caja.exec();
    return caja.clickedButton() == si;
}

std::optional<QString> pedirTexto(const Entrada &e) {
    const SinReloj sinReloj;
    QInputDialog caja(duenio());
    caja.setWindowTitle(tituloDe(e.titulo));
    caja.setLabelText(e.texto);
    caja.setInputMode(QInputDialog::TextInput);
    caja.setTextValue(e.inicial);
    caja.setOkButtonText(u"&Aceptar"_s);
    caja.setCancelButtonText(u"&Cancelar"_s);
    if (auto *campo = caja.findChild<QLineEdit *>()) {
        // The box goes by its fields alone.
        campo->setMinimumWidth(420);
        campo->setMaxLength(e.maximo);
        campo->selectAll();
    }
    if (caja.exec() != QDialog::Accepted) return std::nullopt;
    return caja.textValue();
}

int elegir(const Eleccion &e) {
    const SinReloj sinReloj;
    if (e.tipo == Eleccion::Tipo::Codigos) {
        const int fila = Pantalla<FrmListado>().Elegir(e);
        CerrarPantalla<FrmListado>();
        return fila;
    }
    if (e.tipo == Eleccion::Tipo::Sufijos) {
        const int fila = Pantalla<FrmCargaSufijos>().Elegir(e);
        CerrarPantalla<FrmCargaSufijos>();
        return fila;
    }
    QDialog caja(duenio());
    caja.setWindowTitle(tituloDe(e.titulo));
    auto *columna = new QVBoxLayout(&caja);
    auto *lista = new QListWidget(&caja);
    lista->addItems(e.filas);
    lista->setCurrentRow(e.inicial);
    constexpr int anchoMaximo = 900;
    lista->setMinimumWidth(std::min(anchoMaximo, lista->sizeHintForColumn(0) + 2 * lista->frameWidth() +
                                                     lista->verticalScrollBar()->sizeHint().width()));
    columna->addWidget(lista);
    auto *botones = new QDialogButtonBox(&caja);
    botones->addButton(u"&Aceptar"_s, QDialogButtonBox::AcceptRole);
    botones->addButton(u"&Cancelar"_s, QDialogButtonBox::RejectRole);
    columna->addWidget(botones);
    QObject::connect(botones, &QDialogButtonBox::accepted, &caja, &QDialog::accept);
    QObject::connect(botones, &QDialogButtonBox::rejected, &caja, &QDialog::reject);
    QObject::connect(lista, &QListWidget::itemActivated, &caja, &QDialog::accept);
    caja.resize(460, 320);
    return caja.exec() == QDialog::Accepted ? lista->currentRow() : -1;
}

RespuestaConOpciones preguntarConOpciones(const PreguntaConOpciones &p) {
    const SinReloj sinReloj;
    const RespuestaConOpciones respuesta = Pantalla<FrmABMClientes>().Preguntar(p);
    CerrarPantalla<FrmABMClientes>();
    return respuesta;
}

void informe(const Informe &i) {
    const SinReloj sinReloj;
    if (i.comoLista) {
        Pantalla<Frm_ComprobacionErrores>().Mostrar(i);
        CerrarPantalla<Frm_ComprobacionErrores>();
        return;
    }
    Pantalla<FrmMostrarDatos>().Mostrar(i);
    CerrarPantalla<FrmMostrarDatos>();
}

/// The end of the first pattern of a filter: "xml" of "Documentos XML (*.xml)".
QString finDeFiltro(const QString &filtro) {
    static const QRegularExpression patron(u"\\(\\*\\.(\\w+)"_s);
    return patron.match(filtro).captured(1);
}

QString guardarComo(const PedidoDeArchivo &p) {
    const SinReloj sinReloj;
    const QFileInfo inicial(p.inicial);
    QFileDialog caja(duenio(), tituloDe(p.titulo), inicial.absolutePath(), p.filtros);
    caja.setAcceptMode(QFileDialog::AcceptSave);
    caja.setFileMode(QFileDialog::AnyFile);
    // Whoever writes the file asks.
    caja.setOption(QFileDialog::DontConfirmOverwrite);
    caja.setDefaultSuffix(finDeFiltro(caja.selectedNameFilter()));
    QObject::connect(&caja, &QFileDialog::filterSelected, &caja,
                     [&caja](const QString &filtro) { caja.setDefaultSuffix(finDeFiltro(filtro)); });
    caja.selectFile(inicial.fileName());
    if (caja.exec() != QDialog::Accepted) return {};
    return caja.selectedFiles().value(0);
}

bool abrirArchivo(const QString &archivo) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(archivo));
}

bool abrirEnlace(const QString &enlace) {
    // Any other scheme would start a program of this machine at the word of a text from elsewhere.
    const QUrl url = DireccionDeLaWeb(enlace);
    return !url.isEmpty() && QDesktopServices::openUrl(url);
}

void vistaPrevia(const papel::Documento &documento) {
    const SinReloj sinReloj;
    Pantalla<FrmVistaPrevia>().Mostrar(documento);
    CerrarPantalla<FrmVistaPrevia>();
}

bool imprimir(const papel::Documento &documento) {
    const SinReloj sinReloj;
    return ImprimirDocumento(documento, duenio());
}

}  // namespace

Dialogos DialogosQt() {
    Dialogos d;
    d.mensaje = mensaje;
    d.preguntar = preguntar;
    d.pedirTexto = pedirTexto;
    d.elegir = elegir;
    d.preguntarConOpciones = preguntarConOpciones;
    d.informe = informe;
    d.guardarComo = guardarComo;
    d.abrirArchivo = abrirArchivo;
    d.abrirEnlace = abrirEnlace;
    d.vistaPrevia = vistaPrevia;
    d.imprimir = imprimir;
    d.reloj = ponerReloj;
    d.atenderEventos = [] { QApplication::processEvents(); };
    return d;
}
