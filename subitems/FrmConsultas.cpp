#include "subitems/FrmConsultas.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <numeric>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "subitems/FrmBuscarArticulosPorPA.h"
#include "subitems/FrmDetalleNomenclador.h"
#include "subitems/FrmSufijos.h"
#include "subitems/tariffsearch.h"

using namespace Qt::StringLiterals;

/// The rows of a search as the grid shows them: a word may find most of the nomenclature, and no cell is made
/// for a row that is not seen.
class ModeloDeConsulta : public QAbstractTableModel {
 public:
    enum Columna { Posicion, Texto, columnas };

    using QAbstractTableModel::QAbstractTableModel;

    void fijar(std::vector<FilaDeConsulta> filas) {
        beginResetModel();
        filas_ = std::move(filas);
        endResetModel();
    }
    const std::vector<FilaDeConsulta> &filas() const { return filas_; }

    int rowCount(const QModelIndex &padre) const override {
        return padre.isValid() ? 0 : static_cast<int>(filas_.size());
    }
    int columnCount(const QModelIndex &padre) const override { return padre.isValid() ? 0 : columnas; }
    QVariant data(const QModelIndex &celda, int papel) const override {
        if (!celda.isValid()) return {};
        const bool ayuda = papel == Qt::ToolTipRole && celda.column() == Texto;
        return papel == Qt::DisplayRole || ayuda
                   ? texto(filas_.at(static_cast<std::size_t>(celda.row())), celda.column())
                   : QVariant();
    }
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override {
        if (orientacion != Qt::Horizontal) return {};
        if (papel == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
        if (papel != Qt::DisplayRole) return {};
        return columna == Posicion ? u"Posición"_s : u"Descripción"_s;
    }
    void sort(int columna, Qt::SortOrder orden) override {
        if (columna < 0) return;
        Q_EMIT layoutAboutToBeChanged();
        std::vector<std::size_t> antes(filas_.size());
        std::iota(antes.begin(), antes.end(), std::size_t{0});
        std::stable_sort(antes.begin(), antes.end(), [&](std::size_t a, std::size_t b) {
            const int cual =
                QString::localeAwareCompare(texto(filas_[a], columna), texto(filas_[b], columna));
            return orden == Qt::AscendingOrder ? cual < 0 : cual > 0;
        });
        std::vector<FilaDeConsulta> ordenadas(filas_.size());
        std::vector<int> destino(filas_.size());
        for (std::size_t n = 0; n < antes.size(); ++n) {
            ordenadas[n] = std::move(filas_[antes[n]]);
            destino[antes[n]] = static_cast<int>(n);
        }
        filas_ = std::move(ordenadas);
        // The row in hand stays in hand.
        const QModelIndexList viejos = persistentIndexList();
        QModelIndexList nuevos;
        for (const QModelIndex &celda : viejos)
            nuevos << createIndex(destino.at(static_cast<std::size_t>(celda.row())), celda.column());
        changePersistentIndexList(viejos, nuevos);
        Q_EMIT layoutChanged();
    }

 private:
    static const QString &texto(const FilaDeConsulta &fila, int columna) {
        return columna == Posicion ? fila.posicion : fila.texto;
    }

    std::vector<FilaDeConsulta> filas_;
};

FrmConsultas::FrmConsultas() : ventana(HacerDialogo()), modelo_(new ModeloDeConsulta(ventana.get())) {
    ui.setupUi(ventana.get());
    Form_Load();
    Conectar();
}

void FrmConsultas::Form_Load() {
    estilo::PrepararVista(ui.LstResult);
    ui.LstResult->setModel(modelo_);
    ui.LstResult->setColumnWidth(ModeloDeConsulta::Posicion,
                                 ui.LstResult->fontMetrics().averageCharWidth() * 22);
    ui.LstResult->horizontalHeader()->setStretchLastSection(true);
    // A search answers in the order of the positions.
    ui.LstResult->horizontalHeader()->setSortIndicator(ModeloDeConsulta::Posicion, Qt::AscendingOrder);
    ui.LstResult->setSortingEnabled(true);
}

void FrmConsultas::Conectar() {
    QWidget *v = ventana.get();
    PonerBotonPorDefecto(ui.TxtSIM, ui.CmdBuscar);
    PonerBotonPorDefecto(ui.TxtDescripcion, ui.Command1);
    EscucharTeclas(ui.LstResult, [this](QKeyEvent *tecla) { return LstResult_KeyDown(tecla); });
    QObject::connect(ui.LstResult, &QTableView::doubleClicked, v, [this] { VerDetalle(); });
    QObject::connect(ui.CmdBuscar, &QPushButton::clicked, v, [this] { CmdBuscar_Click(); });
    QObject::connect(ui.Command1, &QPushButton::clicked, v, [this] { Command1_Click(); });
    QObject::connect(ui.cmdLicencias, &QPushButton::clicked, v, [this] { cmdLicencias_Click(); });
    EscucharTeclas(v, [this](QKeyEvent *tecla) { return Form_KeyDown(tecla); });
}

void FrmConsultas::PonerBotonPorDefecto(QLineEdit *campo, QPushButton *boton) {
    ClCntrl::Vincular(campo);
    EscucharTeclas(campo, [this, campo](QKeyEvent *tecla) { return Campo_KeyDown(campo, tecla); });
    Escuchar(campo, [boton](QEvent *evento) {
        if (evento->type() == QEvent::FocusIn) boton->setDefault(true);
        return false;
    });
}

void FrmConsultas::Mostrar() {
    MostrarVentana(ventana.get());
    ui.TxtSIM->setFocus();
}

bool FrmConsultas::Form_KeyDown(const QKeyEvent *tecla) {
    switch (tecla->key()) {
        case Qt::Key_Escape:
            CerrarPantalla<FrmConsultas>();
            return true;
        case Qt::Key_F7:
            cmdLicencias_Click();
            return true;
        default:
            return false;
    }
}

bool FrmConsultas::Campo_KeyDown(const QLineEdit *campo, const QKeyEvent *tecla) {
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    const bool esLaPosicion = campo == ui.TxtSIM;
    if (tecla->key() == Qt::Key_Up && !esLaPosicion) {
        ui.TxtSIM->setFocus();
        return true;
    }
    if (tecla->key() != Qt::Key_Down) return false;
    if (esLaPosicion)
        ui.TxtDescripcion->setFocus();
    else if (!modelo_->filas().empty())
        ui.LstResult->setFocus();
    return true;
}

bool FrmConsultas::LstResult_KeyDown(const QKeyEvent *tecla) {
    if (EsEnter(tecla)) {
        VerDetalle();
        return true;
    }
    if ((tecla->modifiers() & ~Qt::KeypadModifier) != 0) return false;
    switch (tecla->key()) {
        case Qt::Key_F2:
            Ordenar(ModeloDeConsulta::Posicion);
            return true;
        case Qt::Key_F3:
            Ordenar(ModeloDeConsulta::Texto);
            return true;
        case Qt::Key_F6:
            VerSufijosDeFila();
            return true;
        case Qt::Key_Home:
            IrA(0);
            return true;
        case Qt::Key_End:
            IrA(static_cast<int>(modelo_->filas().size()) - 1);
            return true;
        default:
            return false;
    }
}

void FrmConsultas::CmdBuscar_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        modelo_->fijar(ConsultarPorPosicion(ctx, ui.TxtSIM->text()));
        MostrarResultado(ui.TxtSIM);
    });
}

void FrmConsultas::Command1_Click() {
    AppContext &ctx = Contexto();
    Manejar(ctx, [&] {
        modelo_->fijar(ConsultarPorPalabras(ctx, ui.TxtDescripcion->text()));
        MostrarResultado(ui.TxtDescripcion);
    });
}

void FrmConsultas::MostrarResultado(QLineEdit *campo) {
    const std::size_t filas = modelo_->filas().size();
    ui.LstResult->horizontalHeader()->setSortIndicator(ModeloDeConsulta::Posicion, Qt::AscendingOrder);
    ui.lbCantidad->setText(filas == 1 ? u"1 posición encontrada"_s
                                      : u"%1 posiciones encontradas"_s.arg(filas));
    if (filas == 0) {
        campo->setFocus();
        campo->selectAll();
        return;
    }
    IrA(0);
    ui.LstResult->setFocus();
}

void FrmConsultas::Ordenar(int columna) {
    const QHeaderView *titulos = ui.LstResult->horizontalHeader();
    const bool otraVez =
        titulos->sortIndicatorSection() == columna && titulos->sortIndicatorOrder() == Qt::AscendingOrder;
    ui.LstResult->sortByColumn(columna, otraVez ? Qt::DescendingOrder : Qt::AscendingOrder);
    ui.LstResult->scrollTo(ui.LstResult->currentIndex());
}

void FrmConsultas::IrA(int fila) {
    // Typed letters search the column in hand.
    ui.LstResult->setCurrentIndex(modelo_->index(fila, std::max(0, ui.LstResult->currentIndex().column())));
}

QString FrmConsultas::PosicionEnMano() const {
    const QModelIndex celda = ui.LstResult->currentIndex();
    return celda.isValid() ? modelo_->filas().at(static_cast<std::size_t>(celda.row())).posicion : QString();
}

void FrmConsultas::VerDetalle() {
    const QString posicion = PosicionEnMano();
    if (!posicion.isEmpty()) VerDetalleNomenclador(posicion);
}

void FrmConsultas::VerSufijosDeFila() {
    const QString posicion = PosicionEnMano();
    if (!posicion.isEmpty()) VerSufijos(posicion, {});
}

void FrmConsultas::cmdLicencias_Click() {
    const QString posicion = PosicionEnMano();
    VerLicencias(posicion.isEmpty() ? ui.TxtSIM->text().trimmed() : posicion);
}
