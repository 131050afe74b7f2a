#include "subitems/FrmListaDeArticulos.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <algorithm>

#include "frame/context.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

void ListaDeArticulos::Preparar(const Controles &controles, const ConsultaDeArticulos &consulta,
                                std::function<bool(const ArticuloElegido &)> eliminar) {
    c_ = controles;
    consulta_ = &consulta;
    eliminar_ = std::move(eliminar);
    for (const CampoDeArticulos &campo : CamposDeArticulos()) c_.CboCampo->addItem(campo.rotulo);
    ClCntrl::Vincular(c_.CboCampo);
    ListaConBusqueda::Acciones acciones;
    acciones.tomar = [this] { c_.ventana->accept(); };
    if (eliminar_) acciones.eliminar = [this] { Eliminar(); };
    acciones.estrechar = [this] { contar(); };
    // Heard ahead of the list, which narrows what is loaded then.
    QObject::connect(c_.TxtValor, &QLineEdit::textChanged, c_.ventana, [this] { TxtValor_Change(); });
    lista_.Preparar(c_.Lst, consulta.titulos(), {{c_.TxtValor, 0, true}}, std::move(acciones),
                    consulta.numericas());
    const int letra = c_.Lst->fontMetrics().averageCharWidth();
    const auto ancho = [&](int columna, int letras) {
        if (columna >= 0) c_.Lst->setColumnWidth(columna, letra * letras);
    };
    for (const auto &[columna, letras] :
         {std::pair("idarticulo"_L1, 22), std::pair("ncm"_L1, 24), std::pair("preciounitario"_L1, 22),
          std::pair("total"_L1, 16), std::pair("usuario"_L1, 18), std::pair("fecha"_L1, 18)})
        ancho(consulta.donde(columna), letras);
    c_.Lst->horizontalHeader()->setSectionResizeMode(consulta.donde(u"descripcion"_s), QHeaderView::Stretch);
    QObject::connect(c_.CboCampo, &QComboBox::currentIndexChanged, c_.ventana, [this] { CboCampo_Click(); });
    QObject::connect(c_.CmdBuscar, &QPushButton::clicked, c_.ventana, [this] { CmdBuscar_Click(); });
}

const CampoDeArticulos &ListaDeArticulos::campo() const {
    return CamposDeArticulos().at(static_cast<std::size_t>(c_.CboCampo->currentIndex()));
}

void ListaDeArticulos::Cargar(const CampoDeArticulos &campo, const QString &valor) {
    AppContext &ctx = Contexto();
    std::vector<QStringList> filas;
    Manejar(ctx, [&] { filas = BuscarArticulos(ctx, *consulta_, idcatalogo_, campo, valor); });
    ponerFilas(std::move(filas), campo.columna.isEmpty());
}

bool ListaDeArticulos::CargarTodo() {
    AppContext &ctx = Contexto();
    std::vector<QStringList> filas;
    const bool leidas = Manejar(ctx, [&] { filas = ArticulosDelCatalogo(ctx, *consulta_, idcatalogo_); });
    ponerFilas(std::move(filas), true);
    return leidas;
}

void ListaDeArticulos::ponerFilas(std::vector<QStringList> filas, bool completa) {
    completa_ = completa;
    codigos_.clear();
    codigos_.reserve(filas.size());
    for (const QStringList &celdas : filas) codigos_.push_back(celdas.first());
    lista_.Cargar(std::move(filas));
    contar();
}

void ListaDeArticulos::contar() {
    c_.cantidad->setText(CuantosArticulos(lista_.Visibles(), static_cast<int>(codigos_.size())));
}

void ListaDeArticulos::estrechar() {
    // The whole catalogue has no field; a text that comes looks in the code.
    lista_.EstrecharPor(c_.TxtValor, std::max(0, consulta_->donde(campo().columna)));
}

QString ListaDeArticulos::Elegir(const QString &idcatalogo, const QString &buscado) {
    idcatalogo_ = idcatalogo;
    c_.titulo->setText(u"Artículos de "_s + idcatalogo);
    c_.CboCampo->setCurrentIndex(0);
    c_.TxtValor->clear();
    if (!CargarTodo()) return {};
    c_.TxtValor->setText(buscado);
    lista_.EstrecharYa();
    c_.TxtValor->setFocus();
    c_.TxtValor->selectAll();
    if (c_.ventana->exec() != QDialog::Accepted) return {};
    return codigos_.at(static_cast<std::size_t>(lista_.Actual()));
}

void ListaDeArticulos::TxtValor_Change() {
    // A text is looked for somewhere.
    if (campo().columna.isEmpty() && !c_.TxtValor->text().isEmpty()) {
        const QSignalBlocker callado(c_.CboCampo);
        c_.CboCampo->setCurrentIndex(1);
    }
    // What the store was asked for is a part of the catalogue; another text may be in the rest.
    if (!completa_) CargarTodo();
}

void ListaDeArticulos::CboCampo_Click() {
    if (campo().columna.isEmpty()) c_.TxtValor->clear();
    if (!completa_) CargarTodo();
    estrechar();
}

void ListaDeArticulos::CmdBuscar_Click() {
    Cargar(campo(), c_.TxtValor->text());
    if (lista_.Visibles() > 0) {
        c_.Lst->setFocus();
        return;
    }
    c_.TxtValor->setFocus();
    c_.TxtValor->selectAll();
}

void ListaDeArticulos::Eliminar() {
    AppContext &ctx = Contexto();
    const int fila = lista_.Actual();
    bool eliminado = false;
    Manejar(ctx, [&] { eliminado = eliminar_({idcatalogo_, codigos_.at(static_cast<std::size_t>(fila))}); });
    if (!eliminado) return;
    if (completa_) {
        CargarTodo();
        estrechar();
    } else {
        Cargar(campo(), c_.TxtValor->text());
    }
    // The one behind it takes its place.
    lista_.Seleccionar(std::min(fila, static_cast<int>(codigos_.size()) - 1));
}
