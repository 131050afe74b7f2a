#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "frame/ui/ListaConBusqueda.h"
#include "subitems/linebulk.h"
#include "subitems/linefilters.h"
#include "subitems/linelist.h"
#include "subitems/lines.h"
#include "ui_FrmSubItems.h"

class QActionGroup;
class QKeyEvent;

/// The entry of invoiced lines of one operation, one at a time, beside the list of those that exist.
class FrmSubItems {
 public:
    FrmSubItems();

    /// Shows an operation's lines, ready for a new one. `banderas` are the dashboard's eight flags: 0 hides a
    /// block.
    void Mostrar(const QString &interno, const std::array<int, 8> &banderas);
    std::function<void()> alCerrar;

    Ui::FrmSubItems ui;
    std::unique_ptr<QDialog> ventana;

 private:
    /// A control of the screen and its text in the state.
    struct Campo {
        const DefinicionDeCampo *definicion;
        QWidget *control;
    };

    void Form_Load();
    void Conectar();
    void ConectarCampo(const Campo &campo);
    void ConectarCodigo(const Campo &campo);
    void ConectarLista();
    void ArmarMenu();
    void AbrirMenu();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Form_Unload();

    void Leer();
    void Escribir(bool anotar);
    void EscribirEstado();
    void OfrecerBloques();
    void Trabajar(const std::function<void()> &hacer);
    void PonerFoco(const QString &control);
    void PonerFocoEnPrimero();

    bool Campo_KeyDown(const Campo &campo, const QKeyEvent *tecla);
    bool Campo_Enter(const Campo &campo);
    bool Campo_F6(const Campo &campo);
    void Campo_Change(const Campo &campo);
    void opFob_Click(bool unitario);
    void cmdGrabar_Click();
    void cmdNuevo_Click();
    void cmdEliminar_Click();
    void cmdInsumos_Click();
    void cmdVerSufijos_Click();
    void GenerarReportes();
    void IrALaListaYVolver();

    void Filtro_Click(int numero);
    void Cambio_Click(const CambioMasivo &cambio);
    void EscribirFiltro();

    void CargarLista() { CargarLista(filtro_); }
    void CargarLista(const FiltroActivo &filtro);
    void PonerFila(int fila, const FilaSubItem &linea, bool marcada);
    void ActualizarLinea(qint64 id, bool nueva);
    qint64 IdDeFila(int fila) const;
    int FilaDeId(qint64 id) const;
    std::vector<qint64> IdsMarcados() const;
    void LstArticulos_Enter();

    std::vector<Campo> campos_;
    ListaConBusqueda lista_;
    SubItems s_;
    FiltroActivo filtro_;
    QActionGroup *filtros_ = nullptr;    ///< the entries of the menu; one is checked
    bool listaAtrasada_ = false;         ///< a line was kept that the list could not read
    QString numeroEnMano_;               ///< number of the line in hand
    QWidget *antesDeLaLista_ = nullptr;  ///< the field that F9 goes back to
};
