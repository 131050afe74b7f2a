#include "regulatory/frmONCCA.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <utility>

#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/FrmListado.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

enum ColumnaDeLinea { colNumero, colArticulo, colPosicion, colDescripcion, colCategoria, colCorte };

const QString conLista = u"#F6"_s;

}  // namespace

frmONCCA::frmONCCA() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(
        ui.GrdLineas, {u"Nro"_s, u"Artículo"_s, u"Posición"_s, u"Descripción"_s, u"Categoría"_s, u"Corte"_s});
    ui.GrdLineas->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    ui.GrdLineas->horizontalHeader()->setSectionResizeMode(colDescripcion, QHeaderView::Stretch);
    Conectar();
}

void frmONCCA::Conectar() {
    QDialog *v = ventana.get();
    const auto vincular = [this](const char *control, const char *boton, const char *etiqueta,
                                 std::function<void(const CampoDeCodigo &)> alResolver) {
        ReglaDeCodigo regla;
        regla.boton = ventana->findChild<QPushButton *>(L(boton));
        regla.alResolver = std::move(alResolver);
        VincularCodigo(ventana->findChild<QLineEdit *>(L(control)), ventana->findChild<QLabel *>(L(etiqueta)),
                       std::move(regla));
    };
    for (const oncca::CampoConLista &dato : oncca::CamposConLista())
        vincular(dato.control, dato.boton, dato.etiqueta, {});
    vincular("txtCategoriaLinea", "cmdCategoriaLinea", "lbCategoriaLinea",
             [this](const CampoDeCodigo &c) { TomarCodigoDeLinea(&oncca::Linea::categoria, c.codigo); });
    vincular("txtCorteLinea", "cmdCorteLinea", "lbCorteLinea",
             [this](const CampoDeCodigo &c) { TomarCodigoDeLinea(&oncca::Linea::corte, c.codigo); });
    EscucharTeclas(ui.txtCorteLinea, [this](QKeyEvent *tecla) { return txtCorteLinea_KeyDown(tecla); });
    EscucharTeclas(ui.GrdLineas, [this](QKeyEvent *tecla) { return GrdLineas_KeyDown(tecla); });
    QObject::connect(ui.GrdLineas, &QTableWidget::currentCellChanged, v, [this] { GrdLineas_Change(); });
    QObject::connect(ui.chONCCA, &QCheckBox::clicked, v, [this] { chONCCA_Click(); });
    for (const QLineEdit *campo : ventana->findChildren<QLineEdit *>())
        QObject::connect(campo, &QLineEdit::textChanged, ui.lbEstado, &QLabel::clear);
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

void frmONCCA::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    interno_ = interno;
    if (!Manejar(ctx, [&] { datos_ = oncca::CargarDatos(ctx, interno); })) return;
    ventana->setWindowTitle(u"ONCCA - Operación "_s + interno);
    Escribir();
    ui.chONCCA->setFocus();
    ventana->exec();
}

void frmONCCA::Escribir() {
    ui.chONCCA->setChecked(datos_.habilitado);
    for (std::size_t n = 0; n < oncca::cuantosCampos; ++n) {
        const oncca::CampoConLista &dato = oncca::CamposConLista().at(n);
        auto *campo = ventana->findChild<QLineEdit *>(L(dato.control));
        campo->setText(datos_.codigos.at(n));
        MostrarDescripcion(campo, ventana->findChild<QLabel *>(L(dato.etiqueta)));
    }
    const int lineas = static_cast<int>(datos_.lineas.size());
    ui.GrdLineas->setRowCount(lineas);
    for (int fila = 0; fila < lineas; ++fila) PintarLinea(fila);
    if (lineas > 0) ui.GrdLineas->setCurrentCell(0, 0);
    for (QLineEdit *campo : {ui.txtCategoriaLinea, ui.txtCorteLinea}) campo->setEnabled(lineas > 0);
    CambiarEstadosCMD(datos_.habilitado);
    ui.lbEstado->clear();
}

void frmONCCA::Leer() {
    datos_.habilitado = ui.chONCCA->isChecked();
    for (std::size_t n = 0; n < oncca::cuantosCampos; ++n)
        datos_.codigos.at(n) =
            ventana->findChild<QLineEdit *>(L(oncca::CamposConLista().at(n).control))->text().trimmed();
    // What is still being typed.
    TomarCodigoDeLinea(&oncca::Linea::categoria, ui.txtCategoriaLinea->text());
    TomarCodigoDeLinea(&oncca::Linea::corte, ui.txtCorteLinea->text());
}

void frmONCCA::Guardar() {
    AppContext &ctx = Contexto();
    Leer();
    bool guardado = false;
    Manejar(ctx, [&] { guardado = oncca::GuardarDatos(ctx, interno_, datos_); });
    ui.lbEstado->setText(guardado ? u"Datos de ONCCA grabados"_s : QString());
}

bool frmONCCA::Form_KeyDown(const QKeyEvent *tecla) {
    // ENTER on the box goes on, as on every field.
    if (EsEnter(tecla)) {
        if (ui.chONCCA->hasFocus()) ui.txtAcuerdo->setFocus();
        return true;
    }
    switch (tecla->key()) {
        case Qt::Key_F11:
            Guardar();
            return true;
        case Qt::Key_Escape:
            ventana->reject();
            return true;
        default:
            return false;
    }
}

void frmONCCA::chONCCA_Click() {
    ui.lbEstado->clear();
    CambiarEstadosCMD(ui.chONCCA->isChecked());
}

void frmONCCA::CambiarEstadosCMD(bool habilitado) {
    for (QPushButton *boton : ventana->findChildren<QPushButton *>()) boton->setEnabled(habilitado);
    // A field whose list is off has not the colour of one with a list.
    for (QLineEdit *campo : ventana->findChildren<QLineEdit *>()) {
        QString etiqueta = campo->property("tag").toString().remove(conLista);
        if (habilitado) etiqueta += conLista;
        campo->setProperty("tag", etiqueta);
    }
    ui.lbTeclas->setText((habilitado ? u"ENTER  seguir   ·   F6  lista"_s
                                     : u"ENTER  seguir   ·   ALT+H  habilitar las listas"_s) +
                         u"   ·   F11  grabar   ·   ESC  salir sin grabar"_s);
}

// The lines

void frmONCCA::PintarLinea(int fila) {
    AppContext &ctx = Contexto();
    const oncca::Linea &linea = datos_.lineas.at(static_cast<std::size_t>(fila));
    const auto conNombre = [&ctx](const QString &clave, const QString &codigo) {
        return (codigo + QLatin1Char(' ') + oncca::Describir(ctx, clave, codigo)).trimmed();
    };
    const auto poner = [this, fila](int columna, const QString &texto) {
        estilo::PonerCelda(ui.GrdLineas, fila, columna, texto);
    };
    poner(colNumero, u"%1"_s.arg(fila + 1, 4, 10, QLatin1Char('0')));
    poner(colArticulo, linea.idarticulo);
    poner(colPosicion, linea.ncm);
    poner(colDescripcion, linea.descripcion);
    poner(colCategoria, conNombre(oncca::claveDeCategoria, linea.categoria));
    poner(colCorte, conNombre(oncca::claveDeCorte, linea.corte));
}

void frmONCCA::GrdLineas_Change() {
    const int fila = ui.GrdLineas->currentRow();
    if (fila < 0 || fila >= static_cast<int>(datos_.lineas.size())) return;
    const oncca::Linea &linea = datos_.lineas.at(static_cast<std::size_t>(fila));
    ui.txtCategoriaLinea->setText(linea.categoria);
    ui.txtCorteLinea->setText(linea.corte);
    MostrarDescripcion(ui.txtCategoriaLinea, ui.lbCategoriaLinea);
    MostrarDescripcion(ui.txtCorteLinea, ui.lbCorteLinea);
}

bool frmONCCA::GrdLineas_KeyDown(const QKeyEvent *tecla) {
    if (!EsEnter(tecla)) return false;
    if (ui.txtCategoriaLinea->isEnabled()) ui.txtCategoriaLinea->setFocus();
    return true;
}

bool frmONCCA::txtCorteLinea_KeyDown(const QKeyEvent *tecla) {
    // The last datum of a line leads to the next line.
    if (!EsEnter(tecla)) return false;
    CampoDeCodigo corte{ui.txtCorteLinea->text().trimmed(), {}, {}};
    ConfirmarCodigo(Contexto(), oncca::claveDeCorte, corte);
    ui.txtCorteLinea->setText(corte.codigo);
    ui.lbCorteLinea->setText(corte.descripcion);
    TomarCodigoDeLinea(&oncca::Linea::corte, corte.codigo);
    ui.GrdLineas->setFocus();
    const int siguiente = ui.GrdLineas->currentRow() + 1;
    if (siguiente < ui.GrdLineas->rowCount()) ui.GrdLineas->setCurrentCell(siguiente, 0);
    return true;
}

void frmONCCA::TomarCodigoDeLinea(QString oncca::Linea::*codigo, const QString &valor) {
    const int fila = ui.GrdLineas->currentRow();
    if (fila < 0 || fila >= static_cast<int>(datos_.lineas.size())) return;
    QString &suyo = datos_.lineas.at(static_cast<std::size_t>(fila)).*codigo;
    if (suyo == valor.trimmed()) return;
    suyo = valor.trimmed();
    PintarLinea(fila);
    ui.lbEstado->clear();
}
