#pragma once

#include <QDialog>
#include <QString>
#include <functional>

#include "frame/ui/ListaConBusqueda.h"
#include "subitems/articlesearch.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

/// The list of a catalogue's articles on a screen: narrowed as one types by the field of its box, asked of
/// the store again by its button.
class ListaDeArticulos {
 public:
    struct Controles {
        QDialog *ventana;
        QLabel *titulo;
        QComboBox *CboCampo;
        QLineEdit *TxtValor;
        QPushButton *CmdBuscar;
        QTableView *Lst;
        QLabel *cantidad;
    };
    /// Binds the widgets of a screen, which outlive this object's events. `eliminar` is what Delete does to
    /// the article in hand, true when it is gone; unset: the key does nothing.
    void Preparar(const Controles &controles, const ConsultaDeArticulos &consulta,
                  std::function<bool(const ArticuloElegido &)> eliminar = {});
    /// Fills the list with a catalogue, shows the screen and waits; a text is searched first, as if typed.
    /// The code of the article taken, or empty.
    QString Elegir(const QString &idcatalogo, const QString &buscado);

 private:
    void TxtValor_Change();
    void CboCampo_Click();
    void CmdBuscar_Click();
    void Eliminar();
    void Cargar(const CampoDeArticulos &campo, const QString &valor);
    bool CargarTodo();
    const CampoDeArticulos &campo() const;
    void ponerFilas(std::vector<QStringList> filas, bool completa);
    void contar();
    void estrechar();

    Controles c_{};
    const ConsultaDeArticulos *consulta_ = nullptr;
    std::function<bool(const ArticuloElegido &)> eliminar_;
    ListaConBusqueda lista_;
    std::vector<QString> codigos_;
    QString idcatalogo_;
    bool completa_ = false;  ///< the rows are the whole catalogue, and not a search of the store
};
