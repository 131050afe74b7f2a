#pragma once

#include <QDialog>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "frame/ui/ListaConBusqueda.h"
#include "stock/stock.h"
#include "ui_FrmTomarInsumos.h"

class QKeyEvent;

/// What a line takes of its client's stock: the article and, where the user says so, from which of its lines
/// and how much.
class FrmTomarInsumos {
 public:
    FrmTomarInsumos();

    /// Shows the articles of the operation's client and waits; nothing when the screen was left.
    std::optional<stock::Elegido> Elegir(const QString &interno);

    Ui::FrmTomarInsumos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    /// Reads what is searched; false when the store failed, which was told.
    bool Cargar();
    void CargarLineas();
    void PintarCantidades();
    const stock::ArticuloEnStock *EnMano() const;
    stock::Oferta *OfertaEnMano();
    void TxtCantidad_Enter();
    bool LstLineas_KeyDown(const QKeyEvent *tecla);
    void LstLineas_Change();
    void TxtDeLinea_Enter();
    /// Puts a quantity on an offer; false with a sentence told, or when the user does not want an expired
    /// one.
    bool Poner(stock::Oferta &oferta, double cantidad);
    void CmdTomar_Click();

    QString interno_;
    QDate hoy_;
    ListaConBusqueda lista_;
    std::vector<stock::ArticuloEnStock> articulos_;
    std::vector<stock::Oferta> ofertas_;  ///< of the article in hand
    std::optional<stock::Elegido> elegido_;
};

/// The screen over an operation's client; what was chosen, or nothing.
std::optional<stock::Elegido> TomarInsumos(const QString &interno);
