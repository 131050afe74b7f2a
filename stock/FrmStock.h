#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "frame/ui/ListaConBusqueda.h"
#include "stock/stock.h"
#include "ui_FrmStock.h"

class QKeyEvent;

/// The stock of temporary inputs: what is left of each line and until when, and who took of it.
class FrmStock {
 public:
    FrmStock();

    /// Shows the stock; with a client's tax number, that of the client.
    void Mostrar(const QString &cliente = {});
    /// Shows the stock of the client of an operation.
    void MostrarDeOperacion(const QString &interno);

    Ui::FrmStock ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Lst_Enter();
    /// Reads what is searched, with this line in hand.
    void Cargar(qint64 enMano = 0);
    void MostrarLinea();
    void CargarMovimientos();
    stock::Filtro LeerFiltro() const;
    const stock::Linea *LineaEnMano() const;
    const stock::Movimiento *MovimientoEnMano() const;
    void CmdActualizar_Click();
    void CmdRevisar_Click();
    void CmdInforme_Click();

    ListaConBusqueda lista_;
    std::vector<stock::Linea> lineas_;
    std::vector<stock::Movimiento> movimientos_;  ///< of the line in hand
    QDate hoy_;                                   ///< the day that expiries are judged by
};
