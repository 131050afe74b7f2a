#include "liquidation/FrmAdCon.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/campos.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

namespace {

/// The kinds of payment, in the order of the box.
struct Obligacion {
    QLatin1String codigo;
    const char *palabras;
};
constexpr Obligacion obligaciones[] = {{"P"_L1, "A pagar"}, {"G"_L1, "Garantizado"}, {"C"_L1, "A cobrar"}};

}  // namespace

FrmAdCon::FrmAdCon() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmAdCon::Form_Load() {
    // Its own search completes the text, by the name or by the code.
    ui.cbCONC->setCompleter(nullptr);
    for (const Obligacion &o : obligaciones) ui.cbPGC->addItem(o.codigo, QString(o.codigo));
}

void FrmAdCon::Conectar() {
    QWidget *v = ventana.get();
    for (QWidget *campo : {static_cast<QWidget *>(ui.cbCONC), static_cast<QWidget *>(ui.cbPGC),
                           static_cast<QWidget *>(ui.txtPorc), static_cast<QWidget *>(ui.txtBimp),
                           static_cast<QWidget *>(ui.TxtValor), static_cast<QWidget *>(ui.TxtMotivos)})
        ClCntrl::Vincular(campo);
    EscucharTeclas(ui.cbCONC, [this](QKeyEvent *tecla) { return cbCONC_KeyDown(tecla); });
    EscucharTeclas(ui.TxtMotivos, [this](QKeyEvent *tecla) { return TxtMotivos_KeyDown(tecla); });
    Escuchar(ui.cbCONC, [this](QEvent *evento) {
        // What the search found is shown whole once the box is left.
        if (evento->type() == QEvent::FocusOut && ui.cbCONC->currentIndex() >= 0)
            ui.cbCONC->setEditText(ui.cbCONC->itemText(ui.cbCONC->currentIndex()));
        return false;
    });
    QObject::connect(ui.cbCONC->lineEdit(), &QLineEdit::textEdited, v,
                     [this](const QString &texto) { cbCONC_Change(texto); });
    QObject::connect(ui.cbPGC, &QComboBox::currentIndexChanged, v, [this] { cbPGC_Click(); });
    for (QLineEdit *campo : {ui.txtPorc, ui.txtBimp})
        QObject::connect(campo, &QLineEdit::textEdited, v, [this] { RecalcularTotal(); });
    QObject::connect(ui.TxtMotivos, &QLineEdit::textChanged, v, [this] { MostrarMotivo(); });
    QObject::connect(ui.Command1, &QPushButton::clicked, v, [this] { Command1_Click(); });
}

bool FrmAdCon::Agregar(const QString &interno, const QString &item) {
    anterior_ = {};
    return Mostrar(ModoDeConcepto::ADD, interno, item);
}

bool FrmAdCon::Modificar(const QString &interno, const QString &item, const ConceptoEditado &fila) {
    anterior_ = fila;
    return Mostrar(ModoDeConcepto::MOD, interno, item);
}

bool FrmAdCon::Mostrar(ModoDeConcepto modo, const QString &interno, const QString &item) {
    interno_ = interno;
    item_ = item;
    modo_ = modo;
    const bool agrega = modo == ModoDeConcepto::ADD;
    ventana->setWindowTitle(agrega ? u"Agregar"_s : u"Modificar"_s);
    ui.Command1->setText(agrega ? u"&Agregar"_s : u"&Modificar"_s);
    ui.lbTeclas->setText(
        u"Escriba para buscar   ·   ENTER  seguir   ·   F6  motivos   ·   %1   ·   ESC  salir sin guardar"_s
            .arg(agrega ? u"ALT+A  agregar"_s : u"ALT+M  modificar"_s));
    ui.lbTituloConcepto->setText(
        (agrega ? u"Concepto nuevo del item %1"_s : u"Concepto del item %1"_s).arg(item));
    if (!Manejar(Contexto(), [this] { LlenarConceptos(); })) return false;
    ui.cbPGC->setCurrentIndex(std::max(0, ui.cbPGC->findData(anterior_.pgc)));
    cbPGC_Click();
    ui.txtPorc->setText(anterior_.porcentaje);
    ui.txtBimp->setText(anterior_.base);
    ui.TxtValor->setText(anterior_.total);
    ui.TxtMotivos->setText(anterior_.motivo);
    ui.cbCONC->setFocus();
    ui.cbCONC->lineEdit()->selectAll();
    return ventana->exec() == QDialog::Accepted;
}

void FrmAdCon::LlenarConceptos() {
    conceptos_ = ListarConceptos(Contexto(), interno_, item_, modo_);
    const auto enMano = [this](const ConceptoOfrecido &c) { return c.codigo == anterior_.codigo; };
    // A row outlives its concept's place in the table.
    if (modo_ == ModoDeConcepto::MOD && std::none_of(conceptos_.begin(), conceptos_.end(), enMano))
        conceptos_.insert(conceptos_.begin(), {anterior_.codigo, anterior_.descripcion});
    QStringList nombres;
    QStringList codigos;
    ui.cbCONC->clear();
    for (const ConceptoOfrecido &c : conceptos_) {
        nombres << c.descripcion + " ("_L1 + c.codigo + u')';
        codigos << c.codigo;
        ui.cbCONC->addItem(nombres.last(), c.codigo);
    }
    porNombre_ = BuscadorPorPrefijo(nombres);
    porCodigo_ = BuscadorPorPrefijo(codigos);
    ui.cbCONC->setCurrentIndex(modo_ == ModoDeConcepto::MOD ? ui.cbCONC->findData(anterior_.codigo) : -1);
    if (ui.cbCONC->currentIndex() < 0) ui.cbCONC->clearEditText();
    // The beginning is what one reads.
    ui.cbCONC->lineEdit()->setCursorPosition(0);
}

bool FrmAdCon::cbCONC_KeyDown(const QKeyEvent *tecla) {
    borrando_ = tecla->key() == Qt::Key_Backspace || tecla->key() == Qt::Key_Delete;
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    const int ultima = ui.cbCONC->count() - 1;
    const int fila = ui.cbCONC->currentIndex();
    // Here the arrows walk the concepts.
    if (tecla->key() != Qt::Key_Up && tecla->key() != Qt::Key_Down) return false;
    const int destino = tecla->key() == Qt::Key_Down ? std::min(fila + 1, ultima) : std::max(fila - 1, 0);
    if (destino <= ultima) ui.cbCONC->setCurrentIndex(destino);
    ui.cbCONC->lineEdit()->selectAll();
    return true;
}

void FrmAdCon::cbCONC_Change(const QString &texto) {
    int fila = -1;
    QString completo;
    if (!texto.isEmpty()) {
        fila = porNombre_.Primera(texto);
        const bool porCodigo = fila < 0;
        if (porCodigo) fila = porCodigo_.Primera(texto);
        if (fila >= 0) {
            const ConceptoOfrecido &c = conceptos_.at(static_cast<std::size_t>(fila));
            completo = porCodigo ? c.codigo + "  "_L1 + c.descripcion : ui.cbCONC->itemText(fila);
        }
    }
    ui.cbCONC->setCurrentIndex(fila);
    const bool sigue = !borrando_ && PlegarTexto(completo.left(texto.size())) == PlegarTexto(texto);
    const QString mostrado = sigue ? texto + completo.mid(texto.size()) : texto;
    QLineEdit *linea = ui.cbCONC->lineEdit();
    linea->setText(mostrado);
    // What was completed is selected: the next letter replaces it.
    linea->setSelection(static_cast<int>(mostrado.size()), static_cast<int>(texto.size() - mostrado.size()));
}

void FrmAdCon::cbPGC_Click() {
    ui.LbPGC->setText(QString::fromUtf8(obligaciones[std::max(0, ui.cbPGC->currentIndex())].palabras));
}

void FrmAdCon::RecalcularTotal() {
    ui.TxtValor->setText(TotalDeConcepto(Contexto(), ui.txtPorc->text(), ui.txtBimp->text()));
}

bool FrmAdCon::TxtMotivos_KeyDown(const QKeyEvent *tecla) {
    if (tecla->key() != Qt::Key_F6) return false;
    QString codigo;
    if (ElegirMotivo(Contexto(), ui.cbPGC->currentData().toString(), codigo)) ui.TxtMotivos->setText(codigo);
    ui.TxtMotivos->selectAll();
    return true;
}

void FrmAdCon::MostrarMotivo() {
    ui.LbMotivo->setText(DescripcionDeMotivo(Contexto(), ui.TxtMotivos->text().trimmed()));
}

ConceptoEditado FrmAdCon::Leer() const {
    ConceptoEditado c;
    if (const int fila = ui.cbCONC->currentIndex(); fila >= 0) {
        c.codigo = conceptos_.at(static_cast<std::size_t>(fila)).codigo;
        c.descripcion = conceptos_.at(static_cast<std::size_t>(fila)).descripcion;
    }
    c.pgc = ui.cbPGC->currentData().toString();
    c.porcentaje = ui.txtPorc->text();
    c.base = ui.txtBimp->text();
    c.total = ui.TxtValor->text();
    c.motivo = ui.TxtMotivos->text();
    return c;
}

void FrmAdCon::Command1_Click() {
    AppContext &ctx = Contexto();
    const ConceptoEditado c = Leer();
    Manejar(ctx, [&] {
        const Veredicto hecho = modo_ == ModoDeConcepto::ADD
                                    ? PF_Guardar(ctx, interno_, item_, c)
                                    : PF_Modificar(ctx, interno_, item_, anterior_.codigo, c);
        if (hecho.ok) {
            ventana->accept();
            return;
        }
        // The checks go on without a reason where none is asked for.
        if (c.pgc != "G"_L1 && !c.codigo.isEmpty()) ui.TxtMotivos->clear();
        campos::Enfocar(ventana.get(), hecho.foco);
    });
}
