#pragma once
// The declaration header as FrmCaratula holds it: every control with its state. The screen copies its widgets
// into this state, calls the routine of the event, and copies the state back.

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

/// One control of the screen. A tick box holds "S" or "N", a list of two answers the answer.
struct ControlDeCaratula {
    bool visible = true;
    bool habilitado = true;
    QString texto;
    QString mostrado;  ///< what a mask shows of a loaded number …
    QString cargado;   ///< … and the number itself, with all its decimals; empty when none was loaded

    /// What the control stands for: a mask is for showing alone, so a number that nobody has changed since it
    /// was loaded counts with the decimals that its mask hides.
    const QString &valor() const { return !cargado.isEmpty() && texto == mostrado ? cargado : texto; }
    /// A text from a key or a rule. A loaded number is gone with it, also when both look alike.
    void poner(const QString &nuevo) {
        texto = nuevo;
        cargado.clear();
    }
    /// What the checks call enabled: a hidden control takes no input.
    bool activo() const { return visible && habilitado; }
};

enum class TipoDeControl { Texto, Descripcion, Casilla, Lista, Opciones, Boton };

/// A control by its name, with what its keys do.
struct DefinicionDeControl {
    const char *nombre;
    TipoDeControl tipo;
    const char *clave = "";        ///< code table of a coded field ("LL-" + clave is its tag)
    const char *descripcion = "";  ///< control that shows the description of the code
    int maximo = 0;                ///< characters it takes; 0: no limit
};
/// Every control that has a rule, in the order of the work.
const std::vector<DefinicionDeControl> &ControlesDeCaratula();
/// Null for a name that is not one of them; in any case.
const DefinicionDeControl *DefinicionDe(const QString &nombre);
/// True for the fields that hold a code, whose letters are capitals.
bool EsCampoDeCodigo(const DefinicionDeControl &definicion);

/// Names compare without regard to case: a column of `dest` is a control's name in small letters.
struct SinMayusculas {
    bool operator()(const QString &a, const QString &b) const {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    }
};

/// The two screens that the header opens in the middle of a rule; without them nothing is chosen.
struct ServiciosDeCaratula {
    /// The book of clients (SeleccionarCliente): the chosen tax number, or the empty text.
    std::function<QString()> SeleccionarCliente;
    /// FrmNewVendedor with the code filled in.
    std::function<void(const QString &codigo)> AgregarVendedor;
};

struct Caratula {
    QString interno;
    std::map<QString, ControlDeCaratula, SinMayusculas> controles;
    QStringList LstFact;            ///< invoice numbers, in order
    int cboOpcionIVA = -1;          ///< index of the option; -1: none
    int cboOpcionesGanancias = -1;  ///< the same
    QString cstaimpexp;             ///< direction letter of the regime
    double regalias = 0;            ///< percent of the client in hand
    double ajxvinc_4102 = 0;        ///< percent of the client in hand
    double totalProrrateado = 0;    ///< sum of the proration codes
    /// Currency whose rate was filled last, by its field: ENTER on an unchanged currency keeps a typed rate.
    std::map<QString, QString, SinMayusculas> divisaVista;
    ServiciosDeCaratula servicios;

    /// The control, by its name in any case. Raises Falla for a name that is not one of ControlesDeCaratula.
    ControlDeCaratula &operator[](const char *nombre);
    const ControlDeCaratula &operator[](const char *nombre) const;
    ControlDeCaratula &control(const QString &nombre);
    const ControlDeCaratula &control(const QString &nombre) const;
    const QString &texto(const char *nombre) const { return (*this)[nombre].texto; }
    /// The number or text that rules and statements take: `texto` unless a mask shows less than was loaded.
    const QString &valor(const char *nombre) const { return (*this)[nombre].valor(); }
    void poner(const char *nombre, const QString &valor) { (*this)[nombre].poner(valor); }
    /// The regime code as it stands.
    const QString &regimen() const { return texto("TxtSubReg"); }
};
