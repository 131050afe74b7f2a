#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <vector>

#include "frame/paper/search.h"
#include "frame/paper/table.h"
#include "ui_FrmVistaPrevia.h"

class QKeyEvent;
class QPaintEvent;
class QWheelEvent;

/// A document as it will be printed, page by page: read, searched, printed and saved from here; ESC leaves.
class FrmVistaPrevia {
 public:
    FrmVistaPrevia();

    /// Shows the document and waits until the user leaves.
    void Mostrar(const papel::Documento &documento);

    Ui::FrmVistaPrevia ui;
    std::unique_ptr<QDialog> ventana;

 private:
    enum class Ajuste { Ancho, Entera, Libre };

    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool Form_Enter();
    bool teclaDeZoom(const QKeyEvent *tecla);
    bool teclaDeRecorrido(const QKeyEvent *tecla);
    bool ZonaHojas_Wheel(const QWheelEvent *rueda);
    void Hojas_Paint(const QPaintEvent *pedido);
    void TxtBuscar_Change();
    void TxtHoja_Enter();
    void CmdGuardar_Click();

    void ajustar(Ajuste ajuste);
    void acercar(double veces);
    /// Sizes the pages for the window and keeps in view what was.
    void acomodar();
    void mostrarNombres();
    void mostrarDonde();
    void irAHoja(std::size_t hoja);
    std::size_t hojaEnMano() const;
    QRectF lugarDeHoja(std::size_t hoja) const;
    QRectF lugarDelHallazgo(const papel::Hallazgo &hallazgo) const;
    /// Takes the next text found (`paso` 1) or the one before it (-1), round the end.
    void siguienteHallazgo(int paso);
    void mostrarHallazgo();

    papel::Documento documento_;
    papel::Paginado paginado_;
    Ajuste ajuste_ = Ajuste::Ancho;
    double zoom_ = 1;    ///< 1: the size of the paper
    double escala_ = 1;  ///< pixels a millimetre
    std::vector<papel::Hallazgo> hallazgos_;
    std::optional<std::size_t> enMano_;  ///< of what was found
};
