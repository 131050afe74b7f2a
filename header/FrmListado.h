#pragma once

#include <QDialog>
#include <QStringListModel>
#include <functional>
#include <memory>

#include "frame/dialogs.h"
#include "frame/picklist.h"
#include "header/codes.h"
#include "ui_FrmListado.h"

class QAbstractButton;
class QKeyEvent;
class QLabel;
class QLineEdit;

/// The pick list of every code table: a search box over a list that is searched by its beginning as one
/// types.
class FrmListado {
 public:
    FrmListado();

    /// Shows the list and waits. The chosen row, or -1 when it was left with ESC.
    int Elegir(const Eleccion &eleccion);
    /// Fills the list and empties the search box, without showing the screen.
    void Cargar(const Eleccion &eleccion);

    Ui::FrmListado ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    void TxtBs_Change(const QString &texto);
    bool TxtBs_KeyDown(const QKeyEvent *tecla);
    void Mostrar();
    void Confirmar();

    EstadoDeLista estado_;
    QStringListModel modelo_;
};

/// What a coded field does beyond the code and its description; the defaults suit most fields.
struct ReglaDeCodigo {
    ServicioDeCodigo servicio = ServicioDeCodigo::Descripcion;  ///< what ENTER asks
    /// Hears the code, its description and its aux (the regime's direction, the currency's rate) each time
    /// they were looked up; an empty description: no such code, or an empty field.
    std::function<void(const CampoDeCodigo &)> alResolver;
    QAbstractButton *boton = nullptr;  ///< opens the list too; while it is off, F6 opens none
};

/// Makes a line edit whose tag is "LL-" + key (+ "#F6") a coded field; the tag is read at each key, so that a
/// screen may change it. Binds ClCntrl as well. Letters are upper-cased as they are typed. F6 opens the pick
/// list and writes the chosen code, its description into `descripcion` (null: none) and is swallowed. ENTER
/// on a text looks the code up, tells with a warning when it is not kept, and goes on; leaving a changed
/// field in another way looks it up without a word. The emptied field empties its description.
void VincularCodigo(QLineEdit *campo, QLabel *descripcion, ReglaDeCodigo regla = {});

/// Shows the description of the code that a program wrote into the field (a record just loaded), without a
/// word; `aux` takes the regime's direction or the currency's rate when it is not null.
void MostrarDescripcion(const QLineEdit *campo, QLabel *descripcion, QString *aux = nullptr);
