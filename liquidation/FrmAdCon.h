#pragma once

#include <QDialog>
#include <memory>

#include "frame/picklist.h"
#include "liquidation/conceptedit.h"
#include "ui_FrmAdCon.h"

/// A concept of an item's liquidation by hand: a new one, or the change of one that stands.
class FrmAdCon {
 public:
    FrmAdCon();

    /// Asks for a new concept of the item and waits; true when something was written.
    bool Agregar(const QString &interno, const QString &item);
    /// The same for a row that stands, with its values filled in.
    bool Modificar(const QString &interno, const QString &item, const ConceptoEditado &fila);

    Ui::FrmAdCon ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool Mostrar(ModoDeConcepto modo, const QString &interno, const QString &item);
    void LlenarConceptos();
    bool cbCONC_KeyDown(const QKeyEvent *tecla);
    void cbCONC_Change(const QString &texto);
    void cbPGC_Click();
    void RecalcularTotal();
    bool TxtMotivos_KeyDown(const QKeyEvent *tecla);
    void MostrarMotivo();
    void Command1_Click();
    ConceptoEditado Leer() const;

    QString interno_, item_;
    ModoDeConcepto modo_ = ModoDeConcepto::ADD;
    ConceptoEditado anterior_;  ///< the row that is changed, as it stood
    std::vector<ConceptoOfrecido> conceptos_;
    BuscadorPorPrefijo porNombre_, porCodigo_;
    bool borrando_ = false;  ///< the last key in cbCONC took letters away: the text is not completed
};
