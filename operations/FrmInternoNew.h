#pragma once

#include <QDialog>
#include <QMenu>
#include <QStandardItemModel>
#include <QTimer>
#include <functional>
#include <memory>
#include <set>
#include <vector>

#include "operations/browser.h"
#include "ui_FrmInternoNew.h"

/// The door to the operations: filters over a grouped grid, from which operations are created, opened, copied
/// and deleted.
class FrmInternoNew {
 public:
    FrmInternoNew();

    void Mostrar();
    /// Runs the search of the filters and fills the grid.
    void BuscarInternos();
    /// The key of the row in hand; empty on a group row and without a row.
    QString InternoSeleccionado() const;
    /// Takes the row in hand to this operation; false when the grid does not show it.
    bool Seleccionar(const QString &interno);

    Ui::FrmInternoNew ui;
    std::unique_ptr<QDialog> ventana;
    std::unique_ptr<QMenu> popup;
    QAction *MnuInsertar = nullptr, *MnuVer = nullptr, *MnuEliminar = nullptr, *MnuTodo = nullptr,
            *MnuPendientes = nullptr, *MnuTransferidos = nullptr, *MnuListar = nullptr,
            *MnuListarTransferidas = nullptr;
    QAction *botonCrear = nullptr, *botonCopiar = nullptr, *botonEliminar = nullptr, *botonListar = nullptr;

 private:
    void Form_Load();
    void ArmarMenu();
    void Conectar();
    FiltroDeInternos LeerFiltro() const;
    const AgrupacionDeInternos &AgrupadoPor() const;
    void Agrupar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool lstInterno_KeyDown(const QKeyEvent *tecla);
    bool txtInterno_KeyDown(const QKeyEvent *tecla);
    bool filtro_KeyDown(QLineEdit *campo, QLabel *nombre, const QKeyEvent *tecla,
                        const std::function<void()> &listar);
    void SeleccionarCliente();
    void BuscarDespachante();
    void Crear();
    void Copiar();
    void Eliminar();
    void Ver();
    void Listar();
    void lp_ImprimirList();
    void MostrarPopup();
    void Elegir(Transferencias cuales);
    void PintarEntrega(const QModelIndex &fila, const FilaDeInterno &operacion);
    void CompararLaSiguiente();
    FilaDeInterno *filaDe(const QString &interno);

    QStandardItemModel modelo_;
    std::vector<FilaDeInterno> filas_;
    FiltroDeInternos filtro_;  ///< what they were searched by
    Transferencias transferencias_ = Transferencias::Todo;
    QTimer *descanso_ = nullptr;    ///< of the keyboard, ahead of each comparison
    std::set<QString> comparadas_;  ///< keys whose hand-over was compared since the search
};
