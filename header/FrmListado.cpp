#include "header/FrmListado.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmListado::FrmListado() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmListado::Form_Load() {
    // A model and rows of one height: a long list is measured by its first row only.
    ui.LstCod->setUniformItemSizes(true);
    ui.LstCod->setModel(&modelo_);
}

void FrmListado::Conectar() {
    QWidget *v = ventana.get();
    ClCntrl::Vincular(ui.TxtBs);
    // The search box keeps the keyboard: the list's own keys are told to it.
    EscucharTeclas(ui.TxtBs, [this](QKeyEvent *tecla) { return TxtBs_KeyDown(tecla); });
    QObject::connect(ui.TxtBs, &QLineEdit::textChanged, v,
                     [this](const QString &texto) { TxtBs_Change(texto); });
    QObject::connect(ui.LstCod, &QListView::clicked, v, [this](const QModelIndex &fila) {
        estado_.actual = fila.row();
        Confirmar();
    });
}

void FrmListado::Cargar(const Eleccion &eleccion) {
    estado_ = EstadoDeLista(eleccion.filas, eleccion.inicial);
    modelo_.setStringList(eleccion.filas);
    ventana->setWindowTitle(eleccion.titulo);
    const QSignalBlocker callado(ui.TxtBs);
    ui.TxtBs->clear();
    Mostrar();
}

int FrmListado::Elegir(const Eleccion &eleccion) {
    Cargar(eleccion);
    ui.TxtBs->setFocus();
    return ventana->exec() == QDialog::Accepted ? estado_.actual : -1;
}

void FrmListado::TxtBs_Change(const QString &texto) {
    estado_.Escribir(texto);
    Mostrar();
}

bool FrmListado::TxtBs_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        Confirmar();
        return true;
    }
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    const int alto = std::max(1, ui.LstCod->sizeHintForRow(0));
    const int pagina = std::max(1, ui.LstCod->viewport()->height() / alto - 1);
    bool movido = false;
    switch (tecla->key()) {
        case Qt::Key_Up:
            movido = estado_.Mover(-1);
            break;
        case Qt::Key_Down:
            movido = estado_.Mover(1);
            break;
        case Qt::Key_PageUp:
            movido = estado_.Mover(-pagina);
            break;
        case Qt::Key_PageDown:
            movido = estado_.Mover(pagina);
            break;
        case Qt::Key_Home:
            movido = estado_.IrAlPrincipio();
            break;
        case Qt::Key_End:
            movido = estado_.IrAlFinal();
            break;
        default:
            return false;
    }
    if (movido) {
        const QSignalBlocker callado(ui.TxtBs);
        ui.TxtBs->setText(estado_.texto);
        ui.TxtBs->end(false);
    }
    Mostrar();
    return true;
}

void FrmListado::Mostrar() {
    const QModelIndex fila = modelo_.index(estado_.actual, 0);
    ui.LstCod->setCurrentIndex(fila);
    if (fila.isValid())
        ui.LstCod->scrollTo(fila);
    else
        ui.LstCod->clearSelection();
}

void FrmListado::Confirmar() {
    if (estado_.actual >= 0) ventana->accept();
}

namespace {

CampoDeCodigo leer(const QLineEdit *campo, const QString &clave) {
    // A currency answers its rate as well.
    return {campo->text().trimmed(), {}, clave == "DIVISAS"_L1 ? u"Div"_s : QString()};
}

QString claveDe(const QLineEdit *campo) {
    return ClaveDeEtiqueta(campo->property("tag").toString());
}

/// A coded field's handlers; they live as long as the field does.
struct CampoVinculado {
    QLineEdit *campo;
    QLabel *descripcion;
    ReglaDeCodigo regla;
    bool tocado = false;  ///< the user changed it after the last look-up
    QString elegido;      ///< the code that the list left

    /// The service of codes brings no description: the one that the list left stands for its own code.
    void conservarDescripcion(CampoDeCodigo &leido, bool existe) const {
        if (existe && regla.servicio == ServicioDeCodigo::Id && descripcion != nullptr &&
            leido.codigo.compare(elegido, Qt::CaseInsensitive) == 0)
            leido.descripcion = descripcion->text();
    }

    void Escribir(const CampoDeCodigo &leido) {
        if (campo->text() != leido.codigo) campo->setText(leido.codigo);
        tocado = false;
        if (descripcion != nullptr) descripcion->setText(leido.descripcion);
        if (regla.alResolver) Manejar(Contexto(), [&] { regla.alResolver(leido); });
    }

    void Elegir() {
        AppContext &ctx = Contexto();
        const QString clave = claveDe(campo);
        CampoDeCodigo fila = leer(campo, clave);
        if (ElegirCodigo(ctx, clave, fila)) {
            elegido = fila.codigo;
            Escribir(fila);
        }
        campo->selectAll();
    }

    /// `silencio` 1: without a word about a code that is not kept.
    void Confirmar(int silencio = 0) {
        if (CampoRellenaCeros(campo->objectName())) campo->setText(RellenarCodigo(campo->text()));
        const QString clave = claveDe(campo);
        CampoDeCodigo escrito = leer(campo, clave);
        const bool existe = ConfirmarCodigo(Contexto(), clave, escrito, regla.servicio, silencio);
        conservarDescripcion(escrito, existe);
        Escribir(escrito);
    }

    void AlSalir() {
        if (tocado) Confirmar(1);
    }

    bool KeyDown(const QKeyEvent *tecla) {
        if (campo->isReadOnly() || claveDe(campo).isEmpty()) return false;
        if (tecla->key() == Qt::Key_F6) {
            if (regla.boton == nullptr || regla.boton->isEnabled()) Elegir();
            return true;
        }
        if (EsEnter(tecla)) Confirmar();
        return false;
    }
};

}  // namespace

void VincularCodigo(QLineEdit *campo, QLabel *descripcion, ReglaDeCodigo regla) {
    ClCntrl::Vincular(campo);
    const auto vinculado =
        std::make_shared<CampoVinculado>(CampoVinculado{campo, descripcion, std::move(regla), false, {}});
    Escuchar(campo, [vinculado](QEvent *evento) {
        if (evento->type() == QEvent::KeyPress)
            return vinculado->KeyDown(static_cast<const QKeyEvent *>(evento));
        if (evento->type() != QEvent::FocusOut) return false;
        // A window that covers the screen takes the keyboard too, and gives it back.
        const auto motivo = static_cast<const QFocusEvent *>(evento)->reason();
        if (motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason) vinculado->AlSalir();
        return false;
    });
    QObject::connect(campo, &QLineEdit::textEdited, campo, [vinculado] { vinculado->tocado = true; });
    if (vinculado->regla.boton != nullptr)
        QObject::connect(vinculado->regla.boton, &QAbstractButton::clicked, campo, [vinculado] {
            vinculado->campo->setFocus();
            vinculado->Elegir();
        });
    campos::EnMayusculas(campo);
}

void MostrarDescripcion(const QLineEdit *campo, QLabel *descripcion, QString *aux) {
    const QString clave = claveDe(campo);
    CampoDeCodigo escrito = leer(campo, clave);
    const QString texto = BuscarDescripcion(Contexto(), clave, escrito.codigo, escrito.aux, 1);
    if (descripcion != nullptr) descripcion->setText(texto);
    if (aux != nullptr) *aux = texto.isEmpty() ? QString() : escrito.aux;
}
