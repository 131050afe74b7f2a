#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "liquidation/itemextras.h"
#include "liquidation/itemview.h"
#include "ui_FrmVerItem.h"

class QStringListModel;

/// The items of an operation with their values and their liquidation, and item 0 with the operation's totals:
/// shown, corrected and saved.
class FrmVerItem {
 public:
    FrmVerItem();

    /// Opens the screen on item 0, which recalculates the operation while the liquidation is pending.
    void Mostrar(const QString &interno);
    /// Loads and shows an item by its number. The item in hand is read again, and what was typed stays.
    void VerDetalle(const QString &item);

    /// Called when the screen has closed.
    std::function<void()> alCerrar;

    Ui::FrmVerItem ui;
    std::unique_ptr<QDialog> ventana;

 private:
    /// A field and the widget that shows it.
    struct Campo {
        const CampoDeItem *definicion;
        QWidget *control;
        QVariant etiqueta;  ///< its tag while it can be typed in
    };

    // The page and the moves (FrmVerItem.cpp)
    void Form_Load();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Form_Escape();
    void Scr_Change(int posicion);
    void TxtItem_Enter();
    void IrA(int posicion);
    void IrAItem(const QString &item);
    void ElegirSolapa(int indice);
    void sTab_Change(int indice);
    void EscribirTeclas();
    void MostrarSolapas(const QString &idsubreg);
    void Pintar(const VistaDeItem &vista, bool conLiquidacion, bool otraPagina);
    bool GuardarPagina();
    void cmdGrabar_Click();
    void cmdBuscarItem_Click();
    void cmdProrKg_Click();
    void CmdPrint_Click();

    // The fields (FrmVerItemCampos.cpp)
    void CargarCampos();
    void ConectarCampos();
    void ConectarLista();
    void ConectarONCCA();
    void EscribirCampos(const VistaDeItem &vista, bool otraPagina);
    void HabilitarCampos();
    void AnotarPintados();
    DatosDeItem Leer() const;
    bool Cambio() const;
    void PonerFoco(const QString &control);
    void MarcarLista();
    bool TxtLista_KeyDown(const QKeyEvent *tecla);
    bool CampoDeCaratula_KeyDown(const QKeyEvent *tecla, const QString &respuesta);
    void DescribirONCCA();

    // The lists (FrmVerItemListas.cpp)
    void PrepararListas();
    void ConectarListas();
    void PintarListas(const VistaDeItem &vista, bool otraPagina);
    void lstCertOrig_Enter();
    void PintarLiquidacion(const VistaDeItem &vista, bool otraPagina);
    bool GrdLiq_KeyDown(const QKeyEvent *tecla);
    void InsertarConcepto();
    void PP_LIQ_Modificar();
    void PP_LIQ_ELiminar();
    std::optional<ExtraDeItem> ElegirExtra(const QString &titulo, const std::vector<ExtraDeItem> &extras);
    void CmdAgregarInf_Click();
    void CmdAgregarVen_Click();
    void CmdEliminarInf_Click();
    void CmdEliminarVen_Click();
    bool lstVCancel_KeyDown(const QKeyEvent *tecla);
    void InsertarCancelacion();
    void PP_CNL_Modificar();
    void PP_CNL_Eliminar();
    void ConCancelaciones(const std::function<void()> &hacer);
    const FilaDeCancelacion *CancelacionElegida() const;

    QString interno_;
    QStringList items_;
    QString item_;
    std::vector<Campo> campos_;
    DatosDeItem cargados_;  ///< the page as the store holds it
    DatosDeItem pintados_;  ///< the same as the fields show it
    std::vector<FilaDeCancelacion> cancelaciones_;
    std::unique_ptr<ClassLiquidacion> calculo_;
    QStringListModel *listas_ = nullptr;         ///< what TxtLista offers
    std::optional<DatosDeItem> grabadoFallido_;  ///< the page that could not be saved
    std::optional<DatosDeItem> escapeFallido_;   ///< the one that ESC could not save
    bool listaMarcada_ = false;                  ///< the list of the item in hand is marked as typed
    bool cargada_ = false;                       ///< the page of item_ is shown
    bool enCorrida_ = false;
    bool sinPagina_ =
        false;  ///< the operation's page could not be shown, so it cannot be asked for on leaving
};
